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

QString shortened(const QString& text, qsizetype most)
{
    return text.size() > most ? text.left(most - 1).trimmed() + QChar(0x2026) : text;
}

QString shortName(const std::string& id)
{
    constexpr qsizetype kMost = 40; // characters
    const auto item = workspace::Item::ofId(id);
    return shortened(toQt(item ? item->name() : id).simplified(), kMost);
}

QString starText(const workspace::Workspace& workspace, const std::string& id)
{
    return (workspace.sets.isStarred(id) ? QStringLiteral("Take %1 off the cards of \"%2\"")
                                         : QStringLiteral("Add %1 to the cards of \"%2\""))
        .arg(shortName(id), toQt(workspace.sets.starredName()));
}

QString starWords(const workspace::Workspace& workspace, const std::string& id)
{
    // A key behind a tab is shown, not listened to: the widgets have it already.
    return withMnemonic(fromQt(starText(workspace, id))) + QLatin1Char('\t') + QLatin1String(kStarKey);
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
