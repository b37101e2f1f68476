// SPDX-License-Identifier: GPL-3.0-or-later
#include "models/psychrometric_search.h"

#include "models/heat_balance.h"
#include "values/run_failure.h"

namespace comfortics::models {

using values::RunFailure;

namespace {

constexpr double kStep = 0.2; // [K]

} // namespace

Number plain::Psychrometric_Wet_Bulb(Number Ta, bool stopsAboveAir, Number Td, Rules rules)
{
    Number Tw = Td;
    Number diff = 10000;
    const Number ed = psychrometricPressure(Td);
    bool metZero = false;
    for (int pass = 1;; ++pass) {
        const Number prev = diff;
        const Number ew = psychrometricPressure(Tw);
        diff = psychrometricBalance(Ta, Tw, ed, ew);
        if (rules != Rules::Classic && pass == 1 && diff == 0)
            return Td;
        Tw = Tw + kStep;
        if (stopsAboveAir && Tw > Ta)
            break;
        // The signs are compared, not |diff| + |prev| with |diff + prev|: a small residue would
        // vanish beside the first prev.
        if ((diff < 0 && prev > 0) || (diff > 0 && prev < 0))
            break;
        metZero = metZero || diff == 0;
        // From 0 on the balance only falls, and nothing but Tw > Ta can end the steps.
        if (metZero && !stopsAboveAir)
            throw RunFailure(pass == 1
                                 ? "the psychrometric wet-bulb search has no end in saturated air"
                                 : "the psychrometric wet-bulb search has no end: it meets a balance of "
                                   "exactly 0");
        if (pass == kLastPsychrometricPass)
            throw RunFailure("the psychrometric wet-bulb search has no end");
    }
    if (Tw > Td + 0.3)
        return Tw - 0.3;
    return Td;
}

Number Psychrometric_Wet_Bulb(Number Ta, bool stopsAboveAir, Number Td, Rules rules)
{
    const double air = Ta.value();
    const double dew = Td.value();
    // In this range the balance falls by more than 101 per degree of Tw, some 20 a step: where it
    // is above 0 at one step, it was above 0 at all before, and it is below 0 at Ta.
    if (stopsAboveAir || !(dew > -100 && dew < air && air < 100))
        return plain::Psychrometric_Wet_Bulb(Ta, stopsAboveAir, Td, rules);
    const double ed = psychrometricPressure(dew);
    const auto balanceAt = [&](double Tw) {
        return psychrometricBalance(air, Tw, ed, psychrometricPressure(Tw));
    };

    // Newton's method, from the right on a curve that bends down, so it stays right of the root.
    double root = air;
    for (int round = 0; round < 4; ++round) {
        const double ew = psychrometricPressure(root);
        const double kelvin = 237.3 + root;
        const double slope =
            -(1556 - 1.484 * root) * (ew * 17.27 * 237.3 / (kelvin * kelvin)) + 1.484 * (ew - ed) - 101;
        root = root - psychrometricBalance(air, root, ed, ew) / slope;
    }
    // The last step surely below the root, reached by the additions of the plain search.
    double Tw = dew;
    for (auto steps = static_cast<int>((root - dew) / kStep) - 1; steps > 0; --steps)
        Tw = Tw + kStep;
    if (!(balanceAt(Tw) > 0))
        return plain::Psychrometric_Wet_Bulb(Ta, stopsAboveAir, Td, rules);
    double diff = 0;
    do {
        diff = balanceAt(Tw);
        Tw = Tw + kStep;
    } while (diff > 0);
    if (diff == 0)
        return plain::Psychrometric_Wet_Bulb(Ta, stopsAboveAir, Td, rules);
    return Tw > Td + 0.3 ? Tw - 0.3 : dew;
}

} // namespace comfortics::models
