// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/weather.h"

#include "formulas/primitives.h"
#include "models/precise_roots.h"
#include "models/quantity_formulas.h"
#include "values/clones.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace comfortics::engine {

namespace {

using enum Quantity;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kGreatest = std::numeric_limits<double>::max();
constexpr double kAbsoluteZero = -273.15;   // [°C]
constexpr double kDewPointTolerance = 1e-9; // [K]: a dew point that humidity of 100 % gives is not above

constexpr Recipe kDewPointOfHumidity{&models::kDewPoint, {AirTemperature, RelativeHumidity}};
constexpr Recipe kHumidityOfDewPoint{&models::kRelativeHumidity, {AirTemperature, DewPoint}};

/// The least that a reading can be.
double lowest(Quantity quantity)
{
    switch (quantity) {
    case AirTemperature:
    case GlobeTemperature:
    case DewPoint:
        return kAbsoluteZero;
    case RelativeHumidity:
    case WindSpeed:
        return 0;
    default:
        return -kGreatest;
    }
}

COMFORTICS_CLONES bool allFrom(double low, const double* values, std::size_t count)
{
    unsigned others = 0;
    for (std::size_t i = 0; i < count; ++i)
        others |= values[i] >= low && values[i] <= kGreatest ? 0U : 1U; // NaN is neither
    return others == 0;
}

Status readingStatus(double value, double low)
{
    if (std::isnan(value))
        return Status::Missing;
    return value >= low && value <= kGreatest ? Status::Value : Status::Undefined;
}

Status statusOf(models::RootStatus status)
{
    switch (status) {
    case models::RootStatus::Found:
        return Status::Value;
    case models::RootStatus::Missing:
        return Status::Missing;
    case models::RootStatus::None:
        break;
    }
    return Status::NoConvergence;
}

} // namespace

const Column* reading(const Readings& readings, Quantity quantity) noexcept
{
    const Column* column = nullptr;
    switch (quantity) {
    case AirTemperature:
        column = &readings.airTemperature;
        break;
    case GlobeTemperature:
        column = &readings.globeTemperature;
        break;
    case Quantity::SolarRadiation:
        column = &readings.solarRadiation;
        break;
    case DewPoint:
        column = &readings.dewPoint;
        break;
    case RelativeHumidity:
        column = &readings.relativeHumidity;
        break;
    case WindSpeed:
        column = &readings.windSpeed;
        break;
    default:
        break;
    }
    return column != nullptr && column->given() ? column : nullptr;
}

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): written before they are read
Weather::Weather(const Readings& readings, const Assumptions& assumptions)
    : m_readings(readings), m_runner(assumptions)
{
}

void Weather::begin(std::size_t first, std::size_t count)
{
    m_first = first;
    m_count = count;
    m_runner.begin(first);
    for (Place& place : m_places)
        place.known = false;
    m_air.known = false;
}

const Figures& Weather::of(Quantity quantity)
{
    Place& place = at(quantity);
    if (!place.known) {
        place.known = true;
        if (const Column* column = reading(m_readings, quantity))
            read(quantity, *column);
        else
            derive(quantity);
    }
    return place.figures;
}

const Figures& Weather::air()
{
    if (!m_air.known) {
        m_air.known = true;
        judgeAir();
    }
    return m_air.figures;
}

bool Weather::alsoOf(const Figures& source, Status* statuses) const
{
    if (source.allValues)
        return true;
    for (std::size_t i = 0; i < m_count; ++i)
        statuses[i] = statuses[i] == Status::Value ? source.statuses[i] : statuses[i];
    return false;
}

bool Weather::combine(std::initializer_list<const Figures*> sources, Status* statuses) const
{
    std::fill_n(statuses, m_count, Status::Value);
    bool all = true;
    for (const Figures* source : sources)
        all = alsoOf(*source, statuses) && all;
    return all;
}

bool Weather::combine(std::span<const std::optional<Quantity>> sources, Status* statuses)
{
    std::fill_n(statuses, m_count, Status::Value);
    bool all = true;
    for (const auto& quantity : sources)
        if (quantity)
            all = alsoOf(of(*quantity), statuses) && all;
    return all;
}

InputPointers Weather::inputs(const Recipe& recipe)
{
    InputPointers pointers{};
    for (std::size_t i = 0; i < recipe.call->arity; ++i)
        pointers[i] = recipe.sources[i] ? of(*recipe.sources[i]).values : nullptr;
    return pointers;
}

void Weather::read(Quantity quantity, const Column& column)
{
    Place& place = at(quantity);
    const double* values = place.values.data();
    if (column.stride() == 1 && column.data() != nullptr)
        values = column.data() + m_first;
    else
        for (std::size_t i = 0; i < m_count; ++i)
            place.values[i] = column[m_first + i];
    const double low = lowest(quantity);
    place.figures = {values, place.statuses.data(), allFrom(low, values, m_count)};
    if (!place.figures.allValues)
        for (std::size_t i = 0; i < m_count; ++i)
            place.statuses[i] = readingStatus(values[i], low);
}

void Weather::derive(Quantity quantity)
{
    Place& place = at(quantity);
    // What is neither given nor derived from anything given is missing everywhere.
    const auto missing = [&] {
        std::fill_n(place.values.data(), m_count, kNaN);
        std::fill_n(place.statuses.data(), m_count, Status::Missing);
        place.figures = {place.values.data(), place.statuses.data(), false};
    };
    switch (quantity) {
    case DewPoint:
        if (reading(m_readings, RelativeHumidity) != nullptr) {
            derive(kDewPointOfHumidity, place);
            loseImpossible(place);
        } else {
            missing();
        }
        break;
    case RelativeHumidity:
        reading(m_readings, DewPoint) != nullptr ? derive(kHumidityOfDewPoint, place) : missing();
        break;
    case GlobeTemperature: {
        if (reading(m_readings, Quantity::SolarRadiation) == nullptr) {
            missing();
            break;
        }
        const Figures& Ta = of(AirTemperature);
        const Figures& RH = of(RelativeHumidity);
        const Figures& WS = of(WindSpeed);
        const Figures& SR = of(Quantity::SolarRadiation);
        solve(place, {&Ta, &RH, &WS, &SR, &air()}, [&](std::size_t i) {
            return models::preciseGlobeTemperature(Ta.values[i], RH.values[i], WS.values[i], SR.values[i]);
        });
        break;
    }
    case Quantity::SolarRadiation: {
        if (reading(m_readings, GlobeTemperature) == nullptr) {
            missing();
            break;
        }
        const Figures& Ta = of(AirTemperature);
        const Figures& RH = of(RelativeHumidity);
        const Figures& WS = of(WindSpeed);
        const Figures& Tg = of(GlobeTemperature);
        solve(place, {&Ta, &RH, &WS, &Tg, &air()}, [&](std::size_t i) {
            return models::preciseRadiation(Ta.values[i], RH.values[i], WS.values[i], Tg.values[i]);
        });
        break;
    }
    case NaturalWetBulbTemperature: {
        const Figures& Ta = of(AirTemperature);
        const Figures& RH = of(RelativeHumidity);
        const Figures& WS = of(WindSpeed);
        const Figures& SR = of(Quantity::SolarRadiation);
        solve(place, {&Ta, &RH, &WS, &SR, &air()}, [&](std::size_t i) {
            return models::preciseNaturalWetBulb(Ta.values[i], RH.values[i], WS.values[i], SR.values[i]);
        });
        break;
    }
    case PsychrometricWetBulbTemperature: {
        const Figures& Ta = of(AirTemperature);
        const Figures& Td = of(DewPoint);
        solve(place, {&Ta, &Td, &air()},
              [&](std::size_t i) { return models::precisePsychrometricWetBulb(Ta.values[i], Td.values[i]); });
        break;
    }
    default:
        if (const Recipe* recipe = quantityRecipe(quantity))
            derive(*recipe, place);
        else
            missing();
    }
}

void Weather::derive(const Recipe& recipe, Place& place)
{
    const bool all = combine(recipe.inputs(), place.statuses.data());
    m_runner.run(*recipe.call, inputs(recipe), m_count, all, place.values.data(), place.statuses.data());
    place.figures = {place.values.data(), place.statuses.data(),
                     std::all_of(place.statuses.data(), place.statuses.data() + m_count,
                                 [](Status status) { return status == Status::Value; })};
}

// The formula has a pole at a humidity of some 1e9 %, and beyond it dew points far below the air.
void Weather::loseImpossible(Place& dewPoint)
{
    const double* const Ta = of(AirTemperature).values;
    const double* const RH = of(RelativeHumidity).values;
    for (std::size_t i = 0; i < m_count; ++i)
        if (dewPoint.statuses[i] == Status::Value &&
            (dewPoint.values[i] < kAbsoluteZero ||
             (RH[i] > 100 && dewPoint.values[i] < Ta[i] - kDewPointTolerance))) {
            dewPoint.statuses[i] = Status::Undefined;
            dewPoint.figures.allValues = false;
        }
}

template <typename Root>
void Weather::solve(Place& place, std::initializer_list<const Figures*> inputs, Root root)
{
    bool all = combine(inputs, place.statuses.data());
    for (std::size_t i = 0; i < m_count; ++i) {
        place.values[i] = kNaN;
        if (place.statuses[i] != Status::Value)
            continue;
        const models::Root found = root(i);
        place.values[i] = found.value;
        place.statuses[i] = statusOf(found.status);
        all = all && place.statuses[i] == Status::Value;
    }
    place.figures = {place.values.data(), place.statuses.data(), all};
}

// By the dew point, or where the humidity is given and not above 100 %, by that alone.
void Weather::judgeAir()
{
    const Figures& Ta = of(AirTemperature);
    const bool humidityGiven = reading(m_readings, RelativeHumidity) != nullptr;
    const Figures& humidity = of(humidityGiven ? RelativeHumidity : DewPoint);
    bool all = combine({&Ta, &humidity}, m_air.statuses.data());
    for (std::size_t i = 0; i < m_count; ++i) {
        if (m_air.statuses[i] != Status::Value)
            continue;
        const double air = Ta.values[i];
        double dewPoint = humidity.values[i];
        if (humidityGiven) {
            if (humidity.values[i] <= 100)
                continue;
            dewPoint = formulas::Dew_Point_Magnus(air, humidity.values[i]);
        }
        if (!(humidityGiven ? std::fabs(dewPoint - air) <= kDewPointTolerance
                            : dewPoint - air <= kDewPointTolerance)) {
            m_air.statuses[i] = Status::Undefined;
            all = false;
        }
    }
    m_air.figures = {nullptr, m_air.statuses.data(), all};
}

} // namespace comfortics::engine
