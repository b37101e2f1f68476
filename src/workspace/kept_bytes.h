// SPDX-License-Identifier: GPL-3.0-or-later
//
// Bytes that a window wants to find again in the next session, such as its arrangement. They are kept as a
// text that tells whether it is still whole: half an arrangement is worse than none.
#pragma once

#include "workspace/preferences.h"

#include <optional>
#include <string>
#include <string_view>

namespace comfortics::workspace {

/// The bytes as a text: the sum that they are checked by, and two hexadecimal digits for each.
std::string textOfBytes(std::string_view bytes);
/// None where the text is damaged or another one.
std::optional<std::string> bytesOfText(std::string_view text);

void keepBytes(Preferences& preferences, const std::string& key, std::string_view bytes);
/// None where nothing whole is kept.
std::optional<std::string> keptBytes(const Preferences& preferences, const std::string& key);

} // namespace comfortics::workspace
