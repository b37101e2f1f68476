// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/printer_surface.h"

#include "ui/colors.h"
#include "ui/fonts.h"
#include "ui/text.h"
#include "values/run_failure.h"

#include <QFontMetricsF>
#include <QPrinter>

#include <cmath>
#include <utility>

namespace comfortics::ui {

using controls::ScaleMode;

namespace {

constexpr double kHiMetricPerMeter = 100000;
constexpr int kDotsPerInch = 300; // lines of one dot are fine and still visible

QString lines(std::string_view text)
{
    QString result = toQt(text);
    result.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return result.replace(QLatin1Char('\r'), QLatin1Char('\n'));
}

} // namespace

double PixelImage::width() const
{
    return m_image.width() * kHiMetricPerMeter / m_image.dotsPerMeterX();
}

double PixelImage::height() const
{
    return m_image.height() * kHiMetricPerMeter / m_image.dotsPerMeterY();
}

void PrinterSurface::prepare(QPrinter& printer)
{
    printer.setFullPage(true); // the table has its own margins
    printer.setResolution(kDotsPerInch);
}

PrinterSurface::PrinterSurface(QPrinter& printer) : m_printer(printer)
{
    setFont(m_font);
}

void PrinterSurface::print()
{
    if (!m_painter.begin(&m_printer))
        throw values::RunFailure("nothing can be written to the printer or file");
}

void PrinterSurface::newPage()
{
    m_printer.newPage();
    m_currentY = 0;
}

void PrinterSurface::endDoc()
{
    m_painter.end();
}

QSizeF PrinterSurface::paper() const
{
    return m_printer.pageLayout().fullRectPixels(m_printer.resolution()).size();
}

double PrinterSurface::pageWidth() const
{
    return scaleX(paper().width(), ScaleMode::Pixels, ScaleMode::Twips);
}

double PrinterSurface::height() const
{
    return scaleY(paper().height(), ScaleMode::Pixels, ScaleMode::Twips);
}

double PrinterSurface::scaleWidth() const
{
    return scaleX(paper().width(), ScaleMode::Pixels, m_mode);
}

double PrinterSurface::scaleHeight() const
{
    return scaleY(paper().height(), ScaleMode::Pixels, m_mode);
}

double PrinterSurface::pixelsPerInchX() const
{
    return m_printer.resolution();
}

double PrinterSurface::pixelsPerInchY() const
{
    return m_printer.resolution();
}

void PrinterSurface::setFont(controls::FontRef font)
{
    m_font = std::move(font);
    m_deviceFont = QFont(screenFont(*m_font), &m_printer);
}

double PrinterSurface::textHeight(std::string_view text) const
{
    const QFontMetricsF metrics(m_deviceFont, &m_printer);
    return scaleY(metrics.height() * static_cast<double>(lines(text).count(QLatin1Char('\n')) + 1),
                  ScaleMode::Pixels, m_mode);
}

void PrinterSurface::setFillStyle(int style)
{
    m_painter.setBrush(style == controls::kTransparentFill ? Qt::NoBrush : Qt::SolidPattern);
}

QPointF PrinterSurface::pixels(double x, double y) const
{
    return {scaleX(x, m_mode, ScaleMode::Pixels), scaleY(y, m_mode, ScaleMode::Pixels)};
}

void PrinterSurface::setPen(const QColor& color)
{
    m_painter.setPen(QPen(color, m_drawWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
}

void PrinterSurface::line(double x1, double y1, double x2, double y2, controls::Color color)
{
    setPen(screenColor(color));
    m_painter.drawLine(pixels(x1, y1), pixels(x2, y2));
}

void PrinterSurface::box(double x1, double y1, double x2, double y2)
{
    setPen(Qt::black);
    m_painter.drawRect(QRectF(pixels(x1, y1), pixels(x2, y2)));
}

void PrinterSurface::paintPicture(const controls::Image& image, double x, double y, double width,
                                  double height)
{
    if (const auto* const picture = dynamic_cast<const PixelImage*>(&image))
        m_painter.drawImage(QRectF(pixels(x, y), pixels(x + width, y + height)), picture->image());
}

int PrinterSurface::drawText(std::string_view text, controls::PixelRect& rectangle, unsigned flags)
{
    const QString shown = lines(text);
    const QFontMetricsF metrics(m_deviceFont, &m_printer);
    const QSizeF size = metrics.size(0, shown);
    const int height = static_cast<int>(std::ceil(size.height()));
    if ((flags & controls::DT_CALCRECT) != 0) {
        rectangle.right = rectangle.left + static_cast<int>(std::ceil(size.width()));
        rectangle.bottom = rectangle.top + height;
        return height;
    }
    const Qt::AlignmentFlag alignment = (flags & controls::DT_CENTER) != 0  ? Qt::AlignHCenter
                                        : (flags & controls::DT_RIGHT) != 0 ? Qt::AlignRight
                                                                            : Qt::AlignLeft;
    m_painter.setPen(Qt::black);
    m_painter.setFont(m_deviceFont);
    m_painter.drawText(QRect(QPoint(rectangle.left, rectangle.top),
                             QSize(rectangle.right - rectangle.left, rectangle.bottom - rectangle.top)),
                       static_cast<int>(alignment) | static_cast<int>(Qt::AlignTop), shown);
    return height;
}

} // namespace comfortics::ui
