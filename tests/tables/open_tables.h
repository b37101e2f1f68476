// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables from texts in memory and from the kept files, and their rows as texts for comparing.
#pragma once

#include "tables/row_mapper.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::tests {

inline tables::OpenTable openTable(std::string text, const tables::Shape& told = {},
                                   std::size_t piece = 1U << 20)
{
    return tables::openText(
        [text = std::move(text), piece, at = std::size_t{0}](char* buffer, std::size_t size) mutable {
            const std::size_t count = text.copy(buffer, std::min(size, piece), at);
            at += count;
            return count;
        },
        told);
}

inline std::string tableFile(const std::string& name)
{
    std::ifstream file(COMFORTICS_TABLE_FILES "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Each row as "line: cell|cell", or "line: why it was refused".
inline std::vector<std::string> shownRows(tables::RowSource& rows)
{
    std::vector<std::string> shown;
    tables::Row row;
    while (rows.next(row)) {
        std::string text = std::to_string(row.line) + ":";
        for (std::size_t i = 0; row.refused.empty() && i < row.cells.size(); ++i)
            text += (i == 0 ? " " : "|") + row.cells[i];
        shown.push_back(row.refused.empty() ? text : text + " " + row.refused);
    }
    return shown;
}

/// Each row as "time ta|tg|sr|td|rh|ws", or why it was refused.
inline std::vector<std::string> mappedRows(tables::OpenTable table, const tables::Mapping& mapping)
{
    const tables::RowMapper mapper(mapping, table.layout, "0.20");
    std::vector<std::string> shown;
    tables::Row row;
    tables::MappedRow mapped;
    while (table.rows->next(row)) {
        mapper.map(row, mapped);
        std::string text = mapped.time ? tables::momentText(*mapped.time) + " " : "";
        for (std::size_t i = 0; i < mapped.readings.size(); ++i)
            text += (i == 0 ? "" : "|") + mapped.readings[i];
        shown.push_back(mapped.refused.empty() ? text : "refused: " + mapped.refused);
    }
    return shown;
}

} // namespace comfortics::tests
