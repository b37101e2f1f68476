// SPDX-License-Identifier: GPL-3.0-or-later
//
// From readings to indices, over any number of points.
//
// The rules are "precise": no reading is rounded; globe, wet bulbs, the clothing of the mean vote and the
// equivalent temperature of index 215 are roots of the published heat balances to 1e-9 K, found by a bounded
// number of steps; one globe, derived from the given humidity and the measured wind, serves all indices,
// UTCI's mean radiant temperature included (the wind of UTCI itself is that at 10 m); and no figure depends
// on which others are asked for, on their order or on the number of threads.
#pragma once

#include <comfortics/catalogue.h>
#include <comfortics/column.h>
#include <comfortics/status.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <variant>

#pragma GCC visibility push(default)
namespace comfortics {

/// The readings of many points. Either globe or solar radiation and either dew point or humidity are given,
/// never both; what no target needs can be left out.
struct Readings {
    Column airTemperature{};   ///< Ta [°C]
    Column globeTemperature{}; ///< Tg [°C], or
    Column solarRadiation{};   ///< SR [W/m²]
    Column dewPoint{};         ///< Td [°C], or
    Column relativeHumidity{}; ///< RH [%]
    Column windSpeed{};        ///< WS [m/s], measured at 1.1 m
};

/// Site and body, where an index assumes them: one value for all points, or one for each.
struct Assumptions {
    Column windExponent = 0.20;           ///< of the power law of the wind's profile [-]
    Column barometricPressure = 1016.0;   ///< [hPa]; the heat balances of globe and wet bulb have 1010 hPa
    Column emissivity = 0.97;             ///< of the clothed body [-]
    Column effectiveRadiatingArea = 0.77; ///< share of the body's surface that takes part in radiation [-]
    Column bodyHeight =
        0.75;              ///< as the formula of DuBois reads it [m]. The start is deliberate: the program's
                           ///< boxes for body mass and stature (75, 180) have always been read crosswise
    Column bodyMass = 180; ///< as the formula of DuBois reads it [kg]
};

/// What calculate() is asked for: an index by its number, or a quantity.
class Target {
public:
    /// An index.
    Target(const Index& index) noexcept : m_target(index.number) {} // NOLINT: implicit
    /// A quantity.
    Target(Quantity quantity) noexcept : m_target(quantity) {} // NOLINT: implicit
    /// The number, 0 for a quantity.
    int indexNumber() const noexcept;
    /// The quantity, none for an index.
    std::optional<Quantity> quantity() const noexcept;

private:
    std::variant<int, Quantity> m_target;
};

inline constexpr std::int8_t kNoCategory = -1;   ///< see Output::categories
inline constexpr std::int8_t kNoSeverity = -128; ///< see Output::severities

/// A target, and where its figures go.
struct Output {
    Target target;              ///< what is calculated
    double* values = nullptr;   ///< NaN where there is no value; null if only the statuses are wanted
    std::ptrdiff_t stride = 1;  ///< from one point to the next, in elements
    Status* statuses = nullptr; ///< one per point, side by side; null if they are not wanted
    /// The place of the value's class among Index::categories, and its severity with the sign, one per point,
    /// side by side; null if they are not wanted. kNoCategory and kNoSeverity outside the limits (kept or
    /// not), without a value or a published scale, and beyond the poles of indices 19, 136 and 137.
    std::int8_t* categories = nullptr;
    std::int8_t* severities = nullptr; ///< the same for the severity
};

/// How a long call is made.
struct Options {
    /// Whether an index has a value only inside its limits. Without, figures outside stand, and their status
    /// is Status::Value.
    bool limits = true;
    /// Threads that calculate, at least 1; 0 takes as many as the machine runs at once. Results do not depend
    /// on it.
    unsigned threads = 1;
    /// Told how many points are done, now and then, from one thread at a time, though not always the
    /// caller's; false ends the call. What it throws ends the call and is thrown on.
    std::function<bool(std::size_t done)> progress{};
};

/// Calculates `count` points. Only what the targets need is derived, once.
///
/// Results may not overlap one another or the readings. The memory that a call takes does not depend on
/// `count`. Any number of calls may run at once.
///
/// Returns the number of points that are done from the first on: `count`, or fewer where progress ended the
/// call; the results of the others are not defined.
///
/// Throws std::invalid_argument where both of a pair are given, an input that a target needs is not given (an
/// index needs the inputs of its formula and, unless limits are off, what its limits judge),
/// std::out_of_range where a target is made of an Index that has no number of the catalogue, and
/// std::system_error where a thread cannot be started.
std::size_t calculate(const Readings& readings, std::size_t count, std::span<const Output> outputs,
                      const Assumptions& assumptions = {}, const Options& options = {});

/// One point in words: why a target has no value there, for instance "Outside its limits: the air temperature
/// is 12 °C, valid from 27 to 45 °C." Empty where it has one.
///
/// Takes the readings at `point`; throws as calculate() does.
std::string explain(const Target& target, const Readings& readings, std::size_t point = 0,
                    const Assumptions& assumptions = {}, const Options& options = {});

} // namespace comfortics
#pragma GCC visibility pop
