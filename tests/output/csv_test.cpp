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
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace comfortics::tests {

using controls::Grid;
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
    CsvExport() { fill(grid, "A\tB\r1\t2"); }

    std::string firstAsked() const
    {
        const controls::SaveRequest& asked = files.asked.front();
        return asked.title + "; " + asked.filter + "; " + asked.fileName +
               (asked.overwritePrompt ? "; prompts" : "") +
               (asked.written ? " about " + asked.written("x.csv") : "");
    }
};

// As Python's codec "cp1252" encodes them.
TEST(CodePage, HoldsLatinAndTypographicSignsAndAQuestionMarkForOthers)
{
    for (int code = 0xA0; code <= 0xFF; ++code) {
        const std::string text{static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
        EXPECT_EQ(encoded(text), std::string{static_cast<char>(code)}) << code;
    }
    EXPECT_EQ(
        encoded("\xE2\x82\xAC\xE2\x80\x9A\xC6\x92\xE2\x80\x9E\xE2\x80\xA6\xE2\x80\xA0\xE2\x80\xA1\xCB\x86"
                "\xE2\x80\xB0\xC5\xA0\xE2\x80\xB9\xC5\x92\xC5\xBD\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9C"
                "\xE2\x80\x9D\xE2\x80\xA2\xE2\x80\x93\xE2\x80\x94\xCB\x9C\xE2\x84\xA2\xC5\xA1\xE2\x80\xBA"
                "\xC5\x93\xC5\xBE\xC5\xB8"),
        "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B"
        "\x9C\x9E\x9F");

    // What it lacks becomes a question mark.
    EXPECT_EQ(encoded("\xC2\x80\xC2\x9F\xCE\xB1z"), "???z");                                // controls, alpha
    EXPECT_EQ(encoded("\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"), "\x81\x8D\x8F\x90\x9D"); // not assigned
    EXPECT_EQ(encoded("\xF0\x9F\x8C\xA1z"), "?z");                 // one mark for four bytes
    EXPECT_EQ(encoded("\xE2\x82z\xB2\xE2\x82"), "??z???");         // broken off, no lead byte, cut short
    EXPECT_EQ(encoded("\xC0\xAF\xE0\x82\xAC"), "?????");           // overlong
    EXPECT_EQ(encoded("\xED\xA0\x80\xF4\x90\x80\x80"), "???????"); // a surrogate, beyond the last
}

TEST(CsvWriter, WritesTheBytesOfItsTwoForms)
{
    const auto written = [](const Grid& grid, CsvForm form) {
        BoundedSink sink;
        EXPECT_TRUE(output::writeCsv(grid, form, sink));
        return sink.bytes;
    };
    Grid grid(3, 3);
    fill(grid, "N\tV\tU\ra, \"b\"\tc;d\tW/m\xC2\xB2\rb\t\t[-]");
    EXPECT_EQ(written(grid, CsvForm::Separated), "N,V,U\r\na, \"b\",c;d,W/m\xB2\r\nb,,[-]\r\n");
    EXPECT_EQ(written(grid, CsvForm::Terminated), "N,V,U,\r\na, \"b\",c;d,W/m\xB2,\r\nb,,[-],\r\n");
    EXPECT_EQ(written(Grid(70000, 1), CsvForm::Separated).size(), 140000u) << "more than sixteen bits count";
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

TEST_F(CsvExport, TheSpreadsheetDialogAppendsItsExtensionAndSaysHowItWent)
{
    const std::vector<std::tuple<std::optional<std::string>, std::string_view, std::string>> rows = {
        {{}, output::kResultsSaved, ""},
        {"", output::kResultsSaved, ""},
        {folder.file("table.CSV"), output::kResultsSaved,
         "The spreadsheet table has been saved succesfully."},
        {folder.file("table.csv"), output::kBatchSaved, "The spreadsheet table has been saved succesfully"},
        {folder.file("none/table"), output::kResultsSaved,
         "The file " + folder.file("none/table.csv") + " cannot be written: No such file or directory."},
    };
    for (const auto& [answer, success, says] : rows) {
        messages.boxes.clear();
        files.answer = answer;
        output::exportSpreadsheetTable(grid, success, files, messages);
        ASSERT_EQ(messages.boxes.size(), says.empty() ? 0u : 1u);
        for (const controls::MessageBox& box : messages.boxes)
            EXPECT_EQ(box.title + ": " + box.text, "Export Spreadsheet Table: " + says);
    }
    EXPECT_EQ(firstAsked(),
              "Export Spreadsheet Table; Comma-Separated Values (*.csv); ; prompts about x.csv.csv");
    EXPECT_EQ(folder.names().size(), 2u);
    for (const char* name : {"table.CSV.csv", "table.csv.csv"})
        EXPECT_EQ(readFile(folder.file(name)), "A,B\r\n1,2\r\n") << name;
}

TEST_F(CsvExport, TheRadiationDialogWritesWhateverIsAnswered)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    output::exportRadiationTable(grid, files, messages); // cancelled: to the offered name
    std::filesystem::current_path(before);
    EXPECT_EQ(firstAsked(), "Export to CSV; Excel Import File (*.csv)|*.csv; Solar Radiation");
    EXPECT_EQ(readFile(folder.file("Solar Radiation")), "A,B,\r\n1,2,\r\n");

    messages.answer = controls::Answer::No;
    for (const std::string& file : {folder.write("mine", "old"), folder.file("none/table")}) {
        files.answer = file;
        output::exportRadiationTable(grid, files, messages);
    }
    EXPECT_EQ(readFile(folder.file("mine")), "A,B,\r\n1,2,\r\n");
    ASSERT_EQ(messages.boxes.size(), 2u);
    EXPECT_EQ(messages.boxes[0].title + ": " + messages.boxes[0].text,
              "File Exists: File Exists. Overwrite?");
    EXPECT_EQ(messages.boxes[0].buttons, controls::Buttons::YesNo);
    EXPECT_EQ(messages.boxes[1].title, "Export to CSV");
    EXPECT_TRUE(messages.boxes[1].text.ends_with("none/table cannot be written: No such file or directory."));
    EXPECT_FALSE(output::FileExists(folder.file("."))) << "a folder is no file";
    EXPECT_FALSE(output::FileExists(std::string(5000, 'x'))) << "an error counts as none";
}

} // namespace
} // namespace comfortics::tests
