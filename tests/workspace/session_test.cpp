// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/session_desk.h"

#include "temporary_folder.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::workspace {
namespace {

using tests::Program;

/// A part that keeps a word and refuses one.
struct Word final : SessionPart {
    std::string word;
    void save(Session& session) const override
    {
        if (!word.empty())
            session.pinned = "[\"" + word + "\"]";
    }
    std::string fault(const Session& session) const override
    {
        return session.pinned == "[\"bad\"]" ? "the word is bad" : "";
    }
    void open(const Session& session) override { word = session.pinned; }
};

struct Desk : Program {
    comfortics::tests::PreparedFiles files;
    Word word;
    SessionDesk desk{workspace, files, messages};

    Desk() { desk.add(word); }
    std::string told() const { return messages.boxes.empty() ? "" : messages.boxes.back().text; }
};

TEST(Session, BringsBackAllThatItKeeps)
{
    const comfortics::tests::TemporaryFolder folder;
    Desk first;
    first.type("33.37", "712", "48", "1.2");
    first.main.txt_Height.setText("182");
    first.main.Opt_Rules.select(2);
    first.main.Opt_Limits.select(1);
    first.main.List_Indices.selectAll(false);
    first.main.List_Indices.setSelected(194, true);
    first.desk.heading = "Yard \"B\"";
    first.desk.notes = "two\nlines, ° and \xCE\xB1";
    first.word.word = "kept";
    first.workspace.sets.create("Quarry", {"utci", "index_of_2040"});
    first.files.answer = (folder.path() / "shift").string();
    EXPECT_TRUE(first.desk.modified());
    first.desk.saveAs();
    EXPECT_FALSE(first.desk.modified());

    Desk second;
    second.type("20", "", "90", "9");
    second.main.txt_TG.setText("30");
    second.desk.openFile((folder.path() / "shift.comfortics").string());
    EXPECT_EQ(second.told(), "");
    EXPECT_EQ(second.main.inputs(), first.main.inputs());
    EXPECT_EQ(second.desk.heading, first.desk.heading);
    EXPECT_EQ(second.desk.notes, first.desk.notes);
    EXPECT_EQ(second.word.word, "[\"kept\"]");
    EXPECT_EQ(second.workspace.sets.shown().name, "Quarry");
    EXPECT_EQ(second.workspace.sets.shown().ids, first.workspace.sets.shown().ids);
    EXPECT_FALSE(second.desk.modified());
    EXPECT_EQ(second.desk.recent().size(), 1U);
    second.main.txt_TA.setText("21");
    EXPECT_TRUE(second.desk.modified());
}

TEST(Session, RefusesWhatIsNoSessionInOneSentenceAndChangesNothing)
{
    const comfortics::tests::TemporaryFolder folder;
    const std::string whole = [] {
        Session session;
        session.inputs.readings[0] = "35";
        return sessionText(session);
    }();
    const auto with = [&whole](std::string_view from, std::string_view to) {
        std::string changed = whole;
        changed.replace(changed.find(from), from.size(), to);
        return changed;
    };
    const std::pair<std::string, const char*> damaged[] = {
        {"", "no session"},
        {"[1, 2]", "no session"},
        {whole.substr(0, whole.size() / 2), "damaged"},
        {with("comfortics session", "other session"), "no session"},
        {with("\"version\": 1", "\"version\": 2"), "later version"},
        {with("\"version\": 1", "\"version\": \"1\""), "version is missing"},
        {with("\"35\"", "35"), "\"TA\""},
        {with("\"35\"", "\"" + std::string(1000, '9') + "\""), "too long"},
        {with("\"classic\"", "\"antique\""), "antique"},
        {with("\"all\"", "7"), "\"ticked\""},
        {with("\"all\"", "[3]"), "\"ticked\""},
        {with("\"format\"", "\"pinned\": [\"bad\"], \"format\""), "the word is bad"},
        {with("\"format\"", "\"sets\": [3], \"format\""), "sets of indices in it are damaged"},
        {std::string(100'000, '['), "damaged"},
    };
    for (const auto& [text, why] : damaged) {
        Desk desk;
        desk.type("30", "600", "50", "2");
        const classic::Inputs before = desk.main.inputs();
        folder.write("x.comfortics", text);
        desk.desk.openFile((folder.path() / "x.comfortics").string());
        EXPECT_NE(desk.told().find(why), std::string::npos) << why << ": " << desk.told();
        EXPECT_EQ(desk.told().find('\n'), std::string::npos);
        EXPECT_EQ(desk.main.inputs(), before) << why;
        EXPECT_TRUE(desk.desk.path().empty() && desk.desk.recent().empty());
    }
    Desk desk;
    desk.desk.openFile(folder.path().string());
    EXPECT_NE(desk.told().find("cannot be opened"), std::string::npos) << "a folder";
    desk.desk.openFile("/dev/zero");
    EXPECT_NE(desk.told().find("larger than 16 MiB"), std::string::npos);
    desk.files.answer = (folder.path() / "none" / "x").string();
    desk.desk.saveAs();
    EXPECT_TRUE(desk.desk.path().empty()) << "what could not be written has no file";
}

TEST(Session, KeepsTheLastStateAndForgivesADamagedOne)
{
    Desk first;
    first.desk.keepLast();
    EXPECT_FALSE(first.preferences.read("session/last")) << "nothing was done";
    first.type("30", "600", "50", "2");
    first.desk.keepLast();

    Desk second;
    EXPECT_FALSE(second.desk.hasLast());
    second.preferences.write("session/last", *first.preferences.read("session/last"));
    second.preferences.write("session/recent", "{damaged");
    SessionDesk later(second.workspace, second.files, second.messages);
    EXPECT_TRUE(later.hasLast());
    EXPECT_TRUE(later.recent().empty());
    later.restoreLast();
    EXPECT_EQ(second.main.inputs(), first.main.inputs());
    EXPECT_FALSE(later.hasLast()) << "it is back";

    second.preferences.write("session/last", "{damaged");
    const SessionDesk none(second.workspace, second.files, second.messages);
    EXPECT_FALSE(none.hasLast());
}

} // namespace
} // namespace comfortics::workspace
