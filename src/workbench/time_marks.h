// SPDX-License-Identifier: GPL-3.0-or-later
//
// The axis of a time: where its marks stand and what is written at them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace comfortics::workbench {

inline constexpr std::int64_t kHour = 3600;      // [s]
inline constexpr std::int64_t kDay = 24 * kHour; // [s]

/// Whole numbers of times `size` at or below a value that may be negative.
constexpr std::int64_t floorOf(std::int64_t value, std::int64_t size)
{
    return value / size - (value % size < 0 ? 1 : 0);
}

struct TimeMark {
    std::int64_t seconds = 0; ///< from 1970-01-01 00:00
    std::string text;         ///< "2024", "2024-07", "2024-07-01", "07-01 12:00" or "12:00"
};

/// No more than `most` marks (2 or more) from one time to another, on whole years, months, days, hours or
/// minutes. `yearless`: of a typical year, whose years are not written.
std::vector<TimeMark> timeMarks(std::int64_t from, std::int64_t to, std::size_t most, bool yearless = false);

/// "2024-07-01 15:30", with the seconds where there are some.
std::string timeText(std::int64_t seconds, bool yearless = false);
/// "2024-07-01".
std::string dayText(std::int64_t seconds, bool yearless = false);
/// "2024-07", or "Jul" of a typical year.
std::string monthText(int year, int month, bool yearless = false);

} // namespace comfortics::workbench
