// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/controls.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace comfortics::core {

/// The six readings, in the order of the batch sheet.
enum class Reading { TA, TG, SR, DP, RH, WS };

inline constexpr std::size_t kReadingCount = 6;

/// How a reading stands on the form.
struct ReadingInfo {
    std::string_view key; ///< short name in files and messages
    std::string_view heading;
    std::string_view unit; ///< without the superscript of the solar radiation, see `lbl_SR_unit`
    std::string_view hint; ///< what the box accepts
};

inline constexpr std::array<ReadingInfo, kReadingCount> kReadingInfo{{
    {"TA", "Air Temperature", "°C", "Air temperature in °C, at most 58"},
    {"TG", "Globe Temperature", "°C", "Globe temperature in °C; give this or the solar radiation"},
    {"SR", "Solar Radiation", "W/m",
     "Solar radiation in W/m², 0 to 1367; give this or the globe temperature"},
    {"DP", "Dew Point", "°C", "Dew point in °C, at most the air temperature; give this or the humidity"},
    {"RH", "Relative Humidity", "%", "Relative humidity in %, at most 100; give this or the dew point"},
    {"WS", "Wind Speed", "m/s", "Wind speed in m/s, 1.1 m above the ground, 0.1 or more"},
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

    /// Empties what is no number, such as a sign alone, in the boxes of the two pairs; the partners stand.
    void dropUnfinished();

    /// Rounds each numeric box in place: no decimal for the solar radiation, one for the others.
    void round();

private:
    void clean(Reading reading);
};

} // namespace comfortics::core
