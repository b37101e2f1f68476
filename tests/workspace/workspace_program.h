// SPDX-License-Identifier: GPL-3.0-or-later
//
// The main form with a workspace beside it, and nobody who looks.
#pragma once

#include "no_windows.h"
#include "prepared_answers.h"
#include "workspace/workspace.h"

#include <string>

namespace comfortics::workspace::tests {

inline const classic::Limits& projectLimits()
{
    static const classic::Limits all = classic::Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    return all;
}

/// The assumptions as the boxes have them at the start.
inline const classic::AssumptionTexts kUsualAssumptions{"0.77", "0.97", "1016", "75", "180", "0.20"};

struct Program {
    const classic::Limits& limits = projectLimits();
    comfortics::tests::RecordedMessages messages;
    comfortics::tests::NoWindows windows;
    classic::Frm_Main main{limits, messages, windows};
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
