// SPDX-License-Identifier: GPL-3.0-or-later
//
// Surfaces that write down what is drawn on them, page by page, one line each:
//   box LEFT,TOP,RIGHT,BOTTOM wWIDTH          in pixels
//   text LEFT,TOP,RIGHT,BOTTOM fFLAGS sSIZE TEXT
//   picture X,Y,WIDTH,HEIGHT and line X1,Y1,X2,Y2 COLOR, in the unit of the scale mode
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

template <class Base>
class Recording : public Base {
public:
    using FontRef = controls::FontRef;
    using ScaleMode = controls::ScaleMode;

    std::vector<std::vector<std::string>> pages{1};
    double widthTwips = 6000;
    double heightTwips = 2000;
    int fontChanges = 0;

    FontRef font() const override { return m_font; }
    void setFont(FontRef font) override
    {
        ++fontChanges;
        m_font = std::move(font);
    }
    double textHeight(std::string_view text) const override
    {
        return this->scaleY(textTwips(text), ScaleMode::Twips, m_mode);
    }
    ScaleMode scaleMode() const override { return m_mode; }
    void setScaleMode(ScaleMode mode) override { m_mode = mode; }
    double scaleWidth() const override { return this->scaleX(widthTwips, ScaleMode::Twips, m_mode); }
    double scaleHeight() const override { return this->scaleY(heightTwips, ScaleMode::Twips, m_mode); }
    double pixelsPerInchX() const override { return 144; }
    double pixelsPerInchY() const override { return 72; }
    double currentY() const override { return m_currentY; }
    void setCurrentY(double y) override { m_currentY = y; }
    double height() const override { return heightTwips; }
    void setHeight(double twips) override { heightTwips = twips; }
    void setFillStyle(int style) override { m_fillStyle = style; }
    void setDrawWidth(int pixels) override { m_drawWidth = pixels; }
    void line(double x1, double y1, double x2, double y2, controls::Color color) override
    {
        add("line ", x1, ",", y1, ",", x2, ",", y2, " ", std::hex, color);
    }
    void box(double x1, double y1, double x2, double y2) override
    {
        const bool fits = m_mode == ScaleMode::Pixels && m_fillStyle == controls::kTransparentFill;
        add("box ", x1, ",", y1, ",", x2, ",", y2, " w", m_drawWidth, fits ? "" : " not in pixels or filled");
    }
    void paintPicture(const controls::Image&, double x, double y, double width, double height) override
    {
        add("picture ", x, ",", y, ",", width, ",", height);
    }
    int drawText(std::string_view text, controls::PixelRect& at, unsigned flags) override
    {
        const int height = static_cast<int>(std::lround(textTwips(text) / 20));
        if (flags == (controls::DT_NOPREFIX | controls::DT_CALCRECT))
            at.bottom = at.top + height;
        else
            add("text ", at.left, ",", at.top, ",", at.right, ",", at.bottom, " f", flags, " s", m_font->size,
                " ", text);
        return height;
    }

    /// The texts of each page, joined by blanks, the pages by " / ".
    std::string texts() const
    {
        std::string all;
        for (const auto& page : pages) {
            all += &page == &pages.front() ? "" : " /";
            for (const std::string& line : page)
                if (line.starts_with("text "))
                    all += (all.empty() ? "" : " ") + line.substr(line.rfind(' ') + 1);
        }
        return all;
    }

protected:
    double m_currentY = 0;

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

    FontRef m_font = tests::font(10);
    ScaleMode m_mode = ScaleMode::Twips;
    int m_fillStyle = 0;
    int m_drawWidth = 0;
};

using RecordingPicture = Recording<controls::DrawingSurface>;

class RecordingPrinter final : public Recording<output::Printer> {
public:
    std::string job; // what was asked of the printer, in order
    void print() override { job += "print "; }
    double pageWidth() const override { return widthTwips; }
    void newPage() override
    {
        job += "page ";
        pages.emplace_back();
        m_currentY = 0;
    }
    void endDoc() override { job += "end "; }
};

class TestImage final : public controls::Image {
public:
    TestImage(double width, double height) : m_width(width), m_height(height) {}
    double width() const override { return m_width; }
    double height() const override { return m_height; }

private:
    double m_width;
    double m_height;
};

} // namespace comfortics::tests
