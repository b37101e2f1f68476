// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/table_reader.h"

#include "text_source.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace comfortics::batch {
namespace {

using tests::rowsOf;
using tests::tableOf;

struct Table {
    std::string text;
    std::vector<std::string> rows;
};

const std::string kBom = "\xEF\xBB\xBF";

const Table kTables[] = {
    {"", {}},
    {"\n\r\n\r", {}},
    {kBom, {}},
    {"\xEF\xBB", {"1: \xEF\xBB"}}, // part of a mark
    {"a\r\nb\rc\nd", {"1: a", "2: b", "3: c", "4: d"}},
    {kBom + "\"a,b\",c\n", {"1: a,b|c"}},
    {"\n\na,b\n\r\n\n1,2\n", {"3: a|b", "6: 1|2"}},
    {",\n,,\na,\n", {"1: |", "2: ||", "3: a|"}},
    {" a , b \n", {"1:  a | b "}},
    // The first line decides on the tab.
    {"a,b\tc\n1\t2,5\n", {"1: a,b|c", "2: 1|2,5"}},
    {"\r\n\na\tb\n1,5\t2\n", {"3: a|b", "4: 1,5|2"}},
    {"a,b\n1\t2,3\n", {"1: a|b", "2: 1\t2|3"}},
    {"\"a\tb\",c\nd,e\n", {"1: a\tb|c", "2: d|e"}},
    {"5\" pipe,a\tb\n", {"1: 5\" pipe,a|b"}},
    {"\"a\",\"b,c\",\"\"\n", {"1: a|b,c|"}},
    {"\"say \"\"no\"\"\",\"\"\"\"\n", {"1: say \"no\"|\""}},
    {"5\" pipe,b\n", {"1: 5\" pipe|b"}}, // a quote inside a cell is a character
    {"\"a\nb\r\nc\rd\",e\nf,g\n", {"1: a\nb\r\nc\rd|e", "5: f|g"}},
    {"a,b\n1,2\n3,\"4\n5,6\n", {"1: a|b", "2: 1|2", "Line 3: a quote is opened and never closed."}},
    {"a\n\"", {"1: a", "Line 2: a quote is opened and never closed."}},
    {"a,b\n\"1\"2,3\n", {"1: a|b", "Line 2: text stands behind a closing quote."}},
    {"\"1\" ,3\n", {"Line 1: text stands behind a closing quote."}},
};

// A pipe hands over whatever it has: a line end, a doubled quote or the mark may fall apart.
TEST(TableReader, ReadsQuotesSeparatorsAndLineEndsHoweverTheBytesArrive)
{
    for (const Table& table : kTables)
        for (const std::size_t piece : {1U, 2U, 3U, 1U << 20})
            EXPECT_EQ(rowsOf(tableOf(table.text, piece)), table.rows)
                << table.text << ", pieces of " << piece;

    const unsigned seed = 5;
    std::mt19937 random(seed);
    const std::string letters = "ab,\t\"\"\"\r\n\n";
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (int j = 0; j < 30; ++j)
            text += letters[random() % letters.size()];
        ASSERT_EQ(rowsOf(tableOf(text, 1)), rowsOf(tableOf(text))) << "seed " << seed << ": " << text;
    }
}

TEST(TableReader, ReadsOnAcrossItsBlocks)
{
    const std::string filler(70000, 'x');
    std::string text = filler + ",\"" + filler + "\n\"\"" + filler + "\",c\n";
    std::vector<std::string> expected{"1: " + filler + "|" + filler + "\n\"" + filler + "|c"};
    for (int i = 3; i < 30000; ++i) {
        text += std::to_string(i) + ",2\r\n";
        expected.push_back(std::to_string(i) + ": " + std::to_string(i) + "|2");
    }
    // Empty lines are no long row.
    text += std::string(3U << 20, '\n') + "b\n";
    expected.push_back(std::to_string((3U << 20) + 30000) + ": b");
    EXPECT_TRUE(rowsOf(tableOf(text)) == expected);
}

TEST(TableReader, GivesUpOnARowWithoutEnd)
{
    // An open quote in a file without end must not take the memory of the machine.
    TableReader reader([first = true](char* buffer, std::size_t size) mutable {
        std::fill(buffer, buffer + size, 'x');
        if (first)
            buffer[0] = '"';
        first = false;
        return size;
    });
    TableRow row;
    EXPECT_THROW(reader.next(row), MalformedTable);
}

// A terminal gives more after its end of input, and waits for it.
TEST(TableReader, AsksForNothingAfterTheEnd)
{
    int asked = 0;
    TableReader reader([&asked](char* buffer, std::size_t) -> std::size_t {
        buffer[0] = '\n';
        buffer[1] = 'a';
        return ++asked == 2 ? 0 : 2;
    });
    TableRow row;
    EXPECT_TRUE(reader.next(row));
    EXPECT_FALSE(reader.next(row));
    EXPECT_FALSE(reader.next(row));
    EXPECT_EQ(asked, 2);
}

} // namespace
} // namespace comfortics::batch
