// SPDX-License-Identifier: GPL-3.0-or-later
//
// Ta    air temperature [°C]             hc  convective heat transfer coefficient [W/m²/K]
// Tmrt  mean radiant temperature [°C]    hr  radiative heat transfer coefficient [W/m²/K]
// RH    relative humidity [%]            v   wind speed in the formula's own unit
// WS    wind speed as measured [m/s]
#include "formulas/cold.h"

#include "formulas/convection.h"
#include "formulas/primitives.h"

namespace comfortics::formulas {

using values::exponential;
using values::power;
using values::squareRoot;

namespace {

/// The Osokin severity index with the coefficient of the diurnal range of the air temperature.
Number severity(Number Ta, Number WS, Number RH, Number rangeCoefficient)
{
    // Deliberate: the altitude is fixed at sea level, its factor is 1.
    constexpr Number kAltitude = 0;
    // Deliberate: above 100 % no class holds, and the factor 0 makes the index 0.
    Number humidityFactor = 0;
    if (RH <= 60)
        humidityFactor = 0.9;
    else if (RH <= 70)
        humidityFactor = 0.95;
    else if (RH <= 80)
        humidityFactor = 1;
    else if (RH <= 90)
        humidityFactor = 1.05;
    else if (RH <= 100)
        humidityFactor = 1.1;
    return ((((1 - 0.06 * Ta) * (1 + 0.2 * WS)) * (1 + 0.0006 * kAltitude)) * humidityFactor) *
           rangeCoefficient;
}

/// The Jokl thermal resistance of n clothing layers.
Number clothingResistance(Number n, Number WS)
{
    return power(0.0053 + 0.035 * n, 0.61) * exponential((-0.147) * WS) +
           exponential(((-0.23) * n) - ((1.07 + 0.06 * n) * WS)) * 0.054;
}

} // namespace

Variant Index_021(const Assumptions& assumptions, Number Ta, Number RH, Number WS)
{
    // Deliberate: exactly -90 °C meets no test, k stays 0.
    Number k = 0;
    if (Ta < -90 || Ta > 60 || Ta == 22)
        k = 1;
    else if (Ta > 22 && Ta <= 60)
        k = 1 - 0.0263 * (Ta - 22);
    else if (Ta < 22 && Ta > -90)
        k = 1 - 0.0089 * (22 - Ta);

    // Deliberate: exactly 50 % is taken as 50.0001 %.
    if (RH == 50)
        RH = 50.0001;
    Number h = 0;
    if (RH > 50)
        h = 1 + 0.6 * ((RH - 50) / 100);
    if (RH < 50)
        h = 1 + 0.6 * ((50 - RH) / 100);

    // A term of the divisor that is always 1.
    constexpr Number kConstantTerm = 1;
    return ((k * (assumptions.Barometric - 266)) * (1 - 0.02 * WS)) / ((h * kConstantTerm) * 75);
}

Variant Index_024(const Assumptions& assumptions, Number Ta, Number WS)
{
    return (1 - 0.04 * Ta) * (1 + 0.272 * Wind_At_10m(assumptions, WS));
}

Variant Index_074(Number Ta, Number WS)
{
    const Number hc = convectiveCoefficient(WS);
    const Number q = (37.3 - Ta) / (0.08 + 1 / hc);
    return 37.3 - q * 0.08;
}

Variant Index_075(Number Ta, Number WS)
{
    return ((0.4 * Ta) - squareRoot(WS) * 3.3) + 19;
}

// As 75, but 12 at the end.
Variant Index_076(Number Ta, Number WS)
{
    return ((0.4 * Ta) - squareRoot(WS) * 3.3) + 12;
}

// As 75, but 17 at the end.
Variant Index_077(Number Ta, Number WS)
{
    return ((0.4 * Ta) - squareRoot(WS) * 3.3) + 17;
}

Variant Index_095(Number Ta, Number WS)
{
    const Number clothing = (0.082 * (91.4 - ((1.8 * Ta) + 32))) / 2.3274;
    const Number airLayer = 1 / (0.61 + 1.9 * power(WS, 0.5));
    const Number insulation = clothing - airLayer;
    if (insulation < 0)
        return Number(0);
    return insulation;
}

Variant Index_108(Number Ta, Number WS)
{
    const Number F = To_Fahrenheit(Ta);
    const Number v = WS * 2.2369362912;
    return ((35.74 + 0.6215 * F) - 35.75 * power(v, 0.16)) + (0.4275 * F) * power(v, 0.16);
}

// Near twin of 212: the root is of the bare wind, times 10.9, and 9 stands for 10.45.
Variant Index_138(Number WS, Number Ta)
{
    return (((squareRoot(WS) * 10.9) + 9) - WS) * (33 - Ta);
}

Variant Index_142(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 0.85);
}

Variant Index_143(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 1.25);
}

Variant Index_144(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 1.05);
}

Variant Index_145(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 1.1);
}

Variant Index_146(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 1.15);
}

Variant Index_147(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 1.2);
}

Variant Index_148(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 0.9);
}

Variant Index_149(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 0.95);
}

Variant Index_150(Number Ta, Number WS, Number RH)
{
    return severity(Ta, WS, RH, 1);
}

Variant Index_174(Number Ta, Number X)
{
    // Deliberate: the coefficient of Ta is 0 / 66, the air temperature has no effect.
    return (32.6 + (0.0 / 66) * Ta) + 0.0002 * (X * 100);
}

Variant Index_179(Number WS)
{
    return clothingResistance(1, WS);
}

Variant Index_180(Number WS)
{
    return clothingResistance(2, WS);
}

Variant Index_181(Number WS)
{
    return clothingResistance(3, WS);
}

Variant Index_182(Number WS)
{
    return clothingResistance(4, WS);
}

Variant Index_211(const Assumptions& assumptions, Number Ta, Number WS)
{
    const Number v = Wind_At_10m(assumptions, WS) * 3.6;
    return ((13.12 + 0.6215 * Ta) - 11.37 * power(v, 0.16)) + (0.3965 * Ta) * power(v, 0.16);
}

// Near twin of 138: the root is of the wind in cm/s, and 10.45 stands for 9.
Variant Index_212(Number WS, Number Ta)
{
    return ((squareRoot(WS * 100) + 10.45) - WS) * (33 - Ta);
}

Variant Index_213(const Assumptions& assumptions, Number Ta, Number WS, Number Tmrt)
{
    // Deliberate: computed for its failures only.
    (void)Body_Surface_Area(assumptions);
    const Number m = Mean_Skin_Temperature(Ta);
    const Number hr = Radiative_Coefficient(assumptions, (m + Tmrt) / 2);
    const Number hc = convectiveCoefficient(WS);
    return (30 - Ta) / (1 / (hr + hc));
}

Variant Index_214(Number Ta, Number WS)
{
    return (((1.41 - 1.162 * WS) + 0.98 * Ta) + 0.0124 * power(WS, 2)) + 0.0185 * (WS * Ta);
}

Variant Index_216(const Assumptions& assumptions, Number WS)
{
    return Wind_At_10m(assumptions, WS);
}

// The four below are Wind_At_10m with the exponent of their ground in place of `Friction`.
Variant Index_217(Number WS)
{
    return WS / power(1.1 / 10, 0.4);
}

Variant Index_218(Number WS)
{
    return WS / power(1.1 / 10, 0.3);
}

Variant Index_219(Number WS)
{
    return WS / power(1.1 / 10, 0.1);
}

Variant Index_220(Number WS)
{
    return WS / power(1.1 / 10, 0.15);
}

// Deliberate: the same as 216, on `Friction` too.
Variant Index_221(const Assumptions& assumptions, Number WS)
{
    return Wind_At_10m(assumptions, WS);
}

Variant Index_222(Number Ta, Number RH)
{
    return Ta - (((-0.0003) * power(RH, 2) + 0.1497 * RH) - 7.7133);
}

} // namespace comfortics::formulas
