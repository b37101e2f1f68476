// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "output/frm_comfortics.h"
#include "ui/form_window.h"
#include "ui/panels.h"
#include "workspace/workspace.h"

#include <QString>
#include <QTimer>

#include <memory>
#include <vector>

class QGridLayout;
class QLineEdit;
class QMenu;
class QMenuBar;
class QStackedWidget;

namespace comfortics::ui {

class CardsPanel;
class ContentArea;
class CutLabel;
class GuideWindow;
class IndexPanel;
class LivePanel;
class OptionsPage;
class ReadingsPanel;
class ResultsWindow;
class Zoom;

/// The view of the main window.
class MainWindow : public FormWindow {
    Q_OBJECT

public:
    /// The warning, if any, stays in the status bar.
    explicit MainWindow(workspace::Workspace& workspace, const QString& warning = {});
    ~MainWindow() override;

    /// Sizes and places the window and its panels as they stood last; for this screen, with room for the
    /// converter at its side, where nothing is kept.
    void placeOnScreen();

    /// Adds a panel beside the readings, which can be closed, moved, put behind a tab and floated; it waits
    /// closed. The name keeps its place between sessions.
    QDockWidget& addPanel(const QString& name, const QString& title, QWidget* content,
                          PanelPlace place = PanelPlace::Right);

    /// Opens a panel and brings it to the front.
    void showPanel(const QString& name);

    /// A sentence that stays in the status bar.
    void warn(const QString& sentence);

    /// The results and their window, which are there from now on; null when they go.
    void takeResults(output::Frm_Comfortics* form, ResultsWindow* window);

    /// Opens the user guide at a chapter, by its anchor.
    void showGuide(const QString& chapter);

    /// Puts the keyboard into the reading where it was last, from whatever window.
    void backToReadings();

    QString chapter() const override;

    QMenu& fileMenu() const { return *m_file; }
    QMenu& editMenu() const { return *m_edit; }

signals:
    /// A file was dropped on the window.
    void fileDropped(const QString& path);

protected:
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildContent();
    void arrangeColumns();
    void buildPanels();
    void buildMenus();
    void buildFormsMenus(QMenuBar& bar);
    void buildFileAndEdit();
    void buildView();
    void buildStatus(const QString& warning);
    void placeAsNew();
    void keepLayout();
    void resetLayout();
    void dockResults(bool docked);
    void setTabOrders();
    void turnOptions();
    void focusOptions();
    void showStanding();

    workspace::Workspace& m_workspace;
    classic::Frm_Main& m_form;
    ContentArea* m_area = nullptr;
    QGridLayout* m_columns = nullptr;
    QStackedWidget* m_pages = nullptr; // readings or options
    LivePanel* m_live = nullptr;
    bool m_liveBelow = false;
    ReadingsPanel* m_readings = nullptr;
    OptionsPage* m_options = nullptr;
    CardsPanel* m_cards = nullptr;
    IndexPanel* m_indices = nullptr;
    Panels* m_panels = nullptr;
    QDockWidget* m_resultsPanel = nullptr;
    QAction* m_dockResults = nullptr;
    Zoom* m_zoom = nullptr;
    QMenu* m_file = nullptr;
    QMenu* m_edit = nullptr;
    QMenu* m_view = nullptr;
    QLineEdit* m_lastReading = nullptr;
    output::Frm_Comfortics* m_resultsForm = nullptr;
    ResultsWindow* m_results = nullptr;
    std::vector<QAction*> m_resultsActions;
    std::unique_ptr<GuideWindow> m_guide;
    CutLabel* m_status = nullptr;
    QTimer m_noting;
    QTimer m_pause;
    QTimer m_keeping{this}; // until the layout is kept
};

} // namespace comfortics::ui
