// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/number_text.h"

#include "long_tests.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <random>
#include <string>
#include <tuple>

namespace comfortics::texts {

using values::Format;
using values::kFormat0;
using values::kFormat00_00000;
using values::kFormat0_0;
using values::kFormat0_00;
using values::kFormat0_00000;

namespace {

constexpr std::array kFormats{kFormat0, kFormat0_0, kFormat0_00, kFormat0_00000, kFormat00_00000};

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

// A value, its neighbours on either side and their mirror images.
void expectSameAsSlowly(double value)
{
    for (const double near : {value, std::nextafter(value, -INFINITY), std::nextafter(value, INFINITY)})
        for (const double one : {near, -near})
            for (const Format wanted : kFormats)
                ASSERT_EQ(format(one, wanted), formatSlowly(one, wanted)) << std::hexfloat << one;
}

// Worked out by hand from the rule; the shortest decimal of each value is given. 0.15 lies below the half in
// binary and on it in 15 digits, as does 1.005 less a 16th digit.
TEST(FixedFormat, RoundsHalfAwayFromZeroOnFifteenDigits)
{
    const std::tuple<double, Format, const char*> rows[] = {
        {0.15, kFormat0_0, "0.2"},
        {-0.25, kFormat0_0, "-0.3"},
        {1.005, kFormat0_00, "1.01"},
        {1.004999999999999, kFormat0_00, "1.01"},
        {9.95, kFormat0_0, "10.0"},
        {-0.04, kFormat0_0, "0.0"},
        {-0.05, kFormat0_0, "-0.1"},
        {-0.0, kFormat0_00000, "0.00000"},
        {-3.25, kFormat00_00000, "-03.25000"},
        {123456789012345678.0, kFormat0_0, "123456789012346000.0"},
        {1e22, kFormat0, "10000000000000000000000"},
    };
    for (const auto& [value, wanted, expected] : rows)
        EXPECT_EQ(format(value, wanted), expected) << value;
}

// Random doubles, and halves with something in the 11th to 18th digit.
TEST(FixedFormat, AgreesWithTheSlowWay)
{
    constexpr std::uint64_t kSeed = 20260117;
    std::mt19937_64 random(kSeed);
    SCOPED_TRACE(kSeed);
    std::uniform_real_distribution<double> readings(-2000, 2000);
    for (int i = 0; i < tests::points(40000, 40); ++i) {
        expectSameAsSlowly(readings(random));
        const double anyBits = std::bit_cast<double>(random());
        if (std::isfinite(anyBits) && std::abs(anyBits) < 1e60)
            expectSameAsSlowly(anyBits);
        const auto odd = static_cast<double>(2 * (random() >> (32 + random() % 31)) + 1);
        const double half = odd / 2 / std::pow(10, random() % 6);
        expectSameAsSlowly(half);
        expectSameAsSlowly(half + std::pow(10, -11.0 - static_cast<double>(random() % 8)));
    }
    for (const double value :
         {0.0, 1e-17, 1e-16, 9.99999e11, 1e12, 1.5e12, 999999999999999.0, 1e15, 4503599627370495.5, 1e59})
        expectSameAsSlowly(value);
}

} // namespace
} // namespace comfortics::texts
