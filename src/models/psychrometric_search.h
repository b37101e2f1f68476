// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/real.h"
#include "formulas/rules.h"
#include "texts/variant.h"
#include "values/number.h"

namespace comfortics::models {

using formulas::Rules;
using texts::Variant;
using values::Number;

/// Passes after which the psychrometric search is taken to have no end: 20000 degrees of climb.
inline constexpr int kLastPsychrometricPass = 100000;

/// Vapour pressure over water [kPa] at t [°C], with a constant of its own: 0.6106.
template <class Real>
Real psychrometricPressure(Real t)
{
    return formulas::exponential((17.27 * t) / (237.3 + t)) * 0.6106;
}

/// The heat balance of a wet thermometer of Tw [°C] at 101 kPa; ed and ew are the vapour pressures [kPa] at
/// the dew point and at Tw. It falls as Tw rises.
template <class Real>
Real psychrometricBalance(Real Ta, Real Tw, Real ed, Real ew)
{
    return (((((1556 * ed) + (101 * Ta)) - (1556 * ew)) + ((1.484 * ew) * Tw)) - ((1.484 * ed) * Tw)) -
           (101 * Tw);
}

namespace plain {

/// The psychrometric search, step by step.
Number Psychrometric_Wet_Bulb(const Variant& Ta, Number Td, Rules rules = Rules::Classic);

} // namespace plain

/// Psychrometric wet-bulb temperature [°C]: from the dew point Td [°C] up in steps of 0.2, until the
/// heat balance of the wet thermometer at 101 kPa changes its sign. The steps would also end above
/// an air temperature Ta [°C] that is a number; one that is a text never ends them.
///
/// Fails where the search would go on for ever: a balance of exactly 0 differs in sign from
/// nothing. By the robust rules a first balance of exactly 0, which saturated air can give, ends the
/// search with the dew point itself. The fast way has the bits and the failures of the plain one.
Number Psychrometric_Wet_Bulb(const Variant& Ta, Number Td, Rules rules = Rules::Classic);

} // namespace comfortics::models
