// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/stepped_walk.h"

#include <cassert>
#include <cmath>
#include <limits>

namespace comfortics::formulas {

namespace {

bool sameBinade(double a, double b)
{
    return std::signbit(a) == std::signbit(b) && std::ilogb(a) == std::ilogb(b);
}

/// How many times `stride` can be added to `point` with every sum strictly between the powers of
/// two around it. There a sum has the same distance to its neighbours as `point` has, before and
/// after rounding, so the rounding is the same each time. Counted in units of that distance, in
/// whole numbers.
std::uint64_t roomFor(double point, double stride)
{
    const int exponent = std::ilogb(point);
    const double lower = std::ldexp(1.0, exponent);
    const bool growing = std::signbit(point) == std::signbit(stride);
    // 2 * lower may lie outside the range of doubles where its distance to the point does not
    const double room = growing ? lower - (std::fabs(point) - lower) : std::fabs(point) - lower;
    if (std::fabs(stride) >= room)
        return 0;
    const int unit = exponent - (std::numeric_limits<double>::digits - 1);
    const auto units = [unit](double x) {
        return static_cast<std::uint64_t>(std::scalbn(std::fabs(x), -unit));
    };
    return (units(room) - 1) / units(stride);
}

} // namespace

SteppedWalk::SteppedWalk(double start, double step) : m_step(step), m_stretches{{0, start, step}}
{
    assert(std::isfinite(start) && std::isfinite(step) && step != 0);
    for (double last = start;;) {
        const double point = last + step;
        if (point == last || !std::isfinite(point))
            break;
        ++m_length;
        const double stride = (point + step) - point;
        m_stretches.push_back({m_length, point, stride});
        // A step that ends halfway between two neighbours goes to the even one, and from there on
        // always does so: the strides are equal from the first point on that was itself rounded in
        // this binade.
        const bool equalStrides = sameBinade(last, point) && std::isfinite(stride) && stride != 0;
        const std::uint64_t further = equalStrides ? roomFor(point, stride) : 0;
        m_length += further;
        last = point + static_cast<double>(further) * stride;
    }
}

double SteppedWalk::at(std::uint64_t n) const noexcept
{
    assert(n <= m_length);
    const auto after =
        std::upper_bound(m_stretches.begin(), m_stretches.end(), n,
                         [](std::uint64_t number, const Stretch& s) { return number < s.first; });
    const Stretch& stretch = *(after - 1);
    return stretch.origin + static_cast<double>(n - stretch.first) * stretch.stride;
}

std::uint64_t SteppedWalk::stepsTo(double value) const noexcept
{
    const bool upward = m_step > 0;
    const auto isBeyond = [upward](double point, double limit) {
        return upward ? point > limit : point < limit;
    };
    const auto after =
        std::upper_bound(m_stretches.begin(), m_stretches.end(), value,
                         [isBeyond](double limit, const Stretch& s) { return isBeyond(s.origin, limit); });
    if (after == m_stretches.begin())
        return 0;
    const Stretch& stretch = *(after - 1);
    const std::uint64_t last = (after == m_stretches.end() ? m_length : after->first - 1) - stretch.first;
    // Inside the stretch the value lies on the stretch's grid, less than 2^53 units from its origin.
    // A quotient of two such numbers cannot round up to the next whole one, so cutting it is exact.
    const double quotient = (value - stretch.origin) / stretch.stride;
    std::uint64_t k = last;
    if (quotient < static_cast<double>(last))
        k = quotient > 0 ? static_cast<std::uint64_t>(quotient) : 0;
    return stretch.first + k;
}

} // namespace comfortics::formulas
