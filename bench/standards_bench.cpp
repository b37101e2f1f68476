// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models of src/standards/ over inputs of all kinds within their ranges, on one thread: read "points".
#include "standards/pet.h"
#include "standards/pet_wg.h"
#include "standards/pmv_ashrae.h"
#include "standards/pmv_iso.h"
#include "standards/two_node.h"
#include "standards/utci.h"

#include <benchmark/benchmark.h>

#include <random>
#include <vector>

namespace {

using namespace comfortics::standards;

/// A room, or outdoors, and who is in it.
struct Point {
    double ta, tr, v, RH, met, clo;
};

template <typename Solve>
void points(benchmark::State& state, Point low, Point high, Solve solve)
{
    std::mt19937_64 random(3);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    std::vector<Point> drawn(5000);
    for (Point& p : drawn)
        p = {draw(low.ta, high.ta), draw(low.tr, high.tr),   draw(low.v, high.v),
             draw(low.RH, high.RH), draw(low.met, high.met), draw(low.clo, high.clo)};
    for (auto _ : state) {
        double sum = 0;
        for (const Point& p : drawn)
            sum += solve(p);
        benchmark::DoNotOptimize(sum);
    }
    state.counters["points"] =
        benchmark::Counter(static_cast<double>(drawn.size()), benchmark::Counter::kIsIterationInvariantRate);
}

constexpr Point kRoomLow{10, 10, 0, 10, 1, 0.1};
constexpr Point kRoomHigh{30, 40, 1, 90, 3, 1.5};
constexpr Point kOutdoorsLow{-20, -20, 0.2, 10, 1, 0.3};
constexpr Point kOutdoorsHigh{40, 65, 10, 90, 4, 1.8};

BENCHMARK_CAPTURE(points, pmvIso, kRoomLow, kRoomHigh, [](const Point& p) {
    return pmvIso({p.ta, p.tr, p.v, p.RH, p.met, p.clo}).ppd;
});

BENCHMARK_CAPTURE(points, pmvIsoInMotion, kRoomLow, kRoomHigh, [](const Point& p) {
    return pmvIso({p.ta, p.tr, p.v, p.RH, p.met, p.clo}, Motion::Iso).ppd;
});

BENCHMARK_CAPTURE(points, pmvAshrae, kRoomLow, kRoomHigh, [](const Point& p) {
    return pmvAshrae({p.ta, p.tr, p.v, p.RH, p.met, p.clo}).pmv;
});

BENCHMARK_CAPTURE(points, twoNode, kRoomLow, kRoomHigh, [](const Point& p) {
    return twoNode({.ta = p.ta, .tr = p.tr, .v = p.v, .RH = p.RH, .met = p.met, .clo = p.clo}).set;
});

BENCHMARK_CAPTURE(points, pet, kOutdoorsLow, kOutdoorsHigh, [](const Point& p) {
    return pet({.ta = p.ta, .tmrt = p.tr, .v = p.v, .RH = p.RH, .clo = p.clo, .work = 80 * p.met}).pet;
});

BENCHMARK_CAPTURE(points, petWaltherGoestchel, kOutdoorsLow, kOutdoorsHigh, [](const Point& p) {
    return petWaltherGoestchel(
               {.ta = p.ta, .tmrt = p.tr, .v = p.v, .RH = p.RH, .clo = p.clo, .work = 80 * p.met})
        .pet;
});

BENCHMARK_CAPTURE(points, utci, kOutdoorsLow, kOutdoorsHigh,
                  [](const Point& p) { return utci(p.ta, p.tr, p.v, p.RH).utci; });

} // namespace
