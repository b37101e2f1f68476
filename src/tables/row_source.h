// SPDX-License-Identifier: GPL-3.0-or-later
//
// Rows of a foreign table as they stand in its file, one after the other.
#pragma once

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::tables {

/// Fills a buffer with the next bytes of a file; returns how many, 0 at the end.
using ByteSource = std::function<std::size_t(char* buffer, std::size_t size)>;

/// One row: its cells in UTF-8, and the line of the file, or row of the sheet, on which it begins, from 1.
struct Row {
    std::vector<std::string> cells;
    std::size_t line = 0;
    std::string refused; ///< why it cannot be read, a clause; empty where it can

    void clear()
    {
        cells.clear();
        refused.clear();
    }
};

/// Gives the rows of a table and holds no more than a few of them.
class RowSource {
public:
    virtual ~RowSource() = default;
    /// The next row; false at the end. A row that cannot be read is given as refused, and the rows behind
    /// it follow. Throws TableFault where the rest cannot be read.
    virtual bool next(Row& row) = 0;

protected:
    RowSource() = default;
    RowSource(const RowSource&) = default;
    RowSource& operator=(const RowSource&) = default;
};

/// A table, or a mapping, that cannot be used: one sentence for the user.
class TableFault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace comfortics::tables
