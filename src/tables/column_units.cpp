// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/column_units.h"

#include "comfortics/units.h"
#include "formulas/primitives.h"
#include "tables/words.h"
#include "texts/text.h"

#include <algorithm>

namespace comfortics::tables {

namespace {

struct Spelling {
    std::string_view written; // folded, without blanks, points, brackets and carets
    std::string_view symbol;
};

constexpr Spelling kSpellings[] = {
    {"°c", "°C"},
    {"c", "°C"},
    {"degc", "°C"},
    {"oc", "°C"},
    {"gradc", "°C"},
    {"celsius", "°C"},
    {"degcelsius", "°C"},
    {"degreec", "°C"},
    {"degreesc", "°C"},
    {"degree_celsius", "°C"},
    {"degrees_celsius", "°C"},
    {"degreecelsius", "°C"},
    {"degreescelsius", "°C"},
    {"gradcelsius", "°C"},
    {"°celsius", "°C"},
    {"°f", "F"},
    {"f", "F"},
    {"degf", "F"},
    {"fahrenheit", "F"},
    {"degfahrenheit", "F"},
    {"degreesf", "F"},
    {"degreesfahrenheit", "F"},
    {"k", "K"},
    {"kelvin", "K"},
    {"°k", "K"},
    {"%", "%"},
    {"percent", "%"},
    {"percentage%", "%"},
    {"percentage", "%"},
    {"pct", "%"},
    {"prozent", "%"},
    {"%rh", "%"},
    {"%rf", "%"},
    {"%hr", "%"},
    {"%ur", "%"},
    {"rh%", "%"},
    {"1", "1"},
    {"0-1", "1"},
    {"fraction", "1"},
    {"m/s", "m/s"},
    {"metri/s", "m/s"},
    {"ms-1", "m/s"},
    {"m*s-1", "m/s"},
    {"mps", "m/s"},
    {"m/sec", "m/s"},
    {"m/sek", "m/s"},
    {"meters/second", "m/s"},
    {"meter/sec", "m/s"},
    {"km/h", "km/h"},
    {"kmh", "km/h"},
    {"kmh-1", "km/h"},
    {"kph", "km/h"},
    {"km/hr", "km/h"},
    {"kn", "kn"},
    {"kt", "kn"},
    {"kts", "kn"},
    {"knot", "kn"},
    {"knots", "kn"},
    {"knoten", "kn"},
    {"noeuds", "kn"},
    {"nudos", "kn"},
    {"mph", "mph"},
    {"mi/h", "mph"},
    {"miles/hour", "mph"},
    {"ft/s", "ft/s"},
    {"ft/min", "ft/min"},
    {"fpm", "ft/min"},
    {"m/min", "m/min"},
    {"w/m2", "W/m2"},
    {"wm-2", "W/m2"},
    {"w*m-2", "W/m2"},
    {"watt/mq", "W/m2"},
    {"watt/m2", "W/m2"},
    {"watts/m2", "W/m2"},
    {"w/sqm", "W/m2"},
    {"w/mq", "W/m2"},
    {"kw/m2", "kW/m2"},
    {"kwm-2", "kW/m2"},
    {"j/m2", "J/m2"},
    {"jm-2", "J/m2"},
    {"kj/m2", "kJ/m2"},
    {"kjm-2", "kJ/m2"},
    {"mj/m2", "MJ/m2"},
    {"mjm-2", "MJ/m2"},
    {"j/cm2", "J/cm2"},
    {"jcm-2", "J/cm2"},
    {"wh/m2", "Wh/m2"},
    {"kwh/m2", "kWh/m2"},
    {"hpa", "hPa"},
    {"mbar", "mbar"},
    {"mb", "mbar"},
    {"kpa", "kPa"},
    {"pa", "Pa"},
    {"mmhg", "mmHg"},
    {"torr", "mmHg"},
    {"01°c", "0.1 °C"},
    {"01c", "0.1 °C"},
    {"01degc", "0.1 °C"},
    {"01m/s", "0.1 m/s"},
};

struct Factor {
    std::string_view symbol;
    double factor;
};

// What a sum is of J/m².
constexpr Factor kDoses[] = {{"J/m2", 1},    {"kJ/m2", 1e3},  {"MJ/m2", 1e6},
                             {"J/cm2", 1e4}, {"Wh/m2", 3600}, {"kWh/m2", 3.6e6}};
// What a pressure is of hPa.
constexpr Factor kPressures[] = {
    {"hPa", 1}, {"mbar", 1}, {"kPa", 10}, {"Pa", 0.01}, {"mmHg", 1 / formulas::HPA_TO_MMHG}};
// What a share is of 1 %.
constexpr Factor kShares[] = {{"%", 1}, {"1", 100}};

template <std::size_t count>
std::optional<double> factorOf(const Factor (&factors)[count], std::string_view symbol)
{
    for (const Factor& factor : factors)
        if (factor.symbol == symbol)
            return factor.factor;
    return std::nullopt;
}

void replaceAll(std::string& text, std::string_view from, std::string_view to)
{
    for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

std::optional<Quantity> quantityOfKey(std::string_view key)
{
    const std::string wanted = texts::lowered(key);
    if (wanted == "dp")
        return Quantity::Td;
    for (std::size_t i = 0; i < kQuantityCount; ++i)
        if (kQuantityInfo[i].key == wanted)
            return static_cast<Quantity>(i);
    return std::nullopt;
}

std::string_view unitSymbol(std::string_view written)
{
    constexpr std::size_t kLongest = 40;
    if (written.size() > kLongest)
        return {};
    std::string plain;
    for (const char c : folded(written))
        if (std::string_view(" \t.^[](){}").find(c) == std::string_view::npos)
            plain += c;
    for (const auto& [from, to] :
         {std::pair("²", "2"), std::pair("⁻", "-"), std::pair("−", "-"), std::pair("¹", "1"),
          std::pair("º", "°"), std::pair("˚", "°"), std::pair("％", "%"), std::pair("㎡", "m2"),
          std::pair("℃", "°c"), std::pair("℉", "°f"), std::pair("·", "*"), std::pair("**", ""),
          std::pair("grdc", "gradc")})
        replaceAll(plain, from, to);
    for (const Spelling& spelling : kSpellings)
        if (spelling.written == plain)
            return spelling.symbol;
    return {};
}

bool isDose(std::string_view unit)
{
    return factorOf(kDoses, unit).has_value();
}

std::optional<UnitWay> UnitWay::find(Quantity quantity, std::string_view unit, double step)
{
    UnitWay way;
    if (constexpr std::string_view tenth = "0.1 "; unit.starts_with(tenth)) {
        unit.remove_prefix(tenth.size());
        way.m_divisor = 10;
    }
    const auto own = [&](Dimension dimension, std::string_view target) -> std::optional<UnitWay> {
        if (unit == target)
            return way;
        const Unit* const found = comfortics::findUnit(unit);
        if (found == nullptr || found->dimension != dimension)
            return std::nullopt;
        if (found->symbol != target) {
            way.m_symbol = found->symbol;
            way.m_target = target;
        }
        return way;
    };
    const auto byFactor = [&](std::optional<double> factor) -> std::optional<UnitWay> {
        if (!factor)
            return std::nullopt;
        way.m_factor = *factor;
        return way;
    };
    switch (quantity) {
    case Quantity::Ta:
    case Quantity::Tg:
    case Quantity::Td:
        return own(Dimension::Temperature, "°C");
    case Quantity::WS:
        return own(Dimension::Speed, "m/s");
    case Quantity::RH:
        return byFactor(factorOf(kShares, unit));
    case Quantity::Ea:
        return byFactor(factorOf(kPressures, unit));
    case Quantity::SR:
        if (const auto dose = factorOf(kDoses, unit))
            return step > 0 ? byFactor(*dose / step) : std::nullopt;
        return own(Dimension::Irradiance, unit == "W/m2" ? unit : "W/m²");
    }
    return std::nullopt;
}

double UnitWay::operator()(double value) const
{
    value /= m_divisor;
    return m_symbol.empty() ? value * m_factor : comfortics::convert(value, m_symbol, m_target);
}

} // namespace comfortics::tables
