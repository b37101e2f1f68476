// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/grid_view.h"

#include "controls/grid_scroll.h"
#include "ui/grid_model.h"
#include "ui/keys.h"
#include "ui/text.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <optional>

namespace comfortics::ui {

using controls::Grid;
using controls::GridChange;
using controls::MouseButton;

namespace {

constexpr int kCellPadding = 4;
constexpr int kHeaderMargin = 6; // beside a header's text, and room for the style's own
constexpr double kTwipsPerInch = 1440;

std::optional<MouseButton> formButton(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    default:
        return std::nullopt;
    }
}

std::size_t place(int number)
{
    return static_cast<std::size_t>(number);
}

} // namespace

GridView::GridView(Grid& grid, QWidget* parent)
    : QTableView(parent), m_grid(grid), m_model(new GridModel(grid, this))
{
    setModel(m_model);
    setSelectionMode(ContiguousSelection);
    setEditTriggers(NoEditTriggers);
    setAutoScroll(false); // only keys and dragging scroll along
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // so that the columns keep their width
    setAlternatingRowColors(true);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->viewport()->installEventFilter(this);

    measure();
    m_grid.watch([this](const GridChange& change) { repeat(change); });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int row) {
        const QScopedValueRollback telling(m_telling, true);
        m_grid.setTopRow(shownRow(row));
    });
    repeatLayout();
    repeatSelection();
    repeatScroll();
}

GridView::~GridView()
{
    m_grid.watch({});
}

int GridView::pixels(int twips) const
{
    return static_cast<int>(std::lround(twips * m_pixelsPerTwip));
}

int GridView::twips(int pixels) const
{
    return static_cast<int>(std::lround(pixels / m_pixelsPerTwip));
}

// A row of the grid's height has room for a line in the program's size of letters.
void GridView::measure()
{
    const double points = QApplication::font().pointSizeF();
    m_model->setLeastPointSize(points);
    const int line = QFontMetrics(m_model->font(*m_grid.font()), this).height() + 2 * kCellPadding;
    m_pixelsPerTwip =
        std::max(logicalDpiY() / kTwipsPerInch, static_cast<double>(line) / Grid::kDefaultRowHeight);
}

void GridView::repeat(const GridChange& change)
{
    m_model->repeat(change);
    if (m_passes && (change.structure || change.cells))
        hideRows();
    if (change.structure || change.layout)
        repeatLayout();
    if (change.structure || change.selection)
        repeatSelection();
    if (change.structure || change.scroll)
        repeatScroll();
    if (m_moved)
        m_moved(); // what stands in the current cell may be new
}

void GridView::repeatLayout()
{
    // Rows with a height of their own are not shown as such.
    verticalHeader()->setMinimumSectionSize(1);
    verticalHeader()->setDefaultSectionSize(pixels(std::max(Grid::kDefaultRowHeight, m_grid.rowHeightMin())));
    horizontalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setFixedHeight(m_grid.fixedRows() > 0 ? pixels(m_grid.rowHeight(0)) : 0);
    for (std::size_t col = 0; col < m_grid.cols(); ++col)
        horizontalHeader()->resizeSection(static_cast<int>(col), pixels(m_grid.colWidth(col)));
    if (m_wrapsHeaders)
        fitHeaderHeight();
    viewport()->update();
}

void GridView::fitHeaderHeight()
{
    QHeaderView& header = *horizontalHeader();
    const QFontMetrics metrics(m_model->font(*m_grid.font()), this);
    int height = header.height();
    for (int col = 0; col < m_model->columnCount(); ++col) {
        const QRect room(0, 0, header.sectionSize(col) - 2 * kHeaderMargin, 0);
        const QString text = m_model->headerData(col, Qt::Horizontal, Qt::DisplayRole).toString();
        height =
            std::max(height, metrics.boundingRect(room, Qt::TextWordWrap, text).height() + 2 * kCellPadding);
    }
    header.setFixedHeight(height);
}

void GridView::showRowNumbers()
{
    verticalHeader()->show();
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    verticalHeader()->setHighlightSections(false);
}

void GridView::wrapHeaders()
{
    m_wrapsHeaders = true;
    m_model->wrapHeaders();
    horizontalHeader()->setTextElideMode(Qt::ElideNone);
    repeatLayout();
}

void GridView::showBeside(const QString& heading, std::size_t ofCol, double share,
                          std::function<QString(std::size_t)> text)
{
    m_besideOf = ofCol;
    m_besideShare = share;
    m_model->showBeside(heading, std::move(text));
    horizontalHeader()->setStretchLastSection(true);
    repeatLayout();
    repeatSelection();
    tellSize();
}

std::size_t GridView::gridCol(const QModelIndex& index) const
{
    return m_model->isBeside(index.column()) ? m_besideOf : place(index.column());
}

void GridView::setEmptyHint(const QString& hint)
{
    m_emptyHint = hint;
    setAccessibleDescription(hint);
}

void GridView::setQuiet(bool quiet)
{
    m_model->setQuiet(quiet);
    viewport()->update();
}

bool GridView::isEmpty() const
{
    if (m_model->rowCount() > 1)
        return false;
    for (int col = 0; col < m_model->columnCount(); ++col)
        if (!m_model->index(0, col).data().toString().isEmpty())
            return false;
    return true;
}

void GridView::paintEvent(QPaintEvent* event)
{
    QTableView::paintEvent(event);
    if (m_emptyHint.isEmpty() || !isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect(), Qt::AlignCenter | Qt::TextWordWrap, m_emptyHint);
}

void GridView::repeatSelection()
{
    const GridChange::Range range = m_grid.selection();
    const std::size_t fixed = m_grid.fixedRows();
    if (range.lastRow < fixed) {
        selectionModel()->clear();
        return;
    }
    const auto body = [fixed](std::size_t row) { return static_cast<int>(std::max(row, fixed) - fixed); };
    const QItemSelection selected(m_model->index(body(range.firstRow), static_cast<int>(range.firstCol)),
                                  m_model->index(body(range.lastRow), static_cast<int>(range.lastCol)));
    selectionModel()->select(selected, QItemSelectionModel::ClearAndSelect);
    selectionModel()->setCurrentIndex(
        m_model->index(body(m_grid.rowSel()), static_cast<int>(m_grid.colSel())),
        QItemSelectionModel::NoUpdate);
}

void GridView::repeatScroll()
{
    if (!m_telling)
        verticalScrollBar()->setValue(scrollPlace(m_grid.topRow()));
}

void GridView::showOnly(std::function<bool(std::size_t)> passes)
{
    m_passes = std::move(passes);
    hideRows();
    repeatScroll();
}

void GridView::hideRows()
{
    for (int row = 0; row < m_model->rowCount(); ++row) {
        const bool hide = m_passes && !m_passes(m_model->gridRow(row));
        if (isRowHidden(row) != hide)
            setRowHidden(row, hide);
    }
}

// The scroll bar counts the rows that are not hidden.
int GridView::scrollPlace(std::size_t gridRow) const
{
    const int row = static_cast<int>(gridRow - m_grid.fixedRows());
    if (!m_passes)
        return row;
    int shown = 0;
    for (int above = 0; above < row; ++above)
        shown += isRowHidden(above) ? 0 : 1;
    return shown;
}

std::size_t GridView::shownRow(int scrollPlace) const
{
    int row = scrollPlace;
    if (m_passes)
        for (row = 0; row + 1 < m_model->rowCount() && (isRowHidden(row) || scrollPlace > 0); ++row)
            scrollPlace -= isRowHidden(row) ? 0 : 1;
    return m_model->gridRow(row);
}

void GridView::stand(std::size_t gridRow)
{
    m_grid.select(gridRow, m_grid.col(), gridRow, m_grid.colSel());
    const QModelIndex index = m_model->index(static_cast<int>(gridRow - m_grid.fixedRows()), 0);
    const QRect rectangle = visualRect(index);
    if (rectangle.top() < 0 || rectangle.bottom() >= viewport()->height())
        scrollTo(index, PositionAtCenter);
}

void GridView::tellSize()
{
    const int width = twips(static_cast<int>(viewport()->width() * (1 - m_besideShare)));
    // The form knows of one header row, however high it stands here.
    const int height = twips(viewport()->height()) + (m_grid.fixedRows() > 0 ? m_grid.rowHeight(0) : 0);
    if (m_resized)
        m_resized(width, height);
    else
        m_grid.setSize(width, height);
}

void GridView::resizeEvent(QResizeEvent* event)
{
    QTableView::resizeEvent(event);
    tellSize();
}

void GridView::changeEvent(QEvent* event)
{
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        measure();
        repeatLayout();
        tellSize();
    }
}

void GridView::mousePressEvent(QMouseEvent* event)
{
    const auto button = formButton(event->button());
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!button)
        return;
    if (index.isValid())
        m_grid.mouseDown(*button, m_model->gridRow(index.row()), gridCol(index),
                         event->modifiers().testFlag(Qt::ShiftModifier));
    else if (button == MouseButton::Right) // below the last row
        m_grid.mouseDown(*button, m_grid.rows() - 1, m_grid.cols() - 1);
}

void GridView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QRect inside = viewport()->rect();
    const QModelIndex index = indexAt({std::clamp(position.x(), inside.left(), inside.right()),
                                       std::clamp(position.y(), inside.top(), inside.bottom())});
    if (!index.isValid())
        return;
    if (event->buttons().testFlag(Qt::LeftButton)) {
        m_grid.drag(m_model->gridRow(index.row()), gridCol(index));
        if (!inside.contains(position)) // pulls the hidden rows in
            scrollTo(index.siblingAtRow(
                std::clamp(index.row() + (position.y() < 0 ? -1 : 1), 0, m_model->rowCount() - 1)));
    } else {
        m_grid.moveMouse(m_model->gridRow(index.row()), gridCol(index));
    }
}

void GridView::mouseReleaseEvent(QMouseEvent* /*event*/)
{
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

bool GridView::headerPress(QMouseEvent& event)
{
    const auto button = formButton(event.button());
    const int section = horizontalHeader()->logicalIndexAt(event.position().toPoint());
    if (!button || section < 0 || m_model->isBeside(section))
        return false;
    setFocus(Qt::MouseFocusReason);
    m_grid.mouseDown(*button, 0, place(section), event.modifiers().testFlag(Qt::ShiftModifier));
    return true;
}

bool GridView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == horizontalHeader()->viewport()) {
        if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
            if (headerPress(*static_cast<QMouseEvent*>(event)))
                return true;
        } else if (event->type() == QEvent::Wheel) {
            wheelEvent(static_cast<QWheelEvent*>(event));
            return true;
        }
    }
    return QTableView::eventFilter(watched, event);
}

void GridView::moveTo(const QModelIndex& index, bool extend)
{
    if (!index.isValid())
        return;
    const std::size_t row = m_model->gridRow(index.row());
    const std::size_t col = std::min(place(index.column()), m_grid.cols() - 1); // the keys stay in the grid
    if (extend)
        m_grid.select(m_grid.row(), m_grid.col(), row, col);
    else
        m_grid.select(row, col, row, col);
    scrollTo(index);
}

void GridView::keyPressEvent(QKeyEvent* event)
{
    if (const auto press = keyPress(*event))
        m_grid.press(*press);

    const auto action = [event]() -> std::optional<CursorAction> {
        switch (event->key()) {
        case Qt::Key_Up:
            return MoveUp;
        case Qt::Key_Down:
            return MoveDown;
        case Qt::Key_Left:
            return MoveLeft;
        case Qt::Key_Right:
            return MoveRight;
        case Qt::Key_Home:
            return MoveHome;
        case Qt::Key_End:
            return MoveEnd;
        case Qt::Key_PageUp:
            return MovePageUp;
        case Qt::Key_PageDown:
            return MovePageDown;
        default:
            return std::nullopt;
        }
    }();
    if (action)
        moveTo(moveCursor(*action, event->modifiers()), event->modifiers().testFlag(Qt::ShiftModifier));
    else if (event->matches(QKeySequence::SelectAll))
        selectAll();
    else
        event->ignore();
}

void GridView::selectAll()
{
    if (m_grid.rows() > m_grid.fixedRows())
        m_grid.select(m_grid.fixedRows(), 0, m_grid.rows() - 1, m_grid.cols() - 1);
}

// A page for each notch, whatever its size; the small turns of a trackpad add up to one.
void GridView::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const int turn = event->angleDelta().y();
    if (turn == 0) {
        QTableView::wheelEvent(event); // sideways
        return;
    }
    if ((turn > 0) != (m_turned > 0))
        m_turned = 0;
    m_turned += turn;
    if (std::abs(m_turned) < QWheelEvent::DefaultDeltasPerStep)
        return;
    const int rotation = m_turned;
    m_turned = 0;
    if (m_passes) { // the grid's pages count the hidden rows
        verticalScrollBar()->triggerAction(rotation > 0 ? QScrollBar::SliderPageStepSub
                                                        : QScrollBar::SliderPageStepAdd);
    } else if (m_wheel) {
        const QPoint point = event->position().toPoint();
        m_wheel(static_cast<int>(event->modifiers()), rotation, twips(point.x()), twips(point.y()));
    } else {
        controls::ScrollFlexGrid(m_grid, rotation);
    }
}

bool GridView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        showNote(help->pos(), help->globalPos());
        return true;
    }
    return QTableView::viewportEvent(event);
}

// The note of a cell, or its text where that is cut.
void GridView::showNote(const QPoint& position, const QPoint& onScreen)
{
    const QModelIndex index = indexAt(position);
    QString note;
    if (index.isValid()) {
        note = tip(toQt(m_grid.note(m_model->gridRow(index.row()), gridCol(index))));
        if (note.isEmpty() && sizeHintForIndex(index).width() > columnWidth(index.column()))
            note = index.data().toString();
    }
    if (note.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(onScreen, note, viewport(), visualRect(index));
}

} // namespace comfortics::ui
