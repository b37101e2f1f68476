// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/number_column.h"

#include "tables/layout.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace comfortics::workbench {

namespace {

// A cell, from its lowest bit: 3 bits decimals, or 7 where it is no packed number; 5 bits class, 0 without
// one; 24 bits the digits with their sign, or what it is instead of a number.
constexpr unsigned kNoNumber = 7;
constexpr unsigned kMostDecimals = 6;
constexpr int kClassShift = 3;
constexpr unsigned kClassBits = 31;
constexpr int kDigitsShift = 8;
constexpr int kMostDigits = (1 << 23) - 1;
constexpr unsigned kKeptText = 15; // beyond the outcomes

constexpr std::array<double, kMostDecimals + 1> kPowers{1, 10, 100, 1e3, 1e4, 1e5, 1e6};

unsigned decimalsOf(std::uint32_t cell)
{
    return cell & 7U;
}

int digitsOf(std::uint32_t cell)
{
    return static_cast<std::int32_t>(cell) >> kDigitsShift;
}

unsigned classBits(std::optional<NumberColumn::ClassMark> mark)
{
    if (!mark)
        return 0;
    return static_cast<unsigned>((mark->place + 1) * 2 + (mark->turned ? 1 : 0)) & kClassBits;
}

std::string plain(int digits, unsigned decimals)
{
    std::string text = std::to_string(digits < 0 ? -digits : digits);
    if (decimals > 0) {
        if (text.size() <= decimals)
            text.insert(0, decimals + 1 - text.size(), '0');
        text.insert(text.size() - decimals, ".");
    }
    return digits < 0 ? "-" + text : text;
}

// The number without its point, and its decimals; none where the text would not come back from them.
std::optional<std::pair<int, unsigned>> packed(std::string_view text)
{
    std::array<char, 12> kept{};
    if (text.empty() || text.size() > kept.size())
        return std::nullopt;
    const std::size_t point = text.find('.');
    const std::size_t decimals = point == std::string_view::npos ? 0 : text.size() - point - 1;
    if (decimals > kMostDecimals)
        return std::nullopt;
    const auto end = std::copy_if(text.begin(), text.end(), kept.begin(), [](char c) { return c != '.'; });
    int digits = 0;
    const auto read = std::from_chars(kept.data(), &*end, digits);
    if (read.ec != std::errc() || read.ptr != &*end || digits > kMostDigits || digits < -kMostDigits)
        return std::nullopt;
    if (plain(digits, static_cast<unsigned>(decimals)) != text)
        return std::nullopt;
    return std::pair(digits, static_cast<unsigned>(decimals));
}

} // namespace

void NumberColumn::add(std::string_view text, std::optional<ClassMark> mark)
{
    const std::uint32_t bits = classBits(mark) << kClassShift;
    if (const auto number = packed(text)) {
        m_cells.push(static_cast<std::uint32_t>(number->first) << kDigitsShift | bits | number->second);
        return;
    }
    m_texts.emplace_back(static_cast<std::uint32_t>(m_cells.size()), text);
    if (text.size() > std::string().capacity())
        m_longTexts += text.size() + 1;
    m_cells.push(kKeptText << kDigitsShift | bits | kNoNumber);
}

void NumberColumn::addBlank(classic::OutcomeKind why)
{
    m_cells.push(static_cast<std::uint32_t>(why) << kDigitsShift | kNoNumber);
}

const std::string& NumberColumn::keptText(std::size_t row) const
{
    return std::lower_bound(m_texts.begin(), m_texts.end(), row,
                            [](const auto& kept, std::size_t wanted) { return kept.first < wanted; })
        ->second;
}

std::optional<double> NumberColumn::number(std::size_t row) const
{
    const std::uint32_t cell = m_cells[row];
    if (decimalsOf(cell) != kNoNumber)
        return digitsOf(cell) / kPowers[decimalsOf(cell)];
    if (digitsOf(cell) == kKeptText)
        return tables::cellNumber(keptText(row), '.');
    return std::nullopt;
}

std::string NumberColumn::text(std::size_t row) const
{
    const std::uint32_t cell = m_cells[row];
    if (decimalsOf(cell) != kNoNumber)
        return plain(digitsOf(cell), decimalsOf(cell));
    return digitsOf(cell) == kKeptText ? keptText(row) : std::string();
}

classic::OutcomeKind NumberColumn::outcome(std::size_t row) const
{
    const std::uint32_t cell = m_cells[row];
    if (decimalsOf(cell) != kNoNumber || digitsOf(cell) == kKeptText)
        return classic::OutcomeKind::Value;
    return static_cast<classic::OutcomeKind>(digitsOf(cell));
}

std::optional<NumberColumn::ClassMark> NumberColumn::mark(std::size_t row) const
{
    const unsigned bits = m_cells[row] >> kClassShift & kClassBits;
    if (bits == 0)
        return std::nullopt;
    return ClassMark{bits / 2 - 1, bits % 2 == 1};
}

} // namespace comfortics::workbench
