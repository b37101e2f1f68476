// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>

namespace comfortics::formulas {

/// The height at which the wind of the readings is measured [m].
inline constexpr double kWindHeight = 1.1;

/// The share of the wind at another height [m] that blows at kWindHeight, by the power law that Wind_At_10m
/// has, with its exponent.
inline double windShareOf(double height, double exponent)
{
    return std::pow(kWindHeight / height, exponent);
}

} // namespace comfortics::formulas
