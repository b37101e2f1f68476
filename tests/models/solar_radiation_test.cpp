// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/solar_radiation.h"

#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace comfortics::models {
namespace {

using values::RunFailure;

// The circle's number is cut after eleven decimals, which shows from the twelfth digit on.
TEST(Acosd, GivesDegreesAndFailsBeyondOneInSize)
{
    for (const auto& [x, degrees] : std::vector<std::pair<double, double>>{{0.5, 60.000000000001975},
                                                                           {0.999, 2.5625587331288746},
                                                                           {-0.25, 104.47751218592897},
                                                                           {1, 0},
                                                                           {-1, 180}})
        EXPECT_DOUBLE_EQ(ACOSD(x).value(), degrees) << x;
    for (const double one : {1.0, -1.0}) {
        EXPECT_THROW(ACOSD(std::nextafter(one, 2 * one)), RunFailure);
        EXPECT_NO_THROW(ACOSD(std::nextafter(one, 0)));
    }
    EXPECT_DOUBLE_EQ(Sind(-45).value(), -0.7071067811865842);
}

TEST(DayLimits, MoveLaterWhateverTheSignOfTheCorrection)
{
    const struct {
        Site site;
        double corr, ws, rise, sunset;
    } rows[] = {
        {{0, 0, 81, 0, 0}, -7.53, 90, 367.53, 1087.53},
        {{40, 20, 172, 2, 0}, -41.500000000001265, 111.34462441172474, 316.1215023531023, 1206.8784976469003},
        {{-50, 9, 355, 1, 0}, -22.970870381595816, 121.12773013424136, 258.4599498446304, 1227.4817909185615},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        const DayLimits day = dayLimits(row.site);
        EXPECT_DOUBLE_EQ(day.corr.value(), row.corr);
        EXPECT_DOUBLE_EQ(day.ws.value(), row.ws);
        EXPECT_DOUBLE_EQ(day.rise.value(), row.rise);
        EXPECT_DOUBLE_EQ(day.sunset.value(), row.sunset);
    }
}

TEST(DayLimits, FailWhereTheSunDoesNotRiseOrSet)
{
    EXPECT_NO_THROW(dayLimits({66.55, 0, 355, 0, 0}));
    EXPECT_THROW(dayLimits({66.56, 0, 355, 0, 0}), RunFailure);
    EXPECT_THROW(dayLimits({66.56, 0, 172, 0, 0}), RunFailure);
    EXPECT_THROW(dayLimits({-66.56, 0, 355, 0, 0}), RunFailure);
    EXPECT_THROW(dayLimits({40, std::numeric_limits<double>::infinity(), 81, 0, 0}), RunFailure);
}

TEST(RowCount, RoundsHalvesToEven)
{
    const double rows[][3] = {{300, 1000, 641}, {300.5, 1000, 640}, {299.5, 1000, 642}, {300.4, 1000, 641},
                              {900, 960, 1},    {900.5, 960, 0},    {900.75, 960, 0},   {905, 960, -4}};
    for (const auto& [rise, sunset, expected] : rows) {
        DayLimits day;
        day.rise = rise;
        day.sunset = sunset;
        EXPECT_EQ(rowCount(day), expected) << rise;
    }
}

} // namespace
} // namespace comfortics::models
