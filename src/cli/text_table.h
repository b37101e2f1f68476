// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::cli {

/// A table aligned for reading on a terminal. Texts are UTF-8; a character counts as one column.
class TextTable {
public:
    enum class Align { Left, Right };

    TextTable(std::vector<std::string> headers, std::vector<Align> alignment);
    void add(std::vector<std::string> row);
    std::string text() const;

private:
    std::vector<Align> m_alignment;
    std::vector<std::vector<std::string>> m_rows; // the headers first
};

/// Number of characters of a UTF-8 text.
std::size_t width(std::string_view text);

} // namespace comfortics::cli
