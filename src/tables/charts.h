// SPDX-License-Identifier: GPL-3.0-or-later
//
// The data of charts of one index over time, as plain values.
#pragma once

#include "tables/moment.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::tables {

/// The values of a stretch of time.
struct Stretch {
    std::string begin; ///< "2024-07-01", "2024-07" of a month, "07:00" of an hour of the day
    std::size_t count = 0;
    double mean = 0;
    double lowest = 0;
    double highest = 0;
};

/// The mean values of the hours of a day; none where an hour has no value.
struct DayOfHours {
    std::string day; ///< "2024-07-01"
    std::array<std::optional<double>, 24> means;
};

/// Gathers values by their hours, by the clock of the table. Memory grows with the number of days.
class Course {
public:
    void add(const Moment& time, double value);

    /// Days and months that have values, in order.
    std::vector<Stretch> daily() const;
    std::vector<Stretch> monthly() const;
    /// Hours of the day that have values on any day, in order.
    std::vector<Stretch> hourly() const;
    /// Of the first to the last day, those without values included unless they are forty years apart.
    std::vector<DayOfHours> heatMap() const;

private:
    struct Hour {
        std::size_t count = 0;
        double sum = 0;
        double lowest = 0;
        double highest = 0;
        void add(const Hour& other);
    };
    using Day = std::array<Hour, 24>;

    static Stretch stretchOf(std::string begin, const Hour& all);

    std::map<std::int64_t, Day> m_days; // from 1970-01-01
};

} // namespace comfortics::tables
