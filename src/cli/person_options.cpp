// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/person_options.h"

#include "cli/model_lists.h"
#include "standards/adaptive_en.h"
#include "standards/picking_tables.h"
#include "standards/wbgt_iso7243.h"
#include "texts/number_text.h"
#include "values/plain_text.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace comfortics::cli {

using catalogue::InputInfo;
using catalogue::kPickKeys;
using catalogue::Picked;
using catalogue::RateUnit;
using values::plainText;

namespace {

constexpr std::array<const char*, kPickKeys.size()> kHelp{
    "Metabolic rate with its unit: 2.6 met, 165 W/m2 or 300 W (of the whole body), for any model that reads "
    "one",
    "Metabolic rate of an activity (model --activities lists them)",
    "Clothing of an ensemble (model --ensembles lists them)",
    "Clothing of garments worn together, their names with commas; model --garments lists them",
    "Clothing that people choose by the outdoor temperature at six in the morning, in °C or with its unit"};

constexpr std::string_view kRunning = "t_outdoor_running";
constexpr std::string_view kNobody = "the body is one that nobody has";
constexpr std::string_view kBelowBasal = "below the basal rate";

std::string optionOf(std::string_view key)
{
    std::string name = "--" + std::string(key);
    std::ranges::replace(name, '_', '-');
    return name;
}

/// A table whose third column has numbers; NaN for none.
class Listing {
public:
    explicit Listing(std::vector<std::string> headers) : m_lines{std::move(headers)} {}

    void add(std::string_view id, std::string_view name, double number, std::string_view unit,
             std::string_view note = {})
    {
        m_numbers.push_back(number);
        m_lines.push_back({std::string(id), std::string(name),
                           std::isnan(number) ? std::string() : plainText(number), std::string(unit)});
        if (m_lines.front().size() > m_lines.back().size())
            m_lines.back().emplace_back(note);
    }

    std::string text(const std::string& format) const
    {
        if (format != "json")
            return formattedTable(m_lines, format);
        auto root = nlohmann::ordered_json::array();
        for (std::size_t row = 1; row < m_lines.size(); ++row) {
            nlohmann::ordered_json entry;
            for (std::size_t i = 0; i < m_lines[row].size(); ++i) {
                std::string key = m_lines[0][i];
                std::ranges::transform(key, key.begin(), [](unsigned char c) { return std::tolower(c); });
                if (i != kNumber)
                    entry[key] = m_lines[row][i];
                else if (!std::isnan(m_numbers[row - 1]))
                    entry[key] = m_numbers[row - 1];
                else
                    entry[key] = nullptr;
            }
            root.push_back(std::move(entry));
        }
        return root.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
    }

private:
    static constexpr std::size_t kNumber = 2;

    std::vector<std::vector<std::string>> m_lines;
    std::vector<double> m_numbers; // behind the headers
};

template <typename Garments>
void addGarments(Listing& listing, const Garments& garments)
{
    for (const standards::Garment& one : garments)
        listing.add(one.id, one.name, one.clo, "clo");
}

} // namespace

void PersonOptions::addTablesTo(CLI::App& command)
{
    const std::string tables = "Tables";
    command.add_flag("--activities", m_activities, "List activities with their metabolic rates")
        ->group(tables);
    command.add_flag("--ensembles", m_ensembles, "List ensembles of clothes")->group(tables);
    command.add_flag("--work-clothes", m_workClothes, "List work clothing with what it adds to the WBGT")
        ->group(tables);
    m_garments->expected(0, 1);
}

void PersonOptions::addPicksTo(CLI::App& command)
{
    const std::string group = "Person, picked or in another unit";
    for (std::size_t i = 0; i < kPickKeys.size(); ++i) {
        CLI::Option* const option =
            command.add_option(optionOf(kPickKeys[i]), m_picks[i], kHelp[i])->type_name("TEXT")->group(group);
        if (kPickKeys[i] == "garments")
            m_garments = option;
    }
    command
        .add_option("--days", m_days,
                    "Running mean outdoor temperature of the daily means of seven days, yesterday's first, "
                    "with commas")
        ->type_name("LIST")
        ->group(group);
    command
        .add_option("--alpha", m_alpha, "Its weight of a day by the next: 0.6 to 0.9, or fixed (EN 16798-1)")
        ->type_name("TEXT")
        ->capture_default_str()
        ->group(group);
}

bool PersonOptions::asksForTables() const
{
    const std::string& garments =
        m_picks[static_cast<std::size_t>(std::ranges::find(kPickKeys, "garments") - kPickKeys.begin())];
    return m_activities || m_ensembles || m_workClothes || (m_garments->count() > 0 && garments.empty());
}

std::string PersonOptions::tables(const std::string& format) const
{
    if (m_activities) {
        Listing listing({"Id", "Activity", "Rate", "Unit", "Source"});
        for (const catalogue::PickedRate& one : catalogue::activities())
            listing.add(one.id, one.name, one.rate.value, catalogue::unitName(one.rate.unit), one.source);
        return listing.text(format);
    }
    if (m_workClothes) {
        Listing listing({"Id", "Clothing", "Adds", "Unit", "Source"});
        for (const catalogue::Choice& choice : catalogue::additionInputOfId("work_clothing")->choices)
            listing.add(choice.word, choice.text,
                        standards::clothingAdjustment(static_cast<standards::WorkClothing>(choice.value)),
                        "K", "ISO 7243 (2017)");
        return listing.text(format);
    }
    Listing listing({"Id", "Clothing", "Insulation", "Unit"});
    if (m_ensembles) {
        addGarments(listing, standards::kEnsembles);
    } else {
        addGarments(listing, standards::kGarments);
        addGarments(listing, standards::kChairs);
    }
    return listing.text(format);
}

bool PersonOptions::any() const
{
    return !m_days.empty() ||
           std::ranges::any_of(m_picks, [](const std::string& text) { return !text.empty(); });
}

std::vector<std::pair<std::string, Picked>> PersonOptions::picked() const
{
    std::vector<std::pair<std::string, Picked>> all;
    for (std::size_t i = 0; i < kPickKeys.size(); ++i) {
        if (m_picks[i].empty())
            continue;
        Picked one = *catalogue::picked(kPickKeys[i], m_picks[i]);
        if (!one.fault.empty())
            throw std::invalid_argument(optionOf(kPickKeys[i]) + ": " + one.fault);
        const auto same =
            std::ranges::find_if(all, [&one](const auto& other) { return other.second.input == one.input; });
        if (same != all.end())
            throw std::invalid_argument(same->first + " and " + optionOf(kPickKeys[i]) +
                                        " are both given, one stands for the other");
        if (one.origin.empty())
            one.origin = m_picks[i];
        all.emplace_back(optionOf(kPickKeys[i]), std::move(one));
    }
    return all;
}

std::vector<PersonOptions::Told> PersonOptions::toldTo(const catalogue::Addition& model,
                                                       const NumberOf& number) const
{
    std::vector<Told> told;
    for (auto& [option, one] : picked()) {
        if (one.input != nullptr) {
            if (model.inputPlace(one.input->id))
                told.push_back({option, one.input, one.value, one.origin});
            continue;
        }
        const auto place = catalogue::metabolicPlace(model);
        if (!place)
            continue;
        const InputInfo& input = *model.inputs[*place].info;
        const RateUnit unit = *catalogue::rateUnitOf(input);
        const catalogue::Body body = catalogue::bodyOf(number);
        if (const std::string_view lacking = catalogue::lackingFor(one.rate.unit, unit, body);
            !lacking.empty())
            throw std::invalid_argument(option + ": " + std::string(model.id) + " reads " +
                                        std::string(input.id) + " in " + std::string(input.unit) +
                                        ", for which it takes the " + std::string(lacking) +
                                        " of the body, too");
        const double value = catalogue::convertedRate(one.rate, unit, body);
        if (std::isnan(value) || value < 0)
            throw std::invalid_argument(option + ": " + std::string(value < 0 ? kBelowBasal : kNobody));
        told.push_back({option, &input, value, one.origin});
    }
    if (auto mean = runningMean(); mean && model.inputPlace(mean->input->id))
        told.push_back(std::move(*mean));
    return told;
}

std::vector<std::string> PersonOptions::unreadBy(const catalogue::Addition& model) const
{
    std::vector<std::string> options;
    for (const auto& [option, one] : picked())
        if (one.input != nullptr ? !model.inputPlace(one.input->id) : !catalogue::metabolicPlace(model))
            options.push_back(option);
    if (!m_days.empty() && !model.inputPlace(kRunning))
        options.emplace_back("--days");
    return options;
}

bool PersonOptions::convertsBy(const catalogue::Addition& model, std::string_view id) const
{
    const auto place = catalogue::metabolicPlace(model);
    if (!place || std::ranges::find(catalogue::kBodyInputs, id) == catalogue::kBodyInputs.end())
        return false;
    const RateUnit unit = *catalogue::rateUnitOf(*model.inputs[*place].info);
    return std::ranges::any_of(picked(), [unit](const auto& one) {
        return one.second.input == nullptr && !catalogue::lackingFor(one.second.rate.unit, unit, {}).empty();
    });
}

std::optional<PersonOptions::Told> PersonOptions::runningMean() const
{
    if (m_days.empty())
        return std::nullopt;
    const InputInfo& outdoor = *catalogue::additionInputOfId(kRunning);
    std::vector<double> days;
    for (std::size_t at = 0; at <= m_days.size();) {
        const std::size_t end = std::min(m_days.find(',', at), m_days.size());
        const std::string day = m_days.substr(at, end - at);
        const auto value = catalogue::inputValue(outdoor, day);
        if (!value || !outdoor.bounds.contains(*value))
            throw std::invalid_argument("--days: \"" + day + "\" is no outdoor temperature in °C");
        days.push_back(*value);
        at = end + 1;
    }
    if (days.size() != standards::kRunningDays)
        throw std::invalid_argument("--days has the daily means of 7 days, yesterday's first, not of " +
                                    std::to_string(days.size()));
    const std::span<const double, standards::kRunningDays> seven(days.data(), standards::kRunningDays);
    if (m_alpha == "fixed")
        return Told{"--days", &outdoor, standards::runningMeanFixed(seven).t,
                    "seven days with the fixed weights of EN 16798-1"};
    const standards::Interval range = standards::adaptive_en_range::kAlpha.range;
    const auto alpha = texts::numericValue(m_alpha);
    if (!alpha || !range.contains(*alpha))
        throw std::invalid_argument("--alpha: \"" + m_alpha + "\" is neither a weight, " +
                                    catalogue::rangeInWords(range, {}) + ", nor fixed");
    return Told{"--days", &outdoor, standards::runningMean(seven, *alpha).t, "seven days, alpha " + m_alpha};
}

std::string PersonOptions::figures(const catalogue::Body& body, const std::string& format) const
{
    Listing listing({"Quantity", "Id", "Value", "Unit", "Note"});
    for (const auto& [option, one] : picked()) {
        if (one.input != nullptr) {
            listing.add(one.input->name, one.input->id, one.value, one.input->unit, one.origin);
            continue;
        }
        for (const std::string_view id : {"met", "metabolic_w_m2", "metabolic_w", "activity_w"}) {
            const InputInfo& input = *catalogue::additionInputOfId(id);
            const RateUnit unit = *catalogue::rateUnitOf(input);
            const double value = catalogue::convertedRate(one.rate, unit, body);
            const std::string_view lacking = catalogue::lackingFor(one.rate.unit, unit, body);
            std::string note = lacking.empty() ? one.origin : "takes " + optionOf(lacking);
            if (lacking.empty() && std::isnan(value))
                note = kNobody;
            else if (value < 0)
                note = kBelowBasal;
            listing.add(input.name, id, value, input.unit, note);
        }
    }
    if (const auto mean = runningMean())
        listing.add(mean->input->name, mean->input->id, mean->value, mean->input->unit, mean->origin);
    return listing.text(format);
}

} // namespace comfortics::cli
