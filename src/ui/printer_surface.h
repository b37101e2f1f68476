// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/print_job.h"

#include <QFont>
#include <QImage>
#include <QPainter>

#include <functional>
#include <utility>
#include <vector>

class QPagedPaintDevice;
class QPrinter;

namespace comfortics::ui {

/// A picture for cells.
class PixelImage final : public controls::Image {
public:
    explicit PixelImage(QImage image) : m_image(std::move(image)) {}

    const QImage& image() const noexcept { return m_image; }
    double width() const override;
    double height() const override;

private:
    QImage m_image;
};

/// A printer, a PDF file or a preview as a drawing surface. Its origin is the paper's corner. What is
/// drawn is kept until the job ends: only then it is known how many pages there are to choose from.
class PrinterSurface final : public output::Printer {
public:
    /// What a printer must be set to before the job.
    static void prepare(QPrinter& printer);

    explicit PrinterSurface(QPrinter& printer);

    void print() override;
    double pageWidth() const override;
    output::PageMargins margins() const override;
    void newPage() override;
    /// Gives the printer the pages that its dialog chose, as often and in the order chosen there, the
    /// preview all of them. A PDF file is written whole or not at all.
    output::WriteResult endDoc() override;

    controls::FontRef font() const override { return m_font; }
    void setFont(controls::FontRef font) override;
    double textHeight(std::string_view text) const override;
    controls::ScaleMode scaleMode() const override { return m_mode; }
    void setScaleMode(controls::ScaleMode mode) override { m_mode = mode; }
    double scaleWidth() const override;
    double scaleHeight() const override;
    double pixelsPerInchX() const override;
    double pixelsPerInchY() const override;
    double currentY() const override { return m_currentY; }
    void setCurrentY(double y) override { m_currentY = y; }
    double height() const override;
    void setHeight(double /*twips*/) override {} // the paper stays
    void setFillStyle(int style) override;
    void setDrawWidth(int pixels) override { m_drawWidth = pixels; }
    void line(double x1, double y1, double x2, double y2, controls::Color color) override;
    void box(double x1, double y1, double x2, double y2) override;
    void paintPicture(const controls::Image& image, double x, double y, double width, double height) override;
    int drawText(std::string_view text, controls::PixelRect& rectangle, unsigned flags) override;

private:
    using Stroke = std::function<void(QPainter&)>;
    void add(Stroke stroke) { m_pages.back().push_back(std::move(stroke)); }
    bool paint(QPagedPaintDevice& device, const std::vector<int>& pages) const;
    output::WriteResult writePdf(const std::vector<int>& pages) const;
    QPointF pixels(double x, double y) const;
    QPen pen(const QColor& color) const;
    QSizeF paper() const;

    QPrinter& m_printer;
    std::vector<std::vector<Stroke>> m_pages;
    controls::FontRef m_font = std::make_shared<const controls::Font>();
    QFont m_deviceFont;
    controls::ScaleMode m_mode = controls::ScaleMode::Twips;
    double m_currentY = 0;
    Qt::BrushStyle m_brush = Qt::NoBrush;
    int m_drawWidth = 1;
};

} // namespace comfortics::ui
