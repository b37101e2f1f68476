// SPDX-License-Identifier: GPL-3.0-or-later
//
// Legend
//   A   cooling at the reported wind and air temperature [kg cal/m²/hr]
//   B   cooling at the wind of 1.34 m/s and the air temperature t
//   t   air temperature that the walk has come to [°C]
#include "formulas/wind_chill_equivalent.h"

#include "formulas/stepped_walk.h"
#include "values/run_failure.h"

#include <cmath>
#include <limits>
#include <optional>

namespace comfortics::formulas {

using values::RunFailure;
using values::squareRoot;

namespace {

constexpr double kStart = 0;
constexpr double kStep = 0.01;
constexpr double kTolerance = 0.2;

Number coolingAt(Number WS, Number Ta)
{
    return ((squareRoot(WS * 100) + 10.45) - WS) * (33 - Ta);
}

/// Cooling per degree below 33 °C at the wind of 1.34 m/s.
Number factorInLightWind()
{
    return (squareRoot(134) + 10.45) - 1.34112;
}

/// The walk from t to its end.
///
/// The difference is tested after the step that it decides: the point returned lies one step beyond
/// the one at which the coolings agree. *Deliberate.* A pass depends on t alone, so a point that
/// comes again two steps later comes for ever, and so does one that a step does not move.
Number walkOn(Number A, Number factor, Number t)
{
    for (std::optional<Number> before;;) {
        const Number B = factor * (33 - t);
        const Number d = A - B;
        const Number next = d > 0 ? t - kStep : t + kStep;
        if (d < kTolerance && d > -kTolerance)
            return next;
        if (next == before)
            throw RunFailure("the wind-chill walk turns back without meeting its tolerance");
        if (next == t)
            throw RunFailure("the wind-chill walk stands still without meeting its tolerance");
        before = t;
        t = next;
    }
}

const SteppedWalk& walkUpward()
{
    static const SteppedWalk walk(kStart, kStep);
    return walk;
}

const SteppedWalk& walkDownward()
{
    static const SteppedWalk walk(kStart, -kStep);
    return walk;
}

} // namespace

Variant Index_215_plain(Number WS, Number Ta)
{
    return walkOn(coolingAt(WS, Ta), factorInLightWind(), kStart);
}

// B is below 1e17 wherever the walk can come, so A - B overflows nowhere and no skipped pass fails.
Variant Index_215(Number WS, Number Ta)
{
    const Number A = coolingAt(WS, Ta);
    const Number factor = factorInLightWind();
    const bool upward = !(A - factor * (33 - kStart) > 0);
    const SteppedWalk& walk = upward ? walkUpward() : walkDownward();

    // A - B falls as t falls. The difference of a pass is off by less than four roundings of its
    // larger term, here and there: 16 of them at both ends of the walk leave no doubt. Where the walk
    // ends at its start, no point is certain.
    const auto look = [&](double t) -> Outlook {
        const double slope = factor.value();
        const double d = A.value() - slope * (33 - t);
        const double distance = (upward ? -d : d) - kTolerance;
        const double size = std::fabs(A.value()) + slope * (66 + std::fabs(t));
        const double noise = 16 * std::numeric_limits<double>::epsilon() * size;
        return {distance - noise >= 0, upward ? t + distance / slope : t - distance / slope};
    };
    return walkOn(A, factor, walk.at(lastCertainStep(walk, 0, look)));
}

} // namespace comfortics::formulas
