// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/frm_comfortics.h"
#include "ui/form_window.h"

#include <functional>

class QLineEdit;
class QMenu;

namespace comfortics::ui {

class CutLabel;
class GridView;

/// The view of the results window.
class ResultsWindow : public FormWindow {
    Q_OBJECT

public:
    /// `closed` unloads the form.
    ResultsWindow(output::Frm_Comfortics& form, const QWidget& main, std::function<void()> closed);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenu();
    QWidget* buildContent();
    GridView* buildTable(controls::Grid& grid, const QString& objectName);
    void buildKeys();
    void placeBeside(const QWidget& main);
    void showReason();

    output::Frm_Comfortics& m_form;
    std::function<void()> m_closed;
    QMenu* m_menu = nullptr;
    GridView* m_table = nullptr;
    QLineEdit* m_search = nullptr;
    CutLabel* m_reason = nullptr;
};

} // namespace comfortics::ui
