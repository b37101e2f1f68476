// SPDX-License-Identifier: GPL-3.0-or-later
//
// Mean radiant temperature from a globe of any size, ISO 7726:1998: what the globe gets by radiation it gives
// to the air, by natural or forced convection, whichever is the larger, not by their sum.
//
// The standard prints rounded factors (0.25e8 and 1.1e8, for the standard globe 0.4e8 and 2.5e8, and 273)
// that move the result by up to 1 % of its distance from the globe's temperature. Trap: natural convection
// goes by the actual diameter, too.
#pragma once

#include "standards/answer.h"

namespace comfortics::standards {

namespace tmrt_globe_range {
inline constexpr Input kTg{"tg", Quantity::Temperature};
inline constexpr Input kTa{"ta", Quantity::Temperature};
inline constexpr Input kV{"v", Quantity::Speed};
inline constexpr Input kD{"D", Quantity::Positive, {0.03, 0.2}};
inline constexpr Input kEmissivity{"emissivity", Quantity::Positive, {0, 1}};
} // namespace tmrt_globe_range

struct TmrtGlobeInputs {
    double tg = kNaN;         ///< globe temperature [°C]
    double ta = kNaN;         ///< air temperature [°C]
    double v = kNaN;          ///< air speed [m/s]
    double D = 0.15;          ///< diameter of the globe [m], 0.03..0.2
    double emissivity = 0.95; ///< of the globe [-], up to 1
};

/// A mean radiant temperature by any of the ways.
struct TmrtResult {
    Verdict verdict{};
    double tmrt = kNaN; ///< [°C]
};

/// None where the globe would have to get less than nothing by radiation.
TmrtResult tmrtGlobe(const TmrtGlobeInputs& inputs, Limits limits = Limits::Mark) noexcept;

} // namespace comfortics::standards
