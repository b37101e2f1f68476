// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/frm_converter.h"

#include "../classic/test_desk.h"
#include "no_windows.h"

#include <gtest/gtest.h>

#include <string>

namespace comfortics::converter {
namespace {

using controls::TextBox;

struct FrmConverter : testing::Test {
    classic::Limits limits;
    tests::RecordedMessages messages;
    tests::NoWindows windows;
    classic::Frm_Main main{limits, messages, windows};
    Frm_Converter form{main};

    // Names of the main window's boxes that wear the transfer colour; others must be ordinary.
    std::string offered() const
    {
        std::string names;
        for (const auto& [name, box] : {std::pair{"TA ", &main.txt_TA},
                                        {"TG ", &main.txt_TG},
                                        {"SR ", &main.txt_SR},
                                        {"DP ", &main.txt_DP},
                                        {"RH ", &main.txt_RH},
                                        {"WS ", &main.txt_WS}}) {
            if (box->backColor() == classic::kTransferColor)
                names += name;
            else
                EXPECT_EQ(box->backColor(), classic::kOrdinaryColor) << name;
        }
        return names;
    }
};

// A user's typing: each character is appended to what the box then holds.
void type(TextBox& box, const std::string& characters)
{
    for (const char character : characters)
        box.setText(box.text() + character);
}

TEST_F(FrmConverter, OpensDockedToTheRightWithUnitsSquared)
{
    main.stands({100, 40, 900, 620});
    const Frm_Converter docked(main);
    EXPECT_EQ(docked.place().left, 1000);
    EXPECT_EQ(docked.place().top, 40);
    EXPECT_EQ(docked.place().height, 620);
    EXPECT_EQ(docked.caption(), "Conversion of Units");
    const char* const units[] = {"",       "W/in²", "CHU/h/ft²", "kcal/h/m²",
                                 "J/s/m²", "kW/m²", "W/cm²",     "Btu/s/ft²"};
    for (std::size_t i = 1; i < 8; ++i)
        EXPECT_EQ(docked.lbl_SR_unit[i].caption(), units[i]);
}

TEST_F(FrmConverter, EachPanelOffersItsOwnBoxesAndKeepsItsFields)
{
    const auto expectPanel = [this](Panel panel, const char* boxes) {
        for (const Panel one : {Panel::Temperature, Panel::AirVelocity, Panel::SolarRadiation})
            EXPECT_EQ(form.frame(one).visible(), one == panel) << boxes;
        EXPECT_EQ(offered(), boxes);
    };
    expectPanel(Panel::Temperature, "TA TG DP ");
    form.txt_F.setText("212");
    form.Menu_Velocity.click.raise();
    expectPanel(Panel::AirVelocity, "WS ");
    form.txt_knots.setText("20");
    form.Menu_Radiation.click.raise();
    expectPanel(Panel::SolarRadiation, "SR ");
    form.txt_Jsm.setText("11");
    form.Menu_Temperature.click.raise();
    expectPanel(Panel::Temperature, "TA TG DP ");
    EXPECT_EQ(form.txt_F.text() + " " + form.txt_knots.text(), "212 20");
    EXPECT_EQ(form.lbl_C.caption(), "100.0");
    EXPECT_EQ(form.lbl_WS.caption(), "10.29");
    EXPECT_EQ(form.lbl_SR.caption(), "11.0");
    form.Form_Unload();
    EXPECT_EQ(offered(), "");
}

// Box that holds text, box typed into, and the result for 0 that stands after the lost character.
TEST_F(FrmConverter, TheFirstCharacterIsLostWhileAnotherBoxHoldsText)
{
    struct Row {
        Panel panel;
        const char* holding;
        const char* typedInto;
        const char* afterFirst;
        const char* afterSecond; // the second character is a 3
    };
    const Row rows[] = {
        {Panel::Temperature, "txt_F", "txt_N", "0.0", "9.1"},
        {Panel::Temperature, "txt_Ro", "txt_D", "100.0", "98.0"},
        {Panel::AirVelocity, "txt_ftm", "txt_mm", "0.00", "0.05"},
        {Panel::SolarRadiation, "txt_Win", "txt_Btusft", "0.0", "34069.6"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.holding) + " then " + row.typedInto);
        for (TextBox& box : form.boxes)
            box.setText("");
        TextBox& holding = form.boxes[placeOfBox(row.holding)];
        TextBox& typedInto = form.boxes[placeOfBox(row.typedInto)];
        holding.setText("212");
        type(typedInto, "3");
        EXPECT_EQ(holding.text() + typedInto.text(), "");
        EXPECT_EQ(form.result(row.panel).caption(), row.afterFirst);
        type(typedInto, "3");
        EXPECT_EQ(typedInto.text(), "3");
        EXPECT_EQ(form.result(row.panel).caption(), row.afterSecond);
    }
}

TEST_F(FrmConverter, WhatIsNoNumberVanishes)
{
    struct Row {
        const char* typed;
        const char* text;
        const char* caption;
    };
    const Row rows[] = {
        {"-", "", "-273.2"}, // a lone sign or point is no number
        {".", "", "-273.2"},          {"x", "", "-273.2"},
        {"300,25", "300,25", "27.1"}, // a comma stands, and counts as a point
        {"-5", "5", "-268.2"},        // so a sign at the front is lost
        {"1e40", "40", "-233.2"},     // neither is 1e, on the way to an exponent
    };
    for (const Row& row : rows) {
        form.txt_K.setText("");
        type(form.txt_K, row.typed);
        EXPECT_EQ(form.txt_K.text(), row.text) << row.typed;
        EXPECT_EQ(form.lbl_C.caption(), row.caption) << row.typed;
    }
    form.txt_K.setText("-5"); // digits first, then the sign
    EXPECT_EQ(form.lbl_C.caption(), "-278.2");
}

TEST_F(FrmConverter, AResultBeyondAllNumbersIsNoResult)
{
    form.txt_Wcm.setText("2");
    EXPECT_EQ(form.lbl_SR.caption(), "20000.0");
    form.txt_Wcm.setText("1e306");
    EXPECT_EQ(form.lbl_SR.caption(), "");
}

} // namespace
} // namespace comfortics::converter
