// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "radiation/frm_radiation.h"
#include "radiation/no_map.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <charconv>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::cli {

namespace {

using radiation::Date;
using radiation::Frm_Radiation;

constexpr Date kNoDate{std::chrono::year(2000), std::chrono::January, std::chrono::day(1)};

/// Keeps what the form says.
class MessageKeeper final : public controls::Messages {
public:
    std::string last;
    controls::Answer show(const controls::MessageBox& box) override
    {
        last = box.text;
        return controls::Answer::Ok;
    }
};

class NoClipboard final : public controls::Clipboard {
public:
    void clear() override {}
    void setText(const std::string&) override {}
    std::string text() override { return {}; }
};

class NoFiles final : public controls::FileDialogs {
public:
    std::optional<std::string> askSave(const controls::SaveRequest&) override { return std::nullopt; }
};

/// The number that a text of digits alone holds.
std::optional<int> digits(std::string_view text)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || text.front() == '-')
        return std::nullopt;
    return number;
}

/// YYYY-MM-DD, a day that exists.
std::optional<Date> readDate(const std::string& text)
{
    if (text.size() != 10 || text[4] != '-' || text[7] != '-')
        return std::nullopt;
    const auto year = digits(text.substr(0, 4));
    const auto month = digits(text.substr(5, 2));
    const auto day = digits(text.substr(8, 2));
    if (!year || !month || !day)
        return std::nullopt;
    const Date date{std::chrono::year(*year), std::chrono::month(static_cast<unsigned>(*month)),
                    std::chrono::day(static_cast<unsigned>(*day))};
    return date.ok() ? std::optional(date) : std::nullopt;
}

class RadiationCommand final : public Command {
public:
    CLI::App* addTo(CLI::App& tool) override
    {
        CLI::App* const command =
            tool.add_subcommand("radiation", "Solar radiation through one day, minute by minute");
        command->add_option("--lat", m_lat, "Latitude, decimal degrees, north positive")->type_name("TEXT");
        command->add_option("--lon", m_lon, "Longitude, decimal degrees, east positive")->type_name("TEXT");
        command->add_option("--gmt", m_gmt, "GMT offset of the clock in hours")
            ->type_name("TEXT")
            ->capture_default_str();
        auto* const date = command->add_option("--date", m_date, "The day, as YYYY-MM-DD")
                               ->type_name("DATE")
                               ->check([](const std::string& text) {
                                   return readDate(text)
                                              ? std::string()
                                              : "\"" + text + "\" is no date of the form YYYY-MM-DD";
                               });
        command->add_option("--day", m_day, "The day, as its number in the year, from 1")
            ->type_name("N")
            ->excludes(date);
        command->add_option("--okta", m_okta, "Cloud cover: 0 clear to 8 covered, 9 obstructed from view")
            ->type_name("N")
            ->check(CLI::Range(0, static_cast<int>(radiation::kOktaCount) - 1))
            ->capture_default_str();
        command->add_option("--format", m_format, "Output: csv or json")
            ->check(CLI::IsMember({"csv", "json"}))
            ->capture_default_str();
        command->footer(
            "The texts are read as the window reads its boxes: the number that a text begins with, or 0.\n"
            "Without a day the day is 0. Where the sun does not rise or set there is no table (status 4).\n"
            "Example: comfortics-cli radiation --lat 37.98 --lon 23.73 --gmt 2 --date 2024-06-21 --okta 2");
        return command;
    }

    int run() override
    {
        MessageKeeper messages;
        NoClipboard clipboard;
        NoFiles files;
        radiation::NoMap none;
        Frm_Radiation form({messages, clipboard, files, none, none, none}, kNoDate);
        form.txt_lat.setText(m_lat);
        form.txt_Lon.setText(m_lon);
        form.txt_GMT.setText(m_gmt);
        if (const auto date = readDate(m_date))
            form.Calendar.pick(*date);
        else
            form.txt_Day.setText(m_day);
        form.List_OKTA.choose(static_cast<std::size_t>(m_okta));
        form.cmd_Calculate.setValue(true);
        if (!form.Fra_table.visible()) {
            std::cerr << "comfortics-cli: " << messages.last << "\n";
            return kRunFailed;
        }
        print(m_format == "json" ? json(form.Flex_Radiation) : csv(form.Flex_Radiation));
        return kDone;
    }

private:
    // No text of the table needs quotes.
    static std::string csv(const controls::Grid& grid)
    {
        std::string text;
        for (std::size_t row = 0; row < grid.rows(); ++row) {
            for (std::size_t col = 0; col < grid.cols(); ++col) {
                text += col == 0 ? "" : ",";
                text += grid.textMatrix(row, col);
            }
            text += "\r\n";
        }
        return text;
    }

    static std::string json(const controls::Grid& grid)
    {
        auto root = nlohmann::ordered_json::array();
        for (std::size_t row = 1; row < grid.rows(); ++row) {
            nlohmann::ordered_json entry;
            for (std::size_t col = 0; col < grid.cols(); ++col)
                entry[std::string(grid.textMatrix(0, col))] = grid.textMatrix(row, col);
            root.push_back(std::move(entry));
        }
        return root.dump(2) + "\n";
    }

    std::string m_lat;
    std::string m_lon;
    std::string m_gmt = "2";
    std::string m_date;
    std::string m_day;
    int m_okta = 0;
    std::string m_format = "csv";
};

} // namespace

std::unique_ptr<Command> makeRadiationCommand()
{
    return std::make_unique<RadiationCommand>();
}

} // namespace comfortics::cli
