// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/table_source.h"

#include "tables/open_file.h"

#include <filesystem>
#include <system_error>
#include <utility>

namespace comfortics::workbench {

namespace {

// Of the bytes that the source has: its texts are UTF-8.
tables::OpenTable openHeldText(const std::shared_ptr<const std::string>& text, const tables::Shape& told,
                               const std::shared_ptr<std::atomic<std::size_t>>& read)
{
    tables::Shape shape = told;
    shape.coding = tables::Coding::Utf8;
    return tables::openText(
        [text, read, at = std::size_t{0}](char* buffer, std::size_t size) mutable {
            const std::size_t count = text->copy(buffer, size, at);
            at += count;
            if (read)
                *read += count;
            return count;
        },
        shape);
}

} // namespace

TableSource sourceOfFile(std::string path)
{
    std::string name = std::filesystem::path(path).filename().string();
    return {std::move(path), nullptr, std::move(name)};
}

TableSource sourceOfText(std::string text)
{
    return {{}, std::make_shared<const std::string>(std::move(text)), "Clipboard"};
}

std::optional<std::size_t> sizeOf(const TableSource& source)
{
    if (source.text)
        return source.text->size();
    std::error_code error;
    const auto size = std::filesystem::file_size(source.path, error);
    if (error)
        return std::nullopt;
    return static_cast<std::size_t>(size);
}

tables::OpenTable openSource(const TableSource& source, const tables::Shape& told,
                             const std::shared_ptr<std::atomic<std::size_t>>& read)
{
    if (source.text)
        return openHeldText(source.text, told, read);
    // A pipe or device could keep the window waiting without an end.
    std::error_code error;
    const auto status = std::filesystem::status(source.path, error);
    if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status))
        throw tables::TableFault("\"" + source.path + "\" is no file with a table.");
    return tables::openFile(source.path, told, [read](std::size_t bytes) {
        if (read)
            *read += bytes;
    });
}

} // namespace comfortics::workbench
