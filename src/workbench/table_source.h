// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/layout.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace comfortics::workbench {

/// A table that can be opened any number of times: a file, or a text such as that of the clipboard.
struct TableSource {
    std::string path{};                        ///< empty for a text
    std::shared_ptr<const std::string> text{}; ///< in UTF-8
    std::string name{};                        ///< as the user knows it: the file's name, or "Clipboard"

    friend bool operator==(const TableSource&, const TableSource&) = default;
};

TableSource sourceOfFile(std::string path);
TableSource sourceOfText(std::string text);

/// The bytes that it has; none where the system does not tell.
std::optional<std::size_t> sizeOf(const TableSource& source);

/// Opens it. Throws TableFault with a sentence. `read`, where it is given, counts the bytes of a text as they
/// are read; a workbook counts none.
tables::OpenTable openSource(const TableSource& source, const tables::Shape& told,
                             const std::shared_ptr<std::atomic<std::size_t>>& read = {});

} // namespace comfortics::workbench
