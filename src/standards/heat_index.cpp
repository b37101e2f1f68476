// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/heat_index.h"

#include "formulas/humid_heat.h"

#include <cmath>

namespace comfortics::standards {

HeatIndex heatIndex(double ta, double RH, Limits limits) noexcept
{
    using namespace heat_index_range;
    constexpr double kSimpleBelow = 80; // [°F]
    Examination examination(limits);
    examination.look(kTa, ta);
    examination.look(kRH, RH);
    if (!examination.hasValue())
        return {examination.verdict()};
    const double f = 1.8 * ta + 32;
    const double simple = 0.5 * (f + 61 + 1.2 * (f - 68) + 0.094 * RH);
    double result = 0.5 * (simple + f);
    if (!(result < kSimpleBelow)) {
        result = formulas::detail::rothfuszPolynomial(f, RH);
        if (RH < 13 && kRegression.contains(f))
            result -= (13 - RH) / 4 * std::sqrt((17 - std::fabs(f - 95)) / 17);
        if (RH > 85 && f >= 80 && f <= 87)
            result += (RH - 85) / 10 * (87 - f) / 5;
        if (!kRegression.contains(f))
            examination.mark(kTa.name);
    }
    if (!examination.hasValue())
        return {examination.verdict()};
    return {examination.verdict(), (result - 32) / 1.8};
}

} // namespace comfortics::standards
