// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/situation.h"

#include "workspace_program.h"

#include <gtest/gtest.h>

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
            EXPECT_EQ(figure.reason, program.main.calculation.whyBlank(index));
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
