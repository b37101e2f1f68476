// SPDX-License-Identifier: GPL-3.0-or-later
//
// Expected values come from an independent calculation of the same readings.
#include "../values/comma_locale.h"
#include "process.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace comfortics::tests {
namespace {

using Json = nlohmann::ordered_json;

/// The JSON with a line for each part and each result, for a file whose changes can be read.
std::string partByPart(const std::string& text)
{
    const Json root = Json::parse(text);
    EXPECT_EQ(text, root.dump(2) + "\n");
    std::string lines;
    for (const auto& [key, part] : root.items()) {
        lines += key + (key == "results" ? "" : " " + part.dump()) + "\n";
        if (key == "results")
            for (const Json& result : part)
                lines += result.dump() + "\n";
    }
    return lines;
}

/// Values of the results in the JSON that these arguments give.
std::vector<std::string> values(const Arguments& arguments, const std::vector<std::size_t>& indices)
{
    const Json json = Json::parse(runTool(with(arguments, {"--format", "json"})).out);
    std::vector<std::string> found;
    for (const std::size_t index : indices)
        found.push_back(json["results"][index - 1]["value"]);
    return found;
}

TEST(Calc, PrintsTheRecordedJsonAlsoUnderACommaLocale)
{
    const std::string expected = readFile(expectedPath("calc_solar.txt"));
    const Ending ending = runTool(with(kSolar, {"--format", "json"}));
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(partByPart(ending.out), expected);
    EXPECT_EQ(ending.err, "");
    const CommaLocale comma;
    if (comma.name().empty())
        GTEST_SKIP() << "no locale with a decimal comma can be had here";
    const Surroundings german{.environment = {{"LC_ALL", comma.name()}, {"LANG", comma.name()}}};
    EXPECT_EQ(runTool(with(kSolar, {"--format", "json"}), german).out, ending.out);
}

TEST(Calc, PrintsTheRecordedCsvOfTheSelection)
{
    const Ending ending = runTool({"calc", "--ta", "7.3", "--tg", "15.7", "--td", "4.5", "--ws", "3.1",
                                   "--select", "1-20,100,159,195-201", "--format", "csv"});
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, readFile(expectedPath("calc_globe.csv")));
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
        Arguments readings;
        std::string boxes; // Ta Tg SR Td RH WS
        int status;
    };
    const std::vector<Row> rows{
        {{"--rh", "50", "--td", "10", "--ws", "0", "--sr", "600", "--tg", "35", "--ta", "30"},
         "30||600||50|0.1|",
         0},
        {{"--ta", "30.25", "--sr", "600.5", "--rh", "50,04", "--ws", "2.00"}, "30.3||601||50|2|", 0},
        {{"--ta", "-9.5", "--tg=-3", "--td", "-12", "--ws=2"}, "-9.5|-3||-12||2|", 0},
        {{"--ta", " 30 ", "--tg", "warm", "--sr", "600", "--rh", "50", "--ws", "2"}, "30||600||50|2|", 0},
        {{"--ta", "30", "--tg", "", "--sr=", "--rh", "50", "--ws", "2"}, "30||||50|2|", 3},
        {{"--ta", "\xFF-"}, "\uFFFD-||||||", 3}, // no UTF-8
    };
    for (const Row& row : rows) {
        const Ending ending = runTool(with({"calc", "--format", "json", "--select", "1"}, row.readings));
        EXPECT_EQ(ending.status, row.status) << row.boxes;
        const Json json = Json::parse(ending.out);
        std::string boxes;
        for (const std::string text : json["boxes"])
            boxes += text + "|";
        EXPECT_EQ(boxes, row.boxes) << row.boxes;
        EXPECT_EQ(json["status"], row.status == 0 ? "ok" : "rejected") << row.boxes;
    }
}

TEST(Calc, AssumptionsAndLimitsReachTheFormulas)
{
    const TemporaryFolder folder;
    const std::string limits =
        folder.write("my limits.ini",
                     "[INDICES]\r\nTair_min_24=-60\r\nTair_max_24=30\r\nTair_min_14=0\r\nTair_max_14=29\r\n");
    const std::string damaged = folder.write("damaged", "\x01\xFF[INDI\nTair_max_24");
    const std::vector<std::pair<Arguments, std::vector<std::string>>> rows{
        {{}, {"21.2", "30.8", ""}},
        {{"--friction", "0.30"}, {"21.2", "30.3", ""}},
        {{"--ignore-limits"}, {"21.2", "30.8", "-0.4"}},
        {{"--limits", limits}, {"21.2", "", "-0.4"}},
        {{"--limits", damaged}, {"21.2", "", ""}}, // no error: its bounds read as 0
    };
    const Arguments globe{"calc", "--ta", "30", "--tg",     "40",     "--rh",
                          "50",   "--ws", "2",  "--select", "5,14,24"};
    for (const auto& [more, expected] : rows)
        EXPECT_EQ(values(with(globe, more), {5, 14, 24}), expected) << testing::PrintToString(more);
}

TEST(Calc, WarnsWhereTheLimitsAreMissingBesideTheProgram)
{
    const TemporaryFolder folder;
    std::filesystem::copy_file(COMFORTICS_CLI, folder.file("tool"));
    const Ending ending =
        runTool(with(kSolar, {"--select", "5,35", "--format", "csv"}), {.program = folder.file("tool")});
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, "number,name,value,unit\r\n"
                          "5,Actual Vapor Pressure,21.2,hPa\r\n"
                          "35,Cooling Power (Goldschmidt; 1952),,mcal/cm²/s\r\n");
    EXPECT_EQ(ending.err,
              "comfortics-cli: Limits.Index, which belongs beside the program, is missing or holds no "
              "limits: indices with limits stay blank.\n");
}

TEST(Calc, ARunWithoutResultsSaysWhyAndShowsNoFigure)
{
    const Ending rejected = runTool({"calc", "--ta", "30", "--format", "json"});
    const Ending failed =
        runTool({"calc", "--ta", "20", "--sr", "600", "--td", "9.3", "--ws", "2", "--format", "json"});
    EXPECT_EQ(rejected.status, 3);
    EXPECT_EQ(failed.status, 4);
    EXPECT_EQ(Json::parse(rejected.out)["status"], "rejected");
    EXPECT_EQ(Json::parse(rejected.out)["failure"], nullptr);
    const Json json = Json::parse(failed.out);
    EXPECT_EQ(json["status"], "failed");
    EXPECT_EQ(json["failure"]["where"], "UTCI_Regression");
    EXPECT_EQ(json["failure"]["why"],
              "the dew point 9.3 reads above the air temperature 20 (the two are compared as texts)");
    EXPECT_EQ(json["results"].size(), 222U);
    for (const Json& result : json["results"])
        EXPECT_EQ(result["value"], "");
    for (const Json& live : json["live"])
        EXPECT_EQ(live, "");
}

TEST(Calc, PassesOnTheSolversMessages)
{
    const Arguments extreme{"calc", "--ta", "53", "--sr", "616", "--rh", "78.2", "--ws", "0.1"};
    const std::string message = "No convergence: values too extreme";
    const Ending json = runTool(with(extreme, {"--format", "json"}));
    EXPECT_EQ(Json::parse(json.out)["messages"], (Json{message, message}));
    EXPECT_EQ(json.err, "");
    const Ending text = runTool(extreme);
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.err, "comfortics-cli: " + message + "\ncomfortics-cli: " + message + "\n");
}

} // namespace
} // namespace comfortics::tests
