// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "values/format.h"

#include <optional>
#include <string>
#include <string_view>

namespace comfortics::texts {

/// The value's 15 significant decimal digits, rounded half away from zero at the wanted decimals.
/// The integer part is padded with zeros to the format's width. Never "-0.0".
std::string format(double value, values::Format wanted);

/// Formats the number that the text holds; an empty text or one that is no number comes back
/// unchanged.
std::string format(std::string_view text, values::Format wanted);
inline std::string format(const std::string& text, values::Format wanted)
{
    return format(std::string_view(text), wanted);
}

/// The leading number of a text: blanks skipped, then the longest prefix of sign, digits, one
/// point, digits, exponent (E or D). 0 if there is none. A number beyond the double range reads
/// as infinity, so that whatever computes with it fails.
double val(std::string_view text);

/// The number that a whole text holds: what `val` reads in full after trimming, with one comma
/// allowed in place of the point. Empty if the text is no number, or one beyond the double range.
std::optional<double> numericValue(std::string_view text);

inline bool isNumeric(std::string_view text)
{
    return numericValue(text).has_value();
}

} // namespace comfortics::texts
