// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/frm_raw_data.h"
#include "batch/message_gate.h"
#include "classic/frm_main.h"
#include "classic/limits.h"
#include "controls/controls.h"
#include "controls/dialogs.h"
#include "converter/frm_converter.h"
#include "output/frm_comfortics.h"
#include "radiation/frm_radiation.h"
#include "shell/form_slot.h"
#include "shell/frm_splash_screen.h"
#include "workspace/comparison.h"
#include "workspace/preferences.h"
#include "workspace/session_desk.h"
#include "workspace/workspace.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>

namespace comfortics::shell {

/// What the forms ask of the user and the desktop.
struct Desktop {
    controls::Messages& messages;
    controls::Clipboard& clipboard;
    controls::FileDialogs& files;
    output::PrintDialog& printing;
    /// What only the radiation window asks for; without it that window cannot be opened.
    struct Maps {
        radiation::Connection& connection;
        radiation::PlaceSource& map;
        radiation::TimeZones& timeZones;
    };
    const Maps* maps = nullptr;
    /// Without them nothing is kept between sessions.
    workspace::Preferences* preferences = nullptr;
};

/// The program: builds the forms, opens one for another, and unloads all of them at the end.
class Shell final : private classic::Windows {
public:
    /// Reads Limits.Index from the program's folder; without the file there are no limits. The
    /// desktop must outlive the shell.
    Shell(const std::filesystem::path& programFolder, const Desktop& desktop);

    /// Shows the splash screen, which leads to the main window.
    void start();

    /// The main window; hidden until the splash screen has gone.
    classic::Frm_Main& main() noexcept { return m_main; }

    /// What stands beside the forms.
    workspace::Workspace& workspace() noexcept { return m_workspace; }
    workspace::SessionDesk& session() noexcept { return m_session; }
    workspace::Comparison& comparison() noexcept { return m_comparison; }

    FormSlot<Frm_Splash_Screen> splash;
    FormSlot<output::Frm_Comfortics> results;
    FormSlot<converter::Frm_Converter> converter;
    FormSlot<radiation::Frm_Radiation> radiation;
    FormSlot<batch::Frm_Raw_Data> rawData;

    /// One sentence about limits that could not be read; empty where they were.
    std::string limitsWarning() const;

    /// For the view: all forms are unloaded, the program ends.
    controls::Event ended;

private:
    void handOver();
    void showResults() override;
    void showRawData() override;
    void showRadiation() override;
    void showConverter() override;
    std::string converter_lbl_C() override;
    std::string converter_lbl_WS() override;
    std::string converter_lbl_SR() override;
    void unloadAll() override;

    void tellStanding();
    void tableIsOfStore();

    classic::Limits m_limits;
    Desktop m_desktop;
    batch::MessageGate m_messages; // what the main window says goes through it
    classic::Frm_Main m_main;
    workspace::TransientPreferences m_transient; // where the desktop keeps none
    workspace::Workspace m_workspace;
    workspace::SessionDesk m_session;
    workspace::Comparison m_comparison{m_workspace};
    // Of the calculation that the results table shows.
    std::optional<classic::Inputs> m_tableInputs;
    std::size_t m_tableRun = 0;
};

} // namespace comfortics::shell
