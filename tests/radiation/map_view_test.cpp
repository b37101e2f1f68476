// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/map_view.h"

#include <gtest/gtest.h>

#include <utility>

namespace comfortics::radiation {
namespace {

// Tile corners as the usual tile numbering has them.
TEST(Projection, MeetsTheTiles)
{
    const struct {
        GeoPoint point;
        double zoom, x, y;
    } rows[] = {{{kMaxLatitude, -180}, 3, 0, 0},
                {{-kMaxLatitude, 180}, 1, 512, 512},
                {{37.9838, 23.7275}, 10, 148349.838, 101131.422}};
    for (const auto& row : rows) {
        const MapPoint at = project(row.point, row.zoom);
        EXPECT_NEAR(at.x, row.x, 0.001) << row.point.latitude;
        EXPECT_NEAR(at.y, row.y, 0.001) << row.point.latitude;
    }
}

TEST(Projection, HasAnInverse)
{
    MapView view;
    view.resize(700, 500);
    for (const double latitude : {-84.9, -30.0, 0.0, 51.5, 84.9})
        for (const double longitude : {-179.9, -0.1, 20.0, 150.0}) {
            const GeoPoint back = unproject(project({latitude, longitude}, 7), 7);
            EXPECT_NEAR(back.latitude, latitude, 1e-9);
            EXPECT_NEAR(back.longitude, longitude, 1e-9);
            view.show({latitude, longitude}, 9.5);
            const MapPoint again = view.toScreen(view.toGeo({137, 451}));
            EXPECT_NEAR(again.x, 137, 1e-4);
            EXPECT_NEAR(again.y, 451, 1e-4);
        }
}

TEST(MapView, KeepsThePlaceUnderTheMouseWhenZooming)
{
    MapView view;
    view.resize(800, 600);
    view.show({40, 20}, 6);
    for (const double levels : {1.0, 2.5, -1.5}) {
        const MapPoint mouse{137, 451};
        const GeoPoint before = view.toGeo(mouse);
        view.zoomBy(levels, mouse);
        EXPECT_NEAR(view.toGeo(mouse).latitude, before.latitude, 1e-9);
        EXPECT_NEAR(view.toGeo(mouse).longitude, before.longitude, 1e-9);
    }
    EXPECT_NEAR(view.zoom(), 8, 1e-12);
}

TEST(MapView, MovesWithTheMouse)
{
    MapView view;
    view.resize(800, 600);
    view.show({-30, 179}, 5);
    const GeoPoint before = view.toGeo({400, 300});
    view.drag(-150, 40); // over the date line
    const MapPoint now = view.toScreen(before);
    EXPECT_NEAR(now.x, 250, 1e-6);
    EXPECT_NEAR(now.y, 340, 1e-6);
    EXPECT_LT(view.center().longitude, -170);
}

TEST(MapView, ShowsNothingBeyondTheWorld)
{
    MapView view;
    view.resize(1024, 300);
    view.show({89, 0}, 0);
    EXPECT_DOUBLE_EQ(view.zoom(), 2); // as wide as the window
    EXPECT_NEAR(view.toGeo({512, 0}).latitude, kMaxLatitude, 1e-9);
    view.zoomBy(100, {0, 0});
    EXPECT_DOUBLE_EQ(view.zoom(), kMaxZoom);
    view.resize(300, 1000);
    view.show({50, 0}, 1);
    EXPECT_NEAR(view.center().latitude, 0, 1e-9); // the world is lower than the window
}

TEST(PlaceText, HasThePrecisionOfAPixel)
{
    for (const auto& [zoom, decimals] :
         {std::pair(0.0, 0), {1, 1}, {3, 1}, {4, 2}, {7, 2}, {7.2, 3}, {19, 6}})
        EXPECT_EQ(decimalsFor(zoom), decimals) << zoom;
    EXPECT_EQ(placeText({-33.86882, 151.20929}, 3), "-33.869, 151.209");
    EXPECT_EQ(placeText({-0.0004, 0.0006}, 3), "0.000, 0.001");
    EXPECT_EQ(placeText({5, -7.5}, 0), "5, -8");
}

TEST(WrappedLongitude, EndsBelow180)
{
    for (const auto& [from, to] :
         {std::pair(180, -180), {-180, -180}, {190, -170}, {-190, 170}, {725, 5}, {-20, -20}})
        EXPECT_DOUBLE_EQ(wrappedLongitude(from), to) << from;
}

} // namespace
} // namespace comfortics::radiation
