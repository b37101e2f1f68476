// SPDX-License-Identifier: GPL-3.0-or-later
//
// The models against the figures and verdicts of figures.csv.
#include "standards/adaptive_ashrae.h"
#include "standards/adaptive_en.h"
#include "standards/body_surface.h"
#include "standards/heat_index.h"
#include "standards/ireq.h"
#include "standards/pet.h"
#include "standards/pet_wg.h"
#include "standards/picking_tables.h"
#include "standards/pmv_ashrae.h"
#include "standards/sun_position.h"
#include "standards/tmrt_flux.h"
#include "standards/tmrt_globe.h"
#include "standards/tmrt_six.h"
#include "standards/tmrt_solarcal.h"
#include "standards/two_node.h"
#include "standards/utci.h"
#include "standards/wbgt_iso7243.h"
#include "standards/wbgt_liljegren.h"
#include "standards/wind_chill.h"
#include "standards/work_rest.h"

#include "model_table.h"

#include <cmath>
#include <numbers>

namespace comfortics::tests {
namespace {

using namespace standards;

void choosePosture(GivenInputs& given, Posture& posture)
{
    given.choose<Posture>("posture", posture, {{"sitting", Posture::Sitting}});
}

template <Pet (*kModel)(const PetInputs&, Limits)>
Answer petOf(GivenInputs& given, Limits limits)
{
    PetInputs in;
    // Those of the paper of 2018.
    if (kModel == petWaltherGoestchel) {
        in.age = 23;
        in.height = 1.80;
    }
    given.choose<Sex>("sex", in.sex, {{"female", Sex::Female}});
    choosePosture(given, in.posture);
    given.take("ta tmrt v e RH pressure clo work age height weight", in.ta, in.tmrt, in.v, in.e, in.RH,
               in.pressure, in.clo, in.work, in.age, in.height, in.weight);
    const Pet r = kModel(in, limits);
    return {named("pet core skin cl w", r.pet, r.tCore, r.tSkin, r.tClothing, r.wettedness), r.verdict};
}

std::pair<PmvInputs, Motion> pmvInputs(GivenInputs& given)
{
    std::pair<PmvInputs, Motion> in{{}, Motion::None};
    auto& [p, motion] = in;
    given.choose<Motion>("motion", motion, {{"iso", Motion::Iso}, {"ashrae", Motion::Ashrae}});
    given.take("ta tr v RH met clo work", p.ta, p.tr, p.v, p.RH, p.met, p.clo, p.work);
    return in;
}

Answer pmvIsoOf(GivenInputs& given, Limits limits)
{
    const auto [in, motion] = pmvInputs(given);
    const PmvIso r = pmvIso(in, motion, limits);
    return {named("pmv ppd", r.pmv, r.ppd), r.verdict,
            named("category v clo", r.category, r.inMotion.v, r.inMotion.clo)};
}

void chooseEdition(GivenInputs& given, Edition& edition)
{
    given.choose<Edition>("edition", edition, {{"2017", Edition::Ashrae2017}, {"2020", Edition::Ashrae2020}});
}

Answer pmvAshraeOf(GivenInputs& given, Limits limits)
{
    auto edition = Edition::Ashrae2020;
    chooseEdition(given, edition);
    const auto [in, motion] = pmvInputs(given);
    const PmvAshrae r = pmvAshrae(in, motion, edition, limits);
    return {named("effect pmv ppd", r.coolingEffect, r.pmv, r.ppd), r.verdict,
            named("compliant tooFast", r.compliant, r.beyondSpeedLimit)};
}

Answer motionOf(GivenInputs& given, Limits)
{
    Motion motion = Motion::None;
    double v = kNaN, met = kNaN, clo = kNaN;
    given.choose<Motion>("motion", motion, {{"iso", Motion::Iso}, {"ashrae", Motion::Ashrae}});
    given.take("v met clo", v, met, clo);
    const InMotion r = inMotion(motion, v, met, clo);
    return {named("v clo", r.v, r.clo)};
}

Answer speedLimitOf(GivenInputs& given, Limits)
{
    double operative = kNaN, met = kNaN, clo = kNaN;
    given.take("operative met clo", operative, met, clo);
    return {named("v", airSpeedLimit(operative, met, clo))};
}

Answer twoNodeOf(GivenInputs& given, Limits limits)
{
    TwoNodeInputs in;
    choosePosture(given, in.posture);
    chooseEdition(given, in.edition);
    given.take("ta tr v RH met clo work pressure area wmax", in.ta, in.tr, in.v, in.RH, in.met, in.clo,
               in.work, in.pressure, in.area, in.mostWettedness);
    const TwoNode r = twoNode(in, Motion::None, limits);
    EXPECT_TRUE(r.verdict != Verdict{} || (r.setVerdict == Verdict{} && r.etVerdict == Verdict{}));
    EXPECT_TRUE(r.verdict == Verdict{} || (r.setVerdict == r.verdict && r.etVerdict == r.verdict));
    return {named("set et skin core w e disc tsens", r.set, r.et, r.tSkin, r.tCore, r.wettedness, r.eSkin,
                  r.disc, r.tsens),
            r.verdict, named("v", r.inMotion.v)};
}

Answer ireqOf(GivenInputs& given, Limits limits)
{
    IreqInputs in;
    given.take("M ta tr walking v clo work permeability RH", in.M, in.ta, in.tr, in.walking, in.v, in.clo,
               in.work, in.permeability, in.RH);
    const IreqResult r = ireq(in, limits);
    EXPECT_EQ(r.min.dle == r.min.dle, r.min.exposure.hasValue());
    return {named("min iclMin", r.min.ireq, r.min.icl),
            r.min.insulation,
            named("neutral iclNeutral dleMin dleNeutral M walking v", r.neutral.ireq, r.neutral.icl,
                  r.min.dle, r.neutral.dle, r.M, r.walking, r.v),
            {{"exposureMin", r.min.exposure}, {"exposureNeutral", r.neutral.exposure}}};
}

/// The bands of comfort that begin with these letters.
void addBand(Answer& answer, const std::string& name, const ComfortBand& band)
{
    answer.figures[name + "low"] = band.low;
    answer.figures[name + "up"] = band.up;
    answer.facts[name + "accepted"] = band.accepted;
}

template <bool kAshrae>
Answer adaptiveOf(GivenInputs& given, Limits limits)
{
    double ta = kNaN, tr = kNaN, v = kNaN, outdoors = kNaN;
    given.take("ta tr v outdoors", ta, tr, v, outdoors);
    const auto answer = [](const auto& r, const auto&... bands) {
        Answer all{named("operative neutral", r.operative, r.tNeutral), r.verdict};
        (addBand(all, bands.first, bands.second), ...);
        return all;
    };
    if (kAshrae) {
        const AdaptiveAshrae r = adaptiveAshrae(ta, tr, v, outdoors, limits);
        return answer(r, std::pair("80", r.of80), std::pair("90", r.of90));
    }
    const AdaptiveEn r = adaptiveEn(ta, tr, v, outdoors, limits);
    return answer(r, std::pair("1", r.categoryI), std::pair("2", r.categoryII),
                  std::pair("3", r.categoryIII));
}

Answer utciOf(GivenInputs& given, Limits limits)
{
    double ta = kNaN, tmrt = kNaN, v = kNaN, RH = kNaN, z = kUtciWindHeight;
    given.take("ta tmrt v RH z", ta, tmrt, v, RH, z);
    const Utci r = utci(ta, tmrt, v, RH, z, limits);
    return {named("utci", r.utci), r.verdict, named("stress v10", static_cast<int>(r.stress) - 5, r.v10)};
}

/// A model of two numbers with one figure.
template <auto kModel, auto kFigure>
Answer pairOf(GivenInputs& given, Limits limits)
{
    double a = kNaN, b = kNaN;
    given.take("a b", a, b);
    const auto r = kModel(a, b, limits);
    return {named("value", r.*kFigure), r.verdict};
}

Answer surfaceOf(GivenInputs& given, Limits)
{
    double weight = kNaN, height = kNaN;
    int formula = 0;
    given.take("weight height formula", weight, height, formula);
    const BodySurface r = bodySurface(weight, height, static_cast<BodySurfaceFormula>(formula));
    return {named("area", r.area), r.verdict};
}

Answer clothingOf(GivenInputs& given, Limits)
{
    double t = kNaN;
    given.take("t", t);
    const Clothing r = clothingByWeather(t);
    return {named("clo", r.clo), r.verdict};
}

Answer globeOf(GivenInputs& given, Limits limits)
{
    TmrtGlobeInputs in;
    given.take("tg ta v D emissivity", in.tg, in.ta, in.v, in.D, in.emissivity);
    const TmrtResult r = tmrtGlobe(in, limits);
    return {named("tmrt", r.tmrt), r.verdict};
}

Answer sixOf(GivenInputs& given, Limits limits)
{
    TmrtSixInputs in;
    given.choose<SixSides>("sides", in.weights, {{"even", SixSides::Even}});
    auto& [K, L, sides, shortWaves, longWaves] = in;
    given.take("Kn Ke Ks Kw Ku Kd Ln Le Ls Lw Lu Ld short long", K[0], K[1], K[2], K[3], K[4], K[5], L[0],
               L[1], L[2], L[3], L[4], L[5], shortWaves, longWaves);
    const TmrtResult r = tmrtSix(in, limits);
    return {named("tmrt", r.tmrt), r.verdict};
}

Answer fluxOf(GivenInputs& given, Limits limits)
{
    TmrtFluxInputs in;
    given.take("S netS I Dh L netL mu", in.S, in.netS, in.I, in.Dh, in.L, in.netL, in.mu);
    const TmrtResult r = tmrtFlux(in, limits);
    return {named("tmrt", r.tmrt), r.verdict};
}

Answer solarCalOf(GivenInputs& given, Limits limits)
{
    using enum SolarPosture;
    SolarCalInputs in{.tmrt = 25};
    given.choose<SolarPosture>("posture", in.posture, {{"standing", Standing}, {"lying", Lying}});
    given.take("altitude sharp I transmittance skyView exposed absorptance floor tmrt", in.altitude, in.sharp,
               in.I, in.transmittance, in.skyView, in.exposed, in.absorptance, in.floor, in.tmrt);
    const SolarCalResult r = tmrtSolarCal(in, limits);
    EXPECT_TRUE(r.tmrt == in.tmrt + r.deltaMrt || r.tmrt != r.tmrt);
    return {named("erf delta", r.erf, r.deltaMrt), r.verdict};
}

Answer sunOf(GivenInputs& given, Limits limits)
{
    SunInputs in;
    given.take("year month day hour latitude longitude", in.year, in.month, in.day, in.hour, in.latitude,
               in.longitude);
    const SunResult r = sunPosition(in, limits);
    EXPECT_TRUE(!r.verdict.hasValue() ||
                std::fabs(r.cosZenith - std::sin(r.altitude * std::numbers::pi / 180)) < 1e-15);
    return {named("altitude azimuth distance", r.altitude, r.azimuth, r.distanceAu), r.verdict};
}

Answer liljegrenOf(GivenInputs& given, Limits limits)
{
    LiljegrenInputs in{2024, 4,      15,   14.5, 8,   60, 1.3521, 103.8198,
                       742,  1008.4, 32.1, 68,   2.8, 10, -0.4,   true};
    given.take("year month day hour utcOffset interval latitude longitude S p ta RH v z dT urban", in.year,
               in.month, in.day, in.hour, in.utcOffset, in.interval, in.latitude, in.longitude, in.S, in.p,
               in.ta, in.RH, in.v, in.z, in.dT, in.urban);
    const LiljegrenResult r = wbgtLiljegren(in, limits);
    return {named("wbgt tg tnw tpsy v F", r.wbgt, r.tg, r.tnw, r.tpsy, r.v2m, r.directFraction), r.verdict};
}

Answer wbgtOf(GivenInputs& given, Limits limits)
{
    Wbgt7243Inputs in{.sun = true};
    given.take("tnw tg ta sun", in.tnw, in.tg, in.ta, in.sun);
    const Wbgt7243Result r = wbgt7243(in, limits);
    return {named("wbgt", r.wbgt), r.verdict};
}

Answer hourOf(const WorkRest& hour)
{
    EXPECT_TRUE(!hour.verdict.hasValue() || std::fabs(hour.workMin + hour.restMin - 60) < 1e-12);
    return {named("work shown", hour.workMin, hour.shown), hour.verdict};
}

Answer timeWeightedOf(GivenInputs& given, Limits limits)
{
    TimeWeighted in;
    given.take("wbgtWork wbgtRest work rest acclimatised", in.wbgtWork, in.wbgtRest, in.work, in.rest,
               in.acclimatised);
    return hourOf(workRestTimeWeighted(in, limits));
}

Answer capacityOf(GivenInputs& given, Limits limits)
{
    Capacity in;
    given.choose<CapacityLimits>("between", in.between, {{"niosh", CapacityLimits::Niosh}});
    given.take("wbgt work rest", in.wbgt, in.work, in.rest);
    const CapacityResult r = workCapacity(in, limits);
    Answer answer = hourOf(r.hour);
    answer.figures["share"] = r.share;
    return answer;
}

Answer labourOf(GivenInputs& given, Limits)
{
    NioshTable in;
    given.choose<Sunshine>("sun", in.sun, {{"partly", Sunshine::PartlyCloudy}, {"none", Sunshine::None}});
    given.choose<Labour>("labour", in.labour, {{"light", Labour::Light}, {"heavy", Labour::Heavy}});
    given.take("ta RH", in.ta, in.RH);
    const NioshResult r = workRestByTable(in);
    Answer answer = hourOf(r.hour);
    answer.figures["adjusted"] = r.adjusted;
    answer.facts["advice"] = static_cast<double>(r.advice);
    return answer;
}

TEST(Models, GiveTheFiguresAndVerdictsOfTheTable)
{
    expectTable(COMFORTICS_STANDARDS_DIR "/figures.csv",
                {{"adaptive_ashrae", adaptiveOf<true>},
                 {"adaptive_en", adaptiveOf<false>},
                 {"body_surface", surfaceOf},
                 {"clothing_by_weather", clothingOf},
                 {"heat_index", pairOf<heatIndex, &HeatIndex::heatIndex>},
                 {"ireq", ireqOf},
                 {"liljegren", liljegrenOf},
                 {"motion", motionOf},
                 {"niosh", labourOf},
                 {"pet", petOf<pet>},
                 {"pet_wg", petOf<petWaltherGoestchel>},
                 {"pmv_ashrae", pmvAshraeOf},
                 {"pmv_iso", pmvIsoOf},
                 {"solarcal", solarCalOf},
                 {"speed_limit", speedLimitOf},
                 {"sun", sunOf},
                 {"time_weighted", timeWeightedOf},
                 {"tmrt_flux", fluxOf},
                 {"tmrt_globe", globeOf},
                 {"tmrt_six", sixOf},
                 {"two_node", twoNodeOf},
                 {"utci", utciOf},
                 {"wbgt7243", wbgtOf},
                 {"wind_chill_index", pairOf<windChillIndex, &WindChill::value>},
                 {"wind_chill_temperature", pairOf<windChillTemperature, &WindChill::value>},
                 {"work_capacity", capacityOf}});
}

} // namespace
} // namespace comfortics::tests
