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

#include "formulas/bracketed_root.h"
#include "formulas/stepped_walk.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace comfortics::formulas {

namespace {

constexpr double kStart = 33;
constexpr double kStep = 0.0001;
constexpr double kTolerance = 0.001;
/// Celsius to kelvin, as the balance rounds it.
constexpr double kKelvin = 273;
constexpr const char* kTurnsBack = "the mean-vote walk turns back without meeting its tolerance";
constexpr const char* kStandsStill = "the mean-vote walk stands still without meeting its tolerance";
constexpr const char* kNoRoot = "the clothing's heat balance has no solution";

/// What one pass of the walk computes at its guess.
template <class Real>
struct Pass {
    Real Tcl;
    Real PMV;
};

template <class Real>
bool meetsTolerance(Real t, Real Tcl)
{
    return t - Tcl < kTolerance && t - Tcl > -kTolerance;
}

/// The heat balance of one solve. What does not depend on the guess is computed once, and in the
/// order in which the first pass would fail on it; the operations and operands are those of a pass
/// that computes everything itself, so the bits are, too.
template <class Real>
class HeatBalance {
public:
    HeatBalance(Real Ta, Real Tmrt, Real Ea, Real WS, const Metabolism<Real>& metabolism)
        : m_Ta(Ta), m_sensation(metabolism.sensation)
    {
        const Real M = metabolism.M;
        const Real W = metabolism.W;
        Real Icl = 1.691 - 0.0436 * Ta;
        if (Ta < -30)
            Icl = 3;
        if (Ta > 25)
            Icl = 0.6;
        const Real Pa = Ea * 100;
        Icl = Icl * 0.155;
        m_Ts = 35.7 - 0.028 * (M - W);
        m_hf = 12.1 * power(WS, 0.5);
        const Real f1 = 1 + 1.29 * Icl;
        const Real f2 = 1.05 + 0.645 * Icl;
        m_fcl = f1 < f2 ? f1 : f2;
        m_radiation = ((Icl * 3.96) * kTenToMinus8) * m_fcl;
        m_surroundings = power(Tmrt + kKelvin, 4);
        m_resistance = Icl * m_fcl;
        const Real E1 = (kTenToMinus3 * 3.05) * ((5733 - 6.99 * (M - W)) - Pa);
        const Real E2 = metabolism.met > 1 ? 0.42 * ((M - W) - 58.15) : 0;
        const Real E3 = (kTenToMinus5 * 1.7) * M * (5867 - Pa);
        const Real E4 = (0.0014 * M) * (34 - Ta);
        m_heatBeforeE5 = ((((M - W) - E1) - E2) - E3) - E4;
        m_radiantLoss = (kTenToMinus8 * 3.96) * m_fcl;
        m_sizeAtStart = terms(kStart, kStart).size;
    }

    /// One pass of the walk: the quantities that change with the guess, and the vote.
    Pass<Real> pass(Real t) const
    {
        const Real hn = 2.38 * power(absolute(t - m_Ta), 0.25);
        const Real hc = hn > m_hf ? hn : m_hf;
        const Real fourthPowers = power(t + kKelvin, 4) - m_surroundings;
        const Real Tcl = (m_Ts - m_radiation * fourthPowers) - (m_resistance * hc) * (t - m_Ta);
        const Real E5 = m_radiantLoss * fourthPowers;
        const Real E6 = (m_fcl * hc) * (Tcl - m_Ta);
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

    /// The guess that equals its Tcl, the only one above -273. None where there is none.
    ///
    /// It lies among the temperatures that draw it: those of the skin, of the air and of the surroundings
    /// as far as they radiate. There the gap rises by 1 or more per degree. In double for both number
    /// types, and so with the same bits.
    std::optional<double> root() const
    {
        const double Ta = asDouble(m_Ta);
        const double Ts = asDouble(m_Ts);
        const double Tr = std::sqrt(std::sqrt(asDouble(m_surroundings))) - kKelvin;
        const double low = std::min({Ta, Ts, Tr});
        const double high = std::max({Ta, Ts, Tr});
        if (!(low > -kKelvin))
            return std::nullopt;
        // The coefficients at the air's temperature and the skin's give a guess from one more straight line.
        const Terms atMean = terms(0.5 * (Ta + Ts), low);
        const double start = 0.5 * (Ta + Ts) - atMean.gap / atMean.slope;
        return bracketedRoot(
            {.low = low, .high = high, .start = start, .slope = -atMean.slope, .leastSlope = 1},
            [&](double t) { return -terms(t, low).gap; });
    }

private:
    struct Terms {
        double gap;   ///< t - Tcl
        double slope; ///< its change with t
        double size;  ///< its terms without their signs, added up
    };

    Terms terms(double t, double floor) const
    {
        const double span = t - asDouble(m_Ta);
        const double hn = 2.38 * std::sqrt(std::sqrt(std::fabs(span)));
        const bool still = hn > asDouble(m_hf);
        const double convection = asDouble(m_resistance) * (still ? hn : asDouble(m_hf));
        const double kelvin = std::max(t, floor) + kKelvin;
        const double cube = asDouble(m_radiation) * kelvin * kelvin * kelvin;
        const double received = asDouble(m_radiation) * asDouble(m_surroundings);
        return {.gap = t - ((asDouble(m_Ts) - (cube * kelvin - received)) - convection * span),
                .slope = 1 + convection * (still ? 1.25 : 1) + (t > floor ? 4 * cube : 0),
                .size = std::fabs(t) + std::fabs(asDouble(m_Ts)) + cube * kelvin + received +
                        std::fabs(convection * span)};
    }

    Real m_Ta;
    Real m_sensation; ///< vote per heat load [m²/W]
    Real m_Ts;
    Real m_hf;
    Real m_fcl;
    Real m_radiation;    ///< factor of the fourth powers in Tcl
    Real m_surroundings; ///< fourth power of the mean radiant temperature in kelvin
    Real m_resistance;   ///< factor of the convection in Tcl
    Real m_heatBeforeE5;
    Real m_radiantLoss; ///< factor of the fourth powers in E5
    double m_sizeAtStart;
};

/// The vote at the root of the balance.
template <class Real>
Real voteAtRoot(const HeatBalance<Real>& balance)
{
    const std::optional<double> root = balance.root();
    return root ? balance.pass(*root).PMV : undefined<Real>(kNoRoot);
}

/// The walk from t, its pass made, to its end. `before` is the guess before t, if any.
///
/// A pass depends on its guess alone. A guess that comes again two steps later comes for ever, and
/// so does one that a step does not move. (Turning back is no proof yet: around a power of two a
/// step forth and a step back can differ by a rounding, once.)
template <class Real>
Real walkOn(const HeatBalance<Real>& balance, Real t, Pass<Real> pass, std::optional<Real> before,
            Rules rules)
{
    while (!meetsTolerance(t, pass.Tcl)) {
        const Real next = pass.Tcl > t ? t + kStep : t - kStep;
        if (next == before) {
            if (rules == Rules::Classic)
                return undefined<Real>(kTurnsBack);
            return pass.PMV;
        }
        if (next == t)
            return undefined<Real>(kStandsStill);
        before = t;
        t = next;
        pass = balance.pass(t);
        if (!isDefined(pass.PMV))
            break;
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

template <class Real>
Real Predicted_Mean_Vote_plain(Real Ta, Real Tmrt, Real Ea, Real WS, Real M0, Rules rules)
{
    const HeatBalance<Real> balance(Ta, Tmrt, Ea, WS, Metabolism<Real>(M0));
    const Real t = kStart - kStep;
    return walkOn<Real>(balance, t, balance.pass(t), std::nullopt, rules);
}

// A pass that is skipped could fail by overflow alone. With |t| below 1.1e12, where the walk stands
// still, that takes an input beyond 1e60. Against such a Ta or Tmrt the guess is lost in rounding,
// so the first pass, which is always made, has the very terms that would overflow later. In such a
// wind the walk leads towards Ta, so the first pass has the largest.
template <class Real>
Real Predicted_Mean_Vote(Real Ta, Real Tmrt, Real Ea, Real WS, const Metabolism<Real>& metabolism,
                         Rules rules)
{
    const HeatBalance<Real> balance(Ta, Tmrt, Ea, WS, metabolism);
    if (rules == Rules::Precise)
        return voteAtRoot(balance);
    Real t = kStart - kStep;
    Pass<Real> pass = balance.pass(t);
    if (!isDefined(pass.PMV))
        return pass.PMV;
    if (meetsTolerance(t, pass.Tcl))
        return pass.PMV;
    const bool upward = pass.Tcl > t;
    const SteppedWalk& walk = upward ? walkUpward() : walkDownward();
    double floor = -kKelvin;
    for (std::uint64_t passed = 0;; ++passed) {
        const auto look = [&](double guess) { return balance.look(guess, upward, floor); };
        passed = lastCertainStep(walk, passed, look);
        if (passed == walk.length())
            return undefined<Real>(kStandsStill);
        t = walk.at(passed + 1);
        pass = balance.pass(t);
        if (!isDefined(pass.PMV))
            return pass.PMV;
        if (meetsTolerance(t, pass.Tcl))
            return pass.PMV;
        if (upward != (pass.Tcl > t))
            return walkOn<Real>(balance, t, pass, walk.at(passed), rules);
        floor = std::min(floor, asDouble(t));
    }
}

template Number Predicted_Mean_Vote(Number, Number, Number, Number, const Metabolism<Number>&, Rules);
template double Predicted_Mean_Vote(double, double, double, double, const Metabolism<double>&, Rules);
template Number Predicted_Mean_Vote_plain(Number, Number, Number, Number, Number, Rules);

} // namespace comfortics::formulas
