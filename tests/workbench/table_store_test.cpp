// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/table_store.h"

#include "station_runs.h"

#include <gtest/gtest.h>

#include <charconv>
#include <random>

namespace comfortics::workbench {
namespace {

using classic::OutcomeKind;

TEST(NumberColumn, TextsComeBackAsTheyWere)
{
    constexpr unsigned kSeed = 51;
    std::mt19937 random(kSeed);
    std::vector<std::string> texts{
        "0",      "-0",        "-0.0", "8388607",   "8388608",  "-8388607",      "-8388608",
        "0.05",   "-0.000001", "1.",   ".5",        "+3",       "007",           "1E+20",
        "Error:", "1.2.3",     "-",    "0.0000001", "83.88607", "12345678901234"};
    const std::string letters = "0123456789.-";
    for (int i = 0; i < 20000; ++i) {
        std::string text;
        for (std::size_t size = 1 + random() % 9; text.size() < size;)
            text += letters[random() % letters.size()];
        texts.push_back(text);
    }
    NumberColumn column;
    for (const std::string& text : texts) {
        column.add(text, NumberColumn::ClassMark{column.size() % 15, column.size() % 2 == 1});
        column.addBlank(OutcomeKind::RunFailed);
    }
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const std::string& text = texts[i];
        ASSERT_EQ(column.text(2 * i), text) << kSeed;
        ASSERT_EQ(column.outcome(2 * i), OutcomeKind::Value);
        ASSERT_EQ(column.mark(2 * i)->place, 2 * i % 15);
        ASSERT_FALSE(column.mark(2 * i)->turned);
        double value = 0;
        const auto read = std::from_chars(text.data(), text.data() + text.size(), value);
        const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
        if (const auto number = column.number(2 * i); number && whole) {
            ASSERT_EQ(*number, value) << text;
        }
        ASSERT_EQ(column.outcome(2 * i + 1), OutcomeKind::RunFailed);
        ASSERT_EQ(column.number(2 * i + 1), std::nullopt);
        ASSERT_EQ(column.text(2 * i + 1), "");
    }
}

// The first row is the worked example of the README.
constexpr auto kTable = "When;Where;T;H;W;S\r\n"
                        "2024-07-01 12:00+02:00;A;30;50;2;600\r\n"
                        "2024-07-01 13:00+02:00;\"B;\n1\";30,5;;2;600\r\n"
                        "2024-07-01 14:00+02:00;A;warm;50;2;600\r\n"
                        "2024-07-01 15:00+02:00;A;-5;50;3;0\r\n";
constexpr auto kMapping = "ta=T,rh=H,ws=W,sr=S,time=When,station=Where";

TEST(TableStore, HoldsWhatTheRunHasGiven)
{
    const auto store =
        tests::storeOf(kTable, kMapping, tests::stationOptions({65, 195, 211}, classic::Rules::Classic));
    ASSERT_EQ(store->rows(), 4U);
    EXPECT_EQ(store->items(), (std::vector<workspace::Item>{65, 195, 211}));
    EXPECT_EQ(store->stations(), (std::vector<std::string>{"A", "B;\n1"}));
    EXPECT_EQ(store->station(3), "A");
    EXPECT_EQ(tables::momentText(*store->time(1)), "2024-07-01T13:00:00+02:00");
    EXPECT_EQ(store->facts().step, 3600.0);

    const std::pair<RowState, std::size_t> states[] = {
        {RowState::Calculated, 2}, {RowState::Skipped, 3}, {RowState::Refused, 5}, {RowState::Calculated, 6}};
    for (std::size_t row = 0; row < 4; ++row) {
        EXPECT_EQ(store->state(row), states[row].first) << row;
        EXPECT_EQ(store->line(row), states[row].second);
    }
    EXPECT_EQ(store->status(0), "ok");
    EXPECT_EQ(store->status(2), "refused: line 5: \"warm\" in the column \"T\" is no number");
    EXPECT_EQ(store->carried(1),
              (std::vector<std::string>{"2024-07-01 13:00+02:00", "B;\n1", "30.5", "", "2", "600"}));
    EXPECT_EQ(store->reading(1, classic::Reading::TA), 30.5);
    EXPECT_EQ(store->reading(1, classic::Reading::RH), std::nullopt);

    EXPECT_EQ(store->figureText(0, 0), "26.0");
    EXPECT_EQ(store->figure(0, 1), 37.0);
    EXPECT_EQ(store->meaning(0, 1)->category->label, "strong heat stress"); // from 32 to below 38 °C
    EXPECT_EQ(store->outcome(0, 2), OutcomeKind::OutsideTemperature);
    EXPECT_EQ(store->whyBlank(0, 2), "Outside its limits: Ta is 30 °C, valid from -50 to 10 °C.");
    EXPECT_TRUE(store->whyBlank(1, 0).starts_with("skipped: "));
    EXPECT_EQ(store->figure(1, 0), std::nullopt);
}

TEST(TableStore, RowsOfAnotherRunTakeThePlaceOfItsOwn)
{
    const auto store = tests::storeOf(kTable, kMapping, tests::stationOptions({65, 195}));
    const auto other = tests::storeOf("T,H,W,S\r\n30,50,2,600\r\n", "ta=T,rh=H,ws=W,sr=S",
                                      tests::stationOptions({65, 195}, classic::Rules::Robust));
    const auto both = store->with({1}, other);
    EXPECT_EQ(both->figureText(1, 0), "26.0");
    EXPECT_EQ(both->figureText(3, 0), store->figureText(3, 0));
    EXPECT_EQ(both->state(1), RowState::Calculated);
    EXPECT_EQ(both->carried(1)[2], "30.5");
    EXPECT_EQ(both->rules(1), classic::Rules::Robust);
    EXPECT_EQ(both->rules(0), classic::Rules::Precise);
    EXPECT_EQ(both->rowsAgain(), 1U);
}

} // namespace
} // namespace comfortics::workbench
