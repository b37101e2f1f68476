// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/chart_data.h"

#include <gtest/gtest.h>

namespace comfortics::radiation {
namespace {

controls::Grid& fill(controls::Grid& grid, const std::vector<std::vector<const char*>>& rows)
{
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t col = 0; col < rows[row].size(); ++col)
            grid.setTextMatrix(row, col, rows[row][col]);
    return grid;
}

TEST(ChartData, ShowsWhatTheTableHolds)
{
    controls::Grid grid(5, 5);
    fill(grid, {{"Time", "a", "b", "c", "d"},
                {"05:59", "1.5", "-2.5", "3", "4"},
                {"", "", "", "", ""},
                {"26:02", "900", "-700.5", "0.0", "20834230223012000000.0"}});
    const auto points = chartPoints(grid);
    ASSERT_EQ(points.size(), 2U);
    EXPECT_EQ(points[0].minute, 359);
    EXPECT_EQ(points[0].figures, (std::array<double, 4>{1.5, -2.5, 3, 4}));
    EXPECT_EQ(points[1].row, 3U);
    EXPECT_EQ(points[1].minute, 1562);

    const ChartSpan span = chartSpan(points);
    EXPECT_EQ(span.lowest, -700.5);
    EXPECT_EQ(span.highest, 900);
    EXPECT_TRUE(span.isCut);

    EXPECT_EQ(nearestPoint(points, 900), &points[0]);
    EXPECT_EQ(nearestPoint(points, 1000), &points[1]);
    EXPECT_EQ(nearestPoint({}, 1), nullptr);
}

} // namespace
} // namespace comfortics::radiation
