// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/radiation_search.h"

#include "texts/number_text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <cmath>

namespace comfortics::classic {

using models::GlobeBalance;
using models::kTolerance;

bool reaches(const Solution& globe, Number Tg)
{
    const double T = globe.converged() ? globe.celsius : 0;
    const double wanted = Tg.value();
    // The text keeps 15 digits; it is written only where they could decide.
    if (std::abs(T - wanted) > 1e-12 * std::max(std::abs(T), 1.0))
        return T >= wanted;
    return texts::val(values::plainText(T)) >= wanted;
}

namespace plain {

std::optional<std::int16_t> searchRadiation(const GlobeModel& globe, Number Tg, int first, int last,
                                            const NoConvergence& noConvergence)
{
    for (int candidate = first; candidate <= last; ++candidate) {
        const Solution solution = globe.solve(candidate);
        if (!solution.converged())
            noConvergence();
        if (reaches(solution, Tg))
            return static_cast<std::int16_t>(candidate);
    }
    return std::nullopt;
}

} // namespace plain

// Why candidates can be skipped. For candidate c let f(T) = (A - B(T) * (T - Tair) + s * c) ^ (1/4)
// be the solver's map: A the surroundings, B the exchange, s the sun per W/m². As B * (T - Tair)
// grows with T, f falls, its fixed point T* rises with c, and T* lies between any T and f(T). The
// solver ends with f(T) less than 0.05 K from T, so its result is less than 0.05 K from T*: c can
// reach Tg only if T* > Tg - 0.05. The balance at that temperature gives the first such c at once.
//
// What is skipped must also converge without a failure. Let G bound the growth of B * (T - Tair), so
// that f(T) ^ 4 is within G * |T - T*| of T* ^ 4, and let p = G / (4 T*^3), k = |T - T*| / T*.
//   - A pass from below T* stays below and comes nearer by a tenth or more, or leads above T* by no
//     more than h(k) = 0.1 * ((1 + 4 p k) ^ (1/4) - 1) - 0.9 k of T*. For p <= 9 none leads above; at
//     p = 18.5 the most is h = 0.0075, 2 K.
//   - A pass from above T* stays above and comes nearer by a tenth or more, or leads below T* by no
//     more than w(k) = 0.1 * (1 - (1 - 4 p k) ^ (1/4)) - 0.9 k of T*. For p <= 18.5 and what h leaves
//     above T* the root exists, and h of all that w leaves below is under 0.91 k.
//   - Where the globe ends colder than the air, the solver starts further above T*, but not above
//     Tair, and there f ^ 4 is at least A.
// So the distance dies out, within some 250 passes of the 999. All of this is worst for the lowest T*.
// By the robust rules a candidate that would not converge has T* itself.

namespace {

constexpr double kMargin = 1e-6;   // [K], far above the rounding of the iterates
constexpr double kSteepest = 18.5; // bound of p; a fixed point repels where its own p exceeds 19
constexpr double kOvershoot = 5;   // more than the 2 K above [K]
// Bounds of d ln B / dT in any wind, for films of 150 to 600 K (it runs from -0.0007 to 0.0021).
constexpr double kExchangeGrowth = 0.0025; // [/K]
constexpr double kExchangeDecay = 0.001;   // [/K]

double square(double x)
{
    return x * x;
}

double fourthRoot(double x)
{
    return std::sqrt(std::sqrt(x));
}

} // namespace

int skippableCandidates(const GlobeModel& globe, Number Tg, int last)
{
    if (!globe.ordinary())
        return 0;
    const GlobeBalance<double>& balance = globe.balance();
    const double Tair = balance.Tair();
    const double Tair4 = square(square(Tair));
    const double A = balance.surroundings();
    const double s = balance.solar(1);
    const double B = balance.exchange(Tair);
    const double coldest = std::min(Tair, fourthRoot(A));                  // no T* is below
    const double loosest = std::max(fourthRoot(A + s * last) - Tair, 0.0); // no T* - Tair is above
    if (!(Tair > 180 && Tair < 400 && coldest > 120 && loosest < 200))
        return 0;

    // The tangent of the balance at Tair bounds the T* of the last candidate, its secant to
    // `coldest` that of candidate 0.
    const double leastB = B * std::exp(-kExchangeDecay * std::max(loosest, Tair - coldest));
    const double hottest = Tair + std::max((A + s * last - Tair4) / (4 * Tair4 / Tair + leastB), 0.0);
    const double lowest = Tair - std::max((Tair4 - A) / (4 * coldest * square(coldest) + leastB), 0.0);

    const double T = std::min(Tg.value() + 273.15 - kTolerance - kMargin, hottest); // no T* skipped is above
    if (!(T > lowest))
        return 0;
    const double first = (square(square(T)) + balance.exchange(T) * (T - Tair) - A) / s; // T*(first) = T
    const int skippable = std::max(first > last ? last + 1 : static_cast<int>(std::ceil(first - kMargin)), 0);
    if (globe.rules() != Rules::Classic)
        return skippable;
    const double farthest = std::max(T - Tair, Tair - coldest) + kOvershoot; // any iterate is from Tair
    const double G = B * std::exp(2 * kExchangeGrowth * farthest);
    const bool converges = G <= kSteepest * (4 * lowest * square(lowest));
    return converges ? skippable : 0;
}

std::optional<std::int16_t> searchRadiation(Number Ta, Number RH, Number WS, Number Tg, int last,
                                            const NoConvergence& noConvergence, Rules rules)
{
    const GlobeModel globe(Ta, RH, WS, rules);
    return plain::searchRadiation(globe, Tg, skippableCandidates(globe, Tg, last), last, noConvergence);
}

} // namespace comfortics::classic
