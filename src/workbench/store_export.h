// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/view.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace comfortics::workbench {

/// How the rows of a store are written to a file.
struct ExportRequest {
    enum class Form : std::uint8_t {
        CsvUtf8,
        CsvWindows1252, ///< as the sheet of raw data writes; a character that the page lacks becomes "?"
        Xlsx,           ///< numbers as numbers, units, and a sheet of metadata
    };
    std::shared_ptr<const TableStore> store;
    std::shared_ptr<const View> view; ///< which rows, in which order; all as in the table where it is null
    Form form = Form::CsvUtf8;
    bool inputs = false;   ///< the time and the readings as they were taken
    bool status = false;   ///< the line, and for each index in a word why its value stands or is blank
    bool reasons = false;  ///< in sentences, why the blank figures of a row are blank
    std::string program{}; ///< "Comfortics 1.2", for the sheet of metadata
    std::string path{};
};

/// Writes the file, whole or not at all. One sentence where it could not be written; none where `goOn`, which
/// is asked now and then and told the share that is written, has ended it.
std::optional<std::string> exportStore(const ExportRequest& request,
                                       const std::function<bool(double share)>& goOn);

/// The metadata of a workbook.
std::vector<std::pair<std::string, std::string>> exportMetadata(const ExportRequest& request);

} // namespace comfortics::workbench
