// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/whole_file.h"
#include "shell/last_words.h"
#include "ui/application.h"
#include "ui/guarded_application.h"
#include "ui/platform_preferences.h"
#include "ui/text.h"

#include <QMessageBox>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

// As the terminal tool.
constexpr int kUsage = 2;
constexpr int kRunFailed = 4;
constexpr int kFileFailed = 5;

constexpr std::string_view kReset = "--reset-settings";

constexpr const char* kHelp =
    "Usage: comfortics [option ...]\n"
    "Opens the window of Comfortics, a calculator of indices of bioclimatology and thermal stress.\n"
    "\n"
    "  -h, --help        Print this help text and exit\n"
    "  --version         Print the version and exit\n"
    "  --reset-settings  Forget what is kept between sessions, then open the window\n"
    "\n"
    "The options that every Qt program knows are accepted too, for instance -platform NAME.\n"
    "For scripts and pipelines there is comfortics-cli.\n";

// What needs no display is answered before one is looked for.
const char* answer(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (argument == "-h" || argument == "--help")
            return kHelp;
        if (argument == "--version")
            return "comfortics " COMFORTICS_VERSION "\n";
    }
    return nullptr;
}

void tell(const std::string& sentence)
{
    QMessageBox::critical(
        nullptr, QStringLiteral("Comfortics"),
        comfortics::ui::toQt(sentence + "\nComfortics closes, for its figures could be wrong now."));
}

int run(int argc, char** argv)
{
    if (const char* const text = answer(argc, argv)) {
        if (std::fputs(text, stdout) >= 0 && std::fflush(stdout) == 0)
            return EXIT_SUCCESS;
        std::fputs("comfortics: The standard output cannot be written.\n", stderr);
        return kFileFailed;
    }
    const comfortics::ui::GuardedApplication qt(argc, argv, tell); // takes the options of Qt out
    const bool reset = argc > 1 && std::string_view(argv[1]) == kReset;
    if (argc > (reset ? 2 : 1)) {
        std::fprintf(stderr, "comfortics: There is no option \"%s\"; see comfortics --help.\n",
                     argv[reset ? 2 : 1]);
        return kUsage;
    }
    QApplication::setApplicationName(QStringLiteral("comfortics"));
    QApplication::setApplicationVersion(QStringLiteral(COMFORTICS_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("comfortics"));
    QApplication::setQuitOnLastWindowClosed(false); // the closing question decides

    if (reset && !comfortics::ui::PlatformPreferences().reset()) {
        std::fputs("comfortics: The settings cannot be reset: their file cannot be removed.\n", stderr);
        return kFileFailed;
    }

    comfortics::output::WholeFile::leaveNothingWhenKilled();
    comfortics::ui::Application application(comfortics::ui::fromQt(QApplication::applicationDirPath()));
    application.start();
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv)
{
    comfortics::shell::speakBeforeTheEnd("comfortics", kRunFailed);
    std::signal(SIGXFSZ, SIG_IGN); // a file over the limit of size fails to be written
    try {
        return run(argc, argv);
    } catch (...) {
        comfortics::shell::sayLastWords("comfortics");
        return kRunFailed;
    }
}
