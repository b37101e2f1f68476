// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string_view>

#pragma GCC visibility push(default)
namespace comfortics {

/// What became of one figure at one point. All but Value stand beside NaN.
///
/// Readings that nothing can have are infinite ones, those below absolute zero, 0 % or 0 m/s, and for the
/// heat balances and UTCI a dew point above the air temperature.
enum class Status : std::uint8_t {
    Value,              ///< it has a value
    Missing,            ///< a reading or assumption that it depends on is NaN
    OutsideTemperature, ///< outside the temperature limits of the index
    OutsideWind,        ///< outside the wind limits of the index
    NoValue,            ///< the published formula is not meant for these inputs
    Undefined,          ///< a step has no defined result, or a reading is one that nothing can have
    NoConvergence,      ///< a heat balance that it depends on has no solution
};

/// How many statuses there are.
inline constexpr int kStatusCount = 7;

/// In words, for instance "outside temperature".
std::string_view statusText(Status status) noexcept;

} // namespace comfortics
#pragma GCC visibility pop
