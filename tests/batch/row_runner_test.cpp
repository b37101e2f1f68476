// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/row_runner.h"

#include "batch_desk.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::batch {
namespace {

TEST(RowRunner, SaysWhatBecameOfARow)
{
    struct Row {
        std::string name;
        std::array<std::string_view, core::kReadingCount> cells; // Ta Tg SR Td RH WS
        RowStatus status;
        std::string text;
    };
    using enum RowStatus;
    const std::vector<Row> rows{
        {"sound", {"30", "", "600", "", "50", "2"}, Calculated, "ok"},
        {"solar radiation beats globe", {"30", "abc", "600", "", "50", "2"}, Calculated, "ok"},
        {"a wind of 0 becomes 0.1", {"30", "", "600", "", "50", "0"}, Calculated, "ok"},
        {"commas", {"30,5", "", "600", "", "50,5", "2,5"}, Calculated, "ok"},
        {"no air temperature",
         {"", "", "600", "", "50", "2"},
         Skipped,
         "skipped: the air temperature is missing"},
        {"too hot", {"58.1", "", "600", "", "50", "2"}, Skipped, "skipped: the air temperature is missing"},
        {"lone sign", {"-", "", "600", "", "50", "2"}, Skipped, "skipped: the air temperature is no number"},
        {"letters for the wind",
         {"30", "", "600", "", "50", "calm"},
         Skipped,
         "skipped: the wind speed is missing"},
        {"neither of a pair",
         {"30", "", "1368", "", "50", "2"},
         Skipped,
         "skipped: globe temperature or solar radiation is missing"},
        {"dew point above air temperature",
         {"20", "", "600", "20.1", "", "2"},
         Skipped,
         "skipped: dew point or relative humidity is missing"},
        {"globe far below air temperature",
         {"30", "19", "", "", "50", "2"},
         Skipped,
         "skipped: globe temperature or solar radiation is missing"},
        {"dew point above air temperature as texts",
         {"20", "", "600", "9.3", "", "2"},
         Failed,
         "failed: The calculation stopped in the Universal Thermal Climate Index: the dew point 9.3 reads "
         "above the "
         "air temperature 20 (the two are compared as texts)"},
    };
    const core::Limits limits = tests::projectLimits();
    RowRunner runner(limits, {});
    for (const Row& row : rows) {
        EXPECT_EQ(runner.run(row.cells), row.status) << row.name;
        EXPECT_EQ(runner.statusText().substr(0, row.text.size()), row.text) << row.name;
        EXPECT_TRUE(row.status == Failed || runner.statusText() == row.text) << row.name;
    }
    EXPECT_EQ(runner.counts().calculated, 4U);
    EXPECT_EQ(runner.counts().skipped, 7U);
    EXPECT_EQ(runner.counts().failed, 1U);
    EXPECT_EQ(runner.counts().total(), rows.size());
}

TEST(RowRunner, StartsEachRowFromEmptyBoxes)
{
    const core::Limits limits = tests::projectLimits();
    RowRunner runner(limits, {});
    const auto valueOf = [&](int index) {
        return runner.calculation().results.lbl_results[static_cast<std::size_t>(index)].caption();
    };
    runner.run({"30", "", "600", "20", "", "2"});
    EXPECT_EQ(valueOf(159), "600.0");
    // The dew point of the row before would stand, as it is written anew without a change.
    EXPECT_EQ(runner.run({"10", "", "600", "20", "", "2"}), RowStatus::Skipped);
    EXPECT_EQ(runner.run({"30", "", "", "", "50", "2"}), RowStatus::Skipped);
}

} // namespace
} // namespace comfortics::batch
