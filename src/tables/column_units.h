// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/reading_boxes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace comfortics::tables {

/// What a column can hold that a calculation takes: the six readings, in their order, and the vapour
/// pressure of the air, of which a dew point is made.
enum class Quantity : std::uint8_t { Ta, Tg, SR, Td, RH, WS, Ea };

inline constexpr std::size_t kQuantityCount = classic::kReadingCount + 1;

struct QuantityInfo {
    std::string_view key;  ///< in mapping files and on the command line
    std::string_view name; ///< in sentences
    std::string_view unit; ///< that it is calculated in
};

inline constexpr std::array<QuantityInfo, kQuantityCount> kQuantityInfo{{
    {"ta", "air temperature", "°C"},
    {"tg", "globe temperature", "°C"},
    {"sr", "solar radiation", "W/m2"},
    {"td", "dew point", "°C"},
    {"rh", "relative humidity", "%"},
    {"ws", "wind speed", "m/s"},
    {"ea", "vapour pressure", "hPa"},
}};

constexpr const QuantityInfo& infoOf(Quantity quantity)
{
    return kQuantityInfo[static_cast<std::size_t>(quantity)];
}

/// Of a key, whatever its case; "dp" is the dew point, too.
std::optional<Quantity> quantityOfKey(std::string_view key);

/// The symbol of a unit as it is written on a column, for instance "km/h" of "Km/hr" and "°C" of "degC";
/// empty where it is no unit of a quantity here. With it a unit is not yet one of a certain quantity.
std::string_view unitSymbol(std::string_view written);

/// Whether values come as a sum over the step of time, as J/m2.
bool isDose(std::string_view unit);

/// The way from a unit to the one that a quantity is calculated in.
class UnitWay {
public:
    /// By the symbol as `unitSymbol` gives it, or as the program's own units are called. `step` [s] divides
    /// a dose. None where the unit is not one of the quantity, or a dose has no step.
    static std::optional<UnitWay> find(Quantity quantity, std::string_view unit, double step);

    /// The values are in that unit already.
    bool same() const noexcept { return m_symbol.empty() && m_factor == 1 && m_divisor == 1; }
    double operator()(double value) const;

private:
    std::string m_symbol; // of the program's own units
    std::string m_target;
    double m_factor = 1;
    double m_divisor = 1; // of values that are written without their decimal mark
};

} // namespace comfortics::tables
