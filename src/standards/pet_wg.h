// SPDX-License-Identifier: GPL-3.0-or-later
//
// Physiological equivalent temperature with the corrections of Walther and Goestchel (2018): evaporation and
// clothing of the reference are its own, the mean temperature of the body follows the blood flow, and fluxes
// are for each m² of the body. Building and Environment 137, 1-10.
//
// Inputs and units as in pet.h; the authors' person is of 23 years and 1.80 m. The reference has still air of
// 12 hPa, 0.9 clo and a work of 80 W.
//
// Traps: convection by posture, whose labels are swapped in some programs; regulated sweat of both sexes, a
// factor of a thousand too small in a published script; the heat by sweat is not cut where the wettedness is;
// the clothed share is cut at 1 but for the surface of the clothing.
#pragma once

#include "standards/pet_body.h"

namespace comfortics::standards {

/// None where the balance has no root for a skin of -80..80 °C or a reference of -150..150 °C, and where
/// the clothing covers nothing.
Pet petWaltherGoestchel(const PetInputs& inputs, Limits limits = Limits::Mark) noexcept;

/// Saturation vapour pressure [hPa] over water, and over ice below 0 °C, Hyland and Wexler (1983).
double petWgSaturation(double t) noexcept;

/// The body outdoors and in the reference. Fluxes in W for each m² of the body.
class PetWgBody {
public:
    /// Looks at no range.
    explicit PetWgBody(const PetInputs& inputs) noexcept;

    struct State {
        double tClothing = kNaN;
        double tSkin = kNaN;
        double tCore = kNaN;
        double sweat = kNaN;      ///< heat of regulated sweat
        double wettedness = kNaN; ///< outdoors
    };

    /// The skin under a clothing of this temperature: what leaves the one comes from the other.
    double skinUnder(double tClothing) const noexcept;
    /// None where there is no core for the skin.
    std::optional<State> stateUnder(double tClothing) const noexcept;
    /// What the bare skin has to spare outdoors. Falls with the temperature of the clothing.
    double surplus(const State& state) const noexcept;
    /// What the body has to spare in the reference at t. Rises with t.
    double referenceSurplus(const State& state, double t) const noexcept;

    std::optional<State> balanced() const noexcept;
    std::optional<double> equivalentTemperature(const State& state) const noexcept;

private:
    struct Clothing {
        explicit Clothing(double clo) noexcept;

        double bare = kNaN;         ///< share of the body
        double surface = kNaN;      ///< of the clothing, as a share of the body
        double factor = kNaN;       ///< ratio of the clothed to the bare surface
        double resistance = kNaN;   ///< [m²K/W]
        double transmission = kNaN; ///< [W/m²K] of the body
    };
    struct Diffusion {
        double wettedness, heat;
    };
    double convection(double v) const noexcept;
    double breathing(double t, double e, double heat) const noexcept;
    static Diffusion diffusion(double tSkin, double sweat, double convection, double e,
                               const Clothing& clothing) noexcept;
    double radiantExchange(double radiation, double t, double emissivity) const noexcept;

    double m_ta;
    double m_e;
    double m_radiation; ///< fourth power of tmrt in kelvin
    double m_pressure;
    Posture m_posture;
    Clothing m_clothing;
    Clothing m_reference;
    double m_heat;          ///< basal rate and work
    double m_referenceHeat; ///< basal rate and the work of the reference
    double m_convection;
    double m_referenceConvection;
    double m_inward; ///< heat that core and skin exchange: m_heat less what breathing takes
    double m_radiantShare;
};

} // namespace comfortics::standards
