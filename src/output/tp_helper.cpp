// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/tp_helper.h"

#include <string>

namespace comfortics::output {

namespace {

// The grid's nine places, and "general", as left, centre and right of the text call.
int textAlignment(int gridAlignment)
{
    switch (gridAlignment) {
    case 3:
    case 4:
    case 5:
        return 1;
    case 6:
    case 7:
    case 8:
        return 2;
    default: // 0, 1, 2, 9
        return 0;
    }
}

} // namespace

void mdlTPHelper::ImportFlexGrid(clsTablePrint& table, controls::Grid& grid, float width)
{
    const controls::Grid::Bulk bulk(grid);
    const std::size_t fixedRows = grid.fixedRows();
    table.Rows(static_cast<int>(grid.rows() - fixedRows));
    table.Cols(static_cast<int>(grid.cols()));
    table.HeaderRows(static_cast<int>(fixedRows));
    table.HasFooter = false;
    table.LineThickness = grid.gridLineWidth();
    table.HeaderLineThickness = 2 * grid.gridLineWidth();
    const auto rowHeightMin = static_cast<float>(grid.rowHeightMin());
    table.RowHeightMin = rowHeightMin;
    table.HeaderRowHeightMin = rowHeightMin;
    table.FooterRowHeightMin = rowHeightMin;
    table.CellXOffset = 60;
    table.CellYOffset = 30;
    table.CenterMergedHeader = false;
    table.ResizeCellsToPicHeight = true;
    table.HeaderOnEachPage = true;

    const auto goTo = [&grid](std::size_t row, std::size_t col) { grid.select(row, col, row, col); };
    double totalWidth = 0;
    for (std::size_t row = 0; row < fixedRows; ++row) {
        const int headerRow = static_cast<int>(row);
        for (std::size_t gridCol = 0; gridCol < grid.cols(); ++gridCol) {
            const int col = static_cast<int>(gridCol);
            goTo(row, gridCol);
            table.HeaderFont(headerRow, col, GetCellFont(grid));
            if (row == 0) {
                table.ColAlignment(col, textAlignment(grid.colAlignment(gridCol)));
                totalWidth += grid.colWidth(gridCol);
            }
            table.HeaderText(headerRow, col, std::string(grid.textMatrix(row, gridCol)));
        }
        table.MergeHeaderRow(headerRow, grid.mergeRow(row));
    }

    for (std::size_t gridCol = 0; gridCol < grid.cols(); ++gridCol) {
        const int col = static_cast<int>(gridCol);
        for (std::size_t gridRow = fixedRows; gridRow < grid.rows(); ++gridRow) {
            const int row = static_cast<int>(gridRow - fixedRows);
            goTo(gridRow, gridCol);
            table.FontMatrix(row, col, GetCellFont(grid));
            if (const controls::ImageRef picture = grid.cellPicture(gridRow, gridCol))
                table.PictureMatrix(row, col, picture);
            table.TextMatrix(row, col, std::string(grid.textMatrix(gridRow, gridCol)));
            if (gridCol == 0)
                table.MergeRow(row, grid.mergeRow(gridRow));
        }
    }

    const bool shared = width > 0 && totalWidth > 0;
    for (std::size_t gridCol = 0; gridCol < grid.cols(); ++gridCol) {
        const int col = static_cast<int>(gridCol);
        const double colWidth = grid.colWidth(gridCol);
        table.ColWidth(col, static_cast<float>(shared ? colWidth / totalWidth * width : colWidth));
        table.MergeCol(col, grid.mergeCol(gridCol));
        table.MergeHeaderCol(col, grid.mergeCol(gridCol));
    }
}

controls::FontRef mdlTPHelper::GetCellFont(const controls::Grid& grid)
{
    const controls::FontRef& font = grid.cellFont();
    if (!m_font || *m_font != *font)
        m_font = std::make_shared<const controls::Font>(*font);
    return m_font;
}

} // namespace comfortics::output
