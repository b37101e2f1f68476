// SPDX-License-Identifier: GPL-3.0-or-later
//
// The two-node body of core and skin and the temperatures that follow from it: SET, the air of standard
// surroundings (50 % humidity, still air, the clothing usual at the activity) in which skin temperature,
// wettedness and heat loss are the same, and ET, the same in the actual clothing and air. Gagge, Fobelets
// and Berglund (1986); ASHRAE 55-2020, appendix D.
//
//   ta, tr  air and mean radiant temperature [°C]     met       metabolic rate, 58.2 W/m² each
//   v       air speed [m/s], 0.1 at least             clo       clothing insulation, 0.155 m²K/W each
//   RH      relative humidity [%]                     work      external work [met]
//   p       pressure of the air [Pa]                  weight    of the body [kg]
//                                                     area      surface of the body [m²]
//
// 60 steps of one minute from the same start, as published; programs that make 59 differ by up to 0.03 K.
// Where the skin just gets as wet as it can, results have small steps.
//
// Traps: the work is met in the input and W/m² in the balance; a met is 58.2 W/m² here and 58.15 in the vote
// of ISO 7730; the editions differ in convection and radiation, and so by 4 to 6 K at 2 to 4 met.
#pragma once

#include "standards/answer.h"
#include "standards/motion.h"
#include "standards/person.h"

#include <optional>
#include <span>

namespace comfortics::standards {

struct TwoNodeInputs {
    double ta = kNaN;
    double tr = kNaN;
    double v = kNaN;
    double RH = kNaN;
    double met = kNaN;
    double clo = kNaN;
    double work = 0;
    double pressure = 101'325;
    Posture posture = Posture::Standing; ///< of no effect in the edition of 2017
    Edition edition = Edition::Ashrae2020;
    std::optional<double> weight{}; ///< 70 kg, in the edition of 2017 69.9
    double area = 1.8258;
    std::optional<double> mostWettedness{}; ///< by default from clothing and air speed
    double mostBlood = 90;                  ///< bound of the skin's blood flow [L/m²h]
    double mostSweat = 500;                 ///< [g/m²h]
};

/// Ranges of use. The work lies within 0..met; speed and clothing are those after the motion.
namespace two_node_range {
inline constexpr Input kTa{"ta", Quantity::Temperature, {10, 40}};
inline constexpr Input kTr{"tr", Quantity::Temperature, {10, 40}};
inline constexpr Input kSpeed{"v", Quantity::Speed, {0, 2}};
inline constexpr Input kRH{"RH", Quantity::Humidity};
inline constexpr Input kMet{"met", Quantity::Flux, {1, 4}};
inline constexpr Input kClo{"clo", Quantity::Clothing, {0, 1.5}};
inline constexpr Input kWork{"work", Quantity::Flux};
inline constexpr Input kPressure{"pressure", Quantity::Pascal};
inline constexpr Input kWeight{"weight", Quantity::Positive};
inline constexpr Input kArea{"area", Quantity::Positive};
inline constexpr Input kMostWettedness{"w_max", Quantity::Positive, {0, 1}};
inline constexpr Input kMostBlood{"m_bl_max", Quantity::Positive};
inline constexpr Input kMostSweat{"sweat_max", Quantity::Flux};
} // namespace two_node_range

struct TwoNode {
    Verdict verdict{};
    /// Of SET and of ET by themselves: the verdict, or none where its balance has no root.
    Verdict setVerdict{};
    Verdict etVerdict{};
    double set = kNaN;        ///< standard effective temperature [°C]
    double et = kNaN;         ///< effective temperature [°C]
    double tSkin = kNaN;      ///< [°C]
    double tCore = kNaN;      ///< [°C]
    double wettedness = kNaN; ///< of the skin, 0..1
    double eSkin = kNaN;      ///< evaporation from the skin [W/m²]
    double disc = kNaN;       ///< discomfort [-], 6 at most
    double tsens = kNaN;      ///< thermal sensation [-]
    InMotion inMotion{};      ///< what was calculated with
};

TwoNode twoNode(const TwoNodeInputs& inputs, Motion motion = Motion::None,
                Limits limits = Limits::Mark) noexcept;

/// The body at the end of a minute.
struct BodyMinute {
    double tCore = kNaN;
    double tSkin = kNaN;
    double wettedness = kNaN;
    double eSkin = kNaN; ///< evaporation from the skin [W/m²]
    double sweat = kNaN; ///< that evaporates by regulation [g/m²h]
    double blood = kNaN; ///< flow to the skin [L/m²h]
};

/// Where the body stands before the first minute.
inline constexpr double kTwoNodeStartCore = 36.8; // [°C]
inline constexpr double kTwoNodeStartSkin = 33.7;
/// After how many minutes the figures of TwoNode are taken.
inline constexpr int kTwoNodeMinutes = 60;

/// The course of the body, one minute after the other, for as many as there is room. NaN where the verdict
/// is none.
Verdict twoNodeCourse(const TwoNodeInputs& inputs, std::span<BodyMinute> minutes,
                      Motion motion = Motion::None, Limits limits = Limits::Mark) noexcept;

/// SET of a person standing, as the cooling effect of ASHRAE 55 compares it: without the convection that the
/// activity makes.
struct CoolingEffectSet {
    double set = kNaN; ///< NaN where the body or the balance has no solution
    /// Whether the skin has been as wet as it can be. If not, SET rises with the temperatures of air and
    /// surroundings as long as they are no higher, but for steps of some mK that the clothing's tolerance
    /// leaves.
    bool soaked = false;
};

/// Relative speed and actual clothing, no look at any range.
CoolingEffectSet coolingEffectSet(const TwoNodeInputs& inputs) noexcept;

} // namespace comfortics::standards
