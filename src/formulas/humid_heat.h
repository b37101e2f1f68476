// SPDX-License-Identifier: GPL-3.0-or-later
//
// Indices that join air temperature and humidity into one value of heat or discomfort.
//
// Ta air, Td dew point, Tg globe, Tnwb natural wet-bulb temperature [°C]; RH relative humidity [%];
// Ea vapour pressure [hPa]; WS wind speed [m/s]. Results in the unit in brackets. Nothing is clamped;
// an operation without a defined result throws values::RunFailure.
//
// Symbols
//   Ta    air temperature [°C]              RH   relative humidity [%]
//   Td    dew point [°C]                    Ea   vapour pressure [hPa]
//   Tg    globe temperature [°C]            WS   wind speed as measured [m/s]
//   Tnwb  natural wet-bulb temperature [°C]
//   f     air temperature [°F]              H    heat index [°F]
#pragma once

#include "formulas/assumptions.h"
#include "formulas/primitives.h"
#include "formulas/real.h"

#include <array>
#include <cstddef>

namespace comfortics::formulas {

namespace detail {

/// The regression of Rothfusz (1990) [°F]: f air temperature [°F], R relative humidity [%].
template <class Real>
Real rothfuszPolynomial(Real f, Real R)
{
    return (((((((-42.379 + 2.04901523 * f) + 10.14333127 * R) - (0.22475541 * f) * R) -
               (0.00683783 * f) * f) -
              (0.05481717 * R) * R) +
             ((0.00122874 * f) * f) * R) +
            ((0.00085282 * f) * R) * R) -
           (((1.99e-06 * f) * f) * R) * R;
}

inline constexpr int kFirstHumiseryStep = 21; ///< dew point [°C]
inline constexpr int kLastHumiseryStep = 31;

/// Whether Weiss's table has a step for the dew point.
template <class Real>
bool hasHumiseryStep(Real Td)
{
    const Real rounded = roundHalfEven(Td);
    return Td <= 20 || (rounded >= kFirstHumiseryStep && rounded <= kLastHumiseryStep);
}

/// What a dew point that has a step adds to the air temperature.
template <class Real>
Real humiseryDewPointStep(Real Td)
{
    // From the first to the last. The irregular steps are deliberate.
    constexpr std::array<int, 11> kSteps{1, 3, 4, 6, 7, 9, 11, 13, 14, 16, 18};

    if (Td <= 20)
        return 0;
    return kSteps[static_cast<std::size_t>(asDouble(roundHalfEven(Td))) - kFirstHumiseryStep];
}

/// What the wind adds; also nothing where it rounds to 0 or below.
template <class Real>
Real humiseryWindStep(Real WS)
{
    const Real rounded = roundHalfEven(WS);
    if (rounded == 3)
        return -2;
    if (rounded == 4)
        return -3;
    if (rounded >= 5)
        return -4;
    return 0;
}

} // namespace detail

/// Index 53, discomfort index [-] on the Fahrenheit scale, Thom (1959), first equation.
template <class Real>
Real Index_053(Real Tnwb, Real Ta)
{
    return (0.4 * To_Fahrenheit(Tnwb) + 0.4 * To_Fahrenheit(Ta)) + 8.3;
}

/// Index 54, discomfort index [-] on the Fahrenheit scale, Thom (1959), second equation: one bracket
/// around both temperatures and 15 for the 8.3 of index 53.
template <class Real>
Real Index_054(Real Ta, Real Tnwb)
{
    return 0.4 * (To_Fahrenheit(Ta) + To_Fahrenheit(Tnwb)) + 15;
}

/// Index 55, discomfort index [°C], Giles (1990).
template <class Real>
Real Index_055(Real Ta, Real RH)
{
    return Ta - (0.55 * (1 - 0.01 * RH)) * (Ta - 14.5);
}

/// Index 56, discomfort index [-], Kawamura (1965).
template <class Real>
Real Index_056(Real Ta, Real Td)
{
    return (0.99 * Ta + 0.36 * Td) + 41.5;
}

/// Index 57, discomfort index [°C], Tennenbaum (1961).
template <class Real>
Real Index_057(Real Ta, Real Tnwb)
{
    return (Ta + Tnwb) / 2;
}

/// Index 58, discomfort index [-], Weather Services of South Africa (obtained 2018).
template <class Real>
Real Index_058(Real Ta, Real RH)
{
    return (2 * Ta + (RH / 100) * Ta) + 24;
}

/// Index 85, heat index [°C] in degrees Celsius throughout, Blazejczyk (2012). No value at Ta 20 and below.
template <class Real>
Result<Real> Index_085(Real Ta, Real RH)
{
    if (!(Ta > 20))
        return none<Real>();
    return (((((((-8.784695 + 1.61139411 * Ta) + 2.338549 * RH) - (0.14611605 * Ta) * RH) -
               (kTenToMinus2 * 1.2308094) * power(Ta, 2)) -
              (kTenToMinus2 * 1.6424828) * power(RH, 2)) +
             ((kTenToMinus3 * 2.211732) * power(Ta, 2)) * RH) +
            ((kTenToMinus4 * 7.2546) * Ta) * power(RH, 2)) -
           ((kTenToMinus6 * 3.582) * power(Ta, 2)) * power(RH, 2);
}

/// Index 86, heat index [°C] with the adjustments for cool, dry and humid air, National Oceanic and
/// Atmospheric Administration (last modified 2014).
template <class Real>
Real Index_086(Real Ta, Real RH)
{
    const Real f = To_Fahrenheit(Ta);
    Real H;
    if (f <= 40)
        H = f;
    else if (f < 80)
        H = 0.5 * (((f + 61) + (f - 68) * 1.2) + RH * 0.094);
    else if (RH <= 13 && f <= 112)
        H = detail::rothfuszPolynomial(f, RH) - ((13 - RH) / 4) * squareRoot((17 - absolute(f - 95)) / 17);
    else if (RH > 85 && f <= 87)
        H = detail::rothfuszPolynomial(f, RH) + ((RH - 85) / 10) * ((87 - f) / 5);
    else
        H = detail::rothfuszPolynomial(f, RH);
    return To_Celsius(H);
}

/// Index 87, heat index [°C] with rounded coefficients, Patricola (2010). The air temperature itself
/// at 80 °F and below and at RH 40 and below.
// The rounded coefficients of index 88, the products in brackets of their own, and a cut-off.
template <class Real>
Real Index_087(Real Ta, Real RH)
{
    const Real f = To_Fahrenheit(Ta);
    const Real regression =
        (((((((-42.4 + 2.05 * f) + 10.1 * RH) - 0.225 * (f * RH)) - (kTenToMinus3 * 6.84) * power(f, 2)) -
           (kTenToMinus2 * 5.48) * power(RH, 2)) +
          (kTenToMinus3 * 1.23) * (power(f, 2) * RH)) +
         (kTenToMinus4 * 8.53) * (f * power(RH, 2))) -
        (kTenToMinus6 * 1.99) * (power(f, 2) * power(RH, 2));
    const Real H = f <= 80 || RH <= 40 ? f : regression;
    return To_Celsius(mustBeDefined(regression, H));
}

/// Index 88, heat index [°C], the plain regression of Rothfusz (1990).
// Index 86 without its branches.
template <class Real>
Real Index_088(Real Ta, Real RH)
{
    return To_Celsius(detail::rothfuszPolynomial(To_Fahrenheit(Ta), RH));
}

/// Index 89, heat index [°C], the sixteen-term regression of Stull (2000).
template <class Real>
Real Index_089(Real Ta, Real RH)
{
    const Real f = To_Fahrenheit(Ta);
    Real S = 16.923;
    S = S + (kTenToMinus1 * 1.85212) * f;
    S = S + 5.37941 * RH;
    S = S - (kTenToMinus1 * 1.00254) * f * RH;
    S = S + (kTenToMinus3 * 9.41695) * power(f, 2);
    S = S + (kTenToMinus3 * 7.28898) * power(RH, 2);
    S = S + (kTenToMinus4 * 3.45372) * power(f, 2) * RH;
    S = S - (kTenToMinus4 * 8.14971) * f * power(RH, 2);
    S = S + (kTenToMinus5 * 1.02102) * power(f, 2) * power(RH, 2);
    S = S - (kTenToMinus5 * 3.8646) * power(f, 3);
    S = S + (kTenToMinus5 * 2.91583) * power(RH, 3);
    S = S + (kTenToMinus6 * 1.42721) * power(f, 3) * RH;
    S = S + (kTenToMinus7 * 1.97483) * f * power(RH, 3);
    S = S - (kTenToMinus8 * 2.18429) * power(f, 3) * power(RH, 2);
    S = S + (kTenToMinus10 * 8.43296) * power(f, 2) * power(RH, 3);
    S = S - (kTenToMinus11 * 4.81975) * power(f, 3) * power(RH, 3);
    return To_Celsius(S);
}

/// Index 90, humidex [°C], Masterson (1979). Fails at Td -273.15.
template <class Real>
Real Index_090(Real Ta, Real Td)
{
    return Ta + ((exponential(5417.753 * (1 / 273.15 - 1 / (Td + 273.15))) * 6.11) - 10) * 0.5555;
}

/// Index 91, humisery [°C], the table of Weiss (1982): steps for dew point and wind added to Ta.
/// No value where the dew point has no step: above 20 yet rounding to 20, and rounding to 32 or more.
template <class Real>
Result<Real> Index_091(Real Ta, Real Td, Real WS)
{
    if (!detail::hasHumiseryStep(Td))
        return none<Real>();
    return (Ta + detail::humiseryDewPointStep(Td)) + detail::humiseryWindStep(WS);
}

/// Index 92, humiture [°C], Hevener (1959).
// The same mean as index 57.
template <class Real>
Real Index_092(Real Ta, Real Tnwb)
{
    return (Ta + Tnwb) / 2;
}

/// Index 93, humiture [°C], Lally (1960).
// The vapour pressure joins degrees Fahrenheit as hPa, deliberately with a factor of 1.
template <class Real>
Real Index_093(Real Ta, Real Ea)
{
    return To_Celsius(To_Fahrenheit(Ta) + (Ea * 1 - 10));
}

/// Index 94, humiture [°C], Weiss (1982).
template <class Real>
Real Index_094(Real Ta, Real Td)
{
    return (Ta + Td) - 18;
}

/// Index 104, modified discomfort index [°C], Moran (1998; the catalogue's name says 1988).
// The weights add up to 1.05: deliberate.
template <class Real>
Real Index_104(Real Tnwb, Real Ta)
{
    return 0.75 * Tnwb + 0.3 * Ta;
}

/// Index 115, Oxford index [-], Lind (1957).
template <class Real>
Real Index_115(Real Tnwb, Real Ta)
{
    return 0.85 * Tnwb + 0.15 * Ta;
}

/// Index 153, simplified tropical summer index [°C], Auliciems (2007). Fails at a negative WS.
template <class Real>
Real Index_153(Real Tnwb, Real Tg, Real WS)
{
    return ((1.0 / 3) * Tnwb + (3.0 / 4) * Tg) - (squareRoot(WS) + squareRoot(WS));
}

/// Index 162, sultriness index [Torr], Scharlau (1943).
// Deliberately not HPA_TO_MMHG, which has other digits from the sixth decimal on.
template <class Real>
Real Index_162(Real Ea)
{
    return Ea * 0.750061682704185;
}

/// Index 163, sultriness intensity [-], Aikimovich (1971). Jumps from 0 to 1 at Ea 18.8.
template <class Real>
Real Index_163(Real Ea)
{
    if (Ea < 18.8)
        return Real(0);
    if (Ea == 18.8)
        return Real(1);
    return (Ea - 18.8) / 2 + 1;
}

/// Index 164, summer Scharlau index [-], Scharlau (1950). Fails unless RH > 0.
template <class Real>
Real Index_164(Real Ta, Real RH)
{
    return (logarithm(RH) * (-17.089) + 94.979) - Ta;
}

/// Index 165, summer simmer index [°C], Pepi (1987).
// The bracket of index 168 under a scale of its own.
template <class Real>
Real Index_165(Real Ta, Real RH)
{
    const Real f = To_Fahrenheit(Ta);
    return To_Celsius(1.98 * (f - (0.55 - 0.55 * (RH / 100)) * (f - 58)) - 56.83);
}

/// Index 167, temperature humidity index [°C], Costanzo (2006).
// Index 55 with 0.001 for its 0.01: deliberate.
template <class Real>
Real Index_167(Real Ta, Real RH)
{
    return Ta - (0.55 * (1 - 0.001 * RH)) * (Ta - 14.5);
}

/// Index 168, temperature humidity index [°C], Pepi (1987), first equation.
// Index 170 with 0.55 * (RH / 100) for its 0.0055 * RH, and back to degrees Celsius.
template <class Real>
Real Index_168(Real Ta, Real RH)
{
    const Real f = To_Fahrenheit(Ta);
    return To_Celsius(f - (0.55 - 0.55 * (RH / 100)) * (f - 58));
}

/// Index 169, temperature humidity index [°C], Pepi (1987), second equation.
template <class Real>
Real Index_169(Real Ta, Real Td)
{
    return To_Celsius((0.55 * To_Fahrenheit(Ta) + 0.2 * To_Fahrenheit(Td)) + 17.5);
}

/// Index 170, temperature humidity index [-] on the Fahrenheit scale, Romanian National Institute of
/// Meteorology and Hydrology (2000).
// Index 168 with 0.0055 * RH for its 0.55 * (RH / 100), and deliberately left in degrees Fahrenheit.
template <class Real>
Real Index_170(Real Ta, Real RH)
{
    return (Ta * 1.8 + 32) - (0.55 - 0.0055 * RH) * ((Ta * 1.8 + 32) - 58);
}

/// Index 171, temperature humidity index [°C], Kyle (1994).
// Index 170 in degrees Celsius, with its base temperature of 58 °F as 14.5 °C.
template <class Real>
Real Index_171(Real Ta, Real RH)
{
    return Ta - (0.55 - 0.0055 * RH) * (Ta - 14.5);
}

/// Index 172, temperature humidity index [°C], Nieuwolt (1977).
template <class Real>
Real Index_172(Real Ta, Real RH)
{
    return 0.8 * Ta + (RH * Ta) / 500;
}

/// Index 173, temperature humidity index [°C], Schoen (2005).
template <class Real>
Real Index_173(Real Ta, Real Td)
{
    return Ta - (exponential(0.03755 * Ta) * 1.0799) * (1 - exponential(0.0801 * (Td - 14)));
}

/// Index 175, température résultante minière [°C], Vogt (1978).
template <class Real>
Real Index_175(Real Tnwb, Real Ta, Real WS)
{
    return (0.7 * Tnwb + 0.3 * Ta) - WS;
}

/// Index 176, temperature wind speed humidity index [kJ/kg], Zaninovic (1992). RH is passed and not
/// read. Fails at a negative WS and at `Barometric` 0.
template <class Real>
Real Index_176(const AssumptionsOf<Real>& assumptions, Real Ta, Real Tnwb, Real WS, Real /*RH*/)
{
    const Real c = 0.902 + 0.063 * power(WS, 1.072);
    const Real t1 = 36.5 - (c * (36.5 - Ta)) / 0.902;
    const Real t2 = 36.5 - (c * (36.5 - Tnwb)) / 0.902;
    return 1.004 * (t2 + (1555 / assumptions.Barometric) * Saturation_Pressure_Hardy(t1));
}

/// Index 194, tropical summer index [°C], Sharma (1986). Fails at a negative WS.
template <class Real>
Real Index_194(Real Tnwb, Real Tg, Real WS)
{
    return ((0.308 * Tnwb + 0.745 * Tg) - squareRoot(WS) * 2.06) + 0.841;
}

} // namespace comfortics::formulas
