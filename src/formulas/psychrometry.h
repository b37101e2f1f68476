// SPDX-License-Identifier: GPL-3.0-or-later
//
// Indices that are plain psychrometric values: enthalpy, saturation deficit, wet-bulb temperatures.
//
// Every function fails (values::RunFailure) on an operation without a defined result, unless its
// comment says that it traps the failure.
#pragma once

#include "formulas/assumptions.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Index 6, air enthalpy [kcal/kg], Boer (1964).
/// Tnwb natural wet-bulb temperature [°C], Es saturated vapour pressure [hPa]. Reads `Barometric`; fails
/// where that is 0.
Variant Index_006(const Assumptions& assumptions, Number Tnwb, Number Es);

/// Index 106, natural wet-bulb temperature [°C], Maloney (2011).
/// Ta air temperature [°C], RH relative humidity [%], WS wind speed [m/s]; the solar radiation [W/m²] is
/// deliberately not read. Fails where WS is negative.
Variant Index_106(Number Ta, Number RH, Number WS, Number /*SR*/);

/// Index 130, psychrometric wet-bulb temperature [°C], Malchaire (1976).
/// Tg globe temperature [°C], Ta air temperature [°C], RH relative humidity [%], Tnwb natural wet-bulb
/// temperature [°C].
Variant Index_130(Number Tg, Number Ta, Number RH, Number Tnwb);

/// Index 135, relative humidity dry temperature [°C], Wallace (2005).
/// RH relative humidity [%], which deliberately enters as if it were a temperature; Ta air temperature [°C].
Variant Index_135(Number RH, Number Ta);

/// Index 141, saturation deficit, Flügge (1912).
/// Es saturated and Ea actual vapour pressure [hPa]. The value is in hPa, deliberately under a catalogue
/// unit that says kPa.
Variant Index_141(Number Es, Number Ea);

/// Index 202, wet-bulb temperature [°C], Malchaire (1976).
/// As index 130 with Tpwb, the psychrometric wet-bulb temperature [°C], for Tnwb.
Variant Index_202(Number Tg, Number Ta, Number RH, Number Tpwb);

/// Index 203, wet-bulb temperature [°C], Stull (2011).
/// Ta air temperature [°C], RH relative humidity [%]. Traps failures: Empty where RH is negative.
Variant Index_203(Number Ta, Number RH);

/// Index 210, wet-bulb dry temperature [°C], Wallace (2005).
/// Tnwb natural wet-bulb temperature [°C], Ta air temperature [°C].
Variant Index_210(Number Tnwb, Number Ta);

} // namespace comfortics::formulas
