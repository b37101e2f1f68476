// SPDX-License-Identifier: GPL-3.0-or-later
//
// Heat loss of a warm body or of the kata thermometer's bulb in wind.
//
// Ta air, Tnwb natural wet-bulb temperature [°C]; RH relative humidity [%]; Ea vapour pressure [hPa];
// WS wind speed as measured [m/s]. Results in mcal/cm²/s unless stated. Most have the form
// (a + b * g(WS)) * (36.5 - T): 0 where T is the body temperature of 36.5 °C, negative above it, with no
// clamp. An operation without a defined result throws values::RunFailure, so a negative WS in every root
// or power of it.
#pragma once

#include "formulas/assumptions.h"
#include "formulas/live_quantity.h"
#include "values/number.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Index 26, cooling power, Angus (1930).
Variant Index_026(Number Ta, Number WS);

/// Index 27, cooling power, Becker (1972).
Variant Index_027(Number Ta, Number WS);

/// Index 28, cooling power, Bedford (1933).
Variant Index_028(Number Ta, Number WS);

/// Index 29, cooling power, Bider (1931).
Variant Index_029(Number Ta, Number WS);

/// Index 30, cooling power, Bradtke (1926). Empty instead of a failure: Ta above 36.5, negative WS.
Variant Index_030(Number Ta, Number WS);

/// Index 31, cooling power, Buttner (1934).
Variant Index_031(Number Ta, Number WS);

/// Index 32, cooling power, Cena (1966). Empty unless 0 < WS < 6.
Variant Index_032(Number Ta, Number WS);

/// Index 33, cooling power, Dorno (1925), for a body temperature of 33 °C.
Variant Index_033(Number Ta, Number WS);

/// Index 34, cooling power, Dorno (1934).
Variant Index_034(Number Ta, Number WS);

/// Index 35, cooling power, Goldschmidt (1952), the root form.
Variant Index_035(Number Ta, Number WS);

/// Index 36, cooling power, Goldschmidt (1952), the linear form.
Variant Index_036(Number Ta, Number WS);

/// Index 37, cooling power, Henneberger (1948). Empty unless WS < 5.
Variant Index_037(Number Ta, Number WS);

/// Index 38, cooling power [W/m²], Hill (1916).
Variant Index_038(Number Ta, Number WS);

/// Index 39, cooling power, Hill (1937), with the coefficients 0.485 and 0.105.
Variant Index_039(Number Ta, Number WS);

/// Index 40, cooling power, Hill (1937), with the coefficients 0.385 and 0.205.
Variant Index_040(Number Ta, Number WS);

/// Index 41, cooling power, Joranger (1955).
Variant Index_041(Number Ta, Number WS);

/// Index 42, cooling power, Lahmayer (1932).
Variant Index_042(Number Ta, Number WS);

/// Index 43, cooling power, Lehmann (1936).
Variant Index_043(Number Ta, Number WS);

/// Index 44, cooling power, Matzke (1954), the power form. Empty unless 0.6 < WS < 7.2.
Variant Index_044(Number Ta, Number WS);

/// Index 45, cooling power, Matzke (1954), the linear form. Empty unless 0.6 < WS < 7.2.
Variant Index_045(Number Ta, Number WS);

/// Index 46, cooling power, Meissner (1932).
Variant Index_046(Number Ta, Number WS);

/// Index 47, cooling power, Vinje (1962). Empty unless WS > 1; above 12 with the wind taken to 10 m.
Variant Index_047(const Assumptions& assumptions, Number WS, Number Ta);

/// Index 48, cooling power, Weiss (1926).
Variant Index_048(Number Ta, Number WS);

/// Index 49, cooling power of wet air temperature [W/m²], Hill (1916). Fails at an Ea above 61.1.
Variant Index_049(Number Ta, Number WS, Number Ea);

/// Index 62, dry kata cooling [W/m²], Maloney (2011). Empty at a negative WS; fails in still air above
/// 36.5 °C.
Variant Index_062(Number Ta, Number WS);

/// Index 99, kata index [-], Zhongpeng (2012).
Variant Index_099(Number Tnwb, Number WS);

/// Index 204, wet cooling power, Landsberg (1972).
Variant Index_204(Number WS, Number Tnwb);

/// Index 206, wet kata cooling [W/m²], Maloney (2011), with the natural wet bulb of index 106. The
/// fourth input is passed unset and not read.
Variant Index_206(Number Ta, Number RH, Number WS, Number /*unset*/);

/// Index 207, wet kata cooling power, Chamber of Mines of South Africa (1972). RH stands in the place of
/// the published form's wind: deliberate.
Variant Index_207(Number RH, Number Tnwb);

/// Index 208, wet kata cooling power, Hill (1919). Derives its own dew point from Ta and RH and writes
/// its caption. Fails at RH 0 and at a dew point above 36.5 °C.
Variant Index_208(Captions& captions, Number Ta, Number RH, Number WS);

/// Index 209, wet kata cooling power [W/m²], Krisha (1996).
Variant Index_209(Number Tnwb, Number WS);

} // namespace comfortics::formulas
