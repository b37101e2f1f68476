// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the sun through a window adds to the mean radiant temperature: SolarCal, ASHRAE 55-2017 to 2023,
// Appendix C (Arens, Hoyt, Zhou, Huang, Zhang and Schiavon, 2015).
//
// Traps: the diffuse sky is 0.2 of the direct beam (older texts: 0.17, on the horizontal); the table has the
// projected area as a share of the radiating one (other tables have it of all of the body).
#pragma once

#include "standards/answer.h"

#include <cstdint>

namespace comfortics::standards {

enum class SolarPosture : std::uint8_t { Sitting, Standing, Lying };

/// The angles are those of the table, beyond which there is no value.
namespace solarcal_range {
inline constexpr Input kTmrt{"tmrt", Quantity::Temperature};
inline constexpr Input kAltitude{"altitude", Quantity::Any, {0, 90}};
inline constexpr Input kSharp{"sharp", Quantity::Any, {0, 180}};
inline constexpr Input kI{"I", Quantity::Flux};
inline constexpr Input kTransmittance{"transmittance", Quantity::Flux, {0, 1}};
inline constexpr Input kSkyView{"skyView", Quantity::Flux, {0, 1}};
inline constexpr Input kExposed{"exposed", Quantity::Flux, {0, 1}};
inline constexpr Input kAbsorptance{"absorptance", Quantity::Flux, {0, 1}};
inline constexpr Input kFloor{"floor", Quantity::Flux, {0, 1}};
} // namespace solarcal_range

struct SolarCalInputs {
    double tmrt = kNaN;       ///< mean radiant temperature without the sun [°C]; only `tmrt` needs it
    double altitude = kNaN;   ///< of the sun [degrees], 0..90
    double sharp = kNaN;      ///< horizontal angle of the sun from the front of the person [degrees], 0..180
    double I = kNaN;          ///< direct, normal to the beam [W/m²]
    double transmittance = 1; ///< of the glazing for the sun [-], 0..1
    double skyView = kNaN;    ///< share of the sky that the person sees through the window [-], 0..1
    double exposed = kNaN;    ///< share of the body in the sun [-], 0..1
    double absorptance = 0.7; ///< of the body for the sun [-], 0..1
    double floor = 0.6;       ///< reflectance [-], 0..1
    SolarPosture posture = SolarPosture::Sitting;
};

struct SolarCalResult {
    Verdict verdict{};
    double erf = kNaN;      ///< effective radiant field of the sun [W/m²]
    double deltaMrt = kNaN; ///< what it adds [K]
    double tmrt = kNaN;     ///< with the sun [°C]; NaN for inputs.tmrt NaN
};

/// None for a sun beyond the table: below the horizon or with an angle that is not folded.
SolarCalResult tmrtSolarCal(const SolarCalInputs& inputs, Limits limits = Limits::Mark) noexcept;

/// Angle between sun and front of the person [degrees], 0..180, of two azimuths.
double solarAngle(double sunAzimuth, double facing) noexcept;

/// The projected area, a share of the radiating one, linear between the nodes of the table.
double projectedShare(double altitude, double sharp, SolarPosture posture) noexcept;

} // namespace comfortics::standards
