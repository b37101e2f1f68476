// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/finding.h"

#include <algorithm>
#include <utility>

namespace comfortics::workspace {

Finding::Finding(const catalogue::Finder& finder, std::span<const catalogue::Subject> subjects,
                 std::function<catalogue::Standing(std::size_t)> standing)
    : m_finder(finder), m_subjects(subjects), m_standing(std::move(standing)),
      m_matches(subjects.size(), true), m_passes(subjects.size(), true), m_count(subjects.size())
{
}

Finding::Finding(std::function<catalogue::Standing(std::size_t)> standing)
    : Finding(catalogue::indexFinder(), catalogue::indexSubjects(), std::move(standing))
{
}

void Finding::setQuery(std::string query)
{
    if (query == m_query)
        return;
    m_query = std::move(query);
    findAnew();
}

void Finding::setFilters(const catalogue::Filters& filters)
{
    if (filters == m_filters)
        return;
    m_filters = filters;
    findAnew();
}

void Finding::clear()
{
    if (m_query.empty() && !m_filters.any())
        return;
    m_query.clear();
    m_filters = {};
    findAnew();
}

void Finding::refresh()
{
    if (needsStanding())
        findAnew();
}

void Finding::findAnew()
{
    const std::vector<std::size_t> places = m_finder.find(m_query);
    m_hasWords = catalogue::Finder::hasWords(m_query);
    std::fill(m_matches.begin(), m_matches.end(), false);
    for (const std::size_t place : places)
        m_matches[place] = true;
    for (std::size_t place = 0; place < m_subjects.size(); ++place)
        m_passes[place] =
            admits(m_filters, m_subjects[place], needsStanding() ? m_standing(place) : catalogue::Standing());
    m_count = 0;
    for (const std::size_t place : places)
        if (m_passes[place])
            ++m_count;
    const auto best =
        std::ranges::find_if(places, [this](std::size_t place) { return bool(m_passes[place]); });
    m_best = best == places.end() ? std::nullopt : std::optional(*best);
    m_meant = places.empty() ? m_finder.didYouMean(m_query) : std::vector<std::string>();
    changed.raise();
}

std::optional<std::size_t> Finding::next(std::span<const std::size_t> order, std::optional<std::size_t> from,
                                         bool forward) const
{
    const auto size = order.size();
    // Where one stands nowhere, forward begins at the first and backward at the last.
    std::size_t at = forward ? size - 1 : 0;
    if (from)
        if (const auto found = std::ranges::find(order, *from); found != order.end())
            at = static_cast<std::size_t>(found - order.begin());
    for (std::size_t step = 0; step < size; ++step) {
        at = (at + (forward ? 1 : size - 1)) % size;
        if (holds(order[at]))
            return order[at];
    }
    return std::nullopt;
}

std::string Finding::summary() const
{
    if (!active())
        return {};
    return std::to_string(m_count) + " of " + std::to_string(m_subjects.size());
}

} // namespace comfortics::workspace
