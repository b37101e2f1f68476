// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/frm_main.h"

#include "catalogue/references.h"
#include "texts/text.h"

#include <optional>
#include <string_view>
#include <utility>

namespace comfortics::classic {

using catalogue::kIndexCount;
using controls::Answer;
using controls::Key;
using controls::KeyPress;
using controls::TextBox;
using texts::lowered;

namespace {

constexpr std::string_view kProgramTitle = "Comfortics";

// Where the arrow keys lead from each reading box. The table is uneven on purpose: solar radiation
// and humidity lead to each other with both Up and Down.
struct Neighbours {
    Reading down{};
    std::optional<Reading> right;
    Reading up{};
    std::optional<Reading> left;
};

Neighbours neighbours(Reading reading)
{
    using enum Reading;
    switch (reading) {
    case TA:
        return {TG, std::nullopt, WS, std::nullopt};
    case TG:
        return {DP, SR, TA, SR};
    case SR:
        return {RH, TG, RH, TG};
    case DP:
        return {WS, RH, TG, RH};
    case RH:
        return {SR, DP, SR, DP};
    case WS:
        break;
    }
    return {TA, std::nullopt, DP, std::nullopt};
}

} // namespace

Frm_Main::Frm_Main(const Limits& limits, controls::Messages& messages, Windows& windows)
    : Form(std::string(kProgramTitle)), calculation(limits, messages), m_messages(messages),
      m_windows(windows)
{
    cmd_Show_Results.click.handle([this] { cmd_Show_Results_Click(); });
    cmd_Calculate.click.handle([this] { cmd_Calculate_Click(); });
    Img_Calculate.click.handle([this] { cmd_Show_Results.setValue(true); });
    Check_All_Indices.click.handle([this] { Check_All_Indices_Click(); });
    txt_Search_List.change.handle([this] { txt_Search_List_Change(); });
    calculation.readings.onRemark([this](const std::string& remark) { hear(remark); });
    calculation.readings.changed.handle([this] { tellStanding(); });
    for (TextBox* box : calculation.assumptions.all())
        box->change.handle([this] { tellStanding(); });
    Opt_Limits.click.handle([this] { tellStanding(); });
    Opt_Rules.click.handle([this] { tellStanding(); });
    List_Indices.change.handle([this] { tellStanding(); });
    List_Indices.provideNotes([this](std::size_t row) {
        return List_Indices.item(row) + "\n" + catalogue::literatureNote(static_cast<int>(row) + 1);
    });
    Menu_Options.click.handle([this] { Menu_Options_Click(); });
    Menu_Raw_Data.click.handle([this] { m_windows.showRawData(); });
    Menu_Radiation.click.handle([this] { m_windows.showRadiation(); });
    Menu_Converter.click.handle([this] { m_windows.showConverter(); });

    for (std::size_t i = 0; i < kReadingCount; ++i) {
        const auto reading = static_cast<Reading>(i);
        TextBox& box = calculation.readings.box(reading);
        box.setBackColor(kOrdinaryColor);
        box.onKeyDown([this, reading](KeyPress press) { readingKeyDown(reading, press); });
    }
    for (TextBox* box : {&txt_TA, &txt_TG, &txt_DP})
        box->doubleClick.handle([this, box] { takeFromConverter(*box, &Windows::converter_lbl_C); });
    txt_SR.doubleClick.handle([this] { takeFromConverter(txt_SR, &Windows::converter_lbl_SR); });
    txt_WS.doubleClick.handle([this] { takeFromConverter(txt_WS, &Windows::converter_lbl_WS); });

    Form_Load();
}

void Frm_Main::Form_Load()
{
    Fra_Options.moveTo(0, 0);
    Fra_Options.setVisible(false);
    lbl_SR_unit.setCaption("W/m²");
    for (std::size_t index = 1; index <= kIndexCount; ++index)
        List_Indices.addItem(results.lbl_Index[index].caption());
    Check_All_Indices.setChecked(true);
    tellStanding();
}

Settings Frm_Main::settings() const
{
    Settings result;
    for (std::size_t row = 0; row < List_Indices.count(); ++row)
        result.selection.set(static_cast<int>(row) + 1, List_Indices.selected(row));
    result.ignoreLimits = Opt_Limits.selected() == 1;
    result.rules = kAllRules.at(Opt_Rules.selected());
    return result;
}

bool Frm_Main::liveIsEarlier() const
{
    return calculation.liveInputs() && *calculation.liveInputs() != inputs();
}

bool Frm_Main::resultsAreEarlier() const
{
    return calculation.resultInputs() && *calculation.resultInputs() != inputs();
}

void Frm_Main::hear(const std::string& remark)
{
    if (remark.empty()) {
        if (!m_calculating && !m_told.empty())
            tell({});
    } else if (m_calculating)
        m_remarks += " " + remark;
    else
        tell(remark);
}

void Frm_Main::tell(std::string sentence)
{
    m_refused = false;
    m_remarks.clear();
    m_told = std::move(sentence);
    tellStanding();
}

void Frm_Main::tellStanding()
{
    lbl_Live.setCaption(liveIsEarlier() ? "Live quantities of earlier readings" : "Live quantities");
    const Settings now = settings();
    std::string inForce = "By " + classic::inForce(now) + ".";
    if (const auto& live = calculation.liveInputs();
        live && classic::inForce(live->settings) != classic::inForce(now))
        inForce = "By " + classic::inForce(live->settings) + ". From the next calculation on by " +
                  classic::inForce(now) + ".";
    lbl_In_Force.setCaption(std::move(inForce));
    standing.raise();
}

void Frm_Main::cmd_Show_Results_Click()
{
    if (!calculation.readings.complete()) {
        m_told.clear();
        m_remarks.clear();
        m_refused = true;
        tellStanding();
        return;
    }
    m_showing = true;
    cmd_Calculate.setValue(true);
    m_showing = false;
    if (calculation.failure())
        return; // the table would hide the reason
    m_windows.showResults();
}

void Frm_Main::cmd_Calculate_Click()
{
    if (calculate() != RunStatus::Failed)
        return;
    // Other rules do not help against readings that contradict each other.
    const Failure& failure = *calculation.failure();
    const bool contradicts = failure.advice == kContradictionAdvice;
    const Answer answer = m_messages.show({.text = failure.sentence(),
                                           .title = std::string(kProgramTitle),
                                           .offer = contradicts ? "" : "Calculate by the robust rules"});
    if (answer != Answer::Yes)
        return;
    Opt_Rules.select(1); // from now on, as the options then say
    calculate();
    if (!m_showing) // as "Calculate 1" is about to
        m_windows.showResults();
}

RunStatus Frm_Main::calculate()
{
    m_remarks.clear();
    m_calculating = true;
    const RunStatus status = calculation.run(settings());
    m_calculating = false;
    m_told.clear();
    m_refused = status == RunStatus::Rejected;
    tellStanding();
    return status;
}

void Frm_Main::Check_All_Indices_Click()
{
    List_Indices.selectAll(Check_All_Indices.checked());
}

// Moves the list, changes no selection. The empty text is found in the first name.
void Frm_Main::txt_Search_List_Change()
{
    const std::string wanted = lowered(txt_Search_List.text());
    for (std::size_t row = 0; row < List_Indices.count(); ++row) {
        if (lowered(List_Indices.item(row)).find(wanted) != std::string::npos) {
            List_Indices.setCurrentRow(row);
            return;
        }
    }
}

void Frm_Main::Menu_Options_Click()
{
    Fra_Options.setVisible(!Fra_Options.visible());
}

void Frm_Main::readingKeyDown(Reading reading, KeyPress press)
{
    const auto go = [this](std::optional<Reading> to) {
        if (to)
            calculation.readings.box(*to).setFocus();
    };
    const Neighbours around = neighbours(reading);
    switch (press.key) {
    case Key::Down:
        go(around.down);
        break;
    case Key::Right:
        go(around.right);
        break;
    case Key::Up:
        go(around.up);
        break;
    case Key::Left:
        go(around.left);
        break;
    case Key::Delete:
        calculation.readings.box(reading).setText("");
        break;
    case Key::Enter:
        cmd_Show_Results.setValue(true);
        break;
    default:
        break;
    }
}

void Frm_Main::takeFromConverter(TextBox& box, std::string (Windows::*converterCaption)())
{
    if (box.backColor() == kTransferColor)
        box.setText((m_windows.*converterCaption)());
}

bool Frm_Main::Form_QueryUnload()
{
    const Answer answer =
        m_messages.show({.text = "Are you sure that you want to continue?\r\n\r\n"
                                 "Note: By clicking the 'Yes' button, all changes will be lost.",
                         .title = std::string(kProgramTitle),
                         .buttons = controls::Buttons::YesNo});
    if (answer != Answer::Yes)
        return true;
    m_windows.unloadAll();
    return false;
}

} // namespace comfortics::classic
