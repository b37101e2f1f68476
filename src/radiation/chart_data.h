// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/grid.h"
#include "radiation/radiation_model.h"

#include <array>
#include <vector>

namespace comfortics::radiation {

/// A row of the table as the chart shows it.
struct ChartPoint {
    std::size_t row = 0;
    double minute = 0; ///< of the clock, from midnight; beyond 1440 where the table's is
    std::array<double, kFigureCount> figures{};
};

/// What the table holds, row by row. Rows without a time are left out.
std::vector<ChartPoint> chartPoints(const controls::Grid& table);

/// What no sun reaches [W/m²].
inline constexpr double kMostRadiation = 1500;

/// The figures that an axis has to span. Figures of a sun just below the horizon can have dozens of
/// digits and would leave nothing to see of the others, so the span ends where no sun can shine.
struct ChartSpan {
    double lowest = 0;
    double highest = 0;
    std::size_t cutPoints = 0; ///< points with a figure outside
};
ChartSpan chartSpan(const std::vector<ChartPoint>& points);

/// A corner of a curve.
struct ChartVertex {
    double minute = 0;
    double figure = 0;
    friend bool operator==(const ChartVertex&, const ChartVertex&) = default;
};

/// The curve of one figure between two bounds. Inside it is that of the table. It reaches a bound
/// where the line to a figure beyond does and stays there until it comes back, so that whoever draws
/// it meets no numbers that a drawing has no room for.
std::vector<ChartVertex> chartCurve(const std::vector<ChartPoint>& points, std::size_t figure, double low,
                                    double high);

/// The point whose minute is nearest; null without points.
const ChartPoint* nearestPoint(const std::vector<ChartPoint>& points, double minute);

} // namespace comfortics::radiation
