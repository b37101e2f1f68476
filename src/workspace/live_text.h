// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/live_quantity.h"

#include <string>
#include <string_view>

namespace comfortics::workspace {

/// The caption of a live quantity with the decimals that mean something in it: instruments read a tenth of a
/// degree, a per cent of humidity and a watt. A caption that is no number stands.
std::string liveInShort(formulas::Live quantity, std::string_view caption);

} // namespace comfortics::workspace
