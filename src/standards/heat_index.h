// SPDX-License-Identifier: GPL-3.0-or-later
//
// Heat index as the weather service of the United States calculates it: the simple average of Steadman's
// values below 80 °F, the regression of Rothfusz (1990) with two adjustments above. The regression holds for
// 80..112 °F. Below 40 °F some services show the air temperature; this does not.
#pragma once

#include "standards/answer.h"

namespace comfortics::standards {

namespace heat_index_range {
inline constexpr Input kTa{"ta", Quantity::Temperature};
inline constexpr Input kRH{"RH", Quantity::Humidity};
inline constexpr Interval kRegression{80, 112}; ///< [°F]
} // namespace heat_index_range

struct HeatIndex {
    Verdict verdict{};
    double heatIndex = kNaN; ///< [°C]
};

/// ta air temperature [°C], RH relative humidity [%].
HeatIndex heatIndex(double ta, double RH, Limits limits = Limits::Mark) noexcept;

} // namespace comfortics::standards
