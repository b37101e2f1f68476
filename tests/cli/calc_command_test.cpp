// SPDX-License-Identifier: GPL-3.0-or-later
//
// Expected values come from an independent calculation of the same readings.
#include "../values/comma_locale.h"
#include "process.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace comfortics::tests {
namespace {

using Json = nlohmann::json;

const Arguments kSolar{"calc", "--ta", "30", "--sr", "600", "--rh", "50", "--ws", "2"};

Arguments with(Arguments arguments, const Arguments& more)
{
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

std::string value(const Ending& ending, std::size_t index)
{
    return Json::parse(ending.out)["results"][index - 1]["value"];
}

TEST(Calc, PrintsTheRecordedJson)
{
    const Ending ending = runTool(with(kSolar, {"--format", "json"}));
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, fileText(expectedPath("calc_solar.json")));
    EXPECT_EQ(ending.err, "");
}

TEST(Calc, PrintsTheRecordedCsvOfTheSelection)
{
    const Ending ending = runTool({"calc", "--ta", "7.3", "--tg", "15.7", "--td", "4.5", "--ws", "3.1",
                                   "--select", "1-20,100,159,195-201", "--format", "csv"});
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, fileText(expectedPath("calc_globe.csv")));
}

TEST(Calc, AlignsTheTextForReading)
{
    const Ending ending = runTool(with(kSolar, {"--select", "2,35,214"}));
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, "Live quantity                                        Value  Unit\n"
                          "----------------------------------  ----  ----------------  ----\n"
                          "Air temperature                     Ta            30.00000  °C\n"
                          "Globe temperature                   Tg            39.19379  °C\n"
                          "Solar radiation                     SR           600.00000  W/m²\n"
                          "Dew point                           Td            18.43809  °C\n"
                          "Relative humidity                   RH            50.00000  %\n"
                          "Wind speed                          WS             2.00000  m/s\n"
                          "Mean radiant temperature            Tmrt  64.5557761372821  °C\n"
                          "Natural wet-bulb temperature        Tnwb          23.15121  °C\n"
                          "Psychrometric wet-bulb temperature  Tpwb          21.93809  °C\n"
                          "Saturated vapour pressure           Es            42.47046  hPa\n"
                          "Actual vapour pressure              Ea            21.22134  hPa\n"
                          "\n"
                          " No  Thermal Index                                Value  Unit\n"
                          "---  -------------------------------------------  -----  ----------\n"
                          "  2  Actual Sensation Vote  (Nikolopoulou; 2004)    0.4  [-]\n"
                          " 35  Cooling Power (Goldschmidt; 1952)              3.2  mcal/cm²/s\n"
                          "214  Wind Chill Equivalent (Quayle; 1998)                °C\n");
}

TEST(Calc, WritesTheBoxesInTheSheetsOrder)
{
    struct Row {
        std::string name;
        Arguments readings;
        Json boxes;
    };
    const std::vector<Row> rows{
        {"given in another order",
         {"--rh", "50", "--td", "10", "--ws", "0", "--sr", "600", "--tg", "35", "--ta", "30"},
         {{"TA", "30"}, {"TG", ""}, {"SR", "600"}, {"DP", ""}, {"RH", "50"}, {"WS", "0.1"}}},
        {"rounded",
         {"--ta", "30.25", "--sr", "600.5", "--rh", "50,04", "--ws", "2.00"},
         {{"TA", "30.3"}, {"TG", ""}, {"SR", "601"}, {"DP", ""}, {"RH", "50"}, {"WS", "2"}}},
        {"negative, also with the equals sign",
         {"--ta", "-9.5", "--tg=-3", "--td", "-12", "--ws=2"},
         {{"TA", "-9.5"}, {"TG", "-3"}, {"SR", ""}, {"DP", "-12"}, {"RH", ""}, {"WS", "2"}}},
        {"blanks and letters",
         {"--ta", " 30 ", "--tg", "warm", "--sr", "600", "--rh", "50", "--ws", "2"},
         {{"TA", "30"}, {"TG", ""}, {"SR", "600"}, {"DP", ""}, {"RH", "50"}, {"WS", "2"}}},
        {"an empty text is none",
         {"--ta", "30", "--tg", "", "--sr=", "--rh", "50", "--ws", "2"},
         {{"TA", "30"}, {"TG", ""}, {"SR", ""}, {"DP", ""}, {"RH", "50"}, {"WS", "2"}}},
    };
    for (const Row& row : rows) {
        Arguments arguments{"calc", "--format", "json", "--select", "1"};
        const Ending ending = runTool(with(arguments, row.readings));
        const Json json = Json::parse(ending.out);
        EXPECT_EQ(json["boxes"], row.boxes) << row.name;
        const bool given =
            !row.boxes["TG"].get<std::string>().empty() || !row.boxes["SR"].get<std::string>().empty();
        EXPECT_EQ(json["status"], given ? "ok" : "rejected") << row.name << ending.err;
        EXPECT_EQ(ending.status, given ? 0 : 3) << row.name;
    }
}

TEST(Calc, AssumptionsAndLimitsReachTheFormulas)
{
    const Arguments globe{"calc", "--ta", "30",       "--tg", "40",       "--rh",   "50",
                          "--ws", "2",    "--format", "json", "--select", "5,14,24"};
    EXPECT_EQ(value(runTool(globe), 14), "30.8");
    EXPECT_EQ(value(runTool(with(globe, {"--friction", "0.30"})), 14), "30.3");
    EXPECT_EQ(value(runTool(globe), 24), "");
    EXPECT_EQ(value(runTool(with(globe, {"--ignore-limits"})), 24), "-0.4");

    const TemporaryFolder folder;
    const std::string limits =
        folder.write("my limits.ini",
                     "[INDICES]\r\nTair_min_24=-60\r\nTair_max_24=30\r\nTair_min_14=0\r\nTair_max_14=29\r\n");
    const Ending other = runTool(with(globe, {"--limits", limits}));
    EXPECT_EQ(value(other, 24), "-0.4");
    EXPECT_EQ(value(other, 14), "");
    // A damaged file is no error: its bounds read as 0.
    const Ending damaged =
        runTool(with(globe, {"--limits", folder.write("damaged", "\x01\xFF[INDI\nTair_max_24")}));
    EXPECT_EQ(damaged.status, 0);
    EXPECT_EQ(value(damaged, 24), "");
    EXPECT_EQ(value(damaged, 5), "21.2"); // has no limits
}

TEST(Calc, WarnsWhereTheLimitsAreMissingBesideTheProgram)
{
    const TemporaryFolder folder;
    std::filesystem::copy_file(COMFORTICS_CLI, folder.file("tool"));
    const Ending ending =
        Process(with(kSolar, {"--select", "5,35", "--format", "csv"}), {.program = folder.file("tool")})
            .finish();
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, "number,name,value,unit\r\n"
                          "5,Actual Vapor Pressure,21.2,hPa\r\n"
                          "35,Cooling Power (Goldschmidt; 1952),,mcal/cm²/s\r\n");
    EXPECT_EQ(ending.err,
              "comfortics-cli: Limits.Index, which belongs beside the program, is missing or holds no "
              "limits: indices with limits stay blank.\n");
}

TEST(Calc, ARejectedSetIsToldInTheJsonToo)
{
    const Ending ending = runTool({"calc", "--ta", "30", "--format", "json"});
    EXPECT_EQ(ending.status, 3);
    const Json json = Json::parse(ending.out);
    EXPECT_EQ(json["status"], "rejected");
    EXPECT_EQ(json["failure"], nullptr);
    EXPECT_EQ(json["results"].size(), 222U);
    for (const auto& row : json["results"])
        EXPECT_EQ(row["value"], "");
}

TEST(Calc, AFailedRunSaysWhereAndWhyAndShowsNoFigure)
{
    const Ending ending =
        runTool({"calc", "--ta", "20", "--sr", "600", "--td", "9.3", "--ws", "2", "--format", "json"});
    EXPECT_EQ(ending.status, 4);
    const Json json = Json::parse(ending.out);
    EXPECT_EQ(json["status"], "failed");
    EXPECT_EQ(json["failure"]["where"], "UTCI_Regression");
    EXPECT_EQ(json["failure"]["why"],
              "the dew point 9.3 reads above the air temperature 20 (the two are compared as texts)");
    for (const auto& row : json["results"])
        EXPECT_EQ(row["value"], "");
    for (const auto& live : json["live"])
        EXPECT_EQ(live, "");
}

TEST(Calc, PassesOnTheSolversMessages)
{
    const Arguments extreme{"calc", "--ta", "53", "--sr", "616", "--rh", "78.2", "--ws", "0.1"};
    const Ending json = runTool(with(extreme, {"--format", "json"}));
    EXPECT_EQ(json.status, 0);
    EXPECT_EQ(Json::parse(json.out)["messages"],
              (Json{"No convergence: values too extreme", "No convergence: values too extreme"}));
    EXPECT_EQ(json.err, "");
    const Ending text = runTool(extreme);
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.err, "comfortics-cli: No convergence: values too extreme\n"
                        "comfortics-cli: No convergence: values too extreme\n");
}

TEST(Calc, TextsThatAreNoUtf8EndNothing)
{
    const Ending ending = runTool({"calc", "--ta", "\xFF-", "--format", "json"});
    EXPECT_EQ(ending.status, 3);
    EXPECT_EQ(Json::parse(ending.out)["status"], "rejected");
}

TEST(Calc, SaysTheSameUnderACommaLocale)
{
    const CommaLocale comma;
    if (comma.name().empty())
        GTEST_SKIP() << "no locale with a decimal comma can be had here";
    Surroundings german{.environment = {{"LC_ALL", comma.name()}, {"LANG", comma.name()}}};
    const Ending ending = runTool(with(kSolar, {"--format", "json"}), german);
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, fileText(expectedPath("calc_solar.json")));
}

} // namespace
} // namespace comfortics::tests
