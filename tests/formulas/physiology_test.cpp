// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/physiology.h"

#include "formula_cases.h"

namespace {

using namespace comfortics::formulas;
using comfortics::tests::expectAll;
using comfortics::tests::unusualAssumptions;

TEST(Physiology, HeatStrain)
{
    const Assumptions body = unusualAssumptions();
    Assumptions shrunk = body;
    shrunk.Height = -0.62;
    expectAll({
        {"19", [] { return Index_019(41.5, 1.7, 13); }, "0.314186129"},
        {"19 below 35 °C", [] { return Index_019(28, 0.4, 22); }, "-0.0859149727"},
        {"19 in still air", [] { return Index_019(41.5, 0, 13); }, "fails"},
        {"81", [&] { return Index_081(body, 31.5, 18); }, "100.448373"},
        {"82", [&] { return Index_082(body, 31.5, 18); }, "84.1093117"},
        {"83", [&] { return Index_083(body, 31.5, 18); }, "92.2788421"},
        {"83 with a negative height", [&] { return Index_083(shrunk, 31.5, 18); }, "fails"},
        {"84", [] { return Index_084(31.5, 18); }, "132.013277"},
        {"136", [] { return Index_136(31.5, 18); }, "0.2625"},
        {"136 at its pole", [] { return Index_136(31.5, 58); }, "fails"},
        {"137", [] { return Index_137(31.5, 18); }, "0.265911645"},
        // Lee and Henschel (1966): 10.7 / 44 at 35 °C in dry air
        {"137 in dry air", [] { return Index_137(35, 0); }, "0.243181818"},
    });
}

TEST(Physiology, Skin)
{
    expectAll({
        {"101", [] { return Index_101(31.5); }, "33.3557875"},
        {"157 between", [] { return Index_157(12, 23, 55, 3.5); }, "27.92954"},
        {"158 between", [] { return Index_158(12, 23, 55, 3.5); }, "0.0512373813"},
        {"157 at 25 °C", [] { return Index_157(25, 31, 40, 2.5); }, "31.11058"},
        {"158 at 25 °C", [] { return Index_158(25, 31, 40, 2.5); }, "0.106011906"},
        {"157 above", [] { return Index_157(25.1, 31, 40, 2.5); }, "31.49153"},
        {"158 above", [] { return Index_158(25.1, 31, 40, 2.5); }, "0.106591104"},
        {"157 at -30 °C", [] { return Index_157(-30, -24, 70, 6); }, "17.82568"},
        {"157 below", [] { return Index_157(-30.1, -24, 70, 6); }, "19.60473"},
        {"158, skin below 22 °C", [] { return Index_158(-30.1, -24, 70, 6); }, "0.001"},
        {"158, skin at 22 °C", [] { return Index_158(-20.5, 6.5, 73.6, 0.7); }, "0.00151612903"},
        {"158, skin at 21.998 °C", [] { return Index_158(-14, -59.7, 60, 4); }, "0.001"},
        {"158, skin at 36.5 °C", [] { return Index_158(45, 40, 6, 0.5); }, "0.966"},
        {"158, skin at 36.50006 °C", [] { return Index_158(43, 107.8, 60, 4); }, "1"},
        // The quotient comes first, though its place is taken.
        {"158, skin at 37.5 °C", [] { return Index_158(32, 265, 65, 0); }, "fails"},
    });
}

TEST(Physiology, DissatisfiedOfXavier)
{
    expectAll({
        {"sensation 0.02", [] { return Index_128(24, 28, 45, 0.7); }, "24.4133683"},
        {"sensation 2", [] { return Index_128(5, 63, 32, 0); }, "99.69"},
        {"sensation 2.003", [] { return Index_128(36, 34.1, 45, 0.7); }, "100"},
        {"sensation -2", [] { return Index_128(8.1, 49.5, 30.6, 5.2); }, "100.65"},
        {"sensation -2.0046", [] { return Index_128(14, 19.5, 45, 0.7); }, "100"},
    });
}

} // namespace
