// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/layout.h"

#include <string>
#include <string_view>
#include <vector>

namespace comfortics::tables {

/// Whether a file begins as XLSX workbooks do. Only a regular file is looked at.
bool isWorkbook(const std::string& path);

/// The names of the sheets in an XLSX workbook. Throws TableFault where it is none.
std::vector<std::string> sheetNames(const std::string& path);

/// Opens a sheet of an XLSX workbook: the first, unless one is told. Its rows stream; only the texts that
/// cells share are held. Numbers have their digits to the fifteenth, dates come as "2024-03-01 15:30:00", a
/// formula as its last result. Throws TableFault, also where a workbook unpacks to far more than it holds, or
/// declares entities.
OpenTable openWorkbook(const std::string& path, const Shape& told = {});

/// The same from the bytes of a file.
OpenTable openWorkbookBytes(std::string_view bytes, const Shape& told = {});

} // namespace comfortics::tables
