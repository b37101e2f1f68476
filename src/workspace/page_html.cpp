// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/page_html.h"

#include <array>
#include <cstdio>

namespace comfortics::workspace {

std::string escaped(std::string_view text)
{
    std::string result;
    for (const char c : text) {
        if (c == '&')
            result += "&amp;";
        else if (c == '<')
            result += "&lt;";
        else if (c == '>')
            result += "&gt;";
        else if (c == '"')
            result += "&quot;";
        else if (c == '\n')
            result += "<br>";
        else if (static_cast<unsigned char>(c) >= ' ') // no other control character is a letter
            result += c;
    }
    return result;
}

std::string hex(const Rgb& color)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", color.red, color.green, color.blue);
    return text.data();
}

std::string row(std::initializer_list<std::string> cells, const char* tag)
{
    std::string text = "<tr>";
    for (const std::string& cell : cells)
        text += "<" + std::string(tag) + ">" + cell + "</" + tag + ">";
    return text + "</tr>";
}

} // namespace comfortics::workspace
