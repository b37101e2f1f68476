// SPDX-License-Identifier: GPL-3.0-or-later
//
// Ta    air temperature [°C]                  RH  relative humidity [%]
// Tg    globe temperature [°C]                WS  wind speed as measured [m/s]
// Tmrt  mean radiant temperature [°C]         SR  solar radiation [W/m²]
// Tnwb  natural wet-bulb temperature [°C]     Ea  actual vapour pressure [hPa]
// Td    dew point [°C]                        W   outdoor wet-bulb globe temperature [°C]
#include "formulas/comfort_votes.h"

#include "formulas/primitives.h"

namespace comfortics::formulas {

using values::exponential;
using values::logarithm;
using values::power;
using values::squareRoot;

namespace {

/// The Givoni thermal sensation of people acclimatised to the temperature A [°C].
Number acclimatisedSensation(Number A, Number Ta, Number SR, Number WS)
{
    return (((1.83 - 0.05 * A) + 0.135 * Ta) + ((0.00195 * SR) - 0.6)) - logarithm(WS) * 0.4915;
}

} // namespace

Variant Index_001(Number Ta, Number Ea)
{
    return (67.6 - 0.25 * ((5 * Ta) + 2.66 * Ea)) / 0.18;
}

// Near twin of 3: other coefficients, and the humidity is taken away.
Variant Index_002(Number Ta, Number SR, Number WS, Number RH)
{
    return ((((0.034 * Ta) + 0.0001 * SR) - 0.086 * WS) - 0.001 * RH) - 0.412;
}

// Near twin of 2: other coefficients, and the humidity is added.
Variant Index_003(Number Ta, Number SR, Number WS, Number RH)
{
    return ((((0.049 * Ta) + 0.001 * SR) - 0.051 * WS) + 0.014 * RH) - 2.079;
}

Variant Index_004(Number Ta, Number Tg, Number WS, Number RH)
{
    return ((((0.061 * Ta) + 0.091 * (Tg - Ta)) - 0.324 * WS) + 0.003 * RH) - 1.455;
}

Variant Index_025(Number Ta, Number Tmrt, Number Ea, Number WS)
{
    const Number F = To_Fahrenheit(Ta);
    const Number R = To_Fahrenheit(Tmrt);
    const Number e = Ea * HPA_TO_MMHG;
    const Number v = WS * MS_TO_FTMIN;
    return (((11.16 - 0.0556 * F) - 0.0538 * R) - 0.0372 * e) + (squareRoot(v) * 0.00144) * (100 - F);
}

Variant Index_096(Number Ta, Number RH, Number WS)
{
    return (Ta * RH) / squareRoot(WS);
}

// As 96, but 0.7 Ta + 0.3 Tg stands for the air temperature.
Variant Index_097(Number Ta, Number Tg, Number RH, Number WS)
{
    return (((0.7 * Ta) + 0.3 * Tg) * RH) / squareRoot(WS);
}

Variant Index_098(Number Ta, Number Tmrt, Number RH, Number WS)
{
    const Number s = Index_189(Ta, Tmrt, RH, WS).number();
    return (s + 4.8689) / 0.2107;
}

Variant Index_102(Number WS, Number RH, Number Tmrt, Number Ta)
{
    // Deliberate: the truth of the equation, -1 where it holds exactly, not a difference.
    Number c = Number(1.691) == 0.0436 * Ta ? -1 : 0;
    if (Ta < -30)
        c = 3;
    if (Ta > 25)
        c = 0.6;
    return (((((-4.068) - 0.272 * WS) + 0.005 * RH) + 0.083 * Tmrt) + 0.058 * Ta) + 0.264 * c;
}

Variant Index_129(Number Ta, Number WS, Number SR, Number RH)
{
    const Number x = ((((exponential((17.56 * Ta) / (Ta + 243.5)) * 6.112) * RH) * 2.1674) /
                      (((273.15 + Ta) * 1.204) * power(10, 3))) *
                     1000;
    return ((((0.1895 * Ta) - 0.7754 * WS) + 0.0028 * SR) + 0.1953 * x) - 8.23;
}

Variant Index_139(Number Ta, Number Tnwb, Number WS)
{
    return (((1.53 * Ta) - 0.32 * Tnwb) - 1.38 * WS) + 44.65;
}

Variant Index_177(Number Ta, Number SR, Number WS)
{
    return ((1.2 + 0.1115 * Ta) + 0.0019 * SR) - 0.3185 * WS;
}

Variant Index_178(const Assumptions& assumptions, Number WS, Number Ta, Number Tg, Number RH)
{
    return (((((-7.91) - 0.52 * WS) + 0.05 * Ta) + 0.17 * Tg) - 0.0007 * RH) +
           1.43 * Body_Surface_Area(assumptions);
}

Variant Index_183(Number Ta, Number SR, Number WS)
{
    return acclimatisedSensation(20, Ta, SR, WS);
}

Variant Index_184(Number Ta, Number SR, Number WS)
{
    return acclimatisedSensation(30, Ta, SR, WS);
}

Variant Index_185(Number Ta, Number SR, Number WS)
{
    return acclimatisedSensation(40, Ta, SR, WS);
}

// Near twin of 187: the vapour pressure is that at the dew point after Hardy, with 0.033 and 6.471.
Variant Index_186(Number Ta, Number Td)
{
    return ((0.245 * Ta) + 0.033 * Saturation_Pressure_Hardy(Td)) - 6.471;
}

// Near twin of 186: the vapour pressure enters in kPa, with 0.248 and 6.475.
Variant Index_187(Number Ta, Number Ea)
{
    return ((0.245 * Ta) + 0.248 * (Ea / 10)) - 6.475;
}

Variant Index_188(Number Ta, Number Tmrt, Number RH, Number WS)
{
    return ((((-3.557) + 0.0632 * Ta) + 0.0677 * Tmrt) + 0.0105 * RH) - 0.304 * WS;
}

Variant Index_189(Number Ta, Number Tmrt, Number RH, Number WS)
{
    const Number m = (Ta + Tmrt) / 2;
    return (((0.219 * m) + 0.012 * RH) - 0.547 * WS) - 5.83;
}

Variant Index_190(Number W)
{
    return 0.134 * ((W - 11.76) / 0.405) - 3.208;
}

// As 190, but 0.082 and 2.928.
Variant Index_191(Number W)
{
    return 0.082 * ((W - 11.76) / 0.405) - 2.928;
}

Variant Index_192(Number Tg, Number Ea, Number WS)
{
    const Number e = Ea * HPA_TO_MMHG;
    return (((0.214 * Tg) + 0.031 * e) - 0.545 * power(WS, 0.5)) - 2.85;
}

// As 192, but with the four coefficients of Roorkee.
Variant Index_193(Number Tg, Number Ea, Number WS)
{
    const Number e = Ea * HPA_TO_MMHG;
    return (((0.186 * Tg) + 0.032 * e) - 0.366 * power(WS, 0.5)) - 0.82;
}

} // namespace comfortics::formulas
