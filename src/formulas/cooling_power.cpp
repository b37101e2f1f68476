// SPDX-License-Identifier: GPL-3.0-or-later
//
// Symbols
//   Ta    air temperature [°C]                 WS  wind speed as measured [m/s]
//   Tnwb  natural wet-bulb temperature [°C]    RH  relative humidity [%]
//   W     natural wet bulb of index 106 [°C]   Ea  vapour pressure [hPa]
//   36.5  body or bulb temperature [°C]        41.868 and 41.84 take mcal/cm²/s to W/m²
#include "formulas/cooling_power.h"

#include "formulas/primitives.h"
#include "formulas/psychrometry.h"
#include "values/run_failure.h"

namespace comfortics::formulas {

using values::power;
using values::squareRoot;

namespace {

/// The dry cooling of Hill (1916) [mcal/cm²/s].
Number hillCooling(Number Ta, Number WS)
{
    if (WS <= 1)
        return (36.5 - Ta) * (squareRoot(WS) * 0.4 + 0.2);
    return (36.5 - Ta) * (squareRoot(WS) * 0.47 + 0.13);
}

} // namespace

Variant Index_026(Number Ta, Number WS)
{
    return squareRoot(0.29 * (0.26 + WS)) * (36.5 - Ta);
}

// Differs from index 43 by its 0.26.
Variant Index_027(Number Ta, Number WS)
{
    return (0.26 + 0.34 * power(WS, 0.622)) * (36.5 - Ta);
}

Variant Index_028(Number Ta, Number WS)
{
    return (squareRoot(WS) * 0.465 + 0.123) * (36.5 - Ta);
}

Variant Index_029(Number Ta, Number WS)
{
    return (0.31 + 0.112 * WS) * (36.5 - Ta);
}

// Alone among the plain forms with an exponent on the temperature difference.
Variant Index_030(Number Ta, Number WS)
{
    try {
        return (squareRoot(WS) * 0.403 + 0.1) * power(36.5 - Ta, 1.06);
    } catch (const values::RunFailure&) {
        return {};
    }
}

Variant Index_031(Number Ta, Number WS)
{
    return (0.23 + 0.47 * power(WS, 0.52)) * (36.5 - Ta);
}

Variant Index_032(Number Ta, Number WS)
{
    if (WS > 0 && WS < 6)
        return (0.412 + 0.087 * WS) * (36.5 - Ta);
    return {};
}

// Alone with a body temperature of 33; otherwise index 34.
Variant Index_033(Number Ta, Number WS)
{
    return (power(0.25, 1.5) * squareRoot(WS) + 0.22) * (33 - Ta);
}

Variant Index_034(Number Ta, Number WS)
{
    return (power(0.25, 1.5) * squareRoot(WS) + 0.22) * (36.5 - Ta);
}

Variant Index_035(Number Ta, Number WS)
{
    return (power(0.2, 1.1) * squareRoot(WS) + 0.25) * (36.5 - Ta);
}

Variant Index_036(Number Ta, Number WS)
{
    return (0.3 + 0.16 * WS) * (36.5 - Ta);
}

Variant Index_037(Number Ta, Number WS)
{
    if (WS < 5)
        return (0.276 + 0.117 * WS) * (36.5 - Ta);
    return {};
}

Variant Index_038(Number Ta, Number WS)
{
    return 41.868 * hillCooling(Ta, WS);
}

Variant Index_039(Number Ta, Number WS)
{
    return (squareRoot(WS) * 0.485 + 0.105) * (36.5 - Ta);
}

// Index 39 with another pair of coefficients.
Variant Index_040(Number Ta, Number WS)
{
    return (squareRoot(WS) * 0.385 + 0.205) * (36.5 - Ta);
}

Variant Index_041(Number Ta, Number WS)
{
    return (squareRoot(WS) * 0.316 + 0.375) * (36.5 - Ta);
}

// Differs from index 35 by the exponent 1.3 and by 0.22.
Variant Index_042(Number Ta, Number WS)
{
    return (power(0.2, 1.3) * squareRoot(WS) + 0.22) * (36.5 - Ta);
}

// Differs from index 27 by its 0.113.
Variant Index_043(Number Ta, Number WS)
{
    return (0.113 + 0.34 * power(WS, 0.622)) * (36.5 - Ta);
}

Variant Index_044(Number Ta, Number WS)
{
    if (WS > 0.6 && WS < 7.2)
        return (0.249 + 0.258 * power(WS, 0.616)) * (36.5 - Ta);
    return {};
}

Variant Index_045(Number Ta, Number WS)
{
    if (WS > 0.6 && WS < 7.2)
        return (0.441 + 0.096 * WS) * (36.5 - Ta);
    return {};
}

Variant Index_046(Number Ta, Number WS)
{
    return (0.275 + 0.251 * power(WS, 0.7)) * (36.5 - Ta);
}

Variant Index_047(const Assumptions& assumptions, Number WS, Number Ta)
{
    if (WS > 1 && WS <= 12)
        return (0.57 * power(WS, 0.42)) * (36.5 - Ta);
    // Deliberate: the friction exponent is still unset here, so the raw wind is compared with 12, while
    // the formula behind it takes the wind at 10 m.
    const Number unsetFriction = 0;
    if (WS / power(1.1 / 10, unsetFriction) > 12) {
        const Number v = Wind_At_10m(assumptions, WS);
        return (0.46 + 0.08 * v) * (36.5 - Ta);
    }
    return {};
}

Variant Index_048(Number Ta, Number WS)
{
    return (squareRoot(WS) * 0.49 + 0.14) * (36.5 - Ta);
}

// The wet term resembles that of index 208: 0.085 here, 0.85 there.
Variant Index_049(Number Ta, Number WS, Number Ea)
{
    return 41.868 * hillCooling(Ta, WS) +
           (41.868 * (0.085 + 0.102 * power(WS, 0.3))) * power(61.1 - Ea, 0.75);
}

// Deliberately unlike index 38: a power law in still air, the offsets 0.2 and 0.13 outside the product,
// the factor 41.84, and WS = 1 on the upper arm.
Variant Index_062(Number Ta, Number WS)
{
    if (WS == 0)
        return (power(36.5 - Ta, 1.06) * 0.27) * 41.84;
    if (WS > 0 && WS < 1)
        return 0.2 + ((0.4 * power(WS, 0.5)) * (36.5 - Ta)) * 41.84;
    if (WS >= 1)
        return 0.13 + ((0.47 * power(WS, 0.5)) * (36.5 - Ta)) * 41.84;
    return {};
}

Variant Index_099(Number Tnwb, Number WS)
{
    if (WS < 1)
        return (0.35 + 0.85 * power(WS, 1.0 / 3)) * (36.5 - Tnwb);
    return (0.1 + 1.1 * power(WS, 1.0 / 3)) * (36.5 - Tnwb);
}

Variant Index_204(Number WS, Number Tnwb)
{
    return (0.37 + 0.51 * power(WS, 0.63)) * (36.5 - Tnwb);
}

// Deliberate: the wet bulb is the regression of index 106, whatever the solver found, and the bulb stands
// at 36.4.
Variant Index_206(Number Ta, Number RH, Number WS, Number /*unset*/)
{
    const Number unreadRadiation = 0;
    const Number W = Index_106(Ta, RH, WS, unreadRadiation).number();
    return ((0.648 * (36.4 - W)) + (0.833 * (36.4 - W)) * power(WS, 0.5)) * 41.84;
}

Variant Index_207(Number RH, Number Tnwb)
{
    return (0.7 + power(RH, 0.5)) * (36.5 - Tnwb);
}

Variant Index_208(Captions& captions, Number Ta, Number RH, Number WS)
{
    const Number E = Saturation_Pressure_Hardy(36.5) * HPA_TO_MMHG; // [mmHg] at 309.65 K
    const Number D = Dew_Point_Magnus(captions, Ta, RH);
    const Number A = Vapor_Pressure_Magnus(D) * HPA_TO_MMHG; // [mmHg]
    return (squareRoot(WS) * 0.49 + 0.27) * (36.5 - Ta) +
           (0.85 + 0.102 * power(WS, 0.3)) * power(E - A, 4.0 / 3);
}

// In kelvin, against a body temperature of 309.65 K.
Variant Index_209(Number Tnwb, Number WS)
{
    const Number K = Tnwb + 273.15;
    if (WS < 1)
        return (14.65 + 35.59 * power(WS, 1.0 / 3)) * (309.65 - K);
    return (4.19 + 46.05 * power(WS, 1.0 / 3)) * (309.65 - K);
}

} // namespace comfortics::formulas
