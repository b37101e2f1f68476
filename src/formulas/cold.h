// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cold and exposure: wind chill, severity indices, skin temperature and clothing in the cold, wind
// speed at 10 m. Every formula fails (RunFailure) where a step has no defined result, the roots and
// powers of the wind on a negative wind among them; none gives an Empty result.
#pragma once

#include "formulas/assumptions.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Index 21, bioclimatic index of severity [-], Belkin (1992).
/// Ta air temperature [°C], RH relative humidity [%], WS wind speed [m/s]. 0 at exactly -90 °C.
Variant Index_021(const Assumptions& assumptions, Number Ta, Number RH, Number WS);

/// Index 24, winter weather severity [-], Bodman (1908).
/// Ta air temperature [°C], WS wind speed [m/s], taken to 10 m.
Variant Index_024(const Assumptions& assumptions, Number Ta, Number WS);

/// Index 74, exposed skin temperature [°C], Brauner (1995).
/// Ta air temperature [°C], WS wind speed [m/s]. Fails in still air.
Variant Index_074(Number Ta, Number WS);

/// Index 75, skin temperature of the cheek [°C], Adamenko (1972).
/// Ta air temperature [°C], WS wind speed [m/s].
Variant Index_075(Number Ta, Number WS);

/// Index 76, skin temperature of the ear lobe [°C], Adamenko (1972).
/// Ta air temperature [°C], WS wind speed [m/s].
Variant Index_076(Number Ta, Number WS);

/// Index 77, skin temperature of the nose [°C], Adamenko (1972).
/// Ta air temperature [°C], WS wind speed [m/s].
Variant Index_077(Number Ta, Number WS);

/// Index 95, insulation predicted index [clo], never below 0, Blazejczyk (2011).
/// Ta air temperature [°C], WS wind speed [m/s].
Variant Index_095(Number Ta, Number WS);

/// Index 108, new wind chill, NOAA (2001). The result is in °F and stays so.
/// Ta air temperature [°C], WS wind speed [m/s].
Variant Index_108(Number Ta, Number WS);

/// Index 138, revised wind chill index [kcal/m²/h], Court (1948).
/// WS wind speed [m/s], Ta air temperature [°C].
Variant Index_138(Number WS, Number Ta);

/// Indices 142 to 150, severity index [-] by the diurnal range of the air temperature, Osokin (1968).
/// Ta air temperature [°C], WS wind speed [m/s], RH relative humidity [%]; 0 above 100 %.
Variant Index_142(Number Ta, Number WS, Number RH); ///< range below 4 °C
Variant Index_143(Number Ta, Number WS, Number RH); ///< range above 18 °C
Variant Index_144(Number Ta, Number WS, Number RH); ///< range 10.1 to 12 °C
Variant Index_145(Number Ta, Number WS, Number RH); ///< range 12.1 to 14 °C
Variant Index_146(Number Ta, Number WS, Number RH); ///< range 14.1 to 16 °C
Variant Index_147(Number Ta, Number WS, Number RH); ///< range 16.1 to 18 °C
Variant Index_148(Number Ta, Number WS, Number RH); ///< range 4.1 to 6 °C
Variant Index_149(Number Ta, Number WS, Number RH); ///< range 6.1 to 8 °C
Variant Index_150(Number Ta, Number WS, Number RH); ///< range 8.1 to 10 °C

/// Index 174, temperature of the exhaled air [°C], McPherson (1993).
/// Ta air temperature [°C], without effect; X vapour pressure [hPa] as the caller has it at hand.
Variant Index_174(Number Ta, Number X);

/// Indices 179 to 182, thermal resistance of clothing of one to four layers, Jokl (1982).
/// WS wind speed [m/s]. The unit shown is W/m²/K.
Variant Index_179(Number WS); ///< 1 layer
Variant Index_180(Number WS); ///< 2 layers
Variant Index_181(Number WS); ///< 3 layers
Variant Index_182(Number WS); ///< 4 layers

/// Index 211, wind chill temperature [°C], National Oceanic and Atmospheric Administration (2003).
/// Ta air temperature [°C], WS wind speed [m/s], taken to 10 m.
Variant Index_211(const Assumptions& assumptions, Number Ta, Number WS);

/// Index 212, wind chill [kcal/m²/h], Siple (1945).
/// WS wind speed [m/s], Ta air temperature [°C].
Variant Index_212(Number WS, Number Ta);

/// Index 213, wind chill as heat loss, Steadman (1971). The unit shown is cal/m²/s.
/// Ta air temperature [°C], WS wind speed [m/s], Tmrt mean radiant temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
Variant Index_213(const Assumptions& assumptions, Number Ta, Number WS, Number Tmrt);

/// Index 214, wind chill equivalent temperature [°C], Quayle (1998).
/// Ta air temperature [°C], WS wind speed [m/s].
Variant Index_214(Number Ta, Number WS);

/// Indices 216 to 221, wind speed at 10 m [m/s] by the kind of ground, Hellmann (1915).
/// WS wind speed [m/s] at 1.1 m. 216 and 221 read the exponent `Friction`, the others have their own.
Variant Index_216(const Assumptions& assumptions, Number WS); ///< high crops, hedges and shrubs
Variant Index_217(Number WS);                                 ///< large city with tall buildings
Variant Index_218(Number WS);                                 ///< small town with trees and shrubs
Variant Index_219(Number WS);                                 ///< smooth hard ground, calm water
Variant Index_220(Number WS);                                 ///< tall grass on level ground
Variant Index_221(const Assumptions& assumptions, Number WS); ///< wooded countryside, many trees

/// Index 222, winter sultriness index [-], Scharlau (1950).
/// Ta air temperature [°C], RH relative humidity [%].
Variant Index_222(Number Ta, Number RH);

} // namespace comfortics::formulas
