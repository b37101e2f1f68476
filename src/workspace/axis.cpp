// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/axis.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace comfortics::workspace {

namespace {

constexpr int kReadingSteps = 6;
constexpr int kValueSteps = 5;
constexpr double kAround = 0.06;    // of the span of the values, above and below
constexpr double kLeastSpan = 1e-3; // of the values, as a share of the largest

} // namespace

Axis niceAxis(double low, double high, int steps)
{
    const double wanted = (high - low) / steps;
    const double power = std::pow(10, std::floor(std::log10(wanted)));
    const double share = wanted / power;
    const double step = power * (share <= 1 ? 1 : share <= 2 ? 2 : share <= 5 ? 5 : 10);
    return {std::floor(low / step) * step, std::ceil(high / step) * step, step};
}

Axis readingAxis(const Course& course)
{
    const double first = course.points.front().reading;
    const double last = std::max(course.points.back().reading, first + kLeastSpan);
    return {first, last, niceAxis(first, last, kReadingSteps).step};
}

Axis axisAround(double low, double high, int index, const std::optional<double>& seen)
{
    const auto categories =
        index == 0 ? std::span<const catalogue::Category>() : catalogue::scale(index).categories;
    if (catalogue::hasPole(index) && categories.size() > 1) {
        const double lowest = categories.front().upper;
        const double highest = categories.back().lower;
        const double beyond = highest - lowest;
        low = std::clamp(low, lowest - beyond, highest + beyond);
        high = std::clamp(high, lowest - beyond, highest + beyond);
        low = std::min(low, seen.value_or(low));
        high = std::max(high, seen.value_or(high));
    }
    const double least = std::max({std::abs(low), std::abs(high), 1.0}) * kLeastSpan;
    const double around = std::max((high - low) * kAround, least);
    // What is nowhere negative, such as minutes, has no room below 0.
    const double floor = low >= 0 && high > 0 ? std::max(low - around, 0.0) : low - around;
    return niceAxis(floor, high + around, kValueSteps);
}

Axis valueAxis(const Course& course)
{
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    for (const CoursePoint& point : course.points)
        if (point.value) {
            low = std::min(low, *point.value);
            high = std::max(high, *point.value);
        }
    if (low > high) // no value anywhere
        low = high = 0;
    return axisAround(low, high, course.request.item.index(),
                      course.present ? course.points[*course.present].value : std::nullopt);
}

bool leaves(const Course& course, const Axis& values)
{
    return std::any_of(course.points.begin(), course.points.end(), [&values](const CoursePoint& point) {
        return point.value && (*point.value < values.low || *point.value > values.high);
    });
}

} // namespace comfortics::workspace
