// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "values/number.h"

namespace comfortics::formulas {

/// The body and site assumptions as one calculation reads them.
///
/// The defaults are those of the options frame. Nothing validates them: an empty box reads as 0.
template <class Real>
struct AssumptionsOf {
    Real Friction = 0.20;   ///< exponent of the wind profile [-]
    Real Height = 0.75;     ///< the box beside "Body Mass:", divided by 100
    Real Weight = 180;      ///< the box beside "Body Stature:"
    Real Barometric = 1016; ///< barometric pressure [hPa]
    Real Emissivity = 0.97; ///< emissivity of the clothed body [-]
    Real ArAdu = 0.77;      ///< effective radiating area [-]
};

using Assumptions = AssumptionsOf<values::Number>;

constexpr Assumptions checked(const AssumptionsOf<double>& site)
{
    return {site.Friction, site.Height, site.Weight, site.Barometric, site.Emissivity, site.ArAdu};
}

} // namespace comfortics::formulas
