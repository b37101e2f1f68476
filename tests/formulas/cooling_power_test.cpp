// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/cooling_power.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(CoolingPower, FormulasWithoutBranches)
{
    expectAll({
        {"26 Angus", [] { return Index_026(11.4, 3.7); }, "26.8980201"},
        {"27 Becker", [] { return Index_027(11.4, 3.7); }, "25.7823562"},
        {"28 Bedford", [] { return Index_028(11.4, 3.7); }, "25.5378785"},
        {"29 Bider", [] { return Index_029(11.4, 3.7); }, "18.18244"},
        {"30 Bradtke", [] { return Index_030(11.4, 3.7); }, "26.6535153"},
        {"31 Buttner", [] { return Index_031(11.4, 3.7); }, "29.0665926"},
        {"33 Dorno 1925", [] { return Index_033(11.4, 3.7); }, "9.9455537"},
        {"34 Dorno 1934", [] { return Index_034(11.4, 3.7); }, "11.5571017"},
        {"35 Goldschmidt, root", [] { return Index_035(11.4, 3.7); }, "14.4956769"},
        {"36 Goldschmidt, linear", [] { return Index_036(11.4, 3.7); }, "22.3892"},
        {"39 Hill 1937, first", [] { return Index_039(11.4, 3.7); }, "26.0516948"},
        {"40 Hill 1937, second", [] { return Index_040(11.4, 3.7); }, "23.7336134"},
        {"41 Joranger", [] { return Index_041(11.4, 3.7); }, "24.6692372"},
        {"42 Lahmayer", [] { return Index_042(11.4, 3.7); }, "11.4801794"},
        {"43 Lehmann", [] { return Index_043(11.4, 3.7); }, "22.0926562"},
        {"46 Meissner", [] { return Index_046(11.4, 3.7); }, "22.6455418"},
        {"48 Weiss", [] { return Index_048(11.4, 3.7); }, "27.1715989"},
        {"48 Weiss, no clamp above the body", [] { return Index_048(39.2, 3.7); }, "-2.92284131"},
        {"204 Landsberg", [] { return Index_204(3.7, 17.8); }, "28.6649742"},
        {"206 Maloney, unread input", [] { return Index_206(24.6, 47, 3.7, 612); }, "1910.67785"},
        {"207 Chamber of Mines", [] { return Index_207(47, 17.8); }, "141.290741"},
    });
}

TEST(CoolingPower, WindBranches)
{
    expectAll({
        {"32 still", [] { return Index_032(11.4, 0); }, "empty"},
        {"32 moving", [] { return Index_032(11.4, 0.1); }, "10.55957"},
        {"32 below 6", [] { return Index_032(11.4, 5.9); }, "23.22503"},
        {"32 at 6", [] { return Index_032(11.4, 6); }, "empty"},
        {"37 below 5", [] { return Index_037(11.4, 4.9); }, "21.31743"},
        {"37 at 5", [] { return Index_037(11.4, 5); }, "empty"},
        {"38 at 1", [] { return Index_038(11.4, 1); }, "630.53208"},
        {"38 above 1", [] { return Index_038(11.4, 1.1); }, "654.63959"},
        {"38 strong", [] { return Index_038(11.4, 3.7); }, "1086.68321"},
        {"44 at 0.6", [] { return Index_044(11.4, 0.6); }, "empty"},
        {"44 above 0.6", [] { return Index_044(11.4, 0.7); }, "11.4483494"},
        {"44 below 7.2", [] { return Index_044(11.4, 7.1); }, "27.9104046"},
        {"44 at 7.2", [] { return Index_044(11.4, 7.2); }, "empty"},
        {"45 at 0.6", [] { return Index_045(11.4, 0.6); }, "empty"},
        {"45 above 0.6", [] { return Index_045(11.4, 0.7); }, "12.75582"},
        {"45 below 7.2", [] { return Index_045(11.4, 7.1); }, "28.17726"},
        {"45 at 7.2", [] { return Index_045(11.4, 7.2); }, "empty"},
        {"49 at 1", [] { return Index_049(11.4, 1, 8.6); }, "783.233579"},
        {"49 above 1", [] { return Index_049(11.4, 1.1, 8.6); }, "809.757028"},
        {"62 negative", [] { return Index_062(11.4, -0.1); }, "empty"},
        {"62 still", [] { return Index_062(11.4, 0); }, "344.040512"},
        {"62 below 1", [] { return Index_062(11.4, 0.9); }, "398.716808"},
        {"62 at 1", [] { return Index_062(11.4, 1); }, "493.71648"},
        {"62 strong", [] { return Index_062(11.4, 3.7); }, "949.562551"},
        {"99 below 1", [] { return Index_099(17.8, 0.9); }, "21.8914538"},
        {"99 at 1", [] { return Index_099(17.8, 1); }, "22.44"},
        {"99 above 1", [] { return Index_099(17.8, 1.1); }, "23.104002"},
        {"209 below 1", [] { return Index_209(17.8, 0.9); }, "916.520047"},
        {"209 at 1", [] { return Index_209(17.8, 1); }, "939.488"},
        {"209 above 1", [] { return Index_209(17.8, 1.1); }, "967.285537"},
    });
}

TEST(CoolingPower, VinjeComparesTheRawWind)
{
    // With this friction the wind at 10 m stays below 12, yet the upper form is taken.
    Assumptions falling;
    falling.Friction = -0.3;
    expectAll({
        {"47 at 1", [] { return Index_047(unusualAssumptions(), 1, 11.4); }, "empty"},
        {"47 above 1", [] { return Index_047(unusualAssumptions(), 1.1, 11.4); }, "14.8913306"},
        {"47 at 12", [] { return Index_047(unusualAssumptions(), 12, 11.4); }, "40.6260595"},
        {"47 above 12", [] { return Index_047(unusualAssumptions(), 12.1, 11.4); }, "55.6393457"},
        {"47 raw wind", [&] { return Index_047(falling, 14, 11.4); }, "26.0440485"},
    });
}

TEST(CoolingPower, HillWetKataDerivesItsOwnDewPoint)
{
    RecordedCaptions captions;
    EXPECT_EQ(shown([&] { return Index_208(captions, 24.6, 47, 3.7); }), "128.802137");
    EXPECT_EQ(captions.written, (std::map<Live, std::string>{{Live::Td, "12.54477"}}));
}

TEST(CoolingPower, OutsideTheDomain)
{
    RecordedCaptions captions;
    expectAll({
        {"30 at the body temperature", [] { return Index_030(36.5, 3.7); }, "0"},
        {"30 trapped, warm", [] { return Index_030(36.6, 3.7); }, "empty"},
        {"30 trapped, negative wind", [] { return Index_030(11.4, -0.1); }, "empty"},
        {"28 negative wind", [] { return Index_028(11.4, -0.1); }, "fails"},
        {"49 humid", [] { return Index_049(11.4, 3.7, 61.2); }, "fails"},
        {"62 still and warm", [] { return Index_062(36.6, 0); }, "fails"},
        {"208 dry air", [&] { return Index_208(captions, 24.6, 0, 3.7); }, "fails"},
        {"208 dew point above the body", [&] { return Index_208(captions, 38.3, 95, 3.7); }, "fails"},
    });
}

} // namespace
} // namespace comfortics::tests
