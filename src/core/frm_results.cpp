// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frm_results.h"

#include <string>

namespace comfortics::core {

Frm_Results::Frm_Results()
{
    Frm_Results_Indices();
    Frm_Results_Units();
}

void Frm_Results::Frm_Results_Indices()
{
    for (const CatalogueRow& row : catalogue())
        lbl_Index.at(static_cast<std::size_t>(row.number)).setCaption(std::string(row.name));
}

void Frm_Results::Frm_Results_Units()
{
    for (const CatalogueRow& row : catalogue())
        lbl_Unit.at(static_cast<std::size_t>(row.number)).setCaption(std::string(row.unit));
}

} // namespace comfortics::core
