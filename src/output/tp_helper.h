// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/grid.h"
#include "output/table_print.h"

namespace comfortics::output {

/// Fills a printed table from a grid.
class mdlTPHelper {
public:
    /// Takes size, texts, fonts, pictures, alignments and merging from the grid. With a width above
    /// 0 [the surface's unit] the columns share it in their proportions, else they keep their own.
    /// The grid's current cell walks along and stays on the last cell, deliberately.
    void ImportFlexGrid(clsTablePrint& table, controls::Grid& grid, float width);

    /// The font of the grid's current cell. Equal consecutive cells get the same font object, so
    /// that drawing tells a change of font by identity.
    controls::FontRef GetCellFont(const controls::Grid& grid);

private:
    controls::FontRef m_font;
};

} // namespace comfortics::output
