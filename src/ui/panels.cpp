// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/panels.h"

#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QEvent>
#include <QMenu>
#include <QScreen>
#include <QTabBar>
#include <QTimer>

#include <algorithm>
#include <stdexcept>

namespace comfortics::ui {

namespace {

constexpr int kStateVersion = 1; // of the arrangement that is kept

Qt::DockWidgetArea areaOf(PanelPlace place)
{
    return place == PanelPlace::Right ? Qt::RightDockWidgetArea : Qt::BottomDockWidgetArea;
}

QString objectNameOf(const QString& name)
{
    return QStringLiteral("panel_") + name;
}

} // namespace

Panels::Panels(QMainWindow& window, QMenu& menu, QAction* before)
    : QObject(&window), m_window(window), m_menu(menu), m_before(before)
{
    window.setDockNestingEnabled(true);
    window.setTabPosition(Qt::AllDockWidgetAreas, QTabWidget::North);
    window.setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
}

QDockWidget& Panels::add(const QString& name, const QString& title, QWidget* content, PanelPlace place,
                         bool open)
{
    auto* const dock = new QDockWidget(title, &m_window);
    dock->setObjectName(objectNameOf(name));
    dock->setWidget(content);
    m_panels.push_back({dock, place, open});
    put(m_panels.back());
    m_menu.insertAction(m_before, dock->toggleViewAction());
    dock->installEventFilter(this);
    connect(dock, &QDockWidget::visibilityChanged, this, &Panels::nameTabs);
    connect(dock, &QDockWidget::visibilityChanged, this, &Panels::changed);
    connect(dock->toggleViewAction(), &QAction::toggled, this, &Panels::likedWidthChanged);
    connect(dock, &QDockWidget::topLevelChanged, this, &Panels::likedWidthChanged);
    connect(dock, &QDockWidget::dockLocationChanged, this, &Panels::likedWidthChanged);
    connect(dock->toggleViewAction(), &QAction::triggered, dock, [this, dock](bool shown) {
        if (!shown)
            return;
        dock->raise(); // it may stand behind a tab
        giveRoom(*dock);
    });
    return *dock;
}

bool Panels::standsAtSide(QDockWidget& dock) const
{
    const Qt::DockWidgetArea area = m_window.dockWidgetArea(&dock);
    return !dock.isFloating() && (area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea);
}

int Panels::likedWidth() const
{
    int width = 0;
    for (const Panel& one : m_panels)
        if (!one.open && !one.dock->isHidden() && standsAtSide(*one.dock))
            width = std::max(width, one.dock->sizeHint().width());
    return width;
}

// A panel that is opened is as wide as it likes; the window grows for it as far as the screen goes, and what
// is beyond that the content gives. Widths exist only once the panel stands.
void Panels::giveRoom(QDockWidget& dock)
{
    QTimer::singleShot(0, &dock, [this, panel = &dock] {
        const int missing = panel->sizeHint().width() - panel->width();
        if (missing <= 0 || !panel->isVisible() || !standsAtSide(*panel))
            return;
        const QRect usable = m_window.screen()->availableGeometry();
        const int frame = m_window.frameGeometry().width() - m_window.width();
        const int width = std::min(m_window.width() + missing, usable.width() - frame);
        if (!m_window.isMaximized() && !m_window.isFullScreen() && width > m_window.width()) {
            m_window.resize(width, m_window.height());
            const int beyond = m_window.x() + width + frame - usable.x() - usable.width();
            if (beyond > 0)
                m_window.move(m_window.x() - beyond, m_window.y());
        }
        m_window.resizeDocks({panel}, {panel->sizeHint().width()}, Qt::Horizontal);
    });
}

// Behind the tab of the first of its place.
void Panels::put(const Panel& panel)
{
    panel.dock->setFloating(false);
    m_window.addDockWidget(areaOf(panel.place), panel.dock);
    const auto first = std::find_if(m_panels.begin(), m_panels.end(),
                                    [&panel](const Panel& other) { return other.place == panel.place; });
    if (first->dock != panel.dock)
        m_window.tabifyDockWidget(first->dock, panel.dock);
    panel.dock->setVisible(panel.open);
}

QDockWidget& Panels::panel(const QString& name) const
{
    const auto found = std::find_if(m_panels.begin(), m_panels.end(), [&name](const Panel& one) {
        return one.dock->objectName() == objectNameOf(name);
    });
    if (found == m_panels.end())
        throw std::out_of_range("there is no panel " + name.toStdString());
    return *found->dock;
}

void Panels::show(const QString& name)
{
    QDockWidget& dock = panel(name);
    const bool wasVisible = dock.isVisible();
    dock.show();
    passFocus(dock);
    dock.raise();
    if (dock.isFloating())
        dock.activateWindow();
    else if (!wasVisible)
        giveRoom(dock);
}

// Where the keyboard is in a panel that goes behind the tab of this one, it comes along.
void Panels::passFocus(QDockWidget& dock)
{
    QWidget* const content = dock.widget();
    const QWidget* const before = QApplication::focusWidget();
    if (content->focusProxy() == nullptr || before == nullptr)
        return;
    for (const QDockWidget* const other : m_window.tabifiedDockWidgets(&dock))
        if (other->isAncestorOf(before))
            QTimer::singleShot(0, content, [content] { content->setFocus(Qt::OtherFocusReason); });
}

QByteArray Panels::state() const
{
    return m_window.saveState(kStateVersion);
}

bool Panels::restore(const QByteArray& state)
{
    const QByteArray before = this->state();
    if (m_window.restoreState(state, kStateVersion))
        return true;
    m_window.restoreState(before, kStateVersion);
    return false;
}

void Panels::reset()
{
    for (const Panel& one : m_panels)
        m_window.removeDockWidget(one.dock);
    for (const Panel& one : m_panels)
        put(one);
    for (const Panel& one : m_panels)
        if (one.open)
            one.dock->raise();
}

bool Panels::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        emit changed();
    return QObject::eventFilter(watched, event);
}

// Qt makes the tabs by itself and says nothing of them to those who hear the window.
void Panels::nameTabs()
{
    for (QTabBar* const tabs : m_window.findChildren<QTabBar*>(QString(), Qt::FindDirectChildrenOnly))
        tabs->setAccessibleName(QStringLiteral("Panels"));
}

} // namespace comfortics::ui
