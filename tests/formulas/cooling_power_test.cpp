// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/cooling_power.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(CoolingPower, Formulas)
{
    // With this friction a wind of 14 stays below 12 at 10 m, yet index 47 takes its upper form.
    const Assumptions falling = unusualAssumptions(&Assumptions::Friction, -0.3);
    const FormulaCase cases[] = {
        {"26", Index_026, {11.4, 3.7}, "26.8980201"},
        {"27", Index_027, {11.4, 3.7}, "25.7823562"},
        {"28", Index_028, {11.4, 3.7}, "25.5378785"},
        {"29", Index_029, {11.4, 3.7}, "18.18244"},
        {"30", Index_030, {11.4, 3.7}, "26.6535153"},
        {"30 at the body temperature", Index_030, {36.5, 3.7}, "0"},
        {"30 trapped, warm", Index_030, {36.6, 3.7}, "empty"},
        {"30 trapped, negative wind", Index_030, {11.4, -0.1}, "empty"},
        {"31", Index_031, {11.4, 3.7}, "29.0665926"},
        {"32 still", Index_032, {11.4, 0}, "empty"},
        {"32 moving", Index_032, {11.4, 0.1}, "10.55957"},
        {"32 below 6", Index_032, {11.4, 5.9}, "23.22503"},
        {"32 at 6", Index_032, {11.4, 6}, "empty"},
        {"33", Index_033, {11.4, 3.7}, "9.9455537"},
        {"34", Index_034, {11.4, 3.7}, "11.5571017"},
        {"35", Index_035, {11.4, 3.7}, "14.4956769"},
        {"36", Index_036, {11.4, 3.7}, "22.3892"},
        {"37 below 5", Index_037, {11.4, 4.9}, "21.31743"},
        {"37 at 5", Index_037, {11.4, 5}, "empty"},
        {"38 at 1", Index_038, {11.4, 1}, "630.53208"},
        {"38 above 1", Index_038, {11.4, 1.1}, "654.63959"},
        {"39", Index_039, {11.4, 3.7}, "26.0516948"},
        {"40", Index_040, {11.4, 3.7}, "23.7336134"},
        {"41", Index_041, {11.4, 3.7}, "24.6692372"},
        {"42", Index_042, {11.4, 3.7}, "11.4801794"},
        {"43", Index_043, {11.4, 3.7}, "22.0926562"},
        {"44 at 0.6", Index_044, {11.4, 0.6}, "empty"},
        {"44 above 0.6", Index_044, {11.4, 0.7}, "11.4483494"},
        {"44 below 7.2", Index_044, {11.4, 7.1}, "27.9104046"},
        {"44 at 7.2", Index_044, {11.4, 7.2}, "empty"},
        {"45 at 0.6", Index_045, {11.4, 0.6}, "empty"},
        {"45 above 0.6", Index_045, {11.4, 0.7}, "12.75582"},
        {"45 below 7.2", Index_045, {11.4, 7.1}, "28.17726"},
        {"45 at 7.2", Index_045, {11.4, 7.2}, "empty"},
        {"46", Index_046, {11.4, 3.7}, "22.6455418"},
        {"47 at 1", Index_047, {1, 11.4}, "empty"},
        {"47 above 1", Index_047, {1.1, 11.4}, "14.8913306"},
        {"47 at 12", Index_047, {12, 11.4}, "40.6260595"},
        {"47 above 12", Index_047, {12.1, 11.4}, "55.6393457"},
        {"47 compares the raw wind", Index_047, {14, 11.4}, "26.0440485", falling},
        {"48", Index_048, {11.4, 3.7}, "27.1715989"},
        {"49 at 1", Index_049, {11.4, 1, 8.6}, "783.233579"},
        {"49 above 1", Index_049, {11.4, 1.1, 8.6}, "809.757028"},
        {"62 negative", Index_062, {11.4, -0.1}, "empty"},
        {"62 still", Index_062, {11.4, 0}, "344.040512"},
        {"62 below 1", Index_062, {11.4, 0.9}, "398.716808"},
        {"62 at 1", Index_062, {11.4, 1}, "493.71648"},
        {"62 strong", Index_062, {11.4, 3.7}, "949.562551"},
        {"62 still and warm", Index_062, {36.6, 0}, "fails"},
        {"99 below 1", Index_099, {17.8, 0.9}, "21.8914538"},
        {"99 at 1", Index_099, {17.8, 1}, "22.44"},
        {"99 above 1", Index_099, {17.8, 1.1}, "23.104002"},
        {"204", Index_204, {3.7, 17.8}, "28.6649742"},
        {"206 Maloney, unread input", Index_206, {24.6, 47, 3.7, 612}, "1910.67785"},
        {"207", Index_207, {47, 17.8}, "141.290741"},
        {"209 below 1", Index_209, {17.8, 0.9}, "916.520047"},
        {"209 at 1", Index_209, {17.8, 1}, "939.488"},
        {"209 above 1", Index_209, {17.8, 1.1}, "967.285537"},
    };
    expectAll(cases);
}

// The two arms of these meet at 1 m/s; only the last bits tell which of them was taken.
TEST(CoolingPower, TakesTheRightArmAtOne)
{
    EXPECT_EQ(Index_038(11.4, 1).number().value(), 630.5320800000002);
    EXPECT_EQ(Index_099(17.8, 1).number().value(), 22.44);
    EXPECT_EQ(Index_209(17.8, 1).number().value(), 939.4879999999994);
}

TEST(CoolingPower, HillWetKataDerivesItsOwnDewPoint)
{
    RecordedCaptions captions;
    EXPECT_EQ(shown([&] { return Index_208(captions, 24.6, 47, 3.7); }), "128.802137");
    EXPECT_EQ(captions.written, (std::map<Live, std::string>{{Live::Td, "12.54477"}}));
}

} // namespace
} // namespace comfortics::tests
