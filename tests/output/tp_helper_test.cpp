// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/tp_helper.h"
#include "recording_surface.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::tests {

using controls::Font;
using controls::Grid;
using output::clsTablePrint;
using output::mdlTPHelper;

TEST(TpHelper, TakesEverythingFromTheGrid)
{
    Grid grid(4, 2, 2);
    grid.select(0, 0, 3, 1);
    grid.setClip("a\tb\rc\td\re\tf\rg\th");
    grid.setGridLineWidth(3);
    grid.setRowHeightMin(410);
    grid.setMergeRow(1, true);
    grid.setMergeRow(3, true);
    grid.setMergeCol(1, true);
    const auto picture = std::make_shared<TestImage>(10, 20);
    grid.setCellPicture(2, 1, picture);
    clsTablePrint table;
    mdlTPHelper helper;
    helper.ImportFlexGrid(table, grid, 0);

    EXPECT_EQ(table.Rows() * 100 + table.Cols() * 10 + table.HeaderRows(), 222);
    EXPECT_EQ(table.HeaderText(0, 0) + table.HeaderText(0, 1) + table.HeaderText(1, 0) +
                  table.HeaderText(1, 1),
              "abcd");
    EXPECT_EQ(table.TextMatrix(0, 0) + table.TextMatrix(0, 1) + table.TextMatrix(1, 0) +
                  table.TextMatrix(1, 1),
              "efgh");
    EXPECT_EQ(table.LineThickness, 3);
    EXPECT_EQ(table.HeaderLineThickness, 6);
    for (const float height : {table.RowHeightMin, table.HeaderRowHeightMin, table.FooterRowHeightMin})
        EXPECT_EQ(height, 410);
    EXPECT_EQ(table.CellXOffset, 60);
    EXPECT_EQ(table.CellYOffset, 30);
    EXPECT_FALSE(table.HasFooter || table.CenterMergedHeader);
    EXPECT_TRUE(table.ResizeCellsToPicHeight && table.HeaderOnEachPage);
    EXPECT_TRUE(!table.MergeHeaderRow(0) && table.MergeHeaderRow(1) && !table.MergeRow(0) &&
                table.MergeRow(1));
    EXPECT_FALSE(table.MergeCol(0) || table.MergeHeaderCol(0));
    EXPECT_TRUE(table.MergeCol(1) && table.MergeHeaderCol(1));
    EXPECT_EQ(table.PictureMatrix(0, 1), picture);
    EXPECT_EQ(table.PictureMatrix(1, 1), nullptr);
    EXPECT_EQ(grid.selection(), (controls::GridChange::Range{3, 1, 3, 1}))
        << "the current cell stays on the last one";
}

TEST(TpHelper, MapsTheAlignmentsOfColumns)
{
    const int expected[] = {0, 0, 0, 1, 1, 1, 2, 2, 2, 0};
    Grid grid(2, 10);
    for (std::size_t col = 0; col < 10; ++col)
        grid.setColAlignment(col, static_cast<int>(col));
    clsTablePrint table;
    mdlTPHelper().ImportFlexGrid(table, grid, 0);
    for (int col = 0; col < 10; ++col)
        EXPECT_EQ(table.ColAlignment(col), expected[col]) << col;
}

TEST(TpHelper, SharesTheWidthInTheColumnsProportions)
{
    struct Case {
        float width;
        std::vector<float> expected;
    };
    for (const Case& row :
         {Case{0, {500, 100, 200}}, Case{-5, {500, 100, 200}}, Case{1600, {1000, 200, 400}}}) {
        Grid grid(3, 3, 2); // the widths count once, not for each header row
        grid.setColWidth(0, 500);
        grid.setColWidth(1, 100);
        grid.setColWidth(2, 200);
        clsTablePrint table;
        mdlTPHelper().ImportFlexGrid(table, grid, row.width);
        EXPECT_EQ(std::vector({table.ColWidth(0), table.ColWidth(1), table.ColWidth(2)}), row.expected)
            << row.width;
    }
}

TEST(TpHelper, EqualConsecutiveFontsAreOneObject)
{
    for (const Font& other : std::vector<Font>{{.name = "Other"},
                                               {.size = 9},
                                               {.bold = true},
                                               {.italic = true},
                                               {.strikeThrough = true},
                                               {.underline = true}}) {
        Grid grid(4, 1);
        grid.setCellFont(1, 0, Font()); // equal to the grid's, another object
        grid.setCellFont(3, 0, other);
        clsTablePrint table;
        mdlTPHelper().ImportFlexGrid(table, grid, 0);
        EXPECT_EQ(table.HeaderFont(0, 0), table.FontMatrix(0, 0));
        EXPECT_EQ(table.FontMatrix(0, 0), table.FontMatrix(1, 0));
        EXPECT_NE(table.FontMatrix(1, 0), table.FontMatrix(2, 0));
        EXPECT_EQ(*table.FontMatrix(2, 0), other);
    }
}

} // namespace comfortics::tests
