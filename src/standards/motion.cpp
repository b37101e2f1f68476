// SPDX-License-Identifier: GPL-3.0-or-later
//
// Legend, ISO 9920
//   IT, ITr    total insulation of clothing and air layer, standing and in motion [clo]
//   Ia         insulation of the air layer [clo]
//   f          ratio of the clothed to the bare surface [-]
//   w          walking speed [m/s]
//   x          relative air speed above 0.15 m/s
//   cn, cu     corrections of the dressed and of the nude
#include "standards/motion.h"

#include <algorithm>
#include <cmath>

namespace comfortics::standards {

namespace {

double ashraeClothing(double met, double clo)
{
    return met > 1.2 ? clo * (0.6 + 0.4 / met) : clo;
}

double isoClothing(double vr, double walking, double clo)
{
    constexpr double Ia = 0.7;
    const double f = 1 + 0.28 * clo;
    const double IT = clo + Ia / f;
    const double w = std::min(walking, 1.2);
    const double x = std::min(std::max(vr, 0.15), 3.5) - 0.15;
    const double cn = std::exp(-0.281 * x + 0.044 * x * x - 0.492 * w + 0.176 * w * w);
    const double cu = std::exp(-0.533 * x + 0.069 * x * x - 0.462 * w + 0.201 * w * w);
    const double ITr = clo > 0.6 ? IT * cn : ((0.6 - clo) * Ia * cu + clo * IT * cn) / 0.6;
    return std::max(ITr - Ia * cu / f, 0.0); // below 0 by a rounding, for the nude
}

} // namespace

double relativeAirSpeed(double v, double met) noexcept
{
    return met > 1 ? v + 0.3 * (met - 1) : v;
}

InMotion inMotion(Motion motion, double v, double met, double clo) noexcept
{
    if (motion == Motion::None)
        return {v, clo};
    const double vr = relativeAirSpeed(v, met);
    return {vr, motion == Motion::Ashrae ? ashraeClothing(met, clo) : isoClothing(vr, vr - v, clo)};
}

} // namespace comfortics::standards
