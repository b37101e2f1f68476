// SPDX-License-Identifier: GPL-3.0-or-later
//
// comfortics-cli: the calculation for scripts and pipelines.
#include "cli/commands.h"
#include "cli/exit_status.h"

#include <CLI/CLI.hpp>

#include <cctype>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace comfortics::cli {

void print(std::string_view text)
{
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
        throw FileFailure("The standard output cannot be written.");
}

namespace {

int run(int argc, char** argv)
{
    CLI::App tool("Thermal indices of bioclimatology and occupational heat and cold stress.");
    tool.name("comfortics-cli");
    tool.set_version_flag("--version", std::string("comfortics-cli " COMFORTICS_VERSION));
    tool.require_subcommand(1);
    tool.footer("Exit status: 0 done, 2 usage, 3 readings rejected, 4 the run failed, "
                "5 a file could not be read or written.");

    std::vector<std::pair<CLI::App*, std::unique_ptr<Command>>> commands;
    for (auto* make : {&makeCalcCommand, &makeBatchCommand, &makeListCommand, &makeRadiationCommand,
                       &makeConvertCommand}) {
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
        const std::string_view argument = argv[i];
        if (argument.starts_with("--") && argument.find('=') == argument.size() - 1) {
            arguments.emplace_back();
            arguments.emplace_back(argument.substr(0, argument.size() - 1));
        } else {
            arguments.emplace_back(argument);
        }
    }
    try {
        tool.parse(arguments);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) { // help and version
            tool.exit(error);
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
        if (!app->parsed())
            continue;
        try {
            return command->run();
        } catch (const FileFailure& failure) {
            std::cerr << "comfortics-cli: " << failure.what() << "\n";
            return kFileFailed;
        }
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
    std::signal(SIGPIPE, SIG_IGN); // a closed pipe is a write error with a sentence
    return comfortics::cli::run(argc, argv);
}
