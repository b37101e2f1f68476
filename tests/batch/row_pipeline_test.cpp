// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_pipeline.h"

#include "batch_desk.h"
#include "text_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::batch {
namespace {

using tests::Cells;
using tests::NoWindows;
using tests::projectLimits;
using tests::randomRows;
using tests::RecordedMessages;
using tests::textSource;

const core::Limits kLimits = projectLimits();

BatchOptions options(unsigned threads = 2)
{
    BatchOptions result;
    result.assumptions = {"0.77", "0.97", "1016", "75", "180", "0.20"};
    result.threads = threads;
    return result;
}

struct Outcome {
    std::string csv;
    BatchSummary summary;
    std::string error;
};

Outcome run(const std::string& text, const BatchOptions& wanted)
{
    Outcome result;
    TableReader reader(textSource(text));
    try {
        result.summary = runBatch(
            reader, kLimits, wanted, [&](std::string_view bytes) { result.csv += bytes; },
            [](const RowCounts&) { return true; });
    } catch (const MalformedTable& error) {
        result.error = error.what();
    }
    return result;
}

std::vector<std::vector<std::string>> cellsOf(const std::string& csv)
{
    std::vector<std::vector<std::string>> rows;
    TableReader reader(textSource(csv));
    for (TableRow row; reader.next(row);)
        rows.push_back(row.cells);
    return rows;
}

/// A table with a header, an odd order of columns and a column of its own.
std::string tableText(const std::vector<Cells>& rows)
{
    std::string text = "WS,Station,RH,Ta,Tg,SR,Td\n";
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Cells& row = rows[i];
        std::vector<std::string> cells{
            row[5], "no \"" + std::to_string(i) + "\", here", row[4], row[0], row[1], row[2], row[3]};
        for (std::size_t column = 0; column < cells.size(); ++column) {
            text += column == 0 ? "" : ",";
            appendCsvCell(text, cells[column]);
        }
        text += "\n";
    }
    return text;
}

TEST(RunBatch, GivesWhatTheMainWindowGivesRowByRow)
{
    const std::uint32_t seed = 11;
    SCOPED_TRACE("seed " + std::to_string(seed));
    const std::vector<Cells> rows = randomRows(1500, seed);
    BatchOptions wanted = options();
    wanted.live = true;
    const Outcome batch = run(tableText(rows), wanted);
    EXPECT_EQ(batch.error, "");
    const auto table = cellsOf(batch.csv);
    ASSERT_EQ(table.size(), rows.size() + 1);

    RecordedMessages messages;
    NoWindows windows;
    core::Frm_Main main(kLimits, messages, windows);
    RowCounts counted;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        main.calculation.readings.clear();
        tests::writeCells(main, rows[i]);
        const bool complete = tests::isComplete(main);
        if (complete)
            main.cmd_Calculate.setValue(true);
        const auto& failure = main.calculation.failure();
        std::vector<std::string> expected{rows[i][5], "no \"" + std::to_string(i) + "\", here",
                                          rows[i][4], rows[i][0],
                                          rows[i][1], rows[i][2],
                                          rows[i][3]};
        if (complete && failure) {
            expected.push_back("failed: " + failure->sentence());
            expected.resize(expected.size() + 11 + 222);
            ++counted.failed;
        } else if (!complete || !main.calculation.readings.valid()) {
            expected.push_back("skipped: " + main.calculation.readings.whatIsWrong());
            expected.resize(expected.size() + 11 + 222);
            ++counted.skipped;
        } else {
            expected.push_back("ok");
            for (const std::string& text : tests::liveCaptions(main.calculation))
                expected.push_back(text);
            for (const std::string& text : tests::selectedResults(main))
                expected.push_back(text);
            ++counted.calculated;
        }
        ASSERT_EQ(table[i + 1], expected) << "row " << i;
    }
    EXPECT_EQ(batch.summary.rows.calculated, counted.calculated);
    EXPECT_EQ(batch.summary.rows.skipped, counted.skipped);
    EXPECT_EQ(batch.summary.rows.failed, counted.failed);
    const auto withoutConvergence =
        std::count_if(messages.boxes.begin(), messages.boxes.end(), [](const controls::MessageBox& box) {
            return box.text == "No convergence: values too extreme";
        });
    EXPECT_EQ(batch.summary.messages, static_cast<std::size_t>(withoutConvergence));
    EXPECT_GT(counted.calculated, 400U);
    EXPECT_GT(counted.skipped, 50U);
    EXPECT_GT(counted.failed, 50U);
    EXPECT_GT(batch.summary.messages, 0U);
}

TEST(RunBatch, GivesTheSameBytesOnAnyNumberOfThreads)
{
    const std::string text = tableText(randomRows(1200, 12));
    const Outcome one = run(text, options(1));
    for (const unsigned threads : {2U, 3U, 8U}) {
        const Outcome many = run(text, options(threads));
        EXPECT_TRUE(many.csv == one.csv) << threads << " threads";
        EXPECT_EQ(many.summary.messages, one.summary.messages);
    }
}

TEST(RunBatch, ARowDoesNotDependOnItsNeighbours)
{
    std::vector<Cells> rows = randomRows(300, 13);
    const auto inOrder = cellsOf(run(tableText(rows), options()).csv);
    std::reverse(rows.begin(), rows.end());
    auto reversed = cellsOf(run(tableText(rows), options()).csv);
    std::reverse(reversed.begin() + 1, reversed.end());
    for (std::size_t row = 1; row < inOrder.size(); ++row)
        for (std::size_t column = 2; column < inOrder[row].size(); ++column)
            ASSERT_EQ(inOrder[row][column], reversed[row][column]) << row << " " << column;
}

TEST(RunBatch, HeadsItsColumns)
{
    BatchOptions wanted = options();
    wanted.settings.selection = core::Selection::none();
    wanted.settings.selection.set(35, true);
    wanted.settings.selection.set(159, true);
    EXPECT_EQ(run("\"Ta, dry\",ta,SR,RH,WS\n", wanted).csv,
              "\"Ta, dry\",ta,SR,RH,WS,Status,35 Cooling Power (Goldschmidt; 1952) [mcal/cm²/s],"
              "159 Solar Radiation [W/m²]\r\n");
    wanted.live = true;
    const auto table = cellsOf(run("30,,600,,50,2\n", wanted).csv);
    EXPECT_EQ(table[0], (std::vector<std::string>{"Air Temperature (°C)",
                                                  "Globe Temperature (°C)",
                                                  "Solar Radiation (W/m²)",
                                                  "Dew Point (°C)",
                                                  "Relative Humidity (%)",
                                                  "Wind Speed (m/s)",
                                                  "Status",
                                                  "Ta [°C]",
                                                  "Tg [°C]",
                                                  "SR [W/m²]",
                                                  "Td [°C]",
                                                  "RH [%]",
                                                  "WS [m/s]",
                                                  "Tmrt [°C]",
                                                  "Tnwb [°C]",
                                                  "Tpwb [°C]",
                                                  "Es [hPa]",
                                                  "Ea [hPa]",
                                                  "35 Cooling Power (Goldschmidt; 1952) [mcal/cm²/s]",
                                                  "159 Solar Radiation [W/m²]"}));
    // From an independent calculation. The globe temperature is that of the radiant model, as
    // index 200, which derives it anew, is not selected.
    EXPECT_EQ(table[1],
              (std::vector<std::string>{
                  "30",       "",         "600",       "",         "50",       "2",       "ok",
                  "30.00000", "39.19379", "600.00000", "18.43809", "50.00000", "2.00000", "64.5557761372821",
                  "23.15121", "21.93809", "42.47046",  "21.22134", "3.2",      "600.0"}));
}

TEST(RunBatch, WritesTheRowsBeforeAMalformedOneAndNamesItsLine)
{
    struct Row {
        std::string name;
        std::string text;
        std::string error;
        std::size_t rowsBefore;
    };
    std::string many = "Ta,SR,RH,WS\n";
    for (int i = 0; i < 700; ++i)
        many += "20,500,50,2\n";
    const std::vector<Row> rows{
        {"empty", "", "The table is empty.", 0},
        {"too few cells", "Ta,SR,RH,WS\n30,600,50,2\n\n30,600,50\n30,600,50,2\n",
         "Line 4: the row has 3 cells where the table has 4 columns.", 1},
        {"too many cells", "Ta,SR,RH,WS\n30,600,50,2,9\n",
         "Line 2: the row has 5 cells where the table has 4 columns.", 0},
        {"open quote", "Ta,SR,RH,WS\n30,600,50,2\n30,\"600,50,2\n",
         "Line 3: a quote is opened and never closed.", 1},
        {"far down", many + "20\n", "Line 702: the row has 1 cells where the table has 4 columns.", 700},
        {"no header, five columns", "30,600,50,2,3\n",
         "Line 1: a table without a header needs six columns, this row has 5.", 0},
    };
    for (const Row& row : rows) {
        const Outcome result = run(row.text, options());
        EXPECT_EQ(result.error, row.error) << row.name;
        const auto lines = cellsOf(result.csv);
        EXPECT_EQ(lines.empty() ? 0 : lines.size() - 1, row.rowsBefore) << row.name;
    }
}

TEST(RunBatch, StopsWhenAskedTo)
{
    std::string text = "Ta,SR,RH,WS\n";
    for (int i = 0; i < 5000; ++i)
        text += "20,500,50,2\n";
    TableReader reader(textSource(text));
    std::size_t lines = 0;
    std::size_t asked = 0;
    const BatchSummary summary = runBatch(
        reader, kLimits, options(),
        [&](std::string_view bytes) {
            lines += static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
        },
        [&](const RowCounts& rows) {
            EXPECT_EQ(rows.total() + 1, lines); // told after each block that is written
            return ++asked < 3;
        });
    EXPECT_TRUE(summary.stopped);
    EXPECT_EQ(asked, 3U);
    EXPECT_EQ(summary.rows.total() + 1, lines);
    EXPECT_LT(summary.rows.total(), 5000U);
}

TEST(RunBatch, PassesOnWhatTheWriterThrows)
{
    std::string text = "Ta,SR,RH,WS\n";
    for (int i = 0; i < 5000; ++i)
        text += "20,500,50,2\n";
    TableReader reader(textSource(text));
    std::size_t bytesLeft = 300000;
    EXPECT_THROW(runBatch(
                     reader, kLimits, options(),
                     [&](std::string_view bytes) {
                         if (bytes.size() > bytesLeft)
                             throw std::runtime_error("the disk is full");
                         bytesLeft -= bytes.size();
                     },
                     [](const RowCounts&) { return true; }),
                 std::runtime_error);
}

TEST(RunBatch, ReachesTheCalculationWithItsSettings)
{
    // From an independent calculation. Index 24 is outside its limits at 30 °C; the wind profile
    // reaches index 14 only.
    BatchOptions wanted = options();
    wanted.settings.selection = core::Selection::none();
    for (const int index : {14, 19, 24})
        wanted.settings.selection.set(index, true);
    const auto values = [&] {
        const auto row = cellsOf(run("30,40,,,50,2\n", wanted).csv)[1];
        return std::vector<std::string>(row.begin() + 7, row.end());
    };
    EXPECT_EQ(values(), (std::vector<std::string>{"30.8", "0.3", ""}));
    wanted.settings.ignoreLimits = true;
    EXPECT_EQ(values(), (std::vector<std::string>{"30.8", "0.3", "-0.4"}));
    wanted.assumptions[5] = "0.30";
    EXPECT_EQ(values(), (std::vector<std::string>{"30.3", "0.3", "-0.4"}));
}

TEST(AppendCsvCell, QuotesWhereNeeded)
{
    const std::pair<const char*, const char*> rows[] = {
        {"", ""},
        {"a b", "a b"},
        {"a,b", "\"a,b\""},
        {"say \"no\"", "\"say \"\"no\"\"\""},
        {"a\nb", "\"a\nb\""},
        {"a\rb", "\"a\rb\""},
        {"°C", "°C"},
        {"1\t2", "1\t2"},
    };
    for (const auto& [cell, expected] : rows) {
        std::string line;
        appendCsvCell(line, cell);
        EXPECT_EQ(line, expected);
    }
}

} // namespace
} // namespace comfortics::batch
