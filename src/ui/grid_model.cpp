// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid_model.h"

#include "ui/fonts.h"
#include "ui/printer_surface.h"
#include "ui/text.h"

#include <QApplication>
#include <QPalette>

#include <algorithm>
#include <utility>

namespace comfortics::ui {

using controls::Grid;

namespace {

int bodyRows(const Grid& grid)
{
    return static_cast<int>(grid.rows() - grid.fixedRows());
}

// 0 to 8 are left, centre and right, each at top, middle and bottom.
Qt::Alignment qtAlignment(int alignment)
{
    if (alignment == Grid::kGeneralAlignment)
        return Qt::AlignLeft | Qt::AlignVCenter;
    constexpr Qt::AlignmentFlag kAcross[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    constexpr Qt::AlignmentFlag kDown[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    return kAcross[alignment / 3] | kDown[alignment % 3];
}

} // namespace

GridModel::GridModel(Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), m_grid(grid), m_rows(bodyRows(grid)), m_cols(static_cast<int>(grid.cols()))
{
}

int GridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int GridModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_cols + (m_beside ? 1 : 0);
}

void GridModel::showBeside(const QString& heading, std::function<QString(std::size_t)> text)
{
    beginResetModel();
    m_besideHeading = heading;
    m_beside = std::move(text);
    endResetModel();
}

QFont GridModel::font(const controls::Font& own) const
{
    QFont result = screenFont(own);
    result.setPointSizeF(std::max(result.pointSizeF(), m_leastPoints));
    return result;
}

QVariant GridModel::cell(std::size_t row, std::size_t col, int role) const
{
    if (row >= m_grid.rows() || col >= m_grid.cols())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return toQt(m_grid.textMatrix(row, col));
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(qtAlignment(m_grid.cellAlignment(row, col)));
    case Qt::FontRole:
        return font(*m_grid.cellFont(row, col));
    case Qt::AccessibleDescriptionRole:
        return toQt(m_grid.note(row, col));
    case Qt::DecorationRole:
        if (const auto picture = std::dynamic_pointer_cast<const PixelImage>(m_grid.cellPicture(row, col)))
            return picture->image();
        return {};
    default:
        return {};
    }
}

QVariant GridModel::data(const QModelIndex& index, int role) const
{
    if (role == Qt::ForegroundRole && m_quiet)
        return QApplication::palette().brush(QPalette::PlaceholderText);
    if (index.isValid() && isBeside(index.column()))
        return role == Qt::DisplayRole ? m_beside(gridRow(index.row()))
               : role == Qt::FontRole  ? QVariant(font(*m_grid.font()))
                                       : QVariant();
    return index.isValid() ? cell(gridRow(index.row()), static_cast<std::size_t>(index.column()), role)
                           : QVariant();
}

QVariant GridModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (m_grid.fixedRows() == 0)
        return {};
    if (isBeside(section))
        return role == Qt::DisplayRole ? QVariant(m_besideHeading)
               : role == Qt::FontRole  ? QVariant(font(*m_grid.font()))
                                       : QVariant();
    QVariant whole = cell(m_grid.fixedRows() - 1, static_cast<std::size_t>(section), role);
    if (role == Qt::TextAlignmentRole && m_wrapsHeaders)
        return QVariant::fromValue(int(whole.value<Qt::Alignment>()) | int(Qt::TextWordWrap));
    if (role != Qt::DisplayRole || !m_wrapsHeaders)
        return whole;
    return whole.toString().replace(QLatin1Char('/'),
                                    QStringLiteral("/\u2060")); // no line ends within a unit
}

void GridModel::repeat(const controls::GridChange& change)
{
    if (change.structure) {
        beginResetModel();
        m_rows = bodyRows(m_grid);
        m_cols = static_cast<int>(m_grid.cols());
        endResetModel();
        return;
    }
    if (!change.cells)
        return;
    const std::size_t fixed = m_grid.fixedRows();
    if (change.cells->firstRow < fixed)
        emit headerDataChanged(Qt::Horizontal, static_cast<int>(change.cells->firstCol),
                               static_cast<int>(change.cells->lastCol));
    if (change.cells->lastRow >= fixed) {
        const int lastCol = m_beside ? m_cols : static_cast<int>(change.cells->lastCol);
        emit dataChanged(index(static_cast<int>(std::max(change.cells->firstRow, fixed) - fixed),
                               static_cast<int>(change.cells->firstCol)),
                         index(static_cast<int>(change.cells->lastRow - fixed), lastCol));
    }
}

} // namespace comfortics::ui
