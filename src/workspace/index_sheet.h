// SPDX-License-Identifier: GPL-3.0-or-later
//
// All that there is to say of one index where the readings stand, as plain values.
#pragma once

#include "workspace/situation.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

/// A quantity that the formula of an index reads.
struct SheetInput {
    std::string symbol;
    std::string name;
    std::string unit;
    std::string text; ///< at present, with all decimals; empty where there is none
};

/// Where a quantity stands towards its limits, whose ends are inside.
enum class Side : std::uint8_t {
    Unknown, ///< the quantity has no value, or nothing is calculated
    Inside,
    Below,
    Above,
    ByText, ///< outside since the limits of this index are compared character by character
};

/// Limits of one quantity in which an index is taken to be valid.
struct SheetLimit {
    std::string quantity; ///< for instance "Air temperature (Ta)"
    std::string unit;
    double low = 0;
    double high = 0;
    std::string present; ///< what stands now; empty where that is not known
    Side side = Side::Unknown;

    /// "27 to 45 °C".
    std::string bounds() const;
    /// "Now 12 °C, below."
    std::string standing() const;
};

/// A class of values.
struct SheetClass {
    const catalogue::Category* category;
    std::string bounds;
    bool isPresent = false;
};

struct IndexSheet {
    int number = 0;
    std::string id;
    std::string name;
    std::string unit; ///< empty where it has none
    std::string family;
    std::vector<std::string> abbreviations;
    std::string description; ///< empty where none is written
    std::vector<std::string> warnings;

    Figure figure; ///< of the present

    std::vector<SheetInput> inputs;
    /// The formula reads assumptions on body or site besides.
    bool readsAssumptions = false;

    std::vector<SheetLimit> limits;
    std::string limitsNote; ///< what there is to say of limits besides; empty where nothing is

    std::vector<SheetClass> classes; ///< ascending; empty where no scale is published
    std::string classSource;
    std::string classNote; ///< what there is to know of the classes, or why a value has none

    std::string citation;
    std::string confidence; ///< how well the literature is known: "sure", "likely" or "name only"
    std::string where;      ///< equation, table, or what differs from the publication; often empty
};

IndexSheet indexSheet(const Situation& situation, const classic::Limits& limits, int index);

/// A number text with no more decimals than mean something on a screen: two, without zeros at the end. A text
/// that is no number stands.
std::string briefly(std::string_view text);

} // namespace comfortics::workspace
