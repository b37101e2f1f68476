// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/calculation.h"

#include <string>

namespace comfortics::workspace {

/// A sentence on why there is no value, in words for people who do not know the steps of a calculation:
/// "type mismatch: the text "" is no number" becomes "no relative humidity is typed". What is plain already
/// stands as it is. The inputs are those that it was said of.
std::string inPlainWords(std::string sentence, const classic::Inputs& inputs);

} // namespace comfortics::workspace
