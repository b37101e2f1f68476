// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/point_runner.h"

#include "values/run_failure.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace comfortics::engine {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kUnassigned = 0;

constexpr Status statusOf(formulas::PointStatus status)
{
    switch (status) {
    case formulas::PointStatus::Value:
        return Status::Value;
    case formulas::PointStatus::NoValue:
        return Status::NoValue;
    case formulas::PointStatus::Undefined:
        return Status::Undefined;
    case formulas::PointStatus::Missing:
        break;
    }
    return Status::Missing;
}

bool anyMissing(const formulas::AssumptionsOf<double>& site)
{
    for (const double assumption :
         {site.Friction, site.Height, site.Weight, site.Barometric, site.Emissivity, site.ArAdu})
        if (std::isnan(assumption))
            return true;
    return false;
}

} // namespace

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): written before they are read
PointRunner::PointRunner(const Assumptions& assumptions) : m_assumptions(assumptions), m_site(siteAt(0))
{
    for (const Column* column :
         {&assumptions.windExponent, &assumptions.barometricPressure, &assumptions.emissivity,
          &assumptions.effectiveRadiatingArea, &assumptions.bodyHeight, &assumptions.bodyMass})
        m_varies = m_varies || !column->isScalar();
}

PointRunner::Sites PointRunner::siteAt(std::size_t point) const
{
    const std::size_t i = m_first + point;
    return {.Friction = m_assumptions.windExponent[i],
            .Height = m_assumptions.bodyHeight[i],
            .Weight = m_assumptions.bodyMass[i],
            .Barometric = m_assumptions.barometricPressure[i],
            .Emissivity = m_assumptions.emissivity[i],
            .ArAdu = m_assumptions.effectiveRadiatingArea[i]};
}

const PointRunner::Sites* PointRunner::siteOf(const formulas::FormulaCall& call) const noexcept
{
    return call.readsAssumptions && (m_varies || anyMissing(m_site)) ? nullptr : &m_site;
}

void PointRunner::run(const formulas::FormulaCall& call, const InputPointers& inputs, std::size_t count,
                      bool all, double* results, Status* statuses)
{
    if (call.readsAssumptions && m_varies) {
        runEachAtItsSite(call, inputs, count, results, statuses);
        return;
    }
    if (all) {
        runOn(call, inputs, m_site, count, results, statuses);
        return;
    }
    // The points that can be calculated move together.
    std::size_t chosen = 0;
    for (std::size_t point = 0; point < count; ++point) {
        m_places[chosen] = static_cast<std::uint16_t>(point);
        chosen += statuses[point] == Status::Value ? 1U : 0U;
    }
    std::fill_n(results, count, kNaN);
    InputPointers together{};
    for (std::size_t i = 0; i < call.arity; ++i) {
        if (inputs[i] == nullptr)
            continue;
        together[i] = m_together[i].data();
        for (std::size_t k = 0; k < chosen; ++k)
            m_together[i][k] = inputs[i][m_places[k]];
    }
    runOn(call, together, m_site, chosen, m_results.data(), m_statuses.data());
    for (std::size_t k = 0; k < chosen; ++k) {
        results[m_places[k]] = m_results[k];
        statuses[m_places[k]] = m_statuses[k];
    }
}

void PointRunner::runOn(const formulas::FormulaCall& call, const InputPointers& inputs, const Sites& site,
                        std::size_t count, double* results, Status* statuses)
{
    if (call.readsAssumptions && anyMissing(site)) {
        std::fill_n(results, count, kNaN);
        std::fill_n(statuses, count, Status::Missing);
        return;
    }
    std::array<formulas::InputColumn, formulas::kMostInputs> columns;
    for (std::size_t i = 0; i < call.arity; ++i)
        columns[i] = inputs[i] == nullptr ? formulas::InputColumn{&kUnassigned, 0}
                                          : formulas::InputColumn{inputs[i], 1};
    formulas::calculateColumns(call, {columns.data(), call.arity}, site, formulas::Rules::Precise, count,
                               {results, 1, m_pointStatuses.data()});
    for (std::size_t i = 0; i < count; ++i)
        statuses[i] = statusOf(m_pointStatuses[i]);
}

void PointRunner::runEachAtItsSite(const formulas::FormulaCall& call, const InputPointers& inputs,
                                   std::size_t count, double* results, Status* statuses)
{
    for (std::size_t point = 0; point < count; ++point) {
        if (statuses[point] != Status::Value) {
            results[point] = kNaN;
            continue;
        }
        // The inputs first: a result may take the place of one. A block of one would cost more than its
        // point.
        const Sites site = siteAt(point);
        bool missing = anyMissing(site);
        formulas::FormulaInputs numbers;
        for (std::size_t i = 0; i < call.arity; ++i) {
            numbers[i] = inputs[i] == nullptr ? kUnassigned : inputs[i][point];
            missing = missing || std::isnan(numbers[i].value());
        }
        results[point] = kNaN;
        if (missing) {
            statuses[point] = Status::Missing;
            continue;
        }
        try {
            const auto value = call.function({formulas::checked(site), formulas::Rules::Precise}, numbers);
            if (value)
                results[point] = value->value();
            else
                statuses[point] = Status::NoValue;
        } catch (const values::RunFailure&) {
            statuses[point] = Status::Undefined;
        }
    }
}

} // namespace comfortics::engine
