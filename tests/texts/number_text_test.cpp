// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/number_text.h"

#include "comma_locale.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace comfortics::texts {

using values::kFormat0_0;
using values::plainText;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(Val, ReadsBackPlainTextAsTheLibraryDoes)
{
    std::mt19937_64 random(31415);
    for (int i = 0; i < 100000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        const std::string text = plainText(value);
        ASSERT_EQ(val(text), std::strtod(text.c_str(), nullptr)) << text;
    }
}

// A hard blank is no blank; between two doubles the even one is taken.
TEST(Val, ReadsTheLeadingNumber)
{
    const std::string zeros(400, '0');
    const std::pair<std::string, double> rows[] = {
        {" \t 7", 7},
        {"+4", 4},
        {"-.5", -0.5},
        {"1E+3", 1000},
        {"25d-1", 2.5},
        {"1e+", 1},
        {"1e2.5", 100},
        {"1\xC2\xA0", 1},
        {"9007199254740993", 9007199254740992},
        {"-1e309", -kInfinity},
        {"1d309", kInfinity},
        {"12e9223372036854775807", kInfinity}, // the last exponent of 64 bits
        {"1" + zeros + "e-400", 1},
        {zeros + ".1e400", kInfinity},
        {"0." + zeros + "1e800", kInfinity},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(val(text), expected) << '"' << text << '"';
    for (const char* text :
         {"", "   ", "--3", "- 3", ".", "abc12", "0x10", "inf", "nan", "\xC2\xA0", "1e-400",
          "0.000e999999999999999999999", "1e-999999999999999999999", "0.05e-9223372036854775807"})
        EXPECT_EQ(val(text), 0) << '"' << text << '"';
    EXPECT_TRUE(std::signbit(val("-0.0")));
}

TEST(NumericTest, PassesWholeNumbersOnly)
{
    const std::pair<const char*, double> numbers[] = {
        {" 12.5\t", 12.5}, {"12,5", 12.5}, {",5", 0.5},    {"5,", 5},     {"-1,5e2", -150},
        {"1,5D2", 150},    {"5.", 5},      {"1d-2", 0.01}, {"1e-400", 0}, {"+5", 5},
    };
    for (const auto& [text, expected] : numbers)
        EXPECT_EQ(numericValue(text), expected) << '"' << text << '"';
    for (const char* text : {"", " ", "1,2,3", "1.2,3", "1,2.3", ",", ".", "-", "5-", "1e", "1 2", "- 1",
                             "12a", "nan", "inf", "\xC2\xA0", "1e400", "-1e400"})
        EXPECT_FALSE(isNumeric(text)) << '"' << text << '"';
}

// Capitals of ASCII and of Latin-1 in UTF-8; × and ÷ are no letters.
TEST(Text, LowersAndTrims)
{
    const std::pair<const char*, const char*> rows[] = {
        {"Wind CHILL [Z]", "wind chill [z]"}, {"ÀÖØÞ", "àöøþ"}, {"×÷ß", "×÷ß"}, {"àÉ", "àé"}, {"Ω", "Ω"}};
    for (const auto& [text, lower] : rows)
        EXPECT_EQ(lowered(text), lower);
    EXPECT_EQ(trimmed(" \t a b\t "), "a b");
    EXPECT_EQ(trimmed("xay", "xy"), "a");
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
    EXPECT_EQ(val("2,5"), 2);
    EXPECT_EQ(numericValue("2,5"), 2.5);
}

} // namespace
} // namespace comfortics::texts
