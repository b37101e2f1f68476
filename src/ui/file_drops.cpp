// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/file_drops.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <utility>

namespace comfortics::ui {

namespace {

class FileDrops final : public QObject {
public:
    FileDrops(QWidget& window, std::function<bool()> welcome, std::function<void(const QString&)> take)
        : QObject(&window), m_window(window), m_welcome(std::move(welcome)), m_take(std::move(take))
    {
        // Before the widgets, of which more may come later, see the event.
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::DragEnter && event->type() != QEvent::DragMove &&
            event->type() != QEvent::Drop)
            return false;
        const auto* const widget = qobject_cast<QWidget*>(watched);
        if (widget == nullptr || widget->window() != &m_window)
            return false;
        auto& drop = *static_cast<QDropEvent*>(event);
        const QList<QUrl> urls = drop.mimeData()->urls();
        const QString path = urls.size() == 1 ? urls.front().toLocalFile() : QString();
        if (path.isEmpty())
            return false;
        if (!m_welcome()) {
            drop.ignore();
            return true;
        }
        drop.acceptProposedAction();
        if (event->type() == QEvent::Drop)
            m_take(path);
        return true;
    }

private:
    QWidget& m_window;
    std::function<bool()> m_welcome;
    std::function<void(const QString&)> m_take;
};

} // namespace

void takeDroppedFiles(QWidget& window, std::function<bool()> welcome,
                      std::function<void(const QString& path)> take)
{
    window.setAcceptDrops(true);
    new FileDrops(window, std::move(welcome), std::move(take));
}

} // namespace comfortics::ui
