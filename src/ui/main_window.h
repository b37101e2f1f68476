// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/frm_main.h"
#include "ui/form_window.h"

#include <QString>

#include <array>
#include <vector>

class QGridLayout;
class QLabel;
class QLineEdit;

namespace comfortics::ui {

class ContentArea;
class CutLabel;

/// The view of the main window.
class MainWindow : public FormWindow {
    Q_OBJECT

public:
    /// The warning, if any, stays in the status bar.
    explicit MainWindow(classic::Frm_Main& form, const QString& warning = {});

    /// Sizes and places the window for this screen, with room for the converter at its side.
    void placeOnScreen();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* buildContent();
    QWidget* buildReadings();
    QWidget* buildActions();
    QWidget* buildLive();
    QWidget* buildIndices();
    QWidget* buildOptions();
    void buildMenus();
    void buildStatus(const QString& warning);
    QWidget* readingField(classic::Reading reading);
    void assumptionRow(QGridLayout& grid, classic::Assumption assumption, controls::Label& heading);
    void choiceRows(QGridLayout& grid, controls::Label& heading, controls::OptionGroup& group,
                    const QStringList& hints);
    void setTabOrders();
    void turnOptions();
    void focusOptions();
    void showStanding();

    classic::Frm_Main& m_form;
    std::array<QLineEdit*, classic::kReadingCount> m_readings{};
    std::vector<QWidget*> m_tabOrder; // behind the readings
    ContentArea* m_area = nullptr;
    QLineEdit* m_search = nullptr;
    QWidget* m_firstOption = nullptr;
    std::vector<QLabel*> m_live;
    CutLabel* m_status = nullptr;
};

} // namespace comfortics::ui
