// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/comfort_votes.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(ComfortVotes, Formulas)
{
    const FormulaCase cases[] = {
        {"1", Index_001<Number>, {27.3, 17.9}, "119.841667"},
        {"2", Index_002<Number>, {27.3, 613, 2.6, 47}, "0.3069"},
        {"3", Index_003<Number>, {27.3, 613, 2.6, 47}, "0.3971"},
        {"4", Index_004<Number>, {27.3, 33.8, 2.6, 47}, "0.1004"},
        {"25", Index_025<Number>, {27.3, 38.6, 17.9, 2.6}, "1.30395057"},
        {"96", Index_096<Number>, {27.3, 47, 2.6}, "795.74484"},
        {"96, still air", Index_096<Number>, {27.3, 47, 0}, "fails"},
        {"97", Index_097<Number>, {27.3, 33.8, 47, 2.6}, "852.583757"},
        {"98", Index_098<Number>, {27.3, 38.6, 47, 2.6}, "25.6134314"},
        {"102", Index_102<Number>, {2.6, 47, 38.6, 27.3}, "0.4054"},
        {"102, at 25 °C", Index_102<Number>, {2.6, 47, 38.6, 25}, "0.1136"},
        {"102, above 25 °C", Index_102<Number>, {2.6, 47, 38.6, 25.1}, "0.2778"},
        {"102, at -30 °C", Index_102<Number>, {2.6, 47, 38.6, -30}, "-3.0764"},
        {"102, below -30 °C", Index_102<Number>, {2.6, 47, 38.6, -30.1}, "-2.2902"},
        {"129", Index_129<Number>, {27.3, 2.6, 613, 47}, "-1.38232011"},
        {"139", Index_139<Number>, {27.3, 20.9, 2.6}, "76.143"},
        {"177", Index_177<Number>, {27.3, 613, 2.6}, "4.58055"},
        {"178", Index_178<Number>, {2.6, 27.3, 33.8, 47}, "-0.367570115"},
        {"183", Index_183<Number>, {27.3, 613, 2.6}, "4.64121612"},
        {"183, still air", Index_183<Number>, {27.3, 613, 0}, "fails"},
        {"184", Index_184<Number>, {27.3, 613, 2.6}, "4.14121612"},
        {"185", Index_185<Number>, {27.3, 613, 2.6}, "3.64121612"},
        {"186", Index_186<Number>, {27.3, 15.7}, "0.806275792"},
        {"187", Index_187<Number>, {27.3, 17.9}, "0.65742"},
        {"188", Index_188<Number>, {27.3, 38.6, 47, 2.6}, "0.48468"},
        {"189", Index_189<Number>, {27.3, 38.6, 47, 2.6}, "0.52785"},
        {"190", Index_190<Number>, {24.7}, "1.07338272"},
        {"191", Index_191<Number>, {24.7}, "-0.308049383"},
        {"192", Index_192<Number>, {33.8, 17.9, 2.6}, "3.92062428"},
        {"193", Index_193<Number>, {33.8, 17.9, 2.6}, "5.30627925"},
    };
    expectAll(cases);
}

} // namespace
} // namespace comfortics::tests
