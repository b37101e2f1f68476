// SPDX-License-Identifier: GPL-3.0-or-later
#include "prepared_answers.h"
#include "radiation/calendar.h"
#include "radiation/chart_data.h"
#include "radiation/radiation_model.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>
#include <vector>

namespace comfortics::radiation {
namespace {

using values::RunFailure;

TEST(MinuteRows, FirstRowDependsOnTheFractionOfTheStart)
{
    const Site site{40, 20, 172, 2, 0};
    DayLimits day = models::dayLimits(site);
    const struct {
        double rise, sunset;
        std::size_t firstRow, lastRow, count;
        const char *firstTime, *lastTime;
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
    EXPECT_THROW(minuteRows(site, models::dayLimits(site)), RunFailure);
}

TEST(DayOfYear, CountsFromJanuaryTheFirst)
{
    using namespace std::chrono;
    for (const auto& [date, day] : {std::pair(Date(2023y / 12 / 31), 365),
                                    {2024y / 12 / 31, 366},
                                    {1900y / 12 / 31, 365},
                                    {2000y / 3 / 1, 61}})
        EXPECT_EQ(dayOfYear(date), day);
}

TEST(ChartData, ShowsWhatTheTableHolds)
{
    controls::Grid grid(4, 5);
    tests::fill(grid,
                "Time\ta\tb\tc\td\r05:59\t1.5\t-2.5\t3\t4\r\r26:02\t900\t-700.5\t0.0\t2083423022301200.0");
    const auto points = chartPoints(grid);
    ASSERT_EQ(points.size(), 2U);
    EXPECT_EQ(points[0].minute, 359);
    EXPECT_EQ(points[0].figures, (std::array<double, 4>{1.5, -2.5, 3, 4}));
    EXPECT_EQ(points[1].row, 3U);
    EXPECT_EQ(points[1].minute, 1562);

    const ChartSpan span = chartSpan(points);
    EXPECT_EQ(span.lowest, -700.5);
    EXPECT_EQ(span.highest, 900);
    EXPECT_EQ(span.cutPoints, 1U);

    EXPECT_EQ(nearestPoint(points, 900), &points[0]);
    EXPECT_EQ(nearestPoint(points, 1000), &points[1]);
    EXPECT_EQ(nearestPoint({}, 1), nullptr);
}

// Figures of any size keep their curve inside the bounds, and every figure in between stays as it is.
TEST(ChartData, CurvesMeetTheBoundsWhereTheirLinesDo)
{
    const auto curve = [](std::initializer_list<double> figures) {
        std::vector<ChartPoint> points;
        for (const double figure : figures)
            points.push_back(
                {.minute = static_cast<double>(points.size()) * 10, .figures = {0, 0, figure, 0}});
        return chartCurve(points, 2, -100, 300);
    };
    using Curve = std::vector<ChartVertex>;
    EXPECT_EQ(curve({0, 300, -100, 1}), (Curve{{0, 0}, {10, 300}, {20, -100}, {30, 1}}));
    EXPECT_EQ(curve({200, 600, 1e300, 250}),
              (Curve{{0, 200}, {2.5, 300}, {10, 300}, {20, 300}, {30, 300}, {30, 250}}));
    EXPECT_EQ(curve({-200, 600, -1.7e308, 1.7e308}), (Curve{{0, -100},
                                                            {1.25, -100},
                                                            {6.25, 300},
                                                            {10, 300},
                                                            {10, 300},
                                                            {10, -100},
                                                            {20, -100},
                                                            {25, -100},
                                                            {25, 300},
                                                            {30, 300}}));
    EXPECT_EQ(curve({}), Curve());
}

} // namespace
} // namespace comfortics::radiation
