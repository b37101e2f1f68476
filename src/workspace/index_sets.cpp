// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/index_sets.h"

#include "texts/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <utility>

namespace comfortics::workspace {

using nlohmann::ordered_json;

namespace {

constexpr const char* kSetsKey = "cards/own-sets";
constexpr const char* kShownKey = "cards/set";
constexpr const char* kStarredKey = "cards/starred-set";
constexpr const char* kFirstOwn = "My indices";
constexpr std::size_t kLongestName = 60; // bytes; a card set's button has no more room

// Chosen by what the published names are asked for where such people work; an index that says nothing in the
// weather that the set is for is left out. What wants person and place besides stands behind.
std::vector<IndexSet> readySets()
{
    return {
        {.name = "Heat at work",
         .purpose = "for safety officers: work and rest in the heat",
         // The two that standards and flags are written for, then what warnings are given in, then what
         // serves where no globe hangs, then what the body makes of it.
         .ids = {"wbgt_outdoor", "wbgt_indoor", "utci", "heat_index_noaa", "humidex_masterson",
                 "environmental_stress_index_moran", "discomfort_index_tennenbaum",
                 "heart_rate_moderate_intensity_fuller", "wbgt_iso7243.wbgt_eff", "wbgt_iso7243.wbgt_ref",
                 "wbgt_iso7243.exceeds", "phs_2023.d_lim"}},
        {.name = "Cold",
         .purpose = "for work and sport in frost and wind",
         // In °C first: of the seven wind chills the one that services give, not its twin in °F. Then what to
         // wear, and the skin that freezes.
         .ids = {"wind_chill_noaa", "utci", "insulation_predicted_blazejczyk",
                 "facial_skin_temperature_cheek_adamenko", "exposed_skin_temperature_brauner",
                 "wind_chill_siple", "weather_severity_bodman", "ireq.icl_neutral"}},
        {.name = "Weather service",
         .purpose = "for forecasters: what services publish",
         .ids = {"utci", "heat_index_noaa", "humidex_masterson", "wind_chill_noaa",
                 "apparent_temperature_shade_steadman_1994", "discomfort_index_thom_eq2", "dew_point"}},
        {.name = "Comfort indoors",
         .purpose = "for rooms: votes, dissatisfied people and draught",
         // At low activity, as in an office; the votes at rest beside them.
         .ids = {"predicted_mean_vote_low_da_silva", "predicted_dissatisfied_low_da_silva",
                 "predicted_mean_vote_resting_da_silva", "predicted_dissatisfied_resting_da_silva",
                 "operative_temperature_ashrae", "draught_risk_medium_turbulence_fanger",
                 "summer_simmer_index_pepi", "pmv_iso.pmv", "pmv_iso.ppd", "two_node.set"}},
        {.name = "Teaching",
         .purpose = "for classes: a hundred years of ideas, one of each",
         // By year: sensation, cooling of a thermometer, wind chill, instrument, comfort in two readings,
         // regression, vote, model of the body.
         .ids = {"cooling_power_hill_1916", "effective_temperature_houghten", "wind_chill_siple",
                 "wbgt_outdoor", "discomfort_index_thom_eq2", "humidex_masterson", "heat_index_rothfusz",
                 "utci", "predicted_mean_vote_low_da_silva"}},
    };
}

std::string trimmed(std::string_view text)
{
    return std::string(texts::trimmed(text, " \t\r\n"));
}

bool contains(const std::vector<std::string>& ids, std::string_view id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

// None where the text is damaged anywhere.
std::optional<std::vector<IndexSet>> parsed(std::string_view json)
{
    const ordered_json root = ordered_json::parse(json, nullptr, false);
    if (!root.is_array())
        return std::nullopt;
    std::vector<IndexSet> sets;
    for (const ordered_json& one : root) {
        if (!one.is_object() || !one.contains("name") || !one["name"].is_string() || !one.contains("ids") ||
            !one["ids"].is_array())
            return std::nullopt;
        IndexSet set{.name = one["name"].get<std::string>(), .purpose = {}, .ids = {}, .own = true};
        for (const ordered_json& id : one["ids"]) {
            if (!id.is_string())
                return std::nullopt;
            if (auto text = id.get<std::string>(); !contains(set.ids, text))
                set.ids.push_back(std::move(text));
        }
        sets.push_back(std::move(set));
    }
    return sets;
}

} // namespace

IndexSets::IndexSets(Preferences& preferences) : m_preferences(preferences), m_sets(readySets())
{
    if (const auto kept = preferences.read(kSetsKey))
        for (IndexSet& set : parsed(*kept).value_or(std::vector<IndexSet>{}))
            if (whyNot(set.name).empty())
                m_sets.push_back(std::move(set));
    const auto starred = placeOf(preferences.read(kStarredKey).value_or(std::string()));
    if (starred && m_sets[*starred].own)
        m_starred = m_sets[*starred].name;
    m_shown = placeOf(preferences.read(kShownKey).value_or(std::string())).value_or(0);
}

std::optional<std::size_t> IndexSets::placeOf(std::string_view name) const
{
    const std::string wanted = texts::lowered(name);
    const auto found = std::find_if(m_sets.begin(), m_sets.end(),
                                    [&](const IndexSet& set) { return texts::lowered(set.name) == wanted; });
    if (found == m_sets.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - m_sets.begin());
}

std::vector<Item> IndexSets::shownItems() const
{
    std::vector<Item> items;
    for (const std::string& id : shown().ids)
        if (const auto item = Item::ofId(id))
            items.push_back(*item);
    return items;
}

void IndexSets::show(std::size_t place)
{
    const IndexSet& set = m_sets.at(place);
    if (place == m_shown)
        return;
    m_shown = place;
    if (set.own)
        m_starred = set.name;
    keepAndTell();
}

void IndexSets::show(std::string_view name)
{
    if (const auto place = placeOf(name))
        show(*place);
}

std::string IndexSets::whyNot(std::string_view name, std::optional<std::size_t> of) const
{
    const std::string wanted = trimmed(name);
    if (wanted.empty())
        return "A set needs a name.";
    if (wanted.size() > kLongestName)
        return "The name is too long.";
    if (const auto place = placeOf(wanted); place && place != of)
        return "There is a set \"" + m_sets[*place].name + "\" already.";
    return {};
}

bool IndexSets::create(std::string_view name, std::vector<std::string> ids)
{
    if (!whyNot(name).empty())
        return false;
    m_sets.push_back({.name = trimmed(name), .purpose = {}, .ids = std::move(ids), .own = true});
    m_shown = m_sets.size() - 1;
    m_starred = m_sets.back().name;
    keepAndTell();
    return true;
}

bool IndexSets::rename(std::size_t place, std::string_view name)
{
    if (!isOwn(place) || !whyNot(name, place).empty())
        return false;
    if (m_starred == m_sets[place].name)
        m_starred = trimmed(name);
    m_sets[place].name = trimmed(name);
    keepAndTell();
    return true;
}

bool IndexSets::remove(std::size_t place)
{
    if (!isOwn(place))
        return false;
    if (m_starred == m_sets[place].name)
        m_starred.clear();
    m_sets.erase(m_sets.begin() + static_cast<std::ptrdiff_t>(place));
    if (m_shown == place)
        m_shown = 0;
    else if (m_shown > place)
        --m_shown;
    keepAndTell();
    return true;
}

bool IndexSets::moveShown(std::string_view id, std::size_t to)
{
    std::vector<std::string>& ids = m_sets[m_shown].ids;
    const auto found = std::find(ids.begin(), ids.end(), id);
    if (!isOwn(m_shown) || found == ids.end())
        return false;
    std::string moved = std::move(*found);
    ids.erase(found);
    ids.insert(ids.begin() + static_cast<std::ptrdiff_t>(std::min(to, ids.size())), std::move(moved));
    keepAndTell();
    return true;
}

const std::string& IndexSets::starredName() const
{
    if (!m_starred.empty())
        return m_starred;
    const auto own = std::find_if(m_sets.begin(), m_sets.end(), [](const IndexSet& set) { return set.own; });
    static const std::string first = kFirstOwn;
    return own == m_sets.end() ? first : own->name;
}

bool IndexSets::isStarred(std::string_view id) const
{
    const auto place = placeOf(starredName());
    return place && contains(m_sets[*place].ids, id);
}

void IndexSets::setStarred(std::string_view id, bool starred)
{
    if (isStarred(id) == starred)
        return;
    auto place = placeOf(starredName());
    if (!place) {
        m_sets.push_back({.name = starredName(), .purpose = {}, .ids = {}, .own = true});
        place = m_sets.size() - 1;
    }
    std::vector<std::string>& ids = m_sets[*place].ids;
    if (starred)
        ids.emplace_back(id);
    else
        ids.erase(std::find(ids.begin(), ids.end(), id));
    keepAndTell();
}

std::string IndexSets::ownAsJson() const
{
    ordered_json sets = ordered_json::array();
    for (const IndexSet& set : m_sets)
        if (set.own)
            sets.push_back({{"name", set.name}, {"ids", set.ids}});
    return sets.empty() ? std::string() : sets.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

bool IndexSets::isJson(std::string_view json)
{
    return parsed(json).has_value();
}

void IndexSets::take(std::string_view json)
{
    auto sets = parsed(json);
    if (!sets)
        return;
    for (IndexSet& set : *sets) {
        const auto place = placeOf(set.name);
        if (place && m_sets[*place].own)
            m_sets[*place].ids = std::move(set.ids);
        else if (whyNot(set.name).empty())
            m_sets.push_back(std::move(set));
    }
    keepAndTell();
}

void IndexSets::keepAndTell()
{
    const auto keep = [this](const char* key, const std::string& text) {
        if (text.empty())
            m_preferences.remove(key);
        else
            m_preferences.write(key, text);
    };
    keep(kSetsKey, ownAsJson());
    keep(kShownKey, shown().name);
    keep(kStarredKey, m_starred);
    changed.raise();
}

} // namespace comfortics::workspace
