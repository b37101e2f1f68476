// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/calculation.h"

#include "test_desk.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

namespace comfortics::core {
namespace {

using formulas::Live;
using tests::Bench;
using enum Reading;

void expectAllBlank(const Bench& bench)
{
    for (int index = 1; index <= static_cast<int>(kIndexCount); ++index)
        EXPECT_EQ(bench.value(index), "") << index;
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i)
        EXPECT_EQ(bench.live(static_cast<Live>(i)), "") << i;
}

// Expected texts: a separate plain implementation of the models, written from their published form.
TEST(Calculation, DerivesWhatWasNotGiven)
{
    Bench bench;
    ASSERT_EQ(bench.run({{TA, "25"}, {SR, "500"}, {RH, "50"}, {WS, "2"}}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Ta), "25.00000");
    EXPECT_EQ(bench.live(Live::WS), "2.00000");
    EXPECT_EQ(bench.live(Live::SR), "500.00000");
    EXPECT_EQ(bench.live(Live::RH), "50.00000");
    EXPECT_EQ(bench.live(Live::Es), "31.69920");
    EXPECT_EQ(bench.value(134), "50.0");
    EXPECT_EQ(bench.value(140), "31.7");
    EXPECT_EQ(bench.value(159), "500.0");
    EXPECT_EQ(bench.value(80), "32.4");          // the globe that the radiant model derives, at 60 % humidity
    EXPECT_EQ(bench.live(Live::Tg), "32.23330"); // that of the outdoor WBGT, once index 200 has run
    EXPECT_EQ(bench.value(201), "19.0");
    EXPECT_EQ(bench.value(200), "22.2");
    EXPECT_EQ(bench.value(199), "20.2");
    EXPECT_EQ(bench.value(100), "54.5");
}

TEST(Calculation, ATypedGlobeLeavesTheRadiationCaptionBlankUntilIndex200)
{
    Bench bench;
    bench.settings.selection.set(196, false); // fails without a radiation text
    ASSERT_EQ(bench.run({{TA, "25"}, {TG, "32"}, {RH, "50"}, {WS, "2"}}), RunStatus::Ok);
    // Entry 159 is written by the model of index 200 as a plain number, after its own block gave 0.0.
    EXPECT_EQ(bench.value(159).find('.'), std::string::npos);
    EXPECT_EQ(bench.live(Live::SR), bench.value(159));
    EXPECT_EQ(bench.live(Live::Tg), "32.00000");

    bench.settings.selection.set(200, false);
    ASSERT_EQ(bench.calculation.run(bench.settings), RunStatus::Ok);
    EXPECT_EQ(bench.value(159), "0.0");
    EXPECT_EQ(bench.live(Live::SR), "");
    EXPECT_EQ(bench.value(200), "");
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
    ASSERT_EQ(bench.run({{TA, "25"}, {SR, "500"}, {DP, "13"}, {WS, "2"}}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Td), "13.01644");
    bench.settings.selection.set(208, false);
    bench.calculation.run(bench.settings);
    EXPECT_EQ(bench.live(Live::Td), "13.00000");
}

TEST(Calculation, RejectsWithoutAWordAndKeepsTheCaptions)
{
    Bench bench;
    bench.run({{TA, "25"}, {SR, "500"}, {RH, "50"}, {WS, "2"}});
    bench.calculation.readings.txt_WS.setText("");
    EXPECT_EQ(bench.calculation.run(bench.settings), RunStatus::Rejected);
    EXPECT_EQ(bench.value(80), "");
    EXPECT_EQ(bench.live(Live::Ta), "25.00000");
    EXPECT_TRUE(bench.messages.boxes.empty());
    EXPECT_EQ(bench.calculation.outcome(80).kind, OutcomeKind::NotCalculated);
}

TEST(Calculation, AGlobeFarBelowTheAirIsThrownAway)
{
    Bench bench;
    EXPECT_EQ(bench.run({{TA, "35"}, {TG, "24.9"}, {RH, "40"}, {WS, "2"}}), RunStatus::Rejected);
    EXPECT_EQ(bench.calculation.readings.txt_TG.text(), "");
    EXPECT_NE(bench.run({{TA, "35"}, {TG, "25"}, {RH, "40"}, {WS, "2"}}), RunStatus::Rejected);
    EXPECT_EQ(bench.calculation.readings.txt_TG.text(), "25");
}

struct FailingCase {
    std::string name;
    std::array<const char*, 6> readings; // TA TG SR DP RH WS, empty ones not written
    std::string where;
    std::string sentence;
};

TEST(Calculation, AFailedRunBlanksEverythingAndNamesItsCause)
{
    const std::array cases{
        FailingCase{
            "a dew point that reads above the air temperature as text",
            {"20", "", "400", "", "50", "2"},
            "UTCI_Regression",
            "The calculation stopped in the Universal Thermal Climate Index: the dew point 9.27 reads above "
            "the air temperature 20 (the two are compared as texts). By the robust rules only "
            "what depends on it would be blank."},
        FailingCase{
            "humidity 0",
            {"30", "", "400", "", "0", "2"},
            "UTCI_Regression",
            "The calculation stopped in the Universal Thermal Climate Index: logarithm of a number not above "
            "zero (0). By the robust rules only what depends on it would be blank."},
        FailingCase{
            "a typed globe without radiation, with index 196 selected whatever the limits",
            {"30", "35", "", "", "50", "2"},
            "index 196",
            "The calculation stopped at index 196, Radiative Effective Temperature (Blazejczyk; 2004): type "
            "mismatch: the text \"\" is no number. By the robust rules only what depends on it would be "
            "blank."},
    };
    for (const FailingCase& row : cases) {
        SCOPED_TRACE(row.name);
        Bench bench;
        // A first good run, so that there is something to blank.
        bench.run({{TA, "25"}, {SR, "500"}, {RH, "50"}, {WS, "2"}});
        bench.calculation.readings.clear();
        bench.settings.ignoreLimits = true;
        for (std::size_t i = 0; i < kReadingCount; ++i)
            if (*row.readings[i] != '\0')
                bench.calculation.readings.box(static_cast<Reading>(i)).setText(row.readings[i]);
        EXPECT_EQ(bench.calculation.run(bench.settings), RunStatus::Failed);
        ASSERT_TRUE(bench.calculation.failure().has_value());
        EXPECT_EQ(bench.calculation.failure()->where, row.where);
        EXPECT_EQ(bench.calculation.failure()->sentence(), row.sentence);
        expectAllBlank(bench);
        EXPECT_EQ(bench.calculation.whyBlank(134), row.sentence);

        // The program lives on.
        bench.calculation.readings.clear();
        bench.settings.ignoreLimits = false;
        EXPECT_EQ(bench.run({{TA, "25"}, {SR, "500"}, {RH, "50"}, {WS, "2"}}), RunStatus::Ok);
        EXPECT_EQ(bench.value(134), "50.0");
    }
}

// By the robust rules no run fails; what the readings cannot give is blank and says why.
TEST(Calculation, RobustRulesLiftWhatEndsAClassicRun)
{
    Bench bench;
    bench.settings.rules = Rules::Robust;

    // A dew point that only reads above the air temperature is no failure at all.
    ASSERT_EQ(bench.run({{TA, "20"}, {SR, "400"}, {RH, "50"}, {WS, "2"}}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Td).substr(0, 4), "09.2");
    for (const int index : {114, 131, 195, 199, 200, 201})
        EXPECT_NE(bench.value(index), "") << index;

    // Saturated air: the search that has no end by the classic rules ends with the dew point.
    bench.calculation.readings.clear();
    ASSERT_EQ(bench.run({{TA, "10"}, {SR, "200"}, {DP, "10"}, {WS, "2"}}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Tpwb).empty(), false);

    // Humidity 0 has no dew point: whoever reads it or what the wet bulbs give is blank.
    bench.calculation.readings.clear();
    ASSERT_EQ(bench.run({{TA, "30"}, {SR, "400"}, {RH, "0"}, {WS, "2"}}), RunStatus::Ok);
    EXPECT_EQ(bench.live(Live::Td), "");
    EXPECT_EQ(bench.live(Live::Ea), "");
    EXPECT_EQ(bench.value(52), "");
    EXPECT_EQ(bench.value(200), "");
    EXPECT_EQ(bench.calculation.whyBlank(52),
              "Td is not available: logarithm of a number not above zero (0).");
    EXPECT_EQ(bench.value(8), "26.0");
    EXPECT_NE(bench.value(100), ""); // the radiant temperature needs no humidity
    EXPECT_EQ(bench.calculation.failure(), std::nullopt);
    EXPECT_TRUE(bench.messages.boxes.empty());

    // Nothing of a lost quantity stays behind for the next run.
    bench.calculation.readings.clear();
    ASSERT_EQ(bench.run({{TA, "30"}, {SR, "400"}, {RH, "50"}, {WS, "2"}}), RunStatus::Ok);
    EXPECT_EQ(bench.value(52), "18.4");
}

TEST(Calculation, TheRulesGiveTheSameTextsWhereBothGiveAny)
{
    const std::array<std::array<const char*, 6>, 4> readings{{{"25", "", "500", "", "50", "2"},
                                                              {"31.5", "36", "", "", "44", "1"},
                                                              {"36", "", "950", "21", "", "5.5"},
                                                              {"-4", "", "100", "-11", "", "3"}}};
    for (const auto& texts : readings) {
        Bench classic;
        classic.settings.ignoreLimits = true;
        classic.settings.selection.set(196, false);
        Bench robust;
        robust.settings = classic.settings;
        robust.settings.rules = Rules::Robust;
        for (Bench* bench : {&classic, &robust}) {
            for (std::size_t i = 0; i < kReadingCount; ++i)
                bench->calculation.readings.box(static_cast<Reading>(i)).setText(texts[i]);
            ASSERT_EQ(bench->calculation.run(bench->settings), RunStatus::Ok) << texts[0];
        }
        for (int index = 1; index <= static_cast<int>(kIndexCount); ++index)
            EXPECT_EQ(robust.value(index), classic.value(index)) << index << " at " << texts[0];
        for (std::size_t i = 0; i < formulas::kLiveCount; ++i)
            EXPECT_EQ(robust.live(static_cast<Live>(i)), classic.live(static_cast<Live>(i))) << i;
    }
}

TEST(Calculation, BothOfAPairFailInTheFirstModel)
{
    // A trailing minus sign keeps the globe temperature beside a full radiation.
    Bench bench;
    EXPECT_EQ(bench.run({{TA, "30"}, {SR, "500"}, {RH, "50"}, {WS, "2"}, {TG, "25-"}}), RunStatus::Failed);
    EXPECT_EQ(bench.calculation.failure()->where, "UTCI_Regression");
}

TEST(Calculation, AssumptionsAreReadAtEachRun)
{
    Bench bench;
    bench.settings.selection = Selection::none();
    bench.settings.selection.set(216, true);
    bench.run({{TA, "25"}, {SR, "500"}, {RH, "50"}, {WS, "2"}});
    EXPECT_EQ(bench.value(216), "3.1"); // 2 / 0.11 ^ 0.2
    bench.calculation.assumptions.txt_Friction.setText("0.5x");
    bench.calculation.run(bench.settings);
    EXPECT_EQ(bench.value(216), "6.0"); // 2 / 0.11 ^ 0.5
    bench.calculation.assumptions.txt_Friction.setText("");
    bench.calculation.run(bench.settings);
    EXPECT_EQ(bench.value(216), "2.0");
}

TEST(Calculation, DoesNotDependOnEarlierRunsNorOnNeighbours)
{
    const std::array<std::array<const char*, 4>, 4> inputs{{{"25", "500", "50", "2"},
                                                            {"36.6", "900", "33", "4.4"},
                                                            {"31", "0", "71", "0.3"},
                                                            {"28", "120", "66", "9"}}};
    const auto resultsOf = [](Bench& bench, const std::array<const char*, 4>& row) {
        bench.calculation.readings.clear();
        bench.run({{TA, row[0]}, {SR, row[1]}, {RH, row[2]}, {WS, row[3]}});
        std::string all;
        for (int index = 1; index <= static_cast<int>(kIndexCount); ++index)
            all += bench.value(index) + ";";
        return all;
    };
    std::array<std::string, 4> expected;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        Bench fresh;
        expected[i] = resultsOf(fresh, inputs[i]);
    }
    std::array<std::array<std::string, 4>, 4> seen;
    {
        std::vector<std::jthread> threads;
        for (std::size_t t = 0; t < seen.size(); ++t)
            threads.emplace_back([&, t] {
                Bench own;
                for (std::size_t i = 0; i < inputs.size(); ++i)
                    seen[t][(i + t) % inputs.size()] = resultsOf(own, inputs[(i + t) % inputs.size()]);
            });
    }
    for (const auto& thread : seen)
        EXPECT_EQ(thread, expected);
}

} // namespace
} // namespace comfortics::core
