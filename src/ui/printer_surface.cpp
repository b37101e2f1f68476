// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/printer_surface.h"

#include "output/save_file.h"
#include "ui/colors.h"
#include "ui/fonts.h"
#include "ui/text.h"

#include <QBuffer>
#include <QByteArray>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPageRanges>
#include <QPaintEngine>
#include <QPdfWriter>
#include <QPrinter>

#include <cmath>
#include <cstddef>
#include <string>
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

output::PageChoice choice(const QPrinter& printer)
{
    output::PageChoice choice{.lastFirst = printer.pageOrder() == QPrinter::LastPageFirst,
                              .copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount(),
                              .collated = printer.collateCopies()};
    for (const QPageRanges::Range& range : printer.pageRanges().toRangeList())
        choice.ranges.emplace_back(range.from, range.to);
    return choice;
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
    constexpr QMarginsF kMargins{10, 10, 10, 10};
    printer.setFullPage(true); // the table stands at the paper's corner
    printer.setPageMargins(kMargins, QPageLayout::Millimeter);
    printer.setResolution(kDotsPerInch);
}

PrinterSurface::PrinterSurface(QPrinter& printer) : m_printer(printer)
{
    print();
    setFont(m_font);
}

void PrinterSurface::print()
{
    m_pages.assign(1, {});
}

void PrinterSurface::newPage()
{
    m_pages.emplace_back();
    m_currentY = 0;
}

output::WriteResult PrinterSurface::endDoc()
{
    const int count = static_cast<int>(m_pages.size());
    const bool preview = m_printer.paintEngine()->type() == QPaintEngine::Picture;
    const std::vector<int> pages =
        output::pagesOnPaper(preview ? output::PageChoice{} : choice(m_printer), count);
    if (pages.empty())
        return {"None of the chosen pages is there: the last one is " + std::to_string(count) + "."};
    if (!preview && m_printer.outputFormat() == QPrinter::PdfFormat)
        return writePdf(pages);
    return {paint(m_printer, pages) ? "" : "The table could not be printed: the printer takes nothing."};
}

// Not by the printer itself, which overwrites the file before it knows whether there is room, and does
// not tell.
output::WriteResult PrinterSurface::writePdf(const std::vector<int>& pages) const
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter pdf(&buffer);
    pdf.setTitle(m_printer.docName());
    pdf.setCreator(QStringLiteral("Comfortics"));
    pdf.setPageLayout(m_printer.pageLayout());
    pdf.setResolution(m_printer.resolution());
    if (!paint(pdf, pages))
        return {"The table could not be printed: no PDF can be made."};
    return output::writeWhole(fromQt(m_printer.outputFileName()),
                              {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

bool PrinterSurface::paint(QPagedPaintDevice& device, const std::vector<int>& pages) const
{
    QPainter painter;
    bool good = painter.begin(&device);
    for (std::size_t i = 0; good && i < pages.size(); ++i) {
        good = i == 0 || device.newPage();
        for (const Stroke& stroke : m_pages[static_cast<std::size_t>(pages[i]) - 1])
            stroke(painter);
    }
    return good && painter.end();
}

output::PageMargins PrinterSurface::margins() const
{
    constexpr double kTwipsPerPoint = 20;
    const QMarginsF points = m_printer.pageLayout().margins(QPageLayout::Point) * kTwipsPerPoint;
    return {points.left(), points.top(), points.right(), points.bottom()};
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
    m_brush = style == controls::kTransparentFill ? Qt::NoBrush : Qt::SolidPattern;
}

QPointF PrinterSurface::pixels(double x, double y) const
{
    return {scaleX(x, m_mode, ScaleMode::Pixels), scaleY(y, m_mode, ScaleMode::Pixels)};
}

QPen PrinterSurface::pen(const QColor& color) const
{
    return {color, static_cast<qreal>(m_drawWidth), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin};
}

void PrinterSurface::line(double x1, double y1, double x2, double y2, controls::Color color)
{
    add([pen = pen(screenColor(color)), from = pixels(x1, y1), to = pixels(x2, y2)](QPainter& painter) {
        painter.setPen(pen);
        painter.drawLine(from, to);
    });
}

void PrinterSurface::box(double x1, double y1, double x2, double y2)
{
    add([pen = pen(Qt::black), brush = QBrush(m_brush),
         rectangle = QRectF(pixels(x1, y1), pixels(x2, y2))](QPainter& painter) {
        painter.setPen(pen);
        painter.setBrush(brush);
        painter.drawRect(rectangle);
    });
}

void PrinterSurface::paintPicture(const controls::Image& image, double x, double y, double width,
                                  double height)
{
    if (const auto* const picture = dynamic_cast<const PixelImage*>(&image))
        add([picture = picture->image(), rectangle = QRectF(pixels(x, y), pixels(x + width, y + height))](
                QPainter& painter) { painter.drawImage(rectangle, picture); });
}

int PrinterSurface::drawText(std::string_view text, controls::PixelRect& rectangle, unsigned flags)
{
    const QString shown = lines(text);
    const QSizeF size = QFontMetricsF(m_deviceFont, &m_printer).size(0, shown);
    const int height = static_cast<int>(std::ceil(size.height()));
    if ((flags & controls::DT_CALCRECT) != 0) {
        rectangle.right = rectangle.left + static_cast<int>(std::ceil(size.width()));
        rectangle.bottom = rectangle.top + height;
        return height;
    }
    const Qt::AlignmentFlag alignment = (flags & controls::DT_CENTER) != 0  ? Qt::AlignHCenter
                                        : (flags & controls::DT_RIGHT) != 0 ? Qt::AlignRight
                                                                            : Qt::AlignLeft;
    const QRectF room(rectangle.left, rectangle.top, rectangle.right - rectangle.left, size.height());
    const QFont font = fittingFont(m_deviceFont, shown, room.width(), m_printer);
    add([shown, font, room, alignment](QPainter& painter) {
        painter.setPen(Qt::black);
        painter.setFont(font);
        painter.drawText(room, static_cast<int>(alignment) | Qt::AlignVCenter | Qt::TextDontClip, shown);
    });
    return height;
}

} // namespace comfortics::ui
