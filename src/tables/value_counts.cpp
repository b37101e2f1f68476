// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/value_counts.h"

#include <algorithm>
#include <cmath>

namespace comfortics::tables {

namespace {

constexpr std::size_t kMostRecent = 2048;

} // namespace

void ValueCounts::add(double value)
{
    m_recent.push_back(value);
    ++m_count;
    if (m_recent.size() >= std::max(kMostRecent, m_sorted.size() / 8))
        settle();
}

void ValueCounts::add(const ValueCounts& other)
{
    settle();
    other.settle();
    std::vector<Counted> merged;
    merged.reserve(m_sorted.size() + other.m_sorted.size());
    const auto keep = [&merged](const Counted& one) {
        if (!merged.empty() && merged.back().value == one.value)
            merged.back().count += one.count;
        else
            merged.push_back(one);
    };
    auto mine = m_sorted.begin();
    for (const Counted& one : other.m_sorted) {
        while (mine != m_sorted.end() && mine->value <= one.value)
            keep(*mine++);
        keep(one);
    }
    std::for_each(mine, m_sorted.end(), keep);
    m_sorted = std::move(merged);
    m_count += other.m_count;
}

void ValueCounts::settle() const
{
    if (m_recent.empty())
        return;
    std::sort(m_recent.begin(), m_recent.end());
    std::vector<Counted> fresh;
    for (const double value : m_recent) {
        if (!fresh.empty() && fresh.back().value == value)
            ++fresh.back().count;
        else
            fresh.push_back({value, 1});
    }
    m_recent.clear();
    // Those that are known are counted where they stand; the others are put in place together.
    std::vector<Counted> unknown;
    for (const Counted& one : fresh) {
        const auto found = std::lower_bound(m_sorted.begin(), m_sorted.end(), one.value,
                                            [](const Counted& a, double value) { return a.value < value; });
        if (found != m_sorted.end() && found->value == one.value)
            found->count += one.count;
        else
            unknown.push_back(one);
    }
    const auto middle = static_cast<std::ptrdiff_t>(m_sorted.size());
    m_sorted.insert(m_sorted.end(), unknown.begin(), unknown.end());
    std::inplace_merge(m_sorted.begin(), m_sorted.begin() + middle, m_sorted.end(),
                       [](const Counted& a, const Counted& b) { return a.value < b.value; });
}

double ValueCounts::mean() const
{
    settle();
    // Neumaier's sum: what is lost in one addition is added at the end.
    double sum = 0;
    double lost = 0;
    for (const Counted& one : m_sorted) {
        const double term = one.value * static_cast<double>(one.count);
        const double next = sum + term;
        lost += std::abs(sum) >= std::abs(term) ? (sum - next) + term : (term - next) + sum;
        sum = next;
    }
    return (sum + lost) / static_cast<double>(m_count);
}

double ValueCounts::lowest() const
{
    settle();
    return m_sorted.front().value;
}

double ValueCounts::highest() const
{
    settle();
    return m_sorted.back().value;
}

double ValueCounts::at(std::size_t place) const
{
    std::size_t passed = 0;
    for (const Counted& one : m_sorted) {
        passed += one.count;
        if (place < passed)
            return one.value;
    }
    return m_sorted.back().value;
}

double ValueCounts::quantile(double share) const
{
    settle();
    const double place = share * static_cast<double>(m_count - 1);
    const double whole = std::floor(place);
    const double low = at(static_cast<std::size_t>(whole));
    const double high = at(std::min(static_cast<std::size_t>(whole) + 1, m_count - 1));
    return low + (high - low) * (place - whole);
}

std::vector<ValueCounts::Bin> ValueCounts::histogram(std::size_t bins) const
{
    const double low = lowest() == highest() ? lowest() - 0.5 : lowest();
    const double high = lowest() == highest() ? highest() + 0.5 : highest();
    const auto edge = [&](std::size_t i) {
        return i == bins ? high : low + (high - low) * static_cast<double>(i) / static_cast<double>(bins);
    };
    std::vector<double> edges;
    for (std::size_t i = 0; i <= bins; ++i)
        edges.push_back(edge(i));
    return histogram(edges);
}

std::vector<ValueCounts::Bin> ValueCounts::histogram(const std::vector<double>& edges) const
{
    settle();
    std::vector<Bin> all;
    for (std::size_t i = 0; i + 1 < edges.size(); ++i)
        all.push_back({edges[i], edges[i + 1], 0});
    std::size_t bin = 0;
    for (const Counted& one : m_sorted) {
        while (bin + 1 < all.size() && one.value >= all[bin].to)
            ++bin;
        all[bin].count += one.count;
    }
    return all;
}

} // namespace comfortics::tables
