// SPDX-License-Identifier: GPL-3.0-or-later
//
// Reading and writing of numbers against a plain second way: a scan by hand, strtod and printf.
#include "check.h"

#include "texts/number_text.h"
#include "texts/variant.h"
#include "values/plain_text.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::fuzz {
namespace {

using values::Format;

bool sameBits(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

struct Read {
    std::size_t length = 0;
    double value = 0;
};

// Sign, digits, one point, digits, exponent: one character after the other into a text that strtod
// understands.
Read slowRead(std::string_view text, char point)
{
    std::string plain;
    std::size_t at = 0;
    const auto here = [&] { return at < text.size() ? text[at] : '\0'; };
    const auto digitsHere = [&] {
        std::size_t count = 0;
        for (; here() >= '0' && here() <= '9'; ++at, ++count)
            plain += here();
        return count;
    };
    if (here() == '+' || here() == '-')
        plain += text[at++];
    std::size_t digits = digitsHere();
    if (here() == point) {
        plain += '.';
        ++at;
        digits += digitsHere();
    }
    if (digits == 0)
        return {};
    const std::size_t mantissaEnd = at;
    const std::string mantissa = plain;
    if (here() != '\0' && std::string_view("eEdD").find(here()) != std::string_view::npos) {
        plain += 'e';
        ++at;
        if (here() == '+' || here() == '-')
            plain += text[at++];
        if (digitsHere() == 0) {
            at = mantissaEnd;
            plain = mantissa;
        }
    }
    return {at, std::strtod(plain.c_str(), nullptr)};
}

std::optional<double> slowNumericValue(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t'))
        text.remove_suffix(1);
    for (const char point : {'.', ','}) {
        const Read read = slowRead(text, point);
        if (!text.empty() && read.length == text.size() && std::isfinite(read.value))
            return read.value;
    }
    return std::nullopt;
}

std::string slowPlainText(double value)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.15G", value == 0 ? 0.0 : value);
    return text;
}

// The 15 digits as a decimal number without exponent, cut behind the wanted decimal and, if the
// next digit asks for it, raised by hand.
std::string slowFormat(double value, Format format)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.14e", std::abs(value));
    const int exponent = std::atoi(std::strchr(text, 'e') + 1);
    std::string digits(1, text[0]);
    digits.append(text + 2, 14);
    // digits stand for 0.ddd * 10 ^ (exponent + 1)
    int point = exponent + 1;
    while (point < 1) {
        digits.insert(0, 1, '0');
        ++point;
    }
    const auto kept = static_cast<std::size_t>(point + format.decimals);
    if (digits.size() < kept + 1)
        digits.append(kept + 1 - digits.size(), '0');
    const bool up = digits[kept] >= '5';
    digits.resize(kept);
    if (up) {
        std::size_t i = kept;
        while (i > 0 && digits[i - 1] == '9')
            digits[--i] = '0';
        if (i > 0)
            ++digits[i - 1];
        else
            digits.insert(0, 1, '1');
    }
    const auto decimals = static_cast<std::size_t>(format.decimals);
    std::string whole = digits.substr(0, digits.size() - decimals);
    const std::string part = digits.substr(digits.size() - decimals);
    while (whole.size() > static_cast<std::size_t>(format.integerWidth) && whole.front() == '0')
        whole.erase(0, 1);
    while (whole.size() < static_cast<std::size_t>(format.integerWidth))
        whole.insert(0, 1, '0');
    const bool zero = digits.find_first_not_of('0') == std::string::npos;
    return (value < 0 && !zero ? "-" : "") + whole + (decimals > 0 ? "." + part : "");
}

constexpr std::array kFormats{values::kFormat0,       values::kFormat0_0,      values::kFormat0_00,
                              values::kFormat0_00000, values::kFormat00_00000, Format{0, 2}};

void checkNumber(double value)
{
    const std::string text = values::plainText(value);
    requireEqual(text, slowPlainText(value), "plain number text, another way");
    // The last numbers of the range have 15 digits beyond it.
    if (std::abs(value) > 1.797693134862315e308)
        return;
    const auto again = texts::numericValue(text);
    require(again.has_value(), "plain number text is a number", text);
    require(sameBits(texts::val(text), *again), "val reads all of a plain number text", text);
    requireEqual(values::plainText(*again), text, "number text, read and written");
    for (const Format format : kFormats) {
        const std::string formatted = texts::format(value, format);
        requireEqual(formatted, slowFormat(value, format), "fixed format, another way");
        require(texts::isNumeric(formatted), "a formatted number is a number", formatted);
        requireEqual(texts::format(formatted, format), formatted, "fixed format, twice");
    }
}

void checkText(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(" \t"), text.size());
    require(sameBits(texts::val(text), slowRead(text.substr(first), '.').value), "val, another way", text);
    const auto number = texts::numericValue(text);
    const auto slow = slowNumericValue(text);
    require(number.has_value() == slow.has_value() && (!number || sameBits(*number, *slow)),
            "number test, another way", text);
    require(texts::isNumeric(text) == number.has_value(), "number test and number", text);
    const texts::Variant variant{std::string(text)};
    for (const Format format : kFormats) {
        const std::string formatted = texts::format(text, format);
        requireEqual(formatted, number ? texts::format(*number, format) : text, "format of a text");
        requireEqual(texts::format(variant, format), formatted, "format of a variant");
    }
    for (const double literal : {0.0, -1.0, 37.5})
        require(variant.equalsNumber(literal) == (number && *number == literal) &&
                    variant.isBelowNumber(literal) == (number && *number < literal),
                "comparison of a text with a number", text);
    if (number)
        checkNumber(*number);
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a text. Its first eight bytes are a number, too.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace comfortics::fuzz;
    checkText({reinterpret_cast<const char*>(data), size}); // NOLINT: bytes are bytes
    double number = 0;
    if (size >= sizeof number) {
        std::memcpy(&number, data, sizeof number);
        if (std::isfinite(number))
            checkNumber(number);
    }
    return 0;
}
