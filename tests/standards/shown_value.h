// SPDX-License-Identifier: GPL-3.0-or-later
//
// How the tests of the standards hold a figure to a printed one.
#pragma once

#include "standards/answer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <ostream>
#include <string>
#include <string_view>

namespace comfortics::tests {

/// `value` with as many decimals as `printed` has; NaN is "none".
inline std::string shownLike(double value, std::string_view printed)
{
    if (value != value)
        return "none";
    const std::size_t point = printed.find('.');
    const int decimals = point == std::string_view::npos ? 0 : static_cast<int>(printed.size() - point - 1);
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.*f", decimals, value);
    return buffer;
}

#define EXPECT_SHOWN(value, printed) EXPECT_EQ(shownLike(value, printed), std::string(printed)) << #value

constexpr standards::Verdict kOk{};

constexpr standards::Verdict outside(std::string_view about)
{
    return {standards::Standing::Outside, standards::Reason::BeyondRange, about};
}

constexpr standards::Verdict none(standards::Reason reason, std::string_view about)
{
    return {standards::Standing::None, reason, about};
}

} // namespace comfortics::tests

namespace comfortics::standards {

/// How a failure shows a verdict.
inline void PrintTo(const Verdict& verdict, std::ostream* out)
{
    *out << "standing " << static_cast<int>(verdict.standing) << " reason "
         << static_cast<int>(verdict.reason) << " about '" << verdict.about << "'";
}

} // namespace comfortics::standards
