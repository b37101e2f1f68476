// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/catalogue.h"
#include "classic/selection.h"

#include <vector>

namespace comfortics::batch {

/// The selected indices in catalogue order.
inline std::vector<int> selectedIndices(const classic::Selection& selection)
{
    std::vector<int> indices;
    for (int index = 1; index <= catalogue::kLastIndex; ++index)
        if (selection.contains(index))
            indices.push_back(index);
    return indices;
}

} // namespace comfortics::batch
