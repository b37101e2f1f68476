// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/frm_raw_data.h"

#include "batch_desk.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::batch {
namespace {

using controls::Key;
using tests::Cells;
using tests::randomRows;
using Texts = std::vector<std::vector<std::string>>;

/// Keeps what the user is shown and asked, and answers as prepared.
struct User final : controls::Messages, controls::Clipboard, controls::FileDialogs, output::PrintDialog {
    std::vector<controls::MessageBox> boxes;
    std::size_t tickAt = 0; // the message whose check box is ticked; 0: none
    std::string held;       // by the clipboard
    std::string path;
    std::string title;
    controls::Answer show(const controls::MessageBox& box) override
    {
        boxes.push_back(box);
        if (box.checked != nullptr)
            *box.checked = boxes.size() == tickAt;
        return controls::Answer::Ok;
    }
    void clear() override { held = "cleared "; }
    void setText(const std::string& text) override { held = (held == "cleared " ? held : "") + text; }
    std::string text() override { return held; }
    std::optional<std::string> askSave(const controls::SaveRequest& request) override
    {
        title = request.title;
        return path;
    }
    std::optional<std::string> askOpen(const controls::OpenRequest& request) override
    {
        title = request.title;
        return path;
    }
    void show(const std::function<void(output::Printer&)>&) override {}
};

Texts textsOf(const controls::Grid& grid, std::size_t firstRow = 1)
{
    Texts rows;
    for (std::size_t row = firstRow; row < grid.rows(); ++row)
        for (std::size_t col = 0; col < grid.cols(); ++col)
            (col == 0 ? rows.emplace_back() : rows.back()).emplace_back(grid.textMatrix(row, col));
    return rows;
}

/// What a main window shows of its last calculation: boxes, live quantities, results, reasons.
Texts shownBy(const core::Frm_Main& main)
{
    const Cells boxes = boxTexts(main.calculation.readings);
    Texts shown{{boxes.begin(), boxes.end()}, tests::liveCaptions(main.calculation), {}, {}};
    for (int index = 1; index <= static_cast<int>(core::kIndexCount); ++index) {
        shown[2].push_back(main.calculation.results.lbl_results[static_cast<std::size_t>(index)].caption());
        shown[3].push_back(main.calculation.whyBlank(index));
    }
    return shown;
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
    core::Frm_Main main{tests::projectLimits(), gate, windows};
    output::Frm_Comfortics table{user, user, user, user};
    Frm_Raw_Data form;

    explicit Sheet(unsigned threads = 2) : form(main, tests::projectLimits(), {gate, user, user}, threads)
    {
        form.open(table);
    }
    void paste(const std::string& text, Key key = Key::V, int shift = 2)
    {
        user.held = text;
        form.Flex_Data.press({key, shift});
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
const Cells kExtreme{"53", "", "616", "", "78.2", "0.1"};
const Cells kSigned{"-", "", "600", "", "50", "2"}; // complete, but no number

/// Rows from a few cells each, so that most writes change nothing, and signs and points that escape
/// the cleaning stand beside a partner. Where a cell equals what its box holds, the box is not
/// cleaned again, and what a row gives depends on the rows before it.
std::vector<Cells> clingingRows(std::size_t count, std::uint32_t seed)
{
    std::mt19937 random(seed);
    const auto one = [&random](const std::vector<std::string>& choice) {
        return choice[random() % choice.size()];
    };
    std::vector<Cells> rows;
    for (std::size_t i = 0; i < count; ++i)
        rows.push_back(
            {one({"30", "9.5", "9", "7.25", "", "12-"}), one({"", "", "25", "12", "-", "9-", "25.0"}),
             one({"", "600", "600", "600.", "x", "20.5"}), one({"", "", "8.5", "8.5", "20", "-", "7-"}),
             one({"", "50", "50", "50.", "101"}), one({"2", "2", "2", "0.", "0", ""})});
    return rows;
}

/// Every block of rows starts from a dew point that stands above the air temperature, only because
/// it stood there before: the guess of its start is always wrong.
std::vector<Cells> rowsOfWrongGuesses()
{
    std::vector<Cells> rows{{"25", "", "600", "20", "", "2"}};
    for (int i = 1; i < 600; ++i)
        rows.push_back({"15", "", std::to_string(i), "20", "", "2"});
    return rows;
}

TEST(FrmRawData, OpeningWritesHeadersForTheSelection)
{
    Sheet sheet;
    sheet.select({35, 24, 200});
    sheet.form.open(sheet.table);
    EXPECT_TRUE(sheet.form.visible());
    EXPECT_FALSE(sheet.form.Fra_Results.visible());
    EXPECT_EQ(
        textsOf(sheet.form.Flex_Data, 0)[0],
        (std::vector<std::string>{"Air Temperature (°C)", "Globe Temperature (°C)", "Solar Radiation (W/m²)",
                                  "Dew Point (°C)", "Relative Humidity (%)", "Wind Speed (m/s)"}));
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

TEST(FrmRawData, OpeningPutsASortedResultsTableBackInOrder)
{
    Sheet sheet;
    controls::Grid& flex = sheet.table.Flex;
    flex.setCol(0);
    flex.setSort(controls::Sort::StringDescending);
    sheet.form.open(sheet.table);
    EXPECT_EQ(flex.rows(), 223U);
    EXPECT_EQ(flex.textMatrix(159, 0), "Solar Radiation");
    EXPECT_EQ(flex.textMatrix(159, 2), "W/m²");
    EXPECT_EQ(flex.rowKey(159), 159);
}

TEST(FrmRawData, PastesRowsByTheirLineEnds)
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
        sheet.paste(text);
        EXPECT_EQ(textsOf(sheet.form.Flex_Data), expected) << text;
    }
}

TEST(FrmRawData, PastesOnCtrlVExactly)
{
    const std::pair<Key, int> others[] = {{Key::V, 0}, {Key::V, 1}, {Key::V, 3}, {Key::V, 6}, {Key::C, 2}};
    Sheet sheet;
    for (const auto& [key, shift] : others) {
        sheet.paste("1\r\n2\r\n3\r\n", key, shift);
        EXPECT_EQ(sheet.form.Flex_Data.rows(), 2U) << shift;
    }
    sheet.paste("1\r\n2\r\n3\r\n");
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 4U);
    sheet.paste("");
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 4U); // an empty clipboard wipes nothing
}

TEST(FrmRawData, RunsAsOneByOneAndLeavesTheMainWindowAsTheLastRowsLeaveIt)
{
    struct Row {
        std::string name;
        std::vector<Cells> rows;
        unsigned threads = 2;
    };
    const Row cases[] = {
        {"random, seed 21", randomRows(700, 21), 1},
        {"random, seed 22", randomRows(700, 22), 4},
        {"clinging, seed 31", clingingRows(1000, 31), 3},
        {"clinging, seed 32", clingingRows(1000, 32), 3},
        {"every guess is wrong", rowsOfWrongGuesses()},
        {"skipped at the end", {kSound, kWindless, kWindless}},
        {"failed at the end", {kSound, kFailing}},
        {"rejected at the end keeps the live quantities", {kSound, kFailing, kExtreme, kSigned}},
        {"rejected, then skipped", {kSound, kSigned, kWindless}},
        {"nothing calculated", {kWindless, kWindless}},
        {"only rejected", {kSigned}},
        {"no rows", {}},
    };
    for (const auto& [name, rows, threads] : cases) {
        SCOPED_TRACE(name);
        PlainSheet plain;
        Sheet sheet(threads);
        for (core::Frm_Main* main : {&plain.main, &sheet.main})
            main->calculation.readings.write({"9", "25", "", "8.5", "", "2"});
        plain.run(rows);
        sheet.paste(rows);
        sheet.calculate();
        expectAsOneByOne(sheet, plain);
    }
}

TEST(FrmRawData, TellsItsProgress)
{
    Sheet sheet;
    EXPECT_EQ(sheet.form.lbl_progress_value.caption(), "0%");
    sheet.paste(std::vector<Cells>(50, kWindless));
    std::vector<std::string> told;
    sheet.form.lbl_progress_rows.change.watch([&] {
        told.push_back(sheet.form.lbl_progress_value.caption() + " " +
                       sheet.form.lbl_progress_rows.caption());
    });
    double widest = 0;
    sheet.form.lbl_progress.appearance.watch([&] { widest = sheet.form.progressShare(); });
    sheet.calculate();
    ASSERT_EQ(told.size(), 50U);
    EXPECT_EQ(told[0], "2% 1 out of 50");
    EXPECT_EQ(told[28], "57% 29 out of 50"); // 29 / 50 * 100 is a little below 58 in doubles
    EXPECT_EQ(told[49], "100% 50 out of 50");
    EXPECT_EQ(widest, 1);

    // Once at 100 % it stays, also in later runs.
    sheet.paste(std::vector<Cells>(3, kWindless));
    sheet.calculate();
    EXPECT_EQ(told.size(), 50U);
    EXPECT_EQ(sheet.form.lbl_progress_rows.caption(), "50 out of 50");
}

TEST(FrmRawData, AChangedSelectionShiftsTheColumns)
{
    Sheet sheet;
    sheet.select({24, 35, 159});
    sheet.form.open(sheet.table);
    const std::vector<std::string> headers = textsOf(sheet.form.Flex_Results, 0)[0];
    sheet.paste(std::vector<Cells>{kSound});
    sheet.select({35, 159});
    sheet.calculate();
    EXPECT_EQ(textsOf(sheet.form.Flex_Results, 0), (Texts{headers, {"3.2", "600.0", ""}}));

    // More indices than columns: none is lost, the new columns have no header.
    sheet.select({5, 24, 35, 159});
    sheet.calculate();
    EXPECT_EQ(textsOf(sheet.form.Flex_Results), (Texts{{"21.2", "", "3.2", "600.0"}}));
    EXPECT_EQ(sheet.form.Flex_Results.textMatrix(0, 3), "");
}

TEST(FrmRawData, AChangeDuringTheRunCountsFromTheNextRow)
{
    std::vector<Cells> rows = clingingRows(500, 41);
    // The dew point is rounded to the text that the row at the change finds again: it stays.
    rows[5] = {"30", "", "600", "20.04", "", "2"};
    rows[6] = {"9", "", "600", "20", "", "2"};
    const auto change = [](core::Frm_Main& main, std::size_t row) {
        if (row == 7)
            main.List_Indices.setSelected(0, false);
        if (row == 120)
            main.Opt_Limits.select(1);
        if (row == 151)
            main.txt_Friction.setText("0.3");
        if (row == 300)
            main.List_Indices.selectAll(true);
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
    EXPECT_FALSE(sheet.form.cmd_Stop.enabled());
    sheet.form.cmd_Back.setValue(true);
    EXPECT_FALSE(sheet.form.Fra_Results.visible());
    std::size_t looks = 0;
    sheet.form.keepAlive([&] {
        EXPECT_TRUE(sheet.form.cmd_Stop.enabled());
        EXPECT_FALSE(sheet.form.cmd_Open.enabled());
        if (sheet.done(400) && ++looks == 1)
            sheet.form.cmd_Stop.setValue(true);
    });
    sheet.calculate();
    EXPECT_TRUE(sheet.form.Fra_Results.visible());
    EXPECT_EQ(sheet.form.Flex_Results.rows(), 901U);
    expectAsOneByOne(sheet, plain);
    EXPECT_EQ(sheet.form.Flex_Results.note(401, 0), "The run was stopped before row 401.");
    EXPECT_EQ(sheet.form.lbl_outcome.caption().find("Stopped after row 400 of 900: "), 0U);
}

TEST(FrmRawData, AnotherPressStartsOver)
{
    Sheet sheet;
    sheet.paste(randomRows(300, 61));
    bool pressed = false;
    std::size_t starts = 0;
    sheet.form.keepAlive([&] {
        starts += sheet.done(1) ? 0U : 1U;
        if (sheet.done(100) && !std::exchange(pressed, true))
            sheet.calculate();
    });
    sheet.calculate();
    EXPECT_GE(starts, 2U);
    EXPECT_TRUE(sheet.done(300));
    EXPECT_EQ(sheet.form.lbl_outcome.caption().find("Rows: "), 0U);
}

TEST(FrmRawData, EndsWhenItIsUnloaded)
{
    Sheet sheet;
    sheet.paste(std::vector<Cells>(2000, kSound));
    sheet.form.keepAlive([&] { sheet.form.Form_Unload(); });
    sheet.calculate();
    EXPECT_FALSE(sheet.done(2000));
    EXPECT_FALSE(sheet.form.running());
}

TEST(FrmRawData, TakesNoRowsDuringARun)
{
    Sheet sheet;
    sheet.paste(std::vector<Cells>(300, kSound));
    const tests::TemporaryFolder folder;
    const std::string file = folder.write("t.csv", "Ta\n1\n");
    sheet.form.keepAlive([&] {
        sheet.paste("1\r\n");
        sheet.form.openFile(file);
    });
    sheet.calculate();
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 301U);
    EXPECT_EQ(sheet.form.rowState(300), RowState::Calculated);
}

TEST(FrmRawData, SaysWhatBecameOfItsRows)
{
    using enum RowState;
    Sheet sheet;
    sheet.paste({kSound, kFailing, kWindless, kSigned});
    sheet.calculate();
    EXPECT_EQ(sheet.form.lbl_outcome.caption(), "Rows: 1 calculated, 2 skipped, 1 failed.");
    const RowState states[] = {NotRun, Calculated, Failed, Skipped, Rejected, NotRun};
    for (std::size_t row = 0; row < std::size(states); ++row) {
        EXPECT_EQ(sheet.form.rowState(row), states[row]) << row;
        EXPECT_EQ(sheet.form.dataRowState(row), states[row]) << row;
    }
    const controls::Grid& results = sheet.form.Flex_Results;
    const std::string failed =
        "Row 2 failed: The calculation stopped in the Universal Thermal Climate Index: the dew "
        "point 9.3 reads above the air temperature 20 (the two are compared as texts)";
    const std::string skipped = "Row 3 was skipped: the wind speed is missing.";
    EXPECT_EQ(results.note(0, 0), "");
    EXPECT_EQ(results.note(1, 158), ""); // has a value
    EXPECT_EQ(results.note(1, 23), "Outside its limits: Ta is 30 °C, valid from -60 to 10 °C.");
    EXPECT_EQ(results.note(2, 5).substr(0, failed.size()), failed);
    EXPECT_EQ(results.note(3, 5), skipped);
    EXPECT_EQ(results.note(4, 5), "Row 4 was skipped: the air temperature is no number.");
    EXPECT_EQ(sheet.form.Flex_Data.note(3, 5), skipped);
    EXPECT_EQ(sheet.form.Flex_Data.note(1, 0), "");
    EXPECT_TRUE(sheet.user.boxes.empty()); // no message box for a failed row

    // New rows have not been calculated; the results are still those of the old ones.
    sheet.paste({kWindless, kSound, kSound});
    EXPECT_EQ(sheet.form.Flex_Data.note(3, 5), "");
    EXPECT_EQ(sheet.form.dataRowState(2), NotRun);
    EXPECT_EQ(results.note(3, 5), skipped);

    // A skipped row keeps what an earlier run has left, and says so.
    sheet.calculate();
    EXPECT_EQ(results.textMatrix(1, 158), "600.0");
    EXPECT_EQ(results.note(1, 158),
              "Row 1 was skipped: the wind speed is missing. Its figures are those of an earlier run.");
}

TEST(FrmRawData, FollowsTheWindowsRules)
{
    Sheet sheet;
    sheet.main.Opt_Rules.select(1);
    sheet.select({52, 134});
    sheet.paste({{"30", "", "600", "", "0", "2"}, kFailing}); // no humidity has no dew point
    sheet.calculate();
    EXPECT_EQ(sheet.form.lbl_outcome.caption(),
              "Rows: 2 calculated, 0 skipped, 0 failed. Values blank for a failure: 1.");
}

TEST(FrmRawData, ShowsASolversMessageOncePerFailingCall)
{
    Sheet sheet;
    sheet.paste({kExtreme, kSound, kExtreme, kExtreme});
    // Two for each such row, from an independent calculation; a tick hides the rest of its run only.
    for (const auto& [tickAt, shown] : {std::pair{0U, 6U}, {3U, 3U}, {0U, 6U}}) {
        sheet.user.boxes.clear();
        sheet.user.tickAt = tickAt;
        sheet.calculate();
        EXPECT_EQ(sheet.user.boxes.size(), shown);
        EXPECT_EQ(sheet.user.boxes.at(0).text, "No convergence: values too extreme");
        EXPECT_EQ(sheet.user.boxes.at(0).checkBox, "Do not show this again in this run");
    }
    // The main window's own messages pass again after a run.
    sheet.main.cmd_Calculate.setValue(true);
    ASSERT_EQ(sheet.user.boxes.size(), 8U);
    EXPECT_EQ(sheet.user.boxes[7].checkBox, "");
}

TEST(FrmRawData, CopiesAndExportsItsResults)
{
    Sheet sheet;
    sheet.select({35, 159});
    sheet.form.open(sheet.table);
    sheet.paste({kSound, kWindless});
    sheet.calculate();

    bool opened = false;
    sheet.form.popUpMenu_copy.watch([&] { opened = true; });
    sheet.form.Flex_Results.mouseDown(controls::MouseButton::Left, 1, 1);
    EXPECT_FALSE(opened);
    sheet.form.Menu_Copy_Selection.click.raise();
    EXPECT_EQ(sheet.user.held, "cleared 600.0");
    sheet.form.Flex_Results.mouseDown(controls::MouseButton::Right, 1, 1);
    EXPECT_TRUE(opened);
    sheet.user.held.clear();
    sheet.form.Menu_copy_copy.click.raise();
    EXPECT_EQ(sheet.user.held, "Cooling Power (Goldschmidt; 1952) - [mcal/cm²/s]\t"
                               "Solar Radiation - [W/m²]\r3.2\t600.0\r\t");

    const tests::TemporaryFolder folder;
    sheet.user.path = folder.file("season.csv");
    sheet.form.Menu_Export.click.raise();
    EXPECT_EQ(sheet.user.title, "Export Spreadsheet Table");
    EXPECT_NE(tests::readFile(folder.file("season.csv.csv")).find("\r\n3.2,600.0\r\n,\r\n"),
              std::string::npos);
    ASSERT_EQ(sheet.user.boxes.size(), 1U);
    EXPECT_EQ(sheet.user.boxes[0].text, "The spreadsheet table has been saved succesfully");
}

TEST(FrmRawData, OpensATable)
{
    const tests::TemporaryFolder folder;
    Sheet sheet;
    sheet.user.path =
        folder.write("t.csv", "\xEF\xBB\xBFWS,Station,RH,Ta,SR\r\n2,\"a, b\",50,30,600\r\n3,x,,31,\r\n");
    sheet.form.cmd_Open.setValue(true);
    EXPECT_EQ(sheet.user.title, "Open Table");
    const Texts expected{{"30", "", "600", "", "50", "2"}, {"31", "", "", "", "", "3"}};
    EXPECT_EQ(textsOf(sheet.form.Flex_Data), expected);

    std::string many;
    for (int i = 0; i < 5000; ++i)
        many += "30\t\t600\t\t50\t2\n";
    sheet.form.openFile(folder.write("t.tsv", many));
    EXPECT_EQ(textsOf(sheet.form.Flex_Data), Texts(5000, expected[0]));
    sheet.form.openFile(folder.write("header.csv", "Ta,RH\n"));
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 1U);
    EXPECT_TRUE(sheet.user.boxes.empty());
}

TEST(FrmRawData, AMalformedTableIsToldAndChangesNothing)
{
    const tests::TemporaryFolder folder;
    const std::pair<std::string, std::string> rows[] = {
        {folder.write("short.csv", "Ta,RH\n1,2\n3\n"),
         "Line 3: the row has 1 cells where the table has 2 columns."},
        {folder.write("empty.csv", ""), "The table is empty."},
        {folder.file("none.csv"), "No such file or directory."},
        {folder.file(""), "It cannot be read."},
    };
    Sheet sheet;
    sheet.paste({kSound, kWindless});
    const Texts before = textsOf(sheet.form.Flex_Data);
    for (const auto& [path, says] : rows) {
        sheet.form.openFile(path);
        EXPECT_EQ(textsOf(sheet.form.Flex_Data), before) << path;
        EXPECT_EQ(sheet.user.boxes.back().text, "The file " + path + " cannot be opened. " + says);
    }
}

TEST(FrmRawData, ScrollsTheGridThatShows)
{
    Sheet sheet;
    sheet.paste(std::vector<Cells>(200, kWindless));
    controls::Grid& data = sheet.form.Flex_Data;
    sheet.form.MouseWheel(0, -120, data.left() - 1, data.top() + 10);
    EXPECT_EQ(data.topRow(), 1U);
    sheet.form.MouseWheel(0, -120, data.left() + 10, data.top() + 10);
    EXPECT_GT(data.topRow(), 1U);
    EXPECT_EQ(data.colWidth(5), data.width() / 6);
}

} // namespace
} // namespace comfortics::batch
