// SPDX-License-Identifier: GPL-3.0-or-later
//
// The radiation form: any texts for place, clock and day, and places as a map supplies them.
#include "check.h"
#include "desk.h"
#include "input.h"

#include "radiation/frm_radiation.h"
#include "radiation/no_map.h"
#include "texts/number_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::fuzz {
namespace {

using radiation::Date;
using radiation::Frm_Radiation;

constexpr Date kToday{std::chrono::year(2024), std::chrono::June, std::chrono::day(21)};

struct Desk {
    KeptMessages messages;
    HeldClipboard clipboard;
    NoFiles files;
    radiation::NoMap none;
    Frm_Radiation form{{messages, clipboard, files, none, none, none}, kToday};

    /// All texts of the table; empty where there is none.
    std::vector<std::string> calculate()
    {
        messages.texts.clear();
        form.cmd_Calculate.setValue(true);
        std::vector<std::string> texts;
        if (!form.Fra_table.visible()) {
            require(messages.texts.size() == 1 &&
                        messages.texts.front().starts_with("The calculation stopped: ") &&
                        messages.texts.front().ends_with("."),
                    "no table has a sentence", messages.texts.empty() ? "" : messages.texts.front());
            return texts;
        }
        require(messages.texts.empty(), "a table has no message");
        const controls::Grid& grid = form.Flex_Radiation;
        for (std::size_t row = 0; row < grid.rows(); ++row)
            for (std::size_t col = 0; col < grid.cols(); ++col)
                texts.emplace_back(grid.textMatrix(row, col));
        return texts;
    }
};

bool isTime(std::string_view text)
{
    const std::size_t colon = text.find(':');
    return colon != std::string_view::npos && texts::isNumeric(text.substr(0, colon)) &&
           text.size() == colon + 3 && text.substr(colon + 1) <= "60";
}

void check(unsigned letter, const std::string& place, const std::string& gmt, const std::string& day)
{
    Desk desk;
    Frm_Radiation& form = desk.form;
    form.takePlace(place);
    require(form.txt_lat.text().find(' ') == std::string::npos &&
                form.txt_lat.text().find(',') == std::string::npos &&
                form.txt_Lon.text().find(',') == std::string::npos,
            "a place is two texts without blanks and commas", form.txt_lat.text(), form.txt_Lon.text());
    form.txt_GMT.setText(gmt);
    form.txt_Day.setText(day);
    const auto okta = letter % radiation::kOktaCount;
    form.List_OKTA.choose(okta);
    require(form.okta() == static_cast<int>(okta), "the chosen cloud class");

    const std::vector<std::string> texts = desk.calculate();
    const std::size_t cols = form.Flex_Radiation.cols();
    require(texts.size() <= (24 * 60 + 2) * cols, "a day has no more minutes", std::to_string(texts.size()));
    for (std::size_t i = cols; i < texts.size(); ++i)
        require(texts[i].empty() || (i % cols == 0 ? isTime(texts[i]) : texts::isNumeric(texts[i])),
                i % cols == 0 ? "a time" : "a figure", texts[i]);
    require(desk.calculate() == texts, "the same again");
    if (texts.empty())
        return;
    form.Menu_copy_copy.click.raise();
    const std::string& copied = desk.clipboard.held;
    require(static_cast<std::size_t>(std::count(copied.begin(), copied.end(), '\t')) + 1 +
                    static_cast<std::size_t>(std::count(copied.begin(), copied.end(), '\r')) ==
                texts.size(),
            "the copy has all cells");
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a letter for the clouds, and three lines: place, clock, day of the year.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    comfortics::fuzz::Input input(data, size);
    const unsigned letter = input.byte();
    const std::string place = input.line();
    const std::string gmt = input.line();
    comfortics::fuzz::check(letter, place, gmt, input.line());
    return 0;
}
