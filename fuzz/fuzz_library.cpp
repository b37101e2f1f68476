// SPDX-License-Identifier: GPL-3.0-or-later
//
// The library on any doubles: a point among others has the bits of the point alone, a status tells of each
// value, and nothing but misuse throws.
#include "check.h"
#include "input.h"

#include <comfortics/comfortics.h>

#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace comfortics::fuzz {
namespace {

constexpr std::size_t kTargets = kIndexCount + kQuantityCount;
constexpr std::size_t kColumns = 4; // Ta, heat, humidity, WS

Target target(std::size_t place)
{
    return place < kIndexCount ? Target(indices()[place])
                               : Target(static_cast<Quantity>(place - kIndexCount));
}

/// The next double: eight raw bytes, or the number of a line.
double number(Input& input)
{
    const unsigned kind = input.byte();
    if (kind % 4 != 0)
        return (static_cast<double>(input.byte()) - 100) * (kind % 4 == 1 ? 0.5 : kind % 4 == 2 ? 8 : 0.01);
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i)
        bits = bits << 8 | input.byte();
    return std::bit_cast<double>(bits);
}

struct Results {
    std::vector<double> values;
    std::vector<Status> statuses;
};

Results run(const Readings& readings, std::size_t count, const Options& options, const Assumptions& site)
{
    Results results{std::vector<double>(kTargets * count, 7), std::vector<Status>(kTargets * count)};
    std::vector<Output> outputs;
    for (std::size_t i = 0; i < kTargets; ++i)
        outputs.push_back({target(i), &results.values[i * count], 1, &results.statuses[i * count]});
    require(calculate(readings, count, outputs, site, options) == count, "all points are done");
    return results;
}

void check(unsigned settings, const std::vector<double>& numbers, double exponent)
{
    const std::size_t count = numbers.size() / kColumns;
    if (count == 0)
        return;
    const auto readingsFrom = [&](std::size_t first) {
        const auto column = [&](std::size_t i) {
            return Column(&numbers[first * kColumns + i], static_cast<std::ptrdiff_t>(kColumns));
        };
        Readings readings;
        readings.airTemperature = column(0);
        (settings % 2 == 0 ? readings.solarRadiation : readings.globeTemperature) = column(1);
        (settings / 2 % 2 == 0 ? readings.relativeHumidity : readings.dewPoint) = column(2);
        readings.windSpeed = column(3);
        return readings;
    };
    const Options options{.limits = settings / 4 % 2 == 0, .threads = 1 + settings / 8 % 2};
    const Assumptions site{.windExponent = exponent};
    const Results together = run(readingsFrom(0), count, options, site);
    for (std::size_t point = 0; point < count; ++point) {
        const Results alone = run(readingsFrom(point), 1, options, site);
        for (std::size_t i = 0; i < kTargets; ++i) {
            const double value = together.values[i * count + point];
            const Status status = together.statuses[i * count + point];
            const std::string name = std::to_string(i);
            require(std::memcmp(&value, &alone.values[i], sizeof value) == 0 || std::isnan(value),
                    "a point among others and alone", name);
            require(status == alone.statuses[i], "its status among others and alone", name);
            require(std::isnan(value) == (status != Status::Value), "a status tells of each value", name,
                    statusText(status));
            if (point == 0)
                require(explain(target(i), readingsFrom(0), 0, site, options).empty() ==
                            (status == Status::Value),
                        "each blank, and no other, has its words", name);
        }
    }
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a byte for the settings (bit 0: globe, bit 1: dew point, bit 2: without limits, bit 3: two
/// threads), the wind's exponent, and four numbers for each point.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kMostPoints = 12;
    comfortics::fuzz::Input input(data, size);
    const unsigned settings = input.byte();
    const double exponent = comfortics::fuzz::number(input);
    std::vector<double> numbers;
    while (!input.empty() && numbers.size() < comfortics::fuzz::kColumns * kMostPoints)
        numbers.push_back(comfortics::fuzz::number(input));
    comfortics::fuzz::check(settings, numbers, exponent);
    return 0;
}
