// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/csv_cell.h"

#include <algorithm>

namespace comfortics::output {

void appendCsvCell(std::string& line, std::string_view cell)
{
    // A tab outside quotes would make a reader take the table for a tab-separated one.
    const auto special = [](char c) { return c == ',' || c == '"' || c == '\r' || c == '\n' || c == '\t'; };
    if (std::none_of(cell.begin(), cell.end(), special)) {
        line += cell;
        return;
    }
    line += '"';
    for (const char c : cell) {
        if (c == '"')
            line += '"';
        line += c;
    }
    line += '"';
}

} // namespace comfortics::output
