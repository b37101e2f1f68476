// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/wind_chill.h"

#include <cmath>

namespace comfortics::standards {

using namespace wind_chill_range;

WindChill windChillTemperature(double ta, double v10, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kTemperatureTa, ta);
    examination.look(kTemperatureSpeed, v10);
    if (!examination.hasValue())
        return {examination.verdict()};
    const double power = std::pow(3.6 * v10, 0.16); // of km/h
    return {examination.verdict(), 13.12 + 0.6215 * ta - 11.37 * power + 0.3965 * ta * power};
}

WindChill windChillIndex(double ta, double v, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kTa, ta);
    examination.look(kLossSpeed, v);
    if (!examination.hasValue())
        return {examination.verdict()};
    return {examination.verdict(), 1.163 * (10.45 + 10 * std::sqrt(v) - v) * (33 - ta)};
}

} // namespace comfortics::standards
