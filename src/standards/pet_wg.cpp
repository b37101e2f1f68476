// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/pet_wg.h"

#include "standards/body_surface.h"

#include <algorithm>
#include <cmath>

namespace comfortics::standards {

using namespace pet_body;

namespace {

constexpr double kKelvin = 273.15;
constexpr double kAirHeat = 1010;           // [J/kgK]
constexpr double kBloodHeat = 3640. / 3600; // [Wh/LK]
constexpr double kVaporisation = 2.42e6;    // [J/kg]
constexpr double kBreathPerWatt = 1.44e-6;  // [kg/sW]
constexpr double kLewis = 1.67;             // [K/hPa]
constexpr double kReferenceClo = 0.9;
constexpr double kReferenceWork = 80; // [W]

double kelvinToFourth(double t)
{
    return fourthPower(t + kKelvin);
}

} // namespace

double petWgSaturation(double t) noexcept
{
    const double T = t + kKelvin;
    const double exponent = t >= 0 ? -5800.2206 / T + 1.3914993 - 0.048640239 * T + 4.1764768e-5 * (T * T) -
                                         1.4452093e-8 * (T * T * T) + 6.5459673 * std::log(T)
                                   : -5674.5359 / T + 6.3925247 - 9.677843e-3 * T + 6.2215701e-7 * (T * T) +
                                         2.0747825e-9 * (T * T * T) - 9.484024e-13 * (T * T * T * T) +
                                         4.1635019 * std::log(T);
    return std::exp(exponent) / 100;
}

PetWgBody::Clothing::Clothing(double clo) noexcept : factor(1 + 0.31 * clo), resistance(clo / 6.45)
{
    const double uncut = coveredShare(clo);
    const double covered = std::min(1.0, uncut);
    bare = 1 - covered;
    surface = uncut + factor - 1;
    const double outer = factor - 1 + covered;
    transmission = (outer - covered) / (resistance * std::log(outer / covered) * surface);
}

PetWgBody::PetWgBody(const PetInputs& in) noexcept
    : m_ta(in.ta), m_e(in.e.value_or(in.RH / 100 * petWgSaturation(in.ta))),
      m_radiation(kelvinToFourth(in.tmrt)), m_pressure(in.pressure), m_posture(in.posture),
      m_clothing(in.clo), m_reference(kReferenceClo), m_radiantShare(radiantShare(in.posture))
{
    const double surface = bodySurface(in.weight, in.height).area;
    const double basal = basalRate(in);
    m_heat = (basal + in.work) / surface;
    m_referenceHeat = (basal + kReferenceWork) / surface;
    m_convection = convection(in.v);
    m_referenceConvection = convection(kReferenceSpeed);
    m_inward = m_heat + breathing(m_ta, m_e, m_heat);
}

double PetWgBody::convection(double v) const noexcept
{
    const double pressure = m_pressure / kStandardPressure;
    const double speed = std::pow(v, 0.67);
    const double forced = m_posture == Posture::Sitting ? 2.26 + 7.42 * speed : 2.67 + 6.5 * speed;
    return std::max(forced, 3 * std::pow(pressure, 0.53)) * std::pow(pressure, 0.55);
}

double PetWgBody::breathing(double t, double e, double heat) const noexcept
{
    const double breath = kBreathPerWatt * heat;
    const double exhaled = 0.47 * t + 21;
    return kAirHeat * (t - exhaled) * breath +
           0.623 * kVaporisation / m_pressure * (e - petWgSaturation(exhaled)) * breath;
}

double PetWgBody::skinUnder(double tClothing) const noexcept
{
    const double gained = m_clothing.surface * (radiantExchange(m_radiation, tClothing, kClothingEmissivity) +
                                                m_convection * (m_ta - tClothing));
    return tClothing - gained / m_clothing.transmission;
}

double PetWgBody::radiantExchange(double radiation, double t, double emissivity) const noexcept
{
    return m_radiantShare * emissivity * kStefanBoltzmann * (radiation - kelvinToFourth(t));
}

std::optional<PetWgBody::State> PetWgBody::stateUnder(double tClothing) const noexcept
{
    State state{.tClothing = tClothing, .tSkin = skinUnder(tClothing)};
    const auto tCore = coreTemperature(state.tSkin, m_inward, kBloodHeat);
    if (!tCore)
        return std::nullopt;
    state.tCore = *tCore;
    const double alpha = 0.0417737 + 0.7451833 / (bloodFlow(state.tCore, state.tSkin) + 0.585417);
    const double tBody = alpha * state.tSkin + (1 - alpha) * state.tCore;
    state.sweat = 2420 * std::min(500.0, 304.94 * std::max(0.0, tBody - 36.34)) / 3600;
    state.wettedness = diffusion(state.tSkin, state.sweat, m_convection, m_e, m_clothing).wettedness;
    return state;
}

PetWgBody::Diffusion PetWgBody::diffusion(double tSkin, double sweat, double convection, double e,
                                          const Clothing& clothing) noexcept
{
    const double spread = petWgSaturation(tSkin) - e;
    const double most = kLewis * convection * spread / (1 + 0.92 * convection * clothing.resistance);
    double wettedness = 0;
    if (sweat > 0)
        wettedness = most == 0 ? 1 : std::min(1.0, sweat / most);
    return {wettedness, (1 - wettedness) * spread * kLewis * 0.38 /
                            (1 / (clothing.factor * convection) + clothing.resistance)};
}

double PetWgBody::surplus(const State& state) const noexcept
{
    const double bare = m_clothing.bare * (radiantExchange(m_radiation, state.tSkin, kSkinEmissivity) +
                                           m_convection * (m_ta - state.tSkin));
    return bare - state.sweat - diffusion(state.tSkin, state.sweat, m_convection, m_e, m_clothing).heat +
           m_inward - m_clothing.transmission * (state.tSkin - state.tClothing);
}

double PetWgBody::referenceSurplus(const State& state, double t) const noexcept
{
    const double radiation = kelvinToFourth(t);
    const double bare = m_reference.bare * (radiantExchange(radiation, state.tSkin, kSkinEmissivity) +
                                            m_referenceConvection * (t - state.tSkin));
    const double clothed =
        m_reference.surface * (radiantExchange(radiation, state.tClothing, kClothingEmissivity) +
                               m_referenceConvection * (t - state.tClothing));
    const double lost =
        state.sweat +
        diffusion(state.tSkin, state.sweat, m_referenceConvection, kReferenceVapour, m_reference).heat;
    return m_referenceHeat + breathing(t, kReferenceVapour, m_referenceHeat) + bare + clothed - lost;
}

std::optional<PetWgBody::State> PetWgBody::balanced() const noexcept
{
    const double tmrt = std::sqrt(std::sqrt(m_radiation)) - kKelvin;
    return balance(*this, m_ta, tmrt, m_convection * m_clothing.surface, 1);
}

std::optional<double> PetWgBody::equivalentTemperature(const State& state) const noexcept
{
    return equivalent(state.tClothing, 0.5 * m_referenceConvection * m_reference.surface, 1,
                      [&](double t) { return referenceSurplus(state, t); });
}

Pet petWaltherGoestchel(const PetInputs& inputs, Limits limits) noexcept
{
    return petOf<PetWgBody>(inputs, limits);
}

} // namespace comfortics::standards
