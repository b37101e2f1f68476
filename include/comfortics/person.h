// SPDX-License-Identifier: GPL-3.0-or-later
//
// What models of standards read of people, from what one has of them: metabolic rates by activity and in
// other units, the insulation of clothes worn together, and what outdoor temperatures tell of both.
#pragma once

#include <comfortics/column.h>
#include <comfortics/models.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#pragma GCC visibility push(default)
namespace comfortics {

/// What a metabolic rate, or external work, is told in. Mixing them up is the commonest of errors.
enum class MetabolicUnit : std::uint8_t {
    Met,                 ///< 58.15 W/m², as in ISO 7730
    WattsPerSquareMetre, ///< of the body
    Watts,               ///< of the whole body
    WattsAboveBasal,     ///< of the whole body, the basal rate taken off, as `activity_w` of PET
};

/// Something to do, and the metabolic rate that goes with it.
struct Activity {
    std::string_view id;     ///< in lower_snake_case, never changed, for instance "typing"
    std::string_view name;   ///< in words
    double rate = 0;         ///< in `unit`
    MetabolicUnit unit{};    ///< met, or W of the classes
    std::string_view source; ///< for instance "ASHRAE 55"
};

/// A piece of clothing, a set of them, or what a chair adds.
struct Garment {
    std::string_view id;   ///< in lower_snake_case, never changed, for instance "t_shirt"
    std::string_view name; ///< in words
    double clo = 0;        ///< insulation [clo]; 1 clo is 0.155 m²K/W
};

/// Clothing at work in the heat.
struct WorkClothing {
    double value = 0;      ///< the number of the option `work_clothing` of wbgt_iso7243
    std::string_view id;   ///< its word
    std::string_view name; ///< in words
    double adjustment = 0; ///< what it adds to the wet-bulb globe temperature by ISO 7243 [K]
};

/// The activities of ASHRAE 55 in met, then the five classes of ISO 8996 in W ("class_moderate").
std::span<const Activity> activities() noexcept;

/// Ensembles of ASHRAE 55.
std::span<const Garment> ensembles() noexcept;

/// Single garments of ASHRAE 55.
std::span<const Garment> garments() noexcept;

/// Chairs of ASHRAE 55, which add to the insulation of what is worn.
std::span<const Garment> chairs() noexcept;

/// The work clothing of ISO 7243.
std::span<const WorkClothing> workClothing() noexcept;

/// Insulation of garments worn together [clo], 0.835 of their sum and 0.161 (ISO 9920, 2007), and of a chair
/// [clo], which is added. Without garments that of the chair alone. NaN where one is not within 0 to 5 clo.
double insulationOf(std::span<const double> garments, double chair = 0) noexcept;

/// The same by ids of garments() and at most one of chairs(), whatever their case:
///
///     const std::array<std::string_view, 4> worn{"t_shirt", "trousers_thin", "ankle_socks", "shoes"};
///     const double clo = insulationOf(worn);
///
/// Throws std::invalid_argument where there is none of that id, or one is named twice.
double insulationOf(std::span<const std::string_view> garments);

/// The clothing [clo] that people in offices choose by the outdoor temperature [°C] at six in the morning
/// (Schiavon and Lee, 2013), 0.46 to 1 clo, into `results`. NaN where it is missing or not within -100 to
/// 150 °C. `results` may be the column.
void clothingByWeather(const Column& temperatures, std::size_t count, double* results);

/// Bodies: what is left out is needed where a conversion reads it.
struct Bodies {
    Column weight{}; ///< [kg]
    Column height{}; ///< [m]
    Column age{};    ///< [years]
    Column sex{};    ///< 0 male, 1 female, as the option `sex` of the models
    /// Surface [m²]. Left out it is that of DuBois, 0.202 kg^0.425 m^0.725, as the models have it; the model
    /// body_surface has others.
    Column surface{};
};

/// Takes `count` metabolic rates, or external work, from one unit to another, into `results`, which may be
/// the rates. Between met and W/m² no body is read; between these and W its surface, or weight and height;
/// to and from the rate above basal weight, height, age and sex, by the basal rate of PET (Höppe, 1999). NaN
/// where the rate is missing or below 0, or the body is one that nobody has; a rate below the basal one gives
/// a negative rest.
///
/// Throws std::invalid_argument where the body lacks a column that is read.
void convertMetabolicRate(const Column& rates, MetabolicUnit from, MetabolicUnit to, const Bodies& bodies,
                          std::size_t count, double* results);

/// How many days a running mean looks back on.
inline constexpr std::size_t kRunningDays = 7;

/// Running means of the outdoor temperature [°C] for adaptive_ashrae and adaptive_en: of daily means [°C],
/// yesterday's first, each day weighing alpha of the one after it (ASHRAE 55, EN 16798-1). Of a series of
/// days with `n` values the columns of day 7 on are the series itself at 6, 5, and so on to 0:
///
///     std::array<Column, kRunningDays> days;
///     for (std::size_t k = 0; k < kRunningDays; ++k)
///         days[k] = Column(series.data() + kRunningDays - 1 - k);
///     runningMean(days, 0.8, series.size() - kRunningDays, results);
///
/// Alpha is valid from 0.6 to 0.9, marked outside: `statuses`, where they are wanted, have one for each
/// point. NaN where a day is missing or not within -100 to 150 °C. Throws std::invalid_argument where there
/// are not seven days, or one or alpha is not given.
void runningMean(std::span<const Column> days, const Column& alpha, std::size_t count, double* results,
                 ModelStatus* statuses = nullptr);

/// The same with the fixed weights of EN 16798-1: 1, 0.8, 0.6, 0.5, 0.4, 0.3, 0.2 over 3.8.
void runningMeanFixed(std::span<const Column> days, std::size_t count, double* results,
                      ModelStatus* statuses = nullptr);

} // namespace comfortics
#pragma GCC visibility pop
