// SPDX-License-Identifier: GPL-3.0-or-later
//
// Symbols
//   Ta    air temperature [°C]              RH   relative humidity [%]
//   Td    dew point [°C]                    Ea   vapour pressure [hPa]
//   Tg    globe temperature [°C]            WS   wind speed as measured [m/s]
//   Tnwb  natural wet-bulb temperature [°C]
//   f     air temperature [°F]              H    heat index [°F]
#include "formulas/humid_heat.h"

#include "formulas/primitives.h"

#include <array>
#include <cstddef>
#include <optional>

namespace comfortics::formulas {

using values::absolute;
using values::exponential;
using values::logarithm;
using values::power;
using values::roundHalfEven;
using values::squareRoot;

namespace {

/// The regression of Rothfusz (1990) [°F]: f air temperature [°F], R relative humidity [%].
Number rothfuszPolynomial(Number f, Number R)
{
    return (((((((-42.379 + 2.04901523 * f) + 10.14333127 * R) - (0.22475541 * f) * R) -
               (0.00683783 * f) * f) -
              (0.05481717 * R) * R) +
             ((0.00122874 * f) * f) * R) +
            ((0.00085282 * f) * R) * R) -
           (((1.99e-06 * f) * f) * R) * R;
}

/// What the dew point adds to the air temperature in Weiss's table; nothing where it has no step.
std::optional<Number> humiseryDewPointStep(Number Td)
{
    // For 21 to 31 °C. The irregular steps are deliberate.
    constexpr std::array<int, 11> kSteps{1, 3, 4, 6, 7, 9, 11, 13, 14, 16, 18};
    constexpr int kFirst = 21;
    constexpr int kLast = 31;

    if (Td <= 20)
        return 0;
    const Number rounded = roundHalfEven(Td);
    if (rounded < kFirst || rounded > kLast)
        return std::nullopt;
    return kSteps[static_cast<std::size_t>(rounded.value()) - kFirst];
}

/// What the wind adds; also nothing where it rounds to 0 or below.
Number humiseryWindStep(Number WS)
{
    const Number rounded = roundHalfEven(WS);
    if (rounded == 3)
        return -2;
    if (rounded == 4)
        return -3;
    if (rounded >= 5)
        return -4;
    return 0;
}

} // namespace

Variant Index_053(Number Tnwb, Number Ta)
{
    return (0.4 * To_Fahrenheit(Tnwb) + 0.4 * To_Fahrenheit(Ta)) + 8.3;
}

Variant Index_054(Number Ta, Number Tnwb)
{
    return 0.4 * (To_Fahrenheit(Ta) + To_Fahrenheit(Tnwb)) + 15;
}

Variant Index_055(Number Ta, Number RH)
{
    return Ta - (0.55 * (1 - 0.01 * RH)) * (Ta - 14.5);
}

Variant Index_056(Number Ta, Number Td)
{
    return (0.99 * Ta + 0.36 * Td) + 41.5;
}

Variant Index_057(Number Ta, Number Tnwb)
{
    return (Ta + Tnwb) / 2;
}

Variant Index_058(Number Ta, Number RH)
{
    return (2 * Ta + (RH / 100) * Ta) + 24;
}

Variant Index_085(Number Ta, Number RH)
{
    if (!(Ta > 20))
        return {};
    return (((((((-8.784695 + 1.61139411 * Ta) + 2.338549 * RH) - (0.14611605 * Ta) * RH) -
               (power(10, -2) * 1.2308094) * power(Ta, 2)) -
              (power(10, -2) * 1.6424828) * power(RH, 2)) +
             ((power(10, -3) * 2.211732) * power(Ta, 2)) * RH) +
            ((power(10, -4) * 7.2546) * Ta) * power(RH, 2)) -
           ((power(10, -6) * 3.582) * power(Ta, 2)) * power(RH, 2);
}

Variant Index_086(Number Ta, Number RH)
{
    const Number f = To_Fahrenheit(Ta);
    Number H;
    if (f <= 40)
        H = f;
    else if (f < 80)
        H = 0.5 * (((f + 61) + (f - 68) * 1.2) + RH * 0.094);
    else if (RH <= 13 && f <= 112)
        H = rothfuszPolynomial(f, RH) - ((13 - RH) / 4) * squareRoot((17 - absolute(f - 95)) / 17);
    else if (RH > 85 && f <= 87)
        H = rothfuszPolynomial(f, RH) + ((RH - 85) / 10) * ((87 - f) / 5);
    else
        H = rothfuszPolynomial(f, RH);
    return To_Celsius(H);
}

// The rounded coefficients of index 88, the products in brackets of their own, and a cut-off.
Variant Index_087(Number Ta, Number RH)
{
    const Number f = To_Fahrenheit(Ta);
    Number H =
        (((((((-42.4 + 2.05 * f) + 10.1 * RH) - 0.225 * (f * RH)) - (power(10, -3) * 6.84) * power(f, 2)) -
           (power(10, -2) * 5.48) * power(RH, 2)) +
          (power(10, -3) * 1.23) * (power(f, 2) * RH)) +
         (power(10, -4) * 8.53) * (f * power(RH, 2))) -
        (power(10, -6) * 1.99) * (power(f, 2) * power(RH, 2));
    if (f <= 80 || RH <= 40)
        H = f;
    return To_Celsius(H);
}

// Index 86 without its branches.
Variant Index_088(Number Ta, Number RH)
{
    return To_Celsius(rothfuszPolynomial(To_Fahrenheit(Ta), RH));
}

Variant Index_089(Number Ta, Number RH)
{
    const Number f = To_Fahrenheit(Ta);
    Number S = 16.923;
    S = S + (power(10, -1) * 1.85212) * f;
    S = S + 5.37941 * RH;
    S = S - (power(10, -1) * 1.00254) * f * RH;
    S = S + (power(10, -3) * 9.41695) * power(f, 2);
    S = S + (power(10, -3) * 7.28898) * power(RH, 2);
    S = S + (power(10, -4) * 3.45372) * power(f, 2) * RH;
    S = S - (power(10, -4) * 8.14971) * f * power(RH, 2);
    S = S + (power(10, -5) * 1.02102) * power(f, 2) * power(RH, 2);
    S = S - (power(10, -5) * 3.8646) * power(f, 3);
    S = S + (power(10, -5) * 2.91583) * power(RH, 3);
    S = S + (power(10, -6) * 1.42721) * power(f, 3) * RH;
    S = S + (power(10, -7) * 1.97483) * f * power(RH, 3);
    S = S - (power(10, -8) * 2.18429) * power(f, 3) * power(RH, 2);
    S = S + (power(10, -10) * 8.43296) * power(f, 2) * power(RH, 3);
    S = S - (power(10, -11) * 4.81975) * power(f, 3) * power(RH, 3);
    return To_Celsius(S);
}

Variant Index_090(Number Ta, Number Td)
{
    return Ta + ((exponential(5417.753 * (1 / 273.15 - 1 / (Td + 273.15))) * 6.11) - 10) * 0.5555;
}

Variant Index_091(Number Ta, Number Td, Number WS)
{
    const std::optional<Number> dewPointStep = humiseryDewPointStep(Td);
    if (!dewPointStep)
        return {};
    return (Ta + *dewPointStep) + humiseryWindStep(WS);
}

// The same mean as index 57.
Variant Index_092(Number Ta, Number Tnwb)
{
    return (Ta + Tnwb) / 2;
}

// The vapour pressure joins degrees Fahrenheit as hPa, deliberately with a factor of 1.
Variant Index_093(Number Ta, Number Ea)
{
    return To_Celsius(To_Fahrenheit(Ta) + (Ea * 1 - 10));
}

Variant Index_094(Number Ta, Number Td)
{
    return (Ta + Td) - 18;
}

// The weights add up to 1.05: deliberate.
Variant Index_104(Number Tnwb, Number Ta)
{
    return 0.75 * Tnwb + 0.3 * Ta;
}

Variant Index_115(Number Tnwb, Number Ta)
{
    return 0.85 * Tnwb + 0.15 * Ta;
}

Variant Index_153(Number Tnwb, Number Tg, Number WS)
{
    return ((1.0 / 3) * Tnwb + (3.0 / 4) * Tg) - (squareRoot(WS) + squareRoot(WS));
}

// Deliberately not HPA_TO_MMHG, which has other digits from the sixth decimal on.
Variant Index_162(Number Ea)
{
    return Ea * 0.750061682704185;
}

Variant Index_163(Number Ea)
{
    if (Ea < 18.8)
        return Number(0);
    if (Ea == 18.8)
        return Number(1);
    return (Ea - 18.8) / 2 + 1;
}

Variant Index_164(Number Ta, Number RH)
{
    return (logarithm(RH) * (-17.089) + 94.979) - Ta;
}

// The bracket of index 168 under a scale of its own.
Variant Index_165(Number Ta, Number RH)
{
    const Number f = To_Fahrenheit(Ta);
    return To_Celsius(1.98 * (f - (0.55 - 0.55 * (RH / 100)) * (f - 58)) - 56.83);
}

// Index 55 with 0.001 for its 0.01: deliberate.
Variant Index_167(Number Ta, Number RH)
{
    return Ta - (0.55 * (1 - 0.001 * RH)) * (Ta - 14.5);
}

// Index 170 with 0.55 * (RH / 100) for its 0.0055 * RH, and back to degrees Celsius.
Variant Index_168(Number Ta, Number RH)
{
    const Number f = To_Fahrenheit(Ta);
    return To_Celsius(f - (0.55 - 0.55 * (RH / 100)) * (f - 58));
}

Variant Index_169(Number Ta, Number Td)
{
    return To_Celsius((0.55 * To_Fahrenheit(Ta) + 0.2 * To_Fahrenheit(Td)) + 17.5);
}

// Index 168 with 0.0055 * RH for its 0.55 * (RH / 100), and deliberately left in degrees Fahrenheit.
Variant Index_170(Number Ta, Number RH)
{
    return (Ta * 1.8 + 32) - (0.55 - 0.0055 * RH) * ((Ta * 1.8 + 32) - 58);
}

// Index 170 in degrees Celsius, with its base temperature of 58 °F as 14.5 °C.
Variant Index_171(Number Ta, Number RH)
{
    return Ta - (0.55 - 0.0055 * RH) * (Ta - 14.5);
}

Variant Index_172(Number Ta, Number RH)
{
    return 0.8 * Ta + (RH * Ta) / 500;
}

Variant Index_173(Number Ta, Number Td)
{
    return Ta - (exponential(0.03755 * Ta) * 1.0799) * (1 - exponential(0.0801 * (Td - 14)));
}

Variant Index_175(Number Tnwb, Number Ta, Number WS)
{
    return (0.7 * Tnwb + 0.3 * Ta) - WS;
}

Variant Index_176(const Assumptions& assumptions, Number Ta, Number Tnwb, Number WS, Number /*RH*/)
{
    const Number c = 0.902 + 0.063 * power(WS, 1.072);
    const Number t1 = 36.5 - (c * (36.5 - Ta)) / 0.902;
    const Number t2 = 36.5 - (c * (36.5 - Tnwb)) / 0.902;
    return 1.004 * (t2 + (1555 / assumptions.Barometric) * Saturation_Pressure_Hardy(t1));
}

Variant Index_194(Number Tnwb, Number Tg, Number WS)
{
    return ((0.308 * Tnwb + 0.745 * Tg) - squareRoot(WS) * 2.06) + 0.841;
}

} // namespace comfortics::formulas
