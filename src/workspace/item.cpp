// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/item.h"

#include "catalogue/notes.h"
#include "catalogue/references.h"

#include <utility>

namespace comfortics::workspace {

namespace {

constexpr std::size_t kShort = 40; // [bytes], of a warning in full

} // namespace

std::optional<Item> Item::ofId(std::string_view id)
{
    if (const int index = catalogue::indexOfId(id); index != 0)
        return Item(index);
    if (const auto figure = catalogue::figureOfId(id))
        return Item(*figure);
    return std::nullopt;
}

std::string Item::id() const
{
    return m_model != nullptr ? catalogue::Figure{m_model, m_result}.id()
                              : std::string(catalogue::reference(m_index).id);
}

std::string Item::name() const
{
    if (m_model == nullptr)
        return std::string(catalogue::row(m_index).name);
    if (m_result == 0 || m_model->results.size() == 1)
        return std::string(m_model->name);
    // The standard or the author stands behind the name of the model.
    const std::size_t behind = m_model->name.rfind('(');
    const std::string_view source =
        behind == std::string_view::npos ? std::string_view() : m_model->name.substr(behind);
    return std::string(m_model->results[m_result].name) + (source.empty() ? "" : " ") + std::string(source);
}

std::string_view Item::unit() const
{
    return m_model != nullptr ? m_model->results[m_result].unit : catalogue::row(m_index).shownUnit();
}

std::string_view Item::description() const
{
    return m_model != nullptr ? m_model->description : catalogue::note(m_index).description;
}

std::span<const std::string_view> Item::warnings() const
{
    if (m_model != nullptr)
        return m_model->warnings;
    return catalogue::note(m_index).warnings;
}

std::string_view Item::warningInShort() const
{
    for (const std::string_view warning : warnings()) {
        // The cards tell it otherwise: there is no class.
        if (warning.starts_with("without classes") || warning.starts_with("a plain quantity"))
            continue;
        if (warning.size() <= kShort)
            return warning;
        const std::size_t colon = warning.find(": ");
        if (colon == std::string_view::npos)
            return warning.substr(0, warning.find(", "));
        const std::string_view advice = warning.substr(colon + 2);
        return advice.starts_with("not for ") ? advice : warning.substr(0, colon);
    }
    return {};
}

int Item::scaleIndex() const
{
    if (m_model != nullptr)
        return m_model->results[m_result].scaleIndex;
    return catalogue::scale(m_index).categories.empty() ? 0 : m_index;
}

std::vector<std::string_view> Item::classNames() const
{
    std::vector<std::string_view> names;
    if (isWord())
        for (const catalogue::Choice& choice : m_model->results[m_result].choices)
            names.push_back(choice.text);
    for (const catalogue::Category& category : scale().categories)
        names.push_back(category.label);
    return names;
}

int Item::decimals() const
{
    return m_model != nullptr ? m_model->results[m_result].decimals : catalogue::row(m_index).format.decimals;
}

const catalogue::Scale& Item::scale() const
{
    return m_model != nullptr ? catalogue::scaleOf(m_model->results[m_result]) : catalogue::scale(m_index);
}

const std::vector<Item>& allItems()
{
    static const std::vector<Item> all = [] {
        std::vector<Item> items;
        for (int index = 1; index <= catalogue::kLastIndex; ++index)
            items.emplace_back(index);
        for (const catalogue::Addition& model : catalogue::additions())
            for (std::size_t result = 0; result < model.results.size(); ++result)
                items.emplace_back(catalogue::Figure{&model, result});
        return items;
    }();
    return all;
}

std::span<const catalogue::Subject> itemSubjects()
{
    // Their ids and names are put together.
    static const auto texts = [] {
        std::vector<std::pair<std::string, std::string>> made;
        for (const Item& item : allItems())
            if (item.model() != nullptr)
                made.emplace_back(item.id(), std::string(item.model()->results[item.result()].name) + ", " +
                                                 std::string(item.model()->name));
        return made;
    }();
    static const auto all = [] {
        const auto indices = catalogue::indexSubjects();
        std::vector<catalogue::Subject> subjects(indices.begin(), indices.end());
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const Item& item = allItems()[indices.size() + i];
            const auto model = static_cast<std::size_t>(item.model() - catalogue::additions().data());
            catalogue::Subject subject = catalogue::additionSubjects()[model];
            subject.id = texts[i].first;
            subject.name = texts[i].second;
            subject.unit = item.unit();
            subject.hasClasses = item.isWord() || item.scaleIndex() != 0;
            subjects.push_back(subject);
        }
        return subjects;
    }();
    return all;
}

const catalogue::Finder& itemFinder()
{
    static const catalogue::Finder all{itemSubjects()};
    return all;
}

ItemFigure itemFigure(const Item& item, const Situation& situation, const FieldTexts& person)
{
    if (item.model() == nullptr)
        return {situation.figure(item.index()), {}, {}};
    ModelStanding standing = modelStanding(*item.model(), situation, person);
    return {std::move(standing.figures[item.result()]), std::move(standing.assumed),
            std::move(standing.wantedField)};
}

std::optional<ScaleStrip> stripOf(const Item& item, const ItemFigure& at, const Situation& situation,
                                  const classic::Limits& limits)
{
    if (item.model() == nullptr)
        return stripOf(situation, limits, item.index());
    if (item.scaleIndex() == 0 || !at.figure.number)
        return std::nullopt;
    return classStrip(item.scaleIndex(), *at.figure.number);
}

} // namespace comfortics::workspace
