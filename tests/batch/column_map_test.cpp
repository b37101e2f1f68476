// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/column_map.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::batch {
namespace {

using Cells = std::vector<std::string>;
using core::kReadingCount;

/// The readings that the map takes from a row, joined by a bar.
std::string taken(const ColumnMap& map, const Cells& cells)
{
    const TableRow row{cells, 7};
    std::string joined;
    for (const std::string_view text : map.readings(row))
        joined += std::string(text) + "|";
    return joined;
}

std::string errorOf(const Cells& first)
{
    try {
        ColumnMap::from({first, 3});
    } catch (const MalformedTable& error) {
        return error.what();
    }
    return "none";
}

TEST(ColumnMap, FindsColumnsByNameInAnyOrder)
{
    struct Row {
        std::string name;
        Cells header;
        Cells cells;
        std::string taken; // Ta Tg SR Td RH WS
    };
    const std::vector<Row> rows{
        {"short names", {"Ta", "Tg", "SR", "Td", "RH", "WS"}, {"1", "2", "3", "4", "5", "6"}, "1|2|3|4|5|6|"},
        {"other cases, DP, blanks",
         {" ws", "RH ", "dp", "sr", "TG", "tA"},
         {"1", "2", "3", "4", "5", "6"},
         "6|5|4|3|2|1|"},
        {"the sheet's headers",
         {"Wind Speed (m/s)", "Relative Humidity (%)", "Dew Point (°C)", "Solar Radiation (W/m²)",
          "Globe Temperature (°C)", "Air Temperature (°C)"},
         {"1", "2", "3", "4", "5", "6"},
         "6|5|4|3|2|1|"},
        {"the sheet's headers in small letters",
         {"air temperature (°c)", "wind speed (M/S)"},
         {"1", "2"},
         "1|||||2|"},
        {"other columns between",
         {"station", "Ta", "time", "RH", "", "WS"},
         {"Ostrava", "1", "2", "3", "4", "5"},
         "1||||3|5|"},
    };
    for (const Row& row : rows) {
        const ColumnMap map = ColumnMap::from({row.header, 1});
        EXPECT_TRUE(map.firstRowIsHeader()) << row.name;
        EXPECT_EQ(map.names(), row.header) << row.name;
        EXPECT_EQ(taken(map, row.cells), row.taken) << row.name;
    }
}

TEST(ColumnMap, WithoutHeaderTakesTheSheetsOrder)
{
    const ColumnMap map = ColumnMap::from({{"30", "", "600", "", "50", "2", "Brno", "x"}, 1});
    EXPECT_FALSE(map.firstRowIsHeader());
    EXPECT_EQ(taken(map, {"30", "", "600", "", "50", "2", "Brno", "x"}), "30||600||50|2|");
    ASSERT_EQ(map.names().size(), 8U);
    EXPECT_EQ(map.names()[2], "Solar Radiation (W/m²)");
    EXPECT_EQ(map.names()[6], "Column 7");
    EXPECT_EQ(map.names()[7], "Column 8");
}

TEST(ColumnMap, OneNumberMakesAFirstRowData)
{
    EXPECT_FALSE(ColumnMap::from({{"x", "", "600", "", "y", "z"}, 1}).firstRowIsHeader());
    EXPECT_FALSE(ColumnMap::from({{"12,5", "Tg", "SR", "Td", "RH", "WS"}, 1}).firstRowIsHeader());
    EXPECT_TRUE(ColumnMap::from({{"Ta", "12-", "1.2.3"}, 1}).firstRowIsHeader());
}

TEST(ColumnMap, RefusesAFirstRowThatTellsNoColumns)
{
    EXPECT_EQ(errorOf({"station", "time"}), "Line 3: no column is named Ta, Tg, SR, Td, RH or WS.");
    EXPECT_EQ(errorOf({"Ta", "x", "ta"}), "Line 3: two columns give ta.");
    EXPECT_EQ(errorOf({"Td", "DP"}), "Line 3: two columns give DP.");
    EXPECT_EQ(errorOf({"30", "", "600", "", "50"}),
              "Line 3: a table without a header needs six columns, this row has 5.");
    EXPECT_EQ(errorOf({"30", "", "600", "", "50", "2"}), "none");
}

TEST(ColumnMap, RefusesARowOfAnotherLength)
{
    const ColumnMap map = ColumnMap::from({{"Ta", "RH", "WS"}, 1});
    EXPECT_NO_THROW(map.check({{"1", "2", "3"}, 2}));
    for (const Cells& cells : {Cells{"1", "2"}, Cells{"1", "2", "3", "4"}}) {
        try {
            map.check({cells, 12});
            ADD_FAILURE() << cells.size();
        } catch (const MalformedTable& error) {
            EXPECT_EQ(std::string(error.what()), "Line 12: the row has " + std::to_string(cells.size()) +
                                                     " cells where the table has 3 columns.");
        }
    }
}

} // namespace
} // namespace comfortics::batch
