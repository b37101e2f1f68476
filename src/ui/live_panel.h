// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"

#include <QWidget>

#include <vector>

class QGridLayout;
class QLabel;

namespace comfortics::ui {

/// The eleven live quantities, and the rules that they are by.
class LivePanel : public QWidget {
    Q_OBJECT

public:
    explicit LivePanel(classic::Frm_Main& form, QWidget* parent = nullptr);

    /// Takes less height.
    void setTight(bool tight);

private:
    classic::Frm_Main& m_form;
    std::vector<QLabel*> m_values;
    QGridLayout* m_grid = nullptr;
};

} // namespace comfortics::ui
