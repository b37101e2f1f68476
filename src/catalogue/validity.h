// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace comfortics::catalogue {

/// For what weather an index is meant, from data/limits.csv. Both ends of an interval are inclusive; what
/// they are compared with is the row's `gated` and `gateWind`. These are the limits that the build puts
/// into Limits.Index: a user's own file is not asked.
struct Validity {
    double temperatureMin; ///< [°C]
    double temperatureMax; ///< [°C]
    double windMin;        ///< [m/s]
    double windMax;        ///< [m/s]; 0 or less: the index has no wind limit
    bool given;            ///< whether there is a temperature interval
};

/// Of index 1 to kLastIndex. No temperature lies in the interval of index 196, on purpose.
const Validity& validity(int index);

} // namespace comfortics::catalogue
