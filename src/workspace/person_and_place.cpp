// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/person_and_place.h"

#include "standards/picking_tables.h"
#include "texts/number_text.h"
#include "texts/text.h"
#include "values/plain_text.h"
#include "workspace/inputs_json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

namespace comfortics::workspace {

using catalogue::Addition;
using catalogue::AdditionInput;
using catalogue::InputGroup;
using catalogue::InputInfo;
using catalogue::Need;
using nlohmann::ordered_json;

namespace {

constexpr int kVersion = 1;

struct Alias {
    std::string_view input;
    std::string_view field;
};

// What models read in several units is typed in one.
constexpr std::array<Alias, 5> kAliases{{{"metabolic_w_m2", "met"},
                                         {"metabolic_w", "met"},
                                         {"activity_w", "met"},
                                         {"work_w_m2", "work_met"},
                                         {"hour_utc", "hour"}}};

// What most models ask for stands first.
constexpr std::array<std::string_view, 10> kFirst{"met",          "clo",    "posture", "work_met", "duration",
                                                  "acclimatised", "weight", "height",  "age",      "sex"};

std::size_t rankOf(const Field& field)
{
    return static_cast<std::size_t>(std::ranges::find(kFirst, field.info->id) - kFirst.begin());
}

FieldSection sectionOf(const InputInfo& info)
{
    if (info.id == "duration")
        return FieldSection::Person; // how long he does it
    switch (info.group) {
    case InputGroup::Weather:
        return FieldSection::Readings;
    case InputGroup::Person:
        return FieldSection::Person;
    case InputGroup::Place:
        return FieldSection::Place;
    case InputGroup::Own:
        break;
    }
    return FieldSection::Models;
}

bool isTime(const InputInfo& info)
{
    return info.id == "hour" || info.id == "utc_offset";
}

/// "14:30" in hours.
std::optional<double> hoursOf(std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos)
        return std::nullopt;
    const std::string_view minutes = text.substr(colon + 1);
    const auto whole = texts::numericValue(text.substr(0, colon));
    const auto rest = texts::numericValue(minutes);
    constexpr double kMinutes = 60;
    if (!whole || !rest || *whole != std::floor(*whole) || *rest < 0 || *rest >= kMinutes ||
        minutes.size() != 2)
        return std::nullopt;
    return text.starts_with('-') ? *whole - *rest / kMinutes : *whole + *rest / kMinutes;
}

std::string wordsOf(const InputInfo& info)
{
    std::string words;
    for (const catalogue::Choice& choice : info.choices)
        words += (words.empty() ? "" : ", ") + std::string(choice.word);
    return words;
}

/// "at first" and "then" as a list: "pmv_iso, pet".
void addName(std::string& list, std::string_view name)
{
    list += (list.empty() ? "" : ", ") + std::string(name);
}

ordered_json parsed(std::string_view json)
{
    return ordered_json::parse(json, nullptr, false);
}

} // namespace

std::string_view fieldIdOf(const InputInfo& input)
{
    if (input.live)
        return {};
    const auto alias = std::ranges::find(kAliases, input.id, &Alias::input);
    return alias == kAliases.end() ? input.id : alias->field;
}

std::span<const Field> fields()
{
    static const auto all = [] {
        std::vector<Field> made;
        for (const InputInfo* const info : catalogue::additionInputs())
            if (fieldIdOf(*info) == info->id)
                made.push_back({info, sectionOf(*info)});
        std::ranges::stable_sort(made, [](const Field& one, const Field& other) {
            return std::pair(one.section, rankOf(one)) < std::pair(other.section, rankOf(other));
        });
        return made;
    }();
    return all;
}

FieldReading readField(const InputInfo& info, std::string_view text)
{
    const std::string_view typed = texts::trimmed(text);
    if (typed.empty())
        return {};
    const std::string name = std::string(info.name) + ": ";
    if (!info.choices.empty()) {
        if (const auto value = catalogue::choiceOf(info.choices, typed))
            return {*value, {}};
        return {{}, name + "\"" + std::string(typed) + "\" is none of " + wordsOf(info) + "."};
    }
    auto value = isTime(info) ? hoursOf(typed) : std::nullopt;
    if (!value)
        value = texts::numericValue(typed);
    if (!value)
        return {{}, name + "\"" + std::string(typed) + "\" is no number."};
    if (!info.bounds.contains(*value)) {
        const std::string range = catalogue::rangeInWords(info.bounds, info.unit);
        return {{}, name + valueInWords(info, *value) + " cannot be; " + range + "."};
    }
    return {*value, {}};
}

std::string valueInWords(const InputInfo& info, double value)
{
    if (const catalogue::Choice* const choice = catalogue::choiceWith(info.choices, value)) {
        std::string word(choice->word); // its text would be a sentence within one
        std::ranges::replace(word, '_', ' ');
        return word;
    }
    const std::string number = values::plainText(value);
    return info.unit.empty() ? number : number + (info.unit == "°" ? "" : " ") + std::string(info.unit);
}

std::string emptyInWords(const InputInfo& info)
{
    struct Use {
        std::string what;
        std::string models{};
    };
    std::vector<Use> uses;
    const auto add = [&uses](const std::string& what, std::string_view model) {
        auto found = std::ranges::find(uses, what, &Use::what);
        if (found == uses.end())
            found = uses.insert(uses.end(), {what});
        addName(found->models, model);
    };
    for (const Addition& model : catalogue::additions())
        for (const AdditionInput& input : model.inputs) {
            if (fieldIdOf(*input.info) != info.id)
                continue;
            if (info.id == kWindHeightField)
                add("Empty: " + valueInWords(info, kReadingsWindHeight) +
                        ", the height of the wind of the readings",
                    model.id);
            else if (input.need == Need::Required)
                add("Needed", model.id);
            else if (input.need == Need::Start)
                add("Empty: " + valueInWords(*input.info, input.start) + ", " +
                        std::string(input.startSource),
                    model.id);
            else
                add("Can be left empty: " + std::string(input.without), model.id);
        }
    std::string text;
    for (const Use& use : uses)
        text += (text.empty() ? "" : " ") + use.what + " (" + use.models + ").";
    return text;
}

std::vector<Pick> picksOf(const InputInfo& info)
{
    std::vector<Pick> picks;
    if (info.id == "met")
        for (const standards::Activity& activity : standards::kActivities)
            picks.push_back({activity.name, values::plainText(activity.met)});
    if (info.id == "clo")
        for (const standards::Garment& ensemble : standards::kEnsembles)
            picks.push_back({ensemble.name, values::plainText(ensemble.clo)});
    for (const catalogue::Choice& choice : info.choices)
        picks.push_back({choice.text, std::string(choice.word)});
    return picks;
}

std::string clothingOf(std::span<const std::size_t> garments, std::optional<std::size_t> chair)
{
    std::vector<double> worn;
    for (const std::size_t place : garments)
        worn.push_back(standards::kGarments.at(place).clo);
    const double seat = chair ? standards::kChairs.at(*chair).clo : 0;
    if (worn.empty() && !chair)
        return {};
    constexpr values::Format kHundredths{2, 1};
    const double clo = standards::ensembleOf(worn, seat).clo;
    return values::plainText(texts::val(texts::format(clo, kHundredths)));
}

PersonAndPlace::PersonAndPlace()
{
    for (std::size_t i = 0; i < fields().size(); ++i) {
        m_boxes.push_back(std::make_unique<controls::TextBox>());
        m_boxes.back()->change.watch([this] {
            if (!m_writing)
                changed.raise();
        });
    }
}

controls::TextBox& PersonAndPlace::box(std::string_view id) const
{
    const auto found = std::ranges::find(fields(), id, [](const Field& field) { return field.info->id; });
    if (found == fields().end())
        throw std::out_of_range("there is no field " + std::string(id));
    return *m_boxes[static_cast<std::size_t>(found - fields().begin())];
}

FieldTexts PersonAndPlace::texts() const
{
    FieldTexts texts;
    for (std::size_t i = 0; i < m_boxes.size(); ++i)
        if (!m_boxes[i]->text().empty())
            texts.emplace(fields()[i].info->id, m_boxes[i]->text());
    return texts;
}

void PersonAndPlace::write(const FieldTexts& texts)
{
    if (texts == this->texts())
        return;
    m_writing = true;
    for (std::size_t i = 0; i < m_boxes.size(); ++i) {
        const auto found = texts.find(fields()[i].info->id);
        m_boxes[i]->setText(found == texts.end() ? std::string() : found->second);
    }
    m_writing = false;
    changed.raise();
}

void PersonAndPlace::lookAt(std::string_view id)
{
    m_lookedAt = id;
    looked.raise();
}

void PersonAndPlace::save(Session& session) const
{
    session.person = textOfFields(texts());
}

std::string PersonAndPlace::fault(const Session& session) const
{
    return faultOfFields(session.person);
}

void PersonAndPlace::open(const Session& session)
{
    write(fieldsOfText(session.person));
}

std::string textOfFields(const FieldTexts& texts)
{
    if (texts.empty())
        return {};
    ordered_json root;
    root["version"] = kVersion;
    for (const auto& [id, text] : texts)
        root["fields"][id] = text;
    return root.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

std::string faultOfFields(std::string_view json)
{
    if (json.empty())
        return {};
    const ordered_json root = parsed(json);
    const auto version = root.is_object() ? root.find("version") : root.end();
    if (!root.is_object() || version == root.end() || !version->is_number_integer() || *version < 1)
        return "its person and place are damaged";
    if (*version > kVersion)
        return "its person and place were written by a later version of Comfortics";
    const auto all = root.find("fields");
    if (all == root.end())
        return {};
    if (!all->is_object())
        return "its person and place are damaged";
    for (const auto& [id, text] : all->items())
        if (!text.is_string() || text.get_ref<const std::string&>().size() > kLongestEntry)
            return "its person and place are damaged: \"" + id + "\" is not what it should be";
    return {};
}

FieldTexts fieldsOfText(std::string_view json)
{
    FieldTexts texts;
    const ordered_json root = parsed(json);
    const auto all = root.is_object() ? root.find("fields") : root.end();
    if (!root.is_object() || all == root.end())
        return texts;
    for (const auto& [id, text] : all->items())
        texts.emplace(id, text.get<std::string>());
    return texts;
}

} // namespace comfortics::workspace
