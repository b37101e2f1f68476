// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/cards_view.h"

#include "ui/bindings.h"
#include "ui/chip.h"
#include "ui/colors.h"
#include "ui/star.h"
#include "ui/strip.h"
#include "ui/text.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace comfortics::ui {

using workspace::Figure;
using workspace::Follower;

namespace {

constexpr int kPad = 8;
constexpr int kMargin = 3; // around a card
constexpr int kBetween = 4;
constexpr int kNameLines = 2;
constexpr int kWarningLines = 1;
// A line above the cards must not make the window scroll; they take what height there is.
constexpr int kCardsAtLeast = 3;
// Of a card's width: where there is room for another card beside it, and where there is none.
constexpr int kLikedInCharacters = 46;
constexpr int kLeastInCharacters = 30;
constexpr double kValueScale = 1.35;
constexpr double kStripShare = 0.45; // of a card's width
constexpr int kStripHeight = 14;
constexpr double kCorner = 6;

QString unitOf(const workspace::Item& item)
{
    return toQt(item.unit());
}

/// A figure of a model that is one of several words.
bool isWord(const workspace::Item& item)
{
    return item.model() != nullptr && !item.model()->results[item.result()].choices.empty();
}

QFont valueFont(const QFont& font)
{
    QFont result = font;
    result.setBold(true);
    result.setPointSizeF(font.pointSizeF() * kValueScale);
    return result;
}

int cardHeight(const QFont& font)
{
    const QFontMetrics metrics(font);
    return 2 * (kMargin + kPad) + (kNameLines + kWarningLines) * metrics.lineSpacing() +
           QFontMetrics(valueFont(font)).height() + chipHeight(metrics) + 3 * kBetween;
}

int starSize(const QFont& font)
{
    return QFontMetrics(font).height();
}

QRect cardRect(const QRect& cell)
{
    return cell.adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

QRect starRect(const QRect& cell, const QFont& font)
{
    const QRect card = cardRect(cell);
    const int size = starSize(font);
    return {card.right() - kPad - size + 1, card.top() + kPad, size, size};
}

// Breaks a text into lines; the last one is cut where there is more.
void drawLines(QPainter& painter, const QRect& room, const QString& text, int lines)
{
    const QFontMetrics metrics(painter.font(), painter.device());
    QTextLayout layout(text, painter.font(), painter.device());
    layout.beginLayout();
    for (int line = 0; line < lines; ++line) {
        QTextLine one = layout.createLine();
        if (!one.isValid())
            break;
        one.setLineWidth(room.width());
        QString part = text.mid(one.textStart(), one.textLength());
        if (line + 1 == lines)
            part = metrics.elidedText(text.mid(one.textStart()), Qt::ElideRight, room.width());
        painter.drawText(QRect(room.left(), room.top() + line * metrics.lineSpacing(), room.width(),
                               metrics.lineSpacing()),
                         Qt::AlignLeft | Qt::AlignVCenter, part.trimmed());
    }
    layout.endLayout();
}

void drawStar(QPainter& painter, const QRectF& room, const QColor& color, bool filled)
{
    QPolygonF star;
    for (int i = 0; i < 10; ++i) {
        const double radius = room.width() / 2 * (i % 2 == 0 ? 0.95 : 0.42);
        const double angle = i * std::numbers::pi / 5;
        star << room.center() + QPointF(std::sin(angle) * radius, -std::cos(angle) * radius);
    }
    painter.setPen(QPen(color, 1.2));
    painter.setBrush(filled ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawPolygon(star);
}

class CardPainter : public QStyledItemDelegate {
public:
    CardPainter(const CardsModel& model, QListView& view)
        : QStyledItemDelegate(&view), m_model(model), m_view(view)
    {
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& /*index*/) const override
    {
        return m_view.gridSize();
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& item) const override
    {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        paintGround(*painter, option);
        const workspace::Item& shown = m_model.itemAt(item.row());
        const workspace::Workspace& workspace = m_model.workspace();
        const QPalette palette = m_view.palette();
        const QFont font = m_view.font();
        const QRect card = cardRect(option.rect).adjusted(kPad, kPad, -kPad, -kPad);
        const QFontMetrics metrics(font);

        painter->setFont(font);
        painter->setPen(palette.color(QPalette::Text));
        const QRect name(card.left(), card.top(), card.width() - starSize(font) - kBetween,
                         kNameLines * metrics.lineSpacing());
        drawLines(*painter, name, toQt(shown.name()), kNameLines);
        const bool starred = workspace.sets.isStarred(shown.id());
        drawStar(*painter, starRect(option.rect, font),
                 palette.color(starred ? QPalette::Text : QPalette::PlaceholderText), starred);

        const QRect rest(card.left(), name.bottom() + 1 + kBetween, card.width(),
                         card.bottom() - name.bottom() - kBetween);
        paintFigure(*painter, rest, shown, palette);
        painter->restore();
    }

private:
    void paintGround(QPainter& painter, const QStyleOptionViewItem& option) const
    {
        const QPalette palette = m_view.palette();
        const bool current = option.state.testFlag(QStyle::State_HasFocus);
        QColor edge = palette.color(QPalette::Text);
        edge.setAlphaF(option.state.testFlag(QStyle::State_MouseOver) ? 0.5F : 0.2F);
        painter.setPen(current ? QPen(palette.color(QPalette::Highlight), 2) : QPen(edge, 1));
        painter.setBrush(palette.color(QPalette::Base));
        painter.drawRoundedRect(QRectF(cardRect(option.rect)).adjusted(0.5, 0.5, -0.5, -0.5), kCorner,
                                kCorner);
    }

    void paintFigure(QPainter& painter, const QRect& room, const workspace::Item& item,
                     const QPalette& palette) const
    {
        const workspace::Workspace& workspace = m_model.workspace();
        const Follower& follower = workspace.follower;
        const workspace::Situation* const situation = follower.situation();
        const bool quiet = follower.standing() == Follower::Standing::Earlier;
        const QFont font = painter.font();
        const QFontMetrics metrics(font);
        if (follower.standing() == Follower::Standing::Calculating || situation == nullptr) {
            painter.setPen(palette.color(QPalette::PlaceholderText));
            drawLines(painter, room, toQt(follower.note()), 1);
            return;
        }
        const workspace::ItemFigure at = m_model.at(item);
        const Figure& figure = at.figure;
        if (figure.text.empty()) {
            painter.setPen(palette.color(QPalette::PlaceholderText));
            if (!situation->problem.empty() && at.wantedField.empty()) { // told once, above all cards
                painter.setFont(valueFont(font));
                drawLines(painter, room, QStringLiteral("–"), 1);
                return;
            }
            drawLines(painter, room, toQt(figure.reason), std::max(1, room.height() / metrics.lineSpacing()));
            return;
        }
        const QFont large = valueFont(font);
        const QFontMetrics largeMetrics(large);
        const int height = largeMetrics.height();
        const QString value = toQt(figure.text);
        painter.setFont(large);
        const bool outside = !figure.doubt.empty() && item.model() != nullptr;
        painter.setPen(palette.color(quiet || outside ? QPalette::PlaceholderText : QPalette::Text));
        painter.drawText(QRect(room.left(), room.top(), room.width(), height),
                         Qt::AlignLeft | Qt::AlignBottom, value);
        painter.setFont(font);
        const int afterValue = room.left() + largeMetrics.horizontalAdvance(value) + kBetween;
        const int stripLeft = room.right() + 1 - static_cast<int>(room.width() * kStripShare);
        const auto strip = workspace::stripOf(item, at, *situation, workspace.limits());
        const int unitWidth = (strip ? stripLeft - kBetween : room.right() + 1) - afterValue;
        const int lift = largeMetrics.descent() - metrics.descent(); // on the line of the value
        painter.drawText(QRect(afterValue, room.top(), unitWidth, height - lift),
                         Qt::AlignLeft | Qt::AlignBottom,
                         metrics.elidedText(unitOf(item), Qt::ElideRight, unitWidth));
        if (strip)
            paintStrip(painter,
                       QRectF(stripLeft, room.top() + (height - kStripHeight) / 2.0,
                              room.right() + 1 - stripLeft, kStripHeight),
                       *strip, palette, quiet || outside);

        const QRect below(room.left(), room.top() + height + kBetween, room.width(), chipHeight(metrics));
        if (const std::string warning(item.warningInShort()); !warning.empty()) {
            painter.setPen(palette.color(QPalette::PlaceholderText));
            drawLines(painter,
                      QRect(room.left(), below.bottom() + 1 + kBetween, room.width(), metrics.lineSpacing()),
                      QStringLiteral("Mind: ") + toQt(warning), kWarningLines);
            painter.setPen(palette.color(quiet ? QPalette::PlaceholderText : QPalette::Text));
        }
        if (!figure.doubt.empty()) {
            const int size = metrics.height();
            m_view.style()
                ->standardIcon(QStyle::SP_MessageBoxWarning)
                .paint(&painter, below.left(), below.top() + 2, size, size);
            drawLines(painter, below.adjusted(size + kBetween, 2, 0, 0), QStringLiteral("Outside its limits"),
                      1);
        } else if (figure.meaning) {
            paintChip(painter, below, Qt::AlignLeft | Qt::AlignVCenter, *figure.meaning, palette, quiet);
        } else if (item.scaleIndex() == 0 && !isWord(item)) {
            painter.setPen(palette.color(QPalette::PlaceholderText));
            drawLines(painter, below.adjusted(0, 2, 0, 0), QStringLiteral("No published classes"), 1);
        }
    }

    const CardsModel& m_model;
    QListView& m_view;
};

} // namespace

CardsModel::CardsModel(workspace::Workspace& workspace, QObject* parent)
    : QAbstractListModel(parent), m_workspace(workspace)
{
    repeatSet();
}

void CardsModel::repeatSet()
{
    beginResetModel();
    m_items = m_workspace.sets.shownItems();
    endResetModel();
}

void CardsModel::repeatFigures()
{
    if (!m_items.empty())
        emit dataChanged(index(0), index(static_cast<int>(m_items.size()) - 1));
}

int CardsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant CardsModel::data(const QModelIndex& item, int role) const
{
    if (!item.isValid())
        return {};
    const workspace::Item& shown = itemAt(item.row());
    switch (role) {
    case Qt::DisplayRole:
        return toQt(shown.name());
    case Qt::AccessibleTextRole:
        return spoken(shown);
    case Qt::ToolTipRole:
        return tip(hint(shown));
    case Qt::AccessibleDescriptionRole:
        return hint(shown);
    default:
        return {};
    }
}

workspace::ItemFigure CardsModel::at(const workspace::Item& item) const
{
    return workspace::itemFigure(item, *m_workspace.follower.situation(), m_workspace.person.texts());
}

// What a card says at a glance: "Humidex (Masterson; 1979): 41.9 °C, great discomfort +2".
QString CardsModel::spoken(const workspace::Item& item) const
{
    const Follower& follower = m_workspace.follower;
    const QString name = toQt(item.name()) + QStringLiteral(": ");
    if (follower.standing() == Follower::Standing::Calculating || follower.situation() == nullptr)
        return name + toQt(follower.note());
    const Figure figure = at(item).figure;
    if (figure.text.empty())
        return name + toQt(figure.reason);
    QString text = name + toQt(figure.text);
    if (const QString unit = unitOf(item); !unit.isEmpty())
        text += QLatin1Char(' ') + unit;
    if (!figure.doubt.empty())
        text += QStringLiteral(", outside its limits");
    else if (figure.meaning)
        text += QStringLiteral(", ") + chipText(*figure.meaning);
    if (const std::string_view warning = item.warningInShort(); !warning.empty())
        text += QStringLiteral(". Mind: ") + toQt(std::string(warning));
    if (follower.standing() == Follower::Standing::Earlier)
        text += QStringLiteral(", of earlier readings");
    return text;
}

QString CardsModel::hint(const workspace::Item& item) const
{
    const Follower& follower = m_workspace.follower;
    QString text = toQt(item.name());
    const auto add = [&text](const std::string& more) {
        if (!more.empty())
            text += QLatin1Char('\n') + toQt(more);
    };
    add(std::string(item.description()));
    for (const std::string_view warning : item.warnings())
        add("Mind: " + std::string(warning) + ".");
    if (follower.standing() == Follower::Standing::Calculating || follower.situation() == nullptr) {
        add(follower.note());
        return text;
    }
    const workspace::ItemFigure there = at(item);
    const Figure& figure = there.figure;
    add(figure.reason);
    if (!there.wantedField.empty())
        add("F2 leads to its field.");
    add(figure.doubt);
    add(there.assumed);
    if (figure.meaning)
        add(catalogue::meaningNote(item.scaleIndex(), *figure.meaning));
    return text;
}

CardsView::CardsView(workspace::Workspace& workspace, QWidget* parent)
    : QListView(parent), m_workspace(workspace), m_model(new CardsModel(workspace, this))
{
    setModel(m_model);
    setItemDelegate(new CardPainter(*m_model, *this));
    setFlow(LeftToRight);
    setWrapping(true);
    setResizeMode(Adjust);
    setUniformItemSizes(true);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // so that cards keep their width
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    setFrameShape(NoFrame);
    viewport()->setAutoFillBackground(false);
    arrange();
    addStarKey(*this, workspace, [this] { return idAt(currentIndex()); });
    listen(*this, workspace.sets.changed, [this] { repeatSet(); });
    listen(*this, workspace.follower.changed, [this] { m_model->repeatFigures(); });
    listen(*this, workspace.person.changed, [this] { m_model->repeatFigures(); });
}

// Whoever works with the keyboard stays where he was, or near.
void CardsView::repeatSet()
{
    const std::string id = idAt(currentIndex());
    const int row = currentIndex().row();
    m_model->repeatSet();
    if (row < 0 || m_model->rowCount() == 0)
        return;
    int to = std::min(row, m_model->rowCount() - 1);
    for (int i = 0; i < m_model->rowCount(); ++i)
        if (idAt(m_model->index(i)) == id)
            to = i;
    setCurrentIndex(m_model->index(to));
}

std::string CardsView::idAt(const QModelIndex& index) const
{
    return index.isValid() && index.row() < m_model->rowCount() ? m_model->itemAt(index.row()).id()
                                                                : std::string();
}

int CardsView::widthFor(int characters) const
{
    return fontMetrics().averageCharWidth() * characters + verticalScrollBar()->sizeHint().width();
}

QSize CardsView::minimumSizeHint() const
{
    return {widthFor(kLeastInCharacters), 2 * cardHeight(font())};
}

QSize CardsView::sizeHint() const
{
    return {widthFor(kLikedInCharacters), kCardsAtLeast * cardHeight(font())};
}

void CardsView::arrange()
{
    const int room = viewport()->width() - 1;
    const int columns = std::max(1, room / (fontMetrics().averageCharWidth() * kLikedInCharacters));
    setGridSize({room / columns, cardHeight(font())});
}

void CardsView::resizeEvent(QResizeEvent* event)
{
    arrange();
    QListView::resizeEvent(event);
}

void CardsView::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        arrange();
}

void CardsView::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    if (!currentIndex().isValid() && m_model->rowCount() > 0)
        setCurrentIndex(m_model->index(0)); // the keys begin somewhere in sight
}

void CardsView::keyPressEvent(QKeyEvent* event)
{
    const bool alt = event->modifiers() == Qt::AltModifier;
    const bool sheet = event->key() == Qt::Key_I && event->modifiers() == Qt::ControlModifier;
    if (sheet || event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        open(currentIndex());
    else if (event->key() == Qt::Key_F2)
        mend(currentIndex());
    else if (event->matches(QKeySequence::Copy))
        copyValue();
    else if (alt && event->key() == Qt::Key_Up)
        move(-1);
    else if (alt && event->key() == Qt::Key_Down)
        move(1);
    else
        QListView::keyPressEvent(event);
}

void CardsView::mouseReleaseEvent(QMouseEvent* event)
{
    QListView::mouseReleaseEvent(event);
    const QPoint position = event->position().toPoint();
    const QModelIndex index = indexAt(position);
    if (event->button() != Qt::LeftButton || !index.isValid() || index != currentIndex())
        return;
    if (starRect(visualRect(index), font()).adjusted(-kPad, -kPad, kPad, kPad).contains(position))
        turnStar(m_workspace, idAt(index));
    else
        open(index);
}

void CardsView::contextMenuEvent(QContextMenuEvent* event)
{
    const QModelIndex index =
        event->reason() == QContextMenuEvent::Mouse ? indexAt(event->pos()) : currentIndex();
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    const std::string id = idAt(index);
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("Open its sheet\tEnter"), this, [this, index] { open(index); });
    if (!wantedField(index).empty())
        menu->addAction(QStringLiteral("Go to the field that is missing\tF2"), this,
                        [this, index] { mend(index); });
    addStarEntry(*menu, m_workspace, id);
    menu->addAction(QStringLiteral("Copy the value\tCtrl+C"), this, [this] { copyValue(); });
    if (m_workspace.sets.shown().own) {
        menu->addSeparator();
        menu->addAction(QStringLiteral("Move up\tAlt+Up"), this, [this] { move(-1); });
        menu->addAction(QStringLiteral("Move down\tAlt+Down"), this, [this] { move(1); });
    }
    menu->popup(event->reason() == QContextMenuEvent::Mouse
                    ? event->globalPos()
                    : viewport()->mapToGlobal(visualRect(index).center()));
}

void CardsView::open(const QModelIndex& index)
{
    if (const std::string id = idAt(index); !id.empty())
        m_workspace.lookAt(id);
}

std::string CardsView::wantedField(const QModelIndex& index) const
{
    if (!index.isValid() || m_workspace.follower.situation() == nullptr)
        return {};
    return m_model->at(m_model->itemAt(index.row())).wantedField;
}

void CardsView::mend(const QModelIndex& index)
{
    if (const std::string field = wantedField(index); !field.empty())
        m_workspace.person.lookAt(field);
}

void CardsView::move(int by)
{
    // By its place among all ids of the set: one that is not shown keeps its own.
    const int to = currentIndex().row() + by;
    if (!currentIndex().isValid() || to < 0 || to >= m_model->rowCount())
        return;
    const std::vector<std::string>& ids = m_workspace.sets.shown().ids;
    const auto neighbour = std::find(ids.begin(), ids.end(), idAt(m_model->index(to)));
    m_workspace.sets.moveShown(idAt(currentIndex()), static_cast<std::size_t>(neighbour - ids.begin()));
}

void CardsView::copyValue()
{
    const workspace::Situation* const situation = m_workspace.follower.situation();
    if (!currentIndex().isValid() || situation == nullptr)
        return;
    const std::string text = m_model->at(m_model->itemAt(currentIndex().row())).figure.text;
    if (!text.empty())
        QApplication::clipboard()->setText(toQt(text));
}

void CardsView::paintEvent(QPaintEvent* event)
{
    QListView::paintEvent(event);
    if (m_model->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(viewport()->rect().adjusted(kPad, kPad, -kPad, -kPad),
                     Qt::AlignCenter | Qt::TextWordWrap,
                     QStringLiteral("This set is empty.\nCtrl+B adds an index of the list or the results."));
}

} // namespace comfortics::ui
