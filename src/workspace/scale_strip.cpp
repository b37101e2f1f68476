// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/scale_strip.h"

#include <algorithm>
#include <cmath>

namespace comfortics::workspace {

namespace {

constexpr double kBeyondLimits = 0.25; // of what they span, at each side

// What a strip shows, from its left to its right end.
struct Window {
    double low;
    double high;

    double at(double value) const { return std::clamp((value - low) / (high - low), 0.0, 1.0); }
};

ScaleStrip stripWith(const Window& window, double value)
{
    ScaleStrip strip;
    strip.mark = window.at(value);
    if (value < window.low)
        strip.beyond = ScaleStrip::Beyond::Left;
    else if (value > window.high)
        strip.beyond = ScaleStrip::Beyond::Right;
    return strip;
}

} // namespace

std::optional<ScaleStrip> classStrip(int index, double value, int towards)
{
    const auto& classes = catalogue::scale(index).categories;
    if (classes.size() < 2 || std::isnan(value))
        return std::nullopt;
    const double first = classes.front().upper;
    const double last = classes.back().lower;
    // A single bound has no width to go by; its distance from 0 tells the size of the values.
    double outer = std::max(std::abs(first), 1.0) / 2;
    if (classes.size() > 2)
        outer = (last - first) / static_cast<double>(classes.size() - 2);
    const Window window{first - outer, last + outer};
    ScaleStrip strip = stripWith(window, value);
    const int sign = catalogue::voteBeside(index) != 0 ? towards : 1;
    for (const catalogue::Category& one : classes)
        strip.bands.push_back({window.at(one.lower), window.at(one.upper), one.severity * sign});
    return strip;
}

std::optional<ScaleStrip> limitStrip(const classic::IndexLimits& limits, double judged)
{
    const double low = limits.Tair_min.number;
    const double high = limits.Tair_max.number;
    if (!limits.given() || !(low < high) || std::isnan(judged))
        return std::nullopt;
    const double beyond = (high - low) * kBeyondLimits;
    const Window window{low - beyond, high + beyond};
    ScaleStrip strip = stripWith(window, judged);
    strip.bands.push_back({window.at(low), window.at(high), std::nullopt});
    return strip;
}

std::optional<ScaleStrip> stripOf(const Situation& situation, const classic::Limits& limits, int index)
{
    const Figure& figure = situation.figure(index);
    if (!figure.number)
        return std::nullopt;
    if (!catalogue::scale(index).categories.empty()) {
        const int vote = catalogue::voteBeside(index);
        const bool cold = vote != 0 && situation.figure(vote).number.value_or(0) < 0;
        return classStrip(index, *figure.number, cold ? -1 : 1);
    }
    return figure.judged ? limitStrip(limits.of(index), *figure.judged) : std::nullopt;
}

} // namespace comfortics::workspace
