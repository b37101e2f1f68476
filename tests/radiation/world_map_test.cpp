// SPDX-License-Identifier: GPL-3.0-or-later
#include "prepared_answers.h"
#include "radiation/map_view.h"
#include "radiation/world_map.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace comfortics::radiation {
namespace {

const Places& places()
{
    static const Places all(tests::readFile(MAP_DATA "/places.tsv"));
    return all;
}

TEST(WorldMap, ReadsLinesAndJoinsThemToRings)
{
    // Steps of a hundredth of a degree, five bits a character; ~1 is line 1 from its end.
    const auto map = readWorldMap("lines 2\ncoast B?A_@\nborder EIFU\nrings 1\n0 -2\n");
    ASSERT_TRUE(map);
    EXPECT_FALSE(map->lines.at(0).isBorder);
    EXPECT_TRUE(map->lines.at(1).isBorder);
    std::string ring;
    for (const GeoPoint& point : map->rings.at(0))
        ring += placeText(point, 2) + "; ";
    EXPECT_EQ(ring, "-0.02, 0.00; -0.01, 0.16; 0.03, 0.05; ");
    const auto shipped = readWorldMap(tests::readFile(MAP_DATA "/world.map"));
    ASSERT_TRUE(shipped);
    EXPECT_EQ(shipped->lines.size(), 1959U);
    for (const auto& line : shipped->lines)
        for (const GeoPoint& point : line.points)
            ASSERT_TRUE(std::abs(point.latitude) <= 90 && std::abs(point.longitude) <= 180);
}

TEST(WorldMap, RefusesDamage)
{
    for (const char* bad : {"", "lines", "lines 2\ncoast ???_@_@?\n", "lines 1\nriver ???_@\nrings 0\n",
                            "lines 1\ncoast ?\nrings 0\n", "lines 1\ncoast ??\x01?\nrings 0\n",
                            "lines 1\ncoast ????\nrings 1\n1\n", "lines 1\ncoast ????\nrings 1\n-2\n",
                            "lines 1\ncoast ????\nrings 1\nx\n", "lines 1\ncoast ????\nrings 2\n0\n",
                            "lines 1\ncoast ~~~~~~~~~~~^???\nrings 0\n"}) // far off the globe
        EXPECT_FALSE(readWorldMap(bad)) << bad;
}

TEST(Places, KnowCities)
{
    const struct {
        const char *search, *title, *zone;
    } rows[] = {
        {"Athens, united", "Athens, United States of America", "America/New_York"},
        {"vitoria, braz", "Vitória, Brazil", "America/Sao_Paulo"},
        {" san franc ", "San Francisco, United States of America", "America/Los_Angeles"},
        {"washington, d", "Washington, D.C., United States of America", "America/New_York"},
        {"Athens, Georgia, United States of America", "Athens, United States of America", "America/New_York"},
    };
    for (const auto& row : rows) {
        const auto found = places().search(row.search, 5);
        ASSERT_FALSE(found.empty()) << row.search;
        EXPECT_EQ(found[0]->title(), row.title);
        EXPECT_EQ(found[0]->zone, row.zone) << row.search;
    }
    for (const Place& place : places().all())
        EXPECT_EQ(places().search(place.fullTitle(), 1).at(0)->fullTitle(), place.fullTitle());
    EXPECT_TRUE(places().search("Athens, Georgia, Greece", 5).empty());
    EXPECT_TRUE(places().search("", 5).empty());
    EXPECT_TRUE(places().search(" ,greece", 5).empty());
    EXPECT_EQ(places().search("a", 3).size(), 3U);
}

TEST(Places, RankWholeNamesBeforeBeginningsWordsAndMiddles)
{
    const Places some("headers\n"
                      "Newyork\t\t\tA\t1\t2\t900\tZ\n"
                      "New York\t\t\tA\t1\t2\t800\tZ\n"
                      "Yorkton\t\t\tA\t1\t2\t70\tZ\n"
                      "York\t\t\tA\t1\t2\t6\tZ\n"
                      "Yorktown\t\t\tA\t1\t2\t500\tZ\n"
                      "Nowhere\t\t\tA\tnorth\t2\t500\tZ\n"
                      "cut off\n");
    EXPECT_EQ(some.all().size(), 5U);
    std::string order;
    for (const Place* place : some.search("york", 9))
        order += place->name + ";";
    EXPECT_EQ(order, "York;Yorktown;Yorkton;New York;Newyork;");
}

TEST(Places, FindTheNearest)
{
    const auto near = places().nearest({37.9, 23.8}, 200);
    ASSERT_TRUE(near);
    EXPECT_EQ(near->place->zone, "Europe/Athens");
    EXPECT_FALSE(places().nearest({-40, -110}, 200)); // amid the Pacific
}

// Paris to New York by the spherical law of cosines.
TEST(Distance, FollowsTheGreatCircle)
{
    EXPECT_NEAR(distanceKilometres({48.8566, 2.3522}, {40.7128, -74.006}), 5837.2, 0.5);
}

} // namespace
} // namespace comfortics::radiation
