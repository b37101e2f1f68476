// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/index_sets.h"

#include "catalogue/references.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace comfortics::workspace {
namespace {

std::string idsOf(const IndexSet& set)
{
    std::string ids;
    for (const std::string& id : set.ids)
        ids += id + " ";
    return ids;
}

std::string names(const IndexSets& sets)
{
    std::string all;
    for (const IndexSet& set : sets.all())
        all += set.name + (set.own ? "* " : " ");
    return all;
}

constexpr const char* kReady = "Heat at work Cold Weather service Comfort indoors Teaching ";

TEST(IndexSets, TheReadyOnesHoldIndicesThatThereAreAndEachOnce)
{
    TransientPreferences preferences;
    const IndexSets sets(preferences);
    EXPECT_EQ(names(sets), kReady);
    for (const IndexSet& set : sets.all()) {
        EXPECT_EQ(std::set<std::string>(set.ids.begin(), set.ids.end()).size(), set.ids.size()) << set.name;
        for (const std::string& id : set.ids)
            EXPECT_TRUE(Item::ofId(id)) << id;
    }
    // What work in the heat is judged by comes first, outdoors before indoors.
    EXPECT_EQ(catalogue::indexOfId(sets.all()[0].ids[0]), 200);
    EXPECT_EQ(catalogue::indexOfId(sets.all()[0].ids[1]), 199);
    EXPECT_EQ(catalogue::indexOfId(sets.all()[0].ids[2]), 195);
    EXPECT_EQ(catalogue::indexOfId(sets.all()[1].ids[0]), 211) << "in °C, not its twin in °F";
}

TEST(Item, IsAnIndexOrAFigureByItsId)
{
    EXPECT_EQ(Item::ofId("utci"), Item(195)) << "the model of the name has a dot";
    EXPECT_EQ(Item::ofId("pmv_iso"), Item::ofId("pmv_iso.pmv"));
    EXPECT_FALSE(Item::ofId("pmv_iso.of_2040"));
    for (const auto& [id, name, unit] :
         {std::tuple{"utci.utci", "Universal Thermal Climate Index (Bröde; 2012)", "°C"},
          {"pmv_iso.ppd", "Predicted percentage of dissatisfied (ISO 7730)", "%"},
          {"humidex_masterson", "Humidex (Masterson; 1979)", "°C"}}) {
        const auto item = Item::ofId(id);
        ASSERT_TRUE(item) << id;
        EXPECT_EQ(item->id(), id);
        EXPECT_EQ(item->name(), name);
        EXPECT_EQ(item->unit(), unit);
    }
}

TEST(IndexSets, OwnOnesAreMadeNamedOrderedAndKept)
{
    TransientPreferences preferences;
    {
        IndexSets sets(preferences);
        EXPECT_FALSE(sets.create("cOLD"));
        EXPECT_FALSE(sets.create(" \t"));
        EXPECT_FALSE(sets.rename(1, "Frost") || sets.remove(1)) << "ready sets stay";
        ASSERT_TRUE(sets.create("  Quarry ", {"utci", "humidex_masterson"}));
        EXPECT_EQ(sets.shown().name, "Quarry");
        EXPECT_TRUE(sets.create("Other"));
        sets.show("Quarry");
        sets.setStarred("wbgt_outdoor", true);
        EXPECT_EQ(idsOf(sets.shown()), "utci humidex_masterson wbgt_outdoor ");
        EXPECT_TRUE(sets.moveShown("wbgt_outdoor", 1));
        EXPECT_TRUE(sets.moveShown("utci", 99));
        EXPECT_FALSE(sets.moveShown("no_such", 0));
        EXPECT_TRUE(sets.rename(sets.shownPlace(), "QUARRY")) << "its own name in other letters";
        EXPECT_FALSE(sets.rename(sets.shownPlace(), "other"));
        // With a ready set in sight, stars still go to the own set shown last.
        sets.show(std::size_t{0});
        EXPECT_FALSE(sets.moveShown("utci", 0));
        sets.setStarred("humidex_masterson", false);
        EXPECT_TRUE(sets.isStarred("utci") && !sets.isStarred("humidex_masterson"));
        sets.show("QUARRY");
    }
    IndexSets again(preferences);
    EXPECT_EQ(names(again), std::string(kReady) + "QUARRY* Other* ");
    EXPECT_EQ(again.shown().name, "QUARRY");
    EXPECT_EQ(idsOf(again.shown()), "wbgt_outdoor utci ");
    EXPECT_TRUE(again.remove(again.shownPlace()));
    EXPECT_EQ(again.shownPlace(), 0U);
    EXPECT_EQ(again.starredName(), "Other");
    again.setStarred("utci", true);
    EXPECT_EQ(again.ownAsJson(), R"([{"name":"Other","ids":["utci"]}])");
}

TEST(IndexSets, TheFirstStarMakesASet)
{
    TransientPreferences preferences;
    IndexSets sets(preferences);
    int told = 0;
    sets.changed.handle([&told] { ++told; });
    EXPECT_EQ(sets.starredName(), "My indices");
    sets.setStarred("utci", true);
    sets.setStarred("utci", true);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(names(sets), std::string(kReady) + "My indices* ");
    EXPECT_EQ(sets.shownPlace(), 0U) << "what is in sight stays";
}

TEST(IndexSets, ADamagedTextCountsAsNothingAndWhatIsUnknownIsKept)
{
    for (const char* const damaged :
         {"", "{", "{}", "[1]", R"([{"name":"A"}])", R"([{"name":"A","ids":[3]}])",
          R"([{"name":7,"ids":[]}])", "[{\"name\":\"\xff\",\"ids\":[]}]"}) {
        TransientPreferences preferences;
        preferences.write("cards/own-sets", damaged);
        preferences.write("cards/set", damaged);
        IndexSets sets(preferences);
        EXPECT_EQ(names(sets), kReady) << damaged;
        EXPECT_FALSE(IndexSets::isJson(damaged)) << damaged;
        sets.take(damaged);
        EXPECT_EQ(names(sets), kReady) << damaged;
    }
    TransientPreferences preferences;
    preferences.write("cards/own-sets",
                      R"([{"name":"Mine","ids":["index_of_2040","utci","utci"],"colour":"red"}])");
    IndexSets sets(preferences);
    sets.show("Mine");
    sets.setStarred("wbgt_indoor", true);
    EXPECT_EQ(idsOf(IndexSets(preferences).shown()), "index_of_2040 utci wbgt_indoor ");
    EXPECT_EQ(sets.shownItems(), (std::vector<Item>{195, 199}));

    // Of another session: own sets of the name are replaced, ready ones are not, others stay.
    sets.take(R"([{"name":"mine","ids":["utci"]},{"name":"Cold","ids":[]},{"name":"New","ids":[]}])");
    EXPECT_EQ(names(sets), std::string(kReady) + "Mine* New* ");
    EXPECT_EQ(idsOf(sets.shown()), "utci ");
}

} // namespace
} // namespace comfortics::workspace
