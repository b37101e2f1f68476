// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace comfortics::output {

/// Appends a UTF-8 text in the 8-bit code page Windows-1252. A character that the code page lacks
/// becomes "?", and so does each byte that is no UTF-8.
void appendWindows1252(std::string& bytes, std::string_view text);

} // namespace comfortics::output
