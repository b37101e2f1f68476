// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/frm_splash_screen.h"

#include <utility>

namespace comfortics::shell {

Frm_Splash_Screen::Frm_Splash_Screen(std::function<void()> handOver)
    : Form("Comfortics"), m_handOver(std::move(handOver))
{
    tmr_Splash.timeout.handle([this] { tmr_Splash_Timer(); });
    Form_Load();
}

void Frm_Splash_Screen::Form_Load()
{
    Img_Ostrel.moveTo(0, 0);
    m_ticks = 0;
    tmr_Splash.setEnabled(true);
}

void Frm_Splash_Screen::tmr_Splash_Timer()
{
    ++m_ticks;
    if (m_ticks > 1)
        m_handOver();
}

} // namespace comfortics::shell
