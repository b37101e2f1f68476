// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/words.h"

#include "tables/coding.h"

#include <algorithm>
#include <array>

namespace comfortics::tables {

namespace {

constexpr char32_t kLatinBegin = 0xC0;

// The letters from U+00C0 to U+00FF in lower case and without accents; '*' and '/' are no letters.
constexpr std::string_view kLatin = "aaaaaaaceeeeiiiidnooooo*ouuuuyts"
                                    "aaaaaaaceeeeiiiidnooooo/ouuuuyty";
static_assert(kLatin.size() == 64);

// The letters from U+0100 to U+017F in the same way; '.' stands for those that have no plain one.
constexpr std::string_view kLatinExtended =
    "aaaaaaccccccccddddeeeeeeeeeegggggggghhhhiiiiiiiiii..jjkk.lllllll"
    "lllnnnnnnn..oooooo..rrrrrrssssssssttttttuuuuuuuuuuuuwwyyyzzzzzzs";
static_assert(kLatinExtended.size() == 0x80);

char32_t greek(char32_t c)
{
    constexpr std::array<std::array<char32_t, 2>, 19> kAccented{{{0x386, 0x3B1},
                                                                 {0x388, 0x3B5},
                                                                 {0x389, 0x3B7},
                                                                 {0x38A, 0x3B9},
                                                                 {0x38C, 0x3BF},
                                                                 {0x38E, 0x3C5},
                                                                 {0x38F, 0x3C9},
                                                                 {0x390, 0x3B9},
                                                                 {0x3AA, 0x3B9},
                                                                 {0x3AB, 0x3C5},
                                                                 {0x3AC, 0x3B1},
                                                                 {0x3AD, 0x3B5},
                                                                 {0x3AE, 0x3B7},
                                                                 {0x3AF, 0x3B9},
                                                                 {0x3B0, 0x3C5},
                                                                 {0x3CA, 0x3B9},
                                                                 {0x3CB, 0x3C5},
                                                                 {0x3CC, 0x3BF},
                                                                 {0x3CD, 0x3C5}}};
    for (const auto& [accented, plain] : kAccented)
        if (c == accented)
            return plain;
    if (c == 0x3CE)
        return 0x3C9;
    if (c == 0x3C2) // the sigma that ends a word
        return 0x3C3;
    return c >= 0x391 && c <= 0x3A9 ? c + 0x20 : c;
}

// The character that a text begins with; what is no UTF-8 goes byte by byte.
struct Character {
    char32_t code = 0;
    std::size_t bytes = 1;
};

Character firstOf(std::string_view text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (byte(0) >= 0xC2 && byte(0) < 0xE0 && text.size() > 1 && (byte(1) & 0xC0U) == 0x80)
        return {(byte(0) & 0x1FU) << 6U | (byte(1) & 0x3FU), 2};
    return {byte(0) < 0x80 ? byte(0) : char32_t{0x110000}, 1};
}

enum class Kind { Other, Small, Large, Digit };

Kind kindOf(char32_t c)
{
    if ((c >= '0' && c <= '9') || c == '%') // "RH%" is two words, too
        return Kind::Digit;
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7) ||
        (c >= 0x386 && c <= 0x3AB && c != 0x390))
        return Kind::Large;
    // Capitals of the extended letters go for small ones: they part no words.
    const bool small =
        (c >= 'a' && c <= 'z') || (c >= 0xDF && c <= 0x17F && c != 0xF7) || (c >= 0x390 && c <= 0x3CE);
    return small ? Kind::Small : Kind::Other;
}

void appendFolded(std::string& text, std::string_view bytes, char32_t code)
{
    if (code >= 'A' && code <= 'Z')
        text += static_cast<char>(code - 'A' + 'a');
    else if (code >= kLatinBegin && code <= 0xFF && code != 0xD7 && code != 0xF7)
        text += kLatin[code - kLatinBegin];
    else if (code > 0xFF && code <= 0x17F && kLatinExtended[code - 0x100] != '.')
        text += kLatinExtended[code - 0x100];
    else if (code >= 0x370 && code < 0x400)
        appendUtf8(text, greek(code));
    else
        text += bytes;
}

} // namespace

std::string folded(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const Character c = firstOf(text);
        appendFolded(result, text.substr(0, c.bytes), c.code);
        text.remove_prefix(c.bytes);
    }
    return result;
}

std::vector<std::string> words(std::string_view text)
{
    std::vector<std::string> all;
    std::string word;
    const auto close = [&] {
        if (!word.empty())
            all.push_back(std::move(word));
        word.clear();
    };
    Kind before = Kind::Other;
    while (!text.empty()) {
        const Character c = firstOf(text);
        const Kind kind = kindOf(c.code);
        if (kind == Kind::Other || (kind == Kind::Large && before == Kind::Small) ||
            (kind == Kind::Digit) != (before == Kind::Digit))
            close();
        if (kind != Kind::Other)
            appendFolded(word, text.substr(0, c.bytes), c.code);
        before = kind;
        text.remove_prefix(c.bytes);
    }
    close();
    return all;
}

std::string_view withoutSensors(std::string_view name)
{
    return name.substr(0, std::min(name.find("(LGR"), name.find("(SEN")));
}

bool contains(const std::vector<std::string>& all, const std::vector<std::string>& wanted)
{
    return std::search(all.begin(), all.end(), wanted.begin(), wanted.end()) != all.end();
}

} // namespace comfortics::tables
