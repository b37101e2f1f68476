// SPDX-License-Identifier: GPL-3.0-or-later
//
// Mean radiant temperature from the radiation on six sides of a body (Höppe, 1992; VDI 3787-2).
#pragma once

#include "standards/tmrt_globe.h"

#include <array>
#include <cstdint>

namespace comfortics::standards {

/// How much of each side counts.
enum class SixSides : std::uint8_t {
    Standing, ///< 0.22 for a side, 0.06 up and down
    Even,     ///< a sixth each: sitting, or a sphere
};

struct TmrtSixInputs {
    // Fluxes [W/m²] on surfaces that face north, east, south, west, up and down.
    std::array<double, 6> K{kNaN, kNaN, kNaN, kNaN, kNaN, kNaN}; ///< short-wave
    std::array<double, 6> L{kNaN, kNaN, kNaN, kNaN, kNaN, kNaN}; ///< long-wave
    SixSides weights = SixSides::Standing;
    double shortAbsorptance = 0.7; ///< [-], 0..1
    double longAbsorptance = 0.97; ///< [-], up to 1
};

TmrtResult tmrtSix(const TmrtSixInputs& inputs, Limits limits = Limits::Mark) noexcept;

} // namespace comfortics::standards
