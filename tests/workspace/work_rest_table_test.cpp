// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/work_rest_table.h"

#include "workspace/report.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace comfortics::workspace {
namespace {

WorkRestTable tableOf(const FieldTexts& person)
{
    tests::Program program;
    program.type("35", "850", "30", "1.5");
    return workRestTable(program.workspace.present(), person);
}

// By hand from the limits: at 30 °C and 300 W 30.74 min, 59.235 % of the hour by the work capacity; 35 °C in
// the sun at 30 % are 108 °F of the table.
TEST(WorkRestTable, HasTheMinutesOfEachBasis)
{
    const std::string watts = "5.159"; // met, of 75 kg and 1.80 m: 581 W
    const struct {
        FieldTexts person;
        std::vector<std::string> cells; // row after row
        int present;
    } cases[] = {
        {{{"wbgt_eff", "30"}, {"met", "2.6"}, {"weight", "75"}, {"height", "1.8"}, {"acclimatised", "yes"}},
         {"60.0 / 0.0", "15.7 / 44.3", "30.7 / 29.3", "5.5 / 54.5", "19.0 / 41.0", "3.4 / 56.6",
          "14.0 / 46.0", "2.5 / 57.5"},
         1},
        {{{"wbgt_eff", "30"}, {"basis", "capacity"}, {"met", watts}, {"weight", "75"}, {"height", "1.8"}},
         {"60.0 / 0.0", "35.5 / 24.5", "21.8 / 38.2", "16.1 / 43.9"},
         3},
        {{{"basis", "niosh_table"}, {"sunshine", "full"}}, {"35.0 / 25.0", "0.0 / 60.0", "0.0 / 60.0"}, -1},
    };
    for (const auto& one : cases) {
        const WorkRestTable table = tableOf(one.person);
        SCOPED_TRACE(table.title + table.problem + table.assumes);
        std::vector<std::string> cells;
        for (const WorkRestRow& row : table.rows)
            for (const WorkRestCell& cell : row.cells)
                cells.push_back(cell.inWords());
        EXPECT_EQ(cells, one.cells);
        for (int i = 0; i < static_cast<int>(table.rows.size()); ++i)
            EXPECT_EQ(table.rows[static_cast<std::size_t>(i)].isPresent, i == one.present) << i;
    }
}

TEST(WorkRestTable, SaysWhatItAssumesAndLacks)
{
    FieldTexts person{{"met", "2.6"}, {"weight", "75"}, {"height", "1.8"}, {"acclimatised", "no"}};
    EXPECT_NE(tableOf(person).problem.find("sunlight on the body"), std::string::npos)
        << tableOf(person).problem;
    person["sun"] = "yes";
    const WorkRestTable table = tableOf(person);
    for (const char* said :
         {"(of the readings, in work clothes), at rest 115 W, where the work is",
          "Marked: the class of the present metabolic rate, 292.99 W; that rate itself has "})
        EXPECT_NE(table.assumes.find(said), std::string::npos) << table.assumes;
    EXPECT_TRUE(table.rows.at(1).cells.at(1).isPresent);
    EXPECT_FALSE(table.rows.at(1).cells.at(0).isPresent);
    person["met"] = "0.9";
    EXPECT_NE(tableOf(person).assumes.find("No row is marked: "), std::string::npos);

    tests::Program program;
    program.type("35", "850", "30", "1.5");
    const ReportRequest request{.heading = {},
                                .notes = {},
                                .when = {},
                                .indices = {*Item::ofId("wbgt_iso7243.wbgt_ref")},
                                .person = person};
    EXPECT_NE(reportHtml(program.workspace.present(), request).find("<td>low, 180 W</td>"),
              std::string::npos);
}

} // namespace
} // namespace comfortics::workspace
