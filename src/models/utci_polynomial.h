// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/formula_call.h"
#include "formulas/real.h"
#include "values/number.h"

#include <array>
#include <cstddef>

namespace comfortics::models {

using values::Number;

/// One monomial of the regression: coefficient * Ta^a * va^b * D^c * Pa^d.
struct UtciTerm {
    int Ta;
    int va;
    int D;
    int Pa;
    double coefficient;
};

inline constexpr std::size_t kUtciTermCount = 210;

/// The regression of the Universal Thermal Climate Index (Bröde et al., 2012), by ascending power
/// of Pa, then of D, then of va, then of Ta.
extern const std::array<UtciTerm, kUtciTermCount> kUtciTerms;

/// How many of the terms each partial sum S1 to S8 takes. S1 has a bare Ta before them.
inline constexpr std::array<std::size_t, 8> kUtciPartialSums{50, 25, 25, 25, 25, 25, 25, 10};

/// Universal Thermal Climate Index [°C] from air temperature Ta [°C], wind speed va [m/s],
/// D = Tmrt - Ta [K] and vapour pressure Pa [kPa]. Every term is its coefficient times its
/// variables one at a time, every partial sum runs from left to right. No range is checked: the
/// regression was fitted to -50 <= Ta <= 50, 0.5 <= va <= 17, -30 <= D <= 70, Pa <= 5.
/// Fails on overflow.
Number UTCI_Polynomial(Number Ta, Number va, Number D, Number Pa);

/// The exponent of UTCI_Vapour_Pressure. Its 17.29 is this index's own, where the indoor WBGT has 17.27.
template <class Real>
Real UTCI_Vapour_Exponent(Real Td)
{
    return (17.29 * Td) / (Td + 237.3);
}

/// Factor of UTCI_Vapour_Pressure [kPa], this index's own, where the indoor WBGT has 0.6106.
inline constexpr double kUtciVapourFactor = 0.6108;

/// Vapour pressure [kPa] at the dew point Td [°C].
template <class Real>
Real UTCI_Vapour_Pressure(Real Td)
{
    using formulas::exponential; // for either number type
    return exponential(UTCI_Vapour_Exponent(Td)) * kUtciVapourFactor;
}

/// Universal Thermal Climate Index [°C] from air temperature [°C], mean radiant temperature [°C], wind
/// speed at 10 m [m/s] and relative humidity [%], as a formula for points and blocks.
extern const formulas::FormulaCall kUtciOfHumidity;
/// The same from the dew point [°C] in place of the humidity.
extern const formulas::FormulaCall kUtciOfDewPoint;

} // namespace comfortics::models
