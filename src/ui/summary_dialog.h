// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/store_summary.h"
#include "workspace/latest_runner.h"

#include <QDialog>

#include <memory>

class QDialogButtonBox;
class QLabel;
class QTableView;

namespace comfortics::ui {

class CellModel;
class ShareBar;

/// What the rows in sight come to, index by index, and the hours in each class by month of the one that is
/// chosen. They are counted on a thread of their own, which ends with the dialog.
class SummaryDialog : public QDialog {
    Q_OBJECT

public:
    SummaryDialog(std::shared_ptr<const workbench::TableStore> store,
                  std::shared_ptr<const workbench::View> view, QWidget* parent);
    ~SummaryDialog() override;

private:
    using Summary = std::shared_ptr<const tables::TableSummary>;
    using Runner = workspace::LatestRunner<int, Summary>;

    void show(const Summary& summary);
    void showClasses();

    std::shared_ptr<const workbench::TableStore> m_store;
    std::shared_ptr<const workbench::View> m_view;
    Summary m_shown;
    std::unique_ptr<CellModel> m_rows; // before the tables that show them
    std::unique_ptr<CellModel> m_months;
    QLabel* m_facts;
    ShareBar* m_bar;
    QTableView* m_table;
    QLabel* m_ofClasses;
    QTableView* m_classes;
    QDialogButtonBox* m_buttons;
    std::unique_ptr<Runner> m_runner; // last: ends before what it tells goes
};

} // namespace comfortics::ui
