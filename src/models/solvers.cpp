// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/solvers.h"

#include "models/precise_roots.h"
#include "values/run_failure.h"

#include <cmath>
#include <optional>

namespace comfortics::models {

using values::absolute;

namespace plain {

Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number P, Number WS, Number SR, Number fdir,
                          Number z, Number radiationSwitch)
{
    const WickBalance<Number> balance(Ta, RH, P, WS, SR, fdir, z, radiationSwitch);
    Number Tw = Td + kKelvin;
    for (int pass = 1; pass <= kLastPass; ++pass) {
        const Number Tnew = balance.Tnew(Tw);
        const Number d = Tnew - Tw;
        if (d < -kTolerance)
            // The minus before Tnew is deliberate: an overshoot throws Tw down by about a fifth of
            // its kelvin value, and the other branch climbs back.
            Tw = (0.9 * Tw) - (0.1 * Tnew);
        else if (d > kTolerance)
            Tw = (0.9 * Tw) + (0.1 * Tnew);
        else
            return {SolverStatus::Converged, (Tnew - kKelvin).value()};
    }
    return {};
}

Solution Globe_Temperature_Model(Number Ta, Number RH, Number P, Number WS, Number SR, Number fdir, Number z)
{
    const GlobeBalance<Number> balance(Ta, RH, P, WS, fdir, z);
    Number Tp = balance.Tair();
    for (int pass = 1; pass <= kLastPass; ++pass) {
        const Number shade = balance.withoutSun(Tp);
        const Number Tnew = power(shade + balance.solar(SR), 0.25); // no root below 0
        const Number d = Tnew - Tp;
        if (absolute(d) < kTolerance)
            return {SolverStatus::Converged, (Tnew - kKelvin).value()};
        Tp = (0.9 * Tp) + (0.1 * Tnew);
    }
    return {};
}

} // namespace plain

// ---------------------------------------------------------------------------------------------
// The fast solvers. They run in bare doubles inside a range of air and of iterates where every
// divisor is well away from 0 and nothing overflows; whatever leaves that range is solved again by
// the plain solver, whose result or failure it then is. Inside it only a root can fail, and does so
// alike.
//
// An iteration whose state comes back to the bits of an earlier one never converges: it need not
// run to its last pass. The usual case is a swing to and fro between two temperatures.

namespace {

bool ordinaryAir(double Tair, double RH, double WS)
{
    return Tair > 150 && Tair < 700 && RH >= 0 && RH < 1e6 && WS >= 0 && WS < 1e4;
}

bool ordinaryIterate(double T)
{
    return T > 100 && T < 1400;
}

bool ordinaryRadiation(double SR)
{
    return SR > -1e6 && SR < 1e6;
}

/// The solution of the iteration; where that does not converge or fails, the root of its balance. The
/// iteration's own status or failure stands where the balance has no root.
template <typename Iterate, typename Root>
Solution iterationOrRoot(Iterate iterate, Root root)
{
    const auto rootOr = [&root](Solution other) {
        const std::optional<double> celsius = root();
        return celsius ? Solution{SolverStatus::Converged, *celsius} : other;
    };
    try {
        const Solution solution = iterate();
        return solution.converged() ? solution : rootOr(solution);
    } catch (const values::RunFailure&) {
        const Solution solution = rootOr({});
        if (!solution.converged())
            throw;
        return solution;
    }
}

class CycleDetector {
public:
    explicit CycleDetector(double state) : m_kept(state) {}

    /// True if the iteration has been in this state before. Finds cycles of up to kStride states.
    bool repeats(double state)
    {
        if (state == m_kept)
            return true;
        if (++m_sinceKept == kStride) {
            m_kept = state;
            m_sinceKept = 0;
        }
        return false;
    }

private:
    static constexpr int kStride = 16;
    double m_kept;
    int m_sinceKept = 0;
};

std::optional<Solution> quickNaturalWetBulb(double Ta, double Td, double RH, double WS, double SR)
{
    // In still air h is 0 and the division by it fails.
    if (!ordinaryAir(Ta + kKelvin, RH, WS) || WS < 1e-6 || !ordinaryRadiation(SR))
        return std::nullopt;
    const WickBalance<double> balance(Ta, RH, kSitePressure, WS, SR, kDirectFraction, kZenith,
                                      kRadiationSwitch);
    double Tw = Td + kKelvin;
    CycleDetector cycle(Tw);
    for (int pass = 1; pass <= kLastPass; ++pass) {
        if (!ordinaryIterate(Tw))
            return std::nullopt;
        const double Tnew = balance.Tnew(Tw);
        if (!std::isfinite(Tnew)) // ewick met the pressure
            return std::nullopt;
        const double d = Tnew - Tw;
        if (d < -kTolerance)
            Tw = (0.9 * Tw) - (0.1 * Tnew);
        else if (d > kTolerance)
            Tw = (0.9 * Tw) + (0.1 * Tnew);
        else
            return Solution{SolverStatus::Converged, Tnew - kKelvin};
        if (cycle.repeats(Tw))
            return Solution{};
    }
    return Solution{};
}

} // namespace

GlobeModel::GlobeModel(Number Ta, Number RH, Number WS, Rules rules)
    : m_Ta(Ta), m_RH(RH), m_WS(WS), m_rules(rules),
      m_balance(Ta.value(), RH.value(), kSitePressure, WS.value(), kDirectFraction, kZenith),
      m_ordinary(ordinaryAir(m_balance.Tair(), RH.value(), WS.value()))
{
}

Solution GlobeModel::solve(Number SR) const
{
    if (m_rules == Rules::Classic)
        return iterate(SR);
    return iterationOrRoot(
        [&] { return iterate(SR); },
        [&] { return globeRootInWind(m_Ta.value(), m_RH.value(), m_WS.value(), SR.value()); });
}

Solution GlobeModel::iterate(Number SR) const
{
    const auto plainly = [&] {
        return plain::Globe_Temperature_Model(m_Ta, m_RH, kSitePressure, m_WS, SR, kDirectFraction, kZenith);
    };
    if (!m_ordinary || !ordinaryRadiation(SR.value()))
        return plainly();
    const double sun = m_balance.solar(SR.value());
    double Tp = m_balance.Tair();
    // The globe starts at the air's temperature: the first pass has nothing to exchange.
    double fourthPower = m_balance.surroundings() + sun;
    CycleDetector cycle(Tp);
    for (int pass = 1; pass <= kLastPass; ++pass) {
        const double Tnew = power(Number(fourthPower), 0.25).value(); // fails below 0, as in the plain solver
        const double d = Tnew - Tp;
        if (std::abs(d) < kTolerance)
            return {SolverStatus::Converged, Tnew - kKelvin};
        Tp = (0.9 * Tp) + (0.1 * Tnew);
        if (cycle.repeats(Tp))
            return {};
        if (!ordinaryIterate(Tp))
            return plainly();
        fourthPower = m_balance.withoutSun(Tp) + sun;
    }
    return {};
}

Solution Globe_Temperature_Model(Number Ta, Number RH, Number WS, Number SR, Rules rules)
{
    return GlobeModel(Ta, RH, WS, rules).solve(SR);
}

Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number WS, Number SR, Rules rules)
{
    const auto iterate = [&] {
        const auto quick = quickNaturalWetBulb(Ta.value(), Td.value(), RH.value(), WS.value(), SR.value());
        if (quick)
            return *quick;
        return plain::Natural_Wet_Bulb(Ta, Td, RH, kSitePressure, WS, SR, kDirectFraction, kZenith,
                                       kRadiationSwitch);
    };
    if (rules == Rules::Classic)
        return iterate();
    return iterationOrRoot(iterate,
                           [&] { return wickRootInWind(Ta.value(), RH.value(), WS.value(), SR.value()); });
}

} // namespace comfortics::models
