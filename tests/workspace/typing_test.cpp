// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/history.h"
#include "workspace/unit_entry.h"

#include "workspace_program.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace comfortics::workspace {
namespace {

using classic::Reading;
using tests::Program;

TEST(UnitEntry, TheBoxHoldsWhatIsTypedInAnotherUnit)
{
    Program program;
    UnitChoice choice(program.preferences);
    UnitEntry air(program.main.calculation, choice, Reading::TA);
    UnitEntry wind(program.main.calculation, choice, Reading::WS);
    choice.Opt_Temperature.select(1);
    choice.Opt_Wind.select(1);
    air.txt_Entry.setText("95");
    EXPECT_EQ(program.main.txt_TA.text(), "35");
    air.txt_Entry.setText("98,6");
    EXPECT_EQ(program.main.txt_TA.text(), "37");
    air.txt_Entry.setText("98.6F");
    EXPECT_EQ(program.main.txt_TA.text(), "") << "no number, no reading";
    air.txt_Entry.setText("300");
    EXPECT_EQ(program.main.txt_TA.text(), "") << "the rules of the box stand: 148.9 °C is no air";
    wind.txt_Entry.setText("18");
    EXPECT_EQ(program.main.txt_WS.text(), "5");

    program.main.txt_TA.setText("-40");
    EXPECT_EQ(air.txt_Entry.text(), "-40");
    choice.Opt_Temperature.select(2);
    EXPECT_EQ(air.txt_Entry.text(), "233.15") << "another unit is no other reading";
    EXPECT_EQ(program.main.txt_TA.text(), "-40");
    program.main.txt_TA.setText("");
    EXPECT_EQ(air.txt_Entry.text(), "");

    choice.Opt_Temperature.select(0);
    air.txt_Entry.setText("95");
    EXPECT_EQ(program.main.txt_TA.text(), "") << "no air has 95 °C";
    choice.Opt_Temperature.select(1);
    EXPECT_EQ(program.main.txt_TA.text(), "35") << "it was meant in the unit that is chosen afterwards";
    choice.Opt_Temperature.select(2);

    const UnitChoice later(program.preferences);
    EXPECT_EQ(later.Opt_Temperature.selected(), 2U);
    EXPECT_EQ(later.Opt_Wind.selected(), 1U);
}

// By the power law with the exponent of the assumptions: v / (10 / 1.1)^0.2.
TEST(UnitEntry, AWindMeasuredAt10MetresIsTakenToTheHeightOfTheBox)
{
    Program program;
    UnitChoice choice(program.preferences);
    UnitEntry wind(program.main.calculation, choice, Reading::WS);
    wind.txt_Entry.setText("5");
    EXPECT_EQ(program.main.txt_WS.text(), "5");
    wind.Check_10m.setChecked(true);
    EXPECT_EQ(wind.txt_Entry.text(), "5") << "what was read stays as it was typed";
    EXPECT_NEAR(std::stod(program.main.txt_WS.text()), 3.2155, 0.00006);
    program.main.txt_Friction.setText("0.3");
    EXPECT_NEAR(std::stod(program.main.txt_WS.text()), 2.5786, 0.00006);
    program.main.txt_Friction.setText("?");
    EXPECT_EQ(program.main.txt_WS.text(), "") << "without an exponent there is no wind at the box";
    program.main.txt_Friction.setText("0.2");
    EXPECT_NEAR(std::stod(program.main.txt_WS.text()), 3.2155, 0.00006);
    program.main.txt_WS.setText("3");
    EXPECT_EQ(wind.txt_Entry.text(), "4.66");
    wind.Check_10m.setChecked(false);
    EXPECT_EQ(program.main.txt_WS.text(), "3") << "the box was typed into, so the box stands";
    EXPECT_EQ(wind.txt_Entry.text(), "3");
}

TEST(History, GoesBackAndForthThroughWhatWasTyped)
{
    Program program;
    History history(program.main);
    const auto type = [&](controls::TextBox& box, const char* text) {
        box.setText(text);
        history.note();
    };
    EXPECT_FALSE(history.canUndo());
    type(program.main.txt_TA, "3");
    type(program.main.txt_TA, "33");
    type(program.main.txt_TG, "40");
    type(program.main.txt_SR, "7"); // empties the globe temperature
    type(program.main.txt_SR, "71");
    type(program.main.txt_Height, "182");
    history.undo();
    EXPECT_EQ(program.main.txt_Height.text(), "75");
    history.undo();
    EXPECT_EQ(program.main.txt_SR.text() + "|" + program.main.txt_TG.text(), "7|");
    history.undo();
    EXPECT_EQ(program.main.txt_SR.text() + "|" + program.main.txt_TG.text(), "|40") << "the partner is back";
    history.undo();
    EXPECT_EQ(program.main.txt_TG.text(), "");
    history.undo();
    EXPECT_EQ(program.main.txt_TA.text(), "") << "letters of one number are one step";
    EXPECT_FALSE(history.canUndo());
    for (int i = 0; i < 5; ++i)
        history.redo();
    EXPECT_EQ(program.main.txt_Height.text(), "182");
    EXPECT_EQ(program.main.txt_SR.text(), "71");
    EXPECT_FALSE(history.canRedo());

    history.undo();
    type(program.main.txt_WS, "2");
    EXPECT_FALSE(history.canRedo()) << "another way was taken";
    history.pause();
    type(program.main.txt_WS, "25");
    history.undo();
    EXPECT_EQ(program.main.txt_WS.text(), "2") << "a pause parts the steps";
    program.main.txt_WS.setText("9"); // not noted yet
    history.undo();
    EXPECT_EQ(program.main.txt_WS.text(), "2");
}

} // namespace
} // namespace comfortics::workspace
