// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"
#include "controls/drawing_surface.h"
#include "controls/grid_cells.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace comfortics::controls {

/// The two string orders of a grid, by their classic numbers: by character code, so that capitals
/// stand before small letters, digits before both, and the minus sign before digits.
enum class Sort : int { StringAscending = 7, StringDescending = 8 };

enum class MouseButton : int { Left = 1, Right = 2 };

/// What a view has to repeat of a grid. Several changes can come as one.
struct GridChange {
    bool structure = false; ///< rows, columns or fixed rows; includes all cells
    bool layout = false;    ///< widths, heights, alignments, fonts, pictures, merging, line width
    bool selection = false;
    bool scroll = false;
    /// A range of cells whose texts changed, both ends included.
    struct Range {
        std::size_t firstRow = 0;
        std::size_t firstCol = 0;
        std::size_t lastRow = 0;
        std::size_t lastCol = 0;
        friend bool operator==(const Range&, const Range&) = default;
    };
    std::optional<Range> cells{};

    void add(const GridChange& other);
    explicit operator bool() const { return structure || layout || selection || scroll || cells; }
};

/// A table of texts with fixed header rows, a selection and a scroll position. Lengths are twips
/// (1440 an inch). A row or column that does not exist is a `std::out_of_range`, and then nothing
/// changes. A grid of many rows is lean: see GridCells.
class Grid : public Control {
public:
    static constexpr int kDefaultColWidth = 960;
    static constexpr int kDefaultRowHeight = 240;
    static constexpr int kGeneralAlignment = 9; ///< texts left
    static constexpr std::size_t kMaxRows = 2147483647;
    static constexpr std::size_t kMaxCols = 32767;

    explicit Grid(std::size_t rows = 2, std::size_t cols = 2, std::size_t fixedRows = 1);

    // Size. What lies inside both the old and the new size keeps text, key and look; the selection
    // and the top row stay inside.
    std::size_t rows() const noexcept { return m_cells.rows(); }
    /// From 1 (and the fixed rows) to kMaxRows.
    void setRows(std::size_t rows);
    std::size_t cols() const noexcept { return m_cells.cols(); }
    /// From 1 to kMaxCols.
    void setCols(std::size_t cols);
    /// Rows at the top that neither scroll nor sort.
    std::size_t fixedRows() const noexcept { return m_fixedRows; }
    void setFixedRows(std::size_t fixedRows);

    // Texts (UTF-8).
    /// Valid until the next change of the grid.
    std::string_view textMatrix(std::size_t row, std::size_t col) const;
    void setTextMatrix(std::size_t row, std::size_t col, std::string_view text);
    /// Empties all cells, with their keys, fonts, alignments and pictures; keeps the
    /// dimensions.
    void clear();

    /// A hidden number that travels with its row when the body is sorted; 0 at start.
    std::int32_t rowKey(std::size_t row) const;
    void setRowKey(std::size_t row, std::int32_t key);

    // Selection: an anchor, which is the current cell, and an extent. Writing the anchor takes the
    // extent along, so the anchor is written first.
    std::size_t row() const noexcept { return m_row; }
    std::size_t col() const noexcept { return m_col; }
    std::size_t rowSel() const noexcept { return m_rowSel; }
    std::size_t colSel() const noexcept { return m_colSel; }
    void setRow(std::size_t row);
    void setCol(std::size_t col);
    void setRowSel(std::size_t row);
    void setColSel(std::size_t col);
    /// Anchor and extent at once.
    void select(std::size_t row, std::size_t col, std::size_t rowSel, std::size_t colSel);
    /// The selected range, in reading order.
    GridChange::Range selection() const noexcept;

    /// The selected texts: cells joined by a tab, rows by a carriage return, none after the last.
    std::string clip() const;
    /// Replaces the selected texts by those of a text of that form. Cells that it does not reach
    /// become empty; what it holds beyond the selection is dropped.
    void setClip(std::string_view text);

    /// Sorts the body rows by the selected columns, from left to right. Rows move as a whole; rows
    /// with equal keys stay in order.
    void setSort(Sort order);

    // Look.
    int width() const noexcept { return m_width; }
    int height() const noexcept { return m_height; }
    void setSize(int width, int height);
    int colWidth(std::size_t col) const;
    void setColWidth(std::size_t col, int width);
    /// 0 to 8: left, centre, right, each at top, middle, bottom (4 is the centre); 9 general.
    int colAlignment(std::size_t col) const;
    void setColAlignment(std::size_t col, int alignment);
    /// The row's own height, or the default, and never less than the least height.
    int rowHeight(std::size_t row) const;
    void setRowHeight(std::size_t row, int height);
    int rowHeightMin() const noexcept { return m_rowHeightMin; }
    void setRowHeightMin(int height);
    /// In pixels.
    int gridLineWidth() const noexcept { return m_gridLineWidth; }
    void setGridLineWidth(int width);
    /// Equal neighbours in this row or column form one span.
    bool mergeRow(std::size_t row) const;
    void setMergeRow(std::size_t row, bool merge);
    bool mergeCol(std::size_t col) const;
    void setMergeCol(std::size_t col, bool merge);

    // Look of cells. The grid's font and the column's alignment hold where a cell has no own.
    const FontRef& font() const noexcept { return m_font; }
    void setFont(Font font);
    const FontRef& cellFont(std::size_t row, std::size_t col) const;
    void setCellFont(std::size_t row, std::size_t col, Font font);
    int cellAlignment(std::size_t row, std::size_t col) const;
    void setCellAlignment(std::size_t row, std::size_t col, int alignment);
    ImageRef cellPicture(std::size_t row, std::size_t col) const;
    void setCellPicture(std::size_t row, std::size_t col, ImageRef picture);
    // The same of the current cell.
    const FontRef& cellFont() const { return cellFont(m_row, m_col); }
    void setCellFont(Font font) { setCellFont(m_row, m_col, std::move(font)); }
    int cellAlignment() const { return cellAlignment(m_row, m_col); }
    void setCellAlignment(int alignment) { setCellAlignment(m_row, m_col, alignment); }

    // Scrolling.
    /// The first row below the fixed ones.
    std::size_t topRow() const noexcept { return m_topRow; }
    /// Goes no further than to the page that ends with the last row.
    void setTopRow(std::size_t row);
    /// True where the whole height of the row lies within the grid's; false for a row that does
    /// not exist.
    bool rowIsVisible(std::size_t row) const;

    // Mouse and keys, as a view reports them.
    std::size_t mouseRow() const noexcept { return m_mouseRow; }
    std::size_t mouseCol() const noexcept { return m_mouseCol; }
    void moveMouse(std::size_t row, std::size_t col);
    /// Moves the mouse there. The left button moves the selection too, on a fixed row to the body
    /// of the whole column, and with Shift it moves the extent only. Then tells the form.
    void mouseDown(MouseButton button, std::size_t row, std::size_t col, bool shift = false);
    /// With the left button held: moves mouse and extent.
    void drag(std::size_t row, std::size_t col);
    void onMouseDown(std::function<void(MouseButton)> handler) { m_mouseDown.set(std::move(handler)); }
    void press(KeyPress key) const { m_keyDown.tell(key); }
    void onKeyDown(std::function<void(KeyPress)> handler) { m_keyDown.set(std::move(handler)); }

    /// A sentence about a cell, for whoever hovers over it; empty where there is none. Asked for
    /// when needed, never stored.
    std::string note(std::size_t row, std::size_t col) const;
    void provideNotes(std::function<std::string(std::size_t row, std::size_t col)> provider)
    {
        m_notes = std::move(provider);
    }

    /// The view's listener; at most one.
    void watch(std::function<void(const GridChange&)> view) { m_view.set(std::move(view)); }

    /// While it lives, changes are gathered; they are told as one when the last one ends.
    class Bulk {
    public:
        explicit Bulk(Grid& grid) : m_grid(grid) { ++grid.m_bulks; }
        ~Bulk() { m_grid.endBulk(); }
        Bulk(const Bulk&) = delete;
        Bulk& operator=(const Bulk&) = delete;

    private:
        Grid& m_grid;
    };

    /// The heap memory that the texts take, in bytes.
    std::size_t heldBytes() const noexcept { return m_cells.heldBytes(); }

private:
    struct Column {
        int width = kDefaultColWidth;
        int alignment = kGeneralAlignment;
        bool merge = false;
    };
    // What few rows or cells have of their own.
    struct RowLook {
        std::optional<int> height;
        bool merge = false;
    };
    struct CellLook {
        FontRef font;
        ImageRef picture;
        std::optional<int> alignment;
    };

    void checkRow(std::size_t row) const;
    void checkCol(std::size_t col) const;
    void checkCell(std::size_t row, std::size_t col) const;
    static std::uint64_t cellNumber(std::size_t row, std::size_t col);
    const CellLook* look(std::size_t row, std::size_t col) const;
    void moveRows(const std::vector<std::uint32_t>& from);
    void keepInside();
    std::size_t largestTopRow() const;
    int fixedHeight() const;
    void tell(const GridChange& change);
    void tellLayout();
    void endBulk();

    GridCells m_cells;
    std::size_t m_fixedRows;
    std::vector<Column> m_columns;
    std::vector<std::int32_t> m_keys; // empty while all are 0
    std::unordered_map<std::size_t, RowLook> m_rowLooks;
    std::unordered_map<std::uint64_t, CellLook> m_cellLooks;
    std::size_t m_row = 0;
    std::size_t m_col = 0;
    std::size_t m_rowSel = 0;
    std::size_t m_colSel = 0;
    std::size_t m_topRow = 1;
    std::size_t m_mouseRow = 0;
    std::size_t m_mouseCol = 0;
    int m_width = 0;
    int m_height = 0;
    int m_rowHeightMin = 0;
    int m_gridLineWidth = 1;
    FontRef m_font = std::make_shared<const Font>();
    Ear<MouseButton> m_mouseDown;
    Ear<KeyPress> m_keyDown;
    std::function<std::string(std::size_t, std::size_t)> m_notes;
    Ear<const GridChange&> m_view;
    int m_bulks = 0;
    GridChange m_gathered;
};

} // namespace comfortics::controls
