// SPDX-License-Identifier: GPL-3.0-or-later
#include "texts/variant.h"

#include "values/plain_text.h"
#include "values/run_failure.h"

namespace comfortics::texts {

using values::Format;
using values::Number;
using values::plainText;
using values::RunFailure;

Number Variant::number() const
{
    if (const double* value = std::get_if<double>(&m_value))
        return *value;
    if (const std::string* text = std::get_if<std::string>(&m_value)) {
        if (const auto value = numericValue(*text))
            return *value;
        throw RunFailure("type mismatch: the text \"" + *text + "\" is no number");
    }
    if (const std::int16_t* value = std::get_if<std::int16_t>(&m_value))
        return *value;
    return 0;
}

std::string Variant::text() const
{
    if (const std::string* text = std::get_if<std::string>(&m_value))
        return *text;
    return isEmpty() ? std::string() : plainText(number().value());
}

bool Variant::isEmptyText() const noexcept
{
    const std::string* text = std::get_if<std::string>(&m_value);
    return text != nullptr && text->empty();
}

bool Variant::equalsNumber(double literal) const
{
    if (const std::string* text = std::get_if<std::string>(&m_value)) {
        const auto value = numericValue(*text);
        return value && *value == literal;
    }
    return number() == literal;
}

bool Variant::isBelowNumber(double literal) const
{
    if (const std::string* text = std::get_if<std::string>(&m_value)) {
        const auto value = numericValue(*text);
        return value && *value < literal;
    }
    return number() < literal;
}

void Variant::assign(const Variant& value)
{
    if (isText() && value.isNumber())
        m_value = value.text();
    else
        m_value = value.m_value;
}

bool isGreater(const Variant& left, const Variant& right)
{
    if (left.isText() && right.isText())
        return left.text() > right.text();
    if (left.isText() || right.isText())
        return left.isText();
    return left.number() > right.number();
}

std::string format(const Variant& value, Format wanted)
{
    if (value.isText())
        return format(std::string_view(value.text()), wanted);
    return value.isEmpty() ? std::string() : format(value.number().value(), wanted);
}

} // namespace comfortics::texts
