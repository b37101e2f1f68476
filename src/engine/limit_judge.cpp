// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/limit_judge.h"

#include "values/clones.h"

#include <array>
#include <cassert>

namespace comfortics::engine {

namespace {

using enum Quantity;

// Temperatures first, then the wind.
constexpr std::array kAir{AirTemperature, WindSpeed};
constexpr std::array kAirAndHighWind{AirTemperature, WindSpeedAt10m};
constexpr std::array kWetBulb{NaturalWetBulbTemperature, WindSpeed};
constexpr std::array kRadiantAndAir{MeanRadiantTemperature, AirTemperature, WindSpeed};
constexpr std::array kWbgt{Quantity::WbgtOutdoor, WindSpeed};

bool twoTemperatures(Judged judged)
{
    return judged == Judged::MeanOfRadiantAndAir || judged == Judged::RadiantLessAir;
}

COMFORTICS_CLONES bool allWithin(const double* values, std::size_t count, double low, double high)
{
    unsigned outside = 0;
    for (std::size_t i = 0; i < count; ++i)
        outside |= values[i] >= low && values[i] <= high ? 0U : 1U;
    return outside == 0;
}

bool exclude(const double* values, std::size_t count, double low, double high, Status outside,
             Status* statuses)
{
    if (allWithin(values, count, low, high))
        return true;
    bool none = true;
    for (std::size_t i = 0; i < count; ++i)
        if (statuses[i] == Status::Value && !(values[i] >= low && values[i] <= high)) {
            statuses[i] = outside;
            none = false;
        }
    return none;
}

} // namespace

std::span<const Quantity> judgedQuantities(const Limits& limits)
{
    if (!limits.bounded)
        return {};
    const auto upToWind = [&](std::span<const Quantity> quantities) {
        return limits.windBounded ? quantities : quantities.first(quantities.size() - 1);
    };
    switch (limits.judged) {
    case Judged::AirTemperature:
        return upToWind(limits.windAt10m ? kAirAndHighWind : kAir);
    case Judged::NaturalWetBulbTemperature:
        return upToWind(kWetBulb);
    case Judged::MeanOfRadiantAndAir:
    case Judged::RadiantLessAir:
        return upToWind(kRadiantAndAir);
    case Judged::WbgtOutdoor:
        return upToWind(kWbgt);
    }
    return {};
}

double judgedTemperature(Judged judged, double first, double second)
{
    switch (judged) {
    case Judged::MeanOfRadiantAndAir:
        return (first + second) / 2;
    case Judged::RadiantLessAir:
        return first - second;
    default:
        return first;
    }
}

bool judge(const Limits& limits, std::span<const double* const> columns, std::size_t count, Status* statuses)
{
    assert(columns.size() == judgedQuantities(limits).size() && count <= kBlockPoints);
    if (columns.empty())
        return true;
    const bool two = twoTemperatures(limits.judged);
    const double* temperatures = columns[0];
    BlockValues made; // NOLINT: read as far as it is written
    made[0] = 0;
    if (two && columns[0] != nullptr && columns[1] != nullptr) {
        for (std::size_t i = 0; i < count; ++i)
            made[i] = judgedTemperature(limits.judged, columns[0][i], columns[1][i]);
        temperatures = made.data();
    } else if (two) {
        temperatures = nullptr;
    }
    bool none = true;
    if (temperatures != nullptr)
        none = exclude(temperatures, count, limits.temperatureLow, limits.temperatureHigh,
                       Status::OutsideTemperature, statuses);
    if (limits.windBounded && columns.back() != nullptr)
        none =
            exclude(columns.back(), count, limits.windLow, limits.windHigh, Status::OutsideWind, statuses) &&
            none;
    return none;
}

} // namespace comfortics::engine
