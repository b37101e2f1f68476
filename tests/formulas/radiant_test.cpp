// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/radiant.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(Radiant, Formulas)
{
    const FormulaCase cases[] = {
        {"59", Index_059<Number>, {27.3, 0.13}, "8.09681078"},
        {"59, no draught below it", Index_059<Number>, {27.3, 0.03}, "0"},
        {"59, above 0.05 m/s", Index_059<Number>, {27.3, 0.0503}, "0.178593408"},
        {"59, just below the cut", Index_059<Number>, {27.3, 0.7493}, "99.9936159"},
        {"59, cut to 100", Index_059<Number>, {27.3, 0.7495}, "100"},
        {"60", Index_060<Number>, {27.3, 0.13}, "5.09586174"},
        {"60, negative above 34 °C", Index_060<Number>, {36.2, 2.6}, "-54.0716206"},
        {"61", Index_061<Number>, {27.3, 0.13}, "6.2295536"},
        {"63", Index_063<Number>, {27.3, 38.6}, "48.6194113"},
        {"63, negative height", Index_063<Number>, {27.3, 38.6}, "fails", kNegativeHeight},
        {"64", Index_064<Number>, {2.6, 33.8, 27.3}, "138.464945"},
        {"67", Index_067<Number>, {27.3, 47, 613}, "23.9436209"},
        {"67, dark", Index_067<Number>, {27.3, 47, 4}, "22.7079351"},
        {"68", Index_068<Number>, {20.9, 27.3, 2.6}, "20.8574841"},
        {"78", Index_078<Number>, {19.4, 27.3}, "30.83391"},
        {"79", Index_079<Number>, {19.4, 27.3}, "27.98391"},
        {"105", Index_105<Number>, {27.3, 47, 613}, "23.3402028"},
        {"105, dark", Index_105<Number>, {27.3, 47, 4}, "22.1033056"},
        {"107", Index_107<Number>, {38.6, 27.3}, "21.9832725"},
        {"107, negative height", Index_107<Number>, {38.6, 27.3}, "fails", kNegativeHeight},
        {"110", Index_110<Number>, {38.6, 27.3}, "32.95"},
        {"111", Index_111<Number>, {27.3, 2.6, 38.6}, "29.1527568"},
        {"112", Index_112<Number>, {2.6, 27.3, 38.6}, "28.6138986"},
        {"113", Index_113<Number>, {2.6, 38.6, 27.3}, "29.5801818"},
        {"113, negative height", Index_113<Number>, {2.6, 38.6, 27.3}, "fails", kNegativeHeight},
        {"114", Index_114<Number>, {24.7}, "31.9506173"},
        {"151", Index_151<Number>, {27.3, 47, 613}, "24.3935"},
        {"154", Index_154<Number>, {27.3, 38.6, 2.6, 47}, "29.15986"},
        {"155", Index_155<Number>, {27.3, 17.9}, "26.4538"},
        {"156", Index_156<Number>, {27.3, 17.9}, "22.7255"},
        {"160", Index_160<Number>, {27.3, 38.6, 2.6}, "30.6903886"},
        {"160, negative height", Index_160<Number>, {27.3, 38.6, 2.6}, "fails", kNegativeHeight},
        {"166", Index_166<Number>, {2.6, 19.4, 33.8}, "23.72"},
        {"166, at 0.5 m/s", Index_166<Number>, {0.5, 19.4, 33.8}, "23.72"},
        {"166, below 0.5 m/s", Index_166<Number>, {0.49, 19.4, 33.8}, "25.72"},
        {"196", Index_196<Number>, {27.3, 2.6, 47, 613}, "26.1694322"},
        {"196, at 0.2 m/s", Index_196<Number>, {27.3, 0.2, 47, 613}, "28.4645462"},
        {"196, above 0.2 m/s", Index_196<Number>, {27.3, 0.201, 47, 613}, "28.5837048"},
        {"196, no sun", Index_196<Number>, {27.3, 2.6, 47, 0}, "21.122088"},
        {"197", Index_197<Number>, {27.3, 47, 613, 2.6}, "24.12635"},
        {"198", Index_198<Number>, {27.3, 47, 613, 2.6}, "24.3152997"},
        {"205", Index_205<Number>, {24.7}, "26.1877395"},
    };
    expectAll(cases);
}

} // namespace
} // namespace comfortics::tests
