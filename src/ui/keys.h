// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"

#include <QKeyEvent>

#include <optional>

namespace comfortics::ui {

/// The key as forms know it; nothing for keys that no form tells apart.
std::optional<controls::KeyPress> keyPress(const QKeyEvent& event);

} // namespace comfortics::ui
