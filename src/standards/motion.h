// SPDX-License-Identifier: GPL-3.0-or-later
//
// Air speed and clothing of a person who moves.
//
// The comfort standards define their inputs as the speed relative to the body and the insulation of the
// clothing as worn. Who has measured the speed of the air and looked up the clothing of a standing manikin
// takes one of the two ways from these to those. They give other votes, so none is taken unasked.
//
//   v    air speed [m/s]            met  metabolic rate [met]
//   clo  clothing insulation [clo]
#pragma once

#include <cstdint>

namespace comfortics::standards {

enum class Motion : std::uint8_t {
    None,   ///< speed and clothing are the relative and the actual ones
    Ashrae, ///< ASHRAE 55 (2020)
    Iso,    ///< ISO 9920 (2007)
};

/// What a moving person has about the body.
struct InMotion {
    double v = 0;   ///< relative air speed [m/s]
    double clo = 0; ///< actual insulation [clo]
};

/// By both standards, 0.3 m/s for each met above one.
double relativeAirSpeed(double v, double met) noexcept;

InMotion inMotion(Motion motion, double v, double met, double clo) noexcept;

} // namespace comfortics::standards
