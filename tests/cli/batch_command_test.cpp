// SPDX-License-Identifier: GPL-3.0-or-later
#include "process.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::tests {
namespace {

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
    const TemporaryFolder folder;
    const std::string input = expectedPath("batch_input.csv");
    const std::string expected = readFile(expectedPath("batch_output.csv"));
    const std::string summary = "Rows: 5 calculated, 2 skipped, 0 failed.\n";
    const Arguments options{"--live", "--select", "1,24,35,36,100,159,195,199,200,214"};

    const Ending toPipe = runTool(with({"batch", input}, options));
    EXPECT_EQ(toPipe.status, 0);
    EXPECT_EQ(toPipe.out, expected);
    EXPECT_EQ(toPipe.err, summary);
    EXPECT_EQ(runTool(with({"batch", "-", "--threads", "3"}, options), readFile(input)).out, expected);

    const Ending toFile = runTool(with({"batch", input, "-o", folder.file("out.csv")}, options));
    EXPECT_EQ(toFile.status, 0);
    EXPECT_EQ(readFile(folder.file("out.csv")), expected);
    EXPECT_EQ(folder.names().size(), 1U);
}

TEST(Batch, CountsWhatBecameOfTheRows)
{
    const std::string input = "Ta,SR,Td,RH,WS\n"
                              "30,600,,50,2\n"
                              "30,,,50,2\n"
                              "20,600,9.3,,2\n"
                              "53,616,,78.2,0.1\n";
    const Ending ending = runTool({"batch", "-", "--select", "1"}, input);
    EXPECT_EQ(ending.status, 0);
    EXPECT_EQ(ending.err, "Rows: 2 calculated, 1 skipped, 1 failed. Solvers without convergence: 1.\n");
    EXPECT_NE(ending.out.find("30,,,50,2,skipped: globe temperature or solar radiation is missing,\r\n"),
              std::string::npos);
    EXPECT_NE(ending.out.find("20,600,9.3,,2,failed: The calculation stopped in "), std::string::npos);
}

TEST(Batch, AMalformedTableNamesItsLineAndLeavesTheOutputAsItWas)
{
    const std::pair<std::string, std::string> rows[] = {
        {manyRows(600) + "1,2\n", "Line 602: the row has 2 cells where the table has 5 columns."},
        {"a,b\n1,2\n", "Line 1: separated by commas, no column is named Ta, Tg, SR, Td, RH or WS."},
        {"\n\n", "The table is empty."},
    };
    for (const auto& [text, says] : rows) {
        const TemporaryFolder folder;
        const std::string input = folder.write("in.csv", text);
        const std::string output = folder.write("out.csv", "precious");
        const Ending ending = runTool({"batch", input, "-o", output});
        EXPECT_EQ(ending.status, 5) << says;
        EXPECT_EQ(ending.err, "comfortics-cli: " + input + ": " + says + "\n");
        EXPECT_EQ(runTool({"batch", "-", "-o", output}, text).err, "comfortics-cli: " + says + "\n");
        EXPECT_EQ(readFile(output), "precious") << says;
        EXPECT_EQ(folder.names().size(), 2U) << says;
    }
}

// More rows than a pipe and the tool's buffer hold are fed, so the tool is at work when the signal
// comes. It then waits for more input, which never comes.
TEST(Batch, AnInterruptionLeavesNoFile)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const TemporaryFolder folder;
        Process process({COMFORTICS_CLI, "batch", "-", "-o", folder.file("out.csv")});
        ASSERT_TRUE(process.feed(manyRows(20000)));
        process.signal(signal);
        const Ending ending = process.finish(true);
        EXPECT_EQ(ending.status, 130) << signal;
        EXPECT_EQ(ending.err, "comfortics-cli: Interrupted; no output file was written.\n");
        EXPECT_TRUE(folder.names().empty()) << signal;
    }
}

// The header alone is longer than the pipe's page.
TEST(Batch, AnInterruptionEndsAWaitForAPipe)
{
    const TemporaryFolder folder;
    const std::string input = expectedPath("batch_input.csv");
    const std::string path = folder.file("pipe");
    for (const Arguments& more : {Arguments{}, {"-o", "/dev/stdout"}, {"-o", path}}) {
        const StalledPipe pipe(path);
        Process process(with({COMFORTICS_CLI, "batch", input}, more), pipe.descriptor());
        ASSERT_TRUE(pipe.hasBegun());
        process.signal(SIGTERM);
        EXPECT_EQ(process.finish().status, 130) << testing::PrintToString(more);
    }
    const std::string unopened = folder.file("unopened");
    ASSERT_EQ(::mkfifo(unopened.c_str(), 0600), 0);
    const StalledPipe empty(path);
    for (const Arguments& files : {Arguments{unopened}, {path}, {input, "-o", unopened}}) {
        Process process(with({COMFORTICS_CLI, "batch"}, files));
        process.waitUntilItHandles(SIGHUP);
        process.signal(SIGHUP);
        EXPECT_EQ(process.finish().status, 130) << testing::PrintToString(files);
    }
    EXPECT_EQ(folder.names().size(), 2U);
}

TEST(Batch, ASystemThatGrantsLittleGetsTheSameTableOrASentence)
{
    const TemporaryFolder folder;
    const std::string run = " && exec '" COMFORTICS_CLI "' batch '" + expectedPath("batch_input.csv") + "'";
    // No thread has a place for a stack of that size.
    const Ending noThread = Process({"/bin/sh", "-c", "ulimit -s 130000000000" + run}).finish();
    EXPECT_EQ(noThread.status, 0) << noThread.err;
    EXPECT_EQ(noThread.out, runTool({"batch", expectedPath("batch_input.csv")}).out);

    const std::string output = folder.file("out.csv");
    const Ending small = Process({"/bin/sh", "-c", "ulimit -f 1" + run + " -o " + output}).finish();
    EXPECT_EQ(small.status, 5);
    EXPECT_EQ(small.err, "comfortics-cli: The file " + output + " cannot be written: File too large.\n");
    EXPECT_TRUE(folder.names().empty());
}

} // namespace
} // namespace comfortics::tests
