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

std::string recorded(const char* name)
{
    std::ifstream file(std::string(RADIATION_TABLES) + "/" + name + ".csv", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(RadiationCommand, PrintsTheRecordedTables)
{
    const struct {
        const char* file;
        const char* arguments;
    } rows[] = {
        {"quito_day_355_okta_3", "--lat -0.1807 --lon -78.4678 --gmt -5 --date 2023-12-21 --okta 3"},
        {"reykjavik_day_355_okta_9", "--lat=64.1466 --lon=-21.9426 --gmt=0 --day 355 --okta 9"},
        {"sydney_day_15_okta_8", "--lat -33.8688 --lon 151.2093 --gmt 10 --date 2024-01-15 --okta 8"}};
    for (const auto& row : rows) {
        Outcome outcome = run(std::string("radiation ") + row.arguments);
        EXPECT_EQ(outcome.status, 0) << row.file;
        const std::string expected = recorded(row.file);
        EXPECT_EQ(std::erase(outcome.output, '\r'), std::count(expected.begin(), expected.end(), '\n'));
        EXPECT_TRUE(outcome.output == expected) << row.file;
    }
}

TEST(RadiationCommand, EndsWithItsStatus)
{
    const struct {
        const char* arguments;
        int status;
        const char* output;
    } rows[] = {
        {"--lat 70 --lon 20 --day 172", 4, "the sun does not set at latitude 70 on day 172 of the year"},
        {"--lat 70 --lon 20 --date 2023-12-21", 4, "the sun does not rise"},
        {"--lat 66.5 --day 355", 4, "the day is too short"},
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
                {"-40 f", 0, "-40.0 °C\n"},
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
