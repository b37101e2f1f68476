// SPDX-License-Identifier: GPL-3.0-or-later
#include "converter/conversions.h"

#include "texts/number_text.h"
#include "texts/text.h"

#include <algorithm>

namespace comfortics::converter {

using texts::lowered;

std::string unitText(const Conversion& conversion)
{
    return std::string(conversion.unit) + (conversion.panel == Panel::SolarRadiation ? "²" : "");
}

std::string converted(const Conversion& conversion, double x)
{
    return texts::format(conversion.formula(x).value(), conversion.format);
}

const Conversion* findConversion(std::string_view name)
{
    constexpr std::size_t kPrefix = std::string_view("txt_").size();
    const std::string wanted = lowered(name);
    const auto* const found =
        std::find_if(kConversions.begin(), kConversions.end(), [&wanted](const Conversion& one) {
            return wanted == lowered(one.name) || wanted == lowered(unitText(one)) ||
                   wanted == lowered(one.box.substr(kPrefix));
        });
    return found == kConversions.end() ? nullptr : found;
}

} // namespace comfortics::converter
