// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/world_map.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <tuple>
#include <utility>

namespace comfortics::radiation {

using texts::trimmed;

namespace {

constexpr double kUnitsPerDegree = 100;
constexpr std::int64_t kHalfTurn = 18000;  // in these units
constexpr double kEarthRadius = 6371.0088; // km, the mean one
constexpr std::size_t kFields = 8;

// The text up to the mark, which goes, too.
std::string_view cut(std::string_view& text, char mark)
{
    const std::size_t end = std::min(text.find(mark), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

template <class T>
bool read(std::string_view text, T& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

std::optional<std::size_t> readCount(std::string_view line, std::string_view word)
{
    std::size_t count = 0;
    if (cut(line, ' ') != word || !read(line, count))
        return std::nullopt;
    return count;
}

bool readStep(std::string_view& text, std::int64_t& sum)
{
    std::uint64_t number = 0;
    for (unsigned shift = 0; !text.empty() && shift < 60; shift += 5) {
        const int character = text.front() - 63;
        text.remove_prefix(1);
        if (character < 0 || character > 63)
            return false;
        number |= static_cast<std::uint64_t>(character & 31) << shift;
        if (character < 32) {
            const auto half = static_cast<std::int64_t>(number >> 1);
            sum += (number & 1) != 0 ? ~half : half;
            return sum >= -kHalfTurn && sum <= kHalfTurn;
        }
    }
    return false;
}

bool readPoints(std::string_view text, std::vector<GeoPoint>& points)
{
    std::int64_t latitude = 0;
    std::int64_t longitude = 0;
    while (!text.empty()) {
        if (!readStep(text, latitude) || !readStep(text, longitude))
            return false;
        points.push_back({static_cast<double>(latitude) / kUnitsPerDegree,
                          static_cast<double>(longitude) / kUnitsPerDegree});
    }
    return points.size() >= 2;
}

// Neighbouring lines of a ring share an end; it is kept once.
void append(std::vector<GeoPoint>& ring, std::vector<GeoPoint> points, bool backwards)
{
    if (backwards)
        std::reverse(points.begin(), points.end());
    ring.insert(ring.end(), points.begin() + (ring.empty() ? 0 : 1), points.end());
}

bool readRing(std::string_view line, const std::vector<MapLine>& lines, std::vector<GeoPoint>& ring)
{
    while (!line.empty()) {
        int number = 0;
        if (!read(cut(line, ' '), number))
            return false;
        const bool backwards = number < 0;
        const auto index = static_cast<std::size_t>(backwards ? ~number : number);
        if (index >= lines.size())
            return false;
        append(ring, lines[index].points, backwards);
    }
    return !ring.empty();
}

enum class Match { Whole, Beginning, Word, Middle, None };

Match match(const std::string& name, const std::string& wanted)
{
    Match best = Match::None;
    for (std::size_t at = name.find(wanted); at != std::string::npos; at = name.find(wanted, at + 1)) {
        if (at == 0)
            return name.size() == wanted.size() ? Match::Whole : Match::Beginning;
        const char before = name[at - 1];
        best = std::min(best, before == ' ' || before == '-' ? Match::Word : Match::Middle);
    }
    return best;
}

} // namespace

std::optional<WorldMap> readWorldMap(std::string_view text)
{
    WorldMap map;
    const auto lines = readCount(cut(text, '\n'), "lines");
    if (!lines)
        return std::nullopt;
    for (std::size_t i = 0; i < *lines; ++i) {
        std::string_view line = cut(text, '\n');
        const std::string_view kind = cut(line, ' ');
        MapLine read{.isBorder = kind == "border", .points = {}};
        if ((!read.isBorder && kind != "coast") || !readPoints(line, read.points))
            return std::nullopt;
        map.lines.push_back(std::move(read));
    }
    const auto rings = readCount(cut(text, '\n'), "rings");
    if (!rings)
        return std::nullopt;
    for (std::size_t i = 0; i < *rings; ++i) {
        std::vector<GeoPoint> ring;
        if (!readRing(cut(text, '\n'), map.lines, ring))
            return std::nullopt;
        map.rings.push_back(std::move(ring));
    }
    return map;
}

Places::Places(std::string_view text, Fold fold) : m_fold(std::move(fold))
{
    cut(text, '\n'); // the headers
    while (!text.empty()) {
        std::string_view line = cut(text, '\n');
        std::array<std::string_view, kFields> fields;
        for (std::string_view& field : fields)
            field = cut(line, '\t');
        Place place{.name = std::string(fields[0]),
                    .plainName = std::string(fields[1]),
                    .province = std::string(fields[2]),
                    .country = std::string(fields[3]),
                    .at = {},
                    .population = 0,
                    .zone = std::string(fields[7])};
        if (read(fields[4], place.at.latitude) && read(fields[5], place.at.longitude) &&
            read(fields[6], place.population)) {
            m_folded.push_back({.name = m_fold(place.name),
                                .plainName = m_fold(place.plainName),
                                .country = m_fold(place.country),
                                .regions = m_fold(place.province + ", " + place.country)});
            m_places.push_back(std::move(place));
        }
    }
}

// A comma can be the name's own, as in "Washington, D.C.", so the region may begin behind the first or
// the second one, or there is none.
std::vector<const Place*> Places::search(std::string_view text, std::size_t limit) const
{
    struct Wanted {
        std::string name;
        std::string region;
    };
    std::vector<Wanted> ways;
    std::size_t comma = text.find(',');
    for (int i = 0; i < 2 && comma != std::string_view::npos; ++i, comma = text.find(',', comma + 1))
        ways.push_back({m_fold(trimmed(text.substr(0, comma))), m_fold(trimmed(text.substr(comma + 1)))});
    ways.push_back({m_fold(trimmed(text)), ""});
    if (ways.front().name.empty())
        return {};

    std::vector<std::tuple<Match, long, const Place*>> found;
    for (std::size_t i = 0; i < m_places.size(); ++i) {
        const Folded& place = m_folded[i];
        Match best = Match::None;
        for (const Wanted& wanted : ways)
            if (place.country.starts_with(wanted.region) || place.regions.starts_with(wanted.region))
                best = std::min({best, match(place.name, wanted.name), match(place.plainName, wanted.name)});
        if (best != Match::None)
            found.emplace_back(best, -m_places[i].population, &m_places[i]);
    }
    std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) {
        return std::tie(std::get<0>(a), std::get<1>(a)) < std::tie(std::get<0>(b), std::get<1>(b));
    });
    std::vector<const Place*> places;
    for (std::size_t i = 0; i < std::min(limit, found.size()); ++i)
        places.push_back(std::get<2>(found[i]));
    return places;
}

std::optional<NearPlace> Places::nearest(GeoPoint point, double withinKilometres) const
{
    NearPlace best{.place = nullptr, .kilometres = withinKilometres};
    for (const Place& place : m_places) {
        const double distance = place.zone.empty() ? withinKilometres : distanceKilometres(point, place.at);
        if (distance < best.kilometres)
            best = {.place = &place, .kilometres = distance};
    }
    return best.place ? std::optional(best) : std::nullopt;
}

// The haversine form, which is exact for small distances too.
double distanceKilometres(GeoPoint a, GeoPoint b)
{
    constexpr double kRadians = std::numbers::pi / 180;
    const double north = std::sin((b.latitude - a.latitude) / 2 * kRadians);
    const double east = std::sin((b.longitude - a.longitude) / 2 * kRadians);
    const double haversine =
        north * north + std::cos(a.latitude * kRadians) * std::cos(b.latitude * kRadians) * east * east;
    return 2 * kEarthRadius * std::asin(std::min(1.0, std::sqrt(haversine)));
}

} // namespace comfortics::radiation
