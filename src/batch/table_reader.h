// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::batch {

/// One row of a table: its cells, and the line of the file on which it begins.
struct TableRow {
    std::vector<std::string> cells;
    std::size_t line = 0;
};

/// A table or a row of it that cannot be read, in one sentence.
class MalformedTable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    MalformedTable(std::size_t line, const std::string& sentence)
        : std::runtime_error("Line " + std::to_string(line) + ": " + sentence)
    {
    }
};

/// Reads a table of separated values row by row, without holding more than a block of it.
///
/// Quotes as in RFC 4180; lines end in CR LF, LF or CR; empty lines are passed over. The text is UTF-8, or
/// UTF-16 with a byte-order mark. The separator is the tab if the first line holds one; otherwise the
/// semicolon or the comma, whichever names more readings in the first line, and of equals the semicolon if
/// it makes six cells or no fewer than the comma. (A decimal comma is a matter of the cells.)
class TableReader {
public:
    /// Fills a buffer with the next bytes; returns how many, 0 at the end.
    using Source = std::function<std::size_t(char* buffer, std::size_t size)>;

    explicit TableReader(Source source);
    ~TableReader();
    TableReader(const TableReader&) = delete;
    TableReader& operator=(const TableReader&) = delete;

    /// Reads the next row into `row`; false at the end. Throws MalformedTable on an open quote, on
    /// text behind a closing quote, on a row longer than a megabyte, and on a text in no such coding.
    bool next(TableRow& row);

    /// What separates the cells: ',', ';' or a tab. Known from the first row on.
    char separator() const noexcept { return m_separator; }

private:
    class Utf16;
    struct FirstLine {
        std::size_t cells = 1;
        std::size_t names = 0; // of readings
        bool tab = false;      // outside of quotes
    };

    int peek();
    int take();
    bool refill();
    bool fetchMore();
    std::size_t fetch(char* buffer, std::size_t size);
    void begin();
    void passMark();
    FirstLine look(char separator);
    void readQuoted(std::string& cell, std::size_t line);

    Source m_source;
    std::unique_ptr<Utf16> m_utf16; // between source and buffer, where the mark says so
    std::vector<char> m_buffer;
    std::size_t m_at = 0;
    std::size_t m_end = 0;
    std::size_t m_line = 1;
    std::size_t m_rowLine = 1; // where the current row begins
    std::size_t m_fetched = 0; // bytes of the blocks that the current row has used up
    char m_separator = ',';
    bool m_begun = false;
    bool m_ended = false; // the source has said so; it is not asked again
};

} // namespace comfortics::batch
