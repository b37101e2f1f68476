// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/map_view.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace comfortics::radiation {

namespace {

constexpr double kRadians = std::numbers::pi / 180;
constexpr int kMostDecimals = 6;

double worldSize(double zoom)
{
    return kTileSize * std::exp2(zoom);
}

std::string fixed(double number, int decimals)
{
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                            std::chars_format::fixed, decimals);
    (void)error;
    std::string text(buffer.data(), end);
    if (text.front() == '-' && text.find_first_of("123456789") == std::string::npos)
        text.erase(0, 1);
    return text;
}

} // namespace

MapPoint project(GeoPoint point, double zoom)
{
    const double latitude = std::clamp(point.latitude, -kMaxLatitude, kMaxLatitude) * kRadians;
    const double size = worldSize(zoom);
    return {.x = (point.longitude + 180) / 360 * size,
            .y = (1 - std::asinh(std::tan(latitude)) / std::numbers::pi) / 2 * size};
}

GeoPoint unproject(MapPoint point, double zoom)
{
    const double size = worldSize(zoom);
    return {.latitude = std::atan(std::sinh(std::numbers::pi * (1 - 2 * point.y / size))) / kRadians,
            .longitude = point.x / size * 360 - 180};
}

double wrappedLongitude(double longitude)
{
    const double turned = std::fmod(longitude + 180, 360);
    return turned < 0 ? turned + 180 : turned - 180;
}

int decimalsFor(double zoom)
{
    const double degreesPerPixel = 360 / worldSize(zoom);
    return std::clamp(static_cast<int>(std::ceil(-std::log10(degreesPerPixel))), 0, kMostDecimals);
}

std::string placeText(GeoPoint point, int decimals)
{
    return fixed(point.latitude, decimals) + ", " + fixed(point.longitude, decimals);
}

void MapView::resize(double width, double height)
{
    m_width = std::max(width, 1.0);
    m_height = std::max(height, 1.0);
    keepInside();
}

void MapView::show(GeoPoint center, double zoom)
{
    m_center = center;
    m_zoom = zoom;
    keepInside();
}

MapPoint MapView::toScreen(GeoPoint point) const
{
    const double east = wrappedLongitude(point.longitude - m_center.longitude);
    const MapPoint middle = project(m_center, m_zoom);
    const MapPoint there =
        project({.latitude = point.latitude, .longitude = m_center.longitude + east}, m_zoom);
    return {.x = there.x - middle.x + m_width / 2, .y = there.y - middle.y + m_height / 2};
}

GeoPoint MapView::toGeo(MapPoint pixel) const
{
    const MapPoint middle = project(m_center, m_zoom);
    GeoPoint point =
        unproject({.x = middle.x + pixel.x - m_width / 2, .y = middle.y + pixel.y - m_height / 2}, m_zoom);
    point.latitude = std::clamp(point.latitude, -kMaxLatitude, kMaxLatitude);
    point.longitude = wrappedLongitude(point.longitude);
    return point;
}

void MapView::drag(double dx, double dy)
{
    const MapPoint middle = project(m_center, m_zoom);
    m_center = unproject({.x = middle.x - dx, .y = middle.y - dy}, m_zoom);
    keepInside();
}

void MapView::zoomBy(double levels, MapPoint at)
{
    const MapPoint middle = project(m_center, m_zoom);
    const GeoPoint fixedPoint =
        unproject({.x = middle.x + at.x - m_width / 2, .y = middle.y + at.y - m_height / 2}, m_zoom);
    m_zoom += levels;
    keepInside();
    const MapPoint there = project(fixedPoint, m_zoom);
    m_center = unproject({.x = there.x - at.x + m_width / 2, .y = there.y - at.y + m_height / 2}, m_zoom);
    keepInside();
}

// North and south of the world there is nothing to see; where all of the world is lower than the
// window, it stands in the middle.
void MapView::keepInside()
{
    m_zoom = std::clamp(m_zoom, std::clamp(std::log2(m_width / kTileSize), kMinZoom, kMaxZoom), kMaxZoom);
    m_center.longitude = wrappedLongitude(m_center.longitude);
    const double size = worldSize(m_zoom);
    MapPoint middle = project(m_center, m_zoom);
    middle.y = size > m_height ? std::clamp(middle.y, m_height / 2, size - m_height / 2) : size / 2;
    m_center.latitude = unproject(middle, m_zoom).latitude;
}

} // namespace comfortics::radiation
