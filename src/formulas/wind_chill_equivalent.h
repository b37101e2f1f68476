// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/real.h"
#include "formulas/rules.h"

namespace comfortics::formulas {

/// Index 215, wind chill equivalent temperature [°C]: the air temperature at which a wind of
/// 1.34 m/s cools as the given air and wind do, Falconer (1968) after Siple and Passel (1945).
/// WS wind speed [m/s], Ta air temperature [°C].
///
/// Found by a walk from 0 °C in steps of 0.01 until the two coolings [kg cal/m²/hr] agree within
/// 0.2. The result is that of the walk to the last bit, and so are its failures, but the points at
/// which the walk is certain to go on are skipped.
///
/// Fails below a wind of 0; where the walk turns back and forth around its answer for ever, or has
/// become so large that a step no longer moves it (both beyond 1e12 °C only); and on overflow.
///
/// By the precise rules it is the temperature itself at which the coolings are equal, which fails below a
/// wind of 0 and on overflow alone. The walk ends within 0.02 of it.
template <class Real>
Real Index_215(Real WS, Real Ta, Rules rules);

/// The reference for Index_215: the same walk, made step by step.
template <class Real>
Real Index_215_plain(Real WS, Real Ta);

// In wind_chill_equivalent.cpp, for both number types.
extern template Number Index_215(Number, Number, Rules);
extern template double Index_215(double, double, Rules);
extern template Number Index_215_plain(Number, Number);

} // namespace comfortics::formulas
