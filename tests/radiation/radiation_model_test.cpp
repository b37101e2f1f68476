// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/calendar.h"
#include "radiation/radiation_model.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace comfortics::radiation {
namespace {

using values::Number;
using values::RunFailure;

// The circle's number is cut after eleven decimals, which shows from the twelfth digit on.
TEST(Acosd, GivesDegrees)
{
    const struct {
        double x;
        double degrees;
    } rows[] = {{0.5, 60.000000000001975},
                {-0.5, 119.99999999999801},
                {0.999, 2.5625587331288746},
                {-0.25, 104.47751218592897},
                {0, 90},
                {1, 0},
                {-1, 180}};
    for (const auto& row : rows)
        EXPECT_DOUBLE_EQ(ACOSD(row.x).value(), row.degrees) << row.x;
}

TEST(Acosd, FailsBeyondOneInSize)
{
    for (const double x : {std::nextafter(1.0, 2.0), std::nextafter(-1.0, -2.0), 1.5, -7.0})
        EXPECT_THROW(ACOSD(x), RunFailure) << x;
    EXPECT_NO_THROW(ACOSD(std::nextafter(1.0, 0.0)));
    EXPECT_NO_THROW(ACOSD(std::nextafter(-1.0, 0.0)));
}

TEST(Sind, TakesDegrees)
{
    EXPECT_DOUBLE_EQ(Sind(30).value(), 0.5000000000000299);
    EXPECT_DOUBLE_EQ(Sind(-45).value(), -0.7071067811865842);
    EXPECT_DOUBLE_EQ(Sind(270).value(), -1);
}

TEST(DayLimits, MoveLaterWhateverTheSignOfTheCorrection)
{
    struct Row {
        double lat, lon, n, gmt;
        double decl, corr, ws, rise, sunset;
    };
    const Row rows[] = {
        {0, 0, 81, 0, 0, -7.53, 90, 367.53, 1087.53},
        {40, 20, 172, 2, 23.44978284681367, -41.500000000001265, 111.34462441172474, 316.1215023531023,
         1206.8784976469003},
        {40, -20, 172, 2, 23.44978284681367, 198.49999999999872, 111.34462441172474, 473.1215023530998,
         1363.8784976468976},
        {-50, 100, 355, 7, -23.449782846813626, -18.970870381595816, 121.12773013424136, 254.4599498446304,
         1223.4817909185615},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.lat);
        SCOPED_TRACE(row.lon);
        const DayLimits day = dayLimits({row.lat, row.lon, row.n, row.gmt, 0});
        EXPECT_DOUBLE_EQ(day.decl.value(), row.decl);
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
    EXPECT_NO_THROW(dayLimits({89.9, 0, 81, 0, 0}));
    EXPECT_THROW(dayLimits({40, std::numeric_limits<double>::infinity(), 81, 0, 0}), RunFailure);
}

TEST(RowCount, RoundsHalvesToEven)
{
    const struct {
        double rise, sunset, rows;
    } rows[] = {{300, 1000, 641}, {300.5, 1000, 640}, {299.5, 1000, 642}, {300.4, 1000, 641},
                {900, 960, 1},    {900.5, 960, 0},    {900.75, 960, 0},   {905, 960, -4}};
    for (const auto& row : rows) {
        DayLimits day;
        day.rise = row.rise;
        day.sunset = row.sunset;
        EXPECT_EQ(rowCount(day), row.rows) << row.rise;
    }
}

TEST(MinuteRows, FirstRowDependsOnTheFractionOfTheStart)
{
    const Site site{40, 20, 172, 2, 0};
    DayLimits day = dayLimits(site);
    const struct {
        double rise, sunset;
        std::size_t firstRow, lastRow, count;
        const char* firstTime;
        const char* lastTime;
    } rows[] = {{316, 1206, 1, 831, 831, "05:16", "19:06"},
                {316.5, 1206.9, 0, 830, 831, "05:16", "19:06"},
                {315.25, 1207, 0, 832, 833, "05:15", "19:07"}};
    for (const auto& row : rows) {
        day.rise = row.rise;
        day.sunset = row.sunset;
        const auto minutes = minuteRows(site, day);
        ASSERT_EQ(minutes.size(), row.count) << row.rise;
        EXPECT_EQ(minutes.front().row, row.firstRow) << row.rise;
        EXPECT_EQ(minutes.back().row, row.lastRow) << row.rise;
        EXPECT_EQ(minutes.front().time, row.firstTime);
        EXPECT_EQ(minutes.back().time, row.lastTime);
    }
}

// An offset so large that adding a minute changes nothing would go on for ever.
TEST(MinuteRows, EndWhereMinutesCannotBeCounted)
{
    const Site site{40, 20, 172, 1e17, 0};
    EXPECT_THROW(minuteRows(site, dayLimits(site)), RunFailure);
    const Site stillFine{40, 20, 172, 1e12, 0};
    EXPECT_EQ(minuteRows(stillFine, dayLimits(stillFine)).size(), 831U);
}

TEST(DayOfYear, CountsFromJanuaryTheFirst)
{
    using namespace std::chrono;
    const struct {
        Date date;
        int day;
    } rows[] = {{2023y / 1 / 1, 1},  {2023y / 12 / 31, 365}, {2024y / 12 / 31, 366}, {2024y / 2 / 29, 60},
                {2023y / 3 / 1, 60}, {1900y / 12 / 31, 365}, {2000y / 3 / 1, 61}};
    for (const auto& row : rows)
        EXPECT_EQ(dayOfYear(row.date), row.day);
}

} // namespace
} // namespace comfortics::radiation
