// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/column_map.h"

#include "texts/number_text.h"
#include "texts/text.h"

#include <algorithm>

namespace comfortics::batch {

using classic::kReadingCount;
using texts::lowered;
using texts::trimmed;

namespace {

std::optional<std::size_t> readingOf(std::string_view header)
{
    const std::string name = lowered(trimmed(header));
    for (std::size_t i = 0; i < kReadingCount; ++i) {
        const classic::ReadingInfo& info = classic::kReadingInfo[i];
        if (name == lowered(info.symbol()) || name == lowered(info.key) || name == lowered(sheetHeader(info)))
            return i;
    }
    return std::nullopt;
}

std::string separatedBy(char separator)
{
    switch (separator) {
    case '\t':
        return "separated by tabs, ";
    case ';':
        return "separated by ;, ";
    default:
        return "separated by commas, ";
    }
}

} // namespace

std::string sheetHeader(const classic::ReadingInfo& reading)
{
    return std::string(reading.heading) + " (" + std::string(reading.unit()) + ")";
}

bool isReadingName(std::string_view header)
{
    return readingOf(header).has_value();
}

ColumnMap ColumnMap::from(const TableRow& first, char separator)
{
    ColumnMap map;
    map.m_header = std::none_of(first.cells.begin(), first.cells.end(),
                                [](const std::string& cell) { return texts::isNumeric(cell); });
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
            throw MalformedTable(first.line,
                                 separatedBy(separator) + "no column is named Ta, Tg, SR, Td, RH or WS.");
        return map;
    }
    if (first.cells.size() < kReadingCount)
        throw MalformedTable(first.line, separatedBy(separator) +
                                             "a table without a header needs six columns, this row has " +
                                             std::to_string(first.cells.size()) + ".");
    for (std::size_t column = 0; column < first.cells.size(); ++column) {
        if (column < kReadingCount) {
            map.m_columns[column] = column;
            map.m_names.push_back(sheetHeader(classic::kReadingInfo[column]));
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
