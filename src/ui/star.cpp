// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/star.h"

#include "ui/text.h"

#include <QMenu>
#include <QShortcut>

#include <utility>

namespace comfortics::ui {

void turnStar(workspace::Workspace& workspace, const std::string& id)
{
    if (!id.empty())
        workspace.sets.setStarred(id, !workspace.sets.isStarred(id));
}

QString starWords(const workspace::Workspace& workspace, const std::string& id)
{
    // A key behind a tab is shown, not listened to: the widgets have it already.
    return (workspace.sets.isStarred(id) ? QStringLiteral("Take off the cards of \"%1\"\t%2")
                                         : QStringLiteral("Add to the cards of \"%1\"\t%2"))
        .arg(withMnemonic(workspace.sets.starredName()), QLatin1String(kStarKey));
}

void addStarEntry(QMenu& menu, workspace::Workspace& workspace, const std::string& id)
{
    menu.addAction(starWords(workspace, id), &menu, [&workspace, id] { turnStar(workspace, id); });
}

void addStarKey(QWidget& widget, workspace::Workspace& workspace, std::function<std::string()> id)
{
    auto* const key = new QShortcut(QKeySequence(QLatin1String(kStarKey)), &widget);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(key, &QShortcut::activated, &widget,
                     [&workspace, id = std::move(id)] { turnStar(workspace, id()); });
}

} // namespace comfortics::ui
