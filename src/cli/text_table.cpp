// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/text_table.h"

#include <algorithm>
#include <utility>

namespace comfortics::cli {

std::size_t width(std::string_view text)
{
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

TextTable::TextTable(std::vector<std::string> headers, std::vector<Align> alignment)
    : m_alignment(std::move(alignment))
{
    m_rows.push_back(std::move(headers));
}

void TextTable::add(std::vector<std::string> row)
{
    m_rows.push_back(std::move(row));
}

std::string TextTable::text() const
{
    std::vector<std::size_t> widths(m_alignment.size(), 0);
    for (const auto& row : m_rows)
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], width(row[i]));

    std::string result;
    const auto finishLine = [&result] {
        result.erase(result.find_last_not_of(' ') + 1);
        result += '\n';
    };
    for (std::size_t line = 0; line < m_rows.size(); ++line) {
        const auto& row = m_rows[line];
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string padding(widths[i] - width(row[i]), ' ');
            result += i == 0 ? "" : "  ";
            result += m_alignment[i] == Align::Right ? padding + row[i] : row[i] + padding;
        }
        finishLine();
        if (line == 0) {
            for (std::size_t i = 0; i < widths.size(); ++i)
                result += (i == 0 ? "" : "  ") + std::string(widths[i], '-');
            finishLine();
        }
    }
    return result;
}

} // namespace comfortics::cli
