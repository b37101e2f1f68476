// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"
#include "formulas/live_quantity.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace comfortics::classic {

/// The six readings, in the order of the batch sheet.
enum class Reading { TA, TG, SR, DP, RH, WS };

inline constexpr std::size_t kReadingCount = 6;

/// What a reading is called, in the window, in files and by the tool.
struct ReadingInfo {
    std::string_view key; ///< short name in files and messages
    formulas::Live live;  ///< what it becomes in a calculation; symbol and unit are that quantity's
    std::string_view heading;
    std::string_view hint;        ///< what the box accepts
    std::string_view typing = {}; ///< what to know when it is typed

    constexpr std::string_view symbol() const
    {
        return formulas::kLiveInfo[static_cast<std::size_t>(live)].symbol;
    }
    constexpr std::string_view unit() const
    {
        return formulas::kLiveInfo[static_cast<std::size_t>(live)].unit;
    }
};

inline constexpr std::array<ReadingInfo, kReadingCount> kReadingInfo{{
    {"TA", formulas::Live::Ta, "Air Temperature", "Air temperature in °C, at most 58"},
    {"TG", formulas::Live::Tg, "Globe Temperature",
     "Globe temperature in °C; give this or the solar radiation"},
    {"SR", formulas::Live::SR, "Solar Radiation",
     "Solar radiation in W/m², 0 to 1367; give this or the globe temperature"},
    {"DP", formulas::Live::Td, "Dew Point",
     "Dew point in °C, at most the air temperature; give this or the humidity"},
    {"RH", formulas::Live::RH, "Relative Humidity",
     "Relative humidity in %, at most 100; give this or the dew point"},
    {"WS", formulas::Live::WS, "Wind Speed", "Wind speed in m/s, 1.1 m above the ground, 0.1 or more",
     "for 0.5 type .5, since a 0 becomes 0.1 at once"},
}};

/// The reading boxes and the rules that keep them clean while texts are written to them.
///
/// Their texts are the only copy of what the user typed. Each write runs the box's cleaning
/// handler: a text that is no number is emptied, range rules apply, commas become points, and the
/// partner of a pair (globe temperature or solar radiation, dew point or humidity) is emptied.
class ReadingBoxes {
public:
    ReadingBoxes();
    ReadingBoxes(const ReadingBoxes&) = delete;
    ReadingBoxes& operator=(const ReadingBoxes&) = delete;

    controls::TextBox txt_TA; ///< air temperature [°C], at most 58
    controls::TextBox txt_TG; ///< globe temperature [°C]
    controls::TextBox txt_SR; ///< solar radiation [W/m²], 0 to 1367
    controls::TextBox txt_DP; ///< dew point [°C], at most the air temperature
    controls::TextBox txt_RH; ///< relative humidity [%], at most 100
    controls::TextBox txt_WS; ///< wind speed [m/s], at least 0.1

    /// Raised after any of the boxes has changed and was cleaned.
    controls::Event changed;

    controls::TextBox& box(Reading reading);
    const controls::TextBox& box(Reading reading) const;
    const std::string& text(Reading reading) const { return box(reading).text(); }

    /// Writes the six texts in order, as the batch sheet does, so that a full later box of a pair
    /// empties the earlier one.
    void write(const std::array<std::string_view, kReadingCount>& texts);

    /// Empties all boxes.
    void clear();

    /// No needed box is empty: air temperature and wind, and one of each pair.
    bool complete() const;

    /// The needed boxes hold numbers.
    bool valid() const;

    /// One clause that names the first needed reading that is missing or no number; empty if all
    /// stand.
    std::string whatIsWrong() const;

    /// Empties a globe temperature more than 10 degrees below the air temperature.
    void dropColdGlobe();

    /// Empties what is no number, such as a sign alone, in the boxes of the two pairs; the partners stand.
    void dropUnfinished();

    /// Takes away the point that a number ends with, as typed last: the rules of typing have waited for more,
    /// and judge the box now and empty its partner.
    void finishNumbers();

    /// Rounds each numeric box in place: no decimal for the solar radiation, one for the others.
    void round();

    /// Hears, in sentences for the user, what a rule has emptied or changed and why; and an empty
    /// text when another box is written, by which that is over. Without a listener, as in a batch,
    /// none are made.
    void onRemark(std::function<void(const std::string& remark)> listener)
    {
        m_listener = std::move(listener);
    }

private:
    struct Verdict {
        std::string why{};     ///< why the text did not stand; empty where it does
        std::string advice{};  ///< what could be done about it, with a leading blank
        bool replaced = false; ///< the lowest value stands in its place
    };

    void clean(Reading reading);
    void applyRules(Reading reading, Verdict& verdict);
    void remark(Reading reading, const std::string& partnerBefore, const Verdict& verdict);
    void tell(const std::string& sentence) const
    {
        if (m_listener)
            m_listener(sentence);
    }

    std::function<void(const std::string&)> m_listener;
    bool m_cleaning = false;
    // The box written last, and what was said of it when it lost its text: what is typed on there is
    // the rest of a number.
    Reading m_spokenOf = Reading::TA;
    std::string m_loss;
};

} // namespace comfortics::classic
