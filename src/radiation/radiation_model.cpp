// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/radiation_model.h"

#include "texts/number_text.h"
#include "values/plain_text.h"

#include <cmath>

namespace comfortics::radiation {

using values::Number;

namespace {

constexpr values::Format kClockFormat{0, 2};

Number Int(Number x)
{
    return std::floor(x.value());
}

// One decimal of the figure's 15 significant digits, halves to even.
std::string figureText(Number x)
{
    const std::string text = values::plainText(x.value());
    const std::size_t point = text.find('.');
    const bool isHalf = point != std::string::npos && text.size() == point + 3 && text.back() == '5';
    if (isHalf && (text[point + 1] - '0') % 2 == 0)
        return texts::format(text.substr(0, point + 2), values::kFormat0_0);
    return texts::format(x.value(), values::kFormat0_0); // halves away from zero
}

std::string clockText(Number m)
{
    Number hh = Int(m / 60);
    const Number mm = m - hh * 60;
    if (mm == 60)
        hh = hh + 1;
    return texts::format(hh.value(), kClockFormat) + ":" + texts::format(mm.value(), kClockFormat);
}

} // namespace

std::vector<MinuteRow> minuteRows(const Site& site, const DayLimits& limits)
{
    std::vector<MinuteRow> rows;
    models::walkMinutes(site, limits, [&](const models::SolarMinute& at) {
        rows.push_back(
            {.row = static_cast<std::size_t>(Int(at.minute - limits.rise).value() + 1),
             .time = clockText(at.minute),
             .figures = {figureText(at.th), figureText(at.tt), figureText(at.thc), figureText(at.ttc)}});
    });
    return rows;
}

} // namespace comfortics::radiation
