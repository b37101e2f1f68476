// SPDX-License-Identifier: GPL-3.0-or-later
//
// A year of weather at three stations by both sets of rules.
#include "batch/row_runner.h"
#include "core/limits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>
#include <string>

namespace comfortics::batch {
namespace {

struct Station {
    const char* name;
    double mean;     // air temperature [°C]
    double season;   // its yearly swing
    double day;      // its daily swing
    double humidity; // mean [%]
    double wind;     // mean [m/s]
};

constexpr std::array kStations{Station{"cold", -12, 22, 4, 72, 5}, Station{"temperate", 10, 11, 5, 68, 3},
                               Station{"hot", 29, 9, 8, 45, 4}};

std::string text(double value)
{
    std::array<char, 16> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.1f", value);
    return buffer.data();
}

// One hour's readings; every other hour has the globe in place of the radiation, every third the dew
// point in place of the humidity. Some hours are saturated, some stormy.
std::array<std::string, core::kReadingCount> readingsAt(const Station& station, int hour,
                                                        std::mt19937_64& random)
{
    const auto draw = [&random](double from, double to) {
        return std::uniform_real_distribution<double>(from, to)(random);
    };
    const double turn = 2 * std::numbers::pi;
    const double season = -std::cos(turn * hour / 8760);
    const double day = -std::cos(turn * (hour % 24) / 24.0);
    const double Ta = station.mean + station.season * season + station.day * day + draw(-3, 3);
    const double sun = std::max(0.0, day) * (550 + 350 * season) * draw(0.2, 1);
    const double RH =
        hour % 11 == 0 ? 100 : std::clamp(station.humidity - 15 * day + draw(-15, 15), 3.0, 100.0);
    const double Td = RH == 100 ? Ta : Ta - (100 - RH) / 5;
    const double WS = hour % 37 == 0 ? draw(15, 30) : std::max(0.1, station.wind * draw(0.1, 2));
    std::array<std::string, core::kReadingCount> readings;
    readings[0] = text(Ta);
    if (hour % 2 == 0)
        readings[1] = text(Ta + sun / (40 + 12 * WS));
    else
        readings[2] = text(sun);
    if (hour % 3 == 0)
        readings[3] = text(std::min(Td, Ta));
    else
        readings[4] = text(RH);
    readings[5] = text(WS);
    return readings;
}

TEST(Rules, NoRobustRunFailsInAYearOfWeatherAndClassicTextsStay)
{
    const core::Limits limits = core::Limits::Load_Limits(COMFORTICS_DATA_DIR "/Limits.Index");
    core::Settings classic;
    core::Settings robust;
    robust.rules = core::Rules::Robust;
    for (const bool ignoreLimits : {false, true}) {
        classic.ignoreLimits = robust.ignoreLimits = ignoreLimits;
        // With its limits ignored, index 196 ends every classic run that lacks one of its boxes.
        classic.selection.set(196, !ignoreLimits);
        RowRunner classicRows(limits, classic);
        RowRunner robustRows(limits, robust);
        for (const Station& station : kStations) {
            constexpr unsigned kSeed = 196;
            std::mt19937_64 random(kSeed);
            for (int hour = 0; hour < 8760; hour += 5) {
                const auto readings = readingsAt(station, hour, random);
                std::array<std::string_view, core::kReadingCount> views;
                std::copy(readings.begin(), readings.end(), views.begin());
                const RowStatus classicStatus = classicRows.run(views);
                ASSERT_EQ(robustRows.run(views), RowStatus::Calculated)
                    << station.name << ", hour " << hour << " of seed " << kSeed << ": "
                    << robustRows.statusText();
                for (int index = 1; index <= static_cast<int>(core::kIndexCount); ++index) {
                    const auto at = static_cast<std::size_t>(index);
                    const std::string& value = robustRows.calculation().results.lbl_results[at].caption();
                    ASSERT_EQ(value.empty(), !robustRows.calculation().whyBlank(index).empty())
                        << index << " at " << station.name << ", hour " << hour;
                    const std::string& was = classicRows.calculation().results.lbl_results[at].caption();
                    if (classicStatus == RowStatus::Calculated && index != 196) {
                        ASSERT_EQ(value, was) << index << " at " << station.name << ", hour " << hour;
                    }
                }
            }
        }
        // The survey is worth something only if it meets what the classic rules refuse.
        EXPECT_GT(classicRows.counts().failed, 500U);
        EXPECT_GT(classicRows.counts().calculated, 500U);
    }
}

} // namespace
} // namespace comfortics::batch
