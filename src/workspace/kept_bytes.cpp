// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/kept_bytes.h"

#include <charconv>
#include <cstdint>

namespace comfortics::workspace {

namespace {

constexpr std::size_t kSumDigits = 16;

// FNV-1a, 64 bits.
std::uint64_t sumOf(std::string_view bytes)
{
    std::uint64_t sum = 0xcbf29ce484222325U;
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    return sum;
}

void append(std::string& text, std::uint64_t number, std::size_t digits)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    for (std::size_t i = digits; i > 0; --i)
        text += kDigits[(number >> (4 * (i - 1))) & 0xFU];
}

template <class Number>
std::optional<Number> hexadecimal(std::string_view digits)
{
    Number number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    return error == std::errc() && end == digits.data() + digits.size() ? std::optional(number)
                                                                        : std::nullopt;
}

} // namespace

std::string textOfBytes(std::string_view bytes)
{
    std::string text;
    append(text, sumOf(bytes), kSumDigits);
    for (const char byte : bytes)
        append(text, static_cast<unsigned char>(byte), 2);
    return text;
}

std::optional<std::string> bytesOfText(std::string_view text)
{
    if (text.size() < kSumDigits || text.size() % 2 != 0)
        return std::nullopt;
    std::string bytes;
    for (std::size_t i = kSumDigits; i < text.size(); i += 2) {
        const auto byte = hexadecimal<unsigned char>(text.substr(i, 2));
        if (!byte)
            return std::nullopt;
        bytes += static_cast<char>(*byte);
    }
    if (hexadecimal<std::uint64_t>(text.substr(0, kSumDigits)) != sumOf(bytes))
        return std::nullopt;
    return bytes;
}

void keepBytes(Preferences& preferences, const std::string& key, std::string_view bytes)
{
    preferences.write(key, textOfBytes(bytes));
}

std::optional<std::string> keptBytes(const Preferences& preferences, const std::string& key)
{
    const std::optional<std::string> text = preferences.read(key);
    return text ? bytesOfText(*text) : std::nullopt;
}

} // namespace comfortics::workspace
