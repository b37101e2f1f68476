// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands radiation and convert of the terminal tool, run as a process.
#include <gtest/gtest.h>

#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

namespace comfortics {
namespace {

struct Outcome {
    int status = -1;
    std::string output; // of both streams
};

Outcome run(const std::string& arguments)
{
    Outcome outcome;
    std::FILE* const pipe =
        ::popen((std::string("'") + COMFORTICS_CLI + "' " + arguments + " 2>&1").c_str(), "r");
    if (!pipe)
        return outcome;
    char buffer[4096];
    for (std::size_t got = 0; (got = std::fread(buffer, 1, sizeof buffer, pipe)) > 0;)
        outcome.output.append(buffer, got);
    const int status = ::pclose(pipe);
    outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return outcome;
}

TEST(RadiationCommand, PrintsTheRecordedTable)
{
    Outcome outcome = run("radiation --lat=64.1466 --lon=-21.9426 --gmt=0 --date 2023-12-21 --okta 9");
    EXPECT_EQ(outcome.status, 0);
    std::ifstream file(RADIATION_TABLES "/reykjavik_day_355_okta_9.csv", std::ios::binary);
    EXPECT_EQ(std::erase(outcome.output, '\r'), 153U) << "one at each end of a line";
    EXPECT_EQ(outcome.output, std::string(std::istreambuf_iterator<char>(file), {}));
}

TEST(RadiationCommand, EndsWithItsStatus)
{
    const struct {
        const char* arguments;
        int status;
        const char* output;
    } rows[] = {
        {"--lat 70 --lon 20 --day 172", 4, "the sun does not set at latitude 70 on day 172 of the year"},
        {"--lat 40 --date 2023-02-29", 2, "2023-02-29"},
        {"--lat 40 --date 23-2-1", 2, "YYYY-MM-DD"},
        {"--lat 40 --day 3 --date 2023-01-03", 2, "--day"},
        {"--lat 40 --okta 10", 2, "--okta"},
        {"--lat 40 --format xml", 2, "xml"}};
    for (const auto& row : rows) {
        const Outcome outcome = run(std::string("radiation ") + row.arguments);
        EXPECT_EQ(outcome.status, row.status) << row.arguments;
        EXPECT_NE(outcome.output.find(row.output), std::string::npos) << outcome.output;
        EXPECT_EQ(outcome.output.find("Time (hh:mm)"), std::string::npos) << row.arguments;
        EXPECT_EQ(std::count(outcome.output.begin(), outcome.output.end(), '\n'), 1) << outcome.output;
    }
}

TEST(RadiationCommand, PrintsJson)
{
    const Outcome outcome = run("radiation --lat 51.5 --lon 0 --gmt 0 --day 100 --okta 7 --format json");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_NE(outcome.output.find("    \"Time (hh:mm)\": \"11:32\",\n"
                                  "    \"Solar Radiation (horizontal surface)(W/m²}\": \"730.1\",\n"
                                  "    \"Solar Radiation (tilt surface)(W/m²}\": \"911.4\",\n"),
              std::string::npos);
}

TEST(ConvertCommand, Converts)
{
    const struct {
        const char* arguments;
        int status;
        const char* output;
    } rows[] = {{"212 F", 0, "100.0 °C\n"},
                {"36 km/h", 0, "10.00 m/s\n"},
                {"0,5 kW/m2", 0, "500.0 W/m²\n"},
                {"x F", 2, "comfortics-cli: \"x\" is no number.\n"},
                {"1 parsec", 2,
                 "comfortics-cli: There is no unit \"parsec\" (comfortics-cli convert --list shows all).\n"},
                {"1", 2, "comfortics-cli: convert needs a VALUE and a UNIT, or --list.\n"},
                {"1e306 W/cm2", 4, "comfortics-cli: 1e306 W/cm2 cannot be converted: overflow.\n"}};
    for (const auto& row : rows) {
        const Outcome outcome = run(std::string("convert ") + row.arguments);
        EXPECT_EQ(outcome.status, row.status) << row.arguments;
        EXPECT_EQ(outcome.output, row.output);
    }
    const Outcome list = run("convert --list");
    EXPECT_EQ(list.status, 0);
    EXPECT_EQ(std::count(list.output.begin(), list.output.end(), '\n'), 22); // twenty units, two of heading
}

} // namespace
} // namespace comfortics
