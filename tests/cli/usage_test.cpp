// SPDX-License-Identifier: GPL-3.0-or-later
#include "process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

namespace comfortics::tests {
namespace {

TEST(Usage, WrongCallsGetOneSentenceAndTheirStatus)
{
    // What is called, and a part of the one sentence on standard error.
    std::vector<std::tuple<Arguments, int, std::string>> calls{
        {{}, 2, "--help"},
        {{"frobnicate"}, 2, "There is no command \"frobnicate\""},
        {{"--frobnicate"}, 2, "required; see comfortics-cli --help."},
        {{"calc", "--frobnicate"}, 2, "--frobnicate"},
        {{"batch", "x.csv", "--threads", "0"}, 2, "--threads"},
        {{"convert", "212"}, 2, "convert needs a VALUE and a UNIT, or --list."},
        {{"convert", "x", "F"}, 2, "\"x\" is no number."},
        {{"convert", "1", "C"}, 2, "There is no unit \"C\""},
        {{"convert", "1e306", "W/cm2"}, 4, "1e306 W/cm2 cannot be converted: "},
        {{"radiation", "--lat", "70", "--day", "172"}, 4, "the sun does not set at latitude 70 on day 172"},
        {{"radiation", "--lat=3.45", "--lon=3e15"}, 4, "the minutes cannot be counted from 1.2"},
        {{"radiation", "--date", "2023-02-29"}, 2, "2023-02-29"},
        {{"radiation", "--date", "23-2-1"}, 2, "YYYY-MM-DD"},
        {{"radiation", "--day", "3", "--date", "2023-01-03"}, 2, "--day"},
        {{"radiation", "--okta", "10"}, 2, "--okta"},
        {{"radiation", "--gmt", "--format=json"}, 2, "--gmt: a value is missing before --format=json"},
        {{"calc"}, 3, "the air temperature is missing"},
        {{"calc", "--ta=20", "--sr=600", "--rh=50", "--ws=2"}, 4, "the dew point 9.27 reads above"},
        {with(kSolar, {"--limits", "/nowhere/x"}), 5, "The limits file /nowhere/x cannot be read: No such"},
        {with(kSolar, {"--limits", "/"}), 5, "The limits file / cannot be read: Is a directory."},
        {with(kSolar, {"--limits", "/dev/zero"}), 5, "/dev/zero cannot be read: it is larger than 1 MiB."},
        {with(kSolar, {"--limits", ""}), 2, "--limits: the name of the file is empty"},
        {{"list", "--limits="}, 2, "--limits: the name of the file is empty"},
        {{"batch", "/nowhere/x.csv"}, 5, "The file /nowhere/x.csv cannot be read"},
        {{"batch", "/"}, 5, "The file / cannot be read"},
        {{"batch", "/dev/null", "-o", "/tmp"}, 5, "/tmp"},
        {{"batch", expectedPath("batch_input.csv"), "-o", "/dev/full"}, 5, "No space left on device."},
        {{"batch", "/dev/null"}, 5, "/dev/null: The table is empty."},
        {{"batch", ""}, 2, "INPUT: the name of the file is empty"},
        {{"batch", "/dev/null", "-o", ""}, 2, "--output: the name of the file is empty"},
    };
    for (const char* list : {"0", "1,223", "1,x", "utci,humidex", "1,,2", "", "5-", "1-2-3"})
        calls.push_back({with(kSolar, {"--select", list}), 2,
                         "\"" + std::string(list) + "\" is no list of index numbers"});
    calls.push_back({with(kSolar, {"--select", "1,20-10"}), 2, "\"20-10\" runs backwards"});
    for (const auto& [arguments, status, says] : calls) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Ending ending = runTool(arguments);
        EXPECT_EQ(ending.status, status) << ending.err;
        EXPECT_EQ(ending.out, "");
        EXPECT_NE(ending.err.find(says), std::string::npos) << ending.err;
        EXPECT_EQ(ending.err.find("comfortics-cli: "), 0U) << ending.err;
        EXPECT_EQ(ending.err.find('\n'), ending.err.size() - 1) << ending.err;
    }
}

TEST(Usage, HelpVersionAndListsAreNoErrors)
{
    const std::pair<Arguments, const char*> rows[] = {
        {{"--help"}, "Usage: comfortics-cli"},
        {{"calc", "--help"}, "--friction"},
        {{"--version"}, "comfortics-cli "},
        {{"list", "--search", "no such index"}, "Temperature limits [°C]"},
        {{"list", "--search", "Bodman"}, " Ta    -60 to 10                                   Bodman; 1908\n"},
        {{"list", "--search", "Bodman", "--format", "json"}, "\"tair_max\": 10.0,"},
        {with(kSolar, {"--select", "24", "--format", "csv", "--reasons"}),
         "number,name,value,unit,reason\r\n24,Bodman's Weather Severity Index (Winter) (Bodman; 1908),,[-],"
         "\"Outside its limits: Ta is 30 °C, valid from -60 to 10 °C.\"\r\n"},
        {with(kSolar, {"--select", "24,134", "--format", "csv", "--ignore-limits", "--provenance"}),
         "number,name,value,unit,rules,limits,outside\r\n24,"},
        {with(kSolar, {"--select", "24", "--format", "csv", "--ignore-limits", "--provenance"}),
         ",classic,ignored,\"Shown since limits are ignored. Outside its limits: Ta is 30 °C, valid from -60 "
         "to "
         "10 °C.\"\r\n"},
        {with(kSolar, {"--rules", "robust", "--provenance"}), "\nCalculated by robust rules, limits kept.\n"},
        {with(kSolar, {"--format", "json", "--provenance"}),
         "\"rules\": \"classic\",\n  \"limits\": \"kept\","},
        {{"convert", "0,5", "kW/m2"}, "500.0 W/m²\n"},
        {{"radiation", "--lat=51.5", "--lon=0", "--gmt=0", "--day=100", "--okta=7", "--format=json"},
         "    \"Time (hh:mm)\": \"11:32\",\n"
         "    \"Solar Radiation (horizontal surface)(W/m²}\": \"730.1\",\n"
         "    \"Solar Radiation (tilt surface)(W/m²}\": \"911.4\",\n"},
        {{"convert", "--list"}, "kW/m2      kW/m²                Solar Radiation  W/m²\n"},
    };
    for (const auto& [arguments, says] : rows) {
        const Ending ending = runTool(arguments);
        EXPECT_EQ(ending.status, 0) << says;
        EXPECT_EQ(ending.err, "") << says;
        EXPECT_NE(ending.out.find(says), std::string::npos) << ending.out;
    }
}

TEST(Usage, ListAndRadiationPrintWholeTables)
{
    const Ending all = runTool({"list", "--format", "csv"});
    EXPECT_EQ(std::count(all.out.begin(), all.out.end(), '\n'), 223);
    const Ending found = runTool({"list", "--search", "GOLDschmidt", "--format", "csv"});
    EXPECT_EQ(std::count(found.out.begin(), found.out.end(), '\n'), 3); // 35 and 36 carry one name
    // The best first, and a slip is told beside an empty table.
    const Ending outdoors = runTool({"list", "--find", "wbgt yaglou outdoor", "--format", "csv"});
    EXPECT_EQ(std::count(outdoors.out.begin(), outdoors.out.end(), '\n'), 2);
    EXPECT_NE(outdoors.out.find("\n200,"), std::string::npos);
    const Ending slip = runTool({"list", "--find", "humidx", "--format", "csv"});
    EXPECT_EQ(slip.status, 0);
    EXPECT_EQ(std::count(slip.out.begin(), slip.out.end(), '\n'), 1);
    EXPECT_EQ(slip.err, "comfortics-cli: Nothing found. Did you mean Humidex or Humid?\n");
    EXPECT_EQ(runTool({"list", "--find", "utci", "--search", "utci"}).status, 2);
    Ending day =
        runTool({"radiation", "--lat=64.1466", "--lon=-21.9426", "--gmt=0", "--date=2023-12-21", "--okta=9"});
    EXPECT_EQ(std::erase(day.out, '\r'), 153U) << "one at each end of a line";
    EXPECT_EQ(day.out, readFile(expectedPath("../../radiation/tables/reykjavik_day_355_okta_9.csv")));
}

TEST(Usage, AFullOrClosedOutputIsAFileError)
{
    int closed[2];
    ASSERT_EQ(::pipe2(closed, O_CLOEXEC), 0);
    ::close(closed[0]);
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    const Arguments batch{"batch", expectedPath("batch_input.csv")};
    for (const Arguments& arguments : {batch,
                                       kSolar,
                                       {"list"},
                                       {"radiation", "--day=100"},
                                       {"convert", "--list"},
                                       {"--help"},
                                       {"--version"}})
        for (const int output : {full, closed[1]}) {
            const Ending ending = Process(with({COMFORTICS_CLI}, arguments), output).finish();
            EXPECT_EQ(ending.status, 5) << arguments[0];
            EXPECT_EQ(ending.err, "comfortics-cli: The standard output cannot be written.\n");
        }
    ::close(full);
    ::close(closed[1]);
}

} // namespace
} // namespace comfortics::tests
