// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/apparent_temperature.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

// Ta 27.3, Td 14.6, RH 43.7, WS 3.4, Tmrt 41.8, Tg 35.2, Ea 16.61, Tnwb 19.4, SR 612, unless the row is named
// for what differs.
TEST(ApparentTemperature, Formulas)
{
    const FormulaCase cases[] = {
        {"7", Index_007<Number>, {27.3, 14.6}, "27.744548"},
        {"8", Index_008<Number>, {27.3, 3.4}, "20.5"},
        {"9", Index_009<Number>, {27.3, 43.7}, "27.293259"},
        {"10", Index_010<Number>, {27.3, 16.61}, "27.4702"},
        {"11", Index_011<Number>, {27.3, 16.61}, "28.08202"},
        {"12", Index_012<Number>, {27.3, 14.6}, "29.856"},
        {"12, the dropped square just fits", Index_012<Number>, {27.3, 3e154}, "1.104e+154"},
        {"12, the dropped square overflows", Index_012<Number>, {27.3, 4e154}, "fails"},
        {"13", Index_013<Number>, {27.3, 16.61, 3.4}, "25.0033363"},
        {"14", Index_014<Number>, {27.3, 16.61, 3.4}, "24.4621237"},
        {"15", Index_015<Number>, {27.3, 14.6}, "27.82776"},
        {"15 just below 25 is Ta", Index_015<Number>, {24.99999, 14.6}, "24.99999"},
        {"15 at 25 is the formula", Index_015<Number>, {25, 14.6}, "25.54156"},
        {"16", Index_016<Number>, {27.3, 16.61, 3.4, 41.8}, "28.5141586"},
        {"16, the dropped body surface fails",
         Index_016<Number>,
         {27.3, 16.61, 3.4, 41.8},
         "fails",
         kNegativeHeight},
        {"17", Index_017<Number>, {27.3, 16.61, 3.4, 41.8}, "26.7406274"},
        {"17, the dropped body surface fails",
         Index_017<Number>,
         {27.3, 16.61, 3.4, 41.8},
         "fails",
         kNegativeWeight},
        {"18", Index_018<Number>, {27.3, 41.8, 3.4, 35.2}, "31.5494064"},
        {"18 does not read Ta and Tmrt", Index_018<Number>, {-6.1, 2.2, 3.4, 35.2}, "31.5494064"},
        {"20", Index_020<Number>, {19.4, 27.3}, "20.19"},
        {"22", Index_022<Number>, {27.3, 43.7, 3.4}, "15.6875198"},
        {"23 in wind", Index_023<Number>, {3.4, 27.3, 19.4}, "7.74643115"},
        {"23 at 150 km per day", Index_023<Number>, {150 / 86.4, 27.3, 19.4}, "23.35"},
        {"23 just above", Index_023<Number>, {1.73612, 27.3, 19.4}, "9.36909775"},
        {"23, the exponent overflows in calm air too", Index_023<Number>, {0.4, -80000, 19.4}, "fails"},
        {"50", Index_050<Number>, {35.2, 19.4}, "23.851588"},
        {"51", Index_051<Number>, {35.2, 19.4}, "26.4147579"},
        {"65", Index_065<Number>, {27.3, 43.7}, "23.40404"},
        {"66", Index_066<Number>, {27.3, 43.7, 3.4}, "20.5487512"},
        {"69", Index_069<Number>, {27.3, 43.7, 3.4}, "16.207951"},
        {"70", Index_070<Number>, {27.3, 43.7, 3.4}, "8.35939977"},
        {"71", Index_071<Number>, {27.3, 41.8, 3.4}, "30.2463138"},
        {"72", Index_072<Number>, {27.3, 0, 43.7}, "32.6549693"},
        {"72 does not read its second input", Index_072<Number>, {27.3, 36.3, 43.7}, "32.6549693"},
        {"72 in frost", Index_072<Number>, {-8.4, 0, 43.7}, "3.59929643"},
        {"72 at 0 °C, in dry air too", Index_072<Number>, {0, 0, 0}, "0"},
        {"72 at 0 °C without pressure", Index_072<Number>, {0, 0, 43.7}, "fails", kNoPressure},
        {"73", Index_073<Number>, {27.3, 41.8, 16.61, 3.4}, "27.9119554"},
        {"103", Index_103<Number>, {27.3, 43.7}, "24.27596"},
        {"109", Index_109<Number>, {27.3, 43.7, 3.4}, "13.6875198"},
        {"116", Index_116<Number>, {27.3, 41.8, 43.7, 3.4}, "26.63234"},
        {"117", Index_117<Number>, {27.3, 3.4, 612}, "24.2315488"},
        {"132", Index_132<Number>, {27.3, 43.7, 3.4, 612}, "-16.6417824"},
        {"132, the logarithm fails in cold wind", Index_132<Number>, {-9.5, 43.7, 8.2, 35}, "none"},
        {"132, the root of a negative wind fails", Index_132<Number>, {27.3, 43.7, -0.4, 612}, "none"},
        {"133", Index_133<Number>, {27.3, 43.7, 3.4, 612}, "-12.7611514"},
        {"152", Index_152<Number>, {27.3, 43.7, 3.4}, "18.9383018"},
        {"161 in wind", Index_161<Number>, {27.3, 41.8, 3.4}, "25.3712489"},
        {"161 just above 0.1 m/s", Index_161<Number>, {27.3, 41.8, 0.11}, "33.3772267"},
        {"161 with a negative wind is still air", Index_161<Number>, {27.3, 41.8, -3.4}, "33.68"},
        // The two forms meet at 0.1 m/s; only a Ta that 5 - Ta swallows tells which of them was taken.
        {"161 at 0.1 m/s is still air", Index_161<Number>, {1e-17, 0, 0.1}, "5.6e-18"},
    };
    expectAll(cases);
}

// The factor of index 71 to ft/min is one digit shorter than MS_TO_FTMIN, which would give
// -16.545465278687356: only the last bits tell. The formula is basic arithmetic and a root, so they are the
// same everywhere.
TEST(ApparentTemperature, BedfordHasHisOwnWindFactor)
{
    EXPECT_EQ(Index_071<Number>(2.3, 5.9, 7.9).value(), -16.545465278687512);
}

} // namespace
} // namespace comfortics::tests
