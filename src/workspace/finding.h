// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/finder.h"
#include "controls/controls.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace comfortics::workspace {

/// A search that stands beside a list: what is looked for, what is found, and where one stands in it.
class Finding {
public:
    /// Subjects and finder must outlive it and belong together. `standing` tells what of a subject changes
    /// with readings and ticks; it is asked for only where a filter needs it.
    Finding(const catalogue::Finder& finder, std::span<const catalogue::Subject> subjects,
            std::function<catalogue::Standing(std::size_t place)> standing);
    /// Over the indices.
    explicit Finding(std::function<catalogue::Standing(std::size_t place)> standing);

    const std::string& query() const noexcept { return m_query; }
    void setQuery(std::string query);
    const catalogue::Filters& filters() const noexcept { return m_filters; }
    void setFilters(const catalogue::Filters& filters);
    void clear();
    /// Readings or ticks may have changed.
    void refresh();

    /// Whether anything is looked for.
    bool active() const noexcept { return hasWords() || m_filters.any(); }
    bool hasWords() const noexcept { return m_hasWords; }

    /// Whether a subject holds the words; all do where there are none.
    bool matches(std::size_t place) const { return m_matches.at(place); }
    /// Whether the filters let it through.
    bool passes(std::size_t place) const { return m_passes.at(place); }
    bool holds(std::size_t place) const { return matches(place) && passes(place); }
    std::size_t count() const noexcept { return m_count; }
    /// The one that the words fit best, of those found.
    std::optional<std::size_t> best() const noexcept { return m_best; }

    /// The next found one in an order of the view, behind the last the first again; none where nothing is
    /// found.
    std::optional<std::size_t> next(std::span<const std::size_t> order, std::optional<std::size_t> from,
                                    bool forward) const;

    /// "3 of 222"; empty where nothing is looked for.
    std::string summary() const;
    /// What the words may have meant, where they find nothing whatever the filters are.
    const std::vector<std::string>& didYouMean() const noexcept { return m_meant; }

    /// What is found has changed.
    controls::Event changed;

private:
    void findAnew();
    bool needsStanding() const noexcept { return m_filters.withValue || m_filters.ticked; }

    const catalogue::Finder& m_finder;
    std::span<const catalogue::Subject> m_subjects;
    std::function<catalogue::Standing(std::size_t)> m_standing;
    std::string m_query;
    catalogue::Filters m_filters;
    bool m_hasWords = false;
    std::vector<bool> m_matches;
    std::vector<bool> m_passes;
    std::size_t m_count = 0;
    std::optional<std::size_t> m_best;
    std::vector<std::string> m_meant;
};

} // namespace comfortics::workspace
