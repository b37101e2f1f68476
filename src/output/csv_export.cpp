// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/csv_export.h"

#include "output/csv_writer.h"
#include "output/save_file.h"

#include <filesystem>
#include <system_error>

namespace comfortics::output {

namespace {

constexpr const char* kSpreadsheetTitle = "Export Spreadsheet Table";
constexpr const char* kRadiationTitle = "Export to CSV";
constexpr const char* kRadiationName = "Solar Radiation";

} // namespace

void exportSpreadsheetTable(const controls::Grid& grid, std::string_view successText,
                            controls::FileDialogs& files, controls::Messages& messages,
                            const std::vector<std::string>& headers)
{
    const auto path = askForFile(files, {.title = kSpreadsheetTitle,
                                         .filter = "Comma-Separated Values (*.csv)",
                                         .fileName = "",
                                         .overwritePrompt = true,
                                         .written = [](const std::string& name) { return name + ".csv"; }});
    if (!path ||
        !succeeded(writeCsvFile(grid, CsvForm::Separated, *path, headers), messages, kSpreadsheetTitle))
        return;
    messages.show({.text = std::string(successText),
                   .title = kSpreadsheetTitle,
                   .buttons = controls::Buttons::Ok,
                   .icon = controls::Icon::Information});
}

void exportRadiationTable(const controls::Grid& grid, controls::FileDialogs& files,
                          controls::Messages& messages)
{
    const std::string path = files
                                 .askSave({.title = kRadiationTitle,
                                           .filter = "Excel Import File (*.csv)|*.csv",
                                           .fileName = kRadiationName,
                                           .overwritePrompt = false})
                                 .value_or(kRadiationName);
    if (FileExists(path))
        messages.show({.text = "File Exists. Overwrite?",
                       .title = "File Exists",
                       .buttons = controls::Buttons::YesNo,
                       .icon = controls::Icon::Question});
    succeeded(writeCsvFile(grid, CsvForm::Terminated, path), messages, kRadiationTitle);
}

bool FileExists(const std::string& path)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    return !error && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

} // namespace comfortics::output
