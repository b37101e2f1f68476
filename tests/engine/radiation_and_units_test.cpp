// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/comfortics.h>

#include "models/solar_radiation.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace comfortics {
namespace {

struct Sun {
    double horizontal, tilted, horizontalClouds, tiltedClouds;
};

Sun sunAt(const PlaceAndTime& where)
{
    Sun sun{};
    solarRadiation(where, 1, {&sun.horizontal, &sun.tilted, &sun.horizontalClouds, &sun.tiltedClouds});
    return sun;
}

TEST(SolarRadiation, IsThatOfTheTable)
{
    const models::Site site{.lat = 37.98, .lon = 23.73, .n = 201, .gmt = 3, .okta = 5};
    std::vector<models::SolarMinute> table;
    models::walkMinutes(site, models::dayLimits(site),
                        [&](const models::SolarMinute& minute) { table.push_back(minute); });
    std::vector<double> minutes;
    for (const models::SolarMinute& minute : table)
        minutes.push_back(minute.minute.value());
    std::vector<double> horizontal(table.size());
    std::vector<double> tiltedClouds(table.size());
    solarRadiation({.latitude = 37.98,
                    .longitude = 23.73,
                    .dayOfYear = 201,
                    .minuteOfDay = minutes,
                    .utcOffset = 3,
                    .cloudiness = 5},
                   minutes.size(), {.horizontal = horizontal.data(), .tiltedClouds = tiltedClouds.data()});
    std::size_t up = 0;
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (horizontal[i] == 0)
            continue; // the table begins and ends by the clock, not by the sun
        ++up;
        ASSERT_EQ(table[i].th.value(), horizontal[i]) << minutes[i];
        ASSERT_EQ(table[i].ttc.value(), tiltedClouds[i]) << minutes[i];
    }
    EXPECT_GT(up, 600U);
}

TEST(SolarRadiation, KnowsNightPolarDayAndImpossiblePlaces)
{
    const PlaceAndTime noon{
        .latitude = 70, .longitude = 20, .dayOfYear = 172, .minuteOfDay = 720, .utcOffset = 1};
    const Sun polarDay = sunAt(noon);
    EXPECT_GT(polarDay.horizontal, 600);
    EXPECT_EQ(polarDay.horizontal, polarDay.horizontalClouds);
    EXPECT_TRUE(std::isnan(polarDay.tilted) && std::isnan(polarDay.tiltedClouds));

    PlaceAndTime winter = noon;
    winter.dayOfYear = 355;
    EXPECT_EQ(0, sunAt(winter).horizontal);
    EXPECT_EQ(0, sunAt(winter).tilted);

    PlaceAndTime nowhere = noon;
    nowhere.latitude = 91;
    EXPECT_TRUE(std::isnan(sunAt(nowhere).horizontal));
    PlaceAndTime half = noon;
    half.cloudiness = 2.5;
    EXPECT_TRUE(std::isnan(sunAt(half).horizontal));
    EXPECT_THROW(sunAt({.latitude = 70, .longitude = 20}), std::invalid_argument);
}

TEST(Units, ConvertBothWays)
{
    EXPECT_DOUBLE_EQ(37.5, convert(99.5, "F", "°C"));
    EXPECT_DOUBLE_EQ(300, convert(26.85, "°C", "k"));
    EXPECT_DOUBLE_EQ(310.65, convert(99.5, "F", "K"));
    EXPECT_DOUBLE_EQ(36, convert(10, "m/s", "km/h"));
    EXPECT_DOUBLE_EQ(0.85, convert(850, "W/m²", "kW/m2"));
    for (const Unit& unit : units())
        for (const double value : {-40.0, 0.0, 21.5})
            EXPECT_NEAR(
                value,
                convert(convert(value, unit.symbol, units()[static_cast<std::size_t>(unit.dimension)].symbol),
                        units()[static_cast<std::size_t>(unit.dimension)].symbol, unit.symbol),
                1e-9)
                << unit.name;
    EXPECT_THROW(convert(1, "F", "m/s"), std::invalid_argument);
    EXPECT_THROW(convert(1, "furlong", "m/s"), std::invalid_argument);
}

} // namespace
} // namespace comfortics
