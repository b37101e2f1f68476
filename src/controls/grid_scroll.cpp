// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/grid_scroll.h"

#include <algorithm>

namespace comfortics::controls {

void ScrollFlexGrid(Grid& grid, int rotation)
{
    const int headerHeight = grid.rowHeight(0);
    if (headerHeight <= 0 || grid.rows() <= grid.fixedRows())
        return;
    auto lines = static_cast<std::size_t>(grid.height() / headerHeight);
    if (lines >= grid.rows())
        return;
    while (lines > 0 && !grid.rowIsVisible(grid.topRow() + lines))
        --lines;

    if (rotation < 1)
        grid.setTopRow(std::min(grid.topRow() + lines, grid.rows() - 1));
    else
        grid.setTopRow(grid.topRow() > lines + 1 ? grid.topRow() - lines : 1);
}

} // namespace comfortics::controls
