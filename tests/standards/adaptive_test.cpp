// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/adaptive_ashrae.h"
#include "standards/adaptive_en.h"

#include "standard_cases.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

void expectBand(const ComfortBand& band, const char* low, const char* up, bool accepted)
{
    EXPECT_SHOWN(band.low, low);
    EXPECT_SHOWN(band.up, up);
    EXPECT_EQ(band.accepted, accepted) << low << ".." << up;
}

TEST(AdaptiveAshrae, Figures)
{
    const AdaptiveAshrae warm = adaptiveAshrae(28, 29, 0.7, 20);
    EXPECT_SHOWN(warm.operative, "28.3");
    EXPECT_SHOWN(warm.tNeutral, "24.0");
    expectBand(warm.of80, "20.5", "28.7", true);
    expectBand(warm.of90, "21.5", "27.7", false);
    const AdaptiveAshrae cool = adaptiveAshrae(24, 24, 0.1, 10);
    EXPECT_SHOWN(cool.tNeutral, "20.9");
    expectBand(cool.of80, "17.4", "24.4", true);
    expectBand(cool.of90, "18.4", "23.4", false);
}

TEST(AdaptiveEn, Figures)
{
    const AdaptiveEn still = adaptiveEn(27, 28, 0.1, 18);
    EXPECT_SHOWN(still.operative, "27.5");
    EXPECT_SHOWN(still.tNeutral, "24.74");
    expectBand(still.categoryI, "21.74", "26.74", false);
    expectBand(still.categoryII, "20.74", "27.74", true);
    expectBand(still.categoryIII, "19.74", "28.74", true);
    const AdaptiveEn moving = adaptiveEn(29, 29, 0.9, 25);
    EXPECT_SHOWN(moving.tNeutral, "27.05");
    expectBand(moving.categoryI, "24.05", "30.85", true);
    // √(10 * 0.4) = 2: (20 * 2 + 26) / 3.
    EXPECT_SHOWN(adaptiveEn(20, 26, 0.4, 20).operative, "22.000");
}

// Steps of the speed in the operative temperature and in the upper limits, which rise above 25 °C alone.
TEST(AdaptiveAshrae, SpeedCounts)
{
    struct Case {
        double ta, v, operative, rise;
    };
    const Case cases[] = {
        {30, 0.19, 28, 0},     {30, 0.2, 28.4, 0},    {30, 0.59, 28.4, 0},
        {30, 0.6, 28.8, 1.2},  {30, 0.89, 28.8, 1.2}, {30, 0.9, 28.8, 1.8},
        {30, 1.19, 28.8, 1.8}, {30, 1.2, 28.8, 2.2},  {24, 1.2, 24.6, 0},
    };
    for (const Case& c : cases) {
        const AdaptiveAshrae r = adaptiveAshrae(c.ta, 26, c.v, 20);
        EXPECT_NEAR(r.operative, c.operative, 1e-12) << c.v;
        EXPECT_NEAR(r.of80.up, 27.5 + c.rise, 1e-12) << c.v;
        EXPECT_NEAR(r.of90.up, 26.5 + c.rise, 1e-12) << c.v;
        EXPECT_NEAR(r.of80.low, 20.5, 1e-12);
    }
    EXPECT_EQ(airSpeedRise(25, 1.2), 0);
    EXPECT_EQ(airSpeedRise(25.001, 1.2), 2.2);
}

// The ends are accepted though 0.31 * 10 + 17.8 - 3.5 is a rounding above 17.4.
TEST(Adaptive, AcceptsBothEnds)
{
    EXPECT_TRUE(adaptiveAshrae(17.4, 17.4, 0.1, 10).of80.accepted);
    EXPECT_TRUE(adaptiveAshrae(24.4, 24.4, 0.1, 10).of80.accepted);
    EXPECT_FALSE(adaptiveAshrae(17.39, 17.39, 0.1, 10).of80.accepted);
    EXPECT_FALSE(adaptiveAshrae(24.41, 24.41, 0.1, 10).of80.accepted);
    EXPECT_TRUE(adaptiveEn(21.74, 21.74, 0.1, 18).categoryI.accepted);
    EXPECT_TRUE(adaptiveEn(26.74, 26.74, 0.1, 18).categoryI.accepted);
}

TEST(Adaptive, BeyondTheOutdoorRangeNothingIsAccepted)
{
    for (const double tp : {9.9, 33.6}) {
        const AdaptiveAshrae r = adaptiveAshrae(0.31 * tp + 17.8, 0.31 * tp + 17.8, 0.1, tp);
        EXPECT_EQ(r.verdict, outside("t_p"));
        EXPECT_FALSE(r.of80.accepted || r.of90.accepted);
        EXPECT_NEAR(r.of80.low, 0.31 * tp + 14.3, 1e-12);
        EXPECT_EQ(adaptiveAshrae(24, 24, 0.1, tp, Limits::Blank).verdict, none(Reason::BeyondRange, "t_p"));
    }
    for (const double tm : {9.9, 30.1}) {
        const AdaptiveEn r = adaptiveEn(0.33 * tm + 18.8, 0.33 * tm + 18.8, 0.1, tm);
        EXPECT_EQ(r.verdict, outside("t_m"));
        EXPECT_FALSE(r.categoryI.accepted || r.categoryIII.accepted);
    }
    EXPECT_EQ(adaptiveEn(24, 24, 0.1, 30).verdict, Verdict{});
    EXPECT_EQ(adaptiveAshrae(24, 24, 0.1, 33.5).verdict, Verdict{});
    EXPECT_EQ(adaptiveEn(24, 24, -1, 20).verdict, none(Reason::BeyondPhysics, "v"));
    EXPECT_TRUE(std::isnan(adaptiveAshrae(24, kNaN, 0.1, 20).of80.low));
}

TEST(RunningMean, WeighsYesterdayMost)
{
    const std::array<double, kRunningDays> days{20, 18, 15, 16, 21, 12, 10};
    // Sums of weight times day, in whole numbers: of 0.5^k and of the fixed weights.
    EXPECT_NEAR(runningMean(days, 0.5).t,
                (64 * 20 + 32 * 18 + 16 * 15 + 8 * 16 + 4 * 21 + 2 * 12 + 10) / 127.0, 1e-12);
    EXPECT_NEAR(runningMeanFixed(days).t, (200 + 144 + 90 + 80 + 84 + 36 + 20) / 38.0, 1e-12);
    EXPECT_EQ(runningMean(days).verdict, Verdict{});
    EXPECT_EQ(runningMean(days, 0.59).verdict, outside("alpha"));
    EXPECT_EQ(runningMean(days, 0.91).verdict, outside("alpha"));
    EXPECT_EQ(runningMean(days, 0).verdict, none(Reason::BeyondPhysics, "alpha"));
    std::array<double, kRunningDays> gap = days;
    gap[4] = kNaN;
    EXPECT_EQ(runningMean(gap).verdict, none(Reason::Missing, "t_k"));
    EXPECT_TRUE(std::isnan(runningMeanFixed(gap).t));
    // All days alike give themselves.
    EXPECT_NEAR(runningMean(std::array<double, 7>{13, 13, 13, 13, 13, 13, 13}).t, 13, 1e-12);
}

} // namespace
} // namespace comfortics::tests
