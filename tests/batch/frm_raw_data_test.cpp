// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/frm_raw_data.h"

#include "batch_desk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <unistd.h>

namespace comfortics::batch {
namespace {

using controls::Key;
using tests::boxTexts;
using tests::Cells;
using tests::randomRows;
using tests::RecordedMessages;

constexpr const char* kNoConvergence = "No convergence: values too extreme";

const core::Limits kLimits = tests::projectLimits();

struct PreparedClipboard final : controls::Clipboard {
    std::string held;
    std::vector<std::string> calls;
    void clear() override { calls.emplace_back("clear"); }
    void setText(const std::string& text) override
    {
        calls.emplace_back("set");
        held = text;
    }
    std::string text() override { return held; }
};

struct PreparedFiles final : controls::FileDialogs {
    std::optional<std::string> answer;
    controls::SaveRequest save;
    controls::OpenRequest open;
    std::optional<std::string> askSave(const controls::SaveRequest& request) override
    {
        save = request;
        return answer;
    }
    std::optional<std::string> askOpen(const controls::OpenRequest& request) override
    {
        open = request;
        return answer;
    }
};

struct NoPrinting final : output::PrintDialog {
    void show(const std::function<void(output::Printer&)>&) override {}
};

/// Ticks the check box of the n-th message.
struct TickingMessages final : controls::Messages {
    std::vector<controls::MessageBox> boxes;
    std::size_t tickAt = 0; // 0: never
    controls::Answer show(const controls::MessageBox& box) override
    {
        boxes.push_back(box);
        if (box.checked != nullptr)
            *box.checked = boxes.size() == tickAt;
        return controls::Answer::Ok;
    }
};

class Folder {
public:
    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "comfortics-batch-XXXXXX").string();
        EXPECT_NE(::mkdtemp(name.data()), nullptr);
        m_path = name;
    }
    ~Folder() { std::filesystem::remove_all(m_path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string file(const std::string& name) const { return (m_path / name).string(); }
    std::string write(const std::string& name, const std::string& text) const
    {
        std::ofstream(m_path / name, std::ios::binary) << text;
        return file(name);
    }

private:
    std::filesystem::path m_path;
};

using Texts = std::vector<std::vector<std::string>>;

Texts textsOf(const controls::Grid& grid)
{
    Texts rows(grid.rows());
    for (std::size_t row = 0; row < grid.rows(); ++row)
        for (std::size_t col = 0; col < grid.cols(); ++col)
            rows[row].emplace_back(grid.textMatrix(row, col));
    return rows;
}

/// What a main window shows of its last calculation.
struct Shown {
    Cells boxes;
    std::vector<std::string> results;
    std::vector<std::string> live;
    std::vector<std::string> whyBlank;
    bool operator==(const Shown&) const = default;

    static Shown of(const core::Frm_Main& main)
    {
        Shown shown{boxTexts(main.calculation.readings), {}, tests::liveCaptions(main.calculation), {}};
        for (int index = 1; index <= static_cast<int>(core::kIndexCount); ++index) {
            shown.results.push_back(
                main.calculation.results.lbl_results[static_cast<std::size_t>(index)].caption());
            shown.whyBlank.push_back(main.calculation.whyBlank(index));
        }
        return shown;
    }
};

/// The sheet run one by one: row after row is written into the boxes of a main window and
/// calculated there.
struct PlainSheet {
    RecordedMessages messages;
    tests::NoWindows windows;
    core::Frm_Main main{kLimits, messages, windows};
    std::vector<Cells> rows;
    Texts results; // without the header
    std::function<void(std::size_t row)> beforeRow = [](std::size_t) {};

    void run()
    {
        for (std::size_t row = 1; row <= rows.size(); ++row) {
            beforeRow(row);
            tests::writeCells(main, rows[row - 1]);
            if (!tests::isComplete(main))
                continue;
            main.cmd_Calculate.setValue(true);
            results.resize(rows.size());
            std::vector<std::string>& target = results[row - 1];
            const std::vector<std::string> texts = tests::selectedResults(main);
            target.resize(std::max(target.size(), texts.size()));
            std::copy(texts.begin(), texts.end(), target.begin());
        }
    }
    std::vector<std::string> solverMessages() const
    {
        std::vector<std::string> texts;
        for (const controls::MessageBox& box : messages.boxes)
            if (box.text == kNoConvergence)
                texts.push_back(box.text);
        return texts;
    }
};

struct Sheet {
    explicit Sheet(unsigned threads = 2) : form(main, kLimits, {gate, clipboard, files}, threads)
    {
        form.open(table);
    }

    TickingMessages messages;
    MessageGate gate{messages};
    tests::NoWindows windows;
    core::Frm_Main main{kLimits, gate, windows};
    PreparedClipboard clipboard;
    PreparedFiles files;
    NoPrinting printing;
    output::Frm_Comfortics table{clipboard, messages, files, printing};
    Frm_Raw_Data form;

    void paste(const std::string& text, Key key = Key::V, int shift = 2)
    {
        clipboard.held = text;
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
    void select(const std::set<int>& indices)
    {
        for (int index = 1; index <= static_cast<int>(core::kIndexCount); ++index)
            main.List_Indices.setSelected(static_cast<std::size_t>(index - 1), indices.count(index) > 0);
    }
    Texts results() const
    {
        Texts rows = textsOf(form.Flex_Results);
        rows.erase(rows.begin());
        return rows;
    }
};

const Cells kSound{"30", "", "600", "", "50", "2"};
const Cells kFailing{"20", "", "600", "9.3", "", "2"};
const Cells kWindless{"30", "", "600", "", "50", ""};
const Cells kExtreme{"53", "", "616", "", "78.2", "0.1"};
const Cells kSigned{"-", "", "600", "", "50", "2"}; // complete, but no number

/// Rows from a few cells each, so that most writes change nothing, and signs and points that escape
/// the cleaning stand beside a partner.
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

TEST(FrmRawData, OpeningWritesHeadersForTheSelection)
{
    Sheet sheet;
    sheet.select({35, 24, 200});
    sheet.form.open(sheet.table);
    EXPECT_TRUE(sheet.form.visible());
    EXPECT_FALSE(sheet.form.Fra_Results.visible());
    EXPECT_EQ(
        textsOf(sheet.form.Flex_Data)[0],
        (std::vector<std::string>{"Air Temperature (°C)", "Globe Temperature (°C)", "Solar Radiation (W/m²)",
                                  "Dew Point (°C)", "Relative Humidity (%)", "Wind Speed (m/s)"}));
    EXPECT_EQ(sheet.form.lbl_information.caption(),
              "Use Ctr + V to paste your values into the following table.\r\nReport 'Globe Temperature' OR "
              "'Solar Radiation', and 'Dew Point' OR 'Relative Humidity'");
    EXPECT_EQ(textsOf(sheet.form.Flex_Results)[0],
              (std::vector<std::string>{"Bodman's Weather Severity Index (Winter) (Bodman; 1908) - [[-]]",
                                        "Cooling Power (Goldschmidt; 1952) - [mcal/cm²/s]",
                                        "Wet Bulb Globe Temperature (outdoor) (Yaglou; 1956) - [°C]"}));
    EXPECT_EQ(sheet.table.Flex.rows(), 223U);
    EXPECT_EQ(sheet.table.Flex.textMatrix(35, 0), "Cooling Power (Goldschmidt; 1952)");
    EXPECT_EQ(sheet.table.Flex.textMatrix(35, 2), "mcal/cm²/s");

    sheet.select({});
    sheet.form.open(sheet.table);
    EXPECT_EQ(textsOf(sheet.form.Flex_Results)[0], std::vector<std::string>{""});
}

TEST(FrmRawData, OpeningPutsASortedResultsTableBackInOrder)
{
    Sheet sheet;
    tests::writeCells(sheet.main, kSound);
    sheet.main.cmd_Calculate.setValue(true);
    sheet.form.open(sheet.table);
    controls::Grid& flex = sheet.table.Flex;
    flex.setCol(1);
    flex.setSort(controls::Sort::StringDescending);
    sheet.form.open(sheet.table);
    EXPECT_EQ(flex.textMatrix(159, 0), "Solar Radiation");
    EXPECT_EQ(flex.textMatrix(159, 1), "600.0");
    EXPECT_EQ(flex.rowKey(159), 159);
}

TEST(FrmRawData, PastesRowsByTheirLineEnds)
{
    struct Row {
        std::string name;
        std::string text;
        Texts rows; // of the data, without the header
    };
    const std::vector<Row> rows{
        {"one line with its end", "30\t\t600\t\t50\t2\r\n", {{"30", "", "600", "", "50", "2"}}},
        {"one line without", "30\t\t600\t\t50\t2", {}},
        {"the last line without", "1\r\n2\r\n3", {{"1", "", "", "", "", ""}, {"2", "", "", "", "", ""}}},
        {"CR alone", "1\t2\r3\t4\r", {{"1", "2", "", "", "", ""}, {"3", "4", "", "", "", ""}}},
        {"LF alone", "1\t2\n3\t4\n", {{"1", "2", "", "", "", ""}, {"3", "4", "", "", "", ""}}},
        {"short, long and empty lines",
         "1\r\n1\t2\t3\t4\t5\t6\t7\r\n\r\n",
         {{"1", "", "", "", "", ""}, {"1", "2", "3", "4", "5", "6"}, {"", "", "", "", "", ""}}},
        {"no cell is judged", "x\t,\t \t-\t\t1e9\r\n", {{"x", ",", " ", "-", "", "1e9"}}},
    };
    for (const Row& row : rows) {
        Sheet sheet;
        sheet.paste("old\told\r\nold\r\nold\r\nold\r\n");
        sheet.paste(row.text);
        Texts found = textsOf(sheet.form.Flex_Data);
        EXPECT_EQ(found[0][0], "Air Temperature (°C)") << row.name;
        found.erase(found.begin());
        EXPECT_EQ(found, row.rows) << row.name;
    }
}

TEST(FrmRawData, PastesOnCtrlVExactly)
{
    struct Press {
        Key key;
        int shift;
    };
    for (const Press press :
         {Press{Key::V, 0}, {Key::V, 1}, {Key::V, 3}, {Key::V, 4}, {Key::V, 6}, {Key::C, 2}}) {
        Sheet sheet;
        sheet.paste("1\r\n2\r\n3\r\n", press.key, press.shift);
        EXPECT_EQ(sheet.form.Flex_Data.rows(), 2U) << press.shift;
    }
    Sheet sheet;
    sheet.paste("1\r\n2\r\n3\r\n");
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 4U);
    sheet.paste("");
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 4U); // an empty clipboard wipes nothing
}

/// Runs both ways and compares everything that shows.
void expectAsOneByOne(const std::vector<Cells>& rows, unsigned threads, const Cells& before = {})
{
    PlainSheet plain;
    plain.rows = rows;
    tests::writeCells(plain.main, before);
    plain.run();

    Sheet sheet(threads);
    tests::writeCells(sheet.main, before);
    sheet.paste(rows);
    sheet.form.cmd_Calculate.setValue(true);
    const Texts found = sheet.results();
    plain.results.resize(found.size());
    for (std::size_t row = 0; row < found.size(); ++row) {
        plain.results[row].resize(found[row].size());
        ASSERT_EQ(found[row], plain.results[row]) << "row " << row + 1;
    }
    const Shown shown = Shown::of(sheet.main);
    const Shown expected = Shown::of(plain.main);
    EXPECT_EQ(shown.boxes, expected.boxes);
    EXPECT_EQ(shown.results, expected.results);
    EXPECT_EQ(shown.live, expected.live);
    EXPECT_EQ(shown.whyBlank, expected.whyBlank);
    EXPECT_EQ(sheet.messages.boxes.size(), plain.solverMessages().size());
}

TEST(FrmRawData, RunsAsOneByOne)
{
    for (const std::uint32_t seed : {21U, 22U})
        for (const unsigned threads : {1U, 4U}) {
            SCOPED_TRACE("seed " + std::to_string(seed) + ", threads " + std::to_string(threads));
            expectAsOneByOne(randomRows(700, seed), threads);
        }
}

// Where a cell equals what its box holds, the box is not cleaned again, and what a row gives
// depends on the rows before it. The survey is worth something only if that happens.
TEST(FrmRawData, RunsAsOneByOneWhereARowDependsOnTheOneBefore)
{
    for (const std::uint32_t seed : {31U, 32U, 33U}) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const std::vector<Cells> rows = clingingRows(1000, seed);
        expectAsOneByOne(rows, 3, {"9", "25", "", "8.5", "", "2"});

        PlainSheet clinging;
        PlainSheet fresh;
        clinging.rows = fresh.rows = rows;
        fresh.beforeRow = [&](std::size_t) { fresh.main.calculation.readings.clear(); };
        clinging.run();
        fresh.run();
        std::size_t different = 0;
        for (std::size_t row = 0; row < std::min(clinging.results.size(), fresh.results.size()); ++row)
            different += clinging.results[row] == fresh.results[row] ? 0U : 1U;
        EXPECT_GT(different, 20U);
    }
}

// Every block of rows starts from a dew point that stands above the air temperature, only because
// it stood there before: the guess of its start is always wrong.
TEST(FrmRawData, RunsAsOneByOneWhereEveryGuessIsWrong)
{
    std::vector<Cells> rows(600, Cells{"15", "", "600", "1e1", "", "2"});
    rows[0] = {"25", "", "600", "20", "", "2"};
    for (std::size_t i = 1; i < rows.size(); ++i)
        rows[i] = {"15", "", std::to_string(i), "20", "", "2"};
    expectAsOneByOne(rows, 2);
}

TEST(FrmRawData, LeavesTheMainWindowAsTheLastRowsLeaveIt)
{
    const std::vector<std::pair<std::string, std::vector<Cells>>> cases{
        {"calculated", {kSound, {"7.3", "15.7", "", "4.5", "", "3.1"}}},
        {"skipped at the end", {kSound, kWindless, kWindless}},
        {"failed at the end", {kSound, kFailing}},
        {"rejected at the end keeps the live quantities", {kSound, kFailing, kExtreme, kSigned}},
        {"rejected, then skipped", {kSound, kSigned, kWindless}},
        {"nothing calculated", {kWindless, kWindless}},
        {"only rejected", {kSigned}},
        {"no rows", {}},
    };
    for (const auto& [name, rows] : cases) {
        SCOPED_TRACE(name);
        expectAsOneByOne(rows, 2, {"11", "", "100", "", "88", "1.5"});
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
    std::vector<double> shares;
    sheet.form.lbl_progress.appearance.watch([&] { shares.push_back(sheet.form.progressShare()); });
    sheet.form.cmd_Calculate.setValue(true);
    ASSERT_EQ(told.size(), 50U);
    EXPECT_EQ(told[0], "2% 1 out of 50");
    EXPECT_EQ(told[24], "50% 25 out of 50");
    EXPECT_EQ(told[28], "57% 29 out of 50"); // 29 / 50 * 100 is a little below 58 in doubles
    EXPECT_EQ(told[49], "100% 50 out of 50");
    ASSERT_EQ(shares.size(), 50U);
    EXPECT_EQ(shares[24], 0.5);
    EXPECT_EQ(shares[49], 1);

    // Once at 100 % it stays, also in later runs.
    sheet.paste(std::vector<Cells>(3, kWindless));
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(told.size(), 50U);
    EXPECT_EQ(sheet.form.lbl_progress_rows.caption(), "50 out of 50");
}

TEST(FrmRawData, AChangedSelectionShiftsTheColumns)
{
    Sheet sheet;
    sheet.select({24, 35, 159});
    sheet.form.open(sheet.table);
    const Texts headers{textsOf(sheet.form.Flex_Results)[0]};
    sheet.paste(std::vector<Cells>{kSound});
    sheet.select({35, 159});
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(textsOf(sheet.form.Flex_Results)[0], headers[0]);
    EXPECT_EQ(sheet.results()[0], (std::vector<std::string>{"3.2", "600.0", ""}));

    // More indices than columns: none is lost, the new columns have no header.
    sheet.select({5, 24, 35, 159});
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.results()[0], (std::vector<std::string>{"21.2", "", "3.2", "600.0"}));
    EXPECT_EQ(textsOf(sheet.form.Flex_Results)[0][3], "");
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
        if (row == 150)
            main.Opt_Limits.select(1);
        if (row == 151)
            main.txt_Friction.setText("0.3");
        if (row == 300)
            main.List_Indices.selectAll(true);
    };
    PlainSheet plain;
    plain.rows = rows;
    plain.beforeRow = [&](std::size_t row) { change(plain.main, row); };
    plain.run();

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
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(done, rows.size());
    const Texts found = sheet.results();
    for (std::size_t row = 0; row < found.size(); ++row) {
        plain.results[row].resize(found[row].size());
        ASSERT_EQ(found[row], plain.results[row]) << "row " << row + 1;
    }
    EXPECT_TRUE(Shown::of(sheet.main) == Shown::of(plain.main));
}

TEST(FrmRawData, StopsAndKeepsWhatIsDone)
{
    const std::vector<Cells> rows = randomRows(900, 51);
    Sheet sheet;
    sheet.paste(rows);
    sheet.form.cmd_Calculate.setValue(true);
    const Texts whole = sheet.results();
    EXPECT_FALSE(sheet.form.cmd_Stop.enabled());
    sheet.form.cmd_Back.setValue(false);

    Sheet stopped;
    stopped.paste(rows);
    stopped.form.cmd_Calculate.setValue(true); // leaves figures in all rows
    stopped.form.Fra_Results.setVisible(false);
    std::size_t looks = 0;
    stopped.form.keepAlive([&] {
        EXPECT_TRUE(stopped.form.cmd_Stop.enabled());
        EXPECT_FALSE(stopped.form.cmd_Open.enabled());
        if (stopped.form.rowState(400) != RowState::NotRun && ++looks == 1)
            stopped.form.cmd_Stop.setValue(true);
    });
    stopped.form.cmd_Calculate.setValue(true);
    EXPECT_TRUE(stopped.form.Fra_Results.visible());
    const Texts part = stopped.results();
    ASSERT_EQ(part.size(), whole.size());
    for (std::size_t row = 0; row < 400; ++row)
        ASSERT_EQ(part[row], whole[row]) << row;
    for (std::size_t row = 400; row < part.size(); ++row)
        ASSERT_EQ(part[row], std::vector<std::string>(222)) << row;
    EXPECT_EQ(stopped.form.Flex_Results.note(401, 0), "The run was stopped before row 401.");
    EXPECT_EQ(stopped.form.lbl_outcome.caption().find("Stopped after row 400 of 900: "), 0U);

    PlainSheet plain;
    plain.rows.assign(rows.begin(), rows.end());
    plain.run();
    plain.rows.assign(rows.begin(), rows.begin() + 400);
    plain.run();
    EXPECT_TRUE(Shown::of(stopped.main) == Shown::of(plain.main));
}

TEST(FrmRawData, AnotherPressStartsOver)
{
    Sheet sheet;
    sheet.paste(randomRows(300, 61));
    bool pressed = false;
    std::size_t starts = 0;
    sheet.form.keepAlive([&] {
        starts += sheet.form.rowState(1) == RowState::NotRun ? 1U : 0U;
        if (sheet.form.rowState(100) != RowState::NotRun && !std::exchange(pressed, true))
            sheet.form.cmd_Calculate.setValue(true);
    });
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_GE(starts, 2U);
    EXPECT_FALSE(sheet.form.running());
    EXPECT_NE(sheet.form.rowState(300), RowState::NotRun);
    EXPECT_EQ(sheet.form.lbl_outcome.caption().find("Rows: "), 0U);
}

TEST(FrmRawData, EndsWhenItIsUnloaded)
{
    Sheet sheet;
    sheet.paste(std::vector<Cells>(2000, kSound));
    sheet.form.keepAlive([&] { sheet.form.Form_Unload(); });
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.form.rowState(2000), RowState::NotRun);
    EXPECT_FALSE(sheet.form.running());
}

TEST(FrmRawData, TakesNoRowsDuringARun)
{
    Sheet sheet;
    sheet.paste(std::vector<Cells>(300, kSound));
    const Folder folder;
    const std::string file = folder.write("t.csv", "Ta\n1\n");
    sheet.form.keepAlive([&] {
        sheet.paste("1\r\n");
        sheet.form.openFile(file);
    });
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 301U);
    EXPECT_EQ(sheet.form.rowState(300), RowState::Calculated);
}

TEST(FrmRawData, SaysWhatBecameOfItsRows)
{
    Sheet sheet;
    sheet.paste({kSound, kFailing, kWindless, kSigned});
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.form.lbl_outcome.caption(), "Rows: 1 calculated, 2 skipped, 1 failed.");
    using enum RowState;
    const RowState states[] = {NotRun, Calculated, Failed, Skipped, Rejected, NotRun};
    for (std::size_t row = 0; row < std::size(states); ++row) {
        EXPECT_EQ(sheet.form.rowState(row), states[row]) << row;
        EXPECT_EQ(sheet.form.dataRowState(row), states[row]) << row;
    }
    const controls::Grid& results = sheet.form.Flex_Results;
    const std::string failed =
        "Row 2 failed: The calculation stopped in the Universal Thermal Climate Index: the dew "
        "point 9.3 reads above the air temperature 20 (the two are compared as texts)";
    EXPECT_EQ(results.note(0, 0), "");
    EXPECT_EQ(results.note(1, 158), ""); // has a value
    EXPECT_EQ(results.note(1, 23), "Outside its limits: Ta is 30 °C, valid from -60 to 10 °C.");
    EXPECT_EQ(results.note(2, 5).substr(0, failed.size()), failed);
    EXPECT_EQ(results.note(3, 5), "Row 3 was skipped: the wind speed is missing.");
    EXPECT_EQ(results.note(4, 5), "Row 4 was skipped: the air temperature is no number.");
    EXPECT_EQ(sheet.form.Flex_Data.note(3, 5), "Row 3 was skipped: the wind speed is missing.");
    EXPECT_EQ(sheet.form.Flex_Data.note(1, 0), "");
    // No message box for a failed row.
    EXPECT_TRUE(sheet.messages.boxes.empty());

    // New rows have not been calculated; the results are still those of the old ones.
    sheet.paste({kWindless, kSound, kSound});
    EXPECT_EQ(sheet.form.Flex_Data.note(3, 5), "");
    EXPECT_EQ(sheet.form.dataRowState(2), NotRun);
    EXPECT_EQ(results.note(3, 5), "Row 3 was skipped: the wind speed is missing.");

    // A skipped row keeps what an earlier run has left, and says so.
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(results.textMatrix(1, 158), "600.0");
    EXPECT_EQ(results.note(1, 158),
              "Row 1 was skipped: the wind speed is missing. Its figures are those of an earlier run.");
}

TEST(FrmRawData, FollowsTheWindowsRules)
{
    Sheet sheet;
    sheet.main.Opt_Rules.select(1);
    sheet.paste({kFailing, kSound});
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.form.rowState(1), RowState::Calculated);
    EXPECT_NE(sheet.form.Flex_Results.textMatrix(1, 0), "");
}

TEST(FrmRawData, ShowsASolversMessageOncePerFailingCall)
{
    const std::vector<Cells> rows{kExtreme, kSound, kExtreme, kExtreme};
    Sheet sheet;
    sheet.paste(rows);
    sheet.form.cmd_Calculate.setValue(true);
    ASSERT_EQ(sheet.messages.boxes.size(), 6U); // two for each such row, from an independent calculation
    EXPECT_EQ(sheet.messages.boxes[0].text, kNoConvergence);
    EXPECT_EQ(sheet.messages.boxes[0].checkBox, "Do not show this again in this run");

    sheet.messages.boxes.clear();
    sheet.messages.tickAt = 3;
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.messages.boxes.size(), 3U);
    sheet.messages.boxes.clear();
    sheet.messages.tickAt = 0;
    sheet.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.messages.boxes.size(), 6U); // a new run shows them again

    // The main window's own messages pass again after a run.
    sheet.main.cmd_Calculate.setValue(true);
    EXPECT_EQ(sheet.messages.boxes.size(), 8U);
    EXPECT_EQ(sheet.messages.boxes[7].checkBox, "");
}

TEST(FrmRawData, CopiesAndExportsItsResults)
{
    Sheet sheet;
    sheet.select({35, 159});
    sheet.form.open(sheet.table);
    sheet.paste({kSound, kWindless});
    sheet.form.cmd_Calculate.setValue(true);
    const std::string header = "Cooling Power (Goldschmidt; 1952) - [mcal/cm²/s]\tSolar Radiation - [W/m²]";

    bool opened = false;
    sheet.form.popUpMenu_copy.watch([&] { opened = true; });
    sheet.form.Flex_Results.mouseDown(controls::MouseButton::Left, 1, 1);
    EXPECT_FALSE(opened);
    sheet.form.Menu_Copy_Selection.click.raise();
    EXPECT_EQ(sheet.clipboard.held, "600.0");
    EXPECT_EQ(sheet.clipboard.calls, (std::vector<std::string>{"clear", "set"}));
    sheet.form.Flex_Results.mouseDown(controls::MouseButton::Right, 1, 1);
    EXPECT_TRUE(opened);
    sheet.form.Menu_copy_copy.click.raise();
    EXPECT_EQ(sheet.clipboard.held, header + "\r3.2\t600.0\r\t");

    const Folder folder;
    sheet.files.answer = folder.file("season.csv");
    sheet.form.Menu_Export.click.raise();
    EXPECT_EQ(sheet.files.save.title, "Export Spreadsheet Table");
    std::ifstream file(folder.file("season.csv.csv"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}),
              "Cooling Power (Goldschmidt; 1952) - [mcal/cm\xB2/s],Solar Radiation - "
              "[W/m\xB2]\r\n3.2,600.0\r\n,\r\n");
    ASSERT_EQ(sheet.messages.boxes.size(), 1U);
    EXPECT_EQ(sheet.messages.boxes[0].text, "The spreadsheet table has been saved succesfully");
    EXPECT_EQ(sheet.messages.boxes[0].title, "Export Spreadsheet Table");

    EXPECT_TRUE(sheet.form.Fra_Results.visible());
    sheet.form.cmd_Back.setValue(true);
    EXPECT_FALSE(sheet.form.Fra_Results.visible());
}

TEST(FrmRawData, OpensATable)
{
    const Folder folder;
    Sheet sheet;
    sheet.files.answer =
        folder.write("t.csv", "\xEF\xBB\xBFWS,Station,RH,Ta,SR\r\n2,\"a, b\",50,30,600\r\n3,x,,31,\r\n");
    sheet.form.cmd_Open.setValue(true);
    EXPECT_EQ(sheet.files.open.title, "Open Table");
    Texts found = textsOf(sheet.form.Flex_Data);
    EXPECT_EQ(found.size(), 3U);
    EXPECT_EQ(found[0][0], "Air Temperature (°C)");
    EXPECT_EQ(found[1], (std::vector<std::string>{"30", "", "600", "", "50", "2"}));
    EXPECT_EQ(found[2], (std::vector<std::string>{"31", "", "", "", "", "3"}));

    std::string many = "30\t\t600\t\t50\t2\n";
    for (int i = 0; i < 5000; ++i)
        many += std::to_string(i % 40) + "\t\t600\t\t50\t2\n";
    sheet.form.openFile(folder.write("t.tsv", many));
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 5002U);
    EXPECT_EQ(sheet.form.Flex_Data.textMatrix(5001, 0), "39");

    sheet.form.openFile(folder.write("header.csv", "Ta,RH\n"));
    EXPECT_EQ(sheet.form.Flex_Data.rows(), 1U);
    EXPECT_TRUE(sheet.messages.boxes.empty());
}

TEST(FrmRawData, AMalformedTableIsToldAndChangesNothing)
{
    const Folder folder;
    struct Row {
        std::string path;
        std::string says;
    };
    const std::vector<Row> rows{
        {folder.write("short.csv", "Ta,RH\n1,2\n3\n"),
         "Line 3: the row has 1 cells where the table has 2 columns."},
        {folder.write("quote.csv", "Ta,RH\n1,\"2\n"), "Line 2: a quote is opened and never closed."},
        {folder.write("names.csv", "a,b\n"), "Line 1: no column is named Ta, Tg, SR, Td, RH or WS."},
        {folder.write("empty.csv", ""), "The table is empty."},
        {folder.file("none.csv"), "No such file or directory."},
        {folder.file(""), "It cannot be read."},
    };
    for (const Row& row : rows) {
        Sheet sheet;
        sheet.paste({kSound, kWindless});
        const Texts before = textsOf(sheet.form.Flex_Data);
        sheet.form.openFile(row.path);
        EXPECT_EQ(textsOf(sheet.form.Flex_Data), before) << row.path;
        ASSERT_EQ(sheet.messages.boxes.size(), 1U) << row.path;
        EXPECT_EQ(sheet.messages.boxes[0].text, "The file " + row.path + " cannot be opened. " + row.says);
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
