// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/save_file.h"

#include "prepared_answers.h"

#include <gtest/gtest.h>

namespace comfortics::output {
namespace {

TEST(SaveFile, GivesANameOneOfItsEndings)
{
    const struct {
        const char* name;
        const char* file;
    } rows[]{{"a", "a.png"},
             {"a.png", "a.png"},
             {"a.SVG", "a.SVG"},
             {"a.png.b", "a.png.b.png"},
             {"asvg", "asvg.png"}};
    for (const auto& row : rows)
        EXPECT_EQ(withEnding(row.name, {".png", ".svg"}), row.file);
}

TEST(SaveFile, WritesWhereTheUserSaysAndNowhereElse)
{
    tests::PreparedFiles files;
    controls::SaveRequest request{.title = "Save"};
    for (const auto& none : {std::optional<std::string>(), std::optional<std::string>("")}) {
        files.answer = none;
        EXPECT_EQ(askForFile(files, request), std::nullopt);
    }
    files.answer = "a";
    EXPECT_EQ(askForFile(files, request), "a");
    request.written = [](const std::string& name) { return name + ".csv"; };
    EXPECT_EQ(askForFile(files, request), "a.csv");

    tests::RecordedMessages messages;
    EXPECT_FALSE(succeeded(writeWhole("/no/such/folder/a", "text"), messages, "Save"));
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].title, "Save");
    EXPECT_NE(messages.boxes[0].text, "");
}

} // namespace
} // namespace comfortics::output
