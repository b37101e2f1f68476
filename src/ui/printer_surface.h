// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "output/print_job.h"

#include <QFont>
#include <QImage>
#include <QPainter>

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

/// A printer, a PDF file or a preview as a drawing surface. Its origin is the paper's corner.
class PrinterSurface final : public output::Printer {
public:
    /// What a printer must be set to before the job.
    static void prepare(QPrinter& printer);

    explicit PrinterSurface(QPrinter& printer);

    void print() override;
    double pageWidth() const override;
    void newPage() override;
    void endDoc() override;

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
    QPointF pixels(double x, double y) const;
    void setPen(const QColor& color);
    QSizeF paper() const;

    QPrinter& m_printer;
    QPainter m_painter;
    controls::FontRef m_font = std::make_shared<const controls::Font>();
    QFont m_deviceFont;
    controls::ScaleMode m_mode = controls::ScaleMode::Twips;
    double m_currentY = 0;
    int m_drawWidth = 1;
};

} // namespace comfortics::ui
