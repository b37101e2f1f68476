// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/calculation.h"
#include "controls/controls.h"
#include "controls/dialogs.h"
#include "controls/form.h"
#include "controls/list_box.h"

#include <string>

namespace comfortics::classic {

/// The other windows, as the main window asks for them. The shell answers.
class Windows {
public:
    virtual ~Windows() = default;
    /// Fills the results table from the store and shows it.
    virtual void showResults() = 0;
    /// Prepares and shows the batch sheet.
    virtual void showRawData() = 0;
    virtual void showRadiation() = 0;
    virtual void showConverter() = 0;
    /// The captions of the converter's result labels; empty while it was never opened.
    virtual std::string converter_lbl_C() = 0;
    virtual std::string converter_lbl_WS() = 0;
    virtual std::string converter_lbl_SR() = 0;
    /// Unloads every form that is still loaded and ends the program.
    virtual void unloadAll() = 0;
};

/// The background of the reading boxes while the converter offers them a value, and otherwise.
inline constexpr controls::Color kTransferColor = 0xFFFF00;
inline constexpr controls::Color kOrdinaryColor = 0xC0FFC0;

/// The main window: readings, assumptions, index list, options and menus around one calculation.
class Frm_Main : public controls::Form {
public:
    /// Limits, messages and windows must outlive the form.
    Frm_Main(const Limits& limits, controls::Messages& messages, Windows& windows);

    /// The calculation, which owns the boxes, the live quantities' labels and the store.
    Calculation calculation;
    Frm_Results& results = calculation.results;

    controls::TextBox& txt_TA = calculation.readings.txt_TA;
    controls::TextBox& txt_TG = calculation.readings.txt_TG;
    controls::TextBox& txt_SR = calculation.readings.txt_SR;
    controls::TextBox& txt_DP = calculation.readings.txt_DP;
    controls::TextBox& txt_RH = calculation.readings.txt_RH;
    controls::TextBox& txt_WS = calculation.readings.txt_WS;
    controls::Label lbl_SR_unit{"W/m"};

    controls::Label& lbl_Air_Temperature = calculation.liveLabel(formulas::Live::Ta);
    controls::Label& lbl_Globe_Temperature = calculation.liveLabel(formulas::Live::Tg);
    controls::Label& lbl_Solar_Radiation = calculation.liveLabel(formulas::Live::SR);
    controls::Label& lbl_Dew_Point = calculation.liveLabel(formulas::Live::Td);
    controls::Label& lbl_Relative_Humidity = calculation.liveLabel(formulas::Live::RH);
    controls::Label& lbl_Wind_Speed = calculation.liveLabel(formulas::Live::WS);
    controls::Label& lbl_Mean_Radiant_Temperature = calculation.liveLabel(formulas::Live::Tmrt);
    controls::Label& lbl_Natural_Wet_Bulb = calculation.liveLabel(formulas::Live::Tnwb);
    controls::Label& lbl_Psychrometric_Wet_bulb = calculation.liveLabel(formulas::Live::Tpwb);
    controls::Label& lbl_Saturated_Vapor_Pressure = calculation.liveLabel(formulas::Live::Es);
    controls::Label& lbl_Actual_Vapor_Pressure = calculation.liveLabel(formulas::Live::Ea);

    controls::Frame Fra_Options;
    controls::TextBox& txt_ArAdu = calculation.assumptions.txt_ArAdu;
    controls::TextBox& txt_Emmisivity = calculation.assumptions.txt_Emmisivity;
    controls::TextBox& txt_Barometric = calculation.assumptions.txt_Barometric;
    controls::TextBox& txt_Height = calculation.assumptions.txt_Height;
    controls::TextBox& txt_Weight = calculation.assumptions.txt_Weight;
    controls::TextBox& txt_Friction = calculation.assumptions.txt_Friction;
    controls::Label lbl_ArAdu{heading(Assumption::ArAdu)};
    controls::Label lbl_Emmisivity{heading(Assumption::Emmisivity)};
    controls::Label lbl_Barometric{heading(Assumption::Barometric)};
    controls::Label lbl_Height{heading(Assumption::Height)};
    controls::Label lbl_Weight{heading(Assumption::Weight)};
    controls::Label lbl_Friction{heading(Assumption::Friction)};
    controls::Label lbl_Limits{"Calculate Comfortics without taking into account their limits:"};
    controls::OptionGroup Opt_Limits{{"No", "Yes"}};
    controls::Label lbl_Rules{"Calculation rules:"};
    controls::OptionGroup Opt_Rules{{"Classic", "Robust", "Precise"}};

    controls::ListBox List_Indices;
    controls::TextBox txt_Search_List;
    controls::CheckBox Check_All_Indices{"All"};

    controls::Button cmd_Show_Results{"Calculate 1"};
    controls::Button cmd_Calculate{"Calculate 2"};
    controls::Picture Img_Calculate;

    controls::Label lbl_In_Force; ///< the rules that the live quantities are by, and those of the options
    controls::Label lbl_Live;     ///< the heading of the live quantities

    controls::MenuEntry Menu_Raw_Data{"Raw Data"};
    controls::MenuEntry Menu_Radiation{" Solar Radiation"};
    controls::MenuEntry Menu_Converter{"Conversion of Units"};
    controls::MenuEntry menu_Hotkeys{"Hotkeys"};
    controls::MenuEntry Menu_Options{"Options"};
    controls::MenuEntry menu_Enter{"Enter -----------------> Calculate"};
    controls::MenuEntry menu_Backspace{"Backspace -----------> Delete previous number"};
    controls::MenuEntry Menu_Delete{"Delete ----------------> Delete value"};
    controls::MenuEntry Menu_Arrows{"Arrow keys ----------> Move between text boxes"};

    /// What the list and the options ask of a calculation.
    Settings settings() const;
    /// What a calculation would be made from now.
    Inputs inputs() const { return calculation.inputs(settings()); }

    /// The figures that stand there were calculated from other inputs than those of now.
    bool liveIsEarlier() const;
    bool resultsAreEarlier() const;

    /// The last press of a button found a reading missing, or no number, and calculated nothing.
    bool refused() const noexcept { return m_refused; }
    /// A sentence on what was done last, for what is no press of a button here; otherwise empty.
    const std::string& told() const noexcept { return m_told; }
    void tell(std::string sentence);
    /// What the last press of a button has emptied or changed in the readings, with a leading blank.
    const std::string& remarks() const noexcept { return m_remarks; }

    /// Any of the above may have changed.
    controls::Event standing;

    /// Asks the closing question; true cancels the closing. On Yes all forms are unloaded.
    bool Form_QueryUnload();

private:
    static std::string heading(Assumption assumption) { return std::string(infoOf(assumption).heading); }
    void Form_Load();
    void cmd_Show_Results_Click();
    void cmd_Calculate_Click();
    RunStatus calculate();
    void hear(const std::string& remark);
    void Check_All_Indices_Click();
    void txt_Search_List_Change();
    void Menu_Options_Click();
    void tellStanding();
    void readingKeyDown(Reading reading, controls::KeyPress press);
    void takeFromConverter(controls::TextBox& box, std::string (Windows::*converterCaption)());

    controls::Messages& m_messages;
    Windows& m_windows;
    bool m_refused = false;
    std::string m_told;
    bool m_calculating = false; // what is emptied now is told with what becomes of the calculation
    bool m_showing = false;     // "Calculate 1" shows the table itself
    std::string m_remarks;
};

} // namespace comfortics::classic
