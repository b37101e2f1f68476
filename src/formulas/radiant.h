// SPDX-License-Identifier: GPL-3.0-or-later
//
// Radiant exchange, operative temperature, draught and the family of the wet-bulb globe temperature.
// Every formula fails (RunFailure) where a step has no defined result; each has a value otherwise.
//
// Ta    air temperature [°C]                       RH  relative humidity [%]
// Tg    globe temperature [°C]                     WS  wind speed as measured [m/s]
// Tmrt  mean radiant temperature [°C]              SR  solar radiation [W/m²]
// Tnwb  natural wet-bulb temperature [°C]          Ea  actual vapour pressure [hPa]
// Tpwb  psychrometric wet-bulb temperature [°C]    W   outdoor wet-bulb globe temperature [°C]
// m     mean skin temperature [°C]                 To  operative temperature [°C]
// hc    convective heat transfer coefficient [W/m²/K]
// hr    radiative heat transfer coefficient [W/m²/K]
#pragma once

#include "formulas/assumptions.h"
#include "formulas/convection.h"
#include "formulas/primitives.h"
#include "formulas/real.h"

namespace comfortics::formulas {

namespace detail {

/// The Fanger draught risk at the turbulence intensity Tu [%].
template <class Real>
Real draughtRisk(double Tu, Real Ta, Real WS)
{
    Real v = WS;
    if (v < 0.05)
        v = 0.05;
    const Real g = power(v - 0.05, 0.6233);
    const Real risk = ((3.143 * (34 - Ta)) * g) + (((0.3696 * v) * Tu) * (34 - Ta)) * g;
    // Deliberate: cut above only, air warmer than 34 °C gives a negative risk.
    if (risk > 100)
        return 100;
    return risk;
}

/// The radiative coefficient between skin and surroundings of indices 63, 113 and 160. Near twin of
/// Radiative_Coefficient: adds 273 where that adds 273.2, and multiplies in another order.
template <class Real>
Real skinRadiativeCoefficient(const AssumptionsOf<Real>& assumptions, Real Tmrt, Real m)
{
    return (((4 * (kTenToMinus8 * 5.67)) * assumptions.Emissivity) * assumptions.ArAdu) *
           power(((Tmrt + m) / 2) + 273, 3);
}

/// The operative temperature of indices 113 and 160 at mean skin temperature m.
template <class Real>
Real operativeTemperature(const AssumptionsOf<Real>& assumptions, Real WS, Real Tmrt, Real Ta, Real m)
{
    const Real hc = convectiveCoefficient(WS);
    const Real hr = skinRadiativeCoefficient(assumptions, Tmrt, m);
    return ((hr * Tmrt) + (hc * Ta)) / (hr + hc);
}

} // namespace detail

/// Indices 59 to 61, draught risk [% of people dissatisfied], never above 100, Fanger (1987).
/// Ta air temperature [°C], WS wind speed [m/s]. Negative above 34 °C.
/// Index 59: turbulence intensity 56 %.
template <class Real>
Real Index_059(Real Ta, Real WS)
{
    return detail::draughtRisk(56, Ta, WS);
}

/// Index 60: turbulence intensity 11 %.
template <class Real>
Real Index_060(Real Ta, Real WS)
{
    return detail::draughtRisk(11, Ta, WS);
}

/// Index 61: turbulence intensity 28 %.
template <class Real>
Real Index_061(Real Ta, Real WS)
{
    return detail::draughtRisk(28, Ta, WS);
}

/// Index 63, effective radiant field [W/m²], Gagge (1967).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
template <class Real>
Real Index_063(const AssumptionsOf<Real>& assumptions, Real Ta, Real Tmrt)
{
    // Deliberate: computed for its failures only.
    const Real unread = Body_Surface_Area(assumptions);
    const Real m = Mean_Skin_Temperature(Ta);
    const Real hr = detail::skinRadiativeCoefficient(assumptions, Tmrt, m);
    return mustBeDefined(unread, hr * (Tmrt - Ta));
}

/// Index 64, effective radiant field [W/m²], Nishi (1981).
/// WS wind speed [m/s], Tg globe temperature [°C], Ta air temperature [°C].
template <class Real>
Real Index_064(Real WS, Real Tg, Real Ta)
{
    return (((squareRoot(WS) * 13.6) + 6.1) * 0.76) * (Tg - Ta);
}

/// Index 67, environmental stress index [°C], Moran (2001).
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²]; fails at SR = -0.1.
// Near twin of 105: 0.63, 0.03, 0.0054 and 0.073.
template <class Real>
Real Index_067(Real Ta, Real RH, Real SR)
{
    return ((((0.63 * Ta) - 0.03 * RH) + 0.002 * SR) + 0.0054 * (Ta * RH)) - 0.073 * power(0.1 + SR, -1);
}

/// Index 68, equatorial comfort index [°C], Webb (1960).
/// Tnwb natural wet-bulb temperature [°C], Ta air temperature [°C], WS wind speed [m/s].
template <class Real>
Real Index_068(Real Tnwb, Real Ta, Real WS)
{
    const Real b = To_Fahrenheit(Tnwb);
    const Real d = To_Fahrenheit(Ta);
    const Real v = WS * MS_TO_FTMIN;
    return To_Celsius((b + 0.447 * (d - b)) - 0.231 * power(v, 0.5));
}

/// Index 78, fighter index of thermal stress in direct sunlight [°C], Stribley (1978).
/// Tpwb psychrometric wet-bulb temperature [°C], Ta air temperature [°C].
template <class Real>
Real Index_078(Real Tpwb, Real Ta)
{
    return ((0.8281 * Tpwb) + 0.3549 * Ta) + 5.08;
}

/// Index 79, fighter index of thermal stress under moderate overcast [°C], Stribley (1978).
/// Tpwb psychrometric wet-bulb temperature [°C], Ta air temperature [°C].
// As 78, but 2.23 at the end.
template <class Real>
Real Index_079(Real Tpwb, Real Ta)
{
    return ((0.8281 * Tpwb) + 0.3549 * Ta) + 2.23;
}

/// Index 105, modified environmental stress index [°C], Moran (2003).
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²]; fails at SR = -0.1.
// Near twin of 67: 0.62, 0.007, 0.0043 and 0.078.
template <class Real>
Real Index_105(Real Ta, Real RH, Real SR)
{
    return ((((0.62 * Ta) - 0.007 * RH) + 0.002 * SR) + 0.0043 * (Ta * RH)) - 0.078 * power(0.1 + SR, -1);
}

/// Index 107, net radiation [W/m²], Cena (1984).
/// Tmrt mean radiant temperature [°C], Ta air temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
template <class Real>
Real Index_107(const AssumptionsOf<Real>& assumptions, Real Tmrt, Real Ta)
{
    // Deliberate: computed for its failures only.
    const Real unread = Body_Surface_Area(assumptions);
    const Real m = Mean_Skin_Temperature(Ta);
    // Deliberate: the second surface of the mean stands at 0 °C, whatever Tmrt is.
    constexpr Real kSecondSurface = 0;
    return mustBeDefined(unread, Radiative_Coefficient(assumptions, (m + kSecondSurface) / 2) * (Tmrt - m));
}

/// Index 110, operative temperature [°C], ASHRAE (2004).
/// Tmrt mean radiant temperature [°C], Ta air temperature [°C].
template <class Real>
Real Index_110(Real Tmrt, Real Ta)
{
    return (Tmrt + Ta) / 2;
}

/// Index 111, operative temperature [°C], ISO 7726 (1998).
/// Ta air temperature [°C], WS wind speed [m/s], Tmrt mean radiant temperature [°C].
template <class Real>
Real Index_111(Real Ta, Real WS, Real Tmrt)
{
    return ((Ta * squareRoot(10 * WS)) + Tmrt) / (squareRoot(10 * WS) + 1);
}

/// Index 112, operative temperature [°C], ISO 7730 (1994).
/// WS wind speed [m/s], Ta air temperature [°C], Tmrt mean radiant temperature [°C].
template <class Real>
Real Index_112(Real WS, Real Ta, Real Tmrt)
{
    const Real A = 0.73 * power(WS, 0.2);
    return (A * Ta) + (1 - A) * Tmrt;
}

/// Index 113, operative temperature [°C], Winslow (1937).
/// WS wind speed [m/s], Tmrt mean radiant temperature [°C], Ta air temperature [°C].
/// Fails also on a negative body height or mass, though neither enters the result.
template <class Real>
Real Index_113(const AssumptionsOf<Real>& assumptions, Real WS, Real Tmrt, Real Ta)
{
    // Deliberate: computed for its failures only.
    const Real unread = Body_Surface_Area(assumptions);
    return mustBeDefined(unread,
                         detail::operativeTemperature(assumptions, WS, Tmrt, Ta, Mean_Skin_Temperature(Ta)));
}

/// Index 114, outdoor standard effective temperature [°C], Skinner (2001).
/// W outdoor wet-bulb globe temperature [°C].
template <class Real>
Real Index_114(Real W)
{
    return (W - 11.76) / 0.405;
}

/// Index 151, simple index [-], Moran (2001).
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²].
template <class Real>
Real Index_151(Real Ta, Real RH, Real SR)
{
    return ((0.66 * Ta) + 0.09 * RH) + 0.0035 * SR;
}

/// Index 154, simplified universal thermal climate index [°C], Blazejczyk (2011).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], WS wind speed [m/s], RH relative
/// humidity [%].
template <class Real>
Real Index_154(Real Ta, Real Tmrt, Real WS, Real RH)
{
    return ((3.21 + 0.872 * Ta + 0.2459 * Tmrt) - 2.5078 * WS) - 0.0176 * RH;
}

/// Index 155, simplified wet-bulb globe temperature [°C], American College of Sports Medicine (1984).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
template <class Real>
Real Index_155(Real Ta, Real Ea)
{
    return ((0.567 * Ta) + 0.393 * Ea) + 3.94;
}

/// Index 156, simplified wet-bulb globe temperature [°C], Gagge (1976).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
// As 155, but 0.216 and 3.38.
template <class Real>
Real Index_156(Real Ta, Real Ea)
{
    return ((0.567 * Ta) + 0.216 * Ea) + 3.38;
}

/// Index 160, standard operative temperature [°C], Gagge (1940).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], WS wind speed [m/s].
/// Fails also on a negative body height or mass, though neither enters the result.
template <class Real>
Real Index_160(const AssumptionsOf<Real>& assumptions, Real Ta, Real Tmrt, Real WS)
{
    // Deliberate: computed for its failures only.
    const Real unread = Body_Surface_Area(assumptions);
    const Real m = Mean_Skin_Temperature(Ta);
    const Real To = detail::operativeTemperature(assumptions, WS, Tmrt, Ta, m);
    const Real c = (((kTenToMinus8 * 19.68) * 0.75) * ((power(Tmrt, 3) + power(308, 3)) / 2)) + 1;
    return mustBeDefined(unread, m - (c * (m - To)) / 5.2);
}

/// Index 166, Swedish wet-bulb globe temperature [°C], Eriksson (1974).
/// WS wind speed [m/s], Tpwb psychrometric wet-bulb temperature [°C], Tg globe temperature [°C].
template <class Real>
Real Index_166(Real WS, Real Tpwb, Real Tg)
{
    const Real shielded = (0.7 * Tpwb) + 0.3 * Tg;
    if (WS < 0.5)
        return shielded + 2;
    return shielded;
}

/// Index 196, radiative effective temperature [°C], Blazejczyk (2004).
/// Ta air temperature [°C], WS wind speed [m/s], RH relative humidity [%], SR solar radiation [W/m²].
template <class Real>
Real Index_196(Real Ta, Real WS, Real RH, Real SR)
{
    Real ET;
    if (WS <= 0.2)
        ET = Ta - (0.4 * (Ta - 10)) * (1 - 0.01 * RH);
    else
        ET = (37 - (37 - Ta) / ((0.68 - 0.0014 * RH) + 1 / (1.76 + 1.4 * power(WS, 0.75)))) -
             (0.29 * Ta) * (1 - 0.01 * RH);
    return ET + (0.9989 * SR) * ((0.0155 - ET * 0.00025) - (0.0043 - ET * 0.00011));
}

/// Index 197, wet-bulb globe temperature [°C], Ono (2014), equation 1.
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²], WS wind speed [m/s].
template <class Real>
Real Index_197(Real Ta, Real RH, Real SR, Real WS)
{
    const Real s = SR / 1000;
    return (((((0.718 * Ta) + 0.0316 * RH) + (0.00321 * Ta) * RH) + 4.363 * s) - 0.0502 * WS) - 3.623;
}

/// Index 198, wet-bulb globe temperature [°C], Ono (2014), equation 2.
/// Ta air temperature [°C], RH relative humidity [%], SR solar radiation [W/m²], WS wind speed [m/s].
// Near twin of 197: other coefficients, and a term in the square of the radiation.
template <class Real>
Real Index_198(Real Ta, Real RH, Real SR, Real WS)
{
    const Real s = SR / 1000;
    return ((((((0.735 * Ta) + 0.0374 * RH) + (0.00292 * Ta) * RH) + 7.619 * s) - 4.557 * power(s, 2)) -
            0.0572 * WS) -
           4.064;
}

/// Index 205, wet globe temperature of the Botsball [°C], Botsford (1971).
/// W outdoor wet-bulb globe temperature [°C].
template <class Real>
Real Index_205(Real W)
{
    return (W + 2.64) / 1.044;
}

} // namespace comfortics::formulas
