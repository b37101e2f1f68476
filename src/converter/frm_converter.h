// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "controls/controls.h"
#include "controls/form.h"
#include "converter/conversions.h"

#include <array>
#include <cstddef>

namespace comfortics::converter {

/// Converts other units into those of the readings. The main window's boxes that can take the
/// panel's result wear the transfer colour, and take it by a double click.
///
/// Each box clears its neighbours and is cleared by them, without a guard: while another box of
/// the panel holds text, the first character typed into a box is lost, deliberately. A cleared box
/// shows the result for 0.
class Frm_Converter : public controls::Form {
public:
    /// Opens docked to the right side of the main window, which must outlive the form.
    explicit Frm_Converter(classic::Frm_Main& main);

    /// Takes the transfer colour off the main window's boxes.
    void Form_Unload();

    controls::MenuEntry Menu_Temperature{"Temperature"};
    controls::MenuEntry Menu_Velocity{"Air Velocity"};
    controls::MenuEntry Menu_Radiation{"Solar Radiation"};

    controls::Frame Fra_Temperature{"Temperature"};
    controls::Frame Fra_WS{"Air Velocity"};
    controls::Frame Fra_SR{"Solar Radiation"};

    /// The boxes in the order of kConversions.
    std::array<controls::TextBox, kConversionCount> boxes;
    controls::TextBox& txt_F = box<placeOfBox("txt_F")>();
    controls::TextBox& txt_K = box<placeOfBox("txt_K")>();
    controls::TextBox& txt_Ra = box<placeOfBox("txt_Ra")>();
    controls::TextBox& txt_D = box<placeOfBox("txt_D")>();
    controls::TextBox& txt_N = box<placeOfBox("txt_N")>();
    controls::TextBox& txt_Re = box<placeOfBox("txt_Re")>();
    controls::TextBox& txt_Ro = box<placeOfBox("txt_Ro")>();
    controls::TextBox& txt_mm = box<placeOfBox("txt_mm")>();
    controls::TextBox& txt_kmh = box<placeOfBox("txt_kmh")>();
    controls::TextBox& txt_knots = box<placeOfBox("txt_knots")>();
    controls::TextBox& txt_mph = box<placeOfBox("txt_mph")>();
    controls::TextBox& txt_fts = box<placeOfBox("txt_fts")>();
    controls::TextBox& txt_ftm = box<placeOfBox("txt_ftm")>();
    controls::TextBox& txt_Win = box<placeOfBox("txt_Win")>();
    controls::TextBox& txt_CHUhft = box<placeOfBox("txt_CHUhft")>();
    controls::TextBox& txt_kcalhm = box<placeOfBox("txt_kcalhm")>();
    controls::TextBox& txt_Jsm = box<placeOfBox("txt_Jsm")>();
    controls::TextBox& txt_kWm = box<placeOfBox("txt_kWm")>();
    controls::TextBox& txt_Wcm = box<placeOfBox("txt_Wcm")>();
    controls::TextBox& txt_Btusft = box<placeOfBox("txt_Btusft")>();

    controls::Label lbl_C;
    controls::Label lbl_WS;
    controls::Label lbl_SR;
    /// Units of the radiation panel's boxes, 1 to 7; element 0 is not used.
    std::array<controls::Label, 8> lbl_SR_unit;
    controls::Label lbl_Note{"Double-click main screen input box to tranfer values"};

    controls::Frame& frame(Panel panel);
    /// The label that shows a panel's result.
    controls::Label& result(Panel panel);

private:
    template <std::size_t place>
    controls::TextBox& box()
    {
        return std::get<place>(boxes);
    }

    void Form_Load();
    void showPanel(Panel panel);
    void boxChange(std::size_t place);
    std::array<controls::TextBox*, classic::kReadingCount> mainBoxes();

    classic::Frm_Main& m_main;
};

} // namespace comfortics::converter
