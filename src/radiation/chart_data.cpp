// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/chart_data.h"

#include "texts/number_text.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

namespace comfortics::radiation {

namespace {

constexpr double kMinutesPerHour = 60;

// Where the line between two points has a height that lies between theirs.
ChartVertex crossing(const ChartVertex& from, const ChartVertex& to, double height)
{
    // Halved, since the whole can be more than a double holds.
    const double part = (height / 2 - from.figure / 2) / (to.figure / 2 - from.figure / 2);
    return {.minute = from.minute + part * (to.minute - from.minute), .figure = height};
}

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
                         .minute = texts::val(time.substr(0, colon)) * kMinutesPerHour +
                                   texts::val(time.substr(colon + 1))};
        for (std::size_t i = 0; i < kFigureCount; ++i)
            point.figures[i] = texts::val(table.textMatrix(row, i + 1));
        points.push_back(point);
    }
    return points;
}

ChartSpan chartSpan(const std::vector<ChartPoint>& points)
{
    ChartSpan span;
    for (const ChartPoint& point : points) {
        bool isCut = false;
        for (const double figure : point.figures) {
            if (std::abs(figure) > kMostRadiation) {
                isCut = true;
                continue;
            }
            span.lowest = std::min(span.lowest, figure);
            span.highest = std::max(span.highest, figure);
        }
        span.cutPoints += isCut ? 1 : 0;
    }
    return span;
}

std::vector<ChartVertex> chartCurve(const std::vector<ChartPoint>& points, std::size_t figure, double low,
                                    double high)
{
    std::vector<ChartVertex> curve;
    std::optional<ChartVertex> before;
    for (const ChartPoint& point : points) {
        const ChartVertex here{.minute = point.minute, .figure = point.figures.at(figure)};
        const auto cross = [&](double bound) {
            if (before && ((before->figure < bound && bound < here.figure) ||
                           (here.figure < bound && bound < before->figure)))
                curve.push_back(crossing(*before, here, bound));
        };
        const bool rises = before && before->figure < here.figure;
        cross(rises ? low : high);
        cross(rises ? high : low);
        curve.push_back({.minute = here.minute, .figure = std::clamp(here.figure, low, high)});
        before = here;
    }
    return curve;
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
