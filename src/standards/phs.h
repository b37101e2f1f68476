// SPDX-License-Identifier: GPL-3.0-or-later
//
// Predicted heat strain, minute by minute: ISO 7933:2004 and ISO 7933:2023 (Malchaire, Piette, Kampmann,
// Mehnert, Gebhardt, Havenith, den Hartog, Holmer, Parsons, Alfano and Griefahn, 2001).
//
// A body of one core and one skin sweats what the balance asks for, with delays of 10 minutes for core and
// sweat and of 3 minutes for the skin. The result is the strain at the end and the minute in which the rectal
// temperature or the loss of water reaches its limit.
//
// Traps: the metabolic rate is in W/m² in the edition of 2004 and in W for the whole body in that of 2023;
// the loss of water counts the sweat produced, not only what evaporates; the rectal temperature goes on to
// rise beyond what a body survives, so beyond kPhsFormal it is a formal value and no prediction. The printed
// program of 2004 takes the limit without drink from the wrong loss; here both are 3 % of the weight.
#pragma once

#include "standards/answer.h"

#include <cstdint>
#include <optional>
#include <span>

namespace comfortics::standards {

enum class PhsPosture : std::uint8_t { Sitting, Standing, Crouching };

/// Ranges of the standard: of pa and of the metabolic rate in W/m² by the edition, of the radiation as an
/// excess over the air.
namespace phs_range {
inline constexpr Input kTa{"ta", Quantity::Temperature, {15, 50}};
inline constexpr Input kTr{"tr", Quantity::Temperature};
inline constexpr Interval kRadiantExcess{0, 60}; // of tr over ta [K]
inline constexpr Input kV{"v", Quantity::Speed, {0, 3}};
inline constexpr Input kPa2004{"pa", Quantity::Flux, {0, 4.5}};
inline constexpr Input kPa2023{"pa", Quantity::Flux, {0.5, 4.5}};
inline constexpr Input kM{"M", Quantity::Positive};
inline constexpr Interval kM2004{100, 450}; // [W/m²]
inline constexpr Interval kM2023{56, 250};
inline constexpr Input kWork{"work", Quantity::Flux};
inline constexpr Input kClo{"clo", Quantity::Clothing, {0.1, 1}};
inline constexpr Input kWalking{"walking", Quantity::Speed};
inline constexpr Input kAngle{"angle"};
inline constexpr Input kDuration{"duration", Quantity::Positive, {1, 480}};
inline constexpr Input kWeight{"weight", Quantity::Positive};
inline constexpr Input kHeight{"height", Quantity::Positive};
inline constexpr Input kImst{"imst", Quantity::Positive};
inline constexpr Input kAp{"Ap", Quantity::Flux, {0, 1}};
inline constexpr Input kFr{"Fr", Quantity::Flux, {0, 1}};
} // namespace phs_range

struct PhsInputs {
    double ta = kNaN;  ///< air temperature [°C], 15..50
    double tr = kNaN;  ///< mean radiant temperature [°C], 0..60 K above ta
    double v = kNaN;   ///< air speed [m/s], 0..3
    double pa = kNaN;  ///< vapour pressure [kPa], 0..4.5, in the edition of 2023 0.5..4.5
    double M = kNaN;   ///< metabolic rate: 2004 [W/m²], 100..450; 2023 [W], 56..250 W/m²
    double work = 0;   ///< effective mechanical power [W/m²], no more than M
    double clo = kNaN; ///< static insulation of the clothing [clo], 0.1..1
    PhsPosture posture = PhsPosture::Standing;
    bool acclimatised = true;
    bool drink = true; ///< whether water can be drunk freely
    /// Walking [m/s] and its angle to the wind [degrees]. Without a speed the body moves as its metabolic
    /// rate tells; without an angle the wind counts as that of the faster of the two.
    std::optional<double> walking{};
    std::optional<double> angle{};
    double duration = 480; ///< whole minutes, 1..480; up to kPhsMostMinutes beyond the range
    double weight = 75;    ///< [kg]
    double height = 1.8;   ///< [m]
    double imst = 0.38;    ///< static moisture permeability index [-]
    /// Share of the clothed surface that reflects, and 2004 its emissivity, 2023 its reflectance [-], 0..1.
    /// Without: 0.54 and 0.97 in the edition of 2004, 0 and 0 in that of 2023.
    std::optional<double> Ap{};
    std::optional<double> Fr{};
};

/// How long a course is followed at most.
inline constexpr int kPhsMostMinutes = 1440;

/// The rectal temperature that ends an exposure [°C], and that from which on it is a formal value.
inline constexpr double kPhsLimit = 38;
inline constexpr double kPhsFormal = 39;

/// The loss of water [g] that ends an exposure, by the weight [kg]: of 95 % of the workers in the edition of
/// 2004, which has another one of the mean worker.
double phsLossLimit(double weight, bool drink) noexcept;
double phsMeanLossLimit(double weight, bool drink) noexcept;

/// The end of one minute. Heat flows in W/m², positive where the body loses heat, storage where it gains.
struct PhsMinute {
    double tCore = kNaN;      ///< [°C]
    double tSkin = kNaN;      ///< [°C]
    double tRectal = kNaN;    ///< [°C]
    double sweat = kNaN;      ///< SWp, predicted sweat rate [W/m²]
    double waterLoss = kNaN;  ///< since the start [g]
    double required = kNaN;   ///< Ereq, evaporation that keeps the balance; 0 where heat is wanting
    double evaporated = kNaN; ///< Ep, evaporation that is reached
    double dry = kNaN;        ///< convection and radiation of the skin through the clothing
    double breath = kNaN;     ///< of the breathing, dry and wet
    double adaptation = kNaN; ///< dSeq, storage that goes with the metabolic rate
    double storage = kNaN;    ///< dS, all of it
};

/// When a limit is reached.
struct PhsTime {
    double minutes = kNaN; ///< the first minute at or above the limit, or the duration
    bool reached = false;  ///< false: not within the duration
};

struct PhsResult {
    Verdict verdict{};
    /// Behind the temperatures alone: as `verdict`, and marked from kPhsFormal on.
    Verdict temperatures{};
    double tRectal = kNaN;   ///< rectal temperature at the end [°C]
    double tCore = kNaN;     ///< core [°C]
    double tSkin = kNaN;     ///< skin [°C]
    double waterLoss = kNaN; ///< [g]
    PhsTime dLimTre{};       ///< rectal temperature at kPhsLimit
    /// Water loss of 5 % of the weight, or of 3 % without drink. In the edition of 2004 the limit for 95 % of
    /// the workers.
    PhsTime dLimLoss{};
    /// 2004 alone: water loss of 7.5 %, the limit for the mean worker; without drink as dLimLoss.
    PhsTime dLimLossMean{};
    PhsTime dLim{};     ///< the first of them
    int formalFrom = 0; ///< first minute with tRectal above kPhsFormal, 0 without
};

/// Vapour pressure [kPa] of an air of ta [°C] and RH [%], as the standard has it.
double phsVapourPressure(double ta, double RH) noexcept;

/// The strain by the edition. The minutes go to `course` as far as it has room, NaN from the first that has
/// no value; by Limits::Blank they stand beyond kPhsFormal, too.
PhsResult phs2004(const PhsInputs& inputs, Limits limits = Limits::Mark,
                  std::span<PhsMinute> course = {}) noexcept;
PhsResult phs2023(const PhsInputs& inputs, Limits limits = Limits::Mark,
                  std::span<PhsMinute> course = {}) noexcept;

} // namespace comfortics::standards
