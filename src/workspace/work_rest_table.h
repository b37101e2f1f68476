// SPDX-License-Identifier: GPL-3.0-or-later
//
// Minutes of work and rest in an hour where readings and person stand, for one class of work beside the
// other.
#pragma once

#include "workspace/item.h"
#include "workspace/person_and_place.h"
#include "workspace/situation.h"

#include <string>
#include <vector>

namespace comfortics::workspace {

struct WorkRestCell {
    std::string work; ///< minutes; empty where there is no value
    std::string rest;
    bool isPresent = false; ///< for the person as it is, in the row of the present metabolic rate

    /// "24.3 / 35.7", or "none".
    std::string inWords() const { return work.empty() ? "none" : work + " / " + rest; }
};

struct WorkRestRow {
    std::string work;                ///< "moderate, 300 W"
    std::vector<WorkRestCell> cells; ///< one for each heading
    bool isPresent = false;          ///< it holds for the present metabolic rate
};

struct WorkRestTable {
    std::string title;                 ///< with the standard
    std::string rowHeading;            ///< "Metabolic rate"
    std::vector<std::string> headings; ///< of the cells
    std::vector<WorkRestRow> rows;     ///< empty where there is a problem
    std::string assumes;               ///< sentences: the basis, what it rests on, which row is marked
    std::string problem;               ///< why there are no rows, in a sentence
};

/// Whether the sheet of an item has such a table: that of ISO 7243, and that of work and rest.
bool hasWorkRest(const Item& item);

WorkRestTable workRestTable(const Situation& situation, const FieldTexts& person);

} // namespace comfortics::workspace
