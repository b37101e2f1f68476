// SPDX-License-Identifier: GPL-3.0-or-later
#include "formulas/block_runner.h"

#include "formulas/block.h"
#include "values/clones.h"
#include "values/float_flags.h"
#include "values/run_failure.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cmath>
#include <functional>
#include <limits>

namespace comfortics::formulas {

namespace {

/// Points of a block: enough to spread the costs of a call, few enough to stay in the nearest cache.
constexpr std::size_t kBlock = 512;
/// A block of no more points whose flags stand is repeated, not halved.
constexpr std::size_t kSmallBlock = 8;

COMFORTICS_CLONES bool allFinite(const double* values, std::size_t count)
{
    unsigned others = 0;
    for (std::size_t i = 0; i < count; ++i)
        others |= std::fabs(values[i]) <= std::numeric_limits<double>::max() ? 0U : 1U;
    return others == 0;
}

COMFORTICS_CLONES void tellValues(const double* results, std::size_t count, PointStatus* statuses)
{
    for (std::size_t i = 0; i < count; ++i)
        statuses[i] = std::isnan(results[i]) ? PointStatus::NoValue : PointStatus::Value;
}

class Runner {
public:
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): written before it is read
    Runner(const FormulaCall& formula, std::span<const InputColumn> inputs,
           const AssumptionsOf<double>& assumptions, Rules rules, std::size_t count)
        : m_formula(formula), m_inputs(inputs), m_assumptions(assumptions),
          m_checkedAssumptions(checked(assumptions)), m_rules(rules)
    {
        assert(inputs.size() == formula.arity);
        for (const double assumption : {assumptions.Friction, assumptions.Height, assumptions.Weight,
                                        assumptions.Barometric, assumptions.Emissivity, assumptions.ArAdu})
            m_ordinary = m_ordinary && (!formula.readsAssumptions || std::isfinite(assumption));
        for (std::size_t i = 0; i < inputs.size(); ++i)
            if (inputs[i].stride == 0)
                std::fill_n(m_gathered[i].begin(), std::min(count, kBlock), *inputs[i].values);
    }

    void run(std::size_t first, std::size_t count, const ResultColumn& results)
    {
        gather(first, count);
        m_wantsStatuses = results.statuses != nullptr;
        bool finite = true;
        for (std::size_t i = 0; i < m_inputs.size(); ++i)
            finite = finite && allFinite(m_columns[i], m_inputs[i].stride == 0 ? 1 : count);
        m_target = m_results.data();
        if (finite && m_ordinary) {
            if (results.stride == 1 && overlapsNoInput(results.values + first, count))
                m_target = results.values + first;
            calculate(0, count);
        } else {
            calculateApart(count);
        }
        if (m_target == m_results.data())
            for (std::size_t i = 0; i < count; ++i)
                results.values[static_cast<std::ptrdiff_t>(first + i) * results.stride] = m_results[i];
        if (m_wantsStatuses)
            std::copy_n(m_statuses.begin(), count, results.statuses + first);
    }

private:
    void gather(std::size_t first, std::size_t count)
    {
        for (std::size_t i = 0; i < m_inputs.size(); ++i) {
            const InputColumn& input = m_inputs[i];
            m_columns[i] = m_gathered[i].data();
            if (input.stride == 1)
                m_columns[i] = input.values + first;
            else if (input.stride != 0)
                for (std::size_t k = 0; k < count; ++k)
                    m_gathered[i][k] = input.values[static_cast<std::ptrdiff_t>(first + k) * input.stride];
        }
    }

    /// Points with finite inputs. Where a flag stands, the half that raised it is looked for, down to a
    /// few points, which are repeated with Number.
    void calculate(std::size_t first, std::size_t count)
    {
        std::array<const double*, kMostInputs> inputs = m_columns;
        for (const double*& column : inputs)
            column += column == nullptr ? 0 : first;
        m_flags.clear();
        m_formula.block({inputs.data(), m_assumptions, m_rules, m_target + first, count});
        if (!values::FloatFlags::failed()) {
            if (m_wantsStatuses)
                tellValues(m_target + first, count, &m_statuses[first]);
        } else if (count > kSmallBlock) {
            calculate(first, count / 2);
            calculate(first + count / 2, count - count / 2);
        } else {
            for (std::size_t point = first; point < first + count; ++point)
                calculateChecked(point);
        }
    }

    /// Points of which some have an input that is missing or infinite: the others move together.
    void calculateApart(std::size_t count)
    {
        std::array<std::uint16_t, kBlock> places; // NOLINT: read as far as it is written
        std::size_t ordinary = 0;
        for (std::size_t point = 0; point < count; ++point)
            if (m_ordinary && everyInput(point, [](double input) { return std::isfinite(input); }))
                places[ordinary++] = static_cast<std::uint16_t>(point);
        const auto columns = m_columns;
        for (std::size_t i = 0; i < m_inputs.size(); ++i) {
            for (std::size_t k = 0; k < ordinary; ++k)
                m_together[i][k] = columns[i][places[k]];
            m_columns[i] = m_together[i].data();
        }
        calculate(0, ordinary);
        m_columns = columns;
        // Backwards, since no point lies before its place among the ordinary ones.
        std::size_t point = count;
        for (std::size_t k = ordinary;; --k) {
            for (const std::size_t end = k == 0 ? 0 : places[k - 1] + 1U; point > end; --point)
                settleExtraordinary(point - 1);
            if (k == 0)
                break;
            settle(--point, m_results[k - 1], m_statuses[k - 1]);
        }
    }

    void settleExtraordinary(std::size_t point)
    {
        if (everyInput(point, [](double input) { return !std::isnan(input); }))
            calculateChecked(point);
        else
            settle(point, kNaN, PointStatus::Missing);
    }

    template <typename Test>
    bool everyInput(std::size_t point, Test test) const
    {
        bool all = true;
        for (std::size_t i = 0; i < m_inputs.size(); ++i)
            all = all && test(m_columns[i][point]);
        return all;
    }

    void calculateChecked(std::size_t point)
    {
        FormulaInputs inputs;
        for (std::size_t i = 0; i < m_inputs.size(); ++i)
            inputs[i] = m_columns[i][point];
        try {
            const auto value = m_formula.function({m_checkedAssumptions, m_rules}, inputs);
            if (value)
                settle(point, value->value(), PointStatus::Value);
            else
                settle(point, kNaN, PointStatus::NoValue);
        } catch (const values::RunFailure&) {
            settle(point, kNaN, PointStatus::Undefined);
        }
    }

    void settle(std::size_t point, double result, PointStatus status)
    {
        m_target[point] = result;
        m_statuses[point] = status;
    }

    bool overlapsNoInput(const double* results, std::size_t count) const
    {
        const std::less<> isBefore; // of any two pointers
        for (std::size_t i = 0; i < m_inputs.size(); ++i)
            if (isBefore(m_columns[i], results + count) && isBefore(results, m_columns[i] + count))
                return false;
        return true;
    }

    static constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    using Column = std::array<double, kBlock>;

    const FormulaCall& m_formula;
    std::span<const InputColumn> m_inputs;
    const AssumptionsOf<double>& m_assumptions;
    Assumptions m_checkedAssumptions;
    Rules m_rules;
    values::FloatFlags m_flags;
    double* m_target = nullptr; ///< the block's results, here or where they belong
    bool m_wantsStatuses = false;
    bool m_ordinary = true; ///< the assumptions are finite
    std::array<const double*, kMostInputs> m_columns{};
    // Not filled before they are read as far as they have been written.
    std::array<Column, kMostInputs> m_gathered;
    std::array<Column, kMostInputs> m_together;
    Column m_results;
    std::array<PointStatus, kBlock> m_statuses;
};

} // namespace

void calculateColumns(const FormulaCall& formula, std::span<const InputColumn> inputs,
                      const AssumptionsOf<double>& assumptions, Rules rules, std::size_t count,
                      const ResultColumn& results) noexcept
{
    Runner runner(formula, inputs, assumptions, rules, count);
    for (std::size_t first = 0; first < count; first += kBlock)
        runner.run(first, std::min(kBlock, count - first), results);
}

} // namespace comfortics::formulas
