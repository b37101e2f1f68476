// SPDX-License-Identifier: GPL-3.0-or-later
//
// A printer that writes down what is drawn on it, page by page, one line each:
//   box LEFT,TOP,RIGHT,BOTTOM wWIDTH          in pixels
//   text LEFT,TOP,RIGHT,BOTTOM fFLAGS sSIZE TEXT
// An inch has 144 pixels across and 72 down, so that a swap shows; a line of text is 24 twips high
// for each point of its font.
#pragma once

#include "output/print_job.h"

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace comfortics::tests {

inline controls::FontRef font(double size)
{
    return std::make_shared<const controls::Font>(controls::Font{.name = "Test", .size = size});
}

class RecordingPrinter final : public output::Printer {
public:
    using ScaleMode = controls::ScaleMode;

    std::vector<std::vector<std::string>> pages{1};
    std::string texts; // a blank before each, and " /" where a page begins
    std::string job;   // what was asked of the printer, in order
    std::string ended; // what the end of the job answers
    output::PageMargins own;
    double widthTwips = 6000;
    double heightTwips = 2000;

    void print() override { job += "print "; }
    void newPage() override
    {
        job += "page ";
        texts += " /";
        pages.emplace_back();
        m_currentY = 0;
    }
    output::WriteResult endDoc() override
    {
        job += "end ";
        return {ended};
    }
    output::PageMargins margins() const override { return own; }

    controls::FontRef font() const override { return m_font; }
    void setFont(controls::FontRef font) override { m_font = std::move(font); }
    double textHeight(std::string_view text) const override
    {
        return scaleY(textTwips(text), ScaleMode::Twips, m_mode);
    }
    ScaleMode scaleMode() const override { return m_mode; }
    void setScaleMode(ScaleMode mode) override { m_mode = mode; }
    double scaleWidth() const override { return scaleX(widthTwips, ScaleMode::Twips, m_mode); }
    double scaleHeight() const override { return scaleY(heightTwips, ScaleMode::Twips, m_mode); }
    double pageWidth() const override { return widthTwips; }
    double height() const override { return heightTwips; }
    void setHeight(double twips) override { heightTwips = twips; }
    double pixelsPerInchX() const override { return 144; }
    double pixelsPerInchY() const override { return 72; }
    double currentY() const override { return m_currentY; }
    void setCurrentY(double y) override { m_currentY = y; }
    void setFillStyle(int style) override { m_fillStyle = style; }
    void setDrawWidth(int pixels) override { m_drawWidth = pixels; }
    void line(double, double, double, double, controls::Color) override { add("line"); }
    void box(double x1, double y1, double x2, double y2) override
    {
        const bool fits = m_mode == ScaleMode::Pixels && m_fillStyle == controls::kTransparentFill;
        add("box ", x1, ",", y1, ",", x2, ",", y2, " w", m_drawWidth, fits ? "" : " not in pixels or filled");
    }
    void paintPicture(const controls::Image&, double, double, double, double) override { add("picture"); }
    int drawText(std::string_view text, controls::PixelRect& at, unsigned flags) override
    {
        const int height = static_cast<int>(std::lround(textTwips(text) / 20));
        if (flags == (controls::DT_NOPREFIX | controls::DT_CALCRECT)) {
            at.bottom = at.top + height;
        } else {
            texts.append(" ").append(text);
            add("text ", at.left, ",", at.top, ",", at.right, ",", at.bottom, " f", flags, " s", m_font->size,
                " ", text);
        }
        return height;
    }

private:
    template <class... Parts>
    void add(const Parts&... parts)
    {
        std::ostringstream line;
        (line << ... << parts);
        pages.back().push_back(line.str());
    }
    double textTwips(std::string_view text) const
    {
        return m_font->size * 24 * static_cast<double>(1 + std::count(text.begin(), text.end(), '\n'));
    }

    controls::FontRef m_font = tests::font(10);
    ScaleMode m_mode = ScaleMode::Twips;
    double m_currentY = 0;
    int m_fillStyle = 0;
    int m_drawWidth = 0;
};

} // namespace comfortics::tests
