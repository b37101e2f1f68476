// SPDX-License-Identifier: GPL-3.0-or-later
#include "temporary_folder.h"
#include "test_surroundings.h"

#include <algorithm>
#include <string>

namespace comfortics::radiation {
namespace {

using namespace std::chrono;

TEST_F(RadiationForm, Starts)
{
    EXPECT_EQ(form.txt_lat.text() + form.txt_Lon.text() + form.txt_Day.text(), "");
    EXPECT_EQ(form.txt_GMT.text(), "2");
    EXPECT_EQ(form.Calendar.value(), kToday);
    EXPECT_EQ(form.List_OKTA.count(), 10U);
    EXPECT_EQ(form.List_OKTA.item(9), "  9 -- Sky obstructed from view");
    EXPECT_FALSE(form.Fra_table.visible());
    EXPECT_EQ(form.Flex_Radiation.colAlignment(2), 4);
    EXPECT_EQ(form.Flex_Radiation.colAlignment(3), 9);
    EXPECT_TRUE(messages.boxes.empty());
}

TEST_F(RadiationForm, SharesTheWidthAmongTheFigures)
{
    for (const auto& [width, share] :
         {std::pair(10000, 2000), {10002, 2000}, {10003, 2001}, {10012, 2002}, {10013, 2003}}) {
        form.resizeTable(width, 4000);
        for (std::size_t col = 1; col < 5; ++col)
            EXPECT_EQ(form.Flex_Radiation.colWidth(col), share) << width;
    }
    EXPECT_EQ(form.Flex_Radiation.colWidth(0), controls::Grid::kDefaultColWidth);
}

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
    EXPECT_FALSE(form.List_OKTA.selected(7));
    form.List_OKTA.setSelected(4, true);
    EXPECT_EQ(form.okta(), 0);
}

TEST_F(RadiationForm, ShowsTheTableAndGoesBack)
{
    form.txt_lat.setText("40");
    form.txt_Lon.setText("20");
    form.Img_Calculate.click.raise();
    EXPECT_TRUE(form.Fra_table.visible());
    const auto& grid = form.Flex_Radiation;
    for (std::size_t row = 0; row < grid.rows(); ++row)
        for (std::size_t col = 0; col < 5; ++col)
            ASSERT_EQ(grid.cellAlignment(row, col), 0) << row << ' ' << col;
    form.cmd_Back.setValue(true);
    EXPECT_FALSE(form.Fra_table.visible());
    EXPECT_EQ(grid.rows(), 493U);
}

TEST_F(RadiationForm, ADayWithoutATableGivesAMessageAndKeepsTheLastOne)
{
    calculate("40", "20", "355");
    const std::string before = line(5);
    const std::size_t rows = form.Flex_Radiation.rows();
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
        EXPECT_EQ(form.Flex_Radiation.rows(), rows);
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
    EXPECT_EQ(clipboard.calls.size(), 4U);
    EXPECT_EQ(all.substr(0, 13), "Time (hh:mm)\t");
    EXPECT_EQ(std::count(all.begin(), all.end(), '\r'), 6);
    EXPECT_EQ(std::count(all.begin(), all.end(), '\t'), 28);
    EXPECT_EQ(grid.selection(), (controls::GridChange::Range{0, 0, 6, 4}));

    const tests::TemporaryFolder folder;
    files.answer = folder.file("day");
    form.cmd_Export.setValue(true);
    const std::string bytes = tests::readFile(*files.answer);
    EXPECT_EQ(bytes.substr(0, 56), "Time (hh:mm),Solar Radiation (horizontal surface)(W/m\xB2},");
    EXPECT_EQ(bytes.substr(bytes.size() - 3), ",\r\n");
    EXPECT_TRUE(messages.boxes.empty());
}

TEST_F(RadiationForm, OnlyTheRightButtonOpensTheMenu)
{
    int opened = 0;
    form.popUpMenu_copy.watch([&opened] { ++opened; });
    calculate("40", "20", "355");
    form.Flex_Radiation.mouseDown(controls::MouseButton::Left, 1, 1);
    EXPECT_EQ(opened, 0);
    form.Flex_Radiation.mouseDown(controls::MouseButton::Right, 1, 1);
    EXPECT_EQ(opened, 1);
}

TEST_F(RadiationForm, OpensTheConnectedMapAndShowsItOnceReady)
{
    ASSERT_EQ(map.openings.size(), 1U);
    EXPECT_EQ(map.openings[0].latitude, 39.525608);
    EXPECT_EQ(map.openings[0].longitude, 21.775488);
    EXPECT_EQ(map.openings[0].zoom, 16);
    EXPECT_EQ(form.tmr_WebBrowser.interval(), 100);
    for (const bool ready : {false, true}) {
        map.isReady = ready;
        form.tmr_WebBrowser.tick();
        EXPECT_EQ(form.fra_WebBrowser.visible(), ready);
        EXPECT_EQ(form.tmr_WebBrowser.enabled(), !ready);
    }
    EXPECT_EQ(form.fra_WebBrowser.caption(), "Click on the map to select latitude and longitude values");
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
    EXPECT_EQ(messages.boxes[0].title, "No internet connection");
    EXPECT_EQ(messages.boxes[0].icon, controls::Icon::Information);
    offline.tmr_WebBrowser.tick();
    EXPECT_FALSE(offline.fra_WebBrowser.visible());
    for (const bool shown : {true, false}) {
        offline.cmd_World_Map.setValue(true);
        EXPECT_EQ(offline.fra_World_Map.visible(), shown);
    }
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

} // namespace
} // namespace comfortics::radiation
