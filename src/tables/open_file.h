// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/layout.h"

#include <string>

namespace comfortics::tables {

/// Opens a table in a file of any kind: a text, an EPW weather file or an XLSX workbook, told apart by what
/// they hold. Throws TableFault, also where the file cannot be read.
OpenTable openFile(const std::string& path, const Shape& told = {});

} // namespace comfortics::tables
