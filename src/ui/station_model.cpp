// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/station_model.h"

#include "ui/text.h"

#include <QBrush>
#include <QColor>

#include <utility>

namespace comfortics::ui {

using workbench::Field;
using workbench::RowState;

namespace {

QString timeText(const tables::Moment& time)
{
    return toQt(tables::momentText(time)).replace(QLatin1Char('T'), QLatin1Char(' '));
}

} // namespace

void StationModel::show(std::shared_ptr<const workbench::TableStore> store,
                        std::shared_ptr<const workbench::View> view)
{
    beginResetModel();
    m_carried.reset();
    if (store != m_store) {
        m_store = std::move(store);
        m_columns = {{Column::Kind::Row, 0}};
        if (m_store->facts().hasTime)
            m_columns.push_back({Column::Kind::Time, 0});
        if (m_store->facts().hasStation)
            m_columns.push_back({Column::Kind::Station, 0});
        m_frozen = static_cast<int>(m_columns.size());
        m_columns.push_back({Column::Kind::Status, 0});
        for (std::size_t i = 0; i < classic::kReadingCount; ++i)
            m_columns.push_back({Column::Kind::Reading, i});
        for (std::size_t i = 0; i < m_store->items().size(); ++i)
            m_columns.push_back({Column::Kind::Figure, i});
        for (std::size_t i = 0; i < m_store->facts().carried.size(); ++i)
            m_columns.push_back({Column::Kind::Carried, i});
    }
    m_view = std::move(view);
    endResetModel();
}

int StationModel::rowCount(const QModelIndex& parent) const
{
    return m_view && !parent.isValid() ? static_cast<int>(m_view->rows.size()) : 0;
}

int StationModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_columns.size());
}

std::optional<Field> StationModel::field(int column) const
{
    const Column& wanted = m_columns[static_cast<std::size_t>(column)];
    switch (wanted.kind) {
    case Column::Kind::Row:
        return Field{Field::Kind::Row, 0};
    case Column::Kind::Time:
        return Field{Field::Kind::Time, 0};
    case Column::Kind::Station:
        return Field{Field::Kind::Station, 0};
    case Column::Kind::Status:
        return Field{Field::Kind::State, 0};
    case Column::Kind::Reading:
        return Field{Field::Kind::Reading, wanted.place};
    case Column::Kind::Figure:
        return Field{Field::Kind::Figure, wanted.place};
    case Column::Kind::Carried:
        return Field{Field::Kind::Carried, wanted.place};
    }
    return std::nullopt;
}

QString StationModel::text(std::size_t row, const Column& column) const
{
    switch (column.kind) {
    case Column::Kind::Row:
        return QString::number(m_store->line(row));
    case Column::Kind::Time:
        if (const auto time = m_store->time(row))
            return timeText(*time);
        return {};
    case Column::Kind::Station:
        return toQt(m_store->station(row));
    case Column::Kind::Status:
        return m_store->again(row) ? QStringLiteral("again, robust: ") + toQt(m_store->status(row))
                                   : toQt(m_store->status(row));
    case Column::Kind::Reading:
        return toQt(m_store->readingText(row, static_cast<classic::Reading>(column.place)));
    case Column::Kind::Figure:
        return toQt(m_store->figureText(row, column.place));
    case Column::Kind::Carried:
        if (!m_carried || m_carried->first != row)
            m_carried = {row, m_store->carried(row)};
        return toQt(m_carried->second[column.place]);
    }
    return {};
}

QString StationModel::detail(const QModelIndex& index) const
{
    if (!index.isValid() || !m_store)
        return {};
    const std::size_t row = storeRow(index.row());
    const Column& column = m_columns[static_cast<std::size_t>(index.column())];
    if (column.kind != Column::Kind::Figure)
        return text(row, column);
    const workspace::Item& item = m_store->items()[column.place];
    const QString name = toQt(item.name()) + QStringLiteral(": ");
    if (m_store->outcome(row, column.place) != classic::OutcomeKind::Value)
        return name + toQt(m_store->whyBlank(row, column.place));
    QString all = name + text(row, column) + QLatin1Char(' ') + toQt(item.unit());
    if (const auto meaning = m_store->meaning(row, column.place))
        all += QStringLiteral(", ") + toQt(catalogue::inWords(*meaning));
    if (m_store->isMarked(row, column.place))
        all = all.trimmed() + QStringLiteral(". ") + toQt(m_store->whyBlank(row, column.place));
    return all.trimmed();
}

QVariant StationModel::data(const QModelIndex& index, int role) const
{
    if (!m_store || !index.isValid())
        return {};
    const std::size_t row = storeRow(index.row());
    const Column& column = m_columns[static_cast<std::size_t>(index.column())];
    switch (role) {
    case Qt::DisplayRole:
        return text(row, column);
    case Qt::TextAlignmentRole:
        if (column.kind == Column::Kind::Row || column.kind == Column::Kind::Reading ||
            column.kind == Column::Kind::Figure)
            return QVariant::fromValue(Qt::Alignment(Qt::AlignRight | Qt::AlignVCenter));
        return QVariant::fromValue(Qt::Alignment(Qt::AlignLeft | Qt::AlignVCenter));
    case Qt::ToolTipRole:
        return tip(detail(index));
    case Qt::BackgroundRole:
        switch (m_store->state(row)) { // as in the sheet of raw data
        case RowState::Failed:
            return QBrush(QColor(210, 50, 40, 70));
        case RowState::Skipped:
        case RowState::Refused:
            return QBrush(QColor(225, 165, 0, 70));
        case RowState::Calculated:
            break;
        }
        return {};
    case kFigureRole:
        return column.kind == Column::Kind::Figure && m_store->state(row) == RowState::Calculated;
    case kSeverityRole:
        if (column.kind == Column::Kind::Figure)
            if (const auto meaning = m_store->meaning(row, column.place))
                return meaning->severity;
        return {};
    default:
        return {};
    }
}

QString StationModel::heading(const Column& column) const
{
    switch (column.kind) {
    case Column::Kind::Row:
        return QStringLiteral("Line");
    case Column::Kind::Time:
        return QStringLiteral("Time");
    case Column::Kind::Station:
        return QStringLiteral("Station");
    case Column::Kind::Status:
        return QStringLiteral("Status");
    case Column::Kind::Reading: {
        const classic::ReadingInfo& info = classic::kReadingInfo[column.place];
        return toQt(info.symbol()) + QStringLiteral(" [") + toQt(info.unit()) + QLatin1Char(']');
    }
    case Column::Kind::Figure: {
        const workspace::Item& item = m_store->items()[column.place];
        const QString unit = toQt(item.unit());
        // The id of a figure would be cut; the tip has it.
        return toQt(item.model() == nullptr ? workbench::columnTitle(item) : item.name()) +
               (unit.isEmpty() ? QString() : QStringLiteral(" [") + unit + QLatin1Char(']'));
    }
    case Column::Kind::Carried:
        return toQt(m_store->facts().carried[column.place].heading());
    }
    return {};
}

QVariant StationModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= columnCount())
        return {};
    const Column& column = m_columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole)
        return heading(column);
    if (role == Qt::ToolTipRole) {
        if (column.kind == Column::Kind::Carried)
            return tip(heading(column) + QStringLiteral(": as the table has it"));
        if (column.kind == Column::Kind::Figure)
            if (const workspace::Item& item = m_store->items()[column.place]; item.model() != nullptr)
                return tip(heading(column) + QStringLiteral(" – ") + toQt(item.id()));
        return tip(heading(column));
    }
    return {};
}

} // namespace comfortics::ui
