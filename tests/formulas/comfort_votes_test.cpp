// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/comfort_votes.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

/// The body surface area fails on a negative height.
Assumptions negativeHeight()
{
    Assumptions assumptions = unusualAssumptions();
    assumptions.Height = -0.62;
    return assumptions;
}

TEST(ComfortVotes, activityAndVotes)
{
    expectAll({
        {"1", [] { return Index_001(27.3, 17.9); }, "119.841667"},
        {"2", [] { return Index_002(27.3, 613, 2.6, 47); }, "0.3069"},
        {"3", [] { return Index_003(27.3, 613, 2.6, 47); }, "0.3971"},
        {"4", [] { return Index_004(27.3, 33.8, 2.6, 47); }, "0.1004"},
        {"25", [] { return Index_025(27.3, 38.6, 17.9, 2.6); }, "1.30395057"},
        {"129", [] { return Index_129(27.3, 2.6, 613, 47); }, "-1.38232011"},
        {"139", [] { return Index_139(27.3, 20.9, 2.6); }, "76.143"},
        {"188", [] { return Index_188(27.3, 38.6, 47, 2.6); }, "0.48468"},
        {"102", [] { return Index_102(2.6, 47, 38.6, 27.3); }, "0.4054"},
        {"102, at 25 °C", [] { return Index_102(2.6, 47, 38.6, 25); }, "0.1136"},
        {"102, above 25 °C", [] { return Index_102(2.6, 47, 38.6, 25.1); }, "0.2778"},
        {"102, at -30 °C", [] { return Index_102(2.6, 47, 38.6, -30); }, "-3.0764"},
        {"102, below -30 °C", [] { return Index_102(2.6, 47, 38.6, -30.1); }, "-2.2902"},
    });
}

TEST(ComfortVotes, indicesOfOneStudy)
{
    expectAll({
        {"96", [] { return Index_096(27.3, 47, 2.6); }, "795.74484"},
        {"97", [] { return Index_097(27.3, 33.8, 47, 2.6); }, "852.583757"},
        {"98", [] { return Index_098(27.3, 38.6, 47, 2.6); }, "25.6134314"},
        {"189", [] { return Index_189(27.3, 38.6, 47, 2.6); }, "0.52785"},
        {"186", [] { return Index_186(27.3, 15.7); }, "0.806275792"},
        {"187", [] { return Index_187(27.3, 17.9); }, "0.65742"},
        {"190", [] { return Index_190(24.7); }, "1.07338272"},
        {"191", [] { return Index_191(24.7); }, "-0.308049383"},
        {"192", [] { return Index_192(33.8, 17.9, 2.6); }, "3.92062428"},
        {"193", [] { return Index_193(33.8, 17.9, 2.6); }, "5.30627925"},
    });
}

TEST(ComfortVotes, thermalComfort)
{
    expectAll({
        {"177", [] { return Index_177(27.3, 613, 2.6); }, "4.58055"},
        {"178", [] { return Index_178(unusualAssumptions(), 2.6, 27.3, 33.8, 47); }, "-0.367570115"},
        {"183", [] { return Index_183(27.3, 613, 2.6); }, "4.64121612"},
        {"184", [] { return Index_184(27.3, 613, 2.6); }, "4.14121612"},
        {"185", [] { return Index_185(27.3, 613, 2.6); }, "3.64121612"},
        {"183, light wind", [] { return Index_183(27.3, 613, 0.4); }, "5.56120689"},
    });
}

TEST(ComfortVotes, failures)
{
    expectAll({
        {"96, still air", [] { return Index_096(27.3, 47, 0); }, "fails"},
        {"97, still air", [] { return Index_097(27.3, 33.8, 47, 0); }, "fails"},
        {"183, still air", [] { return Index_183(27.3, 613, 0); }, "fails"},
        {"184, still air", [] { return Index_184(27.3, 613, 0); }, "fails"},
        {"185, still air", [] { return Index_185(27.3, 613, 0); }, "fails"},
        {"25, negative wind", [] { return Index_025(27.3, 38.6, 17.9, -0.4); }, "fails"},
        {"96, negative wind", [] { return Index_096(27.3, 47, -0.4); }, "fails"},
        {"97, negative wind", [] { return Index_097(27.3, 33.8, 47, -0.4); }, "fails"},
        {"183, negative wind", [] { return Index_183(27.3, 613, -0.4); }, "fails"},
        {"192, negative wind", [] { return Index_192(33.8, 17.9, -0.4); }, "fails"},
        {"193, negative wind", [] { return Index_193(33.8, 17.9, -0.4); }, "fails"},
        {"129, no temperature", [] { return Index_129(-243.5, 2.6, 613, 47); }, "fails"},
        {"186, below 0 K", [] { return Index_186(27.3, -274.1); }, "fails"},
        {"178, negative height", [] { return Index_178(negativeHeight(), 2.6, 27.3, 33.8, 47); }, "fails"},
    });
}

} // namespace
} // namespace comfortics::tests
