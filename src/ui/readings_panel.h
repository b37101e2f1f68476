// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/workspace.h"

#include <QWidget>

#include <array>
#include <vector>

class QGridLayout;
class QLineEdit;

namespace comfortics::ui {

/// The reading boxes, and below them the buttons that calculate.
class ReadingsPanel : public QWidget {
    Q_OBJECT

public:
    explicit ReadingsPanel(workspace::Workspace& workspace, QWidget* parent = nullptr);

    QLineEdit& line(classic::Reading reading) const { return *m_readings[static_cast<std::size_t>(reading)]; }

    /// The lines and what stands beside them, and the buttons, in the order in which the tab key goes through
    /// them.
    const std::vector<QWidget*>& fields() const { return m_fields; }
    const std::vector<QWidget*>& buttons() const { return m_buttons; }

private:
    QWidget* readingField(classic::Reading reading);
    QWidget* buildReadings();
    QWidget* buildActions();

    void addEntry(QGridLayout& layout, classic::Reading reading);

    workspace::Workspace& m_workspace;
    classic::Frm_Main& m_form;
    std::array<QLineEdit*, classic::kReadingCount> m_readings{};
    std::vector<QWidget*> m_fields;
    std::vector<QWidget*> m_buttons;
};

} // namespace comfortics::ui
