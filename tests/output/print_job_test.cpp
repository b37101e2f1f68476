// SPDX-License-Identifier: GPL-3.0-or-later
//
// From a grid to printed pages: what the table takes from the grid, and the job on the printer.
#include "output/print_job.h"
#include "prepared_answers.h"
#include "recording_surface.h"
#include "values/run_failure.h"

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
    const auto picture = std::make_shared<TestImage>(10, 20);
    grid.setCellPicture(2, 1, picture);
    clsTablePrint table;
    mdlTPHelper().ImportFlexGrid(table, grid, 0);

    EXPECT_EQ(table.Rows() * 100 + table.Cols() * 10 + table.HeaderRows(), 222);
    std::string texts;
    std::vector<bool> merged;
    for (const int i : {0, 1}) {
        texts +=
            table.HeaderText(i, 0) + table.HeaderText(i, 1) + table.TextMatrix(i, 0) + table.TextMatrix(i, 1);
        for (const bool flag :
             {table.MergeHeaderRow(i), table.MergeRow(i), table.MergeCol(i), table.MergeHeaderCol(i)})
            merged.push_back(flag);
    }
    EXPECT_EQ(texts, "abefcdgh");
    EXPECT_EQ(merged, (std::vector<bool>{0, 0, 0, 0, 1, 1, 1, 1}));
    EXPECT_EQ(std::vector({table.LineThickness, table.HeaderLineThickness}), std::vector({3, 6}));
    EXPECT_EQ(std::vector({table.RowHeightMin, table.HeaderRowHeightMin, table.FooterRowHeightMin,
                           table.CellXOffset, table.CellYOffset}),
              (std::vector<float>{410, 410, 410, 60, 30}));
    EXPECT_FALSE(table.HasFooter || table.CenterMergedHeader);
    EXPECT_TRUE(table.ResizeCellsToPicHeight && table.HeaderOnEachPage);
    EXPECT_EQ(table.PictureMatrix(0, 1), picture);
    EXPECT_EQ(table.PictureMatrix(1, 1), nullptr);
    EXPECT_EQ(grid.selection(), (controls::GridChange::Range{3, 1, 3, 1}))
        << "the current cell stays on the last one";
}

TEST(TpHelper, MapsTheAlignmentsOfColumns)
{
    Grid grid(2, 10);
    for (std::size_t col = 0; col < 10; ++col)
        grid.setColAlignment(col, static_cast<int>(col));
    clsTablePrint table;
    mdlTPHelper().ImportFlexGrid(table, grid, 0);
    std::string alignments;
    for (int col = 0; col < 10; ++col)
        alignments += std::to_string(table.ColAlignment(col));
    EXPECT_EQ(alignments, "0001112220");
}

TEST(TpHelper, SharesTheWidthInTheColumnsProportions)
{
    const std::vector<std::pair<float, float>> cases = {{0, 100}, {-5, 100}, {1, 0.125}, {1600, 200}};
    for (const auto& [width, expected] : cases) {
        Grid grid(3, 3, 2); // the widths count once, not for each header row
        grid.setColWidth(0, 500);
        grid.setColWidth(1, 100);
        grid.setColWidth(2, 200);
        clsTablePrint table;
        mdlTPHelper().ImportFlexGrid(table, grid, width);
        EXPECT_EQ(std::vector({table.ColWidth(0), table.ColWidth(1), table.ColWidth(2)}),
                  std::vector({5 * expected, expected, 2 * expected}))
            << width;
    }
}

TEST(TpHelper, EqualConsecutiveFontsAreOneObject)
{
    Grid grid(4, 1);
    grid.setCellFont(1, 0, Font()); // equal to the grid's, another object
    grid.setCellFont(3, 0, {.underline = true});
    clsTablePrint table;
    mdlTPHelper().ImportFlexGrid(table, grid, 0);
    EXPECT_EQ(table.HeaderFont(0, 0), table.FontMatrix(0, 0));
    EXPECT_EQ(table.FontMatrix(0, 0), table.FontMatrix(1, 0));
    EXPECT_EQ(*table.FontMatrix(2, 0), Font({.underline = true}));
}

namespace {

// Prints rows of 300 twips in a font of 10 points. A page of 3000 leaves 1566 after its margins and
// the header: five rows by count, six by index.
void printRows(int rows, RecordingPrinter& printer)
{
    Grid grid(1, 1);
    grid.setFont({.size = 10});
    grid.setTextMatrix(0, 0, "H");
    grid.setRows(static_cast<std::size_t>(rows) + 1);
    for (int row = 1; row <= rows; ++row)
        grid.setTextMatrix(static_cast<std::size_t>(row), 0, std::to_string(row));
    clsTablePrint table;
    table.NewPage = [&](controls::DrawingSurface& surface, bool& topIsSet, bool&, int) {
        output::startNextPage(table, surface, topIsSet);
        EXPECT_FALSE(topIsSet) << "a printer does not";
    };
    mdlTPHelper helper;
    printer.setCurrentY(1234); // wherever it stands before
    output::printGrid(grid, table, helper, printer);
}

} // namespace

TEST(PrintJob, PrintsAGridOnPages)
{
    struct Case {
        int rows;
        std::string job, texts;
    };
    for (const Case& row : {Case{6, "print end ", "H 1 2 3 4 5 6"},
                            Case{13, "print page page end ", "H 1 2 3 4 5 6 / H 7 8 9 10 11 12 / H 13"}}) {
        RecordingPrinter printer;
        printer.heightTwips = 3000;
        printRows(row.rows, printer);
        EXPECT_EQ(printer.job, row.job);
        EXPECT_EQ(printer.texts(), row.texts);
        // 1 cm (567 twips) of margin around a page of 6000: 56.7, 543.3 and 28.35 pixels.
        for (const auto& page : printer.pages)
            EXPECT_EQ(page.front(), "box 57,28,543,43 w2");
    }
}

TEST(PrintJob, AFailedPrintStillEndsTheJob)
{
    RecordingPrinter printer;
    printer.heightTwips = 1300;
    EXPECT_THROW(printRows(2, printer), values::RunFailure);
    EXPECT_EQ(printer.job, "print page end ");
}

TEST(PrintJob, APictureGrowsInsteadOfPaging)
{
    clsTablePrint table;
    table.MarginTop = 567;
    RecordingPicture picture;
    picture.setCurrentY(1500);
    bool topIsSet = false;
    output::startNextPage(table, picture, topIsSet);
    EXPECT_TRUE(topIsSet);
    EXPECT_EQ(picture.height(), 2000 + 16840);
    EXPECT_EQ(picture.currentY(), 2000 + 567);
    EXPECT_EQ(picture.pages[0], std::vector<std::string>{"line 0,2000,6000,2000 808080"});
}

} // namespace comfortics::tests
