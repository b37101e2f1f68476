// SPDX-License-Identifier: GPL-3.0-or-later
#include "values/plain_text.h"

#include <array>
#include <charconv>

namespace comfortics::values {

std::string plainText(double value)
{
    if (value == 0)
        return "0";
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                            std::chars_format::general, kSignificantDigits);
    (void)error;
    for (char* c = buffer.data(); c != end; ++c)
        if (*c == 'e')
            *c = 'E';
    return std::string(buffer.data(), end);
}

} // namespace comfortics::values
