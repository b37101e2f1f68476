// SPDX-License-Identifier: GPL-3.0-or-later
//
// The packed texts beside a plain matrix of strings.
#include "controls/grid_cells.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace comfortics::tests {

using controls::GridCells;

TEST(GridCells, HoldTextsOfEveryLength)
{
    // Around the longest text that a cell holds itself, the marks of its last byte, and blocks.
    GridCells cells(1, 2);
    for (const std::size_t length : {0u, 1u, 7u, 8u, 254u, 255u, 256u, 4091u, 4092u, 4093u, 3000000u}) {
        std::string text(length, 'x');
        std::iota(text.begin(), text.end(), '\7');
        cells.setText(0, 0, text);
        cells.setText(0, 1, "between");
        EXPECT_EQ(cells.text(0, 0), text) << length;
        cells.setText(0, 0, cells.text(0, 0).substr(length / 3)); // a part of its own
        EXPECT_EQ(cells.text(0, 0), text.substr(length / 3)) << length;
        EXPECT_EQ(cells.text(0, 1), "between") << length;
    }
}

// Random writes, sizes and orders; enough long texts are overwritten for the blocks to be
// compacted several times, rows pass the borders of chunks, and empty stretches are reordered.
TEST(GridCells, BehaveAsAPlainMatrix)
{
    constexpr unsigned kSeed = 20240229;
    std::mt19937 random(kSeed);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    GridCells cells(3, 2);
    std::vector<std::vector<std::string>> plain(3, std::vector<std::string>(2));
    for (int step = 0; step < 400; ++step) {
        const std::size_t action = below(10);
        if (action == 0) {
            const std::size_t rows = 1 + below(900);
            const std::size_t cols = 1 + below(9);
            cells.resize(rows, cols);
            plain.resize(rows);
            for (auto& row : plain)
                row.resize(cols);
        } else if (action == 1) {
            const std::size_t first = below(plain.size());
            std::vector<std::uint32_t> from(plain.size() - first);
            std::iota(from.begin(), from.end(), 0u);
            std::shuffle(from.begin(), from.end(), random);
            cells.reorder(first, from);
            const auto old = plain;
            for (std::size_t i = 0; i < from.size(); ++i)
                plain[first + i] = old[first + from[i]];
        } else {
            for (int write = 0; write < 300; ++write) {
                const std::size_t row = below(plain.size());
                const std::size_t col = below(plain[row].size());
                plain[row][col].assign(below(4) == 0 ? below(400) : below(9),
                                       static_cast<char>('a' + below(26)));
                cells.setText(row, col, plain[row][col]);
            }
        }
        for (std::size_t row = 0; row < plain.size(); ++row)
            for (std::size_t col = 0; col < plain[row].size(); ++col)
                ASSERT_EQ(cells.text(row, col), plain[row][col]) << "seed " << kSeed << ", step " << step;
    }
}

TEST(GridCells, AreLean)
{
    GridCells cells(20000, 222);
    EXPECT_LT(cells.heldBytes(), 10000u) << "empty rows";
    GridCells overwritten(300, 3);
    for (std::size_t i = 0; i < 150000; ++i) // six million bytes
        overwritten.setText(i % 300, 1, std::string(40, static_cast<char>('a' + i % 26)));
    EXPECT_LT(overwritten.heldBytes(), 300000u);
}

} // namespace comfortics::tests
