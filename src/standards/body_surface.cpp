// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/body_surface.h"

#include <cmath>

namespace comfortics::standards {

namespace {

double area(double weight, double height, BodySurfaceFormula formula)
{
    const double cm = 100 * height;
    const auto product = [weight](double factor, double ofWeight, double length, double ofHeight) {
        return factor * std::pow(weight, ofWeight) * std::pow(length, ofHeight);
    };
    switch (formula) {
    case BodySurfaceFormula::DuBois:
        return product(0.202, 0.425, height, 0.725);
    case BodySurfaceFormula::DuBoisOriginal:
        return product(0.20247, 0.425, height, 0.725);
    case BodySurfaceFormula::Mosteller:
        return std::sqrt(weight * cm / 3600);
    case BodySurfaceFormula::Haycock:
        return product(0.024265, 0.5378, cm, 0.3964);
    case BodySurfaceFormula::GehanGeorge:
        return product(0.0235, 0.51456, cm, 0.42246);
    case BodySurfaceFormula::Takahira:
        return product(0.2042, 0.425, height, 0.725);
    case BodySurfaceFormula::Fujimoto:
        return product(0.1882, 0.444, height, 0.663);
    case BodySurfaceFormula::Kurazumi:
        return product(0.2440, 0.383, height, 0.693);
    }
    return kNaN;
}

} // namespace

BodySurface bodySurface(double weight, double height, BodySurfaceFormula formula) noexcept
{
    Examination examination;
    examination.look(body_surface_range::kWeight, weight);
    examination.look(body_surface_range::kHeight, height);
    if (!examination.hasValue())
        return {examination.verdict()};
    return {examination.verdict(), area(weight, height, formula)};
}

} // namespace comfortics::standards
