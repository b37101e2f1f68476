// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace comfortics::output {

/// Appends a cell as RFC 4180 wants it, quoted where needed.
void appendCsvCell(std::string& line, std::string_view cell);

} // namespace comfortics::output
