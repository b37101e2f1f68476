// SPDX-License-Identifier: GPL-3.0-or-later
//
// Expected values come from an independent calculation of the same readings.
#include "comma_locale.h"
#include "process.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <set>
#include <string>
#include <tuple>
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

// Between them each of the 222 has a value.
TEST(Calc, PrintsTheRecordedJsonOfHeatAndCold)
{
    const Arguments cold{"calc",   "--ta=-12", "--sr=100", "--rh=70",
                         "--ws=5", "--rules",  "robust",   "--ignore-limits"};
    std::set<int> shown;
    for (const auto& [arguments, file] : {std::pair(kSolar, "calc_solar.txt"), {cold, "calc_cold.txt"}}) {
        const Ending ending = runTool(with(arguments, {"--format", "json"}));
        EXPECT_EQ(ending.status, 0) << file;
        EXPECT_EQ(partByPart(ending.out), readFile(expectedPath(file)));
        EXPECT_EQ(ending.err, "") << file;
        const Json json = Json::parse(ending.out);
        for (const Json& result : json["results"])
            if (result["value"] != "")
                shown.insert(int{result["number"]});
    }
    EXPECT_EQ(shown.size(), 222U);
}

TEST(Calc, PrintsTheSameUnderACommaLocale)
{
    const Ending ending = runTool(with(kSolar, {"--format", "json"}));
    const CommaLocale comma;
    if (comma.name().empty())
        GTEST_SKIP() << "no locale with a decimal comma can be had here";
    const Arguments german{"/usr/bin/env", "LC_ALL=" + comma.name(), COMFORTICS_CLI};
    EXPECT_EQ(Process(with(with(german, kSolar), {"--format", "json"})).finish().out, ending.out);
}

TEST(Calc, PrintsTheRecordedCsvOfTheSelection)
{
    const Ending ending = runTool({"calc", "--ta", "7.3", "--tg", "15.7", "--td", "4.5", "--ws", "3.1",
                                   "--select", "1-20,100,159,195-201", "--format", "csv"});
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, readFile(expectedPath("calc_globe.csv")));
}

TEST(Calc, WritesTheBoxesInTheSheetsOrder)
{
    // Readings, the boxes Ta, Tg, SR, Td, RH and WS, and the status.
    const std::tuple<Arguments, std::string, int> rows[] = {
        {{"--rh", "50", "--td", "10", "--ws", "0", "--sr", "600", "--tg", "35", "--ta", "30,25"},
         "30.3||600||50|0.1|",
         0},
        {{"--ta", "-9.5", "--tg=-3", "--td", "-12", "--rh=", "--ws=2"}, "-9.5|-3||-12||2|", 0},
        {{"--ta", " 30 ", "--tg", "warm", "--sr", "600", "--rh", "50", "--ws", "2"}, "30||600||50|2|", 0},
        {{"--ta", "\xFF-"}, "\uFFFD-||||||", 3}, // no UTF-8
    };
    for (const auto& [readings, boxes, status] : rows) {
        const Ending ending = runTool(with({"calc", "--format", "json", "--select", "1"}, readings));
        EXPECT_EQ(ending.status, status) << boxes;
        const Json json = Json::parse(ending.out);
        std::string texts;
        for (const std::string text : json["boxes"])
            texts += text + "|";
        EXPECT_EQ(texts, boxes);
        EXPECT_EQ(json["status"], status == 0 ? "ok" : "rejected") << boxes;
    }
}

TEST(Calc, AssumptionsAndLimitsReachTheFormulas)
{
    const TemporaryFolder folder;
    const std::string limits =
        folder.write("my limits.ini",
                     "[INDICES]\r\nTair_min_24=-60\r\nTair_max_24=30\r\nTair_min_14=0\r\nTair_max_14=29\r\n");
    const std::string damaged = folder.write("damaged", "\x01\xFF[INDI\nTair_max_24");
    const std::vector<std::pair<Arguments, std::string>> rows{
        {{}, "21.2|30.8||"},
        {{"--friction", "0.30"}, "21.2|30.3||"},
        {{"--ignore-limits"}, "21.2|30.8|-0.4|"},
        {{"--limits", limits}, "21.2||-0.4|"},
        {{"--limits", damaged}, "21.2|||"}, // no error: its bounds read as 0
    };
    const Arguments globe{"calc",   "--ta=30",          "--tg=40",      "--rh=50",
                          "--ws=2", "--select=5,14,24", "--format=json"};
    for (const auto& [more, expected] : rows) {
        const Json results = Json::parse(runTool(with(globe, more)).out)["results"];
        std::string values;
        for (const std::size_t index : {5U, 14U, 24U})
            values += std::string(results[index - 1]["value"]) + "|";
        EXPECT_EQ(values, expected) << testing::PrintToString(more);
    }
}

TEST(Calc, TellsWhatTheLimitsLack)
{
    const TemporaryFolder folder;
    std::filesystem::copy_file(COMFORTICS_CLI, folder.file("tool"));
    Ending ending = Process(with({folder.file("tool")}, kSolar)).finish();
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.err,
              "comfortics-cli: Indices with limits stay blank: Limits.Index, which belongs beside the "
              "program, is missing or holds no limits.\n");

    std::filesystem::create_directory(folder.file("Limits.Index"));
    ending = Process(with({folder.file("tool")}, kSolar)).finish();
    EXPECT_EQ(ending.status, 5);
    EXPECT_EQ(ending.err, "comfortics-cli: The limits file " + folder.file("Limits.Index") +
                              " cannot be read: Is a directory.\n");

    const std::string named = folder.write("named", "[INDICES]\nTair_max_1=4O\n");
    ending = runTool(with(kSolar, {"--limits", named}));
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.err, "comfortics-cli: In " + named + " Tair_max_1=4O is no number and counts as 4.\n");
}

TEST(Calc, AFailedRunSaysWhyAndShowsNoFigure)
{
    const Ending failed =
        runTool({"calc", "--ta", "20", "--sr", "600", "--td", "9.3", "--ws", "2", "--format", "json"});
    EXPECT_EQ(failed.status, 4);
    const Json json = Json::parse(failed.out);
    EXPECT_EQ(json["status"], "failed");
    EXPECT_EQ(json["failure"]["where"], "UTCI_Regression");
    EXPECT_EQ(json["failure"]["why"],
              "the dew point 9.3 reads above the air temperature 20 (the two are compared as texts)");
    for (const Json& result : json["results"])
        EXPECT_EQ(result["value"], "");
    EXPECT_EQ(json["live"]["Ta"], "");
}

TEST(Calc, PassesOnTheSolversMessages)
{
    const Arguments extreme{"calc", "--ta", "53", "--sr", "616", "--rh", "78.2", "--ws", "0.1"};
    const std::string message = "No convergence: values too extreme";
    const Ending json = runTool(with(extreme, {"--format", "json"}));
    EXPECT_EQ(Json::parse(json.out)["messages"], (Json{message, message}));
    EXPECT_EQ(json.err, "");
    EXPECT_EQ(runTool(extreme).err, "comfortics-cli: " + message + "\ncomfortics-cli: " + message + "\n");
}

} // namespace
} // namespace comfortics::tests
