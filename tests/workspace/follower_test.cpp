// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/follower.h"

#include "workspace_program.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace comfortics::workspace {
namespace {

using Standing = Follower::Standing;

// Calculates when told to.
struct Slow : tests::Program {
    Follower& follower = workspace.follower;
    std::vector<classic::Inputs> asked;

    Slow()
    {
        follower.onAsk([this](const classic::Inputs& inputs) { asked.push_back(inputs); });
    }
    ~Slow() { follower.onAsk({}); }
    Slow(const Slow&) = delete;
    Slow& operator=(const Slow&) = delete;

    void answer(std::size_t place)
    {
        follower.arrived(std::make_shared<const Situation>(evaluate(limits, asked.at(place))));
    }
    std::string utci() const
    {
        return follower.situation() ? follower.situation()->figure(195).text : std::string("none");
    }
};

TEST(Follower, ShowsTheLastReadingsAloneAndSaysSoWhileTheyTake)
{
    Slow slow;
    slow.answer(0);
    EXPECT_EQ(slow.follower.note(), slow.workspace.present().problem);
    slow.type("31", "600", "50", "1");
    slow.answer(slow.asked.size() - 1);
    EXPECT_EQ(slow.follower.standing(), Standing::Present);
    EXPECT_EQ(slow.follower.note(), "");
    const std::string before = slow.utci();
    EXPECT_FALSE(slow.follower.patience.enabled());

    slow.main.txt_WS.setText("5");
    const std::size_t five = slow.asked.size() - 1;
    slow.main.txt_WS.setText("6");
    EXPECT_TRUE(slow.follower.patience.enabled());
    EXPECT_EQ(slow.follower.standing(), Standing::Present) << "for as long as the patience lasts";
    slow.follower.patience.tick();
    EXPECT_EQ(slow.follower.standing(), Standing::Calculating);
    slow.answer(five);
    EXPECT_EQ(slow.follower.standing(), Standing::Calculating) << "of other readings by now";
    EXPECT_EQ(slow.utci(), before);
    slow.answer(slow.asked.size() - 1);
    EXPECT_EQ(slow.follower.standing(), Standing::Present);
    EXPECT_EQ(slow.utci(), slow.workspace.present().figure(195).text);
    EXPECT_NE(slow.utci(), before);

    // Back to what is shown before the answer came: nothing is left to wait for.
    slow.main.txt_WS.setText("7");
    slow.main.txt_WS.setText("6");
    EXPECT_EQ(slow.follower.standing(), Standing::Present);
    EXPECT_FALSE(slow.follower.patience.enabled());
    slow.answer(slow.asked.size() - 1);
    EXPECT_EQ(slow.utci(), slow.workspace.present().figure(195).text);
    // Ticks of the list are nothing to the cards.
    const std::size_t times = slow.asked.size();
    slow.main.List_Indices.setSelected(3, false);
    EXPECT_EQ(slow.asked.size(), times);
}

TEST(Follower, WithTheOptionOffShowsTheLastCalculation)
{
    Slow slow;
    slow.follower.Check_Follow.setChecked(false);
    EXPECT_EQ(slow.follower.standing(), Standing::Nothing);
    EXPECT_EQ(slow.follower.situation(), nullptr);
    slow.asked.clear();
    slow.type("31.26", "600", "50", "1");
    EXPECT_TRUE(slow.asked.empty());
    slow.main.cmd_Calculate.setValue(true);
    slow.answer(0);
    EXPECT_EQ(slow.follower.standing(), Standing::Present);
    EXPECT_EQ(slow.utci(), slow.main.results.lbl_results[195].caption());
    slow.main.txt_WS.setText("5");
    EXPECT_EQ(slow.follower.standing(), Standing::Earlier);
    EXPECT_EQ(slow.utci(), slow.main.results.lbl_results[195].caption());
    EXPECT_NE(slow.follower.note(), "");
    EXPECT_EQ(slow.asked.size(), 1U);

    // The choice is kept.
    EXPECT_FALSE(Follower(slow.main, slow.preferences).Check_Follow.checked());
    slow.follower.Check_Follow.setChecked(true);
    EXPECT_EQ(slow.asked.back().readings, slow.main.inputs().readings);
}

} // namespace
} // namespace comfortics::workspace
