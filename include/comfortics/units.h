// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <span>
#include <string_view>

#pragma GCC visibility push(default)
namespace comfortics {

/// What a unit measures.
enum class Dimension : unsigned char { Temperature, Speed, Irradiance };

/// A unit that readings may come in.
struct Unit {
    std::string_view symbol; ///< for instance "km/h"
    std::string_view name;   ///< for instance "kilometers per hour"
    Dimension dimension;     ///< what it measures
};

/// All units; those that the library calculates in, °C, m/s and W/m², come first.
std::span<const Unit> units() noexcept;

/// The unit of a symbol, whatever its case, null where there is none.
const Unit* findUnit(std::string_view symbol) noexcept;

/// Converts `count` values between units of one dimension, `results` may be `values`. Throws
/// std::invalid_argument where the dimensions differ.
void convert(const double* values, std::size_t count, const Unit& from, const Unit& to, double* results);

/// One value; throws std::invalid_argument also where a symbol is none.
double convert(double value, std::string_view from, std::string_view to);

} // namespace comfortics
#pragma GCC visibility pop
