// SPDX-License-Identifier: GPL-3.0-or-later
//
// The embedded map of the world. data/map/README.md describes the files.
#pragma once

#include "radiation/map_view.h"
#include "texts/text.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::radiation {

struct MapLine {
    bool isBorder = false; ///< between two countries; else a coast
    std::vector<GeoPoint> points;
};

/// Lines and the rings of land that they form.
struct WorldMap {
    std::vector<MapLine> lines;
    std::vector<std::vector<GeoPoint>> rings;
};

/// Reads world.map; nothing where the text is damaged.
std::optional<WorldMap> readWorldMap(std::string_view text);

struct Place {
    std::string name;
    std::string plainName; ///< in ASCII; empty where the name is
    std::string province;
    std::string country;
    GeoPoint at;
    long population = 0;
    std::string zone; ///< in the tz database; empty where unknown

    /// "Quito, Ecuador"
    std::string title() const { return name + ", " + country; }
    /// "Quito, Pichincha, Ecuador"
    std::string fullTitle() const
    {
        return name + (province.empty() ? "" : ", " + province) + ", " + country;
    }
};

struct NearPlace {
    const Place* place = nullptr;
    double kilometres = 0;
};

/// The places that can be searched for.
class Places {
public:
    /// Makes texts alike that count as the same in a search, for instance "São" and "sao".
    using Fold = std::function<std::string(std::string_view)>;

    Places() = default;
    /// Reads places.tsv. Lines that are none are passed over.
    explicit Places(std::string_view text, Fold fold = texts::lowered);

    const std::vector<Place>& all() const noexcept { return m_places; }

    /// Places of whose names the text is the whole, the beginning, the beginning of a word or a
    /// middle, in this order; larger ones first among equals. What stands behind a comma that is not
    /// the name's own must begin the country, the province or both, as in the full title.
    std::vector<const Place*> search(std::string_view text, std::size_t limit) const;

    /// The nearest place with a known time zone, if there is any within the distance.
    std::optional<NearPlace> nearest(GeoPoint point, double withinKilometres) const;

private:
    // What is compared in a search, folded.
    struct Folded {
        std::string name;
        std::string plainName;
        std::string country;
        std::string regions; ///< province and country
    };

    Fold m_fold = texts::lowered;
    std::vector<Place> m_places;
    std::vector<Folded> m_folded; // one for each place
};

/// Along the great circle.
double distanceKilometres(GeoPoint a, GeoPoint b);

} // namespace comfortics::radiation
