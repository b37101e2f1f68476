// SPDX-License-Identifier: GPL-3.0-or-later
#include "../values/comma_locale.h"
#include "process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace comfortics::tests {
namespace {

const Arguments kRecorded{"--live", "--select", "1,24,35,36,100,159,195,199,200,214"};

Arguments recorded(const std::string& input, const Arguments& more = {})
{
    Arguments all{"batch", input};
    all.insert(all.end(), kRecorded.begin(), kRecorded.end());
    all.insert(all.end(), more.begin(), more.end());
    return all;
}

/// Readings of a station, some of which fail or lack a cell.
std::string manyRows(std::size_t count)
{
    std::string text = "Time,Ta,SR,RH,WS\n";
    for (std::size_t i = 0; i < count; ++i)
        text += std::to_string(i) + "," + std::to_string(i % 39) + "." + std::to_string(i % 7) + "," +
                std::to_string(i * 37 % 1200) + "," + std::to_string(20 + i % 80) + "," +
                (i % 41 == 0 ? "" : std::to_string(i % 9) + ".5") + "\n";
    return text;
}

// The input has a byte-order mark, an odd order of columns, columns of its own, quotes, commas.
TEST(Batch, WritesTheRecordedTable)
{
    const std::string expected = fileText(expectedPath("batch_output.csv"));
    ASSERT_FALSE(expected.empty());
    const std::string summary = "Rows: 5 calculated, 2 skipped, 0 failed.\n";

    const Ending toPipe = runTool(recorded(expectedPath("batch_input.csv")));
    EXPECT_EQ(toPipe.status, 0);
    EXPECT_EQ(toPipe.out, expected);
    EXPECT_EQ(toPipe.err, summary);

    const Ending fromPipe = runTool(recorded("-"), fileText(expectedPath("batch_input.csv")));
    EXPECT_EQ(fromPipe.status, 0);
    EXPECT_EQ(fromPipe.out, expected);

    const TemporaryFolder folder;
    const Ending toFile = runTool(recorded(expectedPath("batch_input.csv"), {"-o", folder.file("out.csv")}));
    EXPECT_EQ(toFile.status, 0);
    EXPECT_EQ(toFile.out, "");
    EXPECT_EQ(toFile.err, summary);
    EXPECT_EQ(fileText(folder.file("out.csv")), expected);
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"out.csv"}));
}

TEST(Batch, ReadsTabsAndRowsWithoutHeader)
{
    const Ending ending =
        runTool({"batch", "-", "--select", "35"}, "30\t\t600\t\t50\t2\tx\r\n7,3\t\t120\t\t88\t3,4\ty\r\n");
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.out, "Air Temperature (°C),Globe Temperature (°C),Solar Radiation (W/m²),Dew Point (°C),"
                          "Relative Humidity (%),Wind Speed (m/s),Column 7,Status,"
                          "35 Cooling Power (Goldschmidt; 1952) [mcal/cm²/s]\r\n"
                          "30,,600,,50,2,x,ok,3.2\r\n"
                          "\"7,3\",,120,,88,\"3,4\",y,ok,16.5\r\n");
}

TEST(Batch, GivesTheSameBytesOnOneThreadAndOnFour)
{
    const TemporaryFolder folder;
    const std::string input = folder.write("in.csv", manyRows(2500));
    const Ending one = runTool({"batch", input, "--live", "--threads", "1"});
    const Ending four = runTool({"batch", input, "--live", "--threads", "4"});
    EXPECT_EQ(one.status, 0);
    EXPECT_EQ(std::count(one.out.begin(), one.out.end(), '\n'), 2501);
    EXPECT_TRUE(one.out == four.out);
    EXPECT_EQ(one.err, four.err);
}

TEST(Batch, CountsWhatBecameOfTheRows)
{
    const Ending ending = runTool({"batch", "-", "--select", "1"}, "Ta,SR,Td,RH,WS\n"
                                                                   "30,600,,50,2\n"
                                                                   "30,,,50,2\n"
                                                                   "20,600,9.3,,2\n"
                                                                   "53,616,,78.2,0.1\n");
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.err, "Rows: 2 calculated, 1 skipped, 1 failed. Solvers without convergence: 1.\n");
    EXPECT_NE(ending.out.find("30,,,50,2,skipped: globe temperature or solar radiation is missing,\r\n"),
              std::string::npos);
    EXPECT_NE(ending.out.find(
                  "20,600,9.3,,2,failed: The calculation stopped in the Universal Thermal Climate Index: "
                  "the dew point 9.3 reads above the air temperature 20"),
              std::string::npos);
}

TEST(Batch, AMalformedTableNamesItsLineAndLeavesNoFile)
{
    struct Row {
        std::string name;
        std::string text;
        std::string says;
    };
    const std::vector<Row> rows{
        {"too few cells", "Ta,SR,RH,WS\n30,600,50,2\n30,600,50\n",
         "Line 3: the row has 3 cells where the table has 4 columns."},
        {"too many cells", "Ta,SR,RH,WS\r\n\r\n30,600,50,2,1\r\n",
         "Line 3: the row has 5 cells where the table has 4 columns."},
        {"open quote", "Ta,SR,RH,WS\n30,600,50,\"2\n30,600,50,2\n",
         "Line 2: a quote is opened and never closed."},
        {"text behind a quote", "Ta,SR,RH,WS\n30,600,50,\"2\"m\n",
         "Line 2: text stands behind a closing quote."},
        {"no reading in the header", "a,b\n1,2\n", "Line 1: no column is named Ta, Tg, SR, Td, RH or WS."},
        {"one reading twice", "Ta,SR,RH,ta\n", "Line 1: two columns give ta."},
        {"five columns", "30,600,50,2,1\n",
         "Line 1: a table without a header needs six columns, this row has 5."},
        {"nothing", "\n\n", "The table is empty."},
    };
    for (const Row& row : rows) {
        const TemporaryFolder folder;
        const std::string input = folder.write("in.csv", row.text);
        const Ending ending = runTool({"batch", input, "-o", folder.file("out.csv")});
        EXPECT_EQ(ending.status, 5) << row.name;
        EXPECT_EQ(ending.err, "comfortics-cli: " + input + ": " + row.says + "\n") << row.name;
        EXPECT_EQ(folder.names(), (std::vector<std::string>{"in.csv"})) << row.name;

        const Ending piped = runTool({"batch", "-", "-o", folder.file("out.csv")}, row.text);
        EXPECT_EQ(piped.err, "comfortics-cli: " + row.says + "\n") << row.name;
    }
}

TEST(Batch, AFailedRunLeavesAnExistingFileAsItWas)
{
    const TemporaryFolder folder;
    const std::string output = folder.write("out.csv", "precious");
    EXPECT_EQ(runTool({"batch", "-", "-o", output}, manyRows(600) + "1,2\n").status, 5);
    EXPECT_EQ(fileText(output), "precious");
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST(Batch, AFullDiskIsToldInOneSentence)
{
    const TemporaryFolder folder;
    const std::string input = folder.write("in.csv", manyRows(600));
    const Ending ending = runTool({"batch", input, "-o", "/dev/full"});
    EXPECT_EQ(ending.status, 5);
    EXPECT_EQ(ending.err, "comfortics-cli: The file /dev/full cannot be written: No space left on device.\n");
}

// More rows than a pipe and the tool's buffer hold are fed, so the tool is at work when the signal
// comes. It then waits for more input, which never comes.
TEST(Batch, AnInterruptionLeavesNoFile)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const TemporaryFolder folder;
        Process process({"batch", "-", "-o", folder.file("out.csv")});
        ASSERT_TRUE(process.feed(manyRows(20000)));
        process.signal(signal);
        const Ending ending = process.finish(true);
        EXPECT_EQ(ending.status, 130);
        EXPECT_EQ(ending.err, "comfortics-cli: Interrupted; no output file was written.\n");
        EXPECT_TRUE(folder.names().empty());
    }
}

TEST(Batch, AKilledRunLeavesNoHalfFile)
{
    const TemporaryFolder folder;
    Process process({"batch", "-", "-o", folder.file("out.csv")});
    ASSERT_TRUE(process.feed(manyRows(20000)));
    process.signal(SIGKILL);
    EXPECT_EQ(process.finish(true).status, 1000 + SIGKILL);
    EXPECT_FALSE(std::filesystem::exists(folder.file("out.csv")));
}

TEST(Batch, SaysTheSameUnderACommaLocale)
{
    const CommaLocale comma;
    if (comma.name().empty())
        GTEST_SKIP() << "no locale with a decimal comma can be had here";
    const Ending ending = runTool(recorded(expectedPath("batch_input.csv")),
                                  {.environment = {{"LC_ALL", comma.name()}, {"LANG", comma.name()}}});
    EXPECT_EQ(ending.out, fileText(expectedPath("batch_output.csv")));
}

} // namespace
} // namespace comfortics::tests
