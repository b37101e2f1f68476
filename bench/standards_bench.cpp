// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models of src/standards/ over inputs of all kinds within their ranges, on one thread: read "points".
#include "standards/ireq.h"
#include "standards/pet.h"
#include "standards/pet_wg.h"
#include "standards/phs.h"
#include "standards/pmv_ashrae.h"
#include "standards/pmv_iso.h"
#include "standards/sun_position.h"
#include "standards/tmrt_globe.h"
#include "standards/two_node.h"
#include "standards/utci.h"
#include "standards/wbgt_liljegren.h"

#include <benchmark/benchmark.h>

#include <array>
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

/// Any hour of 2024 in the temperate and hot zones, a third of it night, with a share of the sun that there
/// is.
std::vector<LiljegrenInputs> drawHours()
{
    std::mt19937_64 random(3);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    std::vector<LiljegrenInputs> drawn(5000);
    for (LiljegrenInputs& in : drawn) {
        in.year = 2024;
        in.month = static_cast<int>(draw(1, 13));
        in.day = static_cast<int>(draw(1, 29));
        in.hour = draw(0, 24);
        in.utcOffset = 0;
        in.interval = 60;
        in.latitude = draw(-55, 55);
        in.longitude = draw(-60, 60);
        const double day = daysFrom2000(in.year, in.month, in.day);
        const double sine = apparentSun(day, in.hour - 0.5, in.latitude, in.longitude).sine;
        in.S = sine > 0 ? 1300 * sine * draw(0.1, 0.8) : 0;
        in.p = draw(850, 1030);
        in.ta = draw(-5, 45);
        in.RH = draw(10, 100);
        in.v = draw(0.2, 9);
        in.z = 10;
        in.dT = draw(-0.5, 0.5);
        in.urban = draw(0, 1) < 0.5;
    }
    return drawn;
}

void liljegren(benchmark::State& state)
{
    const std::vector<LiljegrenInputs> drawn = drawHours();
    for (auto _ : state) {
        double sum = 0;
        for (const LiljegrenInputs& in : drawn)
            sum += wbgtLiljegren(in).wbgt;
        benchmark::DoNotOptimize(sum);
    }
    state.counters["points"] =
        benchmark::Counter(static_cast<double>(drawn.size()), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(liljegren);

constexpr Point kShopLow{15, 15, 0, 20, 1.8, 0.1};
constexpr Point kShopHigh{50, 80, 3, 50, 5, 1};

PhsInputs shiftOf(const Point& p)
{
    return {.ta = p.ta,
            .tr = p.tr,
            .v = p.v,
            .pa = phsVapourPressure(p.ta, p.RH),
            .M = p.met * 58.15,
            .clo = p.clo};
}

// 480 minutes each.
BENCHMARK_CAPTURE(points, phs2004, kShopLow, kShopHigh,
                  [](const Point& p) { return phs2004(shiftOf(p)).waterLoss; });

BENCHMARK_CAPTURE(points, phs2004WithItsCourse, kShopLow, kShopHigh, [](const Point& p) {
    std::array<PhsMinute, 480> course;
    return phs2004(shiftOf(p), Limits::Mark, course).waterLoss + course[240].tCore;
});

BENCHMARK_CAPTURE(points, phs2023, kShopLow, kShopHigh, [](const Point& p) {
    PhsInputs in = shiftOf(p);
    in.M *= 1.8; // W of the whole body
    return phs2023(in).waterLoss;
});

constexpr Point kFrostLow{-40, -40, 0.4, 30, 1.2, 0.5};
constexpr Point kFrostHigh{5, 5, 15, 95, 4, 4};

BENCHMARK_CAPTURE(points, ireq, kFrostLow, kFrostHigh, [](const Point& p) {
    const IreqResult result =
        ireq({.M = p.met * 58.15, .ta = p.ta, .tr = p.tr, .v = p.v, .RH = p.RH, .clo = p.clo});
    return result.neutral.exposure.hasValue() ? result.neutral.dle : 0;
});

BENCHMARK_CAPTURE(points, tmrtGlobe, kOutdoorsLow, kOutdoorsHigh, [](const Point& p) {
    const double tmrt = tmrtGlobe({.tg = 0.5 * (p.ta + p.tr), .ta = p.ta, .v = p.v}).tmrt;
    return tmrt == tmrt ? tmrt : 0;
});

} // namespace
