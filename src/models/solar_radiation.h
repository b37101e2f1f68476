// SPDX-License-Identifier: GPL-3.0-or-later
//
// Solar radiation at one place through one day, minute by minute: clear-sky radiation on a
// horizontal surface and on one tilted by the latitude, and both under clouds.
//
// Declination: Cooper (1969). Equation of time and day geometry: Duffie and Beckman. Clear sky:
// the ASHRAE coefficients A, B, C as fitted by Masters (2004). Clouds: Kasten and Czeplak (1980).
#pragma once

#include "values/number.h"

#include <functional>
#include <optional>

namespace comfortics::models {

/// The circle's number as this tool has it everywhere, written out to eleven decimals.
inline constexpr double kPi = 3.14159265359;

/// The arc cosine of x in degrees; 0 at exactly 1 and 180 at exactly -1. Fails (root of a negative
/// number) beyond.
values::Number ACOSD(values::Number x);

/// The sine of x degrees.
values::Number Sind(values::Number x);

/// What one table is calculated for.
struct Site {
    values::Number lat; ///< latitude [degrees], north positive
    values::Number lon; ///< longitude [degrees], east positive
    values::Number n;   ///< day of the year, from 1
    values::Number gmt; ///< GMT offset of the clock [h]
    int okta = 0;       ///< cloud class, 0 to 9
};

/// The day as the site's clock has it. Minutes count from midnight.
struct DayLimits {
    values::Number decl;   ///< declination [degrees]
    values::Number corr;   ///< solar time less clock time [min]
    values::Number ws;     ///< sunset hour angle [degrees]
    values::Number rise;   ///< start of the table [min]
    values::Number sunset; ///< an hour after the end of the table [min]
};

/// The correction changes its sign at the Greenwich meridian, and its size moves both limits later
/// whatever its sign: both deliberate. Fails where the sun does not rise or set on that day.
DayLimits dayLimits(const Site& site);

/// -Tan(latitude) * Tan(declination): below -1 the sun does not set on that day, above 1 it does not
/// rise.
values::Number sunsetCosine(const Site& site);

/// Rows of the table with its header, rounded halves to even; may be 0 or less on a day that is
/// hardly longer than the hour that the table stops short of sunset.
double rowCount(const DayLimits& limits);

/// What the sun gives at one minute of the clock [W/m²].
struct SolarMinute {
    values::Number minute; ///< from midnight
    values::Number th;     ///< total on the horizontal
    values::Number tt;     ///< total on the tilted surface
    values::Number thc;    ///< horizontal under clouds
    values::Number ttc;    ///< tilted under clouds
    bool tiltKnown = true; ///< false on a day without sunset, from whose hour angle the tilt's share comes
};

/// The same for any moment of the clock; none with the sun at or below the horizon.
std::optional<SolarMinute> sunAt(const Site& site, values::Number minute);

/// Hands over all minutes of the table, in order. A step that has no defined result leaves its quantity
/// at the value of the minute before, deliberately; with the sun below the horizon the figures stand as
/// computed. Fails where the clock is so far off that a minute more makes no difference.
void walkMinutes(const Site& site, const DayLimits& limits,
                 const std::function<void(const SolarMinute&)>& take);

} // namespace comfortics::models
