// SPDX-License-Identifier: GPL-3.0-or-later
//
// Heat balance of a wetted wick and of a black globe in moving air, solved by damped iteration
// (Liljegren, Carhart, Lawday, Tschopp and Sharp, 2008), and the air properties it needs.
//
//   Ta    air temperature [°C]        Tair  the same [K]
//   Td    dew point [°C]              Tw    wick [K]
//   RH    relative humidity [%]       Tp    globe [K]
//   WS, v wind speed [m/s]            Tnew  what the balance gives for a Tw or Tp [K]
//   SR    solar radiation [W/m²]      P     pressure [hPa], where not said otherwise
//   fdir  direct share of SR [-]      z     zenith angle of the sun [rad]
#pragma once

#include "values/number.h"
#include "values/variant.h"

namespace comfortics::models {

using values::Number;
using values::Variant;

enum class SolverStatus {
    Converged,
    NoConvergence, ///< the pass counter ran past its bound: there is no temperature
};

/// What a solver found. It shows no message itself.
struct Solution {
    SolverStatus status = SolverStatus::NoConvergence;
    double celsius = 0; ///< [°C], 0 without convergence

    bool converged() const noexcept { return status == SolverStatus::Converged; }
    /// The temperature as a model passes it on: Empty without convergence.
    Variant temperature() const { return converged() ? Variant(celsius) : Variant(); }

    friend bool operator==(const Solution&, const Solution&) = default;
};

/// Passes that a solver runs at most.
inline constexpr int kLastPass = 999;
/// A pass that moves the temperature by less than this has converged [K].
inline constexpr double kTolerance = 0.05;

/// The site that all callers give to both solvers.
inline constexpr double kSitePressure = 101; ///< [kPa]
inline constexpr double kDirectFraction = 0.8;
inline constexpr double kZenith = 0;        ///< [rad]
inline constexpr double kMinimumWind = 0.1; ///< [m/s]
inline constexpr double kRadiationSwitch = 1;

// --- Primitives. All fail (RunFailure) where a step has no defined result. ---

/// Dynamic viscosity of air [kg/m/s] at T [K].
Number Air_Viscosity(Number T);

/// Diffusivity of water vapour in air [m²/s] at T [K].
Number Air_Diffusivity(Number T, Number P);

/// Emissivity of the clear atmosphere [-] at T [K], rh a fraction.
Number Emissivity_Atmosphere(Number T, Number rh);

/// The floor of the two convection primitives: a wind that is a number below vmin becomes vmin, in
/// the caller's variable too. One that is still a text stands: a number is below every text.
void raiseToMinimumWind(Variant& v, Number vmin);

/// Heat transfer coefficient [W/m²/K] of the wick, a cylinder of 7 mm, at T [K]. 0 in still air.
Number Convection_Cylinder(Number T, Number P, Variant& v, Number vmin);

/// Heat transfer coefficient [W/m²/K] of the globe, a sphere of 50 mm, at T [K].
Number Convection_Sphere(Number T, Number P, Variant& v, Number vmin);

// --- Solvers ---

namespace plain {

/// Natural wet-bulb temperature, every step as it stands in the balance. P in kPa.
Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number P, Variant& WS, Number vmin, Number SR,
                          Number fdir, Number z, Number radiationSwitch);

/// Globe temperature, every step as it stands in the balance. P in kPa.
Solution Globe_Temperature_Model(Number Ta, Number RH, Number P, Variant& WS, Number SR, Number fdir,
                                 Number z, Number vmin);

} // namespace plain

/// The globe at the site for one air: gives the bits, the status and the failures of
/// plain::Globe_Temperature_Model for any SR, without computing again what SR does not change.
///
/// WS is taken as it stands; the floor is the caller's (raiseToMinimumWind).
class GlobeModel {
public:
    GlobeModel(Number Ta, Number RH, Number WS);

    Solution solve(Number SR) const;

    /// Whether Ta, RH and WS lie where no step but the root of a negative number can fail. The
    /// terms below exist only there.
    bool ordinary() const noexcept { return m_ordinary; }

    // The terms of the balance Tnew^4 = surroundings - exchange(Tp) * (Tp - Tair) + solar(SR) [K^4].
    double airTemperature() const noexcept { return m_Tair; } ///< Tair [K]
    double surroundings() const noexcept { return m_surroundings; }
    double exchange(double Tp) const; ///< [K³]
    static double solar(double SR);   ///< proportional to SR but for rounding

private:
    Number m_Ta;
    Number m_RH;
    Number m_WS;
    bool m_ordinary = false;
    double m_Tair = 0;
    double m_surroundings = 0;
};

/// Globe temperature at the site. WS as in GlobeModel.
Solution Globe_Temperature_Model(Number Ta, Number RH, Number WS, Number SR);

/// Natural wet-bulb temperature at the site: the bits, the status and the failures of
/// plain::Natural_Wet_Bulb. WS as in GlobeModel.
Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number WS, Number SR);

/// Mean radiant temperature [°C] from a globe of 150 mm: the stronger of natural and forced
/// convection counts (ISO 7726, 1998). The way to kelvin is 273, not 273.15.
Number MRT_From_Globe(Number Ta, Number Tg, Number WS);

} // namespace comfortics::models
