// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/text.h"

#include "values/plain_text.h"

namespace comfortics::ui {

QString tip(const QString& note)
{
    constexpr qsizetype kShort = 60; // characters
    if (note.size() <= kShort && !note.contains(QLatin1Char('\n')))
        return note;
    return QStringLiteral("<qt>%1</qt>")
        .arg(note.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br/>")));
}

QString axisNumber(double value)
{
    return toQt(values::plainText(value)).replace(QLatin1Char('-'), QChar(0x2212));
}

QString withMnemonic(std::string_view caption, char mnemonic)
{
    QString text;
    bool marked = mnemonic == 0;
    for (const QChar character : toQt(caption)) {
        if (character == QLatin1Char('&')) {
            text += QLatin1Char('&');
        } else if (!marked && character == QLatin1Char(mnemonic)) {
            text += QLatin1Char('&');
            marked = true;
        }
        text += character;
    }
    return text;
}

} // namespace comfortics::ui
