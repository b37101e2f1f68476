// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/calculation.h"

#include "test_desk.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace comfortics::core {
namespace {

using formulas::Live;
using tests::Bench;

constexpr std::array<std::string_view, kReadingCount> kDay{"25", "", "500", "", "50", "2"};

std::string allTexts(const Bench& bench)
{
    std::string all;
    for (int index = 1; index <= static_cast<int>(kIndexCount); ++index)
        all += bench.value(index) + ";";
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i)
        all += bench.live(static_cast<Live>(i)) + ";";
    return all;
}

TEST(Calculation, ATypedGlobeLeavesTheRadiationCaptionBlankUntilIndex200)
{
    Bench bench;
    bench.settings.selection.set(196, false); // fails without a radiation text
    ASSERT_EQ(bench.run({"25", "32", "", "", "50", "2"}), RunStatus::Ok);
    // Entry 159 is written by the model of index 200 as a plain number, after its own block gave 0.0.
    EXPECT_EQ(bench.value(159).find('.'), std::string::npos);
    EXPECT_EQ(bench.live(Live::SR), bench.value(159));
    EXPECT_EQ(bench.live(Live::Tg), "32.00000");

    bench.settings.selection.set(200, false);
    ASSERT_EQ(bench.calculation.run(bench.settings), RunStatus::Ok);
    EXPECT_EQ(bench.value(159), "0.0");
    EXPECT_EQ(bench.live(Live::SR), "");
    EXPECT_EQ(bench.calculation.outcome(200).kind, OutcomeKind::NotSelected);

    // Not selected itself, entry 159 is blanked at the end whatever index 200 wrote.
    bench.settings.selection.set(200, true);
    bench.settings.selection.set(159, false);
    ASSERT_EQ(bench.calculation.run(bench.settings), RunStatus::Ok);
    EXPECT_EQ(bench.value(159), "");
}

TEST(Calculation, ModelsOverwriteTheHumidityCaptionsAsTheyRunAgain)
{
    // The dew point of index 208 comes from the humidity and is written with two leading digits.
    Bench bench;
    bench.settings.selection.set(196, false); // fails without a humidity text
    ASSERT_EQ(bench.run({"25", "", "500", "13", "", "2"}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Td), "13.01644");
    bench.settings.selection.set(208, false);
    bench.calculation.run(bench.settings);
    EXPECT_EQ(bench.live(Live::Td), "13.00000");
}

TEST(Calculation, RejectsWithoutAWordAndKeepsTheCaptions)
{
    Bench bench;
    bench.run(kDay);
    bench.calculation.readings.txt_WS.setText("");
    EXPECT_EQ(bench.calculation.run(bench.settings), RunStatus::Rejected);
    EXPECT_EQ(bench.value(80), "");
    EXPECT_EQ(bench.live(Live::Ta), "25.00000");
    EXPECT_TRUE(bench.messages.boxes.empty());
    EXPECT_EQ(bench.calculation.outcome(80).kind, OutcomeKind::NotCalculated);

    // A globe far below the air is thrown away.
    EXPECT_EQ(bench.run({"35", "24.9", "", "", "40", "2"}), RunStatus::Rejected);
    EXPECT_EQ(bench.calculation.readings.txt_TG.text(), "");
    EXPECT_NE(bench.run({"35", "25", "", "", "40", "2"}), RunStatus::Rejected);
}

TEST(Calculation, AFailedRunBlanksEverythingAndNamesItsCause)
{
    struct Case {
        std::array<std::string_view, kReadingCount> readings;
        std::string where, sentence;
    };
    const Case cases[] = {
        {{"20", "", "400", "", "50", "2"},
         "UTCI_Regression",
         "in the Universal Thermal Climate Index: the dew point 9.27 reads above the air temperature 20 (the "
         "two are compared as texts)"},
        {{"30", "35", "", "", "50", "2"},
         "index 196",
         "at index 196, Radiative Effective Temperature (Blazejczyk; 2004): type mismatch: the text \"\" is "
         "no number"},
    };
    for (const Case& row : cases) {
        Bench bench;
        bench.run(kDay); // so that there is something to blank
        bench.settings.ignoreLimits = true;
        EXPECT_EQ(bench.run(row.readings), RunStatus::Failed);
        ASSERT_TRUE(bench.calculation.failure().has_value());
        EXPECT_EQ(bench.calculation.failure()->where, row.where);
        const std::string sentence =
            "The calculation stopped " + row.sentence +
            ". By the robust rules (in the options or with --rules robust) it would go on.";
        EXPECT_EQ(bench.calculation.failure()->sentence(), sentence);
        EXPECT_EQ(allTexts(bench), std::string(kIndexCount + formulas::kLiveCount, ';'));
        EXPECT_EQ(bench.calculation.whyBlank(134), sentence);

        // The program lives on.
        EXPECT_EQ(bench.run(kDay), RunStatus::Ok);
        EXPECT_EQ(bench.calculation.failure(), std::nullopt);
    }
}

// By the robust rules no run fails; what the readings cannot give is blank and says why.
TEST(Calculation, RobustRulesLiftWhatEndsAClassicRun)
{
    Bench bench;
    bench.settings.rules = Rules::Robust;

    // A dew point that only reads above the air temperature is no failure at all.
    ASSERT_EQ(bench.run({"20", "", "400", "", "50", "2"}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Td).substr(0, 4), "09.2");
    EXPECT_NE(bench.value(195), "");

    // Saturated air: the search that has no end by the classic rules ends with the dew point.
    ASSERT_EQ(bench.run({"10", "", "200", "10", "", "2"}), RunStatus::Ok);
    EXPECT_NE(bench.live(Live::Tpwb), "");

    // Humidity 0 has no dew point: whoever reads it or what the wet bulbs give is blank.
    ASSERT_EQ(bench.run({"30", "", "400", "", "0", "2"}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Td), "");
    EXPECT_EQ(bench.live(Live::Ea) + bench.live(Live::Tnwb), "");
    EXPECT_EQ(bench.calculation.whyBlank(52),
              "Td is not available: logarithm of a number not above zero (0).");
    EXPECT_EQ(bench.value(8), "26.0");
    EXPECT_EQ(bench.calculation.failure(), std::nullopt);

    // The search finds a radiation, then the wet bulb fails on a dew point that no air has.
    ASSERT_EQ(bench.run({"30", "40", "", "-675", "", "2"}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::SR) + bench.value(159) + bench.value(200), "");
    EXPECT_NE(bench.calculation.whyBlank(159), "");

    // Nothing of a lost quantity stays behind for the next run.
    ASSERT_EQ(bench.run({"30", "", "400", "", "50", "2"}), RunStatus::Ok);
    EXPECT_EQ(bench.value(52), "18.4");
}

TEST(Calculation, ByTheRobustRulesASignAloneCountsAsNothingTyped)
{
    using enum Reading;
    using Readings = std::array<std::string_view, 6>; // TA, TG, SR, DP, RH, WS
    const Readings cold{"5", "", "500", "", "50", "2"};
    const Readings warm{"30", "33", "", "12", "", "2"};
    for (const auto& [typed, box, unfinished] :
         {std::tuple(cold, TG, "-"), {cold, DP, "-"}, {warm, SR, "."}, {warm, RH, "."}}) {
        SCOPED_TRACE(std::string(unfinished) + " in box " + std::to_string(static_cast<int>(box)));
        Bench without;
        without.settings.rules = Rules::Robust;
        EXPECT_EQ(without.run(typed), RunStatus::Ok);
        Bench with;
        with.run(typed);
        with.calculation.readings.box(box).setText(unfinished);
        EXPECT_EQ(with.calculation.run(with.settings), RunStatus::Failed);
        with.settings.rules = Rules::Robust;
        EXPECT_EQ(with.calculation.run(with.settings), RunStatus::Ok);
        EXPECT_EQ(allTexts(with), allTexts(without));
    }
}

TEST(Calculation, AssumptionsAreReadAtEachRun)
{
    Bench bench;
    bench.run(kDay);
    bench.calculation.assumptions.txt_Friction.setText("0.5x");
    bench.calculation.run(bench.settings);
    EXPECT_EQ(bench.value(216), "6.0"); // 2 / 0.11 ^ 0.5
}

TEST(Calculation, DoesNotDependOnEarlierRunsNorOnNeighboursNorOnTheRules)
{
    const std::array<std::array<std::string_view, kReadingCount>, 3> inputs{
        {kDay, {"36.6", "", "900", "", "33", "4.4"}, {"31", "", "0", "", "71", "0.3"}}};
    std::array<std::string, inputs.size()> expected;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        Bench fresh;
        fresh.run(inputs[i]);
        expected[i] = allTexts(fresh);
        fresh.settings.rules = Rules::Robust;
        fresh.run(inputs[i]);
        EXPECT_EQ(allTexts(fresh), expected[i]) << "where both rules give any text, it is the same";
    }
    std::array<std::array<std::string, inputs.size()>, 3> seen;
    {
        std::vector<std::jthread> threads;
        for (std::size_t t = 0; t < seen.size(); ++t)
            threads.emplace_back([&, t] {
                Bench own;
                for (std::size_t i = t; i < t + inputs.size(); ++i) {
                    own.run(inputs[i % inputs.size()]);
                    seen[t][i % inputs.size()] = allTexts(own);
                }
            });
    }
    for (const auto& thread : seen)
        EXPECT_EQ(thread, expected);
}

} // namespace
} // namespace comfortics::core
