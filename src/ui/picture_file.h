// SPDX-License-Identifier: GPL-3.0-or-later
//
// Pictures of charts as files, PNG, SVG or PDF by their ending.
#pragma once

#include "controls/dialogs.h"

#include <QByteArray>

#include <optional>
#include <string>

namespace comfortics::ui {

/// Asks where to save a picture, under the name offered; none where the user cancels. A name without the
/// ending of a picture gets ".png". `pdf`: that is a picture, too.
std::optional<std::string> askForPicture(controls::FileDialogs& files, const std::string& name,
                                         bool pdf = false);

bool isSvg(const std::string& path);
bool isPdf(const std::string& path);

/// Writes the picture, whole or not at all, and shows why it cannot. Whether it did.
bool savePicture(const std::string& path, const QByteArray& picture, controls::Messages& messages);

} // namespace comfortics::ui
