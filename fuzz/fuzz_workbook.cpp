// SPDX-License-Identifier: GPL-3.0-or-later
//
// XLSX workbooks: the bytes of an archive, or the XML within one that is sound.
#include "check.h"
#include "input.h"

#include "tables/workbook.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <zip.h>

namespace comfortics::fuzz {
namespace {

using Parts = std::vector<std::pair<std::string, std::string_view>>;

std::string archiveOf(const Parts& parts)
{
    zip_error_t error;
    ::zip_error_init(&error);
    zip_source_t* const source = ::zip_source_buffer_create(nullptr, 0, 0, &error);
    ::zip_source_keep(source);
    zip_t* const archive = ::zip_open_from_source(source, ZIP_TRUNCATE, &error);
    for (const auto& [name, text] : parts) {
        const zip_int64_t place = ::zip_file_add(
            archive, name.c_str(), ::zip_source_buffer(archive, text.data(), text.size(), 0), 0);
        ::zip_set_file_compression(archive, static_cast<zip_uint64_t>(place), ZIP_CM_STORE, 0);
    }
    ::zip_close(archive);
    std::string bytes;
    char buffer[4096];
    ::zip_source_open(source);
    for (zip_int64_t count = 0; (count = ::zip_source_read(source, buffer, sizeof buffer)) > 0;)
        bytes.append(buffer, static_cast<std::size_t>(count));
    ::zip_source_close(source);
    ::zip_source_free(source);
    ::zip_error_fini(&error);
    return bytes;
}

void check(std::string_view bytes)
{
    try {
        const tables::OpenTable table = tables::openWorkbookBytes(bytes);
        std::size_t line = 0;
        tables::Row row;
        for (std::size_t rows = 0; rows < 2000 && table.rows->next(row); ++rows) {
            require(row.line > line, "rows stand on later lines");
            require(!row.refused.empty() || row.cells.size() == table.layout.columns(), "a row has all cells",
                    row.refused);
            line = row.line;
        }
    } catch (const tables::TableFault& fault) {
        require(std::string_view(fault.what()).ends_with('.'), "a fault is a sentence", fault.what());
    }
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a 0 and the bytes of an archive, or the XML of the sheet, the shared texts, the styles and
/// the workbook, each up to a zero byte.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace comfortics::fuzz;
    Input input(data, size);
    if (input.rest().substr(0, 1) == "0") {
        check(input.rest().substr(1));
        return 0;
    }
    Parts parts;
    for (const char* const name : {"xl/s.xml", "xl/sharedStrings.xml", "xl/styles.xml", "xl/workbook.xml"})
        parts.emplace_back(name, input.upTo('\0'));
    if (parts.back().second.empty())
        parts.back().second = R"(<workbook><sheets><sheet name="A" id="r"/></sheets></workbook>)";
    parts.emplace_back("xl/_rels/workbook.xml.rels",
                       R"(<Relationships><Relationship Id="r" Target="s.xml"/></Relationships>)");
    check(archiveOf(parts));
    return 0;
}
