// SPDX-License-Identifier: GPL-3.0-or-later
//
// Comfort votes and sensation scales: regressions of survey votes on the readings. Every formula
// fails (RunFailure) where a step has no defined result; each has a value otherwise.
//
// Ta    air temperature [°C]                  RH  relative humidity [%]
// Tg    globe temperature [°C]                WS  wind speed as measured [m/s]
// Tmrt  mean radiant temperature [°C]         SR  solar radiation [W/m²]
// Tnwb  natural wet-bulb temperature [°C]     Ea  actual vapour pressure [hPa]
// Td    dew point [°C]                        W   outdoor wet-bulb globe temperature [°C]
#pragma once

#include "formulas/assumptions.h"
#include "formulas/primitives.h"
#include "formulas/real.h"

namespace comfortics::formulas {

namespace detail {

/// The Givoni thermal sensation of people acclimatised to the temperature A [°C].
template <class Real>
Real acclimatisedSensation(double A, Real Ta, Real SR, Real WS)
{
    return (((1.83 - 0.05 * A) + 0.135 * Ta) + ((0.00195 * SR) - 0.6)) - logarithm(WS) * 0.4915;
}

} // namespace detail

/// Index 1, accepted level of physical activity [W/m²], Blazejczyk (2010).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
template <class Real>
Real Index_001(Real Ta, Real Ea)
{
    return (67.6 - 0.25 * ((5 * Ta) + 2.66 * Ea)) / 0.18;
}

/// Index 2, actual sensation vote [-], Nikolopoulou (2004).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s], RH relative humidity [%].
// Near twin of 3: other coefficients, and the humidity is taken away.
template <class Real>
Real Index_002(Real Ta, Real SR, Real WS, Real RH)
{
    return ((((0.034 * Ta) + 0.0001 * SR) - 0.086 * WS) - 0.001 * RH) - 0.412;
}

/// Index 3, actual sensation vote for Europe [-], Nikolopoulou (2004).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s], RH relative humidity [%].
// Near twin of 2: other coefficients, and the humidity is added.
template <class Real>
Real Index_003(Real Ta, Real SR, Real WS, Real RH)
{
    return ((((0.049 * Ta) + 0.001 * SR) - 0.051 * WS) + 0.014 * RH) - 2.079;
}

/// Index 4, actual sensation vote [-], Nikolopoulou (2003).
/// Ta air temperature [°C], Tg globe temperature [°C], WS wind speed [m/s], RH relative humidity [%].
template <class Real>
Real Index_004(Real Ta, Real Tg, Real WS, Real RH)
{
    return ((((0.061 * Ta) + 0.091 * (Tg - Ta)) - 0.324 * WS) + 0.003 * RH) - 1.455;
}

/// Index 25, comfort vote [-], Bedford (1936).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], Ea vapour pressure [hPa], WS wind
/// speed [m/s].
template <class Real>
Real Index_025(Real Ta, Real Tmrt, Real Ea, Real WS)
{
    const Real F = To_Fahrenheit(Ta);
    const Real R = To_Fahrenheit(Tmrt);
    const Real e = Ea * HPA_TO_MMHG;
    const Real v = WS * MS_TO_FTMIN;
    return (((11.16 - 0.0556 * F) - 0.0538 * R) - 0.0372 * e) + (squareRoot(v) * 0.00144) * (100 - F);
}

/// Index 96, integrated index indoors [-], Junge (2016).
/// Ta air temperature [°C], RH relative humidity [%], WS wind speed [m/s]. Fails in still air.
template <class Real>
Real Index_096(Real Ta, Real RH, Real WS)
{
    return (Ta * RH) / squareRoot(WS);
}

/// Index 97, integrated index outdoors [-], Junge (2016).
/// Ta air temperature [°C], Tg globe temperature [°C], RH relative humidity [%], WS wind speed [m/s].
/// Fails in still air.
// As 96, but 0.7 Ta + 0.3 Tg stands for the air temperature.
template <class Real>
Real Index_097(Real Ta, Real Tg, Real RH, Real WS)
{
    return (((0.7 * Ta) + 0.3 * Tg) * RH) / squareRoot(WS);
}

template <class Real>
Real Index_189(Real Ta, Real Tmrt, Real RH, Real WS); // below, where it is explained

/// Index 98, internal comfort temperature [°C], Xavier (2000).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
template <class Real>
Real Index_098(Real Ta, Real Tmrt, Real RH, Real WS)
{
    const Real s = Index_189(Ta, Tmrt, RH, WS);
    return (s + 4.8689) / 0.2107;
}

/// Index 102, Mediterranean outdoor comfort index [-], Salata (2016).
/// WS wind speed [m/s], RH relative humidity [%], Tmrt mean radiant temperature [°C], Ta air
/// temperature [°C].
template <class Real>
Real Index_102(Real WS, Real RH, Real Tmrt, Real Ta)
{
    // Deliberate: the truth of the equation, -1 where it holds exactly, not a difference.
    Real c = Real(1.691) == 0.0436 * Ta ? -1 : 0;
    if (Ta < -30)
        c = 3;
    if (Ta > 25)
        c = 0.6;
    return (((((-4.068) - 0.272 * WS) + 0.005 * RH) + 0.083 * Tmrt) + 0.058 * Ta) + 0.264 * c;
}

/// Index 129, predicted thermal sensation vote [-], Cheng (2008).
/// Ta air temperature [°C], WS wind speed [m/s], SR solar radiation [W/m²], RH relative humidity [%].
/// Fails at -243.5 °C and -273.15 °C.
template <class Real>
Real Index_129(Real Ta, Real WS, Real SR, Real RH)
{
    const Real x = ((((exponential((17.56 * Ta) / (Ta + 243.5)) * 6.112) * RH) * 2.1674) /
                    (((273.15 + Ta) * 1.204) * power(10, 3))) *
                   1000;
    return ((((0.1895 * Ta) - 0.7754 * WS) + 0.0028 * SR) + 0.1953 * x) - 8.23;
}

/// Index 139, Robaa's index [-], Robaa (2003).
/// Ta air temperature [°C], Tnwb natural wet-bulb temperature [°C], WS wind speed [m/s].
template <class Real>
Real Index_139(Real Ta, Real Tnwb, Real WS)
{
    return (((1.53 * Ta) - 0.32 * Tnwb) - 1.38 * WS) + 44.65;
}

/// Index 177, thermal comfort [-], Givoni (2000).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s].
template <class Real>
Real Index_177(Real Ta, Real SR, Real WS)
{
    return ((1.2 + 0.1115 * Ta) + 0.0019 * SR) - 0.3185 * WS;
}

/// Index 178, thermal comfort in humid tropical surroundings [-], Sangkertadi (2014).
/// WS wind speed [m/s], Ta air temperature [°C], Tg globe temperature [°C], RH relative humidity [%].
/// Fails on a negative body height or mass.
template <class Real>
Real Index_178(const AssumptionsOf<Real>& assumptions, Real WS, Real Ta, Real Tg, Real RH)
{
    return (((((-7.91) - 0.52 * WS) + 0.05 * Ta) + 0.17 * Tg) - 0.0007 * RH) +
           1.43 * Body_Surface_Area(assumptions);
}

/// Indices 183 to 185, thermal sensation [-] of people acclimatised to 20, 30 and 40 °C, Givoni (2004).
/// Ta air temperature [°C], SR solar radiation [W/m²], WS wind speed [m/s]. Fail unless WS > 0.
/// Index 183: 20 °C.
template <class Real>
Real Index_183(Real Ta, Real SR, Real WS)
{
    return detail::acclimatisedSensation(20, Ta, SR, WS);
}

/// Index 184: 30 °C.
template <class Real>
Real Index_184(Real Ta, Real SR, Real WS)
{
    return detail::acclimatisedSensation(30, Ta, SR, WS);
}

/// Index 185: 40 °C.
template <class Real>
Real Index_185(Real Ta, Real SR, Real WS)
{
    return detail::acclimatisedSensation(40, Ta, SR, WS);
}

/// Index 186, thermal sensation from the dew point [-], Rohles (1971).
/// Ta air temperature [°C], Td dew point [°C].
// Near twin of 187: the vapour pressure is that at the dew point after Hardy, with 0.033 and 6.471.
template <class Real>
Real Index_186(Real Ta, Real Td)
{
    return ((0.245 * Ta) + 0.033 * Saturation_Pressure_Hardy(Td)) - 6.471;
}

/// Index 187, thermal sensation from the vapour pressure [-], Rohles (1971).
/// Ta air temperature [°C], Ea vapour pressure [hPa].
// Near twin of 186: the vapour pressure enters in kPa, with 0.248 and 6.475.
template <class Real>
Real Index_187(Real Ta, Real Ea)
{
    return ((0.245 * Ta) + 0.248 * (Ea / 10)) - 6.475;
}

/// Index 188, thermal sensation in subtropical surroundings [-], Monteiro (2010).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
template <class Real>
Real Index_188(Real Ta, Real Tmrt, Real RH, Real WS)
{
    return ((((-3.557) + 0.0632 * Ta) + 0.0677 * Tmrt) + 0.0105 * RH) - 0.304 * WS;
}

/// Index 189, thermal sensation index [-], Xavier (2000).
/// Ta air temperature [°C], Tmrt mean radiant temperature [°C], RH relative humidity [%], WS wind
/// speed [m/s].
template <class Real>
Real Index_189(Real Ta, Real Tmrt, Real RH, Real WS)
{
    const Real m = (Ta + Tmrt) / 2;
    return (((0.219 * m) + 0.012 * RH) - 0.547 * WS) - 5.83;
}

/// Index 190, thermal sensation vote in summer [-], Yahia (2013).
/// W outdoor wet-bulb globe temperature [°C].
template <class Real>
Real Index_190(Real W)
{
    return 0.134 * ((W - 11.76) / 0.405) - 3.208;
}

/// Index 191, thermal sensation vote in winter [-], Yahia (2013).
/// W outdoor wet-bulb globe temperature [°C].
// As 190, but 0.082 and 2.928.
template <class Real>
Real Index_191(Real W)
{
    return 0.082 * ((W - 11.76) / 0.405) - 2.928;
}

/// Index 192, TPV index of Baghdad [-], Nicol (1975): a thermal vote fitted to hot dry weather.
/// Tg globe temperature [°C], Ea vapour pressure [hPa], WS wind speed [m/s].
template <class Real>
Real Index_192(Real Tg, Real Ea, Real WS)
{
    const Real e = Ea * HPA_TO_MMHG;
    return (((0.214 * Tg) + 0.031 * e) - 0.545 * power(WS, 0.5)) - 2.85;
}

/// Index 193, TPV index of Roorkee [-], Nicol (1975): as 192.
/// Tg globe temperature [°C], Ea vapour pressure [hPa], WS wind speed [m/s].
// As 192, but with the four coefficients of Roorkee.
template <class Real>
Real Index_193(Real Tg, Real Ea, Real WS)
{
    const Real e = Ea * HPA_TO_MMHG;
    return (((0.186 * Tg) + 0.032 * e) - 0.366 * power(WS, 0.5)) - 0.82;
}

} // namespace comfortics::formulas
