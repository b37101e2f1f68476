// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/severity_colors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace comfortics::workspace {
namespace {

TEST(SeverityColors, AreLegibleAndStepInLuminanceOnEachGround)
{
    for (const Ground ground : {Ground::Light, Ground::Dark}) {
        for (int severity = -4; severity <= 4; ++severity) {
            const FieldColors colors = severityColors(severity, ground);
            EXPECT_GE(contrast(colors.field, colors.text), 4.5) << severity;
            if (severity == 0)
                continue;
            // Away from 0 towards the dark on paper, towards the light on a dark ground.
            const FieldColors milder = severityColors(severity > 0 ? severity - 1 : severity + 1, ground);
            const double step = luminance(colors.field) / luminance(milder.field);
            EXPECT_GT(ground == Ground::Light ? 1 / step : step, 1.15) << severity;
        }
    }
    // The ratios that WCAG 2 gives: black on white, and #777777, the grey that just fails on white.
    EXPECT_DOUBLE_EQ(contrast({0, 0, 0}, {255, 255, 255}), 21);
    EXPECT_NEAR(contrast({0x77, 0x77, 0x77}, {255, 255, 255}), 4.48, 0.005);
}

using Vector = std::array<double, 3>;
using Matrix = std::array<Vector, 3>;

double linear(std::uint8_t channel)
{
    const double share = channel / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

// CIE L*a*b* of a colour as an eye of that kind sees it.
Vector seen(const Rgb& color, const Matrix& eye)
{
    const Vector rgb{linear(color.red), linear(color.green), linear(color.blue)};
    const auto times = [](const Vector& row, const Vector& v) {
        return std::clamp(row[0] * v[0] + row[1] * v[1] + row[2] * v[2], 0.0, 1.0);
    };
    const Vector v{times(eye[0], rgb), times(eye[1], rgb), times(eye[2], rgb)};
    const auto f = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116; };
    const double x = f(times({0.4124, 0.3576, 0.1805}, v) / 0.9505);
    const double y = f(times({0.2126, 0.7152, 0.0722}, v));
    const double z = f(times({0.0193, 0.1192, 0.9505}, v) / 1.089);
    return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

TEST(SeverityColors, AreToldApartByTheColourBlind)
{
    // Machado, Oliveira and Fernandes (2009), complete dichromacy.
    const std::pair<const char*, Matrix> eyes[] = {
        {"common", {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}},
        {"protanope",
         {{{0.152286, 1.052583, -0.204868},
           {0.114503, 0.786281, 0.099216},
           {-0.003882, -0.048116, 1.051998}}}},
        {"deuteranope",
         {{{0.367322, 0.860646, -0.227968},
           {0.280085, 0.672501, 0.047413},
           {-0.011820, 0.042940, 0.968881}}}},
        {"tritanope",
         {{{1.255528, -0.076749, -0.178779},
           {-0.078411, 0.930809, 0.147602},
           {0.004733, 0.691367, 0.303900}}}},
    };
    constexpr double kPlain = 12; // of the difference in L*a*b*, where 2.3 is just noticeable
    for (const Ground ground : {Ground::Light, Ground::Dark})
        for (const auto& [name, eye] : eyes)
            for (int one = -4; one <= 4; ++one)
                for (int other = one + 1; other <= 4; ++other) {
                    const Vector a = seen(severityColors(one, ground).field, eye);
                    const Vector b = seen(severityColors(other, ground).field, eye);
                    EXPECT_GT(std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]), kPlain)
                        << name << " " << one << " " << other;
                }
}

} // namespace
} // namespace comfortics::workspace
