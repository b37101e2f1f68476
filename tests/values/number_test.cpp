// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/number.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace comfortics::values {
namespace {

constexpr double kMost = std::numeric_limits<double>::max();
constexpr double kLeast = std::numeric_limits<double>::denorm_min();

std::uint64_t bits(double value)
{
    return std::bit_cast<std::uint64_t>(value);
}

struct Failing {
    std::string name;
    std::function<Number()> compute;
    std::string why;
};

TEST(Number, FailsAtAStepWithoutADefinedResult)
{
    const std::vector<Failing> rows{
        {"1 / 0", [] { return Number(1) / Number(0); }, "division by zero"},
        {"0 / 0", [] { return Number(0) / Number(0); }, "division by zero"},
        {"1 / -0", [] { return Number(1) / Number(-0.0); }, "division by zero"},
        {"the infinity would vanish again", [] { return Number(1) / (Number(1) / Number(0)); },
         "division by zero"},
        {"most * 2", [] { return Number(kMost) * 2; }, "overflow"},
        {"most + most", [] { return Number(kMost) + kMost; }, "overflow"},
        {"-most - most", [] { return Number(-kMost) - kMost; }, "overflow"},
        {"1 / least", [] { return Number(1) / kLeast; }, "overflow"},
        {"overflow inside a denominator", [] { return Number(1) / (Number(kMost) * kMost); }, "overflow"},
        {"logarithm of 0", [] { return logarithm(0); }, "logarithm of a number not above zero (0)"},
        {"logarithm of -2.5", [] { return logarithm(-2.5); }, "logarithm of a number not above zero (-2.5)"},
        {"root of -0.25", [] { return squareRoot(-0.25); }, "root of a negative number (-0.25)"},
        {"(-8) ^ (1 / 3)", [] { return power(-8, Number(1) / 3); },
         "negative base with a fractional exponent (-8 ^ 0.333333333333333)"},
        {"0 ^ -1.5", [] { return power(0, -1.5); }, "zero to a negative power (0 ^ -1.5)"},
        {"10 ^ 400", [] { return power(10, 400); }, "overflow"},
        {"(-10) ^ 401", [] { return power(-10, 401); }, "overflow"},
        {"e ^ 710", [] { return exponential(710); }, "overflow"},
        {"a value read as infinity", [] { return Number(kMost * 2) + 1; }, "overflow"},
        {"sine of infinity", [] { return sine(kMost * 2); }, "overflow"},
    };
    for (const Failing& row : rows) {
        try {
            const Number result = row.compute();
            ADD_FAILURE() << row.name << " gives " << result.value();
        } catch (const RunFailure& failure) {
            EXPECT_EQ(failure.why(), row.why) << row.name;
        }
    }
}

TEST(Number, GoesOnAtTheEdgeOfItsDomains)
{
    EXPECT_EQ(power(0, 0).value(), 1);
    EXPECT_EQ(power(0, 0.5).value(), 0);
    EXPECT_EQ(power(-2, 3).value(), -8);
    EXPECT_EQ(power(-2, -2).value(), 0.25);
    EXPECT_EQ(power(10, -400).value(), 0);
    EXPECT_EQ(exponential(-800).value(), 0);
    EXPECT_EQ(squareRoot(0).value(), 0);
    EXPECT_EQ(squareRoot(-0.0).value(), 0);
    EXPECT_LT(logarithm(kLeast).value(), -744);
    EXPECT_EQ((Number(kLeast) / 2).value(), 0);
    EXPECT_EQ((Number(kMost) - kMost).value(), 0);
}

// Each operation is the one IEEE operation or library call on doubles, to the bit. The arguments
// reach both sides through a volatile, so that no compiler works them out beforehand.
TEST(Number, HasTheBitsOfThePlainOperations)
{
    const double values[] = {0.1, -0.7, 3.0, 17.27, 237.3, -1e-8, 5.67, 1e20, 0.33};
    for (const double first : values) {
        for (const double second : values) {
            volatile double a = first;
            volatile double b = second;
            EXPECT_EQ(bits((Number(a) + b).value()), bits(a + b));
            EXPECT_EQ(bits((Number(a) - b).value()), bits(a - b));
            EXPECT_EQ(bits((Number(a) * b).value()), bits(a * b));
            EXPECT_EQ(bits((Number(a) / b).value()), bits(a / b));
            const double fused = std::fma(a, b, a);
            if (bits(fused) != bits(a * b + a)) {
                EXPECT_NE(bits((Number(a) * b + a).value()), bits(fused))
                    << "fused " << first << " " << second;
            }
            if (first > 0 && std::isfinite(std::pow(a, b))) {
                EXPECT_EQ(bits(power(a, b).value()), bits(std::pow(a, b)));
            }
        }
    }
}

TEST(Number, PutsIntegersOnDoublesAtOnce)
{
    EXPECT_EQ((Number(9) / 5).value(), 1.8);
    EXPECT_EQ((7 / Number(2)).value(), 3.5);
    EXPECT_EQ((-Number(5) - 1).value(), -6);
}

TEST(Number, RoundsHalvesToTheEvenNeighbour)
{
    const double rows[][2] = {{0.5, 0},   {1.5, 2},   {2.5, 2}, {-0.5, 0},
                              {-1.5, -2}, {-2.5, -2}, {2.4, 2}, {2.6, 3}};
    for (const auto& row : rows)
        EXPECT_EQ(roundHalfEven(row[0]).value(), row[1]) << row[0];
}

TEST(Number, AbsoluteHasNoNegativeZero)
{
    EXPECT_EQ(absolute(-3.5).value(), 3.5);
    EXPECT_EQ(absolute(3.5).value(), 3.5);
    EXPECT_FALSE(std::signbit(absolute(-0.0).value()));
}

} // namespace
} // namespace comfortics::values
