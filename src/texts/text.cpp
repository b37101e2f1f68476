// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/text.h"

#include <cstddef>

namespace comfortics::texts {

// In UTF-8 the accented letters of Latin-1 are the byte C3 and one of 80 to BE; 97 and B7 are no letters.
std::string lowered(std::string_view text)
{
    std::string lower(text);
    for (std::size_t i = 0; i < lower.size(); ++i) {
        const auto byte = static_cast<unsigned char>(lower[i]);
        const bool capital = byte >= 'A' && byte <= 'Z';
        const bool accented = i > 0 && static_cast<unsigned char>(lower[i - 1]) == 0xC3 && byte >= 0x80 &&
                              byte <= 0x9E && byte != 0x97;
        if (capital || accented)
            lower[i] = static_cast<char>(byte + 0x20);
    }
    return lower;
}

std::string_view trimmed(std::string_view text, std::string_view blanks)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace comfortics::texts
