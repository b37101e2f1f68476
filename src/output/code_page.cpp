// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/code_page.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace comfortics::output {

namespace {

constexpr char kNotInCodePage = '?';

// The characters of the bytes 0x80 to 0x9F. The five unassigned bytes stand for themselves.
constexpr char32_t kUpperControls[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, // 0x80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F, // 0x88
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, // 0x90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178, // 0x98
};

char byteOf(char32_t character)
{
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF))
        return static_cast<char>(character);
    const auto* found = std::find(std::begin(kUpperControls), std::end(kUpperControls), character);
    return found == std::end(kUpperControls) ? kNotInCodePage
                                             : static_cast<char>(0x80 + (found - kUpperControls));
}

struct Decoded {
    char32_t character;
    std::size_t length; // 0 where no character starts
};

Decoded decode(std::string_view text)
{
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
    if (length == 0 || length > text.size())
        return {0, 0};
    char32_t character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const auto next = static_cast<unsigned char>(text[i]);
        if ((next & 0xC0) != 0x80)
            return {0, 0};
        character = character << 6 | (next & 0x3Fu);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool overlong = character < kSmallest[length];
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (overlong || surrogate || character > 0x10FFFF)
        return {0, 0};
    return {character, length};
}

} // namespace

void appendWindows1252(std::string& bytes, std::string_view text)
{
    while (!text.empty()) {
        const auto ascii = std::find_if(text.begin(), text.end(), [](char c) { return (c & 0x80) != 0; });
        bytes.append(text.begin(), ascii);
        text.remove_prefix(static_cast<std::size_t>(ascii - text.begin()));
        if (text.empty())
            return;
        const Decoded decoded = decode(text);
        bytes += decoded.length == 0 ? kNotInCodePage : byteOf(decoded.character);
        text.remove_prefix(std::max<std::size_t>(decoded.length, 1));
    }
}

} // namespace comfortics::output
