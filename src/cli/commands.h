// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <stdexcept>
#include <string_view>

namespace CLI {
class App;
}

namespace comfortics::cli {

/// A file could not be read or written; one sentence for the user.
class FileFailure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// One command of the tool.
class Command {
public:
    virtual ~Command() = default;
    /// Adds the command with its options to the tool.
    virtual CLI::App* addTo(CLI::App& tool) = 0;
    /// Carries it out; returns the exit status.
    virtual int run() = 0;
};

std::unique_ptr<Command> makeCalcCommand();
std::unique_ptr<Command> makeBatchCommand();
std::unique_ptr<Command> makeModelCommand();
std::unique_ptr<Command> makeListCommand();
std::unique_ptr<Command> makeRadiationCommand();
std::unique_ptr<Command> makeConvertCommand();

/// Writes to standard output, or throws FileFailure.
void print(std::string_view text);

} // namespace comfortics::cli
