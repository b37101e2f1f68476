// SPDX-License-Identifier: GPL-3.0-or-later
//
//   n       days from 2000-01-01 12:00                 delta   declination
//   g       mean anomaly [degrees]                     alpha   right ascension [rad]
//   L       mean longitude [degrees]                   theta   local sidereal time [h]
//   epsilon obliquity of the ecliptic [degrees]        h       hour angle [rad]
//   lambda  ecliptic longitude [degrees]               a       altitude [degrees]
#include "standards/sun_position.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>

namespace comfortics::standards {

using namespace sun_range;

namespace {

constexpr double kFirstYear = 1950;
constexpr double kLastYear = 2049;

constexpr double kPressure = 1013.25; // of the refraction [hPa]
constexpr double kWarmth = 288;       // the same [K]

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180;
}

double degrees(double radians)
{
    return radians * 180 / std::numbers::pi;
}

/// What the air lifts a sun of altitude a [degrees].
double refraction(double a)
{
    if (a < -1)
        return 0;
    if (a < 19.225)
        return (0.1594 + a * (0.0196 + 0.00002 * a)) * kPressure / ((1 + a * (0.505 + 0.0845 * a)) * kWarmth);
    return 0.00452 * kPressure / kWarmth / std::tan(radians(a));
}

/// Of an input that has no meaning beyond its range.
void lookWithin(Examination& examination, const Input& input, double value)
{
    if (std::isnan(value))
        examination.refuse(Reason::Missing, input.name);
    else if (!input.range.contains(value))
        examination.refuse(Reason::BeyondPhysics, input.name);
}

} // namespace

double daysFrom2000(int year, int month, int day) noexcept
{
    using namespace std::chrono;
    if (month < 1 || month > 12 || day < 1 || day > 31 || year < -32767 || year > 32767)
        return kNaN;
    const year_month_day date{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                              std::chrono::day(static_cast<unsigned>(day))};
    if (!date.ok())
        return kNaN;
    constexpr sys_days kFirst = std::chrono::year(2000) / 1 / 1;
    return static_cast<double>((sys_days(date) - kFirst).count());
}

void lookAtPlace(Examination& examination, int year, int month, int day, double latitude,
                 double longitude) noexcept
{
    if (std::isnan(daysFrom2000(year, month, day)))
        examination.refuse(Reason::BeyondPhysics, "date");
    else if (year < kFirstYear || year > kLastYear)
        examination.mark("date");
    lookWithin(examination, kLatitude, latitude);
    lookWithin(examination, kLongitude, longitude);
}

ApparentSun apparentSun(double day, double hour, double latitude, double longitude) noexcept
{
    const double passed = std::floor(hour / 24);
    const double u = hour - 24 * passed;
    const double midnight = day + passed - 0.5;
    const double n = midnight + u / 24;

    const double g = radians(357.528 + 0.9856003 * n);
    const double L = 280.460 + 0.9856474 * n;
    const double epsilon = radians(23.439 - 4e-7 * n);
    const double lambda = radians(L + 1.915 * std::sin(g) + 0.020 * std::sin(2 * g));
    const double alpha = std::atan2(std::cos(epsilon) * std::sin(lambda), std::cos(lambda));
    const double sinDelta = std::sin(epsilon) * std::sin(lambda);
    const double cosDelta = std::sqrt(1 - sinDelta * sinDelta);
    const double distance = 1.00014 - 0.01671 * std::cos(g) - 0.00014 * std::cos(2 * g);

    const double T = midnight / 36525;
    const double greenwich = (24110.54841 + T * (8640184.812866 + T * (0.093104 - 6.2e-6 * T))) / 3600;
    const double theta = greenwich + 1.00273790934 * u + longitude / 15;
    const double h = radians(15 * theta) - alpha;

    const double sinPhi = std::sin(radians(latitude));
    const double cosPhi = std::cos(radians(latitude));
    const double sinH = std::sin(h);
    const double cosH = std::cos(h);
    const double sinA = std::clamp(sinDelta * sinPhi + cosDelta * cosH * cosPhi, -1.0, 1.0);
    const double bearing =
        degrees(std::atan2(-cosDelta * sinH, sinDelta * cosPhi - cosDelta * cosH * sinPhi));
    const double a = degrees(std::asin(sinA));
    const double altitude = a + refraction(a);
    return {.altitude = altitude,
            .azimuth = bearing < 0 ? bearing + 360 : bearing,
            .distance = distance,
            .sine = std::sin(radians(altitude))};
}

SunResult sunPosition(const SunInputs& in, Limits limits) noexcept
{
    Examination examination(limits);
    lookAtPlace(examination, in.year, in.month, in.day, in.latitude, in.longitude);
    lookWithin(examination, kHour, in.hour);
    SunResult result{.verdict = examination.verdict()};
    if (!examination.hasValue())
        return result;
    const ApparentSun sun =
        apparentSun(daysFrom2000(in.year, in.month, in.day), in.hour, in.latitude, in.longitude);
    result.altitude = sun.altitude;
    result.azimuth = sun.azimuth;
    result.distanceAu = sun.distance;
    result.cosZenith = sun.sine;
    return result;
}

} // namespace comfortics::standards
