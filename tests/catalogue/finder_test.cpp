// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/finder.h"

#include "catalogue/catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

namespace comfortics::catalogue {
namespace {

std::vector<int> found(std::string_view query)
{
    std::vector<int> numbers;
    for (const std::size_t place : indexFinder().find(query))
        numbers.push_back(indexSubjects()[place].number);
    return numbers;
}

TEST(Finder, FindsWhatPeopleAskFor)
{
    struct Case {
        const char* query;
        std::vector<int> numbers;
    };
    const Case cases[] = {
        {"WBGT", {155, 156, 166, 197, 198, 199, 200}},
        {"wbgt outdoor", {200}},
        {"Outdoor  WBGT!", {200}},
        {"UTCI", {154, 195}},
        {"195", {195}},
        {"PPD", {123, 124, 125, 126, 127, 128}},
        {"pmv rest", {121}},
        {"SET", {114}},
        {"steadman 1984", {10, 13, 16}},
        {"1984 steadman sun", {16}},
        {"humidex_masterson", {90}},
        {"°F", {}}, // no unit of the catalogue
        {"kPa", {141}},
        {"BÜTTNER", {31}},
        {"buttner", {31}},
        {"bruendl", {}},
        {"Bru\u0308ndl", {72}}, // the accent as a sign of its own
        {"Błażejczyk 2012", {85, 195}},
        {"windchill 1945", {212}},
        {"wind chil siple", {212}},
        {"7726", {111}},
        {"frostbite", {75, 76, 77}}, // in the description alone
    };
    for (const Case& one : cases)
        EXPECT_EQ(found(one.query), one.numbers) << one.query;
}

TEST(Finder, PutsTheBestFirst)
{
    // A number before the year, an abbreviation before a word, a word before what it begins.
    EXPECT_EQ(found("19").front(), 19);
    EXPECT_EQ(found("heat index").front(), 85);
    EXPECT_EQ(found("wind chill").size(), found("chill wind").size());
    const std::vector<int> chills = found("wind chil");
    EXPECT_TRUE(std::ranges::is_permutation(chills, std::vector{108, 138, 211, 212, 213, 214, 215}));
    const std::vector<int> strain = found("hi");
    EXPECT_TRUE(std::ranges::equal(std::vector{85, 86, 87, 88, 89}, std::span(strain).first(5)));
    EXPECT_EQ(found("").size(), kIndexCount);
    EXPECT_EQ(found(" ( ").size(), kIndexCount);
    EXPECT_EQ(found("physiology").size(), 12U);
}

TEST(Finder, GuessesWhatWasMeant)
{
    struct Case {
        const char* query;
        const char* meant;
    };
    for (const Case& one : {Case{"humidx", "Humidex"},
                            {"WBTG", "WBGT"},
                            {"steadmann 1984", "Steadman 1984"},
                            {"enthalpie", "Enthalpy"},
                            {"operativ temprature", "operativ Temperature"},
                            {"UTCY", "UTCI"},
                            {"universl thermal climte indx", "Universal thermal Climate Index"},
                            {"wbgt humidex", "humidex"}}) {
        EXPECT_TRUE(found(one.query).empty()) << one.query;
        const std::vector<std::string> meant = indexFinder().didYouMean(one.query);
        ASSERT_FALSE(meant.empty()) << one.query;
        EXPECT_EQ(meant.front(), one.meant);
        for (const std::string& text : meant)
            EXPECT_FALSE(found(text).empty()) << one.query << ": " << text;
    }
    EXPECT_TRUE(indexFinder().didYouMean("qqqqqqqq").empty());
    EXPECT_TRUE(indexFinder().didYouMean("\xC3\xBF\xFF\xC3").empty()); // no text at all
}

TEST(Finder, TakesSubjectsWithoutANumber)
{
    const std::array<std::string_view, 1> abbreviations{"PHS"};
    const std::array<Subject, 2> subjects{
        Subject{
            .id = "predicted_heat_strain", .name = "Predicted heat strain", .abbreviations = abbreviations},
        Subject{.id = "required_clothing", .name = "Required clothing", .unit = "clo"}};
    const Finder finder(subjects);
    EXPECT_EQ(finder.find("phs"), std::vector<std::size_t>{0});
    EXPECT_EQ(finder.find("clo"), std::vector<std::size_t>{1});
    EXPECT_TRUE(finder.find("0").empty());
}

TEST(Filters, LeaveOutWhatIsNotAskedFor)
{
    const auto count = [](const Filters& filters, Standing standing) {
        return std::ranges::count_if(
            indexSubjects(), [&](const Subject& subject) { return admits(filters, subject, standing); });
    };
    EXPECT_EQ(count({}, {}), 222);
    EXPECT_EQ(count({.withValue = true}, {.ticked = true}), 0);
    EXPECT_EQ(count({.withValue = true}, {.hasValue = true}), 222);
    EXPECT_EQ(count({.ticked = true}, {.hasValue = true}), 0);
    EXPECT_EQ(count({.withClasses = true}, {}), 115); // the scales that are published
    EXPECT_EQ(count({.family = "Physiology"}, {}), 12);
    const auto& subjects = indexSubjects();
    EXPECT_TRUE(admits({.inCelsius = true}, subjects[89], {}));
    EXPECT_FALSE(admits({.inCelsius = true}, subjects[107], {})); // 108 is in °F, without a unit
}

} // namespace
} // namespace comfortics::catalogue
