// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/frm_comfortics.h"
#include "prepared_answers.h"
#include "recording_surface.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::tests {

using controls::Grid;
using controls::MouseButton;
using output::ResultRow;
using Range = controls::GridChange::Range;

namespace {

struct PreparedPrinting final : output::PrintDialog {
    RecordingPrinter printer;
    bool printed = false;
    std::string name;
    void nameDocument(const std::string& document) override { name = document; }
    void show(const std::function<bool(output::Printer&)>& print) override { printed = print(printer); }
};

// Two of one name, and one without a value.
const std::vector<ResultRow> kEntries = {
    {"Set Point", "9.0", "[-]"},   {"Heat", "10.0", "cal/cm\xC2\xB2"}, {"asset", "", "hPa"},
    {"Wind, cold", "-3.5", "[-]"}, {"Heat", "100.0", "hPa"},           {"sETting", "0.5", "a"},
};

struct Results : testing::Test {
    RecordedClipboard clipboard;
    RecordedMessages messages;
    PreparedFiles files;
    PreparedPrinting printing;
    output::Frm_Comfortics form{clipboard, messages, files, printing};
    Grid& Flex = form.Flex;
    Grid& Flex_Search = form.Flex_Search;

    void show(const std::vector<ResultRow>& entries = kEntries)
    {
        form.showResults(entries.size(), [&](std::size_t index) { return entries.at(index - 1); });
    }
    void search(const std::string& text) { form.txt_Search.setText(text); }
    bool searchIsShown() const { return form.Flex_Search.visible() && !form.Flex.visible(); }
    // The entries in the order of their rows; 0 for the header.
    static std::string order(const Grid& grid)
    {
        std::string keys;
        for (std::size_t row = 0; row < grid.rows(); ++row)
            keys += std::to_string(grid.rowKey(row));
        return keys;
    }
    static void click(Grid& grid, std::size_t row, std::size_t col)
    {
        grid.mouseDown(MouseButton::Left, row, col);
    }
};

TEST_F(Results, StartHiddenAndFillTheTable)
{
    EXPECT_FALSE(form.visible() || searchIsShown());
    EXPECT_EQ(form.caption() + "|" + form.lbl_sort_Info.caption() + "|" + form.Menu_Copy.caption() + "|" +
                  form.Menu_Copy_Copy.caption() + "|" + form.Menu_Copy_Selection.caption() + "|" +
                  form.Menu_Export.caption() + "|" + form.Menu_Print.caption(),
              "Comfortics|Click headers to sort Comfortics.|Menu|Copy All|Copy Selection|Export (*.csv)|"
              "Print Table");
    show();
    EXPECT_TRUE(form.visible());
    EXPECT_EQ(column(Flex, 0), "Thermal Index|Set Point|Heat|asset|Wind, cold|Heat|sETting");
    EXPECT_EQ(column(Flex, 1), "Value|9.0|10.0||-3.5|100.0|0.5");
    EXPECT_EQ(column(Flex, 2), "Unit|[-]|cal/cm\xC2\xB2|hPa|[-]|hPa|a");
}

TEST_F(Results, EachTableSortsWithOneFlagWhichOnlyItsHeadersTurn)
{
    int popUps = 0;
    form.popUpMenu_Copy.watch([&] { ++popUps; });
    form.showResults(0, nullptr);
    click(Flex, 0, 0); // nothing but the header
    show();
    click(Flex, 3, 0);
    EXPECT_EQ(popUps, 0);
    Flex.mouseDown(MouseButton::Right, 0, 0);
    EXPECT_EQ(popUps, 1);
    EXPECT_EQ(order(Flex), "0123456");
    click(Flex, 0, 1);
    EXPECT_EQ(column(Flex, 1), "Value||-3.5|0.5|10.0|100.0|9.0");
    click(Flex, 0, 0); // another header: downwards all the same
    EXPECT_EQ(column(Flex, 0), "Thermal Index|sETting|asset|Wind, cold|Set Point|Heat|Heat");

    search("set");
    click(Flex_Search, 0, 0);
    EXPECT_EQ(order(Flex_Search), "0136") << "upwards";
    std::vector<ResultRow> next = kEntries;
    next[0].value = "77.7";
    show(next); // turns neither
    EXPECT_EQ(form.txt_Search.text(), "set");
    EXPECT_TRUE(searchIsShown());
    EXPECT_EQ(column(Flex_Search, 1), "Value|0.5||77.7");
    click(Flex_Search, 0, 0);
    EXPECT_EQ(order(Flex_Search), "0631") << "downwards";
    click(Flex, 0, 0);
    EXPECT_EQ(order(Flex), "0251436") << "upwards";
}

TEST_F(Results, SearchNamesInAnyCaseAndSortThemDownwards)
{
    show();
    for (const auto& [text, expected] : std::vector<std::pair<const char*, const char*>>{
             {"SET", "0631"}, {", c", "04"}, {"e", "063125"}, {"hPa", "0"}, {"Thermal", "0"}}) {
        search(text);
        EXPECT_EQ(order(Flex_Search), expected) << text;
        EXPECT_TRUE(searchIsShown());
    }
    search("");
    EXPECT_FALSE(searchIsShown());
    EXPECT_EQ(Flex_Search.rows(), 7u) << "an empty text matches every row";

    show({{"\xC3\x96kotherm", "1", ""}, {"20 \xC2\xB0.", "2", ""}, {"3\xC3\x97", "3", ""}});
    search("\xC3\xB6KO");
    EXPECT_EQ(order(Flex_Search), "01") << "accented letters";
    search("\xC3\xB7");
    EXPECT_EQ(order(Flex_Search), "0") << "division is no small multiplication";
}

TEST_F(Results, ABlankValueTellsItsReasonAndCanFallBelowTheCut)
{
    show();
    EXPECT_EQ(Flex.note(3, 1), "");
    form.provideReasons([](int index) { return "reason of " + std::to_string(index); });
    EXPECT_EQ(Flex.note(3, 1), "reason of 3");
    EXPECT_EQ(Flex.note(3, 0) + Flex.note(3, 2) + Flex.note(2, 1) + Flex.note(0, 1), "");
    search("s");
    EXPECT_EQ(Flex_Search.note(2, 1), "reason of 3");
    click(Flex_Search, 0, 1); // by value from now on
    search("set");
    // "asset" has no value. It stands at the bottom with the rows that match nothing, in their
    // order, and one that comes before it takes its place.
    EXPECT_EQ(column(Flex_Search, 0), "Thermal Index|Set Point|sETting|");
    EXPECT_EQ(order(Flex_Search), "0160");
}

TEST_F(Results, AValueOutsideItsLimitsSaysSoWhereverItIsSorted)
{
    std::vector<ResultRow> entries = kEntries;
    entries[1].doubt = "too hot";
    entries[3].meaning = catalogue::meaning(4, 0.7, {});
    show(entries);
    click(Flex, 0, 1);
    const std::size_t row = order(Flex).find('2');
    EXPECT_EQ(Flex.note(row, 1), "too hot");
    EXPECT_EQ(Flex.note(row, 0), "");
    EXPECT_TRUE(form.isDoubtful(Flex, row));
    EXPECT_FALSE(form.isDoubtful(Flex, row + 1) || form.isDoubtful(Flex, 0));

    // The literature goes with its index, too, and what there is to say of the value comes first.
    form.provideLiterature([](int index) { return "source of " + std::to_string(index); });
    EXPECT_EQ(Flex.note(row, 2), std::string(Flex.textMatrix(row, 0)) + "\nsource of 2");
    EXPECT_EQ(Flex.note(row, 1) + Flex.note(0, 0), "too hot");
    EXPECT_EQ(form.rowNote(Flex, row), "too hot");
    const std::size_t other = order(Flex).find('4');
    EXPECT_EQ(form.rowNote(Flex, other), "warm (+1): from 0.5 to below 1.5.");
    EXPECT_NE(Flex.note(other, 1).find("\nClasses: "), std::string::npos) << Flex.note(other, 1);
    EXPECT_TRUE(form.meaning(Flex, other));
    EXPECT_FALSE(form.meaning(Flex, row) || form.meaning(Flex, 0));
    EXPECT_EQ(form.rowNote(Flex, order(Flex).find('5')), "source of 5");
    EXPECT_EQ(form.rowNote(Flex, 0), "");
    form.provideLiterature({});
    show();
    EXPECT_FALSE(form.isDoubtful(Flex, 2));
}

TEST_F(Results, CopyExportAndPrintTheVisibleTable)
{
    const TemporaryFolder folder;
    files.answer = folder.file("all");
    RecordingPrinter& printer = printing.printer;
    printer.heightTwips = 2200;
    printer.setCurrentY(1234); // wherever it stands before
    form.resizeGrids(8004, 5000);
    form.lbl_In_Force.setCaption("By robust rules, limits ignored");
    show();
    Flex.select(2, 1, 1, 0);
    form.Menu_Copy_Selection.click.raise();
    EXPECT_EQ(clipboard.calls, (std::vector<std::string>{"clear", "Set Point\t9.0\rHeat\t10.0"}));
    form.Menu_Copy_Copy.click.raise();
    EXPECT_TRUE(clipboard.text().starts_with("Thermal Index\tValue\tUnit\rSet Point\t9.0\t[-]\rHeat"));
    EXPECT_EQ(Flex.selection(), (Range{0, 0, 6, 2})) << "stays selected";
    form.Menu_Export.click.raise();
    EXPECT_TRUE(
        readFile(folder.file("all.csv")).starts_with("Thermal Index,Value,Unit\r\nSet Point,9.0,[-]"));
    form.Menu_Print.click.raise();
    EXPECT_EQ(printer.job, "print page end ");
    EXPECT_EQ(printing.name, "Comfortics. By robust rules, limits ignored");
    // Margins of 1 cm, 567 twips, around a page of 6000; 5002 of 8003 parts of the rest: 3608 twips.
    for (const auto& page : printer.pages) {
        EXPECT_EQ(page[0], "box 57,28,361,41 w2");
        EXPECT_TRUE(page[1].ends_with(" f2049 s8.25 Thermal Index")) << page[1];
    }

    search("heat");
    form.Menu_Copy_Copy.click.raise();
    EXPECT_EQ(clipboard.text(), "Thermal Index\tValue\tUnit\rHeat\t10.0\tcal/cm\xC2\xB2\rHeat\t100.0\thPa");
    Flex_Search.select(1, 1, 1, 1);
    form.Menu_Copy_Selection.click.raise();
    EXPECT_EQ(clipboard.text(), "10.0");
    form.Menu_Export.click.raise();
    EXPECT_EQ(readFile(folder.file("all.csv")),
              "Thermal Index,Value,Unit\r\nHeat,10.0,cal/cm\xB2\r\nHeat,100.0,hPa\r\n");
    EXPECT_EQ(messages.boxes.back().text, "The spreadsheet table has been saved succesfully.");
    printer.texts.clear();
    form.Menu_Print.click.raise();
    EXPECT_EQ(printer.texts, " Thermal Index Value Unit Heat 10.0 cal/cm\xC2\xB2 Heat 100.0 hPa");
    EXPECT_TRUE(printing.printed);
    printer.ended = "The disk is full.";
    form.Menu_Print.click.raise();
    EXPECT_EQ(messages.boxes.back().text, printer.ended);
    EXPECT_FALSE(printing.printed);
    printer.heightTwips = 1200;
    printer.job.clear();
    form.Menu_Print.click.raise();
    EXPECT_EQ(messages.boxes.back().text,
              "The table could not be printed: a page is too low for a single row of the table.");
    EXPECT_EQ(printer.job, "print page ") << "nothing on paper";
}

TEST_F(Results, ShareTheWidthAndScrollUnderThePointer)
{
    show(std::vector<ResultRow>(100, {"row", "1", "x"}));
    search("row");
    form.resizeGrids(8012, 1300);
    EXPECT_EQ(std::vector({Flex_Search.colWidth(0), Flex_Search.colWidth(1), Flex_Search.colWidth(2)}),
              std::vector({5008, 1002, 2003})); // halves to even
    const std::vector<std::array<int, 3>> cases = {{0, 0, 4},    {8012, 1300, 4}, {-1, 0, 1},
                                                   {8013, 0, 1}, {0, -1, 1},      {0, 1301, 1}};
    for (const auto& [x, y, expected] : cases) {
        Flex_Search.setTopRow(1);
        form.MouseWheel(0, -120, Flex.left() + x, Flex.top() + y);
        EXPECT_EQ(Flex_Search.topRow(), static_cast<std::size_t>(expected)) << x << ", " << y;
    }
}

} // namespace
} // namespace comfortics::tests
