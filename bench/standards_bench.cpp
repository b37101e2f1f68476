// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models of src/standards/ over inputs of all kinds within their ranges, on one thread: read "points".
// Those named "library" are the same points through the columns of the library.
#include <comfortics/models.h>

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

std::vector<Point> drawPoints(const Point& low, const Point& high)
{
    std::mt19937_64 random(3);
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    std::vector<Point> drawn(5000);
    for (Point& p : drawn)
        p = {draw(low.ta, high.ta), draw(low.tr, high.tr),   draw(low.v, high.v),
             draw(low.RH, high.RH), draw(low.met, high.met), draw(low.clo, high.clo)};
    return drawn;
}

template <typename Solve>
void points(benchmark::State& state, Point low, Point high, Solve solve)
{
    const std::vector<Point> drawn = drawPoints(low, high);
    for (auto _ : state) {
        double sum = 0;
        for (const Point& p : drawn)
            sum += solve(p);
        benchmark::DoNotOptimize(sum);
    }
    state.counters["points"] =
        benchmark::Counter(static_cast<double>(drawn.size()), benchmark::Counter::kIsIterationInvariantRate);
}

/// The first figure of a model. `met` names the input that the metabolic rate goes to, in units of `unit`.
void library(benchmark::State& state, Point low, Point high, const char* id, const char* met, double unit)
{
    std::vector<Point> drawn = drawPoints(low, high);
    for (Point& p : drawn)
        p.met *= unit;
    const comfortics::Model& model = *comfortics::findModel(id);
    std::vector<comfortics::Column> inputs;
    constexpr std::ptrdiff_t kStride = sizeof(Point) / sizeof(double);
    for (const comfortics::ModelInput& input : model.inputs) {
        if (input.id == "posture" || input.id == "acclimatised")
            inputs.emplace_back(1);
        else if (input.id == "rh")
            inputs.emplace_back(&drawn[0].RH, kStride);
        else if (input.id == met)
            inputs.emplace_back(&drawn[0].met, kStride);
        else if (input.id == "ta")
            inputs.emplace_back(&drawn[0].ta, kStride);
        else if (input.id == "tr")
            inputs.emplace_back(&drawn[0].tr, kStride);
        else if (input.id == "v")
            inputs.emplace_back(&drawn[0].v, kStride);
        else if (input.id == "clo")
            inputs.emplace_back(&drawn[0].clo, kStride);
        else
            inputs.emplace_back();
    }
    std::vector<double> values(drawn.size());
    std::vector<comfortics::ModelStatus> statuses(drawn.size());
    const std::array<comfortics::ModelOutput, 1> outputs{{{0, values.data(), 1, statuses.data()}}};
    for (auto _ : state) {
        comfortics::evaluateModel(model, inputs, drawn.size(), outputs);
        benchmark::DoNotOptimize(values.back());
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

BENCHMARK_CAPTURE(library, pmvIso, kRoomLow, kRoomHigh, "pmv_iso", "met", 1);
BENCHMARK_CAPTURE(library, pmvAshrae, kRoomLow, kRoomHigh, "pmv_ashrae", "met", 1);
BENCHMARK_CAPTURE(library, twoNode, kRoomLow, kRoomHigh, "two_node", "met", 1);
BENCHMARK_CAPTURE(library, pet, kOutdoorsLow, kOutdoorsHigh, "pet", "activity_w", 80);
BENCHMARK_CAPTURE(library, petWaltherGoestchel, kOutdoorsLow, kOutdoorsHigh, "pet_wg", "activity_w", 80);
BENCHMARK_CAPTURE(library, utci, kOutdoorsLow, kOutdoorsHigh, "utci", "", 1);

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

void libraryLiljegren(benchmark::State& state)
{
    const std::vector<LiljegrenInputs> drawn = drawHours();
    std::vector<std::array<double, 16>> rows;
    for (const LiljegrenInputs& in : drawn)
        rows.push_back({static_cast<double>(in.year), static_cast<double>(in.month),
                        static_cast<double>(in.day), in.hour, in.utcOffset, in.interval, in.latitude,
                        in.longitude, in.S, in.p, in.ta, in.RH, in.v, in.z, in.dT, in.urban ? 1.0 : 0.0});
    std::vector<comfortics::Column> inputs;
    for (const double& first : rows[0])
        inputs.emplace_back(&first, static_cast<std::ptrdiff_t>(rows[0].size()));
    std::vector<double> values(drawn.size());
    const std::array<comfortics::ModelOutput, 1> outputs{{{0, values.data()}}};
    for (auto _ : state) {
        comfortics::evaluateModel(*comfortics::findModel("wbgt_liljegren"), inputs, drawn.size(), outputs);
        benchmark::DoNotOptimize(values.back());
    }
    state.counters["points"] =
        benchmark::Counter(static_cast<double>(drawn.size()), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(libraryLiljegren);

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

BENCHMARK_CAPTURE(library, phs2004, kShopLow, kShopHigh, "phs_2004", "metabolic_w_m2", 58.15);
BENCHMARK_CAPTURE(library, phs2023, kShopLow, kShopHigh, "phs_2023", "metabolic_w", 58.15 * 1.8);

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
