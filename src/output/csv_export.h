// SPDX-License-Identifier: GPL-3.0-or-later
//
// The export of a table to a CSV file: asking for the name, writing, telling the user.
#pragma once

#include "controls/dialogs.h"
#include "controls/grid.h"

#include <string>
#include <string_view>
#include <vector>

namespace comfortics::output {

/// The success messages of the two spreadsheet exports; they differ in the full stop.
inline constexpr std::string_view kResultsSaved = "The spreadsheet table has been saved succesfully.";
inline constexpr std::string_view kBatchSaved = "The spreadsheet table has been saved succesfully";

/// Exports the results or the batch table. ".csv" is added to whatever name is chosen, deliberately
/// also to one that ends in it. A cancelled dialog or an empty name ends the export in silence; a
/// failed write shows its reason instead of the success message and leaves an existing file alone.
/// `headers`, where there are any, are written in place of those of the table.
void exportSpreadsheetTable(const controls::Grid& grid, std::string_view successText,
                            controls::FileDialogs& files, controls::Messages& messages,
                            const std::vector<std::string>& headers = {});

/// Exports the radiation table. The question about an existing file is asked, but nothing depends
/// on the answer, and a cancelled dialog goes on with the name "Solar Radiation" in the current
/// directory: both deliberate. Success shows no message, a failed write its reason.
void exportRadiationTable(const controls::Grid& grid, controls::FileDialogs& files,
                          controls::Messages& messages);

/// True where the path names a file. An error in looking it up counts as none.
bool FileExists(const std::string& path);

} // namespace comfortics::output
