// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/radiation.h>

#include "models/solar_radiation.h"
#include "values/float_flags.h"
#include "values/run_failure.h"

#include <cmath>
#include <limits>
#include <stdexcept>

namespace comfortics {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct Figures {
    double horizontal = kNaN;
    double tilted = kNaN;
    double horizontalClouds = kNaN;
    double tiltedClouds = kNaN;
};

bool within(double value, double low, double high)
{
    return value >= low && value <= high; // NaN is not
}

Figures at(const PlaceAndTime& where, std::size_t i)
{
    constexpr double kMostOffset = 26; // [h]; clocks of the world span from -12 to 14
    const double cloudiness = where.cloudiness[i];
    if (!within(where.latitude[i], -90, 90) || !within(where.longitude[i], -180, 180) ||
        !within(where.dayOfYear[i], 1, 367) || !within(where.minuteOfDay[i], 0, 1440) ||
        !within(where.utcOffset[i], -kMostOffset, kMostOffset) || !within(cloudiness, 0, 8) ||
        cloudiness != std::floor(cloudiness))
        return {};
    try {
        const auto sun = models::sunAt({.lat = where.latitude[i],
                                        .lon = where.longitude[i],
                                        .n = where.dayOfYear[i],
                                        .gmt = where.utcOffset[i],
                                        .okta = static_cast<int>(cloudiness)},
                                       where.minuteOfDay[i]);
        if (!sun)
            return {0, 0, 0, 0};
        return {sun->th.value(), sun->tiltKnown ? sun->tt.value() : kNaN, sun->thc.value(),
                sun->tiltKnown ? sun->ttc.value() : kNaN};
    } catch (const values::RunFailure&) {
        return {};
    }
}

} // namespace

void solarRadiation(const PlaceAndTime& where, std::size_t count, const SolarRadiation& results)
{
    for (const Column* column : {&where.latitude, &where.longitude, &where.dayOfYear, &where.minuteOfDay})
        if (!column->given())
            throw std::invalid_argument(
                "comfortics: latitude, longitude, dayOfYear and minuteOfDay must be given");
    const values::FloatFlags flags;
    for (std::size_t i = 0; i < count; ++i) {
        const Figures figures = at(where, i);
        const auto put = [i](double* column, double value) {
            if (column != nullptr)
                column[i] = value;
        };
        put(results.horizontal, figures.horizontal);
        put(results.tilted, figures.tilted);
        put(results.horizontalClouds, figures.horizontalClouds);
        put(results.tiltedClouds, figures.tiltedClouds);
    }
}

} // namespace comfortics
