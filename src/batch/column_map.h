// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/table_reader.h"
#include "classic/reading_boxes.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::batch {

/// The header of a reading's column in the sheet, for instance "Wind Speed (m/s)".
std::string sheetHeader(const classic::ReadingInfo& reading);

/// Whether a header is the name of a reading, as the sheet has it or short.
bool isReadingName(std::string_view header);

/// Which column of a table feeds which reading.
class ColumnMap {
public:
    /// Reads the map off a table's first row: by name if it is a header (no cell is a number),
    /// otherwise the sheet's order. Throws MalformedTable if the header names no reading or one of
    /// them twice, or if a table without header has fewer than six columns.
    /// What it throws names the separator by which the row was read.
    static ColumnMap from(const TableRow& first, char separator = ',');

    /// Whether the first row was a header and holds no readings.
    bool firstRowIsHeader() const noexcept { return m_header; }

    /// The names of all columns of the table, made up from the sheet's headers if it has none.
    const std::vector<std::string>& names() const noexcept { return m_names; }

    /// Throws MalformedTable if the row has not as many cells as the first.
    void check(const TableRow& row) const;

    /// The six texts of a row that passed the check; a reading without a column is empty.
    std::array<std::string_view, classic::kReadingCount> readings(const TableRow& row) const;

private:
    bool m_header = false;
    std::vector<std::string> m_names;
    std::array<std::optional<std::size_t>, classic::kReadingCount> m_columns;
};

} // namespace comfortics::batch
