// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/find_bar.h"

#include "catalogue/references.h"
#include "ui/bindings.h"
#include "ui/text.h"
#include "ui/widgets.h"

#include <QAction>
#include <QActionGroup>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QToolButton>
#include <QVBoxLayout>

#include <functional>
#include <utility>

namespace comfortics::ui {

namespace {

using catalogue::Family;
using catalogue::Filters;

constexpr Family kFamilies[] = {
    Family::ApparentTemperature, Family::HumidHeat,  Family::CoolingPower, Family::Cold,
    Family::ComfortVote,         Family::Physiology, Family::Radiation,    Family::Psychrometry,
};

struct Switch {
    const char* text;
    bool Filters::*filter;
};

constexpr Switch kSwitches[] = {
    {"With a value", &Filters::withValue},
    {"Ticked", &Filters::ticked},
    {"In °C", &Filters::inCelsius},
    {"With published classes", &Filters::withClasses},
};

QToolButton* arrow(Qt::ArrowType type, const QString& hint)
{
    auto* const button = new QToolButton;
    button->setArrowType(type);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus); // the keys do as much
    button->setAccessibleName(hint);
    button->setToolTip(hint);
    return button;
}

QString link(const std::string& text)
{
    const QString escaped = toQt(text).toHtmlEscaped();
    return QStringLiteral("<a href=\"%1\">%1</a>").arg(escaped);
}

} // namespace

FindBar::FindBar(workspace::Finding& finding, QWidget* parent) : QWidget(parent), m_finding(finding)
{
    m_line = searchLine(QStringLiteral("Find: WBGT, name, author, year, unit"));
    nameWidget(
        *m_line, QStringLiteral("txt_Find"), QStringLiteral("Find indices"),
        QStringLiteral("Finds indices by words of their name, number, abbreviation, author, year, id, "
                       "family or unit, in any order (Ctrl+Shift+F). Enter and F3 go to the next, with "
                       "Shift to the one before; Escape clears"));
    m_line->installEventFilter(this);
    connect(m_line, &QLineEdit::textChanged, this, [this](const QString& text) {
        m_finding.setQuery(fromQt(text));
        emit sought();
    });

    m_summary = new QLabel;
    m_summary->setObjectName(QStringLiteral("lbl_Found"));
    auto* const before = arrow(Qt::UpArrow, QStringLiteral("The one found before (Shift+F3)"));
    auto* const after = arrow(Qt::DownArrow, QStringLiteral("The next one found (F3)"));
    connect(before, &QToolButton::clicked, this, [this] { emit stepWanted(false); });
    connect(after, &QToolButton::clicked, this, [this] { emit stepWanted(true); });

    buildMenu();
    m_filter = new QToolButton;
    m_filter->setPopupMode(QToolButton::InstantPopup);
    m_filter->setMenu(m_menu);
    nameWidget(*m_filter, QStringLiteral("cmd_Filter"), QStringLiteral("Filter"),
               QStringLiteral("Shows only the indices of a kind"));
    m_filter->setFocusPolicy(Qt::StrongFocus);

    m_message = new QLabel;
    m_message->setObjectName(QStringLiteral("lbl_Find_Message"));
    m_message->setAccessibleName(QStringLiteral("What the search says"));
    m_message->setWordWrap(true);
    m_message->setTextFormat(Qt::RichText);
    m_message->setTextInteractionFlags(Qt::LinksAccessibleByMouse); // Enter and Escape do as much
    connect(m_message, &QLabel::linkActivated, this, [this](const QString& meant) {
        if (meant.isEmpty())
            m_finding.setFilters({});
        else
            m_line->setText(meant);
        begin();
    });

    auto* const row = new QHBoxLayout;
    row->setSpacing(kSmallGap);
    row->addWidget(m_line, 1);
    row->addWidget(m_summary);
    row->addWidget(before);
    row->addWidget(after);
    row->addWidget(m_filter);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kSmallGap);
    layout->addLayout(row);
    layout->addWidget(m_message);
    follow(*this, m_finding.changed, [this, before, after] {
        before->setEnabled(m_finding.active() && m_finding.count() > 0);
        after->setEnabled(before->isEnabled());
        show();
    });
}

void FindBar::buildMenu()
{
    m_menu = new QMenu(this);
    const auto add = [this](QMenu& menu, const QString& text, auto isSet,
                            std::function<void(Filters&)> turn) {
        QAction* const action = menu.addAction(text);
        action->setCheckable(true);
        connect(action, &QAction::triggered, this, [this, turn = std::move(turn)] {
            Filters filters = m_finding.filters();
            turn(filters);
            m_finding.setFilters(filters);
        });
        follow(*action, m_finding.changed,
               [this, action, isSet] { action->setChecked(isSet(m_finding.filters())); });
        return action;
    };
    for (const auto& [text, filter] : kSwitches)
        add(
            *m_menu, QString::fromUtf8(text),
            [filter = filter](const Filters& filters) { return filters.*filter; },
            [filter = filter](Filters& filters) { filters.*filter = !(filters.*filter); });
    QMenu* const families = m_menu->addMenu(QStringLiteral("Family"));
    auto* const group = new QActionGroup(families);
    const auto addFamily = [&](const QString& text, std::string_view family) {
        group->addAction(add(
            *families, text, [family](const Filters& filters) { return filters.family == family; },
            [family](Filters& filters) { filters.family = family; }));
    };
    addFamily(QStringLiteral("All"), {});
    for (const Family family : kFamilies)
        addFamily(toQt(familyName(family)), familyName(family));
}

void FindBar::setRemark(const QString& remark)
{
    m_remark = remark;
    show();
}

void FindBar::setFoundBesides(std::size_t count)
{
    m_besides = count;
    show();
}

std::vector<QWidget*> FindBar::tabOrder() const
{
    return {m_line, m_filter};
}

void FindBar::begin()
{
    m_line->setFocus(Qt::ShortcutFocusReason);
    m_line->selectAll();
}

void FindBar::beginOrStep(bool forward)
{
    if (m_finding.active())
        emit stepWanted(forward);
    else
        begin();
}

bool FindBar::clear()
{
    if (!m_finding.active() && m_line->text().isEmpty())
        return false;
    m_finding.clear();
    m_line->clear(); // blanks alone look for nothing
    return true;
}

QString FindBar::filterText() const
{
    const Filters& filters = m_finding.filters();
    QStringList parts;
    for (const auto& [text, filter] : kSwitches)
        if (filters.*filter)
            parts += QString::fromUtf8(text).replace(0, 1, QString::fromUtf8(text).left(1).toLower());
    if (!filters.family.empty())
        parts += toQt(filters.family);
    return parts.join(QStringLiteral(", "));
}

void FindBar::show()
{
    // Blanks around the words stay as they are typed.
    if (fromQt(m_line->text()) != m_finding.query())
        m_line->setText(toQt(m_finding.query()));
    m_summary->setText(toQt(m_finding.summary()));
    const QString filter = filterText();
    m_filter->setText(filter.isEmpty() ? QStringLiteral("Filter") : QStringLiteral("Filter ✓"));

    QString message;
    if (m_finding.hasWords() && m_finding.count() == 0 && m_besides > 0) {
        message = QStringLiteral("No index is found, but some among the models of standards.");
    } else if (m_finding.hasWords() && m_finding.count() == 0) {
        QStringList meant;
        for (const std::string& text : m_finding.didYouMean())
            meant += link(text);
        message = !meant.isEmpty() ? QStringLiteral("Nothing found. Did you mean %1? Enter takes the first.")
                                         .arg(meant.join(QStringLiteral(" or ")))
                                   : QStringLiteral("Nothing found.");
    }
    if (!filter.isEmpty()) {
        message += QStringLiteral("%1Only: %2 (<a href=\"\">show all</a>).")
                       .arg(message.isEmpty() ? QString() : QStringLiteral(" "), filter.toHtmlEscaped());
        if (!m_remark.isEmpty())
            message += QLatin1Char(' ') + m_remark.toHtmlEscaped();
    }
    m_message->setText(message);
    m_message->setVisible(!message.isEmpty());
}

bool FindBar::eventFilter(QObject* watched, QEvent* event)
{
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (watched != m_line || !isKey)
        return QWidget::eventFilter(watched, event);
    const auto* const key = static_cast<QKeyEvent*>(event);
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    switch (key->key()) {
    case Qt::Key_Escape: // the window's own, where there is nothing to clear
        if (isOverride && (m_finding.active() || !m_line->text().isEmpty())) {
            event->accept();
            return true;
        }
        return !isOverride && clear();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!isOverride && m_finding.count() == 0 && m_besides > 0)
            emit rowsWanted();
        else if (!isOverride && m_finding.count() == 0 && !m_finding.didYouMean().empty())
            m_line->setText(toQt(m_finding.didYouMean().front()));
        else if (!isOverride)
            emit stepWanted(!key->modifiers().testFlag(Qt::ShiftModifier));
        return !isOverride;
    case Qt::Key_Down:
    case Qt::Key_PageDown:
        if (!isOverride)
            emit rowsWanted();
        return !isOverride;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace comfortics::ui
