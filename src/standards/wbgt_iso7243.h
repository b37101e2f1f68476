// SPDX-License-Identifier: GPL-3.0-or-later
//
// Heat at work by measured temperatures, ISO 7243:2017: the wet-bulb globe temperature, what clothing adds,
// and the reference value that it is held against.
//
// All temperatures are averages over 60 minutes, the metabolic rate is that of the whole body in W. The
// adjustments for clothing are the standard's; those of the ACGIH differ (0.5 K for SMS, 1 K for polyolefin).
// The bounds between the classes, those of ISO 8996 for a body of 1.8 m², leave a gap of 1 W as printed,
// which belongs to the upper class here.
#pragma once

#include "standards/answer.h"

#include <array>
#include <cstdint>

namespace comfortics::standards {

/// Ranges of the standard.
namespace wbgt_7243_range {
inline constexpr Input kTnw{"tnw", Quantity::Temperature, {5, 40}};
inline constexpr Input kTg{"tg", Quantity::Temperature, {20, 120}};
inline constexpr Input kTa{"ta", Quantity::Temperature, {10, 60}};
inline constexpr Input kWbgt{"wbgt", Quantity::Temperature};
inline constexpr Input kM{"M", Quantity::Positive, {100, kInfinity}};
} // namespace wbgt_7243_range

struct Wbgt7243Inputs {
    double tnw = kNaN; ///< natural wet-bulb temperature [°C], 5..40
    double tg = kNaN;  ///< globe temperature [°C], 20..120; globe of 150 mm
    double ta = kNaN;  ///< air temperature [°C], 10..60; read in the sun alone
    bool sun = false;  ///< on the body
};

struct Wbgt7243Result {
    Verdict verdict{};
    double wbgt = kNaN; ///< [°C]
};

Wbgt7243Result wbgt7243(const Wbgt7243Inputs& inputs, Limits limits = Limits::Mark) noexcept;

/// Where the surroundings differ by height: the wet-bulb globe temperatures at head, abdomen and ankle [°C].
double wbgtOfHeights(double head, double abdomen, double ankle) noexcept;

enum class WorkClothing : std::uint8_t {
    WorkClothes,
    ClothCoveralls,
    SmsCoveralls, ///< non-woven
    PolyolefinCoveralls,
    DoubleLayer,        ///< woven
    VapourBarrierApron, ///< long, with long sleeves, over coveralls
    VapourBarrier,      ///< coveralls, single layer
    VapourBarrierHooded,
    VapourBarrierOverCloth, ///< over cloth coveralls
    VapourBarrierOverClothHooded,
};

/// What clothing adds to the wet-bulb globe temperature [K].
double clothingAdjustment(WorkClothing clothing) noexcept;

enum class WorkClass : std::uint8_t { Rest, Low, Moderate, High, VeryHigh };

/// The metabolic rate of the whole body [W] that stands for each class.
inline constexpr std::array<double, 5> kWorkClassRates{115, 180, 300, 415, 520};

/// By the metabolic rate of the whole body [W].
WorkClass workClassOf(double M) noexcept;

/// How the reference value follows from the metabolic rate.
enum class Reference : std::uint8_t { Class, Curve };

/// The limit [°C] that falls with the logarithm of M [W]: the recommended exposure limit (REL) of NIOSH for
/// the acclimatised, the alert limit (RAL) for others. Rises without bound as M goes to 0.
double limitCurve(double M, bool acclimatised) noexcept;

struct HeatWork {
    double wbgt = kNaN; ///< [°C]
    double M = kNaN;    ///< metabolic rate [W], 100 and more
    WorkClothing clothing = WorkClothing::WorkClothes;
    bool acclimatised = true;
    Reference reference = Reference::Class;
};

struct HeatWorkResult {
    Verdict verdict{};
    double wbgtEff = kNaN; ///< with what the clothing adds [°C]
    double wbgtRef = kNaN; ///< [°C]
    WorkClass refClass = WorkClass::Rest;
    bool exceeds = false; ///< wbgtEff is above wbgtRef
};

HeatWorkResult assessHeat(const HeatWork& work, Limits limits = Limits::Mark) noexcept;

} // namespace comfortics::standards
