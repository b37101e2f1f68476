// SPDX-License-Identifier: GPL-3.0-or-later
//
// The small physical functions that indices and models share.
// Temperatures in degrees Celsius unless stated, pressures in hPa, winds in m/s.
#pragma once

#include "formulas/assumptions.h"
#include "formulas/live_quantity.h"
#include "values/number.h"

namespace comfortics::formulas {

/// hPa to mmHg.
inline constexpr Number HPA_TO_MMHG = 0.75006375541921;
/// W/m² to cal/cm²/min.
inline constexpr Number WM2_TO_CALCM2MIN = 0.00143403442;
/// m/s to ft/min.
inline constexpr Number MS_TO_FTMIN = 196.850393700787;

/// Vapour pressure [hPa] over water at t [°C], Magnus form (Murray, 1967). Fails at t = -237.3.
Number Vapor_Pressure_Magnus(Number t);

/// Saturation vapour pressure [hPa] at t [°C], Hardy (1998). Fails at and below 0 K.
Number Saturation_Pressure_Hardy(Number t);

/// Dew point [°C] from t [°C] and rh [%], Magnus form with 237.3. Writes the caption of `Td` with
/// the format "00.00000". Fails unless rh > 0, and at t = -237.3.
Number Dew_Point_Magnus(Captions& captions, Number t, Number rh);

/// Relative humidity [%] from t and dew point td [°C], Magnus form with 237.7 where
/// Dew_Point_Magnus has 237.3: the two are deliberately no exact inverses. Writes the caption of
/// `RH` with the format "00.00000". Fails at -237.7 of either temperature.
Number Relative_Humidity_Magnus(Captions& captions, Number t, Number td);

/// Saturation vapour pressure of moist air [hPa] at T in kelvin, Buck (1981). Fails at T = 32.18.
Number Saturation_Pressure_Buck(Number T);

/// Wind measured at 1.1 m taken to 10 m by the power law (Hellmann, 1915).
Number Wind_At_10m(const Assumptions& assumptions, Number v);

/// Wind measured at 1.1 m taken to 2 m by the power law (Hellmann, 1915).
Number Wind_At_2m(const Assumptions& assumptions, Number v);

/// Body surface area [m²] from `Height` and `Weight` (DuBois, 1916). Fails where either is negative.
Number Body_Surface_Area(const Assumptions& assumptions);

/// Mean skin temperature [°C] at air temperature t (McPherson, 1993).
Number Mean_Skin_Temperature(Number t);

/// Linear radiative heat transfer coefficient [W/m²/K], m being the mean of the two surface
/// temperatures [°C]. Adds 273.2 on the way to kelvin.
Number Radiative_Coefficient(const Assumptions& assumptions, Number m);

/// Celsius to Fahrenheit.
Number To_Fahrenheit(Number t);
/// Fahrenheit to Celsius.
Number To_Celsius(Number f);

} // namespace comfortics::formulas
