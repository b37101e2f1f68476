// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/session_menu.h"

#include "ui/bindings.h"
#include "ui/text.h"

#include <QFileInfo>
#include <QMenu>

#include <utility>

namespace comfortics::ui {

using workspace::SessionDesk;

void fillRecent(QMenu& menu, const std::vector<std::string>& paths,
                const std::function<void(const std::string&)>& open, const std::function<void()>& forget)
{
    menu.clear();
    for (const std::string& path : paths) {
        const QFileInfo file(toQt(path));
        QAction* const action =
            menu.addAction(withMnemonic(fromQt(file.fileName())), &menu, [open, path] { open(path); });
        action->setToolTip(toQt(path));
        action->setEnabled(file.exists());
    }
    menu.setToolTipsVisible(true);
    menu.setEnabled(!paths.empty());
    if (paths.empty())
        return;
    menu.addSeparator();
    menu.addAction(QStringLiteral("&Clear This List"), &menu, forget);
}

void addSessionEntries(QMenu& menu, SessionDesk& session, std::function<void()> report, QWidget& window)
{
    QAction* const others = menu.actions().value(0);
    const auto add = [&menu, &window, others](const QString& text, const QKeySequence& keys,
                                              std::function<void()> act) {
        auto* const action = new QAction(text, &window);
        QObject::connect(action, &QAction::triggered, &window, std::move(act));
        action->setShortcut(keys);
        menu.insertAction(others, action);
        window.addAction(action);
        return action;
    };
    add(QStringLiteral("&Open Session …"), QKeySequence::Open, [&session] { session.open(); });
    auto* const recent = new QMenu(QStringLiteral("Open &Recent"), &menu);
    menu.insertMenu(others, recent);
    follow(*recent, session.changed, [recent, &session] {
        // Not at once: an entry of the list may be what changed it.
        QMetaObject::invokeMethod(
            recent,
            [recent, &session] {
                fillRecent(
                    *recent, session.recent(),
                    [&session](const std::string& path) { session.openFile(path); },
                    [&session] { session.forgetRecent(); });
            },
            Qt::QueuedConnection);
    });
    add(QStringLiteral("&Save Session"), QKeySequence::Save, [&session] { session.save(); });
    add(QStringLiteral("Save Session &As …"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
        [&session] { session.saveAs(); });
    QAction* const last =
        add(QStringLiteral("Bring Back the &Last Readings"), {}, [&session] { session.restoreLast(); });
    QObject::connect(&menu, &QMenu::aboutToShow, last,
                     [last, &session] { last->setEnabled(session.hasLast()); });
    menu.insertSeparator(others);
    add(QStringLiteral("Re&port …"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_R), std::move(report));
    menu.insertSeparator(others);
}

} // namespace comfortics::ui
