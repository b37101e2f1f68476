// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/physiology.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(Physiology, Formulas)
{
    const FormulaCase cases[] = {
        {"19", Index_019, {41.5, 1.7, 13}, "0.314186129"},
        {"81", Index_081, {31.5, 18}, "100.448373"},
        {"82", Index_082, {31.5, 18}, "84.1093117"},
        {"83", Index_083, {31.5, 18}, "92.2788421"},
        {"84", Index_084, {31.5, 18}, "132.013277"},
        {"101", Index_101, {31.5}, "33.3557875"},
        {"128, sensation 0.02", Index_128, {24, 28, 45, 0.7}, "24.4133683"},
        {"128, sensation 2", Index_128, {5, 63, 32, 0}, "99.69"},
        {"128, sensation 2.003", Index_128, {36, 34.1, 45, 0.7}, "100"},
        {"128, sensation -2", Index_128, {8.1, 49.5, 30.6, 5.2}, "100.65"},
        {"128, sensation -2.0046", Index_128, {14, 19.5, 45, 0.7}, "100"},
        {"136", Index_136, {31.5, 18}, "0.2625"},
        {"137", Index_137, {31.5, 18}, "0.265911645"},
        // Lee and Henschel (1966): 10.7 / 44 at 35 °C in dry air
        {"137 in dry air", Index_137, {35, 0}, "0.243181818"},
        {"157 between", Index_157, {12, 23, 55, 3.5}, "27.92954"},
        {"157 at 25 °C", Index_157, {25, 31, 40, 2.5}, "31.11058"},
        {"157 above", Index_157, {25.1, 31, 40, 2.5}, "31.49153"},
        {"157 at -30 °C", Index_157, {-30, -24, 70, 6}, "17.82568"},
        {"157 below", Index_157, {-30.1, -24, 70, 6}, "19.60473"},
        {"158 between", Index_158, {12, 23, 55, 3.5}, "0.0512373813"},
        {"158, skin below 22 °C", Index_158, {-30.1, -24, 70, 6}, "0.001"},
        {"158, skin at 22 °C", Index_158, {-20.5, 6.5, 73.6, 0.7}, "0.00151612903"},
        {"158, skin at 21.998 °C", Index_158, {-14, -59.7, 60, 4}, "0.001"},
        {"158, skin at 36.5 °C", Index_158, {45, 40, 6, 0.5}, "0.966"},
        {"158, skin at 36.50006 °C", Index_158, {43, 107.8, 60, 4}, "1"},
        // The quotient comes first, though its place is taken.
        {"158, skin at 37.5 °C", Index_158, {32, 265, 65, 0}, "fails"},
    };
    expectAll(cases);
}

} // namespace
} // namespace comfortics::tests
