// SPDX-License-Identifier: GPL-3.0-or-later
//
// The heat balance of a wetted wick and of a black globe in moving air, and the air properties that they
// need (Liljegren, Carhart, Lawday, Tschopp and Sharp, 2008): one text for all who solve it. At the end the
// balance of the psychrometric search and the radiation that a globe tells.
//
// Real is
//   Number  every step is checked and stands where it is written: the plain solvers;
//   double  the same bits, nothing checked, and what all passes share is kept: the quick solvers;
//   Loose   a double that takes roots and fourth powers the short way: the searches for a root.
//
//   Ta    air temperature [°C]        Tair  the same [K]
//   RH    relative humidity [%]       Tw    wick [K]
//   WS, v wind speed [m/s]            Tp    globe [K]
//   SR    solar radiation [W/m²]      Tnew  what the balance gives for a Tw or Tp [K]
//   fdir  direct share of SR [-]      P     pressure [hPa], where not said otherwise
//   z     zenith angle of the sun [rad]
//
// A wind is taken as it stands: the least wind is the caller's.
#pragma once

#include "formulas/primitives.h"
#include "formulas/real.h"

#include <cmath>
#include <type_traits>

namespace comfortics::models {

using formulas::absolute;
using formulas::cosine;
using formulas::power;
using formulas::tangent;
using values::Number;

/// The site that all callers give to both balances.
inline constexpr double kSitePressure = 101; ///< [kPa]
inline constexpr double kDirectFraction = 0.8;
inline constexpr double kZenith = 0; ///< [rad]
inline constexpr double kRadiationSwitch = 1;
inline constexpr double kMinimumWind = 0.1; ///< [m/s]

inline constexpr double kKelvin = 273.15;

/// A double for which a power of 0.5 is a square root and one of 4 a product of squares: rounded
/// otherwise than the library's powers, and several times as fast.
struct Loose {
    constexpr Loose(double x) noexcept : value(x) {}             // NOLINT: implicit
    constexpr operator double() const noexcept { return value; } // NOLINT: implicit
    double value;
};

inline double power(Loose base, double exponent) noexcept
{
    if (exponent == 0.5)
        return std::sqrt(base.value);
    if (exponent == 4)
        return (base.value * base.value) * (base.value * base.value);
    return values::unchecked::power(base.value, exponent);
}

namespace balance {

// Products and quotients of constants keep the shape in which they are computed.
inline constexpr double kSpecificHeat = 1003.5;           // of air [J/kg/K]
inline constexpr double kGasConstant = 8314.34;           // universal [J/kmol/K]
inline constexpr double kGasConstantTimes125 = 10392.925; // 1.25 times that
inline constexpr double kMolarMassAir = 28.97;            // [kg/kmol]
inline constexpr double kMolarMassWater = 18.015;         // [kg/kmol]
inline constexpr double kHeatTimesMolarMass = 29071.395;  // specific heat times molar mass of air
inline constexpr double kStefanBoltzmann = 5.6696e-08;    // [W/m²/K⁴]
inline constexpr double kWickDiameter = 0.007;            // [m]
inline constexpr double kGlobeDiameter = 0.05;            // [m]
inline constexpr double kWickRatio = 0.00175 / 0.0254;    // a quarter of the diameter to the length
inline constexpr double kWickEmissivity = 0.95;
inline constexpr double kWickAlbedo = 0.4;
inline constexpr double kGlobeEmissivity = 0.95;
inline constexpr double kGlobeAlbedo = 0.05;
inline constexpr double kGroundEmissivity = 0.999;
inline constexpr double kGroundAlbedo = 0.4;
inline constexpr double kSmallestZenith = 1e-10; // the clamp of an angle of 0 [rad]

inline constexpr double kRair = kGasConstant / kMolarMassAir;
inline constexpr double kConductivity =
    (kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat; // by viscosity
inline constexpr double kWickPrandtl = kSpecificHeat / kConductivity;
inline constexpr double kGlobePrandtl = kSpecificHeat / (kSpecificHeat + (1.25 * kRair));
inline constexpr double kCriticalA = 85443.59999999999;

/// Powers of constants, with the bits that the library gives where the bit tables were made.
struct ConstantPower {
    double base, exponent, value;
};
inline constexpr ConstantPower kViscosityCollision{3.617, 2, 0x1.a2a56366d7a57p+3};
inline constexpr ConstantPower kDiffusivityCritical{kCriticalA, 0.5, 0x1.244eaff650063p+8};
inline constexpr ConstantPower kDiffusivityPressure{7935.2, 1.0 / 3, 0x1.3f22375268c65p+4};
inline constexpr ConstantPower kDiffusivityTemperature{kCriticalA, 5.0 / 12, 0x1.c5dd610ca778bp+6};
inline constexpr ConstantPower kDiffusivityMass{(1 / kMolarMassAir) + (1 / kMolarMassWater), 0.5,
                                                0x1.333f5471b5252p-2};
inline constexpr ConstantPower kWickPrandtlPower{kWickPrandtl, 0.44, 0x1.bf92f5b939ec9p-1};
inline constexpr ConstantPower kGlobePrandtlPower{kGlobePrandtl, 0.3333, 0x1.ce6935c768d13p-1};

} // namespace balance

/// Dynamic viscosity of air [kg/m/s] at T [K]. Fails below 0 K and where its divisor is 0, at 1477 K.
template <class Real>
Real Air_Viscosity(Real T)
{
    using namespace balance;
    const Real omega = (((T / 97) - 2.9) / 0.4) * (-0.034) + 1.048;
    return (2.6693e-06 * power(Real(kMolarMassAir * T), 0.5)) / (kViscosityCollision.value * omega);
}

/// Diffusivity of water vapour in air [m²/s] at T [K]. Fails below 0 K and in a vacuum.
template <class Real>
Real Air_Diffusivity(Real T, Real P)
{
    using namespace balance;
    return (((((0.000364 * power(Real(T / kDiffusivityCritical.value), 2.334)) * kDiffusivityPressure.value) *
              kDiffusivityTemperature.value) *
             kDiffusivityMass.value) /
            (P / 1013.25)) *
           0.0001;
}

/// Emissivity of the clear atmosphere [-] at T [K], rh a fraction. Fails below a humidity of 0.
template <class Real>
Real Emissivity_Atmosphere(Real T, Real rh)
{
    return 0.575 * power(Real(rh * formulas::Saturation_Pressure_Buck(T)), 0.143);
}

/// Heat transfer coefficient [W/m²/K] of the wick, a cylinder of 7 mm, at T [K]. 0 in still air. Fails at
/// and below 0 K and below a wind of 0.
template <class Real>
Real Convection_Cylinder(Real T, Real P, Real v)
{
    using namespace balance;
    const Real viscosity = Air_Viscosity(T);
    const Real k = kConductivity * viscosity;
    const Real density = (P * 100) / (kRair * T);
    const Real Re = ((v * density) * kWickDiameter) / viscosity;
    const Real Nu = (0.281 * power(Re, 0.6)) * kWickPrandtlPower.value;
    return (Nu * k) / kWickDiameter;
}

/// Heat transfer coefficient [W/m²/K] of the globe, a sphere of 50 mm, at T [K]. Fails as that of the wick.
template <class Real>
Real Convection_Sphere(Real T, Real P, Real v)
{
    using namespace balance;
    const Real viscosity = Air_Viscosity(T);
    const Real k = kConductivity * viscosity;
    const Real density = (P * 100) / (kRair * T);
    const Real Re = ((v * density) * kGlobeDiameter) / viscosity;
    const Real Nu = 2 + ((0.6 * power(Re, 0.5)) * kGlobePrandtlPower.value);
    return (Nu * k) / kGlobeDiameter;
}

/// The wick's heat balance. P in kPa.
template <class Real>
class WickBalance {
public:
    WickBalance(Real Ta, Real RH, Real P, Real WS, Real SR, Real fdir, Real z, Real radiationSwitch)
        : m_P(P * 10), m_WS(WS), m_SR(SR), m_fdir(fdir), m_z(z), m_switch(radiationSwitch),
          m_Tair(Ta + kKelvin)
    {
        if (m_z <= 0)
            m_z = balance::kSmallestZenith;
        if (SR > 0 && m_z > 1.57)
            m_z = 1.57;
        if (SR > 15 && m_z > 1.54)
            m_z = 1.54;
        if (SR > 900 && m_z > 1.52)
            m_z = 1.52;
        const Real rh = RH * 0.01;
        m_eair = rh * formulas::Saturation_Pressure_Buck(m_Tair);
        m_emis = 0.575 * power(m_eair, 0.143);
        if constexpr (kKeeps)
            m_kept = shared();
    }

    Real P() const { return m_P; } ///< [hPa]
    Real Tair() const { return m_Tair; }
    Real eair() const { return m_eair; } ///< [hPa]

    /// What the balance gives for a wick of Tw. It falls as Tw rises, up to the temperature at which water
    /// boils: there the wick would lose heat beyond all bounds.
    Real Tnew(Real Tw) const
    {
        using namespace balance;
        constexpr double ratio = kHeatTimesMolarMass / kMolarMassWater;
        const Real Tref = 0.5 * (Tw + m_Tair);
        const Real evap = ((313.15 - Tw) / 30) * (-71100) + 2407300;
        const Real h = Convection_Cylinder(Tw, m_P, m_WS);
        const Real own = power(Tw, 4);
        const Real Fatm = ((kStefanBoltzmann * kWickEmissivity) * (incoming() - own)) + solar();
        const Real ewick = formulas::Saturation_Pressure_Buck(Tw);
        const Real Sc = schmidt(Tref);
        const Real Pr = kWickPrandtl;
        return (m_Tair -
                ((((evap / ratio) * (ewick - m_eair)) / (m_P - ewick)) * power(Real(Pr / Sc), 0.56))) +
               ((Fatm / h) * m_switch);
    }

private:
    static constexpr bool kKeeps = !std::is_same_v<Real, Number>;

    /// What does not depend on Tw. Number computes it in each pass, so that a failure comes where it stands.
    struct Shared {
        Real incoming = 0;  ///< from sky and ground [K⁴]
        Real solar = 0;     ///< [W/m²]
        Real viscosity = 0; ///< of the air
        Real density = 0;
    };

    Shared shared() const
    {
        return {computeIncoming(), computeSolar(), Air_Viscosity(m_Tair), computeDensity()};
    }

    Real computeIncoming() const
    {
        const Real sky = m_emis * power(m_Tair, 4);
        const Real ground = balance::kGroundEmissivity * power(m_Tair, 4);
        return 0.5 * (sky + ground);
    }
    Real computeSolar() const
    {
        using namespace balance;
        const Real beam = tangent(m_z);
        return ((1 - kWickAlbedo) * m_SR) *
               ((((1 - m_fdir) * (kWickRatio + 1)) + (((beam / 3.1416) + kWickRatio) * m_fdir)) +
                kGroundAlbedo);
    }
    Real computeDensity() const
    {
        return (m_P * 100) / ((m_Tair * balance::kGasConstant) / balance::kMolarMassAir);
    }

    Real incoming() const { return kKeeps ? m_kept.incoming : computeIncoming(); }
    Real solar() const { return kKeeps ? m_kept.solar : computeSolar(); }

    /// The Schmidt number, for the diffusivity at Tref.
    Real schmidt(Real Tref) const
    {
        const Real density = kKeeps ? m_kept.density : computeDensity();
        const Real viscosity = kKeeps ? m_kept.viscosity : Air_Viscosity(m_Tair);
        return viscosity / (density * Air_Diffusivity(Tref, m_P));
    }

    Real m_P;
    Real m_WS;
    Real m_SR;
    Real m_fdir;
    Real m_z;
    Real m_switch;
    Real m_Tair;
    Real m_eair = 0;
    Real m_emis = 0;
    Shared m_kept{};
};

/// The globe's heat balance, Tnew^4 = surroundings - exchange(Tp) * (Tp - Tair) + solar(SR) [K⁴]. P in kPa.
template <class Real>
class GlobeBalance {
public:
    GlobeBalance(Real Ta, Real RH, Real P, Real WS, Real fdir, Real z)
        : m_P(P * 10), m_WS(WS), m_fdir(fdir), m_Tair(Ta + kKelvin), m_rh(RH * 0.01)
    {
        // Unlike the wick's, these clamps do not ask for the radiation.
        if (z <= 0)
            z = balance::kSmallestZenith;
        if (z > 1.57)
            z = 1.57;
        m_cza = cosine(z);
        if constexpr (kKeeps)
            m_surroundings = computeSurroundings();
    }

    Real Tair() const { return m_Tair; }

    Real surroundings() const { return kKeeps ? m_surroundings : computeSurroundings(); }

    Real exchange(Real Tp) const ///< [K³]
    {
        const Real Tref = 0.5 * (Tp + m_Tair);
        return Convection_Sphere(Tref, m_P, m_WS) / (balance::kGlobeEmissivity * balance::kStefanBoltzmann);
    }

    /// Proportional to SR but for rounding.
    Real solar(Real SR) const
    {
        using namespace balance;
        return ((SR / ((2 * kGlobeEmissivity) * kStefanBoltzmann)) * (1 - kGlobeAlbedo)) *
               (((m_fdir * ((1 / (2 * m_cza)) - 1)) + 1) + kGroundAlbedo);
    }

    /// The fourth power of what the balance gives for a globe of Tp, without the sun. It falls as Tp rises.
    Real withoutSun(Real Tp) const
    {
        const Real lost = exchange(Tp);
        return surroundings() - (lost * (Tp - m_Tair));
    }

private:
    static constexpr bool kKeeps = !std::is_same_v<Real, Number>; // as for the wick

    Real computeSurroundings() const
    {
        const Real sky = Emissivity_Atmosphere(m_Tair, m_rh) * power(m_Tair, 4);
        const Real ground = balance::kGroundEmissivity * power(m_Tair, 4);
        return 0.5 * (sky + ground);
    }

    Real m_P; // [hPa]
    Real m_WS;
    Real m_fdir;
    Real m_cza = 0;
    Real m_Tair;
    Real m_rh;
    Real m_surroundings = 0;
};

/// Vapour pressure over water [kPa] at t [°C], with a constant of its own: 0.6106.
template <class Real>
Real psychrometricPressure(Real t)
{
    return formulas::exponential((17.27 * t) / (237.3 + t)) * 0.6106;
}

/// The heat balance of a wet thermometer of Tw [°C] at 101 kPa; ed and ew are the vapour pressures [kPa] at
/// the dew point and at Tw. It falls as Tw rises.
template <class Real>
Real psychrometricBalance(Real Ta, Real Tw, Real ed, Real ew)
{
    return (((((1556 * ed) + (101 * Ta)) - (1556 * ew)) + ((1.484 * ew) * Tw)) - ((1.484 * ed) * Tw)) -
           (101 * Tw);
}

/// Mean radiant temperature [°C] from a globe of 150 mm: the stronger of natural and forced
/// convection counts (ISO 7726, 1998). The way to kelvin is 273, not 273.15.
template <class Real>
Real MRT_From_Globe(Real Ta, Real Tg, Real WS)
{
    const Real hn = 0.4 * power(Real(absolute(Tg - Ta)), 0.25);
    const Real hf = 2.5 * power(WS, 0.6);
    const Real h = hn > hf ? hn : hf;
    return (100 * power(Real(power(Real((Tg + 273) / 100), 4) + (h * (Tg - Ta))), 0.25)) - 273;
}

} // namespace comfortics::models
