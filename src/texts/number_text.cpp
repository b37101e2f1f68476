// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/number_text.h"

#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

namespace comfortics::texts {

using values::Format;
using values::kSignificantDigits;
using values::plainText;

namespace {

constexpr std::array<double, 6> kPowersOfTen{1, 10, 100, 1000, 10000, 100000};

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

struct Scan {
    std::size_t length = 0; // of the longest prefix that is a number, 0 if there is none
    double value = 0;
};

// The value of a number text without sign, already known to be well formed. Out of range reads as
// 0 or infinity.
double magnitude(std::string_view number)
{
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    (void)end;
    if (error != std::errc::result_out_of_range)
        return value;
    // Which end of the range was left: the place of the first digit other than 0.
    const std::size_t exponentAt = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, exponentAt);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    long long place =
        first < point ? static_cast<long long>(point - first) : -static_cast<long long>(first - point);
    if (exponentAt != std::string_view::npos) {
        std::string_view digits = number.substr(exponentAt + 1);
        const bool negative = digits.front() == '-';
        if (negative || digits.front() == '+')
            digits.remove_prefix(1);
        long long exponent = 0;
        const auto [last, overflow] = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
        (void)last;
        constexpr long long kFarBeyond = std::numeric_limits<int>::max(); // and the sum below has room
        if (overflow != std::errc() || exponent > kFarBeyond)
            exponent = kFarBeyond;
        place += negative ? -exponent : exponent;
    }
    return place > 0 ? std::numeric_limits<double>::infinity() : 0;
}

Scan scanNumber(std::string_view text, char point)
{
    std::size_t at = 0;
    bool negative = false;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        negative = text[at++] == '-';
    const std::size_t mantissaBegin = at;
    std::size_t digits = 0;
    while (at < text.size() && isDigit(text[at]))
        ++at, ++digits;
    if (at < text.size() && text[at] == point) {
        ++at;
        while (at < text.size() && isDigit(text[at]))
            ++at, ++digits;
    }
    if (digits == 0)
        return {};
    const std::size_t mantissaEnd = at;
    std::size_t exponentEnd = mantissaEnd;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E' || text[at] == 'd' || text[at] == 'D')) {
        ++at;
        if (at < text.size() && (text[at] == '+' || text[at] == '-'))
            ++at;
        if (at < text.size() && isDigit(text[at])) {
            while (at < text.size() && isDigit(text[at]))
                ++at;
            exponentEnd = at;
        }
    }
    const std::string_view number = text.substr(mantissaBegin, exponentEnd - mantissaBegin);
    double value = 0;
    if (exponentEnd == mantissaEnd && point == '.') {
        value = magnitude(number);
    } else {
        // from_chars knows neither the comma, nor the exponent letter D, nor a plus sign.
        std::string plain(number);
        std::replace(plain.begin(), plain.end(), ',', '.');
        const std::size_t letter = plain.find_first_of("dDeE");
        if (letter != std::string::npos) {
            plain[letter] = 'e';
            if (plain[letter + 1] == '+')
                plain.erase(letter + 1, 1);
        }
        value = magnitude(plain);
    }
    return {exponentEnd, negative ? -value : value};
}

std::string assemble(bool negative, std::string digits, Format format)
{
    // digits holds the whole scaled integer; the last `decimals` of them stand behind the point.
    const auto decimals = static_cast<std::size_t>(format.decimals);
    const std::size_t width = decimals + static_cast<std::size_t>(format.integerWidth);
    if (digits.size() < width)
        digits.insert(0, width - digits.size(), '0');
    if (decimals > 0)
        digits.insert(digits.size() - decimals, 1, '.');
    if (negative && digits.find_first_of("123456789") != std::string::npos)
        digits.insert(0, 1, '-');
    return digits;
}

// The rounding as `format` promises it, digit by digit, for any finite value.
std::string formatByDigits(double value, Format format)
{
    std::array<char, 40> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                            std::chars_format::scientific, kSignificantDigits - 1);
    (void)error;
    const std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
    const std::size_t letter = text.find('e');
    std::string digits;
    for (const char c : text.substr(0, letter))
        if (isDigit(c))
            digits += c;
    std::string_view exponentText = text.substr(letter + 1);
    if (exponentText.front() == '+')
        exponentText.remove_prefix(1);
    int exponent = 0;
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);

    // digits * 10 ^ (exponent - 14); keep `kept` of them for the scaled integer.
    const int kept = exponent + 1 + format.decimals;
    if (kept < 0)
        return assemble(false, "0", format);
    if (kept >= kSignificantDigits) {
        digits.append(static_cast<std::size_t>(kept - kSignificantDigits), '0');
        return assemble(value < 0, digits, format);
    }
    const bool up = digits[static_cast<std::size_t>(kept)] >= '5';
    digits.resize(static_cast<std::size_t>(kept));
    if (up) {
        std::size_t i = digits.size();
        while (i > 0 && digits[i - 1] == '9')
            digits[--i] = '0';
        if (i > 0)
            ++digits[i - 1];
        else
            digits.insert(0, 1, '1');
    }
    return assemble(value < 0, digits, format);
}

} // namespace

std::string format(double value, Format wanted)
{
    if (!std::isfinite(value))
        return plainText(value);
    // The quick way is taken where neither the product's rounding error nor the cut to 15 digits
    // can move the value across a half: both are far below 1e-14 of the scaled value.
    const double scaled = std::abs(value) * kPowersOfTen[static_cast<std::size_t>(wanted.decimals)];
    if (scaled < 1e12) {
        const double whole = std::floor(scaled);
        const double fraction = scaled - whole;
        if (std::abs(fraction - 0.5) > scaled * 2e-14 + 1e-300) {
            const auto integer = static_cast<std::uint64_t>(whole) + (fraction > 0.5 ? 1U : 0U);
            std::array<char, 32> buffer{};
            char* const last = buffer.data() + buffer.size();
            char* out = last;
            std::uint64_t rest = integer;
            const int width = wanted.decimals + wanted.integerWidth;
            for (int place = 0; rest > 0 || place < width; ++place) {
                if (place == wanted.decimals && wanted.decimals > 0)
                    *--out = '.';
                *--out = static_cast<char>('0' + rest % 10);
                rest /= 10;
            }
            if (value < 0 && integer > 0)
                *--out = '-';
            return std::string(out, last);
        }
    }
    return formatByDigits(value, wanted);
}

std::string format(std::string_view text, Format wanted)
{
    const auto number = numericValue(text);
    return number ? format(*number, wanted) : std::string(text);
}

double val(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    return scanNumber(text, '.').value;
}

std::optional<double> numericValue(std::string_view text)
{
    text = trimmed(text);
    if (text.empty())
        return std::nullopt;
    for (const char point : {'.', ','}) {
        const Scan scan = scanNumber(text, point);
        if (scan.length == text.size())
            return std::isfinite(scan.value) ? std::optional(scan.value) : std::nullopt;
    }
    return std::nullopt;
}

} // namespace comfortics::texts
