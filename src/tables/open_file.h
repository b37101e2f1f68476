// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/layout.h"

#include <cstddef>
#include <functional>
#include <string>

namespace comfortics::tables {

/// Opens a table in a file of any kind: a text, an EPW weather file or an XLSX workbook, told apart by what
/// they hold. Throws TableFault, also where the file cannot be read. `read` is told how many
/// bytes of a text were read each time; of a workbook it is told none.
OpenTable openFile(const std::string& path, const Shape& told = {},
                   const std::function<void(std::size_t bytes)>& read = {});

} // namespace comfortics::tables
