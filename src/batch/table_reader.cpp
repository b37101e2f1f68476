// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/table_reader.h"

#include "batch/column_map.h"

#include <algorithm>
#include <cerrno>
#include <string_view>
#include <utility>

#include <iconv.h>

namespace comfortics::batch {

namespace {

constexpr std::size_t kBlock = 1U << 16;
constexpr std::size_t kLongestRow = 1U << 20; // bytes, to within a block
constexpr int kEnd = -1;

constexpr const char* kNoCoding = "The text is neither UTF-8 nor UTF-16 with a byte-order mark.";

} // namespace

/// Turns the rest of a source from UTF-16 into UTF-8.
class TableReader::Utf16 {
public:
    /// `begun` are bytes behind the mark that were read already, perhaps to the end.
    Utf16(const char* coding, std::string begun, bool ended)
        : m_converter(::iconv_open("UTF-8", coding)), m_raw(std::move(begun)), m_ended(ended)
    {
        if (m_converter == iconv_t(-1)) // NOLINT(performance-no-int-to-ptr): what the call answers
            throw MalformedTable("This system cannot read UTF-16.");
    }
    ~Utf16() { ::iconv_close(m_converter); }
    Utf16(const Utf16&) = delete;
    Utf16& operator=(const Utf16&) = delete;

    std::size_t read(const Source& source, char* buffer, std::size_t size)
    {
        convert();
        while (m_text.empty()) {
            if (m_broken)
                throw MalformedTable("The text is marked as UTF-16 and holds what is none.");
            char bytes[kBlock / 4];
            const std::size_t count = m_ended ? 0 : source(bytes, sizeof bytes);
            if (count == 0) {
                if (!m_raw.empty())
                    throw MalformedTable("The text ends in the middle of a UTF-16 character.");
                return 0;
            }
            m_raw.append(bytes, count);
            convert();
        }
        const std::size_t count = m_text.copy(buffer, size);
        m_text.erase(0, count);
        return count;
    }

private:
    void convert()
    {
        char* from = m_raw.data();
        std::size_t left = m_raw.size();
        bool more = left > 0 && !m_broken;
        while (more) {
            char bytes[kBlock / 4];
            char* to = bytes;
            std::size_t room = sizeof bytes;
            const bool failed =
                ::iconv(m_converter, &from, &left, &to, &room) == static_cast<std::size_t>(-1);
            m_broken = m_broken || (failed && errno == EILSEQ);
            more = failed && errno == E2BIG;
            m_text.append(bytes, to);
        }
        m_raw.erase(0, m_raw.size() - left); // what stays is a part of a character
    }

    iconv_t m_converter;
    std::string m_raw;
    std::string m_text;
    bool m_ended;
    bool m_broken = false; // behind m_text stands what is no UTF-16
};

TableReader::TableReader(Source source) : m_source(std::move(source)), m_buffer(kBlock)
{
}

TableReader::~TableReader() = default;

// After the end a terminal would give more, and wait for it.
std::size_t TableReader::fetch(char* buffer, std::size_t size)
{
    if (m_ended || size == 0)
        return 0;
    const std::size_t count = m_utf16 ? m_utf16->read(m_source, buffer, size) : m_source(buffer, size);
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

void TableReader::passMark()
{
    using namespace std::string_view_literals;
    constexpr std::size_t kLongestMark = 4;
    while (m_end < kLongestMark && fetchMore()) {
    }
    const std::string_view text(m_buffer.data(), m_end);
    const bool small = text.starts_with("\xFF\xFE"sv);
    if (text.starts_with("\xEF\xBB\xBF"sv)) {
        m_at = 3;
    } else if (text.starts_with("\xFF\xFE\0\0"sv) || text.substr(0, 2).find('\0') != std::string_view::npos) {
        throw MalformedTable(kNoCoding);
    } else if (small || text.starts_with("\xFE\xFF"sv)) {
        m_utf16 =
            std::make_unique<Utf16>(small ? "UTF-16LE" : "UTF-16BE", std::string(text.substr(2)), m_ended);
        m_end = 0;
        m_ended = false; // what was read holds text
    }
}

// Looks at the first block only: a first line longer than that is no table of readings.
void TableReader::begin()
{
    m_begun = true;
    passMark();
    const FirstLine commas = look(',');
    if (commas.tab) {
        m_separator = '\t';
        return;
    }
    const FirstLine semicolons = look(';');
    const bool semicolon = semicolons.names != commas.names
                               ? semicolons.names > commas.names
                               : semicolons.cells >= std::min(classic::kReadingCount, commas.cells);
    m_separator = semicolon && semicolons.cells > 1 ? ';' : ',';
}

// The first line that is not empty, as that separator divides it.
TableReader::FirstLine TableReader::look(char separator)
{
    FirstLine line;
    std::string cell;
    bool lineBegun = false;
    bool cellBegins = true;
    bool cellQuoted = false;
    bool quoteOpen = false;
    for (std::size_t i = m_at; i < m_end || fetchMore(); ++i) {
        const char c = m_buffer[i];
        if (!quoteOpen && (c == '\n' || c == '\r')) {
            if (lineBegun)
                break;
            continue;
        }
        lineBegun = true;
        const bool ends = !quoteOpen && c == separator;
        if (c == '"') {
            cellQuoted = cellQuoted || cellBegins;
            quoteOpen = cellQuoted && !quoteOpen;
        } else if (ends) {
            ++line.cells;
            if (isReadingName(cell))
                ++line.names;
            cell.clear();
            cellQuoted = false;
        } else {
            line.tab = line.tab || (c == '\t' && !quoteOpen);
            cell += c;
        }
        cellBegins = ends;
    }
    if (isReadingName(cell))
        ++line.names;
    return line;
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
