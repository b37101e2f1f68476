// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "ui/form_window.h"
#include "ui/panels.h"
#include "workspace/workspace.h"

#include <QString>

class QMenu;

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

    /// Adds a panel beside the readings, which can be closed, moved, put behind a tab and floated; it waits
    /// closed. The name keeps its place between sessions.
    QDockWidget& addPanel(const QString& name, const QString& title, QWidget* content,
                          PanelPlace place = PanelPlace::Right);
    /// For what opens, saves and prints.
    QMenu& fileMenu() { return *m_file; }

    /// Opens a panel and brings it to the front.
    void showPanel(const QString& name);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* buildContent();
    void buildPanels();
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
    Panels* m_panels = nullptr;
    QMenu* m_file = nullptr;
    CutLabel* m_status = nullptr;
};

} // namespace comfortics::ui
