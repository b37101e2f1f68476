// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/solvers.h"

#include "formulas/primitives.h"

#include <cmath>
#include <optional>

namespace comfortics::models {

using formulas::Saturation_Pressure_Buck;
using values::absolute;
using values::cosine;
using values::power;
using values::tangent;

namespace {

// Products and quotients of constants keep the shape in which they are computed.
constexpr double kSpecificHeat = 1003.5;           // of air [J/kg/K]
constexpr double kGasConstant = 8314.34;           // universal [J/kmol/K]
constexpr double kGasConstantTimes125 = 10392.925; // 1.25 times that
constexpr double kMolarMassAir = 28.97;            // [kg/kmol]
constexpr double kMolarMassWater = 18.015;         // [kg/kmol]
constexpr double kHeatTimesMolarMass = 29071.395;  // specific heat times molar mass of air
constexpr double kStefanBoltzmann = 5.6696e-08;    // [W/m²/K⁴]
constexpr double kKelvin = 273.15;
constexpr double kWickDiameter = 0.007;         // [m]
constexpr double kGlobeDiameter = 0.05;         // [m]
constexpr double kWickRatio = 0.00175 / 0.0254; // a quarter of the diameter to the length
constexpr double kWickEmissivity = 0.95;
constexpr double kWickAlbedo = 0.4;
constexpr double kGlobeEmissivity = 0.95;
constexpr double kGlobeAlbedo = 0.05;
constexpr double kGroundEmissivity = 0.999;
constexpr double kGroundAlbedo = 0.4;
constexpr double kSmallestZenith = 1e-10; // the clamp of an angle of 0 [rad]

} // namespace

Number Air_Viscosity(Number T)
{
    const Number omega = (((T / 97) - 2.9) / 0.4) * (-0.034) + 1.048;
    return (2.6693e-06 * power(kMolarMassAir * T, 0.5)) / (power(3.617, 2) * omega);
}

Number Air_Diffusivity(Number T, Number P)
{
    constexpr double A = 85443.59999999999;
    return (((((0.000364 * power(T / power(A, 0.5), 2.334)) * power(7935.2, 1.0 / 3)) * power(A, 5.0 / 12)) *
             power((1 / kMolarMassAir) + (1 / kMolarMassWater), 0.5)) /
            (P / 1013.25)) *
           0.0001;
}

Number Emissivity_Atmosphere(Number T, Number rh)
{
    return 0.575 * power(rh * Saturation_Pressure_Buck(T), 0.143);
}

void raiseToMinimumWind(Variant& v, Number vmin)
{
    if (isGreater(vmin, v))
        v.assign(vmin);
}

Number Convection_Cylinder(Number T, Number P, Variant& v, Number vmin)
{
    const Number Pr = kSpecificHeat / ((kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat);
    const Number k = ((kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat) * Air_Viscosity(T);
    const Number density = (P * 100) / ((kGasConstant / kMolarMassAir) * T);
    raiseToMinimumWind(v, vmin);
    const Number Re = ((v.number() * density) * kWickDiameter) / Air_Viscosity(T);
    const Number Nu = (0.281 * power(Re, 0.6)) * power(Pr, 0.44);
    return (Nu * k) / kWickDiameter;
}

Number Convection_Sphere(Number T, Number P, Variant& v, Number vmin)
{
    constexpr double Rair = kGasConstant / kMolarMassAir;
    const Number Pr = kSpecificHeat / (kSpecificHeat + (1.25 * Rair));
    const Number k = ((kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat) * Air_Viscosity(T);
    const Number density = (P * 100) / (Rair * T);
    raiseToMinimumWind(v, vmin);
    const Number Re = ((v.number() * density) * kGlobeDiameter) / Air_Viscosity(T);
    const Number Nu = 2 + ((0.6 * power(Re, 0.5)) * power(Pr, 0.3333));
    return (Nu * k) / kGlobeDiameter;
}

namespace plain {

Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number P, Variant& WS, Number vmin, Number SR,
                          Number fdir, Number z, Number radiationSwitch)
{
    P = P * 10;
    if (z <= 0)
        z = kSmallestZenith;
    if (SR > 0 && z > 1.57)
        z = 1.57;
    if (SR > 15 && z > 1.54)
        z = 1.54;
    if (SR > 900 && z > 1.52)
        z = 1.52;
    const Number Tair = Ta + kKelvin;
    Number Tw = Td + kKelvin;
    const Number Tsfc = Tair;
    const Number rh = RH * 0.01;
    const Number eair = rh * Saturation_Pressure_Buck(Tair);
    const Number emis = 0.575 * power(eair, 0.143);
    const Number ratio = kHeatTimesMolarMass / kMolarMassWater;
    const Number Pr = kSpecificHeat / ((kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat);
    for (int pass = 1; pass <= kLastPass; ++pass) {
        const Number Tref = 0.5 * (Tw + Tair);
        const Number evap = ((313.15 - Tw) / 30) * (-71100) + 2407300;
        const Number h = Convection_Cylinder(Tw, P, WS, vmin);
        const Number Fatm =
            ((kStefanBoltzmann * kWickEmissivity) *
             ((0.5 * ((emis * power(Tair, 4)) + (kGroundEmissivity * power(Tsfc, 4)))) - power(Tw, 4))) +
            (((1 - kWickAlbedo) * SR) *
             ((((1 - fdir) * (kWickRatio + 1)) + (((tangent(z) / 3.1416) + kWickRatio) * fdir)) +
              kGroundAlbedo));
        const Number ewick = Saturation_Pressure_Buck(Tw);
        const Number density = (P * 100) / ((Tair * kGasConstant) / kMolarMassAir);
        const Number Sc = Air_Viscosity(Tair) / (density * Air_Diffusivity(Tref, P));
        const Number Tnew =
            (Tair - ((((evap / ratio) * (ewick - eair)) / (P - ewick)) * power(Pr / Sc, 0.56))) +
            ((Fatm / h) * radiationSwitch);
        const Number d = Tnew - Tw;
        if (d < -kTolerance)
            // The minus before Tnew is deliberate: an overshoot throws Tw down by about a fifth of
            // its kelvin value, and the other branch climbs back.
            Tw = (0.9 * Tw) - (0.1 * Tnew);
        else if (d > kTolerance)
            Tw = (0.9 * Tw) + (0.1 * Tnew);
        else
            return {SolverStatus::Converged, (Tnew - kKelvin).value()};
    }
    return {};
}

Solution Globe_Temperature_Model(Number Ta, Number RH, Number P, Variant& WS, Number SR, Number fdir,
                                 Number z, Number vmin)
{
    // Unlike the wick's, these clamps do not ask for the radiation.
    if (z <= 0)
        z = kSmallestZenith;
    if (z > 1.57)
        z = 1.57;
    P = P * 10;
    const Number cza = cosine(z);
    const Number Tair = Ta + kKelvin;
    const Number rh = RH * 0.01;
    const Number Tsfc = Tair;
    Number Tp = Tair;
    for (int pass = 1; pass <= kLastPass; ++pass) {
        const Number Tref = 0.5 * (Tp + Tair);
        const Number h = Convection_Sphere(Tref, P, WS, vmin);
        const Number Tnew =
            power(((0.5 * ((Emissivity_Atmosphere(Tair, rh) * power(Tair, 4)) +
                           (kGroundEmissivity * power(Tsfc, 4)))) -
                   ((h / (kGlobeEmissivity * kStefanBoltzmann)) * (Tp - Tair))) +
                      (((SR / ((2 * kGlobeEmissivity) * kStefanBoltzmann)) * (1 - kGlobeAlbedo)) *
                       (((fdir * ((1 / (2 * cza)) - 1)) + 1) + kGroundAlbedo)),
                  0.25);
        const Number d = Tnew - Tp;
        if (absolute(d) < kTolerance)
            return {SolverStatus::Converged, (Tnew - kKelvin).value()};
        Tp = (0.9 * Tp) + (0.1 * Tnew);
    }
    return {};
}

} // namespace plain

// ---------------------------------------------------------------------------------------------
// The fast solvers. They run in bare doubles inside a range of air and of iterates where every
// divisor is well away from 0 and nothing overflows; whatever leaves that range is solved again by
// the plain solver, whose result or failure it then is. Inside it only a root can fail, and does so
// alike.
//
// An iteration whose state comes back to the bits of an earlier one never converges: it need not
// run to its last pass. The usual case is a swing to and fro between two temperatures.

namespace {

// The powers of constants, by the same library call as in the plain solvers.
struct ConstantPowers {
    double viscosityCollision = power(3.617, 2).value();
    double diffusivityCritical = power(85443.59999999999, 0.5).value();
    double diffusivityPressure = power(7935.2, 1.0 / 3).value();
    double diffusivityTemperature = power(85443.59999999999, 5.0 / 12).value();
    double diffusivityMass = power((1 / kMolarMassAir) + (1 / kMolarMassWater), 0.5).value();
    double wickPrandtl =
        power(kSpecificHeat / ((kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat), 0.44).value();
    double globePrandtl =
        power(kSpecificHeat / (kSpecificHeat + (1.25 * (kGasConstant / kMolarMassAir))), 0.3333).value();
    double wickBeam = tangent(kSmallestZenith).value() / 3.1416;
    double globeSun =
        ((kDirectFraction * ((1 / (2 * cosine(kSmallestZenith).value())) - 1)) + 1) + kGroundAlbedo;
};
const ConstantPowers kPowers;

constexpr double kPressure = kSitePressure * 10;                                         // [hPa]
constexpr double kConductivity = (kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat; // per viscosity
constexpr double kGasOfAir = kGasConstant / kMolarMassAir;

bool ordinaryAir(double Tair, double RH, double WS)
{
    return Tair > 150 && Tair < 700 && RH >= 0 && RH < 1e6 && WS >= 0 && WS < 1e4;
}

bool ordinaryIterate(double T)
{
    return T > 100 && T < 1400;
}

bool ordinaryRadiation(double SR)
{
    return SR > -1e6 && SR < 1e6;
}

double pow(double base, double exponent)
{
    return power(base, exponent).value();
}

double viscosity(double T)
{
    const double omega = (((T / 97) - 2.9) / 0.4) * (-0.034) + 1.048;
    return (2.6693e-06 * pow(kMolarMassAir * T, 0.5)) / (kPowers.viscosityCollision * omega);
}

double sphere(double T, double v)
{
    const double mu = viscosity(T);
    const double k = kConductivity * mu;
    const double density = (kPressure * 100) / (kGasOfAir * T);
    const double Re = ((v * density) * kGlobeDiameter) / mu;
    const double Nu = 2 + ((0.6 * pow(Re, 0.5)) * kPowers.globePrandtl);
    return (Nu * k) / kGlobeDiameter;
}

double cylinder(double T, double v)
{
    const double mu = viscosity(T);
    const double k = kConductivity * mu;
    const double density = (kPressure * 100) / (kGasOfAir * T);
    const double Re = ((v * density) * kWickDiameter) / mu;
    const double Nu = (0.281 * pow(Re, 0.6)) * kPowers.wickPrandtl;
    return (Nu * k) / kWickDiameter;
}

double diffusivity(double T)
{
    return (((((0.000364 * pow(T / kPowers.diffusivityCritical, 2.334)) * kPowers.diffusivityPressure) *
              kPowers.diffusivityTemperature) *
             kPowers.diffusivityMass) /
            (kPressure / 1013.25)) *
           0.0001;
}

class CycleDetector {
public:
    explicit CycleDetector(double state) : m_kept(state) {}

    /// True if the iteration has been in this state before. Finds cycles of up to kStride states.
    bool repeats(double state)
    {
        if (state == m_kept)
            return true;
        if (++m_sinceKept == kStride) {
            m_kept = state;
            m_sinceKept = 0;
        }
        return false;
    }

private:
    static constexpr int kStride = 16;
    double m_kept;
    int m_sinceKept = 0;
};

std::optional<Solution> quickNaturalWetBulb(double Ta, double Td, double RH, double WS, double SR)
{
    const double Tair = Ta + kKelvin;
    // In still air h is 0 and the division by it fails.
    if (!ordinaryAir(Tair, RH, WS) || WS < 1e-6 || !ordinaryRadiation(SR))
        return std::nullopt;
    const double eair = (RH * 0.01) * Saturation_Pressure_Buck(Tair).value();
    const double emis = 0.575 * pow(eair, 0.143);
    const double Tair4 = pow(Tair, 4);
    const double surroundings = 0.5 * ((emis * Tair4) + (kGroundEmissivity * Tair4));
    const double solar =
        ((1 - kWickAlbedo) * SR) *
        ((((1 - kDirectFraction) * (kWickRatio + 1)) + ((kPowers.wickBeam + kWickRatio) * kDirectFraction)) +
         kGroundAlbedo);
    constexpr double ratio = kHeatTimesMolarMass / kMolarMassWater;
    constexpr double Pr = kSpecificHeat / ((kGasConstantTimes125 / kMolarMassAir) + kSpecificHeat);
    const double density = (kPressure * 100) / ((Tair * kGasConstant) / kMolarMassAir);
    const double airViscosity = viscosity(Tair);

    double Tw = Td + kKelvin;
    CycleDetector cycle(Tw);
    for (int pass = 1; pass <= kLastPass; ++pass) {
        if (!ordinaryIterate(Tw))
            return std::nullopt;
        const double Tref = 0.5 * (Tw + Tair);
        const double evap = ((313.15 - Tw) / 30) * (-71100) + 2407300;
        const double h = cylinder(Tw, WS);
        const double Fatm = ((kStefanBoltzmann * kWickEmissivity) * (surroundings - pow(Tw, 4))) + solar;
        const double ewick = Saturation_Pressure_Buck(Tw).value();
        const double Sc = airViscosity / (density * diffusivity(Tref));
        const double Tnew =
            (Tair - ((((evap / ratio) * (ewick - eair)) / (kPressure - ewick)) * pow(Pr / Sc, 0.56))) +
            ((Fatm / h) * kRadiationSwitch);
        if (!std::isfinite(Tnew)) // ewick met the pressure
            return std::nullopt;
        const double d = Tnew - Tw;
        if (d < -kTolerance)
            Tw = (0.9 * Tw) - (0.1 * Tnew);
        else if (d > kTolerance)
            Tw = (0.9 * Tw) + (0.1 * Tnew);
        else
            return Solution{SolverStatus::Converged, Tnew - kKelvin};
        if (cycle.repeats(Tw))
            return Solution{};
    }
    return Solution{};
}

} // namespace

GlobeModel::GlobeModel(Number Ta, Number RH, Number WS) : m_Ta(Ta), m_RH(RH), m_WS(WS)
{
    const double Tair = Ta.value() + kKelvin;
    m_ordinary = ordinaryAir(Tair, RH.value(), WS.value());
    if (!m_ordinary)
        return;
    m_Tair = Tair;
    const double Tair4 = pow(Tair, 4);
    m_surroundings =
        0.5 * ((Emissivity_Atmosphere(Tair, RH * 0.01).value() * Tair4) + (kGroundEmissivity * Tair4));
}

double GlobeModel::exchange(double Tp) const
{
    return sphere(0.5 * (Tp + m_Tair), m_WS.value()) / (kGlobeEmissivity * kStefanBoltzmann);
}

double GlobeModel::solar(double SR)
{
    return ((SR / ((2 * kGlobeEmissivity) * kStefanBoltzmann)) * (1 - kGlobeAlbedo)) * kPowers.globeSun;
}

Solution GlobeModel::solve(Number SR) const
{
    const auto plainly = [&] {
        Variant wind = m_WS;
        return plain::Globe_Temperature_Model(m_Ta, m_RH, kSitePressure, wind, SR, kDirectFraction, kZenith,
                                              m_WS); // its own floor: never raised again
    };
    if (!m_ordinary || !ordinaryRadiation(SR.value()))
        return plainly();
    const double sun = solar(SR.value());
    double Tp = m_Tair;
    // The globe starts at the air's temperature: the first pass has nothing to exchange.
    double fourthPower = m_surroundings + sun;
    CycleDetector cycle(Tp);
    for (int pass = 1; pass <= kLastPass; ++pass) {
        const double Tnew = pow(fourthPower, 0.25); // fails below 0, as in the plain solver
        const double d = Tnew - Tp;
        if (std::abs(d) < kTolerance)
            return {SolverStatus::Converged, Tnew - kKelvin};
        Tp = (0.9 * Tp) + (0.1 * Tnew);
        if (cycle.repeats(Tp))
            return {};
        if (!ordinaryIterate(Tp))
            return plainly();
        fourthPower = (m_surroundings - (exchange(Tp) * (Tp - m_Tair))) + sun;
    }
    return {};
}

Solution Globe_Temperature_Model(Number Ta, Number RH, Number WS, Number SR)
{
    return GlobeModel(Ta, RH, WS).solve(SR);
}

Solution Natural_Wet_Bulb(Number Ta, Number Td, Number RH, Number WS, Number SR)
{
    const auto quick = quickNaturalWetBulb(Ta.value(), Td.value(), RH.value(), WS.value(), SR.value());
    if (quick)
        return *quick;
    Variant wind = WS;
    return plain::Natural_Wet_Bulb(Ta, Td, RH, kSitePressure, wind, WS, SR, kDirectFraction, kZenith,
                                   kRadiationSwitch);
}

Number MRT_From_Globe(Number Ta, Number Tg, Number WS)
{
    const Number hn = 0.4 * power(absolute(Tg - Ta), 0.25);
    const Number hf = 2.5 * power(WS, 0.6);
    const Number h = hn > hf ? hn : hf;
    return (100 * power(power((Tg + 273) / 100, 4) + (h * (Tg - Ta)), 0.25)) - 273;
}

} // namespace comfortics::models
