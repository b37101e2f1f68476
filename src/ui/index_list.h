// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/list_box.h"

#include <QAbstractListModel>
#include <QListView>

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
/// anywhere on a row or the space bar turns its tick; with Shift the rows between follow.
class IndexList : public QListView {
    Q_OBJECT

public:
    explicit IndexList(controls::ListBox& list, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void turn(int row, bool withRowsBetween);

    controls::ListBox& m_list;
    int m_lastTurned = 0;
};

} // namespace comfortics::ui
