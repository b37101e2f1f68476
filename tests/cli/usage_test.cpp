// SPDX-License-Identifier: GPL-3.0-or-later
#include "process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace comfortics::tests {
namespace {

struct Wrong {
    Arguments arguments;
    int status;
    std::string says; // part of the one sentence on standard error
};

TEST(Usage, WrongCallsGetOneSentenceAndTheirStatus)
{
    std::vector<Wrong> calls{
        {{}, 2, "--help"},
        {{"frobnicate"}, 2, "There is no command \"frobnicate\""},
        {{"--frobnicate"}, 2, "required; see comfortics-cli --help."},
        {{"calc", "--frobnicate"}, 2, "--frobnicate"},
        {{"calc", "30"}, 2, "30"},
        {{"calc", "--ta"}, 2, "--ta"},
        {with(kSolar, {"--format", "xml"}), 2, "xml"},
        {{"batch", "x.csv", "--threads", "0"}, 2, "--threads"},
        {{"batch", "x.csv", "--threads", "many"}, 2, "--threads"},
        {{"batch"}, 2, "INPUT"},
        {{"convert", "212"}, 2, "convert needs a VALUE and a UNIT, or --list."},
        {{"convert", "x", "F"}, 2, "\"x\" is no number."},
        {{"convert", "1", "C"}, 2, "There is no unit \"C\""},
        {{"convert", "1e306", "W/cm2"}, 4, "1e306 W/cm2 cannot be converted: "},
        {{"calc"}, 3, "the air temperature is missing"},
        {{"calc", "--ta", "30", "--sr", "600", "--rh", "50"}, 3, "the wind speed is missing"},
        {{"calc", "--ta", "-", "--sr", "600", "--rh", "50", "--ws", "2"},
         3,
         "the air temperature is no number"},
        {{"calc", "--ta", "20", "--sr", "600", "--rh", "50", "--ws", "2"},
         4,
         "the dew point 9.27 reads above the air temperature 20 (the two are compared as texts)"},
        {with(kSolar, {"--limits", "/nowhere/Limits.Index"}), 5,
         "The limits file /nowhere/Limits.Index cannot be read."},
        {with(kSolar, {"--limits", "/"}), 5, "The limits file / cannot be read."},
        {{"batch", "/nowhere/x.csv"}, 5, "The file /nowhere/x.csv cannot be read"},
        {{"batch", "/"}, 5, "The file / cannot be read"},
        {{"batch", "/dev/null", "-o", "/nowhere/x.csv"}, 5, "/nowhere/x.csv"},
        {{"batch", "/dev/null", "-o", "/tmp"}, 5, "/tmp"},
        {{"batch", "/dev/null"}, 5, "/dev/null: The table is empty."},
    };
    for (const char* list : {"0", "1,223", "1,x", "1,,2", "", "5-", "1-2-3"})
        calls.push_back({with(kSolar, {"--select", list}), 2,
                         "\"" + std::string(list) + "\" is no list of index numbers"});
    calls.push_back({with(kSolar, {"--select", "1,20-10"}), 2, "\"20-10\" runs backwards"});
    for (const Wrong& call : calls) {
        SCOPED_TRACE(testing::PrintToString(call.arguments));
        const Ending ending = runTool(call.arguments);
        EXPECT_EQ(ending.status, call.status) << ending.err;
        EXPECT_EQ(ending.out, "");
        EXPECT_NE(ending.err.find(call.says), std::string::npos) << ending.err;
        EXPECT_EQ(ending.err.find("comfortics-cli: "), 0U) << ending.err;
        EXPECT_EQ(ending.err.find('\n'), ending.err.size() - 1) << ending.err;
    }
}

TEST(Usage, HelpVersionAndListsAreNoErrors)
{
    const std::pair<Arguments, const char*> rows[] = {
        {{"--help"}, "Usage: comfortics-cli"},
        {{"batch", "-h"}, "Usage: comfortics-cli batch"},
        {{"calc", "--help"}, "--friction"},
        {{"--version"}, "comfortics-cli "},
        {{"list", "--search", "no such index"}, "Temperature limits [°C]"},
        {{"list", "--search", "Bodman"}, " Ta    -60 to 10                                   Bodman; 1908\n"},
        {{"list", "--search", "Bodman", "--format", "json"}, "\"tair_max\": 10.0,"},
        {with(kSolar, {"--select", "24", "--format", "csv", "--reasons"}),
         "number,name,value,unit,reason\r\n24,Bodman's Weather Severity Index (Winter) (Bodman; 1908),,[-],"
         "\"Outside its limits: Ta is 30 °C, valid from -60 to 10 °C.\"\r\n"},
        {{"convert", "212", "F"}, "100.0 °C\n"},
        {{"convert", "--list"}, "kW/m2      kW/m²                Solar Radiation  W/m²\n"},
    };
    for (const auto& [arguments, says] : rows) {
        const Ending ending = runTool(arguments);
        EXPECT_EQ(ending.status, 0) << says;
        EXPECT_EQ(ending.err, "") << says;
        EXPECT_NE(ending.out.find(says), std::string::npos) << ending.out;
    }
}

TEST(Usage, ListShowsTheCatalogue)
{
    const Ending all = runTool({"list", "--format", "csv"});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(std::count(all.out.begin(), all.out.end(), '\n'), 223);
    const Ending found = runTool({"list", "--search", "GOLDschmidt", "--format", "csv"});
    EXPECT_EQ(std::count(found.out.begin(), found.out.end(), '\n'), 3); // 35 and 36 carry one name
}

TEST(Usage, AFullOrClosedOutputIsAFileError)
{
    const std::string says = "comfortics-cli: The standard output cannot be written.\n";
    for (const Arguments& arguments :
         {kSolar, Arguments{"list"}, {"batch", expectedPath("batch_input.csv")}}) {
        const Ending full = runTool(arguments, {.standardOutput = "/dev/full"});
        EXPECT_EQ(full.status, 5) << arguments[0];
        EXPECT_EQ(full.err, says) << arguments[0];
    }
    const Ending closed = runTool({"batch", expectedPath("batch_input.csv")}, {.brokenOutput = true});
    EXPECT_EQ(closed.status, 5);
    EXPECT_EQ(closed.err, says);
}

} // namespace
} // namespace comfortics::tests
