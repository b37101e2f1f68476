// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/real.h"

namespace comfortics::formulas {

/// Convective heat transfer coefficient of the skin [W/m²/K] at wind WS [m/s]: indices 74, 113, 160
/// and 213. Above 1 m/s linear in the wind, at and below 1 m/s a power of it; that assignment is
/// deliberate. 0 in still air, so that whoever divides by it fails there. Fails on a negative wind.
template <class Real>
Real convectiveCoefficient(Real WS)
{
    if (WS > 1)
        return 3.5 + 5.2 * WS;
    return 8.7 * power(WS, 0.6);
}

} // namespace comfortics::formulas
