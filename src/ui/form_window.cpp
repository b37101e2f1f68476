// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/form_window.h"

#include "ui/bindings.h"
#include "ui/help.h"
#include "ui/text.h"

#include <QEvent>
#include <QScreen>
#include <QShortcut>

#include <algorithm>

namespace comfortics::ui {

FormWindow::FormWindow(controls::Form& form) : m_form(form)
{
    setWindowTitle(toQt(form.caption()));
    setContextMenuPolicy(Qt::PreventContextMenu);
    listen(*this, form.visibility, [this] { repeatVisibility(); });
    connect(new QShortcut(QKeySequence::HelpContents, this), &QShortcut::activated, this,
            [this] { showHelp(*this); });
    connect(new QShortcut(QKeySequence::Close, this), &QShortcut::activated, this, [this] { close(); });
}

void FormWindow::repeatVisibility()
{
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
