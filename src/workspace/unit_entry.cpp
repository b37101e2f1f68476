// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/unit_entry.h"

#include "comfortics/units.h"
#include "formulas/measured_wind.h"
#include "texts/number_text.h"
#include "values/plain_text.h"

#include <array>
#include <cmath>

namespace comfortics::workspace {

using classic::Reading;

namespace {

constexpr const char* kShown = "units/shown";
constexpr const char* kTemperature = "units/temperature";
constexpr const char* kWind = "units/wind";
constexpr double kBoxSteps = 10'000; // decimals that the box gets, as a power of 10
constexpr double kEntrySteps = 100;
constexpr double kMastHeight = 10; // [m]

// As the library calls them, in the order of the choices.
constexpr std::array<std::string_view, 3> kTemperatures{"°C", "F", "K"};
constexpr std::array<std::string_view, 4> kWinds{"m/s", "km/h", "kn", "mph"};

std::string rounded(double value, double steps)
{
    return values::plainText(std::round(value * steps) / steps);
}

void keep(Preferences& preferences, const char* key, controls::OptionGroup& group)
{
    const auto kept = preferences.read(key);
    for (std::size_t i = 0; i < group.captions().size(); ++i)
        if (kept == group.captions()[i])
            group.select(i);
    group.click.watch(
        [&preferences, key, &group] { preferences.write(key, group.captions()[group.selected()]); });
}

} // namespace

UnitChoice::UnitChoice(Preferences& preferences) : m_preferences(preferences)
{
    Check_Units.setChecked(preferences.read(kShown) == "yes");
    Check_Units.click.watch([this] { m_preferences.write(kShown, Check_Units.checked() ? "yes" : "no"); });
    keep(preferences, kTemperature, Opt_Temperature);
    keep(preferences, kWind, Opt_Wind);
}

bool UnitEntry::serves(Reading reading)
{
    return reading == Reading::TA || reading == Reading::TG || reading == Reading::DP ||
           reading == Reading::WS;
}

UnitEntry::UnitEntry(classic::Calculation& calculation, UnitChoice& choice, Reading reading)
    : m_calculation(calculation), m_choice(choice), m_box(calculation.readings.box(reading)),
      m_wind(reading == Reading::WS)
{
    fromBox();
    txt_Entry.change.handle([this] {
        if (!m_writing)
            toBox();
    });
    // After the rules of the box: it may have turned the text into another.
    calculation.readings.changed.watch([this] {
        if (!m_writing)
            fromBox();
    });
    // What the box has refused was meant in the unit that is chosen now: 95 for °F.
    unit().click.watch(
        [this] { m_own&& m_box.text().empty() && !txt_Entry.text().empty() ? toBox() : fromBox(); });
    Check_10m.click.handle([this] { m_own ? toBox() : fromBox(); });
    calculation.assumptions.txt_Friction.change.watch([this] {
        if (m_wind && Check_10m.checked())
            m_own ? toBox() : fromBox();
    });
}

// What a wind at the height of the box is of the wind that is typed; not a number where the exponent is none.
double UnitEntry::share() const
{
    if (!m_wind || !Check_10m.checked())
        return 1;
    const auto exponent = texts::numericValue(m_calculation.assumptions.txt_Friction.text());
    return exponent ? formulas::windShareOf(kMastHeight, *exponent) : std::nan("");
}

std::string_view UnitEntry::boxSymbol() const
{
    return m_wind ? kWinds.front() : kTemperatures.front();
}

std::string_view UnitEntry::entrySymbol() const
{
    return m_wind ? kWinds[unit().selected()] : kTemperatures[unit().selected()];
}

void UnitEntry::toBox()
{
    m_writing = true;
    const auto number = texts::numericValue(txt_Entry.text());
    const double value = number ? convert(*number, entrySymbol(), boxSymbol()) * share() : std::nan("");
    m_box.setText(std::isfinite(value) ? rounded(value, kBoxSteps) : std::string());
    m_own = true;
    m_writing = false;
}

void UnitEntry::fromBox()
{
    m_writing = true;
    m_own = false;
    const auto number = texts::numericValue(m_box.text());
    const double value = number ? convert(*number / share(), boxSymbol(), entrySymbol()) : std::nan("");
    txt_Entry.setText(std::isfinite(value) ? rounded(value, kEntrySteps) : std::string());
    m_writing = false;
}

} // namespace comfortics::workspace
