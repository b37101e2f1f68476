// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/conversions.h"

#include <algorithm>

namespace comfortics::converter {

namespace {

bool equalButForCase(std::string_view a, std::string_view b)
{
    const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&lower](char x, char y) { return lower(x) == lower(y); });
}

} // namespace

std::string unitText(const Conversion& conversion)
{
    return std::string(conversion.unit) + (conversion.panel == Panel::SolarRadiation ? "²" : "");
}

std::string converted(const Conversion& conversion, double x)
{
    return values::format(conversion.formula(x).value(), conversion.format);
}

const Conversion* findConversion(std::string_view name)
{
    constexpr std::size_t kPrefix = std::string_view("txt_").size();
    const auto* const found =
        std::find_if(kConversions.begin(), kConversions.end(), [name](const Conversion& one) {
            return equalButForCase(name, one.name) || equalButForCase(name, unitText(one)) ||
                   equalButForCase(name, one.box.substr(kPrefix));
        });
    return found == kConversions.end() ? nullptr : found;
}

} // namespace comfortics::converter
