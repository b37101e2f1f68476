// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/text_rows.h"

#include "texts/text.h"

#include <algorithm>
#include <utility>

namespace comfortics::tables {

namespace {

constexpr std::size_t kLongestRow = std::size_t{1} << 20; // bytes

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

class Splitter {
public:
    Splitter(std::string_view line, char separator, std::vector<std::string>& cells)
        : m_line(line), m_blanks(separator == ' '), m_separator(separator), m_cells(cells)
    {
    }

    bool run()
    {
        std::size_t count = 0;
        std::size_t at = m_blanks ? afterBlanks(0) : 0;
        const std::size_t end = m_blanks ? lastUsed() : m_line.size();
        for (;;) {
            if (count == m_cells.size())
                m_cells.emplace_back();
            std::string& cell = m_cells[count++];
            cell.clear();
            if (at < end && m_line[at] == '"') {
                if (!quoted(cell, at))
                    return false;
            }
            std::size_t stop = at;
            while (stop < end && !separates(m_line[stop]))
                ++stop;
            cell.append(m_line, at, stop - at);
            at = stop;
            if (at >= end || count == kMostCells)
                break;
            at = m_blanks ? afterBlanks(at) : at + 1;
        }
        m_cells.resize(count);
        return true;
    }

private:
    bool separates(char c) const { return m_blanks ? isBlank(c) : c == m_separator; }
    std::size_t afterBlanks(std::size_t at) const
    {
        while (at < m_line.size() && isBlank(m_line[at]))
            ++at;
        return at;
    }
    std::size_t lastUsed() const
    {
        std::size_t end = m_line.size();
        while (end > 0 && isBlank(m_line[end - 1]))
            --end;
        return end;
    }
    bool quoted(std::string& cell, std::size_t& at) const
    {
        for (++at;; at += 2) {
            const std::size_t quote = m_line.find('"', at);
            if (quote == std::string_view::npos)
                return false;
            cell.append(m_line, at, quote - at);
            at = quote;
            if (m_line.substr(at + 1, 1) != "\"")
                break;
            cell += '"';
        }
        ++at;
        return true;
    }

    std::string_view m_line;
    bool m_blanks;
    char m_separator;
    std::vector<std::string>& m_cells;
};

} // namespace

bool splitLine(std::string_view line, char separator, std::vector<std::string>& cells)
{
    return Splitter(line, separator, cells).run();
}

bool splitAtEdges(std::string_view line, const std::vector<std::size_t>& edges,
                  std::vector<std::string>& cells)
{
    cells.assign(edges.size() + 1, "");
    std::size_t column = 0;
    std::size_t character = 0;
    bool inWord = false;
    for (const char c : line) {
        const bool begins = (static_cast<unsigned char>(c) & 0xC0U) != 0x80;
        if (begins && column < edges.size() && character == edges[column]) {
            if (inWord && !isBlank(c))
                return false;
            ++column;
        }
        character += begins ? 1U : 0U;
        inWord = !isBlank(c);
        cells[column] += c;
    }
    for (std::string& cell : cells)
        cell = texts::trimmed(cell);
    return true;
}

TextRows::TextRows(ByteSource source, Coding coding, TextForm form)
    : m_decoder(std::move(source), coding), m_form(std::move(form))
{
}

bool TextRows::fillTo(std::size_t size)
{
    while (m_text.size() < size)
        if (!m_decoder.more(m_text))
            return false;
    return true;
}

// The place of the next line end from there on, or of the end of the text, or as far as a row may reach.
std::size_t TextRows::endOfLine(std::size_t from)
{
    for (;;) {
        const std::string_view rest = std::string_view(m_text).substr(from);
        const std::size_t feed = rest.find('\n');
        const std::size_t carriage = rest.substr(0, feed).find('\r');
        if (carriage != std::string_view::npos)
            return from + carriage;
        if (feed != std::string_view::npos)
            return from + feed;
        if (m_text.size() - m_at > kLongestRow)
            return m_text.size();
        from = m_text.size();
        if (!m_decoder.more(m_text))
            return m_text.size();
    }
}

void TextRows::passLineEnd(std::size_t end)
{
    m_at = end;
    if (m_at == m_text.size() && !fillTo(m_at + 1))
        return;
    ++m_line;
    if (m_text[m_at] == '\r' && fillTo(m_at + 2) && m_text[m_at + 1] == '\n')
        ++m_at;
    ++m_at;
}

bool TextRows::nextLine(std::string& line)
{
    if (m_at == m_text.size() && !fillTo(m_at + 1))
        return false;
    const std::size_t end = endOfLine(m_at);
    line.assign(m_text, m_at, end - m_at);
    passLineEnd(end);
    return true;
}

bool TextRows::next(Row& row)
{
    row.refused.clear();
    if (m_at > kLongestRow) {
        m_text.erase(0, m_at);
        m_at = 0;
    }
    for (;;) {
        if (m_at == m_text.size() && !fillTo(m_at + 1))
            return false;
        const std::size_t end = endOfLine(m_at);
        const std::string_view line(m_text.data() + m_at, end - m_at);
        const bool blank = std::all_of(line.begin(), line.end(), isBlank);
        if (!(blank && (m_form.separator != '\t' || line.empty())) &&
            (m_form.comment.empty() || !line.starts_with(m_form.comment)))
            break;
        passLineEnd(end);
        if (m_at > kLongestRow) {
            m_text.erase(0, m_at);
            m_at = 0;
        }
    }
    row.line = m_line;
    const std::size_t begin = m_at;
    std::size_t end = endOfLine(begin);
    const std::size_t firstEnd = end;
    std::size_t lines = 0;
    std::size_t behind = 0;
    for (;;) {
        const std::string_view text(m_text.data() + begin, end - begin);
        if (text.size() > kLongestRow) {
            row.refused = "the row is longer than a megabyte";
            break;
        }
        if (m_form.separator == kFixedWidth && !splitAtEdges(text, m_form.edges, row.cells)) {
            row.refused = "a cell reaches over the edge of its column";
            break;
        }
        if (m_form.separator == kFixedWidth || splitLine(text, m_form.separator, row.cells)) {
            if (utf8Prefix(text, true) != text.size())
                row.refused = "the row holds bytes that are no UTF-8";
            break;
        }
        // The quote may be closed on a later line.
        behind = end;
        if (behind == m_text.size() && !fillTo(behind + 1)) {
            row.refused = "a quote is opened and never closed";
            break;
        }
        if (m_text[behind] == '\r' && fillTo(behind + 2) && m_text[behind + 1] == '\n')
            ++behind;
        ++lines;
        const std::size_t nextEnd = endOfLine(behind + 1);
        if (nextEnd - begin > kLongestRow) {
            row.refused = "a quote is opened and never closed";
            break;
        }
        end = nextEnd;
    }
    if (row.refused.empty()) {
        m_line += lines;
    } else {
        end = firstEnd;
        row.cells.clear();
        if (end - begin > kLongestRow) { // on to the end of the line, piece by piece
            while (end == m_text.size() || (m_text[end] != '\n' && m_text[end] != '\r')) {
                m_text.erase(0, end);
                m_at = 0;
                if (!fillTo(1))
                    return true;
                end = endOfLine(0);
            }
        }
    }
    passLineEnd(end);
    return true;
}

} // namespace comfortics::tables
