// SPDX-License-Identifier: GPL-3.0-or-later
//
// What was published beside the formulas: charts, examples and definitions. The formulas themselves are held
// to the last bit by the tables of this room and of the catalogue.
#include "formulas/cold.h"
#include "formulas/humid_heat.h"
#include "formulas/physiology.h"
#include "formulas/primitives.h"
#include "formulas/psychrometry.h"
#include "texts/number_text.h"

#include <gtest/gtest.h>

namespace comfortics::formulas {
namespace {

std::string wholeDegrees(Number value)
{
    return texts::format(value.value(), values::kFormat0);
}

// The heat index chart of the National Weather Service, in whole degrees Fahrenheit.
TEST(HumidHeat, HeatIndexChart)
{
    struct ChartCell {
        double fahrenheit, RH;
        const char* heatIndex;
    };
    const ChartCell cells[] = {{80, 40, "80"},  {84, 90, "98"},   {90, 50, "95"},
                               {96, 50, "108"}, {100, 60, "129"}, {110, 40, "136"}};
    for (const auto& [fahrenheit, RH, heatIndex] : cells)
        for (const auto index : {Index_086<Number>, Index_088<Number>})
            EXPECT_EQ(wholeDegrees(To_Fahrenheit(index(To_Celsius(fahrenheit), RH))), heatIndex)
                << fahrenheit << " °F, " << RH << " %";
}

// Masterson and Richardson (1979): 30 °C with a dew point of 15 °C has a humidex of 34.
TEST(HumidHeat, HumidexOfItsAuthors)
{
    EXPECT_EQ(wholeDegrees(Index_090<Number>(30, 15)), "34");
}

// The charts published with the formulas, in whole degrees: wind chill in °C by Environment Canada (2001),
// the wind in km/h at 10 m, so that the profile exponent is 0 here, and in °F by the National Weather
// Service (2001), the wind in mph.
TEST(Cold, WindChillCharts)
{
    struct Entry {
        double Ta, WS;
        const char* windChill;
    };
    const Assumptions level{.Friction = 0};
    const Entry metric[] = {{5, 5, "4"}, {0, 15, "-4"}, {-10, 20, "-18"}, {-30, 40, "-48"}, {-50, 80, "-81"}};
    for (const auto& [Ta, WS, windChill] : metric)
        EXPECT_EQ(wholeDegrees(Index_211<Number>(level, Ta, WS / 3.6)), windChill) << Ta << " °C";
    const Entry imperial[] = {
        {40, 5, "36"}, {20, 5, "13"}, {0, 15, "-19"}, {-25, 5, "-40"}, {-45, 60, "-98"}};
    for (const auto& [Ta, WS, windChill] : imperial)
        EXPECT_EQ(wholeDegrees(Index_108<Number>((Ta - 32) / 1.8, WS / 2.2369362912)), windChill)
            << Ta << " °F";
}

// Lee and Henschel (1966): 10.7 / 44 at 35 °C in dry air. Stull (2011): 13.7 °C at 20 °C and 50 %. The triple
// point of water is at 611.657 Pa (Guildner, 1976). DuBois (1916): 0.007184 * 75 ^ 0.425 * 180 ^ 0.725
// is 1.94 m².
TEST(Formulas, GiveThePublishedExamples)
{
    EXPECT_NEAR(Index_137<Number>(35, 0).value(), 10.7 / 44, 1e-9);
    EXPECT_NEAR(Index_203<Number>(20, 50)->value(), 13.7, 0.05);
    EXPECT_NEAR(Saturation_Pressure_Hardy<Number>(0.01).value(), 6.11657, 5e-6);
    EXPECT_NEAR(Body_Surface_Area<Number>(Assumptions{.Height = 1.80, .Weight = 75}).value(), 1.94, 0.005);
}

TEST(Primitives, PowersOfTenAreTheLibrarysToTheBit)
{
    EXPECT_EQ(kTenToMinus1, power(10, -1));
    EXPECT_EQ(kTenToMinus2, power(10, -2));
    EXPECT_EQ(kTenToMinus3, power(10, -3));
    EXPECT_EQ(kTenToMinus4, power(10, -4));
    EXPECT_EQ(kTenToMinus5, power(10, -5));
    EXPECT_EQ(kTenToMinus6, power(10, -6));
    EXPECT_EQ(kTenToMinus7, power(10, -7));
    EXPECT_EQ(kTenToMinus8, power(10, -8));
    EXPECT_EQ(kTenToMinus10, power(10, -10));
    EXPECT_EQ(kTenToMinus11, power(10, -11));
}

// By definition: a foot is 0.3048 m, a thermochemical calorie 4.184 J; a mmHg is taken as 133.322 Pa.
TEST(Primitives, UnitFactors)
{
    EXPECT_NEAR(HPA_TO_MMHG, 100 / 133.322, 5e-15);
    EXPECT_NEAR(MS_TO_FTMIN, 60 / 0.3048, 5e-13);
    EXPECT_NEAR(WM2_TO_CALCM2MIN, 60 / 41840.0, 5e-12);
}

} // namespace
} // namespace comfortics::formulas
