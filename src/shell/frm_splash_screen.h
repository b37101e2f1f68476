// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"
#include "controls/form.h"

#include <cstdint>
#include <functional>

namespace comfortics::shell {

/// Shows the logo for two ticks of a second, then the main window in its place.
class Frm_Splash_Screen : public controls::Form {
public:
    /// `handOver` shows the main window and unloads this one.
    explicit Frm_Splash_Screen(std::function<void()> handOver);

    controls::Timer tmr_Splash{1000};
    controls::Label lbl_Version{"version 1.0"};
    controls::Picture Img_Ostrel; ///< the logo

    void Form_Unload() { tmr_Splash.setEnabled(false); }

private:
    void Form_Load();
    void tmr_Splash_Timer();

    std::function<void()> m_handOver;
    std::int16_t m_ticks = 0;
};

} // namespace comfortics::shell
