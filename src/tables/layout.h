// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/coding.h"
#include "tables/text_rows.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::tables {

enum class FileKind : std::uint8_t { Text, Epw, Xlsx };

/// What is told of a text's shape; what is not, is guessed.
struct Shape {
    std::optional<Coding> coding{};
    std::optional<char> separator{};        ///< as TextForm has it
    std::optional<char> decimal{};          ///< '.' or ','
    std::optional<std::string> comment{};   ///< what comments begin with; an empty text: there are none
    std::optional<std::size_t> header{};    ///< the line of the names; 0: no line has them
    std::optional<std::size_t> unitLines{}; ///< how many lines behind the names have units and the like
    std::optional<std::size_t> dataLine{};  ///< on which the readings begin
    std::string sheet{};                    ///< of a workbook; empty: the first

    friend bool operator==(const Shape&, const Shape&) = default;
};

/// How a table is laid out.
struct Layout {
    FileKind kind = FileKind::Text;
    Coding coding = Coding::Utf8;
    TextForm form;
    char decimal = '.';
    bool header = false;              ///< the columns have names of their own
    std::vector<std::string> names;   ///< one for each column, none of them twice
    std::vector<std::string> units;   ///< as written for the column in its name or on a line; empty where not
    std::size_t nameLine = 0;         ///< the first that has names; 0: none
    std::size_t unitLines = 0;        ///< lines behind the names with units and the like
    std::size_t dataLine = 1;         ///< on which the first readings stand
    std::optional<int> zone;          ///< the clock's offset from UTC [min], where the file tells it
    std::string place;                ///< where the readings are from, where the file tells it
    std::vector<std::string> because; ///< how the shape was found, in sentences
    std::vector<std::string> doubts;  ///< what else it could be, in sentences

    std::size_t columns() const noexcept { return names.size(); }
};

/// Finds the layout of a text from its first bytes. Throws TableFault where they are no table.
Layout guessLayout(std::string_view sample, bool whole, const Shape& told);

/// A table that is open: its layout, the first rows for a look, then all rows.
struct OpenTable {
    Layout layout;
    std::vector<Row> look; ///< the first rows of readings; they come from `rows` again
    std::unique_ptr<RowSource> rows;
};

/// Opens a text, or an EPW file, which is known by its first word.
OpenTable openText(ByteSource source, const Shape& told = {});

/// The names made unlike each other: of equal ones the second gets " (2)"; empty ones become "Column 3".
void makeNamesDiffer(std::vector<std::string>& names);

/// The number that a cell holds with that decimal mark; none where the cell is no plain number.
std::optional<double> cellNumber(std::string_view cell, char decimal);

/// Whether a cell is empty or one of the usual marks for what is missing.
bool isUsualGap(std::string_view cell);

} // namespace comfortics::tables
