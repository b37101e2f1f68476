// SPDX-License-Identifier: GPL-3.0-or-later
//
// What both forms of the physiological equivalent temperature have in common: the inputs, the basal
// metabolism, the geometry of the clothing and the core that belongs to a skin.
#pragma once

#include "formulas/bracketed_root.h"
#include "standards/answer.h"
#include "standards/person.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace comfortics::standards {

/// The defaults are those of the paper of 1999; those of 2018 are 23 years and 1.80 m.
struct PetInputs {
    double ta = kNaN;   ///< air temperature [°C]
    double tmrt = kNaN; ///< mean radiant temperature [°C]
    double v = kNaN;    ///< air speed at 1.1 m [m/s]
    double RH = kNaN;   ///< relative humidity [%]
    /// Vapour pressure [hPa]. Takes the place of RH where it is given.
    std::optional<double> e{};
    double pressure = 1013.25; ///< [hPa]
    double clo = 0.9;
    double work = 80; ///< metabolic rate above the basal one, of the whole body [W]
    double age = 35;  ///< [years]
    Sex sex = Sex::Male;
    double height = 1.75; ///< [m]
    double weight = 75;   ///< [kg]
    Posture posture = Posture::Standing;
};

namespace pet_range {
inline constexpr Input kTa{"ta", Quantity::Temperature};
inline constexpr Input kTmrt{"tmrt", Quantity::Temperature};
/// Of both papers, moving air.
inline constexpr Input kSpeed{"v", Quantity::Speed, {std::numeric_limits<double>::denorm_min(), kInfinity}};
inline constexpr Input kRH{"RH", Quantity::Humidity};
inline constexpr Input kVapourPressure{"e", Quantity::Flux};
inline constexpr Input kPressure{"pressure", Quantity::Hectopascal};
inline constexpr Input kClo{"clo", Quantity::Clothing, {0.05, 2}};
inline constexpr Input kWork{"work", Quantity::Flux};
inline constexpr Input kAge{"age", Quantity::Positive};
inline constexpr Input kHeight{"height", Quantity::Positive};
inline constexpr Input kWeight{"weight", Quantity::Positive};
} // namespace pet_range

struct Pet {
    Verdict verdict{};
    double pet = kNaN;        ///< [°C]
    double tCore = kNaN;      ///< [°C]
    double tSkin = kNaN;      ///< [°C]
    double tClothing = kNaN;  ///< [°C]
    double wettedness = kNaN; ///< of the skin; below 0 where the air is damper than the skin
};

/// Between these the temperature of the skin is looked for, and between those PET [°C].
inline constexpr Interval kPetSkins{-80, 80};
inline constexpr Interval kPetBracket{-150, 150};

namespace pet_body {

inline constexpr double kStefanBoltzmann = 5.67e-8; // [W/m²K⁴]
inline constexpr double kSkinEmissivity = 0.99;
inline constexpr double kClothingEmissivity = 0.95;
inline constexpr double kStandardPressure = 1013.25; // [hPa]
inline constexpr double kReferenceSpeed = 0.1;       // [m/s]
inline constexpr double kReferenceVapour = 12;       // [hPa]

void lookAt(Examination& examination, const PetInputs& inputs) noexcept;

/// Basal metabolic rate [W].
double basalRate(const PetInputs& inputs) noexcept;

/// The share of the body that clothing covers, before any cut at 1.
double coveredShare(double clo) noexcept;

/// Share of the body's surface that exchanges radiation.
double radiantShare(Posture posture) noexcept;

/// Flow of blood to the skin [L/m²h].
double bloodFlow(double tCore, double tSkin) noexcept;

/// What conduction and blood carry from core to skin [W/m²], `bloodHeat` being the heat of a litre an
/// hour [Wh/LK].
double coreToSkin(double tCore, double tSkin, double bloodHeat) noexcept;

/// The core at which coreToSkin is `heat`: in closed form, by the piece of bloodFlow that it falls into.
/// None unless it lies within 200 K above the skin.
std::optional<double> coreTemperature(double tSkin, double heat, double bloodHeat) noexcept;

inline double fourthPower(double x) noexcept
{
    return (x * x) * (x * x);
}

/// The state of a body whose heat is in balance: none where no skin has one. The unknown is the clothing's
/// temperature: it gives the skin's outright, and that the core's. By every kelvin of it the surplus falls by
/// `least` at the least; `area` is that of the clothing [m²], or 1 where heat is taken for each m².
template <class Body>
std::optional<typename Body::State> balance(const Body& body, double ta, double tmrt, double least,
                                            double area) noexcept
{
    static constexpr double kFar = 1e6; // beyond the skins that are looked at, as heat
    constexpr double kClosed = 1e-3;    // a surplus that jumps over 0 has no root
    const auto surplusUnder = [&body](double tClothing) {
        const double tSkin = body.skinUnder(tClothing);
        if (tSkin < kPetSkins.low)
            return kFar;
        if (tSkin > kPetSkins.high)
            return -kFar;
        const auto state = body.stateUnder(tClothing);
        return state ? body.surplus(*state) : kNaN;
    };
    const double surroundings = 0.5 * (ta + tmrt);
    const auto root = formulas::bracketedRoot({.low = std::min({kPetSkins.low, ta, tmrt}),
                                               .high = std::max({kPetSkins.high, ta, tmrt}),
                                               .start = surroundings + 0.4 * (34 - surroundings),
                                               .slope = -3 * (least + 5 * area),
                                               .leastSlope = least},
                                              surplusUnder);
    if (!root)
        return std::nullopt;
    const auto state = body.stateUnder(*root);
    if (!state || !(std::fabs(body.surplus(*state)) < kClosed))
        return std::nullopt;
    return state;
}

/// The temperature at which a reference, whose surplus rises, has none; the rest as above.
template <class Surplus>
std::optional<double> equivalent(double tClothing, double least, double area, Surplus surplusAt) noexcept
{
    return formulas::bracketedRoot({.low = kPetBracket.low,
                                    .high = kPetBracket.high,
                                    .start = tClothing,
                                    .slope = -3 * (least + 5 * area),
                                    .leastSlope = least},
                                   [&](double t) { return -surplusAt(t); });
}

template <class Body>
Pet petOf(const PetInputs& inputs, Limits limits) noexcept
{
    Examination examination(limits);
    lookAt(examination, inputs);
    if (!examination.hasValue())
        return {examination.verdict()};
    const Body body(inputs);
    const auto state = body.balanced();
    const auto pet = state ? body.equivalentTemperature(*state) : std::nullopt;
    if (!pet) {
        examination.refuse(Reason::NoRoot, state ? "pet" : "t_skin");
        return {examination.verdict()};
    }
    return {.verdict = examination.verdict(),
            .pet = *pet,
            .tCore = state->tCore,
            .tSkin = state->tSkin,
            .tClothing = state->tClothing,
            .wettedness = state->wettedness};
}

} // namespace pet_body

} // namespace comfortics::standards
