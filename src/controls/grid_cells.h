// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace comfortics::controls {

/// The texts of a grid, packed: eight bytes a cell, which hold a text of up to seven bytes
/// themselves. Longer texts lie one after the other in large blocks. Rows that were never written
/// cost next to nothing. Indices are not checked here; the grid does.
class GridCells {
public:
    GridCells(std::size_t rows, std::size_t cols) { resize(rows, cols); }

    std::size_t rows() const noexcept { return m_rows; }
    std::size_t cols() const noexcept { return m_cols; }

    /// Valid until the next change of any cell.
    std::string_view text(std::size_t row, std::size_t col) const noexcept;
    /// The text may be a view of this store's own texts. At most 4 GiB.
    void setText(std::size_t row, std::size_t col, std::string_view text);

    /// Keeps what lies inside both the old and the new size; new cells are empty.
    void resize(std::size_t rows, std::size_t cols);
    /// Empties all cells.
    void clear();

    /// Row `first + i` takes what row `first + from[i]` held; `from` is a permutation.
    void reorder(std::size_t first, const std::vector<std::uint32_t>& from);

    /// The heap memory that the texts take, in bytes.
    std::size_t heldBytes() const noexcept;

private:
    static constexpr unsigned char kLong = 0xFF;

    // Up to seven bytes of text and their count in the last byte; or the count kLong and, before
    // it, the place of the text: block in four bytes, offset in three.
    struct Cell {
        unsigned char bytes[8] = {};
    };
    struct Block {
        std::unique_ptr<char[]> bytes;
        std::size_t used = 0;
        std::size_t capacity = 0;
    };

    static bool isLong(const Cell& cell) noexcept { return cell.bytes[7] == kLong; }
    static std::string_view longText(const Cell& cell, const std::vector<Block>& blocks) noexcept;
    Cell pack(std::string_view text);
    Cell store(std::string_view text);
    void release(Cell& cell) noexcept;
    void compactIfWorthwhile();

    Cell* rowCells(std::size_t row) const noexcept;
    Cell* rowCellsForWriting(std::size_t row);
    void restride(std::size_t stride);

    std::size_t m_rows = 0;
    std::size_t m_cols = 0;
    std::size_t m_stride = 0;                      // cells from row to row, at least m_cols
    std::vector<std::unique_ptr<Cell[]>> m_chunks; // kChunkRows rows each; none where all are empty
    std::vector<Block> m_blocks;
    std::size_t m_liveBytes = 0; // of long texts that a cell refers to
    std::size_t m_deadBytes = 0; // of long texts that were overwritten
};

} // namespace comfortics::controls
