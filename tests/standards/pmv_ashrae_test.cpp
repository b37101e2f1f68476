// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/pmv_ashrae.h"

#include "standard_cases.h"
#include "standards/two_node.h"

#include <gtest/gtest.h>

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

TEST(PmvAshrae, Figures)
{
    struct Case {
        PmvInputs in;
        const char* effect;
        const char* pmv;
        const char* ppd;
    };
    const Case cases[] = {
        {{26, 26, 0.1, 50, 1.2, 0.5}, "0", "0.3825", "8.05"},
        {{27, 27, 0.3, 50, 1.2, 0.5}, "1.7772", "0.1494", "5.46"},
        {{28, 29, 0.8, 60, 1.1, 0.6}, "3.3804", "0.1673", "5.58"},
        {{30, 30, 1.2, 40, 1.3, 0.5}, "4.7315", "0.2673", "6.48"},
        {{24, 26, 0.2, 30, 1.8, 1.0}, "1.4155", "0.9445", "23.84"},
        {{21, 21, 0.5, 50, 1.0, 0.8}, "2.3230", "-1.723", "62.97"},
    };
    for (const Case& c : cases) {
        const PmvAshrae r = pmvAshrae(c.in);
        EXPECT_SHOWN(r.coolingEffect, c.effect);
        EXPECT_SHOWN(r.pmv, c.pmv);
        EXPECT_SHOWN(r.ppd, c.ppd);
        EXPECT_EQ(r.compliant, std::fabs(r.pmv) < 0.5) << c.pmv;
        EXPECT_EQ(r.verdict, Verdict{}) << c.pmv;
    }
    // Both editions and work, by a calculation apart from this program.
    const PmvInputs working{27, 28, 0.6, 45, 2.2, 0.7, 0.4};
    EXPECT_SHOWN(pmvAshrae(working).coolingEffect, "4.5279");
    EXPECT_SHOWN(pmvAshrae(working).pmv, "0.5248");
    EXPECT_SHOWN(pmvAshrae(working, Motion::None, Edition::Ashrae2017).coolingEffect, "4.4508");
    EXPECT_SHOWN(pmvAshrae(working, Motion::None, Edition::Ashrae2017).pmv, "0.5369");
    EXPECT_TRUE(pmvAshrae(cases[1].in).compliant);
    EXPECT_FALSE(pmvAshrae(cases[4].in).compliant);
}

double setOf(const PmvInputs& in, double cooler, double v)
{
    return coolingEffectSet({.ta = in.ta - cooler,
                             .tr = in.tr - cooler,
                             .v = v,
                             .RH = in.RH,
                             .met = in.met,
                             .clo = in.clo})
        .set;
}

// Halving and then secants end where halving alone does, in sweat and heat as well.
TEST(PmvAshrae, StillCoolerAirHasTheSameSet)
{
    Draw draw;
    for (int i = 0; i < kPoints / 10; ++i) {
        const PmvInputs in{draw(15, 35), draw(15, 40), draw(0.15, 2),
                           draw(10, 90), draw(1, 2),   draw(0.1, 1.2)};
        const double moving = setOf(in, 0, in.v);
        const double found = coolingEffect(in).effect;
        if (!(setOf(in, 0, 0.1) > moving)) {
            EXPECT_EQ(found, 0);
            continue;
        }
        const double halved = halvedRoot([&](double x) { return setOf(in, x, 0.1) - moving; }, 0, 40);
        ASSERT_NEAR(found, halved, 1e-6) << "seed " << Draw::kSeed << ", point " << i;
    }
}

TEST(PmvAshrae, AirThatDoesNotCool)
{
    // Air that warms more than it dries, among cold walls: no effect, and the vote at the speed.
    const PmvInputs hot{40, 10, 1.5, 20, 1, 1};
    EXPECT_EQ(pmvAshrae(hot).coolingEffect, 0);
    EXPECT_EQ(pmvAshrae(hot).pmv, pmvIso(hot).pmv);
    // From 0.1 m/s to where it takes more heat than still air does, moving air is as warm as that.
    PmvInputs slow{25, 25, 0.1, 50, 1.2, 0.5};
    const double still = pmvAshrae(slow).pmv;
    slow.v = 0.13;
    EXPECT_EQ(pmvAshrae(slow).pmv, still);
    EXPECT_NE(pmvIso(slow).pmv, still);
    slow.v = 0.16;
    EXPECT_LT(pmvAshrae(slow).pmv, still);
    slow.v = 0.09;
    EXPECT_EQ(pmvAshrae(slow).pmv, pmvIso(slow).pmv);
}

TEST(PmvAshrae, LimitsTheSpeedThatOthersSet)
{
    struct Case {
        double operative, met, clo;
        const char* limit;
    };
    // At 24 °C: 50.49 - 105.7128 + 55.5408.
    const Case cases[] = {
        {25.51, 1.2, 0.5, "0.8"}, {25.5, 1.2, 0.5, "0.87"},  {24, 1.2, 0.5, "0.318"},
        {23, 1.2, 0.5, "0.19"},   {22.99, 1.2, 0.5, "0.2"},  {24, 1.3, 0.5, "none"},
        {24, 1.2, 0.7, "none"},   {24, 1.29, 0.69, "0.318"},
    };
    for (const Case& c : cases)
        EXPECT_SHOWN(airSpeedLimit(c.operative, c.met, c.clo), c.limit) << c.operative;
    EXPECT_TRUE(pmvAshrae({24, 24, 0.32, 50, 1.2, 0.5}).beyondSpeedLimit);
    EXPECT_FALSE(pmvAshrae({24, 24, 0.31, 50, 1.2, 0.5}).beyondSpeedLimit);
    EXPECT_FALSE(pmvAshrae({24, 24, 1.5, 50, 1.2, 0.9}).beyondSpeedLimit);
    EXPECT_FALSE(pmvAshrae({27, 27, 0.8, 50, 1.2, 0.5}).beyondSpeedLimit);
}

TEST(PmvAshrae, NamesWhatIsBeyondItsRange)
{
    struct Case {
        PmvInputs in;
        Motion motion;
        Verdict verdict;
    };
    const Case cases[] = {
        {{9.9, 24, 0.1, 50, 1.5, 1.4}, Motion::None, outside("ta")},
        {{24, 40.1, 0.1, 50, 1, 0.1}, Motion::None, outside("tr")},
        {{24, 24, 2.01, 50, 1.5, 1}, Motion::None, outside("vr")},
        {{24, 24, 1.9, 50, 1.5, 1}, Motion::None, Verdict{}},
        {{24, 24, 1.9, 50, 1.5, 1}, Motion::Ashrae, outside("vr")},
        {{24, 24, 0.1, 50, 0.99, 1}, Motion::None, outside("met")},
        {{24, 24, 0.1, 50, 1.2, 1.51}, Motion::None, outside("clo")},
        {{24, 24, 0.1, 50, 1.2, 1, 1.3}, Motion::None, outside("work")},
        {{40, 40, 2, 50, 1, 0, 1}, Motion::None, Verdict{}},
        {{10, 10, 1, 50, 1, 0.1}, Motion::None, outside("pmv")},
        {{24, 24, 0.1, -1, 1.2, 1}, Motion::None, none(Reason::BeyondPhysics, "RH")},
        {{24, 24, kNaN, 50, 1.2, 1}, Motion::None, none(Reason::Missing, "vr")},
    };
    for (const Case& c : cases) {
        const PmvAshrae r = pmvAshrae(c.in, c.motion);
        EXPECT_EQ(r.verdict, c.verdict) << c.verdict.about;
        EXPECT_EQ(std::isnan(r.pmv), !c.verdict.hasValue());
    }
}

} // namespace
} // namespace comfortics::tests
