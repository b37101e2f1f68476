// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/index_list.h"

#include "ui/bindings.h"
#include "ui/fonts.h"
#include "ui/mark_style.h"
#include "ui/text.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QStyledItemDelegate>

#include <algorithm>

namespace comfortics::ui {

namespace {

// The list turns the ticks itself.
class Untouchable : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&, const QModelIndex&) override
    {
        return false;
    }
};

std::size_t place(int row)
{
    return static_cast<std::size_t>(row);
}

constexpr int kWidthInCharacters = 96;
constexpr int kHeightInLines = 19; // with the models of standards below

} // namespace

ListModel::ListModel(controls::ListBox& list, QObject* parent) : QAbstractListModel(parent), m_list(list)
{
    follow(*this, list.change, [this] { repeat(); });
}

void ListModel::repeat()
{
    const int rows = static_cast<int>(m_list.count());
    if (rows != m_rows) {
        beginResetModel();
        m_rows = rows;
        endResetModel();
    } else if (rows > 0) {
        emit dataChanged(index(0), index(rows - 1), {Qt::CheckStateRole});
    }
}

int ListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

QVariant ListModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return toQt(m_list.item(place(index.row())));
    case Qt::ToolTipRole: {
        const std::string note = m_list.note(place(index.row()));
        return tip(toQt(note.empty() ? m_list.item(place(index.row())) : note)); // a long name may be cut
    }
    case Qt::AccessibleDescriptionRole:
        return toQt(m_list.note(place(index.row())));
    case Qt::CheckStateRole:
        return m_list.selected(place(index.row())) ? Qt::Checked : Qt::Unchecked;
    default:
        return {};
    }
}

bool ListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole)
        return false;
    m_list.setSelected(place(index.row()), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags ListModel::flags(const QModelIndex& index) const
{
    return QAbstractListModel::flags(index) | Qt::ItemIsUserCheckable;
}

IndexList::IndexList(controls::ListBox& list, QWidget* parent) : QListView(parent), m_list(list)
{
    MarkStyle::wear(*this);
    setModel(new ListModel(list, this));
    setItemDelegate(new Untouchable(this));
    setFont(screenFont({.name = "Arial Narrow", .size = font().pointSizeF()})); // the names are long
    setUniformItemSizes(true);
    setSpacing(1);
    setTextElideMode(Qt::ElideRight);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setEditTriggers(NoEditTriggers);

    follow(*this, list.sight, [this] {
        if (const auto row = m_list.currentRow()) {
            if (isRowHidden(static_cast<int>(*row)))
                emit hiddenWanted();
            const QModelIndex index = model()->index(static_cast<int>(*row), 0);
            const QRect rectangle = visualRect(index);
            setCurrentIndex(index);
            if (rectangle.top() < 0 || rectangle.bottom() >= viewport()->height())
                scrollTo(index, PositionAtCenter);
        }
    });
    connect(selectionModel(), &QItemSelectionModel::currentChanged, this, [this](const QModelIndex& current) {
        if (current.isValid() && m_list.currentRow() != place(current.row()))
            m_list.setCurrentRow(place(current.row()));
    });
}

QSize IndexList::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * kWidthInCharacters,
            fontMetrics().lineSpacing() * kHeightInLines};
}

void IndexList::mousePressEvent(QMouseEvent* event)
{
    QListView::mousePressEvent(event);
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid())
        turn(index.row(), event->modifiers().testFlag(Qt::ShiftModifier));
}

// The second of two quick clicks is a click like any other.
void IndexList::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void IndexList::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_I && event->modifiers() == Qt::ControlModifier && currentIndex().isValid())
        emit sheetWanted(place(currentIndex().row()));
    else if (event->key() == Qt::Key_Space && currentIndex().isValid())
        turn(currentIndex().row(), event->modifiers().testFlag(Qt::ShiftModifier));
    else
        QListView::keyPressEvent(event);
}

void IndexList::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index =
        event->reason() == QContextMenuEvent::Mouse ? indexAt(event->pos()) : currentIndex();
    if (!index.isValid())
        return;
    QMenu menu(this);
    const QAction* const sheet = menu.addAction(QStringLiteral("Index sheet\tCtrl+I"));
    emit menuOpens(menu, static_cast<std::size_t>(index.row()));
    const QPoint place = event->reason() == QContextMenuEvent::Mouse
                             ? event->globalPos()
                             : viewport()->mapToGlobal(visualRect(index).bottomLeft());
    if (menu.exec(place) == sheet)
        emit sheetWanted(static_cast<std::size_t>(index.row()));
}

void IndexList::showOnly(const std::function<bool(std::size_t)>& passes)
{
    for (int row = 0; row < model()->rowCount(); ++row)
        if (isRowHidden(row) == passes(place(row)))
            setRowHidden(row, !isRowHidden(row));
}

std::optional<std::size_t> IndexList::standing() const
{
    return currentIndex().isValid() ? std::optional(place(currentIndex().row())) : std::nullopt;
}

void IndexList::stand(std::size_t row)
{
    m_list.setCurrentRow(row);
}

void IndexList::turn(int row, bool withRowsBetween)
{
    const bool selected =
        withRowsBetween ? m_list.selected(place(m_lastTurned)) : !m_list.selected(place(row));
    const int first = withRowsBetween ? std::min(row, m_lastTurned) : row;
    const int last = withRowsBetween ? std::max(row, m_lastTurned) : row;
    for (int one = first; one <= last; ++one)
        if (!isRowHidden(one))
            m_list.setSelected(place(one), selected);
    m_lastTurned = row;
}

} // namespace comfortics::ui
