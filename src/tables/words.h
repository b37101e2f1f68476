// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace comfortics::tables {

/// A text in lower case and without accents, Latin and Greek alike: "Taupunkt-Température" and
/// "ΘΕΡΜΟΚΡΑΣΊΑ" as "taupunkt-temperature" and "θερμοκρασια". Other characters stand.
std::string folded(std::string_view text);

/// The words of a folded text: runs of letters and digits. A small letter before a large one, and a letter
/// before a digit, part words, too, as in "AirTemp" and "wind10".
std::vector<std::string> words(std::string_view text);

/// A column's name without the numbers of the sensors that some loggers put behind it, as "RH, %" of
/// "RH, % (LGR S/N: 20123)".
std::string_view withoutSensors(std::string_view name);

/// Whether the words stand among the others, one behind the other.
bool contains(const std::vector<std::string>& all, const std::vector<std::string>& wanted);

} // namespace comfortics::tables
