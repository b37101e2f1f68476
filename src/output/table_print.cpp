// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/table_print.h"

#include "values/run_failure.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace comfortics::output {

using controls::DrawingSurface;
using controls::FontRef;
using controls::Image;
using controls::ImageRef;
using controls::PixelRect;
using controls::ScaleMode;
using values::RunFailure;

namespace {

constexpr const char* kNoHeight = "the rows of the table have no height";

// Fonts are compared by identity.
void useFont(DrawingSurface& surface, const FontRef& font)
{
    if (font != surface.font())
        surface.setFont(font);
}

int wholePixels(double pixels)
{
    return static_cast<int>(std::nearbyint(pixels));
}

// A picture in a room of the surface's unit, at its own size or as large as fits.
void paintInside(DrawingSurface& surface, const Image& picture, double x, double y, double roomX,
                 double roomY)
{
    const ScaleMode mode = surface.scaleMode();
    const double width = surface.scaleX(picture.width(), ScaleMode::HiMetric, mode);
    const double height = surface.scaleY(picture.height(), ScaleMode::HiMetric, mode);
    if (roomX <= 0 || roomY <= 0 || width <= 0 || height <= 0)
        return;
    const double shrunk = std::min({1.0, roomX / width, roomY / height});
    surface.paintPicture(picture, x, y, width * shrunk, height * shrunk);
}

} // namespace

struct clsTablePrint::Layout {
    DrawingSurface& surface;
    std::vector<double> edges; // [pixels], one more than columns
    double xOffset;            // [pixels]
    double yOffset;            // [pixels]
    FontRef ownFont;           // the surface's, for cells without one
};

struct clsTablePrint::Section {
    const Matrix<std::string>& texts;
    const Matrix<FontRef>& fonts;
    const Matrix<ImageRef>* pictures; // none in a header
    const Flags& mergeRow;
    const Flags& mergeCol;
    int firstRow;
    int lastRow;
    int cols;
};

clsTablePrint::clsTablePrint()
{
    allocate();
}

void clsTablePrint::throwOutOfBounds(int row, int col)
{
    throw std::out_of_range("the printed table has no element " + std::to_string(row) + ", " +
                            std::to_string(col));
}

void clsTablePrint::Cols(int cols)
{
    if (cols < 1)
        throw InvalidPropertyValue();
    m_cols = cols;
    allocate();
}

void clsTablePrint::Rows(int rows)
{
    if (rows < 0)
        throw InvalidPropertyValue();
    m_rows = rows;
    allocate();
}

void clsTablePrint::HeaderRows(int rows)
{
    if (rows < 1)
        throw InvalidPropertyValue();
    m_headerRows = rows;
    allocate();
}

void clsTablePrint::allocate()
{
    constexpr float kFirstColWidth = 15;
    m_text.resize(m_rows, m_cols);
    m_font.resize(m_rows, m_cols);
    m_picture.resize(m_rows, m_cols);
    m_mergeRow.resize(1, m_rows);
    m_headerText.resize(m_headerRows, m_cols);
    m_headerFont.resize(m_headerRows, m_cols);
    m_mergeHeaderRow.resize(1, m_headerRows);
    m_colAlignment.resize(1, m_cols);
    m_colWidth.resize(1, m_cols, kFirstColWidth);
    m_mergeCol.resize(1, m_cols);
    m_mergeHeaderCol.resize(1, m_cols);
    m_footerText.resize(HasFooter ? 1 : 0, m_cols);
    m_footerFont.resize(HasFooter ? 1 : 0, m_cols);
}

// All body rows share the height of the tallest cell, and so do all header rows.
clsTablePrint::Heights clsTablePrint::measure(DrawingSurface& surface) const
{
    const double padding = 2 * CellYOffset;
    Heights heights{RowHeightMin - padding, HeaderRowHeightMin - padding, FooterRowHeightMin - padding};
    const FontRef ownFont = surface.font();
    const auto raise = [&](double& height, const FontRef& font, const std::string& text) {
        useFont(surface, font ? font : ownFont);
        height = std::max(height, surface.textHeight(text));
    };
    for (int col = 0; col < m_cols; ++col) {
        for (int row = 0; row < m_rows; ++row) {
            raise(heights.body, m_font.at(row, col), m_text.at(row, col));
            const ImageRef& picture = m_picture.at(row, col);
            if (ResizeCellsToPicHeight && picture)
                heights.body = std::max(heights.body, surface.scaleY(picture->height(), ScaleMode::HiMetric,
                                                                     surface.scaleMode()));
        }
        for (int row = 0; row < m_headerRows; ++row)
            raise(heights.header, m_headerFont.at(row, col), m_headerText.at(row, col));
        if (HasFooter)
            raise(heights.footer, FooterFont(col), FooterText(col));
    }
    heights.body += padding;
    heights.header += padding;
    if (HasFooter)
        heights.footer += padding;
    return heights;
}

double clsTablePrint::BodyRowHeight(DrawingSurface& surface) const
{
    const FontRef ownFont = surface.font();
    const double height = measure(surface).body;
    surface.setFont(ownFont);
    return height;
}

int clsTablePrint::CalcNumRowsPerPage(DrawingSurface& surface, std::optional<bool> headerOnEachPage,
                                      std::optional<bool> hasFooter) const
{
    const FontRef ownFont = surface.font();
    const Heights heights = measure(surface);
    surface.setFont(ownFont);
    double free = surface.scaleHeight() - MarginTop - MarginBottom;
    if (headerOnEachPage.value_or(HeaderOnEachPage))
        free -= heights.header * m_headerRows;
    if (hasFooter.value_or(HasFooter))
        free -= heights.footer;
    if (heights.body <= 0)
        throw RunFailure(kNoHeight);
    return static_cast<int>(std::floor(free / heights.body));
}

void clsTablePrint::DrawTable(DrawingSurface& surface, float /*top*/, int page) const
{
    const FontRef ownFont = surface.font();
    const ScaleMode mode = surface.scaleMode();
    Layout layout{surface,
                  {surface.scaleX(MarginLeft, mode, ScaleMode::Pixels)},
                  surface.scaleX(CellXOffset, mode, ScaleMode::Pixels),
                  surface.scaleY(CellYOffset, mode, ScaleMode::Pixels),
                  ownFont};
    for (int col = 0; col < m_cols; ++col)
        layout.edges.push_back(layout.edges.back() + surface.scaleX(ColWidth(col), mode, ScaleMode::Pixels));
    const Heights heights = measure(surface);
    surface.setFillStyle(controls::kTransparentFill);
    const auto fail = [&](const char* why) {
        surface.setFont(ownFont);
        throw RunFailure(why);
    };

    bool lastPageWasEmpty = false;
    for (int start = 0;; ++page) {
        int lastRow = start - 1;
        double available = surface.scaleHeight() - surface.currentY() - MarginBottom;
        if (available >= heights.body) {
            const bool headerShows = HeaderOnEachPage || page == 1;
            if (start >= m_rows - 1)
                available -= heights.footer;
            if (headerShows)
                available -= heights.header * m_headerRows;
            if (m_rows > 0) {
                if (heights.body <= 0)
                    fail(kNoHeight);
                // Deliberate: counted from the first row on, so that a full page holds one row more
                // than fits above its bottom margin.
                const double counted = start + std::floor(available / heights.body);
                lastRow = static_cast<int>(std::clamp<double>(counted, start - 1, m_rows - 1));
            }

            double y = surface.currentY();
            if (headerShows) {
                surface.setDrawWidth(HeaderLineThickness);
                drawSection(layout,
                            {m_headerText, m_headerFont, nullptr, m_mergeHeaderRow, m_mergeHeaderCol, 0,
                             m_headerRows - 1, m_cols},
                            y, heights.header);
                y += heights.header * m_headerRows;
            }
            surface.setDrawWidth(LineThickness);
            drawSection(layout, {m_text, m_font, &m_picture, m_mergeRow, m_mergeCol, start, lastRow, m_cols},
                        y, heights.body);
            y += heights.body * (lastRow - start + 1);
            const bool lastPage = lastRow == m_rows - 1;
            if (lastPage && HasFooter) {
                surface.setDrawWidth(FooterLineThickness);
                drawFooter(layout, y, heights.footer);
                y += heights.footer;
            }
            surface.setCurrentY(y);
            if (lastPage)
                break;
        }
        const bool empty = lastRow < start;
        if (empty && lastPageWasEmpty)
            fail("a page is too low for a single row of the table");
        lastPageWasEmpty = empty;

        bool topIsSet = false;
        bool Cancel = false;
        if (NewPage)
            NewPage(surface, topIsSet, Cancel, lastRow);
        if (Cancel)
            break;
        if (!topIsSet)
            surface.setCurrentY(MarginTop);
        start = lastRow + 1;
    }
    surface.setFont(ownFont);
}

// The columns that a row's own merge flag joins with a cell.
std::pair<int, int> clsTablePrint::stretch(const Section& section, int row, int col)
{
    std::pair<int, int> cols(col, col);
    if (section.mergeRow.at(0, row)) {
        const std::string& text = section.texts.at(row, col);
        while (cols.first > 0 && section.texts.at(row, cols.first - 1) == text)
            --cols.first;
        while (cols.second < section.cols - 1 && section.texts.at(row, cols.second + 1) == text)
            ++cols.second;
    }
    return cols;
}

// Whether a stretch of columns is one with the same stretch of the row below.
bool clsTablePrint::joined(const Section& section, int upperRow, std::pair<int, int> cols)
{
    for (int col = cols.first; col <= cols.second; ++col)
        if (!section.mergeCol.at(0, col))
            return false;
    return section.texts.at(upperRow, cols.first) == section.texts.at(upperRow + 1, cols.first) &&
           stretch(section, upperRow, cols.first) == cols &&
           stretch(section, upperRow + 1, cols.first) == cols;
}

clsTablePrint::Span clsTablePrint::span(const Section& section, int row, int col)
{
    const std::pair<int, int> cols = stretch(section, row, col);
    Span span{row, row, cols.first, cols.second};
    while (span.firstRow > section.firstRow && joined(section, span.firstRow - 1, cols))
        --span.firstRow;
    while (span.lastRow < section.lastRow && joined(section, span.lastRow, cols))
        ++span.lastRow;
    return span;
}

void clsTablePrint::drawSection(Layout& layout, const Section& section, double y, double rowHeight) const
{
    const bool header = section.pictures == nullptr;
    for (int row = section.firstRow; row <= section.lastRow; ++row) {
        for (int col = 0; col < m_cols; ++col) {
            const Span cell = span(section, row, col);
            if (cell.firstRow != row || cell.firstCol != col)
                continue; // shown by the first cell of its span
            const bool centred = header && CenterMergedHeader && MergeHeaderCol(col);
            const auto alignment = centred ? controls::DT_CENTER : static_cast<unsigned>(ColAlignment(col));
            drawCell(layout, y + rowHeight * (row - section.firstRow), rowHeight * (cell.lastRow - row + 1),
                     {cell.firstCol, cell.lastCol}, section.texts.at(row, col), section.fonts.at(row, col),
                     header ? nullptr : section.pictures->at(row, col).get(),
                     alignment | controls::DT_NOPREFIX);
        }
    }
}

void clsTablePrint::drawFooter(Layout& layout, double y, double rowHeight) const
{
    for (int col = 0; col < m_cols; ++col)
        drawCell(layout, y, rowHeight, {col, col}, FooterText(col), FooterFont(col), nullptr,
                 static_cast<unsigned>(ColAlignment(col)) | controls::DT_NOPREFIX);
}

void clsTablePrint::drawCell(Layout& layout, double y, double height, std::pair<int, int> cols,
                             const std::string& text, const FontRef& font, const Image* picture,
                             unsigned flags) const
{
    DrawingSurface& surface = layout.surface;
    useFont(surface, font ? font : layout.ownFont);
    const ScaleMode mode = surface.scaleMode();
    const double left = layout.edges[static_cast<std::size_t>(cols.first)];
    const double right = layout.edges[static_cast<std::size_t>(cols.second) + 1];
    const PixelRect outer{wholePixels(left), wholePixels(surface.scaleY(y, mode, ScaleMode::Pixels)),
                          wholePixels(right),
                          wholePixels(surface.scaleY(y + height, mode, ScaleMode::Pixels))};
    PixelRect inner{outer.left + wholePixels(layout.xOffset), outer.top + wholePixels(layout.yOffset),
                    outer.right - wholePixels(layout.xOffset), outer.bottom - wholePixels(layout.yOffset)};

    if (picture)
        paintInside(surface, *picture, surface.scaleX(left, ScaleMode::Pixels, mode) + CellXOffset,
                    y + CellYOffset, surface.scaleX(right - left, ScaleMode::Pixels, mode) - 2 * CellXOffset,
                    height - 2 * CellYOffset);

    surface.setScaleMode(ScaleMode::Pixels);
    surface.box(outer.left, outer.top, outer.right, outer.bottom);
    surface.setScaleMode(mode);

    PixelRect measured;
    const int textHeight = surface.drawText(text, measured, controls::DT_NOPREFIX | controls::DT_CALCRECT);
    inner.top += (inner.bottom - inner.top - textHeight) / 2;
    surface.drawText(text, inner, flags);
}

} // namespace comfortics::output
