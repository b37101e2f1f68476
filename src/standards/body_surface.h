// SPDX-License-Identifier: GPL-3.0-or-later
//
// Surface of the body [m²] from its weight [kg] and height [m].
#pragma once

#include "standards/answer.h"

#include <cstdint>

namespace comfortics::standards {

enum class BodySurfaceFormula : std::uint8_t {
    DuBois,         ///< with 0.202, as most models have it (DuBois and DuBois, 1916)
    DuBoisOriginal, ///< with 0.20247, as published
    Mosteller,      ///< (1987)
    Haycock,        ///< (1978)
    GehanGeorge,    ///< (1970)
    Takahira,       ///< (1925), exponents of DuBois
    Fujimoto,       ///< (1968)
    Kurazumi,       ///< (1994)
};

namespace body_surface_range {
inline constexpr Input kWeight{"weight", Quantity::Positive};
inline constexpr Input kHeight{"height", Quantity::Positive};
} // namespace body_surface_range

struct BodySurface {
    Verdict verdict{};
    double area = kNaN; ///< [m²]
};

BodySurface bodySurface(double weight, double height,
                        BodySurfaceFormula formula = BodySurfaceFormula::DuBois) noexcept;

} // namespace comfortics::standards
