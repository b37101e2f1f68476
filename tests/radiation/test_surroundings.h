// SPDX-License-Identifier: GPL-3.0-or-later
//
// A radiation form with prepared answers to all that it asks.
#pragma once

#include "radiation/frm_radiation.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace comfortics::radiation {

struct RecordedMessages final : controls::Messages {
    std::vector<controls::MessageBox> shown;
    controls::Answer answer = controls::Answer::Ok;
    controls::Answer show(const controls::MessageBox& box) override
    {
        shown.push_back(box);
        return answer;
    }
};

struct RecordedClipboard final : controls::Clipboard {
    std::vector<std::string> calls;
    void clear() override { calls.push_back("clear"); }
    void setText(const std::string& text) override { calls.push_back(text); }
    std::string text() override { return calls.empty() ? "" : calls.back(); }
};

struct PreparedFiles final : controls::FileDialogs {
    std::optional<std::string> answer;
    std::vector<controls::SaveRequest> asked;
    std::optional<std::string> askSave(const controls::SaveRequest& request) override
    {
        asked.push_back(request);
        return answer;
    }
};

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
        if (zone != "Asia/Somewhere")
            return std::nullopt;
        const auto month = static_cast<unsigned>(date.month());
        return month >= 4 && month <= 10 ? 330 : 270;
    }
};

inline constexpr Date kToday{std::chrono::year(2024), std::chrono::March, std::chrono::day(5)};

struct Desk {
    RecordedMessages messages;
    RecordedClipboard clipboard;
    PreparedFiles files;
    PreparedConnection connection;
    PreparedMap map;
    PreparedZones timeZones;

    Frm_Radiation::Surroundings surroundings()
    {
        return {messages, clipboard, files, connection, map, timeZones};
    }
};

inline std::string line(const controls::Grid& grid, std::size_t row)
{
    std::string text;
    for (std::size_t col = 0; col < grid.cols(); ++col)
        text += (col == 0 ? "" : ",") + std::string(grid.textMatrix(row, col));
    return text;
}

} // namespace comfortics::radiation
