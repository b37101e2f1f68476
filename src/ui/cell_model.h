// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <functional>

namespace comfortics::ui {

/// A table whose cells are made when they are looked at: it is shown at once, however many there are.
class CellModel : public QAbstractTableModel {
    Q_OBJECT

public:
    struct Cells {
        QStringList heads{};
        int rows = 0;
        std::function<QString(int row, int column)> text{};
        std::function<bool(int column)> isText{}; ///< else numbers, which stand on the right
    };

    using QAbstractTableModel::QAbstractTableModel;

    void show(Cells cells);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    Cells m_cells;
};

} // namespace comfortics::ui
