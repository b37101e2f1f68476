// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/grid.h"

#include <QAbstractTableModel>
#include <QFont>

#include <functional>

namespace comfortics::ui {

/// The body of a grid as rows numbered from 1, its last fixed row as header. Holds no cells: the view asks
/// for what it shows.
class GridModel : public QAbstractTableModel {
    Q_OBJECT

public:
    GridModel(controls::Grid& grid, QObject* parent);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Where a cell of the body stands in the grid.
    std::size_t gridRow(int row) const { return static_cast<std::size_t>(row) + m_grid.fixedRows(); }

    /// A column of the view alone, right of the grid's: what it reads for a row of the grid.
    void showBeside(const QString& heading, std::function<QString(std::size_t gridRow)> text);
    bool isBeside(int col) const { return m_beside && col == m_cols; }

    /// Tells the views of a change of the grid.
    void repeat(const controls::GridChange& change);

    /// The least size of letters on the screen [points]; a grid's own font may be smaller.
    void setLeastPointSize(double points) { m_leastPoints = points; }
    QFont font(const controls::Font& own) const;

    /// Headers are broken into lines where they are too long for one.
    void wrapHeaders() { m_wrapsHeaders = true; }

    /// Texts of the body are quieter than usual.
    void setQuiet(bool quiet) { m_quiet = quiet; }

private:
    QVariant cell(std::size_t row, std::size_t col, int role) const;

    controls::Grid& m_grid;
    int m_rows;
    int m_cols;
    double m_leastPoints = 0;
    bool m_wrapsHeaders = false;
    bool m_quiet = false;
    QString m_besideHeading;
    std::function<QString(std::size_t)> m_beside;
};

} // namespace comfortics::ui
