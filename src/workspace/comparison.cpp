// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/comparison.h"

#include "texts/text.h"
#include "workspace/inputs_json.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <utility>

namespace comfortics::workspace {

using nlohmann::ordered_json;

namespace {

std::vector<Pin> readPins(std::string_view json)
{
    std::vector<Pin> pins;
    if (json.empty())
        return pins;
    const ordered_json root = ordered_json::parse(json, nullptr, false);
    if (!root.is_array())
        throw Damage("the pinned situations are no list");
    if (root.size() > Comparison::kMostPins)
        throw Damage("there are more than " + std::to_string(Comparison::kMostPins) + " pinned situations");
    for (const ordered_json& one : root) {
        if (!one.is_object())
            throw Damage("a pinned situation is not what it should be");
        Pin pin{text(one, "name", Comparison::kLongestName),
                text(one, "pinned", kLongestEntry),
                readInputs(one),
                {}};
        if (const auto person = one.find("person"); person != one.end()) {
            const std::string fields = person->dump();
            if (const std::string fault = faultOfFields(fields); !fault.empty())
                throw Damage("of a pinned situation " + fault);
            pin.person = fieldsOfText(fields);
        }
        if (pin.name.empty())
            throw Damage("a pinned situation has no name");
        pins.push_back(std::move(pin));
    }
    return pins;
}

} // namespace

std::string timeText(std::chrono::system_clock::time_point time)
{
    using namespace std::chrono;
    const auto day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(floor<minutes>(time - day));
    char text[40];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d UTC", static_cast<int>(date.year()),
                  static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()));
    return text;
}

void Comparison::arrived(const std::shared_ptr<const Situation>& situation)
{
    for (Pinned& one : m_pinned)
        if (one.awaited && one.situation->inputs == situation->inputs) {
            one.situation = situation;
            one.awaited = false;
        }
    changed.raise();
    askNext();
}

void Comparison::askNext()
{
    const auto next = std::find_if(m_pinned.begin(), m_pinned.end(), std::mem_fn(&Pinned::awaited));
    if (next == m_pinned.end())
        return;
    if (m_ask)
        m_ask(next->situation->inputs);
    else
        complete();
}

void Comparison::complete()
{
    for (Pinned& one : m_pinned)
        if (std::exchange(one.awaited, false))
            one.situation =
                std::make_shared<const Situation>(evaluate(m_workspace.limits(), one.situation->inputs));
}

std::string Comparison::freeName() const
{
    for (std::size_t number = 1;; ++number) {
        std::string name = "Situation " + std::to_string(number);
        if (std::none_of(m_pinned.begin(), m_pinned.end(),
                         [&name](const Pinned& one) { return one.pin.name == name; }))
            return name;
    }
}

std::string Comparison::pinPresent(std::chrono::system_clock::time_point time)
{
    if (m_pinned.size() >= kMostPins)
        return "No more than " + std::to_string(kMostPins) + " situations can be pinned: remove one first.";
    const Situation& present = m_workspace.present();
    if (present.status == classic::RunStatus::Rejected)
        return present.problem;
    m_pinned.push_back({{freeName(), timeText(time), present.inputs, m_workspace.person.texts()},
                        std::make_shared<const Situation>(present)});
    changed.raise();
    return {};
}

void Comparison::rename(std::size_t place, const std::string& name)
{
    const std::string wanted(texts::trimmed(name));
    Pin& pin = m_pinned.at(place).pin;
    if (wanted.empty() || wanted.size() > kLongestName || wanted == pin.name)
        return;
    pin.name = wanted;
    changed.raise();
}

void Comparison::move(std::size_t from, std::size_t to)
{
    if (from == to || from >= m_pinned.size() || to >= m_pinned.size())
        return;
    const auto at = [this](std::size_t place) {
        return m_pinned.begin() + static_cast<std::ptrdiff_t>(place);
    };
    if (from < to)
        std::rotate(at(from), at(from + 1), at(to + 1));
    else
        std::rotate(at(to), at(from), at(from + 1));
    changed.raise();
}

void Comparison::remove(std::size_t place)
{
    if (place >= m_pinned.size())
        return;
    m_pinned.erase(m_pinned.begin() + static_cast<std::ptrdiff_t>(place));
    changed.raise();
}

std::string Comparison::json() const
{
    if (m_pinned.empty())
        return {};
    ordered_json root = ordered_json::array();
    for (const Pinned& one : m_pinned) {
        ordered_json pin{{"name", one.pin.name}, {"pinned", one.pin.time}};
        putInputs(pin, one.pin.inputs);
        if (!one.pin.person.empty())
            pin["person"] = ordered_json::parse(textOfFields(one.pin.person), nullptr, false);
        root.push_back(std::move(pin));
    }
    return root.dump(-1, ' ', false, ordered_json::error_handler_t::replace);
}

std::string Comparison::fault(std::string_view json)
{
    try {
        readPins(json);
        return {};
    } catch (const Damage& damage) {
        return damage.what();
    }
}

void Comparison::restore(std::string_view json)
{
    std::vector<Pinned> pinned;
    for (Pin& pin : readPins(json)) {
        classic::Inputs inputs = pin.inputs;
        inputs.settings.selection = classic::Selection::all();
        auto situation = std::make_shared<const Situation>(awaited(inputs));
        pinned.push_back({std::move(pin), std::move(situation), true});
    }
    m_pinned = std::move(pinned);
    askNext();
    changed.raise();
}

} // namespace comfortics::workspace
