// SPDX-License-Identifier: GPL-3.0-or-later
//
// Symbols:
//   Ta    air temperature                       [°C]
//   Tg    globe temperature                     [°C]
//   Tnwb  natural wet-bulb temperature          [°C]
//   Tpwb  psychrometric wet-bulb temperature    [°C]
//   RH    relative humidity                     [%]
//   Es    saturated vapour pressure             [hPa]
//   Ea    actual vapour pressure                [hPa]
//   WS    wind speed                            [m/s]
//   SR    solar radiation                       [W/m²]
#include "formulas/psychrometry.h"

#include "values/run_failure.h"

namespace comfortics::formulas {

using values::arcTangent;
using values::power;

namespace {

// Malchaire (1976): what the globe's excess over the air does to a wet-bulb temperature.
Number malchaireWetBulb(Number Tg, Number Ta, Number RH, Number wetBulb)
{
    return ((((0.16 * (Tg - Ta) + 0.8) / 200) * ((560 - 2 * RH) - 5 * Ta)) - 0.8) + wetBulb;
}

} // namespace

Variant Index_006(const Assumptions& assumptions, Number Tnwb, Number Es)
{
    return 0.24 * (Tnwb + (1555 / assumptions.Barometric) * Es);
}

Variant Index_106(Number Ta, Number RH, Number WS, Number /*SR*/)
{
    // The radiation term is deliberately dead: the result is the same for every solar radiation.
    constexpr Number radiation = 0;
    return (((0.85 * Ta + 0.17 * RH) - 0.61 * power(WS, 0.5)) + 0.0016 * radiation) - 11.62;
}

Variant Index_130(Number Tg, Number Ta, Number RH, Number Tnwb)
{
    return malchaireWetBulb(Tg, Ta, RH, Tnwb);
}

Variant Index_135(Number RH, Number Ta)
{
    return 0.1 * RH + 0.9 * Ta;
}

Variant Index_141(Number Es, Number Ea)
{
    return Es - Ea;
}

Variant Index_202(Number Tg, Number Ta, Number RH, Number Tpwb)
{
    return malchaireWetBulb(Tg, Ta, RH, Tpwb);
}

Variant Index_203(Number Ta, Number RH)
{
    try {
        return (((Ta * arcTangent(0.151977 * power(RH + 8.313659, 0.5)) + arcTangent(Ta + RH)) -
                 arcTangent(RH - 1.676331)) +
                (0.00391838 * power(RH, 3.0 / 2)) * arcTangent(0.023101 * RH)) -
               4.686035;
    } catch (const values::RunFailure&) {
        return {};
    }
}

Variant Index_210(Number Tnwb, Number Ta)
{
    return 0.4 * Tnwb + 0.6 * Ta;
}

} // namespace comfortics::formulas
