// SPDX-License-Identifier: GPL-3.0-or-later
//
// The part of the world that a map shows, in the spherical Mercator projection of the usual map
// tiles: at zoom 0 the world is one square of 256 pixels, with each zoom level twice as wide.
#pragma once

#include <string>

namespace comfortics::radiation {

/// Degrees, north and east positive.
struct GeoPoint {
    double latitude = 0;
    double longitude = 0;
};

/// Pixels.
struct MapPoint {
    double x = 0;
    double y = 0;
};

inline constexpr double kTileSize = 256;
inline constexpr double kMaxLatitude = 85.05112877980659; // where the world is as high as wide
inline constexpr double kMinZoom = 0;
inline constexpr double kMaxZoom = 19;

/// Pixels from the world's left top corner. Latitudes beyond the projection's are cut.
MapPoint project(GeoPoint point, double zoom);
GeoPoint unproject(MapPoint point, double zoom);

/// The longitude in [-180, 180).
double wrappedLongitude(double longitude);

/// Decimals at which a last digit is no more than a pixel wide: 0 to 6.
int decimalsFor(double zoom);

/// "-33.869, 151.209": decimal points whatever the locale, no negative zero.
std::string placeText(GeoPoint point, int decimals);

class MapView {
public:
    double width() const noexcept { return m_width; }
    double height() const noexcept { return m_height; }
    double zoom() const noexcept { return m_zoom; }
    GeoPoint center() const noexcept { return m_center; }

    void resize(double width, double height);
    /// The zoom is kept between kMinZoom and kMaxZoom and never shows less than the window's width
    /// of world.
    void show(GeoPoint center, double zoom);

    /// Pixels of the window. The world repeats to the east and west; the copy nearest to the
    /// window's middle counts.
    MapPoint toScreen(GeoPoint point) const;
    GeoPoint toGeo(MapPoint pixel) const;

    /// The world moves with the mouse.
    void drag(double dx, double dy);
    /// Zooms by wheel steps; the place under the mouse stays there.
    void zoomBy(double levels, MapPoint at);

    /// What a click on the pixel picks, at the precision of the zoom.
    std::string pick(MapPoint pixel) const { return placeText(toGeo(pixel), decimalsFor(m_zoom)); }

private:
    void keepInside();

    double m_width = kTileSize;
    double m_height = kTileSize;
    double m_zoom = 0;
    GeoPoint m_center;
};

} // namespace comfortics::radiation
