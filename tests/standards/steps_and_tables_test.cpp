// SPDX-License-Identifier: GPL-3.0-or-later
//
// Classes, tables and small functions of the standards, and the clothing that cold requires.
#include "standards/adaptive_en.h"
#include "standards/heat_index.h"
#include "standards/ireq.h"
#include "standards/picking_tables.h"
#include "standards/tmrt_solarcal.h"
#include "standards/utci.h"

#include "standard_cases.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>

namespace comfortics::tests {
namespace {

using namespace standards;

// The clothing that is required lasts for ever, by way of two roots that know nothing of one another; with
// less the heat lost is what the exposure allows.
TEST(Ireq, LastsWithTheInsulationRequired)
{
    Draw between;
    int bounded = 0;
    for (int i = 0; i < kPoints; ++i) {
        SCOPED_TRACE(testing::Message() << "seed " << Draw::kSeed << ", " << i);
        IreqInputs in{.M = between(60, 250), .ta = between(-50, 0), .v = between(0.4, 10), .clo = 1};
        in.tr = in.ta + between(-5, 15);
        const IreqResult required = ireq(in);
        if (!(required.neutral.icl < 4.9))
            continue;
        ++bounded;
        EXPECT_LT(required.min.ireq, required.neutral.ireq);
        IreqInputs more = in;
        more.M += 5;
        EXPECT_LT(ireq(more).neutral.ireq, required.neutral.ireq);

        in.clo = required.neutral.icl + 1e-6;
        EXPECT_EQ(ireq(in).neutral.exposure, none(Reason::Unlimited, "dle"));
        in.clo = 0.5 * required.neutral.icl;
        const double half = ireq(in).neutral.dle;
        in.clo = 0.4 * required.neutral.icl;
        EXPECT_LT(ireq(in).neutral.dle, half);
    }
    EXPECT_GT(bounded, kPoints / 4);
}

TEST(LocalCooling, StepsWhereItsClassesBegin)
{
    using enum LocalCooling;
    const struct {
        double at;
        LocalCooling from, above;
    } rows[] = {{-10, UncomfortablyCold, None},
                {-25, SkinMayFreeze, UncomfortablyCold},
                {-35, Within10Minutes, SkinMayFreeze},
                {-60, Within2Minutes, Within10Minutes}};
    for (const auto& row : rows) {
        EXPECT_EQ(localCooling(row.at), row.from) << row.at;
        EXPECT_EQ(localCooling(std::nextafter(row.at, 0)), row.above) << row.at;
    }
    EXPECT_EQ(localCooling(kNaN), None);
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

TEST(Utci, StressHasTheEndNearerToNone)
{
    using enum UtciStress;
    const std::pair<double, UtciStress> warmest[] = {
        {26, None}, {32, ModerateHeat}, {38, StrongHeat}, {46, VeryStrongHeat}};
    const std::pair<double, UtciStress> coldest[] = {
        {9, None}, {0, SlightCold}, {-13, ModerateCold}, {-27, StrongCold}, {-40, VeryStrongCold}};
    for (const auto& [end, stress] : warmest) {
        EXPECT_EQ(utciStress(end), stress);
        EXPECT_GT(utciStress(std::nextafter(end, 100)), stress);
    }
    for (const auto& [end, stress] : coldest) {
        EXPECT_EQ(utciStress(end), stress);
        EXPECT_LT(utciStress(std::nextafter(end, -100)), stress);
    }
}

TEST(PickingTables, AreInOrder)
{
    std::set<std::string_view> ids;
    const auto expectNew = [&](std::string_view id) { EXPECT_TRUE(ids.insert(id).second) << id; };
    for (const Activity& activity : kActivities)
        expectNew(activity.id);
    for (const Garment& garment : kGarments)
        expectNew(garment.id);
    for (const Garment& ensemble : kEnsembles)
        expectNew(ensemble.id);
    for (const Garment& chair : kChairs)
        expectNew(chair.id);
    EXPECT_TRUE(std::is_sorted(kActivities.begin(), kActivities.end(),
                               [](const Activity& a, const Activity& b) { return a.met < b.met; }));
    EXPECT_TRUE(std::is_sorted(kEnsembles.begin(), kEnsembles.end(),
                               [](const Garment& a, const Garment& b) { return a.clo < b.clo; }));
}

TEST(Clothing, OfGarments)
{
    const double garments[] = {0.04, 0.25, 0.24, 0.02, 0.02}; // 0.57 together
    EXPECT_NEAR(ensembleOf(garments).clo, 0.63695, 1e-12);
    EXPECT_NEAR(ensembleOf(garments, 0.1).clo, 0.73695, 1e-12);
    EXPECT_EQ(ensembleOf({}, 0.1).clo, 0.1);
    const double wrong[] = {0.04, -0.25};
    EXPECT_EQ(ensembleOf(wrong).verdict, none(Reason::BeyondPhysics, "garment"));
}

// All nodes at once, each weighed by its number; the sums were added up from the printed table.
TEST(TmrtSolarCal, HasTheTableAsPrinted)
{
    double standing = 0;
    double sitting = 0;
    for (int node = 0; node < 13 * 7; ++node) {
        const double altitude = 15 * (node % 7);
        const double sharp = 15 * std::floor(node / 7.0);
        standing += (node + 1) * projectedShare(altitude, sharp, SolarPosture::Standing);
        sitting += (node + 1) * projectedShare(altitude, sharp, SolarPosture::Sitting);
    }
    EXPECT_NEAR(standing, 864.866, 1e-9);
    EXPECT_NEAR(sitting, 899.201, 1e-9);
}

TEST(TmrtSolarCal, FoldsTheAngle)
{
    const double rows[][3] = {{180, 180, 0}, {350, 20, 30},  {20, 350, 30},
                              {0, 180, 180}, {90, 315, 135}, {725, 0, 5}};
    for (const auto& [azimuth, facing, angle] : rows)
        EXPECT_EQ(solarAngle(azimuth, facing), angle) << azimuth;
}

// The adjustments end without a step at 13 and 85 %, and the second at 87 °F.
TEST(HeatIndex, HasNoSteps)
{
    for (const double RH : {13.0, 85.0})
        EXPECT_NEAR(heatIndex(29, RH).heatIndex, heatIndex(29, RH + (RH < 50 ? -1e-9 : 1e-9)).heatIndex,
                    1e-7);
    EXPECT_NEAR(heatIndex(55 / 1.8 - 1e-10, 95).heatIndex, heatIndex(55 / 1.8 + 1e-10, 95).heatIndex, 1e-7);
}

TEST(Adaptive, TheLimitsRiseAbove25)
{
    EXPECT_EQ(airSpeedRise(25, 1.2), 0);
    EXPECT_EQ(airSpeedRise(25.001, 1.2), 2.2);
}

} // namespace
} // namespace comfortics::tests
