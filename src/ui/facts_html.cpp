// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/facts_html.h"

#include "ui/chip.h"
#include "ui/text.h"

#include <QColor>
#include <QStringList>

namespace comfortics::ui {

QString escaped(std::string_view text)
{
    return toQt(text).toHtmlEscaped();
}

QString linked(std::string_view text)
{
    QString html;
    QStringList words = toQt(text).split(QLatin1Char(' '));
    for (QString& word : words) {
        QString tail;
        while (!word.isEmpty() && QStringLiteral(".,;)").contains(word.back())) {
            tail.prepend(word.back());
            word.chop(1);
        }
        const bool address =
            word.startsWith(QLatin1String("https://")) || word.startsWith(QLatin1String("http://"));
        const QString safe = word.toHtmlEscaped();
        html += (html.isEmpty() ? QString() : QStringLiteral(" ")) +
                (address ? QStringLiteral("<a href=\"%1\">%1</a>").arg(safe) : safe) + tail.toHtmlEscaped();
    }
    return html;
}

QString heading(const char* text)
{
    return QStringLiteral("<h4>%1</h4>").arg(QString::fromLatin1(text));
}

QString paragraph(const QString& html)
{
    return html.isEmpty() ? QString() : QStringLiteral("<p>%1</p>").arg(html);
}

QString withUnit(const QString& value, std::string_view unit)
{
    return unit.empty() ? value : value + QLatin1Char(' ') + escaped(unit);
}

QString classRow(const catalogue::Category& category, const std::string& bounds, bool isPresent, int severity,
                 const QPalette& palette)
{
    const QString mark = isPresent ? QStringLiteral("<b>%1</b>") : QStringLiteral("%1");
    return QStringLiteral("<tr><td bgcolor=\"%1\">&nbsp;&nbsp;&nbsp;</td><td>&nbsp;%2</td>"
                          "<td>&nbsp;&nbsp;%3</td></tr>")
        .arg(severityField(severity, palette).name(),
             mark.arg(escaped(catalogue::inWords({&category, severity})) +
                      (isPresent ? QStringLiteral(" \u25C0 now") : QString())),
             mark.arg(escaped(bounds)));
}

QString classTable(const QString& rows)
{
    return rows.isEmpty() ? rows : QStringLiteral("<table cellspacing=\"1\">%1</table>").arg(rows);
}

} // namespace comfortics::ui
