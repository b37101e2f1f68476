// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/page_maker.h"

#include "ui/text.h"

#include <QBuffer>
#include <QCursor>
#include <QEventLoop>
#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <QPdfWriter>
#include <QScreen>
#include <QSvgRenderer>
#include <QTextBrowser>
#include <QThread>
#include <QUrl>

#include <memory>

namespace comfortics::ui {

namespace {

constexpr int kResolution = 300;
constexpr QColor kInk(0x11, 0x11, 0x11);
constexpr double kMarginMm = 15;
constexpr int kMostShrunk = 140; // percent of the paper that a page of the document may have
constexpr int kShrinkStep = 5;
constexpr double kPointsPerInch = 72;

QImage picture(const std::string& svg, int sharpness)
{
    QSvgRenderer renderer(QByteArray::fromStdString(svg));
    const QSize size = renderer.defaultSize() * sharpness;
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
                             picture(page.chart, kSharpness));
    document.setHtml(toQt(page.html));
}

std::vector<QImage> picturesOf(const std::vector<std::string>& charts, int sharpness)
{
    std::vector<QImage> pictures;
    pictures.reserve(charts.size());
    for (const std::string& chart : charts)
        pictures.push_back(picture(chart, sharpness));
    return pictures;
}

void write(const std::string& html, const std::vector<QImage>& pictures, QTextDocument& document)
{
    for (std::size_t i = 0; i < pictures.size(); ++i)
        document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("chart%1.svg").arg(i + 1)),
                             pictures[i]);
    document.setHtml(toQt(html));
}

void wearPaper(QTextBrowser& page)
{
    page.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    page.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    QPalette paper = page.palette();
    paper.setColor(QPalette::Base, Qt::white);
    paper.setColor(QPalette::Text, kInk);
    page.setPalette(paper);
}

void print(QTextDocument& document, QPagedPaintDevice& device)
{
    // Without a size of its own the document gets further margins and a number on each page.
    const double pixelsPerPoint = QGuiApplication::primaryScreen()->logicalDotsPerInchX() / kPointsPerInch;
    document.setDocumentMargin(0);
    const QSizeF paper = device.pageLayout().paintRect(QPageLayout::Point).size() * pixelsPerPoint;
    document.setPageSize(paper);
    // A report that is a little long for a page is printed smaller; a long one takes several.
    for (int percent = 100 + kShrinkStep; percent <= kMostShrunk && document.pageCount() == 2;
         percent += kShrinkStep)
        document.setPageSize(paper * percent / 100);
    if (document.pageCount() > 1)
        document.setPageSize(paper);
    document.print(&device);
}

namespace {

QByteArray pdfBytes(const std::function<void(QTextDocument&)>& write)
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
        write(document);
        ui::print(document, writer);
    }
    return bytes;
}

} // namespace

// A long report takes a second: the windows live on meanwhile, but what is typed waits.
std::string pdfOf(const std::function<void(QTextDocument&)>& write)
{
    QByteArray bytes;
    const std::unique_ptr<QThread> thread(QThread::create([&write, &bytes] { bytes = pdfBytes(write); }));
    QEventLoop loop;
    QObject::connect(thread.get(), &QThread::finished, &loop, &QEventLoop::quit);
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    thread->start();
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    thread->wait();
    QGuiApplication::restoreOverrideCursor();
    return bytes.toStdString();
}

std::string PdfMaker::pdf(const workspace::ReportPage& page)
{
    return pdfOf([&page](QTextDocument& document) { ui::write(page, document); });
}

} // namespace comfortics::ui
