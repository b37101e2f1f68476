// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/severity_colors.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace comfortics::workspace {

namespace {

constexpr int kMost = 4;

constexpr Rgb rgb(std::uint32_t hex)
{
    return {static_cast<std::uint8_t>(hex >> 16U), static_cast<std::uint8_t>(hex >> 8U),
            static_cast<std::uint8_t>(hex)};
}

constexpr Rgb kBlack = rgb(0x111111);
constexpr Rgb kWhite = rgb(0xFFFFFF);

using Ramp = std::array<Rgb, 2 * kMost + 1>; // from -4 to 4

constexpr Ramp kOnLight{rgb(0x0B3D6B), rgb(0x2A6FB5), rgb(0x7FB5E0), rgb(0xBFDBF2), rgb(0xF2F2F2),
                        rgb(0xFBD9B0), rgb(0xF3A768), rgb(0xC9431F), rgb(0x7A0F16)};
constexpr Ramp kOnDark{rgb(0xB3D8FF), rgb(0x5FA2E6), rgb(0x2C67A6), rgb(0x27496C), rgb(0x3A3A3A),
                       rgb(0x673A21), rgb(0xA8451F), rgb(0xF0703F), rgb(0xFFB199)};

double linear(std::uint8_t channel)
{
    const double share = channel / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

} // namespace

FieldColors severityColors(int severity, Ground ground)
{
    const Ramp& ramp = ground == Ground::Light ? kOnLight : kOnDark;
    const int place = std::clamp(severity, -kMost, kMost) + kMost;
    const Rgb field = ramp[static_cast<std::size_t>(place)];
    return {field, contrast(field, kWhite) > contrast(field, kBlack) ? kWhite : kBlack};
}

double luminance(const Rgb& color)
{
    return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

double contrast(const Rgb& one, const Rgb& other)
{
    const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

} // namespace comfortics::workspace
