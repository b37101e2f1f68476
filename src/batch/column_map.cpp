// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/column_map.h"

#include "values/number_text.h"
#include "values/text.h"

#include <algorithm>

namespace comfortics::batch {

using core::kReadingCount;
using values::lowered;
using values::trimmed;

namespace {

std::optional<std::size_t> readingOf(std::string_view header)
{
    constexpr std::array<std::array<std::string_view, 2>, kReadingCount> kShortNames{
        {{"ta", "ta"}, {"tg", "tg"}, {"sr", "sr"}, {"td", "dp"}, {"rh", "rh"}, {"ws", "ws"}}};
    const std::string name = lowered(trimmed(header));
    for (std::size_t i = 0; i < kReadingCount; ++i)
        if (name == kShortNames[i][0] || name == kShortNames[i][1] || name == lowered(kSheetHeaders[i]))
            return i;
    return std::nullopt;
}

} // namespace

ColumnMap ColumnMap::from(const TableRow& first)
{
    ColumnMap map;
    map.m_header = std::none_of(first.cells.begin(), first.cells.end(),
                                [](const std::string& cell) { return values::isNumeric(cell); });
    if (map.m_header) {
        map.m_names = first.cells;
        bool any = false;
        for (std::size_t column = 0; column < first.cells.size(); ++column) {
            const auto reading = readingOf(first.cells[column]);
            if (!reading)
                continue;
            if (map.m_columns[*reading])
                throw MalformedTable(first.line, "two columns give " + first.cells[column] + ".");
            map.m_columns[*reading] = column;
            any = true;
        }
        if (!any)
            throw MalformedTable(first.line, "no column is named Ta, Tg, SR, Td, RH or WS.");
        return map;
    }
    if (first.cells.size() < kReadingCount)
        throw MalformedTable(first.line, "a table without a header needs six columns, this row has " +
                                             std::to_string(first.cells.size()) + ".");
    for (std::size_t column = 0; column < first.cells.size(); ++column) {
        if (column < kReadingCount) {
            map.m_columns[column] = column;
            map.m_names.emplace_back(kSheetHeaders[column]);
        } else {
            map.m_names.push_back("Column " + std::to_string(column + 1));
        }
    }
    return map;
}

void ColumnMap::check(const TableRow& row) const
{
    if (row.cells.size() != m_names.size())
        throw MalformedTable(row.line, "the row has " + std::to_string(row.cells.size()) +
                                           " cells where the table has " + std::to_string(m_names.size()) +
                                           " columns.");
}

std::array<std::string_view, kReadingCount> ColumnMap::readings(const TableRow& row) const
{
    std::array<std::string_view, kReadingCount> texts;
    for (std::size_t i = 0; i < kReadingCount; ++i)
        if (m_columns[i])
            texts[i] = row.cells[*m_columns[i]];
    return texts;
}

} // namespace comfortics::batch
