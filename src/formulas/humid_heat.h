// SPDX-License-Identifier: GPL-3.0-or-later
//
// Indices that join air temperature and humidity into one value of heat or discomfort.
//
// Ta air, Td dew point, Tg globe, Tnwb natural wet-bulb temperature [°C]; RH relative humidity [%];
// Ea vapour pressure [hPa]; WS wind speed [m/s]. Results in the unit in brackets. Nothing is clamped;
// an operation without a defined result throws values::RunFailure.
#pragma once

#include "formulas/assumptions.h"
#include "values/number.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Index 53, discomfort index [-] on the Fahrenheit scale, Thom (1959), first equation.
Variant Index_053(Number Tnwb, Number Ta);

/// Index 54, discomfort index [-] on the Fahrenheit scale, Thom (1959), second equation: one bracket
/// around both temperatures and 15 for the 8.3 of index 53.
Variant Index_054(Number Ta, Number Tnwb);

/// Index 55, discomfort index [°C], Giles (1990).
Variant Index_055(Number Ta, Number RH);

/// Index 56, discomfort index [-], Kawamura (1965).
Variant Index_056(Number Ta, Number Td);

/// Index 57, discomfort index [°C], Tennenbaum (1961).
Variant Index_057(Number Ta, Number Tnwb);

/// Index 58, discomfort index [-], Weather Services of South Africa (obtained 2018).
Variant Index_058(Number Ta, Number RH);

/// Index 85, heat index [°C] in degrees Celsius throughout, Blazejczyk (2012). Empty at Ta 20 and below.
Variant Index_085(Number Ta, Number RH);

/// Index 86, heat index [°C] with the adjustments for cool, dry and humid air, National Oceanic and
/// Atmospheric Administration (last modified 2014).
Variant Index_086(Number Ta, Number RH);

/// Index 87, heat index [°C] with rounded coefficients, Patricola (2010). The air temperature itself
/// at 80 °F and below and at RH 40 and below.
Variant Index_087(Number Ta, Number RH);

/// Index 88, heat index [°C], the plain regression of Rothfusz (1990).
Variant Index_088(Number Ta, Number RH);

/// Index 89, heat index [°C], the sixteen-term regression of Stull (2000).
Variant Index_089(Number Ta, Number RH);

/// Index 90, humidex [°C], Masterson (1979). Fails at Td -273.15.
Variant Index_090(Number Ta, Number Td);

/// Index 91, humisery [°C], the table of Weiss (1982): steps for dew point and wind added to Ta.
/// Empty where the dew point has no step: above 20 yet rounding to 20, and rounding to 32 or more.
Variant Index_091(Number Ta, Number Td, Number WS);

/// Index 92, humiture [°C], Hevener (1959).
Variant Index_092(Number Ta, Number Tnwb);

/// Index 93, humiture [°C], Lally (1960).
Variant Index_093(Number Ta, Number Ea);

/// Index 94, humiture [°C], Weiss (1982).
Variant Index_094(Number Ta, Number Td);

/// Index 104, modified discomfort index [°C], Moran (1988).
Variant Index_104(Number Tnwb, Number Ta);

/// Index 115, Oxford index [-], Lind (1957).
Variant Index_115(Number Tnwb, Number Ta);

/// Index 153, simplified tropical summer index [°C], Auliciems (2007). Fails at a negative WS.
Variant Index_153(Number Tnwb, Number Tg, Number WS);

/// Index 162, sultriness index [Torr], Scharlau (1943).
Variant Index_162(Number Ea);

/// Index 163, sultriness intensity [-], Aikimovich (1971). Jumps from 0 to 1 at Ea 18.8.
Variant Index_163(Number Ea);

/// Index 164, summer Scharlau index [-], Scharlau (1950). Fails unless RH > 0.
Variant Index_164(Number Ta, Number RH);

/// Index 165, summer simmer index [°C], Pepi (1987).
Variant Index_165(Number Ta, Number RH);

/// Index 167, temperature humidity index [°C], Costanzo (2006).
Variant Index_167(Number Ta, Number RH);

/// Index 168, temperature humidity index [°C], Pepi (1987), first equation.
Variant Index_168(Number Ta, Number RH);

/// Index 169, temperature humidity index [°C], Pepi (1987), second equation.
Variant Index_169(Number Ta, Number Td);

/// Index 170, temperature humidity index [-] on the Fahrenheit scale, Romanian National Institute of
/// Meteorology and Hydrology (2000).
Variant Index_170(Number Ta, Number RH);

/// Index 171, temperature humidity index [°C], Kyle (1994).
Variant Index_171(Number Ta, Number RH);

/// Index 172, temperature humidity index [°C], Nieuwolt (1977).
Variant Index_172(Number Ta, Number RH);

/// Index 173, temperature humidity index [°C], Schoen (2005).
Variant Index_173(Number Ta, Number Td);

/// Index 175, température résultante minière [°C], Vogt (1978).
Variant Index_175(Number Tnwb, Number Ta, Number WS);

/// Index 176, temperature wind speed humidity index [kJ/kg], Zaninovic (1992). RH is passed and not
/// read. Fails at a negative WS and at `Barometric` 0.
Variant Index_176(const Assumptions& assumptions, Number Ta, Number Tnwb, Number WS, Number /*RH*/);

/// Index 194, tropical summer index [°C], Sharma (1986). Fails at a negative WS.
Variant Index_194(Number Tnwb, Number Tg, Number WS);

} // namespace comfortics::formulas
