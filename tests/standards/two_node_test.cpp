// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/two_node.h"

#include "standard_cases.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

TwoNodeInputs drawnRoom(Draw& draw)
{
    return {.ta = draw(10, 40),
            .tr = draw(10, 40),
            .v = draw(0, 2),
            .RH = draw(5, 95),
            .met = draw(1, 4),
            .clo = draw(0, 1.5)};
}

TEST(TwoNode, WarmsWithItsSurroundingsAndKeepsToItsBounds)
{
    Draw draw;
    for (int i = 0; i < kPoints; ++i) {
        const TwoNodeInputs in = drawnRoom(draw);
        const TwoNode r = twoNode(in);
        ASSERT_TRUE(r.setVerdict.hasValue() && r.etVerdict.hasValue());
        EXPECT_GE(r.wettedness, 0.06);
        EXPECT_LE(r.wettedness, 1);
        EXPECT_LE(r.disc, 6);
        EXPECT_LT(r.tSkin, r.tCore + 1);
        // Where the skin is as wet as it can be, results step.
        const double most =
            in.clo == 0 ? 0.38 * std::pow(in.v, -0.29) : 0.59 * std::pow(std::max(in.v, 0.1), -0.08);
        if (r.wettedness > 0.9 * most)
            continue;
        for (double TwoNodeInputs::*input : {&TwoNodeInputs::ta, &TwoNodeInputs::tr}) {
            TwoNodeInputs warmer = in;
            warmer.*input += 0.5;
            EXPECT_GT(twoNode(warmer).set, r.set) << "seed " << Draw::kSeed << ", point " << i;
        }
    }
}

// The effective temperature is by its definition that of air at 50 %, and slower air than 0.1 m/s does not
// cool less.
TEST(TwoNode, EffectiveTemperatureAndStillAir)
{
    for (const double t : {18.0, 25.0, 33.0}) {
        const TwoNodeInputs in{.ta = t, .tr = t, .v = 0.3, .RH = 50, .met = 1.2, .clo = 0.5};
        EXPECT_NEAR(twoNode(in).et, t, 0.03) << t; // in its last minute the skin still moves
        TwoNodeInputs still = in;
        still.v = 0;
        TwoNodeInputs slow = in;
        slow.v = 0.1;
        EXPECT_EQ(twoNode(still).set, twoNode(slow).set);
    }
}

TEST(TwoNode, TheCourseEndsInTheFigures)
{
    const TwoNodeInputs in{.ta = 38, .tr = 38, .v = 0.2, .RH = 60, .met = 2, .clo = 0.5};
    std::array<BodyMinute, 600> minutes;
    EXPECT_EQ(twoNodeCourse(in, minutes), Verdict{});
    const TwoNode r = twoNode(in);
    EXPECT_EQ(minutes[59].tCore, r.tCore);
    EXPECT_EQ(minutes[59].tSkin, r.tSkin);
    EXPECT_EQ(minutes[59].wettedness, r.wettedness);
    // One minute's step from the start, and a core that goes on heating.
    EXPECT_NEAR(minutes[0].tCore, kTwoNodeStartCore, 0.2);
    EXPECT_NEAR(minutes[0].tSkin, kTwoNodeStartSkin, 1);
    EXPECT_GT(minutes[599].tCore, minutes[59].tCore);
    EXPECT_EQ(minutes[59].eSkin, r.eSkin);
    TwoNodeInputs missing = in;
    missing.RH = kNaN;
    EXPECT_EQ(twoNodeCourse(missing, minutes), none(Reason::Missing, "RH"));
    EXPECT_TRUE(std::isnan(minutes[0].tCore) && std::isnan(minutes[599].tSkin));
}

// In a mild room the body comes to rest, and then gives away all that it makes.
TEST(TwoNode, TheBalanceClosesAtRest)
{
    const TwoNodeInputs in{.ta = 24, .tr = 27, .v = 0.2, .RH = 50, .met = 1.2, .clo = 0.6, .work = 0.1};
    std::array<BodyMinute, 900> minutes;
    EXPECT_EQ(twoNodeCourse(in, minutes), Verdict{});
    const BodyMinute& rest = minutes.back();
    EXPECT_NEAR(rest.tCore, minutes[889].tCore, 1e-5);
    EXPECT_NEAR(rest.tSkin, minutes[889].tSkin, 1e-5);
    const double hc = 5.66 * std::pow(1.2 - 0.85, 0.39); // that of the limbs is the largest
    const double f = 1 + 0.15 * 0.6;
    const auto radiation = [&](double tcl) { // [W/m²] of the clothing
        return 4 * 0.95 * 0.73 * 5.6697e-8 * std::pow((tcl + 27) / 2 + 273.15, 3) * (tcl - 27);
    };
    const double tcl = halvedRoot(
        [&](double t) { return (rest.tSkin - t) / (0.155 * 0.6) - f * (hc * (t - 24) + radiation(t)); }, 0,
        50);
    const double dry = (rest.tSkin - tcl) / (0.155 * 0.6);
    const double vapour = 0.5 * std::exp(18.6686 - 4030.183 / (24 + 235)); // [torr]
    const double breath = 58.2 * 1.2 * (0.0023 * (44 - vapour) + 0.0014 * (34 - 24));
    EXPECT_NEAR(dry + rest.eSkin + breath, 58.2 * (1.2 - 0.1), 0.02); // the clothing to 0.01 K
}

TEST(TwoNode, TakesTheBoundsOfTheBody)
{
    TwoNodeInputs in{.ta = 42, .tr = 42, .v = 0.5, .RH = 40, .met = 2, .clo = 0.5};
    const TwoNode usual = twoNode(in);
    in.mostSweat = 100;
    std::array<BodyMinute, 60> minutes;
    twoNodeCourse(in, minutes);
    EXPECT_LE(minutes[59].sweat, 100 + 1e-9);
    EXPECT_GT(twoNode(in).tCore, usual.tCore);
    in.mostSweat = 500;
    in.mostBlood = 20;
    twoNodeCourse(in, minutes);
    EXPECT_EQ(minutes[59].blood, 20);
    in.mostBlood = 90;
    in.mostWettedness = 0.2;
    EXPECT_EQ(twoNode(in).wettedness, 0.2);
    in.mostWettedness = 1.01;
    EXPECT_EQ(twoNode(in).verdict, outside("ta"));
    in.ta = in.tr = 40;
    EXPECT_EQ(twoNode(in).verdict, outside("w_max"));
}

} // namespace
} // namespace comfortics::tests
