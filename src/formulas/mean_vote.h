// SPDX-License-Identifier: GPL-3.0-or-later
//
// Predicted mean vote and percentage of dissatisfied outdoors: the heat balance of Fanger (1970)
// with a clothing that follows the air temperature, at five metabolic rates (da Silva, 2013).
// Inputs throughout: Ta air temperature [°C], Tmrt mean radiant temperature [°C], Ea vapour
// pressure [hPa], WS wind speed [m/s].
#pragma once

#include "formulas/real.h"
#include "formulas/rules.h"

namespace comfortics::formulas {

/// What the vote takes from the metabolic rate M0 [W/m²] alone; a loop over points computes it once.
template <class Real>
struct Metabolism {
    explicit Metabolism(Real M0) : met(M0 / 58.15), M(met * 58.15)
    {
        const Real x = (0.39 * met) + (-0.6);
        const Real rising = exponential(x);
        const Real falling = exponential(-x);
        W = M * (0.2 * ((rising - falling) / (rising + falling)));
        if (W < 0)
            W = 0;
        sensation = (exponential((-0.036) * M) * 0.303) + 0.028;
    }

    Real met;
    Real M;
    Real W = 0;         ///< external work [W/m²]
    Real sensation = 0; ///< vote per heat load [m²/W]
};

/// The predicted mean vote [-] at the metabolic rate M0 [W/m²].
///
/// A guess of the clothing's surface temperature walks from 33 °C in steps of 0.0001 towards the
/// temperature that the heat balance computes from it, until the two agree within 0.001. The result
/// is that of the walk to the last bit, and so are its failures, but the points at which the walk
/// is certain to go on are skipped.
///
/// Fails below a wind of 0; where the walk steps across its answer without meeting the tolerance,
/// as it does in strong wind at great cold, and would turn back and forth for ever; where the guess
/// has become so large that a step no longer moves it; and on overflow. By the robust rules a walk
/// that turns back ends there, with the vote of its last pass.
///
/// By the precise rules the clothing's surface temperature is the one that the heat balance gives back,
/// found to 1e-9 K. This fails below a wind of 0; where no such temperature lies above -273 °C, as for an
/// air below; and on overflow. The walk's temperature lies within 0.001 of it, one step more where the
/// walk turns back.
template <class Real>
Real Predicted_Mean_Vote(Real Ta, Real Tmrt, Real Ea, Real WS, const Metabolism<Real>& metabolism,
                         Rules rules);

template <class Real>
Real Predicted_Mean_Vote(Real Ta, Real Tmrt, Real Ea, Real WS, Real M0, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, Metabolism<Real>(M0), rules);
}

/// The reference for Predicted_Mean_Vote: the same walk, made step by step. A thousand times slower.
template <class Real>
Real Predicted_Mean_Vote_plain(Real Ta, Real Tmrt, Real Ea, Real WS, Real M0, Rules rules);

// In mean_vote.cpp, for both number types.
extern template Number Predicted_Mean_Vote(Number, Number, Number, Number, const Metabolism<Number>&, Rules);
extern template double Predicted_Mean_Vote(double, double, double, double, const Metabolism<double>&, Rules);
extern template Number Predicted_Mean_Vote_plain(Number, Number, Number, Number, Number, Rules);

/// The predicted percentage of dissatisfied [%] at a mean vote, ISO 7730 (2005). 5 % at a vote of 0.
template <class Real>
Real Predicted_Percentage_Dissatisfied(Real vote)
{
    return 100 - exponential(-(0.03353 * power(vote, 4) + 0.2179 * power(vote, 2))) * 95;
}

/// Index 118, predicted mean vote [-] at the high metabolic rate of 230 W/m², da Silva (2013).
template <class Real>
Real Index_118(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, Real(230), rules);
}

/// Index 119, predicted mean vote [-] at the low metabolic rate of 100 W/m², da Silva (2013).
template <class Real>
Real Index_119(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, Real(100), rules);
}

/// Index 120, predicted mean vote [-] at the moderate metabolic rate of 165 W/m², da Silva (2013).
template <class Real>
Real Index_120(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, Real(165), rules);
}

/// Index 121, predicted mean vote [-] at rest, 65 W/m², da Silva (2013).
template <class Real>
Real Index_121(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, Real(65), rules);
}

/// Index 122, predicted mean vote [-] at the very high metabolic rate of 290 W/m², da Silva (2013).
template <class Real>
Real Index_122(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, Real(290), rules);
}

/// Index 123, percentage of dissatisfied people [%] at the vote of index 118.
template <class Real>
Real Index_123(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_118(Ta, Tmrt, Ea, WS, rules));
}

/// Index 124, percentage of dissatisfied people [%] at the vote of index 119.
template <class Real>
Real Index_124(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_119(Ta, Tmrt, Ea, WS, rules));
}

/// Index 125, percentage of dissatisfied people [%] at the vote of index 120.
template <class Real>
Real Index_125(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_120(Ta, Tmrt, Ea, WS, rules));
}

/// Index 126, percentage of dissatisfied people [%] at the vote of index 121.
template <class Real>
Real Index_126(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_121(Ta, Tmrt, Ea, WS, rules));
}

/// Index 127, percentage of dissatisfied people [%] at the vote of index 122.
template <class Real>
Real Index_127(Real Ta, Real Tmrt, Real Ea, Real WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_122(Ta, Tmrt, Ea, WS, rules));
}

} // namespace comfortics::formulas
