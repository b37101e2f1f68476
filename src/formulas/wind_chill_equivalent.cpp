// SPDX-License-Identifier: GPL-3.0-or-later
//
// Legend
//   A   cooling at the reported wind and air temperature [kg cal/m²/hr]
//   B   cooling at the wind of 1.34 m/s and the air temperature t
//   t   air temperature that the walk has come to [°C]
#include "formulas/wind_chill_equivalent.h"

#include "formulas/stepped_walk.h"

#include <cmath>
#include <limits>
#include <optional>

namespace comfortics::formulas {

namespace {

constexpr double kStart = 0;
constexpr double kStep = 0.01;
constexpr double kTolerance = 0.2;

template <class Real>
Real coolingAt(Real WS, Real Ta)
{
    return ((squareRoot(WS * 100) + 10.45) - WS) * (33 - Ta);
}

/// Cooling per degree below 33 °C at the wind of 1.34 m/s.
double factorInLightWind()
{
    return (squareRoot(134) + 10.45) - 1.34112;
}

/// The walk from t to its end.
///
/// The difference is tested after the step that it decides: the point returned lies one step beyond
/// the one at which the coolings agree. *Deliberate.* A pass depends on t alone, so a point that
/// comes again two steps later comes for ever, and so does one that a step does not move.
template <class Real>
Real walkOn(Real A, double factor, Real t)
{
    for (std::optional<Real> before;;) {
        const Real B = factor * (33 - t);
        const Real d = A - B;
        const Real next = d > 0 ? t - kStep : t + kStep;
        if (d < kTolerance && d > -kTolerance)
            return next;
        if (next == before)
            return undefined<Real>("the wind-chill walk turns back without meeting its tolerance");
        if (next == t)
            return undefined<Real>("the wind-chill walk stands still without meeting its tolerance");
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

template <class Real>
Real Index_215_plain(Real WS, Real Ta)
{
    return walkOn(coolingAt(WS, Ta), factorInLightWind(), Real(kStart));
}

// B is below 1e17 wherever the walk can come, so A - B overflows nowhere and no skipped pass fails.
template <class Real>
Real Index_215(Real WS, Real Ta, Rules rules)
{
    const Real A = coolingAt(WS, Ta);
    if (!isDefined(A))
        return A;
    const double factor = factorInLightWind();
    if (rules == Rules::Precise)
        return 33 - A / factor;
    const bool upward = !(A - factor * (33 - kStart) > 0);
    const SteppedWalk& walk = upward ? walkUpward() : walkDownward();

    // A - B falls as t falls. The difference of a pass is off by less than four roundings of its
    // larger term, here and there: 16 of them at both ends of the walk leave no doubt. Where the walk
    // ends at its start, no point is certain.
    const auto look = [&](double t) -> Outlook {
        const double slope = factor;
        const double d = asDouble(A) - slope * (33 - t);
        const double distance = (upward ? -d : d) - kTolerance;
        const double size = std::fabs(asDouble(A)) + slope * (66 + std::fabs(t));
        const double noise = 16 * std::numeric_limits<double>::epsilon() * size;
        return {distance - noise >= 0, upward ? t + distance / slope : t - distance / slope};
    };
    return walkOn(A, factor, Real(walk.at(lastCertainStep(walk, 0, look))));
}

template Number Index_215(Number, Number, Rules);
template double Index_215(double, double, Rules);
template Number Index_215_plain(Number, Number);

} // namespace comfortics::formulas
