// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the printed table takes from the grid. The job itself is tested with the results table.
#include "output/print_job.h"
#include "prepared_answers.h"
#include "recording_surface.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace comfortics::tests {

using controls::Font;
using controls::Grid;
using output::clsTablePrint;
using output::mdlTPHelper;

TEST(TpHelper, TakesEverythingFromTheGrid)
{
    Grid grid(4, 2, 2);
    fill(grid, "a\tb\rc\td\re\tf\rg\th");
    grid.setGridLineWidth(3);
    grid.setRowHeightMin(410);
    grid.setMergeRow(1, true);
    grid.setMergeRow(3, true);
    grid.setMergeCol(1, true);
    grid.setCellFont(1, 0, Font()); // equal to the grid's, another object
    grid.setCellFont(3, 1, {.underline = true});
    clsTablePrint table;
    mdlTPHelper().ImportFlexGrid(table, grid, 0);

    EXPECT_EQ(table.Rows() * 100 + table.Cols() * 10 + table.HeaderRows(), 222);
    std::string texts;
    for (const int i : {0, 1})
        texts +=
            table.HeaderText(i, 0) + table.HeaderText(i, 1) + table.TextMatrix(i, 0) + table.TextMatrix(i, 1);
    EXPECT_EQ(texts, "abefcdgh");
    EXPECT_TRUE(table.MergeHeaderRow(1) && table.MergeRow(1) && table.MergeHeaderCol(1) && table.MergeCol(1));
    EXPECT_FALSE(table.MergeHeaderRow(0) || table.MergeRow(0) || table.MergeHeaderCol(0) ||
                 table.MergeCol(0));
    EXPECT_EQ(std::vector({table.LineThickness, table.HeaderLineThickness}), std::vector({3, 6}));
    EXPECT_EQ(
        std::vector({table.RowHeightMin, table.HeaderRowHeightMin, table.CellXOffset, table.CellYOffset}),
        (std::vector<float>{410, 410, 60, 30}));
    EXPECT_FALSE(table.HasFooter || table.CenterMergedHeader);
    EXPECT_TRUE(table.ResizeCellsToPicHeight && table.HeaderOnEachPage);
    EXPECT_EQ(table.HeaderFont(1, 0), table.FontMatrix(0, 1)) << "equal fonts are one object";
    EXPECT_EQ(*table.FontMatrix(1, 1), Font({.underline = true}));
}

TEST(TpHelper, MapsTheAlignmentsAndSharesTheWidthInTheColumnsProportions)
{
    const std::vector<std::pair<float, float>> cases = {{0, 100}, {-5, 100}, {1, 0.0625}, {3200, 200}};
    for (const auto& [width, unit] : cases) {
        Grid grid(3, 10, 2); // the widths count once, not for each header row
        for (std::size_t col = 0; col < 10; ++col) {
            grid.setColWidth(col, col == 0 ? 700 : 100);
            grid.setColAlignment(col, static_cast<int>(col));
        }
        clsTablePrint table;
        mdlTPHelper().ImportFlexGrid(table, grid, width);
        std::string alignments;
        for (int col = 0; col < 10; ++col) {
            EXPECT_EQ(table.ColWidth(col), col == 0 ? 7 * unit : unit) << width;
            alignments += std::to_string(table.ColAlignment(col));
        }
        EXPECT_EQ(alignments, "0001112220");
    }
}

} // namespace comfortics::tests
