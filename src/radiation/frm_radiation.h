// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"
#include "controls/dialogs.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "radiation/calendar.h"
#include "radiation/map_view.h"
#include "radiation/place_source.h"
#include "radiation/radiation_model.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::radiation {

inline constexpr std::size_t kOktaCount = 10;

/// Shows one of the okta pictures.
class OktaPicture : public controls::Picture {
public:
    int okta() const noexcept { return m_okta; }
    void setOkta(int okta);

    controls::Event change;

private:
    int m_okta = 0;
};

/// The radiation window: from a date, a place and a cloud class to a table of the day's minutes.
/// There is no validation; texts read as their leading number. It shares no data with the main
/// window.
class Frm_Radiation : public controls::Form {
public:
    /// What the form asks of others; all of it must outlive the form.
    struct Surroundings {
        controls::Messages& messages;
        controls::Clipboard& clipboard;
        controls::FileDialogs& files;
        Connection& connection;
        PlaceSource& map;
        TimeZones& timeZones;
    };

    Frm_Radiation(const Surroundings& surroundings, Date today);
    /// The map may outlive the form.
    void Form_Unload();

    controls::Label lbl_lat{"Latitude:"};
    controls::Label lbl_Lon{"Longitude:"};
    controls::Label lbl_GMT{"GMT (time):"};
    controls::Label lbl_OKTA{"Cloud Cover (OKTA):"};
    controls::TextBox txt_lat;
    controls::TextBox txt_Lon;
    controls::TextBox txt_GMT{"2"};
    controls::TextBox txt_Day; ///< lies outside of the visible form
    MonthCalendar Calendar;
    ChoiceList List_OKTA;
    std::array<OktaPicture, kOktaCount> img_OKTA; ///< one for each row of the list
    OktaPicture img_current_OKTA;
    controls::Button cmd_Calculate{"Calculate"};
    controls::Picture Img_Calculate;

    controls::Frame Fra_table; ///< covers the form while it is visible
    controls::Label lbl_Table; ///< what the table was calculated for
    controls::Grid Flex_Radiation{2, 5};
    controls::Button cmd_Back{"Back"};
    controls::Button cmd_Export{"Export"};
    controls::MenuEntry Menu_copy{"Menu"}; ///< the popup menu that holds the two below
    controls::MenuEntry Menu_copy_copy{"Copy All"};
    controls::MenuEntry Menu_copy_selection{"Copy Selection"};
    /// Asks the view to open `Menu_copy` under the mouse.
    controls::Event popUpMenu_copy;

    // The connected map.
    controls::Frame fra_WebBrowser{"Click on the map to select latitude and longitude values"};
    controls::Timer tmr_WebBrowser{100};

    // The map that needs no connection, opened and closed by its button.
    controls::Button cmd_World_Map{"World Map"};
    controls::Frame fra_World_Map{"Click on the map to select latitude and longitude values"};

    // The clock of the picked place, offered and never taken by itself.
    controls::Label lbl_Offset;
    controls::Button cmd_Take_Offset{"Take over"};

    /// The class of the last click on the list.
    int okta() const noexcept { return m_okta; }

    /// Takes a place as a map supplies it: blanks are removed, what stands before the first comma
    /// goes to the latitude as it is, what stands between it and the next to the longitude. Without
    /// a comma the longitude keeps its text.
    void takePlace(std::string_view place);

    /// The place in the boxes, read as the calculation reads them; nothing where one is empty or lies
    /// beyond the globe.
    std::optional<GeoPoint> place() const;
    /// A text of the place has changed, by whatever means. The earlier offer of a clock is withdrawn;
    /// whoever knows of clocks makes a new one.
    controls::Event placeChange;

    /// Offers the clock of a time zone for the date of the calendar; `of` says whose zone it is. No
    /// zone, or an unknown one, withdraws the offer.
    void offerOffset(const std::string& zone, const std::string& of);

    /// Sizes the table [twips] and shares its width among the columns of the figures.
    void resizeTable(int width, int height);

private:
    void Form_Load(Date today);
    bool CheckInternetConnection();
    void Calendar_Click();
    void List_OKTA_Click();
    void cmd_Calculate_Click();
    void calculate(const Site& site);
    void writeTable(std::size_t rows, const std::vector<MinuteRow>& minutes);
    void Menu_copy_copy_Click();
    void Menu_copy_selection_Click();
    void tmr_WebBrowser_Timer();
    void cmd_Take_Offset_Click();
    void repeatOffer();
    std::string tableText(const Site& site) const;

    Surroundings m_around;
    int m_okta = 0;
    std::string m_zone;
    std::string m_zoneOf;
    std::string m_offer; // the text for the box; empty where nothing is offered
};

} // namespace comfortics::radiation
