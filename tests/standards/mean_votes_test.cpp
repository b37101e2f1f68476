// SPDX-License-Identifier: GPL-3.0-or-later
//
// The mean votes of both standards and the motion that they take.
#include "standards/pmv_ashrae.h"
#include "standards/two_node.h"

#include "standard_cases.h"

#include <cmath>

namespace comfortics::tests {
namespace {

using namespace standards;

// Within the range and far out, in still air and wind: the root is the halved one, and the heat that goes
// through the clothing is what its surface gives away.
TEST(PmvIso, TheClothingsBalanceCloses)
{
    Draw draw;
    for (int i = 0; i < kPoints; ++i) {
        const double ta = draw(-40, 60);
        const double tr = draw(-40, 90);
        const double vr = i % 3 == 0 ? 0 : draw(0, 12);
        const double clo = i % 7 == 0 ? 0 : draw(0, 4);
        const double heat = draw(40, 400);
        const ClothingBalance balance(ta, tr, vr, clo, heat);
        const double t = balance.temperature().value_or(kNaN);
        const double halved = halvedRoot([&](double x) { return balance.surplus(x); }, -200, 400);
        ASSERT_NEAR(t, halved, 2e-9) << "seed " << Draw::kSeed << ": " << ta << " " << tr << " " << vr;
        const double skin = 35.7 - 0.028 * heat;
        ASSERT_NEAR(skin - t, 0.155 * clo * balance.losses(t), 1e-8);
    }
}

TEST(PmvIso, RisesWithWarmthHumidityClothingAndStillness)
{
    Draw draw;
    for (int i = 0; i < kPoints; ++i) {
        const PmvInputs in{draw(10, 29), draw(10, 39), draw(0, 0.9),
                           draw(10, 60), draw(1, 2),   draw(0.1, 1.5)};
        const double pmv = pmvIso(in).pmv;
        for (const auto& [input, step] :
             {std::pair(&PmvInputs::ta, 0.5), {&PmvInputs::tr, 0.5}, {&PmvInputs::RH, 1.0}}) {
            PmvInputs more = in;
            more.*input += step;
            EXPECT_GT(pmvIso(more).pmv, pmv) << i;
        }
        PmvInputs working = in;
        working.work = 0.1;
        EXPECT_LT(pmvIso(working).pmv, pmv);
        if (in.ta < 25 && in.tr < 25) { // of surroundings that cool
            PmvInputs warmer = in;
            warmer.clo += 0.01;
            EXPECT_GT(pmvIso(warmer).pmv, pmv);
            PmvInputs busier = in;
            busier.met += 0.01;
            EXPECT_GT(pmvIso(busier).pmv, pmv);
            PmvInputs windier = in;
            windier.v += 0.05;
            if (pmvIso(in).tCl > in.ta) {
                EXPECT_LT(pmvIso(windier).pmv, pmv + 1e-9); // natural convection may still be the larger
            }
        }
    }
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

// The nude stay nude, and the two ways of the correction meet at 0.6 clo.
TEST(Motion, CorrectsTheClothingWithoutAStep)
{
    for (const double v : {0.1, 0.7, 5.0}) {
        EXPECT_NEAR(inMotion(Motion::Iso, v, 2.3, 0).clo, 0, 1e-15);
        EXPECT_NEAR(inMotion(Motion::Iso, v, 2.3, 0.6).clo, inMotion(Motion::Iso, v, 2.3, 0.6 + 1e-12).clo,
                    1e-11);
    }
}

} // namespace
} // namespace comfortics::tests
