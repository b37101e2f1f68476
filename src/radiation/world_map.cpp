// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/world_map.h"

#include "values/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <tuple>

namespace comfortics::radiation {

using values::lowered;
using values::trimmed;

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

bool liesIn(const Place& place, const std::string& region)
{
    return lowered(place.country).starts_with(region) || lowered(place.province).starts_with(region);
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

Places::Places(std::string_view text)
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
            read(fields[6], place.population))
            m_places.push_back(std::move(place));
    }
}

std::vector<const Place*> Places::search(std::string_view text, std::size_t limit) const
{
    const std::string wanted = lowered(trimmed(cut(text, ',')));
    const std::string region = lowered(trimmed(text));
    std::vector<std::tuple<Match, long, const Place*>> found;
    if (wanted.empty())
        return {};
    for (const Place& place : m_places) {
        const Match best =
            std::min(match(lowered(place.name), wanted), match(lowered(place.plainName), wanted));
        if (best != Match::None && (region.empty() || liesIn(place, region)))
            found.emplace_back(best, -place.population, &place);
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
