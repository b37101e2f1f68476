// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a value means, at a glance: a field of colour with the word and the sign of the class on it.
#pragma once

#include "catalogue/categories.h"
#include "workspace/severity_colors.h"

#include <QColor>
#include <QWidget>

#include <optional>

class QPainter;

namespace comfortics::ui {

/// "danger +3".
QString chipText(const catalogue::Meaning& meaning);

/// The colours of a severity where a palette stands.
QColor severityField(int severity, const QPalette& palette);

/// The room that a chip takes [pixel].
int chipHeight(const QFontMetrics& metrics);
QSize chipSize(const QFontMetrics& metrics, const catalogue::Meaning& meaning);

/// Paints a chip into a room, in the painter's font. A word too long is cut before the sign, which stays.
/// Quiet, of earlier readings, it is an outline alone.
void paintChip(QPainter& painter, const QRect& room, Qt::Alignment alignment,
               const catalogue::Meaning& meaning, const QPalette& palette, bool quiet = false);

/// Paints the sign alone into the right end of a room, where there is no place for words: those stand in the
/// note of the value.
void paintSign(QPainter& painter, const QRect& room, int severity, const QPalette& palette,
               bool quiet = false);

/// A chip by itself; without a meaning it is blank.
class Chip : public QWidget {
    Q_OBJECT

public:
    using QWidget::QWidget;

    void show(const std::optional<catalogue::Meaning>& meaning, bool quiet = false);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<catalogue::Meaning> m_meaning;
    bool m_quiet = false;
};

} // namespace comfortics::ui
