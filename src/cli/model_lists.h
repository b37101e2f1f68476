// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the tool shows of the table of the models. A format is text, csv, json or markdown.
#pragma once

#include "catalogue/additions.h"

#include <string>
#include <string_view>
#include <vector>

namespace comfortics::cli {

/// All models for an empty text. Where nothing is found, standard error tells what may have been meant.
std::vector<const catalogue::Addition*> modelsFound(const std::string& words);

std::string modelList(const std::vector<const catalogue::Addition*>& models, std::string_view format);

/// One model with all of its inputs and results.
std::string modelDescription(const catalogue::Addition& model, std::string_view format);

/// A table as text, csv or markdown; the first line has the headers.
std::string formattedTable(const std::vector<std::vector<std::string>>& lines, std::string_view format);

/// "Nothing found. Did you mean …?" on standard error.
void sayNothingFound(const catalogue::Finder& finder, std::string_view words);

} // namespace comfortics::cli
