// SPDX-License-Identifier: GPL-3.0-or-later
//
// comfortics-cli: the calculation for scripts and pipelines.
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/interruption.h"
#include "shell/last_words.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <csignal>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace comfortics::cli {

// Not through a buffer, which the end of the program would write once more, and wait.
void print(std::string_view text)
{
    while (!text.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, text.data(), text.size());
        if (written >= 0)
            text.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR || Interruption::requested())
            throw FileFailure("The standard output cannot be written.");
    }
}

namespace {

std::size_t nameLength(std::string_view option)
{
    return std::min(option.find('='), option.size());
}

int run(int argc, char** argv)
{
    CLI::App tool("Thermal indices of bioclimatology and occupational heat and cold stress.");
    tool.name("comfortics-cli");
    tool.set_version_flag("--version", std::string("comfortics-cli " COMFORTICS_VERSION));
    tool.require_subcommand(1);
    tool.footer("Exit status: 0 done, 2 usage, 3 readings rejected, 4 the run failed, "
                "5 a file could not be read or written.");

    std::vector<std::pair<CLI::App*, std::unique_ptr<Command>>> commands;
    for (auto* make : {&makeCalcCommand, &makeBatchCommand, &makeModelCommand, &makeListCommand,
                       &makeRadiationCommand, &makeConvertCommand}) {
        auto command = make();
        CLI::App* const app = command->addTo(tool);
        commands.emplace_back(app, std::move(command));
    }
    // The parser would take a forgotten value's neighbour for it.
    for (const auto& [app, command] : commands)
        for (CLI::Option* const option : app->get_options())
            if (option->get_expected_min() > 0)
                option->check([](const std::string& value) {
                    const bool isOption = value.size() > 2 && value.starts_with("--") &&
                                          std::isalpha(static_cast<unsigned char>(value[2])) != 0;
                    return isOption ? "a value is missing before " + value : std::string();
                });
    // The parser takes the next argument for the value of "--ta=", which is an empty text.
    std::vector<std::string> arguments;
    for (int i = argc - 1; i > 0; --i) { // parsed from the back
        std::string argument = argv[i];
        // Inputs of models are options by their ids, whichever way they are written.
        if (argument.starts_with("--"))
            std::replace(argument.begin(),
                         argument.begin() + static_cast<std::ptrdiff_t>(nameLength(argument)), '_', '-');
        if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) {
            arguments.emplace_back();
            arguments.emplace_back(argument.substr(0, argument.size() - 1));
        } else {
            arguments.emplace_back(std::move(argument));
        }
    }
    try {
        tool.parse(arguments);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) { // help and version
            std::ostringstream text;
            tool.exit(error, text);
            print(text.str());
            return kDone;
        }
        // The parser calls a word that is no command "not expected", or misses a command.
        const bool noCommand = argc > 1 && argv[1][0] != '-' && tool.get_subcommands().empty();
        std::cerr << "comfortics-cli: "
                  << (noCommand ? "There is no command \"" + std::string(argv[1]) + "\"" : error.what())
                  << "; see comfortics-cli --help.\n";
        return kUsage;
    }
    for (const auto& [app, command] : commands) {
        if (app->parsed())
            return command->run();
    }
    return kUsage;
}

} // namespace

} // namespace comfortics::cli

int main(int argc, char** argv)
{
    // A standard stream that the caller closed fails when it is used, and lends its number to no other file.
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(stream, F_GETFD) == -1)
            ::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    // A closed pipe and a file over the limit of size are write errors with a sentence.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    comfortics::shell::speakBeforeTheEnd("comfortics-cli", comfortics::cli::kRunFailed);
    try {
        return comfortics::cli::run(argc, argv);
    } catch (const comfortics::cli::FileFailure& failure) {
        std::cerr << "comfortics-cli: " << failure.what() << "\n";
        return comfortics::cli::kFileFailed;
    } catch (...) {
        comfortics::shell::sayLastWords("comfortics-cli");
        return comfortics::cli::kRunFailed;
    }
}
