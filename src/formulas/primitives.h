// SPDX-License-Identifier: GPL-3.0-or-later
//
// The small physical functions that indices and models share.
// Temperatures in degrees Celsius unless stated, pressures in hPa, winds in m/s.
#pragma once

#include "formulas/assumptions.h"
#include "formulas/real.h"

#include <cmath>

namespace comfortics::formulas {

/// hPa to mmHg.
inline constexpr double HPA_TO_MMHG = 0.75006375541921;
/// W/m² to cal/cm²/min.
inline constexpr double WM2_TO_CALCM2MIN = 0.00143403442;
/// m/s to ft/min.
inline constexpr double MS_TO_FTMIN = 196.850393700787;

/// Vapour pressure [hPa] over water at t [°C], Magnus form (Murray, 1967). Fails at t = -237.3.
template <class Real>
Real Vapor_Pressure_Magnus(Real t)
{
    return 6.11 * power(10, (7.5 * t) / (237.3 + t));
}

/// Dew point [°C] at which Vapor_Pressure_Magnus has a pressure above 0 [hPa]: its inverse. NaN or infinite
/// elsewhere.
inline double dewPointOfPressure(double pressure)
{
    const double power = std::log10(pressure / 6.11);
    return 237.3 * power / (7.5 - power);
}

/// Saturation vapour pressure [hPa] at t [°C], Hardy (1998). Fails at and below 0 K.
template <class Real>
Real Saturation_Pressure_Hardy(Real t)
{
    const Real T = t + 273.15;
    return exponential(2.7150305 * logarithm(T) - 2836.5744 * power(T, -2) - 6028.076559 / T + 19.54263612 -
                       0.02737830188 * T + 1.6261698e-05 * power(T, 2) + 7.0229056e-10 * power(T, 3) -
                       1.8680009e-13 * power(T, 4)) *
           0.01;
}

namespace detail {

/// The dew point from t [°C] and the logarithm of the relative humidity as a fraction.
template <class Real>
Real dewPointMagnus(Real t, Real logarithmOfHumidity)
{
    const Real g = logarithmOfHumidity / 17.27 + t / (237.3 + t);
    return (237.3 * g) / (1 - g);
}

} // namespace detail

/// Dew point [°C] from t [°C] and rh [%], Magnus form with 237.3. Fails unless rh > 0, and
/// at t = -237.3.
template <class Real>
Real Dew_Point_Magnus(Real t, Real rh)
{
    return detail::dewPointMagnus(t, logarithm(rh / 100));
}

/// Relative humidity [%] from t and dew point td [°C], Magnus form with 237.7 where
/// Dew_Point_Magnus has 237.3: the two are deliberately no exact inverses. Fails at -237.7 of either
/// temperature.
template <class Real>
Real Relative_Humidity_Magnus(Real t, Real td)
{
    return exponential((17.27 * td) / (237.7 + td) - (17.27 * t) / (237.7 + t)) * 100;
}

/// Saturation vapour pressure of moist air [hPa] at T in kelvin, Buck (1981). Fails at T = 32.18.
template <class Real>
Real Saturation_Pressure_Buck(Real T)
{
    return 1.004 * (exponential((17.502 * (T - 273.15)) / (T - 32.18)) * 6.1121);
}

/// Wind measured at 1.1 m taken to 10 m by the power law (Hellmann, 1915).
template <class Real>
Real Wind_At_10m(const AssumptionsOf<Real>& assumptions, Real v)
{
    return v / power(1.1 / 10, assumptions.Friction);
}

/// Wind measured at 1.1 m taken to 2 m by the power law (Hellmann, 1915).
template <class Real>
Real Wind_At_2m(const AssumptionsOf<Real>& assumptions, Real v)
{
    return v / power(1.1 / 2, assumptions.Friction);
}

/// Body surface area [m²] from `Height` and `Weight` (DuBois, 1916). Fails where either is negative.
template <class Real>
Real Body_Surface_Area(const AssumptionsOf<Real>& assumptions)
{
    return (0.202 * power(assumptions.Height, 0.725)) * power(assumptions.Weight, 0.425);
}

/// Mean skin temperature [°C] at air temperature t (McPherson, 1993).
template <class Real>
Real Mean_Skin_Temperature(Real t)
{
    return (24.85 + 0.322 * t) - 0.00165 * power(t, 2);
}

/// Linear radiative heat transfer coefficient [W/m²/K], m being the mean of the two surface
/// temperatures [°C]. Adds 273.2 on the way to kelvin.
template <class Real>
Real Radiative_Coefficient(const AssumptionsOf<Real>& assumptions, Real m)
{
    return (((4 * assumptions.Emissivity) * (kTenToMinus8 * 5.67)) * assumptions.ArAdu) * power(273.2 + m, 3);
}

/// A live quantity as it stands: the indices that show one.
template <class Real>
Real Read_Out(Real quantity)
{
    return quantity;
}

/// Celsius to Fahrenheit.
template <class Real>
Real To_Fahrenheit(Real t)
{
    return (t * (9.0 / 5)) + 32;
}

/// Fahrenheit to Celsius.
template <class Real>
Real To_Celsius(Real f)
{
    return (f - 32) * (5.0 / 9);
}

} // namespace comfortics::formulas
