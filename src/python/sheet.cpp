// SPDX-License-Identifier: GPL-3.0-or-later
#include "python/sheet.h"

#include "batch/row_runner.h"
#include "catalogue/categories.h"
#include "engine/work_sharing.h"
#include "python/limits_index.h"
#include "texts/number_text.h"
#include "values/plain_text.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace comfortics::python {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kShare = 256;

using Texts = std::array<std::string, classic::kReadingCount>;

std::string textOf(const Column& column, std::size_t point)
{
    if (!column.given() || std::isnan(column[point]))
        return {};
    return values::plainText(column[point]);
}

const classic::Limits& limitsIndex()
{
    static const classic::Limits limits = classic::Limits::fromText(kLimitsIndex);
    return limits;
}

classic::Settings settingsOf(const SheetRules& rules, std::span<const Output> outputs)
{
    classic::Settings settings{
        .selection = classic::Selection::none(), .ignoreLimits = !rules.limits, .rules = rules.rules};
    for (const Output& output : outputs)
        if (output.target.indexNumber() != 0)
            settings.selection.set(output.target.indexNumber(), true);
    return settings;
}

formulas::Live liveOf(Quantity quantity)
{
    const auto place = static_cast<std::size_t>(quantity); // the live quantities come first, in their order
    if (place >= formulas::kLiveCount)
        throw std::invalid_argument("comfortics: these rules do not show " + std::string(info(quantity).id));
    return static_cast<formulas::Live>(place);
}

Status statusOf(classic::OutcomeKind kind)
{
    switch (kind) {
    case classic::OutcomeKind::Value:
        return Status::Value;
    case classic::OutcomeKind::OutsideTemperature:
        return Status::OutsideTemperature;
    case classic::OutcomeKind::OutsideWind:
        return Status::OutsideWind;
    case classic::OutcomeKind::NoValue:
        return Status::NoValue;
    case classic::OutcomeKind::RunFailed:
        return Status::Undefined;
    case classic::OutcomeKind::NotCalculated:
    case classic::OutcomeKind::NotSelected:
        break;
    }
    return Status::Missing;
}

struct Figure {
    double value = kNaN;
    Status status = Status::Missing;
    std::optional<catalogue::Meaning> meaning{};
};

/// The rows of one thread.
class Rows final : public engine::Worker {
public:
    Rows(const SheetRules& rules, const Readings& readings, std::span<const Output> outputs,
         const Assumptions& assumptions)
        : m_readings(readings), m_outputs(outputs), m_assumptions(assumptions),
          m_runner(limitsIndex(), settingsOf(rules, outputs))
    {
        m_runner.calculation().advice = "With rules=\"robust\" it would go on.";
    }

    void work(std::size_t first, std::size_t count) override
    {
        for (std::size_t point = first; point < first + count; ++point) {
            const batch::RowStatus status = run(point);
            for (const Output& output : m_outputs) {
                Figure found = figure(output.target, status);
                if (found.status == Status::Value && output.target.indexNumber() != 0 &&
                    (output.categories != nullptr || output.severities != nullptr))
                    found.meaning = m_runner.calculation().meaning(output.target.indexNumber());
                write(output, point, found);
            }
        }
    }

    std::string whyBlank(const Target& target)
    {
        const batch::RowStatus status = run(0);
        if (figure(target, status).status == Status::Value)
            return {};
        const std::string& row = m_runner.statusText(); // "skipped: …" or "failed: …"
        if (status != batch::RowStatus::Calculated)
            return row.substr(row.find(' ') + 1);
        if (target.indexNumber() != 0)
            return m_runner.calculation().whyBlank(target.indexNumber());
        return std::string(info(*target.quantity()).name) + " has no value for these readings.";
    }

private:
    batch::RowStatus run(std::size_t point)
    {
        writeAssumptions(point);
        const Texts texts{
            textOf(m_readings.airTemperature, point),   textOf(m_readings.globeTemperature, point),
            textOf(m_readings.solarRadiation, point),   textOf(m_readings.dewPoint, point),
            textOf(m_readings.relativeHumidity, point), textOf(m_readings.windSpeed, point)};
        std::array<std::string_view, classic::kReadingCount> views;
        for (std::size_t i = 0; i < texts.size(); ++i)
            views[i] = texts[i];
        return m_runner.run(views);
    }

    // In the order of their boxes, of which that of the body's height is divided by 100.
    void writeAssumptions(std::size_t point)
    {
        const std::array<double, classic::kAssumptionCount> now{m_assumptions.effectiveRadiatingArea[point],
                                                                m_assumptions.emissivity[point],
                                                                m_assumptions.barometricPressure[point],
                                                                m_assumptions.bodyHeight[point] * 100,
                                                                m_assumptions.bodyMass[point],
                                                                m_assumptions.windExponent[point]};
        if (m_written && now == *m_written)
            return;
        classic::AssumptionTexts texts;
        for (std::size_t i = 0; i < now.size(); ++i)
            texts[i] = std::isnan(now[i]) ? std::string() : values::plainText(now[i]);
        m_runner.calculation().assumptions.write(texts);
        m_written = now;
    }

    Figure figure(const Target& target, batch::RowStatus row)
    {
        classic::Calculation& calculation = m_runner.calculation();
        if (row != batch::RowStatus::Calculated)
            return {kNaN, row == batch::RowStatus::Failed ? Status::Undefined : Status::Missing};
        const int index = target.indexNumber();
        const std::string& text =
            index != 0 ? calculation.results.lbl_results[static_cast<std::size_t>(index)].caption()
                       : calculation.liveLabel(liveOf(*target.quantity())).caption();
        const std::optional<double> value = texts::numericValue(text);
        if (value)
            return {*value, Status::Value};
        const Status status = index != 0 ? statusOf(calculation.outcome(index).kind) : Status::Undefined;
        return {kNaN, status == Status::Value ? Status::Undefined : status};
    }

    static std::int8_t placeOf(const Target& target, const catalogue::Meaning& meaning)
    {
        const auto& scale = catalogue::scale(target.indexNumber());
        return static_cast<std::int8_t>(meaning.category - scale.categories.data());
    }

    static void write(const Output& output, std::size_t point, const Figure& figure)
    {
        if (output.values != nullptr)
            output.values[static_cast<std::ptrdiff_t>(point) * output.stride] = figure.value;
        if (output.statuses != nullptr)
            output.statuses[point] = figure.status;
        const auto& meaning = figure.meaning;
        if (output.categories != nullptr)
            output.categories[point] = meaning ? placeOf(output.target, *meaning) : kNoCategory;
        if (output.severities != nullptr)
            output.severities[point] = meaning ? static_cast<std::int8_t>(meaning->severity) : kNoSeverity;
    }

    const Readings& m_readings;
    std::span<const Output> m_outputs;
    const Assumptions& m_assumptions;
    batch::RowRunner m_runner;
    std::optional<std::array<double, classic::kAssumptionCount>> m_written;
};

} // namespace

std::size_t calculateSheet(const SheetRules& rules, const Readings& readings, std::size_t count,
                           std::span<const Output> outputs, const Assumptions& assumptions,
                           const Options& options)
{
    for (const Output& output : outputs)
        if (const auto quantity = output.target.quantity())
            liveOf(*quantity);
    return engine::shareWork(count, kShare, options,
                             [&] { return std::make_unique<Rows>(rules, readings, outputs, assumptions); });
}

std::string explainSheet(const SheetRules& rules, const Readings& readings, const Target& target,
                         const Assumptions& assumptions)
{
    const Output output{target};
    if (const auto quantity = target.quantity())
        liveOf(*quantity);
    return Rows(rules, readings, {&output, 1}, assumptions).whyBlank(target);
}

} // namespace comfortics::python
