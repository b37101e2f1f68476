// SPDX-License-Identifier: GPL-3.0-or-later
//
// The main form with a workspace beside it, and nobody who looks.
#pragma once

#include "workspace/workspace.h"

#include <string>

namespace comfortics::workspace::tests {

struct NoUser final : controls::Messages {
    controls::Answer show(const controls::MessageBox&) override { return controls::Answer::Ok; }
};

struct NoWindows final : classic::Windows {
    void showResults() override {}
    void showRawData() override {}
    void showRadiation() override {}
    void showConverter() override {}
    std::string converter_lbl_C() override { return {}; }
    std::string converter_lbl_WS() override { return {}; }
    std::string converter_lbl_SR() override { return {}; }
    void unloadAll() override {}
};

struct Program {
    classic::Limits limits = classic::Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    NoUser user;
    NoWindows windows;
    classic::Frm_Main main{limits, user, windows};
    TransientPreferences preferences;
    Workspace workspace{limits, main, preferences};

    void type(const char* Ta, const char* SR, const char* RH, const char* WS)
    {
        main.txt_TA.setText(Ta);
        main.txt_SR.setText(SR);
        main.txt_RH.setText(RH);
        main.txt_WS.setText(WS);
    }
};

} // namespace comfortics::workspace::tests
