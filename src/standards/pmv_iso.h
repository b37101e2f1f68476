// SPDX-License-Identifier: GPL-3.0-or-later
//
// Predicted mean vote and percentage of dissatisfied, ISO 7730 (2005; the edition of 2025 has the same
// equations), after Fanger (1970).
//
//   ta, tr  air and mean radiant temperature [°C]     met   metabolic rate, 58.15 W/m² each
//   vr      relative air speed [m/s]                  clo   clothing insulation, 0.155 m²K/W each
//   RH      relative humidity [%]                     work  external work [met]
//   pa      vapour pressure [Pa]                      t_cl  temperature of the clothing's surface [°C]
//
// The clothing's temperature is the root of its balance, to 1e-9 K. The program printed with the standard
// stops when a step is below 0.015 K, which is up to 0.005 in the vote. The table of votes in the standard's
// last annex differs from its formula by up to 0.09.
//
// Traps: the radiation adds 273 and not 273.15; a met is 58.15 W/m² here and 58.2 in the two-node program;
// breath takes M, skin M less the work; sweat counts above 58.15 W/m² alone.
#pragma once

#include "standards/answer.h"
#include "standards/motion.h"

#include <cstdint>
#include <optional>

namespace comfortics::standards {

struct PmvInputs {
    double ta = kNaN;
    double tr = kNaN;
    double v = kNaN;
    double RH = kNaN;
    double met = kNaN;
    double clo = kNaN;
    double work = 0;
};

/// What a standard bounds. The work lies within 0..met; speed and clothing are those after the motion.
struct PmvRanges {
    Input ta, tr, speed, RH, met, clo, work, pmv;
};

inline constexpr PmvRanges kPmvIsoRanges{.ta = {"ta", Quantity::Temperature, {10, 30}},
                                         .tr = {"tr", Quantity::Temperature, {10, 40}},
                                         .speed = {"vr", Quantity::Speed, {0, 1}},
                                         .RH = {"RH", Quantity::Humidity},
                                         .met = {"met", Quantity::Flux, {0.8, 4}},
                                         .clo = {"clo", Quantity::Clothing, {0, 2}},
                                         .work = {"work", Quantity::Flux},
                                         .pmv = {"pmv", Quantity::Any, {-2, 2}}};
inline constexpr Input kPmvIsoVapour{"pa", Quantity::Flux, {0, 2700}};

/// Categories of the thermal environment, by the size of the vote: below 0.2, 0.5 and 0.7.
enum class ComfortCategory : std::uint8_t { A, B, C, Beyond };
ComfortCategory comfortCategory(double pmv) noexcept;

struct PmvIso {
    Verdict verdict{};
    double pmv = kNaN; ///< not cut at ±3
    double ppd = kNaN; ///< [%]
    ComfortCategory category = ComfortCategory::Beyond;
    double tCl = kNaN;
    InMotion inMotion{}; ///< what was calculated with
};

PmvIso pmvIso(const PmvInputs& inputs, Motion motion = Motion::None, Limits limits = Limits::Mark) noexcept;

/// Vapour pressure [Pa], as the standard's program has it.
double pmvVapourPressure(double ta, double RH) noexcept;

/// The balance of the clothing's surface: what comes from the skin less what goes to air and surroundings.
class ClothingBalance {
public:
    ClothingBalance(double ta, double tr, double vr, double clo, double heat) noexcept;

    /// Radiation and convection of a surface at t [W/m²].
    double losses(double t) const noexcept { return radiation(t) + convection(t); }
    /// How much warmer than t the surface would have to be [K]. Falls by 1 or more per kelvin.
    double surplus(double t) const noexcept { return m_skin - m_insulation * losses(t) - t; }
    /// The root of surplus. None where it would lie at or below -273 °C.
    std::optional<double> temperature() const noexcept;

private:
    double radiation(double t) const noexcept;
    double convection(double t) const noexcept;

    double m_ta;
    double m_tr;
    double m_insulation; ///< [m²K/W]
    double m_area;       ///< ratio of the clothed to the bare surface
    double m_forced;     ///< convective coefficient in wind [W/m²K]
    double m_skin;       ///< [°C]
    double m_surroundings;
};

struct MeanVote {
    double pmv = kNaN;
    double tCl = kNaN;
};

/// The vote for relative speed and actual clothing, without a look at any range. None where the clothing
/// has no temperature.
std::optional<MeanVote> meanVote(const PmvInputs& inputs) noexcept;

/// As typed, speed and clothing need only be a speed and a clothing: their ranges are for what the motion
/// makes of them.
void lookAtTyped(Examination& examination, const PmvRanges& ranges, const PmvInputs& inputs) noexcept;
void lookAtMotion(Examination& examination, const PmvRanges& ranges, const InMotion& moving) noexcept;
void lookAtVote(Examination& examination, const PmvRanges& ranges,
                const std::optional<MeanVote>& vote) noexcept;

} // namespace comfortics::standards
