// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/coding.h"

#include "tables/names.h"

#include <algorithm>
#include <array>
#include <utility>

namespace comfortics::tables {

using namespace std::string_view_literals;

namespace {

constexpr std::size_t kSample = std::size_t{1} << 18;
constexpr std::size_t kBlock = std::size_t{1} << 16;
constexpr char32_t kNoCharacter = 0xFFFD;

constexpr std::array<std::string_view, 5> kCodingNames{"utf-8", "utf-16le", "utf-16be", "windows-1252",
                                                       "windows-1253"};

// The characters of the bytes 0x80 to 0x9F of Windows-1252.
constexpr std::array<char32_t, 32> kWestern{
    0x20AC,       kNoCharacter, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,
    0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kNoCharacter, 0x017D, kNoCharacter,
    kNoCharacter, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,
    0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kNoCharacter, 0x017E, 0x0178,
};

char32_t westernCharacter(unsigned char byte)
{
    return byte >= 0x80 && byte < 0xA0 ? kWestern[byte - 0x80U] : byte;
}

char32_t greekCharacter(unsigned char byte)
{
    switch (byte) {
    case 0x88:
    case 0x8A:
    case 0x8C:
    case 0x8E:
    case 0x98:
    case 0x9A:
    case 0x9C:
    case 0x9E:
    case 0x9F:
    case 0xAA:
    case 0xD2:
    case 0xFF:
        return kNoCharacter;
    case 0xA1:
        return 0x0385;
    case 0xA2:
        return 0x0386;
    case 0xAF:
        return 0x2015;
    case 0xB4:
        return 0x0384;
    case 0xB8:
    case 0xB9:
    case 0xBA:
    case 0xBC:
    case 0xBE:
    case 0xBF:
        return 0x0388U + (byte - 0xB8U);
    default:
        return byte >= 0xC0 ? 0x0390U + (byte - 0xC0U) : westernCharacter(byte);
    }
}

// How many bytes the character takes whose first byte this is, 0 where none begins with it.
std::size_t utf8Length(unsigned char lead)
{
    if (lead < 0x80)
        return 1;
    return lead < 0xC2 ? 0 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : lead < 0xF5 ? 4 : 0;
}

bool looksLikeUtf16(std::string_view text, std::size_t zeroAt)
{
    const std::size_t pairs = std::min<std::size_t>(text.size(), 512) / 2;
    std::size_t zeros = 0;
    for (std::size_t i = 0; i < pairs; ++i)
        zeros += text[2 * i + zeroAt] == '\0' && text[2 * i + 1 - zeroAt] != '\0' ? 1U : 0U;
    return pairs > 0 && 2 * zeros > pairs;
}

} // namespace

std::string_view codingName(Coding coding)
{
    return kCodingNames[static_cast<std::size_t>(coding)];
}

std::optional<Coding> codingOfName(std::string_view name)
{
    return valueOfName<Coding>(kCodingNames, name);
}

void appendUtf8(std::string& text, char32_t character)
{
    const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0U | (character >> 6U));
        add(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        add(0xE0U | (character >> 12U));
        add(0x80U | (character >> 6U & 0x3FU));
        add(0x80U | (character & 0x3FU));
    } else {
        add(0xF0U | (character >> 18U));
        add(0x80U | (character >> 12U & 0x3FU));
        add(0x80U | (character >> 6U & 0x3FU));
        add(0x80U | (character & 0x3FU));
    }
}

std::size_t utf8Prefix(std::string_view text, bool whole)
{
    std::size_t at = 0;
    while (at < text.size()) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = utf8Length(lead);
        if (length == 0)
            return at;
        for (std::size_t i = 1; i < length; ++i) {
            if (at + i == text.size())
                return whole ? at : text.size();
            const auto next = static_cast<unsigned char>(text[at + i]);
            // The second byte tells what is overlong, a surrogate or beyond the last character.
            const unsigned char lowest = i > 1 ? 0x80 : lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
            const unsigned char highest = i > 1 ? 0xBF : lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
            if (next < lowest || next > highest)
                return at;
        }
        at += length;
    }
    return at;
}

CodingGuess guessCoding(std::string_view sample, bool whole)
{
    if (sample.starts_with("\xEF\xBB\xBF"sv))
        return {Coding::Utf8, true, "the file is marked as UTF-8"};
    if (sample.starts_with("\xFF\xFE"sv))
        return {Coding::Utf16Le, true, "the file is marked as UTF-16"};
    if (sample.starts_with("\xFE\xFF"sv))
        return {Coding::Utf16Be, true, "the file is marked as UTF-16"};
    if (looksLikeUtf16(sample, 1))
        return {Coding::Utf16Le, true, "every second byte is zero, as in UTF-16"};
    if (looksLikeUtf16(sample, 0))
        return {Coding::Utf16Be, true, "every second byte is zero, as in UTF-16"};
    const bool plain = std::none_of(sample.begin(), sample.end(), [](char c) { return (c & 0x80) != 0; });
    if (plain || utf8Prefix(sample, whole) == sample.size())
        return {Coding::Utf8, true, plain ? "all characters are ASCII" : "the bytes are UTF-8"};
    // Greek words are foreign letters alone; in Western words these stand among the others.
    std::size_t wholly = 0;
    std::size_t mixed = 0;
    std::size_t own = 0;
    std::size_t foreign = 0;
    for (std::size_t i = 0; i <= sample.size(); ++i) {
        const unsigned char c = i < sample.size() ? static_cast<unsigned char>(sample[i]) : ' ';
        const bool latin = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        if (latin || c >= 0xC0) {
            ++(latin ? own : foreign);
            continue;
        }
        if (foreign > 0)
            (own > 0 || foreign == 1 ? mixed : wholly) += foreign;
        own = foreign = 0;
    }
    if (wholly > mixed)
        return {Coding::Windows1253, false, "the bytes are no UTF-8, and words are of foreign letters alone"};
    return {Coding::Windows1252, mixed == 0, "the bytes are no UTF-8"};
}

SampledSource::SampledSource(ByteSource source) : m_source(std::move(source)), m_sample(kSample, '\0')
{
    std::size_t size = 0;
    while (size < m_sample.size() && !m_ended) {
        const std::size_t count = m_source(m_sample.data() + size, m_sample.size() - size);
        m_ended = count == 0;
        size += count;
    }
    m_sample.resize(size);
}

std::size_t SampledSource::read(char* buffer, std::size_t size)
{
    if (m_given < m_sample.size()) {
        const std::size_t count = m_sample.copy(buffer, size, m_given);
        m_given += count;
        return count;
    }
    if (m_ended)
        return 0;
    const std::size_t count = m_source(buffer, size);
    m_ended = count == 0;
    return count;
}

Decoder::Decoder(ByteSource source, Coding coding) : m_source(std::move(source)), m_coding(coding)
{
}

bool Decoder::more(std::string& text)
{
    if (m_ended)
        return false;
    const std::size_t kept = m_raw.size();
    m_raw.resize(kept + kBlock);
    std::size_t count = m_source(m_raw.data() + kept, kBlock);
    m_raw.resize(kept + count);
    while (!m_begun && count > 0 && m_raw.size() < 3) { // a mark may come byte by byte
        char byte = 0;
        count = m_source(&byte, 1);
        m_raw.append(&byte, count);
    }
    if (!m_begun) {
        m_begun = true;
        for (const std::string_view mark : {"\xEF\xBB\xBF"sv, "\xFF\xFE"sv, "\xFE\xFF"sv}) {
            const bool wide = mark.size() == 2;
            if (wide == (m_coding == Coding::Utf16Le || m_coding == Coding::Utf16Be) &&
                m_raw.starts_with(mark)) {
                m_raw.erase(0, mark.size());
                break;
            }
        }
    }
    m_ended = count == 0;
    switch (m_coding) {
    case Coding::Utf8:
        text += m_raw;
        m_raw.clear();
        break;
    case Coding::Utf16Le:
    case Coding::Utf16Be:
        appendUtf16(text, m_ended);
        break;
    case Coding::Windows1252:
    case Coding::Windows1253:
        for (const char c : m_raw) {
            const auto byte = static_cast<unsigned char>(c);
            appendUtf8(text, m_coding == Coding::Windows1253 ? greekCharacter(byte) : westernCharacter(byte));
        }
        m_raw.clear();
        break;
    }
    return true;
}

void Decoder::appendUtf16(std::string& text, bool atEnd)
{
    const auto unit = [this](std::size_t at) -> char32_t {
        const auto first = static_cast<unsigned char>(m_raw[at]);
        const auto second = static_cast<unsigned char>(m_raw[at + 1]);
        return m_coding == Coding::Utf16Le ? first | char32_t{second} << 8U : second | char32_t{first} << 8U;
    };
    std::size_t at = 0;
    while (at + 2 <= m_raw.size()) {
        const char32_t high = unit(at);
        if (high < 0xD800 || high > 0xDFFF) {
            appendUtf8(text, high);
            at += 2;
            continue;
        }
        if (at + 4 > m_raw.size() && !atEnd)
            break;
        const char32_t low = at + 4 <= m_raw.size() ? unit(at + 2) : 0;
        if (high < 0xDC00 && low >= 0xDC00 && low <= 0xDFFF) {
            appendUtf8(text, 0x10000U + ((high - 0xD800U) << 10U) + (low - 0xDC00U));
            at += 4;
        } else {
            appendUtf8(text, kNoCharacter);
            at += 2;
        }
    }
    m_raw.erase(0, at);
    if (atEnd && !m_raw.empty()) {
        appendUtf8(text, kNoCharacter);
        m_raw.clear();
    }
}

} // namespace comfortics::tables
