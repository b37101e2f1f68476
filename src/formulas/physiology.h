// SPDX-License-Identifier: GPL-3.0-or-later
//
// Physiological models in closed form: heart rate, strain, skin temperature and wettedness. Every
// formula fails (RunFailure) where a step has no defined result; each has a value otherwise.
//
// Legend
//   Ta    air temperature [°C]               RH  relative humidity [%]
//   Tg    globe temperature [°C]             WS  wind speed [m/s]
//   Tmrt  mean radiant temperature [°C]      Ea  vapour pressure [hPa], e the same in mmHg
//   Ts    skin temperature [°C]              c   thermal resistance of the clothing [clo]
//   M     metabolic rate [W/m²]              B   metabolic rate of the body [BTU/h]
//   s     thermal sensation [-]
#pragma once

#include "formulas/assumptions.h"
#include "formulas/comfort_votes.h"
#include "formulas/primitives.h"
#include "formulas/real.h"

namespace comfortics::formulas {

namespace detail {

/// Heart rate [beats/min] at the metabolic rate M of indices 81 to 83.
template <class Real>
Real heartRate(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea, double M)
{
    const Real B = (M * Body_Surface_Area(assumptions)) * 3.41214163;
    return (0.029 * B) + 0.7 * (To_Fahrenheit(Ta) + Ea * HPA_TO_MMHG);
}

/// Skin temperature [°C] of indices 157 and 158, which differ in the c between -30 and 25 °C.
template <class Real>
Real skinTemperature(Real Ta, Real Tmrt, Real RH, Real WS, Real c)
{
    if (Ta < -30)
        c = 3;
    if (Ta > 25)
        c = 0.6;
    return (((((26.4 + 0.02138 * Tmrt) + 0.2095 * Ta) - 0.0185 * RH) - 0.009 * WS) + 0.6 * (c - 1)) +
           0.00128 * 135;
}

} // namespace detail

/// Index 19, Belding-Hatch index [-], Belding and Hatch (1955).
/// Tg globe temperature [°C], WS wind speed [m/s], Ea vapour pressure [hPa].
/// Fails in still air and at a vapour pressure of 42 mmHg.
template <class Real>
Real Index_019(Real Tg, Real WS, Real Ea)
{
    const Real e = Ea * HPA_TO_MMHG;
    return (110 + (11.6 * (1 + 1.3 * power(WS, 0.5))) * (Tg - 35)) / ((25 * power(WS, 0.4)) * (42 - e));
}

/// Index 81, heart rate at high intensity (230 W/m²) [beats/min], Fuller and Brouha (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at a negative height or weight.
template <class Real>
Real Index_081(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea)
{
    return detail::heartRate(assumptions, Ta, Ea, 230);
}

/// Index 82, heart rate at low intensity (100 W/m²) [beats/min], Fuller and Brouha (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at a negative height or weight.
template <class Real>
Real Index_082(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea)
{
    return detail::heartRate(assumptions, Ta, Ea, 100);
}

/// Index 83, heart rate at moderate intensity (165 W/m²) [beats/min], Fuller and Brouha (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at a negative height or weight.
template <class Real>
Real Index_083(const AssumptionsOf<Real>& assumptions, Real Ta, Real Ea)
{
    return detail::heartRate(assumptions, Ta, Ea, 165);
}

/// Index 84, safe limit of the heart rate [beats/min], LaFleur (1971).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
template <class Real>
Real Index_084(Real Ta, Real Ea)
{
    return (206.4 - 0.63 * (To_Fahrenheit(Ta) + Ea * HPA_TO_MMHG)) - 10;
}

/// Index 101, mean skin temperature [°C], McPherson (1993).
/// Ta air temperature [°C].
template <class Real>
Real Index_101(Real Ta)
{
    return Mean_Skin_Temperature(Ta);
}

/// Index 128, predicted percentage of dissatisfied [%], Xavier and Lamberts (2000), at the thermal
/// sensation of index 189; 100 where that is above 2 or below -2.
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
template <class Real>
Real Index_128(Real Ta, Real Tmrt, Real RH, Real WS)
{
    const Real s = Index_189(Ta, Tmrt, RH, WS);
    if (s > 2 || s < -2)
        return Real(100);
    return ((18.94 * power(s, 2)) - 0.24 * s) + 24.41;
}

/// Index 136, relative strain index [-], Kyle (1992).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at 58 hPa.
template <class Real>
Real Index_136(Real Ta, Real Ea)
{
    return (Ta - 21) / (58 - Ea);
}

/// Index 137, relative strain index [-], Lee and Henschel (1966).
/// Ta air temperature [°C], Ea vapour pressure [hPa]. Fails at 44 mmHg.
template <class Real>
Real Index_137(Real Ta, Real Ea)
{
    return (10.7 + 0.74 * (Ta - 35)) / (44 - Ea * HPA_TO_MMHG);
}

/// Index 157, skin temperature [°C], Blazejczyk (2005).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
template <class Real>
Real Index_157(Real Ta, Real Tmrt, Real RH, Real WS)
{
    // The truth of an equality, -1 or 0, stands for the resistance. *Deliberate*: it is 0 wherever c
    // is not set anew by the temperature.
    const Real c = Real(1.691) == 0.0436 * Ta ? -1 : 0;
    return detail::skinTemperature(Ta, Tmrt, RH, WS, c);
}

/// Index 158, skin wettedness [-], Blazejczyk (2005): 1 above a skin temperature of 36.5 °C, 0.001
/// below 22 °C. Its skin temperature takes the clothing's resistance, where index 157 does not.
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s]. Fails at a skin temperature of 37.5 °C.
// Differs from index 157 in that c is a difference where that has an equality.
template <class Real>
Real Index_158(Real Ta, Real Tmrt, Real RH, Real WS)
{
    const Real c = 1.691 - 0.0436 * Ta;
    const Real Ts = detail::skinTemperature(Ta, Tmrt, RH, WS, c);
    // The quotient is always computed, so 37.5 fails although the result above 36.5 is 1. *Deliberate.*
    const Real quotient = (1.031 / (37.5 - Ts)) - 0.065;
    Real wettedness = quotient;
    if (Ts > 36.5)
        wettedness = 1;
    if (Ts < 22)
        wettedness = 0.001;
    return mustBeDefined(quotient, wettedness);
}

} // namespace comfortics::formulas
