// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/column_map.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

namespace comfortics::batch {
namespace {

using Cells = std::vector<std::string>;

/// The readings that the map takes from a row, joined by a bar.
std::string taken(const ColumnMap& map, const Cells& cells)
{
    const TableRow row{cells, 7};
    std::string joined;
    for (const std::string_view text : map.readings(row))
        joined += std::string(text) + "|";
    return joined;
}

TEST(ColumnMap, FindsColumnsByNameInAnyOrderOrTakesTheSheets)
{
    const std::pair<Cells, std::string> rows[] = {
        {{" ws", "RH ", "dp", "sr", "TG", "tA"}, "6|5|4|3|2|1|"},
        {{"Wind Speed (m/s)", "Relative Humidity (%)", "Dew Point (°C)", "Solar Radiation (W/m²)",
          "Globe Temperature (°C)", "air temperature (°c)"},
         "6|5|4|3|2|1|"},
        {{"station", "Ta", "time", "RH", "", "12-"}, "2||||4||"}, // trailing signs are no numbers
    };
    for (const auto& [header, expected] : rows) {
        const ColumnMap map = ColumnMap::from({header, 1});
        EXPECT_TRUE(map.firstRowIsHeader()) << expected;
        EXPECT_EQ(map.names(), header) << expected;
        EXPECT_EQ(taken(map, {"1", "2", "3", "4", "5", "6"}), expected);
    }
    // One number makes a first row data.
    const Cells first{"12,5", "Tg", "600", "", "50", "2", "Brno"};
    const ColumnMap map = ColumnMap::from({first, 1});
    EXPECT_FALSE(map.firstRowIsHeader());
    EXPECT_EQ(taken(map, first), "12,5|Tg|600||50|2|");
    EXPECT_EQ(map.names(),
              (Cells{"Air Temperature (°C)", "Globe Temperature (°C)", "Solar Radiation (W/m²)",
                     "Dew Point (°C)", "Relative Humidity (%)", "Wind Speed (m/s)", "Column 7"}));
}

TEST(ColumnMap, RefusesWhatTellsNoColumnsAndRowsOfAnotherLength)
{
    const std::vector<std::tuple<Cells, Cells, std::string>> rows = {
        {{"station", "time"},
         {},
         "Line 3: separated by commas, no column is named Ta, Tg, SR, Td, RH or WS."},
        {{"Ta", "x", "ta"}, {}, "Line 3: two columns give ta."},
        {{"30", "", "600", "", "50"},
         {},
         "Line 3: separated by commas, a table without a header needs six columns, this row has 5."},
        {{"Ta", "RH", "WS"}, {"1", "2"}, "Line 12: the row has 2 cells where the table has 3 columns."},
        {{"Ta", "WS"}, {"1", "2", "3"}, "Line 12: the row has 3 cells where the table has 2 columns."},
    };
    for (const auto& [first, row, error] : rows) {
        std::string told;
        try {
            ColumnMap::from({first, 3}).check({row, 12});
        } catch (const MalformedTable& caught) {
            told = caught.what();
        }
        EXPECT_EQ(told, error);
    }
}

} // namespace
} // namespace comfortics::batch
