// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/number_text.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <utility>

namespace comfortics::values {
namespace {

constexpr std::array kFormats{kFormat0, kFormat0_0, kFormat0_00, kFormat0_00000, kFormat00_00000};

std::string name(Format format)
{
    return std::string(static_cast<std::size_t>(format.integerWidth), '0') + "." +
           std::string(static_cast<std::size_t>(format.decimals), '0');
}

// The described rounding the slow way, on the digits that the C library writes: the 15 digits are
// an integer D, the value is D * 10 ^ (exponent - 14), and the scaled integer is the quotient of D
// by a power of ten, one up where twice the remainder reaches that power.
std::string formatSlowly(double value, Format format)
{
    char text[40];
    std::snprintf(text, sizeof text, "%.14e", std::abs(value));
    const std::string written(text);
    std::uint64_t D = 0;
    for (const char c : written.substr(0, written.find('e')))
        if (c != '.')
            D = D * 10 + static_cast<std::uint64_t>(c - '0');
    const int shift = std::stoi(written.substr(written.find('e') + 1)) - 14 + format.decimals;

    std::string digits;
    if (shift >= 0) {
        digits = std::to_string(D) + std::string(static_cast<std::size_t>(D == 0 ? 0 : shift), '0');
    } else if (shift < -16) {
        digits = "0"; // 15 digits shifted by more than 16 places stay below a half
    } else {
        std::uint64_t divisor = 1;
        for (int i = shift; i < 0; ++i)
            divisor *= 10;
        digits = std::to_string(D / divisor + (D % divisor * 2 >= divisor ? 1 : 0));
    }
    const bool zero = digits == "0";
    const auto decimals = static_cast<std::size_t>(format.decimals);
    while (digits.size() < decimals + static_cast<std::size_t>(format.integerWidth))
        digits = "0" + digits;
    if (decimals > 0)
        digits.insert(digits.size() - decimals, ".");
    return (std::signbit(value) && !zero ? "-" : "") + digits;
}

void expectSameAsSlowly(double value)
{
    for (const Format wanted : kFormats)
        ASSERT_EQ(format(value, wanted), formatSlowly(value, wanted))
            << std::hexfloat << value << " " << name(wanted);
}

// A value with its two neighbours on either side and its mirror image.
void expectAroundSameAsSlowly(double value)
{
    const double below = std::nextafter(value, -INFINITY);
    const double above = std::nextafter(value, INFINITY);
    for (const double one :
         {std::nextafter(below, -INFINITY), below, value, above, std::nextafter(above, INFINITY)}) {
        expectSameAsSlowly(one);
        expectSameAsSlowly(-one);
    }
}

// Worked out by hand from the rule; the shortest decimal of each value is given.
TEST(FixedFormat, RoundsHalfAwayFromZeroOnFifteenDigits)
{
    struct Row {
        double value;
        Format format;
        const char* expected;
    };
    const Row rows[] = {
        {0.05, kFormat0_0, "0.1"},
        {0.15, kFormat0_0, "0.2"}, // below the half in binary, on it in 15 digits
        {0.25, kFormat0_0, "0.3"},
        {-0.25, kFormat0_0, "-0.3"},
        {2.5, kFormat0, "3"},
        {3.5, kFormat0, "4"},
        {-2.5, kFormat0, "-3"},
        {1.005, kFormat0_00, "1.01"},
        {1.0049999999999, kFormat0_00, "1.00"},
        {1.00499999999999, kFormat0_00, "1.00"},  // 15 digits, still below
        {1.004999999999999, kFormat0_00, "1.01"}, // a 16th digit: on the half in 15
        {0.5, kFormat0, "1"},
        {0.49999999999999, kFormat0, "0"},
        {0.4999999999999999, kFormat0, "1"}, // 0.500000000000000 in 15 digits
        {9.95, kFormat0_0, "10.0"},
        {99.995, kFormat0_00, "100.00"},
        {-0.04, kFormat0_0, "0.0"},
        {-0.05, kFormat0_0, "-0.1"},
        {-0.0, kFormat0_00000, "0.00000"},
        {-0.000004, kFormat0_00000, "0.00000"},
        {-0.000005, kFormat0_00000, "-0.00001"},
        {9.2693, kFormat00_00000, "09.26930"},
        {-3.25, kFormat00_00000, "-03.25000"},
        {123.4, kFormat00_00000, "123.40000"},
        {0, kFormat00_00000, "00.00000"},
        {12345678901234.56, kFormat0_00, "12345678901234.60"}, // only 15 digits are looked at
        {123456789012345678.0, kFormat0_0, "123456789012346000.0"},
        {1e22, kFormat0, "10000000000000000000000"},
        {5e-324, kFormat0_00000, "0.00000"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(format(row.value, row.format), row.expected) << row.value << " as " << name(row.format);
}

TEST(FixedFormat, AgreesWithTheSlowWayOnRandomDoubles)
{
    const std::uint64_t seed = 20260117;
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::uniform_real_distribution<double> readings(-2000, 2000);
    for (int i = 0; i < 200000; ++i) {
        expectSameAsSlowly(readings(random));
        const double anyBits = std::bit_cast<double>(random());
        if (std::isfinite(anyBits) && std::abs(anyBits) < 1e60)
            expectSameAsSlowly(anyBits);
    }
}

TEST(FixedFormat, AgreesWithTheSlowWayAroundHalves)
{
    const std::uint64_t seed = 7;
    std::mt19937_64 random(seed);
    SCOPED_TRACE("seed " + std::to_string(seed));
    for (const double unit : {1.0, 10.0, 100.0, 100000.0}) {
        for (int i = 0; i < 20000; ++i) {
            const auto odd = static_cast<double>(2 * (random() >> (32 + random() % 31)) + 1);
            expectAroundSameAsSlowly(odd / 2 / unit);
        }
    }
}

// Where the 15th digit decides: a half with something in the 14th to 17th digit.
TEST(FixedFormat, AgreesWithTheSlowWayWhereTheLastDigitsDecide)
{
    for (const double whole : {0.0, 1.0, 7.0, 41.0, 318.0, 4070.0, 51234.0, 987654321.0, 123456789012.0})
        for (const double half : {0.5, 0.05, 0.005, 0.000005})
            for (int digit = 11; digit <= 18; ++digit)
                for (const double much : {-5.0, -1.0, 1.0, 5.0})
                    expectAroundSameAsSlowly(whole + half + much * std::pow(10, -digit));
}

TEST(FixedFormat, AgreesWithTheSlowWayAtTheEndsOfTheRange)
{
    for (const double value :
         {0.0, 5e-324, 2.2250738585072014e-308, 1e-17, 1e-16, 4.9e-6, 5e-6, 9.99999e11, 1e12, 1.5e12,
          999999999999999.0, 1e15, 4503599627370495.5, 9007199254740993.0, 1e59})
        expectAroundSameAsSlowly(value);
}

TEST(FixedFormat, OfATextKeepsWhatIsNoNumber)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},   {"600", "600.0"}, {" 12.34 ", "12.3"},  {"12,5", "12.5"},
        {"-", "-"}, {"1e2", "100.0"}, {"Error:", "Error:"}, {"1.2.3", "1.2.3"},
    };
    for (const auto& [text, expected] : rows)
        EXPECT_EQ(format(std::string(text), kFormat0_0), expected) << text;
}

} // namespace
} // namespace comfortics::values
