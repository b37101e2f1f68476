// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/drawing_surface.h"

#include <cstddef>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::output {

/// A size of `clsTablePrint` written below its bound: error 380, without texts.
class InvalidPropertyValue : public std::exception {
public:
    static constexpr int number = 380;
    const char* what() const noexcept override { return ""; }
};

/// Lays a table out and draws it page by page on any drawing surface. It knows nothing of grids: it
/// holds its own texts, fonts and pictures. Lengths are in the surface's unit, single precision.
/// An index out of bounds is a `std::out_of_range`.
///
/// Writing `Rows`, `Cols` or `HeaderRows` empties everything and sets every `ColWidth` back, so the
/// sizes are written first.
///
/// Merging: a cell's row flag joins it with the neighbours left and right that hold equal text.
/// Then column flags join such a stretch with the one above and below of equal text, where it
/// spans the same columns and all of them are flagged. A span is one box with one text. Header and
/// body never join, and a span that a page break cuts is drawn on both pages.
class clsTablePrint {
public:
    clsTablePrint();

    bool HeaderOnEachPage = false;
    bool CenterMergedHeader = false;
    float RowHeightMin = 0;
    float HeaderRowHeightMin = 0;
    float FooterRowHeightMin = 0;
    bool ResizeCellsToPicHeight = false;

    int Cols() const noexcept { return m_cols; }
    void Cols(int cols); ///< at least 1
    int Rows() const noexcept { return m_rows; }
    void Rows(int rows); ///< body rows, at least 0
    int HeaderRows() const noexcept { return m_headerRows; }
    void HeaderRows(int rows); ///< at least 1

    // Matrices. Where written, -1 stands for all rows or all columns.
    const std::string& TextMatrix(int row, int col) const { return m_text.at(row, col); }
    void TextMatrix(int row, int col, const std::string& text) { m_text.set(row, col, text); }
    const std::string& HeaderText(int row, int col) const { return m_headerText.at(row, col); }
    void HeaderText(int row, int col, const std::string& text) { m_headerText.set(row, col, text); }
    const controls::FontRef& HeaderFont(int row, int col) const { return m_headerFont.at(row, col); }
    void HeaderFont(int row, int col, const controls::FontRef& font) { m_headerFont.set(row, col, font); }
    const controls::FontRef& FontMatrix(int row, int col) const { return m_font.at(row, col); }
    void FontMatrix(int row, int col, const controls::FontRef& font) { m_font.set(row, col, font); }
    const controls::FontRef& ColFont(int col) const { return m_font.at(0, col); }
    void ColFont(int col, const controls::FontRef& font) { m_font.set(-1, col, font); }
    const controls::ImageRef& PictureMatrix(int row, int col) const { return m_picture.at(row, col); }
    void PictureMatrix(int row, int col, const controls::ImageRef& picture)
    {
        m_picture.set(row, col, picture);
    }

    /// 0 left, 1 centre, 2 right: the flags of the text call. Column -1 writes all.
    int ColAlignment(int col) const { return m_colAlignment.at(0, col); }
    void ColAlignment(int col, int alignment) { m_colAlignment.set(0, col, alignment); }
    float ColWidth(int col) const { return m_colWidth.at(0, col); }
    void ColWidth(int col, float width) { m_colWidth.set(0, col, width); }

    /// A single footer row. Its texts and fonts come and go with the next change of a size.
    bool HasFooter = true;
    const controls::FontRef& FooterFont(int col) const { return m_footerFont.at(0, col); }
    void FooterFont(int col, const controls::FontRef& font) { m_footerFont.set(0, col, font); }
    const std::string& FooterText(int col) const { return m_footerText.at(0, col); }
    void FooterText(int col, const std::string& text) { m_footerText.set(0, col, text); }

    float MarginTop = 0;
    float MarginBottom = 0;
    float MarginLeft = 0;
    int LineThickness = 1; ///< pixels, as the two below
    int HeaderLineThickness = 1;
    int FooterLineThickness = 1;
    float CellYOffset = 0; ///< padding above and below a text
    float CellXOffset = 0; ///< padding left and right of a text

    bool MergeCol(int col) const { return m_mergeCol.at(0, col) != 0; }
    void MergeCol(int col, bool merge) { m_mergeCol.place(0, col) = merge; }
    bool MergeHeaderCol(int col) const { return m_mergeHeaderCol.at(0, col) != 0; }
    void MergeHeaderCol(int col, bool merge) { m_mergeHeaderCol.place(0, col) = merge; }
    bool MergeHeaderRow(int row) const { return m_mergeHeaderRow.at(0, row) != 0; }
    void MergeHeaderRow(int row, bool merge) { m_mergeHeaderRow.place(0, row) = merge; }
    bool MergeRow(int row) const { return m_mergeRow.at(0, row) != 0; }
    void MergeRow(int row, bool merge) { m_mergeRow.place(0, row) = merge; }

    /// Raised at each page break: the surface; a flag to set where the surface stands at the new
    /// page's top already (else `CurrentY` becomes `MarginTop`); a flag to set to end the drawing;
    /// the last body row drawn, -1 before the first.
    std::function<void(controls::DrawingSurface& surface, bool& topIsSet, bool& Cancel, int lastRow)> NewPage;

    /// The height of each body row, the tallest cell's.
    double BodyRowHeight(controls::DrawingSurface& surface) const;

    /// The number of body rows that fit one page. Arguments left out are taken from the fields.
    int CalcNumRowsPerPage(controls::DrawingSurface& surface, std::optional<bool> headerOnEachPage = {},
                           std::optional<bool> hasFooter = {}) const;

    /// Draws the table from `CurrentY` on. The drawing does not depend on `top`. `page` counts the
    /// pages; the header shows on page 1 in any case. Fails (RunFailure) where a page is too low
    /// for a single row.
    void DrawTable(controls::DrawingSurface& surface, float top, int page) const;

private:
    template <class T>
    class Matrix {
    public:
        void resize(int rows, int cols, const T& value = T())
        {
            m_rows = rows;
            m_cols = cols;
            m_values.assign(static_cast<std::size_t>(rows) * static_cast<std::size_t>(cols), value);
        }
        const T& at(int row, int col) const { return m_values[number(row, col)]; }
        T& place(int row, int col) { return m_values[number(row, col)]; }
        void set(int row, int col, const T& value)
        {
            const int firstRow = row == -1 ? 0 : row;
            const int lastRow = row == -1 ? m_rows - 1 : row;
            const int firstCol = col == -1 ? 0 : col;
            const int lastCol = col == -1 ? m_cols - 1 : col;
            for (int r = firstRow; r <= lastRow; ++r)
                for (int c = firstCol; c <= lastCol; ++c)
                    m_values[number(r, c)] = value;
        }

    private:
        std::size_t number(int row, int col) const
        {
            if (row < 0 || row >= m_rows || col < 0 || col >= m_cols)
                throwOutOfBounds(row, col);
            return static_cast<std::size_t>(row) * static_cast<std::size_t>(m_cols) +
                   static_cast<std::size_t>(col);
        }

        int m_rows = 0;
        int m_cols = 0;
        std::vector<T> m_values;
    };
    [[noreturn]] static void throwOutOfBounds(int row, int col);

    using Flags = Matrix<char>;
    struct Heights {
        double body;
        double header;
        double footer;
    };
    // The column edges [pixels] and the padding, and the state of one drawing.
    struct Layout;
    // Rows whose equal cells may join.
    struct Section;
    struct Span {
        int firstRow;
        int lastRow;
        int firstCol;
        int lastCol;
    };

    void allocate();
    Heights measure(controls::DrawingSurface& surface) const;
    static std::pair<int, int> stretch(const Section& section, int row, int col);
    static bool joined(const Section& section, int upperRow, std::pair<int, int> cols);
    static Span span(const Section& section, int row, int col);
    void drawSection(Layout& layout, const Section& section, double y, double rowHeight) const;
    void drawFooter(Layout& layout, double y, double rowHeight) const;
    void drawCell(Layout& layout, double y, double height, std::pair<int, int> cols, const std::string& text,
                  const controls::FontRef& font, const controls::Image* picture, unsigned flags) const;

    int m_cols = 2;
    int m_rows = 5;
    int m_headerRows = 1;
    Matrix<std::string> m_text;
    Matrix<std::string> m_headerText;
    Matrix<controls::FontRef> m_headerFont;
    Matrix<int> m_colAlignment;
    Matrix<controls::FontRef> m_footerFont;
    Matrix<std::string> m_footerText;
    Matrix<float> m_colWidth;
    Flags m_mergeCol;
    Matrix<controls::FontRef> m_font;
    Matrix<controls::ImageRef> m_picture;
    Flags m_mergeHeaderCol;
    Flags m_mergeHeaderRow;
    Flags m_mergeRow;
};

} // namespace comfortics::output
