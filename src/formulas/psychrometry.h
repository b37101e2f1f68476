// SPDX-License-Identifier: GPL-3.0-or-later
//
// Indices that are plain psychrometric values: enthalpy, saturation deficit, wet-bulb temperatures.
//
// Every function fails (values::RunFailure) on an operation without a defined result, unless its
// comment says that there is no value then.
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
#pragma once

#include "formulas/assumptions.h"
#include "formulas/real.h"

namespace comfortics::formulas {

namespace detail {

// Malchaire (1976): what the globe's excess over the air does to a wet-bulb temperature.
template <class Real>
Real malchaireWetBulb(Real Tg, Real Ta, Real RH, Real wetBulb)
{
    return ((((0.16 * (Tg - Ta) + 0.8) / 200) * ((560 - 2 * RH) - 5 * Ta)) - 0.8) + wetBulb;
}

} // namespace detail

/// Index 6, air enthalpy [kcal/kg], Boer (1964).
/// Tnwb natural wet-bulb temperature [°C], Es saturated vapour pressure [hPa]. Reads `Barometric`; fails
/// where that is 0.
template <class Real>
Real Index_006(const AssumptionsOf<Real>& assumptions, Real Tnwb, Real Es)
{
    return 0.24 * (Tnwb + (1555 / assumptions.Barometric) * Es);
}

/// Index 106, natural wet-bulb temperature [°C], Maloney (2011).
/// Ta air temperature [°C], RH relative humidity [%], WS wind speed [m/s]; the solar radiation [W/m²] is
/// deliberately not read. Fails where WS is negative.
template <class Real>
Real Index_106(Real Ta, Real RH, Real WS, Real /*SR*/)
{
    // The radiation term is deliberately dead: the result is the same for every solar radiation.
    constexpr Real radiation = 0;
    return (((0.85 * Ta + 0.17 * RH) - 0.61 * power(WS, 0.5)) + 0.0016 * radiation) - 11.62;
}

/// Index 130, psychrometric wet-bulb temperature [°C], Malchaire (1976).
/// Tg globe temperature [°C], Ta air temperature [°C], RH relative humidity [%], Tnwb natural wet-bulb
/// temperature [°C].
template <class Real>
Real Index_130(Real Tg, Real Ta, Real RH, Real Tnwb)
{
    return detail::malchaireWetBulb(Tg, Ta, RH, Tnwb);
}

/// Index 135, relative humidity dry temperature [°C], Wallace (2005).
/// RH relative humidity [%], which deliberately enters as if it were a temperature; Ta air temperature [°C].
template <class Real>
Real Index_135(Real RH, Real Ta)
{
    return 0.1 * RH + 0.9 * Ta;
}

/// Index 141, saturation deficit, Flügge (1912).
/// Es saturated and Ea actual vapour pressure [hPa]. The value is in hPa, deliberately under a catalogue
/// unit that says kPa.
template <class Real>
Real Index_141(Real Es, Real Ea)
{
    return Es - Ea;
}

/// Index 202, wet-bulb temperature [°C], Malchaire (1976).
/// As index 130 with Tpwb, the psychrometric wet-bulb temperature [°C], for Tnwb.
template <class Real>
Real Index_202(Real Tg, Real Ta, Real RH, Real Tpwb)
{
    return detail::malchaireWetBulb(Tg, Ta, RH, Tpwb);
}

/// Index 203, wet-bulb temperature [°C], Stull (2011).
/// Ta air temperature [°C], RH relative humidity [%]. No value where RH is negative
/// or a step fails.
template <class Real>
Result<Real> Index_203(Real Ta, Real RH)
{
    if (RH < 0)
        return none<Real>();
    return noneWhereItFails<Real>([&]() -> Real {
        return (((Ta * arcTangent(0.151977 * power(RH + 8.313659, 0.5)) + arcTangent(Ta + RH)) -
                 arcTangent(RH - 1.676331)) +
                (0.00391838 * power(RH, 3.0 / 2)) * arcTangent(0.023101 * RH)) -
               4.686035;
    });
}

/// Index 210, wet-bulb dry temperature [°C], Wallace (2005).
/// Tnwb natural wet-bulb temperature [°C], Ta air temperature [°C].
template <class Real>
Real Index_210(Real Tnwb, Real Ta)
{
    return 0.4 * Tnwb + 0.6 * Ta;
}

} // namespace comfortics::formulas
