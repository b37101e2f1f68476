// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/frozen_table.h"

#include "ui/chip.h"
#include "ui/station_model.h"
#include "ui/widgets.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>

#include <algorithm>

namespace comfortics::ui {

namespace {

constexpr int kCharactersOfFigure = 24;
constexpr int kCharactersOfText = 22;
constexpr int kCharactersOfReading = 10;
constexpr int kCharactersOfLine = 11; // with the arrow of the order
constexpr int kBesideSign = 4;
constexpr int kRoomOfSign = 14; // the field around it, too
constexpr int kLinesOfHeader = 5;

// Beside a figure the sign of its class in its colour.
class SignedFigures : public QStyledItemDelegate {
public:
    SignedFigures(const bool& coloured, const bool& quiet, QWidget* parent)
        : QStyledItemDelegate(parent), m_coloured(coloured), m_quiet(quiet), m_view(*parent)
    {
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        // The figure makes room for the sign, be it its own or that of its neighbours.
        QStyleOptionViewItem beside = option;
        if (m_coloured && index.data(StationModel::kFigureRole).toBool())
            beside.rect.adjust(0, 0,
                               -option.fontMetrics.horizontalAdvance(QStringLiteral("+4")) - kRoomOfSign, 0);
        QStyledItemDelegate::paint(painter, beside, index);
        if (!m_coloured)
            return;
        const QVariant severity = index.data(StationModel::kSeverityRole);
        if (!severity.isValid())
            return;
        painter->setFont(option.font);
        paintSign(*painter, option.rect.adjusted(0, 1, -kBesideSign, -1), severity.toInt(), m_view.palette(),
                  m_quiet);
    }

    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (m_quiet)
            option->palette.setColor(QPalette::Text, option->palette.color(QPalette::PlaceholderText));
    }

private:
    const bool& m_coloured;
    const bool& m_quiet;
    const QWidget& m_view;
};

// Of one height, whatever stands in it: its names are not measured whenever a column is.
class LowHead : public QHeaderView {
public:
    explicit LowHead(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
    {
        setSectionsClickable(true);
        setHighlightSections(false);
        // The names of indices are long.
        setDefaultAlignment(
            Qt::Alignment::fromInt(int{Qt::AlignLeft} | int{Qt::AlignVCenter} | int{Qt::TextWordWrap}));
        setFixedHeight(sizeHint().height());
    }

    QSize sizeHint() const override { return {0, kLinesOfHeader * fontMetrics().lineSpacing() + kSmallGap}; }
};

QTableView* view(StationModel& model, QWidget& parent, const QString& name, const QString& accessible)
{
    auto* const made = new QTableView(&parent);
    made->setHorizontalHeader(new LowHead(made));
    made->setModel(&model);
    nameWidget(*made, name, accessible, {});
    made->verticalHeader()->hide();
    made->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    made->verticalHeader()->setDefaultSectionSize(made->fontMetrics().height() + kSmallGap);
    made->setWordWrap(false);
    made->setEditTriggers(QAbstractItemView::NoEditTriggers);
    made->setSelectionBehavior(QAbstractItemView::SelectItems);
    made->setSelectionMode(QAbstractItemView::ContiguousSelection);
    made->setTabKeyNavigation(false);
    made->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    made->setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    // Bars of one height in both, so that their rows stand side by side.
    made->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    made->setContextMenuPolicy(Qt::CustomContextMenu);
    return made;
}

} // namespace

FrozenTable::FrozenTable(StationModel& model, QWidget* parent) : QWidget(parent), m_model(model)
{
    m_left = view(model, *this, QStringLiteral("Flex_Frozen"), QStringLiteral("Line, time and station"));
    m_right = view(model, *this, QStringLiteral("Flex_Station"), QStringLiteral("Results"));
    m_left->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_right->setSelectionModel(m_left->selectionModel());
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_left);
    layout->addWidget(m_right, 1);
    connect(m_left->verticalScrollBar(), &QScrollBar::valueChanged, m_right->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(m_right->verticalScrollBar(), &QScrollBar::valueChanged, m_left->verticalScrollBar(),
            &QScrollBar::setValue);
    connect(m_left->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& now) { emit currentChanged(now); });
    for (QTableView* const each : {m_left, m_right}) {
        // A head that follows the selection would ask each cell of a chosen column whether it is chosen.
        each->horizontalHeader()->setSelectionModel(new QItemSelectionModel(&model, each));
        each->setItemDelegate(new SignedFigures(m_coloured, m_quiet, each));
        connect(each->horizontalHeader(), &QHeaderView::sectionClicked, this, &FrozenTable::sortWanted);
        connect(each, &QWidget::customContextMenuRequested, this,
                [this, each](const QPoint& at) { emit menuWanted(each->viewport()->mapToGlobal(at)); });
    }
    connect(m_left->horizontalHeader(), &QHeaderView::sectionResized, this, [this] { fitFrozen(); });
    setFocusProxy(m_right);
}

void FrozenTable::fitColumns()
{
    using Kind = StationModel::Column::Kind;
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column < m_model.columnCount(); ++column) {
        const bool frozen = column < m_model.frozenColumns();
        m_left->setColumnHidden(column, !frozen);
        m_right->setColumnHidden(column, frozen);
        int characters = kCharactersOfText;
        switch (m_model.columns()[static_cast<std::size_t>(column)].kind) {
        case Kind::Row:
            characters = kCharactersOfLine;
            break;
        case Kind::Reading:
            characters = kCharactersOfReading;
            break;
        case Kind::Figure:
            characters = kCharactersOfFigure;
            break;
        default:
            break;
        }
        (frozen ? m_left : m_right)->setColumnWidth(column, characters * character + 2 * kSmallGap);
    }
    fitFrozen();
}

void FrozenTable::fitFrozen()
{
    int width = 2 * m_left->frameWidth();
    for (int column = 0; column < m_model.frozenColumns(); ++column)
        width += m_left->columnWidth(column);
    m_left->setFixedWidth(
        std::min(width, std::max(this->width() / 2, fontMetrics().averageCharWidth() * 40)));
}

void FrozenTable::showSorted(int column, bool descending)
{
    for (QTableView* const each : {m_left, m_right}) {
        each->horizontalHeader()->setSortIndicatorShown(column >= 0);
        each->horizontalHeader()->setSortIndicator(column,
                                                   descending ? Qt::DescendingOrder : Qt::AscendingOrder);
    }
}

void FrozenTable::setColoured(bool coloured)
{
    m_coloured = coloured;
    m_right->viewport()->update();
}

void FrozenTable::setQuiet(bool quiet)
{
    m_quiet = quiet;
    m_left->viewport()->update();
    m_right->viewport()->update();
}

QModelIndex FrozenTable::current() const
{
    return m_left->selectionModel()->currentIndex();
}

void FrozenTable::stand(int row, int column)
{
    if (row >= m_model.rowCount() || column >= m_model.columnCount())
        return;
    QTableView* const where = column < m_model.frozenColumns() ? m_left : m_right;
    where->setCurrentIndex(m_model.index(row, column));
}

} // namespace comfortics::ui
