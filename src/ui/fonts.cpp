// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/fonts.h"

#include "ui/text.h"

#include <QStringList>

namespace comfortics::ui {

QFont screenFont(const controls::Font& font)
{
    // A narrow face by another maker comes before any wide one.
    QStringList families{toQt(font.name)};
    if (font.name == "Arial Narrow")
        families << QStringLiteral("Liberation Sans Narrow") << QStringLiteral("DejaVu Sans Condensed")
                 << QStringLiteral("Arial");
    QFont result;
    result.setFamilies(families);
    result.setStyleHint(QFont::SansSerif);
    result.setPointSizeF(font.size);
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setStrikeOut(font.strikeThrough);
    result.setUnderline(font.underline);
    return result;
}

} // namespace comfortics::ui
