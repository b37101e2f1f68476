// SPDX-License-Identifier: GPL-3.0-or-later
#include "plain_point.h"

#include <comfortics/comfortics.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics {
namespace {

using test::kNaN;
using test::PlainPoint;
using test::Typed;
using test::Value;

constexpr std::size_t kPoints = 2 * 512 + 77; // blocks, and a part of one

/// Weather from polar night to desert noon, with readings at its ends that nothing can have.
std::vector<Typed> weather(bool globe, bool dewPoint, unsigned seed)
{
    std::mt19937_64 random(seed);
    const auto from = [&](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    std::vector<Typed> all(kPoints);
    for (std::size_t i = 0; i < kPoints; ++i) {
        Typed& typed = all[i];
        typed.Ta = i % 16 == 3 ? from(-90, 90) : from(-35, 48);
        typed.WS = i % 8 == 5 ? from(0, 45) : from(0, 12);
        const double sun = i % 4 == 0 ? 0 : from(0, 1100);
        if (globe)
            typed.Tg = typed.Ta + (i % 32 == 7 ? from(-30, 90) : from(-2, 22));
        else
            typed.SR = sun;
        const double humidity = i % 16 == 9 ? from(95, 104) : from(i % 64 == 1 ? 0 : 4, 100);
        if (dewPoint)
            typed.Td = typed.Ta + (i % 16 == 9 ? from(-1, 0.5) : from(-30, 0));
        else
            typed.RH = i % 128 == 2 ? 0 : humidity;
    }
    return all;
}

/// Typed readings as columns.
struct Columns {
    explicit Columns(const std::vector<Typed>& all)
    {
        for (const Typed& typed : all) {
            Ta.push_back(typed.Ta);
            WS.push_back(typed.WS);
            heat.push_back(typed.Tg ? *typed.Tg : *typed.SR);
            humidity.push_back(typed.Td ? *typed.Td : *typed.RH);
        }
        readings.airTemperature = Ta;
        readings.windSpeed = WS;
        (all[0].Tg ? readings.globeTemperature : readings.solarRadiation) = heat;
        (all[0].Td ? readings.dewPoint : readings.relativeHumidity) = humidity;
    }
    std::vector<double> Ta, WS, heat, humidity;
    Readings readings;
};

struct Table {
    explicit Table(std::size_t count)
    {
        const std::size_t targets = kIndexCount + kQuantityCount;
        values.resize(targets, std::vector<double>(count, -1));
        statuses.resize(targets, std::vector<Status>(count, Status::NoConvergence));
        for (std::size_t i = 0; i < targets; ++i)
            outputs.push_back(
                {i < kIndexCount ? Target(indices()[i]) : Target(static_cast<Quantity>(i - kIndexCount)),
                 values[i].data(), 1, statuses[i].data()});
    }
    std::vector<std::vector<double>> values;
    std::vector<std::vector<Status>> statuses;
    std::vector<Output> outputs;
};

bool same(double value, const Value& expected)
{
    if (!expected)
        return std::isnan(value);
    return std::bit_cast<std::uint64_t>(value) == std::bit_cast<std::uint64_t>(*expected);
}

class EngineAgainstPlain : public testing::TestWithParam<std::array<bool, 3>> {};

// The blocks, the points that move together, the shared quantities and the limits change no bit.
TEST_P(EngineAgainstPlain, EveryIndexAndQuantity)
{
    const auto [globe, dewPoint, limits] = GetParam();
    const std::vector<Typed> all = weather(globe, dewPoint, 15);
    const Columns columns(all);
    Table table(kPoints);
    ASSERT_EQ(kPoints, calculate(columns.readings, kPoints, table.outputs, {}, {.limits = limits}));

    std::size_t valued = 0;
    for (std::size_t i = 0; i < kPoints; ++i) {
        const PlainPoint plain(all[i]);
        const std::array<Value, kQuantityCount> quantities{
            plain.Ta,   plain.Tg,   plain.SR, plain.Td, plain.RH,   plain.WS,  plain.Tmrt,
            plain.Tnwb, plain.Tpwb, plain.Es, plain.Ea, plain.Wbgt, plain.WS10};
        for (std::size_t target = 0; target < table.values.size(); ++target) {
            const Value expected = target < kIndexCount ? plain.index(static_cast<int>(target) + 1, limits)
                                                        : quantities[target - kIndexCount];
            const double value = table.values[target][i];
            ASSERT_TRUE(same(value, expected))
                << (target < kIndexCount ? indices()[target].id
                                         : info(static_cast<Quantity>(target - kIndexCount)).id)
                << " at Ta " << all[i].Ta << " WS " << all[i].WS << " heat " << columns.heat[i]
                << " humidity " << columns.humidity[i] << ": " << value << " for " << expected.value_or(kNaN);
            ASSERT_EQ(expected.has_value(), table.statuses[target][i] == Status::Value);
            valued += expected ? 1U : 0U;
        }
    }
    EXPECT_GT(valued, table.values.size() * kPoints / 3);
}

INSTANTIATE_TEST_SUITE_P(Pairs, EngineAgainstPlain,
                         testing::Values(std::array{false, false, true}, std::array{false, true, false},
                                         std::array{true, false, false}, std::array{true, true, true}));

/// Some targets of different makings.
std::vector<Target> someTargets()
{
    return {index(195), index(200), index(88), Quantity::MeanRadiantTemperature, index(120)};
}

TEST(Calculate, DoesNotDependOnThreadsStridesOrCompany)
{
    const std::vector<Typed> all = weather(false, false, 3);
    const Columns columns(all);
    for (const Target& target : someTargets()) {
        std::vector<double> alone(kPoints);
        const Output output{target, alone.data()};
        calculate(columns.readings, kPoints, {&output, 1});

        // Backwards, every third element, on three threads, among others.
        std::vector<double> reversed(columns.Ta.rbegin(), columns.Ta.rend());
        Readings readings = columns.readings;
        readings.airTemperature = Column(reversed.data() + kPoints - 1, -1);
        std::vector<double> apart(3 * kPoints, -7);
        std::vector<double> other(kPoints);
        const std::array outputs{Output{index(1), other.data()}, Output{target, apart.data(), 3}};
        calculate(readings, kPoints, outputs, {}, {.threads = 3});
        for (std::size_t i = 0; i < kPoints; ++i) {
            ASSERT_EQ(std::bit_cast<std::uint64_t>(alone[i]), std::bit_cast<std::uint64_t>(apart[3 * i]))
                << i;
            ASSERT_EQ(-7, apart[3 * i + 1]);
        }
    }
}

TEST(Calculate, TakesScalarsForReadingsAndSites)
{
    const std::array air{20.0, 30.0, 40.0};
    const std::array winds{0.2, 0.4, kNaN};
    const Readings readings{
        .airTemperature = air, .solarRadiation = 600, .relativeHumidity = 40, .windSpeed = 2};
    std::array<double, 3> each{};
    std::array<Status, 3> statuses{};
    const Output output{Quantity::WindSpeedAt10m, each.data(), 1, statuses.data()};
    calculate(readings, 3, {&output, 1}, {.windExponent = winds});
    // 2 / (1.1 / 10) ^ exponent
    EXPECT_NEAR(3.1099, each[0], 5e-4);
    EXPECT_NEAR(4.8358, each[1], 5e-4);
    EXPECT_TRUE(std::isnan(each[2]));
    EXPECT_EQ(Status::Missing, statuses[2]);

    std::array<double, 3> globes{};
    const Output globe{Quantity::GlobeTemperature, globes.data()};
    calculate(readings, 3, {&globe, 1});
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(models::preciseGlobeTemperature(air[i], 40, 2, 600).value, globes[i]);
}

TEST(Calculate, TellsWhyThereIsNoValue)
{
    struct Case {
        const char* name;
        Target target;
        Readings readings;
        Status status;
        const char* words;
    };
    const auto sunny = [](double Ta, double RH, double WS, double SR) {
        return Readings{.airTemperature = Ta, .solarRadiation = SR, .relativeHumidity = RH, .windSpeed = WS};
    };
    const auto globe = [](double Ta, double RH, double WS, double Tg) {
        return Readings{
            .airTemperature = Ta, .globeTemperature = Tg, .relativeHumidity = RH, .windSpeed = WS};
    };
    const Case cases[] = {
        {"too hot", index(195), sunny(50.5, 20, 2, 500), Status::OutsideTemperature,
         "Outside its limits: the air temperature is 50.5 °C, valid from -50 to 50 °C."},
        {"missing air", index(90), sunny(kNaN, 40, 2, 500), Status::Missing, "Air temperature is missing."},
        {"missing wind", index(88), sunny(30, 40, kNaN, 500), Status::Value, ""},
        {"dry", index(90), sunny(30, 0, 2, 500), Status::Undefined,
         "There is no dew point at a relative humidity of 0 %."},
        {"beyond the pole of the dew point", Quantity::GlobeTemperature, sunny(20, 1e10, 2, 500),
         Status::Undefined, "There is no dew point at a relative humidity of 10000000000 %."},
        {"far beyond it", Quantity::GlobeTemperature, sunny(20, 1e100, 2, 500), Status::Undefined,
         "There is no dew point at a relative humidity of 1E+100 %."},
        {"no humidity below 0", index(85), sunny(30, -3, 2, 500), Status::Undefined,
         "Relative humidity cannot be -3 %."},
        {"below absolute zero", Quantity::SaturationVapourPressure, sunny(-300, 3, 2, 500), Status::Undefined,
         "Air temperature cannot be -300 °C."},
        {"no such sun", Quantity::WbgtOutdoor, globe(20, 50, 2, 120), Status::NoConvergence,
         "No solar radiation up to 1376 W/m² brings the globe to 120 °C."},
        {"dew above air", index(195),
         Readings{.airTemperature = 20, .solarRadiation = 1, .dewPoint = 21, .windSpeed = 1},
         Status::Undefined, "The dew point of 21 °C lies above the air temperature of 20 °C."},
        {"dew at air", Quantity::NaturalWetBulbTemperature, sunny(17.3, 100, 2, 0), Status::Value, ""},
        {"no value", index(66), sunny(30, 50, 0, 100), Status::Value, ""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(one.name);
        double value = 1;
        Status status = Status::Value;
        const Output output{one.target, &value, 1, &status};
        calculate(one.readings, 1, {&output, 1});
        EXPECT_EQ(statusText(one.status), statusText(status));
        EXPECT_EQ(status == Status::Value, !std::isnan(value));
        EXPECT_EQ(one.words, explain(one.target, one.readings));
    }
}

TEST(Calculate, JudgesLimitsWithTheirEnds)
{
    const Limits& limits = index(195).limits;
    ASSERT_TRUE(limits.bounded && limits.windBounded && limits.windAt10m);
    const double beyond = std::nextafter(limits.temperatureHigh, 100);
    const std::array air{limits.temperatureLow, std::nextafter(limits.temperatureLow, -100),
                         limits.temperatureHigh, beyond};
    const Readings readings{
        .airTemperature = air, .solarRadiation = 100, .relativeHumidity = 20, .windSpeed = 2};
    std::array<Status, 4> statuses{};
    const Output output{index(195), nullptr, 1, statuses.data()};
    calculate(readings, 4, {&output, 1});
    EXPECT_EQ(
        (std::array{Status::Value, Status::OutsideTemperature, Status::Value, Status::OutsideTemperature}),
        statuses);
    calculate(readings, 4, {&output, 1}, {}, {.limits = false});
    EXPECT_EQ((std::array{Status::Value, Status::Value, Status::Value, Status::Value}), statuses);
}

TEST(Calculate, RefusesMisuseInOneSentence)
{
    double value = 0;
    const auto refusal = [&](const Target& target, const Readings& readings) -> std::string {
        const Output output{target, &value};
        try {
            calculate(readings, 1, {&output, 1});
        } catch (const std::invalid_argument& error) {
            return error.what();
        }
        return {};
    };
    EXPECT_EQ("comfortics: both globeTemperature and solarRadiation are given",
              refusal(index(88), {.airTemperature = 1, .globeTemperature = 2, .solarRadiation = 3}));
    EXPECT_EQ("comfortics: both dewPoint and relativeHumidity are given",
              refusal(index(88), {.airTemperature = 1, .dewPoint = 2, .relativeHumidity = 3}));
    EXPECT_EQ(
        "comfortics: utci needs mean_radiant_temperature: globeTemperature or solarRadiation must be given",
        refusal(index(195), {.airTemperature = 30, .relativeHumidity = 40, .windSpeed = 2}));
    EXPECT_EQ("", refusal(index(88), {.airTemperature = 30, .relativeHumidity = 40}));
    EXPECT_THROW(index(223), std::out_of_range);
    EXPECT_THROW(refusal(Index(), {.airTemperature = 30}), std::out_of_range);
    EXPECT_EQ(nullptr, findIndex("no_such_index"));
    EXPECT_EQ(std::vector{&index(200)}, searchIndices("outdoor WBGT"));
}

// Whoever has traps set would otherwise end at the first missing reading.
TEST(Calculate, LeavesTheFloatingPointFlagsAlone)
{
    const std::array air{30.0, kNaN, -std::numeric_limits<double>::infinity(), 1e300, -273.15, 20.0};
    const Readings readings{
        .airTemperature = air, .solarRadiation = air, .relativeHumidity = air, .windSpeed = air};
    Table table(air.size());
    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_UNDERFLOW);
    const int before = std::fetestexcept(FE_ALL_EXCEPT);
    calculate(readings, air.size(), table.outputs);
    for (const Output& output : table.outputs)
        for (std::size_t point = 0; point < air.size(); ++point)
            explain(output.target, readings, point);
    double sun = 0;
    solarRadiation({.latitude = air, .longitude = air, .dayOfYear = air, .minuteOfDay = air}, 1, {&sun});
    convert(air.data(), air.size(), *findUnit("F"), *findUnit("K"), table.values[0].data());
    EXPECT_EQ(before, std::fetestexcept(FE_ALL_EXCEPT));
    std::feclearexcept(FE_ALL_EXCEPT);
}

TEST(Calculate, EndsWhereProgressSaysSo)
{
    constexpr std::size_t many = 400000;
    const Readings readings{
        .airTemperature = 30, .solarRadiation = 0, .relativeHumidity = 40, .windSpeed = 2};
    std::vector<double> values(many, -1);
    const Output output{Quantity::WbgtOutdoor, values.data()};
    std::size_t told = 0;
    const std::size_t done =
        calculate(readings, many, {&output, 1}, {}, {.threads = 2, .progress = [&](std::size_t points) {
                                                         told = points;
                                                         return false;
                                                     }});
    EXPECT_LE(told, done);
    EXPECT_LT(done, many);
    EXPECT_NE(-1, values[done - 1]);
    EXPECT_EQ(-1, values[many - 1]);
    EXPECT_THROW(calculate(readings, many, {&output, 1}, {},
                           {.threads = 2,
                            .progress = [](std::size_t) -> bool { throw std::runtime_error("enough"); }}),
                 std::runtime_error);
}

TEST(Evaluate, TakesASiteForEachPoint)
{
    const Index& outdoor = index(178);
    ASSERT_TRUE(outdoor.readsAssumptions);
    const std::vector<Column> inputs(outdoor.inputs.size(), 20.0);
    const std::array masses{60.0, 180.0, kNaN, 220.0};
    // Memory that was in use does not begin with zeros.
    std::vector<std::vector<unsigned char>>(8, std::vector<unsigned char>(100000, 0x7f)).clear();
    std::array<double, 4> values{};
    std::array<Status, 4> statuses{};
    evaluate(outdoor, inputs, 4, {values.data(), 1, statuses.data()}, {.bodyMass = masses});
    for (std::size_t i = 0; i < 4; ++i) {
        double value = 0;
        Status status{};
        evaluate(outdoor, inputs, 1, {&value, 1, &status}, {.bodyMass = masses[i]});
        EXPECT_EQ(status, statuses[i]);
        EXPECT_EQ(std::isnan(masses[i]), status == Status::Missing);
        EXPECT_TRUE(status != Status::Value || value == values[i]);
    }
    EXPECT_NE(values[0], values[1]);
}

TEST(Calculate, TellsWhatValuesMean)
{
    const std::array air{35.0, 51.0, -5.0, kNaN};
    const Readings readings{
        .airTemperature = air, .solarRadiation = 700, .relativeHumidity = 45, .windSpeed = 1};
    struct Figures {
        std::array<double, 4> values{};
        std::array<std::int8_t, 4> categories{};
        std::array<std::int8_t, 4> severities{};
    };
    const auto of = [&](int number, bool limits) {
        Figures figures;
        const Output output{index(number), figures.values.data(),     1,
                            nullptr,       figures.categories.data(), figures.severities.data()};
        calculate(readings, 4, {&output, 1}, {}, {.limits = limits});
        return figures;
    };
    for (const bool limits : {true, false}) {
        const Figures utci = of(195, limits);
        const Index& index = comfortics::index(195);
        const auto place = static_cast<std::size_t>(utci.categories[0]);
        EXPECT_EQ(&index.categories[place], categoryOf(index, utci.values[0]));
        EXPECT_EQ(utci.severities[0], index.categories[place].severity);
        for (const std::size_t without :
             {1U, 3U}) { // outside its limits, whether or not they are kept; missing
            EXPECT_EQ(kNoCategory, utci.categories[without]);
            EXPECT_EQ(kNoSeverity, utci.severities[without]);
        }
    }
    // A percentage of dissatisfied has the sign of its vote.
    const Figures dissatisfied = of(124, true);
    const Figures vote = of(119, true);
    EXPECT_GT(vote.values[0], 2);
    EXPECT_EQ(3, dissatisfied.severities[0]);
    EXPECT_LT(vote.values[2], -0.5);
    EXPECT_LT(dissatisfied.severities[2], 0);
    EXPECT_EQ(nullptr, categoryOf(index(5), 20));
}

TEST(Evaluate, TakesTheFormulasOwnInputs)
{
    // Bröde et al. (2012), the reference condition: what the air is, the index is.
    const Index& utci = *findIndex("utci");
    std::array<double, 2> values{};
    std::array<Status, 2> statuses{};
    const std::array radiant{20.0, kNaN};
    const std::array<Column, 4> inputs{20, radiant, 0.5, 50};
    EXPECT_EQ(2U, evaluate(utci, inputs, 2, {values.data(), 1, statuses.data()}));
    EXPECT_NEAR(20, values[0], 1);
    EXPECT_EQ(Status::Missing, statuses[1]);

    // A result in the place of an input, and limits as far as the inputs tell.
    std::vector<double> air{25, 27, 38, 60};
    const Index& heatIndex = index(88);
    const std::array<Column, 2> own{air, 55};
    std::vector<double> expected(4);
    evaluate(heatIndex, own, 4, {expected.data()}, {}, {.limits = true});
    evaluate(heatIndex, own, 4, {air.data()}, {}, {.limits = true});
    for (std::size_t i = 0; i < 4; ++i)
        EXPECT_EQ(std::bit_cast<std::uint64_t>(expected[i]), std::bit_cast<std::uint64_t>(air[i]));
    EXPECT_TRUE(std::isnan(expected[3]));
    // Also where each point has a site of its own.
    const std::array exponents{0.1, 0.2, 0.3};
    std::array winds{2.0, 3.0, 4.0};
    const auto reader = std::find_if(indices().begin(), indices().end(), [](const Index& index) {
        return index.readsAssumptions && index.inputs.size() == 2 &&
               index.inputs[0] == Quantity::AirTemperature && index.inputs[1] == Quantity::WindSpeed;
    });
    ASSERT_NE(reader, indices().end());
    const std::array<Column, 2> siteInputs{20, winds};
    const Assumptions sites{.windExponent = exponents, .bodyHeight = 1.75, .bodyMass = 70};
    std::array<double, 3> apart{};
    evaluate(*reader, siteInputs, 3, {apart.data()}, sites);
    evaluate(*reader, siteInputs, 3, {winds.data()}, sites);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_FALSE(std::isnan(apart[i])) << reader->id;
        EXPECT_EQ(apart[i], winds[i]);
    }

    EXPECT_THROW(evaluate(heatIndex, {own.data(), 1}, 4, {air.data()}), std::invalid_argument);
    EXPECT_THROW(evaluate(heatIndex, std::array<Column, 2>{30, Column()}, 4, {air.data()}),
                 std::invalid_argument);
    EXPECT_THROW(evaluate(heatIndex, own, 4, {}), std::invalid_argument);
    EXPECT_THROW(evaluate(Index(), {}, 4, {air.data()}), std::out_of_range);
}

} // namespace
} // namespace comfortics
