// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/stepped_walk.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace {

using comfortics::formulas::lastCertainStep;
using comfortics::formulas::Outlook;
using comfortics::formulas::SteppedWalk;

std::uint64_t bits(double x)
{
    return std::bit_cast<std::uint64_t>(x);
}

struct WalkCase {
    std::string name;
    double start;
    double step;
};

const double kUlp = std::numeric_limits<double>::epsilon();

// Those of the two searches, and others that try a rounding: exact halves (of which every second
// one would go the other way if the table took the wrong stride), a first step into a coarser or
// finer binade, hardly moving and wildly moving walks, the subnormal range.
const WalkCase kWalks[] = {
    {"mean vote down", 33 - 0.0001, -0.0001},
    {"mean vote up", 33 - 0.0001, 0.0001},
    {"wind chill down", 0, -0.01},
    {"wind chill up", 0, 0.01},
    {"through zero from below", -7.3, 0.0013},
    {"halves from an even point", 1, 2.5 * kUlp},
    {"halves from an odd point", 1 + kUlp, 2.5 * kUlp},
    {"halves with an odd whole part", 1 + kUlp, 3.5 * kUlp},
    {"halves downwards", 2 - kUlp, -4.5 * kUlp},
    {"one and a half, into the next binade", 2 - 5000 * kUlp, 1.5 * kUlp},
    {"less than half a neighbour's distance below a power of two", 1 + 400 * kUlp, -4.3 * kUlp},
    {"hardly moving", -4096, 0.6 * 4096 * kUlp},
    {"into subnormals and out", 1e-305, -3.3e-312},
    {"among subnormals", 5e-324, 1.5e-322},
    {"to the end of the range", -1e308, 1.1e306},
};

TEST(SteppedWalk, HasThePointsOfRepeatedAddition)
{
    constexpr std::uint64_t kSteps = 2'500'000;
    for (const WalkCase& row : kWalks) {
        const SteppedWalk walk(row.start, row.step);
        double point = row.start;
        for (std::uint64_t n = 0; n < kSteps; ++n) {
            if (n > walk.length()) {
                EXPECT_TRUE(walk.at(n - 1) == point || !std::isfinite(point)) << row.name << ", end at " << n;
                break;
            }
            if (bits(walk.at(n)) != bits(point)) {
                ADD_FAILURE() << row.name << ", step " << n;
                break;
            }
            point += row.step;
        }
    }
}

// Over the whole length, up to 1e16 steps: each point is one addition from the one before.
TEST(SteppedWalk, GoesOnByOneStepWhereverItIs)
{
    constexpr std::uint64_t kSeed = 4711;
    std::mt19937_64 random(kSeed);
    for (const WalkCase& row : kWalks) {
        const SteppedWalk walk(row.start, row.step);
        for (int i = 0; i < 200'000; ++i) {
            // all orders of magnitude alike
            const std::uint64_t n = random() % (walk.length() >> random() % 54 | 1);
            if (n < walk.length() && bits(walk.at(n) + row.step) != bits(walk.at(n + 1))) {
                ADD_FAILURE() << row.name << ", step " << n << ", seed " << kSeed;
                break;
            }
        }
        const double end = walk.at(walk.length());
        EXPECT_TRUE(end + row.step == end || !std::isfinite(end + row.step)) << row.name;
    }
}

// At 2^40 the neighbours are 2.4e-4 apart, at 2^47 0.03: a step of less than half of that is lost.
TEST(SteppedWalk, EndsWhereTheStepIsLost)
{
    const SteppedWalk up(33, 0.0001);
    EXPECT_EQ(up.at(up.length()), std::ldexp(1, 40));
    const SteppedWalk down(0, -0.01);
    EXPECT_EQ(down.at(down.length()), -std::ldexp(1, 47));
    EXPECT_EQ(SteppedWalk(1, 1e-300).length(), 0U);

    double point = std::ldexp(1, 40) - 50;
    const SteppedWalk nearEnd(point, 0.0001);
    std::uint64_t steps = 0;
    for (; point + 0.0001 != point; point += 0.0001)
        ++steps;
    EXPECT_EQ(nearEnd.length(), steps);
}

TEST(SteppedWalk, FindsTheStepBeforeAValue)
{
    const double infinity = std::numeric_limits<double>::infinity();
    std::mt19937_64 random(99);
    for (const WalkCase& row : kWalks) {
        const SteppedWalk walk(row.start, row.step);
        const double forward = row.step > 0 ? infinity : -infinity;
        EXPECT_EQ(walk.stepsTo(forward), walk.length()) << row.name;
        EXPECT_EQ(walk.stepsTo(-forward), 0U) << row.name;
        for (int i = 0; i < 20'000; ++i) {
            const std::uint64_t n = random() % (walk.length() >> random() % 54 | 1);
            const double point = walk.at(n);
            ASSERT_EQ(walk.stepsTo(point), n) << row.name;
            ASSERT_EQ(walk.stepsTo(std::nextafter(point, forward)),
                      n < walk.length() && walk.at(n + 1) == std::nextafter(point, forward) ? n + 1 : n)
                << row.name;
            ASSERT_EQ(walk.stepsTo(std::nextafter(point, -forward)), n == 0 ? 0 : n - 1) << row.name;
        }
    }
}

TEST(LastCertainStep, IsNeverBeyondCertaintyWhateverIsGuessed)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const SteppedWalk walk(33, -0.0001);
    const std::uint64_t last = 1'234'567;
    const double limit = walk.at(last);
    for (const double guess : {limit, limit + 0.3, limit - 0.3, 33.0, -1e11, -1e300, 1e300, nan}) {
        int looks = 0;
        const auto look = [&](double t) {
            ++looks;
            return Outlook{t >= limit, guess};
        };
        const std::uint64_t found = lastCertainStep(walk, 5, look);
        EXPECT_LE(found, last) << guess;
        EXPECT_LE(looks, 80) << guess; // 16 guesses, then halving 1e16 steps
        if (!(guess > limit)) {
            EXPECT_GE(found + 2, last) << guess;
        }
    }
    // Nothing but the first point is certain; everything is.
    EXPECT_EQ(lastCertainStep(walk, 5, [](double) { return Outlook{false, 0}; }), 5U);
    EXPECT_GE(lastCertainStep(walk, 5, [](double) { return Outlook{true, -1e300}; }) + 2, walk.length());
}

} // namespace
