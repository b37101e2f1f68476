// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/wind_chill_equivalent.h"

#include "formula_cases.h"

#include <bit>
#include <cstdint>
#include <random>

namespace {

using namespace comfortics::formulas;
using comfortics::tests::expectAll;
using comfortics::tests::FormulaCase;
using comfortics::values::RunFailure;

/// The bits of the temperature, or why there is none.
std::string outcome(Variant (*index)(Number, Number), double WS, double Ta)
{
    try {
        return std::to_string(std::bit_cast<std::uint64_t>(index(WS, Ta).number().value()));
    } catch (const RunFailure& failure) {
        return failure.why();
    }
}

TEST(WindChillEquivalent, FastIsPlain)
{
    constexpr std::uint64_t kSeed = 215;
    std::mt19937_64 random(kSeed);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    const auto rounded = [](double x) { return std::nearbyint(x * 10) / 10; };
#if !defined(__OPTIMIZE__) || defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    constexpr int kSearches = 2'000;
#else
    constexpr int kSearches = 40'000;
#endif
    for (int i = 0; i < kSearches; ++i) {
        // some far outside all weather, by walks of up to a million steps either way
        const double far = i % 128 == 0 ? 30 : 1;
        double WS = draw(-0.2, 60 * far);
        double Ta = draw(-80, 60) * far;
        if (i % 2 == 0) {
            WS = rounded(WS);
            Ta = rounded(Ta);
        }
        ASSERT_EQ(outcome(Index_215, WS, Ta), outcome(Index_215_plain, WS, Ta))
            << "WS " << WS << " Ta " << Ta << ", search " << i << " of seed " << kSeed;
    }
}

TEST(WindChillEquivalent, Values)
{
    const FormulaCase cases[] = {
        {"cold", Index_215, {6.3, -18}, "-39.12"},
        {"weak wind", Index_215, {1.2, -5}, "-4.12"},
        {"mild", Index_215, {25, 12}, "-3"},
        {"one step beyond agreement", Index_215, {1.34, 0}, "-0.01"},
        {"upward, still air", Index_215, {0, -20}, "6.23"},
        {"upward, a storm that warms", Index_215, {140, -10}, "56.35"},
        {"no cooling", Index_215, {9, 33}, "32.99"},
        {"above skin temperature", Index_215, {0.5, 38}, "37.12"},
        {"equal coolings lead up", Index_215, {0.03, -23.171231391406327}, "0.01"},
        {"negative wind", Index_215, {-0.1, -5}, "fails"},
        {"overflow", Index_215, {1e300, 1e300}, "fails"},
    };
    expectAll(cases);
}

// Walks of 1e15 steps and more, which nobody can make one by one.
TEST(WindChillEquivalent, FailsWhereTheWalkHasNoEnd)
{
    EXPECT_EQ(outcome(Index_215, 1, -1e16), "the wind-chill walk stands still without meeting its tolerance");
    EXPECT_EQ(outcome(Index_215, 1, -9.2e13), "the wind-chill walk turns back without meeting its tolerance");
}

} // namespace
