// SPDX-License-Identifier: GPL-3.0-or-later
//
// What an index is, for somebody who meets it for the first time. From data/index_notes.csv.
#pragma once

#include <span>
#include <string_view>

namespace comfortics::catalogue {

/// Of one index.
struct Note {
    std::span<const std::string_view> abbreviations; ///< by which people ask for it, for instance "WBGT"
    std::string_view description; ///< two sentences: what it tells, and how its value reads
    /// What misleads who does not know it: its unit, what it does not read, what it needs besides. Short
    /// phrases, without a full stop; often none.
    std::span<const std::string_view> warnings;
};

/// Of index 1 to kLastIndex.
const Note& note(int index);

} // namespace comfortics::catalogue
