// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/colors.h"

namespace comfortics::ui {

namespace {

constexpr controls::Color kWhite = 0xFFFFFF;
constexpr int kMiddle = 128;
constexpr float kDarkSaturation = 0.75F;
constexpr float kPaleSaturation = 0.35F; // a pale colour stays the quieter one
constexpr float kDarkLightness = 0.20F;
constexpr float kPaleLightness = 0.80F;

QColor darkened(const QColor& color)
{
    const bool pale = color.lightnessF() > kPaleLightness;
    return QColor::fromHslF(color.hslHueF(), pale ? kPaleSaturation : kDarkSaturation, kDarkLightness);
}

} // namespace

bool isDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < kMiddle;
}

QColor screenColor(controls::Color color)
{
    return QColor::fromRgb(static_cast<int>(color & 0xFFU), static_cast<int>((color >> 8U) & 0xFFU),
                           static_cast<int>((color >> 16U) & 0xFFU));
}

QPalette boxPalette(const QPalette& palette, controls::Color ground)
{
    if (ground == kWhite)
        return palette;
    const bool dark = isDark(palette);
    const QColor color = screenColor(ground);
    QPalette result = palette;
    result.setColor(QPalette::Base, dark ? darkened(color) : color);
    result.setColor(QPalette::Text, dark ? Qt::white : Qt::black);
    return result;
}

QColor faded(QColor color, float opacity)
{
    color.setAlphaF(opacity);
    return color;
}

} // namespace comfortics::ui
