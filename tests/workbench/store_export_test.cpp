// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/store_export.h"
#include "workbench/store_summary.h"

#include "station_runs.h"
#include "tables/workbook.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

namespace comfortics::workbench {
namespace {

using Form = ExportRequest::Form;

bool always(double)
{
    return true;
}

// The first row is the worked example of the README.
std::shared_ptr<const TableStore> exampleStore()
{
    return tests::storeOf("Time,Ta,RH,WS,SR,Note\n"
                          "2024-07-01 12:00,30,50,2,600,\"a, b\"\n"
                          "2024-07-01 13:00,31,50,2,600,caf\xC3\xA9\n"
                          "2024-07-01 14:00,x,50,2,600,\n",
                          "ta=Ta,rh=RH,ws=WS,sr=SR,time=Time",
                          tests::stationOptions({65, 211}, classic::Rules::Classic));
}

TEST(Export, WritesTheRowsInSightWithTheirReasons)
{
    const tests::TemporaryFolder folder;
    ExportRequest request;
    request.store = exampleStore();
    request.view = std::make_shared<const View>(View{{2, 0}, true, "chosen"});
    request.status = request.inputs = request.reasons = true;
    request.path = folder.file("out.csv");
    EXPECT_EQ(exportStore(request, always), std::nullopt);
    EXPECT_EQ(
        tests::readFile(request.path),
        "Time,Ta,RH,WS,SR,Note,Status,Line,Reasons,Time taken,Ta taken [°C],Tg taken [°C],SR taken [W/m²],"
        "Td taken [°C],RH taken [%],WS taken [m/s],65 Effective Temperature (Houghten; 1923) [°C],65 status,"
        "211 Wind Chill (National Oceanic and Atmospheric Administration; 2003) [°C],211 status\r\n"
        "2024-07-01 14:00,x,50,2,600,,\"refused: line 4: \"\"x\"\" in the column \"\"Ta\"\" is no "
        "number\",4,,2024-07-01T14:00:00,,,,,,,,,,\r\n"
        "2024-07-01 12:00,30,50,2,600,\"a, b\",ok,2,\"211: Outside its limits: Ta is 30 °C, valid from -50 "
        "to 10 °C.\",2024-07-01T12:00:00,30,,600,,50,2,26.0,value,,outside temperature limits\r\n");

    request = {};
    request.store = exampleStore();
    request.form = Form::CsvWindows1252;
    request.path = folder.file("western.csv");
    EXPECT_EQ(exportStore(request, always), std::nullopt);
    EXPECT_NE(tests::readFile(request.path).find("600,caf\xE9,ok,"), std::string::npos);

    // Ended, or to a folder that is none: no file.
    request.path = folder.file("ended.csv");
    EXPECT_EQ(exportStore(request, [](double) { return false; }), std::nullopt);
    // Stopped when the rows are written and the file is to be completed, too.
    int whole = 0;
    EXPECT_EQ(exportStore(request, [&whole](double share) { return share < 1 || ++whole == 1; }),
              std::nullopt);
    EXPECT_EQ(whole, 2);
    request.path = folder.file("none/out.csv");
    EXPECT_NE(exportStore(request, always).value_or(""), "");
    EXPECT_EQ(folder.names().size(), 2U);
}

TEST(Export, AWorkbookComesBackAsItWas)
{
    const tests::TemporaryFolder folder;
    ExportRequest request;
    request.store = exampleStore();
    request.form = Form::Xlsx;
    request.program = "Comfortics";
    request.path = folder.file("out.xlsx");
    ASSERT_EQ(exportStore(request, always), std::nullopt);
    const tables::OpenTable table = tables::openWorkbook(request.path);
    EXPECT_EQ(table.layout.units[7], "°C");
    EXPECT_EQ(table.look[0].cells[7], "26"); // a number, not a text
    EXPECT_EQ(table.look[0].cells[5], "a, b");
    const auto lines = exportMetadata(request);
    for (const auto& [name, text] : {std::pair("Rules", "classic"), std::pair("Limits", "kept"),
                                     std::pair("Source file", "station.csv"), std::pair("Rows refused", "1")})
        EXPECT_NE(std::find(lines.begin(), lines.end(), std::pair<std::string, std::string>(name, text)),
                  lines.end())
            << name;
}

TEST(StoreSummary, CountsTheRowsInSight)
{
    const auto store = exampleStore();
    const auto summary = summaryOf(*store, View{{1, 0, 2}, false, {}}, [](double) { return true; });
    ASSERT_EQ(summary.stations.size(), 1U);
    const tables::StationSummary& station = summary.stations[0];
    EXPECT_EQ(std::tuple(station.calculated, station.skipped, station.refused), std::tuple(2U, 0U, 1U));
    EXPECT_EQ(station.indices[0].values, 2U);
    EXPECT_EQ(station.indices[0].lowest.value, 26.0);
    EXPECT_EQ(station.indices[0].lowest.line, 2U);
    EXPECT_EQ(station.indices[1].outsideTemperature, 2U);
    EXPECT_EQ(station.indices[1].mean, std::nullopt);
}

} // namespace
} // namespace comfortics::workbench
