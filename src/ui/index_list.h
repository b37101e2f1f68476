// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/list_box.h"

#include <QAbstractListModel>
#include <QListView>

#include <functional>
#include <optional>

class QMenu;

namespace comfortics::ui {

/// The rows of a list box for a view: selected rows are ticked.
class ListModel : public QAbstractListModel {
    Q_OBJECT

public:
    ListModel(controls::ListBox& list, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    void repeat();

    controls::ListBox& m_list;
    int m_rows = 0;
};

/// The index list. A tick shows that a row is selected, the bar where the keyboard stands. A click
/// anywhere on a row or the space bar turns its tick; with Shift the rows between follow. A right click, the
/// menu key and Ctrl+I ask for more of a row.
class IndexList : public QListView {
    Q_OBJECT

public:
    explicit IndexList(controls::ListBox& list, QWidget* parent = nullptr);

    QSize sizeHint() const override;

    /// Hides the rows that do not pass, until told anew. Hidden rows keep their ticks.
    void showOnly(const std::function<bool(std::size_t row)>& passes);
    /// The row under the keyboard; none before the first.
    std::optional<std::size_t> standing() const;
    /// Makes a row the one under the keyboard and brings it into sight.
    void stand(std::size_t row);

signals:
    /// The form stands on a row that is hidden.
    void hiddenWanted();
    /// The menu of a row is about to open, for more entries.
    void menuOpens(QMenu& menu, std::size_t row);
    /// The sheet of a row is asked for.
    void sheetWanted(std::size_t row);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void turn(int row, bool withRowsBetween);

    controls::ListBox& m_list;
    int m_lastTurned = 0;
};

} // namespace comfortics::ui
