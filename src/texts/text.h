// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace comfortics::texts {

/// The text in lower case: the letters A to Z and the accented ones of Latin-1. Other characters
/// stand, and no locale is asked.
std::string lowered(std::string_view text);

/// The text without the given characters at both ends.
std::string_view trimmed(std::string_view text, std::string_view blanks = " \t");

} // namespace comfortics::texts
