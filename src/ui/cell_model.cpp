// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cell_model.h"

#include "ui/text.h"

#include <utility>

namespace comfortics::ui {

void CellModel::show(Cells cells)
{
    beginResetModel();
    m_cells = std::move(cells);
    endResetModel();
}

int CellModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_cells.rows;
}

int CellModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_cells.heads.size());
}

QVariant CellModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return m_cells.text(index.row(), index.column());
    case Qt::ToolTipRole:
        return tip(m_cells.text(index.row(), index.column()));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(Qt::Alignment(
            (m_cells.isText(index.column()) ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter));
    default:
        return {};
    }
}

QVariant CellModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    return role == Qt::DisplayRole   ? QVariant(m_cells.heads[section])
           : role == Qt::ToolTipRole ? QVariant(tip(m_cells.heads[section]))
                                     : QVariant();
}

} // namespace comfortics::ui
