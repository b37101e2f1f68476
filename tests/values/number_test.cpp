// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/number.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <utility>

namespace comfortics::values {
namespace {

constexpr double kMost = std::numeric_limits<double>::max();
constexpr double kLeast = std::numeric_limits<double>::denorm_min();

TEST(Number, FailsAtAStepWithoutADefinedResult)
{
    const std::pair<std::function<Number()>, std::string> rows[] = {
        {[] { return Number(1) / Number(0); }, "division by zero"},
        {[] { return Number(kMost) + kMost; }, "overflow"},
        {[] { return Number(-kMost) - kMost; }, "overflow"},
        {[] { return Number(kMost) * kMost; }, "overflow"},
        {[] { return Number(1) / kLeast; }, "overflow"},
        {[] { return Number(1) / (kMost * 2); }, "overflow"}, // read as infinity
        {[] { return logarithm(0); }, "logarithm of a number not above zero (0)"},
        {[] { return squareRoot(-0.25); }, "root of a negative number (-0.25)"},
        {[] { return power(-8, Number(1) / 3); },
         "negative base with a fractional exponent (-8 ^ 0.333333333333333)"},
        {[] { return power(0, -1.5); }, "zero to a negative power (0 ^ -1.5)"},
        {[] { return power(-10, 401); }, "overflow"},
        {[] { return exponential(710); }, "overflow"},
    };
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        try {
            ADD_FAILURE() << "row " << i << " gives " << rows[i].first().value();
        } catch (const RunFailure& failure) {
            EXPECT_EQ(failure.why(), rows[i].second) << "row " << i;
        }
    }
}

TEST(Number, GoesOnAtTheEdgeOfItsDomains)
{
    const std::pair<Number, double> rows[] = {
        {power(0, 0), 1},
        {power(-2, 3), -8},
        {power(10, -400), 0},
        {squareRoot(0), 0},
        {Number(kLeast) / 2, 0},
        {absolute(-3.5), 3.5},
        // integers are put on doubles at once
        {Number(9) / 5, 1.8},
        // halves go to the even neighbour
        {roundHalfEven(0.5), 0},
        {roundHalfEven(1.5), 2},
        {roundHalfEven(-2.5), -2},
    };
    for (const auto& [result, expected] : rows)
        EXPECT_EQ(result.value(), expected);
    EXPECT_LT(logarithm(kLeast).value(), -744);
    EXPECT_FALSE(std::signbit(absolute(-0.0).value()));
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
            EXPECT_EQ((Number(a) + b).value(), a + b);
            EXPECT_EQ((Number(a) - b).value(), a - b);
            EXPECT_EQ((Number(a) / b).value(), a / b);
            volatile const double product = a * b;
            EXPECT_EQ((Number(a) * b + a).value(), product + a) << "not fused";
            if (first > 0 && std::isfinite(std::pow(a, b))) {
                EXPECT_EQ(power(a, b).value(), std::pow(a, b));
            }
        }
    }
}

} // namespace
} // namespace comfortics::values
