// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/rates.h"

#include "catalogue/addition_inputs.h"
#include "formulas/primitives.h"
#include "formulas/units.h"
#include "standards/body_surface.h"
#include "standards/pet_body.h"
#include "standards/picking_tables.h"
#include "values/same_letters.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

namespace comfortics::catalogue {

using standards::kNaN;

namespace {

constexpr double kWattsPerMet = 58.15; // of ISO [W/m²]

constexpr bool isWhole(RateUnit unit)
{
    return unit == RateUnit::Watts || unit == RateUnit::WattsAboveBasal;
}

double areaOf(const Body& body)
{
    if (std::isnan(body.area))
        return standards::bodySurface(body.weight, body.height).area;
    return standards::physicalBounds(standards::Quantity::Positive).contains(body.area) ? body.area : kNaN;
}

double basalRateOf(const Body& body)
{
    if (!body.sex)
        return kNaN;
    return standards::pet_body::basalRate(
        {.age = body.age, .sex = *body.sex, .height = body.height, .weight = body.weight});
}

struct Factor {
    std::string_view dimension; ///< the unit that inputs have
    std::string_view written;   ///< without blanks
    double factor;              ///< what 1 is of that unit
};

// Beside those of formulas/units.h, which have temperatures, speeds and radiation. Where inputs have a unit
// it stands first, as it is shown.
constexpr auto kFactors = std::to_array<Factor>({
    {"hPa", "hPa", 1},
    {"hPa", "mbar", 1},
    {"hPa", "Pa", 0.01},
    {"hPa", "kPa", 10},
    {"hPa", "mmHg", 1 / formulas::HPA_TO_MMHG},
    {"m", "m", 1},
    {"m", "cm", 0.01},
    {"m", "mm", 0.001},
    {"m", "ft", 0.3048},
    {"m", "in", 0.0254},
    {"kg", "kg", 1},
    {"kg", "lb", 0.45359237},
    {"clo", "clo", 1},
    {"clo", "m²K/W", 1 / 0.155},
    {"min", "min", 1},
    {"min", "h", 60},
    {"min", "s", 1.0 / 60},
    {"h", "h", 1},
    {"h", "min", 1.0 / 60},
    {"%", "%", 1},
    {"m²", "m²", 1},
    {"°", "°", 1},
    {"years", "years", 1},
    {"K", "K", 1},
    {"W", "W", 1},
    {"W", "kW", 1000},
});

struct Spelling {
    std::string_view written; ///< without blanks
    std::string_view symbol;
};

constexpr auto kSpellings = std::to_array<Spelling>({
    {"W/m2", "W/m²"}, {"W/m^2", "W/m²"}, {"Wm-2", "W/m²"},  {"m2K/W", "m²K/W"}, {"m^2K/W", "m²K/W"},
    {"m2", "m²"},     {"mb", "mbar"},    {"C", "°C"},       {"degC", "°C"},     {"Celsius", "°C"},
    {"°F", "F"},      {"degF", "F"},     {"Kelvin", "K"},   {"kmh", "km/h"},    {"kt", "kn"},
    {"knots", "kn"},  {"watt", "W"},     {"watts", "W"},    {"mets", "met"},    {"lbs", "lb"},
    {"percent", "%"}, {"deg", "°"},      {"year", "years"},
});

std::string withoutBlanks(std::string_view text)
{
    std::string plain;
    std::ranges::copy_if(text, std::back_inserter(plain), [](char c) { return c != ' ' && c != '\t'; });
    return plain;
}

/// The symbol of a unit however it is written; other texts as they stand.
std::string symbolOf(std::string_view written)
{
    const std::string plain = withoutBlanks(written);
    const auto found = std::ranges::find_if(kSpellings, [&plain](const Spelling& spelling) {
        return values::sameLetters(spelling.written, plain);
    });
    return found == kSpellings.end() ? plain : std::string(found->symbol);
}

struct NumberAndUnit {
    double number = kNaN;
    std::string unit; ///< its symbol
};

/// None where there is no finite number in front, or no unit behind it.
std::optional<NumberAndUnit> split(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    if (text.starts_with('+'))
        text.remove_prefix(1);
    NumberAndUnit parts;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), parts.number);
    if (error != std::errc() || !std::isfinite(parts.number))
        return std::nullopt;
    parts.unit = symbolOf(text.substr(static_cast<std::size_t>(end - text.data())));
    return parts.unit.empty() ? std::nullopt : std::optional(std::move(parts));
}

std::optional<formulas::Measure> measureOf(const InputInfo& input)
{
    using enum formulas::Measure;
    for (const formulas::Measure measure : {Temperature, AirVelocity, SolarRadiation})
        if (formulas::unitOfReadings(measure) == input.unit)
            return measure;
    return std::nullopt;
}

std::optional<RateUnit> rateUnitNamed(std::string_view symbol)
{
    for (const RateUnit unit : {RateUnit::Met, RateUnit::WattsPerArea, RateUnit::Watts})
        if (values::sameLetters(unitName(unit), symbol))
            return unit;
    return std::nullopt;
}

/// A number in a unit of that symbol; none where the input cannot come in it.
std::optional<double> converted(const InputInfo& input, double number, std::string_view symbol)
{
    if (const auto wanted = rateUnitOf(input)) {
        const auto given = rateUnitNamed(symbol);
        if (given && (*given == wanted || (*given == RateUnit::Watts && isWhole(*wanted))))
            return number; // a rate in W is the one that the input means
        if (given && !isWhole(*given) && !isWhole(*wanted))
            return convertedRate({number, *given}, *wanted, {});
        return std::nullopt;
    }
    if (const auto measure = measureOf(input)) {
        if (values::sameLetters(symbol, input.unit))
            return number;
        for (const formulas::Unit& unit : formulas::kUnits)
            if (unit.measure == *measure && values::sameLetters(unit.name, symbol))
                return unit.plain(number);
        return std::nullopt;
    }
    for (const Factor& factor : kFactors)
        if (factor.dimension == input.unit && values::sameLetters(factor.written, symbol))
            return factor.factor == 1 ? number : number * factor.factor;
    return std::nullopt;
}

constexpr std::string_view kActivitySource = "ASHRAE 55";
constexpr std::string_view kClassSource = "ISO 8996, for a body of 1.8 m²";

template <typename Garments>
const standards::Garment* garmentOfId(const Garments& garments, std::string_view id)
{
    const auto found = std::ranges::find_if(
        garments, [id](const standards::Garment& garment) { return values::sameLetters(garment.id, id); });
    return found == garments.end() ? nullptr : &*found;
}

} // namespace

std::string_view unitName(RateUnit unit)
{
    switch (unit) {
    case RateUnit::Met:
        return "met";
    case RateUnit::WattsPerArea:
        return "W/m²";
    case RateUnit::Watts:
    case RateUnit::WattsAboveBasal:
        break;
    }
    return "W";
}

double convertedRate(const Rate& rate, RateUnit wanted, const Body& body) noexcept
{
    if (!standards::physicalBounds(standards::Quantity::Flux).contains(rate.value))
        return kNaN;
    if (rate.unit == wanted)
        return rate.value;
    double value = rate.value;
    if (isWhole(rate.unit)) {
        if (rate.unit == RateUnit::WattsAboveBasal)
            value += basalRateOf(body);
        if (!isWhole(wanted))
            value /= areaOf(body);
    } else {
        if (rate.unit == RateUnit::Met)
            value = kWattsPerMet * value;
        if (isWhole(wanted))
            value *= areaOf(body);
    }
    if (wanted == RateUnit::Met)
        return value / kWattsPerMet;
    return wanted == RateUnit::WattsAboveBasal ? value - basalRateOf(body) : value;
}

std::string_view lackingFor(RateUnit given, RateUnit wanted, const Body& body) noexcept
{
    const bool basal =
        given != wanted && (given == RateUnit::WattsAboveBasal || wanted == RateUnit::WattsAboveBasal);
    const bool surface = isWhole(given) != isWhole(wanted) && std::isnan(body.area);
    if ((basal || surface) && std::isnan(body.weight))
        return "weight";
    if ((basal || surface) && std::isnan(body.height))
        return "height";
    if (basal && std::isnan(body.age))
        return "age";
    return basal && !body.sex ? "sex" : "";
}

std::optional<RateUnit> rateUnitOf(const InputInfo& input) noexcept
{
    if (&input == &inputs::kMet || &input == &inputs::kWorkMet)
        return RateUnit::Met;
    if (&input == &inputs::kMetabolicWm2 || &input == &inputs::kWorkWm2)
        return RateUnit::WattsPerArea;
    if (&input == &inputs::kMetabolicW || &input == &inputs::kRestW)
        return RateUnit::Watts;
    if (&input == &inputs::kActivityW)
        return RateUnit::WattsAboveBasal;
    return std::nullopt;
}

bool isMetabolicRate(const InputInfo& input) noexcept
{
    return &input == &inputs::kMet || &input == &inputs::kMetabolicWm2 || &input == &inputs::kMetabolicW ||
           &input == &inputs::kActivityW;
}

std::optional<std::size_t> metabolicPlace(const Addition& model) noexcept
{
    const auto found = std::ranges::find_if(
        model.inputs, [](const AdditionInput& input) { return isMetabolicRate(*input.info); });
    if (found == model.inputs.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - model.inputs.begin());
}

Body bodyOf(const std::function<double(std::string_view id)>& number)
{
    Body body{.weight = number("weight"), .height = number("height"), .age = number("age"), .sex = {}};
    const double sex = number("sex");
    for (const standards::Sex one : {standards::Sex::Male, standards::Sex::Female})
        if (sex == static_cast<double>(one))
            body.sex = one;
    body.area = number("area");
    return body;
}

std::optional<Rate> rateOfText(std::string_view text)
{
    const auto parts = split(text);
    const auto unit = parts ? rateUnitNamed(parts->unit) : std::nullopt;
    if (!unit || !standards::physicalBounds(standards::Quantity::Flux).contains(parts->number))
        return std::nullopt;
    return Rate{parts->number, *unit};
}

std::optional<double> valueInUnit(const InputInfo& input, std::string_view text)
{
    const auto parts = split(text);
    if (!parts)
        return std::nullopt;
    const auto value = converted(input, parts->number, parts->unit);
    return value && std::isfinite(*value) ? value : std::nullopt;
}

bool knowsUnit(const InputInfo& input, std::string_view unit)
{
    const std::string symbol = symbolOf(unit);
    if (rateUnitOf(input))
        return rateUnitNamed(symbol).has_value();
    return converted(input, 1, symbol).has_value();
}

std::vector<std::string_view> unitsOfColumns(const InputInfo& input)
{
    if (input.unit.empty())
        return {};
    std::vector<std::string_view> names{input.unit};
    const auto add = [&](std::string_view name) {
        if (!values::sameLetters(name, input.unit) && converted(input, 1, name))
            names.push_back(name);
    };
    for (const RateUnit unit : {RateUnit::Met, RateUnit::WattsPerArea, RateUnit::Watts})
        if (rateUnitOf(input))
            add(unitName(unit));
    for (const formulas::Unit& unit : formulas::kUnits)
        if (measureOf(input) == unit.measure && !rateUnitOf(input))
            add(unit.name);
    for (const Factor& factor : kFactors)
        if (factor.dimension == input.unit && !rateUnitOf(input))
            add(factor.written);
    return names;
}

namespace {

std::string alternatives(const std::vector<std::string_view>& names)
{
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i)
        text.append(i == 0 ? "" : i + 1 == names.size() ? " or " : ", ").append(names[i]);
    return text;
}

} // namespace

std::string unitsOfColumnsInWords(const InputInfo& input)
{
    return alternatives(unitsOfColumns(input));
}

std::string unitsInWords(const InputInfo& input)
{
    return rateUnitOf(input) ? alternatives({"met", "W/m²", "W"}) : unitsOfColumnsInWords(input);
}

std::span<const PickedRate> activities()
{
    static const auto all = [] {
        std::vector<PickedRate> made;
        made.reserve(standards::kActivities.size() + standards::kWorkClassRates.size());
        for (const standards::Activity& one : standards::kActivities)
            made.push_back({one.id, one.name, {one.met, RateUnit::Met}, kActivitySource});
        constexpr std::array<std::pair<std::string_view, std::string_view>, 5> kClasses{
            {{"class_rest", "Class of ISO 8996: resting"},
             {"class_low", "Class of ISO 8996: low"},
             {"class_moderate", "Class of ISO 8996: moderate"},
             {"class_high", "Class of ISO 8996: high"},
             {"class_very_high", "Class of ISO 8996: very high"}}};
        static_assert(kClasses.size() == standards::kWorkClassRates.size());
        for (std::size_t i = 0; i < kClasses.size(); ++i)
            made.push_back({kClasses[i].first,
                            kClasses[i].second,
                            {standards::kWorkClassRates[i], RateUnit::Watts},
                            kClassSource});
        return made;
    }();
    return all;
}

const PickedRate* activityOfId(std::string_view id)
{
    const auto all = activities();
    const auto found = std::ranges::find_if(
        all, [id](const PickedRate& activity) { return values::sameLetters(activity.id, id); });
    return found == all.end() ? nullptr : &*found;
}

std::optional<double> insulationOfEnsemble(std::string_view id)
{
    const standards::Garment* const ensemble = garmentOfId(standards::kEnsembles, id);
    return ensemble == nullptr ? std::nullopt : std::optional(ensemble->clo);
}

WornTogether insulationOfGarments(std::span<const std::string_view> ids)
{
    std::vector<double> worn;
    double seat = 0;
    std::vector<const standards::Garment*> named;
    for (const std::string_view id : ids) {
        const standards::Garment* const garment = garmentOfId(standards::kGarments, id);
        const standards::Garment* const chair = garmentOfId(standards::kChairs, id);
        const standards::Garment* const one = garment != nullptr ? garment : chair;
        if (one == nullptr)
            return {kNaN, "there is no garment \"" + std::string(id) + "\""};
        if (std::ranges::find(named, one) != named.end())
            return {kNaN, "the garment \"" + std::string(id) + "\" is named twice"};
        named.push_back(one);
        if (garment != nullptr)
            worn.push_back(garment->clo);
        else if (seat > 0)
            return {kNaN, "there are two chairs"};
        else
            seat = chair->clo;
    }
    return {standards::ensembleOf(worn, seat).clo, {}};
}

namespace {

std::string inQuotes(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

Picked garmentsOf(std::string_view list)
{
    std::vector<std::string> plain;
    for (std::size_t at = 0; at <= list.size();) {
        const std::size_t end = std::min(list.find_first_of("+,", at), list.size());
        plain.push_back(withoutBlanks(list.substr(at, end - at)));
        at = end + 1;
    }
    const std::vector<std::string_view> ids(plain.begin(), plain.end());
    WornTogether worn = insulationOfGarments(ids);
    return {.input = &inputs::kClo,
            .value = worn.clo,
            .origin = std::to_string(ids.size()) + (ids.size() == 1 ? " garment" : " garments") +
                      " together, ISO 9920 (2007)",
            .fault = std::move(worn.fault)};
}

} // namespace

std::optional<Picked> picked(std::string_view key, std::string_view text)
{
    if (key == "metabolic") {
        const auto rate = rateOfText(text);
        return Picked{.rate = rate.value_or(Rate{}),
                      .origin = {},
                      .fault = rate ? std::string()
                                    : inQuotes(text) + " is no metabolic rate with its unit, as 2.6 met, "
                                                       "165 W/m2 or 300 W"};
    }
    if (key == "activity") {
        const PickedRate* const activity = activityOfId(withoutBlanks(text));
        if (activity == nullptr)
            return Picked{.origin = {}, .fault = "there is no activity " + inQuotes(text)};
        return Picked{.rate = activity->rate,
                      .origin = std::string(activity->id) + ", " + std::string(activity->source),
                      .fault = {}};
    }
    if (key == "ensemble") {
        const auto clo = insulationOfEnsemble(withoutBlanks(text));
        return Picked{.input = &inputs::kClo,
                      .value = clo.value_or(kNaN),
                      .origin = std::string(text) + ", " + std::string(kClothingSource),
                      .fault = clo ? std::string() : "there is no ensemble " + inQuotes(text)};
    }
    if (key == "garments")
        return garmentsOf(text);
    if (key == "morning_temperature") {
        const auto outdoor = inputValue(inputs::kTa, text);
        const double clo = standards::clothingByWeather(outdoor.value_or(kNaN)).clo;
        return Picked{.input = &inputs::kClo,
                      .value = clo,
                      .origin = "outdoors " + std::string(text) + " at six, Schiavon and Lee (2013)",
                      .fault = std::isnan(clo) ? inQuotes(text) + " is no temperature in °C or with its unit"
                                               : std::string()};
    }
    return std::nullopt;
}

double metabolicRateFor(const InputInfo& input, double met, const Body& body)
{
    const auto unit = rateUnitOf(input);
    return unit && isMetabolicRate(input) ? convertedRate({met, RateUnit::Met}, *unit, body) : kNaN;
}

double workFor(const InputInfo& input, double met)
{
    const auto unit = rateUnitOf(input);
    const bool isWork = &input == &inputs::kWorkMet || &input == &inputs::kWorkWm2;
    return unit && isWork ? convertedRate({met, RateUnit::Met}, *unit, {}) : kNaN;
}

} // namespace comfortics::catalogue
