// SPDX-License-Identifier: GPL-3.0-or-later
//
// Predicted mean vote where the air moves, ASHRAE 55 (2020, 2023): the vote of ISO 7730 in still air that is
// cooler by the cooling effect, which is how much cooler still air and surroundings would have to be for
// the same SET.
//
//   ta, tr  air and mean radiant temperature [°C]     met   metabolic rate [met]
//   v       air speed [m/s]                           clo   clothing insulation [clo]
//   RH      relative humidity [%]                     work  external work [met]
//
// Traps: both SET leave out the convection that the activity makes; up to 0.1 m/s the speed goes into the
// vote as it is; where moving air does not cool (it is hotter than the skin) there is no effect, and the vote
// is that at the speed.
#pragma once

#include "standards/answer.h"
#include "standards/motion.h"
#include "standards/person.h"
#include "standards/pmv_iso.h"

#include <optional>

namespace comfortics::standards {

inline constexpr PmvRanges kPmvAshraeRanges{.ta = {"ta", Quantity::Temperature, {10, 40}},
                                            .tr = {"tr", Quantity::Temperature, {10, 40}},
                                            .speed = {"vr", Quantity::Speed, {0, 2}},
                                            .RH = {"RH", Quantity::Humidity},
                                            .met = {"met", Quantity::Flux, {1, 4}},
                                            .clo = {"clo", Quantity::Clothing, {0, 1.5}},
                                            .work = {"work", Quantity::Flux},
                                            .pmv = {"pmv", Quantity::Any, {-3, 3}}};

struct PmvAshrae {
    Verdict verdict{};
    double pmv = kNaN;
    double ppd = kNaN;           ///< [%]
    double coolingEffect = kNaN; ///< [K], 0..40
    bool compliant = false;      ///< a vote within ±0.5, the ends left out
    /// Highest air speed that is allowed to those who cannot set it [m/s], by speed and clothing as typed.
    /// NaN where the standard sets none.
    double speedLimit = kNaN;
    bool beyondSpeedLimit = false;
    InMotion inMotion{}; ///< what was calculated with
};

PmvAshrae pmvAshrae(const PmvInputs& inputs, Motion motion = Motion::None,
                    Edition edition = Edition::Ashrae2020, Limits limits = Limits::Mark) noexcept;

/// Highest air speed without occupants' control [m/s], from the operative temperature [°C]. NaN from
/// 0.7 clo or 1.3 met on, where this rule sets none.
double airSpeedLimit(double operative, double met, double clo) noexcept;

struct CoolingEffect {
    double effect = kNaN; ///< [K]; NaN where a SET has no value
    /// Whether still air cooler by the effect is equal to the moving air. If not, the effect is 0 and the
    /// vote is that at the speed.
    bool cools = false;
};

/// Of relative speed on a person in actual clothing; no range is looked at.
CoolingEffect coolingEffect(const PmvInputs& inputs, Edition edition = Edition::Ashrae2020) noexcept;

} // namespace comfortics::standards
