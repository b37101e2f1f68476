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
        {"26", Index_026<Number>, {11.4, 3.7}, "26.8980201"},
        {"27", Index_027<Number>, {11.4, 3.7}, "25.7823562"},
        {"28", Index_028<Number>, {11.4, 3.7}, "25.5378785"},
        {"29", Index_029<Number>, {11.4, 3.7}, "18.18244"},
        {"30", Index_030<Number>, {11.4, 3.7}, "26.6535153"},
        {"30 at the body temperature", Index_030<Number>, {36.5, 3.7}, "0"},
        {"30 trapped, warm", Index_030<Number>, {36.6, 3.7}, "none"},
        {"30 trapped, negative wind", Index_030<Number>, {11.4, -0.1}, "none"},
        {"31", Index_031<Number>, {11.4, 3.7}, "29.0665926"},
        {"32 still", Index_032<Number>, {11.4, 0}, "none"},
        {"32 moving", Index_032<Number>, {11.4, 0.1}, "10.55957"},
        {"32 below 6", Index_032<Number>, {11.4, 5.9}, "23.22503"},
        {"32 at 6", Index_032<Number>, {11.4, 6}, "none"},
        {"33", Index_033<Number>, {11.4, 3.7}, "9.9455537"},
        {"34", Index_034<Number>, {11.4, 3.7}, "11.5571017"},
        {"35", Index_035<Number>, {11.4, 3.7}, "14.4956769"},
        {"36", Index_036<Number>, {11.4, 3.7}, "22.3892"},
        {"37 below 5", Index_037<Number>, {11.4, 4.9}, "21.31743"},
        {"37 at 5", Index_037<Number>, {11.4, 5}, "none"},
        {"38 at 1", Index_038<Number>, {11.4, 1}, "630.53208"},
        {"38 above 1", Index_038<Number>, {11.4, 1.1}, "654.63959"},
        {"39", Index_039<Number>, {11.4, 3.7}, "26.0516948"},
        {"40", Index_040<Number>, {11.4, 3.7}, "23.7336134"},
        {"41", Index_041<Number>, {11.4, 3.7}, "24.6692372"},
        {"42", Index_042<Number>, {11.4, 3.7}, "11.4801794"},
        {"43", Index_043<Number>, {11.4, 3.7}, "22.0926562"},
        {"44 at 0.6", Index_044<Number>, {11.4, 0.6}, "none"},
        {"44 above 0.6", Index_044<Number>, {11.4, 0.7}, "11.4483494"},
        {"44 below 7.2", Index_044<Number>, {11.4, 7.1}, "27.9104046"},
        {"44 at 7.2", Index_044<Number>, {11.4, 7.2}, "none"},
        {"45 at 0.6", Index_045<Number>, {11.4, 0.6}, "none"},
        {"45 above 0.6", Index_045<Number>, {11.4, 0.7}, "12.75582"},
        {"45 below 7.2", Index_045<Number>, {11.4, 7.1}, "28.17726"},
        {"45 at 7.2", Index_045<Number>, {11.4, 7.2}, "none"},
        {"46", Index_046<Number>, {11.4, 3.7}, "22.6455418"},
        {"47 at 1", Index_047<Number>, {1, 11.4}, "none"},
        {"47 above 1", Index_047<Number>, {1.1, 11.4}, "14.8913306"},
        {"47 at 12", Index_047<Number>, {12, 11.4}, "40.6260595"},
        {"47 above 12", Index_047<Number>, {12.1, 11.4}, "55.6393457"},
        {"47 compares the raw wind", Index_047<Number>, {14, 11.4}, "26.0440485", falling},
        {"48", Index_048<Number>, {11.4, 3.7}, "27.1715989"},
        {"49 at 1", Index_049<Number>, {11.4, 1, 8.6}, "783.233579"},
        {"49 above 1", Index_049<Number>, {11.4, 1.1, 8.6}, "809.757028"},
        {"62 negative", Index_062<Number>, {11.4, -0.1}, "none"},
        {"62 still", Index_062<Number>, {11.4, 0}, "344.040512"},
        {"62 below 1", Index_062<Number>, {11.4, 0.9}, "398.716808"},
        {"62 at 1", Index_062<Number>, {11.4, 1}, "493.71648"},
        {"62 strong", Index_062<Number>, {11.4, 3.7}, "949.562551"},
        {"62 still and warm", Index_062<Number>, {36.6, 0}, "fails"},
        {"99 below 1", Index_099<Number>, {17.8, 0.9}, "21.8914538"},
        {"99 at 1", Index_099<Number>, {17.8, 1}, "22.44"},
        {"99 above 1", Index_099<Number>, {17.8, 1.1}, "23.104002"},
        {"204", Index_204<Number>, {3.7, 17.8}, "28.6649742"},
        {"206 Maloney, unread input", Index_206<Number>, {24.6, 47, 3.7, 612}, "1910.67785"},
        {"207", Index_207<Number>, {47, 17.8}, "141.290741"},
        {"208, from a dew point of its own", Index_208<Number>, {24.6, 47, 3.7}, "128.802137"},
        {"209 below 1", Index_209<Number>, {17.8, 0.9}, "916.520047"},
        {"209 at 1", Index_209<Number>, {17.8, 1}, "939.488"},
        {"209 above 1", Index_209<Number>, {17.8, 1.1}, "967.285537"},
    };
    expectAll(cases);
}

// The two arms of these meet at 1 m/s; only the last bits tell which of them was taken.
TEST(CoolingPower, TakesTheRightArmAtOne)
{
    EXPECT_EQ(Index_038<Number>(11.4, 1).value(), 630.5320800000002);
    EXPECT_EQ(Index_099<Number>(17.8, 1).value(), 22.44);
    EXPECT_EQ(Index_209<Number>(17.8, 1).value(), 939.4879999999994);
}

} // namespace
} // namespace comfortics::tests
