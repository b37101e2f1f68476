// SPDX-License-Identifier: GPL-3.0-or-later
//
// The table text for text. All expected texts come from a separate computation.
#include "temporary_folder.h"
#include "test_surroundings.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::radiation {
namespace {

using namespace std::chrono;

TEST(RadiationTable, HasTheComputedTexts)
{
    struct Row {
        const char *name, *lat, *lon, *day, *gmt;
        int okta;
        std::size_t rows;
        std::vector<std::pair<std::size_t, const char*>> lines;
    };
    // clang-format off
    const Row rows[] = {
        {"noon on the equator, sun over it", "0", "0", "81", "0", 0, 661,
         {{1, "06:08,0.0,0.0,0.0,0.0"}, {330, "11:37,1069.9,1069.9,1069.9,1069.9"}, {660, "17:07,216.1,216.1,216.1,216.1"}}},
        {"day not picked", "39.5256", "21.7755", "", "2", 4, 496,
         {{1, "07:59,0.0,0.0,0.0,0.0"}, {248, "12:06,462.7,1041.6,429.9,967.6"}, {495, "16:13,117.1,238.8,108.8,221.8"}}},
        {"east, ahead of the clock", "48.8566", "2.3522", "200", "1", 5, 867,
         {{1, "05:14,0.0,0.0,0.0,0.0"}, {433, "12:26,867.8,718.5,736.1,609.5"}, {866, "19:39,81.5,69.1,69.1,58.6"}}},
        {"on the Greenwich meridian", "51.5", "0", "100", "0", 7, 738,
         {{1, "05:24,0.0,0.0,0.0,0.0"}, {369, "11:32,730.1,911.4,382.3,477.3"}, {737, ",,,,"}}},
        {"west of it by a hair", "51.5", "-0.0000001", "100", "2", 7, 738,
         {{1, "07:21,568.7,704.0,297.8,368.7"}, {369, "13:29,464.7,570.8,243.4,298.9"}, {737, ",,,,"}}},
        {"east of it by a hair", "51.5", "0.0000001", "100", "2", 7, 738,
         {{1, "07:24,0.0,0.0,0.0,0.0"}, {369, "13:32,730.1,911.4,382.3,477.3"}, {737, ",,,,"}}},
        {"south, leap day's year end", "-33.45", "-70.66", "366", "-4", 1, 791,
         {{1, "05:34,225.1,186.1,224.9,186.0"}, {395, "12:08,1094.0,885.6,1093.3,885.0"}, {790, "18:43,56.8,183.8,56.7,183.7"}}},
        {"obstructed from view", "35.68", "139.69", "60", "9", 9, 613,
         {{1, "06:30,3.1,3.6,-0.4,-0.4"}, {306, "11:35,763.5,1095.8,-91.2,-130.8"}, {612, "16:41,116.1,153.7,-13.9,-18.3"}}},
        {"a minute's overflow keeps its direct radiation", "44.39", "67.8", "187", "0", 8, 854,
         {{1, "08:51,881.2,702.4,220.3,175.6"}, {379, "15:09,0.0,0.0,0.0,0.0"}, {380, "15:10,0.0,0.0,0.0,0.0"}, {427, "15:57,115.1,193.3,28.8,48.3"}, {853, "23:03,16.0,97.1,4.0,24.3"}}},
        {"minutes past midnight", "49.28", "-128.63", "245", "12", 8, 730,
         {{1, "26:02,-642.0,-890.6,-160.5,-222.7"}, {365, "32:06,-8.1,-273.3,-2.0,-68.3"}, {408, "32:49,2034431876713360000000000000000.0,1766364189540720000000000000000.0,508607969178340000000000000000.0,441591047385180000000000000000.0"}, {409, "32:50,2083342302230120000000000000000.0,1828390551751620000000000000000.0,520835575557529000000000000000.0,457097637937905000000000000000.0"}, {729, ",,,,"}}},
        {"texts with tails", "40N", "20E", "172nd", "2h", 3, 832,
         {{1, "05:17,0.0,0.0,0.0,0.0"}, {416, "12:12,949.1,753.9,923.7,733.7"}, {831, ",,,,"}}},
        {"comma ends a number", "40,5", "20,9", "10", "1,5", 6, 502,
         {{1, "07:33,24.7,43.4,17.7,31.1"}, {251, "11:43,480.5,1067.7,345.0,766.6"}, {501, "15:53,46.4,86.1,33.3,61.8"}}},
        {"south of the equator by a hair", "-0.1807", "-78.4678", "355", "-5", 3, 662,
         {{1, "06:15,68.2,68.1,66.4,66.3"}, {330, "11:44,1032.6,1030.5,1005.0,1003.0"}, {661, "17:15,69.0,68.9,67.2,67.1"}}},
    };
    // clang-format on
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        Desk desk;
        desk.calculate(row.lat, row.lon, row.day, row.gmt, row.okta);
        ASSERT_EQ(desk.form.Flex_Radiation.rows(), row.rows);
        for (const auto& [at, text] : row.lines)
            EXPECT_EQ(desk.line(at), text) << "row " << at;
    }
}

TEST_F(RadiationForm, EqualsTheRecordedTableInEachMinute)
{
    calculate("64.1466", "-21.9426", "355", "0", 9);
    std::string table;
    for (std::size_t row = 0; row < form.Flex_Radiation.rows(); ++row)
        table += line(row) + "\n";
    EXPECT_EQ(table, tests::readFile(RADIATION_TABLES "/reykjavik_day_355_okta_9.csv"));
}

// Here the last row, where the longer table before had one.
TEST_F(RadiationForm, ARowThatNoMinuteReachesIsBlankWhateverStoodThere)
{
    calculate("48.8566", "2.3522", "200", "1", 5);
    EXPECT_EQ(line(737).substr(0, 5), "17:30");
    calculate("51.5", "0", "100", "0", 7);
    ASSERT_EQ(form.Flex_Radiation.rows(), 738U);
    EXPECT_EQ(line(737), ",,,,");
    EXPECT_EQ(form.Flex_Radiation.cellAlignment(0, 1) + form.Flex_Radiation.cellAlignment(737, 4), 0);
}

TEST_F(RadiationForm, SaysWhatTheTableWasCalculatedFor)
{
    form.Calendar.pick(2024y / 7 / 15);
    form.offerOffset("Asia/Somewhere", "Near Somewhere");
    calculate("38N", "-23.70", "197", "5.5", 4);
    form.txt_lat.setText("12");
    EXPECT_EQ(form.lbl_Table.caption(), "Latitude 38, longitude -23.7; day 197 of the year (2024-07-15); "
                                        "GMT +5.5; okta 4")
        << "an offer does not outlive the place it was made for";
    calculate("38", "23.7", "", "-2");
    form.txt_Day.setText("197");
    form.offerOffset("Asia/Somewhere", "Near Somewhere");
    form.cmd_Calculate.setValue(true);
    EXPECT_EQ(form.lbl_Table.caption(), "Near Somewhere: latitude 38, longitude 23.7; day 197 of the year "
                                        "(2024-07-15); GMT -2; okta 0");
    calculate("39", "23.7", "");
    EXPECT_EQ(form.lbl_Table.caption(), "Latitude 39, longitude 23.7; day 0 of the year; GMT +2; okta 0");
}

} // namespace
} // namespace comfortics::radiation
