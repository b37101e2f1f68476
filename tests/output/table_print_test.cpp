// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/table_print.h"
#include "recording_surface.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace comfortics::tests {

using output::clsTablePrint;
using output::InvalidPropertyValue;

namespace {

// One column of numbered rows below "H", all 300 twips high: 240 of text and 30 on either side.
// A page of 2000 twips with margins of 100 and 200 leaves 1700.
struct Numbered : clsTablePrint {
    explicit Numbered(int rows, bool footer = false, int headerRows = 1)
    {
        HasFooter = footer;
        Rows(rows);
        Cols(1);
        HeaderRows(headerRows);
        CellYOffset = 30;
        MarginTop = 100;
        MarginBottom = 200;
        HeaderText(-1, 0, "H");
        if (footer)
            FooterText(0, "F");
        for (int row = 0; row < rows; ++row)
            TextMatrix(row, 0, std::to_string(row));
    }
};

} // namespace

TEST(TablePrint, BreaksPages)
{
    struct Case {
        std::string name;
        int rows, headerRows;
        bool headerOnEachPage, footer;
        double startY;
        int page;
        std::string expected;
        double endY;
    };
    // After the header 1400 are left, which is four rows; the last index is counted from the first
    // row, so that five stand on a page. Without a header 1700 are left, six rows stand.
    const std::vector<Case> cases = {
        {"fits exactly", 5, 1, true, false, 100, 1, "H 0 1 2 3 4", 1900},
        {"header on each page", 11, 1, true, false, 100, 1, "H 0 1 2 3 4 / H 5 6 7 8 9 / H 10", 700},
        {"header once", 12, 1, false, false, 100, 1, "H 0 1 2 3 4 / 5 6 7 8 9 10 / 11", 400},
        {"two header rows", 6, 2, true, false, 100, 1, "H H 0 1 2 3 / H H 4 5", 1300},
        {"a later page has no header of its own", 1, 1, false, false, 100, 2, "0", 400},
        {"footer on the last page only", 6, 1, true, true, 100, 1, "H 0 1 2 3 4 / H 5 F", 1000},
        {"starts above the margin", 7, 1, true, false, 0, 1, "H 0 1 2 3 4 5 / H 6", 700},
        {"starts low", 6, 1, true, false, 1100, 1, "H 0 1 / H 2 3 4 5", 1600},
        {"room for the header only: one row is drawn", 6, 1, true, false, 1400, 1, "H 0 / H 1 2 3 4 5", 1900},
        {"no room for a single row", 2, 1, true, false, 1501, 1, "/ H 0 1", 1000},
        {"the footer is set aside for the last row", 1, 1, true, true, 1300, 1, "H / H 0 F", 1000},
        {"and not for two rows", 2, 1, true, true, 1300, 1, "H 0 / H 1 F", 1000},
    };
    for (const Case& row : cases) {
        Numbered table(row.rows, row.footer, row.headerRows);
        table.HeaderOnEachPage = row.headerOnEachPage;
        RecordingPrinter printer;
        table.NewPage = [&](controls::DrawingSurface&, bool&, bool&, int) { printer.newPage(); };
        printer.setCurrentY(row.startY);
        table.DrawTable(printer, 77777, row.page);
        EXPECT_EQ(printer.texts, " " + row.expected) << row.name;
        EXPECT_EQ(printer.currentY(), row.endY) << row.name;
    }
}

TEST(TablePrint, NewPageGetsTheLastRowAndAnswers)
{
    Numbered table(30);
    table.HeaderOnEachPage = true;
    table.FontMatrix(-1, -1, font(10));
    RecordingPrinter surface;
    const controls::FontRef own = surface.font();
    std::vector<int> lastRows;
    table.NewPage = [&](controls::DrawingSurface&, bool& topIsSet, bool& Cancel, int lastRow) {
        lastRows.push_back(lastRow);
        surface.newPage();
        surface.setCurrentY(400);
        topIsSet = lastRows.size() == 1; // stands lower than the margin: one row less, this time
        Cancel = lastRows.size() == 3;
    };
    EXPECT_EQ(table.CalcNumRowsPerPage(surface), 4);
    EXPECT_EQ(table.CalcNumRowsPerPage(surface, false), 5);
    surface.setCurrentY(100);
    table.DrawTable(surface, 0, 1);
    EXPECT_EQ(lastRows, (std::vector<int>{4, 8, 13}));
    EXPECT_EQ(surface.pages[1].front(), "box 0,20,2,35 w1");
    EXPECT_EQ(surface.pages[2].front(), "box 0,5,2,20 w1") << "at the margin";
    EXPECT_EQ(surface.font(), own);

    lastRows.clear();
    surface.heightTwips = 499; // less the margin, one short of a row
    surface.setCurrentY(0);
    table.NewPage = [&](controls::DrawingSurface&, bool&, bool&, int lastRow) {
        lastRows.push_back(lastRow);
    };
    EXPECT_THROW(table.DrawTable(surface, 0, 1), values::RunFailure);
    EXPECT_EQ(lastRows, std::vector<int>{-1}) << "one break, then a failure";
    EXPECT_EQ(surface.font(), own);
}

TEST(TablePrint, DrawsEachCellWithItsBoxFontAndAlignment)
{
    clsTablePrint table;
    table.HasFooter = false;
    table.Rows(1);
    table.MarginLeft = 100;
    table.ColWidth(0, 1000);
    table.ColWidth(1, 505);
    table.CellXOffset = 60;
    table.CellYOffset = 30;
    table.LineThickness = 1;
    table.HeaderLineThickness = 2;
    table.ColAlignment(1, 2);
    table.HeaderText(0, 0, "H0");
    table.HeaderText(0, 1, "H1");
    table.HeaderFont(0, 1, font(20)); // 480 twips and the padding: 27 pixels
    table.TextMatrix(0, 0, "B0");
    table.TextMatrix(0, 1, "B1");
    table.RowHeightMin = 800; // 40 pixels
    RecordingPrinter surface;
    surface.heightTwips = 9000;
    surface.setCurrentY(200);
    table.DrawTable(surface, 0, 1);
    // Left edges 10, 110 and 160.5 pixels; padding 6 and 1.5, rounded halves to even.
    const std::vector<std::string> expected = {
        "box 10,10,110,37 w2",  "text 16,17,104,35 f2048 s10 H0",
        "box 110,10,160,37 w2", "text 116,12,154,35 f2050 s20 H1",
        "box 10,37,110,77 w1",  "text 16,51,104,75 f2048 s10 B0",
        "box 110,37,160,77 w1", "text 116,51,154,75 f2050 s10 B1",
    };
    EXPECT_EQ(surface.pages[0], expected);
    EXPECT_EQ(surface.currentY(), 200 + 540 + 800);
}

TEST(TablePrint, MergesEqualNeighbours)
{
    // The texts of two rows, one letter a cell; whether rows merge; the columns that do; the boxes.
    const std::vector<std::tuple<std::string, bool, std::vector<int>, std::string>> cases = {
        {"aababb", true, {}, "0,0,20,20 20,0,30,20 0,20,10,40 10,20,30,40"},
        {"abcaac", false, {0, 2}, "0,0,10,40 10,0,20,20 20,0,30,40 10,20,20,40"},
        {"aabaac", true, {0, 1}, "0,0,20,40 20,0,30,20 20,20,30,40"},    // a block
        {"aaaaab", true, {0, 1, 2}, "0,0,30,20 0,20,20,40 20,20,30,40"}, // two widths
        {"aacaac", true, {0, 2}, "0,0,20,20 20,0,30,40 0,20,20,40"},     // over an unflagged column
    };
    for (const auto& [texts, mergesRows, mergeCols, boxes] : cases) {
        clsTablePrint table;
        table.HasFooter = false;
        table.Rows(2);
        table.Cols(3);
        table.ColWidth(-1, 100);  // 10 pixels
        table.RowHeightMin = 400; // 20 pixels
        for (int i = 0; i < 6; ++i)
            table.TextMatrix(i / 3, i % 3, {texts[static_cast<std::size_t>(i)]});
        for (const int row : {0, 1})
            table.MergeRow(row, mergesRows);
        for (const int col : mergeCols)
            table.MergeCol(col, true);
        RecordingPrinter surface;
        table.DrawTable(surface, 0, 2); // no header
        std::string drawn;
        for (const std::string& line : surface.pages[0])
            if (line.starts_with("box "))
                drawn += (drawn.empty() ? "" : " ") + line.substr(4, line.find(" w") - 4);
        EXPECT_EQ(drawn, boxes) << texts;
    }
}

TEST(TablePrint, ANewSizeEmptiesEverythingAndBringsTheFooterOrTakesIt)
{
    clsTablePrint table;
    table.TextMatrix(-1, -1, "x");
    table.HeaderText(0, 1, "x");
    table.FooterText(1, "x");
    table.ColWidth(-1, 99);
    table.MergeRow(4, true);
    table.HasFooter = false;
    EXPECT_EQ(table.FooterText(1), "x") << "it goes with the next size";
    table.Rows(5);
    EXPECT_THROW((void)table.FooterText(1), std::out_of_range);
    table.HasFooter = true;
    table.HeaderRows(1);
    EXPECT_EQ(table.TextMatrix(4, 1) + table.HeaderText(0, 1) + table.FooterText(1), "");
    EXPECT_EQ(table.ColWidth(0) + table.ColWidth(1), 30);
    EXPECT_FALSE(table.MergeRow(4));
}

TEST(TablePrint, AWildcardWritesARowAColumnOrAllAndNothingBeyond)
{
    clsTablePrint table;
    table.Cols(3);
    table.Rows(2);
    table.TextMatrix(-1, -1, ".");
    table.TextMatrix(1, -1, "x");
    table.TextMatrix(-1, 2, "y");
    std::string all;
    for (const int cell : {0, 1, 2, 3, 4, 5})
        all += table.TextMatrix(cell / 3, cell % 3);
    EXPECT_EQ(all, "..yxxy");
    EXPECT_THROW(table.Cols(0), InvalidPropertyValue);
    EXPECT_THROW(table.Rows(-1), InvalidPropertyValue);
    EXPECT_THROW(table.HeaderRows(0), InvalidPropertyValue);
    for (const auto& [row, col] : {std::pair(2, 0), {0, 3}, {-2, 0}, {0, -2}})
        EXPECT_THROW(table.TextMatrix(row, col, "x"), std::out_of_range) << row << ", " << col;
    EXPECT_THROW((void)table.TextMatrix(-1, 0), std::out_of_range) << "reading needs a place";
    EXPECT_THROW(table.MergeRow(-1, true), std::out_of_range) << "no wildcard here";
    EXPECT_EQ(table.Rows() * 100 + table.Cols() * 10 + table.HeaderRows(), 231);
}

} // namespace comfortics::tests
