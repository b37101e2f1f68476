// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/grid.h"
#include "output/whole_file.h"

#include <string>
#include <vector>

namespace comfortics::output {

/// The two line forms: a comma before each cell but the first, or one after each cell, so that
/// every line of the radiation table ends in a comma.
enum class CsvForm { Separated, Terminated };

/// Writes all rows of a grid, the fixed ones included, as lines ended by CR LF, in Windows-1252.
/// Cells go out as shown: nothing is quoted or escaped, so a comma inside a text makes one more
/// field. False where the sink fails. `headers`, where there are any, stand in place of row 0.
bool writeCsv(const controls::Grid& grid, CsvForm form, ByteSink& sink,
              const std::vector<std::string>& headers = {});

/// The same to a file, whole or not at all.
WriteResult writeCsvFile(const controls::Grid& grid, CsvForm form, const std::string& path,
                         const std::vector<std::string>& headers = {});

} // namespace comfortics::output
