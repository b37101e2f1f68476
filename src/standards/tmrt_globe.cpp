// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/tmrt_globe.h"

#include <algorithm>
#include <cmath>

namespace comfortics::standards {

using namespace tmrt_globe_range;

namespace {

constexpr double kStefanBoltzmann = 5.67e-8;
constexpr double kKelvin = 273.15;

} // namespace

TmrtResult tmrtGlobe(const TmrtGlobeInputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kTg, in.tg);
    examination.look(kTa, in.ta);
    examination.look(kV, in.v);
    examination.look(kD, in.D);
    examination.look(kEmissivity, in.emissivity);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};

    const double natural = 1.4 * std::pow(std::fabs(in.tg - in.ta) / in.D, 0.25);
    const double forced = 6.3 * std::pow(in.v, 0.6) / std::pow(in.D, 0.4);
    const double h = std::max(natural, forced);
    const double Tg = in.tg + kKelvin;
    const double fourth = Tg * Tg * Tg * Tg + h * (in.tg - in.ta) / (in.emissivity * kStefanBoltzmann);
    if (!(fourth >= 0 && std::isfinite(fourth))) {
        examination.refuse(Reason::Undefined, "tmrt");
        return {.verdict = examination.verdict()};
    }
    return {.verdict = examination.verdict(), .tmrt = std::sqrt(std::sqrt(fourth)) - kKelvin};
}

} // namespace comfortics::standards
