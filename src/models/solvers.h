// SPDX-License-Identifier: GPL-3.0-or-later
//
// The balances of models/heat_balance.h solved by damped iteration (Liljegren, Carhart, Lawday, Tschopp
// and Sharp, 2008); the names are explained there. Td is the dew point [°C], P in kPa. A wind is taken as
// it stands: the least wind is the caller's.
#pragma once

#include "formulas/rules.h"
#include "models/heat_balance.h"
#include "values/number.h"

namespace comfortics::models {

using formulas::Rules;

enum class SolverStatus {
    Converged,
    NoConvergence, ///< the pass counter ran past its bound, or by the robust rules the balance has no
                   ///< root either: there is no temperature
};

/// What a solver found. It shows no message itself.
struct Solution {
    SolverStatus status = SolverStatus::NoConvergence;
    double celsius = 0; ///< [°C], 0 without convergence

    bool converged() const noexcept { return status == SolverStatus::Converged; }

    friend bool operator==(const Solution&, const Solution&) = default;
};

/// Passes that a solver runs at most.
inline constexpr int kLastPass = 999;
/// A pass that moves the temperature by less than this has converged [K].
inline constexpr double kTolerance = 0.05;

namespace plain {

/// Natural wet-bulb temperature, every step as it stands in the balance.
Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number P, Number WS, Number SR, Number fdir,
                          Number z, Number radiationSwitch);

/// Globe temperature, every step as it stands in the balance.
Solution Globe_Temperature_Model(Number Ta, Number RH, Number P, Number WS, Number SR, Number fdir, Number z);

} // namespace plain

/// The globe at the site for one air: gives the bits, the status and the failures of
/// plain::Globe_Temperature_Model for any SR, without computing again what SR does not change. By the
/// robust rules the root of the balance (models/precise_roots.h) takes the place of a status or failure.
class GlobeModel {
public:
    GlobeModel(Number Ta, Number RH, Number WS, Rules rules = Rules::Classic);

    Solution solve(Number SR) const;
    Rules rules() const noexcept { return m_rules; }

    /// Whether Ta, RH and WS lie where no step but the root of a negative number can fail. The
    /// balance has its terms only there.
    bool ordinary() const noexcept { return m_ordinary; }

    const GlobeBalance<double>& balance() const noexcept { return m_balance; }

private:
    Solution iterate(Number SR) const;

    Number m_Ta;
    Number m_RH;
    Number m_WS;
    Rules m_rules;
    GlobeBalance<double> m_balance;
    bool m_ordinary;
};

/// Globe temperature at the site.
Solution Globe_Temperature_Model(Number Ta, Number RH, Number WS, Number SR, Rules rules = Rules::Classic);

/// Natural wet-bulb temperature at the site: the bits, the status and the failures of
/// plain::Natural_Wet_Bulb, or the root as in GlobeModel.
Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number WS, Number SR,
                          Rules rules = Rules::Classic);

} // namespace comfortics::models
