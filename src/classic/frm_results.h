// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/catalogue.h"
#include "controls/controls.h"

#include <array>

namespace comfortics::classic {

/// The store of the catalogue: a hidden form of three parallel label arrays. Element i belongs to
/// index i; element 0 is a heading that nothing reads.
class Frm_Results {
public:
    /// Fills names and units from the catalogue.
    Frm_Results();

    std::array<controls::Label, catalogue::kIndexCount + 1> lbl_Index;
    std::array<controls::Label, catalogue::kIndexCount + 1> lbl_Unit;
    std::array<controls::Label, catalogue::kIndexCount + 1> lbl_results;

    /// The number of controls that the form holds.
    std::size_t controlCount() const { return lbl_Index.size() + lbl_Unit.size() + lbl_results.size(); }

private:
    void Frm_Results_Indices();
    void Frm_Results_Units();
};

} // namespace comfortics::classic
