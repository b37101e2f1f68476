// SPDX-License-Identifier: GPL-3.0-or-later
//
// The batch on tables of others.
#include "process.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace comfortics::tests {
namespace {

std::string stationFile(const std::string& name)
{
    return COMFORTICS_TABLE_FILES "/" + name;
}

// Index 159 shows the solar radiation that the calculation has taken.
TEST(BatchTables, AStationsTableIsCalculatedByItsColumns)
{
    const Arguments options{
        "batch",
        stationFile("station.csv"),
        "--select",
        "159",
        "--inputs",
        "--columns",
        "ta=Lufttemperatur (°C),td=taupunkt [°c],ws=Windgeschwindigkeit 10 m (km/h):km/h@10m,"
        "sr=Globalstrahlung (W/m²),time=Datum+Uhrzeit,order=dmy,zone=+02:00,drop=Station"};
    const Ending ending = runTool(options);
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.err, "Rows: 2 calculated, 2 skipped, 0 failed. Refused: 1.\n");
    for (const std::string line :
         {"13.07.2024,12:00,24.6,13.1,14.4,512,ok,2024-07-13T12:00:00+02:00,24.6,,512,13.1,,2.5724,512.0\r\n",
          "13.07.2024,12:20,-,13.2,12.6,541,skipped: the air temperature is missing,"
          "2024-07-13T12:20:00+02:00,,,541,13.2,,2.2509,\r\n",
          "13.07.2024,12:40,25.5,12.8,zwölf,560,\"refused: line 8: \"\"zwölf\"\" in the column "
          "\"\"Windgeschwindigkeit 10 m (km/h)\"\" is no number\",2024-07-13T12:40:00+02:00,,,,,,,\r\n"})
        EXPECT_NE(ending.out.find(line), std::string::npos) << line << ending.out;
    EXPECT_EQ(runTool(with(options, {"--threads", "1"})).out, ending.out);
}

TEST(BatchTables, AnInputOfModelsComesInItsColumnsUnit)
{
    const std::string table = "Ta,Tg,RH,WS,Work,Rate\n26,26,50,0.1,116.3,2\n26,26,50,0.1,,2\n";
    const Arguments options{"batch", "-",      "--models", "pmv_iso",  "--select",
                            "1",     "--with", "clo=0.5",  "--format", "csv"};
    const auto figures = [&](const std::string& column) {
        const std::string out =
            runTool(with(options, {"--columns", "ta=Ta,tg=Tg,rh=RH,ws=WS," + column}), table).out;
        return out.substr(0, out.rfind('\n', out.size() - 2)); // the last row has no work
    };
    EXPECT_EQ(figures("met=Work:W/m2"), figures("met=Rate"));
    EXPECT_NE(figures("met=Rate").find(",2,ok,132.9,1.25"), std::string::npos) << figures("met=Rate");
    EXPECT_NE(runTool(with(options, {"--columns", "ta=Ta,met=Work:W"}), table)
                  .err.find("\"W\" is no unit in which a column can give met: met or W/m²."),
              std::string::npos);
}

// The dew point reads above the air temperature for the classic rules.
TEST(BatchTables, WhatStandsInARowThatFailedIsNotCalledMissing)
{
    const std::string table = "Ta,Tg,RH,WS\n18.3,18.3,53,1.2\n";
    const Arguments options{"batch", "-", "--models", "utci", "--select", "195", "--reasons"};
    const std::string says =
        "\"No value: the row was not calculated, so the mean radiant temperature is not known.\"";
    for (const Arguments& form : {Arguments{}, {"--columns", "ta=Ta,tg=Tg,rh=RH,ws=WS"}}) {
        const std::string out = runTool(with(options, form), table).out;
        EXPECT_NE(out.find(says), std::string::npos) << out;
    }
}

TEST(BatchTables, AGuessIsUsedAsAMappingAndAnotherFormHasTheSameFigures)
{
    const TemporaryFolder folder;
    const std::string map = folder.file("station.json");
    EXPECT_EQ(runTool({"batch", stationFile("station.csv"), "--guess", "-o", map}).err, "");
    const Ending rows = runTool({"batch", stationFile("station.csv"), "--map", map, "--select", "159,195",
                                 "--format", "ndjson", "--status"});
    EXPECT_EQ(rows.status, 0);
    EXPECT_NE(rows.out.find("\"Lufttemperatur (°C)\": 24.6, \"Taupunkt [°C]\": 13.1"), std::string::npos)
        << rows.out;
    EXPECT_NE(rows.out.find("\"Status\": \"ok\", \"Line\": 4, \"159 Solar Radiation [W/m²]\": 512.0, "
                            "\"159 status\": \"value\""),
              std::string::npos);
    folder.write("station.json", "{}");
    EXPECT_EQ(runTool({"batch", stationFile("station.csv"), "--map", map}).err,
              "comfortics-cli: The mapping " + map +
                  " cannot be used: it is damaged: it is no mapping of a table.\n");
}

TEST(BatchTables, WhereNamesAndReadingsStandIsToldAndKeptInTheMapping)
{
    const TemporaryFolder folder;
    const std::string table = folder.file("table.csv");
    folder.write("table.csv", "x;y;z\nTemp;Hum;Wind 2m\nF;%;m/s\n* 1;2;3\n77;50;1\n86;50;1\n");
    const std::string map = folder.file("map.json");
    EXPECT_EQ(runTool({"batch", table, "--guess", "--header-line", "2", "--comment", "*", "-o", map}).err,
              "");
    const Ending known = runTool({"batch", table, "--map", map, "--select", "159", "--data-line", "6"});
    EXPECT_EQ(known.out.substr(0, known.out.find('\n')),
              "Temp [F],Hum [%],Wind 2m [m/s],Status,159 Solar Radiation [W/m²]\r");
    EXPECT_EQ(known.err, "Rows: 0 calculated, 1 skipped, 0 failed.\n");
    EXPECT_EQ(runTool({"batch", table, "--guess", "--header-line", "99"}).status, 5);
    EXPECT_EQ(runTool({"batch", table, "--guess", "--header-line", "0"}).status, 2);
}

TEST(BatchTables, OnlyWhatIsSureIsTakenUnasked)
{
    const Ending weather =
        runTool({"batch", stationFile("two_days.epw"), "--select", "159", "--rules", "precise"});
    EXPECT_EQ(weather.err, "Rows: 45 calculated, 3 skipped, 0 failed.\n");
    const Ending logger = runTool({"batch", stationFile("logger.dat"), "--format", "tsv"});
    EXPECT_EQ(logger.status, 5);
    EXPECT_NE(logger.err.find("What its columns are is not sure (\"WS_ms_Avg\": The height"),
              std::string::npos)
        << logger.err;
    const std::string plain = "Ta,SR,RH,WS\n30,600,50,2\n";
    EXPECT_EQ(runTool({"batch", "-", "--format", "csv"}, plain).out, runTool({"batch", "-"}, plain).out);
}

TEST(BatchTables, AWorkbookIsReadAndWritten)
{
    const TemporaryFolder folder;
    const std::string path = folder.file("out.xlsx");
    const Ending first = runTool({"batch", stationFile("roof.xlsx"), "--sheet", "Second", "--select", "159",
                                  "--format", "xlsx", "-o", path});
    EXPECT_EQ(first.err, "Rows: 1 calculated, 0 skipped, 0 failed.\n");
    EXPECT_EQ(runTool({"batch", path, "--select", "159"}).out,
              "Ta,SR,RH,WS,Status,159 Solar Radiation [W/m²],Status,159 Solar Radiation [W/m²]\r\n"
              "30,600,50,2,ok,600,ok,600.0\r\n");
    EXPECT_EQ(runTool({"batch", path, "--sheet", "x"}).err,
              "comfortics-cli: " + path + ": The workbook has no sheet \"x\".\n");
}

// The figures are what pandas makes of the rows that the tool writes.
TEST(BatchTables, ASummaryTellsWhatTheRowsComeTo)
{
    const Arguments options{"batch", stationFile("two_days.epw"), "--select", "195", "--rules", "precise"};
    const Ending summary = runTool(with(options, {"--summary", "csv"}));
    EXPECT_NE(summary.out.find("°C,45,0,0,0,0,3,0,0,28.9644444444444,16.8,17,21.2,27.5,38.7,42.3,42.58,"
                               "16.8,2005-07-01T04:00:00+02:00,12,42.8,2005-07-01T14:00:00+02:00,22\r\n"),
              std::string::npos)
        << summary.out;
    const Ending classes = runTool(with(options, {"--summary", "classes", "--threads", "1"}));
    EXPECT_NE(classes.out.find(",2005-07,strong heat stress,2,6,6\r\n"), std::string::npos) << classes.out;
    const std::string stations =
        "Station,Ta,SR,RH,WS\nB,30,600,50,2\nA,31,600,50,2\nB,32,600,50,2\nC,,600,50,2\n";
    EXPECT_NE(runTool({"batch", "-", "--select", "159", "--columns",
                       "ta=Ta,sr=SR,rh=RH,ws=WS,station=Station", "--summary", "json"},
                      stations)
                  .out.find("\"station\": \"B\",\n      \"rows\": {\n        \"calculated\": 2,"),
              std::string::npos);
}

// The plain batch and the one on tables of others have figures, classes and reasons of models alike, whatever
// columns and units are called.
TEST(BatchTables, ModelsHaveTheFiguresOfThePlainBatch)
{
    const std::string rows = "28.1234567,200,50,0.4,1.2,,sitting,none\n,600,50,2,1.3,0.5,standing,iso\n"
                             "45,900,30,1,x,0.5,standing,ashrae\n22,100,60,0.5,1.1,0.7,standing,iso\n";
    const std::string table = "Ta,SR,RH,WS,met,clo,posture,motion\n" + rows;
    const Arguments options{
        "batch",        "-",         "--select",    "65", "--models", "two_node,utci,pmv_iso", "--with",
        "work_met=0.1", "--reasons", "--categories"};
    const std::string plain = runTool(options, table).out;
    EXPECT_NE(plain.find("No value: \"\"x\"\" is no metabolic rate."), std::string::npos) << plain;
    EXPECT_NE(plain.find("utci.utci category,utci.utci severity"), std::string::npos) << plain;
    EXPECT_EQ(runTool(with(options, {"--format", "csv"}), table).out, plain);
    EXPECT_EQ(runTool(with(options, {"--format", "csv", "--threads", "1"}), table).out, plain);
    // Another name than that of an input; a reading in °F is an input in °C.
    const Ending other =
        runTool(with(options, {"--columns", "ta=Ta:F,sr=SR,rh=RH,ws=WS,met=Act"}),
                "Ta,SR,RH,WS,Act,clo,posture,motion\n71.6,100,60,0.5,1.1,0.7,standing,iso\n");
    const auto figures = [](const std::string& text) { return text.substr(text.rfind(",ok,")); };
    EXPECT_EQ(figures(other.out), figures(plain)) << other.err;
}

// 0.2546 at 26 °C is a printed vote. The mean is that of -0.46, 0.25 and, beyond the range, 1.17.
TEST(BatchTables, ModelsHaveStatusesAndASummary)
{
    const std::string table = "Ta,SR,RH,WS\n22,0,50,0.1\n26,0,50,0.1\n31,0,50,0.1\n,0,50,0.1\n";
    const Arguments options{"batch",    "-",       "--select", "65",
                            "--models", "pmv_iso", "--with",   "tr=26,v=0.15,met=1.2,clo=0.5"};
    const std::string rows = runTool(with(options, {"--status", "--format", "tsv"}), table).out;
    for (const std::string cells : {"\tpmv_iso.pmv\tpmv_iso.pmv status\t", "\t0.2546", "\tB\tok\t",
                                    "\tnone\toutside\t", "\t\tnone\t\tnone\t"})
        EXPECT_NE(rows.find(cells), std::string::npos) << cells << rows;
    const std::string summary = runTool(with(options, {"--summary", "csv"}), table).out;
    EXPECT_NE(summary.find(",3,0,0,1,0,1,0,0,0.32,"), std::string::npos) << summary;
    EXPECT_NE(summary.find(",-0.46,,2,1.17,,4,1\r\n"), std::string::npos) << summary;
    const std::string classes = runTool(with(options, {"--summary", "classes"}), table).out;
    EXPECT_NE(classes.find(",,category B,,2,"), std::string::npos) << classes;
}

} // namespace
} // namespace comfortics::tests
