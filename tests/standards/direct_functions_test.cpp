// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/body_surface.h"
#include "standards/heat_index.h"
#include "standards/picking_tables.h"
#include "standards/utci.h"
#include "standards/wind_chill.h"

#include "standard_cases.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace comfortics::tests {
namespace {

using namespace standards;

TEST(Utci, Figures)
{
    struct Case {
        double ta, tmrt, v, RH;
        const char* utci;
        UtciStress stress;
    };
    using enum UtciStress;
    const Case cases[] = {
        {25, 25, 1, 50, "24.612", None},           {35, 65, 2, 40, "42.238", VeryStrongHeat},
        {-15, -15, 8, 70, "-41.457", ExtremeCold}, {10, 30, 3, 60, "11.686", None},
        {45, 80, 0.5, 20, "53.888", ExtremeHeat},
    };
    for (const Case& c : cases) {
        const Utci r = utci(c.ta, c.tmrt, c.v, c.RH);
        EXPECT_SHOWN(r.utci, c.utci);
        EXPECT_EQ(r.stress, c.stress) << c.utci;
        EXPECT_EQ(r.verdict, Verdict{});
        EXPECT_EQ(r.v10, c.v);
    }
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

TEST(Utci, TakesWindOfAnyHeight)
{
    EXPECT_SHOWN(utci(20, 25, 0.2, 50, 0.02).v10, "1.99316"); // 0.2 log(1000) / log(2)
    // log(1000) / log(100) = 1.5
    EXPECT_NEAR(utci(20, 25, 2, 50, 1).v10, 3, 1e-12);
    EXPECT_NEAR(utci(20, 25, 2, 50, 1).utci, utci(20, 25, 3, 50).utci, 1e-9);
    EXPECT_EQ(utci(20, 25, 2, 50, 0.01).verdict, none(Reason::Undefined, "z"));
    EXPECT_EQ(utci(20, 25, 2, 50, 0).verdict, none(Reason::BeyondPhysics, "z"));
    EXPECT_EQ(utci(20, 25, 12, 50, 1).verdict, outside("v"));
}

TEST(Utci, NamesWhatIsBeyondItsRange)
{
    EXPECT_EQ(utci(-50.1, -50, 2, 50).verdict, outside("ta"));
    EXPECT_EQ(utci(50.1, 50, 2, 10).verdict, outside("ta"));
    EXPECT_EQ(utci(20, 90.1, 2, 50).verdict, outside("tmrt - ta"));
    EXPECT_EQ(utci(20, -10.1, 2, 50).verdict, outside("tmrt - ta"));
    EXPECT_EQ(utci(20, 20, 0.49, 50).verdict, outside("v"));
    EXPECT_EQ(utci(20, 20, 17.1, 50).verdict, outside("v"));
    // Saturated air of 40 °C has 7.4 kPa: 5 kPa at 67.7 %.
    EXPECT_EQ(utci(40, 40, 2, 67).verdict, Verdict{});
    EXPECT_EQ(utci(40, 40, 2, 68).verdict, outside("RH"));
    EXPECT_EQ(utci(20, 20, 17.1, 50, 10, Limits::Blank).verdict, none(Reason::BeyondRange, "v"));
    EXPECT_EQ(utci(20, kNaN, 2, 50).verdict, none(Reason::Missing, "tmrt"));
    EXPECT_TRUE(std::isnan(utci(20, 20, -1, 50).utci));
}

TEST(HeatIndex, Figures)
{
    struct Case {
        double ta, RH;
        const char* expected;
        Verdict verdict;
    };
    // The last four by a calculation apart from this program: around 80 and 87 °F, and beyond the regression.
    const Case cases[] = {
        {20, 50, "19.681", {}},
        {27, 60, "28.081", {}},
        {35, 55, "42.748", {}},
        {29, 92, "37.799", {}},
        {40, 8, "36.202", {}},
        {26, 80, "26.372", {}},
        {26.9, 95, "31.685", {}},
        {30.8, 95, "45.875", {}},
        {26.6, 95, "30.015", outside("ta")},
        {44.5, 20, "46.379", outside("ta")},
    };
    for (const Case& c : cases) {
        const HeatIndex r = heatIndex(c.ta, c.RH);
        EXPECT_SHOWN(r.heatIndex, c.expected);
        EXPECT_EQ(r.verdict, c.verdict) << c.ta;
    }
    EXPECT_EQ(heatIndex(44.5, 20, Limits::Blank).verdict, none(Reason::BeyondRange, "ta"));
    EXPECT_EQ(heatIndex(30, 101).verdict, none(Reason::BeyondPhysics, "RH"));
    // The adjustments end without a step at 13 and 85 %, and the second at 87 °F.
    for (const double RH : {13.0, 85.0})
        EXPECT_NEAR(heatIndex(29, RH).heatIndex, heatIndex(29, RH + (RH < 50 ? -1e-9 : 1e-9)).heatIndex,
                    1e-7);
    EXPECT_NEAR(heatIndex(55 / 1.8 - 1e-10, 95).heatIndex, heatIndex(55 / 1.8 + 1e-10, 95).heatIndex, 1e-7);
}

TEST(WindChill, Figures)
{
    struct Case {
        double ta, v;
        const char* temperature;
        const char* loss;
    };
    const Case cases[] = {
        {-10, 5, "-17.447", "1390.8"},
        {0, 10, "-7.053", "1230.9"},
        {-25, 8, "-38.853", "2073.1"},
        {5, 2, "3.353", "735.7"},
    };
    for (const Case& c : cases) {
        EXPECT_SHOWN(windChillTemperature(c.ta, c.v).value, c.temperature);
        EXPECT_SHOWN(windChillIndex(c.ta, c.v).value, c.loss);
    }
    EXPECT_EQ(windChillTemperature(10, 4.8 / 3.6).verdict, Verdict{});
    EXPECT_EQ(windChillTemperature(10.1, 5).verdict, outside("ta"));
    EXPECT_EQ(windChillTemperature(0, 1.33).verdict, outside("v"));
    EXPECT_EQ(windChillIndex(0, 20.1).verdict, outside("v"));
    EXPECT_EQ(windChillIndex(30, 0).verdict, Verdict{});
    EXPECT_EQ(windChillIndex(0, -1).verdict, none(Reason::BeyondPhysics, "v"));
}

TEST(BodySurface, Figures)
{
    using enum BodySurfaceFormula;
    const std::pair<BodySurfaceFormula, const char*> cases[] = {
        {DuBois, "1.84383"},      {DuBoisOriginal, "1.84812"}, {Mosteller, "1.84466"}, {Haycock, "1.84678"},
        {GehanGeorge, "1.85385"}, {Takahira, "1.86391"},       {Fujimoto, "1.79878"},  {Kurazumi, "1.83015"},
    };
    for (const auto& [formula, expected] : cases)
        EXPECT_SHOWN(bodySurface(70, 1.75, formula).area, expected);
    EXPECT_EQ(bodySurface(0, 1.75).verdict, none(Reason::BeyondPhysics, "weight"));
    EXPECT_EQ(bodySurface(70, kNaN).verdict, none(Reason::Missing, "height"));
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

TEST(Clothing, OfGarmentsAndOfTheWeather)
{
    const double garments[] = {0.04, 0.25, 0.24, 0.02, 0.02}; // 0.57 together
    EXPECT_NEAR(ensembleOf(garments).clo, 0.63695, 1e-12);
    EXPECT_NEAR(ensembleOf(garments, 0.1).clo, 0.73695, 1e-12);
    EXPECT_EQ(ensembleOf({}, 0.1).clo, 0.1);
    const double wrong[] = {0.04, -0.25};
    EXPECT_EQ(ensembleOf(wrong).verdict, none(Reason::BeyondPhysics, "garment"));

    const std::pair<double, const char*> weather[] = {{-5.5, "1.0000"}, {5.5, "0.63125"}, {-5, "1.000"},
                                                      {0, "0.818"},     {12, "0.57187"},  {26, "0.4600"},
                                                      {30, "0.46"}};
    for (const auto& [t, clo] : weather)
        EXPECT_SHOWN(clothingByWeather(t).clo, clo) << t;
    EXPECT_EQ(clothingByWeather(kNaN).verdict, none(Reason::Missing, "t_6"));
}

} // namespace
} // namespace comfortics::tests
