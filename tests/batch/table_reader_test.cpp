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
using tests::textSource;

struct Table {
    std::string name;
    std::string text;
    std::vector<std::string> rows;
};

const std::string kBom = "\xEF\xBB\xBF";

std::vector<Table> tables()
{
    return {
        {"nothing", "", {}},
        {"empty lines only", "\n\r\n\r", {}},
        {"a mark only", kBom, {}},
        {"part of a mark", "\xEF\xBB", {"1: \xEF\xBB"}},
        {"LF", "a,b\n1,2\n", {"1: a|b", "2: 1|2"}},
        {"CR LF", "a,b\r\n1,2\r\n", {"1: a|b", "2: 1|2"}},
        {"CR", "a,b\r1,2\r", {"1: a|b", "2: 1|2"}},
        {"mixed line ends", "a\r\nb\rc\nd", {"1: a", "2: b", "3: c", "4: d"}},
        {"no final line end", "a,b\n1,2", {"1: a|b", "2: 1|2"}},
        {"mark", kBom + "a,b\n", {"1: a|b"}},
        {"mark before a quote", kBom + "\"a,b\",c\n", {"1: a,b|c"}},
        {"empty lines keep the count", "\n\na,b\n\r\n\n1,2\n", {"3: a|b", "6: 1|2"}},
        {"empty cells", ",\n,,\na,\n", {"1: |", "2: ||", "3: a|"}},
        {"tab", "a,b\tc\n1\t2,5\n", {"1: a,b|c", "2: 1|2,5"}},
        {"tab after empty lines", "\r\n\na\tb\n1,5\t2\n", {"3: a|b", "4: 1,5|2"}},
        {"a tab on a later line separates nothing", "a,b\n1\t2,3\n", {"1: a|b", "2: 1\t2|3"}},
        {"a tab in quotes separates nothing", "\"a\tb\",c\nd,e\n", {"1: a\tb|c", "2: d|e"}},
        {"a tab behind an inner quote separates", "5\" pipe,a\tb\n", {"1: 5\" pipe,a|b"}},
        {"quotes", "\"a\",\"b,c\",\"\"\n", {"1: a|b,c|"}},
        {"doubled quotes", "\"say \"\"no\"\"\",\"\"\"\"\n", {"1: say \"no\"|\""}},
        {"a quote inside a cell is a character", "5\" pipe,b\n", {"1: 5\" pipe|b"}},
        {"line ends in quotes", "\"a\nb\r\nc\rd\",e\nf,g\n", {"1: a\nb\r\nc\rd|e", "5: f|g"}},
        {"blanks are kept", " a , b \n", {"1:  a | b "}},
        {"open quote",
         "a,b\n1,2\n3,\"4\n5,6\n",
         {"1: a|b", "2: 1|2", "Line 3: a quote is opened and never closed."}},
        {"open quote at the very end", "a\n\"", {"1: a", "Line 2: a quote is opened and never closed."}},
        {"text behind a quote", "a,b\n\"1\"2,3\n", {"1: a|b", "Line 2: text stands behind a closing quote."}},
        {"blank behind a quote", "\"1\" ,3\n", {"Line 1: text stands behind a closing quote."}},
    };
}

TEST(TableReader, ReadsQuotesSeparatorsAndLineEnds)
{
    for (const Table& table : tables())
        EXPECT_EQ(rowsOf(TableReader(textSource(table.text))), table.rows) << table.name;
}

// A pipe hands over whatever it has: a line end, a doubled quote or the mark may fall apart.
TEST(TableReader, DoesNotSeeHowTheBytesArrive)
{
    for (const Table& table : tables())
        for (const std::size_t piece : {1U, 2U, 3U})
            EXPECT_EQ(rowsOf(TableReader(textSource(table.text, piece))), table.rows)
                << table.name << " in pieces of " << piece;

    const unsigned seed = 5;
    std::mt19937 random(seed);
    const std::string letters = "ab,\t\"\"\"\r\n\n";
    for (int i = 0; i < 2000; ++i) {
        std::string text;
        for (int j = 0; j < 30; ++j)
            text += letters[random() % letters.size()];
        ASSERT_EQ(rowsOf(TableReader(textSource(text, 1))), rowsOf(TableReader(textSource(text))))
            << "seed " << seed << ": " << text;
    }
}

TEST(TableReader, ReadsOnAcrossItsBlocks)
{
    const std::string filler(70000, 'x');
    std::string text = filler + ",\"" + filler + "\n\"\"" + filler + "\",c\n";
    for (int i = 0; i < 30000; ++i)
        text += std::to_string(i) + ",2\r\n";
    TableReader reader(textSource(text));
    TableRow row;
    ASSERT_TRUE(reader.next(row));
    EXPECT_EQ(row.cells, (std::vector<std::string>{filler, filler + "\n\"" + filler, "c"}));
    for (int i = 0; i < 30000; ++i) {
        ASSERT_TRUE(reader.next(row));
        ASSERT_EQ(row.cells, (std::vector<std::string>{std::to_string(i), "2"}));
        ASSERT_EQ(row.line, static_cast<std::size_t>(i) + 3);
    }
    EXPECT_FALSE(reader.next(row));
    EXPECT_FALSE(reader.next(row));
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

TEST(TableReader, EmptyLinesAreNoLongRow)
{
    TableReader reader(textSource("a\n" + std::string(3U << 20, '\n') + "b\n"));
    EXPECT_EQ(rowsOf(std::move(reader)),
              (std::vector<std::string>{"1: a", std::to_string((3U << 20) + 2) + ": b"}));
}

} // namespace
} // namespace comfortics::batch
