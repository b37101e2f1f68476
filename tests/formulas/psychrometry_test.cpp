// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/psychrometry.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

TEST(Psychrometry, Formulas)
{
    const FormulaCase cases[] = {
        {"6", Index_006<Number>, {19.4, 36.3}, "18.3815927"},
        {"106", Index_106<Number>, {27.3, 43.7, 3.4, 612}, "17.8892156"},
        {"130", Index_130<Number>, {35.2, 27.3, 43.7, 19.4}, "22.068552"},
        {"135", Index_135<Number>, {43.7, 27.3}, "28.94"},
        {"141", Index_141<Number>, {36.3, 16.61}, "19.69"},
        {"202", Index_202<Number>, {35.2, 27.3, 43.7, 18.1}, "20.768552"},
        {"203 warm", Index_203<Number>, {27.3, 43.7}, "18.9097591"},
        {"203, Stull (2011), worked example: 13.7 at 20 °C, 50 %", Index_203<Number>, {20, 50}, "13.699342"},
        {"203, RH 0 has a value", Index_203<Number>, {27.3, 0}, "9.15594955"},
        {"203, RH below 0, its own power fails", Index_203<Number>, {27.3, -1}, "none"},
        {"210", Index_210<Number>, {19.4, 27.3}, "24.14"},
    };
    expectAll(cases);
}

} // namespace
} // namespace comfortics::tests
