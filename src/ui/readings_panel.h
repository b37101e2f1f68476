// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"

#include <QWidget>

#include <array>
#include <vector>

class QLineEdit;

namespace comfortics::ui {

/// The reading boxes, and below them the buttons that calculate.
class ReadingsPanel : public QWidget {
    Q_OBJECT

public:
    explicit ReadingsPanel(classic::Frm_Main& form, QWidget* parent = nullptr);

    QLineEdit& line(classic::Reading reading) const { return *m_readings[static_cast<std::size_t>(reading)]; }

    /// In the order in which the tab key goes through them.
    std::vector<QWidget*> tabOrder() const;

private:
    QWidget* readingField(classic::Reading reading);
    QWidget* buildReadings();
    QWidget* buildActions();

    classic::Frm_Main& m_form;
    std::array<QLineEdit*, classic::kReadingCount> m_readings{};
    std::vector<QWidget*> m_buttons;
};

} // namespace comfortics::ui
