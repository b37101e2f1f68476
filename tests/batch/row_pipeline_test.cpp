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
using tests::projectLimits;
using tests::randomRows;
using tests::tableOf;

BatchOptions options(unsigned threads = 2, const std::vector<int>& selected = {})
{
    BatchOptions result;
    result.assumptions = {"0.77", "0.97", "1016", "75", "180", "0.20"};
    result.threads = threads;
    if (!selected.empty())
        result.settings.selection = core::Selection::none();
    for (const int index : selected)
        result.settings.selection.set(index, true);
    return result;
}

struct Outcome {
    std::string csv;
    BatchSummary summary;
    std::string error;

    std::vector<std::vector<std::string>> cells() const
    {
        std::vector<std::vector<std::string>> rows;
        TableReader reader = tableOf(csv);
        for (TableRow row; reader.next(row);)
            rows.push_back(row.cells);
        return rows;
    }
};

Outcome run(const std::string& text, const BatchOptions& wanted)
{
    Outcome result;
    TableReader reader = tableOf(text);
    try {
        result.summary = runBatch(
            reader, projectLimits(), wanted, [&](std::string_view bytes) { result.csv += bytes; },
            [](const RowCounts&) { return true; });
    } catch (const MalformedTable& error) {
        result.error = error.what();
    }
    return result;
}

std::vector<std::string> cellsOf(const Cells& row)
{
    return {row[5], "no \"1\", here", "\r" + row[2], "\n", row[4], row[0], row[1], row[2], row[3]};
}

/// A table with a header, an odd order of columns and columns of its own that need quotes.
std::string tableText(const std::vector<Cells>& rows)
{
    std::string text = "WS,Station,CR,LF,RH,Ta,Tg,SR,Td";
    for (const Cells& row : rows) {
        char separator = '\n';
        for (const std::string& cell : cellsOf(row)) {
            text += std::exchange(separator, ',');
            appendCsvCell(text, cell);
        }
    }
    return text;
}

std::string soundRows(std::size_t count)
{
    std::string text = "Ta,SR,RH,WS\n";
    for (std::size_t i = 0; i < count; ++i)
        text += "20,500,50,2\n";
    return text;
}

TEST(RunBatch, GivesWhatTheMainWindowGivesRowByRow)
{
    const std::uint32_t seed = 11;
    const std::vector<Cells> rows = randomRows(1500, seed);
    BatchOptions wanted = options();
    wanted.live = true;
    const Outcome batch = run(tableText(rows), wanted);
    const auto table = batch.cells();
    ASSERT_EQ(table.size(), rows.size() + 1);

    tests::MainWindow window;
    const core::Calculation& calculation = window.main.calculation;
    RowCounts counted;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        window.main.calculation.readings.clear();
        const bool ran = window.calculate(rows[i]) && calculation.readings.valid();
        const auto& failure = calculation.failure();
        ++(!ran ? counted.skipped : failure ? counted.failed : counted.calculated);
        std::vector<std::string> expected = cellsOf(rows[i]);
        expected.push_back(!ran      ? "skipped: " + calculation.readings.whatIsWrong()
                           : failure ? "failed: " + failure->sentence()
                                     : "ok");
        if (ran && !failure) {
            for (const auto& texts : {tests::liveCaptions(calculation), tests::selectedResults(window.main)})
                expected.insert(expected.end(), texts.begin(), texts.end());
        }
        expected.resize(table[0].size());
        ASSERT_EQ(table[i + 1], expected) << "seed " << seed << ", row " << i;
    }
    EXPECT_EQ(batch.summary.rows.calculated, counted.calculated);
    EXPECT_EQ(batch.summary.rows.skipped, counted.skipped);
    EXPECT_EQ(batch.summary.rows.failed, counted.failed);
    EXPECT_EQ(batch.summary.messages, window.solverMessages());
    // The survey is worth something only if it meets rows of all kinds.
    EXPECT_GT(counted.calculated, 400U);
    EXPECT_GT(counted.skipped, 50U);
    EXPECT_GT(counted.failed, 50U);
    EXPECT_GT(batch.summary.messages, 0U);
}

TEST(RunBatch, GivesTheSameBytesOnAnyNumberOfThreads)
{
    const std::string text = tableText(randomRows(1200, 12));
    const Outcome one = run(text, options(1));
    for (const unsigned threads : {2U, 8U}) {
        const Outcome many = run(text, options(threads));
        EXPECT_TRUE(many.csv == one.csv) << threads << " threads";
        EXPECT_EQ(many.summary.messages, one.summary.messages);
    }
}

TEST(RunBatch, HeadsItsColumns)
{
    BatchOptions wanted = options(2, {35, 159});
    EXPECT_EQ(run("\"Ta, dry\",ta,SR,RH,WS\n", wanted).csv,
              "\"Ta, dry\",ta,SR,RH,WS,Status,35 Cooling Power (Goldschmidt; 1952) [mcal/cm²/s],"
              "159 Solar Radiation [W/m²]\r\n");
    // From an independent calculation. The globe temperature is that of the radiant model, as
    // index 200, which derives it anew, is not selected.
    wanted.live = true;
    EXPECT_EQ(run("30,,600,,50,2\n", wanted).csv,
              "Air Temperature (°C),Globe Temperature (°C),Solar Radiation (W/m²),Dew Point (°C),"
              "Relative Humidity (%),Wind Speed (m/s),Status,Ta [°C],Tg [°C],SR [W/m²],Td [°C],RH [%],"
              "WS [m/s],Tmrt [°C],Tnwb [°C],Tpwb [°C],Es [hPa],Ea [hPa],"
              "35 Cooling Power (Goldschmidt; 1952) [mcal/cm²/s],159 Solar Radiation [W/m²]\r\n"
              "30,,600,,50,2,ok,30.00000,39.19379,600.00000,18.43809,50.00000,2.00000,64.5557761372821,"
              "23.15121,21.93809,42.47046,21.22134,3.2,600.0\r\n");
}

TEST(RunBatch, TellsWhatFailedInARowByTheRobustRules)
{
    BatchOptions wanted = options(2, {52, 134});
    wanted.reasons = true;
    wanted.settings.rules = core::Rules::Robust;
    const Outcome outcome = run("Ta,SR,RH,WS\n30,600,0,2\n30,600,,2\n30,600,50,2\n", wanted);
    const auto table = outcome.cells();
    EXPECT_EQ(table[0][5], "Reasons");
    EXPECT_TRUE(table[1][5].starts_with("52: Td is not available: ")); // no humidity has no dew point
    EXPECT_EQ(table[2][5], "");
    EXPECT_EQ(table[3][5], "");
    EXPECT_EQ(outcome.summary.rows.lostValues, 1U);
}

TEST(RunBatch, WritesTheRowsBeforeAMalformedOneAndNamesItsLine)
{
    struct Row {
        std::string text;
        std::string error;
        std::size_t lines; // written, with the header
    };
    const Row rows[] = {
        {"", "The table is empty.", 0},
        {soundRows(1) + "\n30,600,50\n30,600,50,2\n",
         "Line 4: the row has 3 cells where the table has 4 columns.", 2},
        {soundRows(1) + "30,\"600,50,2\n", "Line 3: a quote is opened and never closed.", 2},
        {soundRows(700) + "20\n", "Line 702: the row has 1 cells where the table has 4 columns.", 701},
    };
    for (const Row& row : rows) {
        const Outcome result = run(row.text, options());
        EXPECT_EQ(result.error, row.error);
        EXPECT_EQ(result.cells().size(), row.lines) << row.error;
    }
}

TEST(RunBatch, StopsWhenAskedTo)
{
    TableReader reader = tableOf(soundRows(5000));
    std::size_t lines = 0;
    std::size_t asked = 0;
    const BatchSummary summary = runBatch(
        reader, projectLimits(), options(),
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
    TableReader reader = tableOf(soundRows(5000));
    int writes = 0;
    const auto write = [&](std::string_view) {
        if (++writes == 3)
            throw std::runtime_error("the disk is full");
    };
    EXPECT_THROW(runBatch(reader, projectLimits(), options(), write, [](const RowCounts&) { return true; }),
                 std::runtime_error);
}

TEST(RunBatch, ReachesTheCalculationWithItsSettings)
{
    // From an independent calculation. Index 24 is outside its limits at 30 °C; the wind profile
    // reaches index 14 only.
    BatchOptions wanted = options(2, {14, 19, 24});
    const auto values = [&] {
        const auto row = run("30,40,,,50,2\n", wanted).cells()[1];
        return std::vector<std::string>(row.begin() + 7, row.end());
    };
    EXPECT_EQ(values(), (std::vector<std::string>{"30.8", "0.3", ""}));
    wanted.settings.ignoreLimits = true;
    EXPECT_EQ(values(), (std::vector<std::string>{"30.8", "0.3", "-0.4"}));
    wanted.assumptions[5] = "0.30";
    EXPECT_EQ(values(), (std::vector<std::string>{"30.3", "0.3", "-0.4"}));
}

TEST(RunBatch, ReadsItsOwnOutputAgainWhereAHeaderHoldsATab)
{
    BatchOptions wanted = options();
    wanted.settings.selection = core::Selection::none();
    const Outcome first = run("\"my\tstation\",Ta,SR,RH,WS\nA,30,600,50,2\n", wanted);
    ASSERT_EQ(first.error, "");
    const Outcome second = run(first.csv, wanted);
    EXPECT_EQ(second.error, "");
    EXPECT_NE(second.csv.find("A,30,600,50,2,ok,ok"), std::string::npos) << second.csv;
}

} // namespace
} // namespace comfortics::batch
