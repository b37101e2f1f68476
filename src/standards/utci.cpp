// SPDX-License-Identifier: GPL-3.0-or-later
#include "standards/utci.h"

#include "formulas/primitives.h"
#include "models/utci_polynomial.h"

#include <cmath>

namespace comfortics::standards {

UtciStress utciStress(double utci) noexcept
{
    using enum UtciStress;
    if (utci < -40)
        return ExtremeCold;
    if (utci < -27)
        return VeryStrongCold;
    if (utci < -13)
        return StrongCold;
    if (utci < 0)
        return ModerateCold;
    if (utci < 9)
        return SlightCold;
    if (utci <= 26)
        return None;
    if (utci <= 32)
        return ModerateHeat;
    if (utci <= 38)
        return StrongHeat;
    return utci <= 46 ? VeryStrongHeat : ExtremeHeat;
}

Utci utci(double ta, double tmrt, double v, double RH, double height, Limits limits) noexcept
{
    using namespace utci_range;
    Examination examination(limits);
    examination.look(kTa, ta);
    examination.look(kTmrt, tmrt);
    examination.look({kSpeed.name, kSpeed.quantity}, v);
    examination.look(kRH, RH);
    examination.look(kHeight, height);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};
    double v10 = v;
    if (height != kUtciWindHeight) {
        const double profile = std::log(height / kUtciRoughness);
        if (!(profile > 0))
            examination.refuse(Reason::Undefined, kHeight.name);
        v10 = v * std::log(kUtciWindHeight / kUtciRoughness) / profile;
    }
    examination.look(kSpeed, v10);
    examination.look(kRadiant, tmrt - ta);
    const double pa = RH / 1000 * formulas::Saturation_Pressure_Hardy(ta); // [kPa]
    if (!(pa < kPaBelow))
        examination.mark(kRH.name);
    if (!examination.hasValue())
        return {.verdict = examination.verdict()};
    const double value = models::UTCI_Polynomial(ta, v10, tmrt - ta, pa).value();
    return {.verdict = examination.verdict(), .utci = value, .stress = utciStress(value), .v10 = v10};
}

} // namespace comfortics::standards
