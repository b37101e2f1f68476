// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/csv_export.h"
#include "test_desk.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace comfortics::tests {

using controls::Buttons;
using controls::Icon;

namespace {

struct CsvExport : testing::Test {
    TemporaryFolder folder;
    PreparedFiles files;
    RecordedMessages messages;
    controls::Grid grid{2, 2};
    const std::filesystem::path before = std::filesystem::current_path();

    CsvExport()
    {
        grid.select(0, 0, 1, 1);
        grid.setClip("A\tB\r1\t2");
        std::filesystem::current_path(folder.file(""));
    }
    ~CsvExport() override { std::filesystem::current_path(before); }

    void exportSpreadsheet(std::string_view success = output::kResultsSaved)
    {
        output::exportSpreadsheetTable(grid, success, files, messages);
    }
    void exportRadiation() { output::exportRadiationTable(grid, files, messages); }
};

} // namespace

TEST_F(CsvExport, ACancelledOrEmptySpreadsheetDialogIsSilent)
{
    exportSpreadsheet();
    files.answer = "";
    exportSpreadsheet();
    ASSERT_EQ(files.asked.size(), 2u);
    EXPECT_EQ(files.asked[0].title, "Export Spreadsheet Table");
    EXPECT_EQ(files.asked[0].filter, "Comma-Separated Values (*.csv)");
    EXPECT_EQ(files.asked[0].fileName, "");
    EXPECT_TRUE(files.asked[0].overwritePrompt);
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(folder.count(), 0u);
}

TEST_F(CsvExport, TheExtensionIsAlwaysAppended)
{
    for (const char* name : {"table", "table.csv", "table.CSV"}) {
        files.answer = folder.file(name);
        exportSpreadsheet();
        EXPECT_EQ(readFile(folder.file(name) + ".csv"), "A,B\r\n1,2\r\n") << name;
    }
    EXPECT_EQ(folder.count(), 3u);
}

TEST_F(CsvExport, TheTwoSuccessMessagesDifferInTheFullStop)
{
    files.answer = folder.file("table");
    exportSpreadsheet();
    exportSpreadsheet(output::kBatchSaved);
    ASSERT_EQ(messages.shown.size(), 2u);
    EXPECT_EQ(messages.shown[0].text, "The spreadsheet table has been saved succesfully.");
    EXPECT_EQ(messages.shown[1].text, "The spreadsheet table has been saved succesfully");
    for (const controls::MessageBox& box : messages.shown) {
        EXPECT_EQ(box.title, "Export Spreadsheet Table");
        EXPECT_EQ(box.buttons, Buttons::Ok);
        EXPECT_EQ(box.icon, Icon::Information);
    }
}

TEST_F(CsvExport, AFailedWriteShowsItsReasonAndNoSuccess)
{
    files.answer = folder.file("missing/table");
    exportSpreadsheet();
    exportRadiation();
    std::filesystem::create_directory(folder.file("taken.csv"));
    files.answer = folder.file("taken");
    exportSpreadsheet();
    ASSERT_EQ(messages.shown.size(), 3u);
    EXPECT_NE(messages.shown[0].text.find("missing/table.csv cannot be written: No such file"),
              std::string::npos);
    EXPECT_NE(messages.shown[1].text.find("missing/table cannot be written: No such file"),
              std::string::npos);
    EXPECT_NE(messages.shown[2].text.find("taken.csv cannot be written: Is a directory"), std::string::npos);
    for (const controls::MessageBox& box : messages.shown)
        EXPECT_NE(box.icon, Icon::Information);
}

TEST_F(CsvExport, ACancelledRadiationDialogWritesTheOfferedName)
{
    exportRadiation();
    ASSERT_EQ(files.asked.size(), 1u);
    EXPECT_EQ(files.asked[0].title, "Export to CSV");
    EXPECT_EQ(files.asked[0].filter, "Excel Import File (*.csv)|*.csv");
    EXPECT_EQ(files.asked[0].fileName, "Solar Radiation");
    EXPECT_FALSE(files.asked[0].overwritePrompt);
    EXPECT_EQ(readFile(folder.file("Solar Radiation")), "A,B,\r\n1,2,\r\n");
    EXPECT_EQ(folder.count(), 1u);
    EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CsvExport, TheRadiationQuestionHasNoEffect)
{
    files.answer = folder.file("mine");
    for (const controls::Answer answer : {controls::Answer::No, controls::Answer::Yes}) {
        writeFile(folder.file("mine"), "old");
        messages.answer = answer;
        messages.shown.clear();
        exportRadiation();
        ASSERT_EQ(messages.shown.size(), 1u);
        EXPECT_EQ(messages.shown[0].text, "File Exists. Overwrite?");
        EXPECT_EQ(messages.shown[0].title, "File Exists");
        EXPECT_EQ(messages.shown[0].buttons, Buttons::YesNo);
        EXPECT_EQ(messages.shown[0].icon, Icon::Question);
        EXPECT_EQ(readFile(folder.file("mine")), "A,B,\r\n1,2,\r\n");
    }
    EXPECT_FALSE(output::FileExists(folder.file("mine/b")));
    EXPECT_FALSE(output::FileExists(folder.file("."))) << "a folder is no file";
    EXPECT_FALSE(output::FileExists(std::string(5000, 'x'))) << "an error counts as none";
}

} // namespace comfortics::tests
