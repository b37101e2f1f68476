// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "formulas/rules.h"

#include <comfortics/comfortics.h>

#include <cstddef>
#include <span>
#include <string>

namespace comfortics::python {

/// A sequence of rules that goes through texts, as the batch does: each row starts from empty boxes.
struct SheetRules {
    formulas::Rules rules; ///< classic or robust
    bool limits;
};

/// What comfortics::calculate() does, by such rules: a figure is the number of its text.
///
/// Throws std::invalid_argument for a quantity that these rules do not show.
std::size_t calculateSheet(const SheetRules& rules, const Readings& readings, std::size_t count,
                           std::span<const Output> outputs, const Assumptions& assumptions,
                           const Options& options);

/// Why a target is blank at the first point, in words; empty where it is not.
std::string explainSheet(const SheetRules& rules, const Readings& readings, const Target& target,
                         const Assumptions& assumptions);

} // namespace comfortics::python
