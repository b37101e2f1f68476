// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/precise_rows.h"

#include "engine/limit_judge.h"
#include "texts/number_text.h"

#include <limits>

namespace comfortics::classic {

using formulas::Live;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

constexpr Quantity quantityOf(Live quantity)
{
    return static_cast<Quantity>(quantity);
}
static_assert(quantityOf(Live::Ta) == Quantity::AirTemperature &&
                  quantityOf(Live::WS) == Quantity::WindSpeed &&
                  quantityOf(Live::Tmrt) == Quantity::MeanRadiantTemperature &&
                  quantityOf(Live::Ea) == Quantity::VapourPressure,
              "the live quantities come first and in this order");

comfortics::Limits numbersOf(int index, const IndexLimits& bounds)
{
    comfortics::Limits limits = comfortics::index(index).limits;
    limits.temperatureLow = bounds.Tair_min.number;
    limits.temperatureHigh = bounds.Tair_max.number;
    limits.windBounded = limits.bounded && bounds.WS_max.number > 0;
    limits.windLow = bounds.WS_min.number;
    limits.windHigh = bounds.WS_max.number;
    return limits;
}

} // namespace

OutcomeKind outcomeKind(Status status)
{
    switch (status) {
    case Status::Value:
        return OutcomeKind::Value;
    case Status::OutsideTemperature:
        return OutcomeKind::OutsideTemperature;
    case Status::OutsideWind:
        return OutcomeKind::OutsideWind;
    case Status::NoValue:
        return OutcomeKind::NoValue;
    case Status::Missing:
    case Status::Undefined:
    case Status::NoConvergence:
        break;
    }
    return OutcomeKind::RunFailed;
}

std::string liveText(const PreciseRows::Figure& figure)
{
    return figure.status == Status::Value ? texts::format(figure.value, values::kFormat0_00000)
                                          : std::string();
}

std::string resultText(const catalogue::CatalogueRow& row, const PreciseRows::Figure& figure)
{
    return figure.status == Status::Value ? texts::format(figure.value, row.format) : std::string();
}

PreciseRows::PreciseRows(const Limits& limits, const Settings& settings, const std::vector<int>& indices,
                         Wanted wanted)
    : m_indexCount(indices.size()), m_ignoreLimits(settings.ignoreLimits), m_meanings(wanted.meanings)
{
    for (const int index : indices)
        m_targets.emplace_back(comfortics::index(index));
    for (std::size_t i = 0; wanted.live && i < formulas::kLiveCount; ++i)
        m_targets.emplace_back(quantityOf(static_cast<Live>(i)));
    for (std::size_t i = 0; i < m_limits.size(); ++i)
        m_limits[i] = numbersOf(static_cast<int>(i) + 1, limits.of(static_cast<int>(i) + 1));
}

void PreciseRows::setAssumptions(const formulas::Assumptions& assumptions)
{
    m_assumptions = {.windExponent = assumptions.Friction.value(),
                     .barometricPressure = assumptions.Barometric.value(),
                     .emissivity = assumptions.Emissivity.value(),
                     .effectiveRadiatingArea = assumptions.ArAdu.value(),
                     .bodyHeight = assumptions.Height.value(),
                     .bodyMass = assumptions.Weight.value()};
    for (Group& group : m_groups)
        group.calculator.reset();
}

void PreciseRows::clear()
{
    m_rows.clear();
    for (Group& group : m_groups)
        group.count = 0;
}

PreciseRows::Group& PreciseRows::groupOf(bool globe, bool dewPoint)
{
    Group& group = m_groups[(globe ? 1U : 0U) + (dewPoint ? 2U : 0U)];
    if (!group.calculator) {
        for (auto& column : group.columns)
            column.resize(kMostRows);
        const auto column = [&](Reading reading, bool given) {
            return given ? Column(group.columns[static_cast<std::size_t>(reading)]) : Column();
        };
        group.readings = {.airTemperature = column(Reading::TA, true),
                          .globeTemperature = column(Reading::TG, globe),
                          .solarRadiation = column(Reading::SR, !globe),
                          .dewPoint = column(Reading::DP, dewPoint),
                          .relativeHumidity = column(Reading::RH, !dewPoint),
                          .windSpeed = column(Reading::WS, true)};
        group.calculator = std::make_unique<engine::BlockCalculator>(
            group.readings, m_assumptions, !m_ignoreLimits, [this](int index) -> const comfortics::Limits& {
                return m_limits[static_cast<std::size_t>(index - 1)];
            });
        group.values.resize(m_targets.size() * kMostRows);
        group.statuses.resize(m_targets.size() * kMostRows);
        if (m_meanings) {
            group.categories.resize(m_indexCount * kMostRows);
            group.severities.resize(m_indexCount * kMostRows);
        }
    }
    return group;
}

bool PreciseRows::take(ReadingBoxes& boxes)
{
    boxes.dropColdGlobe();
    if (!boxes.valid())
        return false;
    boxes.dropUnfinished();
    boxes.finishNumbers();
    add(boxes);
    return true;
}

// A box that is empty, as an emptied pair's may be, is a missing reading.
void PreciseRows::add(const ReadingBoxes& boxes)
{
    Group& group = groupOf(!boxes.txt_TG.text().empty(), !boxes.txt_DP.text().empty());
    for (std::size_t i = 0; i < kReadingCount; ++i) {
        const std::string& text = boxes.text(static_cast<Reading>(i));
        group.columns[i][group.count] = text.empty() ? kNaN : texts::val(text);
    }
    m_rows.push_back(
        {static_cast<std::uint8_t>(&group - m_groups.data()), static_cast<std::uint16_t>(group.count++)});
}

void PreciseRows::calculate()
{
    for (Group& group : m_groups) {
        if (group.count == 0)
            continue;
        group.calculator->begin(0, group.count);
        for (std::size_t target = 0; target < m_targets.size(); ++target) {
            const engine::Figures figures = group.calculator->figures(m_targets[target]);
            for (std::size_t i = 0; i < group.count; ++i) {
                const Status status = figures.allValues ? Status::Value : figures.statuses[i];
                group.statuses[target * kMostRows + i] = status;
                group.values[target * kMostRows + i] = status == Status::Value ? figures.values[i] : kNaN;
            }
            if (m_meanings && target < m_indexCount)
                group.calculator->meanings(m_targets[target].indexNumber(), figures,
                                           &group.categories[target * kMostRows],
                                           &group.severities[target * kMostRows]);
        }
    }
}

PreciseRows::Figure PreciseRows::at(std::size_t target, std::size_t row) const
{
    const Group& group = m_groups[m_rows[row].group];
    const std::size_t place = target * kMostRows + m_rows[row].place;
    return {group.values[place], group.statuses[place]};
}

PreciseRows::Figure PreciseRows::figure(std::size_t place, std::size_t row) const
{
    return at(place, row);
}

std::optional<catalogue::Meaning> PreciseRows::meaning(std::size_t place, std::size_t row) const
{
    const Group& group = m_groups[m_rows[row].group];
    const std::size_t at = place * kMostRows + m_rows[row].place;
    if (group.categories[at] == kNoCategory)
        return std::nullopt;
    const auto categories = catalogue::scale(m_targets[place].indexNumber()).categories;
    return catalogue::Meaning{&categories[static_cast<std::size_t>(group.categories[at])],
                              group.severities[at]};
}

PreciseRows::Figure PreciseRows::live(Live quantity, std::size_t row) const
{
    return at(m_indexCount + static_cast<std::size_t>(quantity), row);
}

engine::BlockCalculator& PreciseRows::alone(std::size_t row)
{
    engine::BlockCalculator& calculator = *m_groups[m_rows[row].group].calculator;
    const engine::Weather& weather = calculator.weather();
    if (weather.first() != m_rows[row].place || weather.count() != 1) // else what was derived still stands
        calculator.begin(m_rows[row].place, 1);
    return calculator;
}

std::string PreciseRows::whyNot(int index, std::size_t row)
{
    const auto& limits = m_limits[static_cast<std::size_t>(index - 1)];
    return engine::explainPoint(alone(row), m_groups[m_rows[row].group].readings, comfortics::index(index),
                                m_ignoreLimits ? nullptr : &limits);
}

Status PreciseRows::limitStatus(int index, std::size_t row)
{
    return alone(row).limitStatus(index);
}

PreciseRows::Judged PreciseRows::judged(int index, std::size_t row)
{
    const auto& limits = m_limits[static_cast<std::size_t>(index - 1)];
    engine::Weather& weather = alone(row).weather();
    const auto quantities = engine::judgedQuantities(limits);
    const auto valueOf = [&](Quantity quantity) { return weather.of(quantity).values[0]; };
    return {engine::judgedTemperature(limits.judged, valueOf(quantities[0]),
                                      quantities.size() > 1 ? valueOf(quantities[1]) : kNaN),
            limits.windBounded ? valueOf(quantities.back()) : kNaN};
}

} // namespace comfortics::classic
