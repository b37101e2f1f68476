// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/fonts.h"

#include "ui/text.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QString>

#include <algorithm>

namespace comfortics::ui {

namespace {

constexpr const char* kNarrow = "Arial Narrow";

// What stands in for a face that is not installed, the one of the same widths first.
QString narrowFamily()
{
    for (const char* const name :
         {kNarrow, "Liberation Sans Narrow", "Nimbus Sans Narrow", "Helvetica Narrow", "Roboto Condensed",
          "Ubuntu Condensed", "Open Sans Condensed"})
        if (QFontDatabase::hasFamily(QLatin1String(name)))
            return QLatin1String(name);
    return {};
}

} // namespace

QFont screenFont(const controls::Font& font)
{
    QFont result(toQt(font.name));
    if (font.name == kNarrow) {
        if (const QString family = narrowFamily(); !family.isEmpty()) {
            result.setFamily(family);
        } else {
            result.setFamily(QStringLiteral("Arial"));
            result.setStretch(QFont::Condensed);
        }
    }
    result.setStyleHint(QFont::SansSerif);
    result.setPointSizeF(font.size);
    result.setBold(font.bold);
    result.setItalic(font.italic);
    result.setStrikeOut(font.strikeThrough);
    result.setUnderline(font.underline);
    return result;
}

QFont fittingFont(const QFont& font, const QString& text, double width, const QPaintDevice& device)
{
    constexpr double kLeastPoints = 1;
    constexpr double kStep = 0.99; // widths do not follow the size exactly
    QFont fitting(font);
    double points = font.pointSizeF();
    for (;;) {
        const double needed = QFontMetricsF(fitting, &device).size(0, text).width();
        if (needed <= width || points <= kLeastPoints)
            return fitting;
        points = std::max(points * std::min(width / needed, kStep), kLeastPoints);
        fitting.setPointSizeF(points);
    }
}

} // namespace comfortics::ui
