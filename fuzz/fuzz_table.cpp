// SPDX-License-Identifier: GPL-3.0-or-later
//
// The table reader against a plain parser of the whole text, in blocks of every size, and the way
// through the CSV writer and back.
#include "check.h"
#include "input.h"

#include "batch/column_map.h"
#include "batch/table_reader.h"
#include "output/csv_cell.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::fuzz {
namespace {

using batch::MalformedTable;
using batch::TableReader;
using batch::TableRow;

constexpr std::string_view kMark = "\xEF\xBB\xBF";

// By its first bytes it is not the UTF-8 that it would be without them.
bool isMarked(std::string_view text)
{
    const std::string_view start = text.substr(0, 2);
    return text.starts_with(kMark) || start == "\xFF\xFE" || start == "\xFE\xFF" ||
           start.find('\0') != std::string_view::npos;
}

/// Rows, and the sentence of the error that ended them.
struct Table {
    std::vector<TableRow> rows;
    std::string error;
};

Table read(std::string_view text, std::size_t piece)
{
    std::size_t at = 0;
    TableReader reader([&](char* buffer, std::size_t size) {
        const std::size_t count = std::min({size, piece, text.size() - at});
        text.copy(buffer, count, at);
        at += count;
        return count;
    });
    Table table;
    TableRow row;
    try {
        while (reader.next(row))
            table.rows.push_back(row);
    } catch (const MalformedTable& error) {
        table.error = error.what();
    }
    return table;
}

void requireSame(const Table& one, const Table& other, const char* what)
{
    require(one.rows.size() == other.rows.size(), what, std::to_string(one.rows.size()),
            std::to_string(other.rows.size()));
    for (std::size_t i = 0; i < one.rows.size(); ++i) {
        require(one.rows[i].line == other.rows[i].line, what, std::to_string(one.rows[i].line),
                std::to_string(other.rows[i].line));
        require(one.rows[i].cells.size() == other.rows[i].cells.size(), what, one.rows[i].cells.front(),
                other.rows[i].cells.front());
        for (std::size_t col = 0; col < one.rows[i].cells.size(); ++col)
            requireEqual(one.rows[i].cells[col], other.rows[i].cells[col], what);
    }
    requireEqual(one.error, other.error, what);
}

std::size_t lineEnds(std::string_view text)
{
    std::size_t count = 0;
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] == '\n' || (text[at] == '\r' && text.substr(at + 1, 1) != "\n"))
            ++count;
    return count;
}

// The same by one walk over the whole text with line ends made equal.
class PlainTable {
public:
    explicit PlainTable(std::string_view text) : m_text(text)
    {
        if (m_text.starts_with(kMark))
            m_text.remove_prefix(kMark.size());
        m_separator = separator();
    }

    Table all()
    {
        Table table;
        while (passEmptyLines())
            if (!row(table))
                break;
        return table;
    }

private:
    std::size_t endOfLine(std::size_t at) const // the length of the line end there, 0 if there is none
    {
        if (at >= m_text.size() || (m_text[at] != '\r' && m_text[at] != '\n'))
            return 0;
        return m_text.substr(at, 2) == "\r\n" ? 2 : 1;
    }

    bool passEmptyLines()
    {
        while (const std::size_t length = endOfLine(m_at)) {
            m_at += length;
            ++m_line;
        }
        return m_at < m_text.size();
    }

    // The cells of the first line; quotes count where a cell begins with one, and fall away.
    std::vector<std::string> firstLine(char separator, bool& tab) const
    {
        std::size_t at = 0;
        while (const std::size_t length = endOfLine(at))
            at += length;
        std::vector<std::string> cells(1);
        while (at < m_text.size() && endOfLine(at) == 0) {
            const bool quoted = m_text[at] == '"';
            bool open = quoted;
            for (at += quoted ? 1 : 0; at < m_text.size() && (open || endOfLine(at) == 0); ++at) {
                if (quoted && m_text[at] == '"') {
                    open = !open;
                    continue;
                }
                if (!open && m_text[at] == separator)
                    break;
                tab = tab || (!open && m_text[at] == '\t');
                cells.back() += m_text[at];
            }
            if (at < m_text.size() && m_text[at] == separator) {
                cells.emplace_back();
                ++at;
            }
        }
        return cells;
    }

    char separator() const
    {
        bool tab = false;
        const std::vector<std::string> commas = firstLine(',', tab);
        if (tab)
            return '\t';
        const std::vector<std::string> semicolons = firstLine(';', tab);
        const auto names = [](const std::vector<std::string>& cells) {
            return std::count_if(cells.begin(), cells.end(), batch::isReadingName);
        };
        if (semicolons.size() == 1 || names(commas) > names(semicolons))
            return ',';
        const bool enough = semicolons.size() >= 6 || semicolons.size() >= commas.size();
        return enough || names(semicolons) > names(commas) ? ';' : ',';
    }

    bool row(Table& table)
    {
        TableRow row;
        row.line = m_line;
        const std::string place = "Line " + std::to_string(row.line) + ": ";
        for (;;) {
            std::string cell;
            bool quoted = false;
            if (m_at < m_text.size() && m_text[m_at] == '"') {
                quoted = true;
                ++m_at;
                for (;;) {
                    const std::size_t quote = m_text.find('"', m_at);
                    if (quote == std::string_view::npos) {
                        table.error = place + "a quote is opened and never closed.";
                        return false;
                    }
                    cell += m_text.substr(m_at, quote - m_at);
                    m_at = quote + 1;
                    if (m_text.substr(m_at, 1) != "\"")
                        break;
                    cell += '"';
                    ++m_at;
                }
                m_line += lineEnds(cell);
            }
            while (m_at < m_text.size() && endOfLine(m_at) == 0 && m_text[m_at] != m_separator) {
                if (quoted) {
                    table.error = place + "text stands behind a closing quote.";
                    return false;
                }
                cell += m_text[m_at++];
            }
            row.cells.push_back(std::move(cell));
            if (m_at < m_text.size() && m_text[m_at] == m_separator) {
                ++m_at;
                continue;
            }
            if (const std::size_t length = endOfLine(m_at)) {
                m_at += length;
                ++m_line;
            }
            table.rows.push_back(std::move(row));
            return true;
        }
    }

    std::string_view m_text;
    std::size_t m_at = 0;
    std::size_t m_line = 1;
    char m_separator = ',';
};

void checkColumns(const Table& table)
{
    if (table.rows.empty())
        return;
    try {
        const batch::ColumnMap columns = batch::ColumnMap::from(table.rows.front());
        require(columns.names().size() == table.rows.front().cells.size(), "each column has a name");
        for (const TableRow& row : table.rows) {
            try {
                columns.check(row);
            } catch (const MalformedTable& error) {
                require(row.cells.size() != columns.names().size(), "a row of the right length",
                        error.what());
                continue;
            }
            for (const std::string_view text : columns.readings(row))
                require(text.empty() || std::count(row.cells.begin(), row.cells.end(), text) > 0,
                        "readings are cells", text);
        }
    } catch (const MalformedTable& error) {
        require(std::string_view(error.what()).starts_with("Line "), "an error names its line", error.what());
    }
}

// A row of one empty cell would be an empty line, a mark at the front would be a byte-order mark (also one
// that the first separator completes), and a semicolon in the first row might separate: no table of the
// program has any of them.
void checkRoundTrip(const Table& table)
{
    std::string csv;
    Table expected;
    std::size_t line = 1;
    for (const TableRow& row : table.rows) {
        std::string text;
        for (std::size_t col = 0; col < row.cells.size(); ++col) {
            text += col == 0 ? "" : ",";
            output::appendCsvCell(text, row.cells[col]);
        }
        if (text.empty() || (csv.empty() && (isMarked(text) || text.find(';') != std::string::npos)))
            continue;
        expected.rows.push_back({row.cells, line});
        line += lineEnds(text) + 1;
        csv += text + "\r\n";
    }
    requireSame(read(csv, csv.size()), expected, "a table, written and read");
}

void check(std::string_view text, std::size_t piece)
{
    const Table table = read(text, text.size());
    requireSame(read(text, 1), table, "a table in single bytes");
    requireSame(read(text, piece), table, "a table in pieces");
    if (isMarked(text) && !text.starts_with(kMark))
        return; // UTF-16, or no text at all
    requireSame(PlainTable(text).all(), table, "a table, another way");
    checkColumns(table);
    checkRoundTrip(table);
}

} // namespace
} // namespace comfortics::fuzz

/// The input is the size of the pieces in one byte, then the table.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    comfortics::fuzz::Input input(data, size);
    const std::size_t piece = input.byte() % 64 + 2;
    comfortics::fuzz::check(input.rest(), piece);
    return 0;
}
