// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/grid.h"
#include "controls/grid_scroll.h"
#include "prepared_answers.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace comfortics::controls {

void PrintTo(const GridChange::Range& range, std::ostream* out)
{
    *out << range.firstRow << "," << range.firstCol << " to " << range.lastRow << "," << range.lastCol;
}

} // namespace comfortics::controls

namespace comfortics::tests {

using namespace controls;
using Range = GridChange::Range;

namespace {

void select(Grid& grid, const Range& range)
{
    grid.select(range.firstRow, range.firstCol, range.lastRow, range.lastCol);
}

} // namespace

TEST(Grid, ClipJoinsTheSelectionWhicheverWayItWasMade)
{
    Grid grid(3, 3);
    fill(grid, "a\tb\tc\rd\te\tf\rg\t\ti");
    const std::vector<std::pair<Range, std::string>> cases = {
        {{0, 0, 2, 2}, "a\tb\tc\rd\te\tf\rg\t\ti"},
        {{2, 2, 1, 1}, "e\tf\r\ti"},
        {{2, 0, 1, 1}, "d\te\rg\t"},
        {{2, 1, 2, 1}, ""},
    };
    for (const auto& [anchorAndExtent, expected] : cases) {
        select(grid, anchorAndExtent);
        EXPECT_EQ(grid.clip(), expected) << testing::PrintToString(anchorAndExtent);
    }
}

TEST(Grid, WritingClipReplacesTheSelectionAndNothingElse)
{
    const std::vector<std::pair<std::string, std::string>> cases = {
        // and the middle of a grid of x
        {"1\t2\t9\r3\t4\t9\r5\t6", "x|1|3|x x|2|4|x"},
        {"1\r3", "x|1|3|x x|||x"},
        {"1\t2", "x|1||x x|2||x"},
        {"1\n\t2\r3\t4", "x|1\n|3|x x|2|4|x"},
    };
    for (const auto& [text, expected] : cases) {
        Grid grid(4, 4);
        fill(grid, "x\tx\tx\tx\rx\tx\tx\tx\rx\tx\tx\tx\rx\tx\tx\tx");
        grid.select(1, 1, 2, 2);
        grid.setClip(text);
        EXPECT_EQ(column(grid, 1) + " " + column(grid, 2), expected) << text;
        EXPECT_EQ(column(grid, 0) + " " + column(grid, 3), "x|x|x|x x|x|x|x") << text;
    }
}

TEST(Grid, SortsByCharacterCode)
{
    // A column, and the same in order: numbers are texts, the ninth and the seventeenth byte decide.
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"H\r9.0\r-1.0\r\r100.0", "H||-1.0|100.0|9.0", "H|9.0|100.0|-1.0|"},
        {"H\rb\ra\rA\r\xC2\xB2", "H|A|a|b|\xC2\xB2", "H|\xC2\xB2|b|a|A"},
        {"H\r01234567z\r01234567a\r1\r2", "H|01234567a|01234567z|1|2", "H|2|1|01234567z|01234567a"},
        {"H\r0123456789abcdefb\r0123456789abcdef\r1\r2", "H|0123456789abcdef|0123456789abcdefb|1|2",
         "H|2|1|0123456789abcdefb|0123456789abcdef"},
    };
    for (const auto& [before, ascending, descending] : cases) {
        Grid grid(5, 1);
        fill(grid, before);
        grid.setSort(Sort::StringAscending);
        EXPECT_EQ(column(grid, 0), ascending);
        grid.setSort(Sort::StringDescending);
        EXPECT_EQ(column(grid, 0), descending);
    }
}

TEST(Grid, SortsWholeRowsByTheSelectedColumnsAndKeepsTheOrderOfEquals)
{
    // What is selected, and the third column.
    const std::tuple<Range, Sort, std::string> cases[] = {
        {{1, 0, 1, 0}, Sort::StringAscending, "h|q|s|p|r"},
        {{1, 0, 1, 0}, Sort::StringDescending, "h|p|r|q|s"},
        {{2, 1, 2, 0}, Sort::StringAscending, "h|s|q|p|r"}, // two columns, made backwards
        {{1, 0, 2, 0}, Sort::StringAscending, "h|q|s|p|r"},
        {{0, 2, 0, 2}, Sort::StringDescending, "h|s|r|q|p"}, // the header does not join in
    };
    for (const auto& [selection, order, expected] : cases) {
        Grid grid(5, 3);
        fill(grid, "h\th\th\rb\t1\tp\ra\t2\tq\rb\t1\tr\ra\t1\ts");
        select(grid, selection);
        grid.setSort(order);
        EXPECT_EQ(column(grid, 2), expected) << testing::PrintToString(selection);
    }
}

TEST(Grid, WhatBelongsToARowTravelsWithIt)
{
    Grid grid(4, 2);
    fill(grid, "h\th\rc\t1\ra\t2\rb\t3");
    for (std::size_t row = 1; row < 4; ++row)
        grid.setRowKey(row, static_cast<std::int32_t>(10 * row));
    grid.setCellAlignment(2, 1, 7);
    grid.setCellFont(3, 0, {.name = "Serif", .bold = true});
    grid.setRowHeight(2, 500);
    grid.select(1, 0, 1, 0);
    grid.setSort(Sort::StringAscending); // now the old rows 2, 3, 1
    EXPECT_EQ(std::vector({grid.rowKey(0), grid.rowKey(1), grid.rowKey(2), grid.rowKey(3)}),
              std::vector({0, 20, 30, 10}));
    EXPECT_EQ(grid.cellAlignment(1, 1), 7);
    EXPECT_EQ(grid.cellAlignment(2, 1), Grid::kGeneralAlignment);
    EXPECT_EQ(grid.cellFont(2, 0)->name, "Serif");
    EXPECT_EQ(grid.rowHeight(1), 500);
}

TEST(Grid, ANewSizeKeepsWhatFitsAndClearTheDimensions)
{
    Grid grid(4, 3);
    fill(grid, "a\tb\tc\rd\te\tf\rg\th\ti\rj\tk\tl");
    grid.setRowKey(1, 4);
    grid.setRowKey(2, 5);
    grid.select(3, 2, 1, 1);
    grid.setRows(2);
    grid.setCols(2);
    EXPECT_EQ(grid.selection(), (Range{1, 1, 1, 1}));
    grid.setRow(0); // writing the anchor takes the extent along
    EXPECT_EQ(grid.selection(), (Range{0, 1, 0, 1}));
    grid.setRows(4);
    grid.setCols(3);
    EXPECT_EQ(column(grid, 0) + " " + column(grid, 1) + " " + column(grid, 2), "a|d|| b|e|| |||");
    EXPECT_EQ(grid.rowKey(1) * 10 + grid.rowKey(2), 40);
    grid.clear();
    EXPECT_EQ(column(grid, 0) + column(grid, 1) + column(grid, 2), "|||||||||");
    EXPECT_EQ(grid.rowKey(1), 0);
}

TEST(Grid, RefusesWhatDoesNotExist)
{
    const std::vector<std::function<void(Grid&)>> acts = {
        [](Grid& grid) { (void)grid.textMatrix(3, 0); },
        [](Grid& grid) { grid.setTextMatrix(0, 2, "x"); },
        [](Grid& grid) { grid.setFixedRows(2), grid.setRows(1); },
        [](Grid& grid) { grid.setRows(Grid::kMaxRows + 1); },
        [](Grid& grid) { grid.setRowSel(3); },
        [](Grid& grid) { grid.setRowKey(3, 1); },
    };
    for (const auto& act : acts) {
        Grid grid(3, 2);
        EXPECT_THROW(act(grid), std::out_of_range) << &act - acts.data();
        EXPECT_EQ(grid.rows() * 10 + grid.cols(), 32u);
        EXPECT_EQ(grid.selection(), (Range{1, 0, 1, 0}));
    }
}

// Rows are 240 twips high. A grid of 1300 shows its header and four whole rows of the body, the
// last of which becomes the first.
TEST(Grid, ScrollsByAPage)
{
    const struct {
        std::size_t rows, top, expected;
        int height, rotation;
    } cases[] = {
        // no rotation counts as on, and just four rows
        {100, 20, 23, 1300, 0},
        {100, 20, 17, 1300, 1},
        {100, 3, 1, 1300, 120},
        {100, 95, 96, 1300, -120},
        {100, 1, 4, 1200, -120},
        // all rows show, all but one, and a grid lower than its header
        {5, 1, 1, 1200, -120},
        {6, 1, 2, 1200, -120},
        {100, 50, 50, 100, -120},
    };
    for (const auto& row : cases) {
        Grid grid(row.rows, 2);
        grid.setSize(3000, row.height);
        grid.setTopRow(row.top);
        ScrollFlexGrid(grid, row.rotation);
        EXPECT_EQ(grid.topRow(), row.expected) << &row - cases;
    }
    Grid grid(20, 1);
    grid.setSize(1000, 1300);
    EXPECT_TRUE(grid.rowIsVisible(0) && grid.rowIsVisible(4) && !grid.rowIsVisible(5));
    grid.setTopRow(19); // no further than the last page
    EXPECT_EQ(grid.topRow(), 16u);
    EXPECT_TRUE(grid.rowIsVisible(19) && !grid.rowIsVisible(15) && !grid.rowIsVisible(20));
}

TEST(Grid, TheMouseSelectsBeforeTheFormIsTold)
{
    const std::tuple<MouseButton, std::size_t, bool, Range> cases[] = {
        {MouseButton::Left, 3, false, {3, 2, 3, 2}},  {MouseButton::Left, 0, false, {1, 2, 4, 2}},
        {MouseButton::Left, 3, true, {2, 1, 3, 2}},   {MouseButton::Left, 0, true, {1, 1, 4, 2}},
        {MouseButton::Right, 3, false, {2, 1, 2, 1}},
    };
    for (const auto& [button, row, shift, expected] : cases) {
        Grid grid(5, 3);
        grid.select(2, 1, 2, 1);
        std::vector<std::pair<std::size_t, Range>> told;
        grid.onMouseDown([&](MouseButton) { told.emplace_back(grid.mouseRow(), grid.selection()); });
        grid.mouseDown(button, row, 2, shift);
        EXPECT_EQ(told, (std::vector{std::pair(row, expected)}));
    }
}

TEST(Grid, TellsItsViewWhatChanged)
{
    const auto gathered = [](Grid& grid) {
        const Grid::Bulk outer(grid);
        grid.setTextMatrix(3, 0, "x");
        const Grid::Bulk inner(grid);
        grid.setTextMatrix(1, 2, "y");
        grid.setRow(2);
    };
    const std::vector<std::pair<std::function<void(Grid&)>, std::string>> cases = {
        {[](Grid& grid) { grid.setTextMatrix(2, 1, "x"), grid.setTextMatrix(2, 1, "x"); }, "2,1 to 2,1;"},
        {[](Grid& grid) { grid.setRow(1), grid.setRow(2); }, "selection ;"},
        {[](Grid& grid) { grid.setRows(4), grid.setRows(9); }, "structure ;"},
        {[](Grid& grid) { grid.setFixedRows(2); }, "structure ;"},
        {[](Grid& grid) { grid.setColWidth(0, 5); }, "layout ;"},
        {[](Grid& grid) { grid.setSort(Sort::StringAscending); }, "1,0 to 3,2;"},
        {[](Grid& grid) { grid.setTopRow(3), grid.setTopRow(3); }, "scroll ;"},
        {gathered, "selection 1,0 to 3,2;"},
    };
    for (const auto& [act, expected] : cases) {
        Grid grid(4, 3);
        std::string told;
        grid.watch([&](const GridChange& change) {
            told += std::string(change.structure ? "structure " : "") + (change.layout ? "layout " : "") +
                    (change.selection ? "selection " : "") + (change.scroll ? "scroll " : "") +
                    (change.cells ? testing::PrintToString(*change.cells) : "") + ";";
        });
        act(grid);
        EXPECT_EQ(told, expected);
    }
}

} // namespace comfortics::tests
