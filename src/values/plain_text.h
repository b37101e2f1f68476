// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace comfortics::values {

/// The digits that a number text has at most.
inline constexpr int kSignificantDigits = 15;

/// Plain number text: at most 15 significant digits, no trailing zeros, exponential from 1e15 up
/// and below 1e-4 ("1E+15", "2.5E-05"), "0" for negative zero. Locale-free.
std::string plainText(double value);

} // namespace comfortics::values
