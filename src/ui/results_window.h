// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/frm_comfortics.h"
#include "ui/form_window.h"
#include "workspace/finding.h"
#include "workspace/workspace.h"

#include <functional>
#include <string>

class QLineEdit;
class QMenu;

namespace comfortics::ui {

class CutLabel;
class FindBar;
class GridView;

/// The view of the results window.
class ResultsWindow : public FormWindow {
    Q_OBJECT

public:
    /// `closed` unloads the form.
    ResultsWindow(output::Frm_Comfortics& form, workspace::Workspace& workspace, const QWidget& main,
                  std::function<void()> closed);
    ~ResultsWindow() override;
    Q_DISABLE_COPY_MOVE(ResultsWindow)

    /// Stands beside the main window, whose readings stay in sight.
    void placeBeside(const QWidget& main);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenu();
    QWidget* buildContent();
    GridView* buildTable(controls::Grid& grid, const QString& objectName);
    void buildKeys();
    void showReason();
    std::string idOf(std::size_t row) const;
    void buildFind();
    void showFound();
    void standOnBest();
    void step(bool forward);
    void openSheet();
    static std::size_t placeOf(const controls::Grid& grid, std::size_t row);
    catalogue::Standing standing(std::size_t place) const;
    GridView& visibleTable() const;

    output::Frm_Comfortics& m_form;
    workspace::Workspace& m_workspace;
    workspace::Finding m_finding;
    std::function<void()> m_closed;
    QMenu* m_menu = nullptr;
    GridView* m_table = nullptr;
    GridView* m_searched = nullptr;
    FindBar* m_find = nullptr;
    QLineEdit* m_search = nullptr;
    CutLabel* m_reason = nullptr;
    std::size_t m_menuRow = 0; // that the menu was asked for on; 0: the current one
    std::string m_menuId;      // of the index that the open menu is for; empty while it is closed
};

} // namespace comfortics::ui
