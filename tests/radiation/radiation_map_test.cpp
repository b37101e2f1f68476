// SPDX-License-Identifier: GPL-3.0-or-later
//
// The places that maps supply, and when the connected map shows.
#include "test_surroundings.h"

#include <gtest/gtest.h>

namespace comfortics::radiation {
namespace {

TEST(ConnectedMap, OpensWithTheFormAndShowsOnceReady)
{
    Desk desk;
    Frm_Radiation form(desk.surroundings(), kToday);
    ASSERT_EQ(desk.map.openings.size(), 1U);
    EXPECT_EQ(desk.map.openings[0].latitude, 39.525608);
    EXPECT_EQ(desk.map.openings[0].longitude, 21.775488);
    EXPECT_EQ(desk.map.openings[0].zoom, 16);
    EXPECT_EQ(form.tmr_WebBrowser.interval(), 100);

    form.tmr_WebBrowser.tick();
    EXPECT_FALSE(form.fra_WebBrowser.visible());
    EXPECT_TRUE(form.tmr_WebBrowser.enabled());
    desk.map.isReady = true;
    form.tmr_WebBrowser.tick();
    EXPECT_TRUE(form.fra_WebBrowser.visible());
    EXPECT_FALSE(form.tmr_WebBrowser.enabled());
    EXPECT_EQ(form.fra_WebBrowser.caption(), "Click on the map to select latitude and longitude values");
}

TEST(ConnectedMap, StaysHiddenWithoutAConnection)
{
    Desk desk;
    desk.connection.answer = false;
    desk.map.isReady = true;
    Frm_Radiation form(desk.surroundings(), kToday);
    EXPECT_EQ(desk.map.openings.size(), 1U); // before the connection is tested
    ASSERT_EQ(desk.messages.shown.size(), 1U);
    EXPECT_EQ(desk.messages.shown[0].text,
              "You do not have an active Internet connection.\r\nPlease set Latitude "
              "and Longitude manually");
    EXPECT_EQ(desk.messages.shown[0].title, "No internet connection");
    EXPECT_EQ(desk.messages.shown[0].icon, controls::Icon::Information);
    form.tmr_WebBrowser.tick();
    EXPECT_FALSE(form.fra_WebBrowser.visible());
    form.cmd_World_Map.setValue(true); // this one needs none
    EXPECT_TRUE(form.fra_World_Map.visible());
    form.cmd_World_Map.setValue(true);
    EXPECT_FALSE(form.fra_World_Map.visible());
}

TEST(Place, IsSplitAtItsComma)
{
    const struct {
        const char* place;
        const char* lat;
        const char* lon;
    } rows[] = {{"39.525608, 21.775488", "39.525608", "21.775488"},
                {" - 33.9 ,151.2 ", "-33.9", "151.2"},
                {"12.5", "12.5", "old"},
                {"1,2,3", "1", "2"},
                {"north,", "north", ""},
                {"", "", "old"}};
    for (const auto& row : rows) {
        Desk desk;
        Frm_Radiation form(desk.surroundings(), kToday);
        form.txt_Lon.setText("old");
        desk.map.supply(row.place);
        EXPECT_EQ(form.txt_lat.text(), row.lat) << row.place;
        EXPECT_EQ(form.txt_Lon.text(), row.lon) << row.place;
    }
}

TEST(Place, ReachesNobodyAfterTheFormIsGone)
{
    Desk desk;
    {
        Frm_Radiation form(desk.surroundings(), kToday);
        form.Form_Unload();
        EXPECT_FALSE(form.tmr_WebBrowser.enabled());
    }
    desk.map.supply("1,2");
}

TEST(Offset, IsOfferedForTheDateAndTakenByTheButtonOnly)
{
    using namespace std::chrono;
    Desk desk;
    Frm_Radiation form(desk.surroundings(), kToday);
    EXPECT_FALSE(form.cmd_Take_Offset.visible());
    form.cmd_Take_Offset.setValue(true);
    EXPECT_EQ(form.txt_GMT.text(), "2");

    form.offerOffset("Asia/Somewhere", "Somewhere");
    EXPECT_EQ(form.lbl_Offset.caption(), "Somewhere: UTC+4:30 on 2024-03-05");
    EXPECT_TRUE(form.cmd_Take_Offset.visible());
    EXPECT_EQ(form.txt_GMT.text(), "2");
    form.Calendar.pick(2024y / 7 / 1);
    EXPECT_EQ(form.lbl_Offset.caption(), "Somewhere: UTC+5:30 on 2024-07-01");
    form.cmd_Take_Offset.setValue(true);
    EXPECT_EQ(form.txt_GMT.text(), "5.5");

    form.offerOffset("Mars/Olympus", "Nowhere");
    EXPECT_FALSE(form.cmd_Take_Offset.visible());
    EXPECT_EQ(form.lbl_Offset.caption(), "");
}

} // namespace
} // namespace comfortics::radiation
