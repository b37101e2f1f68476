// SPDX-License-Identifier: GPL-3.0-or-later
//
// Insulation that an exposure to cold requires, and how long an insulation lasts: ISO 11079:2007 (Holmer,
// 1984), for the minimal strain (the skin cools somewhat) and for the neutral one (as in comfort).
//
// Traps: the required insulation is what is left of it in motion and wind; what has to be put on is the
// larger ICL. In ICL the clothing's surface is that of the required insulation: programs in circulation leave
// that of the available one in, which moves it by up to 0.17 clo. The rest between exposures is not described
// here: these are limits of one exposure of a rested body.
#pragma once

#include "standards/answer.h"

#include <cstdint>
#include <optional>

namespace comfortics::standards {

/// Ranges of the standard. The walking speed has a lower bound that goes with M.
namespace ireq_range {
inline constexpr Input kM{"M", Quantity::Positive, {58, 400}};
inline constexpr Input kWork{"work", Quantity::Flux};
inline constexpr Input kTa{"ta", Quantity::Temperature, {-kInfinity, 10}};
inline constexpr Input kTr{"tr", Quantity::Temperature};
inline constexpr Input kPermeability{"permeability", Quantity::Positive, {1, 100}};
inline constexpr Input kWalking{"walking", Quantity::Speed, {0, 1.2}};
inline constexpr Input kV{"v", Quantity::Speed, {0.4, 18}};
inline constexpr Input kRH{"RH", Quantity::Humidity};
inline constexpr Input kClo{"clo", Quantity::Clothing};
} // namespace ireq_range

struct IreqInputs {
    double M = kNaN;         ///< metabolic rate [W/m²], 58..400
    double work = 0;         ///< effective mechanical power [W/m²], no more than M
    double ta = kNaN;        ///< air temperature [°C], 10 at most
    double tr = kNaN;        ///< mean radiant temperature [°C]
    double permeability = 8; ///< of the outer layer to air [l/m²/s], 1..100
    /// Speed of walking [m/s], 0.0052 (M - 58)..1.2. Without: the least.
    std::optional<double> walking{};
    double v = kNaN;   ///< air speed [m/s], 0.4..18
    double RH = 85;    ///< relative humidity [%]
    double clo = kNaN; ///< basic insulation of the clothing available [clo]
};

/// Beyond this an exposure has no limit [h].
inline constexpr double kIreqShift = 8;

/// For one of the two strains.
struct IreqStrain {
    Verdict insulation{};
    double ireq = kNaN; ///< required resultant insulation [clo]
    double icl = kNaN;  ///< required basic insulation [clo]

    Verdict exposure{};
    double dle = kNaN; ///< longest exposure [h]
};

struct IreqResult {
    IreqStrain min{};
    IreqStrain neutral{};
    // What was calculated with: raised or lowered to the bounds of the standard, with a mark.
    double M = kNaN;
    double walking = kNaN;
    double v = kNaN;
};

/// The insulation has no value, for Reason::HeatToSpare, where even without clothing no heat is wanting. The
/// exposure has none, for Reason::Unlimited, where it is longer than kIreqShift or without end.
IreqResult ireq(const IreqInputs& inputs, Limits limits = Limits::Mark) noexcept;

/// What the wind does to bare skin.
enum class LocalCooling : std::uint8_t {
    None,
    UncomfortablyCold, ///< from -10 °C of wind chill temperature
    SkinMayFreeze,     ///< from -25 °C
    Within10Minutes,   ///< from -35 °C
    Within2Minutes,    ///< from -60 °C
};

/// By the wind chill temperature [°C]; None for NaN.
LocalCooling localCooling(double windChillTemperature) noexcept;

} // namespace comfortics::standards
