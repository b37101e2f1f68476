// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/psychrometry.h"

#include "formula_cases.h"

namespace comfortics::tests {
namespace {

using namespace formulas;

const Assumptions kSite = unusualAssumptions();

Assumptions withoutPressure()
{
    Assumptions site = kSite;
    site.Barometric = 0;
    return site;
}

TEST(Psychrometry, Values)
{
    expectAll({
        {"6", [] { return Index_006(kSite, 19.4, 36.3); }, "18.3815927"},
        {"6 without barometric pressure", [] { return Index_006(withoutPressure(), 19.4, 36.3); }, "fails"},
        {"106", [] { return Index_106(27.3, 43.7, 3.4, 612); }, "17.8892156"},
        {"106 does not change with the radiation", [] { return Index_106(27.3, 43.7, 3.4, -77); },
         "17.8892156"},
        {"106 with a negative wind", [] { return Index_106(27.3, 43.7, -3.4, 612); }, "fails"},
        {"130", [] { return Index_130(35.2, 27.3, 43.7, 19.4); }, "22.068552"},
        {"135", [] { return Index_135(43.7, 27.3); }, "28.94"},
        {"141 stays in hPa", [] { return Index_141(36.3, 16.61); }, "19.69"},
        {"202", [] { return Index_202(35.2, 27.3, 43.7, 18.1); }, "20.768552"},
        {"210", [] { return Index_210(19.4, 27.3); }, "24.14"},
    });
}

TEST(Psychrometry, WetBulbOfStullTrapsItsFailures)
{
    expectAll({
        {"warm", [] { return Index_203(27.3, 43.7); }, "18.9097591"},
        {"frost", [] { return Index_203(-11.4, 87.2); }, "-12.2977425"},
        {"Stull (2011), worked example: 13.7 at 20 °C, 50 %", [] { return Index_203(20, 50); }, "13.699342"},
        {"RH 0 has a value", [] { return Index_203(27.3, 0); }, "9.15594955"},
        {"RH below 0, its own power fails", [] { return Index_203(27.3, -1); }, "empty"},
        {"RH below -8.313659, both powers fail", [] { return Index_203(27.3, -9); }, "empty"},
    });
}

} // namespace
} // namespace comfortics::tests
