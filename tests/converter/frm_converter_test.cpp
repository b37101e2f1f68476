// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/frm_converter.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace comfortics::converter {
namespace {

using controls::TextBox;
using core::kOrdinaryColor;
using core::kTransferColor;

struct SilentMessages final : controls::Messages {
    controls::Answer show(const controls::MessageBox&) override { return controls::Answer::Ok; }
};

// The main window with a converter beside it, whose captions it asks for.
struct Desk final : core::Windows {
    core::Limits limits;
    SilentMessages messages;
    core::Frm_Main main{limits, messages, *this};
    std::unique_ptr<Frm_Converter> form = std::make_unique<Frm_Converter>(main);

    void showResults() override {}
    void showRawData() override {}
    void showRadiation() override {}
    void showConverter() override {}
    std::string converter_lbl_C() override { return form->lbl_C.caption(); }
    std::string converter_lbl_WS() override { return form->lbl_WS.caption(); }
    std::string converter_lbl_SR() override { return form->lbl_SR.caption(); }
    void unloadAll() override {}

    // Names of the main window's boxes that wear the transfer colour; others must be ordinary.
    std::string offered() const
    {
        std::string names;
        for (const auto& [name, box] : {std::pair<const char*, const TextBox*>{"TA ", &main.txt_TA},
                                        {"TG ", &main.txt_TG},
                                        {"SR ", &main.txt_SR},
                                        {"DP ", &main.txt_DP},
                                        {"RH ", &main.txt_RH},
                                        {"WS ", &main.txt_WS}}) {
            if (box->backColor() == kTransferColor)
                names += name;
            else
                EXPECT_EQ(box->backColor(), kOrdinaryColor) << name;
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

TEST(FrmConverter, OpensDockedToTheRightWithTheTemperaturePanel)
{
    Desk desk;
    desk.main.stands({100, 40, 900, 620});
    desk.form = std::make_unique<Frm_Converter>(desk.main);
    EXPECT_EQ(desk.form->place().left, 1000);
    EXPECT_EQ(desk.form->place().top, 40);
    EXPECT_EQ(desk.form->place().height, 620);
    EXPECT_TRUE(desk.form->Fra_Temperature.visible());
    EXPECT_FALSE(desk.form->Fra_WS.visible());
    EXPECT_FALSE(desk.form->Fra_SR.visible());
    EXPECT_EQ(desk.offered(), "TA TG DP ");
    EXPECT_EQ(desk.form->caption(), "Conversion of Units");
    const char* const units[] = {"",       "W/in²", "CHU/h/ft²", "kcal/h/m²",
                                 "J/s/m²", "kW/m²", "W/cm²",     "Btu/s/ft²"};
    for (std::size_t i = 1; i < 8; ++i)
        EXPECT_EQ(desk.form->lbl_SR_unit[i].caption(), units[i]);
}

TEST(FrmConverter, EachPanelOffersItsOwnBoxes)
{
    Desk desk;
    Frm_Converter& form = *desk.form;
    form.txt_F.setText("212");
    form.Menu_Velocity.click.raise();
    EXPECT_TRUE(form.Fra_WS.visible());
    EXPECT_FALSE(form.Fra_Temperature.visible());
    EXPECT_EQ(desk.offered(), "WS ");
    form.Menu_Radiation.click.raise();
    EXPECT_TRUE(form.Fra_SR.visible());
    EXPECT_FALSE(form.Fra_WS.visible());
    EXPECT_EQ(desk.offered(), "SR ");
    form.Menu_Temperature.click.raise();
    EXPECT_EQ(desk.offered(), "TA TG DP ");
    EXPECT_EQ(form.txt_F.text(), "212"); // fields survive the switches
    EXPECT_EQ(form.lbl_C.caption(), "100.0");
}

TEST(FrmConverter, ADoubleClickOnAnOfferedBoxTakesTheResult)
{
    Desk desk;
    desk.form->txt_F.setText("86");
    desk.main.txt_SR.doubleClick.raise();
    EXPECT_EQ(desk.main.txt_SR.text(), ""); // the radiation panel is not showing
    desk.main.txt_TA.doubleClick.raise();
    EXPECT_EQ(desk.main.txt_TA.text(), "30.0");

    desk.form->Menu_Velocity.click.raise();
    desk.form->txt_kmh.setText("7.2");
    desk.main.txt_WS.doubleClick.raise();
    EXPECT_EQ(desk.main.txt_WS.text(), "2.00");

    desk.form->Menu_Radiation.click.raise();
    desk.form->txt_kWm.setText("0.75");
    desk.main.txt_SR.doubleClick.raise();
    EXPECT_EQ(desk.main.txt_SR.text(), "750.0");

    desk.form->Form_Unload();
    EXPECT_EQ(desk.offered(), "");
    desk.form->txt_kWm.setText("0.25");
    desk.main.txt_SR.doubleClick.raise();
    EXPECT_EQ(desk.main.txt_SR.text(), "750.0");
}

TEST(FrmConverter, WithoutNeighboursABoxConvertsCharacterByCharacter)
{
    Desk desk;
    type(desk.form->txt_F, "21");
    EXPECT_EQ(desk.form->lbl_C.caption(), "-6.1");
    type(desk.form->txt_F, "2");
    EXPECT_EQ(desk.form->lbl_C.caption(), "100.0");
    desk.form->txt_F.setText("");
    EXPECT_EQ(desk.form->lbl_C.caption(), "-17.8"); // the result for 0
}

// Box that holds text, box typed into, and the result for 0 that stands after the lost character.
TEST(FrmConverter, TheFirstCharacterIsLostWhileAnotherBoxHoldsText)
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
        {Panel::Temperature, "txt_N", "txt_F", "-17.8", "-16.1"},
        {Panel::Temperature, "txt_Ro", "txt_D", "100.0", "98.0"},
        {Panel::AirVelocity, "txt_ftm", "txt_mm", "0.00", "0.05"},
        {Panel::SolarRadiation, "txt_Win", "txt_Btusft", "0.0", "34069.6"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.holding) + " then " + row.typedInto);
        Desk desk;
        TextBox& holding = desk.form->boxes[placeOfBox(row.holding)];
        TextBox& typedInto = desk.form->boxes[placeOfBox(row.typedInto)];
        const controls::Label& label = desk.form->result(row.panel);
        holding.setText("212");
        type(typedInto, "3");
        EXPECT_EQ(holding.text(), "");
        EXPECT_EQ(typedInto.text(), "");
        EXPECT_EQ(label.caption(), row.afterFirst);
        type(typedInto, "3");
        EXPECT_EQ(typedInto.text(), "3");
        EXPECT_EQ(label.caption(), row.afterSecond);
    }
}

TEST(FrmConverter, PanelsDoNotClearEachOther)
{
    Desk desk;
    desk.form->txt_F.setText("212");
    desk.form->txt_knots.setText("20");
    desk.form->txt_Jsm.setText("11");
    EXPECT_EQ(desk.form->txt_F.text(), "212");
    EXPECT_EQ(desk.form->txt_knots.text(), "20");
    EXPECT_EQ(desk.form->lbl_C.caption(), "100.0");
    EXPECT_EQ(desk.form->lbl_WS.caption(), "10.29");
    EXPECT_EQ(desk.form->lbl_SR.caption(), "11.0");
}

TEST(FrmConverter, WhatIsNoNumberVanishes)
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
        SCOPED_TRACE(row.typed);
        Desk desk;
        type(desk.form->txt_K, row.typed);
        EXPECT_EQ(desk.form->txt_K.text(), row.text);
        EXPECT_EQ(desk.form->lbl_C.caption(), row.caption);
    }
    Desk desk;
    desk.form->txt_K.setText("5");
    desk.form->txt_K.setText("-5"); // digits first, then the sign
    EXPECT_EQ(desk.form->lbl_C.caption(), "-278.2");
}

TEST(FrmConverter, AResultBeyondAllNumbersIsNoResult)
{
    Desk desk;
    desk.form->Menu_Radiation.click.raise();
    desk.form->txt_Wcm.setText("2");
    EXPECT_EQ(desk.form->lbl_SR.caption(), "20000.0");
    desk.form->txt_Wcm.setText("1e306");
    EXPECT_EQ(desk.form->lbl_SR.caption(), "");
}

} // namespace
} // namespace comfortics::converter
