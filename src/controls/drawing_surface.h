// SPDX-License-Identifier: GPL-3.0-or-later
//
// What is drawn on: a printer, a picture, a test's record. Coordinates are in the unit of the
// surface's scale mode but where pixels are named.
#pragma once

#include "controls/controls.h"

#include <memory>
#include <string>
#include <string_view>

namespace comfortics::controls {

/// A typeface as forms name it; the size in points.
struct Font {
    std::string name = "MS Sans Serif";
    double size = 8.25;
    bool bold = false;
    bool italic = false;
    bool strikeThrough = false;
    bool underline = false;

    friend bool operator==(const Font&, const Font&) = default;
};

/// Fonts are shared: two references to the same object need no comparison.
using FontRef = std::shared_ptr<const Font>;

/// A picture that a cell shows; views derive their own from it. Width and height in HiMetric
/// (0.01 mm).
class Image {
public:
    virtual ~Image() = default;
    virtual double width() const = 0;
    virtual double height() const = 0;
};
using ImageRef = std::shared_ptr<const Image>;

/// The units of a surface, by their classic numbers: 1440 twips or 2540 HiMetric are one inch.
enum class ScaleMode : int { Twips = 1, Pixels = 3, HiMetric = 8 };

/// Flags of `drawText`. Without an alignment bit the text stands left.
inline constexpr unsigned DT_CENTER = 1;
inline constexpr unsigned DT_RIGHT = 2;
inline constexpr unsigned DT_CALCRECT = 1024;
inline constexpr unsigned DT_NOPREFIX = 2048;

/// Fill style of boxes: only the outline shows.
inline constexpr int kTransparentFill = 1;

/// A rectangle in whole pixels; right and bottom lie outside.
struct PixelRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

/// Draws with a current font, scale mode, line width and fill style. Colours are those of `Color`.
class DrawingSurface {
public:
    virtual ~DrawingSurface() = default;

    virtual FontRef font() const = 0;
    virtual void setFont(FontRef font) = 0;
    /// Height of the text in the current font, each line break starting a new line. An empty text
    /// is one line high.
    virtual double textHeight(std::string_view text) const = 0;

    virtual ScaleMode scaleMode() const = 0;
    virtual void setScaleMode(ScaleMode mode) = 0;
    /// The drawable width and height.
    virtual double scaleWidth() const = 0;
    virtual double scaleHeight() const = 0;
    virtual double pixelsPerInchX() const = 0;
    virtual double pixelsPerInchY() const = 0;
    /// Converts a width or a height from one unit to another. Pixels come with their fraction.
    double scaleX(double value, ScaleMode from, ScaleMode to) const;
    double scaleY(double value, ScaleMode from, ScaleMode to) const;

    /// Where the next output begins.
    virtual double currentY() const = 0;
    virtual void setCurrentY(double y) = 0;

    /// Outer height in twips. A picture grows by it, a printer's page does not.
    virtual double height() const = 0;
    virtual void setHeight(double twips) = 0;

    virtual void setFillStyle(int style) = 0;
    /// Line width in pixels.
    virtual void setDrawWidth(int pixels) = 0;
    virtual void line(double x1, double y1, double x2, double y2, Color color) = 0;
    /// The outline of a rectangle in the current draw width, black.
    virtual void box(double x1, double y1, double x2, double y2) = 0;
    virtual void paintPicture(const Image& image, double x, double y, double width, double height) = 0;

    /// Draws text in the current font at the top of the rectangle, aligned by the flags; lines break
    /// at line breaks only. A text that is wider than the rectangle gets a smaller size, in the middle
    /// of the height that it would have taken. Returns the height of the text in pixels. With
    /// DT_CALCRECT nothing is drawn and the rectangle takes the size of the text.
    virtual int drawText(std::string_view text, PixelRect& rectangle, unsigned flags) = 0;
};

} // namespace comfortics::controls
