// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/table_print.h"
#include "recording_surface.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
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
        int rows;
        int headerRows;
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
        {"but one of each page's", 1, 1, true, false, 100, 2, "H 0", 700},
        {"no rows", 0, 1, true, false, 100, 1, "H", 400},
        {"no rows but a footer", 0, 1, true, true, 100, 1, "H F", 700},
        {"footer on the last page only", 6, 1, true, true, 100, 1, "H 0 1 2 3 4 / H 5 F", 1000},
        {"starts above the margin", 7, 1, true, false, 0, 1, "H 0 1 2 3 4 5 / H 6", 700},
        {"starts low", 6, 1, true, false, 1100, 1, "H 0 1 / H 2 3 4 5", 1600},
        {"room for the header only: one row is drawn", 6, 1, true, false, 1400, 1, "H 0 / H 1 2 3 4 5", 1900},
        {"room for one row, taken by the header", 2, 1, true, false, 1500, 1, "H 0 / H 1", 700},
        {"no room for a single row", 2, 1, true, false, 1501, 1, " / H 0 1", 1000},
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
        EXPECT_EQ(printer.texts(), row.expected) << row.name;
        EXPECT_EQ(printer.currentY(), row.endY) << row.name;
    }
}

TEST(TablePrint, NewPageGetsTheLastRowAndAnswers)
{
    Numbered table(30);
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
    Numbered table(3);
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
    EXPECT_EQ(surface.fontChanges, 2) << "to the header's, another object, and back";
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

TEST(TablePrint, MergesEqualNeighbours)
{
    struct Case {
        std::string name;
        std::vector<std::string> rows; // one letter a cell
        std::vector<int> mergeRows, mergeCols;
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
        for (std::size_t r = 0; r < row.rows.size(); ++r)
            for (std::size_t c = 0; c < row.rows[r].size(); ++c)
                table.TextMatrix(static_cast<int>(r), static_cast<int>(c), {row.rows[r][c]});
        for (const int r : row.mergeRows)
            table.MergeRow(r, true);
        for (const int c : row.mergeCols)
            table.MergeCol(c, true);
        RecordingPicture surface;
        surface.heightTwips = 9000;
        table.DrawTable(surface, 0, 2); // no header
        std::ostringstream drawn;
        const std::vector<std::string>& lines = surface.pages[0];
        for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
            int left = 0, top = 0, right = 0, bottom = 0;
            ASSERT_EQ(std::sscanf(lines[i].c_str(), "box %d,%d,%d,%d", &left, &top, &right, &bottom), 4);
            drawn << (i == 0 ? "" : " ") << left / 10 << top / 20 << ":" << (right - left) / 10 << "x"
                  << (bottom - top) / 20 << lines[i + 1].back();
        }
        EXPECT_EQ(drawn.str(), row.expected) << row.name;
    }
}

TEST(TablePrint, ASpanThatAPageBreakCutsIsDrawnOnBothPages)
{
    Numbered table(8);
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
        Numbered table(0);
        table.CenterMergedHeader = (flags & 1) != 0;
        table.MergeHeaderCol(0, (flags & 2) != 0);
        RecordingPicture surface;
        table.DrawTable(surface, 0, 1);
        EXPECT_TRUE(surface.pages[0].back().ends_with(flags == 3 ? " f2049 s10 H" : " f2048 s10 H")) << flags;
    }
}

TEST(TablePrint, PicturesRaiseTheRowsIfAsked)
{
    struct Case {
        std::string name;
        bool raises;
        TestImage image;
        std::string picture, box;
    };
    // 2540 HiMetric are 1440 twips. The cell's inside is 1000 - 2 * 60 twips wide.
    const std::vector<Case> cases = {
        {"raises", true, {635, 1270}, "picture 60,30,360,720", "box 0,0,100,39 w1"},
        {"is fitted in instead", false, {635, 1270}, "picture 60,30,120,240", "box 0,0,100,15 w1"},
        {"too wide", true, {2540, 635}, "picture 60,30,880,220", "box 0,0,100,21 w1"},
    };
    for (const Case& row : cases) {
        Numbered table(1);
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
        bool headerField, footerField;
        std::optional<bool> header, footer;
        int expected;
    };
    // 1700 twips; rows, header and footer of 300 each.
    for (const Case& row : {Case{false, false, false, false, 5}, Case{false, false, true, false, 4},
                            Case{false, true, true, true, 3}, Case{true, true, {}, {}, 3},
                            Case{false, true, {}, {}, 4}, Case{true, true, {}, false, 4}}) {
        Numbered table(3, row.footerField);
        table.HeaderOnEachPage = row.headerField;
        RecordingPicture surface;
        EXPECT_EQ(table.CalcNumRowsPerPage(surface, row.header, row.footer), row.expected);
    }
}

TEST(TablePrint, ANewSizeEmptiesEverythingAndBringsTheFooterOrTakesIt)
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
        table.HasFooter = false;
        EXPECT_EQ(table.FooterText(1), "x") << "it goes with the next size";
        size(table);
        EXPECT_THROW((void)table.FooterText(1), std::out_of_range);
        table.HasFooter = true;
        size(table);
        EXPECT_EQ(table.TextMatrix(4, 1) + table.HeaderText(0, 1) + table.FooterText(1), "");
        EXPECT_EQ(table.ColWidth(0) + table.ColWidth(1), 30);
        EXPECT_FALSE(table.MergeRow(4));
    }
}

TEST(TablePrint, AWildcardWritesARowAColumnOrAll)
{
    const std::map<std::pair<int, int>, std::string> cases = {
        {{1, 2}, "...|..x|"}, {{1, -1}, "...|xxx|"}, {{-1, 2}, "..x|..x|"}, {{-1, -1}, "xxx|xxx|"}};
    for (const auto& [place, expected] : cases) {
        clsTablePrint table;
        table.Rows(2);
        table.Cols(3);
        table.TextMatrix(-1, -1, ".");
        table.TextMatrix(place.first, place.second, "x");
        std::string all;
        for (const int r : {0, 1})
            all += table.TextMatrix(r, 0) + table.TextMatrix(r, 1) + table.TextMatrix(r, 2) + "|";
        EXPECT_EQ(all, expected);
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
    for (const auto& [row, col] : {std::pair(5, 0), {0, 2}, {-2, 0}, {0, -2}})
        EXPECT_THROW(table.TextMatrix(row, col, "x"), std::out_of_range) << row << ", " << col;
    EXPECT_THROW((void)table.TextMatrix(-1, 0), std::out_of_range) << "reading needs a place";
    EXPECT_THROW(table.MergeRow(-1, true), std::out_of_range) << "no wildcard here";
    EXPECT_EQ(table.Rows() * 100 + table.Cols() * 10 + table.HeaderRows(), 521);
}

} // namespace comfortics::tests
