// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_pipeline.h"

#include "batch_desk.h"
#include "output/csv_cell.h"
#include "text_source.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <tuple>
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
        result.settings.selection = classic::Selection::none();
    for (const int index : selected)
        result.settings.selection.set(index, true);
    return result;
}

const std::string kStation = "a\rb"; // needs quotes

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
            [](const RowCounts&) {});
    } catch (const MalformedTable& error) {
        result.error = error.what();
    }
    return result;
}

/// A table with an odd order of columns and one of its own that needs quotes.
std::string tableText(const std::vector<Cells>& rows)
{
    std::string text = "WS,Station,RH,Ta,Tg,SR,Td\n";
    for (const Cells& row : rows) {
        for (const std::string& cell : {row[5], kStation, row[4], row[0], row[1], row[2]}) {
            output::appendCsvCell(text, cell);
            text += ',';
        }
        text += row[3] + "\n";
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

// By the precise rules the batch calculates rows together, the window one by one.
class RunBatchByRules : public testing::TestWithParam<classic::Rules> {};

TEST_P(RunBatchByRules, GivesWhatTheMainWindowGivesRowByRowOnAnyNumberOfThreads)
{
    const bool precise = GetParam() == classic::Rules::Precise;
    const std::uint32_t seed = 11;
    std::vector<Cells> rows = randomRows(1500, seed);
    rows[700] = tests::kExtreme;
    BatchOptions wanted = options();
    wanted.live = true;
    wanted.settings.rules = GetParam();
    const Outcome batch = run(tableText(rows), wanted);
    const auto table = batch.cells();
    ASSERT_EQ(table.size(), rows.size() + 1);
    for (const unsigned threads : {1U, 8U}) {
        wanted.threads = threads;
        EXPECT_TRUE(run(tableText(rows), wanted).csv == batch.csv) << threads << " threads";
    }

    tests::MainWindow window;
    window.main.Opt_Rules.select(static_cast<std::size_t>(GetParam()));
    classic::Calculation& calculation = window.main.calculation;
    calculation.advice = classic::kTerminalAdvice;
    RowCounts counted;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        window.main.calculation.readings.clear();
        const bool ran = window.calculate(rows[i]) && calculation.readings.valid();
        const auto& failure = calculation.failure();
        ++(!ran ? counted.skipped : failure ? counted.failed : counted.calculated);
        const Cells& row = rows[i];
        std::vector<std::string> expected{row[5], kStation, row[4], row[0], row[1], row[2], row[3]};
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
    const RowCounts& counts = batch.summary.rows;
    EXPECT_EQ(std::tie(counts.calculated, counts.skipped, counts.failed),
              std::tie(counted.calculated, counted.skipped, counted.failed));
    EXPECT_EQ(batch.summary.messages, window.solverMessages());
    // The survey is worth something only if it meets rows of all kinds.
    EXPECT_TRUE(counts.calculated > 400 && counts.skipped > 50);
    EXPECT_EQ(precise, counts.failed == 0);
    EXPECT_EQ(precise, batch.summary.messages == 0);
}

INSTANTIATE_TEST_SUITE_P(Rules, RunBatchByRules,
                         testing::Values(classic::Rules::Classic, classic::Rules::Precise));

TEST(RunBatch, ReachesTheCalculationWithItsSettings)
{
    BatchOptions wanted = options(2, {14, 19, 24});
    // From an independent calculation. Index 24 is outside its limits at 30 °C; the wind profile
    // reaches index 14 only.
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

TEST(RunBatch, WritesWhatValuesMeanBehindThem)
{
    BatchOptions wanted = options(2, {53, 120, 195});
    wanted.categories = true;
    const auto rowsBy = [&](classic::Rules rules, bool ignoreLimits) {
        wanted.settings.rules = rules;
        wanted.settings.ignoreLimits = ignoreLimits;
        return run("Ta,SR,RH,WS\n36,700,40,1\n-45,0,80,9\n", wanted).cells();
    };
    const auto table = rowsBy(classic::Rules::Robust, false);
    ASSERT_EQ(table[0].size(), 12U);
    EXPECT_EQ(table[0][7], "120 category");
    EXPECT_EQ(table[0][11], "195 severity");
    const auto words = [&](const std::vector<std::string>& row) { return row[10] + " " + row[11]; };
    EXPECT_EQ(words(table[1]), "very strong heat stress 3");
    EXPECT_EQ(words(table[2]), "extreme cold stress -4");
    for (const bool ignoreLimits : {false, true}) {
        const auto precise = rowsBy(classic::Rules::Precise, ignoreLimits);
        const auto robust = rowsBy(classic::Rules::Robust, ignoreLimits);
        for (const std::size_t row : {1U, 2U})
            for (const std::size_t cell : {7U, 8U, 10U, 11U})
                EXPECT_EQ(precise[row][cell], robust[row][cell]) << row << " " << cell;
    }
}

TEST(RunBatch, TellsWhatFailedInARowWhereNoRunFails)
{
    BatchOptions wanted = options(2, {52, 134});
    wanted.reasons = true;
    wanted.settings.rules = classic::Rules::Precise;
    EXPECT_EQ(run("Ta,SR,RH,WS\n30,600,0,2\n", wanted).cells()[1][5],
              "52: There is no dew point at a relative humidity of 0 %.");
    wanted.settings.rules = classic::Rules::Robust;
    const Outcome outcome = run("Ta,SR,RH,WS\n30,600,0,2\n30,600,,2\n30,600,50,2\n", wanted);
    const auto table = outcome.cells();
    EXPECT_EQ(table[0][5], "Reasons");
    EXPECT_TRUE(table[1][5].starts_with("52: Td is not available: ")); // no humidity has no dew point
    EXPECT_EQ(table[2][5] + table[3][5], "");
    EXPECT_EQ(outcome.summary.rows.lostValues, 1U);
}

TEST(RunBatch, WritesTheRowsBeforeAMalformedOneAndNamesItsLine)
{
    // With the lines that are written, the header too.
    const std::vector<std::tuple<std::string, std::string, std::size_t>> rows = {
        {"", "The table is empty.", 0},
        {soundRows(1) + "30,\"600,50,2\n", "Line 3: a quote is opened and never closed.", 2},
        {soundRows(700) + "20\n", "Line 702: the row has 1 cells where the table has 4 columns.", 701},
    };
    for (const auto& [text, error, lines] : rows) {
        const Outcome result = run(text, options());
        EXPECT_EQ(result.error, error);
        EXPECT_EQ(result.cells().size(), lines) << error;
    }
}

TEST(RunBatch, HoldsNoMoreThanAFewMegabytesOfWideRowsInABlock)
{
    std::string text = "Ta,SR,RH,WS,Note\n";
    for (int row = 0; row < 40; ++row)
        text += "30,600,50,2," + std::string(200000, 'x') + "\n";
    TableReader reader = tableOf(text);
    std::size_t largest = 0;
    runBatch(
        reader, projectLimits(), options(1, {134}),
        [&](std::string_view bytes) { largest = std::max(largest, bytes.size()); },
        [](const RowCounts&) { return true; });
    EXPECT_LT(largest, std::size_t{2} << 20);
}

TEST(RunBatch, StopsWhenAskedTo)
{
    std::atomic<std::size_t> lines = 0;
    std::size_t told = 0;
    TableReader reader = tableOf(soundRows(5000));
    const auto write = [&](std::string_view bytes) {
        lines += static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    };
    const auto progress = [&](const RowCounts& rows) {
        EXPECT_EQ(rows.total() + 1, lines); // told after each block that is written
        ++told;
    };
    BatchOptions wanted = options();
    wanted.stopped = [&] { return lines > 600; };
    const BatchSummary summary = runBatch(reader, projectLimits(), wanted, write, progress);
    EXPECT_TRUE(summary.stopped);
    EXPECT_EQ(told, 3U);
    EXPECT_EQ(summary.rows.total() + 1, lines);

    // Also in the middle of a block, of which nothing is written.
    std::atomic<int> asked = 0;
    wanted.stopped = [&] { return ++asked > 10; };
    TableReader again = tableOf(soundRows(5000));
    EXPECT_EQ(runBatch(again, projectLimits(), wanted, write, [](const RowCounts&) { FAIL(); }).rows.total(),
              0U);
    EXPECT_LT(asked, 30);
}

} // namespace
} // namespace comfortics::batch
