// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/physiology.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(Physiology, Formulas)
{
    const FormulaCase cases[] = {
        {"19", Index_019<Number>, {41.5, 1.7, 13}, "0.314186129"},
        {"81", Index_081<Number>, {31.5, 18}, "100.448373"},
        {"82", Index_082<Number>, {31.5, 18}, "84.1093117"},
        {"83", Index_083<Number>, {31.5, 18}, "92.2788421"},
        {"84", Index_084<Number>, {31.5, 18}, "132.013277"},
        {"101", Index_101<Number>, {31.5}, "33.3557875"},
        {"128, sensation 0.02", Index_128<Number>, {24, 28, 45, 0.7}, "24.4133683"},
        {"128, sensation 2", Index_128<Number>, {5, 63, 32, 0}, "99.69"},
        {"128, sensation 2.003", Index_128<Number>, {36, 34.1, 45, 0.7}, "100"},
        {"128, sensation -2", Index_128<Number>, {8.1, 49.5, 30.6, 5.2}, "100.65"},
        {"128, sensation -2.0046", Index_128<Number>, {14, 19.5, 45, 0.7}, "100"},
        {"136", Index_136<Number>, {31.5, 18}, "0.2625"},
        {"137", Index_137<Number>, {31.5, 18}, "0.265911645"},
        // Lee and Henschel (1966): 10.7 / 44 at 35 °C in dry air
        {"137 in dry air", Index_137<Number>, {35, 0}, "0.243181818"},
        {"157 between", Index_157<Number>, {12, 23, 55, 3.5}, "27.92954"},
        {"157 at 25 °C", Index_157<Number>, {25, 31, 40, 2.5}, "31.11058"},
        {"157 above", Index_157<Number>, {25.1, 31, 40, 2.5}, "31.49153"},
        {"157 at -30 °C", Index_157<Number>, {-30, -24, 70, 6}, "17.82568"},
        {"157 below", Index_157<Number>, {-30.1, -24, 70, 6}, "19.60473"},
        {"158 between", Index_158<Number>, {12, 23, 55, 3.5}, "0.0512373813"},
        {"158, skin below 22 °C", Index_158<Number>, {-30.1, -24, 70, 6}, "0.001"},
        {"158, skin at 22 °C", Index_158<Number>, {-20.5, 6.5, 73.6, 0.7}, "0.00151612903"},
        {"158, skin at 21.998 °C", Index_158<Number>, {-14, -59.7, 60, 4}, "0.001"},
        {"158, skin at 36.5 °C", Index_158<Number>, {45, 40, 6, 0.5}, "0.966"},
        {"158, skin at 36.50006 °C", Index_158<Number>, {43, 107.8, 60, 4}, "1"},
        // The quotient comes first, though its place is taken.
        {"158, skin at 37.5 °C", Index_158<Number>, {32, 265, 65, 0}, "fails"},
    };
    expectAll(cases);
}

} // namespace
} // namespace comfortics::tests
