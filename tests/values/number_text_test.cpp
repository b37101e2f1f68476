// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/number_text.h"

#include "comma_locale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace comfortics::values {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(PlainText, HasFifteenDigitsAndNoTrailingZeros)
{
    struct Row {
        double value;
        const char* expected;
    };
    const Row rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {20, "20"},
        {100, "100"},
        {0.5, "0.5"},
        {-0.5, "-0.5"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {-2.0 / 3, "-0.666666666666667"},
        {64.5557761372821, "64.5557761372821"},
        {12345678901234.5, "12345678901234.5"},
        {99999999999999.95, "100000000000000"}, // rounds up to 15 digits
        {1e14, "100000000000000"},
        {999999999999999.4, "999999999999999"},
        {999999999999999.5, "1E+15"}, // the rounded value decides on the form
        {1e15, "1E+15"},
        {-123456789012345678.0, "-1.23456789012346E+17"},
        {0.0001, "0.0001"},
        {0.00009999999999999999, "0.0001"},
        {0.0000999999999999999, "9.99999999999999E-05"},
        {0.00012345, "0.00012345"},
        {0.000025, "2.5E-05"},
        {-1e-5, "-1E-05"},
        {1e100, "1E+100"},
        {5e-324, "4.94065645841247E-324"},
        {1.7976931348623157e308, "1.79769313486232E+308"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(plainText(row.value), row.expected) << std::hexfloat << row.value;
}

TEST(PlainText, AgreesWithTheLibraryFormatOnRandomDoubles)
{
    const std::uint64_t seed = 31415;
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (int i = 0; i < 100000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        char text[40];
        std::snprintf(text, sizeof text, "%.15G", value);
        ASSERT_EQ(plainText(value), text);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(val(text)),
                  std::bit_cast<std::uint64_t>(std::strtod(text, nullptr)))
            << text;
    }
}

struct Reading {
    std::string text;
    double expected;
};

TEST(Val, ReadsTheLeadingNumber)
{
    const std::vector<Reading> rows{
        {"", 0},
        {"   ", 0},
        {"12.5", 12.5},
        {" \t 7", 7},
        {"-3", -3},
        {"+4", 4},
        {"--3", 0},
        {"- 3", 0},
        {".5", 0.5},
        {"-.5", -0.5},
        {"5.", 5},
        {".", 0},
        {"-", 0},
        {"12,5", 12},
        {"1.2.3", 1.2},
        {"1 2", 1},
        {"12abc", 12},
        {"abc12", 0},
        {"6-", 6},
        {"1e3", 1000},
        {"1E+3", 1000},
        {"25d-1", 2.5},
        {"1D2", 100},
        {"+.5D+1", 5},
        {"1e", 1},
        {"1e+", 1},
        {"1d-x", 1},
        {"1e2.5", 100},
        {"2e3e4", 2000},
        {"0x10", 0},
        {"&H10", 0},
        {"inf", 0},
        {"nan", 0},
        {"1\xC2\xA0", 1}, // a hard blank is no blank
        {"\xC2\xA0"
         "1",
         0},
        {"9007199254740993", 9007199254740992}, // to the even neighbour
        {"1e308", 1e308},
        {"1e309", kInfinity},
        {"-1e309", -kInfinity},
        {"1d309", kInfinity},
        {"1e-400", 0},
        {"0e400", 0},
        {"0.000e999999999999999999999", 0},
        {"1e999999999999999999999", kInfinity},
        {"1e-999999999999999999999", 0},
        {"1" + std::string(400, '0'), kInfinity},
        {"1" + std::string(400, '0') + "e-400", 1},
        {"0." + std::string(400, '0') + "1", 0},
        {"0." + std::string(400, '0') + "1e401", 1},
        {"0." + std::string(100, '0') + "1e500", kInfinity},
        {std::string(500, '0') + "12", 12},
    };
    for (const Reading& row : rows)
        EXPECT_EQ(val(row.text), row.expected) << '"' << row.text << '"';
}

TEST(Val, NegativeZeroIsZeroWithItsSign)
{
    EXPECT_EQ(plainText(val("-0")), "0");
    EXPECT_TRUE(std::signbit(val("-0.0")));
}

TEST(NumericTest, PassesWholeNumbersOnly)
{
    struct Row {
        std::string text;
        std::optional<double> expected;
    };
    const std::vector<Row> rows{
        {"", std::nullopt},
        {" ", std::nullopt},
        {"12.5", 12.5},
        {" 12.5\t", 12.5},
        {"12,5", 12.5},
        {",5", 0.5},
        {"5,", 5.0},
        {"-1,5e2", -150.0},
        {"1,5D2", 150.0},
        {"1,2,3", std::nullopt},
        {"1.2,3", std::nullopt},
        {"1,2.3", std::nullopt},
        {",", std::nullopt},
        {".", std::nullopt},
        {"5.", 5.0},
        {"+5", 5.0},
        {"-", std::nullopt},
        {"5-", std::nullopt},
        {"1e", std::nullopt},
        {"1e5", 100000.0},
        {"1d-2", 0.01},
        {"1 2", std::nullopt},
        {"- 1", std::nullopt},
        {"12a", std::nullopt},
        {"nan", std::nullopt},
        {"inf", std::nullopt},
        {"\xC2\xA0"
         "1",
         std::nullopt},
        {"1e400", std::nullopt}, // beyond the double range
        {"-1e400", std::nullopt},
        {"1e-400", 0.0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(numericValue(row.text), row.expected) << '"' << row.text << '"';
        EXPECT_EQ(isNumeric(row.text), row.expected.has_value()) << '"' << row.text << '"';
    }
}

TEST(CommaLocaleRun, ChangesNoNumberText)
{
    const tests::CommaLocale comma;
    if (comma.name().empty())
        GTEST_SKIP() << "no locale with a decimal comma can be had here";
    ASSERT_TRUE(comma.enter());
    char library[16];
    std::snprintf(library, sizeof library, "%.1f", 2.5);
    ASSERT_STREQ(library, "2,5"); // the locale is in force
    EXPECT_EQ(plainText(1234.5), "1234.5");
    EXPECT_EQ(format(1234.56, kFormat0_0), "1234.6");
    EXPECT_EQ(format(0.15, kFormat0_0), "0.2"); // by digits
    EXPECT_EQ(format(std::string("1234,56"), kFormat0_00000), "1234.56000");
    EXPECT_EQ(val("2.5"), 2.5);
    EXPECT_EQ(val("2,5"), 2);
    EXPECT_EQ(numericValue("2,5"), 2.5);
    EXPECT_EQ(numericValue("25d-1"), 2.5);
}

} // namespace
} // namespace comfortics::values
