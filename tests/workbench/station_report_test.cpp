// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/station_report.h"

#include "station_runs.h"

#include <gtest/gtest.h>

namespace comfortics::workbench {
namespace {

// Of station A in July alone: two rows with a value, one skipped, one refused. The values are those of the
// humidex formula with the vapour pressure of the dew point, by hand: 36.3 for 30 °C and 50 %.
TEST(StationReport, TellsOfItsStationAndTimeAlone)
{
    const auto store =
        tests::storeOf("When;Where;T;H;W;S\n"
                       "2024-06-30 23:00;A;35;60;2;0\n"
                       "2024-07-01 12:00;A;30;50;2;600\n"
                       "2024-07-01 12:00;<B>;40;50;2;600\n"
                       "2024-07-01 13:00;A;10;50;2;600\n"
                       "2024-07-01 14:00;A;30;;2;600\n"
                       "2024-07-01 15:00;A;30;50;2;600\n",
                       "ta=T,rh=H,ws=W,sr=S,time=When,station=Where", tests::stationOptions({90}));
    const StoreRows rows(store);
    StationCharts charts(rows);
    const auto periods = periodsOf(*charts.timeline(0, {}));
    ASSERT_EQ(periods.size(), 3U); // 2024, 2024-06, 2024-07
    const auto report = stationReport(rows, {.station = 0,
                                             .period = periods[2].period,
                                             .columns = {0},
                                             .heading = "A & B",
                                             .notes = {},
                                             .when = {}});
    ASSERT_TRUE(report);
    EXPECT_EQ(report->span, "2024-07-01 12:00 to 2024-07-01 15:00");
    EXPECT_EQ(report->summary.calculated, 3U);
    EXPECT_EQ(report->summary.skipped, 1U);
    const tables::IndexSummary& humidex = report->summary.indices.at(0);
    EXPECT_EQ(humidex.values, 2U);
    EXPECT_EQ(humidex.outsideTemperature, 1U); // from 20 °C
    EXPECT_EQ(humidex.mean, 36.3);
    EXPECT_EQ(humidex.highest.line, 3U); // the first of equal ones
    ASSERT_EQ(report->refused.size(), 1U);
    EXPECT_EQ(report->refused[0].second, 1U);
    EXPECT_EQ(report->charts.size(), 4U);
    const std::string html = stationReportHtml(*report, {"<svg/>", "", "", ""});
    EXPECT_NE(html.find("<h1>A &amp; B</h1>"), std::string::npos);
    EXPECT_NE(html.find("<svg/>"), std::string::npos);
    EXPECT_EQ(html.find("<B>"), std::string::npos);
    EXPECT_NE(stationReportPage(*report, 700, 400).find("src=\"chart4.svg\""), std::string::npos);
    EXPECT_FALSE(stationReport(rows, {.station = 0}, [] { return false; }));
}

} // namespace
} // namespace comfortics::workbench
