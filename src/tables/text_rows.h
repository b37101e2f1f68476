// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/coding.h"
#include "tables/row_source.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace comfortics::tables {

/// In place of a separator: columns of fixed width.
inline constexpr char kFixedWidth = 'w';

/// How a text is divided into cells.
struct TextForm {
    /// ',', ';', a tab, '|', or a blank: then runs of blanks and tabs separate; or kFixedWidth.
    char separator = ',';
    std::vector<std::size_t> edges{}; ///< of fixed columns: the characters in front of each but the first
    std::string comment;              ///< lines that begin with it are passed over; empty: there are none

    friend bool operator==(const TextForm&, const TextForm&) = default;
};

/// What stands behind so many cells of a row is not read.
inline constexpr std::size_t kMostCells = 16384;

/// Splits one line at edges of columns, and takes the blanks around each cell away. False where a word
/// reaches over an edge.
bool splitAtEdges(std::string_view line, const std::vector<std::size_t>& edges,
                  std::vector<std::string>& cells);

/// Splits one line without quotes that reach over its end. False where a quote is left open.
bool splitLine(std::string_view line, char separator, std::vector<std::string>& cells);

/// The rows of a text. Quotes as in RFC 4180; lines end in CR LF, LF or CR; empty lines and comments are
/// passed over. A quote that is never closed costs its line alone.
class TextRows final : public RowSource {
public:
    TextRows(ByteSource source, Coding coding, TextForm form);

    bool next(Row& row) override;

    /// The raw lines before the first row that is wanted, one after the other; false at the end.
    bool nextLine(std::string& line);

private:
    bool fillTo(std::size_t size);
    std::size_t endOfLine(std::size_t from);
    void passLineEnd(std::size_t end);

    Decoder m_decoder;
    TextForm m_form;
    std::string m_text; // decoded, from m_at on not used yet
    std::size_t m_at = 0;
    std::size_t m_line = 1;
};

} // namespace comfortics::tables
