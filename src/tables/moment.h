// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::tables {

/// A date and time as a clock shows it.
struct Moment {
    std::int64_t seconds = 0;  ///< from 1970-01-01 00:00 of that clock, by the Gregorian calendar
    std::optional<int> offset; ///< of the clock from UTC [min], where it is known

    friend bool operator==(const Moment&, const Moment&) = default;
};

/// The fields of a moment.
struct ClockTime {
    int year = 0;
    int month = 1; ///< from 1
    int day = 1;   ///< from 1
    int hour = 0;
    int minute = 0;
    int second = 0;
};

/// None where there is no such day or time. 24:00 is the next day's 0:00; a 60th second the next minute.
std::optional<Moment> momentOf(const ClockTime& time);
ClockTime clockTime(const Moment& moment);

/// In which order numbers make a date: "2024-03-01", "1.3.2024", "3/1/2024".
enum class DateOrder : std::uint8_t { YearMonthDay, DayMonthYear, MonthDayYear };

/// "ymd", "dmy", "mdy".
std::string_view orderName(DateOrder order);
std::optional<DateOrder> orderOfName(std::string_view name);

/// Reads a date with or without a time: numbers with any marks between them, or written together
/// ("20240301", "202403011530"); a month by its English, German, French, Spanish or Greek name; "am" and
/// "pm"; "Z" or an offset such as "+02:00". Whatever the order, a number of four digits in front is the
/// year. Parts of a second are cut off. A time alone is none.
std::optional<Moment> readMoment(std::string_view text, DateOrder order);

/// Whether the text could be a date, a time of day, or both.
bool looksLikeTime(std::string_view text);

/// The orders that a text can be read by, as bits `1 << order`; 0 where it holds no date of numbers that
/// an order matters for.
unsigned possibleOrders(std::string_view text);

/// "Z", "UTC", "+02:00", "-0330", "+1" as minutes.
std::optional<int> readOffset(std::string_view text);

/// "2024-03-01T15:30:00", with the offset behind it where it is known.
std::string momentText(const Moment& moment);

} // namespace comfortics::tables
