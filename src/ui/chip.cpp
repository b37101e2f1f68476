// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/chip.h"

#include "ui/colors.h"
#include "ui/text.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace comfortics::ui {

namespace {

constexpr int kBesideText = 7;
constexpr int kAboveText = 2;
constexpr double kCorner = 5;
constexpr double kOutline = 1;

QColor color(const workspace::Rgb& rgb)
{
    return {rgb.red, rgb.green, rgb.blue};
}

workspace::FieldColors colors(int severity, const QPalette& palette)
{
    return workspace::severityColors(severity,
                                     isDark(palette) ? workspace::Ground::Dark : workspace::Ground::Light);
}

QString signOf(const catalogue::Meaning& meaning)
{
    return QLatin1Char(' ') + toQt(catalogue::signedSeverity(meaning.severity));
}

QString wordOf(const catalogue::Meaning& meaning)
{
    return toQt(meaning.category->label);
}

void paintField(QPainter& painter, const QRect& field, const QString& text, int severity,
                const QPalette& palette, bool quiet)
{
    const workspace::FieldColors pair = colors(severity, palette);
    QColor outline = palette.color(QPalette::Text);
    outline.setAlphaF(quiet ? 0.5F : 0.25F); // the field of 0 is nearly that of the window
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(outline, kOutline));
    painter.setBrush(quiet ? QBrush(Qt::NoBrush) : QBrush(color(pair.field)));
    painter.drawRoundedRect(QRectF(field).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
    painter.setPen(quiet ? palette.color(QPalette::PlaceholderText) : color(pair.text));
    painter.drawText(field, Qt::AlignCenter, text);
    painter.restore();
}

} // namespace

QString chipText(const catalogue::Meaning& meaning)
{
    return wordOf(meaning) + signOf(meaning);
}

QColor severityField(int severity, const QPalette& palette)
{
    return color(colors(severity, palette).field);
}

int chipHeight(const QFontMetrics& metrics)
{
    return metrics.height() + 2 * kAboveText;
}

QSize chipSize(const QFontMetrics& metrics, const catalogue::Meaning& meaning)
{
    return {metrics.horizontalAdvance(chipText(meaning)) + 2 * kBesideText, chipHeight(metrics)};
}

void paintChip(QPainter& painter, const QRect& room, Qt::Alignment alignment,
               const catalogue::Meaning& meaning, const QPalette& palette, bool quiet)
{
    const QFontMetrics metrics(painter.font(), painter.device());
    const QSize whole = chipSize(metrics, meaning);
    const QSize size = whole.boundedTo(room.size());
    if (size.width() <= 2 * kBesideText)
        return;
    QString text = chipText(meaning);
    if (size.width() < whole.width()) {
        const QString sign = signOf(meaning);
        const int wordWidth = size.width() - 2 * kBesideText - metrics.horizontalAdvance(sign);
        text = metrics.elidedText(wordOf(meaning), Qt::ElideRight, wordWidth) + sign;
    }
    paintField(painter, QStyle::alignedRect(Qt::LeftToRight, alignment, size, room), text, meaning.severity,
               palette, quiet);
}

void paintSign(QPainter& painter, const QRect& room, int severity, const QPalette& palette, bool quiet)
{
    const QFontMetrics metrics(painter.font(), painter.device());
    const QSize size(metrics.horizontalAdvance(QStringLiteral("+4")) + kBesideText,
                     std::min(chipHeight(metrics), room.height()));
    if (size.width() < room.width())
        paintField(painter,
                   QStyle::alignedRect(Qt::LeftToRight, Qt::AlignRight | Qt::AlignVCenter, size, room),
                   toQt(catalogue::signedSeverity(severity)), severity, palette, quiet);
}

void Chip::show(const std::optional<catalogue::Meaning>& meaning, bool quiet)
{
    m_meaning = meaning;
    m_quiet = quiet;
    setAccessibleName(meaning ? chipText(*meaning) : QString());
    updateGeometry();
    update();
}

QSize Chip::sizeHint() const
{
    return m_meaning ? chipSize(fontMetrics(), *m_meaning) : QSize(0, chipHeight(fontMetrics()));
}

QSize Chip::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void Chip::paintEvent(QPaintEvent*)
{
    if (!m_meaning)
        return;
    QPainter painter(this);
    paintChip(painter, rect(), Qt::AlignLeft | Qt::AlignVCenter, *m_meaning, palette(), m_quiet);
}

} // namespace comfortics::ui
