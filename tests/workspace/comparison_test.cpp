// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/comparison.h"

#include "workspace/comparison_table.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::workspace {
namespace {

constexpr std::chrono::sys_days kDay = std::chrono::year{2026} / 11 / 23;

struct Pinning : tests::Program {
    Comparison comparison{workspace};
    ComparisonTable table(const std::vector<Item>& items)
    {
        return comparisonTable(workspace.present(), comparison, items);
    }
    std::string pin() { return comparison.pinPresent(kDay + std::chrono::minutes(14 * 60 + 5)); }
};

std::size_t columnOf(const ComparisonTable& table, const std::string& heading)
{
    for (std::size_t i = 0; i < table.columns.size(); ++i)
        if (table.columns[i].heading == heading)
            return i;
    throw std::runtime_error("there is no column " + heading);
}

const ComparisonCell& cell(const ComparisonTable& table, const std::string& quantity,
                           const std::string& heading)
{
    for (const ComparisonRow& row : table.rows)
        if (row.cells[0].text.starts_with(quantity))
            return row.cells[columnOf(table, heading)];
    throw std::runtime_error("there is no row " + quantity);
}

TEST(Comparison, TellsDifferencesOfNumbersAndNoneOfBlanks)
{
    Pinning program;
    program.type("30.5", "0", "49.5", "1.25");
    EXPECT_EQ(program.pin(), "");
    program.comparison.rename(0, "  evening ");
    program.type("33", "0", "48.3", "2");
    // 65 is Ta - 0.4 (Ta - 10) (1 - RH / 100): 28.2436 now and 26.359 then. 88 begins at 26.7 °C.
    const ComparisonTable table = program.table({65, 88});

    EXPECT_EQ(cell(table, "Air Temperature", "Now less evening").text, "+2.5");
    EXPECT_EQ(cell(table, "Wind Speed", "Now less evening").text, "+0.75");
    EXPECT_EQ(cell(table, "Relative Humidity", "Now less evening").text, "-1.2");
    EXPECT_EQ(cell(table, "Solar Radiation", "Now less evening").text, "0");
    EXPECT_EQ(cell(table, "Effective Temperature", "Now").text, "28.2");
    EXPECT_EQ(cell(table, "Effective Temperature", "evening").text, "26.4");
    EXPECT_EQ(cell(table, "Effective Temperature", "Now less evening").text, "+1.9")
        << "of the numbers before they were rounded";
    EXPECT_EQ(cell(table, "Pinned", "evening").text, "2026-11-23 14:05 UTC");
    EXPECT_EQ(cell(table, "Calculated by", "Now less evening").text, "");
    const ComparisonCell& globe = cell(table, "Globe Temperature", "Now");
    EXPECT_NE(globe.note.find("Derived"), std::string::npos) << "no globe was typed";

    program.type("20", "0", "90", "2");
    const ComparisonTable cold = program.table({88});
    EXPECT_EQ(cell(cold, "Heat Index", "Now").text, "");
    EXPECT_NE(cell(cold, "Heat Index", "Now").note.find("Outside its limits"), std::string::npos);
    EXPECT_EQ(cell(cold, "Heat Index", "Now less evening").text, "");
    EXPECT_NE(cell(cold, "Heat Index", "Now less evening").note.find("at present"), std::string::npos);
    EXPECT_NE(cell(cold, "Heat Index", "Class of evening").text, "");
    EXPECT_EQ(cell(cold, "Heat Index", "Class now").text, "");

    program.type("", "", "", "");
    const ComparisonTable empty = program.table({88});
    for (const ComparisonRow& row : empty.rows)
        if (row.cells[0].text != "Calculated by") {
            EXPECT_EQ(row.cells[columnOf(empty, "Now")].text, "") << row.cells[0].text;
            EXPECT_FALSE(row.cells[columnOf(empty, "Now")].note.empty()) << row.cells[0].text;
            EXPECT_EQ(row.cells[columnOf(empty, "Now less evening")].text, "");
        }
    EXPECT_NE(program.pin().find("air temperature"), std::string::npos) << "there is nothing to pin";
    EXPECT_EQ(program.comparison.count(), 1U);
}

TEST(Comparison, ShowsByWhichOptionsAndAssumptionsSituationsDiffer)
{
    Pinning program;
    program.type("30", "500", "50", "2");
    program.pin();
    program.main.Opt_Rules.select(2);
    program.main.txt_Barometric.setText("950");
    const ComparisonTable table = program.table({});
    EXPECT_EQ(cell(table, "Calculated by", "Now").text, "precise rules, limits kept");
    EXPECT_EQ(cell(table, "Calculated by", "Situation 1").text, "classic rules, limits kept");
    EXPECT_EQ(cell(table, "Barometric Pressure", "Now less Situation 1").text, "-66");
    EXPECT_THROW(cell(table, "Body Mass", "Now"), std::runtime_error) << "it is the same";
}

// The vote of each situation is that of the person who was pinned with it.
TEST(Comparison, HoldsThePersonOfEachSituation)
{
    Pinning program;
    program.type("22", "0", "60", "0.1");
    PersonAndPlace& person = program.workspace.person;
    person.write({{"met", "1.2"}, {"clo", "0.5"}});
    program.pin();
    person.write({{"met", "1.2"}, {"clo", "1"}});
    const Item vote = Item::ofId("pmv_iso.pmv").value();
    const ComparisonTable table = program.table({vote});
    EXPECT_EQ(cell(table, "Clothing insulation", "Now less Situation 1").text, "+0.5");
    EXPECT_THROW(cell(table, "Metabolic rate", "Now"), std::runtime_error) << "it is the same";
    EXPECT_GT(cell(table, "Predicted mean vote", "Now less Situation 1").number.value(), 0.3);

    Session session;
    program.comparison.save(session);
    Pinning other;
    other.comparison.open(session);
    EXPECT_EQ(other.comparison.pin(0), program.comparison.pin(0));
    EXPECT_NE(Comparison::fault(R"([{"name":"a","pinned":"b","person":[]}])"), "");
}

TEST(Comparison, KeepsItsOrderAndNames)
{
    Pinning program;
    program.type("30", "500", "50", "2");
    for (std::size_t i = 0; i < Comparison::kMostPins; ++i)
        EXPECT_EQ(program.pin(), "");
    EXPECT_NE(program.pin(), "") << "the table has a last column";
    const auto names = [&] {
        std::string all;
        for (std::size_t i = 0; i < 4; ++i)
            all += program.comparison.pin(i).name.substr(10);
        return all;
    };
    program.comparison.move(0, 2);
    EXPECT_EQ(names(), "2314");
    program.comparison.move(3, 1);
    EXPECT_EQ(names(), "2431");
    program.comparison.remove(1);
    EXPECT_EQ(names().substr(0, 3), "231");
    program.comparison.rename(0, " ");
    program.comparison.rename(1, std::string(81, 'x'));
    EXPECT_EQ(names().substr(0, 3), "231");
    program.pin();
    EXPECT_EQ(program.comparison.pin(program.comparison.count() - 1).name, "Situation 4") << "the free one";
}

TEST(Comparison, ComesBackFromItsTextWithFiguresCalculatedAnew)
{
    Pinning program;
    program.type("30.5", "0", "49.5", "1.25");
    program.main.Opt_Rules.select(1);
    program.main.txt_Friction.setText("0.3");
    program.pin();
    program.comparison.rename(0, "Köln, \"noon\"\t1");
    program.type("33", "700", "48.3", "2");
    program.pin();

    Pinning later;
    const std::string json = program.comparison.json();
    ASSERT_EQ(Comparison::fault(json), "");
    later.comparison.restore(json);
    ASSERT_EQ(later.comparison.count(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(later.comparison.pin(i), program.comparison.pin(i));
        for (int index = 1; index <= catalogue::kLastIndex; ++index)
            EXPECT_EQ(later.comparison.situation(i).figure(index).text,
                      program.comparison.situation(i).figure(index).text);
    }
    later.comparison.restore("");
    EXPECT_EQ(later.comparison.count(), 0U);
    EXPECT_EQ(later.comparison.json(), "");
}

TEST(Comparison, CalculatesThePinsOfAFileOneAfterTheOther)
{
    Pinning program;
    for (const char* const wind : {"1", "2", "3"}) {
        program.type("30.5", "0", "49.5", wind);
        program.pin();
    }
    Pinning later;
    std::vector<classic::Inputs> asked;
    later.comparison.onAsk([&asked](const classic::Inputs& inputs) { asked.push_back(inputs); });
    later.comparison.restore(program.comparison.json());
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(later.comparison.situation(0).figure(195).reason, kAwaited);
    later.comparison.arrived(std::make_shared<const Situation>(evaluate(later.limits, asked[0])));
    ASSERT_EQ(asked.size(), 2U);
    later.comparison.remove(1); // which is being calculated
    later.comparison.complete();
    for (const auto& [place, as] : {std::pair(0U, 0U), std::pair(1U, 2U)})
        EXPECT_EQ(later.comparison.situation(place).figure(195).text,
                  program.comparison.situation(as).figure(195).text);
    later.comparison.arrived(std::make_shared<const Situation>(evaluate(later.limits, asked[1])));
    EXPECT_EQ(asked.size(), 2U) << "there is nothing left to calculate";
}

TEST(Comparison, ShowsWhatIsPinnedWhileThePresentIsBeingCalculated)
{
    Pinning program;
    program.type("30.5", "0", "49.5", "1.25");
    program.pin();
    program.type("33", "0", "48.3", "2");
    const Situation meanwhile = awaited(program.workspace.presentInputs());
    const ComparisonTable table = comparisonTable(meanwhile, program.comparison, {65});
    EXPECT_EQ(cell(table, "Air Temperature", "Now").text, "33") << "as typed";
    EXPECT_EQ(cell(table, "Effective Temperature (Houghten", "Now").text, "");
    for (const char* const heading : {"Now", "Now less Situation 1"})
        EXPECT_EQ(cell(table, "Effective Temperature (Houghten", heading).note, kAwaited) << heading;
    EXPECT_EQ(cell(table, "Effective Temperature (Houghten", "Situation 1").text,
              program.comparison.situation(0).figure(65).text);
}

TEST(Comparison, IsKeptInASessionsFile)
{
    Pinning program;
    program.type("30.5", "0", "49.5", "1.25");
    program.pin();
    Session session;
    static_cast<SessionPart&>(program.comparison).save(session);
    const SessionRead read = readSession(sessionText(session));
    ASSERT_TRUE(read.session) << read.fault;

    Pinning later;
    SessionPart& part = later.comparison;
    ASSERT_EQ(part.fault(*read.session), "");
    part.open(*read.session);
    EXPECT_EQ(later.comparison.json(), program.comparison.json());

    Session damaged = *read.session;
    damaged.pinned = R"([{"name": "a", "options": 1}])";
    EXPECT_NE(part.fault(damaged), "");
}

TEST(Comparison, RefusesWhatIsDamaged)
{
    Pinning program;
    program.type("30", "500", "50", "2");
    program.pin();
    const std::string good = program.comparison.json();
    for (const std::string& bad :
         {good.substr(0, good.size() - 2), std::string("{}"), std::string("[1]"), std::string("[{}]"),
          std::string(R"([{"name": 3}])"), std::string(R"([{"name": "a", "readings": {"TA": 30}}])"),
          std::string(R"([{"name": "a", "options": {"rules": "newest"}}])"),
          R"([{"name": ")" + std::string(200, 'n') + R"("}])", std::string("[{\"name\": \"\xff\"}]")}) {
        EXPECT_FALSE(Comparison::fault(bad).empty()) << bad;
    }
    std::string many = "[";
    for (std::size_t i = 0; i <= Comparison::kMostPins; ++i)
        many += std::string(i > 0 ? "," : "") + R"({"name": "a"})";
    EXPECT_FALSE(Comparison::fault(many + "]").empty());
    EXPECT_EQ(program.comparison.json(), good);
}

TEST(Comparison, WritesItsTableForOtherPrograms)
{
    Pinning program;
    program.type("30.5", "0", "49.5", "1.25");
    program.pin();
    program.comparison.rename(0, "noon, \"A\"");
    program.type("33", "0", "48.3", "2");
    const ComparisonTable table = program.table({65});
    const std::string csv = csvTable(table);
    EXPECT_TRUE(csv.starts_with("Quantity,Unit,Now,Class now,\"noon, \"\"A\"\"\",")) << csv;
    EXPECT_NE(csv.find("\r\nAir Temperature,°C,33,,30.5,+2.5,\r\n"), std::string::npos) << csv;
    const std::string plain = plainTable(table);
    EXPECT_NE(plain.find("\nAir Temperature\t°C\t33\t\t30.5\t+2.5\t\n"), std::string::npos) << plain;
    // Two cells apart: their rows and columns, whole, with unit and class.
    std::size_t air = 0;
    while (table.rows.at(air).cells.front().text != "Air Temperature")
        ++air;
    EXPECT_EQ(plainTable(partOf(table, {{air, 4}, {air - 1, 2}})),
              "Quantity\tUnit\tNow\tClass now\tnoon, \"A\"\tClass of noon, \"A\"\n" +
                  table.rows[air - 1].cells[0].text + "\t\t" + table.rows[air - 1].cells[2].text + "\t\t" +
                  table.rows[air - 1].cells[4].text + "\t\nAir Temperature\t°C\t33\t\t30.5\t\n");
}

} // namespace
} // namespace comfortics::workspace
