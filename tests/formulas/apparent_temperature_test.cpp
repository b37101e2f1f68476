// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/apparent_temperature.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

const Assumptions kSite = unusualAssumptions();

// Throughout: Ta 27.3, Td 14.6, RH 43.7, WS 3.4, Tmrt 41.8, Tg 35.2, Ea 16.61, Tnwb 19.4, SR 612, unless the
// row is named for what differs.

TEST(ApparentTemperature, Regressions)
{
    expectAll({
        {"7", [] { return Index_007(27.3, 14.6); }, "27.744548"},
        {"8", [] { return Index_008(27.3, 3.4); }, "20.5"},
        {"9", [] { return Index_009(27.3, 43.7); }, "27.293259"},
        {"9 in frost", [] { return Index_009(-12.6, 81); }, "164.479417"},
        {"10", [] { return Index_010(27.3, 16.61); }, "27.4702"},
        {"11", [] { return Index_011(27.3, 16.61); }, "28.08202"},
        {"12", [] { return Index_012(27.3, 14.6); }, "29.856"},
        {"12, the dropped square just fits", [] { return Index_012(27.3, 3e154); }, "1.104e+154"},
        {"12, the dropped square overflows", [] { return Index_012(27.3, 4e154); }, "fails"},
        {"13", [] { return Index_013(kSite, 27.3, 16.61, 3.4); }, "25.0033363"},
        {"14", [] { return Index_014(kSite, 27.3, 16.61, 3.4); }, "24.4621237"},
        {"15 just below 25 is Ta", [] { return Index_015(24.99999, 14.6); }, "24.99999"},
        {"15 at 25 is the formula", [] { return Index_015(25, 14.6); }, "25.54156"},
        {"15", [] { return Index_015(27.3, 14.6); }, "27.82776"},
        {"116", [] { return Index_116(27.3, 41.8, 43.7, 3.4); }, "26.63234"},
        {"117", [] { return Index_117(27.3, 3.4, 612); }, "24.2315488"},
    });
}

TEST(ApparentTemperature, SteadmanInTheSun)
{
    static Assumptions negativeHeight = kSite;
    negativeHeight.Height = -0.62;
    static Assumptions negativeWeight = kSite;
    negativeWeight.Weight = -171;
    expectAll({
        {"16", [] { return Index_016(kSite, 27.3, 16.61, 3.4, 41.8); }, "28.5141586"},
        {"16, Tmrt below Ta", [] { return Index_016(kSite, 27.3, 16.61, 3.4, -3.6); }, "20.9811298"},
        {"16, the dropped body surface fails",
         [] { return Index_016(negativeHeight, 27.3, 16.61, 3.4, 41.8); }, "fails"},
        {"17", [] { return Index_017(kSite, 27.3, 16.61, 3.4, 41.8); }, "26.7406274"},
        {"17, Tmrt below Ta", [] { return Index_017(kSite, 27.3, 16.61, 3.4, -3.6); }, "19.7599117"},
        {"17, the dropped body surface fails",
         [] { return Index_017(negativeWeight, 27.3, 16.61, 3.4, 41.8); }, "fails"},
    });
}

TEST(ApparentTemperature, EffectiveTemperatures)
{
    expectAll({
        {"20", [] { return Index_020(19.4, 27.3); }, "20.19"},
        {"50", [] { return Index_050(35.2, 19.4); }, "23.851588"},
        {"51", [] { return Index_051(35.2, 19.4); }, "26.4147579"},
        {"65", [] { return Index_065(27.3, 43.7); }, "23.40404"},
        {"66", [] { return Index_066(27.3, 43.7, 3.4); }, "20.5487512"},
        {"66 with a negative wind", [] { return Index_066(27.3, 43.7, -3.4); }, "fails"},
        {"103", [] { return Index_103(27.3, 43.7); }, "24.27596"},
    });
}

TEST(ApparentTemperature, AizenshtatAndItsFollowers)
{
    expectAll({
        {"22", [] { return Index_022(kSite, 27.3, 43.7, 3.4); }, "15.6875198"},
        {"69", [] { return Index_069(27.3, 43.7, 3.4); }, "16.207951"},
        {"69 with a negative wind", [] { return Index_069(27.3, 43.7, -3.4); }, "fails"},
        {"70", [] { return Index_070(kSite, 27.3, 43.7, 3.4); }, "8.35939977"},
        {"70 with a negative wind", [] { return Index_070(kSite, 27.3, 43.7, -3.4); }, "fails"},
        {"109", [] { return Index_109(kSite, 27.3, 43.7, 3.4); }, "13.6875198"},
        {"152", [] { return Index_152(kSite, 27.3, 43.7, 3.4); }, "18.9383018"},
    });
}

TEST(ApparentTemperature, Bedford)
{
    expectAll({
        {"71", [] { return Index_071(27.3, 41.8, 3.4); }, "30.2463138"},
        {"71 with a negative wind", [] { return Index_071(27.3, 41.8, -3.4); }, "fails"},
        {"73", [] { return Index_073(27.3, 41.8, 16.61, 3.4); }, "27.9119554"},
        {"73 with a negative wind", [] { return Index_073(27.3, 41.8, 16.61, -3.4); }, "fails"},
    });
}

// Its factor to ft/min is one digit shorter than MS_TO_FTMIN, which would give -16.545465278687356: only the
// last bits tell. The formula is basic arithmetic and a root, so they are the same everywhere.
TEST(ApparentTemperature, BedfordsEquivalentTemperatureHasItsOwnWindFactor)
{
    EXPECT_EQ(Index_071(2.3, 5.9, 7.9).number().value(), -16.545465278687512);
}

TEST(ApparentTemperature, BruendlIsZeroAtZeroButNeedsThePressure)
{
    static Assumptions withoutPressure = kSite;
    withoutPressure.Barometric = 0;
    expectAll({
        {"72", [] { return Index_072(kSite, 27.3, 0, 43.7); }, "32.6549693"},
        {"72 does not read its second input", [] { return Index_072(kSite, 27.3, 36.3, 43.7); },
         "32.6549693"},
        {"72 in frost", [] { return Index_072(kSite, -8.4, 0, 43.7); }, "3.59929643"},
        {"72 at 0 °C, in dry air too", [] { return Index_072(kSite, 0, 0, 0); }, "0"},
        {"72 at 0 °C without pressure", [] { return Index_072(withoutPressure, 0, 0, 43.7); }, "fails"},
    });
}

TEST(ApparentTemperature, ComfortIndexOfRodriguezTurnsAt150KilometresPerDay)
{
    expectAll({
        {"23 in wind", [] { return Index_023(3.4, 27.3, 19.4); }, "7.74643115"},
        {"23 at 150 km per day", [] { return Index_023(150 / 86.4, 27.3, 19.4); }, "23.35"},
        {"23 just above", [] { return Index_023(1.73612, 27.3, 19.4); }, "9.36909775"},
        {"23, the exponent overflows in calm air too", [] { return Index_023(0.4, -80000, 19.4); }, "fails"},
    });
}

TEST(ApparentTemperature, RadiationEquivalentTrapsItsFailures)
{
    expectAll({
        {"132", [] { return Index_132(27.3, 43.7, 3.4, 612); }, "-16.6417824"},
        {"133", [] { return Index_133(27.3, 43.7, 3.4, 612); }, "-12.7611514"},
        {"132 without sun", [] { return Index_132(27.3, 43.7, 3.4, 0); }, "-34.5602338"},
        {"133 without sun is the same", [] { return Index_133(27.3, 43.7, 3.4, 0); }, "-34.5602338"},
        {"132, the logarithm fails in cold wind", [] { return Index_132(-9.5, 43.7, 8.2, 35); }, "empty"},
        {"133, the logarithm fails in cold wind", [] { return Index_133(-9.5, 43.7, 8.2, 35); }, "empty"},
        {"132, the root of a negative wind fails", [] { return Index_132(27.3, 43.7, -0.4, 612); }, "empty"},
        {"133, the root of a negative wind fails", [] { return Index_133(27.3, 43.7, -0.4, 612); }, "empty"},
    });
}

TEST(ApparentTemperature, SubjectiveTemperatures)
{
    expectAll({
        {"18", [] { return Index_018(27.3, 41.8, 3.4, 35.2); }, "31.5494064"},
        {"18 does not read Ta and Tmrt", [] { return Index_018(-6.1, 2.2, 3.4, 35.2); }, "31.5494064"},
        {"18 at 0.1 m/s is Tg", [] { return Index_018(27.3, 41.8, 0.1, 35.2); }, "35.2"},
        {"18 with a negative wind", [] { return Index_018(27.3, 41.8, -3.4, 35.2); }, "fails"},
        {"161 in wind", [] { return Index_161(27.3, 41.8, 3.4); }, "25.3712489"},
        {"161 just above 0.1 m/s", [] { return Index_161(27.3, 41.8, 0.11); }, "33.3772267"},
        {"161 in still air", [] { return Index_161(27.3, 41.8, 0.05); }, "33.68"},
        {"161 with a negative wind is still air", [] { return Index_161(27.3, 41.8, -3.4); }, "33.68"},
        // The two forms meet at 0.1 m/s; only a Ta that 5 - Ta swallows tells which of them was taken.
        {"161 at 0.1 m/s is still air", [] { return Index_161(1e-17, 0, 0.1); }, "5.6e-18"},
    });
}

} // namespace
} // namespace comfortics::tests
