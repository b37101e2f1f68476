// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/status_line.h"

#include "../core/test_desk.h"

#include <gtest/gtest.h>

#include <string>

namespace comfortics::shell {
namespace {

// All bounds are 0 but those of index 35, which lies outside of its wind alone.
TEST(StatusLine, CountsTheIndicesByWhatBecameOfThem)
{
    struct Row {
        std::string name;
        const char* RH;
        std::vector<int> selected; // 134 is the relative humidity, 52 the dew point
        std::string says;
        core::Rules rules = core::Rules::Classic;
    };
    const Row rows[] = {
        {"none", "50", {35}, "0 indices have a value, 1 outside the limits, 221 not selected."},
        {"one", "50", {134}, "1 index has a value, 221 not selected."},
        {"more", "50", {5, 24, 35, 134}, "2 indices have a value, 2 outside the limits, 218 not selected."},
        {"no humidity has no dew point",
         "0",
         {52, 134},
         "1 index has a value, 1 failed, 220 not selected.",
         core::Rules::Robust},
    };
    for (const Row& row : rows) {
        tests::Bench bench(core::Limits::fromText("[INDICES]\nTair_max_35=50\nWS_max_35=1\n"));
        EXPECT_EQ(statusLine(bench.calculation), "Nothing was calculated: the air temperature is missing.");
        bench.calculation.readings.write({"30", "", "600", "", row.RH, "2"});
        EXPECT_EQ(statusLine(bench.calculation), "Nothing was calculated yet.");
        bench.settings.rules = row.rules;
        bench.settings.selection = core::Selection::none();
        for (const int index : row.selected)
            bench.settings.selection.set(index, true);
        ASSERT_EQ(bench.calculation.run(bench.settings), core::RunStatus::Ok);
        EXPECT_EQ(statusLine(bench.calculation), row.says) << row.name;
    }
}

TEST(StatusLine, TellsAFailedRun)
{
    tests::Bench bench;
    bench.calculation.readings.write({"20", "", "500", "", "50", "2"});
    ASSERT_EQ(bench.calculation.run(bench.settings), core::RunStatus::Failed);
    EXPECT_EQ(statusLine(bench.calculation), bench.calculation.failure()->sentence());
}

TEST(LimitsWarning, WarnsOfLimitsWithoutABound)
{
    const std::pair<const char*, bool> rows[] = {
        {"", true},
        {"[OTHER]\nTair_max_3=20\n", true},
        {"[INDICES]\nTair_max_222=20\n", false},
        {"[INDICES]\nTair_min_1=-20\n", false},
    };
    for (const auto& [text, warns] : rows)
        EXPECT_EQ(!limitsWarning(core::Limits::fromText(text)).empty(), warns) << text;
}

} // namespace
} // namespace comfortics::shell
