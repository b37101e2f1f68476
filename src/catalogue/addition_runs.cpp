// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/addition_runs.h"

#include "standards/adaptive_ashrae.h"
#include "standards/adaptive_en.h"
#include "standards/body_surface.h"
#include "standards/heat_index.h"
#include "standards/ireq.h"
#include "standards/pet.h"
#include "standards/pet_wg.h"
#include "standards/phs.h"
#include "standards/pmv_ashrae.h"
#include "standards/pmv_iso.h"
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

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace comfortics::catalogue::runs {

using standards::kNaN;

namespace {

/// The inputs, one after the other: members of a braced list are made in their order.
class Reader {
public:
    explicit Reader(const double* in) noexcept : m_next(in) {}

    double number() noexcept { return *m_next++; }
    std::optional<double> optional() noexcept
    {
        const double value = number();
        return std::isnan(value) ? std::nullopt : std::optional(value);
    }
    bool yes() noexcept { return number() != 0; }
    /// One that is read has a number of the table; one that is not may be missing or anything.
    template <typename Enum>
    Enum option() noexcept
    {
        const double value = number();
        constexpr double kMost = 10'000; // more than any option has
        return static_cast<Enum>(value >= 0 && value <= kMost ? static_cast<int>(value) : 0);
    }

private:
    const double* m_next;
};

/// Figures and verdicts, one after the other.
class Writer {
public:
    Writer(double* out, Verdict* verdicts) noexcept : m_out(out), m_verdicts(verdicts) {}

    void put(const Verdict& verdict, double value) noexcept
    {
        *m_out++ = verdict.hasValue() ? value : kNaN;
        *m_verdicts++ = verdict;
    }
    template <typename... Values>
    void putAll(const Verdict& verdict, Values... values) noexcept
    {
        (put(verdict, static_cast<double>(values)), ...);
    }
    /// A figure that not all inputs have; `name` is that of the text that tells why.
    void putIfAny(const Verdict& verdict, double value, std::string_view name) noexcept
    {
        if (std::isnan(value) && verdict.hasValue())
            put({standards::Standing::None, standards::Reason::Nothing, name}, kNaN);
        else
            put(verdict, value);
    }

private:
    double* m_out;
    Verdict* m_verdicts;
};

standards::PmvInputs pmvInputs(Reader& in)
{
    return {.ta = in.number(),
            .tr = in.number(),
            .v = in.number(),
            .RH = in.number(),
            .met = in.number(),
            .clo = in.number(),
            .work = in.number()};
}

/// A whole number that a calendar can have, or none that it has.
int calendarNumber(double value)
{
    constexpr int kNoDate = 100'000;
    return value == std::floor(value) && std::fabs(value) < kNoDate ? static_cast<int>(value) : kNoDate;
}

/// What is missing of a date or is no month or day; the model itself knows the calendar.
Verdict verdictOfDate(const double* date)
{
    struct Part {
        std::string_view name;
        standards::Interval bounds;
    };
    constexpr std::array<Part, 3> kParts{{{"date", {}}, {"month", {1, 12}}, {"day", {1, 31}}}};
    for (std::size_t i = 0; i < kParts.size(); ++i) {
        using enum standards::Reason;
        if (!kParts[i].bounds.contains(date[i]))
            return {standards::Standing::None, std::isnan(date[i]) ? Missing : BeyondPhysics, kParts[i].name};
    }
    return {};
}

struct TwoNodeArguments {
    standards::TwoNodeInputs inputs;
    standards::Motion motion;
};

TwoNodeArguments twoNodeArguments(const double* numbers)
{
    Reader in(numbers);
    TwoNodeArguments made{.inputs = {.ta = in.number(),
                                     .tr = in.number(),
                                     .v = in.number(),
                                     .RH = in.number(),
                                     .met = in.number(),
                                     .clo = in.number(),
                                     .work = in.number(),
                                     .pressure = 100 * in.number(), // hPa to Pa
                                     .posture = in.option<standards::Posture>(),
                                     .edition = in.option<standards::Edition>(),
                                     .weight = in.optional(),
                                     .area = in.number(),
                                     .mostWettedness = in.optional(),
                                     .mostBlood = in.number(),
                                     .mostSweat = in.number()},
                          .motion = {}};
    made.motion = in.option<standards::Motion>();
    return made;
}

standards::PetInputs petInputs(const double* numbers)
{
    Reader in(numbers);
    return {.ta = in.number(),
            .tmrt = in.number(),
            .v = in.number(),
            .RH = in.number(),
            .e = in.optional(),
            .pressure = in.number(),
            .clo = in.number(),
            .work = in.number(),
            .age = in.number(),
            .sex = in.option<standards::Sex>(),
            .height = in.number(),
            .weight = in.number(),
            .posture = in.option<standards::Posture>()};
}

/// The verdict, or where nothing else is to be said that an air holds no such vapour pressure. Formulas of
/// saturation differ by some tenths of a per cent.
Verdict withSaturation(const Verdict& verdict, const std::optional<double>& vapour, double saturation,
                       std::string_view name, Limits limits)
{
    constexpr double kSlack = 1.01;
    if (verdict.standing != standards::Standing::Ok || !vapour || !(*vapour > kSlack * saturation))
        return verdict;
    const auto standing = limits == Limits::Blank ? standards::Standing::None : standards::Standing::Outside;
    return {standing, standards::Reason::BeyondRange, name};
}

void putPet(const standards::PetInputs& inputs, const standards::Pet& result, double saturation,
            Limits limits, double* out, Verdict* verdicts)
{
    const Verdict verdict = withSaturation(result.verdict, inputs.e, saturation,
                                           standards::pet_range::kVapourPressure.name, limits);
    Writer(out, verdicts)
        .putAll(verdict, result.pet, result.tCore, result.tSkin, result.tClothing, result.wettedness);
}

struct PhsArguments {
    standards::PhsInputs inputs;
    Verdict verdict{};          ///< of the humidity, which the model itself takes as a vapour pressure
    std::optional<double> ea{}; ///< that was given [kPa]

    Verdict judged(const Verdict& of, Limits limits) const;
};

PhsArguments phsArguments(const double* numbers)
{
    constexpr double kHectopascalToKilopascal = 10;
    Reader in(numbers);
    PhsArguments made;
    standards::PhsInputs& inputs = made.inputs;
    inputs.ta = in.number();
    inputs.tr = in.number();
    inputs.v = in.number();
    const double RH = in.number();
    const std::optional<double> ea = in.optional();
    if (ea) {
        inputs.pa = *ea / kHectopascalToKilopascal;
        made.ea = inputs.pa;
    } else {
        standards::Examination examination;
        examination.look({"rh", standards::Quantity::Humidity}, RH);
        made.verdict = examination.verdict();
        inputs.pa = standards::phsVapourPressure(inputs.ta, RH);
    }
    inputs.M = in.number();
    inputs.work = in.number();
    inputs.clo = in.number();
    // The order of the table's postures is another one.
    constexpr std::array kPostures{standards::PhsPosture::Standing, standards::PhsPosture::Sitting,
                                   standards::PhsPosture::Crouching};
    inputs.posture = kPostures[in.option<std::size_t>()];
    inputs.acclimatised = in.yes();
    inputs.drink = in.yes();
    inputs.walking = in.optional();
    inputs.angle = in.optional();
    inputs.duration = in.number();
    inputs.weight = in.number();
    inputs.height = in.number();
    inputs.imst = in.number();
    inputs.Ap = in.optional();
    inputs.Fr = in.optional();
    return made;
}

Verdict PhsArguments::judged(const Verdict& of, Limits limits) const
{
    return withSaturation(of, ea, standards::phsVapourPressure(inputs.ta, 100),
                          standards::phs_range::kPa2004.name, limits);
}

/// Of an air that is hot beyond all bounds the vapour pressure is, too: then the temperature is to be named.
bool isRefused(const PhsArguments& arguments)
{
    return !arguments.verdict.hasValue() && !std::isnan(arguments.inputs.ta);
}

template <typename Model>
void putPhs(Model model, bool of2004, const double* in, double* out, Verdict* verdicts, Limits limits)
{
    const PhsArguments arguments = phsArguments(in);
    standards::PhsResult r;
    if (isRefused(arguments))
        r.verdict = r.temperatures = arguments.verdict;
    else
        r = model(arguments.inputs, limits, std::span<standards::PhsMinute>());
    r.temperatures = arguments.judged(r.temperatures, limits);
    r.verdict = arguments.judged(r.verdict, limits);
    Writer writer(out, verdicts);
    writer.putAll(r.temperatures, r.tRectal, r.tCore, r.tSkin);
    writer.putAll(r.verdict, r.waterLoss, r.dLim.minutes, r.dLimTre.minutes, r.dLimLoss.minutes);
    if (of2004)
        writer.put(r.verdict, r.dLimLossMean.minutes);
    writer.putAll(r.verdict, r.dLim.reached, r.dLimTre.reached, r.dLimLoss.reached);
    if (of2004)
        writer.put(r.verdict, static_cast<double>(r.dLimLossMean.reached));
}

/// As many whole rows as there is room for both in the model and at the caller's.
std::size_t rowsOf(std::span<double> rows, std::size_t figures, std::size_t most)
{
    return std::min(rows.size() / figures, most);
}

template <typename Model>
Verdict phsCourse(Model model, std::span<const double> in, std::span<double> rows, Limits limits)
{
    const PhsArguments arguments = phsArguments(in.data());
    if (isRefused(arguments))
        return arguments.verdict;
    std::array<standards::PhsMinute, standards::kPhsMostMinutes> minutes; // NOLINT: as far as it is written
    const std::size_t count = rowsOf(rows, kPhsFigures, std::min(phsMinutes(in), minutes.size()));
    const standards::PhsResult result = model(arguments.inputs, limits, std::span(minutes).first(count));
    for (std::size_t i = 0; i < count; ++i) {
        const standards::PhsMinute& m = minutes[i];
        const std::array<double, kPhsFigures> row{m.tRectal, m.tCore,      m.tSkin,      m.waterLoss,
                                                  m.sweat,   m.required,   m.evaporated, m.dry,
                                                  m.breath,  m.adaptation, m.storage};
        std::ranges::copy(row, rows.begin() + static_cast<std::ptrdiff_t>(i * kPhsFigures));
    }
    const Verdict verdict = arguments.judged(result.temperatures, limits);
    if (!verdict.hasValue())
        std::ranges::fill(rows, kNaN);
    return verdict;
}

} // namespace

void pmvIso(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    Reader reader(in);
    const standards::PmvInputs inputs = pmvInputs(reader);
    const standards::PmvIso r = standards::pmvIso(inputs, reader.option<standards::Motion>(), limits);
    Writer(out, verdicts).putAll(r.verdict, r.pmv, r.ppd, r.category, r.tCl, r.inMotion.v, r.inMotion.clo);
}

void pmvAshrae(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    Reader reader(in);
    const standards::PmvInputs inputs = pmvInputs(reader);
    const auto motion = reader.option<standards::Motion>();
    const auto edition = reader.option<standards::Edition>();
    const standards::PmvAshrae r = standards::pmvAshrae(inputs, motion, edition, limits);
    Writer writer(out, verdicts);
    writer.putAll(r.verdict, r.pmv, r.ppd, r.coolingEffect, r.compliant);
    writer.putIfAny(r.verdict, r.speedLimit, "speed_limit");
    writer.putAll(r.verdict, r.beyondSpeedLimit, r.inMotion.v, r.inMotion.clo);
}

void twoNode(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const TwoNodeArguments arguments = twoNodeArguments(in);
    const standards::TwoNode r = standards::twoNode(arguments.inputs, arguments.motion, limits);
    Writer writer(out, verdicts);
    writer.put(r.setVerdict, r.set);
    writer.put(r.etVerdict, r.et);
    writer.putAll(r.verdict, r.tSkin, r.tCore, r.wettedness, r.eSkin, r.disc, r.tsens, r.inMotion.v,
                  r.inMotion.clo);
}

std::size_t twoNodeMinutes(std::span<const double>) noexcept
{
    return standards::kTwoNodeMinutes;
}

Verdict twoNodeCourse(std::span<const double> in, std::span<double> rows, Limits limits) noexcept
{
    const TwoNodeArguments arguments = twoNodeArguments(in.data());
    std::array<standards::BodyMinute, standards::kTwoNodeMinutes> minutes;
    const std::size_t count = rowsOf(rows, kTwoNodeFigures, minutes.size());
    const Verdict verdict =
        standards::twoNodeCourse(arguments.inputs, std::span(minutes).first(count), arguments.motion, limits);
    for (std::size_t i = 0; i < count; ++i) {
        const standards::BodyMinute& m = minutes[i];
        const std::array<double, kTwoNodeFigures> row{m.tSkin, m.tCore, m.wettedness,
                                                      m.eSkin, m.sweat, m.blood};
        std::ranges::copy(row, rows.begin() + static_cast<std::ptrdiff_t>(i * kTwoNodeFigures));
    }
    return verdict;
}

void pet(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::PetInputs inputs = petInputs(in);
    putPet(inputs, standards::pet(inputs, limits), standards::petSaturation(inputs.ta), limits, out,
           verdicts);
}

void petWg(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::PetInputs inputs = petInputs(in);
    putPet(inputs, standards::petWaltherGoestchel(inputs, limits), standards::petWgSaturation(inputs.ta),
           limits, out, verdicts);
}

void phs2004(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    putPhs(standards::phs2004, true, in, out, verdicts, limits);
}

void phs2023(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    putPhs(standards::phs2023, false, in, out, verdicts, limits);
}

std::size_t phsMinutes(std::span<const double> in) noexcept
{
    const double duration = in[kPhsDuration];
    return duration >= 1 && duration <= standards::kPhsMostMinutes ? static_cast<std::size_t>(duration) : 0;
}

Verdict phs2004Course(std::span<const double> in, std::span<double> rows, Limits limits) noexcept
{
    return phsCourse(standards::phs2004, in, rows, limits);
}

Verdict phs2023Course(std::span<const double> in, std::span<double> rows, Limits limits) noexcept
{
    return phsCourse(standards::phs2023, in, rows, limits);
}

void ireq(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    Reader reader(in);
    const standards::IreqInputs inputs{.M = reader.number(),
                                       .work = reader.number(),
                                       .ta = reader.number(),
                                       .tr = reader.number(),
                                       .permeability = reader.number(),
                                       .walking = reader.optional(),
                                       .v = reader.number(),
                                       .RH = reader.number(),
                                       .clo = reader.number()};
    const standards::IreqResult r = standards::ireq(inputs, limits);
    Writer writer(out, verdicts);
    writer.put(r.min.insulation, r.min.ireq);
    writer.put(r.neutral.insulation, r.neutral.ireq);
    writer.put(r.min.insulation, r.min.icl);
    writer.put(r.neutral.insulation, r.neutral.icl);
    writer.put(r.min.exposure, r.min.dle);
    writer.put(r.neutral.exposure, r.neutral.dle);
    // What was calculated with stands wherever the inputs do, whatever became of insulation and exposure.
    Verdict held = r.min.exposure;
    if (!std::isnan(r.M) && !held.hasValue())
        held = {};
    writer.putAll(held, r.M, r.walking, r.v);
}

void sunPosition(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    standards::SunResult r{.verdict = verdictOfDate(in)};
    if (r.verdict.hasValue())
        r = standards::sunPosition({.year = calendarNumber(in[0]),
                                    .month = calendarNumber(in[1]),
                                    .day = calendarNumber(in[2]),
                                    .hour = in[3],
                                    .latitude = in[4],
                                    .longitude = in[5]},
                                   limits);
    Writer(out, verdicts).putAll(r.verdict, r.altitude, r.azimuth, r.distanceAu, r.cosZenith);
}

void wbgtLiljegren(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    standards::LiljegrenResult r{.verdict = verdictOfDate(in)};
    if (r.verdict.hasValue()) {
        Reader reader(in + 3);
        r = standards::wbgtLiljegren({.year = calendarNumber(in[0]),
                                      .month = calendarNumber(in[1]),
                                      .day = calendarNumber(in[2]),
                                      .hour = reader.number(),
                                      .utcOffset = reader.number(),
                                      .interval = reader.number(),
                                      .latitude = reader.number(),
                                      .longitude = reader.number(),
                                      .S = reader.number(),
                                      .p = reader.number(),
                                      .ta = reader.number(),
                                      .RH = reader.number(),
                                      .v = reader.number(),
                                      .z = reader.number(),
                                      .dT = reader.number(),
                                      .urban = reader.yes()},
                                     limits);
    }
    Writer(out, verdicts).putAll(r.verdict, r.wbgt, r.tg, r.tnw, r.tpsy, r.v2m, r.directFraction);
}

void wbgt7243(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    Reader reader(in);
    const standards::Wbgt7243Inputs inputs{
        .tnw = reader.number(), .tg = reader.number(), .ta = reader.number(), .sun = reader.yes()};
    const std::optional<double> typed = reader.optional();
    standards::Wbgt7243Result measured;
    if (typed) {
        standards::Examination examination(limits);
        examination.look(standards::wbgt_7243_range::kWbgt, *typed);
        measured = {examination.verdict(), *typed};
    } else {
        measured = standards::wbgt7243(inputs, limits);
    }
    const standards::HeatWork work{.wbgt = measured.wbgt,
                                   .M = reader.number(),
                                   .clothing = reader.option<standards::WorkClothing>(),
                                   .acclimatised = reader.yes(),
                                   .reference = reader.option<standards::Reference>()};
    const standards::HeatWorkResult r = standards::assessHeat(work, limits);
    // A temperature beyond its range marks what follows from it, too.
    const Verdict& assessed = measured.verdict.standing >= r.verdict.standing ? measured.verdict : r.verdict;
    Writer writer(out, verdicts);
    writer.put(measured.verdict, measured.wbgt);
    writer.putAll(assessed, r.wbgtEff, r.refClass, r.wbgtRef, r.exceeds);
}

void workRest(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    Reader reader(in);
    const int basis = reader.option<int>();
    const double wbgt = reader.number();
    const double wbgtRest = reader.optional().value_or(wbgt);
    const double M = reader.number();
    const std::optional<double> rest = reader.optional();
    const bool acclimatised = reader.yes();
    const auto between = reader.option<standards::CapacityLimits>();
    const standards::NioshTable table{.ta = reader.number(),
                                      .RH = reader.number(),
                                      .sun = reader.option<standards::Sunshine>(),
                                      .labour = reader.option<standards::Labour>()};
    standards::WorkRest hour;
    double share = kNaN;
    double adjusted = kNaN;
    double advice = kNaN;
    if (basis == 0) {
        hour = standards::workRestTimeWeighted({.wbgtWork = wbgt,
                                                .wbgtRest = wbgtRest,
                                                .work = M,
                                                .rest = rest.value_or(standards::TimeWeighted().rest),
                                                .acclimatised = acclimatised},
                                               limits);
    } else if (basis == 1) {
        const standards::CapacityResult r = standards::workCapacity(
            {.wbgt = wbgt, .work = M, .rest = rest.value_or(standards::Capacity().rest), .between = between},
            limits);
        hour = r.hour;
        share = r.share;
    } else {
        const standards::NioshResult r = standards::workRestByTable(table);
        hour = r.hour;
        adjusted = r.adjusted;
        advice = static_cast<double>(r.advice);
    }
    Writer writer(out, verdicts);
    writer.putAll(hour.verdict, hour.workMin, hour.restMin, hour.shown);
    writer.putIfAny(hour.verdict, share, "share");
    writer.putIfAny(hour.verdict, adjusted, "table");
    writer.putIfAny(hour.verdict, advice, "table");
}

void adaptiveAshrae(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::AdaptiveAshrae r = standards::adaptiveAshrae(in[0], in[1], in[2], in[3], limits);
    Writer(out, verdicts)
        .putAll(r.verdict, r.tNeutral, r.operative, r.of80.low, r.of80.up, r.of80.accepted, r.of90.low,
                r.of90.up, r.of90.accepted);
}

void adaptiveEn(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::AdaptiveEn r = standards::adaptiveEn(in[0], in[1], in[2], in[3], limits);
    Writer writer(out, verdicts);
    writer.putAll(r.verdict, r.tNeutral, r.operative);
    for (const standards::ComfortBand& band : {r.categoryI, r.categoryII, r.categoryIII})
        writer.putAll(r.verdict, band.low, band.up, band.accepted);
}

void tmrtGlobe(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::TmrtResult r =
        standards::tmrtGlobe({.tg = in[0], .ta = in[1], .v = in[2], .D = in[3], .emissivity = in[4]}, limits);
    Writer(out, verdicts).put(r.verdict, r.tmrt);
}

void tmrtSix(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    standards::TmrtSixInputs inputs;
    std::copy_n(in, inputs.K.size(), inputs.K.begin());
    std::copy_n(in + inputs.K.size(), inputs.L.size(), inputs.L.begin());
    Reader rest(in + inputs.K.size() + inputs.L.size());
    inputs.weights = rest.yes() ? standards::SixSides::Even : standards::SixSides::Standing;
    inputs.shortAbsorptance = rest.number();
    inputs.longAbsorptance = rest.number();
    const standards::TmrtResult r = standards::tmrtSix(inputs, limits);
    Writer(out, verdicts).put(r.verdict, r.tmrt);
}

void tmrtFlux(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::TmrtResult r = standards::tmrtFlux(
        {.S = in[0], .netS = in[1], .I = in[2], .Dh = in[3], .L = in[4], .netL = in[5], .mu = in[6]}, limits);
    Writer(out, verdicts).put(r.verdict, r.tmrt);
}

void tmrtSolarCal(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    Reader reader(in);
    standards::SolarCalInputs inputs{.tmrt = reader.number(),
                                     .altitude = reader.number(),
                                     .sharp = reader.number(),
                                     .I = reader.number(),
                                     .transmittance = reader.number(),
                                     .skyView = reader.number(),
                                     .exposed = reader.number(),
                                     .absorptance = reader.number(),
                                     .floor = reader.number(),
                                     .posture = {}};
    // The table's postures: standing, sitting, crouching, lying.
    constexpr std::array kPostures{standards::SolarPosture::Standing, standards::SolarPosture::Sitting,
                                   standards::SolarPosture::Sitting, standards::SolarPosture::Lying};
    inputs.posture = kPostures[reader.option<std::size_t>()];
    const standards::SolarCalResult r = standards::tmrtSolarCal(inputs, limits);
    Writer writer(out, verdicts);
    writer.putAll(r.verdict, r.erf, r.deltaMrt);
    writer.putIfAny(r.verdict, r.tmrt, "tmrt");
}

void utci(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::Utci r = standards::utci(in[0], in[1], in[2], in[3], in[4], limits);
    Writer(out, verdicts).putAll(r.verdict, r.utci, r.stress, r.v10);
}

void heatIndex(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::HeatIndex r = standards::heatIndex(in[0], in[1], limits);
    Writer(out, verdicts).put(r.verdict, r.heatIndex);
}

void windChill(const double* in, double* out, Verdict* verdicts, Limits limits) noexcept
{
    const standards::WindChill temperature = standards::windChillTemperature(in[0], in[1], limits);
    const standards::WindChill loss = standards::windChillIndex(in[0], in[1], limits);
    Writer writer(out, verdicts);
    writer.put(temperature.verdict, temperature.value);
    writer.put(loss.verdict, loss.value);
    writer.put(temperature.verdict, static_cast<double>(standards::localCooling(temperature.value)));
}

void bodySurface(const double* in, double* out, Verdict* verdicts, Limits) noexcept
{
    Reader reader(in);
    const double weight = reader.number();
    const double height = reader.number();
    const standards::BodySurface r =
        standards::bodySurface(weight, height, reader.option<standards::BodySurfaceFormula>());
    Writer(out, verdicts).put(r.verdict, r.area);
}

} // namespace comfortics::catalogue::runs
