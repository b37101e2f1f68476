// SPDX-License-Identifier: GPL-3.0-or-later
//
// Predicted mean vote and percentage of dissatisfied outdoors: the heat balance of Fanger (1970)
// with a clothing that follows the air temperature, at five metabolic rates (da Silva, 2013).
// Inputs throughout: Ta air temperature [°C], Tmrt mean radiant temperature [°C], Ea vapour
// pressure [hPa], WS wind speed [m/s].
#pragma once

#include "formulas/rules.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Number;
using values::Variant;

/// The predicted mean vote [-] at the metabolic rate M0 [W/m²].
///
/// A guess of the clothing's surface temperature walks from 33 °C in steps of 0.0001 towards the
/// temperature that the heat balance computes from it, until the two agree within 0.001. The result
/// is that of the walk to the last bit, and so are its failures, but the points at which the walk
/// is certain to go on are skipped.
///
/// Fails below a wind of 0; where the walk steps across its answer without meeting the tolerance,
/// as it does in strong wind at great cold, and would turn back and forth for ever; where the guess
/// has become so large that a step no longer moves it; and on overflow. By the robust rules a walk
/// that turns back ends there, with the vote of its last pass.
Number Predicted_Mean_Vote(Number Ta, Number Tmrt, Number Ea, Number WS, Number M0,
                           Rules rules = Rules::Classic);

/// The reference for Predicted_Mean_Vote: the same walk, made step by step. A thousand times slower.
Number Predicted_Mean_Vote_plain(Number Ta, Number Tmrt, Number Ea, Number WS, Number M0,
                                 Rules rules = Rules::Classic);

/// The predicted percentage of dissatisfied [%] at a mean vote, ISO 7730 (2005). 5 % at a vote of 0.
Number Predicted_Percentage_Dissatisfied(Number vote);

/// Index 118, predicted mean vote [-] at the high metabolic rate of 230 W/m², da Silva (2013).
Variant Index_118(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 119, predicted mean vote [-] at the low metabolic rate of 100 W/m², da Silva (2013).
Variant Index_119(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 120, predicted mean vote [-] at the moderate metabolic rate of 165 W/m², da Silva (2013).
Variant Index_120(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 121, predicted mean vote [-] at rest, 65 W/m², da Silva (2013).
Variant Index_121(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 122, predicted mean vote [-] at the very high metabolic rate of 290 W/m², da Silva (2013).
Variant Index_122(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);

/// Index 123, percentage of dissatisfied people [%] at the vote of index 118.
Variant Index_123(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 124, percentage of dissatisfied people [%] at the vote of index 119.
Variant Index_124(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 125, percentage of dissatisfied people [%] at the vote of index 120.
Variant Index_125(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 126, percentage of dissatisfied people [%] at the vote of index 121.
Variant Index_126(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);
/// Index 127, percentage of dissatisfied people [%] at the vote of index 122.
Variant Index_127(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules = Rules::Classic);

} // namespace comfortics::formulas
