// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/print_job.h"
#include "recording_surface.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::tests {

using controls::Grid;
using output::clsTablePrint;
using output::mdlTPHelper;

namespace {

// Rows of 300 twips in a font of 10 points. A page of 3000 leaves 1566 after its margins and the
// header: five rows by count, six by index.
void fill(Grid& grid, std::size_t bodyRows)
{
    grid.setFont({.size = 10});
    grid.setRows(bodyRows + 1);
    grid.setTextMatrix(0, 0, "H");
    for (std::size_t row = 1; row <= bodyRows; ++row)
        grid.setTextMatrix(row, 0, std::to_string(row));
}

} // namespace

TEST(PrintJob, PrintsAGridOnPages)
{
    struct Case {
        std::size_t rows;
        std::string job;
        std::string texts;
    };
    const std::vector<Case> cases = {
        {6, "print end ", "H 1 2 3 4 5 6"},
        {7, "print page end ", "H 1 2 3 4 5 6 / H 7"},
        {13, "print page page end ", "H 1 2 3 4 5 6 / H 7 8 9 10 11 12 / H 13"},
    };
    for (const Case& row : cases) {
        Grid grid(1, 1);
        fill(grid, row.rows);
        clsTablePrint table;
        table.NewPage = [&](controls::DrawingSurface& surface, bool& topIsSet, bool&, int) {
            output::startNextPage(table, surface, topIsSet);
        };
        mdlTPHelper helper;
        RecordingPrinter printer;
        printer.heightTwips = 3000;
        printer.setCurrentY(1234); // wherever it stands before
        output::printGrid(grid, table, helper, printer);
        EXPECT_EQ(printer.job, row.job) << row.rows;
        EXPECT_EQ(printer.texts(), row.texts);
        // 1 cm (567 twips) of margin around a page of 6000: 56.7, 543.3 and 28.35 pixels.
        for (const auto& page : printer.pages)
            EXPECT_EQ(page.front(), "box 57,28,543,43 w2");
    }
}

TEST(PrintJob, AFailedPrintStillEndsTheJob)
{
    Grid grid(1, 1);
    fill(grid, 2);
    clsTablePrint table;
    mdlTPHelper helper;
    RecordingPrinter printer;
    printer.heightTwips = 1300;
    EXPECT_THROW(output::printGrid(grid, table, helper, printer), values::RunFailure);
    EXPECT_EQ(printer.job, "print end ");
}

TEST(PrintJob, APictureGrowsInsteadOfPaging)
{
    clsTablePrint table;
    table.MarginTop = 567;
    RecordingPicture picture;
    picture.setCurrentY(1500);
    bool topIsSet = false;
    RecordingPrinter printer;
    output::startNextPage(table, printer, topIsSet);
    EXPECT_FALSE(topIsSet) << "a printer does not";
    output::startNextPage(table, picture, topIsSet);
    EXPECT_TRUE(topIsSet);
    EXPECT_EQ(picture.height(), 2000 + 16840);
    EXPECT_EQ(picture.currentY(), 2000 + 567);
    EXPECT_EQ(picture.pages[0], std::vector<std::string>{"line 0,2000,6000,2000 808080"});
}

} // namespace comfortics::tests
