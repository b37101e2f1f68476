// SPDX-License-Identifier: GPL-3.0-or-later
//
// The colours of what values mean, for windows and paper. A colour stands beside its word and sign, never for
// them.
#pragma once

#include <cstdint>

namespace comfortics::workspace {

/// A colour of the screen (sRGB).
struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// What a colour stands on.
enum class Ground { Light, Dark }; ///< paper is light

/// A field of colour and the letters on it.
struct FieldColors {
    Rgb field;
    Rgb text;
};

/// Of a severity from -4 to 4: blue for cold, red for heat, grey between. On a light ground a colour gets
/// darker with each step away from 0, on a dark one lighter, so that steps are told apart without their hues,
/// too. What lies beyond has the colour of the end.
FieldColors severityColors(int severity, Ground ground);

/// Luminance of a colour, 0 black to 1 white, as WCAG 2 has it.
double luminance(const Rgb& color);

/// Ratio of contrast, 1 to 21, as WCAG 2 has it; letters need 4.5.
double contrast(const Rgb& one, const Rgb& other);

} // namespace comfortics::workspace
