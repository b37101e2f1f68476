// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/person_and_place.h"

#include "standards/picking_tables.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <array>
#include <set>

namespace comfortics::workspace {
namespace {

const catalogue::InputInfo& inputOf(std::string_view id)
{
    return *catalogue::additionInputOfId(id);
}

TEST(PersonAndPlace, ReadsAFieldOrTellsInASentenceWhyNot)
{
    struct Case {
        const char* id;
        const char* text;
        std::optional<double> value;
        const char* problem = "";
    };
    for (const Case& one : {
             Case{"clo", " 0,6 ", 0.6},
             {"clo", "", std::nullopt},
             {"clo", "thick", std::nullopt, "Clothing insulation: \"thick\" is no number."},
             {"clo", "5.1", std::nullopt, "Clothing insulation: 5.1 clo cannot be; valid from 0 to 5 clo."},
             {"posture", "Sitting", 1},
             {"posture", "kneeling", std::nullopt,
              "Posture: \"kneeling\" is none of standing, sitting, crouching, lying."},
             {"hour", "14:30", 14.5},
             {"hour", "14.5", 14.5},
             {"hour", "14:60", std::nullopt, "Local time of day: \"14:60\" is no number."},
             {"utc_offset", "-3:30", -3.5},
             {"latitude", "-90", -90},
             {"latitude", "-90.1", std::nullopt,
              "Latitude (north positive): -90.1\xC2\xB0 cannot be; valid from -90 to 90\xC2\xB0."},
             {"weight", "0", std::nullopt, "Body weight: 0 kg cannot be; valid above 0."},
         }) {
        const FieldReading read = readField(inputOf(one.id), one.text);
        EXPECT_EQ(read.value, one.value) << one.id << " " << one.text;
        EXPECT_EQ(read.problem, one.problem);
    }
}

TEST(PersonAndPlace, HasAFieldForWhateverTheReadingsDoNotTell)
{
    std::set<std::string_view> ids;
    for (const Field& field : fields())
        EXPECT_TRUE(ids.insert(field.info->id).second) << field.info->id;
    for (const catalogue::InputInfo* const input : catalogue::additionInputs()) {
        EXPECT_EQ(ids.contains(fieldIdOf(*input)), !input->live) << input->id;
        if (input->group != catalogue::InputGroup::Weather) {
            EXPECT_FALSE(fieldIdOf(*input).empty()) << input->id;
        }
    }
    for (const char* const unit : {"metabolic_w", "metabolic_w_m2", "activity_w", "work_w_m2", "hour_utc"})
        EXPECT_FALSE(ids.contains(unit)) << "is typed in another unit already";
}

TEST(PersonAndPlace, AddsUpGarments)
{
    const auto place = [](std::string_view id) {
        std::size_t at = 0;
        while (standards::kGarments.at(at).id != id)
            ++at;
        return at;
    };
    // 0.835 (0.04 + 0.25 + 0.15 + 0.02 + 0.02) + 0.161 = 0.5618; the chair adds 0.1.
    const std::array<std::size_t, 5> office{place("underwear_men"), place("dress_shirt_long"),
                                            place("trousers_thin"), place("ankle_socks"), place("shoes")};
    EXPECT_EQ(clothingOf(office), "0.56");
    EXPECT_EQ(clothingOf(office, 0), "0.66");
    EXPECT_EQ(clothingOf({}, 1), "0.15");
    EXPECT_EQ(clothingOf({}), "");
}

TEST(PersonAndPlace, IsKeptInASession)
{
    tests::Program first;
    first.workspace.person.box("met").setText("1.2");
    first.workspace.person.box("posture").setText("sitting");
    Session session;
    first.workspace.person.save(session);
    const SessionRead read = readSession(sessionText(session));
    ASSERT_TRUE(read.session) << read.fault;

    tests::Program second;
    second.workspace.person.box("clo").setText("1");
    EXPECT_EQ(second.workspace.person.fault(*read.session), "");
    second.workspace.person.open(*read.session);
    EXPECT_EQ(second.workspace.person.texts(), first.workspace.person.texts()) << "the clothing is gone, too";
    second.workspace.person.open(Session{}); // an older one
    EXPECT_TRUE(second.workspace.person.texts().empty());
}

TEST(PersonAndPlace, TellsWhatIsDamaged)
{
    for (const auto& [json, fault] : {
             std::pair{"", ""},
             {R"({"version":1})", ""},
             {R"({"version":1,"fields":{"of_2040":"7"}})", ""},
             {R"([])", "its person and place are damaged"},
             {R"({"fields":{}})", "its person and place are damaged"},
             {R"({"version":1,"fields":[]})", "its person and place are damaged"},
             {R"({"version":1,"fields":{"met":1.2}})",
              "its person and place are damaged: \"met\" is not what it should be"},
             {R"({"version":2,"fields":{}})",
              "its person and place were written by a later version of Comfortics"},
         })
        EXPECT_EQ(faultOfFields(json), fault) << json;
}

TEST(PersonAndPlace, IsOnTheWayBack)
{
    tests::Program program;
    Workspace& workspace = program.workspace;
    workspace.person.box("clo").setText("0.5");
    workspace.history.note();
    program.main.txt_TA.setText("21");
    workspace.history.note();
    workspace.history.undo();
    EXPECT_EQ(program.main.txt_TA.text(), "");
    EXPECT_EQ(workspace.person.box("clo").text(), "0.5");
    workspace.history.undo();
    EXPECT_EQ(workspace.person.box("clo").text(), "");
    workspace.history.redo();
    EXPECT_EQ(workspace.person.box("clo").text(), "0.5");
}

} // namespace
} // namespace comfortics::workspace
