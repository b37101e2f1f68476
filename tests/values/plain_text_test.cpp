// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/plain_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <random>
#include <utility>

namespace comfortics::values {
namespace {

// The value rounded to 15 digits decides on the form.
TEST(PlainText, HasFifteenDigitsAndNoTrailingZeros)
{
    const std::pair<double, const char*> rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {999999999999999.4, "999999999999999"},
        {999999999999999.5, "1E+15"},
        {-123456789012345678.0, "-1.23456789012346E+17"},
        {0.00009999999999999999, "0.0001"},
        {0.0000999999999999999, "9.99999999999999E-05"},
        {1e100, "1E+100"},
        {5e-324, "4.94065645841247E-324"},
    };
    for (const auto& [value, expected] : rows)
        EXPECT_EQ(plainText(value), expected);
}

TEST(PlainText, AgreesWithTheLibraryFormatOnRandomDoubles)
{
    std::mt19937_64 random(31415);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        char text[40];
        std::snprintf(text, sizeof text, "%.15G", value);
        ASSERT_EQ(plainText(value), text);
    }
}

} // namespace
} // namespace comfortics::values
