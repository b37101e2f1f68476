// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <comfortics/catalogue.h>

#include "catalogue/categories.h"

#include <vector>

namespace comfortics::engine {

/// Adds the classes of a scale, as the library gives them out.
inline void appendCategories(std::vector<Category>& list, const catalogue::Scale& scale)
{
    for (const catalogue::Category& category : scale.categories)
        list.push_back({category.lower, category.upper, category.label, category.severity, category.note});
}

} // namespace comfortics::engine
