// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/view.h"

#include <QAbstractTableModel>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace comfortics::ui {

/// What a run over a table has come to, in the order and choice of a view.
class StationModel : public QAbstractTableModel {
    Q_OBJECT

public:
    struct Column {
        enum class Kind : std::uint8_t { Row, Time, Station, Status, Reading, Figure, Carried };
        Kind kind = Kind::Row;
        std::size_t place = 0;
    };
    /// The role of the catalogue::Meaning that a cell's value has: its severity; none where it has none.
    static constexpr int kSeverityRole = Qt::UserRole;
    /// Whether a cell is that of an index in a row that was calculated.
    static constexpr int kFigureRole = Qt::UserRole + 1;

    using QAbstractTableModel::QAbstractTableModel;

    void show(std::shared_ptr<const workbench::TableStore> store,
              std::shared_ptr<const workbench::View> view);
    const std::shared_ptr<const workbench::TableStore>& store() const noexcept { return m_store; }

    const std::vector<Column>& columns() const noexcept { return m_columns; }
    /// Those that stay in sight: row, time, station.
    int frozenColumns() const noexcept { return m_frozen; }
    /// The row of the store behind a row in sight.
    std::size_t storeRow(int row) const { return m_view->rows[static_cast<std::size_t>(row)]; }
    /// What a column is sorted and filtered by; none where it cannot be.
    std::optional<workbench::Field> field(int column) const;
    /// All that there is to say of a cell: why it is blank, its class, or its text.
    QString detail(const QModelIndex& index) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString text(std::size_t row, const Column& column) const;
    QString heading(const Column& column) const;

    std::shared_ptr<const workbench::TableStore> m_store;
    std::shared_ptr<const workbench::View> m_view;
    std::vector<Column> m_columns;
    int m_frozen = 0;
    mutable std::optional<std::pair<std::size_t, std::vector<std::string>>> m_carried; // of the last row
};

} // namespace comfortics::ui
