// SPDX-License-Identifier: GPL-3.0-or-later
//
// Cold and exposure: wind chill, severity indices, skin temperature and clothing in the cold, wind
// speed at 10 m. Every formula fails (RunFailure) where a step has no defined result, the roots and
// powers of the wind on a negative wind among them; each has a value otherwise.
//
// Ta    air temperature [°C]             hc  convective heat transfer coefficient [W/m²/K]
// Tmrt  mean radiant temperature [°C]    hr  radiative heat transfer coefficient [W/m²/K]
// RH    relative humidity [%]            v   wind speed in the formula's own unit
// WS    wind speed as measured [m/s]
#pragma once

#include "formulas/assumptions.h"
#include "formulas/convection.h"
#include "formulas/primitives.h"
#include "formulas/real.h"

namespace comfortics::formulas {

namespace detail {

/// The Osokin severity index with the coefficient of the diurnal range of the air temperature.
template <class Real>
Real severity(Real Ta, Real WS, Real RH, double rangeCoefficient)
{
    // Deliberate: the altitude is fixed at sea level, its factor is 1.
    constexpr Real kAltitude = 0;
    // Deliberate: above 100 % no class holds, and the factor 0 makes the index 0.
    Real humidityFactor = 0;
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
template <class Real>
Real clothingResistance(double n, Real WS)
{
    return power(0.0053 + 0.035 * n, 0.61) * exponential((-0.147) * WS) +
           exponential(((-0.23) * n) - ((1.07 + 0.06 * n) * WS)) * 0.054;
}

} // namespace detail

/// Index 21, bioclimatic index of severity [-], Belkin (1992).
/// Ta air temperature [°C], RH relative humidity [%], WS wind speed [m/s]. 0 at exactly -90 °C.
template <class Real>
Real Index_021(const AssumptionsOf<Real>& assumptions, Real Ta, Real RH, Real WS)
{
    // Deliberate: exactly -90 °C meets no test, k stays 0.
    Real k = 0;
    if (Ta < -90 || Ta > 60 || Ta == 22)
        k = 1;
    else if (Ta > 22 && Ta <= 60)
        k = 1 - 0.0263 * (Ta - 22);
    else if (Ta < 22 && Ta > -90)
        k = 1 - 0.0089 * (22 - Ta);

    // Deliberate: exactly 50 % is taken as 50.0001 %.
    if (RH == 50)
        RH = 50.0001;
    Real h = 0;
    if (RH > 50)
        h = 1 + 0.6 * ((RH - 50) / 100);
    if (RH < 50)
        h = 1 + 0.6 * ((50 - RH) / 100);

    // A term of the divisor that is always 1.
    constexpr Real kConstantTerm = 1;
    return ((k * (assumptions.Barometric - 266)) * (1 - 0.02 * WS)) / ((h * kConstantTerm) * 75);
}

/// Index 24, winter weather severity [-], Bodman (1908).
/// Ta air temperature [°C], WS wind speed [m/s], taken to 10 m.
template <class Real>
Real Index_024(const AssumptionsOf<Real>& assumptions, Real Ta, Real WS)
{
    return (1 - 0.04 * Ta) * (1 + 0.272 * Wind_At_10m(assumptions, WS));
}

/// Index 74, exposed skin temperature [°C], Brauner (1995).
/// Ta air temperature [°C], WS wind speed [m/s]. Fails in still air.
template <class Real>
Real Index_074(Real Ta, Real WS)
{
    const Real hc = convectiveCoefficient(WS);
    const Real q = (37.3 - Ta) / (0.08 + 1 / hc);
    return 37.3 - q * 0.08;
}

/// Index 75, skin temperature of the cheek [°C], Adamenko (1972).
/// Ta air temperature [°C], WS wind speed [m/s].
template <class Real>
Real Index_075(Real Ta, Real WS)
{
    return ((0.4 * Ta) - squareRoot(WS) * 3.3) + 19;
}

/// Index 76, skin temperature of the ear lobe [°C], Adamenko (1972).
/// Ta air temperature [°C], WS wind speed [m/s].
// As 75, but 12 at the end.
template <class Real>
Real Index_076(Real Ta, Real WS)
{
    return ((0.4 * Ta) - squareRoot(WS) * 3.3) + 12;
}

/// Index 77, skin temperature of the nose [°C], Adamenko (1972).
/// Ta air temperature [°C], WS wind speed [m/s].
// As 75, but 17 at the end.
template <class Real>
Real Index_077(Real Ta, Real WS)
{
    return ((0.4 * Ta) - squareRoot(WS) * 3.3) + 17;
}

/// Index 95, insulation predicted index [clo], never below 0, Blazejczyk (2011).
/// Ta air temperature [°C], WS wind speed [m/s].
template <class Real>
Real Index_095(Real Ta, Real WS)
{
    const Real clothing = (0.082 * (91.4 - ((1.8 * Ta) + 32))) / 2.3274;
    const Real airLayer = 1 / (0.61 + 1.9 * power(WS, 0.5));
    const Real insulation = clothing - airLayer;
    if (insulation < 0)
        return Real(0);
    return insulation;
}

/// Index 108, new wind chill, NOAA (2001). The result is in °F and stays so.
/// Ta air temperature [°C], WS wind speed [m/s].
template <class Real>
Real Index_108(Real Ta, Real WS)
{
    const Real F = To_Fahrenheit(Ta);
    const Real v = WS * 2.2369362912;
    return ((35.74 + 0.6215 * F) - 35.75 * power(v, 0.16)) + (0.4275 * F) * power(v, 0.16);
}

/// Index 138, revised wind chill index [kcal/m²/h], Court (1948).
/// WS wind speed [m/s], Ta air temperature [°C].
// Near twin of 212: the root is of the bare wind, times 10.9, and 9 stands for 10.45.
template <class Real>
Real Index_138(Real WS, Real Ta)
{
    return (((squareRoot(WS) * 10.9) + 9) - WS) * (33 - Ta);
}

/// Indices 142 to 150, severity index [-] by the diurnal range of the air temperature, Osokin (1968).
/// Ta air temperature [°C], WS wind speed [m/s], RH relative humidity [%]; 0 above 100 %.
/// Index 142: range below 4 °C.
template <class Real>
Real Index_142(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 0.85);
}

/// Index 143: range above 18 °C.
template <class Real>
Real Index_143(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 1.25);
}

/// Index 144: range 10.1 to 12 °C.
template <class Real>
Real Index_144(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 1.05);
}

/// Index 145: range 12.1 to 14 °C.
template <class Real>
Real Index_145(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 1.1);
}

/// Index 146: range 14.1 to 16 °C.
template <class Real>
Real Index_146(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 1.15);
}

/// Index 147: range 16.1 to 18 °C.
template <class Real>
Real Index_147(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 1.2);
}

/// Index 148: range 4.1 to 6 °C.
template <class Real>
Real Index_148(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 0.9);
}

/// Index 149: range 6.1 to 8 °C.
template <class Real>
Real Index_149(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 0.95);
}

/// Index 150: range 8.1 to 10 °C.
template <class Real>
Real Index_150(Real Ta, Real WS, Real RH)
{
    return detail::severity(Ta, WS, RH, 1);
}

/// Index 174, temperature of the exhaled air [°C], McPherson (1993).
/// Ta air temperature [°C], without effect; X vapour pressure [hPa] as the caller has it at hand.
template <class Real>
Real Index_174(Real Ta, Real X)
{
    // Deliberate: the coefficient of Ta is 0 / 66, the air temperature has no effect.
    return (32.6 + (0.0 / 66) * Ta) + 0.0002 * (X * 100);
}

/// Indices 179 to 182, thermal resistance of clothing of one to four layers, Jokl (1982).
/// WS wind speed [m/s]. The value is in m²K/W; the unit shown is W/m2/K.
/// Index 179: 1 layer.
template <class Real>
Real Index_179(Real WS)
{
    return detail::clothingResistance(1, WS);
}

/// Index 180: 2 layers.
template <class Real>
Real Index_180(Real WS)
{
    return detail::clothingResistance(2, WS);
}

/// Index 181: 3 layers.
template <class Real>
Real Index_181(Real WS)
{
    return detail::clothingResistance(3, WS);
}

/// Index 182: 4 layers.
template <class Real>
Real Index_182(Real WS)
{
    return detail::clothingResistance(4, WS);
}

/// Index 211, wind chill temperature [°C], National Oceanic and Atmospheric Administration (2003).
/// Ta air temperature [°C], WS wind speed [m/s], taken to 10 m.
template <class Real>
Real Index_211(const AssumptionsOf<Real>& assumptions, Real Ta, Real WS)
{
    const Real v = Wind_At_10m(assumptions, WS) * 3.6;
    return ((13.12 + 0.6215 * Ta) - 11.37 * power(v, 0.16)) + (0.3965 * Ta) * power(v, 0.16);
}

/// Index 212, wind chill [kcal/m²/h], Siple (1945).
/// WS wind speed [m/s], Ta air temperature [°C].
// Near twin of 138: the root is of the wind in cm/s, and 10.45 stands for 9.
template <class Real>
Real Index_212(Real WS, Real Ta)
{
    return ((squareRoot(WS * 100) + 10.45) - WS) * (33 - Ta);
}

/// Index 213, wind chill as heat loss [W/m²], Steadman (1971). The unit shown, cal/m²/s, is not the value's.
/// Ta air temperature [°C], WS wind speed [m/s], Tmrt mean radiant temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
template <class Real>
Real Index_213(const AssumptionsOf<Real>& assumptions, Real Ta, Real WS, Real Tmrt)
{
    // Deliberate: computed for its failures only.
    const Real unread = Body_Surface_Area(assumptions);
    const Real m = Mean_Skin_Temperature(Ta);
    const Real hr = Radiative_Coefficient(assumptions, (m + Tmrt) / 2);
    const Real hc = convectiveCoefficient(WS);
    return mustBeDefined(unread, (30 - Ta) / (1 / (hr + hc)));
}

/// Index 214, wind chill equivalent temperature [°C], Quayle (1998).
/// Ta air temperature [°C], WS wind speed [m/s].
template <class Real>
Real Index_214(Real Ta, Real WS)
{
    return (((1.41 - 1.162 * WS) + 0.98 * Ta) + 0.0124 * power(WS, 2)) + 0.0185 * (WS * Ta);
}

/// Indices 216 to 221, wind speed at 10 m [m/s] by the kind of ground, Hellmann (1915).
/// WS wind speed [m/s] at 1.1 m. 216 and 221 read the exponent `Friction`, the others have their own.
/// Index 216: high crops, hedges and shrubs.
template <class Real>
Real Index_216(const AssumptionsOf<Real>& assumptions, Real WS)
{
    return Wind_At_10m(assumptions, WS);
}

/// Index 217: large city with tall buildings.
// The four below are Wind_At_10m with the exponent of their ground in place of `Friction`.
template <class Real>
Real Index_217(Real WS)
{
    return WS / power(1.1 / 10, 0.4);
}

/// Index 218: small town with trees and shrubs.
template <class Real>
Real Index_218(Real WS)
{
    return WS / power(1.1 / 10, 0.3);
}

/// Index 219: smooth hard ground, calm water.
template <class Real>
Real Index_219(Real WS)
{
    return WS / power(1.1 / 10, 0.1);
}

/// Index 220: tall grass on level ground.
template <class Real>
Real Index_220(Real WS)
{
    return WS / power(1.1 / 10, 0.15);
}

/// Index 221: wooded countryside, many trees.
// Deliberate: the same as 216, on `Friction` too.
template <class Real>
Real Index_221(const AssumptionsOf<Real>& assumptions, Real WS)
{
    return Wind_At_10m(assumptions, WS);
}

/// Index 222, winter Scharlau index [-], Scharlau (1950): cold discomfort. How many degrees the air is above
/// the temperature below which it is felt.
/// Ta air temperature [°C], RH relative humidity [%].
template <class Real>
Real Index_222(Real Ta, Real RH)
{
    return Ta - (((-0.0003) * power(RH, 2) + 0.1497 * RH) - 7.7133);
}

} // namespace comfortics::formulas
