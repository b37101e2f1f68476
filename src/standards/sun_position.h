// SPDX-License-Identifier: GPL-3.0-or-later
//
// Where the sun appears to be, to 0.01 degrees: the low-precision formulas of the Astronomical Almanac with
// its refraction (Michalsky, 1988, has them alike), 1950 to 2049.
//
// Trap: days are counted by the calendar. The reference program of the outdoor wet-bulb globe temperature is
// a day ahead in the leap years after 2000.
#pragma once

#include "standards/answer.h"

namespace comfortics::standards {

/// What the day and the globe have; the year is marked beyond its range.
namespace sun_range {
inline constexpr Input kHour{"hour", Quantity::Any, {0, 24}};
inline constexpr Input kLatitude{"latitude", Quantity::Any, {-90, 90}};
inline constexpr Input kLongitude{"longitude", Quantity::Any, {-180, 360}};
} // namespace sun_range

struct SunInputs {
    int year = 0;
    int month = 0;
    int day = 0;
    double hour = kNaN;      ///< UTC [h], 0..24
    double latitude = kNaN;  ///< [degrees], north positive
    double longitude = kNaN; ///< [degrees], east positive, -180..360
};

struct SunResult {
    Verdict verdict{};
    double altitude = kNaN;   ///< above the horizon as it appears, refraction included [degrees]
    double azimuth = kNaN;    ///< from north by east, 0..360 [degrees]
    double distanceAu = kNaN; ///< [AU]
    double cosZenith = kNaN;  ///< of the apparent sun, the sine of the altitude
};

/// Marked outside of 1950..2049. None for a date that no calendar has.
SunResult sunPosition(const SunInputs& inputs, Limits limits = Limits::Mark) noexcept;

struct ApparentSun {
    double altitude, azimuth, distance; ///< as in SunResult
    double sine;                        ///< of the altitude
};

/// The same as sunPosition without a look at the inputs, `day` days after 2000-01-01 and at any hour, which
/// counts on into other days.
ApparentSun apparentSun(double day, double hour, double latitude, double longitude) noexcept;

/// Days from 2000-01-01; NaN for a date that no calendar has.
double daysFrom2000(int year, int month, int day) noexcept;

/// Looks at a date, a latitude and a longitude: the marks and refusals of all models under the sun.
void lookAtPlace(Examination& examination, int year, int month, int day, double latitude,
                 double longitude) noexcept;

} // namespace comfortics::standards
