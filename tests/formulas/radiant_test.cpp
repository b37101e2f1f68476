// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/radiant.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

/// The discarded body surface area fails on a negative height.
Assumptions negativeHeight()
{
    Assumptions assumptions = unusualAssumptions();
    assumptions.Height = -0.62;
    return assumptions;
}

TEST(Radiant, draughtRisk)
{
    expectAll({
        {"59", [] { return Index_059(27.3, 0.13); }, "8.09681078"},
        {"60", [] { return Index_060(27.3, 0.13); }, "5.09586174"},
        {"61", [] { return Index_061(27.3, 0.13); }, "6.2295536"},
        {"59, no draught at 0.05 m/s", [] { return Index_059(27.3, 0.05); }, "0"},
        {"59, no draught below it", [] { return Index_059(27.3, 0.03); }, "0"},
        {"59, above 0.05 m/s", [] { return Index_059(27.3, 0.0503); }, "0.178593408"},
        {"59, just below the cut", [] { return Index_059(27.3, 0.72); }, "94.1956093"},
        {"59, cut to 100", [] { return Index_059(27.3, 0.76); }, "100"},
        {"60, at 34 °C", [] { return Index_060(34, 2.6); }, "0"},
        {"60, negative above 34 °C", [] { return Index_060(36.2, 2.6); }, "-54.0716206"},
    });
}

TEST(Radiant, radiantExchange)
{
    expectAll({
        {"63", [] { return Index_063(unusualAssumptions(), 27.3, 38.6); }, "48.6194113"},
        {"64", [] { return Index_064(2.6, 33.8, 27.3); }, "138.464945"},
        {"107", [] { return Index_107(unusualAssumptions(), 38.6, 27.3); }, "21.9832725"},
        {"107, Tmrt below the skin", [] { return Index_107(unusualAssumptions(), 12.4, 27.3); },
         "-71.0769603"},
    });
}

TEST(Radiant, operativeTemperature)
{
    expectAll({
        {"110", [] { return Index_110(38.6, 27.3); }, "32.95"},
        {"111", [] { return Index_111(27.3, 2.6, 38.6); }, "29.1527568"},
        {"111, still air", [] { return Index_111(27.3, 0, 38.6); }, "38.6"},
        {"112", [] { return Index_112(2.6, 27.3, 38.6); }, "28.6138986"},
        {"112, still air", [] { return Index_112(0, 27.3, 38.6); }, "38.6"},
        {"113", [] { return Index_113(unusualAssumptions(), 2.6, 38.6, 27.3); }, "29.5801818"},
        {"113, light wind, power form", [] { return Index_113(unusualAssumptions(), 0.6, 38.6, 27.3); },
         "31.8413264"},
        {"113, at 1 m/s", [] { return Index_113(unusualAssumptions(), 1, 38.6, 27.3); }, "31.0392061"},
        {"113, linear form", [] { return Index_113(unusualAssumptions(), 1.7, 38.6, 27.3); }, "30.2213827"},
        {"113, still air", [] { return Index_113(unusualAssumptions(), 0, 38.6, 27.3); }, "38.6"},
        {"160", [] { return Index_160(unusualAssumptions(), 27.3, 38.6, 2.6); }, "30.6903886"},
        {"160, light wind, power form", [] { return Index_160(unusualAssumptions(), 27.3, 38.6, 0.6); },
         "32.0647041"},
        {"160, at 1 m/s", [] { return Index_160(unusualAssumptions(), 27.3, 38.6, 1); }, "31.5771782"},
        {"160, linear form", [] { return Index_160(unusualAssumptions(), 27.3, 38.6, 1.7); }, "31.0801082"},
        {"160, still air", [] { return Index_160(unusualAssumptions(), 27.3, 38.6, 0); }, "36.1726013"},
    });
}

TEST(Radiant, heatStress)
{
    expectAll({
        {"67", [] { return Index_067(27.3, 47, 613); }, "23.9436209"},
        {"67, dark", [] { return Index_067(27.3, 47, 4); }, "22.7079351"},
        {"105", [] { return Index_105(27.3, 47, 613); }, "23.3402028"},
        {"105, dark", [] { return Index_105(27.3, 47, 4); }, "22.1033056"},
        {"68", [] { return Index_068(20.9, 27.3, 2.6); }, "20.8574841"},
        {"78", [] { return Index_078(19.4, 27.3); }, "30.83391"},
        {"79", [] { return Index_079(19.4, 27.3); }, "27.98391"},
        {"151", [] { return Index_151(27.3, 47, 613); }, "24.3935"},
        {"154", [] { return Index_154(27.3, 38.6, 2.6, 47); }, "29.15986"},
        {"155", [] { return Index_155(27.3, 17.9); }, "26.4538"},
        {"156", [] { return Index_156(27.3, 17.9); }, "22.7255"},
        {"114", [] { return Index_114(24.7); }, "31.9506173"},
        {"205", [] { return Index_205(24.7); }, "26.1877395"},
    });
}

TEST(Radiant, wetBulbGlobe)
{
    expectAll({
        {"166", [] { return Index_166(2.6, 19.4, 33.8); }, "23.72"},
        {"166, at 0.5 m/s", [] { return Index_166(0.5, 19.4, 33.8); }, "23.72"},
        {"166, below 0.5 m/s", [] { return Index_166(0.49, 19.4, 33.8); }, "25.72"},
        {"197", [] { return Index_197(27.3, 47, 613, 2.6); }, "24.12635"},
        {"198", [] { return Index_198(27.3, 47, 613, 2.6); }, "24.3152997"},
    });
}

TEST(Radiant, radiativeEffectiveTemperature)
{
    expectAll({
        {"196", [] { return Index_196("27.3", "2.6", "47", "613"); }, "26.1694322"},
        {"196, at 0.2 m/s", [] { return Index_196("27.3", "0.2", "47", "613"); }, "28.4645462"},
        {"196, above 0.2 m/s", [] { return Index_196("27.3", "0.201", "47", "613"); }, "28.5837048"},
        {"196, no sun", [] { return Index_196("27.3", "2.6", "47", "0"); }, "21.122088"},
        {"196, Ta empty", [] { return Index_196("", "2.6", "47", "613"); }, "fails"},
        {"196, WS empty", [] { return Index_196("27.3", "", "47", "613"); }, "fails"},
        {"196, RH empty", [] { return Index_196("27.3", "2.6", "", "613"); }, "fails"},
        {"196, SR empty", [] { return Index_196("27.3", "2.6", "47", ""); }, "fails"},
        {"196, letters", [] { return Index_196("27.3", "calm", "47", "613"); }, "fails"},
    });
}

TEST(Radiant, failures)
{
    expectAll({
        {"64, negative wind", [] { return Index_064(-0.4, 33.8, 27.3); }, "fails"},
        {"68, negative wind", [] { return Index_068(20.9, 27.3, -0.4); }, "fails"},
        {"111, negative wind", [] { return Index_111(27.3, -0.4, 38.6); }, "fails"},
        {"112, negative wind", [] { return Index_112(-0.4, 27.3, 38.6); }, "fails"},
        {"113, negative wind", [] { return Index_113(unusualAssumptions(), -0.4, 38.6, 27.3); }, "fails"},
        {"160, negative wind", [] { return Index_160(unusualAssumptions(), 27.3, 38.6, -0.4); }, "fails"},
        {"67, zero to a negative power", [] { return Index_067(27.3, 47, -0.1); }, "fails"},
        {"105, zero to a negative power", [] { return Index_105(27.3, 47, -0.1); }, "fails"},
        {"63, negative height", [] { return Index_063(negativeHeight(), 27.3, 38.6); }, "fails"},
        {"107, negative height", [] { return Index_107(negativeHeight(), 38.6, 27.3); }, "fails"},
        {"113, negative height", [] { return Index_113(negativeHeight(), 2.6, 38.6, 27.3); }, "fails"},
        {"160, negative height", [] { return Index_160(negativeHeight(), 27.3, 38.6, 2.6); }, "fails"},
    });
}

} // namespace
} // namespace comfortics::tests
