// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

class QAbstractItemDelegate;
class QTableView;

namespace comfortics::ui {

class StationModel;

/// The rows of a station table, whose first columns stay in sight while the others scroll.
class FrozenTable : public QWidget {
    Q_OBJECT

public:
    /// The model must outlive the table.
    explicit FrozenTable(StationModel& model, QWidget* parent = nullptr);

    /// Columns are others than before.
    void fitColumns();
    /// Shows by which column the rows are sorted; none below 0.
    void showSorted(int column, bool descending);
    /// Class colours beside the figures.
    void setColoured(bool coloured);
    void setQuiet(bool quiet);

    QModelIndex current() const;
    /// Makes a cell the current one and brings it into sight.
    void stand(int row, int column);
    QTableView& frozen() const { return *m_left; }
    QTableView& rest() const { return *m_right; }

signals:
    void currentChanged(const QModelIndex& index);
    /// The head of a column was pressed.
    void sortWanted(int column);
    void menuWanted(const QPoint& at);

private:
    void fitFrozen();

    StationModel& m_model;
    QTableView* m_left;
    QTableView* m_right;
    bool m_coloured = false;
    bool m_quiet = false;
};

} // namespace comfortics::ui
