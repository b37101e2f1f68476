// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/wind_chill_equivalent.h"

#include "long_tests.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>
#include <string>

namespace {

using namespace comfortics::formulas;
using comfortics::values::RunFailure;

/// The bits of the temperature, or why there is none.
std::string outcome(Number (*index)(Number, Number), double WS, double Ta)
{
    try {
        return std::to_string(std::bit_cast<std::uint64_t>(index(WS, Ta).value()));
    } catch (const RunFailure& failure) {
        return failure.why();
    }
}

Number quick(Number WS, Number Ta)
{
    return Index_215(WS, Ta, Rules::Robust);
}

TEST(WindChillEquivalent, FastIsPlain)
{
    constexpr std::uint64_t kSeed = 215;
    std::mt19937_64 random(kSeed);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    const auto rounded = [](double x) { return std::nearbyint(x * 10) / 10; };
    const int searches = comfortics::tests::points(40'000, 20);
    for (int i = 0; i < searches; ++i) {
        // some far outside all weather, by walks of up to a million steps either way
        const double far = i % 128 == 0 ? 30 : 1;
        double WS = draw(-0.2, 60 * far);
        double Ta = draw(-80, 60) * far;
        if (i % 2 == 0) {
            WS = rounded(WS);
            Ta = rounded(Ta);
        }
        ASSERT_EQ(outcome(quick, WS, Ta), outcome(Index_215_plain<Number>, WS, Ta))
            << "WS " << WS << " Ta " << Ta << ", search " << i << " of seed " << kSeed;
    }
}

// The coolings as the index states them are equal at the precise temperature, and the walk ends beside it.
TEST(WindChillEquivalent, IsTheEqualCoolingByThePreciseRules)
{
    for (double WS = 0; WS <= 60; WS += 1.7)
        for (double Ta = -60; Ta <= 40; Ta += 9.1) {
            const double t = Index_215<double>(WS, Ta, Rules::Precise);
            EXPECT_EQ(t, Index_215<Number>(WS, Ta, Rules::Precise).value());
            const double A = (std::sqrt(WS * 100) + 10.45 - WS) * (33 - Ta);
            EXPECT_NEAR((std::sqrt(134) + 10.45 - 1.34112) * (33 - t), A, 1e-10);
            EXPECT_NEAR(quick(WS, Ta).value(), t, 0.02);
        }
    EXPECT_THROW(Index_215<Number>(-0.1, 0, Rules::Precise), RunFailure);
    EXPECT_NEAR(Index_215<Number>(1, -1e16, Rules::Precise).value(), -9.4e15, 1e15); // no walk gets there
}

// Walks of 1e15 steps and more, which nobody can make one by one.
TEST(WindChillEquivalent, FailsWhereTheWalkHasNoEnd)
{
    EXPECT_EQ(outcome(quick, 1, -1e16), "the wind-chill walk stands still without meeting its tolerance");
    EXPECT_EQ(outcome(quick, 1, -9.2e13), "the wind-chill walk turns back without meeting its tolerance");
}

} // namespace
