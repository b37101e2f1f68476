// SPDX-License-Identifier: GPL-3.0-or-later
//
// Indices that express the thermal environment as one equivalent temperature: apparent temperature by
// regression, effective and equivalent temperature, temperatures for special settings.
//
// Inputs, where the comments give no other unit: temperatures in °C, relative humidity in %, vapour
// pressures in hPa, wind in m/s as measured at 1.1 m, solar radiation in W/m². Every function fails
// (values::RunFailure) on an operation without a defined result, unless its comment says that it traps
// the failure.
#pragma once

#include "formulas/assumptions.h"
#include "values/variant.h"

namespace comfortics::formulas {

using values::Variant;

/// Index 7, apparent temperature [°C], Almeida (2010). Ta air temperature, Td dew point, which is squared.
Variant Index_007(Number Ta, Number Td);

/// Index 8, apparent temperature [°C], Arnoldy (1962). Ta air temperature, WS wind speed.
Variant Index_008(Number Ta, Number WS);

/// Index 9, apparent temperature [°C], Fischer (2010). Ta air temperature, RH relative humidity.
Variant Index_009(Number Ta, Number RH);

/// Index 10, indoor apparent temperature [°C], Steadman (1984). Ta air temperature, Ea vapour pressure.
Variant Index_010(Number Ta, Number Ea);

/// Index 11, indoor apparent temperature [°C], Steadman (1994). Ta air temperature, Ea vapour pressure.
Variant Index_011(Number Ta, Number Ea);

/// Index 12, apparent temperature [°C], Kalkstein (1986). Ta air temperature, Td dew point, linear where
/// index 7 squares it. Fails where the square of Td overflows, although that square is dropped.
Variant Index_012(Number Ta, Number Td);

/// Index 13, apparent temperature in the shade [°C], Steadman (1984).
/// Ta air temperature, Ea vapour pressure, WS wind speed. Reads `Friction`.
Variant Index_013(const Assumptions& assumptions, Number Ta, Number Ea, Number WS);

/// Index 14, apparent temperature in the shade [°C], Steadman (1994).
/// Ta air temperature, Ea vapour pressure, WS wind speed. Reads `Friction`.
Variant Index_014(const Assumptions& assumptions, Number Ta, Number Ea, Number WS);

/// Index 15, apparent temperature [°C], Smoyer-Tomic (2001). Ta air temperature, Td dew point.
/// Below 25 °C the air temperature itself.
Variant Index_015(Number Ta, Number Td);

/// Index 16, apparent temperature in the sun [°C], Steadman (1984).
/// Ta air temperature, Ea vapour pressure, WS wind speed, Tmrt mean radiant temperature. Reads `Friction`,
/// `Emissivity`, `ArAdu`, and `Height` and `Weight` without using them: fails where either is negative.
Variant Index_016(const Assumptions& assumptions, Number Ta, Number Ea, Number WS, Number Tmrt);

/// Index 17, apparent temperature in the sun [°C], Steadman (1994).
/// Inputs, assumptions and failures as index 16. Its radiative coefficient deliberately does not change
/// with Tmrt, which enters only through the difference from Ta. Fails where the wind at 10 m is -10 m/s.
Variant Index_017(const Assumptions& assumptions, Number Ta, Number Ea, Number WS, Number Tmrt);

/// Index 18, approximated subjective temperature [°C], Auliciems (2007).
/// Air and mean radiant temperature are not read; WS wind speed, Tg globe temperature. Fails where WS is
/// negative.
Variant Index_018(Number /*Ta*/, Number /*Tmrt*/, Number WS, Number Tg);

/// Index 20, Belgian effective temperature [°C], Bidlot (1947).
/// Tnwb natural wet-bulb temperature, Ta air temperature.
Variant Index_020(Number Tnwb, Number Ta);

/// Index 22, biologically active temperature [°C], Tsitsenko (1971).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
Variant Index_022(const Assumptions& assumptions, Number Ta, Number RH, Number WS);

/// Index 23, biometeorological comfort index [°C], Rodriguez (1985).
/// WS wind speed, Ta air temperature, Tnwb natural wet-bulb temperature. A wind run of 150 km per day or
/// less leaves the air temperature as it is.
Variant Index_023(Number WS, Number Ta, Number Tnwb);

/// Index 50, corrected effective temperature (basic) [°C] at 0.1 m/s, Auliciems (2007).
/// Tg globe temperature, Tnwb natural wet-bulb temperature.
Variant Index_050(Number Tg, Number Tnwb);

/// Index 51, corrected effective temperature (normal) [°C] at 0.1 m/s, Auliciems (2007).
/// Tg globe temperature, Tnwb natural wet-bulb temperature.
Variant Index_051(Number Tg, Number Tnwb);

/// Index 65, effective temperature [°C], Houghten (1923). Ta air temperature, RH relative humidity.
Variant Index_065(Number Ta, Number RH);

/// Index 66, effective temperature [°C], Missenard (1933).
/// Ta air temperature, RH relative humidity, WS wind speed. Fails where WS is negative.
Variant Index_066(Number Ta, Number RH, Number WS);

/// Index 69, equivalent effective temperature [°C], Aizenshtat (1974).
/// Ta air temperature, RH relative humidity, WS wind speed as measured. Fails where WS is negative.
Variant Index_069(Number Ta, Number RH, Number WS);

/// Index 70, equivalent effective temperature [°C], Aizenshtat (1982).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
Variant Index_070(const Assumptions& assumptions, Number Ta, Number RH, Number WS);

/// Index 71, equivalent temperature [°C], Bedford (1936).
/// Ta air temperature, Tmrt mean radiant temperature, WS wind speed. Fails where WS is negative.
Variant Index_071(Number Ta, Number Tmrt, Number WS);

/// Index 72, equivalent temperature [°C], Bründl (1984).
/// Ta air temperature, an input that is not read, RH relative humidity. Reads `Barometric`. 0 at Ta = 0;
/// fails where `Barometric` is 0, there too.
Variant Index_072(const Assumptions& assumptions, Number Ta, Number /*unset*/, Number RH);

/// Index 73, equivalent warmth [°C], Bedford (1936).
/// Ta air temperature, Tmrt mean radiant temperature, Ea vapour pressure, WS wind speed. Fails where WS is
/// negative.
Variant Index_073(Number Ta, Number Tmrt, Number Ea, Number WS);

/// Index 103, Missenard's index [°C], Missenard (1969). Ta air temperature, RH relative humidity.
Variant Index_103(Number Ta, Number RH);

/// Index 109, normal equivalent effective temperature [°C], Boksha (1980).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
Variant Index_109(const Assumptions& assumptions, Number Ta, Number RH, Number WS);

/// Index 116, perceived equivalent temperature [°C], Monteiro (2010).
/// Ta air temperature, Tmrt mean radiant temperature, RH relative humidity, WS wind speed.
Variant Index_116(Number Ta, Number Tmrt, Number RH, Number WS);

/// Index 117, perceived temperature [°C], Linke (1926).
/// Ta air temperature, WS wind speed, SR solar radiation.
Variant Index_117(Number Ta, Number WS, Number SR);

/// Index 132, radiation equivalent effective temperature of non-pigmented skin [°C], Sheleihovskyi (1948).
/// Ta air temperature, RH relative humidity, WS wind speed, SR solar radiation. Traps failures: Empty where
/// WS is negative or the logarithm has no argument above 0.
Variant Index_132(Number Ta, Number RH, Number WS, Number SR);

/// Index 133, radiation equivalent effective temperature of pigmented skin [°C], Sheleihovskyi (1948).
/// Inputs and trap as index 132.
Variant Index_133(Number Ta, Number RH, Number WS, Number SR);

/// Index 152, simplified radiation equivalent effective temperature [°C], Boksha (1980).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
Variant Index_152(const Assumptions& assumptions, Number Ta, Number RH, Number WS);

/// Index 161, subjective temperature [°C], McIntyre (1973).
/// Ta air temperature, Tmrt mean radiant temperature, WS wind speed. Still air up to and including 0.1 m/s.
Variant Index_161(Number Ta, Number Tmrt, Number WS);

} // namespace comfortics::formulas
