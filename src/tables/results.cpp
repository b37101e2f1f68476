// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/results.h"

#include "output/csv_cell.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <set>

namespace comfortics::tables {

namespace {

std::string jsonText(std::string_view text)
{
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

} // namespace

bool isJsonNumber(std::string_view cell)
{
    std::size_t at = cell.starts_with('-') ? 1 : 0;
    const auto digits = [&] {
        const std::size_t begin = at;
        while (at < cell.size() && isDigit(cell[at]))
            ++at;
        return at - begin;
    };
    const bool zero = cell.substr(at, 1) == "0";
    const std::size_t whole = digits();
    if (whole == 0 || (zero && whole > 1) || whole > 300)
        return false;
    if (cell.substr(at, 1) == "." && (++at, digits() == 0))
        return false;
    if (at < cell.size() && (cell[at] == 'e' || cell[at] == 'E')) {
        ++at;
        if (at < cell.size() && (cell[at] == '+' || cell[at] == '-'))
            ++at;
        const std::size_t exponent = digits();
        if (exponent == 0 || exponent > 2)
            return false;
    }
    return at == cell.size();
}

void SeparatedWriter::append(std::string& line, std::string_view cell) const
{
    if (m_separator == ',') {
        output::appendCsvCell(line, cell);
        return;
    }
    // What a line of tabs cannot hold.
    for (const char c : cell)
        line += c == '\t' || c == '\r' || c == '\n' ? ' ' : c;
}

void SeparatedWriter::begin(const std::vector<ResultColumn>& columns)
{
    std::string line;
    for (const ResultColumn& column : columns) {
        if (&column != columns.data())
            line += m_separator;
        append(line, column.heading());
    }
    m_take(line + "\r\n");
}

std::string SeparatedWriter::prepared(const ResultBlock& block) const
{
    std::string text;
    for (std::size_t row = 0; row < block.rows(); ++row) {
        for (std::size_t column = 0; column < block.columns(); ++column) {
            if (column > 0)
                text += m_separator;
            append(text, block.cell(row, column));
        }
        text += "\r\n";
    }
    return text;
}

void JsonLinesWriter::begin(const std::vector<ResultColumn>& columns)
{
    m_columns = columns;
    std::set<std::string> taken;
    for (const ResultColumn& column : columns) {
        const std::string heading = column.heading();
        std::string key = heading;
        for (std::size_t n = 2; !taken.insert(key).second; ++n)
            key = heading + " (" + std::to_string(n) + ")";
        m_keys.push_back((m_keys.empty() ? "{" : ", ") + jsonText(key) + ": ");
    }
}

std::string JsonLinesWriter::prepared(const ResultBlock& block) const
{
    std::string text;
    for (std::size_t row = 0; row < block.rows(); ++row) {
        for (std::size_t column = 0; column < block.columns(); ++column) {
            const std::string_view cell = block.cell(row, column);
            text += m_keys[column];
            if (cell.empty())
                text += "null";
            else if (m_columns[column].kind != ResultColumn::Kind::Text && isJsonNumber(cell))
                text += cell;
            else
                text += jsonText(cell);
        }
        text += "}\n";
    }
    return text;
}

} // namespace comfortics::tables
