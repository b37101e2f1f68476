// SPDX-License-Identifier: GPL-3.0-or-later
//
// Grids as comma-separated files: the code page, the writer's two forms, the two export dialogs.
#include "output/code_page.h"
#include "output/csv_export.h"
#include "output/csv_writer.h"
#include "prepared_answers.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

namespace comfortics::tests {

using controls::Buttons;
using controls::Grid;
using controls::Icon;
using output::CsvForm;

namespace {

std::string encoded(std::string_view text)
{
    std::string bytes;
    output::appendWindows1252(bytes, text);
    return bytes;
}

// Takes bytes until it is full.
struct BoundedSink final : output::ByteSink {
    std::size_t room = 1000000;
    std::string bytes;
    int refused = 0;
    bool write(std::string_view more) override
    {
        const bool fits = bytes.size() + more.size() <= room;
        bytes += fits ? more : "";
        refused += fits ? 0 : 1;
        return fits;
    }
};

struct CsvExport : testing::Test {
    TemporaryFolder folder;
    PreparedFiles files;
    RecordedMessages messages;
    Grid grid{2, 2};
    const std::filesystem::path before = std::filesystem::current_path();

    CsvExport()
    {
        fill(grid, "A\tB\r1\t2");
        std::filesystem::current_path(folder.file(""));
    }
    ~CsvExport() override { std::filesystem::current_path(before); }

    void exportSpreadsheet(std::string_view success = output::kResultsSaved)
    {
        output::exportSpreadsheetTable(grid, success, files, messages);
    }
    void exportRadiation() { output::exportRadiationTable(grid, files, messages); }
    void expectMessage(std::size_t at, const char* text, const char* title, Buttons buttons, Icon icon)
    {
        const controls::MessageBox& box = messages.boxes.at(at);
        EXPECT_EQ(std::tie(box.text, box.title, box.buttons, box.icon),
                  std::make_tuple(text, title, buttons, icon));
    }
    void expectAsked(const char* title, const char* filter, const char* fileName, bool overwritePrompt)
    {
        const controls::SaveRequest& request = files.asked.front();
        EXPECT_EQ(std::tie(request.title, request.filter, request.fileName, request.overwritePrompt),
                  std::make_tuple(title, filter, fileName, overwritePrompt));
    }
};

} // namespace

// As Python's codec "cp1252" encodes them.
TEST(CodePage, HoldsLatinAndTypographicSigns)
{
    const std::string unassigned = "\x81\x8D\x8F\x90\x9D"; // these stand for themselves
    for (unsigned code = 0; code <= 0xFF; ++code) {
        const auto byte = static_cast<char>(code);
        const auto last = static_cast<char>(0x80 | (code & 0x3F));
        const std::string text =
            code < 0x80 ? std::string(1, byte) : std::string{static_cast<char>(0xC0 | code >> 6), last};
        const bool isLacking = code >= 0x80 && code < 0xA0 && unassigned.find(byte) == std::string::npos;
        EXPECT_EQ(encoded(text), std::string(1, isLacking ? '?' : byte)) << code;
    }
    EXPECT_EQ(
        encoded("\xE2\x82\xAC\xE2\x80\x9A\xC6\x92\xE2\x80\x9E\xE2\x80\xA6\xE2\x80\xA0\xE2\x80\xA1\xCB\x86"
                "\xE2\x80\xB0\xC5\xA0\xE2\x80\xB9\xC5\x92\xC5\xBD\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9C"
                "\xE2\x80\x9D\xE2\x80\xA2\xE2\x80\x93\xE2\x80\x94\xCB\x9C\xE2\x84\xA2\xC5\xA1\xE2\x80\xBA"
                "\xC5\x93\xC5\xBE\xC5\xB8"),
        "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B"
        "\x9C\x9E\x9F");
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark)
{
    EXPECT_EQ(encoded("\xCE\xB1z"), "?z");                         // alpha
    EXPECT_EQ(encoded("\xF0\x9F\x8C\xA1z"), "?z");                 // one mark for four bytes
    EXPECT_EQ(encoded("\xE2\x82z\xB2\xE2\x82"), "??z???");         // broken off, no lead byte, cut short
    EXPECT_EQ(encoded("\xC0\xAF\xE0\x82\xAC"), "?????");           // overlong
    EXPECT_EQ(encoded("\xED\xA0\x80\xF4\x90\x80\x80"), "???????"); // a surrogate, beyond the last
}

TEST(CsvWriter, WritesTheBytesOfItsTwoForms)
{
    struct Case {
        std::string clip, separated, terminated;
    };
    const std::vector<Case> cases = {
        {"N\tV\tU\rb\t\t[-]", "N,V,U\r\nb,,[-]\r\n", "N,V,U,\r\nb,,[-],\r\n"},
        {"a, \"b\"\tc;d\tW/m\xC2\xB2\r", "a, \"b\",c;d,W/m\xB2\r\n,,\r\n",
         "a, \"b\",c;d,W/m\xB2,\r\n,,,\r\n"},
    };
    for (const Case& row : cases) {
        Grid grid(2, 3);
        fill(grid, row.clip);
        BoundedSink separated, terminated;
        EXPECT_TRUE(output::writeCsv(grid, CsvForm::Separated, separated));
        EXPECT_EQ(separated.bytes, row.separated);
        EXPECT_TRUE(output::writeCsv(grid, CsvForm::Terminated, terminated));
        EXPECT_EQ(terminated.bytes, row.terminated);
    }
    BoundedSink sink;
    EXPECT_TRUE(output::writeCsv(Grid(70000, 1), CsvForm::Separated, sink));
    EXPECT_EQ(sink.bytes.size(), 70000u * 2) << "more rows than sixteen bits count";
}

TEST(CsvWriter, StopsAtTheFirstFailureOfItsDevice)
{
    Grid grid(4, 2);
    fill(grid, "a\tb\rc\td\re\tf\rg\th"); // lines of five bytes
    for (std::size_t room = 0; room <= 20; ++room) {
        BoundedSink sink;
        sink.room = room;
        EXPECT_EQ(output::writeCsv(grid, CsvForm::Separated, sink), room == 20) << room;
        EXPECT_EQ(sink.refused, room == 20 ? 0 : 1) << room;
    }
}

TEST_F(CsvExport, ACancelledOrEmptySpreadsheetDialogIsSilent)
{
    exportSpreadsheet();
    files.answer = "";
    exportSpreadsheet();
    ASSERT_EQ(files.asked.size(), 2u);
    expectAsked("Export Spreadsheet Table", "Comma-Separated Values (*.csv)", "", true);
    EXPECT_TRUE(messages.boxes.empty());
    EXPECT_EQ(folder.names().size(), 0u);
}

TEST_F(CsvExport, TheExtensionIsAlwaysAppendedAndTheSuccessMessagesDifferInTheFullStop)
{
    files.answer = folder.file("table.CSV");
    exportSpreadsheet();
    files.answer = folder.file("table.csv");
    exportSpreadsheet(output::kBatchSaved);
    for (const char* name : {"table.CSV.csv", "table.csv.csv"})
        EXPECT_EQ(readFile(folder.file(name)), "A,B\r\n1,2\r\n") << name;
    const char* title = "Export Spreadsheet Table";
    expectMessage(0, "The spreadsheet table has been saved succesfully.", title, Buttons::Ok,
                  Icon::Information);
    expectMessage(1, "The spreadsheet table has been saved succesfully", title, Buttons::Ok,
                  Icon::Information);
}

TEST_F(CsvExport, AFailedWriteShowsItsReasonAndNoSuccess)
{
    files.answer = folder.file("missing/table");
    exportSpreadsheet();
    exportRadiation();
    const std::string reason = " cannot be written: No such file";
    ASSERT_EQ(messages.boxes.size(), 2u);
    EXPECT_NE(messages.boxes[0].text.find("missing/table.csv" + reason), std::string::npos);
    EXPECT_EQ(messages.boxes[0].title, "Export Spreadsheet Table");
    EXPECT_NE(messages.boxes[1].text.find("missing/table" + reason), std::string::npos);
    EXPECT_EQ(messages.boxes[1].title, "Export to CSV");
}

TEST_F(CsvExport, ACancelledRadiationDialogWritesTheOfferedName)
{
    exportRadiation();
    expectAsked("Export to CSV", "Excel Import File (*.csv)|*.csv", "Solar Radiation", false);
    EXPECT_EQ(readFile(folder.file("Solar Radiation")), "A,B,\r\n1,2,\r\n");
    EXPECT_EQ(folder.names().size(), 1u);
    EXPECT_TRUE(messages.boxes.empty());
}

TEST_F(CsvExport, TheRadiationQuestionHasNoEffect)
{
    files.answer = folder.file("mine");
    folder.write("mine", "old");
    messages.answer = controls::Answer::No;
    exportRadiation();
    ASSERT_EQ(messages.boxes.size(), 1u);
    expectMessage(0, "File Exists. Overwrite?", "File Exists", Buttons::YesNo, Icon::Question);
    EXPECT_EQ(readFile(folder.file("mine")), "A,B,\r\n1,2,\r\n");
    EXPECT_FALSE(output::FileExists(folder.file("."))) << "a folder is no file";
    EXPECT_FALSE(output::FileExists(std::string(5000, 'x'))) << "an error counts as none";
}

} // namespace comfortics::tests
