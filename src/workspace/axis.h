// SPDX-License-Identifier: GPL-3.0-or-later
//
// The axes of charts.
#pragma once

#include "workspace/course.h"

namespace comfortics::workspace {

/// What an axis shows, and how far its marks are apart.
struct Axis {
    double low = 0;
    double high = 1;
    double step = 1;

    double span() const { return high - low; }
};

/// Around two numbers, the lower one first: steps of 1, 2 or 5 times a power of ten, of which no more than
/// the given count lie between the numbers; the ends lie on a step.
Axis niceAxis(double low, double high, int steps);

/// From the first to the last reading of a course that has points: none beyond those that can be.
Axis readingAxis(const Course& course);

/// Around the values of a course, of which the present one is seen.
Axis valueAxis(const Course& course);

/// Around values from the lowest to the highest one, with a little room; where an index is given that has a
/// pole, about the bounds of its classes and a value that must be seen alone, or all that matters would be a
/// line along the ground.
Axis axisAround(double low, double high, int index = 0, const std::optional<double>& seen = {});

/// Values lie beyond the axis: the curve leaves the chart.
bool leaves(const Course& course, const Axis& values);

} // namespace comfortics::workspace
