// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/calculation.h"

#include "test_desk.h"

#include "values/plain_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

namespace comfortics::classic {
namespace {

using catalogue::CatalogueRow;
using catalogue::Input;
using catalogue::kIndexCount;
using catalogue::kLastIndex;
using catalogue::liveOf;
using formulas::Live;
using tests::Bench;

constexpr std::array<std::string_view, kReadingCount> kDay{"25", "", "500", "", "50", "2"};

std::string allTexts(const Bench& bench)
{
    std::string all;
    for (int index = 1; index <= kLastIndex; ++index)
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
    EXPECT_EQ(values::plainText(bench.calculation.outcome(159).value), bench.value(159));
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
        const std::string sentence = "The calculation stopped " + row.sentence +
                                     ". By the robust rules (in the options) it would go on.";
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

// Sensible readings of all seasons: nothing fails, all quantities stand, and where the classic rules have a
// value without a word it is the same text.
// The precise rules have values, too, and stay by them within what tolerances and steps leave open.
TEST(Calculation, RobustAndPreciseRulesAnswerEverySensibleReading)
{
    std::mt19937 engine(20261123);
    const auto between = [&engine](double low, double high) {
        return texts::format(std::uniform_real_distribution<>(low, high)(engine), values::kFormat0_0);
    };
    Bench classic;
    Bench robust;
    robust.settings.rules = Rules::Robust;
    Bench precise;
    precise.settings.rules = Rules::Precise;
    classic.settings.ignoreLimits = robust.settings.ignoreLimits = precise.settings.ignoreLimits = true;
    int compared = 0;
    for (int i = 0; i < 300; ++i) {
        const std::string Ta = between(-45, 50);
        const std::string SR = between(0, i % 4 == 0 ? 0 : 1367);
        const std::string RH = between(i % 3 == 0 ? 100 : 1, 100);
        const std::string WS = between(0.1, i % 2 == 0 ? 2 : 30);
        SCOPED_TRACE("Ta " + Ta + " SR " + SR + " RH " + RH + " WS " + WS);
        ASSERT_EQ(robust.run({Ta, "", SR, "", RH, WS}), RunStatus::Ok);
        ASSERT_TRUE(robust.messages.boxes.empty());
        for (std::size_t quantity = 0; quantity < formulas::kLiveCount; ++quantity)
            EXPECT_NE(robust.live(static_cast<Live>(quantity)), "") << quantity;
        EXPECT_NE(robust.value(195) + robust.value(200), "");
        const double Tnwb = texts::val(robust.live(Live::Tnwb));
        EXPECT_NEAR(texts::val(robust.value(200)),
                    0.7 * Tnwb + 0.2 * texts::val(robust.live(Live::Tg)) + 0.1 * texts::val(Ta), 0.06);

        ASSERT_EQ(precise.run({Ta, "", SR, "", RH, WS}), RunStatus::Ok);
        for (std::size_t quantity = 0; quantity < formulas::kLiveCount; ++quantity)
            EXPECT_NE(precise.live(static_cast<Live>(quantity)), "") << quantity;
        for (const Live quantity : {Live::Ta, Live::RH, Live::Es, Live::Ea, Live::Td})
            EXPECT_NEAR(texts::val(precise.live(quantity)), texts::val(robust.live(quantity)), 2e-5);
        for (const Live quantity : {Live::Tnwb, Live::Tpwb})
            EXPECT_NEAR(texts::val(precise.live(quantity)), texts::val(robust.live(quantity)), 0.25);
        EXPECT_NEAR(texts::val(precise.value(200)), texts::val(robust.value(200)), 0.3);
        EXPECT_NEAR(texts::val(precise.value(120)), texts::val(robust.value(120)), 1.0);
        EXPECT_EQ(precise.value(90), robust.value(90));
        EXPECT_EQ(precise.value(200),
                  texts::format(precise.calculation.outcome(200).value, values::kFormat0_0));

        classic.messages.boxes.clear();
        if (classic.run({Ta, "", SR, "", RH, WS}) != RunStatus::Ok || !classic.messages.boxes.empty())
            continue;
        ++compared;
        EXPECT_EQ(allTexts(classic), allTexts(robust));
    }
    EXPECT_GT(compared, 40);
}

TEST(Calculation, WhatIsTypedLastCountsThoughItEndsWithAPoint)
{
    for (const Rules rules : {Rules::Robust, Rules::Precise}) {
        SCOPED_TRACE(ruleName(rules));
        Bench bench;
        bench.settings.rules = rules;
        ASSERT_EQ(bench.run({"25", "30", "500.", "10", "50.", "0."}), RunStatus::Ok);
        EXPECT_EQ(bench.live(Live::SR), "500.00000");
        EXPECT_EQ(bench.live(Live::RH), "50.00000");
        EXPECT_EQ(bench.live(Live::WS), "0.10000");
        ASSERT_EQ(bench.run({"25", "30", "5000.", "", "50", "2"}), RunStatus::Ok);
        EXPECT_EQ(bench.live(Live::SR), "");
    }
}

TEST(Calculation, ByThePreciseRulesNothingIsRoundedAndEachBlankSaysWhy)
{
    Bench bench{classic::Limits::fromText(
        "[INDICES]\r\nTair_min_98=9.5\r\nTair_max_98=30\r\nTair_min_90=20\r\nTair_max_90=55\r\nTair_min_195=-"
        "50\r\nTair_max_195=50\r\nWS_min_195=0.5\r\nWS_max_195=17\r\n")};
    bench.settings.rules = Rules::Precise;
    ASSERT_EQ(bench.run({"23.456", "", "400.7", "", "50.25", "2.375"}), RunStatus::Ok);
    EXPECT_EQ(bench.calculation.readings.txt_TA.text(), "23.456");
    EXPECT_EQ(bench.live(Live::Ta), "23.45600");
    EXPECT_EQ(bench.live(Live::SR), "400.70000");
    EXPECT_NE(bench.value(90), "");
    // The mean of radiant and air temperature is above 30, and as a text above "9.5".
    EXPECT_EQ(bench.value(98), "");
    const std::string& live = bench.live(Live::Tmrt);
    const double mean = (texts::val(live) + 23.456) / 2;
    EXPECT_TRUE(bench.calculation.whyBlank(98).starts_with(
        "Outside its limits: (Tmrt + Ta) / 2 is " + texts::format(mean, values::kFormat0_00).substr(0, 4)))
        << bench.calculation.whyBlank(98);
    EXPECT_EQ(bench.calculation.whyBlank(98).find("texts"), std::string::npos);

    bench.settings.ignoreLimits = true;
    ASSERT_EQ(bench.run({"10", "", "0", "", "50", "40"}), RunStatus::Ok);
    EXPECT_TRUE(bench.calculation.whyDoubtful(195).starts_with(
        "Shown since limits are ignored. Outside its limits: the wind at 10 m is 62."))
        << bench.calculation.whyDoubtful(195);
    EXPECT_EQ(bench.run({"10", "", "0", "", "", "40"}), RunStatus::Rejected);
    EXPECT_EQ(bench.value(90), "");
}

TEST(Calculation, ByTheRobustRulesNothingStandsOnAQuantityWithoutAValue)
{
    using Readings = std::array<std::string_view, kReadingCount>; // TA, TG, SR, DP, RH, WS
    const struct {
        Readings readings;
        std::vector<Live> blank;
        std::vector<std::pair<int, std::string>> whyBlank;
    } rows[] = {
        {{"25", "66.5", "", "", "50", "2"},
         {Live::SR, Live::Tnwb},
         {{159, "SR is not available: no solar radiation up to 1376 W/m² brings the globe to 66.5 °C."},
          {200, "The outdoor WBGT is not available: no solar radiation up to 1376 W/m² brings the globe to "
                "66.5 °C."}}},
        {{"20", "", "300", "-300", "", "2"},
         {Live::Td, Live::RH, Live::Tnwb, Live::Tpwb, Live::Ea},
         {{52, "Td is not available: the dew point -300 °C is below absolute zero, -273.15 °C."},
          {174, "Td is not available: the dew point -300 °C is below absolute zero, -273.15 °C."},
          {195, "The formula fails: the dew point -300 °C is below absolute zero, -273.15 °C."}}},
        {{"-280", "", "300", "", "50", "2"},
         {Live::Ta, Live::Tg, Live::Td, Live::Tmrt, Live::Tnwb, Live::Tpwb, Live::Es, Live::Ea},
         {{80, "Tg is not available: the air temperature -280 °C is below absolute zero, -273.15 °C."},
          {100, "The formula fails: the air temperature -280 °C is below absolute zero, -273.15 °C."}}},
        {{"-273", "", "300", "", "0.1", "2"}, // the dew point that is derived
         {Live::Td, Live::Tnwb, Live::Tpwb, Live::Ea},
         {{52, "Td is not available: the dew point -275.29 °C is below absolute zero, -273.15 °C."}}},
        {{"-268", "-274", "", "", "50", "2"},
         {Live::Tg, Live::SR, Live::Tmrt, Live::Tnwb},
         {{80, "Tg is not available: the globe temperature -274 °C is below absolute zero, -273.15 °C."}}},
    };
    for (const auto& row : rows) {
        Bench bench;
        bench.settings.rules = Rules::Robust;
        bench.settings.ignoreLimits = true;
        bench.run(kDay); // whose figures must not stay
        ASSERT_EQ(bench.run(row.readings), RunStatus::Ok);
        for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
            const auto quantity = static_cast<Live>(i);
            const bool blank = std::find(row.blank.begin(), row.blank.end(), quantity) != row.blank.end();
            EXPECT_EQ(bench.live(quantity).empty(), blank) << i;
            for (const CatalogueRow& index : catalogue::rows())
                for (const Input input : index.robustInputs.size() > 0 ? index.robustInputs : index.inputs)
                    if (blank && liveOf(input) == quantity) {
                        EXPECT_EQ(bench.value(index.number), "") << index.number;
                    }
        }
        for (const auto& [index, why] : row.whyBlank)
            EXPECT_EQ(bench.calculation.whyBlank(index), why);
    }
}

// The search finds no end for hundreds of candidates: from the second message on the user can have enough.
TEST(Calculation, OffersToHideTheMessagesOfOneCalculation)
{
    const std::array<std::string_view, kReadingCount> gale{"0", "0.5", "", "", "50", "30"};
    Bench patient;
    patient.run(gale);
    ASSERT_GT(patient.messages.boxes.size(), 100U);
    EXPECT_EQ(patient.messages.boxes[0].checkBox, "");
    EXPECT_EQ(patient.messages.boxes[1].checkBox, "Do not show this again for this calculation");

    Bench hasty;
    hasty.messages.tickBoxes = true;
    for (int run = 1; run <= 2; ++run) { // each calculation anew
        hasty.messages.boxes.clear();
        hasty.run(gale);
        EXPECT_EQ(hasty.messages.boxes.size(), 2U);
        EXPECT_EQ(allTexts(hasty), allTexts(patient));
    }
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
} // namespace comfortics::classic
