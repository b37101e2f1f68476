// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "texts/number_text.h"
#include "values/number.h"

#include <cstdint>
#include <string>
#include <utility>
#include <variant>

namespace comfortics::texts {

/// The tagged value that formulas and models pass: Empty, a 16-bit integer, a double or a text.
/// Empty counts as 0 in arithmetic and is a legal result: the index has no value there.
class Variant {
public:
    Variant() noexcept = default;
    Variant(std::int16_t value) noexcept : m_value(value) {}           // NOLINT: implicit
    Variant(double value) noexcept : m_value(value) {}                 // NOLINT: implicit
    Variant(values::Number value) noexcept : m_value(value.value()) {} // NOLINT: implicit
    Variant(std::string value) noexcept : m_value(std::move(value)) {} // NOLINT: implicit
    Variant(const char* value) : m_value(std::string(value)) {}        // NOLINT: implicit

    bool isEmpty() const noexcept { return std::holds_alternative<std::monostate>(m_value); }
    bool isText() const noexcept { return std::holds_alternative<std::string>(m_value); }
    bool isNumber() const noexcept { return !isEmpty() && !isText(); }

    /// The value in arithmetic: Empty is 0, a numeric text its number. Fails (type mismatch) on
    /// any other text, the empty one included.
    values::Number number() const;

    /// The text of the value: "" for Empty, plain number text for numbers.
    std::string text() const;

    /// True where the value is the empty text (Empty itself is not).
    bool isEmptyText() const noexcept;

    /// Equality with a literal number: a numeric text is compared by value, any other text is
    /// equal to no number, Empty counts as 0.
    bool equalsNumber(double literal) const;

    /// "Less than a literal number" by the same rules; a text that is no number is not below any.
    bool isBelowNumber(double literal) const;

    /// Assigns as a variable of this kind does: one that holds a text keeps being a text and takes
    /// the plain number text of the number. Assigning Empty leaves it Empty.
    void assign(const Variant& value);

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    std::variant<std::monostate, std::int16_t, double, std::string> m_value;
};

/// left > right as two variables compare: two texts by character code; a number is below every
/// text; otherwise by value.
bool isGreater(const Variant& left, const Variant& right);

/// Formats a result: a number or numeric text by the format, anything else as its text.
std::string format(const Variant& value, values::Format wanted);

} // namespace comfortics::texts
