// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "shell/frm_splash_screen.h"

#include <QWidget>

namespace comfortics::ui {

/// The view of the splash screen: the logo with the version on it, in the middle of the screen.
class SplashWindow : public QWidget {
    Q_OBJECT

public:
    explicit SplashWindow(shell::Frm_Splash_Screen& form);

protected:
    void closeEvent(QCloseEvent* event) override;
};

} // namespace comfortics::ui
