// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <comfortics/column.h>

#include <cstddef>

#pragma GCC visibility push(default)
namespace comfortics {

/// Solar radiation of a clear and of a clouded sky [W/m²].
struct SolarRadiation {
    double* horizontal = nullptr;       ///< clear sky, horizontal plane
    double* tilted = nullptr;           ///< clear sky, plane tilted to the equator by the latitude
    double* horizontalClouds = nullptr; ///< horizontal plane under clouds
    double* tiltedClouds = nullptr;     ///< tilted plane under clouds
};

/// Where and when: one value for all points, or one for each.
struct PlaceAndTime {
    Column latitude{};       ///< [degrees], north positive, -90 to 90
    Column longitude{};      ///< [degrees], east positive, -180 to 180
    Column dayOfYear{};      ///< from 1 to 367; fractions are fine
    Column minuteOfDay{};    ///< of the place's clock, from midnight, 0 to 1440 [min]; fractions are fine
    Column utcOffset = 0.0;  ///< of the place's clock [h], -26 to 26
    Column cloudiness = 0.0; ///< [okta], whole numbers from 0 to 8
};

/// Estimates the radiation at `count` points: declination by Cooper (1969), geometry by Duffie and Beckman
/// (2013), clear sky by the ASHRAE coefficients as Masters (2004) fits them, clouds by Kasten and Czeplak
/// (1980), an albedo of 0.3.
///
/// East of Greenwich solar time is clock time and 4 minutes more for each degree that the place lies east of
/// its clock's meridian, 15 degrees to the hour. West of Greenwich it is 4 minutes less, deliberately as in
/// the program's table: the figures are late or early there unless utcOffset is longitude / 15.
///
/// 0 with the sun at or below the horizon. NaN where an input is NaN or outside its range, and for the tilted
/// plane on days without a sunset. Arrays that are null are not written; the others have `count` elements
/// side by side.
///
/// Throws std::invalid_argument where latitude, longitude, day or minute are not given.
void solarRadiation(const PlaceAndTime& where, std::size_t count, const SolarRadiation& results);

} // namespace comfortics
#pragma GCC visibility pop
