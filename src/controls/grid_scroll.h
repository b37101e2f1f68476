// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/grid.h"

namespace comfortics::controls {

/// Scrolls a grid by one visible page, whatever the size of the wheel's notch: on for a rotation
/// below 1 (the wheel towards the user), else back. A grid whose rows all show stays as it is.
/// The last wholly visible row becomes the first, or the first the last.
void ScrollFlexGrid(Grid& grid, int rotation);

} // namespace comfortics::controls
