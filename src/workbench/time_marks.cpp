// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/time_marks.h"

#include "tables/moment.h"

#include <array>
#include <optional>

namespace comfortics::workbench {

namespace {

constexpr std::array<const char*, 12> kMonths{"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                              "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
constexpr std::size_t kDatePart = 10; // of "2024-07-01T15:30:00"
constexpr std::size_t kYearPart = 5;  // "2024-"

std::int64_t monthBegin(int months)
{
    return tables::momentOf({months / 12, months % 12 + 1}).value_or(tables::Moment{}).seconds;
}

// Marks on months from year 0 that are a multiple of `size`.
std::vector<TimeMark> monthMarks(std::int64_t from, std::int64_t to, int size, bool yearless)
{
    const tables::ClockTime first = tables::clockTime({from, std::nullopt});
    std::vector<TimeMark> marks;
    for (int month = (first.year * 12 + first.month - 1) / size * size; month / 12 <= 9999; month += size) {
        const std::int64_t begin = monthBegin(month);
        if (begin > to)
            break;
        if (begin < from)
            continue;
        marks.push_back({begin, size % 12 == 0 && !yearless
                                    ? std::to_string(month / 12)
                                    : monthText(month / 12, month % 12 + 1, yearless)});
    }
    return marks;
}

// Marks on multiples of `size` seconds; days of a month's own count do not matter to them.
std::vector<TimeMark> evenMarks(std::int64_t from, std::int64_t to, std::int64_t size, bool yearless)
{
    std::vector<TimeMark> marks;
    for (std::int64_t at = floorOf(from + size - 1, size) * size; at <= to; at += size) {
        const std::string time = timeText(at, yearless);
        const std::size_t dateSize = dayText(at, yearless).size();
        if (size >= kDay || (at % kDay == 0 && size >= kHour))
            marks.push_back({at, time.substr(0, dateSize)});
        else if (marks.empty() || at % kDay == 0)
            marks.push_back({at, time.substr(yearless ? 0 : kYearPart)});
        else
            marks.push_back({at, time.substr(dateSize + 1)});
    }
    return marks;
}

} // namespace

std::vector<TimeMark> timeMarks(std::int64_t from, std::int64_t to, std::size_t most, bool yearless)
{
    for (const std::int64_t size :
         {std::int64_t{1}, std::int64_t{60}, std::int64_t{300}, std::int64_t{900}, std::int64_t{1800}, kHour,
          3 * kHour, 6 * kHour, 12 * kHour, kDay, 2 * kDay, 7 * kDay})
        if ((to - from) / size < static_cast<std::int64_t>(most))
            return evenMarks(from, to, size, yearless);
    for (const int months : {1, 2, 3, 6, 12, 24, 60, 120, 240, 600, 1200, 6000})
        if (auto marks = monthMarks(from, to, months, yearless); marks.size() <= most)
            return marks;
    return {};
}

std::string timeText(std::int64_t seconds, bool yearless)
{
    std::string text = tables::momentText({seconds, std::nullopt});
    text[kDatePart] = ' ';
    if (text.ends_with(":00"))
        text.resize(text.size() - 3);
    return yearless ? text.substr(kYearPart) : text;
}

std::string dayText(std::int64_t seconds, bool yearless)
{
    return tables::momentText({seconds, std::nullopt})
        .substr(yearless ? kYearPart : 0, yearless ? kDatePart - kYearPart : kDatePart);
}

std::string monthText(int year, int month, bool yearless)
{
    if (yearless)
        return kMonths.at(static_cast<std::size_t>(month - 1));
    return tables::momentText(tables::momentOf({year, month}).value_or(tables::Moment{})).substr(0, 7);
}

} // namespace comfortics::workbench
