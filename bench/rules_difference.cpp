// SPDX-License-Identifier: GPL-3.0-or-later
//
// How far the robust and the precise rules are apart, index by index, over tables of readings: a Markdown
// table of the largest and the mean difference, and of how many rows only one of the two has a value for.
// Limits are ignored, and the numbers are those before they are formatted.
//
// usage: rules_difference STATION.csv...
#include "batch/column_map.h"
#include "batch/row_runner.h"
#include "batch/table_reader.h"
#include "catalogue/catalogue.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

using namespace comfortics;
using catalogue::kIndexCount;
using catalogue::kLastIndex;
using classic::OutcomeKind;
using classic::Rules;

struct Difference {
    double largest = 0; // in the index' unit, as the two below
    double sum = 0;
    std::size_t both = 0;
    std::size_t robustAlone = 0;
    std::size_t preciseAlone = 0;
};

struct Station {
    std::string name;
    std::size_t rows = 0;
    std::array<Difference, kIndexCount> differences;
};

void compare(const classic::Outcome& robust, const classic::Outcome& precise, Difference& difference)
{
    const bool ofRobust = robust.kind == OutcomeKind::Value;
    const bool ofPrecise = precise.kind == OutcomeKind::Value;
    difference.robustAlone += ofRobust && !ofPrecise ? 1U : 0U;
    difference.preciseAlone += ofPrecise && !ofRobust ? 1U : 0U;
    if (!ofRobust || !ofPrecise)
        return;
    const double apart = std::abs(robust.value - precise.value);
    difference.largest = std::max(difference.largest, apart);
    difference.sum += apart;
    ++difference.both;
}

Station measure(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    batch::TableReader reader([&file](char* buffer, std::size_t size) {
        file.read(buffer, static_cast<std::streamsize>(size));
        return static_cast<std::size_t>(file.gcount());
    });
    batch::TableRow row;
    if (!reader.next(row))
        throw batch::MalformedTable("The table is empty or cannot be read.");
    const batch::ColumnMap columns = batch::ColumnMap::from(row, reader.separator());

    const classic::Limits limits;
    batch::RowRunner robust(limits, {.ignoreLimits = true, .rules = Rules::Robust});
    batch::RowRunner precise(limits, {.ignoreLimits = true, .rules = Rules::Precise});
    Station station{.name = path.stem().string(), .differences = {}};
    for (bool more = !columns.firstRowIsHeader() || reader.next(row); more; more = reader.next(row)) {
        columns.check(row);
        const auto readings = columns.readings(row);
        const batch::RowStatus status = robust.run(readings);
        if (status != precise.run(readings))
            throw batch::MalformedTable("A row is calculated by one set of rules alone.");
        if (status != batch::RowStatus::Calculated)
            continue;
        ++station.rows;
        for (int index = 1; index <= kLastIndex; ++index)
            compare(robust.calculation().outcome(index), precise.calculation().outcome(index),
                    station.differences[static_cast<std::size_t>(index - 1)]);
    }
    return station;
}

std::string shown(double difference)
{
    constexpr double kLeast = 1e-9; // what is less comes from the last digits of the arithmetic
    if (difference == 0)
        return "0";
    if (difference < kLeast)
        return "< 1e-9";
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2g", difference);
    return text.data();
}

std::string alone(const Difference& difference)
{
    std::string text;
    if (difference.robustAlone > 0)
        text.append(std::to_string(difference.robustAlone)).append(" robust");
    if (difference.preciseAlone > 0)
        text.append(text.empty() ? "" : ", ")
            .append(std::to_string(difference.preciseAlone))
            .append(" precise");
    return text.empty() ? "0" : text;
}

std::string cells(const Difference& one)
{
    std::string text = " ";
    if (one.both > 0)
        text.append(shown(one.largest)).append(" | ").append(shown(one.sum / static_cast<double>(one.both)));
    else
        text += "- | -";
    return text.append(" | ").append(alone(one)).append(" |");
}

void print(const std::vector<Station>& stations)
{
    std::string heading = "| Index | Unit |";
    std::string rule = "|---|---|";
    for (const Station& station : stations) {
        heading.append(" ").append(station.name).append(": largest | mean | one alone |");
        rule += "---|---|---|";
    }
    std::printf("%s\n%s\n", heading.c_str(), rule.c_str());
    for (const catalogue::CatalogueRow& row : catalogue::rows()) {
        std::string line = "| " + std::to_string(row.number) + " ";
        line.append(row.name).append(" | ").append(row.unit).append(" |");
        for (const Station& station : stations)
            line += cells(station.differences[static_cast<std::size_t>(row.number - 1)]);
        std::printf("%s\n", line.c_str());
    }
    for (const Station& station : stations)
        std::fprintf(stderr, "%s: %zu rows calculated\n", station.name.c_str(), station.rows);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2) {
        std::fputs("usage: rules_difference STATION.csv...\n", stderr);
        return 2;
    }
    std::vector<Station> stations;
    for (int i = 1; i < argc; ++i) {
        try {
            stations.push_back(measure(argv[i]));
        } catch (const batch::MalformedTable& error) {
            std::fprintf(stderr, "rules_difference: %s: %s\n", argv[i], error.what());
            return 5;
        }
    }
    print(stations);
    return 0;
}
