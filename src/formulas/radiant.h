// SPDX-License-Identifier: GPL-3.0-or-later
//
// Radiant exchange, operative temperature, draught and the family of the wet-bulb globe temperature.
// Every formula fails (RunFailure) where a step has no defined result; none gives an Empty result.
#pragma once

#include "formulas/assumptions.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Indices 59 to 61, draught risk [% of people dissatisfied], never above 100, Fanger (1987).
/// Ta air temperature [°C], WS wind speed [m/s]. Negative above 34 °C.
Variant Index_059(Number Ta, Number WS); ///< turbulence intensity 56 %
Variant Index_060(Number Ta, Number WS); ///< turbulence intensity 11 %
Variant Index_061(Number Ta, Number WS); ///< turbulence intensity 28 %

/// Index 63, effective radiant field [W/m²], Gagge (1967).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
Variant Index_063(const Assumptions& assumptions, Number Ta, Number Tmrt);

/// Index 64, effective radiant field [W/m²], Nishi (1981).
/// WS wind speed [m/s], Tg globe temperature [°C], Ta air temperature [°C].
Variant Index_064(Number WS, Number Tg, Number Ta);

/// Index 67, environmental stress index [°C], Moran (2001).
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²]; fails at SR = -0.1.
Variant Index_067(Number Ta, Number RH, Number SR);

/// Index 68, equatorial comfort index [°C], Webb (1960).
/// Tnwb natural wet-bulb temperature [°C], Ta air temperature [°C], WS wind speed [m/s].
Variant Index_068(Number Tnwb, Number Ta, Number WS);

/// Index 78, fighter index of thermal stress in direct sunlight [°C], Stribley (1978).
/// Tpwb psychrometric wet-bulb temperature [°C], Ta air temperature [°C].
Variant Index_078(Number Tpwb, Number Ta);

/// Index 79, fighter index of thermal stress under moderate overcast [°C], Stribley (1978).
/// Tpwb psychrometric wet-bulb temperature [°C], Ta air temperature [°C].
Variant Index_079(Number Tpwb, Number Ta);

/// Index 105, modified environmental stress index [°C], Moran (2003).
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²]; fails at SR = -0.1.
Variant Index_105(Number Ta, Number RH, Number SR);

/// Index 107, net radiation [W/m²], Cena (1984).
/// Tmrt mean radiant temperature [°C], Ta air temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
Variant Index_107(const Assumptions& assumptions, Number Tmrt, Number Ta);

/// Index 110, operative temperature [°C], ASHRAE (2004).
/// Tmrt mean radiant temperature [°C], Ta air temperature [°C].
Variant Index_110(Number Tmrt, Number Ta);

/// Index 111, operative temperature [°C], ISO 7726 (1998).
/// Ta air temperature [°C], WS wind speed [m/s], Tmrt mean radiant temperature [°C].
Variant Index_111(Number Ta, Number WS, Number Tmrt);

/// Index 112, operative temperature [°C], ISO 7730 (1994).
/// WS wind speed [m/s], Ta air temperature [°C], Tmrt mean radiant temperature [°C].
Variant Index_112(Number WS, Number Ta, Number Tmrt);

/// Index 113, operative temperature [°C], Winslow (1937).
/// WS wind speed [m/s], Tmrt mean radiant temperature [°C], Ta air temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
Variant Index_113(const Assumptions& assumptions, Number WS, Number Tmrt, Number Ta);

/// Index 114, outdoor standard effective temperature [°C], Skinner (2001).
/// W outdoor wet-bulb globe temperature [°C].
Variant Index_114(Number W);

/// Index 151, simple index [-], Moran (2001).
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²].
Variant Index_151(Number Ta, Number RH, Number SR);

/// Index 154, simplified universal thermal climate index [°C], Blazejczyk (2011).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], WS wind speed [m/s], RH relative
/// humidity [%].
Variant Index_154(Number Ta, Number Tmrt, Number WS, Number RH);

/// Index 155, simplified wet-bulb globe temperature [°C], American College of Sports Medicine (1984).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
Variant Index_155(Number Ta, Number Ea);

/// Index 156, simplified wet-bulb globe temperature [°C], Gagge (1976).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
Variant Index_156(Number Ta, Number Ea);

/// Index 160, standard operative temperature [°C], Gagge (1940).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], WS wind speed [m/s].
/// Fails also on a negative body height or mass, though neither enters the result.
Variant Index_160(const Assumptions& assumptions, Number Ta, Number Tmrt, Number WS);

/// Index 166, Swedish wet-bulb globe temperature [°C], Eriksson (1974).
/// WS wind speed [m/s], Tpwb psychrometric wet-bulb temperature [°C], Tg globe temperature [°C].
Variant Index_166(Number WS, Number Tpwb, Number Tg);

/// Index 196, radiative effective temperature [°C], Blazejczyk (2004).
/// Ta air temperature [°C], WS wind speed [m/s], RH relative humidity [%], SR solar radiation [W/m²],
/// each as the text of its box. Fails (type mismatch) where a text is empty or no number.
Variant Index_196(const Variant& Ta, const Variant& WS, const Variant& RH, const Variant& SR);

/// Index 197, wet-bulb globe temperature [°C], Ono (2014), equation 1.
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²], WS wind speed [m/s].
Variant Index_197(Number Ta, Number RH, Number SR, Number WS);

/// Index 198, wet-bulb globe temperature [°C], Ono (2014), equation 2.
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²], WS wind speed [m/s].
Variant Index_198(Number Ta, Number RH, Number SR, Number WS);

/// Index 205, wet globe temperature of the Botsball [°C], Botsford (1971).
/// W outdoor wet-bulb globe temperature [°C].
Variant Index_205(Number W);

} // namespace comfortics::formulas
