// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/table_reader.h"

#include "text_source.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace comfortics::batch {
namespace {

using tests::rowsOf;
using tests::tableOf;

const std::string kBom = "\xEF\xBB\xBF";

const std::vector<std::pair<std::string, std::vector<std::string>>> kTables = {
    {"", {}},
    {kBom, {}},
    {"\xEF\xBB", {"1: \xEF\xBB"}}, // part of a mark
    {"a\r\nb\rc\nd", {"1: a", "2: b", "3: c", "4: d"}},
    {kBom + "\"a,b\",c\n", {"1: a,b|c"}},
    {"\n\na,b\n\r\n\n1,2\n", {"3: a|b", "6: 1|2"}},
    {",\n,,\na,\n", {"1: |", "2: ||", "3: a|"}},
    // The first line decides on the tab.
    {"a,b\tc\n1\t2,5\n", {"1: a,b|c", "2: 1|2,5"}},
    {"\r\n\na\tb\n1,5\t2\n", {"3: a|b", "4: 1,5|2"}},
    {"\"a\tb\",c\nd,e\n", {"1: a\tb|c", "2: d|e"}},
    {"5\" pipe,a\tb\n", {"1: 5\" pipe,a|b"}},
    // Of semicolon and comma the one that names more readings, or else makes enough cells.
    {"Ta;RH;Note, long\n30,5;50;\"a;b\"\n", {"1: Ta|RH|Note, long", "2: 30,5|50|a;b"}},
    {"Ta,RH,Note; long\n1,2,3;4\n", {"1: Ta|RH|Note; long", "2: 1|2|3;4"}},
    {"30,5;20,5;;9,5;;2,5\n", {"1: 30,5|20,5||9,5||2,5"}},
    {"30,,600,,50,2,a;b\n", {"1: 30||600||50|2|a;b"}},
    {"\"a;b\",c\n", {"1: a;b|c"}},
    {"\"say \"\"no\"\"\",\"\"\"\"\n", {"1: say \"no\"|\""}},
    {"5\" pipe,b\n", {"1: 5\" pipe|b"}}, // a quote inside a cell is a character
    {"\"a\nb\r\nc\rd\",e\nf,g\n", {"1: a\nb\r\nc\rd|e", "5: f|g"}},
    {"a,b\n1,2\n3,\"4\n5,6\n", {"1: a|b", "2: 1|2", "Line 3: a quote is opened and never closed."}},
    {"a\n\"", {"1: a", "Line 2: a quote is opened and never closed."}},
    {"a,b\n\"1\"2,3\n", {"1: a|b", "Line 2: text stands behind a closing quote."}},
};

// A pipe hands over whatever it has: a line end, a doubled quote or the mark may fall apart.
TEST(TableReader, ReadsQuotesSeparatorsAndLineEndsHoweverTheBytesArrive)
{
    for (const auto& [text, rows] : kTables)
        for (const std::size_t piece : {1U, 2U, 3U, 1U << 20})
            EXPECT_EQ(rowsOf(tableOf(text, piece)), rows) << text << ", pieces of " << piece;
}

TEST(TableReader, ReadsOnAcrossItsBlocks)
{
    const std::string filler(70000, 'x');
    const std::string text = filler + ",\"" + filler + "\n\"\"" + filler +
                             "\",c\n" + // empty lines are no long row
                             std::string(3U << 20, '\n') + "b,2\r\n";
    const std::vector<std::string> expected{"1: " + filler + "|" + filler + "\n\"" + filler + "|c",
                                            std::to_string((3U << 20) + 3) + ": b|2"};
    EXPECT_TRUE(rowsOf(tableOf(text)) == expected);
}

TEST(TableReader, GivesUpOnARowWithoutEnd)
{
    // An open quote in a file without end must not take the memory of the machine.
    const std::vector<std::string> rows = rowsOf(tableOf("a\n\"" + std::string(3U << 20, 'x') + "\"\n"));
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[1].substr(0, 8), "Line 2: ") << rows[1];
}

TEST(TableReader, ReadsUtf16WithAMarkAndNamesWhatItCannotRead)
{
    using namespace std::string_literals;
    const std::string little = "\xFF\xFET\0a\0;\0\x42\x01\x3D\xD8\x21\xDE\n\0"s;
    std::string big = little;
    for (std::size_t at = 0; at < big.size(); at += 2)
        std::swap(big[at], big[at + 1]);
    std::string longText = "\xFF\xFE"s;
    for (int i = 0; i < 50000; ++i) // beyond any block, and longer in UTF-8
        longText += i % 100 == 99 ? "\n\0"s : "\xAC\x20"s;
    const std::string neither = "The text is neither UTF-8 nor UTF-16 with a byte-order mark.";
    const std::pair<std::string, std::vector<std::string>> rows[] = {
        {little, {"1: Ta|ł😡"}},
        {big, {"1: Ta|ł😡"}},
        {"\xFF\xFE"s, {}},
        {"\xFF\xFE\n"s, {"The text ends in the middle of a UTF-16 character."}},
        {"\xFF\xFE\x21\xDE"s, {"The text is marked as UTF-16 and holds what is none."}},
        {"\xFF\xFEz\0\n\0\x21\xDE"s, {"1: z", "The text is marked as UTF-16 and holds what is none."}},
        {"T\0a\0"s, {neither}},
        {"\xFF\xFE\0\0T\0\0\0"s, {neither}},
    };
    for (const std::size_t piece : {1U, 3U, 1U << 20}) {
        for (const auto& [text, expected] : rows)
            EXPECT_EQ(rowsOf(tableOf(text, piece)), expected) << text;
        const std::vector<std::string> found = rowsOf(tableOf(longText, piece));
        ASSERT_EQ(found.size(), 500U);
        EXPECT_EQ(found[499].size(), std::string("500: ").size() + 99 * 3);
    }
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
