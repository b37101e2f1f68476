// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form_window.h"

#include "ui/bindings.h"
#include "ui/text.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDockWidget>
#include <QKeyEvent>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace comfortics::ui {

namespace {

// As the menu key does, which not every keyboard has; Qt knows that one alone.
void askForMenu(QWidget& widget)
{
    const QPoint middle = widget.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, widget.mapToGlobal(middle));
    QApplication::sendEvent(&widget, &event);
}

} // namespace

FormWindow::FormWindow(controls::Form& form, QString chapter) : m_form(form), m_chapter(std::move(chapter))
{
    setWindowTitle(toQt(form.caption()));
    setContextMenuPolicy(Qt::PreventContextMenu);
    listen(*this, form.visibility, [this] { repeatVisibility(); });
    m_help = &addKeys(QStringLiteral("User &Guide"), {QKeySequence::HelpContents},
                      [this] { emit guideWanted(this->chapter()); });
    addKeys(QStringLiteral("Close"), {QKeySequence::Close}, [this] { close(); });
}

QAction& FormWindow::addKeys(const QString& text, const QList<QKeySequence>& keys, std::function<void()> act)
{
    auto* const action = new QAction(text, this);
    action->setShortcuts(keys);
    connect(action, &QAction::triggered, this, std::move(act));
    addAction(action);
    return *action;
}

void FormWindow::setPart(bool part)
{
    m_part = part;
    for (QAction* const action : actions())
        action->setShortcutContext(part ? Qt::WidgetWithChildrenShortcut : Qt::WindowShortcut);
}

QAction* FormWindow::ownAction(const QKeyEvent& event) const
{
    const QKeySequence pressed(event.keyCombination());
    for (QAction* const action : actions())
        if (action->isEnabled() && action->shortcuts().contains(pressed))
            return action;
    return nullptr;
}

// A key that both windows know would be ambiguous: it is taken as typed, past the shortcuts.
bool FormWindow::event(QEvent* event)
{
    if (m_part && event->type() == QEvent::ShortcutOverride &&
        ownAction(*static_cast<QKeyEvent*>(event)) != nullptr) {
        event->accept();
        return true;
    }
    return QMainWindow::event(event);
}

void FormWindow::keyPressEvent(QKeyEvent* event)
{
    if (QAction* const action = m_part ? ownAction(*event) : nullptr)
        action->trigger();
    else if (QWidget* const focus = focusWidget();
             event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier && focus)
        askForMenu(*focus);
    else
        QMainWindow::keyPressEvent(event);
}

void FormWindow::repeatVisibility()
{
    if (auto* const panel = m_part ? qobject_cast<QDockWidget*>(parentWidget()) : nullptr) {
        setVisible(m_form.visible());
        panel->setVisible(m_form.visible());
        panel->raise();
        return; // the keyboard stays where it is
    }
    if (!m_form.visible()) {
        hide();
        return;
    }
    if (isMinimized())
        showNormal();
    else
        show();
    raise();
    activateWindow();
}

QRect FormWindow::usableBeside(const QWidget& other)
{
    return other.screen()->availableGeometry().adjusted(0, 0, other.width() - other.frameGeometry().width(),
                                                        other.height() - other.frameGeometry().height());
}

void FormWindow::placeWithin(const QRect& usable, QPoint wanted)
{
    resize(size().boundedTo(usable.size()));
    move(std::clamp(wanted.x(), usable.left(), std::max(usable.left(), usable.right() + 1 - width())),
         std::clamp(wanted.y(), usable.top(), std::max(usable.top(), usable.bottom() + 1 - height())));
}

void FormWindow::tellPlace()
{
    const QRect frame = frameGeometry();
    m_form.stands(
        {.left = frame.left(), .top = frame.top(), .width = frame.width(), .height = frame.height()});
}

void FormWindow::moveEvent(QMoveEvent* event)
{
    QMainWindow::moveEvent(event);
    tellPlace();
}

void FormWindow::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    tellPlace();
}

void FormWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange) // by now the desktop has given it a frame
        tellPlace();
}

} // namespace comfortics::ui
