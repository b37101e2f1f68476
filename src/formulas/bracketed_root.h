// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace comfortics::formulas {

/// What is known of a root before it is looked for.
///
/// `surplus` is what a heat balance has to spare at a temperature x [K]: not below 0 at `low`, not above
/// 0 at `high`, falling and continuous in between.
struct RootSearch {
    double low = 0;
    double high = 0;
    double start = 0; ///< the first x: the better this guess, the fewer the steps
    double slope = 0; ///< about that of the surplus at start, below 0
    /// In the neighbourhood of the root the surplus falls by no less than this per kelvin.
    double leastSlope = 0;
    /// Bound of |surplus''| / (2 |surplus'|) around the root [/K]: the error of a secant's zero is no
    /// more than this times the errors of its two points (Ostrowski, 1960). Infinity where there is a kink.
    double bend = std::numeric_limits<double>::infinity();
};

/// How near a root is found [K].
inline constexpr double kRootWidth = 1e-9;

/// The root of `surplus`: by secants, and halving the bracket where a secant leads out of it or the
/// steps have become many. None where the surplus is not finite at some step, or no root shows within
/// kMostRootSteps evaluations. Throws nothing that the surplus does not.
inline constexpr int kMostRootSteps = 120;

template <typename Surplus>
std::optional<double> bracketedRoot(const RootSearch& search, Surplus surplus)
{
    constexpr int kSecantsAlone = 12; // from here on every second step halves: 50 of them are enough
    double low = search.low;
    double high = search.high;
    bool lowSeen = false;
    bool highSeen = false;
    double x = std::min(std::max(search.start, low), high);
    double slope = search.slope;
    double before = 0;
    double surplusBefore = 0;
    double moved = std::numeric_limits<double>::infinity();
    for (int step = 0; step < kMostRootSteps; ++step) {
        const double here = surplus(x);
        if (!std::isfinite(here))
            return std::nullopt;
        if (step > 0) {
            slope = (here - surplusBefore) / (x - before);
            moved = std::fabs(x - before);
        }
        const double secant = -here / slope;
        const double next = x + secant;
        const bool within = next >= low && next <= high; // NaN is not
        // By the least slope the root lies within kRootWidth of x, and the secant's zero not farther.
        if (std::fabs(here) <= search.leastSlope * kRootWidth)
            return within && std::fabs(secant) <= kRootWidth ? next : x;
        (here > 0 ? low : high) = x;
        (here > 0 ? lowSeen : highSeen) = true;
        const double error = search.bend * std::fabs(secant) * (moved + std::fabs(secant));
        if (within && error <= 0.1 * kRootWidth)
            return next;
        const double middle = 0.5 * (low + high);
        if (high - low <= kRootWidth)
            return lowSeen && highSeen ? std::optional(middle) : std::nullopt;
        before = x;
        surplusBefore = here;
        x = within && next != x && (step < kSecantsAlone || step % 2 == 0) ? next : middle;
    }
    return std::nullopt;
}

} // namespace comfortics::formulas
