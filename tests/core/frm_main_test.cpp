// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/frm_main.h"

#include "test_desk.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>

namespace comfortics::core {
namespace {

using controls::Answer;
using controls::Key;
using controls::TextBox;
using tests::RecordedMessages;

struct RecordedWindows final : Windows {
    std::vector<std::string> calls;
    void showResults() override { calls.push_back("results"); }
    void showRawData() override { calls.push_back("raw data"); }
    void showRadiation() override { calls.push_back("radiation"); }
    void showConverter() override { calls.push_back("converter"); }
    std::string converter_lbl_C() override { return "21.5"; }
    std::string converter_lbl_WS() override { return "3.25"; }
    std::string converter_lbl_SR() override { return "640.0"; }
    void unloadAll() override { calls.push_back("unload"); }
};

struct MainForm {
    Limits limits = tests::openLimits();
    RecordedMessages messages;
    RecordedWindows windows;
    Frm_Main form{limits, messages, windows};

    void type(const char* Ta, const char* SR, const char* RH, const char* WS)
    {
        form.txt_TA.setText(Ta);
        form.txt_SR.setText(SR);
        form.txt_RH.setText(RH);
        form.txt_WS.setText(WS);
    }
};

TEST(FrmMain, StartsWithAllIndicesSelectedAndOptionsHiddenInTheCorner)
{
    MainForm main;
    EXPECT_EQ(main.form.List_Indices.count(), 222U);
    EXPECT_EQ(main.form.List_Indices.item(34), "Cooling Power (Goldschmidt; 1952)");
    EXPECT_EQ(main.form.settings().selection, Selection::all());
    EXPECT_FALSE(main.form.settings().ignoreLimits);
    EXPECT_EQ(main.form.settings().rules, Rules::Classic);
    EXPECT_FALSE(main.form.Fra_Options.visible());
    EXPECT_EQ(main.form.lbl_SR_unit.caption(), "W/m²");
    EXPECT_EQ(main.form.txt_Height.text(), "75");
    EXPECT_EQ(main.form.txt_Weight.text(), "180");
}

TEST(FrmMain, Calculate1ShowsTheTableAndCalculate2DoesNot)
{
    MainForm main;
    main.type("25", "500", "50", "");
    main.form.txt_WS.press({Key::Enter});
    EXPECT_TRUE(main.windows.calls.empty()); // the wind is missing
    main.form.txt_WS.setText("2");
    main.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(main.form.results.lbl_results[134].caption(), "50.0");
    EXPECT_TRUE(main.windows.calls.empty());
    main.form.Img_Calculate.click.raise();
    EXPECT_EQ(main.windows.calls, std::vector<std::string>{"results"});
    EXPECT_TRUE(main.messages.boxes.empty());
}

TEST(FrmMain, AFailedRunIsToldOnce)
{
    MainForm main;
    main.type("20", "500", "50", "2");
    main.form.txt_RH.press({Key::Enter});
    ASSERT_EQ(main.messages.boxes.size(), 1U);
    EXPECT_NE(main.messages.boxes[0].text.find("the dew point 9.27 reads above"), std::string::npos);
    EXPECT_EQ(main.form.lbl_Air_Temperature.caption(), "");
}

TEST(FrmMain, SelectionOfTheListIsTheSelectionOfTheRun)
{
    MainForm main;
    main.form.List_Indices.setSelected(133, false);
    main.type("25", "500", "50", "2");
    main.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(main.form.results.lbl_results[134].caption(), "");
    EXPECT_TRUE(main.form.Check_All_Indices.checked()); // the box does not follow the list

    main.form.Check_All_Indices.setChecked(false);
    EXPECT_EQ(main.form.settings().selection, Selection::none());
    main.form.cmd_Calculate.setValue(true);
    EXPECT_EQ(main.form.results.lbl_results[5].caption(), "");
    EXPECT_EQ(main.form.lbl_Relative_Humidity.caption(), "50.00000"); // derived all the same

    main.form.Check_All_Indices.setChecked(true);
    main.form.Opt_Limits.select(1);
    EXPECT_EQ(main.form.settings().selection, Selection::all());
    EXPECT_TRUE(main.form.settings().ignoreLimits);
    main.form.Opt_Rules.select(1);
    EXPECT_EQ(main.form.settings().rules, Rules::Robust);
}

TEST(FrmMain, SearchMovesTheListToTheFirstHit)
{
    MainForm main;
    main.form.txt_Search_List.setText("GOLDSCHMIDT");
    EXPECT_EQ(main.form.List_Indices.currentRow(), 34U);
    main.form.txt_Search_List.setText("no such index");
    EXPECT_EQ(main.form.List_Indices.currentRow(), 34U);
    main.form.txt_Search_List.setText("");
    EXPECT_EQ(main.form.List_Indices.currentRow(), 0U);
    EXPECT_EQ(main.form.settings().selection, Selection::all());
}

TEST(FrmMain, ArrowKeysFollowTheUnevenTable)
{
    MainForm main;
    std::map<std::string, TextBox*> boxes{{"TA", &main.form.txt_TA}, {"TG", &main.form.txt_TG},
                                          {"SR", &main.form.txt_SR}, {"DP", &main.form.txt_DP},
                                          {"RH", &main.form.txt_RH}, {"WS", &main.form.txt_WS}};
    std::string focused;
    for (auto& [name, box] : boxes)
        box->focus.watch([&focused, name = name] { focused = name; });
    // Box, then where Down, Right, Up and Left lead; "" stays.
    const std::array<std::array<const char*, 5>, 6> table{{{"TA", "TG", "", "WS", ""},
                                                           {"TG", "DP", "SR", "TA", "SR"},
                                                           {"SR", "RH", "TG", "RH", "TG"},
                                                           {"DP", "WS", "RH", "TG", "RH"},
                                                           {"RH", "SR", "DP", "SR", "DP"},
                                                           {"WS", "TA", "", "DP", ""}}};
    constexpr std::array kKeys{Key::Down, Key::Right, Key::Up, Key::Left};
    for (const auto& row : table) {
        for (std::size_t i = 0; i < kKeys.size(); ++i) {
            focused.clear();
            boxes[row[0]]->press({kKeys[i]});
            EXPECT_EQ(focused, row[i + 1]) << row[0] << " key " << static_cast<int>(kKeys[i]);
        }
    }
}

TEST(FrmMain, DeleteEmptiesTheBoxAndNotItsPartner)
{
    MainForm main;
    main.form.txt_TG.setText("30");
    main.form.txt_RH.setText("40");
    main.form.txt_TG.press({Key::Delete});
    EXPECT_EQ(main.form.txt_TG.text(), "");
    EXPECT_EQ(main.form.txt_RH.text(), "40");
}

TEST(FrmMain, ADoubleClickTransfersOnlyIntoAnOfferedBox)
{
    MainForm main;
    for (TextBox* box : {&main.form.txt_TA, &main.form.txt_SR, &main.form.txt_RH, &main.form.txt_WS}) {
        box->doubleClick.raise();
        EXPECT_EQ(box->text(), "");
        box->setBackColor(kTransferColor);
        box->doubleClick.raise();
    }
    EXPECT_EQ(main.form.txt_TA.text(), "21.5");
    EXPECT_EQ(main.form.txt_SR.text(), "640.0");
    EXPECT_EQ(main.form.txt_WS.text(), "3.25");
    EXPECT_EQ(main.form.txt_RH.text(), ""); // never
}

TEST(FrmMain, MenusOpenTheirWindows)
{
    MainForm main;
    main.form.Menu_Raw_Data.click.raise();
    main.form.Menu_Radiation.click.raise();
    main.form.Menu_Converter.click.raise();
    EXPECT_EQ(main.windows.calls, (std::vector<std::string>{"raw data", "radiation", "converter"}));
    main.form.Menu_Options.click.raise();
    EXPECT_TRUE(main.form.Fra_Options.visible());
    main.form.Menu_Options.click.raise();
    EXPECT_FALSE(main.form.Fra_Options.visible());
}

TEST(FrmMain, ClosingAsksFirst)
{
    MainForm main;
    main.messages.answer = Answer::No;
    EXPECT_TRUE(main.form.Form_QueryUnload());
    EXPECT_TRUE(main.windows.calls.empty());
    main.messages.answer = Answer::Yes;
    EXPECT_FALSE(main.form.Form_QueryUnload());
    EXPECT_EQ(main.windows.calls, std::vector<std::string>{"unload"});
    const controls::MessageBox& box = main.messages.boxes.back();
    EXPECT_EQ(box.title, "Comfortics");
    EXPECT_EQ(box.buttons, controls::Buttons::YesNo);
    EXPECT_EQ(
        box.text,
        "Are you sure that you want to continue?\r\n\r\nNote: By clicking the 'Yes' button, all changes "
        "will be lost.");
}

} // namespace
} // namespace comfortics::core
