// SPDX-License-Identifier: GPL-3.0-or-later
//
// How a fuzz target says that something does not hold: in one line, and by ending the process, which
// the fuzzer takes for a finding.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace comfortics::fuzz {

/// Texts are shown with all bytes visible.
inline std::string shown(std::string_view text)
{
    std::string result = "\"";
    for (const char c : text) {
        char escaped[8];
        std::snprintf(escaped, sizeof escaped, c >= ' ' && c <= '~' ? "%c" : "\\x%02x",
                      static_cast<unsigned>(static_cast<unsigned char>(c)));
        result += escaped;
    }
    return result + "\"";
}

inline void require(bool holds, const char* what, std::string_view one = {}, std::string_view other = {})
{
    if (holds)
        return;
    std::fprintf(stderr, "FINDING: %s: %s, %s\n", what, shown(one).c_str(), shown(other).c_str());
    std::abort();
}

inline void requireEqual(std::string_view one, std::string_view other, const char* what)
{
    require(one == other, what, one, other);
}

} // namespace comfortics::fuzz
