// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/grid.h"

#include <algorithm>
#include <cassert>
#include <numeric>
#include <stdexcept>
#include <utility>

namespace comfortics::controls {

namespace {

constexpr char kCellEnd = '\t';
constexpr char kRowEnd = '\r';

std::out_of_range missing(const char* what, std::size_t number)
{
    return std::out_of_range("the grid has no " + std::string(what) + " " + std::to_string(number));
}

// A text's length and first sixteen bytes, as numbers that order as the bytes do: sorting seldom
// has to look at the texts themselves.
class SortKey {
public:
    explicit SortKey(std::string_view text)
        : m_first(number(text, 0)), m_second(number(text, kPart)),
          m_length(static_cast<std::uint32_t>(std::min<std::size_t>(text.size(), 2 * kPart + 1)))
    {
    }

    /// Below, at or above zero as the texts order. Nothing where they have to be compared.
    static std::optional<int> compare(const SortKey& left, const SortKey& right)
    {
        if (left.m_first != right.m_first)
            return left.m_first < right.m_first ? -1 : 1;
        if (left.m_second != right.m_second)
            return left.m_second < right.m_second ? -1 : 1;
        if (left.m_length > 2 * kPart || right.m_length > 2 * kPart)
            return std::nullopt;
        return static_cast<int>(left.m_length) - static_cast<int>(right.m_length);
    }

private:
    static constexpr std::size_t kPart = sizeof(std::uint64_t);

    static std::uint64_t number(std::string_view text, std::size_t start)
    {
        std::uint64_t bytes = 0;
        for (std::size_t i = start; i < start + kPart; ++i)
            bytes = bytes << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
        return bytes;
    }

    std::uint64_t m_first;
    std::uint64_t m_second;
    std::uint32_t m_length;
};

} // namespace

void GridChange::add(const GridChange& other)
{
    structure |= other.structure;
    layout |= other.layout;
    selection |= other.selection;
    scroll |= other.scroll;
    if (!cells) {
        cells = other.cells;
    } else if (other.cells) {
        cells->firstRow = std::min(cells->firstRow, other.cells->firstRow);
        cells->firstCol = std::min(cells->firstCol, other.cells->firstCol);
        cells->lastRow = std::max(cells->lastRow, other.cells->lastRow);
        cells->lastCol = std::max(cells->lastCol, other.cells->lastCol);
    }
}

Grid::Grid(std::size_t rows, std::size_t cols, std::size_t fixedRows)
    : m_cells(rows, cols), m_fixedRows(fixedRows), m_columns(cols), m_row(std::min(fixedRows, rows - 1)),
      m_rowSel(m_row), m_topRow(fixedRows)
{
    assert(rows >= 1 && rows >= fixedRows && cols >= 1);
}

void Grid::checkRow(std::size_t row) const
{
    if (row >= rows())
        throw missing("row", row);
}

void Grid::checkCol(std::size_t col) const
{
    if (col >= cols())
        throw missing("column", col);
}

void Grid::checkCell(std::size_t row, std::size_t col) const
{
    checkRow(row);
    checkCol(col);
}

// --- size

void Grid::setRows(std::size_t rows)
{
    if (rows < std::max<std::size_t>(m_fixedRows, 1) || rows > kMaxRows)
        throw std::out_of_range("a grid cannot have " + std::to_string(rows) + " rows");
    if (rows == m_cells.rows())
        return;
    m_cells.resize(rows, cols());
    if (!m_keys.empty())
        m_keys.resize(rows);
    std::erase_if(m_rowLooks, [rows](const auto& entry) { return entry.first >= rows; });
    std::erase_if(m_cellLooks, [rows](const auto& entry) { return entry.first >> 32 >= rows; });
    keepInside();
    tell({.structure = true});
}

void Grid::setCols(std::size_t cols)
{
    if (cols < 1 || cols > kMaxCols)
        throw std::out_of_range("a grid cannot have " + std::to_string(cols) + " columns");
    if (cols == m_cells.cols())
        return;
    m_cells.resize(rows(), cols);
    m_columns.resize(cols);
    std::erase_if(m_cellLooks, [cols](const auto& entry) { return (entry.first & 0xFFFFFFFF) >= cols; });
    keepInside();
    tell({.structure = true});
}

void Grid::setFixedRows(std::size_t fixedRows)
{
    if (fixedRows > rows())
        throw std::out_of_range("a grid of " + std::to_string(rows()) + " rows cannot fix " +
                                std::to_string(fixedRows));
    if (fixedRows == m_fixedRows)
        return;
    m_fixedRows = fixedRows;
    keepInside();
    tell({.structure = true});
}

void Grid::keepInside()
{
    m_row = std::min(m_row, rows() - 1);
    m_rowSel = std::min(m_rowSel, rows() - 1);
    m_mouseRow = std::min(m_mouseRow, rows() - 1);
    m_col = std::min(m_col, cols() - 1);
    m_colSel = std::min(m_colSel, cols() - 1);
    m_mouseCol = std::min(m_mouseCol, cols() - 1);
    m_topRow = std::clamp(m_topRow, m_fixedRows, largestTopRow());
}

// --- texts

std::string_view Grid::textMatrix(std::size_t row, std::size_t col) const
{
    checkCell(row, col);
    return m_cells.text(row, col);
}

void Grid::setTextMatrix(std::size_t row, std::size_t col, std::string_view text)
{
    checkCell(row, col);
    if (m_cells.text(row, col) == text)
        return;
    m_cells.setText(row, col, text);
    tell({.cells = GridChange::Range{row, col, row, col}});
}

void Grid::clear()
{
    m_cells.clear();
    m_keys.clear();
    m_cellLooks.clear();
    tell({.layout = true, .cells = GridChange::Range{0, 0, rows() - 1, cols() - 1}});
}

std::int32_t Grid::rowKey(std::size_t row) const
{
    checkRow(row);
    return m_keys.empty() ? 0 : m_keys[row];
}

void Grid::setRowKey(std::size_t row, std::int32_t key)
{
    checkRow(row);
    if (m_keys.empty())
        m_keys.resize(rows());
    m_keys[row] = key;
}

// --- selection

void Grid::setRow(std::size_t row)
{
    select(row, m_col, row, m_col);
}

void Grid::setCol(std::size_t col)
{
    select(m_row, col, m_row, col);
}

void Grid::setRowSel(std::size_t row)
{
    select(m_row, m_col, row, m_colSel);
}

void Grid::setColSel(std::size_t col)
{
    select(m_row, m_col, m_rowSel, col);
}

void Grid::select(std::size_t row, std::size_t col, std::size_t rowSel, std::size_t colSel)
{
    checkCell(row, col);
    checkCell(rowSel, colSel);
    if (row == m_row && col == m_col && rowSel == m_rowSel && colSel == m_colSel)
        return;
    m_row = row;
    m_col = col;
    m_rowSel = rowSel;
    m_colSel = colSel;
    tell({.selection = true});
}

GridChange::Range Grid::selection() const noexcept
{
    return {std::min(m_row, m_rowSel), std::min(m_col, m_colSel), std::max(m_row, m_rowSel),
            std::max(m_col, m_colSel)};
}

std::string Grid::clip() const
{
    const GridChange::Range range = selection();
    std::string text;
    for (std::size_t row = range.firstRow; row <= range.lastRow; ++row) {
        if (row != range.firstRow)
            text += kRowEnd;
        for (std::size_t col = range.firstCol; col <= range.lastCol; ++col) {
            if (col != range.firstCol)
                text += kCellEnd;
            text += m_cells.text(row, col);
        }
    }
    return text;
}

void Grid::setClip(std::string_view text)
{
    const GridChange::Range range = selection();
    std::string_view rest = text;
    for (std::size_t row = range.firstRow; row <= range.lastRow; ++row) {
        const std::size_t rowEnd = std::min(rest.find(kRowEnd), rest.size());
        std::string_view cellsLeft = rest.substr(0, rowEnd);
        rest.remove_prefix(std::min(rowEnd + 1, rest.size()));
        for (std::size_t col = range.firstCol; col <= range.lastCol; ++col) {
            const std::size_t cellEnd = std::min(cellsLeft.find(kCellEnd), cellsLeft.size());
            m_cells.setText(row, col, cellsLeft.substr(0, cellEnd));
            cellsLeft.remove_prefix(std::min(cellEnd + 1, cellsLeft.size()));
        }
    }
    tell({.cells = range});
}

// --- sorting

void Grid::setSort(Sort order)
{
    if (rows() <= m_fixedRows + 1)
        return;
    const GridChange::Range keys = selection();
    struct Row {
        SortKey key;         // of the first selected column
        std::uint32_t place; // counted from the first body row
    };
    std::vector<Row> body;
    body.reserve(rows() - m_fixedRows);
    for (std::size_t row = m_fixedRows; row < rows(); ++row)
        body.push_back(
            {SortKey(m_cells.text(row, keys.firstCol)), static_cast<std::uint32_t>(row - m_fixedRows)});

    // Below zero where the left row's keys stand first in ascending order.
    const auto compare = [&](const Row& left, const Row& right) {
        const std::optional<int> byKey = SortKey::compare(left.key, right.key);
        if (byKey && *byKey != 0)
            return *byKey;
        for (std::size_t col = keys.firstCol + (byKey ? 1 : 0); col <= keys.lastCol; ++col) {
            const int difference = m_cells.text(m_fixedRows + left.place, col)
                                       .compare(m_cells.text(m_fixedRows + right.place, col));
            if (difference != 0)
                return difference;
        }
        return 0;
    };
    std::sort(body.begin(), body.end(), [&](const Row& left, const Row& right) {
        const int difference = compare(left, right);
        if (difference == 0)
            return left.place < right.place; // rows with equal keys stay in order, either way
        return order == Sort::StringAscending ? difference < 0 : difference > 0;
    });

    std::vector<std::uint32_t> from(body.size());
    std::transform(body.begin(), body.end(), from.begin(), [](const Row& row) { return row.place; });
    moveRows(from);
}

void Grid::moveRows(const std::vector<std::uint32_t>& from)
{
    m_cells.reorder(m_fixedRows, from);
    if (!m_keys.empty()) {
        std::vector<std::int32_t> keys(from.size());
        for (std::size_t i = 0; i < from.size(); ++i)
            keys[i] = m_keys[m_fixedRows + from[i]];
        std::copy(keys.begin(), keys.end(), m_keys.begin() + static_cast<std::ptrdiff_t>(m_fixedRows));
    }
    const bool looks = !m_rowLooks.empty() || !m_cellLooks.empty();
    if (looks) {
        std::vector<std::size_t> target(rows());
        std::iota(target.begin(), target.end(), std::size_t{0});
        for (std::size_t i = 0; i < from.size(); ++i)
            target[m_fixedRows + from[i]] = m_fixedRows + i;
        std::unordered_map<std::size_t, RowLook> rowLooks;
        for (const auto& [row, look] : m_rowLooks)
            rowLooks.emplace(target[row], look);
        m_rowLooks.swap(rowLooks);
        std::unordered_map<std::uint64_t, CellLook> cellLooks;
        for (const auto& [cell, look] : m_cellLooks)
            cellLooks.emplace(cellNumber(target[cell >> 32], cell & 0xFFFFFFFF), look);
        m_cellLooks.swap(cellLooks);
    }
    tell({.layout = looks, .cells = GridChange::Range{m_fixedRows, 0, rows() - 1, cols() - 1}});
}

// --- look

void Grid::setSize(int width, int height)
{
    if (width == m_width && height == m_height)
        return;
    m_width = width;
    m_height = height;
    keepInside();
    tellLayout();
}

int Grid::colWidth(std::size_t col) const
{
    checkCol(col);
    return m_columns[col].width;
}

void Grid::setColWidth(std::size_t col, int width)
{
    checkCol(col);
    assert(width >= 0);
    m_columns[col].width = width;
    tellLayout();
}

int Grid::colAlignment(std::size_t col) const
{
    checkCol(col);
    return m_columns[col].alignment;
}

void Grid::setColAlignment(std::size_t col, int alignment)
{
    checkCol(col);
    assert(alignment >= 0 && alignment <= kGeneralAlignment);
    m_columns[col].alignment = alignment;
    tellLayout();
}

int Grid::rowHeight(std::size_t row) const
{
    checkRow(row);
    int height = kDefaultRowHeight;
    if (!m_rowLooks.empty())
        if (const auto found = m_rowLooks.find(row); found != m_rowLooks.end() && found->second.height)
            height = *found->second.height;
    return std::max(height, m_rowHeightMin);
}

void Grid::setRowHeight(std::size_t row, int height)
{
    checkRow(row);
    assert(height >= 0);
    m_rowLooks[row].height = height;
    keepInside();
    tellLayout();
}

void Grid::setRowHeightMin(int height)
{
    m_rowHeightMin = height;
    keepInside();
    tellLayout();
}

void Grid::setGridLineWidth(int width)
{
    m_gridLineWidth = width;
    tellLayout();
}

bool Grid::mergeRow(std::size_t row) const
{
    checkRow(row);
    const auto found = m_rowLooks.find(row);
    return found != m_rowLooks.end() && found->second.merge;
}

void Grid::setMergeRow(std::size_t row, bool merge)
{
    checkRow(row);
    m_rowLooks[row].merge = merge;
    tellLayout();
}

bool Grid::mergeCol(std::size_t col) const
{
    checkCol(col);
    return m_columns[col].merge;
}

void Grid::setMergeCol(std::size_t col, bool merge)
{
    checkCol(col);
    m_columns[col].merge = merge;
    tellLayout();
}

std::uint64_t Grid::cellNumber(std::size_t row, std::size_t col)
{
    return static_cast<std::uint64_t>(row) << 32 | col;
}

const Grid::CellLook* Grid::look(std::size_t row, std::size_t col) const
{
    checkCell(row, col);
    const auto found = m_cellLooks.find(cellNumber(row, col));
    return found == m_cellLooks.end() ? nullptr : &found->second;
}

void Grid::setFont(Font font)
{
    if (font == *m_font)
        return;
    m_font = std::make_shared<const Font>(std::move(font));
    tellLayout();
}

const FontRef& Grid::cellFont(std::size_t row, std::size_t col) const
{
    const CellLook* own = look(row, col);
    return own && own->font ? own->font : m_font;
}

void Grid::setCellFont(std::size_t row, std::size_t col, Font font)
{
    checkCell(row, col);
    m_cellLooks[cellNumber(row, col)].font = std::make_shared<const Font>(std::move(font));
    tellLayout();
}

int Grid::cellAlignment(std::size_t row, std::size_t col) const
{
    const CellLook* own = look(row, col);
    return own && own->alignment ? *own->alignment : m_columns[col].alignment;
}

void Grid::setCellAlignment(std::size_t row, std::size_t col, int alignment)
{
    checkCell(row, col);
    assert(alignment >= 0 && alignment <= kGeneralAlignment);
    m_cellLooks[cellNumber(row, col)].alignment = alignment;
    tellLayout();
}

ImageRef Grid::cellPicture(std::size_t row, std::size_t col) const
{
    const CellLook* own = look(row, col);
    return own ? own->picture : nullptr;
}

void Grid::setCellPicture(std::size_t row, std::size_t col, ImageRef picture)
{
    checkCell(row, col);
    m_cellLooks[cellNumber(row, col)].picture = std::move(picture);
    tellLayout();
}

// --- scrolling

int Grid::fixedHeight() const
{
    int height = 0;
    for (std::size_t row = 0; row < m_fixedRows; ++row)
        height += rowHeight(row);
    return height;
}

// The page that ends with the last row begins here; never above the first body row, never below
// the last.
std::size_t Grid::largestTopRow() const
{
    if (rows() <= m_fixedRows)
        return m_fixedRows;
    std::int64_t left = std::int64_t{m_height} - fixedHeight();
    std::size_t top = rows();
    while (top > m_fixedRows && rowHeight(top - 1) <= left)
        left -= rowHeight(--top);
    return std::min(top, rows() - 1);
}

void Grid::setTopRow(std::size_t row)
{
    checkRow(row);
    const std::size_t top = std::clamp(row, m_fixedRows, largestTopRow());
    if (top == m_topRow)
        return;
    m_topRow = top;
    tell({.scroll = true});
}

bool Grid::rowIsVisible(std::size_t row) const
{
    if (row >= rows() || (row >= m_fixedRows && row < m_topRow))
        return false;
    std::int64_t bottom = row < m_fixedRows ? 0 : fixedHeight();
    for (std::size_t above = row < m_fixedRows ? 0 : m_topRow; above <= row && bottom <= m_height; ++above)
        bottom += rowHeight(above);
    return bottom <= m_height;
}

// --- mouse, notes, telling

void Grid::moveMouse(std::size_t row, std::size_t col)
{
    checkCell(row, col);
    m_mouseRow = row;
    m_mouseCol = col;
}

void Grid::mouseDown(MouseButton button, std::size_t row, std::size_t col, bool shift)
{
    moveMouse(row, col);
    if (button == MouseButton::Left) {
        const bool wholeColumn = row < m_fixedRows;
        const std::size_t firstRow = wholeColumn ? std::min(m_fixedRows, rows() - 1) : row;
        const std::size_t lastRow = wholeColumn ? rows() - 1 : row;
        if (shift)
            select(wholeColumn ? firstRow : m_row, m_col, lastRow, col);
        else
            select(firstRow, col, lastRow, col);
    }
    m_mouseDown.tell(button);
}

void Grid::drag(std::size_t row, std::size_t col)
{
    moveMouse(row, col);
    select(m_row, m_col, row, col);
}

std::string Grid::note(std::size_t row, std::size_t col) const
{
    checkCell(row, col);
    return m_notes ? m_notes(row, col) : std::string();
}

void Grid::tell(const GridChange& change)
{
    if (m_bulks > 0)
        m_gathered.add(change);
    else
        m_view.tell(change);
}

void Grid::tellLayout()
{
    tell({.layout = true});
}

void Grid::endBulk()
{
    if (--m_bulks > 0)
        return;
    const GridChange change = std::exchange(m_gathered, GridChange());
    if (change)
        tell(change);
}

} // namespace comfortics::controls
