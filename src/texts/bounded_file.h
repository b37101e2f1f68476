// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace comfortics::texts {

/// All bytes of a file, or why they are not there.
struct FileText {
    enum class State : std::uint8_t { Read, Missing, Unreadable };
    State state = State::Read;
    std::string text;
    std::string problem; ///< one clause, where the file was not read
};

/// Reads a file that may be anything: a folder, a device without an end, a file that grows. More than
/// `largest` bytes are not read.
FileText readFile(const std::string& path, std::size_t largest);

} // namespace comfortics::texts
