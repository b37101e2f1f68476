// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/evaluate.h>

#include "engine/limit_judge.h"
#include "engine/point_runner.h"
#include "engine/recipe.h"
#include "engine/work_sharing.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

namespace comfortics {

namespace engine {

namespace {

constexpr std::size_t kShare = 32 * kBlockPoints;
constexpr std::size_t kMostJudged = 3;

/// One formula over its inputs, without a look at what else there is.
class FormulaWorker final : public Worker {
public:
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): written before they are read
    FormulaWorker(const Index& index, std::span<const Column> inputs, const Result& result,
                  const Assumptions& assumptions, bool limits)
        : m_recipe(publishedRecipe(index.number)), m_inputs(inputs), m_result(result),
          m_limits(limits ? index.limits : Limits{}), m_runner(assumptions)
    {
        std::size_t next = 0; // an input that counts as 0 is none of the index's
        for (std::size_t i = 0; i < m_recipe.call->arity; ++i)
            m_places[i] = m_recipe.sources[i] ? next++ : kNoPlace;
        const auto judged = judgedQuantities(m_limits);
        m_judgedCount = judged.size();
        for (std::size_t i = 0; i < judged.size(); ++i) {
            const auto found = std::find(index.inputs.begin(), index.inputs.end(), judged[i]);
            m_judged[i] = found == index.inputs.end()
                              ? kNoPlace
                              : static_cast<std::size_t>(found - index.inputs.begin());
        }
    }

    void work(std::size_t first, std::size_t count) override
    {
        const PointRunner::Sites* const site = m_runner.siteOf(*m_recipe.call);
        if (m_result.statuses == nullptr && m_judgedCount == 0 && site != nullptr) {
            straight(first, count, *site);
            return;
        }
        for (const std::size_t end = first + count; first < end; first += kBlockPoints)
            block(first, std::min(kBlockPoints, end - first));
    }

private:
    static constexpr std::size_t kNoPlace = static_cast<std::size_t>(-1);

    /// Without statuses, limits and varying sites nothing stands between the columns and the formula.
    void straight(std::size_t first, std::size_t count, const PointRunner::Sites& site)
    {
        constexpr double kUnassigned = 0;
        std::array<double, formulas::kMostInputs> scalars{};
        std::array<formulas::InputColumn, formulas::kMostInputs> columns;
        for (std::size_t i = 0; i < m_recipe.call->arity; ++i) {
            if (m_places[i] == kNoPlace) {
                columns[i] = {&kUnassigned, 0};
                continue;
            }
            const Column& column = m_inputs[m_places[i]];
            scalars[i] = column.isScalar() ? column[0] : 0;
            columns[i] = column.isScalar()
                             ? formulas::InputColumn{&scalars[i], 0}
                             : formulas::InputColumn{
                                   &column.data()[static_cast<std::ptrdiff_t>(first) * column.stride()],
                                   column.stride()};
        }
        double* const results = m_result.values + static_cast<std::ptrdiff_t>(first) * m_result.stride;
        formulas::calculateColumns(*m_recipe.call, {columns.data(), m_recipe.call->arity}, site,
                                   formulas::Rules::Precise, count, {results, m_result.stride, nullptr});
    }

    void block(std::size_t first, std::size_t count)
    {
        Status* const statuses = m_result.statuses == nullptr ? m_statuses.data() : m_result.statuses + first;
        std::fill_n(statuses, count, Status::Value);
        std::array<const double*, formulas::kMostInputs> columns{};
        for (std::size_t i = 0; i < m_inputs.size(); ++i)
            columns[i] = contiguous(i, first, count);
        bool all = true;
        if (m_judgedCount > 0)
            all = judgeInputs(columns, count, statuses);
        InputPointers inputs{};
        for (std::size_t i = 0; i < m_recipe.call->arity; ++i)
            inputs[i] = m_places[i] == kNoPlace ? nullptr : columns[m_places[i]];
        m_runner.begin(first);
        // The inputs may be where the results go.
        const bool direct = m_result.stride == 1 && all;
        double* const results = direct ? m_result.values + first : m_values.data();
        m_runner.run(*m_recipe.call, inputs, count, all, results, statuses);
        for (std::size_t i = 0; i < count && !direct; ++i)
            m_result.values[static_cast<std::ptrdiff_t>(first + i) * m_result.stride] = m_values[i];
    }

    const double* contiguous(std::size_t input, std::size_t first, std::size_t count)
    {
        const Column& column = m_inputs[input];
        if (column.stride() == 1 && column.data() != nullptr)
            return column.data() + first;
        for (std::size_t i = 0; i < count; ++i)
            m_gathered[input][i] = column[first + i];
        return m_gathered[input].data();
    }

    // A missing input is not outside.
    bool judgeInputs(const std::array<const double*, formulas::kMostInputs>& columns, std::size_t count,
                     Status* statuses)
    {
        bool all = true;
        for (std::size_t input = 0; input < m_inputs.size(); ++input)
            for (std::size_t i = 0; i < count; ++i)
                if (std::isnan(columns[input][i])) {
                    statuses[i] = Status::Missing;
                    all = false;
                }
        std::array<const double*, kMostJudged> judged{};
        for (std::size_t i = 0; i < m_judgedCount; ++i)
            judged[i] = m_judged[i] == kNoPlace ? nullptr : columns[m_judged[i]];
        return judge(m_limits, {judged.data(), m_judgedCount}, count, statuses) && all;
    }

    const Recipe& m_recipe;
    std::span<const Column> m_inputs;
    const Result& m_result;
    Limits m_limits;
    std::array<std::size_t, formulas::kMostInputs> m_places{}; // of the formula's inputs among the index's
    std::array<std::size_t, kMostJudged> m_judged{};           // of what is judged, likewise
    std::size_t m_judgedCount = 0;
    PointRunner m_runner;
    std::array<BlockValues, formulas::kMostInputs> m_gathered;
    BlockValues m_values;
    BlockStatuses m_statuses;
};

} // namespace

} // namespace engine

std::size_t evaluate(const Index& index, std::span<const Column> inputs, std::size_t count,
                     const Result& result, const Assumptions& assumptions, const Options& options)
{
    comfortics::index(index.number); // or throws
    const std::string id(index.id);
    if (inputs.size() != index.inputs.size())
        throw std::invalid_argument("comfortics: " + id + " has " + std::to_string(index.inputs.size()) +
                                    " inputs, not " + std::to_string(inputs.size()));
    for (std::size_t i = 0; i < inputs.size(); ++i)
        if (!inputs[i].given())
            throw std::invalid_argument("comfortics: the " + std::string(info(index.inputs[i]).id) + " of " +
                                        id + " is not given");
    if (result.values == nullptr)
        throw std::invalid_argument("comfortics: there is no place for the values of " + id);
    return engine::shareWork(count, engine::kShare, options, [&] {
        return std::make_unique<engine::FormulaWorker>(index, inputs, result, assumptions, options.limits);
    });
}

} // namespace comfortics
