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

/// The figures that an axis has to span. Figures of a sun just below the horizon can have dozens of
/// digits and would leave nothing to see of the others, so the span ends where no sun can shine.
struct ChartSpan {
    double lowest = 0;
    double highest = 0;
    bool isCut = false; ///< there are figures outside
};
ChartSpan chartSpan(const std::vector<ChartPoint>& points);

/// The point whose minute is nearest; null without points.
const ChartPoint* nearestPoint(const std::vector<ChartPoint>& points, double minute);

} // namespace comfortics::radiation
