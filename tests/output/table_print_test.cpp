// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/table_print.h"
#include "recording_surface.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::tests {

using output::clsTablePrint;
using output::InvalidPropertyValue;

namespace {

// One column of numbered rows below "H", all 300 twips high: 240 of text and 30 on either side.
// A page of 2000 twips with margins of 100 and 200 leaves 1700.
void number(clsTablePrint& table, int rows, bool footer = false)
{
    table.HasFooter = footer;
    table.Rows(rows);
    table.Cols(1);
    table.HeaderRows(1);
    table.CellYOffset = 30;
    table.MarginTop = 100;
    table.MarginBottom = 200;
    table.HeaderText(0, 0, "H");
    if (footer)
        table.FooterText(0, "F");
    for (int row = 0; row < rows; ++row)
        table.TextMatrix(row, 0, std::to_string(row));
}

} // namespace

TEST(TablePrint, BreaksPages)
{
    struct Case {
        std::string name;
        int rows;
        bool headerOnEachPage;
        bool footer;
        double startY;
        int page;
        std::string expected;
    };
    // After the header 1400 are left, which is four rows; the last index is counted from the first
    // row, so that five stand on a page. Without a header 1700 are left, six rows stand.
    const std::vector<Case> cases = {
        {"fits exactly", 5, true, false, 100, 1, "H 0 1 2 3 4"},
        {"one row more", 6, true, false, 100, 1, "H 0 1 2 3 4 / H 5"},
        {"header on each page", 12, true, false, 100, 1, "H 0 1 2 3 4 / H 5 6 7 8 9 / H 10 11"},
        {"header once", 12, false, false, 100, 1, "H 0 1 2 3 4 / 5 6 7 8 9 10 / 11"},
        {"a later page has no header of its own", 1, false, false, 100, 2, "0"},
        {"but one of each page's", 1, true, false, 100, 2, "H 0"},
        {"no rows", 0, true, false, 100, 1, "H"},
        {"no rows but a footer", 0, true, true, 100, 1, "H F"},
        {"footer on the last page only", 6, true, true, 100, 1, "H 0 1 2 3 4 / H 5 F"},
        {"starts above the margin", 7, true, false, 0, 1, "H 0 1 2 3 4 5 / H 6"},
        {"starts low", 6, true, false, 1100, 1, "H 0 1 / H 2 3 4 5"},
        {"room for the header only: one row is drawn", 6, true, false, 1400, 1, "H 0 / H 1 2 3 4 5"},
        {"room for one row, taken by the header", 2, true, false, 1500, 1, "H 0 / H 1"},
        {"no room for a single row", 2, true, false, 1501, 1, " / H 0 1"},
        {"the footer is set aside for the last row", 1, true, true, 1300, 1, "H / H 0 F"},
        {"and not for two rows", 2, true, true, 1300, 1, "H 0 / H 1 F"},
    };
    for (const Case& row : cases) {
        clsTablePrint table;
        number(table, row.rows, row.footer);
        table.HeaderOnEachPage = row.headerOnEachPage;
        RecordingPrinter printer;
        table.NewPage = [&](controls::DrawingSurface&, bool&, bool&, int) { printer.newPage(); };
        printer.setCurrentY(row.startY);
        table.DrawTable(printer, 77777, row.page);
        std::string texts = printer.texts();
        EXPECT_EQ(texts, row.expected) << row.name;
    }
}

TEST(TablePrint, SeveralHeaderRowsTakeTheirRoom)
{
    clsTablePrint table;
    table.HasFooter = false;
    table.Rows(4);
    table.Cols(1);
    table.HeaderRows(2);
    table.HeaderText(-1, 0, "H");
    table.TextMatrix(-1, 0, "B");
    RecordingPrinter printer; // 2000 twips: the header and six rows of 240, by index seven
    printer.setCurrentY(600); // three rows less
    table.NewPage = [&](controls::DrawingSurface&, bool&, bool&, int) { printer.newPage(); };
    table.DrawTable(printer, 0, 1);
    EXPECT_EQ(printer.texts(), "H H B B B B");
    EXPECT_EQ(printer.currentY(), 600 + 6 * 240);
    table.HeaderText(1, 0, "h");
    printer.setCurrentY(841); // and another: 679 are left below the header, two rows, three by index
    table.DrawTable(printer, 0, 1);
    EXPECT_EQ(printer.texts(), "H H B B B B H h B B B / B");
}

TEST(TablePrint, NewPageGetsTheLastRowAndAnswers)
{
    clsTablePrint table;
    number(table, 30);
    table.HeaderOnEachPage = true;
    table.FontMatrix(-1, -1, font(10));
    RecordingPicture surface;
    const controls::FontRef own = surface.font();
    std::vector<int> lastRows;
    table.NewPage = [&](controls::DrawingSurface& given, bool& topIsSet, bool& Cancel, int lastRow) {
        EXPECT_EQ(&given, &surface);
        EXPECT_FALSE(topIsSet);
        lastRows.push_back(lastRow);
        surface.pages.emplace_back();
        surface.setCurrentY(400);
        topIsSet = lastRows.size() == 1; // stands lower than the margin: one row less, this time
        Cancel = lastRows.size() == 3;
    };
    surface.setCurrentY(100);
    table.DrawTable(surface, 0, 1);
    EXPECT_EQ(lastRows, (std::vector<int>{4, 8, 13}));
    EXPECT_EQ(surface.pages[1].front(), "box 0,20,2,35 w1");
    EXPECT_EQ(surface.pages[2].front(), "box 0,5,2,20 w1") << "at the margin";
    EXPECT_TRUE(surface.pages[3].empty());
    EXPECT_EQ(surface.font(), own);
}

TEST(TablePrint, APageTooLowForARowEndsInAFailureAfterOneBreak)
{
    clsTablePrint table;
    number(table, 3);
    table.FontMatrix(-1, -1, font(10));
    table.HeaderFont(-1, -1, font(10));
    RecordingPicture surface;
    const controls::FontRef own = surface.font();
    surface.heightTwips = 499; // less the margin, one short of a row
    std::vector<int> lastRows;
    table.NewPage = [&](controls::DrawingSurface&, bool&, bool&, int lastRow) {
        lastRows.push_back(lastRow);
    };
    EXPECT_THROW(table.DrawTable(surface, 0, 1), values::RunFailure);
    EXPECT_EQ(lastRows, std::vector<int>{-1});
    EXPECT_EQ(surface.texts(), "");
    EXPECT_EQ(surface.font(), own);
}

TEST(TablePrint, DrawsEachCellWithItsBoxFontAndAlignment)
{
    clsTablePrint table;
    table.Rows(1);
    table.MarginLeft = 100;
    table.ColWidth(0, 1000);
    table.ColWidth(1, 505);
    table.CellXOffset = 60;
    table.CellYOffset = 30;
    table.LineThickness = 1;
    table.HeaderLineThickness = 2;
    table.FooterLineThickness = 3;
    table.ColAlignment(1, 2);
    table.HeaderText(0, 0, "H0");
    table.HeaderText(0, 1, "H1");
    table.HeaderFont(0, 1, font(20)); // 480 twips and the padding: 27 pixels
    table.TextMatrix(0, 0, "B0");
    table.TextMatrix(0, 1, "B1");
    table.RowHeightMin = 800; // 40 pixels
    table.FooterText(0, "F0");
    table.FooterText(1, "F1\nF2"); // two lines
    table.FooterFont(-1, font(15));
    RecordingPicture surface;
    surface.heightTwips = 9000;
    surface.setCurrentY(200);
    table.DrawTable(surface, 0, 1);
    // Left edges 10, 110 and 160.5 pixels; padding 6 and 1.5, rounded halves to even.
    const std::vector<std::string> expected = {
        "box 10,10,110,37 w2",   "text 16,17,104,35 f2048 s10 H0",
        "box 110,10,160,37 w2",  "text 116,12,154,35 f2050 s20 H1",
        "box 10,37,110,77 w1",   "text 16,51,104,75 f2048 s10 B0",
        "box 110,37,160,77 w1",  "text 116,51,154,75 f2050 s10 B1",
        "box 10,77,110,116 w3",  "text 16,87,104,114 f2048 s15 F0",
        "box 110,77,160,116 w3", "text 116,79,154,114 f2050 s15 F1\nF2",
    };
    EXPECT_EQ(surface.pages[0], expected);
    EXPECT_EQ(surface.currentY(), 200 + 540 + 800 + 780);
}

TEST(TablePrint, ChangesTheFontOnlyForAnotherObject)
{
    clsTablePrint table;
    number(table, 50);
    const controls::FontRef shared = font(12);
    table.FontMatrix(-1, -1, shared);
    table.HeaderFont(-1, -1, shared);
    RecordingPicture surface;
    surface.heightTwips = 100000;
    table.DrawTable(surface, 0, 1);
    EXPECT_EQ(surface.fontChanges, 2) << "to the table's and back";
}

TEST(TablePrint, MergesEqualNeighbours)
{
    struct Case {
        std::string name;
        std::vector<std::string> rows; // one letter a cell
        std::vector<int> mergeRows;
        std::vector<int> mergeCols;
        std::string expected; // column, row, and size of each box [cells], with its text
    };
    const std::vector<Case> cases = {
        {"no flags", {"aa", "aa"}, {}, {}, "00:1x1a 10:1x1a 01:1x1a 11:1x1a"},
        {"a row", {"aab", "aab"}, {0}, {}, "00:2x1a 20:1x1b 01:1x1a 11:1x1a 21:1x1b"},
        {"a column", {"ab", "ab", "cb"}, {}, {0}, "00:1x2a 10:1x1b 11:1x1b 02:1x1c 12:1x1b"},
        {"a column in two stretches", {"a", "a", "b", "b"}, {}, {0}, "00:1x2a 02:1x2b"},
        {"both: a block", {"aab", "aac"}, {0, 1}, {0, 1}, "00:2x2a 20:1x1b 21:1x1c"},
        {"both: stretches of two widths", {"aaa", "aab"}, {0, 1}, {0, 1, 2}, "00:3x1a 01:2x1a 21:1x1b"},
        {"both: a stretch over an unflagged column", {"aa", "aa"}, {0, 1}, {0}, "00:2x1a 01:2x1a"},
        {"a merged row above a plain one", {"aa", "aa"}, {0}, {0, 1}, "00:2x1a 01:1x1a 11:1x1a"},
        {"blanks are equal too", {"  "}, {0}, {}, "00:2x1 "},
    };
    for (const Case& row : cases) {
        clsTablePrint table;
        table.HasFooter = false;
        table.Rows(static_cast<int>(row.rows.size()));
        table.Cols(static_cast<int>(row.rows[0].size()));
        table.ColWidth(-1, 100);  // 10 pixels
        table.RowHeightMin = 400; // 20 pixels
        for (int r = 0; r < table.Rows(); ++r)
            for (int c = 0; c < table.Cols(); ++c)
                table.TextMatrix(
                    r, c, row.rows[static_cast<std::size_t>(r)].substr(static_cast<std::size_t>(c), 1));
        for (const int r : row.mergeRows)
            table.MergeRow(r, true);
        for (const int c : row.mergeCols)
            table.MergeCol(c, true);
        RecordingPicture surface;
        surface.heightTwips = 9000;
        table.DrawTable(surface, 0, 2); // no header
        std::string drawn;
        for (std::size_t i = 0; i + 1 < surface.pages[0].size(); i += 2) {
            int left = 0, top = 0, right = 0, bottom = 0;
            ASSERT_EQ(
                std::sscanf(surface.pages[0][i].c_str(), "box %d,%d,%d,%d", &left, &top, &right, &bottom), 4);
            drawn += (drawn.empty() ? "" : " ") + std::to_string(left / 10) + std::to_string(top / 20) + ":" +
                     std::to_string((right - left) / 10) + "x" + std::to_string((bottom - top) / 20) +
                     surface.pages[0][i + 1].back();
        }
        EXPECT_EQ(drawn, row.expected) << row.name;
    }
}

TEST(TablePrint, ASpanThatAPageBreakCutsIsDrawnOnBothPages)
{
    clsTablePrint table;
    number(table, 8);
    table.TextMatrix(-1, 0, "x");
    table.MergeCol(0, true);
    RecordingPrinter printer;
    table.NewPage = [&](controls::DrawingSurface&, bool&, bool&, int) { printer.newPage(); };
    printer.setCurrentY(100);
    table.DrawTable(printer, 0, 1);
    EXPECT_EQ(printer.texts(), "H x / x");
    EXPECT_EQ(printer.pages[0][2], "box 0,20,2,95 w1");
    EXPECT_EQ(printer.pages[1][0], "box 0,5,2,50 w1");
}

TEST(TablePrint, CentresAMergedHeaderOnlyIfAsked)
{
    for (const int flags : {0, 1, 2, 3}) {
        clsTablePrint table;
        number(table, 0);
        table.ColAlignment(0, 2);
        table.CenterMergedHeader = (flags & 1) != 0;
        table.MergeHeaderCol(0, (flags & 2) != 0);
        RecordingPicture surface;
        table.DrawTable(surface, 0, 1);
        EXPECT_NE(surface.pages[0].back().find(flags == 3 ? " f2049 " : " f2050 "), std::string::npos)
            << flags;
    }
}

TEST(TablePrint, PicturesRaiseTheRowsIfAsked)
{
    struct Case {
        std::string name;
        bool raises;
        TestImage image;
        std::string picture;
        std::string box;
    };
    // 2540 HiMetric are 1440 twips. The cell's inside is 1000 - 2 * 60 twips wide.
    const std::vector<Case> cases = {
        {"raises", true, {635, 1270}, "picture 60,30,360,720", "box 0,0,100,39 w1"},
        {"is fitted in instead", false, {635, 1270}, "picture 60,30,120,240", "box 0,0,100,15 w1"},
        {"too wide", true, {2540, 635}, "picture 60,30,880,220", "box 0,0,100,21 w1"},
    };
    for (const Case& row : cases) {
        clsTablePrint table;
        number(table, 1);
        table.ColWidth(0, 1000);
        table.CellXOffset = 60;
        table.ResizeCellsToPicHeight = row.raises;
        table.PictureMatrix(0, 0, std::make_shared<TestImage>(row.image));
        RecordingPicture surface;
        table.DrawTable(surface, 0, 2);
        EXPECT_EQ(surface.pages[0][0], row.picture) << row.name;
        EXPECT_EQ(surface.pages[0][1], row.box) << row.name;
    }
}

TEST(TablePrint, CountsTheRowsOfAPage)
{
    struct Case {
        bool headerField;
        bool footerField;
        std::optional<bool> header;
        std::optional<bool> footer;
        int expected;
    };
    // 1700 twips; rows, header and footer of 300 each.
    for (const Case& row : {Case{false, false, false, false, 5}, Case{false, false, true, false, 4},
                            Case{false, true, true, true, 3}, Case{true, true, {}, {}, 3},
                            Case{false, true, {}, {}, 4}, Case{true, true, {}, false, 4}}) {
        clsTablePrint table;
        number(table, 3, row.footerField);
        table.HeaderOnEachPage = row.headerField;
        RecordingPicture surface;
        EXPECT_EQ(table.CalcNumRowsPerPage(surface, row.header, row.footer), row.expected);
    }
}

TEST(TablePrint, ANewSizeEmptiesEverything)
{
    const std::vector<std::function<void(clsTablePrint&)>> sizes = {
        [](clsTablePrint& table) { table.Rows(5); },
        [](clsTablePrint& table) { table.Cols(2); },
        [](clsTablePrint& table) { table.HeaderRows(1); },
    };
    for (const auto& size : sizes) {
        clsTablePrint table;
        table.TextMatrix(-1, -1, "x");
        table.HeaderText(0, 1, "x");
        table.FooterText(1, "x");
        table.ColWidth(-1, 99);
        table.MergeRow(4, true);
        size(table);
        EXPECT_EQ(table.TextMatrix(4, 1) + table.HeaderText(0, 1) + table.FooterText(1), "");
        EXPECT_EQ(table.ColWidth(0) + table.ColWidth(1), 30);
        EXPECT_FALSE(table.MergeRow(4));
    }
}

TEST(TablePrint, TheFooterComesAndGoesWithTheNextSize)
{
    clsTablePrint table;
    table.FooterText(0, "kept");
    table.HasFooter = false;
    EXPECT_EQ(table.FooterText(0), "kept");
    table.Rows(5);
    EXPECT_THROW(table.FooterText(0, "x"), std::out_of_range);
    table.HasFooter = true;
    EXPECT_THROW((void)table.FooterText(0), std::out_of_range);
    table.Rows(5);
    EXPECT_EQ(table.FooterText(1), "");
}

TEST(TablePrint, AWildcardWritesARowAColumnOrAll)
{
    struct Case {
        int row;
        int col;
        std::string expected;
    };
    for (const Case& row : {Case{1, 2, "...|..x|"}, Case{1, -1, "...|xxx|"}, Case{-1, 2, "..x|..x|"},
                            Case{-1, -1, "xxx|xxx|"}}) {
        clsTablePrint table;
        table.Rows(2);
        table.Cols(3);
        table.TextMatrix(-1, -1, ".");
        table.TextMatrix(row.row, row.col, "x");
        std::string all;
        for (int r = 0; r < 2; ++r)
            all += table.TextMatrix(r, 0) + table.TextMatrix(r, 1) + table.TextMatrix(r, 2) + "|";
        EXPECT_EQ(all, row.expected);
    }
    clsTablePrint table;
    const controls::FontRef large = font(30);
    table.ColFont(1, large);
    EXPECT_EQ(table.FontMatrix(4, 1), large);
    EXPECT_EQ(table.FontMatrix(4, 0), nullptr);
}

TEST(TablePrint, RefusesSizesAndPlacesBeyondItsBounds)
{
    clsTablePrint table;
    EXPECT_THROW(table.Cols(0), InvalidPropertyValue);
    EXPECT_THROW(table.Rows(-1), InvalidPropertyValue);
    EXPECT_THROW(table.HeaderRows(0), InvalidPropertyValue);
    EXPECT_THROW(table.TextMatrix(5, 0, "x"), std::out_of_range);
    EXPECT_THROW(table.TextMatrix(0, 2, "x"), std::out_of_range);
    EXPECT_THROW(table.TextMatrix(-2, 0, "x"), std::out_of_range);
    EXPECT_THROW((void)table.TextMatrix(-1, 0), std::out_of_range) << "reading needs a place";
    EXPECT_THROW((void)table.ColAlignment(-1), std::out_of_range);
    EXPECT_THROW(table.MergeHeaderRow(1, true), std::out_of_range);
    EXPECT_THROW(table.MergeRow(-1, true), std::out_of_range) << "no wildcard here";
    EXPECT_EQ(table.Rows() * 100 + table.Cols() * 10 + table.HeaderRows(), 521);
}

} // namespace comfortics::tests
