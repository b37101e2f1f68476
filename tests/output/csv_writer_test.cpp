// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/csv_writer.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::tests {

using controls::Grid;
using output::CsvForm;

namespace {

// Takes bytes until it is full.
struct BoundedSink final : output::ByteSink {
    std::size_t room = 1000000;
    std::string bytes;
    int refused = 0;
    bool write(std::string_view more) override
    {
        const bool fits = bytes.size() + more.size() <= room;
        if (fits)
            bytes += more;
        else
            ++refused;
        return fits;
    }
};

void fill(Grid& grid, std::string_view text)
{
    grid.select(0, 0, grid.rows() - 1, grid.cols() - 1);
    grid.setClip(text);
}

} // namespace

TEST(CsvWriter, WritesTheBytesOfItsTwoForms)
{
    struct Case {
        std::size_t rows;
        std::size_t cols;
        std::string clip;
        std::string separated;
        std::string terminated;
    };
    const std::vector<Case> cases = {
        {3, 3, "N\tV\tU\ra\t1.5\tx\rb\t\t[-]", "N,V,U\r\na,1.5,x\r\nb,,[-]\r\n",
         "N,V,U,\r\na,1.5,x,\r\nb,,[-],\r\n"},
        {1, 2, "a, \"b\"\tc;d", "a, \"b\",c;d\r\n", "a, \"b\",c;d,\r\n"},
        {1, 2, "W/m\xC2\xB2\t\xCE\xB1", "W/m\xB2,?\r\n", "W/m\xB2,?,\r\n"},
        {2, 1, "a\r", "a\r\n\r\n", "a,\r\n,\r\n"},
    };
    for (const Case& row : cases) {
        Grid grid(row.rows, row.cols);
        fill(grid, row.clip);
        BoundedSink separated, terminated;
        EXPECT_TRUE(output::writeCsv(grid, CsvForm::Separated, separated));
        EXPECT_EQ(separated.bytes, row.separated);
        EXPECT_TRUE(output::writeCsv(grid, CsvForm::Terminated, terminated));
        EXPECT_EQ(terminated.bytes, row.terminated);
    }
}

TEST(CsvWriter, StopsAtTheFirstFailureOfItsDevice)
{
    Grid grid(4, 2);
    fill(grid, "a\tb\rc\td\re\tf\rg\th"); // lines of five bytes
    for (std::size_t room = 0; room <= 20; ++room) {
        BoundedSink sink;
        sink.room = room;
        EXPECT_EQ(output::writeCsv(grid, CsvForm::Separated, sink), room == 20) << room;
        EXPECT_EQ(sink.refused, room == 20 ? 0 : 1) << room;
    }
}

TEST(CsvWriter, WritesMoreRowsThanSixteenBitsCount)
{
    Grid grid(70000, 1);
    grid.setTextMatrix(69999, 0, "last");
    BoundedSink sink;
    EXPECT_TRUE(output::writeCsv(grid, CsvForm::Separated, sink));
    EXPECT_EQ(sink.bytes.size(), 70000u * 2 + 4);
}

} // namespace comfortics::tests
