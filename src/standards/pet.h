// SPDX-License-Identifier: GPL-3.0-or-later
//
// Physiological equivalent temperature: the temperature of a room, of a person as if inside it, in which core
// and skin of a person outdoors would be balanced as they are. Höppe (1999) [1], VDI 3787-2 (2008) [2],
// with the classic Munich energy balance model for individuals.
//
//   ta, tmrt  air and mean radiant temperature [°C]      work    metabolic rate above the basal one [W]
//   v         air speed at 1.1 m [m/s]                   clo     clothing insulation
//   e         vapour pressure [hPa]                      p       pressure of the air [hPa]
//
// The published thresholds rest on this form. What is known to be wrong with it (the skin's evaporation and
// the clothing in the reference stay those of outdoors) is mended in pet_wg.h; they differ by several K in
// heat and cold.
//
// Traps: the clothed body is 1 + 0.15 clo of the bare one, where others take 0.31 clo or always 1.15, up to
// 1.8 K off; fourth powers count from 273.2; the work is that above the basal rate, in W and not in met.
//
// [1] Int. J. Biometeorol. 43, 71-75. [2] Environmental meteorology, methods for the human biometeorological
// evaluation of climate.
#pragma once

#include "standards/pet_body.h"

namespace comfortics::standards {

/// None where the balance has no root for a skin of -80..80 °C or a reference of -150..150 °C, and where
/// the clothing covers nothing.
Pet pet(const PetInputs& inputs, Limits limits = Limits::Mark) noexcept;

/// Saturation vapour pressure over water [hPa], of this model.
double petSaturation(double t) noexcept;

/// The body outdoors and in the reference.
class PetBody {
public:
    /// Looks at no range.
    explicit PetBody(const PetInputs& inputs) noexcept;

    /// What a skin and clothing lead to.
    struct State {
        double tClothing = kNaN;
        double tSkin = kNaN;
        double tCore = kNaN;
        double wettedness = kNaN;
        double sweat = kNaN; ///< heat by its evaporation, not above 0 [W]
    };

    /// The skin under a clothing of this temperature: what leaves the one comes from the other.
    double skinUnder(double tClothing) const noexcept;
    /// None where there is no core for the skin.
    std::optional<State> stateUnder(double tClothing) const noexcept;
    /// Heat to spare outdoors [W]. Falls with the temperature of the clothing.
    double surplus(const State& state) const noexcept;
    /// The same in the reference at t. Rises with t.
    double referenceSurplus(const State& state, double t) const noexcept;

    std::optional<State> balanced() const noexcept;
    std::optional<double> equivalentTemperature(const State& state) const noexcept;

private:
    struct Air {
        double ta = kNaN;
        double tmrt = kNaN;
        double e = kNaN;
        double convection = kNaN; ///< [W/m²K]
        double radiation = kNaN;  ///< fourth power of tmrt in kelvin
        double breathing = kNaN;  ///< heat by breathing [W]
    };
    Air air(double ta, double tmrt, double v, double e) const noexcept;
    double breathing(double ta, double e) const noexcept;
    double surplusIn(const Air& air, const State& state) const noexcept;

    Sex m_sex;
    double m_pressure;
    double m_heat;         ///< basal rate and work [W]
    double m_surface;      ///< of the bare body [m²]
    double m_bare;         ///< share of it that is not covered
    double m_clothed;      ///< surface of the clothing [m²]
    double m_resistance;   ///< of the clothing [m²K/W]
    double m_transmission; ///< through the clothing, per m² of it [W/m²K]
    double m_radiantShare;
    Air m_outdoors;
};

} // namespace comfortics::standards
