// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/pet.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace comfortics::standards {

using namespace pet_body;

namespace {

constexpr double kKelvin = 273.2;
constexpr double kAirHeat = 1010;                 // [J/kgK]
constexpr double kBloodHeat = 1.06 * 3640 / 3600; // [Wh/LK]
constexpr double kVaporisation = 2.42e6;          // [J/kg]
constexpr double kBreathPerWatt = 1.44e-6;        // [kg/sW]

double kelvinToFourth(double t)
{
    return fourthPower(t + kKelvin);
}

} // namespace

double petSaturation(double t) noexcept
{
    return 6.11 * std::exp(std::numbers::ln10 * (7.45 * t / (235 + t)));
}

PetBody::PetBody(const PetInputs& in) noexcept
    : m_sex(in.sex), m_pressure(in.pressure), m_heat(basalRate(in) + in.work),
      m_surface(0.203 * std::pow(in.weight, 0.425) * std::pow(in.height, 0.725)),
      m_radiantShare(radiantShare(in.posture))
{
    const double f = 1 + 0.15 * in.clo;
    const double covered = std::min(1.0, coveredShare(in.clo));
    m_bare = 1 - covered;
    m_clothed = m_surface * (covered + f - 1);
    m_resistance = in.clo / (6.45 * covered);
    // Through a cylinder around the body, from whose radii its length goes out.
    m_transmission = m_surface * (f - 1) / (m_resistance * std::log((f - 1 + covered) / covered) * m_clothed);
    m_outdoors = air(in.ta, in.tmrt, in.v, in.e.value_or(in.RH / 100 * petSaturation(in.ta)));
}

PetBody::Air PetBody::air(double ta, double tmrt, double v, double e) const noexcept
{
    const double convection =
        (2.67 + 6.5 * std::pow(v, 0.67)) * std::pow(m_pressure / kStandardPressure, 0.55);
    return {ta, tmrt, e, convection, kelvinToFourth(tmrt), breathing(ta, e)};
}

double PetBody::breathing(double ta, double e) const noexcept
{
    const double breath = kBreathPerWatt * m_heat;
    const double exhaled = 0.47 * ta + 21;
    return kAirHeat * (ta - exhaled) * breath +
           0.623 * kVaporisation / m_pressure * (e - petSaturation(exhaled)) * breath;
}

double PetBody::skinUnder(double tClothing) const noexcept
{
    const double radiated = kClothingEmissivity * kStefanBoltzmann * m_radiantShare *
                            (kelvinToFourth(tClothing) - m_outdoors.radiation);
    const double lost = m_outdoors.convection * (tClothing - m_outdoors.ta) + radiated;
    return tClothing + lost / m_transmission;
}

std::optional<PetBody::State> PetBody::stateUnder(double tClothing) const noexcept
{
    State state{.tClothing = tClothing, .tSkin = skinUnder(tClothing)};
    const auto tCore = coreTemperature(state.tSkin, (m_heat + m_outdoors.breathing) / m_surface, kBloodHeat);
    if (!tCore)
        return std::nullopt;
    state.tCore = *tCore;
    const double tBody = 0.1 * state.tSkin + 0.9 * state.tCore;
    const double ofSex = m_sex == Sex::Male ? 1 : 0.7;
    const double sweat = 304.94 * std::max(0.0, tBody - 36.6) * m_surface / 3.6e6 * ofSex; // [kg/s]
    const double regulated = -sweat * kVaporisation;
    const double potential = 0.633 * m_outdoors.convection / (m_pressure * kAirHeat) *
                             (m_outdoors.e - petSaturation(state.tSkin)) * m_surface * kVaporisation /
                             (1 + 0.92 * m_outdoors.convection * m_resistance);
    if (regulated == 0)
        state.wettedness = 0;
    else
        state.wettedness = potential == 0 ? 1 : std::min(1.0, regulated / potential);
    state.sweat = std::min(0.0, std::max(regulated, potential));
    return state;
}

double PetBody::surplusIn(const Air& air, const State& state) const noexcept
{
    const double diffusion =
        kVaporisation / 0.79e7 * m_surface * (1 - state.wettedness) * (air.e - petSaturation(state.tSkin));
    const double bareRadiation = m_surface * m_radiantShare * m_bare * kSkinEmissivity * kStefanBoltzmann *
                                 (air.radiation - kelvinToFourth(state.tSkin));
    const double clothedRadiation = m_radiantShare * m_clothed * kClothingEmissivity * kStefanBoltzmann *
                                    (air.radiation - kelvinToFourth(state.tClothing));
    const double convection = air.convection * ((air.ta - state.tSkin) * m_surface * m_bare +
                                                (air.ta - state.tClothing) * m_clothed);
    return m_heat + air.breathing + diffusion + state.sweat + bareRadiation + clothedRadiation + convection;
}

double PetBody::surplus(const State& state) const noexcept
{
    return surplusIn(m_outdoors, state);
}

double PetBody::referenceSurplus(const State& state, double t) const noexcept
{
    return surplusIn(air(t, t, kReferenceSpeed, kReferenceVapour), state);
}

std::optional<PetBody::State> PetBody::balanced() const noexcept
{
    return balance(*this, m_outdoors.ta, m_outdoors.tmrt, m_outdoors.convection * m_clothed, m_clothed);
}

std::optional<double> PetBody::equivalentTemperature(const State& state) const noexcept
{
    Air reference = air(0, 0, kReferenceSpeed, kReferenceVapour);
    return equivalent(state.tClothing, 0.5 * reference.convection * m_clothed, m_clothed, [&](double t) {
        reference.ta = t;
        reference.tmrt = t;
        reference.radiation = kelvinToFourth(t);
        reference.breathing = breathing(t, kReferenceVapour);
        return surplusIn(reference, state);
    });
}

Pet pet(const PetInputs& inputs, Limits limits) noexcept
{
    return petOf<PetBody>(inputs, limits);
}

} // namespace comfortics::standards
