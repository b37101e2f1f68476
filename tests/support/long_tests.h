// SPDX-License-Identifier: GPL-3.0-or-later
//
// How much of a long test a run takes.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace comfortics::tests {

/// How many of the random points a test tries that holds a quick way against a plain and slow one:
/// all in the long run, which COMFORTICS_LONG_TESTS=1 asks for, a tenth in any other. A build that
/// sanitizers or the lack of optimisation slow down tries no more than one of `slowBuild`.
inline int points(int all, int slowBuild = 5)
{
#if defined(__OPTIMIZE__) && !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
    slowBuild = 1;
#endif
    const char* const asked = std::getenv("COMFORTICS_LONG_TESTS");
    const bool longRun = asked != nullptr && std::string_view(asked) == "1";
    return all / (longRun ? slowBuild : std::max(slowBuild, 10));
}

} // namespace comfortics::tests
