// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is derived from readings by a formula, for points and for blocks of them. Temperatures in °C, winds in
// m/s, pressures in hPa, humidity in %.
#pragma once

#include "formulas/formula_call.h"
#include "formulas/real.h"
#include "models/heat_balance.h"

namespace comfortics::models {

/// Wet-bulb globe temperature in the sun, Yaglou and Minard (1957).
template <class Real>
Real Wbgt_Outdoor(Real Tnwb, Real Tg, Real Ta)
{
    return ((0.7 * Tnwb) + (0.2 * Tg)) + (0.1 * Ta);
}

/// Wet-bulb globe temperature without the sun from the psychrometric wet bulb, Bernard and Pourmoghani
/// (1999). A wind below 0.1 m/s counts as 0.1.
template <class Real>
Real Wbgt_Indoor(Real Ta, Real Tpwb, Real WS)
{
    using formulas::logarithm;
    const Real wind = WS < Real(kMinimumWind) ? Real(kMinimumWind) : WS;
    return ((0.67 * Tpwb) + (0.33 * Ta)) - (((logarithm(wind) * 0.048) / logarithm(Real(10))) * (Ta - Tpwb));
}

extern const formulas::FormulaCall kDewPoint;               ///< of Ta, RH
extern const formulas::FormulaCall kRelativeHumidity;       ///< of Ta, Td
extern const formulas::FormulaCall kSaturationPressure;     ///< of Ta
extern const formulas::FormulaCall kVapourPressure;         ///< of Td
extern const formulas::FormulaCall kWindAt10m;              ///< of WS
extern const formulas::FormulaCall kMeanRadiantTemperature; ///< of Ta, Tg, WS
extern const formulas::FormulaCall kWbgtOutdoor;            ///< of Tnwb, Tg, Ta
extern const formulas::FormulaCall kWbgtIndoor;             ///< of Ta, Tpwb, WS

} // namespace comfortics::models
