// SPDX-License-Identifier: GPL-3.0-or-later
//
// The table of one day's solar radiation: the minutes of models/solar_radiation.h as texts.
#pragma once

#include "models/solar_radiation.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace comfortics::radiation {

using models::DayLimits;
using models::Site;

/// The figures of one minute [W/m²].
enum class Figure { Horizontal, Tilted, HorizontalClouds, TiltedClouds };
inline constexpr std::size_t kFigureCount = 4;

/// The texts of one minute and the row of the table that they are written to. The first minute may
/// have row 0, which the header takes afterwards; the last ones may have a row past the end.
struct MinuteRow {
    std::size_t row = 0;
    std::string time; ///< "hh:mm"
    std::array<std::string, kFigureCount> figures;
};

/// All minutes of the table. Fails as models::walkMinutes does.
std::vector<MinuteRow> minuteRows(const Site& site, const DayLimits& limits);

} // namespace comfortics::radiation
