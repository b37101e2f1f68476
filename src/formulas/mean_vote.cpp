// SPDX-License-Identifier: GPL-3.0-or-later
//
// Legend
//   Icl     thermal resistance of the clothing [clo, then m²K/W]
//   fcl     ratio of the clothed to the bare surface [-]
//   M, W    metabolic rate and external work [W/m²]; met is M in units of 58.15 W/m²
//   Pa      vapour pressure [Pa]
//   t       guess of the clothing's surface temperature [°C]
//   Tcl     that temperature from the heat balance at the guess [°C]
//   Ts      mean skin temperature [°C]
//   hc      convective coefficient [W/m²K], the larger of hn in still air and hf in wind
//   E1..E6  heat losses by diffusion, sweat, breath (latent, dry), radiation, convection [W/m²]
#include "formulas/mean_vote.h"

#include "formulas/stepped_walk.h"
#include "values/run_failure.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace comfortics::formulas {

using values::absolute;
using values::exponential;
using values::power;
using values::RunFailure;

namespace {

constexpr double kStart = 33;
constexpr double kStep = 0.0001;
constexpr double kTolerance = 0.001;
/// Celsius to kelvin, as the balance rounds it.
constexpr double kKelvin = 273;
constexpr const char* kStandsStill = "the mean-vote walk stands still without meeting its tolerance";

/// What one pass of the walk computes at its guess.
struct Pass {
    Number Tcl;
    Number PMV;
};

bool meetsTolerance(Number t, Number Tcl)
{
    return t - Tcl < kTolerance && t - Tcl > -kTolerance;
}

/// The heat balance of one solve. What does not depend on the guess is computed once, and in the
/// order in which the first pass would fail on it; the operations and operands are those of a pass
/// that computes everything itself, so the bits are, too.
class HeatBalance {
public:
    HeatBalance(Number Ta, Number Tmrt, Number Ea, Number WS, Number M0) : m_Ta(Ta)
    {
        const Number met = M0 / 58.15;
        Number Icl = 1.691 - 0.0436 * Ta;
        if (Ta < -30)
            Icl = 3;
        if (Ta > 25)
            Icl = 0.6;
        const Number Pa = Ea * 100;
        const Number M = met * 58.15;
        const Number x = (0.39 * met) + (-0.6);
        const Number rising = exponential(x);
        const Number falling = exponential(-x);
        Number W = M * (0.2 * ((rising - falling) / (rising + falling)));
        if (W < 0)
            W = 0;
        Icl = Icl * 0.155;
        m_Ts = 35.7 - 0.028 * (M - W);
        m_hf = 12.1 * power(WS, 0.5);
        const Number f1 = 1 + 1.29 * Icl;
        const Number f2 = 1.05 + 0.645 * Icl;
        m_fcl = f1 < f2 ? f1 : f2;
        m_radiation = ((Icl * 3.96) * power(10, -8)) * m_fcl;
        m_surroundings = power(Tmrt + kKelvin, 4);
        m_resistance = Icl * m_fcl;
        const Number E1 = (power(10, -3) * 3.05) * ((5733 - 6.99 * (M - W)) - Pa);
        const Number E2 = met > 1 ? 0.42 * ((M - W) - 58.15) : 0;
        const Number E3 = (power(10, -5) * 1.7) * M * (5867 - Pa);
        const Number E4 = (0.0014 * M) * (34 - Ta);
        m_heatBeforeE5 = ((((M - W) - E1) - E2) - E3) - E4;
        m_radiantLoss = (power(10, -8) * 3.96) * m_fcl;
        m_sensation = (exponential((-0.036) * M) * 0.303) + 0.028;
        m_sizeAtStart = terms(kStart, kStart).size;
    }

    /// One pass of the walk: the quantities that change with the guess, and the vote.
    Pass pass(Number t) const
    {
        const Number hn = 2.38 * power(absolute(t - m_Ta), 0.25);
        const Number hc = hn > m_hf ? hn : m_hf;
        const Number fourthPowers = power(t + kKelvin, 4) - m_surroundings;
        const Number Tcl = (m_Ts - m_radiation * fourthPowers) - (m_resistance * hc) * (t - m_Ta);
        const Number E5 = m_radiantLoss * fourthPowers;
        const Number E6 = (m_fcl * hc) * (Tcl - m_Ta);
        return {Tcl, m_sensation * ((m_heatBeforeE5 - E5) - E6)};
    }

    /// Whether the walk is certain to pass t on its way, and where it would end.
    ///
    /// The gap t - Tcl rises with t: by t itself, by the convection, which rises with t - Ta by
    /// either coefficient, and by the radiation as long as t is above -273. A gap beyond the
    /// tolerance at t was therefore beyond it, with the same sign, at every guess before. Below
    /// -273 the fourth power grows again as t falls. There a walk downwards is judged with the
    /// fourth power of `floor`, a guess already passed: the true gap is only wider.
    ///
    /// This holds for exact arithmetic. The gap of a pass is off by less than ten roundings of its
    /// terms' sizes added up, and so is the one below (it never becomes a result, so it makes
    /// products for powers). 64 roundings of the sizes at both ends of the way, between which none
    /// is larger, cover the two of them amply. Where a term overflows, nothing is certain.
    Outlook look(double t, bool upward, double floor) const
    {
        const Terms at = terms(t, floor);
        const double noise = 64 * std::numeric_limits<double>::epsilon() * (at.size + m_sizeAtStart);
        const double distance = (upward ? -at.gap : at.gap) - kTolerance;
        const double ahead = distance / at.slope;
        return {distance - noise >= 0, upward ? t + ahead : t - ahead};
    }

private:
    struct Terms {
        double gap;   ///< t - Tcl
        double slope; ///< its change with t
        double size;  ///< its terms without their signs, added up
    };

    Terms terms(double t, double floor) const
    {
        const double span = t - m_Ta.value();
        const double hn = 2.38 * std::sqrt(std::sqrt(std::fabs(span)));
        const bool still = hn > m_hf.value();
        const double convection = m_resistance.value() * (still ? hn : m_hf.value());
        const double kelvin = std::max(t, floor) + kKelvin;
        const double cube = m_radiation.value() * kelvin * kelvin * kelvin;
        const double received = m_radiation.value() * m_surroundings.value();
        return {.gap = t - ((m_Ts.value() - (cube * kelvin - received)) - convection * span),
                .slope = 1 + convection * (still ? 1.25 : 1) + (t > floor ? 4 * cube : 0),
                .size = std::fabs(t) + std::fabs(m_Ts.value()) + cube * kelvin + received +
                        std::fabs(convection * span)};
    }

    Number m_Ta;
    Number m_Ts;
    Number m_hf;
    Number m_fcl;
    Number m_radiation;    ///< factor of the fourth powers in Tcl
    Number m_surroundings; ///< fourth power of the mean radiant temperature in kelvin
    Number m_resistance;   ///< factor of the convection in Tcl
    Number m_heatBeforeE5;
    Number m_radiantLoss; ///< factor of the fourth powers in E5
    Number m_sensation;   ///< vote per heat load [m²/W]
    double m_sizeAtStart;
};

/// The walk from t, its pass made, to its end. `before` is the guess before t, if any.
///
/// A pass depends on its guess alone. A guess that comes again two steps later comes for ever, and
/// so does one that a step does not move. (Turning back is no proof yet: around a power of two a
/// step forth and a step back can differ by a rounding, once.)
Number walkOn(const HeatBalance& balance, Number t, Pass pass, std::optional<Number> before, Rules rules)
{
    while (!meetsTolerance(t, pass.Tcl)) {
        const Number next = pass.Tcl > t ? t + kStep : t - kStep;
        if (next == before) {
            if (rules == Rules::Robust)
                return pass.PMV;
            throw RunFailure("the mean-vote walk turns back without meeting its tolerance");
        }
        if (next == t)
            throw RunFailure(kStandsStill);
        before = t;
        t = next;
        pass = balance.pass(t);
    }
    return pass.PMV;
}

const SteppedWalk& walkUpward()
{
    static const SteppedWalk walk(kStart - kStep, kStep);
    return walk;
}

const SteppedWalk& walkDownward()
{
    static const SteppedWalk walk(kStart - kStep, -kStep);
    return walk;
}

} // namespace

// Both ways begin with the second guess: 33 is held against a clothing temperature of 0, which it
// never meets, and the first step always leads down.

Number Predicted_Mean_Vote_plain(Number Ta, Number Tmrt, Number Ea, Number WS, Number M0, Rules rules)
{
    const HeatBalance balance(Ta, Tmrt, Ea, WS, M0);
    const Number t = kStart - kStep;
    return walkOn(balance, t, balance.pass(t), std::nullopt, rules);
}

// A pass that is skipped could fail by overflow alone. With |t| below 1.1e12, where the walk stands
// still, that takes an input beyond 1e60. Against such a Ta or Tmrt the guess is lost in rounding,
// so the first pass, which is always made, has the very terms that would overflow later. In such a
// wind the walk leads towards Ta, so the first pass has the largest.
Number Predicted_Mean_Vote(Number Ta, Number Tmrt, Number Ea, Number WS, Number M0, Rules rules)
{
    const HeatBalance balance(Ta, Tmrt, Ea, WS, M0);
    Number t = kStart - kStep;
    Pass pass = balance.pass(t);
    if (meetsTolerance(t, pass.Tcl))
        return pass.PMV;
    const bool upward = pass.Tcl > t;
    const SteppedWalk& walk = upward ? walkUpward() : walkDownward();
    double floor = -kKelvin;
    for (std::uint64_t passed = 0;; ++passed) {
        const auto look = [&](double guess) { return balance.look(guess, upward, floor); };
        passed = lastCertainStep(walk, passed, look);
        if (passed == walk.length())
            throw RunFailure(kStandsStill);
        t = walk.at(passed + 1);
        pass = balance.pass(t);
        if (meetsTolerance(t, pass.Tcl))
            return pass.PMV;
        if (upward != (pass.Tcl > t))
            return walkOn(balance, t, pass, walk.at(passed), rules);
        floor = std::min(floor, t.value());
    }
}

Number Predicted_Percentage_Dissatisfied(Number vote)
{
    return 100 - exponential(-(0.03353 * power(vote, 4) + 0.2179 * power(vote, 2))) * 95;
}

Variant Index_118(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, 230, rules);
}

Variant Index_119(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, 100, rules);
}

Variant Index_120(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, 165, rules);
}

Variant Index_121(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, 65, rules);
}

Variant Index_122(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Mean_Vote(Ta, Tmrt, Ea, WS, 290, rules);
}

Variant Index_123(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_118(Ta, Tmrt, Ea, WS, rules).number());
}

Variant Index_124(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_119(Ta, Tmrt, Ea, WS, rules).number());
}

Variant Index_125(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_120(Ta, Tmrt, Ea, WS, rules).number());
}

Variant Index_126(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_121(Ta, Tmrt, Ea, WS, rules).number());
}

Variant Index_127(Number Ta, Number Tmrt, Number Ea, Number WS, Rules rules)
{
    return Predicted_Percentage_Dissatisfied(Index_122(Ta, Tmrt, Ea, WS, rules).number());
}

} // namespace comfortics::formulas
