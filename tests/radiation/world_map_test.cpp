// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/world_map.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

namespace comfortics::radiation {
namespace {

std::string dataFile(const char* name)
{
    std::ifstream file(std::string(MAP_DATA) + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const Places& places()
{
    static const Places all(dataFile("places.tsv"));
    return all;
}

// Odd number of crossings to the east.
bool isLand(const WorldMap& map, GeoPoint point)
{
    bool inside = false;
    for (const auto& ring : map.rings)
        for (std::size_t i = 0, last = ring.size() - 1; i < ring.size(); last = i++) {
            const GeoPoint a = ring[last];
            const GeoPoint b = ring[i];
            if ((a.latitude > point.latitude) != (b.latitude > point.latitude) &&
                point.longitude < a.longitude + (point.latitude - a.latitude) / (b.latitude - a.latitude) *
                                                    (b.longitude - a.longitude))
                inside = !inside;
        }
    return inside;
}

TEST(WorldMap, TellsLandFromSea)
{
    const auto map = readWorldMap(dataFile("world.map"));
    ASSERT_TRUE(map);
    const struct {
        const char* name;
        GeoPoint at;
        bool land;
    } rows[] = {{"Atlantic", {30, -40}, false},    {"Pacific", {-30, -120}, false},
                {"Aegean Sea", {38.9, 25}, false}, {"Caspian Sea", {42, 51}, false},
                {"Sahara", {24, 10}, true},        {"Siberia", {65, 110}, true},
                {"Brazil", {-10, -55}, true},      {"Tasmania", {-42, 146.6}, true},
                {"Madagascar", {-19, 46.5}, true}, {"Iceland", {64.8, -18.5}, true},
                {"Lesotho", {-29.6, 28.3}, true},  {"Indian Ocean", {-20, 80}, false}};
    for (const auto& row : rows)
        EXPECT_EQ(isLand(*map, row.at), row.land) << row.name;
}

TEST(WorldMap, RefusesDamage)
{
    const std::string good = "lines 2\ncoast ???_@_@?\nborder _@_@??\nrings 1\n0 1\n";
    ASSERT_TRUE(readWorldMap(good));
    for (const char* bad : {"", "lines", "lines 2\ncoast ???_@_@?\n", "lines 1\nriver ???_@\nrings 0\n",
                            "lines 1\ncoast ?\nrings 0\n", "lines 1\ncoast ??\x01?\nrings 0\n",
                            "lines 1\ncoast ????\nrings 1\n1\n", "lines 1\ncoast ????\nrings 1\n-2\n",
                            "lines 1\ncoast ????\nrings 1\nx\n", "lines 1\ncoast ????\nrings 2\n0\n"})
        EXPECT_FALSE(readWorldMap(bad)) << bad;
}

TEST(Places, KnowCities)
{
    const struct {
        const char* search;
        const char* title;
        GeoPoint at;
        const char* zone;
    } rows[] = {
        {"athens", "Athens, Greece", {37.98, 23.73}, "Europe/Athens"},
        {"Athens, united", "Athens, United States of America", {33.96, -83.38}, "America/New_York"},
        {"quito", "Quito, Ecuador", {-0.2, -78.5}, "America/Guayaquil"},
        {"Vitória", "Vitória, Brazil", {-20.3, -40.3}, "America/Sao_Paulo"},
        {"vitoria, braz", "Vitória, Brazil", {-20.3, -40.3}, "America/Sao_Paulo"},
        {"sydney", "Sydney, Australia", {-33.87, 151.2}, "Australia/Sydney"},
        {" san franc ", "San Francisco, United States of America", {37.75, -122.45}, "America/Los_Angeles"}};
    for (const auto& row : rows) {
        const auto found = places().search(row.search, 5);
        ASSERT_FALSE(found.empty()) << row.search;
        EXPECT_EQ(found[0]->title(), row.title);
        EXPECT_NEAR(found[0]->at.latitude, row.at.latitude, 0.1) << row.search;
        EXPECT_NEAR(found[0]->at.longitude, row.at.longitude, 0.1) << row.search;
        EXPECT_EQ(found[0]->zone, row.zone) << row.search;
    }
    EXPECT_TRUE(places().search("", 5).empty());
    EXPECT_TRUE(places().search(" ,greece", 5).empty());
    EXPECT_TRUE(places().search("no such place", 5).empty());
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

// Paris to New York and Sydney to Tokyo by the spherical law of cosines.
TEST(Distance, FollowsTheGreatCircle)
{
    EXPECT_NEAR(distanceKilometres({48.8566, 2.3522}, {40.7128, -74.006}), 5837.2, 0.5);
    EXPECT_NEAR(distanceKilometres({-33.8688, 151.2093}, {35.6895, 139.6917}), 7826.6, 0.5);
    EXPECT_NEAR(distanceKilometres({0, 179.5}, {0, -179.5}), 111.195, 0.001);
}

} // namespace
} // namespace comfortics::radiation
