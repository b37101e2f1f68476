// SPDX-License-Identifier: GPL-3.0-or-later
#include "open_tables.h"

#include <gtest/gtest.h>

namespace comfortics::tests {
namespace {

using namespace std::string_literals;

std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += (&text == texts.data() ? "" : "|") + text;
    return all;
}

TEST(TableLayout, IsFoundForTheUsualShapes)
{
    const struct {
        const char* what;
        std::string text;
        std::string names;
        std::string units;
        char decimal;
        std::string firstRow;
    } rows[] = {
        {"commas", "Ta,RH\n20.5,50\n21,51\n", "Ta|RH", "|", '.', "2: 20.5|50"},
        {"semicolons, decimal commas", "a (F);b\n20,5;50,1\n21;51\n", "a (F)|b", "F|", ',', "2: 20,5|50,1"},
        {"quoted decimal commas", "a,b\n\"20,5\",\"50,1\"\n", "a|b", "|", ',', "2: 20,5|50,1"},
        {"tabs", "a\tb\n1,5\t2,5\n", "a|b", "|", ',', "2: 1,5|2,5"},
        {"bars", "a|b\n1.5|2.5\n", "a|b", "|", '.', "2: 1.5|2.5"},
        {"blanks", "  Date Time  T_C\n 2024-01-01 10:00   1.5\n 2024-01-01 11:00  -2.5\n", "Date|Time|T_C",
         "||C", '.', "2: 2024-01-01|10:00|1.5"},
        {"no header", "2024-01-01 10:00;1,5\n", "Column 1|Column 2", "|", ',', "1: 2024-01-01 10:00|1,5"},
        {"names with line ends", "\"Date\",\"Temp\n(°C)\"\n2024-01-01,1.5\n", "Date|Temp (°C)", "|°C", '.',
         "3: 2024-01-01|1.5"},
        {"names in a comment", "# made by hand\n# a,b\n1,2\n", "a|b", "|", '.', "3: 1|2"},
        {"two lines of names, units, a kind", "Air,Wind,\nTemp,Speed,Id\n[K],[kn],\nAvg,Avg,Smp\n1,2,3\n",
         "Air Temp|Wind Speed|Id", "[K]|[kn]|", '.', "5: 1|2|3"},
        {"equal names", "a,a,\n1,2,3\n", "a|a (2)|Column 3", "||", '.', "2: 1|2|3"},
        {"title above", "Station A\n\nTa;x\n1,5;2\n", "Ta|x", "|", ',', "4: 1,5|2"},
        {"UTF-16",
         "\xFF\xFE"
         "T\0;\0\xB0\0\n\0"
         "1\0;\0"
         "2\0\n\0"s,
         "T|°", "|", '.', "2: 1|2"},
        {"UTF-16 without mark",
         "\0T\0;\0a\0\n\0"
         "1\0;\0"
         "2"s,
         "T|a", "|", '.', "2: 1|2"},
        {"Windows-1252",
         "T (\xB0"
         "C);H\xF6he\n1;2\n",
         "T (°C)|Höhe", "°C|", '.', "2: 1|2"},
        {"Windows-1253", "\xC8\xE5\xF1\xEC\xEF\xEA\xF1\xE1\xF3\xDF\xE1;b\n1;2\n", "Θερμοκρασία|b", "|", '.',
         "2: 1|2"},
    };
    for (const auto& row : rows) {
        for (const std::size_t piece : {std::size_t{1}, std::size_t{1000}}) {
            tables::OpenTable table = openTable(row.text, {}, piece);
            EXPECT_EQ(joined(table.layout.names), row.names) << row.what;
            EXPECT_EQ(joined(table.layout.units), row.units) << row.what;
            EXPECT_EQ(table.layout.decimal, row.decimal) << row.what;
            EXPECT_EQ(shownRows(*table.rows).front(), row.firstRow) << row.what;
        }
    }
}

TEST(TableLayout, ARowThatCannotBeReadIsRefusedWithItsLineAndTheNextOnesFollow)
{
    const std::string text = "a,b\r\n1,2\r\n3\r\n\r\n\"5\n\",6\r\n#\r\n7,\"8\r\n9,1\xE9\r\n1,2,,\r\n" +
                             std::string((1U << 20) + 9, '1') + "\r\n3,4";
    tables::OpenTable table =
        openTable(text, {.coding = tables::Coding::Utf8, .separator = ',', .comment = "#"});
    EXPECT_EQ(shownRows(*table.rows),
              (std::vector<std::string>{"2: 1|2", "3: the row has 1 cells where the table has 2 columns",
                                        "5: 5\n|6", "8: a quote is opened and never closed",
                                        "9: the row holds bytes that are no UTF-8", "10: 1|2",
                                        "11: the row is longer than a megabyte", "12: 3|4"}));
}

TEST(TableLayout, AMarkThatFirstStandsAmongTheReadingsBelongsToThem)
{
    EXPECT_EQ(shownRows(*openTable("# c\n1,2\n# 3,4\n").rows), (std::vector<std::string>{"2: 1|2"}));
    EXPECT_EQ(shownRows(*openTable("a,b\n1,2\n# 3,4\n").rows),
              (std::vector<std::string>{"2: 1|2", "3: # 3|4"}));
}

TEST(TableLayout, WhatIsToldOfItsLinesGoesBeforeTheGuess)
{
    const std::string text = "Hill;1;2\nTemp;Hum;Rad\n°C;%;W/m²\nAvg;Avg;Avg\n* broken\n1;2;3\n4;5;6\n";
    const struct {
        tables::Shape told;
        std::string names;
        std::string units;
        std::size_t places[3]; // of names and readings, and the lines of units
        std::string firstRow;
    } rows[] = {
        {{.header = 2}, "Temp|Hum|Rad", "°C|%|W/m²", {2, 6, 3}, "6: 1|2|3"},
        {{.header = 2, .unitLines = 0}, "Temp|Hum|Rad", "||", {2, 3, 0}, "3: °C|%|W/m²"},
        {{.header = 2, .unitLines = 1, .dataLine = 7}, "Temp|Hum|Rad", "°C|%|W/m²", {2, 7, 1}, "7: 4|5|6"},
        {{.header = 0}, "Column 1|Column 2|Column 3", "||", {0, 1, 0}, "1: Hill|1|2"},
        {{.comment = "*", .header = 2}, "Temp|Hum|Rad", "°C|%|W/m²", {2, 6, 2}, "6: 1|2|3"},
        {{.comment = "*", .header = 2, .unitLines = 2}, "Temp|Hum|Rad", "°C|%|W/m²", {2, 6, 2}, "6: 1|2|3"},
        {{.header = 5, .unitLines = 0}, "* broken|Column 2|Column 3", "||", {5, 6, 0}, "6: 1|2|3"},
    };
    for (const auto& row : rows) {
        const tables::OpenTable table = openTable(text, row.told);
        EXPECT_EQ(joined(table.layout.names), row.names) << row.firstRow;
        EXPECT_EQ(joined(table.layout.units), row.units) << row.firstRow;
        EXPECT_EQ(table.layout.nameLine, row.places[0]) << row.firstRow;
        EXPECT_EQ(table.layout.dataLine, row.places[1]) << row.firstRow;
        EXPECT_EQ(table.layout.unitLines, row.places[2]) << row.firstRow;
        EXPECT_EQ(shownRows(*table.rows).front(), row.firstRow);
    }
    for (const tables::Shape& told : {tables::Shape{.header = 6, .dataLine = 6}, tables::Shape{.header = 9},
                                      tables::Shape{.dataLine = 8}})
        EXPECT_THROW(openTable(text, told), tables::TableFault);
    EXPECT_EQ(joined(openTable("# a;b\n1;2\n", {.comment = ""}).layout.names), "# a|b");
}

TEST(TableLayout, ColumnsOfFixedWidthKeepTheirPlacesWhereCellsAreBlank)
{
    const std::string rows =
        "2024-07-01   21.5   50  Süd\n2024-07-02          51  Nord\n2024-07-03   22.5       Ost\n";
    const std::vector<std::string> cells{"2024-07-01|21.5|50|Süd", "2024-07-02||51|Nord",
                                         "2024-07-03|22.5||Ost"};
    for (const std::string head : {"", "Date        Ta °C  RH %  Station\n"}) {
        tables::OpenTable table = openTable(head + rows);
        EXPECT_EQ(joined(table.layout.names),
                  head.empty() ? "Column 1|Column 2|Column 3|Column 4" : "Date|Ta °C|RH %|Station");
        const std::size_t line = head.empty() ? 1 : 2;
        const std::vector<std::string> shown = shownRows(*table.rows);
        for (std::size_t i = 0; i < cells.size(); ++i)
            EXPECT_EQ(shown.at(i), std::to_string(line + i) + ": " + cells[i]);
    }
    EXPECT_EQ(shownRows(*openTable(rows + "2024-07-04 -1021.5   50  Süd\n", {.dataLine = 2}).rows).back(),
              "4: 2024-07-04|-1021.5|50|Süd");
}

TEST(TableLayout, WhatIsNoTableIsOneSentence)
{
    const std::pair<std::string, std::string> rows[] = {
        {"", "The table is empty."},
        {std::string(20000, ',') + "1\n", "No row of numbers was found in the first 1 lines."},
        {"one\ntwo\n", "No row of numbers was found in the first 2 lines."},
        {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1\0\0"s, "The file is a workbook of the older form (XLS), or one "
                                                  "that a password locks; save it as XLSX or CSV."},
        {"a\0b\0\0\0"s, "The file is no text: it holds zero bytes."},
        {"LOCATION,a\n1,2\n", "The weather file has no eight header lines with a place in the first."},
    };
    for (const auto& [text, says] : rows) {
        try {
            openTable(text);
            ADD_FAILURE() << says;
        } catch (const tables::TableFault& fault) {
            EXPECT_EQ(fault.what(), says);
        }
    }
}

} // namespace
} // namespace comfortics::tests
