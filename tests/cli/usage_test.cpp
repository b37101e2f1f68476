// SPDX-License-Identifier: GPL-3.0-or-later
#include "process.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::tests {
namespace {

struct Wrong {
    std::string name;
    Arguments arguments;
    int status;
    std::string says; // part of the one sentence on standard error
};

const Arguments kSound{"calc", "--ta", "30", "--sr", "600", "--rh", "50", "--ws", "2"};

Arguments sound(const Arguments& more)
{
    Arguments all = kSound;
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

TEST(Usage, WrongCallsGetOneSentenceAndTheirStatus)
{
    const std::vector<Wrong> calls{
        {"nothing", {}, 2, "--help"},
        {"no command", {"frobnicate"}, 2, "There is no command \"frobnicate\""},
        {"unknown option of the tool", {"--frobnicate"}, 2, "--help"},
        {"unknown option", {"calc", "--frobnicate"}, 2, "--frobnicate"},
        {"unknown option with a value", {"batch", "x.csv", "--speed", "9"}, 2, "--speed"},
        {"word too many", {"calc", "30"}, 2, "30"},
        {"option without a value", {"calc", "--ta"}, 2, "--ta"},
        {"unknown format", sound({"--format", "xml"}), 2, "xml"},
        {"index 0", sound({"--select", "0"}), 2, "\"0\" is no list of index numbers"},
        {"index 223", sound({"--select", "1,223"}), 2, "\"1,223\" is no list of index numbers"},
        {"no number", sound({"--select", "1,x"}), 2, "\"1,x\""},
        {"empty part", sound({"--select", "1,,2"}), 2, "\"1,,2\""},
        {"empty list", sound({"--select", ""}), 2, "is no list of index numbers"},
        {"open range", sound({"--select", "5-"}), 2, "\"5-\""},
        {"range of ranges", sound({"--select", "1-2-3"}), 2, "\"1-2-3\""},
        {"backward range", sound({"--select", "1,20-10"}), 2, "\"20-10\" runs backwards"},
        {"no threads", {"batch", "x.csv", "--threads", "0"}, 2, "--threads"},
        {"threads in words", {"batch", "x.csv", "--threads", "many"}, 2, "--threads"},
        {"batch without input", {"batch"}, 2, "INPUT"},
        {"readings missing", {"calc"}, 3, "the air temperature is missing"},
        {"wind missing", {"calc", "--ta", "30", "--sr", "600", "--rh", "50"}, 3, "the wind speed is missing"},
        {"too hot",
         {"calc", "--ta", "58.1", "--sr", "600", "--rh", "50", "--ws", "2"},
         3,
         "the air temperature is missing"},
        {"lone sign",
         {"calc", "--ta", "-", "--sr", "600", "--rh", "50", "--ws", "2"},
         3,
         "the air temperature is no number"},
        {"globe far below the air",
         {"calc", "--ta", "30", "--tg", "19", "--rh", "50", "--ws", "2"},
         3,
         "globe temperature or solar radiation is missing"},
        {"dew point above the air as texts",
         {"calc", "--ta", "20", "--sr", "600", "--rh", "50", "--ws", "2"},
         4,
         "the dew point 9.27 reads above the air temperature 20 (the two are compared as texts)"},
        {"no limits file", sound({"--limits", "/nowhere/Limits.Index"}), 5,
         "The limits file /nowhere/Limits.Index cannot be read."},
        {"limits that are a folder", sound({"--limits", "/"}), 5, "The limits file / cannot be read."},
        {"no input file", {"batch", "/nowhere/x.csv"}, 5, "The file /nowhere/x.csv cannot be read"},
        {"input that is a folder", {"batch", "/"}, 5, "The file / cannot be read"},
        {"output in no folder", {"batch", "/dev/null", "-o", "/nowhere/x.csv"}, 5, "/nowhere/x.csv"},
        {"output that is a folder", {"batch", "/dev/null", "-o", "/tmp"}, 5, "/tmp"},
        {"empty input", {"batch", "/dev/null"}, 5, "/dev/null: The table is empty."},
    };
    for (const Wrong& call : calls) {
        const Ending ending = runTool(call.arguments);
        EXPECT_EQ(ending.status, call.status) << call.name << ": " << ending.err;
        EXPECT_EQ(ending.out, "") << call.name;
        EXPECT_NE(ending.err.find(call.says), std::string::npos) << call.name << ": " << ending.err;
        EXPECT_EQ(ending.err.find("comfortics-cli: "), 0U) << call.name << ": " << ending.err;
        EXPECT_EQ(ending.err.find('\n'), ending.err.size() - 1) << call.name << ": " << ending.err;
    }
}

TEST(Usage, HelpAndVersionAreNoErrors)
{
    for (const Arguments& arguments :
         {Arguments{"--help"}, {"calc", "--help"}, {"batch", "-h"}, {"list", "--help"}}) {
        const Ending ending = runTool(arguments);
        EXPECT_EQ(ending.status, 0);
        EXPECT_EQ(ending.err, "");
        EXPECT_NE(ending.out.find("Usage: comfortics-cli"), std::string::npos);
    }
    const Ending version = runTool({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out.find("comfortics-cli "), 0U);
    for (const char* option :
         {"--ta", "--ws", "--friction", "--ignore-limits", "--limits", "--select", "--format"})
        EXPECT_NE(runTool({"calc", "--help"}).out.find(option), std::string::npos) << option;
}

TEST(Usage, ListShowsTheCatalogue)
{
    const Ending all = runTool({"list", "--format", "csv"});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(std::count(all.out.begin(), all.out.end(), '\n'), 223);
    const Ending found = runTool({"list", "--search", "GOLDschmidt", "--format", "csv"});
    EXPECT_EQ(std::count(found.out.begin(), found.out.end(), '\n'), 3); // 35 and 36 carry one name
    const Ending none = runTool({"list", "--search", "no such index"});
    EXPECT_EQ(none.status, 0);
}

TEST(Usage, AFullOrClosedOutputIsAFileError)
{
    for (const Arguments& arguments :
         {kSound, Arguments{"list"}, {"batch", expectedPath("batch_input.csv")}}) {
        const Ending full = runTool(arguments, {.standardOutput = "/dev/full"});
        EXPECT_EQ(full.status, 5) << arguments[0];
        EXPECT_EQ(full.err, "comfortics-cli: The standard output cannot be written.\n") << arguments[0];
    }
    Process process({"batch", "-"});
    process.closeOutput();
    process.feed("Ta,SR,RH,WS\n30,600,50,2\n");
    const Ending closed = process.finish();
    EXPECT_EQ(closed.status, 5);
    EXPECT_EQ(closed.err, "comfortics-cli: The standard output cannot be written.\n");
}

} // namespace
} // namespace comfortics::tests
