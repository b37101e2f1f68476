// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_surroundings.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace comfortics::radiation {
namespace {

class RadiationForm : public testing::Test {
protected:
    void calculate(const char* lat = "40", const char* lon = "20", const char* day = "355")
    {
        form.txt_lat.setText(lat);
        form.txt_Lon.setText(lon);
        form.txt_Day.setText(day);
        form.cmd_Calculate.setValue(true);
    }

    Desk desk;
    Frm_Radiation form{desk.surroundings(), kToday};
};

TEST_F(RadiationForm, Starts)
{
    EXPECT_EQ(form.txt_lat.text() + form.txt_Lon.text() + form.txt_Day.text(), "");
    EXPECT_EQ(form.txt_GMT.text(), "2");
    EXPECT_EQ(form.Calendar.value(), kToday);
    EXPECT_EQ(form.okta(), 0);
    EXPECT_EQ(form.List_OKTA.count(), 10U);
    EXPECT_EQ(form.List_OKTA.item(9), "  9 -- Sky obstructed from view");
    EXPECT_FALSE(form.Fra_table.visible());
    EXPECT_EQ(form.Flex_Radiation.colAlignment(2), 4);
    EXPECT_EQ(form.Flex_Radiation.colAlignment(3), 9);
    EXPECT_TRUE(desk.messages.shown.empty());
}

TEST_F(RadiationForm, SharesTheWidthAmongTheFigures)
{
    const struct {
        int width, share;
    } rows[] = {{10000, 2000}, {10002, 2000}, {10003, 2001}, {10012, 2002}, {10013, 2003}};
    for (const auto& row : rows) {
        form.resizeTable(row.width, 4000);
        for (std::size_t col = 1; col < 5; ++col)
            EXPECT_EQ(form.Flex_Radiation.colWidth(col), row.share) << row.width;
    }
    EXPECT_EQ(form.Flex_Radiation.colWidth(0), controls::Grid::kDefaultColWidth);
}

TEST_F(RadiationForm, AClickOnTheCalendarGivesTheDay)
{
    using namespace std::chrono;
    form.Calendar.pick(2024y / 12 / 31);
    EXPECT_EQ(form.txt_Day.text(), "366");
    form.Calendar.setValue(2023y / 1 / 9);
    EXPECT_EQ(form.txt_Day.text(), "366");
    form.Calendar.pick(2023y / 1 / 9);
    EXPECT_EQ(form.txt_Day.text(), "9");
}

TEST_F(RadiationForm, AClickOnTheListSetsOktaAndPicture)
{
    form.List_OKTA.choose(7);
    EXPECT_EQ(form.okta(), 7);
    EXPECT_EQ(form.img_current_OKTA.okta(), 7);
    form.List_OKTA.choose(0);
    EXPECT_EQ(form.okta(), 0);
    EXPECT_FALSE(form.List_OKTA.selected(7));
    form.List_OKTA.setSelected(4, true); // no click
    EXPECT_EQ(form.okta(), 0);
}

TEST_F(RadiationForm, ShowsTheTableAndGoesBack)
{
    form.txt_lat.setText("40");
    form.txt_Lon.setText("20");
    form.Img_Calculate.click.raise();
    EXPECT_TRUE(form.Fra_table.visible());
    const auto& grid = form.Flex_Radiation;
    EXPECT_EQ(line(grid, 0),
              "Time (hh:mm),Solar Radiation (horizontal surface)(W/m²},Solar Radiation (tilt surface)(W/m²},"
              "Solar Radiation accounting for clouds (horizontal surface)(W/m²},"
              "Solar Radiation accounting for clouds (tilt surface)(W/m²}");
    for (std::size_t row = 0; row < grid.rows(); ++row)
        for (std::size_t col = 0; col < 5; ++col)
            ASSERT_EQ(grid.cellAlignment(row, col), 0) << row << ' ' << col;
    form.cmd_Back.setValue(true);
    EXPECT_FALSE(form.Fra_table.visible());
    EXPECT_EQ(grid.rows(), 493U);
}

TEST_F(RadiationForm, ADayWithoutATableGivesAMessageAndKeepsTheLastOne)
{
    calculate();
    form.cmd_Back.setValue(true);
    const std::string before = line(form.Flex_Radiation, 5);
    const std::size_t rows = form.Flex_Radiation.rows();

    const struct {
        const char* lat;
        const char* day;
        const char* text;
    } cases[] = {
        {"70", "172",
         "The calculation stopped: the sun does not set at latitude 70 on day 172 of the year (root of a "
         "negative "
         "number (-0.42"},
        {"70", "355",
         "The calculation stopped: the sun does not rise at latitude 70 on day 355 of the year (root of a "
         "negative "
         "number (-0.42"},
        {"66.5", "355",
         "The calculation stopped: the day is too short for a table, which would have -27 rows."},
        {"1e999", "10", "The calculation stopped: overflow."},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.lat);
        desk.messages.shown.clear();
        calculate(one.lat, "20", one.day);
        ASSERT_EQ(desk.messages.shown.size(), 1U);
        EXPECT_EQ(desk.messages.shown[0].text.substr(0, std::string(one.text).size()), one.text);
        EXPECT_FALSE(form.Fra_table.visible());
        EXPECT_EQ(line(form.Flex_Radiation, 5), before);
        EXPECT_EQ(form.Flex_Radiation.rows(), rows);
    }
}

TEST_F(RadiationForm, Copies)
{
    calculate("66.33", "0"); // seven rows
    ASSERT_EQ(form.Flex_Radiation.rows(), 7U);
    form.Flex_Radiation.select(2, 0, 3, 1);
    form.Menu_copy_selection.click.raise();
    ASSERT_EQ(desk.clipboard.calls.size(), 2U);
    EXPECT_EQ(desk.clipboard.calls[0], "clear");
    const auto cell = [this](std::size_t row, std::size_t col) {
        return std::string(form.Flex_Radiation.textMatrix(row, col));
    };
    EXPECT_EQ(desk.clipboard.calls[1],
              cell(2, 0) + "\t" + cell(2, 1) + "\r" + cell(3, 0) + "\t" + cell(3, 1));

    form.Menu_copy_copy.click.raise();
    const std::string all = desk.clipboard.calls.back();
    EXPECT_EQ(all.substr(0, 13), "Time (hh:mm)\t");
    EXPECT_EQ(std::count(all.begin(), all.end(), '\r'), 6);
    EXPECT_EQ(std::count(all.begin(), all.end(), '\t'), 28);
    EXPECT_EQ(form.Flex_Radiation.rowSel(), 6U);
    EXPECT_EQ(form.Flex_Radiation.colSel(), 4U);
}

TEST_F(RadiationForm, TheRightButtonOpensTheMenu)
{
    int opened = 0;
    form.popUpMenu_copy.watch([&opened] { ++opened; });
    calculate();
    form.Flex_Radiation.mouseDown(controls::MouseButton::Left, 1, 1);
    EXPECT_EQ(opened, 0);
    form.Flex_Radiation.mouseDown(controls::MouseButton::Right, 1, 1);
    EXPECT_EQ(opened, 1);
}

TEST_F(RadiationForm, ExportsInTheCodePageWithACommaAfterEachCell)
{
    std::string folder = (std::filesystem::temp_directory_path() / "comfortics-XXXXXX").string();
    ASSERT_NE(::mkdtemp(folder.data()), nullptr);
    calculate("66.33", "0");
    desk.files.answer = folder + "/day";
    form.cmd_Export.setValue(true);
    ASSERT_EQ(desk.files.asked.size(), 1U);
    EXPECT_EQ(desk.files.asked[0].title, "Export to CSV");
    EXPECT_EQ(desk.files.asked[0].fileName, "Solar Radiation");
    std::ifstream file(*desk.files.answer, std::ios::binary);
    const std::string bytes(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(bytes.substr(0, 56), "Time (hh:mm),Solar Radiation (horizontal surface)(W/m\xB2},");
    EXPECT_EQ(bytes.substr(bytes.size() - 3), ",\r\n");
    EXPECT_TRUE(desk.messages.shown.empty());
    std::filesystem::remove_all(folder);
}

} // namespace
} // namespace comfortics::radiation
