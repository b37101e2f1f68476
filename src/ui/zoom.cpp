// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/zoom.h"

#include <QApplication>
#include <QMainWindow>
#include <QScreen>
#include <QSize>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>

namespace comfortics::ui {

namespace {

constexpr const char* kKept = "sizesBeforeZoom";

// The least and the most width and height that a widget was given: they were meant for letters of that size.
using Bounds = std::array<int, 4>;

Bounds boundsOf(const QWidget& widget)
{
    return {widget.minimumWidth(), widget.minimumHeight(), widget.maximumWidth(), widget.maximumHeight()};
}

// From the size at 100 %, so that no rounding adds up over several steps.
void scaleBounds(QWidget& widget, double before, double now)
{
    const Bounds present = boundsOf(widget);
    std::array<double, 4> original{};
    const QVariantList earlier = widget.property(kKept).toList(); // at 100 %, and as they were set then
    for (std::size_t i = 0; i < present.size(); ++i) {
        const auto place = static_cast<qsizetype>(i);
        const bool untouched =
            earlier.size() == 8 && earlier[place + 4].toInt() == present[i]; // by anyone else since
        original[i] = untouched ? earlier[place].toDouble() : present[i] / before;
    }
    Bounds scaled = present;
    for (std::size_t i = 0; i < present.size(); ++i)
        if (present[i] > 0 && present[i] < QWIDGETSIZE_MAX)
            scaled[i] = static_cast<int>(std::lround(original[i] * now));
    if (scaled == present)
        return;
    widget.setMinimumSize(scaled[0], scaled[1]);
    widget.setMaximumSize(scaled[2], scaled[3]);
    QVariantList kept;
    for (const double size : original)
        kept += size;
    for (const int size : scaled)
        kept += size;
    widget.setProperty(kKept, kept);
}

bool hasSizeOfItsOwn(const QWidget& widget)
{
    return widget.testAttribute(Qt::WA_SetFont) && (widget.font().resolveMask() & QFont::SizeResolved) != 0 &&
           widget.font().pointSizeF() > 0;
}

// As far as the screen has room.
void grow(QWidget& window, double factor)
{
    const QRect usable = window.screen()->availableGeometry();
    const QSize frame = window.frameGeometry().size() - window.size();
    window.resize((window.size() * factor).boundedTo(usable.size() - frame));
    if (!window.isVisible())
        return;
    QRect place = window.frameGeometry();
    place.moveRight(std::min(place.right(), usable.right()));
    place.moveBottom(std::min(place.bottom(), usable.bottom()));
    place.moveLeft(std::max(place.left(), usable.left()));
    place.moveTop(std::max(place.top(), usable.top()));
    window.move(place.topLeft());
}

} // namespace

Zoom::Zoom(QObject* parent) : QObject(parent), m_font(QApplication::font())
{
}

Zoom::~Zoom()
{
    if (m_percent != workspace::kZoomOriginal)
        QApplication::setFont(m_font);
}

void Zoom::setPercent(int percent)
{
    const int wanted = workspace::nearestZoom(percent);
    if (wanted == m_percent)
        return;
    const double before = m_percent / 100.0;
    const double now = wanted / 100.0;
    m_percent = wanted;
    // What measures its letters by itself does so when the program's font changes, at the end.
    for (QWidget* const widget : QApplication::allWidgets()) {
        if (!widget->isWindow())
            scaleBounds(*widget, before, now);
        if (hasSizeOfItsOwn(*widget)) {
            QFont font = widget->font();
            font.setPointSizeF(font.pointSizeF() / before * now);
            widget->setFont(font);
        }
    }
    QFont font = m_font;
    font.setPointSizeF(m_font.pointSizeF() * now);
    QApplication::setFont(font);
    QApplication::setFont(font, "QDockWidgetTitle");
    for (QWidget* const window : QApplication::topLevelWidgets())
        if (qobject_cast<QMainWindow*>(window) && !window->isMaximized() && !window->isFullScreen())
            grow(*window, now / before);
    emit changed(m_percent);
}

} // namespace comfortics::ui
