// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/primitives.h"

#include "values/number_text.h"

namespace comfortics::formulas {

using values::exponential;
using values::logarithm;
using values::power;

Number Vapor_Pressure_Magnus(Number t)
{
    return 6.11 * power(10, (7.5 * t) / (237.3 + t));
}

Number Saturation_Pressure_Hardy(Number t)
{
    const Number T = t + 273.15;
    return exponential(2.7150305 * logarithm(T) - 2836.5744 * power(T, -2) - 6028.076559 / T + 19.54263612 -
                       0.02737830188 * T + 1.6261698e-05 * power(T, 2) + 7.0229056e-10 * power(T, 3) -
                       1.8680009e-13 * power(T, 4)) *
           0.01;
}

Number Dew_Point_Magnus(Captions& captions, Number t, Number rh)
{
    const Number g = logarithm(rh / 100) / 17.27 + t / (237.3 + t);
    const Number Td = (237.3 * g) / (1 - g);
    captions.writeCaption(Live::Td, values::format(Td.value(), values::kFormat00_00000));
    return Td;
}

Number Relative_Humidity_Magnus(Captions& captions, Number t, Number td)
{
    const Number RH = exponential((17.27 * td) / (237.7 + td) - (17.27 * t) / (237.7 + t)) * 100;
    captions.writeCaption(Live::RH, values::format(RH.value(), values::kFormat00_00000));
    return RH;
}

Number Saturation_Pressure_Buck(Number T)
{
    return 1.004 * (exponential((17.502 * (T - 273.15)) / (T - 32.18)) * 6.1121);
}

Number Wind_At_10m(const Assumptions& assumptions, Number v)
{
    return v / power(1.1 / 10, assumptions.Friction);
}

Number Wind_At_2m(const Assumptions& assumptions, Number v)
{
    return v / power(1.1 / 2, assumptions.Friction);
}

Number Body_Surface_Area(const Assumptions& assumptions)
{
    return (0.202 * power(assumptions.Height, 0.725)) * power(assumptions.Weight, 0.425);
}

Number Mean_Skin_Temperature(Number t)
{
    return (24.85 + 0.322 * t) - 0.00165 * power(t, 2);
}

Number Radiative_Coefficient(const Assumptions& assumptions, Number m)
{
    return (((4 * assumptions.Emissivity) * (power(10, -8) * 5.67)) * assumptions.ArAdu) *
           power(273.2 + m, 3);
}

Number To_Fahrenheit(Number t)
{
    return (t * (9.0 / 5)) + 32;
}

Number To_Celsius(Number f)
{
    return (f - 32) * (5.0 / 9);
}

} // namespace comfortics::formulas
