// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/frm_main.h"
#include "ui/form_window.h"

#include <QString>

#include <array>
#include <vector>

class QGridLayout;
class QLineEdit;

namespace comfortics::ui {

class CutLabel;

/// The view of the main window.
class MainWindow : public FormWindow {
    Q_OBJECT

public:
    /// The warning, if any, stays in the status bar.
    explicit MainWindow(core::Frm_Main& form, const QString& warning = {});

    /// Sizes and places the window for this screen, with room for the converter at its side.
    void placeOnScreen();

protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* buildContent();
    QWidget* buildReadings();
    QWidget* buildActions();
    QWidget* buildLive();
    QWidget* buildIndices();
    QWidget* buildOptions(QWidget* parent);
    void buildMenus();
    void buildStatus(const QString& warning);
    QWidget* readingField(core::Reading reading);
    void assumptionRow(QGridLayout& grid, controls::Label& heading, controls::TextBox& box,
                       const QString& objectName, const QString& unit, const QString& hint);
    void choiceRows(QGridLayout& grid, controls::Label& heading, controls::OptionGroup& group,
                    const QStringList& hints);
    void setTabOrders();
    void placeOptions();
    void turnOptions();
    void focusOptions();
    void showStatus();

    core::Frm_Main& m_form;
    std::array<QLineEdit*, core::kReadingCount> m_readings{};
    std::vector<QWidget*> m_tabOrder; // behind the readings
    QWidget* m_left = nullptr;        // the column of the readings
    QLineEdit* m_search = nullptr;
    QWidget* m_options = nullptr;
    QWidget* m_firstOption = nullptr;
    CutLabel* m_status = nullptr;
};

} // namespace comfortics::ui
