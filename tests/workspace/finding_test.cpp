// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/finding.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

namespace comfortics::workspace {
namespace {

struct Beside {
    std::set<std::size_t> ticked{198, 199};
    std::set<std::size_t> withValue{154, 199};
    int asked = 0;
    Finding finding{[this](std::size_t place) {
        ++asked;
        return catalogue::Standing{withValue.contains(place), ticked.contains(place)};
    }};
};

TEST(Finding, CountsWhatWordsAndFiltersLeave)
{
    Beside beside;
    Finding& finding = beside.finding;
    EXPECT_FALSE(finding.active());
    EXPECT_EQ(finding.summary(), "");
    finding.setQuery("wbgt");
    EXPECT_EQ(finding.summary(), "7 of 222");
    EXPECT_EQ(beside.asked, 0); // a search of words needs no calculation
    finding.setFilters({.ticked = true});
    EXPECT_EQ(finding.summary(), "2 of 222");
    EXPECT_TRUE(finding.matches(154) && !finding.passes(154) && !finding.holds(154));
    EXPECT_EQ(finding.best(), 198U);
    beside.ticked.erase(198);
    finding.refresh();
    EXPECT_EQ(finding.summary(), "1 of 222");
    finding.setQuery("  ");
    EXPECT_TRUE(finding.active() && !finding.hasWords());
    finding.clear();
    EXPECT_EQ(finding.count(), 222U);
    EXPECT_FALSE(finding.active());
}

TEST(Finding, StepsInTheOrderOfTheViewAndRound)
{
    Beside beside;
    Finding& finding = beside.finding;
    const std::vector<std::size_t> order{199, 3, 154, 198, 4};
    finding.setQuery("wbgt");
    EXPECT_EQ(finding.next(order, 199, true), 154U);
    EXPECT_EQ(finding.next(order, 3, true), 154U); // from a row that is not found
    EXPECT_EQ(finding.next(order, 198, true), 199U);
    EXPECT_EQ(finding.next(order, 199, false), 198U);
    EXPECT_EQ(finding.next(order, std::nullopt, true), 199U);
    EXPECT_EQ(finding.next(order, std::nullopt, false), 198U);
    EXPECT_EQ(finding.next({}, 5, true), std::nullopt);
    finding.setFilters({.family = "Cold"});
    EXPECT_EQ(finding.next(order, 199, true), std::nullopt);
    EXPECT_TRUE(finding.didYouMean().empty()); // the words are right, the filters leave nothing
    finding.setQuery("wbgtt");
    EXPECT_EQ(finding.didYouMean().front(), "WBGT");
}

} // namespace
} // namespace comfortics::workspace
