// SPDX-License-Identifier: GPL-3.0-or-later
//
// Saving where the user says: asking for a file, adding its ending, writing it, telling why that failed.
#pragma once

#include "controls/dialogs.h"
#include "output/whole_file.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::output {

/// The name, with the first of the endings behind it where it has none of them, in whatever letters.
std::string withEnding(const std::string& name, std::initializer_list<std::string_view> endings);

/// Asks for a file and answers the path to write; none where the user cancels or names none.
std::optional<std::string> askForFile(controls::FileDialogs& files, const controls::SaveRequest& request);

/// Whether a file was written; shows, under a title, why it was not.
bool succeeded(const WriteResult& result, controls::Messages& messages, const std::string& title);

/// Writes the bytes to a file, whole or not at all.
WriteResult writeWhole(const std::string& path, std::string_view bytes);

} // namespace comfortics::output
