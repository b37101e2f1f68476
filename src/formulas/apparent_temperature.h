// SPDX-License-Identifier: GPL-3.0-or-later
//
// Indices that express the thermal environment as one equivalent temperature: apparent temperature by
// regression, effective and equivalent temperature, temperatures for special settings.
//
// Inputs, where the comments give no other unit: temperatures in °C, relative humidity in %, vapour
// pressures in hPa, wind in m/s as measured at 1.1 m, solar radiation in W/m². Every function fails
// (values::RunFailure) on an operation without a defined result, unless its comment says that there
// is no value then.
//
// Symbols:
//   Ta    air temperature                            [°C]
//   Tg    globe temperature                          [°C]
//   Td    dew point                                  [°C]
//   Tmrt  mean radiant temperature                   [°C]
//   Tnwb  natural wet-bulb temperature               [°C]
//   Ts    mean skin temperature                      [°C]
//   RH    relative humidity                          [%]
//   Ea    actual vapour pressure                     [hPa], e the same in kPa, p in mmHg
//   WS    wind speed as measured, at 1.1 m           [m/s], v the same at the formula's own height
//   u     wind speed in another unit                 [ft/min] or [km/day]
//   SR    solar radiation                            [W/m²], R the absorbed part in cal/cm²/min
//   Q     radiant exchange of the body               [W/m²]
//   f, r  air and mean radiant temperature           [°F]
#pragma once

#include "formulas/assumptions.h"
#include "formulas/primitives.h"
#include "formulas/real.h"

namespace comfortics::formulas {

namespace detail {

// Aizenshtat (1982), the body of indices 22, 70, 109 and 152. Index 69 is the older form and deliberately
// stays apart.
template <class Real>
Real equivalentEffectiveTemperature(const AssumptionsOf<Real>& assumptions, Real Ta, Real RH, Real WS)
{
    const Real v = Wind_At_2m(assumptions, WS);
    return ((Ta * (1 - 0.003 * (100 - RH))) - power(0.385 * v, 0.59) * ((36.6 - Ta) + 0.622 * (v - 1))) +
           (0.0015 * v + 0.0008) * (36.6 - Ta);
}

// Sheleihovskyi (1948); the skin reflects the given part of the radiation.
template <class Real>
Result<Real> radiationEquivalentEffectiveTemperature(Real Ta, Real RH, Real WS, Real SR, double reflected)
{
    if (WS < 0)
        return none<Real>();
    return noneWhereItFails<Real>([&]() -> Result<Real> {
        const Real R = (SR * WM2_TO_CALCM2MIN) * (1 - reflected);
        const Real warmth =
            ((1 + 0.02 * Ta + (0.001 * (Ta - 8)) * (RH - 60)) - (0.045 * (33 - Ta)) * squareRoot(WS)) +
            0.185 * R;
        if (!(warmth > 0))
            return none<Real>();
        return 125 * logarithm(warmth);
    });
}

} // namespace detail

/// Index 7, apparent temperature [°C], Almeida (2010). Ta air temperature, Td dew point, which is squared.
template <class Real>
Real Index_007(Real Ta, Real Td)
{
    return (-2.653 + 0.994 * Ta) + 0.0153 * power(Td, 2);
}

/// Index 8, apparent temperature [°C], Arnoldy (1962). Ta air temperature, WS wind speed.
template <class Real>
Real Index_008(Real Ta, Real WS)
{
    return Ta - 2 * WS;
}

/// Index 9, apparent temperature [°C], Fischer (2010). Ta air temperature, RH relative humidity.
template <class Real>
Real Index_009(Real Ta, Real RH)
{
    return ((-8.7847 + 1.6114 * Ta + (-0.012308) * power(Ta, 2)) +
            RH * (2.3385 + (-0.14612) * Ta + (kTenToMinus3 * 2.2117) * power(Ta, 2))) +
           power(RH, 2) *
               (-0.016425 + (kTenToMinus4 * 7.2546) * Ta + (kTenToMinus6 * (-3.582)) * power(Ta, 2));
}

/// Index 10, indoor apparent temperature [°C], Steadman (1984). Ta air temperature, Ea vapour pressure.
template <class Real>
Real Index_010(Real Ta, Real Ea)
{
    const Real e = Ea / 10;
    return (-1.3 + 0.92 * Ta) + 2.2 * e;
}

/// Index 11, indoor apparent temperature [°C], Steadman (1994). Ta air temperature, Ea vapour pressure.
template <class Real>
Real Index_011(Real Ta, Real Ea)
{
    const Real e = Ea / 10;
    return (0.89 * Ta + 3.82 * e) - 2.56;
}

/// Index 12, apparent temperature [°C], Kalkstein (1986). Ta air temperature, Td dew point, linear where
/// index 7 squares it. Fails where the square of Td overflows, although that square is dropped.
template <class Real>
Real Index_012(Real Ta, Real Td)
{
    // Computed and deliberately dropped: only a failure of the square has an effect.
    const Real squared = (-2.653 + 0.994 * Ta) + power(0.368 * Td, 2);
    return mustBeDefined(squared, (-2.653 + 0.994 * Ta) + 0.368 * Td);
}

/// Index 13, apparent temperature in the shade [°C], Steadman (1984).
/// Ta air temperature, Ea vapour pressure, WS wind speed. Reads `Friction`.
template <class Real>
Real Index_013(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea, Real WS)
{
    const Real v = Wind_At_10m(assumptions, WS);
    const Real e = Ea / 10;
    return ((-2.7 + 1.04 * Ta) + 2 * e) - 0.65 * v;
}

/// Index 14, apparent temperature in the shade [°C], Steadman (1994).
/// Ta air temperature, Ea vapour pressure, WS wind speed. Reads `Friction`.
template <class Real>
Real Index_014(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea, Real WS)
{
    const Real v = Wind_At_10m(assumptions, WS);
    const Real e = Ea / 10;
    return ((Ta + 3.3 * e) - 0.7 * v) - 4;
}

/// Index 15, apparent temperature [°C], Smoyer-Tomic (2001). Ta air temperature, Td dew point.
/// Below 25 °C the air temperature itself.
template <class Real>
Real Index_015(Real Ta, Real Td)
{
    if (Ta < 25)
        return Ta;
    return (-2.719 + 0.994 * Ta) + 0.016 * power(Td, 2);
}

/// Index 16, apparent temperature in the sun [°C], Steadman (1984).
/// Ta air temperature, Ea vapour pressure, WS wind speed, Tmrt mean radiant temperature. Reads `Friction`,
/// `Emissivity`, `ArAdu`, and `Height` and `Weight` without using them: fails where either is negative.
template <class Real>
Real Index_016(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea, Real WS, Real Tmrt)
{
    const Real v = Wind_At_10m(assumptions, WS);
    const Real e = Ea / 10;
    const Real unread = Body_Surface_Area(assumptions); // Deliberate: only its failure has an effect.
    const Real Ts = Mean_Skin_Temperature(Ta);
    const Real Q = Radiative_Coefficient(assumptions, (Ts + Tmrt) / 2) * (Tmrt - Ta);
    return mustBeDefined(unread, (((-1.8 + 1.07 * Ta) + 2.4 * e) - 0.92 * v) + 0.044 * Q);
}

/// Index 17, apparent temperature in the sun [°C], Steadman (1994).
/// Inputs, assumptions and failures as index 16. Its radiative coefficient deliberately does not change
/// with Tmrt, which enters only through the difference from Ta. Fails where the wind at 10 m is -10 m/s.
template <class Real>
Real Index_017(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea, Real WS, Real Tmrt)
{
    const Real v = Wind_At_10m(assumptions, WS);
    const Real e = Ea / 10;
    const Real unread = Body_Surface_Area(assumptions); // Deliberate: only its failure has an effect.
    const Real Ts = Mean_Skin_Temperature(Ta);
    // Deliberate: the second operand of the mean is 0 here, where index 16 has Tmrt.
    constexpr Real radiant = 0;
    const Real Q = Radiative_Coefficient(assumptions, (Ts + radiant) / 2) * (Tmrt - Ta);
    return mustBeDefined(unread, (((Ta + 3.48 * e) - 0.7 * v) + (0.7 * Q) / (v + 10)) - 4.25);
}

/// Index 18, approximated subjective temperature [°C], Auliciems (2007).
/// Air and mean radiant temperature are not read; WS wind speed, Tg globe temperature. Fails where WS is
/// negative.
template <class Real>
Real Index_018(Real /*Ta*/, Real /*Tmrt*/, Real WS, Real Tg)
{
    const Real s = squareRoot(10 * WS);
    return Tg + ((1 - s) * 2.8) / (s * 0.56 + 0.44);
}

/// Index 20, Belgian effective temperature [°C], Bidlot (1947).
/// Tnwb natural wet-bulb temperature, Ta air temperature.
template <class Real>
Real Index_020(Real Tnwb, Real Ta)
{
    return 0.9 * Tnwb + 0.1 * Ta;
}

/// Index 22, biologically active temperature [°C], Tsitsenko (1971).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
template <class Real>
Real Index_022(const AssumptionsOf<Real>& assumptions, Real Ta, Real RH, Real WS)
{
    return 0.8 * detail::equivalentEffectiveTemperature(assumptions, Ta, RH, WS) + 9;
}

/// Index 23, biometeorological comfort index [°C], Rodriguez (1985).
/// WS wind speed, Ta air temperature, Tnwb natural wet-bulb temperature. A wind run of 150 km per day or
/// less leaves the air temperature as it is.
template <class Real>
Real Index_023(Real WS, Real Ta, Real Tnwb)
{
    constexpr Real kCalmWindRun = 150; // km per day
    const Real u = WS * 86.4;
    const Real p = exponential(-0.01 * Ta) * 0.6;
    Real T = Ta;
    if (u > kCalmWindRun)
        // Deliberate: 0.9311 above and 0.0311 below the line.
        T = 37.3 -
            ((37.3 - Ta) * (0.9311 + 0.0295 * power(u, p))) / (0.0295 * power(kCalmWindRun, p) + 0.0311);
    // p must be defined also in a calm that does not read it.
    return mustBeDefined(p, (T + Tnwb) / 2);
}

/// Index 50, corrected effective temperature (basic) [°C] at 0.1 m/s, Auliciems (2007).
/// Tg globe temperature, Tnwb natural wet-bulb temperature.
template <class Real>
Real Index_050(Real Tg, Real Tnwb)
{
    return (0.944 * Tg - 0.056 * Tnwb) / (1 + 0.022 * (Tg - Tnwb));
}

/// Index 51, corrected effective temperature (normal) [°C] at 0.1 m/s, Auliciems (2007).
/// Tg globe temperature, Tnwb natural wet-bulb temperature.
template <class Real>
Real Index_051(Real Tg, Real Tnwb)
{
    return (1.21 * Tg - 0.21 * Tnwb) / (1 + 0.029 * (Tg - Tnwb));
}

/// Index 65, effective temperature [°C], Houghten (1923). Ta air temperature, RH relative humidity.
template <class Real>
Real Index_065(Real Ta, Real RH)
{
    return Ta - (0.4 * (Ta - 10)) * (1 - RH / 100);
}

/// Index 66, effective temperature [°C], Missenard (1933).
/// Ta air temperature, RH relative humidity, WS wind speed. Fails where WS is negative.
template <class Real>
Real Index_066(Real Ta, Real RH, Real WS)
{
    return (37 - (37 - Ta) / ((0.68 - 0.0014 * RH) + 1 / (1.76 + 1.4 * power(WS, 0.75)))) -
           (0.29 * Ta) * (1 - 0.01 * RH);
}

/// Index 69, equivalent effective temperature [°C], Aizenshtat (1974).
/// Ta air temperature, RH relative humidity, WS wind speed as measured. Fails where WS is negative.
// Differs deliberately from equivalentEffectiveTemperature(): the wind as measured, the exponent on the wind
// alone, 0.662 for 0.622, and a last term with - 0.0167 that is multiplied by (100 - RH).
template <class Real>
Real Index_069(Real Ta, Real RH, Real WS)
{
    return ((Ta * (1 - 0.003 * (100 - RH))) - (0.385 * power(WS, 0.59)) * ((36.6 - Ta) + 0.662 * (WS - 1))) +
           (((0.0015 * WS + 0.0008) * (36.6 - Ta)) - 0.0167) * (100 - RH);
}

/// Index 70, equivalent effective temperature [°C], Aizenshtat (1982).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
template <class Real>
Real Index_070(const AssumptionsOf<Real>& assumptions, Real Ta, Real RH, Real WS)
{
    return detail::equivalentEffectiveTemperature(assumptions, Ta, RH, WS);
}

/// Index 71, equivalent temperature [°C], Bedford (1936).
/// Ta air temperature, Tmrt mean radiant temperature, WS wind speed. Fails where WS is negative.
template <class Real>
Real Index_071(Real Ta, Real Tmrt, Real WS)
{
    const Real f = To_Fahrenheit(Ta);
    const Real r = To_Fahrenheit(Tmrt);
    const Real u = WS * 196.85039370079; // Deliberately one digit shorter than MS_TO_FTMIN.
    return To_Celsius((0.522 * f + 0.478 * r) - (squareRoot(u) * 0.0147) * (100 - f));
}

/// Index 72, equivalent temperature [°C], Bründl (1984).
/// Ta air temperature, an input that is not read, RH relative humidity. Reads `Barometric`. 0 at Ta = 0;
/// fails where `Barometric` is 0, there too.
template <class Real>
Real Index_072(const AssumptionsOf<Real>& assumptions, Real Ta, Real /*unset*/, Real RH)
{
    // Deliberately not Vapor_Pressure_Magnus: 6.112 for 6.11 and 237.7 for 237.3.
    const Real E = 6.112 * power(10, (7.5 * Ta) / (237.7 + Ta));
    const Real q = RH * (E / assumptions.Barometric) / 100;
    if (Ta == 0)
        return mustBeDefined(q, Real(0));
    return ((Ta * q) * (585 - 2.326 * Ta)) / (0.24 * Ta + q * (1 * Ta));
}

/// Index 73, equivalent warmth [°C], Bedford (1936).
/// Ta air temperature, Tmrt mean radiant temperature, Ea vapour pressure, WS wind speed. Fails where WS is
/// negative.
template <class Real>
Real Index_073(Real Ta, Real Tmrt, Real Ea, Real WS)
{
    const Real f = To_Fahrenheit(Ta);
    const Real r = To_Fahrenheit(Tmrt);
    const Real p = Ea * HPA_TO_MMHG;
    const Real u = WS * MS_TO_FTMIN;
    const Real X = ((0.0556 * f + 0.0538 * r) + 0.0372 * p) - (squareRoot(u) * 0.00144) * (100 - f);
    return To_Celsius((9.979 * X - 0.1495 * power(X, 2)) - 2.89);
}

/// Index 103, Missenard's index [°C], Missenard (1969). Ta air temperature, RH relative humidity.
// Differs deliberately from index 65: RH / 100 for 1 - RH / 100.
template <class Real>
Real Index_103(Real Ta, Real RH)
{
    return Ta - (0.4 * (Ta - 10)) * (RH / 100);
}

/// Index 109, normal equivalent effective temperature [°C], Boksha (1980).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
template <class Real>
Real Index_109(const AssumptionsOf<Real>& assumptions, Real Ta, Real RH, Real WS)
{
    return 0.8 * detail::equivalentEffectiveTemperature(assumptions, Ta, RH, WS) + 7;
}

/// Index 116, perceived equivalent temperature [°C], Monteiro (2010).
/// Ta air temperature, Tmrt mean radiant temperature, RH relative humidity, WS wind speed.
template <class Real>
Real Index_116(Real Ta, Real Tmrt, Real RH, Real WS)
{
    return (((-3.777 + 0.4828 * Ta) + 0.5172 * Tmrt) + 0.0802 * RH) - 2.322 * WS;
}

/// Index 117, perceived temperature [°C], Linke (1926).
/// Ta air temperature, WS wind speed, SR solar radiation.
template <class Real>
Real Index_117(Real Ta, Real WS, Real SR)
{
    return (Ta - 4 * WS) + 12 * (SR * WM2_TO_CALCM2MIN);
}

/// Index 132, radiation equivalent effective temperature of non-pigmented skin [°C], Sheleihovskyi (1948).
/// Ta air temperature, RH relative humidity, WS wind speed, SR solar radiation. No value where
/// WS is negative, the logarithm has no argument above 0 or another step fails.
template <class Real>
Result<Real> Index_132(Real Ta, Real RH, Real WS, Real SR)
{
    return detail::radiationEquivalentEffectiveTemperature(Ta, RH, WS, SR, 0.28);
}

/// Index 133, radiation equivalent effective temperature of pigmented skin [°C], Sheleihovskyi (1948).
/// Inputs as index 132, and no value where that has none.
template <class Real>
Result<Real> Index_133(Real Ta, Real RH, Real WS, Real SR)
{
    return detail::radiationEquivalentEffectiveTemperature(Ta, RH, WS, SR, 0.11);
}

/// Index 152, simplified radiation equivalent effective temperature [°C], Boksha (1980).
/// Ta air temperature, RH relative humidity, WS wind speed. Reads `Friction`. Fails where WS is negative.
template <class Real>
Real Index_152(const AssumptionsOf<Real>& assumptions, Real Ta, Real RH, Real WS)
{
    return 0.83 * detail::equivalentEffectiveTemperature(assumptions, Ta, RH, WS) + 12;
}

/// Index 161, subjective temperature [°C], McIntyre (1973).
/// Ta air temperature, Tmrt mean radiant temperature, WS wind speed. Still air up to and including 0.1 m/s.
template <class Real>
Real Index_161(Real Ta, Real Tmrt, Real WS)
{
    if (WS <= 0.1)
        return 0.56 * Ta + 0.44 * Tmrt;
    const Real s = squareRoot(10 * WS);
    return (0.44 * Tmrt + 0.56 * (5 - s * (5 - Ta))) / (s * 0.56 + 0.44);
}

} // namespace comfortics::formulas
