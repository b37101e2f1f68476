// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/frm_results.h"

#include <string>

namespace comfortics::classic {

using catalogue::CatalogueRow;

Frm_Results::Frm_Results()
{
    Frm_Results_Indices();
    Frm_Results_Units();
}

void Frm_Results::Frm_Results_Indices()
{
    for (const CatalogueRow& row : catalogue::rows())
        lbl_Index.at(static_cast<std::size_t>(row.number)).setCaption(std::string(row.name));
}

void Frm_Results::Frm_Results_Units()
{
    for (const CatalogueRow& row : catalogue::rows())
        lbl_Unit.at(static_cast<std::size_t>(row.number)).setCaption(std::string(row.unit));
}

} // namespace comfortics::classic
