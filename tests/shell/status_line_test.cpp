// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/status_line.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace comfortics::shell {
namespace {

struct SilentMessages final : controls::Messages {
    controls::Answer show(const controls::MessageBox&) override { return controls::Answer::Ok; }
};

struct Bench {
    core::Limits limits;
    SilentMessages messages;
    core::Calculation calculation{limits, messages};
    core::Settings settings;
};

TEST(StatusLine, NamesWhatIsMissing)
{
    Bench bench;
    EXPECT_EQ(statusLine(bench.calculation), "Nothing was calculated: the air temperature is missing.");
    bench.calculation.readings.write({"30", "", "600", "", "50", "2"});
    EXPECT_EQ(statusLine(bench.calculation), "Nothing was calculated yet.");
}

TEST(StatusLine, TellsAFailedRun)
{
    Bench bench;
    bench.calculation.readings.write({"20", "", "500", "", "50", "2"});
    ASSERT_EQ(bench.calculation.run(bench.settings), core::RunStatus::Failed);
    EXPECT_EQ(statusLine(bench.calculation), bench.calculation.failure()->sentence());
}

TEST(StatusLine, CountsTheIndicesByWhatBecameOfThem)
{
    Bench bench;
    bench.calculation.readings.write({"30", "", "600", "", "50", "2"});
    bench.settings.selection = core::Selection::none();
    bench.settings.selection.set(134, true); // relative humidity: no limits
    ASSERT_EQ(bench.calculation.run(bench.settings), core::RunStatus::Ok);
    EXPECT_EQ(statusLine(bench.calculation), "1 index has a value, 221 not selected.");
    bench.settings.selection.set(35, true); // all bounds are 0 here
    bench.settings.selection.set(5, true);
    ASSERT_EQ(bench.calculation.run(bench.settings), core::RunStatus::Ok);
    EXPECT_EQ(statusLine(bench.calculation),
              "2 indices have a value, 1 outside the limits, 219 not selected.");
}

TEST(StatusLine, CountsWhatFailedForItselfByTheRobustRules)
{
    Bench bench;
    bench.calculation.readings.write({"30", "", "600", "", "0", "2"}); // no humidity has no dew point
    bench.settings.rules = core::Rules::Robust;
    bench.settings.selection = core::Selection::none();
    bench.settings.selection.set(52, true);  // dew point
    bench.settings.selection.set(134, true); // relative humidity
    ASSERT_EQ(bench.calculation.run(bench.settings), core::RunStatus::Ok);
    EXPECT_EQ(statusLine(bench.calculation), "1 index has a value, 1 failed, 220 not selected.");
}

TEST(StatusLine, TheCountsAreThoseOfTheTable)
{
    Bench bench;
    bench.calculation.readings.write({"30", "", "600", "", "50", "2"});
    bench.settings.ignoreLimits = true;
    ASSERT_EQ(bench.calculation.run(bench.settings), core::RunStatus::Ok);
    const auto& values = bench.calculation.results.lbl_results;
    const auto shown = std::count_if(values.begin() + 1, values.end(),
                                     [](const controls::Label& one) { return !one.caption().empty(); });
    EXPECT_TRUE(statusLine(bench.calculation).starts_with(std::to_string(shown) + " indices have a value"))
        << statusLine(bench.calculation) << "\nshown: " << shown;
}

TEST(LimitsWarning, WarnsOfLimitsWithoutABound)
{
    EXPECT_NE(limitsWarning(core::Limits::fromText("")), "");
    EXPECT_NE(limitsWarning(core::Limits::fromText("[OTHER]\nTair_max_3=20\n")), "");
    EXPECT_EQ(limitsWarning(core::Limits::fromText("[INDICES]\nTair_max_222=20\n")), "");
    EXPECT_EQ(limitsWarning(core::Limits::fromText("[INDICES]\nTair_min_1=-20\n")), "");
}

} // namespace
} // namespace comfortics::shell
