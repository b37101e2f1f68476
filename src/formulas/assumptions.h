// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "values/number.h"

namespace comfortics::formulas {

using values::Number;

/// The body and site assumptions as one calculation reads them.
///
/// The defaults are those of the options frame. Nothing validates them: an empty box reads as 0.
struct Assumptions {
    Number Friction = 0.20;   ///< exponent of the wind profile [-]
    Number Height = 0.75;     ///< the box beside "Body Mass:", divided by 100
    Number Weight = 180;      ///< the box beside "Body Stature:"
    Number Barometric = 1016; ///< barometric pressure [hPa]
    Number Emissivity = 0.97; ///< emissivity of the clothed body [-]
    Number ArAdu = 0.77;      ///< effective radiating area [-]
};

} // namespace comfortics::formulas
