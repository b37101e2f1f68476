// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/frm_main.h"

#include "test_desk.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace comfortics::classic {
namespace {

using controls::Answer;
using controls::Key;
using controls::TextBox;

struct RecordedWindows final : Windows {
    std::vector<std::string> calls;
    void showResults() override { calls.push_back("results"); }
    void showRawData() override {}
    void showRadiation() override {}
    void showConverter() override {}
    std::string converter_lbl_C() override { return "21.5"; }
    std::string converter_lbl_WS() override { return "3.25"; }
    std::string converter_lbl_SR() override { return "640.0"; }
    void unloadAll() override { calls.push_back("unload"); }
};

struct FrmMain : testing::Test {
    Limits limits = tests::openLimits();
    tests::RecordedMessages messages;
    RecordedWindows windows;
    Frm_Main form{limits, messages, windows};
};

TEST_F(FrmMain, Calculate1ShowsTheTableCalculate2DoesNotAndAFailureIsToldOnce)
{
    form.calculation.readings.write({"25", "", "500", "", "50", ""});
    form.txt_WS.press({Key::Enter});
    EXPECT_TRUE(windows.calls.empty()); // the wind is missing
    form.txt_WS.setText("2");
    form.cmd_Calculate.setValue(true);
    EXPECT_EQ(form.results.lbl_results[134].caption(), "50.0");
    EXPECT_TRUE(windows.calls.empty());
    form.Img_Calculate.click.raise();
    EXPECT_EQ(windows.calls, std::vector<std::string>{"results"});
    EXPECT_TRUE(messages.boxes.empty());
    form.txt_TA.setText("20");
    form.txt_RH.press({Key::Enter});
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].text, form.calculation.failure()->sentence());
    EXPECT_EQ(messages.boxes[0].text.find("--"), std::string::npos);
    EXPECT_EQ(windows.calls.size(), 1U) << "the table would hide the reason";
}

TEST_F(FrmMain, AFailureOffersTheRobustRules)
{
    form.calculation.readings.write({"20", "", "500", "", "50", "2.25"});
    EXPECT_EQ(form.lbl_In_Force.caption(), "By classic rules, limits kept.");
    messages.answer = Answer::Yes;
    form.cmd_Calculate.setValue(true);
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].offer, "Calculate by the robust rules");
    EXPECT_EQ(form.results.lbl_results[134].caption(), "50.0");
    EXPECT_EQ(windows.calls, std::vector<std::string>{"results"});
    form.Opt_Rules.select(0);
    form.txt_WS.press({Key::Enter});
    EXPECT_EQ(windows.calls.size(), 2U) << "once for each press";
    EXPECT_EQ(form.settings().rules, Rules::Robust); // as the options show
    EXPECT_EQ(form.lbl_In_Force.caption(), "By robust rules, limits kept.");
    form.Opt_Limits.select(1);
    EXPECT_EQ(form.lbl_In_Force.caption(),
              "By robust rules, limits kept. From the next calculation on by robust rules, limits ignored.");
}

TEST_F(FrmMain, OffersNoRulesAgainstReadingsThatContradictEachOther)
{
    form.calculation.readings.write({"20", "", "500", "19", "", "2.25"});
    form.txt_TA.setText("10");
    form.cmd_Calculate.setValue(true);
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].offer, "");
    EXPECT_NE(messages.boxes[0].text.find("One of the two is wrong"), std::string::npos)
        << messages.boxes[0].text;
}

TEST_F(FrmMain, TellsOfReadingsThatItEmptiesWhileTypingAndInACalculation)
{
    form.txt_TA.setText("95");
    EXPECT_EQ(form.told().substr(0, 18), "95 is above 58 °C");
    form.txt_WS.setText("2");
    EXPECT_EQ(form.told(), "") << "another box is written";
    form.calculation.readings.write({"25", "", "500", "", "50", "2.25"});
    form.cmd_Calculate.setValue(true);
    EXPECT_EQ(form.told(), "");
    EXPECT_EQ(form.remarks(), " Rounded: wind speed 2.25 to 2.3.");
    form.cmd_Calculate.setValue(true);
    EXPECT_EQ(form.remarks(), "");
}

TEST_F(FrmMain, SelectionOfTheListIsTheSelectionOfTheRun)
{
    form.List_Indices.setSelected(133, false);
    form.calculation.readings.write({"25", "", "500", "", "50", "2"});
    form.cmd_Calculate.setValue(true);
    EXPECT_EQ(form.results.lbl_results[134].caption(), "");
    EXPECT_TRUE(form.Check_All_Indices.checked()); // the box does not follow the list

    form.Check_All_Indices.setChecked(false);
    EXPECT_EQ(form.settings().selection, Selection::none());

    form.Check_All_Indices.setChecked(true);
    form.Opt_Limits.select(1);
    EXPECT_EQ(form.settings().selection, Selection::all());
    EXPECT_TRUE(form.settings().ignoreLimits);
    EXPECT_FALSE(form.Fra_Options.visible());
    form.Menu_Options.click.raise();
    EXPECT_TRUE(form.Fra_Options.visible());
    form.Opt_Rules.select(1);
    EXPECT_EQ(form.settings().rules, Rules::Robust);
}

TEST_F(FrmMain, SearchMovesTheListToTheFirstHit)
{
    form.txt_Search_List.setText("GOLDSCHMIDT");
    EXPECT_EQ(form.List_Indices.currentRow(), 34U);
    form.txt_Search_List.setText("no such index");
    EXPECT_EQ(form.List_Indices.currentRow(), 34U);
    form.txt_Search_List.setText("");
    EXPECT_EQ(form.List_Indices.currentRow(), 0U);
}

TEST_F(FrmMain, ArrowKeysFollowTheUnevenTable)
{
    const std::map<char, TextBox*> boxes{{'A', &form.txt_TA}, {'G', &form.txt_TG}, {'S', &form.txt_SR},
                                         {'D', &form.txt_DP}, {'R', &form.txt_RH}, {'W', &form.txt_WS}};
    std::string focused;
    for (const auto& [letter, box] : boxes)
        box->focus.watch([&focused, letter = letter] { focused += letter; });
    // Box, then where Down, Right, Up and Left lead.
    for (const std::string row : {"AG.W.", "GDSAS", "SRGRG", "DWRGR", "RSDSD", "WA.D."}) {
        std::string led(1, row[0]);
        for (const Key key : {Key::Down, Key::Right, Key::Up, Key::Left}) {
            focused.clear();
            boxes.at(row[0])->press({key});
            led += focused.empty() ? "." : focused;
        }
        EXPECT_EQ(led, row);
    }
}

TEST_F(FrmMain, ADoubleClickTransfersOnlyIntoAnOfferedBox)
{
    for (TextBox* box : {&form.txt_TA, &form.txt_SR, &form.txt_RH, &form.txt_WS}) {
        box->doubleClick.raise();
        EXPECT_EQ(box->text(), "");
        box->setBackColor(kTransferColor);
        box->doubleClick.raise();
    }
    EXPECT_EQ(form.txt_TA.text(), "21.5");
    EXPECT_EQ(form.txt_SR.text(), "640.0");
    EXPECT_EQ(form.txt_WS.text(), "3.25");
    EXPECT_EQ(form.txt_RH.text(), ""); // never
}

TEST_F(FrmMain, ClosingAsksFirst)
{
    messages.answer = Answer::No;
    EXPECT_TRUE(form.Form_QueryUnload());
    EXPECT_TRUE(windows.calls.empty());
    messages.answer = Answer::Yes;
    EXPECT_FALSE(form.Form_QueryUnload());
    EXPECT_EQ(windows.calls, std::vector<std::string>{"unload"});
    const controls::MessageBox& box = messages.boxes.back();
    EXPECT_EQ(box.buttons, controls::Buttons::YesNo);
    EXPECT_EQ(
        box.text,
        "Are you sure that you want to continue?\r\n\r\nNote: By clicking the 'Yes' button, all changes "
        "will be lost.");
}

} // namespace
} // namespace comfortics::classic
