// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/situation.h"

#include "workspace/plain_words.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace comfortics::workspace {
namespace {

using tests::Program;

TEST(Situation, HasTheTextsOfTheResultsTableWithoutTouchingTheForm)
{
    for (std::size_t rules = 0; rules < 3; ++rules) {
        Program program;
        program.main.Opt_Rules.select(rules);
        program.type("33.37", "712.4", "48", "1.25");
        const Situation situation = program.workspace.present();
        EXPECT_EQ(program.main.txt_TA.text(), "33.37")
            << "nothing is rounded before the calculation is wanted";
        EXPECT_EQ(program.main.results.lbl_results[195].caption(), "");

        program.main.cmd_Calculate.click.raise();
        int classes = 0;
        for (int index = 1; index <= catalogue::kLastIndex; ++index) {
            const Figure& figure = situation.figure(index);
            EXPECT_EQ(figure.text,
                      program.main.results.lbl_results[static_cast<std::size_t>(index)].caption());
            EXPECT_EQ(figure.reason,
                      inPlainWords(program.main.calculation.whyBlank(index), situation.inputs));
            EXPECT_EQ(figure.number.has_value(), !figure.text.empty()) << index;
            if (figure.number) {
                EXPECT_NEAR(*figure.number, std::stod(figure.text), 0.5001) << index;
            }
            classes += figure.meaning ? 1 : 0;
        }
        EXPECT_GT(classes, 40);
        for (std::size_t i = 0; i < formulas::kLiveCount; ++i)
            EXPECT_EQ(situation.live[i].text,
                      program.main.calculation.liveLabel(static_cast<formulas::Live>(i)).caption());
    }
}

// Where a formula would say how its arithmetic failed, people are told what of their readings did it.
TEST(Situation, TellsInPlainWordsWhyThereIsNoValue)
{
    struct Row {
        std::array<const char*, classic::kReadingCount> readings;
        classic::Rules rules;
        int index; // 0: the problem of all
        const char* words;
    };
    using classic::Rules;
    const Row rows[] = {
        {{"33", "60", "", "", "50", "1.5"},
         Rules::Classic,
         0,
         "in the outdoor WBGT: no solar radiation up to 1376 W/m² brings the globe to 60 °C. By"},
        {{"33", "", "0", "-40", "", "1.5"},
         Rules::Classic,
         0,
         "Blazejczyk; 2004): no relative humidity is typed."},
        {{"33", "", "0", "", "0", "1.5"},
         Rules::Classic,
         0,
         "there is no dew point at a relative humidity of 0 %."},
        {{"33", "", "0", "-290", "", "1.5"},
         Rules::Classic,
         0,
         "Index: it cannot be worked out for such readings (root of -13.57)."},
        {{"33", "", "0", "", "0", "1.5"},
         Rules::Robust,
         6,
         "The natural wet-bulb temperature (Tnwb) has no value: there is no dew point at a"},
        {{"10", "", "600", "19", "", "1.5"},
         Rules::Classic,
         0,
         "the dew point 19 reads above the air temperature 10 (the two are compared as texts). One of the "
         "two"},
        {{"35", "", "600", "21", "", "12"},
         Rules::Classic,
         195,
         "the wind at 10 m is 18.66 m/s, valid from 0.5 to 17 m/s."},
        {{"10", "", "600", "19", "", "1.5"},
         Rules::Precise,
         4,
         "The dew point of 19 °C lies above the air temperature of 10 °C."},
    };
    for (const Row& row : rows) {
        classic::Inputs inputs{{}, tests::kUsualAssumptions, {}};
        std::copy(row.readings.begin(), row.readings.end(), inputs.readings.begin());
        inputs.settings.rules = row.rules;
        inputs.settings.ignoreLimits = row.index != 195;
        const Situation situation = evaluate(tests::projectLimits(), inputs);
        const std::string& words = row.index == 0 ? situation.problem : situation.figure(row.index).reason;
        EXPECT_NE(words.find(row.words), std::string::npos) << words;
    }
}

TEST(Situation, SaysWhatIsMissingOrFailedAndShowsNoFigureThen)
{
    Program program;
    program.type("33", "", "48", "1");
    const Situation incomplete = program.workspace.present();
    EXPECT_NE(incomplete.problem.find("globe temperature"), std::string::npos) << incomplete.problem;
    EXPECT_FALSE(incomplete.figure(90).number);
    EXPECT_EQ(incomplete.figure(90).reason, incomplete.problem);

    // By the classic rules the dew point and the air temperature are compared as texts.
    program.type("20", "600", "", "1");
    program.main.txt_DP.setText("9.3");
    const Situation failed = program.workspace.present();
    EXPECT_EQ(failed.status, classic::RunStatus::Failed);
    EXPECT_NE(failed.problem.find("9.3"), std::string::npos) << failed.problem;
    EXPECT_FALSE(failed.figure(90).number);
    EXPECT_FALSE(failed.liveFigure(formulas::Live::Ta).number);

    program.main.Opt_Rules.select(1);
    EXPECT_TRUE(program.workspace.present().figure(90).number) << "other options, another situation";
}

TEST(Workspace, AsksForThePresentOnceAndTakesWhatIsStillWanted)
{
    Program program;
    Workspace& workspace = program.workspace;
    program.type("31", "600", "50", "1");
    EXPECT_NE(workspace.presentSoon(), nullptr) << "there is nobody to wait for";
    std::vector<classic::Inputs> asked;
    int found = 0;
    workspace.onAsk([&asked](const classic::Inputs& inputs) { asked.push_back(inputs); });
    workspace.found.handle([&found] { ++found; });
    const auto answer = [&](std::size_t place) {
        workspace.arrived(std::make_shared<const Situation>(evaluate(program.limits, asked.at(place))));
    };
    EXPECT_NE(workspace.presentSoon(), nullptr) << "known";
    program.main.txt_WS.setText("2");
    EXPECT_EQ(workspace.presentSoon(), nullptr);
    EXPECT_EQ(workspace.presentSoon(), nullptr);
    program.main.txt_WS.setText("3");
    EXPECT_EQ(workspace.presentSoon(), nullptr);
    ASSERT_EQ(asked.size(), 2U);
    answer(0);
    EXPECT_EQ(found, 0) << "of other readings by now";
    EXPECT_EQ(workspace.presentSoon(), nullptr);
    answer(1);
    EXPECT_EQ(found, 1);
    ASSERT_NE(workspace.presentSoon(), nullptr);
    EXPECT_EQ(workspace.presentSoon()->inputs.readings, program.main.inputs().readings);
    EXPECT_EQ(asked.size(), 2U);
    // Whoever cannot wait has it at once.
    program.main.txt_WS.setText("4");
    EXPECT_EQ(workspace.present().inputs.readings[5], "4");
}

} // namespace
} // namespace comfortics::workspace
