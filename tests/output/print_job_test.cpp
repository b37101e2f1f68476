// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the printed table takes from the grid and the page. The job itself is tested with the results table.
#include "output/print_job.h"
#include "prepared_answers.h"
#include "recording_surface.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
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

TEST(PrintJob, PutsTheChosenPagesOnPaperInTheChosenOrder)
{
    const struct {
        output::PageChoice choice;
        std::string pages;
    } rows[] = {
        {{}, "1234"},
        {{.ranges = {{2, 3}}}, "23"},
        {{.ranges = {{3, 9}, {1, 1}}, .lastFirst = true}, "431"},
        {{.ranges = {{5, 6}}}, ""},
        {{.ranges = {{1, 2}}, .copies = 2}, "1212"},
        {{.ranges = {{1, 2}}, .lastFirst = true, .copies = 2}, "2121"},
        {{.ranges = {{1, 2}}, .lastFirst = true, .copies = 2, .collated = false}, "2211"},
    };
    for (const auto& [choice, pages] : rows) {
        std::string chosen;
        for (const int page : output::pagesOnPaper(choice, 4))
            chosen += std::to_string(page);
        EXPECT_EQ(chosen, pages);
    }
}

TEST(PrintJob, KeepsToTheMarginsOfThePageWhereTheyAreLargerThanACentimetre)
{
    Grid grid(40, 1);
    const auto print = [&grid](const output::PageMargins& margins) {
        RecordingPrinter printer;
        printer.own = margins;
        clsTablePrint table;
        table.NewPage = [&](auto& surface, bool& topIsSet, bool&, int) {
            output::startNextPage(table, surface, topIsSet);
        };
        mdlTPHelper helper;
        EXPECT_TRUE(output::printGrid(grid, table, helper, printer).succeeded());
        std::vector<int> frame{9999, 9999, 0, 0}; // the first page's outermost lines [pixels]
        for (const std::string& line : printer.pages.front()) {
            std::vector<int> edges(4);
            if (std::sscanf(line.c_str(), "box %d,%d,%d,%d", &edges[0], &edges[1], &edges[2], &edges[3]) < 4)
                continue;
            for (const std::size_t i : {0U, 1U})
                frame[i] = std::min(frame[i], edges[i]);
            for (const std::size_t i : {2U, 3U})
                frame[i] = std::max(frame[i], edges[i]);
        }
        return frame;
    };
    // A page of 600 by 100 pixels with rows of 13: 57 and 28 are a centimetre. The last row hangs over it.
    EXPECT_EQ(print({}), (std::vector{57, 28, 543, 80}));
    EXPECT_EQ(print({100, 560, 200, 300}), (std::vector{57, 28, 543, 80}));
    EXPECT_EQ(print({1000, 700, 1500, 600}), (std::vector{100, 35, 450, 61}));

    RecordingPrinter printer;
    printer.own = {.left = 3000, .right = 3000};
    clsTablePrint table;
    mdlTPHelper helper;
    EXPECT_THROW(output::printGrid(grid, table, helper, printer), values::RunFailure);
}

} // namespace comfortics::tests
