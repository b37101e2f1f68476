// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/grid_cells.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <limits>
#include <utility>

namespace comfortics::controls {

namespace {

constexpr std::size_t kChunkRows = 256;
constexpr std::size_t kShortest = 7; // the longest text that a cell holds itself
constexpr std::size_t kLengthBytes = sizeof(std::uint32_t);
constexpr std::size_t kFirstBlock = std::size_t{1} << 12;
constexpr std::size_t kLargestBlock = std::size_t{1} << 20; // offsets stay below 2^24
constexpr std::size_t kDeadBytesAllowed = std::size_t{1} << 16;

} // namespace

std::string_view GridCells::longText(const Cell& cell, const std::vector<Block>& blocks) noexcept
{
    std::uint32_t block = 0;
    std::memcpy(&block, cell.bytes, sizeof block);
    const std::size_t offset = static_cast<std::size_t>(cell.bytes[4]) |
                               static_cast<std::size_t>(cell.bytes[5]) << 8 |
                               static_cast<std::size_t>(cell.bytes[6]) << 16;
    const char* start = blocks[block].bytes.get() + offset;
    std::uint32_t length = 0;
    std::memcpy(&length, start, kLengthBytes);
    return {start + kLengthBytes, length};
}

GridCells::Cell GridCells::store(std::string_view text)
{
    assert(text.size() <= std::numeric_limits<std::uint32_t>::max());
    const std::size_t needed = text.size() + kLengthBytes;
    if (m_blocks.empty() || m_blocks.back().capacity - m_blocks.back().used < needed) {
        const std::size_t usual =
            m_blocks.empty() ? kFirstBlock : std::min(m_blocks.back().capacity * 2, kLargestBlock);
        const std::size_t capacity = std::max(usual, needed);
        m_blocks.push_back({std::make_unique_for_overwrite<char[]>(capacity), 0, capacity});
    }
    Block& block = m_blocks.back();
    const std::size_t offset = block.used;
    const auto length = static_cast<std::uint32_t>(text.size());
    std::memcpy(block.bytes.get() + offset, &length, kLengthBytes);
    std::memcpy(block.bytes.get() + offset + kLengthBytes, text.data(), text.size());
    block.used += needed;
    m_liveBytes += needed;

    Cell cell;
    const auto number = static_cast<std::uint32_t>(m_blocks.size() - 1);
    std::memcpy(cell.bytes, &number, sizeof number);
    cell.bytes[4] = static_cast<unsigned char>(offset & 0xFF);
    cell.bytes[5] = static_cast<unsigned char>(offset >> 8 & 0xFF);
    cell.bytes[6] = static_cast<unsigned char>(offset >> 16 & 0xFF);
    cell.bytes[7] = kLong;
    return cell;
}

GridCells::Cell GridCells::pack(std::string_view text)
{
    if (text.size() > kShortest)
        return store(text);
    Cell cell;
    std::copy(text.begin(), text.end(), cell.bytes);
    cell.bytes[7] = static_cast<unsigned char>(text.size());
    return cell;
}

void GridCells::release(Cell& cell) noexcept
{
    if (isLong(cell)) {
        const std::size_t bytes = longText(cell, m_blocks).size() + kLengthBytes;
        m_liveBytes -= bytes;
        m_deadBytes += bytes;
    }
    cell = Cell();
}

// Compaction visits every cell, so it waits for garbage in proportion to the cells as well.
void GridCells::compactIfWorthwhile()
{
    if (m_deadBytes <= m_liveBytes + kDeadBytesAllowed + m_rows * m_cols / 2)
        return;
    const std::vector<Block> old = std::exchange(m_blocks, {});
    m_liveBytes = 0;
    m_deadBytes = 0;
    for (const std::unique_ptr<Cell[]>& chunk : m_chunks) {
        if (!chunk)
            continue;
        for (Cell* cell = chunk.get(); cell != chunk.get() + kChunkRows * m_stride; ++cell)
            if (isLong(*cell))
                *cell = store(longText(*cell, old));
    }
}

GridCells::Cell* GridCells::rowCells(std::size_t row) const noexcept
{
    Cell* chunk = m_chunks[row / kChunkRows].get();
    return chunk ? chunk + row % kChunkRows * m_stride : nullptr;
}

GridCells::Cell* GridCells::rowCellsForWriting(std::size_t row)
{
    std::unique_ptr<Cell[]>& chunk = m_chunks[row / kChunkRows];
    if (!chunk)
        chunk = std::make_unique<Cell[]>(kChunkRows * m_stride);
    return chunk.get() + row % kChunkRows * m_stride;
}

std::string_view GridCells::text(std::size_t row, std::size_t col) const noexcept
{
    const Cell* cells = rowCells(row);
    if (!cells)
        return {};
    const Cell& cell = cells[col];
    if (isLong(cell))
        return longText(cell, m_blocks);
    return {reinterpret_cast<const char*>(cell.bytes), cell.bytes[7]};
}

void GridCells::setText(std::size_t row, std::size_t col, std::string_view text)
{
    if (text.empty() && !rowCells(row))
        return;
    // Packed before the old text is released: it may be a part of that one.
    const Cell packed = pack(text);
    Cell& cell = rowCellsForWriting(row)[col];
    release(cell);
    cell = packed;
    compactIfWorthwhile();
}

void GridCells::restride(std::size_t stride)
{
    if (stride == m_stride)
        return;
    const std::size_t kept = std::min(m_cols, stride);
    for (std::unique_ptr<Cell[]>& chunk : m_chunks) {
        if (!chunk)
            continue;
        auto wider = std::make_unique<Cell[]>(kChunkRows * stride);
        for (std::size_t row = 0; row < kChunkRows; ++row)
            std::copy_n(chunk.get() + row * m_stride, kept, wider.get() + row * stride);
        chunk = std::move(wider);
    }
    m_stride = stride;
}

void GridCells::resize(std::size_t rows, std::size_t cols)
{
    for (std::size_t row = rows; row < m_rows; ++row) {
        if (row % kChunkRows == 0 && !m_chunks[row / kChunkRows]) {
            row += kChunkRows - 1;
            continue;
        }
        if (Cell* cells = rowCells(row))
            for (std::size_t col = 0; col < m_cols; ++col)
                release(cells[col]);
    }
    m_chunks.resize((rows + kChunkRows - 1) / kChunkRows);
    m_rows = rows;

    if (cols < m_cols)
        for (std::size_t row = 0; row < m_rows; ++row)
            if (Cell* cells = rowCells(row))
                for (std::size_t col = cols; col < m_cols; ++col)
                    release(cells[col]);
    const std::size_t kept = std::min(cols, m_cols);
    m_cols = kept;
    const auto filled =
        std::count_if(m_chunks.begin(), m_chunks.end(), [](const auto& chunk) { return chunk != nullptr; });
    if (filled <= 1 || cols < m_stride / 2)
        restride(cols); // exact, where that is cheap or saves much
    else if (cols > m_stride)
        restride(std::max(cols, m_stride + m_stride / 8)); // columns may come one by one
    m_cols = cols;
    compactIfWorthwhile();
}

void GridCells::clear()
{
    for (std::unique_ptr<Cell[]>& chunk : m_chunks)
        chunk.reset();
    m_blocks.clear();
    m_liveBytes = 0;
    m_deadBytes = 0;
}

void GridCells::reorder(std::size_t first, const std::vector<std::uint32_t>& from)
{
    std::vector<Cell> spare(m_cols);
    std::vector<bool> placed(from.size());
    const auto copyRow = [this](const Cell* source, std::size_t target) {
        if (source)
            std::copy_n(source, m_cols, rowCellsForWriting(target));
        else if (Cell* cells = rowCells(target))
            std::fill_n(cells, m_cols, Cell());
    };
    for (std::size_t start = 0; start < from.size(); ++start) {
        if (placed[start] || from[start] == start)
            continue;
        if (const Cell* cells = rowCells(first + start))
            std::copy_n(cells, m_cols, spare.begin());
        else
            std::fill(spare.begin(), spare.end(), Cell());
        std::size_t target = start;
        for (;;) {
            placed[target] = true;
            const std::size_t source = from[target];
            if (source == start)
                break;
            copyRow(rowCells(first + source), first + target);
            target = source;
        }
        copyRow(spare.data(), first + target);
    }
}

std::size_t GridCells::heldBytes() const noexcept
{
    std::size_t bytes = m_chunks.capacity() * sizeof m_chunks.front() + m_blocks.capacity() * sizeof(Block);
    for (const std::unique_ptr<Cell[]>& chunk : m_chunks)
        if (chunk)
            bytes += kChunkRows * m_stride * sizeof(Cell);
    for (const Block& block : m_blocks)
        bytes += block.capacity;
    return bytes;
}

} // namespace comfortics::controls
