// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "ui/form_window.h"
#include "workspace/workspace.h"

#include <QString>

namespace comfortics::ui {

class ContentArea;
class CutLabel;
class IndexPanel;
class OptionsPage;
class ReadingsPanel;

/// The view of the main window.
class MainWindow : public FormWindow {
    Q_OBJECT

public:
    /// The warning, if any, stays in the status bar.
    explicit MainWindow(workspace::Workspace& workspace, const QString& warning = {});

    /// Sizes and places the window for this screen, with room for the converter at its side.
    void placeOnScreen();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* buildContent();
    void buildMenus();
    void buildStatus(const QString& warning);
    void setTabOrders();
    void turnOptions();
    void focusOptions();
    void showStanding();

    workspace::Workspace& m_workspace;
    classic::Frm_Main& m_form;
    ContentArea* m_area = nullptr;
    ReadingsPanel* m_readings = nullptr;
    OptionsPage* m_options = nullptr;
    IndexPanel* m_indices = nullptr;
    CutLabel* m_status = nullptr;
};

} // namespace comfortics::ui
