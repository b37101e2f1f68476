// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/categories.h"

#include "catalogue/catalogue.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace comfortics::catalogue {
namespace {

TEST(Categories, BeginAtTheirLowerEnd)
{
    struct Case {
        int index;
        double value;
        const char* label;
        int severity;
    };
    // The boundaries of Bröde et al. (2012) for UTCI, of the National Weather Service for the heat index, and
    // of ISO 7730 for the votes.
    const Case cases[] = {
        {195, 46, "extreme heat stress", 4},
        {195, std::nextafter(46, 0), "very strong heat stress", 3},
        {195, 26, "moderate heat stress", 1},
        {195, 9, "no thermal stress", 0},
        {195, -40.01, "extreme cold stress", -4},
        {88, 39.4, "danger", 3},
        {88, 39.39, "extreme caution", 2},
        {120, -0.5, "neutral", 0},
        {120, 3, "hot", 3},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::to_string(one.index) + " at " + std::to_string(one.value));
        const Category* const category = scale(one.index).of(one.value);
        ASSERT_NE(category, nullptr);
        EXPECT_EQ(category->label, one.label);
        EXPECT_EQ(category->severity, one.severity);
    }
    EXPECT_EQ(scale(195).of(std::numeric_limits<double>::quiet_NaN()), nullptr);
    EXPECT_EQ(scale(195).of(std::numeric_limits<double>::infinity())->severity, 4);
    EXPECT_TRUE(scale(53).categories.empty()); // departs from the index that the scale was made for
}

TEST(Categories, CoverTheAxisAndNeverTurnBack)
{
    int scales = 0;
    for (int index = 1; index <= kLastIndex; ++index) {
        const auto categories = scale(index).categories;
        if (categories.empty())
            continue;
        ++scales;
        SCOPED_TRACE(index);
        EXPECT_FALSE(scale(index).source.empty());
        EXPECT_TRUE(std::isinf(categories.front().lower) && std::isinf(categories.back().upper));
        const bool rises = categories.front().severity <= categories.back().severity;
        for (std::size_t i = 1; i < categories.size(); ++i) {
            EXPECT_EQ(categories[i - 1].upper, categories[i].lower);
            const int step = categories[i].severity - categories[i - 1].severity;
            EXPECT_TRUE(rises ? step >= 0 : step <= 0) << i;
        }
    }
    EXPECT_EQ(scales, 115);
}

TEST(Categories, AreWithheldBeyondThePolesAndSignedByTheVote)
{
    // At 37 °C and 98 % the relative strain reads -4.6: no comfort.
    EXPECT_FALSE(meaning(136, -4.6, {.Ta = 37, .Ea = 61.5}));
    EXPECT_TRUE(meaning(136, 0.1, {.Ta = 37, .Ea = 40}));
    EXPECT_FALSE(meaning(19, -1.8, {.Ta = 37, .Ea = 56.0}));
    EXPECT_TRUE(meaning(19, -1.8, {.Ta = 37, .Ea = 55.9}));
    EXPECT_FALSE(meaning(137, -5.7, {.Ta = 37, .Ea = 58.7}));
    EXPECT_TRUE(meaning(137, -5.7, {.Ta = 37, .Ea = 58.6}));
    EXPECT_TRUE(meaning(88, 45, {.Ta = 37, .Ea = 61.5}));

    const Category* const danger = scale(88).of(40);
    EXPECT_TRUE(meaningNote(88, {danger, danger->severity})
                    .starts_with(
                        "danger (+3): from 39.4 to below 51.7 °C.\nHeat exhaustion is likely and heat stroke "
                        "possible; stop hard work.\nClasses: US National Weather Service"));

    EXPECT_EQ(voteBeside(123), 118);
    EXPECT_EQ(voteBeside(127), 122);
    EXPECT_EQ(voteBeside(128), 0);
    EXPECT_EQ(meaning(125, 60, {.Ta = 10, .Ea = 8, .vote = -1.7})->severity, -2);
    EXPECT_EQ(meaning(125, 60, {.Ta = 30, .Ea = 8, .vote = 1.7})->severity, 2);
    EXPECT_EQ(meaning(125, 5, {.Ta = 30, .Ea = 8})->severity, 0);
    EXPECT_FALSE(meaning(125, 60, {.Ta = 30, .Ea = 8}));
}

} // namespace
} // namespace comfortics::catalogue
