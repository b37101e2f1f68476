// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/charts.h"

#include <algorithm>
#include <utility>

namespace comfortics::tables {

namespace {

constexpr std::int64_t kDay = 86400;
constexpr std::int64_t kHour = 3600;
// A file with one wrong year has no map of a million empty days.
constexpr std::int64_t kMostDays = std::int64_t{40} * 366;

std::string dayText(std::int64_t day)
{
    return momentText({day * kDay, std::nullopt}).substr(0, 10);
}

} // namespace

void Course::Hour::add(const Hour& other)
{
    if (other.count == 0)
        return;
    lowest = count == 0 ? other.lowest : std::min(lowest, other.lowest);
    highest = count == 0 ? other.highest : std::max(highest, other.highest);
    count += other.count;
    sum += other.sum;
}

void Course::add(const Moment& time, double value)
{
    const std::int64_t inDay = ((time.seconds % kDay) + kDay) % kDay;
    m_days[(time.seconds - inDay) / kDay][static_cast<std::size_t>(inDay / kHour)].add(
        {1, value, value, value});
}

Stretch Course::stretchOf(std::string begin, const Hour& all)
{
    return {std::move(begin), all.count, all.sum / static_cast<double>(all.count), all.lowest, all.highest};
}

std::vector<Stretch> Course::daily() const
{
    std::vector<Stretch> days;
    for (const auto& [number, hours] : m_days) {
        Hour all;
        for (const Hour& hour : hours)
            all.add(hour);
        days.push_back(stretchOf(dayText(number), all));
    }
    return days;
}

std::vector<Stretch> Course::monthly() const
{
    std::map<std::string, Hour> months;
    for (const auto& [number, hours] : m_days)
        for (const Hour& hour : hours)
            months[dayText(number).substr(0, 7)].add(hour);
    std::vector<Stretch> all;
    all.reserve(months.size());
    for (const auto& [month, values] : months)
        all.push_back(stretchOf(month, values));
    return all;
}

std::vector<Stretch> Course::hourly() const
{
    Day all{};
    for (const auto& [number, hours] : m_days)
        for (std::size_t i = 0; i < hours.size(); ++i)
            all[i].add(hours[i]);
    std::vector<Stretch> stretches;
    for (std::size_t i = 0; i < all.size(); ++i)
        if (all[i].count > 0)
            stretches.push_back(stretchOf(
                momentText({static_cast<std::int64_t>(i) * kHour, std::nullopt}).substr(11, 5), all[i]));
    return stretches;
}

std::vector<DayOfHours> Course::heatMap() const
{
    std::vector<DayOfHours> days;
    if (m_days.empty())
        return days;
    const std::int64_t last = m_days.rbegin()->first;
    const bool dense = last - m_days.begin()->first < kMostDays;
    for (const auto& [number, hours] : m_days) {
        DayOfHours& day = days.emplace_back();
        day.day = dayText(number);
        for (std::size_t i = 0; i < hours.size(); ++i)
            if (hours[i].count > 0)
                day.means[i] = hours[i].sum / static_cast<double>(hours[i].count);
        for (std::int64_t empty = number + 1; dense && number != last && m_days.count(empty) == 0; ++empty)
            days.push_back({dayText(empty), {}});
    }
    return days;
}

} // namespace comfortics::tables
