// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/view.h"
#include "workspace/finding.h"
#include "workspace/latest_runner.h"

#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace comfortics::ui {

class CutLabel;
class FindBar;
class FrozenTable;
class StationModel;

/// What a run has come to, row by row: sorted and filtered beside the thread of the windows.
class ResultsPage : public QWidget {
    Q_OBJECT

public:
    explicit ResultsPage(QWidget* parent = nullptr);
    ~ResultsPage() override;

    /// The rows of a run; filters and order of the one before stand where they still mean something.
    void show(std::shared_ptr<const workbench::TableStore> store);
    /// Why the rows are those of an earlier run, in a sentence; empty where they are not.
    void setEarlier(const QString& why);
    /// Nothing can be calculated again while something runs.
    void setRunning(bool running);

    const std::shared_ptr<const workbench::TableStore>& store() const noexcept { return m_store; }
    /// What is in sight; null before the first run.
    const std::shared_ptr<const workbench::View>& view() const noexcept { return m_view; }
    /// The index or figure in whose column the user stands; none in another.
    std::optional<workspace::Item> currentItem() const;
    std::vector<QWidget*> tabOrder() const;

signals:
    /// The rows that failed are to be calculated again.
    void againWanted();
    /// Other rows are in sight.
    void viewChanged();
    void exportWanted();
    void summaryWanted();

private:
    using Runner = workspace::LatestRunner<workbench::ViewRequest, std::shared_ptr<const workbench::View>>;

    void askForView();
    void takeView();
    void sortBy(int column, bool turn);
    void addCondition(workbench::Condition condition);
    void showConditions();
    void showCounts();
    void openMenu(const QPoint& at);
    void step(bool forward);
    void goTo(std::size_t subject);
    std::optional<workbench::Condition> likeCurrent() const;

    std::shared_ptr<const workbench::TableStore> m_store;
    std::shared_ptr<const workbench::View> m_view;
    std::vector<workbench::Condition> m_conditions;
    workbench::Field m_sortBy;
    bool m_descending = false;
    bool m_fresh = false; // columns are others than those in sight
    std::unique_ptr<StationModel> m_model;
    workspace::Finding m_finding;
    QLabel* m_facts;
    QLabel* m_earlier;
    FindBar* m_find;
    QPushButton* m_filter;
    QPushButton* m_summary;
    QPushButton* m_export;
    QPushButton* m_again;
    QCheckBox* m_coloured;
    QWidget* m_chips;
    QHBoxLayout* m_chipsRow;
    FrozenTable* m_table;
    QLabel* m_counts;
    CutLabel* m_detail;
    std::unique_ptr<Runner> m_runner; // last: ends before what it tells goes
};

} // namespace comfortics::ui
