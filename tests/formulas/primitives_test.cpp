// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/primitives.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(Primitives, Values)
{
    const FormulaCase cases[] = {
        {"Magnus, warm", Vapor_Pressure_Magnus<Number>, {27.3}, "36.2953287"},
        {"Magnus at its pole", Vapor_Pressure_Magnus<Number>, {-237.3}, "fails"},
        {"Hardy, warm", Saturation_Pressure_Hardy<Number>, {27.3}, "36.3147307"},
        {"Hardy, frost", Saturation_Pressure_Hardy<Number>, {-14.6}, "1.97791002"},
        // The triple point of water is at 611.657 Pa (Guildner, 1976).
        {"Hardy, triple point", Saturation_Pressure_Hardy<Number>, {0.01}, "6.11657155"},
        {"Hardy, boiling water", Saturation_Pressure_Hardy<Number>, {100}, "1014.1777"},
        // Far outside its range, where the highest powers of T weigh.
        {"Hardy, 1500 °C", Saturation_Pressure_Hardy<Number>, {1500}, "7.08904854e+15"},
        {"Buck, warm", Saturation_Pressure_Buck<Number>, {300.45}, "36.4273938"},
        {"Buck, frost", Saturation_Pressure_Buck<Number>, {258.55}, "1.98466535"},
        {"dew point, frost", Dew_Point_Magnus<Number>, {-5.2, 71}, "-9.61636708"},
        {"dew point of saturated air", Dew_Point_Magnus<Number>, {20, 100}, "20"},
        {"humidity, warm", Relative_Humidity_Magnus<Number>, {27.3, 14.6}, "45.8515085"},
        {"humidity at the pole of t", Relative_Humidity_Magnus<Number>, {-237.7, 3}, "fails"},
        {"10 m", Wind_At_10m<Number>, {3.4}, "6.17025187"},
        {"2 m", Wind_At_2m<Number>, {3.4}, "3.99559067"},
        {"surface", Body_Surface_Area<Number>, {}, "1.27016076"},
        // DuBois (1916) in cm and kg, 0.007184 * 75 ^ 0.425 * 180 ^ 0.725: 1.94 m².
        {"surface of a man", Body_Surface_Area<Number>, {}, "1.93787149", {.Height = 1.80, .Weight = 75}},
        {"surface, no height",
         Body_Surface_Area<Number>,
         {},
         "0",
         unusualAssumptions(&Assumptions::Height, 0)},
        {"skin, warm", Mean_Skin_Temperature<Number>, {27.3}, "32.4108715"},
        {"radiation, warm", Radiative_Coefficient<Number>, {34.5}, "4.2689914"},
        {"to Fahrenheit", To_Fahrenheit<Number>, {-17.6}, "0.32"},
        {"to Celsius", To_Celsius<Number>, {81.14}, "27.3"},
    };
    expectAll(cases);
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
} // namespace comfortics::tests
