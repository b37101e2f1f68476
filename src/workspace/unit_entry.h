// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/calculation.h"
#include "controls/controls.h"
#include "workspace/preferences.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

/// The units in which temperatures and wind may be typed; one choice for all temperatures. Kept between
/// sessions.
class UnitChoice {
public:
    /// The preferences must outlive the choice.
    explicit UnitChoice(Preferences& preferences);

    controls::CheckBox Check_Units{"Other units beside the readings"};
    controls::OptionGroup Opt_Temperature{{"°C", "°F", "K"}};
    controls::OptionGroup Opt_Wind{{"m/s", "km/h", "knots", "mph"}};

private:
    Preferences& m_preferences;
};

/// A second way to type a temperature or the wind: in another unit, the wind also as measured at 10 m. What
/// counts is the box of the reading, which holds the text in °C or m/s; its own rules apply to what is
/// written there. What the box holds otherwise shows here converted.
class UnitEntry {
public:
    /// All must outlive the entry. The reading is a temperature or the wind.
    UnitEntry(classic::Calculation& calculation, UnitChoice& choice, classic::Reading reading);
    UnitEntry(const UnitEntry&) = delete;
    UnitEntry& operator=(const UnitEntry&) = delete;

    /// Whether a reading can be typed so.
    static bool serves(classic::Reading reading);

    controls::TextBox txt_Entry;
    /// Of the wind alone. Not kept between sessions: a tick forgotten would change all winds unseen.
    controls::CheckBox Check_10m{"measured at 10 m"};

    controls::OptionGroup& unit() const { return m_wind ? m_choice.Opt_Wind : m_choice.Opt_Temperature; }

private:
    double share() const;
    std::string_view boxSymbol() const;
    std::string_view entrySymbol() const;
    void toBox();
    void fromBox();

    classic::Calculation& m_calculation;
    UnitChoice& m_choice;
    controls::TextBox& m_box;
    bool m_wind;
    bool m_writing = false;
    bool m_own = false; // the box holds what was typed here
};

} // namespace comfortics::workspace
