// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/frm_raw_data.h"

#include "batch_desk.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::batch {
namespace {

using controls::Key;
using tests::Cells;
using tests::kExtreme;
using tests::randomRows;
using Texts = std::vector<std::vector<std::string>>;

/// Keeps what the user is shown and asked, and answers as prepared.
struct User final : controls::Messages, controls::Clipboard, controls::FileDialogs, output::PrintDialog {
    std::vector<controls::MessageBox> boxes;
    std::size_t tickAt = 0; // the message whose check box is ticked; 0: none
    std::function<void()> whileShown = [] {};
    std::string held; // by the clipboard
    std::string path;
    controls::Answer show(const controls::MessageBox& box) override
    {
        boxes.push_back(box);
        whileShown();
        if (box.checked != nullptr)
            *box.checked = boxes.size() == tickAt;
        return controls::Answer::Ok;
    }
    void clear() override { held = "cleared "; }
    void setText(const std::string& text) override { held = (held == "cleared " ? held : "") + text; }
    std::string text() override { return held; }
    std::optional<std::string> askSave(const controls::SaveRequest&) override { return path; }
    std::optional<std::string> askOpen(const controls::OpenRequest&) override { return path; }
    void show(const std::function<bool(output::Printer&)>&) override {}
};

Texts textsOf(const controls::Grid& grid, std::size_t firstRow = 1)
{
    Texts rows;
    for (std::size_t row = firstRow; row < grid.rows(); ++row)
        for (std::size_t col = 0; col < grid.cols(); ++col)
            (col == 0 ? rows.emplace_back() : rows.back()).emplace_back(grid.textMatrix(row, col));
    return rows;
}

/// What a main window shows of its last calculation: boxes, live quantities, results.
Texts shownBy(const classic::Frm_Main& main)
{
    const Cells boxes = boxTexts(main.calculation.readings);
    return {
        {boxes.begin(), boxes.end()}, tests::liveCaptions(main.calculation), tests::selectedResults(main)};
}

/// The sheet run one by one: row after row is written into the boxes of a main window and
/// calculated there.
struct PlainSheet : tests::MainWindow {
    Texts results;
    std::function<void(std::size_t row)> beforeRow = [](std::size_t) {};

    void run(const std::vector<Cells>& rows)
    {
        for (std::size_t row = 0; row < rows.size(); ++row) {
            beforeRow(row + 1);
            if (!calculate(rows[row]))
                continue;
            results.resize(rows.size());
            const std::vector<std::string> texts = tests::selectedResults(main);
            results[row].resize(std::max(results[row].size(), texts.size()));
            std::copy(texts.begin(), texts.end(), results[row].begin());
        }
    }
};

struct Sheet {
    User user;
    MessageGate gate{user};
    tests::NoWindows windows;
    classic::Frm_Main main{tests::projectLimits(), gate, windows};
    output::Frm_Comfortics table{user, user, user, user};
    Frm_Raw_Data form;

    explicit Sheet(unsigned threads = 2) : form(main, tests::projectLimits(), {gate, user, user}, threads)
    {
        form.open(table);
    }
    void paste(const std::string& text)
    {
        user.held = text;
        form.Flex_Data.press({Key::V, 2});
    }
    void paste(const std::vector<Cells>& rows)
    {
        std::string text = rows.empty() ? "a line without end" : "";
        for (const Cells& row : rows)
            for (std::size_t col = 0; col < row.size(); ++col)
                text += row[col] + (col + 1 < row.size() ? "\t" : "\r\n");
        paste(text);
    }
    void calculate() { form.cmd_Calculate.setValue(true); }
    void select(const std::vector<int>& indices)
    {
        main.List_Indices.selectAll(false);
        for (const int index : indices)
            main.List_Indices.setSelected(static_cast<std::size_t>(index - 1), true);
    }
    bool done(std::size_t row) const { return form.rowState(row) != RowState::NotRun; }
};

/// The sheet shows what the rows gave one by one, and has left the main window like them.
void expectAsOneByOne(const Sheet& sheet, PlainSheet& plain)
{
    const Texts found = textsOf(sheet.form.Flex_Results);
    plain.results.resize(found.size());
    for (std::size_t row = 0; row < found.size(); ++row) {
        plain.results[row].resize(found[row].size());
        ASSERT_EQ(found[row], plain.results[row]) << "row " << row + 1;
    }
    EXPECT_EQ(shownBy(sheet.main), shownBy(plain.main));
    EXPECT_EQ(sheet.user.boxes.size(), plain.solverMessages());
}

const Cells kSound{"30", "", "600", "", "50", "2"};
const Cells kFailing{"20", "", "600", "9.3", "", "2"};
const Cells kWindless{"30", "", "600", "", "50", ""};
const Cells kSigned{"-", "", "600", "", "50", "2"}; // complete, but no number

TEST(FrmRawData, OpeningWritesHeadersAndPutsASortedResultsTableBackInOrder)
{
    Sheet sheet;
    controls::Grid& flex = sheet.table.Flex;
    flex.setSort(controls::Sort::StringDescending);
    sheet.select({35, 24, 200});
    sheet.form.open(sheet.table);
    EXPECT_TRUE(sheet.form.visible() && !sheet.form.Fra_Results.visible());
    EXPECT_EQ(std::string(flex.textMatrix(159, 0)) + std::string(flex.textMatrix(159, 2)),
              "Solar RadiationW/m²");
    EXPECT_EQ(flex.rowKey(159), 159);
    EXPECT_EQ(sheet.form.lbl_information.caption(),
              "Use Ctr + V to paste your values into the following table.\r\nReport 'Globe Temperature' OR "
              "'Solar Radiation', and 'Dew Point' OR 'Relative Humidity'");
    EXPECT_EQ(textsOf(sheet.form.Flex_Results, 0)[0],
              (std::vector<std::string>{"Bodman's Weather Severity Index (Winter) (Bodman; 1908) - [[-]]",
                                        "Cooling Power (Goldschmidt; 1952) - [mcal/cm²/s]",
                                        "Wet Bulb Globe Temperature (outdoor) (Yaglou; 1956) - [°C]"}));
    sheet.select({});
    sheet.form.open(sheet.table);
    EXPECT_EQ(textsOf(sheet.form.Flex_Results, 0)[0], std::vector<std::string>{""});
}

TEST(FrmRawData, PastesRowsByTheirLineEndsOnCtrlVExactly)
{
    const std::pair<std::string, Texts> rows[] = {
        {"30\t\t600\t\t50\t2", {}}, // without its end
        {"1\r\n2\r\n3", {{"1", "", "", "", "", ""}, {"2", "", "", "", "", ""}}},
        {"1\t2\r3\t4\r", {{"1", "2", "", "", "", ""}, {"3", "4", "", "", "", ""}}},
        {"1\t2\n3\t4\n", {{"1", "2", "", "", "", ""}, {"3", "4", "", "", "", ""}}},
        {"1\r\n1\t2\t3\t4\t5\t6\t7\r\n\r\n",
         {{"1", "", "", "", "", ""}, {"1", "2", "3", "4", "5", "6"}, {"", "", "", "", "", ""}}},
        {"x\t,\t \t-\t\t1e9\r\n", {{"x", ",", " ", "-", "", "1e9"}}}, // no cell is judged
    };
    for (const auto& [text, expected] : rows) {
        Sheet sheet;
        sheet.paste("old\told\r\nold\r\nold\r\nold\r\n");
        for (const auto& [key, shift] :
             {std::pair{Key::V, 0}, {Key::V, 1}, {Key::V, 3}, {Key::V, 6}, {Key::C, 2}}) {
            sheet.user.held = text;
            sheet.form.Flex_Data.press({key, shift});
            EXPECT_EQ(sheet.form.Flex_Data.rows(), 5U) << shift;
        }
        sheet.paste(""); // an empty clipboard wipes nothing
        EXPECT_EQ(sheet.form.Flex_Data.rows(), 5U);
        sheet.paste(text);
        EXPECT_EQ(textsOf(sheet.form.Flex_Data), expected) << text;
    }
}

TEST(FrmRawData, RunsAsOneByOneAndLeavesTheMainWindowAsTheLastRowsLeaveIt)
{
    // Each block of rows starts from a dew point that stands only because it stood there before.
    std::vector<Cells> wrongGuesses(600, {"15", "", "600", "20", "", "2"});
    wrongGuesses[0][0] = "25";
    const std::vector<std::pair<std::string, std::vector<Cells>>> cases = {
        {"every guess is wrong", wrongGuesses},
        {"random, seed 21", randomRows(900, 21)},
        {"random, seed 22", randomRows(900, 22)},
        {"skipped at the end", {kSound, kWindless, kWindless}},
        {"rejected at the end keeps the live quantities", {kSound, kFailing, kExtreme, kSigned}},
        {"no rows", {}},
    };
    for (std::size_t run = 0; run < 2 * cases.size(); ++run) {
        const auto& [name, rows] = cases[run / 2];
        const auto rules = run % 2 == 0 ? classic::Rules::Classic : classic::Rules::Precise;
        SCOPED_TRACE(name + ", " + std::string(classic::ruleName(rules)));
        PlainSheet plain;
        Sheet sheet(static_cast<unsigned>(1 + run % 4));
        for (classic::Frm_Main* main : {&plain.main, &sheet.main}) {
            main->Opt_Rules.select(static_cast<std::size_t>(rules));
            main->calculation.readings.write({"9", "25", "", "8.5", "", "2"});
        }
        plain.run(rows);
        sheet.paste(rows);
        sheet.calculate();
        expectAsOneByOne(sheet, plain);
    }
}

TEST(FrmRawData, TheProgressStaysAtTheEndUntilOtherRowsComeAndTheStatusTellsEachRun)
{
    Sheet sheet;
    std::string told;
    std::string status;
    Frm_Raw_Data& form = sheet.form;
    form.lbl_progress_rows.change.watch(
        [&] { told += form.lbl_progress_value.caption() + " " + form.lbl_progress_rows.caption() + "; "; });
    form.lbl_status.change.watch([&] { status += form.lbl_status.caption() + "\n"; });
    sheet.paste(std::vector<Cells>(50, kWindless));
    sheet.calculate();
    EXPECT_TRUE(told.starts_with("2% 1 out of 50; ")) << told;
    EXPECT_TRUE(told.ends_with("100% 50 out of 50; "));
    // 29 / 50 * 100 is a little below 58 in doubles.
    EXPECT_NE(told.find("57% 29 out of 50; "), std::string::npos);
    told.clear();
    status.clear();
    sheet.calculate();
    EXPECT_EQ(told, "");
    EXPECT_TRUE(status.starts_with("Calculating 50 rows.\nRow 1 of 50 is done (2%).\n")) << status;
    EXPECT_TRUE(status.ends_with("\nRows: 0 calculated, 50 skipped, 0 failed.\n")) << status;

    sheet.paste({kWindless, kWindless});
    EXPECT_EQ(told, "0% ; ");
    EXPECT_EQ(form.progressShare(), 0);
    EXPECT_EQ(form.lbl_outcome.caption() + form.lbl_status.caption(), "");
    sheet.calculate();
    EXPECT_EQ(told, "0% ; 50% 1 out of 2; 100% 2 out of 2; ");
}

TEST(FrmRawData, OtherRowsLeaveNoFigureOfTheOnesBefore)
{
    const tests::TemporaryFolder folder;
    const std::string windless = "Ta;SR;RH;WS\n30,5;600;50;\n31;600;50;\n";
    const std::function<void(Sheet&)> ways[] = {
        [](Sheet& sheet) {
            sheet.paste({kWindless, kWindless});
        },
        [&](Sheet& sheet) { sheet.form.openFile(folder.write("t.csv", windless)); },
    };
    for (const auto& renew : ways) {
        Sheet sheet;
        sheet.select({134});
        sheet.form.open(sheet.table);
        sheet.paste(std::vector<Cells>(8, kSound));
        sheet.calculate();
        EXPECT_EQ(textsOf(sheet.form.Flex_Results), Texts(8, {"50.0"}));
        renew(sheet);
        EXPECT_EQ(textsOf(sheet.form.Flex_Results), Texts(2, {""}));
        EXPECT_EQ(sheet.form.rowState(1), RowState::NotRun);
        sheet.calculate();
        EXPECT_EQ(textsOf(sheet.form.Flex_Results), Texts(2, {""}));
        EXPECT_EQ(sheet.form.Flex_Results.note(2, 0), "Row 2 was skipped: the wind speed is missing.");
        EXPECT_EQ(sheet.main.told(),
                  "The sheet has run. Rows: 0 calculated, 2 skipped, 0 failed. Its row 2 is "
                  "left in the readings.");
        EXPECT_TRUE(sheet.main.liveIsEarlier() && sheet.main.resultsAreEarlier());
    }
}

// Relative humidity, solar radiation and dew point are columns that a shift cannot hide.
TEST(FrmRawData, RemembersByWhichTermsAndIndicesItHasCalculated)
{
    const tests::TemporaryFolder folder;
    Sheet sheet;
    sheet.user.path = folder.file("t");
    const auto exported = [&] {
        sheet.form.Menu_Export.click.raise();
        return tests::readFile(folder.file("t.csv"));
    };
    const auto says = [&](const char* part) {
        return sheet.form.lbl_terms.caption().find(part) != std::string::npos;
    };
    sheet.select({52, 134, 159});
    sheet.form.open(sheet.table);
    sheet.paste({kSound, kSound});
    sheet.calculate();
    EXPECT_EQ(sheet.form.lbl_terms.caption(), "By classic rules, limits kept.");
    EXPECT_EQ(exported(), "Dew Point (Bruce; 1916) - [\xB0"
                          "C],Relative Humidity - [%],Solar Radiation - [W/m\xB2]\r\n"
                          "18.4,50.0,600.0\r\n18.4,50.0,600.0\r\n");

    sheet.select({134, 159});
    sheet.form.tellTerms();
    EXPECT_TRUE(sheet.form.resultsAreEarlier() && says("have changed since the run"));
    EXPECT_FALSE(says("headers"));
    sheet.main.Opt_Rules.select(1);
    sheet.main.Opt_Limits.select(1);
    sheet.calculate();
    EXPECT_TRUE(says("By robust rules, limits ignored.") && says("headers tell"));
    EXPECT_FALSE(sheet.form.resultsAreEarlier());
    // The third column is none of this run's.
    EXPECT_EQ(sheet.form.Flex_Results.textMatrix(0, 0), "Dew Point (Bruce; 1916) - [°C]");
    EXPECT_EQ(exported(),
              "Relative Humidity - [%],Solar Radiation - [W/m\xB2],Solar Radiation - [W/m\xB2] (of "
              "an earlier run)\r\n50.0,600.0,600.0\r\n50.0,600.0,600.0\r\n");

    sheet.select({134, 159});
    sheet.form.keepAlive([&] {
        if (sheet.done(1))
            sheet.select({159});
    });
    sheet.paste({kSound, kSound, kSound});
    sheet.calculate();
    EXPECT_TRUE(says("this holds from row 2 on"));
    EXPECT_EQ(exported(), "Relative Humidity - [%] (row 1) / Solar Radiation - [W/m\xB2] (rows 2 to 3),Solar "
                          "Radiation - [W/m\xB2] (row 1) /  (rows 2 to 3),\r\n"
                          "50.0,600.0,\r\n600.0,,\r\n600.0,,\r\n");
    sheet.form.open(sheet.table);
    sheet.form.keepAlive({});
    sheet.calculate();
    EXPECT_FALSE(says("headers"));
}

TEST(FrmRawData, AClosedSheetHoldsNoRows)
{
    Sheet sheet;
    sheet.paste(std::vector<Cells>(5000, kWindless));
    sheet.calculate();
    const std::size_t open = sheet.form.Flex_Data.heldBytes();
    sheet.form.Form_Unload();
    EXPECT_LT(sheet.form.Flex_Data.heldBytes(), open / 10);
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 1U);
}

TEST(FrmRawData, AChangeDuringTheRunCountsFromTheNextRow)
{
    std::vector<Cells> rows = randomRows(500, 41);
    // The dew point is rounded to the text that the row at the change finds again: it stays.
    rows[5] = {"30", "", "600", "20.04", "", "2"};
    rows[6] = {"9", "", "600", "20", "", "2"};
    const auto change = [](classic::Frm_Main& main, std::size_t row) {
        if (row == 7 || row == 300)
            main.List_Indices.setSelected(0, row == 300);
        if (row == 120)
            main.Opt_Limits.select(1);
        if (row == 151)
            main.txt_Friction.setText("0.3");
    };
    PlainSheet plain;
    plain.beforeRow = [&](std::size_t row) { change(plain.main, row); };
    plain.run(rows);

    Sheet sheet;
    sheet.paste(rows);
    std::size_t done = 0;
    sheet.form.lbl_progress_rows.change.watch([&] { ++done; });
    // Events also pass while a row is waited for; the change comes with the first look before its row.
    std::size_t changed = 0;
    sheet.form.keepAlive([&] {
        if (changed <= done)
            change(sheet.main, changed = done + 1);
    });
    sheet.calculate();
    EXPECT_EQ(done, rows.size());
    expectAsOneByOne(sheet, plain);
}

TEST(FrmRawData, StopsAndKeepsWhatIsDone)
{
    const std::vector<Cells> rows = randomRows(900, 51);
    PlainSheet plain;
    plain.run(rows);
    plain.results.clear();
    plain.run({rows.begin(), rows.begin() + 400});

    Sheet sheet;
    sheet.paste(rows);
    sheet.calculate(); // leaves figures in all rows
    std::size_t looks = 0;
    sheet.form.keepAlive([&] {
        EXPECT_TRUE(sheet.form.cmd_Stop.enabled() && !sheet.form.cmd_Open.enabled());
        if (sheet.done(400) && ++looks == 1)
            sheet.form.cmd_Stop.setValue(true);
    });
    sheet.calculate();
    expectAsOneByOne(sheet, plain);
    EXPECT_EQ(sheet.form.Flex_Results.note(401, 0), "The run was stopped before row 401.");
    EXPECT_EQ(sheet.form.lbl_outcome.caption().find("Stopped after row 400 of 900: "), 0U);
}

TEST(FrmRawData, ARunTakesNoRowsStartsOverWithAnotherPressAndEndsWithItsWindow)
{
    const tests::TemporaryFolder folder;
    const std::string file = folder.write("t.csv", "Ta\n1\n");
    Sheet sheet;
    sheet.paste(randomRows(300, 61));
    bool pressed = false;
    std::size_t starts = 0;
    sheet.form.keepAlive([&] {
        starts += sheet.done(1) ? 0U : 1U;
        sheet.paste("1\r\n");
        sheet.form.openFile(file);
        if (sheet.done(100) && !std::exchange(pressed, true))
            sheet.calculate();
    });
    sheet.calculate();
    EXPECT_GE(starts, 2U);
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 301U);
    EXPECT_TRUE(sheet.done(300));
    EXPECT_EQ(sheet.form.lbl_outcome.caption().find("Rows: "), 0U);

    sheet.form.keepAlive([&] { sheet.form.Form_Unload(); });
    sheet.calculate();
    EXPECT_FALSE(sheet.done(300));
}

TEST(FrmRawData, SaysWhatBecameOfItsRows)
{
    using enum RowState;
    Sheet sheet;
    sheet.paste({kSound, kFailing, kWindless, kSigned});
    sheet.calculate();
    EXPECT_EQ(sheet.form.lbl_outcome.caption(), "Rows: 1 calculated, 2 skipped, 1 failed.");
    const RowState states[] = {NotRun, Calculated, Failed, Skipped, Rejected, NotRun};
    for (std::size_t row = 0; row < std::size(states); ++row)
        EXPECT_EQ(sheet.form.rowState(row), states[row]) << row;
    const controls::Grid& results = sheet.form.Flex_Results;
    const std::string failed =
        "Row 2 failed: The calculation stopped in the Universal Thermal Climate Index: the dew "
        "point 9.3 reads above the air temperature 20 (the two are compared as texts)";
    const std::string skipped = "Row 3 was skipped: the wind speed is missing.";
    EXPECT_EQ(results.note(0, 0) + results.note(1, 158), ""); // has a value
    // Humidex is 36 there.
    const std::string meaning = "some discomfort (+1): from 30 to below 40 °C.";
    EXPECT_EQ(results.note(1, 89).substr(0, meaning.size()), meaning);
    EXPECT_EQ(sheet.form.meanings(1).at(89)->severity, 1);
    EXPECT_FALSE(sheet.form.meanings(1).at(158));
    EXPECT_TRUE(sheet.form.meanings(2).empty() && sheet.form.meanings(3).empty());
    EXPECT_EQ(results.note(1, 23), "Outside its limits: Ta is 30 °C, valid from -60 to 10 °C.");
    EXPECT_EQ(results.note(2, 5).substr(0, failed.size()), failed);
    EXPECT_EQ(results.note(3, 5), skipped);
    EXPECT_EQ(sheet.form.Flex_Data.note(3, 5), skipped);
    EXPECT_TRUE(sheet.user.boxes.empty()); // no message box for a failed row

    // The window's rules count.
    sheet.paste({kWindless, {"30", "", "600", "", "0", "2"}, kFailing}); // no humidity has no dew point
    EXPECT_EQ(sheet.form.Flex_Data.note(3, 5), "");
    sheet.main.Opt_Rules.select(1);
    sheet.select({52, 134});
    sheet.calculate();
    EXPECT_EQ(sheet.form.lbl_outcome.caption(),
              "Rows: 2 calculated, 1 skipped, 0 failed. Values blank for a failure: 1.");
}

// The dew point is no text that changes in the second run's first row, so it is not held against the
// air temperature again and empties nothing.
TEST(FrmRawData, ARowThatIsSkippedInASecondRunKeepsTheFiguresOfTheFirst)
{
    Sheet sheet;
    sheet.select({134});
    sheet.main.Opt_Rules.select(1);
    sheet.main.calculation.readings.write({"30", "", "", "20", "", ""});
    const Cells leaning{"15", "", "600", "20", "", "2"};
    sheet.paste({leaning, {"9", "", "600", "", "50", "2"}});
    sheet.calculate();
    ASSERT_EQ(sheet.form.rowState(1), RowState::Calculated);
    const std::string kept(sheet.form.Flex_Results.textMatrix(1, 0));
    sheet.calculate();
    ASSERT_EQ(sheet.form.rowState(1), RowState::Skipped);
    EXPECT_EQ(sheet.form.Flex_Results.textMatrix(1, 0), kept);
    EXPECT_EQ(sheet.form.Flex_Results.note(1, 0),
              "Row 1 was skipped: dew point or relative humidity is missing. "
              "Its figures are those of an earlier run.");
}

TEST(FrmRawData, ShowsASolversMessageOncePerFailingCall)
{
    Sheet sheet;
    sheet.paste({kExtreme, kSound, kExtreme, kExtreme});
    // Two for each such row, from an independent calculation; a tick hides the rest of its run only.
    sheet.user.tickAt = 3;
    sheet.calculate();
    EXPECT_EQ(sheet.user.boxes.size(), 3U);
    sheet.calculate();
    ASSERT_EQ(sheet.user.boxes.size(), 9U);
    EXPECT_EQ(sheet.user.boxes[8].checkBox, "Do not show this again in this run");
    // The main window's own messages pass again after a run.
    sheet.main.cmd_Calculate.setValue(true);
    ASSERT_EQ(sheet.user.boxes.size(), 11U);
    EXPECT_EQ(sheet.user.boxes[9].checkBox, "");
    EXPECT_EQ(sheet.user.boxes[10].checkBox, "Do not show this again for this calculation");
}

TEST(FrmRawData, ToldProgressGoesWithTheRowsInTheTableWhileAMessageWaits)
{
    Sheet sheet;
    std::vector<Cells> rows(40, kSound);
    rows[29] = kExtreme;
    sheet.paste(rows);
    sheet.form.keepAlive([] {}, std::chrono::hours(1));
    std::string status;
    sheet.user.whileShown = [&] { status = sheet.form.lbl_status.caption(); };
    sheet.calculate();
    EXPECT_EQ(status, "Row 29 of 40 is done (72%).");
}

TEST(FrmRawData, OpensATableFollowsTheSelectionCopiesAndExports)
{
    const tests::TemporaryFolder folder;
    Sheet sheet;
    sheet.select({24, 35, 159});
    sheet.form.open(sheet.table);
    sheet.user.path =
        folder.write("t.csv", "\xEF\xBB\xBFWS,Station,RH,Ta,SR\r\n2,\"a, b\",50,30,600\r\n3,x,,31,\r\n");
    sheet.form.cmd_Open.setValue(true);
    const Texts opened{{"30", "", "600", "", "50", "2"}, {"31", "", "", "", "", "3"}};
    EXPECT_EQ(textsOf(sheet.form.Flex_Data), opened);
    sheet.select({35, 159});
    sheet.calculate(); // the columns shift, the headers stay
    EXPECT_EQ(textsOf(sheet.form.Flex_Results), (Texts{{"3.2", "600.0", ""}, {"", "", ""}}));
    EXPECT_EQ(sheet.form.Flex_Results.textMatrix(0, 1), "Cooling Power (Goldschmidt; 1952) - [mcal/cm²/s]");

    bool menuIsOpen = false;
    sheet.form.popUpMenu_copy.watch([&] { menuIsOpen = true; });
    sheet.form.Flex_Results.select(1, 1, 1, 1);
    sheet.form.Menu_Copy_Selection.click.raise();
    EXPECT_EQ(sheet.user.held, "cleared 600.0");
    sheet.form.Flex_Results.mouseDown(controls::MouseButton::Right, 1, 1);
    EXPECT_TRUE(menuIsOpen);
    sheet.form.Menu_copy_copy.click.raise();
    EXPECT_TRUE(sheet.user.held.ends_with("\tSolar Radiation - [W/m²]\r3.2\t600.0\t\r\t\t"))
        << sheet.user.held;
    sheet.user.path = folder.file("season.csv");
    sheet.form.Menu_Export.click.raise();
    EXPECT_TRUE(tests::readFile(folder.file("season.csv.csv")).ends_with("\r\n3.2,600.0,\r\n,,\r\n"));
    ASSERT_EQ(sheet.user.boxes.size(), 1U);
    EXPECT_EQ(sheet.user.boxes[0].text, "The spreadsheet table has been saved succesfully");

    // More indices than columns: none is lost, the new columns have no header.
    sheet.select({5, 24, 35, 159});
    sheet.calculate();
    EXPECT_EQ(textsOf(sheet.form.Flex_Results)[0], (std::vector<std::string>{"21.2", "", "3.2", "600.0"}));
    EXPECT_EQ(sheet.form.Flex_Results.textMatrix(0, 3), "");
}

TEST(FrmRawData, OpensManyRowsAndAMalformedTableChangesNothing)
{
    const tests::TemporaryFolder folder;
    Sheet sheet;
    std::string many;
    for (int i = 0; i < 3000; ++i)
        many += "30\t\t600\t\t50\t2\n";
    sheet.form.openFile(folder.write("t.tsv", many));
    const Texts before(3000, {"30", "", "600", "", "50", "2"});
    const std::pair<std::string, std::string> rows[] = {
        {folder.write("short.csv", "Ta,RH\n1,2\n3\n"),
         "Line 3: the row has 1 cells where the table has 2 columns."},
        {folder.file("none.csv"), "No such file or directory."},
        {folder.file(""), "It cannot be read."},
    };
    for (const auto& [path, says] : rows) {
        sheet.form.openFile(path);
        EXPECT_EQ(textsOf(sheet.form.Flex_Data), before) << path;
        EXPECT_EQ(sheet.user.boxes.back().text, "The file " + path + " cannot be opened. " + says);
    }
    sheet.form.openFile(folder.write("header.csv", "Ta,RH\n"));
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 1U);
}

} // namespace
} // namespace comfortics::batch
