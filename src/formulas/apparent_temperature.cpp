// SPDX-License-Identifier: GPL-3.0-or-later
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
#include "formulas/apparent_temperature.h"

#include "formulas/primitives.h"
#include "values/run_failure.h"

namespace comfortics::formulas {

using values::exponential;
using values::logarithm;
using values::power;
using values::squareRoot;

namespace {

// Aizenshtat (1982), the body of indices 22, 70, 109 and 152. Index 69 is the older form and deliberately
// stays apart.
Number equivalentEffectiveTemperature(const Assumptions& assumptions, Number Ta, Number RH, Number WS)
{
    const Number v = Wind_At_2m(assumptions, WS);
    return ((Ta * (1 - 0.003 * (100 - RH))) - power(0.385 * v, 0.59) * ((36.6 - Ta) + 0.622 * (v - 1))) +
           (0.0015 * v + 0.0008) * (36.6 - Ta);
}

// Sheleihovskyi (1948); the skin reflects the given part of the radiation.
Variant radiationEquivalentEffectiveTemperature(Number Ta, Number RH, Number WS, Number SR, Number reflected)
{
    try {
        const Number R = (SR * WM2_TO_CALCM2MIN) * (1 - reflected);
        return 125 * logarithm(((1 + 0.02 * Ta + (0.001 * (Ta - 8)) * (RH - 60)) -
                                (0.045 * (33 - Ta)) * squareRoot(WS)) +
                               0.185 * R);
    } catch (const values::RunFailure&) {
        return {};
    }
}

} // namespace

Variant Index_007(Number Ta, Number Td)
{
    return (-2.653 + 0.994 * Ta) + 0.0153 * power(Td, 2);
}

Variant Index_008(Number Ta, Number WS)
{
    return Ta - 2 * WS;
}

Variant Index_009(Number Ta, Number RH)
{
    return ((-8.7847 + 1.6114 * Ta + (-0.012308) * power(Ta, 2)) +
            RH * (2.3385 + (-0.14612) * Ta + (power(10, -3) * 2.2117) * power(Ta, 2))) +
           power(RH, 2) *
               (-0.016425 + (power(10, -4) * 7.2546) * Ta + (power(10, -6) * (-3.582)) * power(Ta, 2));
}

Variant Index_010(Number Ta, Number Ea)
{
    const Number e = Ea / 10;
    return (-1.3 + 0.92 * Ta) + 2.2 * e;
}

Variant Index_011(Number Ta, Number Ea)
{
    const Number e = Ea / 10;
    return (0.89 * Ta + 3.82 * e) - 2.56;
}

Variant Index_012(Number Ta, Number Td)
{
    // Computed and deliberately dropped: only a failure of the square has an effect.
    (void)((-2.653 + 0.994 * Ta) + power(0.368 * Td, 2));
    return (-2.653 + 0.994 * Ta) + 0.368 * Td;
}

Variant Index_013(const Assumptions& assumptions, Number Ta, Number Ea, Number WS)
{
    const Number v = Wind_At_10m(assumptions, WS);
    const Number e = Ea / 10;
    return ((-2.7 + 1.04 * Ta) + 2 * e) - 0.65 * v;
}

Variant Index_014(const Assumptions& assumptions, Number Ta, Number Ea, Number WS)
{
    const Number v = Wind_At_10m(assumptions, WS);
    const Number e = Ea / 10;
    return ((Ta + 3.3 * e) - 0.7 * v) - 4;
}

Variant Index_015(Number Ta, Number Td)
{
    if (Ta < 25)
        return Ta;
    return (-2.719 + 0.994 * Ta) + 0.016 * power(Td, 2);
}

Variant Index_016(const Assumptions& assumptions, Number Ta, Number Ea, Number WS, Number Tmrt)
{
    const Number v = Wind_At_10m(assumptions, WS);
    const Number e = Ea / 10;
    (void)Body_Surface_Area(assumptions); // Deliberately dropped: only its failure has an effect.
    const Number Ts = Mean_Skin_Temperature(Ta);
    const Number Q = Radiative_Coefficient(assumptions, (Ts + Tmrt) / 2) * (Tmrt - Ta);
    return (((-1.8 + 1.07 * Ta) + 2.4 * e) - 0.92 * v) + 0.044 * Q;
}

Variant Index_017(const Assumptions& assumptions, Number Ta, Number Ea, Number WS, Number Tmrt)
{
    const Number v = Wind_At_10m(assumptions, WS);
    const Number e = Ea / 10;
    (void)Body_Surface_Area(assumptions); // Deliberately dropped: only its failure has an effect.
    const Number Ts = Mean_Skin_Temperature(Ta);
    // Deliberate: the second operand of the mean is 0 here, where index 16 has Tmrt.
    constexpr Number radiant = 0;
    const Number Q = Radiative_Coefficient(assumptions, (Ts + radiant) / 2) * (Tmrt - Ta);
    return (((Ta + 3.48 * e) - 0.7 * v) + (0.7 * Q) / (v + 10)) - 4.25;
}

Variant Index_018(Number /*Ta*/, Number /*Tmrt*/, Number WS, Number Tg)
{
    const Number s = squareRoot(10 * WS);
    return Tg + ((1 - s) * 2.8) / (s * 0.56 + 0.44);
}

Variant Index_020(Number Tnwb, Number Ta)
{
    return 0.9 * Tnwb + 0.1 * Ta;
}

Variant Index_022(const Assumptions& assumptions, Number Ta, Number RH, Number WS)
{
    return 0.8 * equivalentEffectiveTemperature(assumptions, Ta, RH, WS) + 9;
}

Variant Index_023(Number WS, Number Ta, Number Tnwb)
{
    constexpr Number kCalmWindRun = 150; // km per day
    const Number u = WS * 86.4;
    const Number p = exponential(-0.01 * Ta) * 0.6;
    Number T = Ta;
    if (u > kCalmWindRun)
        // Deliberate: 0.9311 above and 0.0311 below the line.
        T = 37.3 -
            ((37.3 - Ta) * (0.9311 + 0.0295 * power(u, p))) / (0.0295 * power(kCalmWindRun, p) + 0.0311);
    return (T + Tnwb) / 2;
}

Variant Index_050(Number Tg, Number Tnwb)
{
    return (0.944 * Tg - 0.056 * Tnwb) / (1 + 0.022 * (Tg - Tnwb));
}

Variant Index_051(Number Tg, Number Tnwb)
{
    return (1.21 * Tg - 0.21 * Tnwb) / (1 + 0.029 * (Tg - Tnwb));
}

Variant Index_065(Number Ta, Number RH)
{
    return Ta - (0.4 * (Ta - 10)) * (1 - RH / 100);
}

Variant Index_066(Number Ta, Number RH, Number WS)
{
    return (37 - (37 - Ta) / ((0.68 - 0.0014 * RH) + 1 / (1.76 + 1.4 * power(WS, 0.75)))) -
           (0.29 * Ta) * (1 - 0.01 * RH);
}

// Differs deliberately from equivalentEffectiveTemperature(): the wind as measured, the exponent on the wind
// alone, 0.662 for 0.622, and a last term with - 0.0167 that is multiplied by (100 - RH).
Variant Index_069(Number Ta, Number RH, Number WS)
{
    return ((Ta * (1 - 0.003 * (100 - RH))) - (0.385 * power(WS, 0.59)) * ((36.6 - Ta) + 0.662 * (WS - 1))) +
           (((0.0015 * WS + 0.0008) * (36.6 - Ta)) - 0.0167) * (100 - RH);
}

Variant Index_070(const Assumptions& assumptions, Number Ta, Number RH, Number WS)
{
    return equivalentEffectiveTemperature(assumptions, Ta, RH, WS);
}

Variant Index_071(Number Ta, Number Tmrt, Number WS)
{
    const Number f = To_Fahrenheit(Ta);
    const Number r = To_Fahrenheit(Tmrt);
    const Number u = WS * 196.85039370079; // Deliberately one digit shorter than MS_TO_FTMIN.
    return To_Celsius((0.522 * f + 0.478 * r) - (squareRoot(u) * 0.0147) * (100 - f));
}

Variant Index_072(const Assumptions& assumptions, Number Ta, Number /*unset*/, Number RH)
{
    // Deliberately not Vapor_Pressure_Magnus: 6.112 for 6.11 and 237.7 for 237.3.
    const Number E = 6.112 * power(10, (7.5 * Ta) / (237.7 + Ta));
    const Number q = RH * (E / assumptions.Barometric) / 100;
    if (Ta == 0)
        return Number(0);
    return ((Ta * q) * (585 - 2.326 * Ta)) / (0.24 * Ta + q * (1 * Ta));
}

Variant Index_073(Number Ta, Number Tmrt, Number Ea, Number WS)
{
    const Number f = To_Fahrenheit(Ta);
    const Number r = To_Fahrenheit(Tmrt);
    const Number p = Ea * HPA_TO_MMHG;
    const Number u = WS * MS_TO_FTMIN;
    const Number X = ((0.0556 * f + 0.0538 * r) + 0.0372 * p) - (squareRoot(u) * 0.00144) * (100 - f);
    return To_Celsius((9.979 * X - 0.1495 * power(X, 2)) - 2.89);
}

// Differs deliberately from index 65: RH / 100 for 1 - RH / 100.
Variant Index_103(Number Ta, Number RH)
{
    return Ta - (0.4 * (Ta - 10)) * (RH / 100);
}

Variant Index_109(const Assumptions& assumptions, Number Ta, Number RH, Number WS)
{
    return 0.8 * equivalentEffectiveTemperature(assumptions, Ta, RH, WS) + 7;
}

Variant Index_116(Number Ta, Number Tmrt, Number RH, Number WS)
{
    return (((-3.777 + 0.4828 * Ta) + 0.5172 * Tmrt) + 0.0802 * RH) - 2.322 * WS;
}

Variant Index_117(Number Ta, Number WS, Number SR)
{
    return (Ta - 4 * WS) + 12 * (SR * WM2_TO_CALCM2MIN);
}

Variant Index_132(Number Ta, Number RH, Number WS, Number SR)
{
    return radiationEquivalentEffectiveTemperature(Ta, RH, WS, SR, 0.28);
}

Variant Index_133(Number Ta, Number RH, Number WS, Number SR)
{
    return radiationEquivalentEffectiveTemperature(Ta, RH, WS, SR, 0.11);
}

Variant Index_152(const Assumptions& assumptions, Number Ta, Number RH, Number WS)
{
    return 0.83 * equivalentEffectiveTemperature(assumptions, Ta, RH, WS) + 12;
}

Variant Index_161(Number Ta, Number Tmrt, Number WS)
{
    if (WS <= 0.1)
        return 0.56 * Ta + 0.44 * Tmrt;
    const Number s = squareRoot(10 * WS);
    return (0.44 * Tmrt + 0.56 * (5 - s * (5 - Ta))) / (s * 0.56 + 0.44);
}

} // namespace comfortics::formulas
