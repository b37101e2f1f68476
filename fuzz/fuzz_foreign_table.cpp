// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables of others: the layout, the rows, the guess of their columns and the readings, in pieces of every
// size.
#include "check.h"
#include "input.h"

#include "tables/row_mapper.h"
#include "texts/number_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::fuzz {
namespace {

using namespace tables;

// What an opened table gives, or the sentence that it is none.
struct Read {
    Layout layout;
    std::vector<Row> rows;
    Mapping guess;
    std::string fault;
};

Read read(std::string_view text, std::size_t piece)
{
    Read result;
    std::size_t at = 0;
    try {
        OpenTable table = openText([&](char* buffer, std::size_t size) {
            const std::size_t count = text.copy(buffer, std::min(size, piece), at);
            at += count;
            return count;
        });
        result.layout = table.layout;
        result.guess = guessMapping(table);
        Row row;
        while (table.rows->next(row))
            result.rows.push_back(row);
        for (std::size_t i = 0; i < table.look.size(); ++i)
            require(table.look[i].cells == result.rows[i].cells, "the look is the first rows");
    } catch (const TableFault& fault) {
        result.fault = fault.what();
    }
    return result;
}

void checkRows(const Read& table)
{
    std::size_t line = 0;
    for (const Row& row : table.rows) {
        require(row.line > line && row.line >= table.layout.dataLine, "rows stand on later lines");
        require(!row.refused.empty() || row.cells.size() == table.layout.columns(), "a row has all cells");
        line = row.line;
    }
}

void checkReadings(const Read& table)
{
    const auto isReading = [](const ColumnUse& use) { return use.role == Role::Reading; };
    if (std::none_of(table.guess.columns.begin(), table.guess.columns.end(), isReading))
        return;
    const RowMapper mapper(table.guess, table.layout, "0.20");
    MappedRow mapped;
    for (const Row& row : table.rows) {
        mapper.map(row, mapped);
        for (const std::string& reading : mapped.readings)
            require(reading.empty() || texts::isNumeric(reading) ||
                        reading.find_first_of("eE") != std::string::npos,
                    "a reading is a number", reading);
        if (!mapped.time)
            continue;
        const auto again = readMoment(momentText(*mapped.time), DateOrder::YearMonthDay);
        require(again == mapped.time, "a time, written and read", momentText(*mapped.time));
    }
}

void check(std::string_view text, std::size_t piece)
{
    const Read table = read(text, text.size() + 1);
    const Read pieces = read(text, piece);
    requireEqual(pieces.fault, table.fault, "a table in pieces");
    require(pieces.guess == table.guess && pieces.rows.size() == table.rows.size(), "a table in pieces");
    for (std::size_t i = 0; i < table.rows.size(); ++i)
        require(pieces.rows[i].cells == table.rows[i].cells &&
                    pieces.rows[i].refused == table.rows[i].refused,
                "a row in pieces");
    if (!table.fault.empty())
        return;
    checkRows(table);
    checkReadings(table);
    const MappingRead again = readMapping(mappingText(table.guess));
    requireEqual(again.fault, "", "a guess, written and read");
}

} // namespace
} // namespace comfortics::fuzz

/// The input is the size of the pieces in one byte, then the table.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    comfortics::fuzz::Input input(data, size);
    const std::size_t piece = input.byte() % 64 + 1;
    comfortics::fuzz::check(input.rest(), piece);
    return 0;
}
