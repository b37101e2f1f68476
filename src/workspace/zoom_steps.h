// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workspace/preferences.h"

#include <array>

namespace comfortics::workspace {

/// The sizes of the letters that there are [percent].
inline constexpr std::array kZoomSteps{75, 90, 100, 110, 125, 150, 175, 200, 250, 300};
inline constexpr int kZoomOriginal = 100;

/// The step nearest to a size.
int nearestZoom(int percent);
/// The next step up or down; the last one stays.
int nextZoom(int percent, bool larger);

/// The size kept in the preferences, the original one where none is or it makes no sense.
int keptZoom(const Preferences& preferences);
void keepZoom(Preferences& preferences, int percent);

} // namespace comfortics::workspace
