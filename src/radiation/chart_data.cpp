// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/chart_data.h"

#include "values/number_text.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace comfortics::radiation {

namespace {

constexpr double kMostRadiation = 1500; // W/m², above what reaches the ground
constexpr double kMinutesPerHour = 60;

} // namespace

std::vector<ChartPoint> chartPoints(const controls::Grid& table)
{
    std::vector<ChartPoint> points;
    for (std::size_t row = 1; row < table.rows() && table.cols() > kFigureCount; ++row) {
        const std::string_view time = table.textMatrix(row, 0);
        const std::size_t colon = time.find(':');
        if (colon == std::string_view::npos)
            continue;
        ChartPoint point{.row = row,
                         .minute = values::val(time.substr(0, colon)) * kMinutesPerHour +
                                   values::val(time.substr(colon + 1))};
        for (std::size_t i = 0; i < kFigureCount; ++i)
            point.figures[i] = values::val(table.textMatrix(row, i + 1));
        points.push_back(point);
    }
    return points;
}

ChartSpan chartSpan(const std::vector<ChartPoint>& points)
{
    ChartSpan span;
    for (const ChartPoint& point : points) {
        for (const double figure : point.figures) {
            if (std::abs(figure) > kMostRadiation)
                span.isCut = true;
            else
                span = {std::min(span.lowest, figure), std::max(span.highest, figure), span.isCut};
        }
    }
    return span;
}

const ChartPoint* nearestPoint(const std::vector<ChartPoint>& points, double minute)
{
    const auto nearest =
        std::min_element(points.begin(), points.end(), [minute](const ChartPoint& a, const ChartPoint& b) {
            return std::abs(a.minute - minute) < std::abs(b.minute - minute);
        });
    return nearest == points.end() ? nullptr : &*nearest;
}

} // namespace comfortics::radiation
