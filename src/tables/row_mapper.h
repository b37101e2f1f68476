// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/additions.h"
#include "tables/mapping.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::tables {

/// One row as a calculation takes it.
struct MappedRow {
    /// In their units; empty: a gap, or displaced by the other one of its pair.
    std::array<std::string, classic::kReadingCount> readings;
    std::optional<Moment> time;
    std::string refused; ///< why the row is not taken, a clause that names its cell; empty where it is

    std::array<std::string_view, classic::kReadingCount> views() const
    {
        std::array<std::string_view, classic::kReadingCount> all;
        for (std::size_t i = 0; i < all.size(); ++i)
            all[i] = readings[i];
        return all;
    }
};

/// Takes the readings out of the rows of a table. A number that stands in its unit goes through with all of
/// its digits; one that is converted has four decimals, as in the window.
class RowMapper {
public:
    /// `friction` is the exponent of the wind's profile, as the box of the assumptions has it. Throws
    /// TableFault where the table lacks a column of the mapping, or a wind at a height has no number for an
    /// exponent.
    RowMapper(const Mapping& mapping, const Layout& layout, std::string_view friction);

    void map(const Row& row, MappedRow& result) const;

    /// What each column is called as an input of models, by its place: the id that the mapping tells, the key
    /// of the reading that it is, or else its own name.
    std::vector<std::string> inputNames() const;
    /// A cell as an input of models: that of a reading in the reading's unit, others as they stand, with a
    /// unit where the mapping tells one, and a point for a decimal mark; empty for a gap.
    std::string inputText(std::size_t column, const catalogue::InputInfo& input, const Row& row,
                          const MappedRow& mapped) const;

    /// The columns that go through, by their place.
    const std::vector<std::size_t>& carried() const noexcept { return m_carried; }
    /// Of the station, where there is one.
    const std::optional<std::size_t>& station() const noexcept { return m_station; }
    bool hasTime() const noexcept { return !m_times.empty(); }

private:
    struct Source {
        std::size_t column = 0;
        Quantity quantity = Quantity::Ta;
        UnitWay way;
        double share = 1; // of the wind that it is at the height of the box
        std::vector<std::string> gaps;
    };
    struct TimeSource {
        std::size_t column = 0;
        Role role = Role::Time;
    };

    bool isGap(std::string_view cell, const std::vector<std::string>& gaps) const;
    void takeReading(const Source& source, const Row& row, MappedRow& result) const;
    void takeTime(const Row& row, MappedRow& result) const;
    std::optional<Moment> timeOfParts(const Row& row, bool& gap) const;

    std::vector<std::string> m_names;
    std::vector<Source> m_sources;
    std::vector<TimeSource> m_times;
    std::vector<ColumnUse> m_uses; // of each column
    std::vector<std::size_t> m_carried;
    std::optional<std::size_t> m_station;
    std::vector<std::string> m_gaps;
    DateOrder m_order;
    std::optional<int> m_zone;
    char m_decimal;
    bool m_timeParts = false; // year, month and so on in columns of their own
    bool m_hourEnds;
};

} // namespace comfortics::tables
