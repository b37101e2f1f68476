// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page_maker.h"

#include "ui/text.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QScreen>
#include <QSvgRenderer>
#include <QUrl>

namespace comfortics::ui {

namespace {

constexpr int kSharpness = 3; // pixels of the picture for one unit of the chart
constexpr int kResolution = 300;
constexpr double kMarginMm = 15;
constexpr double kPointsPerInch = 72;

QImage picture(const std::string& svg)
{
    QSvgRenderer renderer(QByteArray::fromStdString(svg));
    const QSize size = renderer.defaultSize() * kSharpness;
    if (!renderer.isValid() || size.isEmpty())
        return {};
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    renderer.render(&painter);
    return image;
}

} // namespace

void write(const workspace::ReportPage& page, QTextDocument& document)
{
    if (!page.chart.empty())
        document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("chart.svg")),
                             picture(page.chart));
    document.setHtml(toQt(page.html));
}

void print(QTextDocument& document, QPagedPaintDevice& device)
{
    // Without a size of its own the document gets further margins and a number on each page.
    const double pixelsPerPoint = QGuiApplication::primaryScreen()->logicalDotsPerInchX() / kPointsPerInch;
    document.setDocumentMargin(0);
    document.setPageSize(device.pageLayout().paintRect(QPageLayout::Point).size() * pixelsPerPoint);
    document.print(&device);
}

std::string PdfMaker::pdf(const workspace::ReportPage& page)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(kMarginMm, kMarginMm, kMarginMm, kMarginMm), QPageLayout::Millimeter);
        writer.setResolution(kResolution);
        writer.setCreator(QStringLiteral("Comfortics"));
        QTextDocument document;
        ui::write(page, document);
        ui::print(document, writer);
    }
    return bytes.toStdString();
}

} // namespace comfortics::ui
