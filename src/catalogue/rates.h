// SPDX-License-Identifier: GPL-3.0-or-later
//
// Metabolic rates and external work in the units that people have them in, and what else is typed or picked
// for a model in another form than the one it reads: numbers with a unit, activities, garments by name.
//
//   1 met = 58.15 W for each m² of the body, as in ISO 7730. The surface of the body is that of DuBois with
//   0.202, but where it is told. The basal rate is that of PET.
#pragma once

#include "catalogue/additions.h"

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::catalogue {

/// What a metabolic rate or external work is told in.
enum class RateUnit : std::uint8_t {
    Met,
    WattsPerArea,    ///< W/m² of the body
    Watts,           ///< of the whole body
    WattsAboveBasal, ///< of the whole body, the basal rate taken off
};

struct Rate {
    double value = standards::kNaN;
    RateUnit unit = RateUnit::Met;
};

/// "met", "W/m²", "W"
std::string_view unitName(RateUnit unit);

/// The rate in another unit; NaN where it is beyond the bounds of one, or the body does not tell.
double convertedRate(const Rate& rate, RateUnit wanted, const Body& body) noexcept;

/// The id of the input that the body lacks for it; empty where it lacks none.
std::string_view lackingFor(RateUnit given, RateUnit wanted, const Body& body) noexcept;

/// The unit of an input that is a metabolic rate or external work; none for others.
std::optional<RateUnit> rateUnitOf(const InputInfo& input) noexcept;
/// Whether it is what the person does, in whatever unit: met, metabolic_w_m2, metabolic_w or activity_w.
bool isMetabolicRate(const InputInfo& input) noexcept;
/// That input of a model; none where it reads none.
std::optional<std::size_t> metabolicPlace(const Addition& model) noexcept;

/// The inputs that a body is made of.
inline constexpr std::array<std::string_view, 5> kBodyInputs{"weight", "height", "age", "sex", "area"};

/// The body by the numbers of its inputs, each NaN where there is none.
Body bodyOf(const std::function<double(std::string_view id)>& number);

/// A number with a unit, such as "2.6 met", "165 W/m2" or "150W". None for other texts, such as a number
/// alone; none below 0.
std::optional<Rate> rateOfText(std::string_view text);

/// The number that a text with a unit gives an input, in the unit of the input: "80 F" for a temperature,
/// "1010 mbar", "175 cm", "0.08 m²K/W". None for a number alone, and for rates that take a body to convert.
std::optional<double> valueInUnit(const InputInfo& input, std::string_view text);

/// Whether numbers in the unit can be given to an input, those of rates by the body.
bool knowsUnit(const InputInfo& input, std::string_view unit);
/// Those in which a column of a table can give an input, its own first: numbers in them convert without a
/// body.
std::vector<std::string_view> unitsOfColumns(const InputInfo& input);
/// These: "met or W/m²".
std::string unitsOfColumnsInWords(const InputInfo& input);
/// In which units an input can be given: "°C, F or K".
std::string unitsInWords(const InputInfo& input);

/// What a metabolic rate is picked from.
struct PickedRate {
    std::string_view id;
    std::string_view name;
    Rate rate;
    std::string_view source;
};
/// The activities of ASHRAE 55 in met, then the classes of ISO 8996 in W.
std::span<const PickedRate> activities();
/// Null where there is none.
const PickedRate* activityOfId(std::string_view id);

inline constexpr std::string_view kClothingSource = "ASHRAE 55";

/// The insulation [clo] of an ensemble; none where there is none of that id.
std::optional<double> insulationOfEnsemble(std::string_view id);

/// The insulation of garments worn together, chairs among them.
struct WornTogether {
    double clo = standards::kNaN;
    std::string fault; ///< a clause on the one that is none, or is named again; empty where all are known
};
WornTogether insulationOfGarments(std::span<const std::string_view> ids);

/// What stands in place of an input of all models that read it, in words of its own.
struct Picked {
    const InputInfo* input = nullptr; ///< null for the metabolic rate, whichever of its inputs a model has
    double value = standards::kNaN;   ///< of an input
    Rate rate{};                      ///< of the metabolic rate
    std::string origin;               ///< for instance "typing, ASHRAE 55"
    std::string fault;                ///< a clause on a text that means nothing; empty where all is well
};

/// "metabolic" (2.6 met), "activity" and "ensemble" (an id), "garments" (ids with + or commas between) and
/// "morning_temperature", that of six o'clock outdoors, from which clothing follows. None for other keys.
std::optional<Picked> picked(std::string_view key, std::string_view text);

/// In the order in which they are shown.
inline constexpr std::array<std::string_view, 5> kPickKeys{"metabolic", "activity", "ensemble", "garments",
                                                           "morning_temperature"};

} // namespace comfortics::catalogue
