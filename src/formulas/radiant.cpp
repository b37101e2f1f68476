// SPDX-License-Identifier: GPL-3.0-or-later
//
// Ta    air temperature [°C]                       RH  relative humidity [%]
// Tg    globe temperature [°C]                     WS  wind speed as measured [m/s]
// Tmrt  mean radiant temperature [°C]              SR  solar radiation [W/m²]
// Tnwb  natural wet-bulb temperature [°C]          Ea  actual vapour pressure [hPa]
// Tpwb  psychrometric wet-bulb temperature [°C]    W   outdoor wet-bulb globe temperature [°C]
// m     mean skin temperature [°C]                 To  operative temperature [°C]
// hc    convective heat transfer coefficient [W/m²/K]
// hr    radiative heat transfer coefficient [W/m²/K]
#include "formulas/radiant.h"

#include "formulas/convection.h"
#include "formulas/primitives.h"

namespace comfortics::formulas {

using values::power;
using values::squareRoot;

namespace {

/// The Fanger draught risk at the turbulence intensity Tu [%].
Number draughtRisk(Number Tu, Number Ta, Number WS)
{
    Number v = WS;
    if (v < 0.05)
        v = 0.05;
    const Number g = power(v - 0.05, 0.6233);
    const Number risk = ((3.143 * (34 - Ta)) * g) + (((0.3696 * v) * Tu) * (34 - Ta)) * g;
    // Deliberate: cut above only, air warmer than 34 °C gives a negative risk.
    if (risk > 100)
        return 100;
    return risk;
}

/// The radiative coefficient between skin and surroundings of indices 63, 113 and 160. Near twin of
/// Radiative_Coefficient: adds 273 where that adds 273.2, and multiplies in another order.
Number skinRadiativeCoefficient(const Assumptions& assumptions, Number Tmrt, Number m)
{
    return (((4 * (power(10, -8) * 5.67)) * assumptions.Emissivity) * assumptions.ArAdu) *
           power(((Tmrt + m) / 2) + 273, 3);
}

/// The operative temperature of indices 113 and 160 at mean skin temperature m.
Number operativeTemperature(const Assumptions& assumptions, Number WS, Number Tmrt, Number Ta, Number m)
{
    const Number hc = convectiveCoefficient(WS);
    const Number hr = skinRadiativeCoefficient(assumptions, Tmrt, m);
    return ((hr * Tmrt) + (hc * Ta)) / (hr + hc);
}

} // namespace

Variant Index_059(Number Ta, Number WS)
{
    return draughtRisk(56, Ta, WS);
}

Variant Index_060(Number Ta, Number WS)
{
    return draughtRisk(11, Ta, WS);
}

Variant Index_061(Number Ta, Number WS)
{
    return draughtRisk(28, Ta, WS);
}

Variant Index_063(const Assumptions& assumptions, Number Ta, Number Tmrt)
{
    // Deliberate: computed for its failures only.
    (void)Body_Surface_Area(assumptions);
    const Number m = Mean_Skin_Temperature(Ta);
    const Number hr = skinRadiativeCoefficient(assumptions, Tmrt, m);
    return hr * (Tmrt - Ta);
}

Variant Index_064(Number WS, Number Tg, Number Ta)
{
    return (((squareRoot(WS) * 13.6) + 6.1) * 0.76) * (Tg - Ta);
}

// Near twin of 105: 0.63, 0.03, 0.0054 and 0.073.
Variant Index_067(Number Ta, Number RH, Number SR)
{
    return ((((0.63 * Ta) - 0.03 * RH) + 0.002 * SR) + 0.0054 * (Ta * RH)) - 0.073 * power(0.1 + SR, -1);
}

Variant Index_068(Number Tnwb, Number Ta, Number WS)
{
    const Number b = To_Fahrenheit(Tnwb);
    const Number d = To_Fahrenheit(Ta);
    const Number v = WS * MS_TO_FTMIN;
    return To_Celsius((b + 0.447 * (d - b)) - 0.231 * power(v, 0.5));
}

Variant Index_078(Number Tpwb, Number Ta)
{
    return ((0.8281 * Tpwb) + 0.3549 * Ta) + 5.08;
}

// As 78, but 2.23 at the end.
Variant Index_079(Number Tpwb, Number Ta)
{
    return ((0.8281 * Tpwb) + 0.3549 * Ta) + 2.23;
}

// Near twin of 67: 0.62, 0.007, 0.0043 and 0.078.
Variant Index_105(Number Ta, Number RH, Number SR)
{
    return ((((0.62 * Ta) - 0.007 * RH) + 0.002 * SR) + 0.0043 * (Ta * RH)) - 0.078 * power(0.1 + SR, -1);
}

Variant Index_107(const Assumptions& assumptions, Number Tmrt, Number Ta)
{
    // Deliberate: computed for its failures only.
    (void)Body_Surface_Area(assumptions);
    const Number m = Mean_Skin_Temperature(Ta);
    // Deliberate: the second surface of the mean stands at 0 °C, whatever Tmrt is.
    constexpr Number kSecondSurface = 0;
    return Radiative_Coefficient(assumptions, (m + kSecondSurface) / 2) * (Tmrt - m);
}

Variant Index_110(Number Tmrt, Number Ta)
{
    return (Tmrt + Ta) / 2;
}

Variant Index_111(Number Ta, Number WS, Number Tmrt)
{
    return ((Ta * squareRoot(10 * WS)) + Tmrt) / (squareRoot(10 * WS) + 1);
}

Variant Index_112(Number WS, Number Ta, Number Tmrt)
{
    const Number A = 0.73 * power(WS, 0.2);
    return (A * Ta) + (1 - A) * Tmrt;
}

Variant Index_113(const Assumptions& assumptions, Number WS, Number Tmrt, Number Ta)
{
    // Deliberate: computed for its failures only.
    (void)Body_Surface_Area(assumptions);
    return operativeTemperature(assumptions, WS, Tmrt, Ta, Mean_Skin_Temperature(Ta));
}

Variant Index_114(Number W)
{
    return (W - 11.76) / 0.405;
}

Variant Index_151(Number Ta, Number RH, Number SR)
{
    return ((0.66 * Ta) + 0.09 * RH) + 0.0035 * SR;
}

Variant Index_154(Number Ta, Number Tmrt, Number WS, Number RH)
{
    return ((3.21 + 0.872 * Ta + 0.2459 * Tmrt) - 2.5078 * WS) - 0.0176 * RH;
}

Variant Index_155(Number Ta, Number Ea)
{
    return ((0.567 * Ta) + 0.393 * Ea) + 3.94;
}

// As 155, but 0.216 and 3.38.
Variant Index_156(Number Ta, Number Ea)
{
    return ((0.567 * Ta) + 0.216 * Ea) + 3.38;
}

Variant Index_160(const Assumptions& assumptions, Number Ta, Number Tmrt, Number WS)
{
    // Deliberate: computed for its failures only.
    (void)Body_Surface_Area(assumptions);
    const Number m = Mean_Skin_Temperature(Ta);
    const Number To = operativeTemperature(assumptions, WS, Tmrt, Ta, m);
    const Number c = (((power(10, -8) * 19.68) * 0.75) * ((power(Tmrt, 3) + power(308, 3)) / 2)) + 1;
    return m - (c * (m - To)) / 5.2;
}

Variant Index_166(Number WS, Number Tpwb, Number Tg)
{
    const Number shielded = (0.7 * Tpwb) + 0.3 * Tg;
    if (WS < 0.5)
        return shielded + 2;
    return shielded;
}

Variant Index_196(const Variant& Ta, const Variant& WS, const Variant& RH, const Variant& SR)
{
    const Number t = Ta.number();
    const Number wind = WS.number();
    const Number humidity = RH.number();
    const Number radiation = SR.number();

    Number ET;
    if (wind <= 0.2)
        ET = t - (0.4 * (t - 10)) * (1 - 0.01 * humidity);
    else
        ET = (37 - (37 - t) / ((0.68 - 0.0014 * humidity) + 1 / (1.76 + 1.4 * power(wind, 0.75)))) -
             (0.29 * t) * (1 - 0.01 * humidity);
    return ET + (0.9989 * radiation) * ((0.0155 - ET * 0.00025) - (0.0043 - ET * 0.00011));
}

Variant Index_197(Number Ta, Number RH, Number SR, Number WS)
{
    const Number s = SR / 1000;
    return (((((0.718 * Ta) + 0.0316 * RH) + (0.00321 * Ta) * RH) + 4.363 * s) - 0.0502 * WS) - 3.623;
}

// Near twin of 197: other coefficients, and a term in the square of the radiation.
Variant Index_198(Number Ta, Number RH, Number SR, Number WS)
{
    const Number s = SR / 1000;
    return ((((((0.735 * Ta) + 0.0374 * RH) + (0.00292 * Ta) * RH) + 7.619 * s) - 4.557 * power(s, 2)) -
            0.0572 * WS) -
           4.064;
}

Variant Index_205(Number W)
{
    return (W + 2.64) / 1.044;
}

} // namespace comfortics::formulas
