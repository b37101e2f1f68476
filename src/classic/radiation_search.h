// SPDX-License-Identifier: GPL-3.0-or-later
//
// The solar radiation that would bring the globe to a measured temperature: the first candidate of
// 0, 1, 2 ... W/m² whose globe temperature is not below the measured one.
#pragma once

#include "models/solvers.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace comfortics::classic {

using formulas::Rules;
using models::GlobeModel;
using models::Solution;
using values::Number;

/// The search ends here, found or not [W/m²].
inline constexpr int kLastCandidate = 1376;

/// Told of every candidate whose globe does not converge, in the order of the candidates. Such a
/// candidate counts as 0 °C, unless the call throws.
using NoConvergence = std::function<void()>;

/// The globe's temperature as the search compares it, through its number text: 15 digits.
bool reaches(const Solution& globe, Number Tg);

namespace plain {

/// The candidates first to last one after the other. Empty if none reaches Tg [°C]. Fails where
/// the globe solver does.
std::optional<std::int16_t> searchRadiation(const GlobeModel& globe, Number Tg, int first, int last,
                                            const NoConvergence& noConvergence);

} // namespace plain

/// How many candidates from 0 up, of those up to `last`, surely have a globe, do not fail and stay
/// below Tg [°C], so that a scan need not solve them.
int skippableCandidates(const GlobeModel& globe, Number Tg, int last);

/// The plain search from 0 to last with the same result, the same reports and the same failure,
/// solving only the candidates that could pass.
std::optional<std::int16_t> searchRadiation(Number Ta, Number RH, Number WS, Number Tg, int last,
                                            const NoConvergence& noConvergence, Rules rules = Rules::Classic);

} // namespace comfortics::classic
