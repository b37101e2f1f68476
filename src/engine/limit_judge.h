// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/weather.h"

#include <comfortics/catalogue.h>

#include <cstddef>
#include <span>

namespace comfortics::engine {

/// The quantities that the limits of an index judge, in the order in which they are asked.
std::span<const Quantity> judgedQuantities(const Limits& limits);

/// What the temperature limits compare, of up to two figures in the order of judgedQuantities().
double judgedTemperature(Judged judged, double first, double second);

/// Judges the points whose status is Value: OutsideTemperature or OutsideWind where the limits exclude them.
/// `columns` are the values in the order of judgedQuantities(); null for one that is not known and not
/// judged. Returns whether none was excluded.
bool judge(const Limits& limits, std::span<const double* const> columns, std::size_t count, Status* statuses);

} // namespace comfortics::engine
