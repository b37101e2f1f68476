// SPDX-License-Identifier: GPL-3.0-or-later
//
// What cards, sheets, tables and reports show by its id: an index, or a figure of a model of a standard.
#pragma once

#include "catalogue/additions.h"
#include "workspace/model_figures.h"
#include "workspace/scale_strip.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

class Item {
public:
    /// Of index 1 to kLastIndex, each of which is an item.
    Item(int index) : m_index(index) {} // NOLINT: implicit
    explicit Item(const catalogue::Figure& figure) : m_model(figure.model), m_result(figure.result) {}
    /// None where there is neither an index nor a figure of the id. A model's id alone is its first figure
    /// where no index has it.
    static std::optional<Item> ofId(std::string_view id);

    /// 0 for a figure of a model.
    int index() const noexcept { return m_index; }
    /// Null for an index.
    const catalogue::Addition* model() const noexcept { return m_model; }
    /// The place of the figure among those of its model.
    std::size_t result() const noexcept { return m_result; }

    std::string id() const;
    /// Of a figure that is not its model's first one with the standard behind: "Predicted percentage of
    /// dissatisfied (ISO 7730)".
    std::string name() const;
    std::string_view unit() const; ///< empty where it has none
    std::string_view description() const;
    std::span<const std::string_view> warnings() const;
    /// What misleads most, in a few words: "not for sun or radiant heat"; empty where nothing does.
    std::string_view warningInShort() const;
    /// The index whose published classes are its own; 0 where none are published.
    int scaleIndex() const;
    /// Whether it is one of several words, which have no mean.
    bool isWord() const { return m_model != nullptr && !m_model->results[m_result].choices.empty(); }
    int decimals() const; ///< to show
    /// Its classes in words, those of its scale or the words that it can be.
    std::vector<std::string_view> classNames() const;
    /// These classes.
    const catalogue::Scale& scale() const;

    bool operator==(const Item&) const = default;

private:
    int m_index = 0;
    const catalogue::Addition* m_model = nullptr;
    std::size_t m_result = 0;
};

/// The indices, then the figures of the models.
const std::vector<Item>& allItems();
/// The same as the search has them, and the search over them.
std::span<const catalogue::Subject> itemSubjects();
const catalogue::Finder& itemFinder();

/// An item where a situation and a person stand.
struct ItemFigure {
    Figure figure;
    std::string assumed;     ///< what a model was calculated with; empty for an index
    std::string wantedField; ///< id of the field that a model misses; empty where none is
};

ItemFigure itemFigure(const Item& item, const Situation& situation, const FieldTexts& person);

/// Where its value stands on classes or limits; none without a value, and where there is neither.
std::optional<ScaleStrip> stripOf(const Item& item, const ItemFigure& at, const Situation& situation,
                                  const classic::Limits& limits);

} // namespace comfortics::workspace
