// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/tmrt_flux.h"

#include <cmath>
#include <numbers>

namespace comfortics::standards {

using namespace tmrt_flux_range;

namespace {

constexpr double kShortAbsorptance = 0.7;
constexpr double kEmissivity = 0.97;
constexpr double kStefanBoltzmann = 5.67e-8;
constexpr double kKelvin = 273.15;

/// Share of the body that a sun of altitude gamma [degrees] shines on.
double projection(double gamma)
{
    return 0.308 * std::cos(gamma * (0.998 - gamma * gamma / 50000) * std::numbers::pi / 180);
}

} // namespace

TmrtResult tmrtFlux(const TmrtFluxInputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    examination.look(kS, in.S);
    examination.look(kNetS, in.netS);
    if (in.netS > in.S)
        examination.mark(kNetS.name);
    examination.look(kI, in.I);
    examination.look(kDh, in.Dh);
    if (in.Dh > in.S)
        examination.mark(kDh.name);
    examination.look(kL, in.L);
    examination.look(kNetL, in.netL);
    if (in.netL > in.L)
        examination.mark(kNetL.name);
    examination.look(kMu, in.mu);
    if (in.mu < -1 || in.mu > 1)
        examination.refuse(Reason::BeyondPhysics, kMu.name);
    else if (in.mu < 0 && in.I > 0)
        examination.refuse(Reason::BelowHorizon, kI.name);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};

    const double gamma = std::asin(in.mu) * 180 / std::numbers::pi;
    const double shortWave = 0.5 * (in.S - in.Dh) + 0.5 * (in.S - in.netS) + projection(gamma) * in.I;
    const double longWave = 0.5 * in.L + 0.5 * (in.L - in.netL);
    const double fourth = (longWave + kShortAbsorptance / kEmissivity * shortWave) / kStefanBoltzmann;
    if (!(fourth >= 0 && std::isfinite(fourth))) {
        examination.refuse(Reason::Undefined, "tmrt");
        return {.verdict = examination.verdict()};
    }
    return {.verdict = examination.verdict(), .tmrt = std::sqrt(std::sqrt(fourth)) - kKelvin};
}

} // namespace comfortics::standards
