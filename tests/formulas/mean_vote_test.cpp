// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/mean_vote.h"

#include "long_tests.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <random>
#include <sstream>
#include <string>

namespace {

using namespace comfortics::formulas;
using comfortics::values::RunFailure;

constexpr const char* kTurnsBack = "the mean-vote walk turns back without meeting its tolerance";
constexpr const char* kStandsStill = "the mean-vote walk stands still without meeting its tolerance";

struct Solve {
    double Ta, Tmrt, Ea, WS, M0;
};

using Solver = Number (*)(Number, Number, Number, Number, Number, Rules);

/// The bits of the vote, or why there is none.
std::string outcome(Solver solver, const Solve& s, Rules rules = Rules::Classic)
{
    try {
        std::ostringstream bits;
        bits << std::hex
             << std::bit_cast<std::uint64_t>(solver(s.Ta, s.Tmrt, s.Ea, s.WS, s.M0, rules).value());
        return bits.str();
    } catch (const RunFailure& failure) {
        return failure.why();
    }
}

std::string described(const Solve& s)
{
    std::ostringstream text;
    text.precision(17);
    text << "Ta " << s.Ta << " Tmrt " << s.Tmrt << " Ea " << s.Ea << " WS " << s.WS << " M0 " << s.M0;
    return text.str();
}

struct Range {
    double from, to;
};

/// Holds fast against plain over random weather, half of it rounded as readings are.
void expectFastIsPlain(std::uint64_t seed, int solves, Range Ta, Range radiantExcess, Range WS)
{
    solves = comfortics::tests::points(solves, 50); // a plain one is half a million powers
    constexpr double kRates[] = {230, 100, 165, 65, 290};
    std::mt19937_64 random(seed);
    const auto draw = [&random](Range range) {
        return std::uniform_real_distribution<double>(range.from, range.to)(random);
    };
    const auto rounded = [](double x) { return std::nearbyint(x * 10) / 10; };
    for (int i = 0; i < solves; ++i) {
        Solve s{draw(Ta), 0, draw({0.01, 40}), draw(WS), kRates[random() % 5]};
        s.Tmrt = s.Ta + draw(radiantExcess);
        if (i % 2 == 0)
            s = {rounded(s.Ta), rounded(s.Tmrt), s.Ea, rounded(s.WS), s.M0};
        ASSERT_EQ(outcome(Predicted_Mean_Vote<Number>, s), outcome(Predicted_Mean_Vote_plain<Number>, s))
            << described(s) << ", solve " << i << " of seed " << seed;
    }
}

TEST(MeanVote, FastIsPlainInHeat)
{
    expectFastIsPlain(118, 5000, {22, 52}, {-8, 45}, {-0.05, 6});
}

TEST(MeanVote, FastIsPlainInCalm)
{
    expectFastIsPlain(119, 3000, {5, 40}, {-10, 30}, {-0.01, 0.4});
}

TEST(MeanVote, FastIsPlainInColdAndStorm)
{
    expectFastIsPlain(120, 900, {-60, 5}, {-10, 25}, {0, 5});
    expectFastIsPlain(121, 1300, {-35, 45}, {-5, 20}, {5, 60});
}

// Far outside all weather: hot and cold walks of millions of steps, below 0 K too, where the
// radiation no longer falls with the temperature; walks that fail in their first pass.
TEST(MeanVote, FastIsPlainFarOut)
{
    const Solve solves[] = {
        {20, 900, 5, 0.3, 165},    {700, 20, 5, 2, 100},     {-190, -185, 0, 0.1, 65},
        {-330, -250, 0, 3, 100},   {-420, -270, 0, 40, 290}, {-480, -300, 0, 0.02, 165},
        {-280, -290, 0, 1e4, 230}, {22, 24, 9, 700, 165},    {33.4, 35.2, 9, 0.02, 65},
        {22, 24, 9, -0.5, 165},    {22, 1e78, 9, 0.5, 165},  {22, 24, 1e307, 0.5, 165},
        {22, 24, 9, 1e307, 165},   {1e306, 24, 9, 1, 165},   {22, 24, 1e307, -1, 165},
        {22, 24, 9, 0.5, 1e300},
    };
    for (const Solve& s : solves)
        EXPECT_EQ(outcome(Predicted_Mean_Vote<Number>, s), outcome(Predicted_Mean_Vote_plain<Number>, s))
            << described(s);
}

// By the robust rules a walk that turns back ends there, at one of the two guesses around the answer;
// nothing changes where the walk has an end.
TEST(MeanVote, FailsWhereTheWalkHasNoEnd)
{
    const Solve storm{-40, -38, 0.1, 30, 165};
    EXPECT_EQ(outcome(Predicted_Mean_Vote<Number>, storm), kTurnsBack);
    const std::string vote = outcome(Predicted_Mean_Vote<Number>, storm, Rules::Robust);
    EXPECT_EQ(vote, outcome(Predicted_Mean_Vote_plain<Number>, storm, Rules::Robust));
    EXPECT_NE(vote, kTurnsBack);
    const Solve mild{22, 27, 11, 0.6, 100};
    EXPECT_EQ(outcome(Predicted_Mean_Vote<Number>, mild, Rules::Robust),
              outcome(Predicted_Mean_Vote<Number>, mild));
    // Walks of 1e16 steps, which nobody can make one by one.
    for (const Solve& s : {Solve{-1e6, 20, 0, 1, 165}, {20, 1e13, 9, 1, 165}, {1e200, 20, 9, 1, 165}})
        EXPECT_EQ(outcome(Predicted_Mean_Vote<Number>, s), kStandsStill) << described(s);
}

struct AtGuess {
    double gap, vote;
};

/// The heat balance at the clothing temperature t, written down apart from the formula.
AtGuess balanceAt(double t, const Solve& s)
{
    const double met = s.M0 / 58.15;
    const double heat = s.M0 - std::max(s.M0 * 0.2 * std::tanh(0.39 * met - 0.6), 0.0);
    const double Icl = 0.155 * (s.Ta < -30 ? 3 : s.Ta > 25 ? 0.6 : 1.691 - 0.0436 * s.Ta);
    const double fcl = std::min(1 + 1.29 * Icl, 1.05 + 0.645 * Icl);
    const double hc = std::max(2.38 * std::pow(std::abs(t - s.Ta), 0.25), 12.1 * std::sqrt(s.WS));
    const double radiation = 3.96e-8 * (std::pow(t + 273, 4) - std::pow(s.Tmrt + 273, 4));
    const double Tcl = 35.7 - 0.028 * heat - Icl * fcl * (radiation + hc * (t - s.Ta));
    const double evaporation = 3.05e-3 * (5733 - 6.99 * heat - s.Ea * 100) + 0.42 * (heat - 58.15);
    const double breath = 1.7e-5 * s.M0 * (5867 - s.Ea * 100) + 0.0014 * s.M0 * (34 - s.Ta);
    const double load = heat - evaporation - breath - fcl * (radiation + hc * (Tcl - s.Ta));
    return {t - Tcl, (0.303 * std::exp(-0.036 * s.M0) + 0.028) * load};
}

// By the precise rules the vote is that of a clothing temperature within 1e-9 K of the root; the walk's
// is within its tolerance, and a step more where it turns back.
TEST(MeanVote, IsAtTheRootByThePreciseRules)
{
    const auto voteOf = [](const Solve& s, Rules rules) {
        return Predicted_Mean_Vote<double>(s.Ta, s.Tmrt, s.Ea, s.WS, s.M0, rules);
    };
    std::mt19937_64 random(118);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    for (int i = 0; i < 4000; ++i) {
        Solve s{draw(-60, 55), 0, draw(0.01, 40), i % 3 == 0 ? draw(0, 0.05) : draw(0, 40), draw(60, 300)};
        s.Tmrt = s.Ta + draw(-10, 60);
        double low = -273;
        double high = 200;
        for (int halving = 0; halving < 60; ++halving)
            (balanceAt(0.5 * (low + high), s).gap < 0 ? low : high) = 0.5 * (low + high);
        const auto effect = [&](double width) {
            return std::abs(balanceAt(low + width, s).vote - balanceAt(low - width, s).vote);
        };
        const double vote = voteOf(s, Rules::Precise);
        ASSERT_EQ(vote, Predicted_Mean_Vote<Number>(s.Ta, s.Tmrt, s.Ea, s.WS, s.M0, Rules::Precise).value());
        ASSERT_NEAR(vote, balanceAt(low, s).vote, effect(1e-9) + 1e-11) << described(s);
        ASSERT_NEAR(vote, voteOf(s, Rules::Robust), effect(0.0011)) << described(s);
    }
    const double nan = std::nan("");
    for (const Solve& s : {Solve{-300, 20, 5, 1, 165}, {20, 20, 5, -1, 165}, {1e300, 20, 5, 1, 165}}) {
        EXPECT_TRUE(std::isnan(voteOf(s, Rules::Precise)));
        EXPECT_THROW(Predicted_Mean_Vote<Number>(s.Ta, s.Tmrt, s.Ea, s.WS, s.M0, Rules::Precise), RunFailure);
    }
    for (const Solve& s : {Solve{nan, 20, 5, 1, 165},
                           {20, nan, 5, 1, 165},
                           {20, 20, nan, 1, 165},
                           {20, 20, 5, nan, 165},
                           {20, 20, 5, 1 / 0.0, 165}})
        EXPECT_TRUE(std::isnan(voteOf(s, Rules::Precise)));
}

// ISO 7730 (2005), table 1: 77, 26, 10 and 5 % at votes of 2, 1, 0.5 and 0.
TEST(MeanVote, Dissatisfied)
{
    EXPECT_EQ(Predicted_Percentage_Dissatisfied<Number>(0).value(), 5);
    for (const double sign : {-1.0, 1.0}) {
        EXPECT_NEAR(Predicted_Percentage_Dissatisfied<Number>(sign * 0.5).value(), 10, 0.5);
        EXPECT_NEAR(Predicted_Percentage_Dissatisfied<Number>(sign * 1).value(), 26, 0.5);
        EXPECT_NEAR(Predicted_Percentage_Dissatisfied<Number>(sign * 2).value(), 77, 0.5);
    }
}

} // namespace
