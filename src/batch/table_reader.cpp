// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/table_reader.h"

#include <string_view>
#include <utility>

namespace comfortics::batch {

namespace {

constexpr std::size_t kBlock = 1U << 16;
constexpr std::size_t kLongestRow = 1U << 20; // bytes, to within a block
constexpr int kEnd = -1;

} // namespace

TableReader::TableReader(Source source) : m_source(std::move(source)), m_buffer(kBlock)
{
}

// After the end a terminal would give more, and wait for it.
std::size_t TableReader::fetch(char* buffer, std::size_t size)
{
    const std::size_t count = m_ended ? 0 : m_source(buffer, size);
    m_ended = count == 0;
    return count;
}

// A row of that length is no row of readings; with a quote that is never closed it would be the
// whole rest of the file.
bool TableReader::refill()
{
    m_fetched += m_end;
    if (m_fetched > kLongestRow)
        throw MalformedTable(m_rowLine, "the row is longer than a megabyte; is a quote never closed?");
    m_at = 0;
    m_end = fetch(m_buffer.data(), m_buffer.size());
    return m_end > 0;
}

int TableReader::peek()
{
    if (m_at == m_end && !refill())
        return kEnd;
    return static_cast<unsigned char>(m_buffer[m_at]);
}

int TableReader::take()
{
    const int c = peek();
    if (c != kEnd)
        ++m_at;
    return c;
}

bool TableReader::fetchMore()
{
    const std::size_t more =
        m_end == m_buffer.size() ? 0 : fetch(m_buffer.data() + m_end, m_buffer.size() - m_end);
    m_end += more;
    return more > 0;
}

// Looks at the first block only: a first line longer than that is no table of readings.
void TableReader::begin()
{
    m_begun = true;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    while (m_end < kByteOrderMark.size() && fetchMore()) {
    }
    if (std::string_view(m_buffer.data(), m_end).starts_with(kByteOrderMark))
        m_at = kByteOrderMark.size();

    // A tab outside quotes, on the first line that is not empty, makes the table tab-separated.
    bool lineBegun = false;
    bool cellBegins = true;
    bool cellQuoted = false;
    bool quoteOpen = false;
    for (std::size_t i = m_at; i < m_end || fetchMore(); ++i) {
        const char c = m_buffer[i];
        if (c == '"') {
            cellQuoted = cellQuoted || cellBegins;
            quoteOpen = cellQuoted && !quoteOpen;
        } else if (!quoteOpen) {
            if (c == '\t') {
                m_separator = '\t';
                return;
            }
            if (c == '\n' || c == '\r') {
                if (lineBegun)
                    return;
                continue;
            }
            cellQuoted = cellQuoted && c != ',';
        }
        lineBegun = true;
        cellBegins = c == ',' && !quoteOpen;
    }
}

void TableReader::readQuoted(std::string& cell, std::size_t line)
{
    for (;;) {
        const int c = take();
        if (c == kEnd)
            throw MalformedTable(line, "a quote is opened and never closed.");
        if (c == '"') {
            if (peek() != '"')
                return;
            take();
        } else if (c == '\n' || (c == '\r' && peek() != '\n')) {
            ++m_line;
        }
        cell += static_cast<char>(c);
    }
}

bool TableReader::next(TableRow& row)
{
    if (!m_begun)
        begin();
    m_fetched = 0;
    while (peek() == '\n' || peek() == '\r') {
        if (take() == '\n' || peek() != '\n')
            ++m_line;
        m_fetched = 0;
    }
    if (peek() == kEnd)
        return false;

    row.line = m_rowLine = m_line;
    std::size_t count = 0;
    const auto nextCell = [&]() -> std::string& {
        if (count == row.cells.size())
            row.cells.emplace_back();
        row.cells[count].clear();
        return row.cells[count++];
    };
    for (bool more = true; more;) {
        std::string& cell = nextCell();
        bool closed = false;
        for (;;) {
            const int c = take();
            if (c == m_separator)
                break;
            if (c == kEnd || c == '\n') {
                m_line += c == '\n' ? 1 : 0;
                more = false;
                break;
            }
            if (c == '\r') {
                if (peek() == '\n')
                    take();
                ++m_line;
                more = false;
                break;
            }
            if (closed)
                throw MalformedTable(row.line, "text stands behind a closing quote.");
            if (c == '"' && cell.empty()) {
                readQuoted(cell, row.line);
                closed = true;
            } else {
                cell += static_cast<char>(c);
            }
        }
    }
    row.cells.resize(count);
    return true;
}

} // namespace comfortics::batch
