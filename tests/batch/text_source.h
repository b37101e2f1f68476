// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables from a text in memory, handed over in pieces of any size.
#pragma once

#include "batch/table_reader.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::tests {

inline batch::TableReader tableOf(std::string text, std::size_t piece = 1U << 20)
{
    return batch::TableReader(
        [text = std::move(text), piece, at = std::size_t{0}](char* buffer, std::size_t size) mutable {
            const std::size_t count = std::min({size, piece, text.size() - at});
            text.copy(buffer, count, at);
            at += count;
            return count;
        });
}

/// What a reader gives, for comparing: each row as "line: cell|cell|cell", and at the end the
/// sentence of the error, if there is one.
inline std::vector<std::string> rowsOf(batch::TableReader reader)
{
    std::vector<std::string> rows;
    batch::TableRow row;
    try {
        while (reader.next(row)) {
            std::string shown = std::to_string(row.line) + ":";
            for (std::size_t i = 0; i < row.cells.size(); ++i)
                shown += (i == 0 ? " " : "|") + row.cells[i];
            rows.push_back(std::move(shown));
        }
    } catch (const batch::MalformedTable& error) {
        rows.push_back(error.what());
    }
    return rows;
}

} // namespace comfortics::tests
