// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/rules.h"
#include "values/number.h"

namespace comfortics::models {

using formulas::Rules;
using values::Number;

/// Passes after which the psychrometric search is taken to have no end: 20000 degrees of climb.
inline constexpr int kLastPsychrometricPass = 100000;

namespace plain {

/// The psychrometric search, step by step.
Number Psychrometric_Wet_Bulb(Number Ta, bool stopsAboveAir, Number Td, Rules rules = Rules::Classic);

} // namespace plain

/// Psychrometric wet-bulb temperature [°C]: from the dew point Td [°C] up in steps of 0.2, until the
/// heat balance of the wet thermometer at 101 kPa changes its sign. With stopsAboveAir the steps also
/// end above the air temperature Ta [°C].
///
/// Fails where the search would go on for ever: a balance of exactly 0 differs in sign from
/// nothing. By the robust rules a first balance of exactly 0, which saturated air can give, ends the
/// search with the dew point itself. The fast way has the bits and the failures of the plain one.
Number Psychrometric_Wet_Bulb(Number Ta, bool stopsAboveAir, Number Td, Rules rules = Rules::Classic);

} // namespace comfortics::models
