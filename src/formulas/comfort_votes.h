// SPDX-License-Identifier: GPL-3.0-or-later
//
// Comfort votes and sensation scales: regressions of survey votes on the readings. Every formula
// fails (RunFailure) where a step has no defined result; none gives an Empty result.
#pragma once

#include "formulas/assumptions.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Index 1, accepted level of physical activity [W/m²], Blazejczyk (2010).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
Variant Index_001(Number Ta, Number Ea);

/// Index 2, actual sensation vote [-], Nikolopoulou (2004).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s], RH relative humidity [%].
Variant Index_002(Number Ta, Number SR, Number WS, Number RH);

/// Index 3, actual sensation vote for Europe [-], Nikolopoulou (2004).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s], RH relative humidity [%].
Variant Index_003(Number Ta, Number SR, Number WS, Number RH);

/// Index 4, actual sensation vote [-], Nikolopoulou (2003).
/// Ta air temperature [°C], Tg globe temperature [°C], WS wind speed [m/s], RH relative humidity [%].
Variant Index_004(Number Ta, Number Tg, Number WS, Number RH);

/// Index 25, comfort vote [-], Bedford (1936).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], Ea vapour pressure [hPa], WS wind
/// speed [m/s].
Variant Index_025(Number Ta, Number Tmrt, Number Ea, Number WS);

/// Index 96, integrated index indoors [-], Junge (2016).
/// Ta air temperature [°C], RH relative humidity [%], WS wind speed [m/s]. Fails in still air.
Variant Index_096(Number Ta, Number RH, Number WS);

/// Index 97, integrated index outdoors [-], Junge (2016).
/// Ta air temperature [°C], Tg globe temperature [°C], RH relative humidity [%], WS wind speed [m/s].
/// Fails in still air.
Variant Index_097(Number Ta, Number Tg, Number RH, Number WS);

/// Index 98, internal comfort temperature [°C], Xavier (2000).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
Variant Index_098(Number Ta, Number Tmrt, Number RH, Number WS);

/// Index 102, Mediterranean outdoor comfort index [-], Salata (2016).
/// WS wind speed [m/s], RH relative humidity [%], Tmrt mean radiant temperature [°C], Ta air
/// temperature [°C].
Variant Index_102(Number WS, Number RH, Number Tmrt, Number Ta);

/// Index 129, predicted thermal sensation vote [-], Cheng (2008).
/// Ta air temperature [°C], WS wind speed [m/s], SR solar radiation [W/m²], RH relative humidity [%].
/// Fails at -243.5 °C and -273.15 °C.
Variant Index_129(Number Ta, Number WS, Number SR, Number RH);

/// Index 139, Robaa's index [-], Robaa (2003).
/// Ta air temperature [°C], Tnwb natural wet-bulb temperature [°C], WS wind speed [m/s].
Variant Index_139(Number Ta, Number Tnwb, Number WS);

/// Index 177, thermal comfort [-], Givoni (2000).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s].
Variant Index_177(Number Ta, Number SR, Number WS);

/// Index 178, thermal comfort in humid tropical surroundings [-], Sangkertadi (2014).
/// WS wind speed [m/s], Ta air temperature [°C], Tg globe temperature [°C], RH relative humidity [%].
/// Fails on a negative body height or mass.
Variant Index_178(const Assumptions& assumptions, Number WS, Number Ta, Number Tg, Number RH);

/// Indices 183 to 185, thermal sensation [-] of people acclimatised to 20, 30 and 40 °C, Givoni (2004).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s]. Fail unless WS > 0.
Variant Index_183(Number Ta, Number SR, Number WS); ///< 20 °C
Variant Index_184(Number Ta, Number SR, Number WS); ///< 30 °C
Variant Index_185(Number Ta, Number SR, Number WS); ///< 40 °C

/// Index 186, thermal sensation from the dew point [-], Rohles (1971).
/// Ta air temperature [°C], Td dew point [°C].
Variant Index_186(Number Ta, Number Td);

/// Index 187, thermal sensation from the vapour pressure [-], Rohles (1971).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
Variant Index_187(Number Ta, Number Ea);

/// Index 188, thermal sensation in subtropical surroundings [-], Monteiro (2010).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
Variant Index_188(Number Ta, Number Tmrt, Number RH, Number WS);

/// Index 189, thermal sensation index [-], Xavier (2000).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
Variant Index_189(Number Ta, Number Tmrt, Number RH, Number WS);

/// Index 190, thermal sensation vote in summer [-], Yahia (2013).
/// W outdoor wet-bulb globe temperature [°C].
Variant Index_190(Number W);

/// Index 191, thermal sensation vote in winter [-], Yahia (2013).
/// W outdoor wet-bulb globe temperature [°C].
Variant Index_191(Number W);

/// Index 192, tropical sensation vote of Baghdad [-], Nicol (1975).
/// Tg globe temperature [°C], Ea vapour pressure [hPa], WS wind speed [m/s].
Variant Index_192(Number Tg, Number Ea, Number WS);

/// Index 193, tropical sensation vote of Roorkee [-], Nicol (1975).
/// Tg globe temperature [°C], Ea vapour pressure [hPa], WS wind speed [m/s].
Variant Index_193(Number Tg, Number Ea, Number WS);

} // namespace comfortics::formulas
