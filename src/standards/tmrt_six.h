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

namespace tmrt_six_range {
inline constexpr std::array<Input, 6> kK{{{"K_north", Quantity::Flux},
                                          {"K_east", Quantity::Flux},
                                          {"K_south", Quantity::Flux},
                                          {"K_west", Quantity::Flux},
                                          {"K_up", Quantity::Flux},
                                          {"K_down", Quantity::Flux}}};
inline constexpr std::array<Input, 6> kL{{{"L_north", Quantity::Flux},
                                          {"L_east", Quantity::Flux},
                                          {"L_south", Quantity::Flux},
                                          {"L_west", Quantity::Flux},
                                          {"L_up", Quantity::Flux},
                                          {"L_down", Quantity::Flux}}};
inline constexpr Input kShort{"shortAbsorptance", Quantity::Flux, {0, 1}};
inline constexpr Input kLong{"longAbsorptance", Quantity::Positive, {0, 1}};
} // namespace tmrt_six_range

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
