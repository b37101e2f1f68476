// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace comfortics::catalogue {

/// What kind of index it is.
enum class Family : std::uint8_t {
    ApparentTemperature,
    HumidHeat,
    CoolingPower,
    Cold,
    ComfortVote,
    Physiology,
    Radiation,
    Psychrometry,
};

/// How well the literature of an index is known.
enum class Confidence : std::uint8_t {
    Sure,     ///< title and place are those of the publication
    Likely,   ///< from memory; a detail may be off
    NameOnly, ///< author and year as in the name of the index, nothing more
};

/// The name by which programs call an index, and where it was published. From data/references.csv.
struct Reference {
    /// In lower_snake_case, unique, and never changed.
    std::string_view id;
    Family family;
    std::string_view authors;
    std::string_view year;
    std::string_view title;     ///< empty where only the name is known
    std::string_view published; ///< journal, publisher or page
    std::string_view where;     ///< equation, table, or what differs from the publication
    Confidence confidence;

    /// Authors, year, title and place in one line.
    std::string citation() const;
};

/// Of index 1 to kLastIndex.
const Reference& reference(int index);

/// Citation, how sure it is where it is less than that, and id, in one line for the windows.
std::string literatureNote(int index);

/// The index of an id; 0 where there is none.
int indexOfId(std::string_view id);

/// For instance "Cooling power".
std::string_view familyName(Family family);

/// For instance "likely".
std::string_view confidenceName(Confidence confidence);

} // namespace comfortics::catalogue
