// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/code_page.h"

#include <gtest/gtest.h>

#include <string>

namespace comfortics::tests {

namespace {

std::string encoded(std::string_view text)
{
    std::string bytes;
    output::appendWindows1252(bytes, text);
    return bytes;
}

} // namespace

TEST(CodePage, AsciiAndLatinKeepTheirCode)
{
    for (unsigned code = 0; code < 0x80; ++code)
        EXPECT_EQ(encoded(std::string(1, static_cast<char>(code))), std::string(1, static_cast<char>(code)));
    for (unsigned code = 0xA0; code <= 0xFF; ++code) {
        const std::string text{static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
        EXPECT_EQ(encoded(text), std::string(1, static_cast<char>(code))) << code;
    }
    EXPECT_EQ(encoded("W/m\xC2\xB2, 20\xC2\xB0."), "W/m\xB2, 20\xB0.");
}

TEST(CodePage, TheUpperControlsHoldTypographicSigns)
{
    // As Python's codec "cp1252" encodes them.
    EXPECT_EQ(
        encoded("\xE2\x82\xAC\xE2\x80\x9A\xC6\x92\xE2\x80\x9E\xE2\x80\xA6\xE2\x80\xA0\xE2\x80\xA1\xCB\x86"
                "\xE2\x80\xB0\xC5\xA0\xE2\x80\xB9\xC5\x92\xC5\xBD\xE2\x80\x98\xE2\x80\x99\xE2\x80\x9C"
                "\xE2\x80\x9D\xE2\x80\xA2\xE2\x80\x93\xE2\x80\x94\xCB\x9C\xE2\x84\xA2\xC5\xA1\xE2\x80\xBA"
                "\xC5\x93\xC5\xBE\xC5\xB8"),
        "\x80\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8E\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B"
        "\x9C\x9E\x9F");
}

TEST(CodePage, WhatItLacksBecomesAQuestionMark)
{
    EXPECT_EQ(encoded("\xCE\xB1z"), "?z");                         // alpha
    EXPECT_EQ(encoded("\xF0\x9F\x8C\xA1z"), "?z");                 // one mark for four bytes
    EXPECT_EQ(encoded("\xC2\x84"), "?");                           // a control whose byte is another's
    EXPECT_EQ(encoded("\xE2\x82z\xB2\xE2\x82"), "??z???");         // broken off, no lead byte, cut short
    EXPECT_EQ(encoded("\xC0\xAF\xE0\x82\xAC"), "?????");           // overlong
    EXPECT_EQ(encoded("\xED\xA0\x80\xF4\x90\x80\x80"), "???????"); // a surrogate, beyond the last
}

} // namespace comfortics::tests
