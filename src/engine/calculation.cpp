// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/calculation.h"

#include "catalogue/categories.h"
#include "engine/limit_judge.h"
#include "engine/recipe.h"
#include "engine/weather.h"
#include "engine/work_sharing.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace comfortics {

using namespace engine;

namespace engine {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
/// Blocks that a thread takes at a time.
constexpr std::size_t kShare = 8 * kBlockPoints;

std::invalid_argument misuse(const std::string& what)
{
    return std::invalid_argument("comfortics: " + what);
}

std::string nameOf(const Target& target)
{
    if (const auto quantity = target.quantity())
        return std::string(info(*quantity).id);
    return std::string(index(target.indexNumber()).id);
}

bool hasAir(const Readings& readings)
{
    return readings.airTemperature.given() &&
           (readings.dewPoint.given() || readings.relativeHumidity.given());
}

bool hasBalance(const Readings& readings)
{
    return hasAir(readings) && readings.windSpeed.given();
}

/// Whether a quantity can be had from what is given.
bool canBeHad(Quantity quantity, const Readings& readings)
{
    if (reading(readings, quantity) != nullptr)
        return true;
    const bool sun = readings.solarRadiation.given() || readings.globeTemperature.given();
    switch (quantity) {
    case Quantity::DewPoint:
    case Quantity::RelativeHumidity:
    case Quantity::PsychrometricWetBulbTemperature:
        return hasAir(readings);
    case Quantity::GlobeTemperature:
    case Quantity::SolarRadiation:
    case Quantity::NaturalWetBulbTemperature:
    case Quantity::WbgtOutdoor:
        return hasBalance(readings) && sun;
    case Quantity::MeanRadiantTemperature:
        return readings.airTemperature.given() && readings.windSpeed.given() &&
               (readings.globeTemperature.given() || (hasBalance(readings) && sun));
    case Quantity::SaturationVapourPressure:
        return readings.airTemperature.given();
    case Quantity::VapourPressure:
        return readings.dewPoint.given() || hasAir(readings);
    case Quantity::WindSpeedAt10m:
        return readings.windSpeed.given();
    default:
        return false;
    }
}

/// What the user could give for a quantity.
std::string_view whatGives(Quantity quantity, const Readings& readings)
{
    if (!readings.airTemperature.given() && quantity != Quantity::WindSpeed &&
        quantity != Quantity::WindSpeedAt10m)
        return "airTemperature";
    const bool humid = readings.dewPoint.given() || readings.relativeHumidity.given();
    switch (quantity) {
    case Quantity::WindSpeed:
    case Quantity::WindSpeedAt10m:
        return "windSpeed";
    case Quantity::DewPoint:
    case Quantity::RelativeHumidity:
    case Quantity::PsychrometricWetBulbTemperature:
    case Quantity::VapourPressure:
        return "dewPoint or relativeHumidity";
    default:
        if (!readings.globeTemperature.given() && !readings.solarRadiation.given())
            return "globeTemperature or solarRadiation";
        return !humid ? "dewPoint or relativeHumidity" : "windSpeed";
    }
}

void require(const Target& target, Quantity quantity, const Readings& readings, const char* use)
{
    if (!canBeHad(quantity, readings))
        throw misuse(nameOf(target) + use + std::string(info(quantity).id) + ": " +
                     std::string(whatGives(quantity, readings)) + " must be given");
}

} // namespace

void check(const Readings& readings, std::span<const Output> outputs, const LimitsOf& limitsOf, bool limits)
{
    if (readings.globeTemperature.given() && readings.solarRadiation.given())
        throw misuse("both globeTemperature and solarRadiation are given");
    if (readings.dewPoint.given() && readings.relativeHumidity.given())
        throw misuse("both dewPoint and relativeHumidity are given");
    for (const Output& output : outputs) {
        if (const auto quantity = output.target.quantity()) {
            require(output.target, *quantity, readings, " needs ");
            continue;
        }
        const int number = index(output.target.indexNumber()).number; // or throws
        for (const auto& quantity : recipe(number).inputs())
            if (quantity)
                require(output.target, *quantity, readings, " needs ");
        if (limits)
            for (const Quantity quantity : judgedQuantities(limitsOf(number)))
                require(output.target, quantity, readings, " is judged by ");
    }
}

// NOLINTNEXTLINE(cppcoreguidelines-pro-type-member-init): written before they are read
BlockCalculator::BlockCalculator(const Readings& readings, const Assumptions& assumptions, bool limits,
                                 LimitsOf limitsOf)
    : m_weather(std::make_unique<Weather>(readings, assumptions)), m_limits(limits),
      m_limitsOf(std::move(limitsOf))
{
}

BlockCalculator::~BlockCalculator() = default;

void BlockCalculator::begin(std::size_t first, std::size_t count)
{
    m_weather->begin(first, count);
}

Figures BlockCalculator::figures(const Target& target)
{
    if (const auto quantity = target.quantity())
        return m_weather->of(*quantity);

    const int number = target.indexNumber();
    const Recipe& made = recipe(number);
    Status* const statuses = m_statuses.data();
    bool all = m_weather->combine(made.inputs(), statuses);
    if (made.needsAir)
        all = m_weather->alsoOf(m_weather->air(), statuses) && all;
    if (m_limits)
        all = judgeAll(number, statuses) && all;
    m_weather->runner().run(*made.call, m_weather->inputs(made), m_weather->count(), all, m_values.data(),
                            statuses);
    return {m_values.data(), statuses, false};
}

/// Leaves out the points where the limits exclude the index, or cannot be judged. Returns whether there are
/// none.
bool BlockCalculator::judgeAll(int number, Status* statuses)
{
    const Limits& limits = m_limitsOf(number);
    const std::span<const Quantity> judged = judgedQuantities(limits);
    std::array<const double*, 3> columns{};
    bool all = true;
    for (std::size_t i = 0; i < judged.size(); ++i) {
        const Figures& figures = m_weather->of(judged[i]);
        all = m_weather->alsoOf(figures, statuses) && all;
        columns[i] = figures.values;
    }
    return judge(limits, {columns.data(), judged.size()}, m_weather->count(), statuses) && all;
}

Status BlockCalculator::limitStatus(int number)
{
    m_statuses[0] = Status::Value;
    judgeAll(number, m_statuses.data());
    return m_statuses[0];
}

void BlockCalculator::meanings(int number, const Figures& figures, std::int8_t* categories,
                               std::int8_t* severities)
{
    const std::size_t count = m_weather->count();
    if (categories != nullptr)
        std::fill_n(categories, count, kNoCategory);
    if (severities != nullptr)
        std::fill_n(severities, count, kNoSeverity);
    const catalogue::Scale& scale = catalogue::scale(number);
    if (scale.categories.empty())
        return;
    if (figures.allValues)
        std::fill_n(m_judged.data(), count, Status::Value);
    else
        std::copy_n(figures.statuses, count, m_judged.data());
    if (!m_limits)
        judgeAll(number, m_judged.data());

    // The votes take the place of nothing that is still read: they are calculated on their own.
    const int vote = catalogue::voteBeside(number);
    if (vote != 0) {
        const Recipe& made = recipe(vote);
        const bool all = m_weather->combine(made.inputs(), m_voteStatuses.data());
        m_weather->runner().run(*made.call, m_weather->inputs(made), count, all, m_votes.data(),
                                m_voteStatuses.data());
    }
    const bool polar = catalogue::hasPole(number); // such an index reads both
    for (std::size_t i = 0; i < count; ++i) {
        if (m_judged[i] != Status::Value)
            continue;
        catalogue::Surroundings surroundings{};
        if (polar)
            surroundings = {m_weather->of(Quantity::AirTemperature).values[i],
                            m_weather->of(Quantity::VapourPressure).values[i]};
        if (vote != 0 && m_voteStatuses[i] == Status::Value)
            surroundings.vote = m_votes[i];
        const auto meaning = catalogue::meaning(number, figures.values[i], surroundings);
        if (!meaning)
            continue;
        if (categories != nullptr)
            categories[i] = static_cast<std::int8_t>(meaning->category - scale.categories.data());
        if (severities != nullptr)
            severities[i] = static_cast<std::int8_t>(meaning->severity);
    }
}

namespace {

class OutputWorker final : public Worker {
public:
    OutputWorker(const Readings& readings, const Assumptions& assumptions, std::span<const Output> outputs,
                 bool limits)
        : m_calculator(readings, assumptions, limits, limitsOfCatalogue), m_outputs(outputs)
    {
    }

    void work(std::size_t first, std::size_t count) override
    {
        for (const std::size_t end = first + count; first < end; first += kBlockPoints) {
            const std::size_t size = std::min(kBlockPoints, end - first);
            m_calculator.begin(first, size);
            for (const Output& output : m_outputs) {
                const Figures figures = m_calculator.figures(output.target);
                write(figures, output, first, size);
                tellMeanings(figures, output, first, size);
            }
        }
    }

private:
    static void write(const Figures& figures, const Output& output, std::size_t first, std::size_t count)
    {
        if (output.values != nullptr)
            for (std::size_t i = 0; i < count; ++i)
                output.values[static_cast<std::ptrdiff_t>(first + i) * output.stride] =
                    figures.allValues || figures.statuses[i] == Status::Value ? figures.values[i] : kNaN;
        if (output.statuses == nullptr)
            return;
        if (figures.allValues)
            std::fill_n(output.statuses + first, count, Status::Value);
        else
            std::copy_n(figures.statuses, count, output.statuses + first);
    }

    void tellMeanings(const Figures& figures, const Output& output, std::size_t first, std::size_t count)
    {
        if (output.categories == nullptr && output.severities == nullptr)
            return;
        const auto place = [first](std::int8_t* column) {
            return column == nullptr ? nullptr : column + first;
        };
        if (const int number = output.target.indexNumber(); number != 0) {
            m_calculator.meanings(number, figures, place(output.categories), place(output.severities));
            return;
        }
        if (output.categories != nullptr)
            std::fill_n(output.categories + first, count, kNoCategory);
        if (output.severities != nullptr)
            std::fill_n(output.severities + first, count, kNoSeverity);
    }

    BlockCalculator m_calculator;
    std::span<const Output> m_outputs;
};

} // namespace

const Limits& limitsOfCatalogue(int number)
{
    return index(number).limits;
}

} // namespace engine

int Target::indexNumber() const noexcept
{
    const int* const number = std::get_if<int>(&m_target);
    return number == nullptr ? 0 : *number;
}

std::optional<Quantity> Target::quantity() const noexcept
{
    const Quantity* const quantity = std::get_if<Quantity>(&m_target);
    return quantity == nullptr ? std::nullopt : std::optional(*quantity);
}

std::size_t calculate(const Readings& readings, std::size_t count, std::span<const Output> outputs,
                      const Assumptions& assumptions, const Options& options)
{
    check(readings, outputs, limitsOfCatalogue, options.limits);
    return shareWork(count, kShare, options, [&] {
        return std::make_unique<OutputWorker>(readings, assumptions, outputs, options.limits);
    });
}

} // namespace comfortics
