// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/frm_converter.h"

#include "texts/number_text.h"
#include "values/run_failure.h"

#include <string>

namespace comfortics::converter {

using controls::Label;
using controls::TextBox;

namespace {

constexpr std::size_t kFirstRadiationBox = placeOfBox("txt_Win");

} // namespace

Frm_Converter::Frm_Converter(classic::Frm_Main& main) : Form("Conversion of Units"), m_main(main)
{
    Menu_Temperature.click.handle([this] { showPanel(Panel::Temperature); });
    Menu_Velocity.click.handle([this] { showPanel(Panel::AirVelocity); });
    Menu_Radiation.click.handle([this] { showPanel(Panel::SolarRadiation); });
    for (std::size_t place = 0; place < kConversionCount; ++place)
        boxes[place].change.handle([this, place] { boxChange(place); });
    for (std::size_t i = 1; i < lbl_SR_unit.size(); ++i)
        lbl_SR_unit[i].setCaption(std::string(kConversions[kFirstRadiationBox + i - 1].unit));

    Form_Load();
}

void Frm_Converter::Form_Load()
{
    const controls::Place& beside = m_main.place();
    moveTo({beside.left + beside.width, beside.top, place().width, beside.height});
    for (std::size_t i = 1; i < lbl_SR_unit.size(); ++i)
        lbl_SR_unit[i].setCaption(lbl_SR_unit[i].caption() + "²");
    showPanel(Panel::Temperature);
}

void Frm_Converter::Form_Unload()
{
    for (TextBox* box : mainBoxes())
        box->setBackColor(classic::kOrdinaryColor);
}

controls::Frame& Frm_Converter::frame(Panel panel)
{
    switch (panel) {
    case Panel::Temperature:
        return Fra_Temperature;
    case Panel::AirVelocity:
        return Fra_WS;
    case Panel::SolarRadiation:
        break;
    }
    return Fra_SR;
}

Label& Frm_Converter::result(Panel panel)
{
    switch (panel) {
    case Panel::Temperature:
        return lbl_C;
    case Panel::AirVelocity:
        return lbl_WS;
    case Panel::SolarRadiation:
        break;
    }
    return lbl_SR;
}

std::array<TextBox*, classic::kReadingCount> Frm_Converter::mainBoxes()
{
    return {&m_main.txt_TA, &m_main.txt_TG, &m_main.txt_SR, &m_main.txt_DP, &m_main.txt_RH, &m_main.txt_WS};
}

void Frm_Converter::showPanel(Panel panel)
{
    for (std::size_t i = 0; i < kPanelCount; ++i)
        frame(static_cast<Panel>(i)).setVisible(static_cast<Panel>(i) == panel);

    // The humidity takes no transfer.
    const auto takes = [this, panel](const TextBox* box) {
        switch (panel) {
        case Panel::Temperature:
            return box == &m_main.txt_TA || box == &m_main.txt_TG || box == &m_main.txt_DP;
        case Panel::AirVelocity:
            return box == &m_main.txt_WS;
        case Panel::SolarRadiation:
            break;
        }
        return box == &m_main.txt_SR;
    };
    for (TextBox* box : mainBoxes())
        box->setBackColor(takes(box) ? classic::kTransferColor : classic::kOrdinaryColor);
}

// Clearing the neighbours runs this handler for each that held text, and that clears this box
// again; the chain ends since writing an empty text to an empty box changes nothing.
void Frm_Converter::boxChange(std::size_t place)
{
    const Conversion& conversion = kConversions[place];
    TextBox& self = boxes[place];
    if (!texts::isNumeric(self.text()))
        self.setText("");
    for (std::size_t other = 0; other < kConversionCount; ++other)
        if (other != place && kConversions[other].panel == conversion.panel)
            boxes[other].setText("");

    Label& label = result(conversion.panel);
    if (conversion.panel != Panel::SolarRadiation)
        label.setCaption("");
    try {
        label.setCaption(converted(conversion, texts::numericValue(self.text()).value_or(0)));
    } catch (const values::RunFailure&) {
        label.setCaption(""); // beyond the range of numbers: there is no value to offer
    }
}

} // namespace comfortics::converter
