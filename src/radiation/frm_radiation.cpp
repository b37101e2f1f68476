// SPDX-License-Identifier: GPL-3.0-or-later
#include "radiation/frm_radiation.h"

#include "output/csv_export.h"
#include "texts/number_text.h"
#include "values/plain_text.h"
#include "values/run_failure.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <stdexcept>

namespace comfortics::radiation {

using controls::MouseButton;
using values::absolute;
using values::RunFailure;

namespace {

constexpr std::array<const char*, kOktaCount> kOktaTexts{"  0 -- Sky completely clear",
                                                         "  1",
                                                         "  2",
                                                         "  3",
                                                         "  4 -- Sky half cloudy",
                                                         "  5",
                                                         "  6",
                                                         "  7",
                                                         "  8 -- Sky completely cloudy",
                                                         "  9 -- Sky obstructed from view"};

constexpr std::size_t kCols = 5;
constexpr int kCentred = 4;
constexpr int kLeftTop = 0;
constexpr int kTableWidth = 12000; // until the view tells another
constexpr int kTableHeight = 6000;

// The brace in place of a parenthesis is meant.
constexpr std::array<const char*, kCols> kHeaders{
    "Time (hh:mm)", "Solar Radiation (horizontal surface)(W/m²}", "Solar Radiation (tilt surface)(W/m²}",
    "Solar Radiation accounting for clouds (horizontal surface)(W/m²}",
    "Solar Radiation accounting for clouds (tilt surface)(W/m²}"};

constexpr int kMinutesPerHour = 60;

// Writes past the end of the table are passed over.
void tryWrite(controls::Grid& grid, std::size_t row, std::size_t col, const std::string& text)
{
    try {
        grid.setTextMatrix(row, col, text);
    } catch (const std::out_of_range&) {
    }
}

// "2"; a clock ahead of Greenwich has its sign, too.
std::string signedText(double hours)
{
    return (hours > 0 ? "+" : "") + values::plainText(hours);
}

// One sentence for the user, with what the sun does on a day without a sunrise and a sunset.
std::string stopText(const Site& site, const RunFailure& failure)
{
    std::string reason = failure.why();
    try {
        const values::Number cosine = models::sunsetCosine(site);
        if (absolute(cosine) > 1)
            reason = std::string(cosine < 0 ? "the sun does not set" : "the sun does not rise") +
                     " at latitude " + values::plainText(site.lat.value()) + " on day " +
                     values::plainText(site.n.value()) + " of the year (" + reason + ")";
    } catch (const RunFailure&) {
    }
    return "The calculation stopped: " + reason + ".";
}

// "UTC+5:30"
std::string clockName(int minutes)
{
    const int size = std::abs(minutes);
    std::string text = (minutes < 0 ? "UTC-" : "UTC+") + std::to_string(size / kMinutesPerHour);
    if (const int rest = size % kMinutesPerHour)
        text += (rest < 10 ? ":0" : ":") + std::to_string(rest);
    return text;
}

std::string isoText(Date date)
{
    const auto padded = [](std::string text, std::size_t width) {
        return std::string(width - std::min(width, text.size()), '0') + text;
    };
    return padded(std::to_string(static_cast<int>(date.year())), 4) + "-" +
           padded(std::to_string(static_cast<unsigned>(date.month())), 2) + "-" +
           padded(std::to_string(static_cast<unsigned>(date.day())), 2);
}

} // namespace

void OktaPicture::setOkta(int okta)
{
    if (okta == m_okta)
        return;
    m_okta = okta;
    change.raise();
}

Frm_Radiation::Frm_Radiation(const Surroundings& surroundings, Date today)
    : Form("Solar Radiation"), m_around(surroundings)
{
    for (std::size_t i = 0; i < kOktaCount; ++i) {
        List_OKTA.addItem(kOktaTexts[i]);
        img_OKTA[i].setOkta(static_cast<int>(i));
    }
    Fra_table.setVisible(false);
    fra_WebBrowser.setVisible(false);
    fra_World_Map.setVisible(false);
    cmd_Take_Offset.setVisible(false);
    Flex_Radiation.setSize(kTableWidth, kTableHeight);

    for (controls::TextBox* const box : {&txt_lat, &txt_Lon})
        box->change.handle([this] {
            offerOffset({}, {});
            placeChange.raise();
        });
    Calendar.click.handle([this] { Calendar_Click(); });
    List_OKTA.click.handle([this] { List_OKTA_Click(); });
    cmd_Calculate.click.handle([this] { cmd_Calculate_Click(); });
    Img_Calculate.click.handle([this] { cmd_Calculate.setValue(true); });
    cmd_Back.click.handle([this] { Fra_table.setVisible(false); });
    cmd_Export.click.handle(
        [this] { output::exportRadiationTable(Flex_Radiation, m_around.files, m_around.messages); });
    Menu_copy_copy.click.handle([this] { Menu_copy_copy_Click(); });
    Menu_copy_selection.click.handle([this] { Menu_copy_selection_Click(); });
    Flex_Radiation.onMouseDown([this](MouseButton button) {
        if (button == MouseButton::Right)
            popUpMenu_copy.raise();
    });
    tmr_WebBrowser.timeout.handle([this] { tmr_WebBrowser_Timer(); });
    cmd_World_Map.click.handle([this] { fra_World_Map.setVisible(!fra_World_Map.visible()); });
    cmd_Take_Offset.click.handle([this] { cmd_Take_Offset_Click(); });
    m_around.map.onPlace([this](std::string_view place) { takePlace(place); });

    tmr_WebBrowser.setEnabled(true);
    Form_Load(today);
}

void Frm_Radiation::Form_Unload()
{
    tmr_WebBrowser.setEnabled(false);
    m_around.map.onPlace({});
}

void Frm_Radiation::Form_Load(Date today)
{
    m_around.map.navigate(kMapOpening);
    Calendar.setValue(today); // no click: the day number stays empty until the user picks a date
    if (!CheckInternetConnection()) {
        m_around.messages.show({.text = "You do not have an active Internet connection.\r\n"
                                        "Please set Latitude and Longitude manually",
                                .title = "No internet connection",
                                .buttons = controls::Buttons::Ok,
                                .icon = controls::Icon::Information});
        tmr_WebBrowser.setEnabled(false);
    }
    Flex_Radiation.setCellAlignment(kCentred);
    for (std::size_t col = 0; col <= 2; ++col)
        Flex_Radiation.setColAlignment(col, kCentred);
    resizeTable(Flex_Radiation.width(), Flex_Radiation.height());
    Fra_table.moveTo(0, 0);
}

void Frm_Radiation::resizeTable(int width, int height)
{
    Flex_Radiation.setSize(width, height);
    const auto share =
        static_cast<int>(values::roundHalfEven(values::Number(width) / static_cast<int>(kCols)).value());
    for (std::size_t col = 1; col < kCols; ++col)
        Flex_Radiation.setColWidth(col, share);
}

bool Frm_Radiation::CheckInternetConnection()
{
    return m_around.connection.connected();
}

// --- inputs

void Frm_Radiation::Calendar_Click()
{
    txt_Day.setText(std::to_string(dayOfYear(Calendar.value())));
    repeatOffer();
}

void Frm_Radiation::List_OKTA_Click()
{
    for (std::size_t i = 0; i < List_OKTA.count(); ++i) {
        if (!List_OKTA.selected(i))
            continue;
        img_current_OKTA.setOkta(img_OKTA[i].okta());
        m_okta = static_cast<int>(i);
    }
}

void Frm_Radiation::takePlace(std::string_view place)
{
    std::string text(place);
    std::erase(text, ' ');
    const std::size_t comma = text.find(',');
    txt_lat.setText(text.substr(0, comma));
    if (comma != std::string::npos)
        txt_Lon.setText(text.substr(comma + 1, text.find(',', comma + 1) - (comma + 1)));
}

std::optional<GeoPoint> Frm_Radiation::place() const
{
    const GeoPoint point{.latitude = texts::val(txt_lat.text()), .longitude = texts::val(txt_Lon.text())};
    constexpr double kPole = 90;
    constexpr double kDateLine = 180;
    const bool isOnGlobe = std::abs(point.latitude) <= kPole && std::abs(point.longitude) <= kDateLine;
    return isOnGlobe && !txt_lat.text().empty() && !txt_Lon.text().empty() ? std::optional(point)
                                                                           : std::nullopt;
}

void Frm_Radiation::offerOffset(const std::string& zone, const std::string& of)
{
    m_zone = zone;
    m_zoneOf = of;
    repeatOffer();
}

// Summer time comes and goes, so the offer follows the calendar.
void Frm_Radiation::repeatOffer()
{
    const std::optional<int> minutes =
        m_zone.empty() ? std::nullopt : m_around.timeZones.offset(m_zone, Calendar.value());
    if (minutes) {
        m_offer = values::plainText(static_cast<double>(*minutes) / kMinutesPerHour);
        lbl_Offset.setCaption(m_zoneOf + ": " + clockName(*minutes) + " on " + isoText(Calendar.value()));
    } else {
        m_offer.clear();
        lbl_Offset.setCaption("");
    }
    cmd_Take_Offset.setVisible(minutes.has_value());
}

void Frm_Radiation::cmd_Take_Offset_Click()
{
    if (!m_offer.empty())
        txt_GMT.setText(m_offer);
}

// --- calculation

void Frm_Radiation::cmd_Calculate_Click()
{
    const Site site{.lat = texts::val(txt_lat.text()),
                    .lon = texts::val(txt_Lon.text()),
                    .n = texts::val(txt_Day.text()),
                    .gmt = texts::val(txt_GMT.text()),
                    .okta = m_okta};
    try {
        calculate(site);
    } catch (const RunFailure& failure) {
        Fra_table.setVisible(false);
        m_around.messages.show({.text = stopText(site, failure)});
    }
}

// Nothing is written before all that can fail has been computed.
void Frm_Radiation::calculate(const Site& site)
{
    const DayLimits day = models::dayLimits(site);
    const double rows = models::rowCount(day);
    if (rows < 1)
        throw RunFailure("the day is too short for a table, which would have " + values::plainText(rows) +
                         " rows");
    const std::vector<MinuteRow> minutes = minuteRows(site, day);

    writeTable(static_cast<std::size_t>(rows), minutes);
    lbl_Table.setCaption(tableText(site));
    Fra_table.setVisible(true);
}

// "Near Athens, Greece: latitude 38, longitude 23.7; day 196 of the year (2026-07-15); GMT +3; okta 4"
std::string Frm_Radiation::tableText(const Site& site) const
{
    const bool isPicked = txt_Day.text() == std::to_string(dayOfYear(Calendar.value()));
    return (m_zoneOf.empty() ? "Latitude " : m_zoneOf + ": latitude ") + values::plainText(site.lat.value()) +
           ", longitude " + values::plainText(site.lon.value()) + "; day " +
           values::plainText(site.n.value()) + " of the year" +
           (isPicked ? " (" + isoText(Calendar.value()) + ")" : std::string()) + "; GMT " +
           signedText(site.gmt.value()) + "; okta " + std::to_string(site.okta);
}

// A row that no minute is written to is blank.
void Frm_Radiation::writeTable(std::size_t rows, const std::vector<MinuteRow>& minutes)
{
    const controls::Grid::Bulk bulk(Flex_Radiation);
    Flex_Radiation.clear();
    Flex_Radiation.setRows(rows);
    Flex_Radiation.setCols(kCols);
    for (const MinuteRow& minute : minutes) {
        tryWrite(Flex_Radiation, minute.row, 0, minute.time);
        for (std::size_t i = 0; i < kFigureCount; ++i)
            tryWrite(Flex_Radiation, minute.row, i + 1, minute.figures[i]);
    }
    for (std::size_t col = 0; col < kCols; ++col)
        Flex_Radiation.setTextMatrix(0, col, kHeaders[col]);
    // Overrides the centred columns.
    for (std::size_t col = 0; col < Flex_Radiation.cols(); ++col)
        for (std::size_t row = 0; row < Flex_Radiation.rows(); ++row)
            Flex_Radiation.setCellAlignment(row, col, kLeftTop);
}

// --- the table's menu

void Frm_Radiation::Menu_copy_copy_Click()
{
    m_around.clipboard.clear();
    Flex_Radiation.select(0, 0, Flex_Radiation.rows() - 1, kCols - 1);
    m_around.clipboard.setText(Flex_Radiation.clip());
}

void Frm_Radiation::Menu_copy_selection_Click()
{
    m_around.clipboard.clear();
    m_around.clipboard.setText(Flex_Radiation.clip());
}

// --- the connected map

void Frm_Radiation::tmr_WebBrowser_Timer()
{
    if (!m_around.map.ready())
        return; // the timer goes on trying
    fra_WebBrowser.setVisible(true);
    tmr_WebBrowser.setEnabled(false);
}

} // namespace comfortics::radiation
