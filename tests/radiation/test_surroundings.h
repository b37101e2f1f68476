// SPDX-License-Identifier: GPL-3.0-or-later
//
// A radiation form with prepared answers to all that it asks.
#pragma once

#include "prepared_answers.h"
#include "radiation/frm_radiation.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace comfortics::radiation {

struct PreparedConnection final : Connection {
    bool answer = true;
    bool connected() override { return answer; }
};

struct PreparedMap final : PlaceSource {
    std::vector<MapOpening> openings;
    bool isReady = false;
    void navigate(const MapOpening& opening) override { openings.push_back(opening); }
    bool ready() override { return isReady; }
    using PlaceSource::supply;
};

/// Knows one zone, with an hour of summer time from April to October.
struct PreparedZones final : TimeZones {
    std::optional<int> offset(const std::string& zone, Date date) override
    {
        const auto month = static_cast<unsigned>(date.month());
        return zone == "Asia/Somewhere" ? std::optional(month >= 4 && month <= 10 ? 330 : 270) : std::nullopt;
    }
};

inline constexpr Date kToday{std::chrono::year(2024), std::chrono::March, std::chrono::day(5)};

struct Desk {
    tests::RecordedMessages messages;
    tests::RecordedClipboard clipboard;
    tests::PreparedFiles files;
    PreparedConnection connection;
    PreparedMap map;
    PreparedZones timeZones;
    Frm_Radiation::Surroundings around{messages, clipboard, files, connection, map, timeZones};
    Frm_Radiation form{around, kToday};

    void calculate(const char* lat, const char* lon, const char* day, const char* gmt = "2", int okta = 0)
    {
        form.txt_lat.setText(lat);
        form.txt_Lon.setText(lon);
        form.txt_Day.setText(day);
        form.txt_GMT.setText(gmt);
        form.List_OKTA.choose(static_cast<std::size_t>(okta));
        form.cmd_Calculate.setValue(true);
    }
    std::string line(std::size_t row) const
    {
        std::string text;
        for (std::size_t col = 0; col < form.Flex_Radiation.cols(); ++col)
            text += (col == 0 ? "" : ",") + std::string(form.Flex_Radiation.textMatrix(row, col));
        return text;
    }
};

struct RadiationForm : testing::Test, Desk {};

} // namespace comfortics::radiation
