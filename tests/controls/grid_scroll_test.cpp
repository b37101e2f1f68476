// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/grid_scroll.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::tests {

// Rows are 240 twips high. A grid of 1300 shows its header and four whole rows of the body, the
// last of which becomes the first.
TEST(ScrollFlexGrid, StepsByAPage)
{
    struct Case {
        std::string name;
        std::size_t rows;
        int height;
        std::size_t top;
        int rotation;
        std::size_t expected;
    };
    const std::vector<Case> cases = {
        {"on", 100, 1300, 20, -120, 23},
        {"on, large notch", 100, 1300, 20, -960, 23},
        {"no rotation counts as on", 100, 1300, 20, 0, 23},
        {"back, smallest notch", 100, 1300, 20, 1, 17},
        {"back to the first row", 100, 1300, 4, 120, 1},
        {"back stops at the first row", 100, 1300, 3, 120, 1},
        {"on stops at the last page", 100, 1300, 95, -120, 96},
        {"back from the last page", 100, 1300, 96, 120, 93},
        {"exact height", 100, 1200, 1, -120, 4},
        {"all rows show", 5, 1200, 1, -120, 1},
        {"all rows but one show", 6, 1200, 1, -120, 2},
        {"lower than its header", 100, 100, 50, -120, 50},
        {"header only", 1, 100, 1, 120, 1},
    };
    for (const Case& row : cases) {
        controls::Grid grid(row.rows, 2);
        grid.setSize(3000, row.height);
        if (row.rows > 1)
            grid.setTopRow(row.top);
        controls::ScrollFlexGrid(grid, row.rotation);
        EXPECT_EQ(grid.topRow(), row.expected) << row.name;
    }
}

} // namespace comfortics::tests
