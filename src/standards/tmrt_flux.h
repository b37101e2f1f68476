// SPDX-License-Identifier: GPL-3.0-or-later
//
// Mean radiant temperature from the fluxes of a weather model (Di Napoli, Hogan and Pappenberger, 2020).
//
// Traps: "direct" comes twice, normal to the beam and on the horizontal; net fluxes are downward less upward,
// so that of the long waves is mostly negative.
#pragma once

#include "standards/tmrt_globe.h"

namespace comfortics::standards {

/// No net flux is above that downward, nor the direct beam above all radiation.
namespace tmrt_flux_range {
inline constexpr Input kS{"S", Quantity::Flux};
inline constexpr Input kNetS{"netS"};
inline constexpr Input kI{"I", Quantity::Flux};
inline constexpr Input kDh{"Dh", Quantity::Flux};
inline constexpr Input kL{"L", Quantity::Flux};
inline constexpr Input kNetL{"netL"};
inline constexpr Input kMu{"mu"};
} // namespace tmrt_flux_range

struct TmrtFluxInputs {
    double S = kNaN;    ///< short-wave, downward [W/m²]
    double netS = kNaN; ///< short-wave, downward less upward [W/m²]; S at most
    double I = kNaN;    ///< direct, normal to the beam [W/m²]
    double Dh = kNaN;   ///< direct, on the horizontal [W/m²]; S at most
    double L = kNaN;    ///< long-wave, downward [W/m²]
    double netL = kNaN; ///< long-wave, downward less upward [W/m²]; L at most
    double mu = kNaN;   ///< sine of the sun's altitude, -1..1
};

/// None, for Reason::BelowHorizon, where a beam comes from below the horizon.
TmrtResult tmrtFlux(const TmrtFluxInputs& inputs, Limits limits = Limits::Mark) noexcept;

} // namespace comfortics::standards
