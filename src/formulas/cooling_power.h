// SPDX-License-Identifier: GPL-3.0-or-later
//
// Heat loss of a warm body or of the kata thermometer's bulb in wind.
//
// Ta air, Tnwb natural wet-bulb temperature [°C]; RH relative humidity [%]; Ea vapour pressure [hPa];
// WS wind speed as measured [m/s]. Results in mcal/cm²/s unless stated. Most have the form
// (a + b * g(WS)) * (36.5 - T): 0 where T is the body temperature of 36.5 °C, negative above it, with no
// clamp. An operation without a defined result throws values::RunFailure, so a negative WS in every root
// or power of it.
//
// Symbols
//   Ta    air temperature [°C]                 WS  wind speed as measured [m/s]
//   Tnwb  natural wet-bulb temperature [°C]    RH  relative humidity [%]
//   W     natural wet bulb of index 106 [°C]   Ea  vapour pressure [hPa]
//   36.5  body or bulb temperature [°C]        41.868 and 41.84 take mcal/cm²/s to W/m²
#pragma once

#include "formulas/assumptions.h"
#include "formulas/primitives.h"
#include "formulas/psychrometry.h"
#include "formulas/real.h"

namespace comfortics::formulas {

namespace detail {

/// The dry cooling of Hill (1916) [mcal/cm²/s].
template <class Real>
Real hillCooling(Real Ta, Real WS)
{
    if (WS <= 1)
        return (36.5 - Ta) * (squareRoot(WS) * 0.4 + 0.2);
    return (36.5 - Ta) * (squareRoot(WS) * 0.47 + 0.13);
}

} // namespace detail

/// Index 26, cooling power, Angus (1930).
template <class Real>
Real Index_026(Real Ta, Real WS)
{
    return squareRoot(0.29 * (0.26 + WS)) * (36.5 - Ta);
}

/// Index 27, cooling power, Becker (1972).
// Differs from index 43 by its 0.26.
template <class Real>
Real Index_027(Real Ta, Real WS)
{
    return (0.26 + 0.34 * power(WS, 0.622)) * (36.5 - Ta);
}

/// Index 28, cooling power, Bedford (1933).
template <class Real>
Real Index_028(Real Ta, Real WS)
{
    return (squareRoot(WS) * 0.465 + 0.123) * (36.5 - Ta);
}

/// Index 29, cooling power, Bider (1931).
template <class Real>
Real Index_029(Real Ta, Real WS)
{
    return (0.31 + 0.112 * WS) * (36.5 - Ta);
}

/// Index 30, cooling power, Bradtke (1926). No value where Ta is above 36.5, WS is negative
/// or a step fails.
// Alone among the plain forms with an exponent on the temperature difference.
template <class Real>
Result<Real> Index_030(Real Ta, Real WS)
{
    if (Ta > 36.5 || WS < 0)
        return none<Real>();
    return noneWhereItFails<Real>(
        [&]() -> Real { return (squareRoot(WS) * 0.403 + 0.1) * power(36.5 - Ta, 1.06); });
}

/// Index 31, cooling power, Buttner (1934).
template <class Real>
Real Index_031(Real Ta, Real WS)
{
    return (0.23 + 0.47 * power(WS, 0.52)) * (36.5 - Ta);
}

/// Index 32, cooling power, Cena (1966). No value unless 0 < WS < 6.
template <class Real>
Result<Real> Index_032(Real Ta, Real WS)
{
    if (WS > 0 && WS < 6)
        return (0.412 + 0.087 * WS) * (36.5 - Ta);
    return none<Real>();
}

/// Index 33, cooling power, Dorno (1925), for a body temperature of 33 °C.
// Alone with a body temperature of 33; otherwise index 34.
template <class Real>
Real Index_033(Real Ta, Real WS)
{
    return (power(0.25, 1.5) * squareRoot(WS) + 0.22) * (33 - Ta);
}

/// Index 34, cooling power, Dorno (1934).
template <class Real>
Real Index_034(Real Ta, Real WS)
{
    return (power(0.25, 1.5) * squareRoot(WS) + 0.22) * (36.5 - Ta);
}

/// Index 35, cooling power, Goldschmidt (1952), the root form.
template <class Real>
Real Index_035(Real Ta, Real WS)
{
    return (power(0.2, 1.1) * squareRoot(WS) + 0.25) * (36.5 - Ta);
}

/// Index 36, cooling power, Goldschmidt (1952), the linear form.
template <class Real>
Real Index_036(Real Ta, Real WS)
{
    return (0.3 + 0.16 * WS) * (36.5 - Ta);
}

/// Index 37, cooling power, Henneberger (1948). No value unless WS < 5.
template <class Real>
Result<Real> Index_037(Real Ta, Real WS)
{
    if (WS < 5)
        return (0.276 + 0.117 * WS) * (36.5 - Ta);
    return none<Real>();
}

/// Index 38, cooling power [W/m²], Hill (1916).
template <class Real>
Real Index_038(Real Ta, Real WS)
{
    return 41.868 * detail::hillCooling(Ta, WS);
}

/// Index 39, cooling power, Hill (1937), with the coefficients 0.485 and 0.105.
template <class Real>
Real Index_039(Real Ta, Real WS)
{
    return (squareRoot(WS) * 0.485 + 0.105) * (36.5 - Ta);
}

/// Index 40, cooling power, Hill (1937), with the coefficients 0.385 and 0.205.
// Index 39 with another pair of coefficients.
template <class Real>
Real Index_040(Real Ta, Real WS)
{
    return (squareRoot(WS) * 0.385 + 0.205) * (36.5 - Ta);
}

/// Index 41, cooling power, Joranger (1955).
template <class Real>
Real Index_041(Real Ta, Real WS)
{
    return (squareRoot(WS) * 0.316 + 0.375) * (36.5 - Ta);
}

/// Index 42, cooling power, Lahmayer (1932).
// Differs from index 35 by the exponent 1.3 and by 0.22.
template <class Real>
Real Index_042(Real Ta, Real WS)
{
    return (power(0.2, 1.3) * squareRoot(WS) + 0.22) * (36.5 - Ta);
}

/// Index 43, cooling power, Lehmann (1936).
// Differs from index 27 by its 0.113.
template <class Real>
Real Index_043(Real Ta, Real WS)
{
    return (0.113 + 0.34 * power(WS, 0.622)) * (36.5 - Ta);
}

/// Index 44, cooling power, Matzke (1954), the power form. No value unless 0.6 < WS < 7.2.
template <class Real>
Result<Real> Index_044(Real Ta, Real WS)
{
    if (WS > 0.6 && WS < 7.2)
        return (0.249 + 0.258 * power(WS, 0.616)) * (36.5 - Ta);
    return none<Real>();
}

/// Index 45, cooling power, Matzke (1954), the linear form. No value unless 0.6 < WS < 7.2.
template <class Real>
Result<Real> Index_045(Real Ta, Real WS)
{
    if (WS > 0.6 && WS < 7.2)
        return (0.441 + 0.096 * WS) * (36.5 - Ta);
    return none<Real>();
}

/// Index 46, cooling power, Meissner (1932).
template <class Real>
Real Index_046(Real Ta, Real WS)
{
    return (0.275 + 0.251 * power(WS, 0.7)) * (36.5 - Ta);
}

/// Index 47, cooling power, Vinje (1962). No value unless WS > 1; above 12 with the wind taken to 10 m.
template <class Real>
Result<Real> Index_047(const AssumptionsOf<Real>& assumptions, Real WS, Real Ta)
{
    if (WS > 1 && WS <= 12)
        return (0.57 * power(WS, 0.42)) * (36.5 - Ta);
    // Deliberate: the friction exponent is still unset here, so the raw wind is compared with 12, while
    // the formula behind it takes the wind at 10 m.
    const Real unsetFriction = 0;
    if (WS / power(1.1 / 10, unsetFriction) > 12) {
        const Real v = Wind_At_10m(assumptions, WS);
        return (0.46 + 0.08 * v) * (36.5 - Ta);
    }
    return none<Real>();
}

/// Index 48, cooling power, Weiss (1926).
template <class Real>
Real Index_048(Real Ta, Real WS)
{
    return (squareRoot(WS) * 0.49 + 0.14) * (36.5 - Ta);
}

/// Index 49, cooling power of wet air temperature [W/m²], Hill (1916). Fails at an Ea above 61.1.
// The wet term resembles that of index 208: 0.085 here, 0.85 there.
template <class Real>
Real Index_049(Real Ta, Real WS, Real Ea)
{
    return 41.868 * detail::hillCooling(Ta, WS) +
           (41.868 * (0.085 + 0.102 * power(WS, 0.3))) * power(61.1 - Ea, 0.75);
}

/// Index 62, dry kata cooling [W/m²], Maloney (2011). No value at a negative WS; fails in still air above
/// 36.5 °C.
// Deliberately unlike index 38: a power law in still air, the offsets 0.2 and 0.13 outside the product,
// the factor 41.84, and WS = 1 on the upper arm.
template <class Real>
Result<Real> Index_062(Real Ta, Real WS)
{
    if (WS == 0)
        return (power(36.5 - Ta, 1.06) * 0.27) * 41.84;
    if (WS > 0 && WS < 1) // NOLINT(misc-redundant-expression): a wind is no integer
        return 0.2 + ((0.4 * power(WS, 0.5)) * (36.5 - Ta)) * 41.84;
    if (WS >= 1)
        return 0.13 + ((0.47 * power(WS, 0.5)) * (36.5 - Ta)) * 41.84;
    return none<Real>();
}

/// Index 99, kata index [-], Zhongpeng (2012).
template <class Real>
Real Index_099(Real Tnwb, Real WS)
{
    if (WS < 1)
        return (0.35 + 0.85 * power(WS, 1.0 / 3)) * (36.5 - Tnwb);
    return (0.1 + 1.1 * power(WS, 1.0 / 3)) * (36.5 - Tnwb);
}

/// Index 204, wet cooling power, Landsberg (1972).
template <class Real>
Real Index_204(Real WS, Real Tnwb)
{
    return (0.37 + 0.51 * power(WS, 0.63)) * (36.5 - Tnwb);
}

/// Index 206, wet kata cooling [W/m²], Maloney (2011), with the natural wet bulb of index 106. The
/// fourth input is passed unset and not read.
// Deliberate: the wet bulb is the regression of index 106, whatever the solver found, and the bulb stands
// at 36.4.
template <class Real>
Real Index_206(Real Ta, Real RH, Real WS, Real /*unset*/)
{
    const Real unreadRadiation = 0;
    const Real W = Index_106(Ta, RH, WS, unreadRadiation);
    return ((0.648 * (36.4 - W)) + (0.833 * (36.4 - W)) * power(WS, 0.5)) * 41.84;
}

/// Index 207, wet kata cooling power, Chamber of Mines of South Africa (1972). RH stands in the place of
/// the published form's wind: deliberate.
template <class Real>
Real Index_207(Real RH, Real Tnwb)
{
    return (0.7 + power(RH, 0.5)) * (36.5 - Tnwb);
}

/// Index 208, wet kata cooling power, Hill (1919). Derives its own dew point from Ta and RH. Fails at RH 0
/// and at a dew point above 36.5 °C.
template <class Real>
Real Index_208(Real Ta, Real RH, Real WS)
{
    const Real E = Saturation_Pressure_Hardy(Real(36.5)) * HPA_TO_MMHG; // [mmHg] at 309.65 K
    const Real D = Dew_Point_Magnus(Ta, RH);
    const Real A = Vapor_Pressure_Magnus(D) * HPA_TO_MMHG; // [mmHg]
    return (squareRoot(WS) * 0.49 + 0.27) * (36.5 - Ta) +
           (0.85 + 0.102 * power(WS, 0.3)) * power(E - A, 4.0 / 3);
}

/// Index 209, wet kata cooling power [W/m²], Krisha (1996).
// In kelvin, against a body temperature of 309.65 K.
template <class Real>
Real Index_209(Real Tnwb, Real WS)
{
    const Real K = Tnwb + 273.15;
    if (WS < 1)
        return (14.65 + 35.59 * power(WS, 1.0 / 3)) * (309.65 - K);
    return (4.19 + 46.05 * power(WS, 1.0 / 3)) * (309.65 - K);
}

} // namespace comfortics::formulas
