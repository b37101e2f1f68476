// SPDX-License-Identifier: GPL-3.0-or-later
#include "temporary_folder.h"
#include "test_surroundings.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace comfortics::radiation {
namespace {

using namespace std::chrono;

TEST_F(RadiationForm, TakesDayAndOktaByClicksOnly)
{
    form.Calendar.pick(2024y / 12 / 31);
    form.Calendar.setValue(2023y / 1 / 9);
    EXPECT_EQ(form.txt_Day.text(), "366");
    form.Calendar.pick(2023y / 1 / 9);
    EXPECT_EQ(form.txt_Day.text(), "9");

    form.List_OKTA.choose(7);
    EXPECT_EQ(form.okta() * 10 + form.img_current_OKTA.okta(), 77);
    form.List_OKTA.choose(0);
    EXPECT_EQ(form.okta(), 0);
}

TEST_F(RadiationForm, ADayWithoutATableGivesAMessageAndKeepsTheLastOne)
{
    EXPECT_FALSE(form.Fra_table.visible());
    calculate("40", "20", "355");
    EXPECT_TRUE(form.Fra_table.visible());
    const std::string before = line(5);
    const struct {
        const char *lat, *day, *text;
    } cases[] = {
        {"70", "172",
         "the sun does not set at latitude 70 on day 172 of the year (root of a negative number (-0.42"},
        {"70", "355",
         "the sun does not rise at latitude 70 on day 355 of the year (root of a negative number (-0.42"},
        {"66.5", "355", "the day is too short for a table, which would have -27 rows."},
        {"1e999", "10", "overflow."},
    };
    for (const auto& row : cases) {
        messages.boxes.clear();
        calculate(row.lat, "20", row.day);
        ASSERT_EQ(messages.boxes.size(), 1U) << row.lat;
        EXPECT_TRUE(messages.boxes[0].text.starts_with(std::string("The calculation stopped: ") + row.text))
            << messages.boxes[0].text;
        EXPECT_FALSE(form.Fra_table.visible());
        EXPECT_EQ(line(5), before);
    }
}

TEST_F(RadiationForm, CopiesAndExportsTheTableInTheCodePage)
{
    calculate("66.33", "0", "355"); // seven rows
    const auto& grid = form.Flex_Radiation;
    form.Flex_Radiation.select(2, 0, 3, 1);
    form.Menu_copy_selection.click.raise();
    const auto cell = [&](std::size_t row, std::size_t col) {
        return std::string(grid.textMatrix(row, col));
    };
    EXPECT_EQ(clipboard.calls, (std::vector{std::string("clear"), cell(2, 0) + "\t" + cell(2, 1) + "\r" +
                                                                      cell(3, 0) + "\t" + cell(3, 1)}));
    form.Menu_copy_copy.click.raise();
    const std::string all = clipboard.text();
    EXPECT_EQ(std::count(all.begin(), all.end(), '\r'), 6);
    EXPECT_EQ(std::count(all.begin(), all.end(), '\t'), 28);
    EXPECT_EQ(grid.selection(), (controls::GridChange::Range{0, 0, 6, 4}));

    const tests::TemporaryFolder folder;
    files.answer = folder.file("day");
    form.cmd_Export.setValue(true);
    const std::string bytes = tests::readFile(*files.answer);
    EXPECT_EQ(bytes.substr(0, 56), "Time (hh:mm),Solar Radiation (horizontal surface)(W/m\xB2},");
    EXPECT_EQ(bytes.substr(bytes.size() - 3), ",\r\n");
}

TEST_F(RadiationForm, OpensTheConnectedMapAndShowsItOnceReady)
{
    ASSERT_EQ(map.openings.size(), 1U);
    EXPECT_EQ(map.openings[0].latitude, 39.525608);
    EXPECT_EQ(map.openings[0].longitude, 21.775488);
    EXPECT_EQ(map.openings[0].zoom, 16);
    for (const bool ready : {false, true}) {
        map.isReady = ready;
        form.tmr_WebBrowser.tick();
        EXPECT_EQ(form.fra_WebBrowser.visible(), ready);
        EXPECT_EQ(form.tmr_WebBrowser.enabled(), !ready);
    }
}

TEST_F(RadiationForm, WithoutAConnectionSaysSoAndShowsOnlyTheWorldMap)
{
    connection.answer = false;
    map.isReady = true;
    Frm_Radiation offline(around, kToday);
    EXPECT_EQ(map.openings.size(), 2U) << "before the connection is tested";
    ASSERT_EQ(messages.boxes.size(), 1U);
    EXPECT_EQ(messages.boxes[0].text, "You do not have an active Internet connection.\r\nPlease set Latitude "
                                      "and Longitude manually");
    offline.tmr_WebBrowser.tick();
    EXPECT_FALSE(offline.fra_WebBrowser.visible());
}

TEST_F(RadiationForm, SplitsAPlaceAtItsComma)
{
    const struct {
        const char *place, *lat, *lon;
    } rows[] = {{"39.525608, 21.775488", "39.525608", "21.775488"},
                {" - 33.9 ,151.2 ", "-33.9", "151.2"},
                {"12.5", "12.5", "old"},
                {"1,2,3", "1", "2"},
                {"north,", "north", ""},
                {"", "", "old"}};
    for (const auto& row : rows) {
        form.txt_Lon.setText("old");
        map.supply(row.place);
        EXPECT_EQ(form.txt_lat.text(), row.lat) << row.place;
        EXPECT_EQ(form.txt_Lon.text(), row.lon) << row.place;
    }
    form.Form_Unload();
    EXPECT_FALSE(form.tmr_WebBrowser.enabled());
    map.supply("8,9");
    EXPECT_EQ(form.txt_lat.text(), "") << "a place that comes after the form has gone";
}

TEST_F(RadiationForm, OffersTheOffsetOfTheDateWhichTheButtonTakes)
{
    EXPECT_FALSE(form.cmd_Take_Offset.visible());
    form.cmd_Take_Offset.setValue(true);
    EXPECT_EQ(form.txt_GMT.text(), "2");

    form.offerOffset("Asia/Somewhere", "Somewhere");
    EXPECT_EQ(form.lbl_Offset.caption(), "Somewhere: UTC+4:30 on 2024-03-05");
    EXPECT_TRUE(form.cmd_Take_Offset.visible());
    form.Calendar.pick(2024y / 7 / 1);
    EXPECT_EQ(form.lbl_Offset.caption(), "Somewhere: UTC+5:30 on 2024-07-01");
    EXPECT_EQ(form.txt_GMT.text(), "2");
    form.cmd_Take_Offset.setValue(true);
    EXPECT_EQ(form.txt_GMT.text(), "5.5");

    form.offerOffset("Mars/Olympus", "Nowhere");
    EXPECT_FALSE(form.cmd_Take_Offset.visible());
    EXPECT_EQ(form.lbl_Offset.caption(), "");
}

TEST_F(RadiationForm, TellsThePlaceThatItsBoxesHoldAndWithdrawsTheOfferOfAnother)
{
    int changes = 0;
    form.placeChange.watch([&] { ++changes; });
    const struct {
        const char *lat, *lon;
        std::optional<std::pair<double, double>> place;
    } rows[] = {{"38.5", "-23.7", {{38.5, -23.7}}},
                {"-90S", "180", {{-90, 180}}},
                {"38", "", {}},
                {"", "20", {}},
                {"90.1", "21", {}},
                {"38", "-180.1", {}},
                {"1e999", "20", {}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.lat);
        form.offerOffset("Asia/Somewhere", "Somewhere");
        form.takePlace(std::string(row.lat) + "," + row.lon);
        EXPECT_FALSE(form.cmd_Take_Offset.visible());
        const auto place = form.place();
        EXPECT_EQ(place ? std::optional(std::pair(place->latitude, place->longitude)) : std::nullopt,
                  row.place);
    }
    EXPECT_EQ(changes, 14);
}

} // namespace
} // namespace comfortics::radiation
