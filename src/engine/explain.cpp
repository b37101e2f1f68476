// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/calculation.h"

#include "engine/limit_judge.h"
#include "models/precise_roots.h"
#include "values/float_flags.h"
#include "values/plain_text.h"
#include "values/run_failure.h"

#include <optional>
#include <vector>

namespace comfortics {

namespace engine {

namespace {

using enum Quantity;
using values::plainText;

std::string measured(double value, std::string_view unit)
{
    return plainText(value) + " " + std::string(unit);
}

std::string measured(Quantity quantity, double value)
{
    return measured(value, info(quantity).unit);
}

std::string lowered(std::string_view name)
{
    std::string text(name);
    if (!text.empty() && text[0] >= 'A' && text[0] <= 'Z')
        text[0] = static_cast<char>(text[0] - 'A' + 'a');
    return text;
}

/// The reasons of one point.
class Explanation {
public:
    Explanation(BlockCalculator& calculator, const Readings& readings)
        : m_calculator(calculator), m_readings(readings)
    {
    }

    std::string ofIndex(const Target& target, const Limits* limits)
    {
        const Figures figures = m_calculator.figures(target);
        const Status status = figures.allValues ? Status::Value : figures.statuses[0];
        if (status == Status::Value)
            return {};
        const Recipe& made = recipe(target.indexNumber());
        for (const auto& source : made.inputs())
            if (source && statusOf(*source) != Status::Value)
                return ofQuantity(*source);
        if (status == Status::Undefined && made.needsAir && !hasAir())
            return ofAir();
        if (limits != nullptr) {
            for (const Quantity judged : judgedQuantities(*limits))
                if (statusOf(judged) != Status::Value)
                    return "Whether it lies within its limits cannot be told. " + ofQuantity(judged);
            if (status == Status::OutsideTemperature)
                return ofTemperature(*limits);
            if (status == Status::OutsideWind)
                return ofWind(*limits);
        }
        return ofFormula(made, status);
    }

    std::string ofQuantity(Quantity quantity)
    {
        const Status status = statusOf(quantity);
        if (status == Status::Value)
            return {};
        const std::string name(info(quantity).name);
        if (const Column* const column = reading(m_readings, quantity)) {
            const double value = (*column)[m_calculator.weather().first()];
            if (status == Status::Missing)
                return name + " is missing.";
            return name + " cannot be " + measured(quantity, value) + ".";
        }
        for (const Quantity source : sources(quantity))
            if (statusOf(source) != Status::Value)
                return ofQuantity(source);
        if (isOfBalance(quantity) && !hasAir())
            return ofAir();
        if (quantity == Quantity::SolarRadiation)
            return "No solar radiation up to " + measured(quantity, models::kMostRadiation) +
                   " brings the globe to " + measured(GlobeTemperature, valueOf(GlobeTemperature)) + ".";
        if (isOfBalance(quantity))
            return "The heat balance of the " + lowered(name) + " has no solution.";
        if (quantity == DewPoint)
            return "There is no dew point at a relative humidity of " +
                   measured(RelativeHumidity, valueOf(RelativeHumidity)) + ".";
        return name + " has no defined value for these readings.";
    }

private:
    Status statusOf(Quantity quantity)
    {
        const Figures& figures = m_calculator.weather().of(quantity);
        return figures.allValues ? Status::Value : figures.statuses[0];
    }
    double valueOf(Quantity quantity) { return m_calculator.weather().of(quantity).values[0]; }
    bool hasAir() { return m_calculator.weather().air().allValues; }

    static bool isOfBalance(Quantity quantity)
    {
        return quantity == GlobeTemperature || quantity == Quantity::SolarRadiation ||
               quantity == NaturalWetBulbTemperature || quantity == PsychrometricWetBulbTemperature;
    }

    /// What a derived quantity is made of.
    std::vector<Quantity> sources(Quantity quantity) const
    {
        const bool dewPointGiven = m_readings.dewPoint.given();
        switch (quantity) {
        case DewPoint:
            return {AirTemperature, RelativeHumidity};
        case RelativeHumidity:
        case PsychrometricWetBulbTemperature:
            return {AirTemperature, DewPoint};
        case GlobeTemperature:
        case NaturalWetBulbTemperature:
            return {AirTemperature, dewPointGiven ? DewPoint : RelativeHumidity, RelativeHumidity, WindSpeed,
                    Quantity::SolarRadiation};
        case Quantity::SolarRadiation:
            return {AirTemperature, dewPointGiven ? DewPoint : RelativeHumidity, RelativeHumidity, WindSpeed,
                    GlobeTemperature};
        default:
            break;
        }
        std::vector<Quantity> all;
        if (const Recipe* const made = quantityRecipe(quantity))
            for (const auto& source : made->inputs())
                all.push_back(*source);
        return all;
    }

    std::string ofAir()
    {
        if (statusOf(DewPoint) != Status::Value)
            return ofQuantity(DewPoint);
        return "The dew point of " + measured(DewPoint, valueOf(DewPoint)) +
               " lies above the air temperature of " + measured(AirTemperature, valueOf(AirTemperature)) +
               ".";
    }

    std::string ofTemperature(const Limits& limits)
    {
        const auto judged = judgedQuantities(limits);
        const double second = judged.size() > 1 ? valueOf(judged[1]) : 0;
        std::string subject = "the " + lowered(info(judged[0]).name);
        if (limits.judged == Judged::MeanOfRadiantAndAir)
            subject = "the mean of radiant and air temperature";
        else if (limits.judged == Judged::RadiantLessAir)
            subject = "the mean radiant less the air temperature";
        return "Outside its limits: " + subject + " is " +
               measured(judgedTemperature(limits.judged, valueOf(judged[0]), second), "°C") +
               ", valid from " + plainText(limits.temperatureLow) + " to " +
               measured(limits.temperatureHigh, "°C") + ".";
    }

    std::string ofWind(const Limits& limits)
    {
        const Quantity wind = judgedQuantities(limits).back();
        return "Outside its limits: the " + lowered(info(wind).name) + " is " +
               measured(wind, valueOf(wind)) + ", valid from " + plainText(limits.windLow) + " to " +
               measured(wind, limits.windHigh) + ".";
    }

    // The checked formula tells on what it fails.
    std::string ofFormula(const Recipe& made, Status status)
    {
        if (status == Status::Missing)
            return "An assumption of site or body is missing.";
        if (status == Status::NoValue)
            return "The formula has no value for these readings.";
        formulas::FormulaInputs inputs;
        for (std::size_t i = 0; i < made.call->arity; ++i)
            inputs[i] = made.sources[i] ? valueOf(*made.sources[i]) : 0;
        try {
            const auto site = m_calculator.weather().runner().siteAt(0);
            made.call->function({formulas::checked(site), formulas::Rules::Precise}, inputs);
        } catch (const values::RunFailure& failure) {
            return "The formula fails: " + failure.why() + ".";
        }
        return "The formula has no defined value for these readings.";
    }

    BlockCalculator& m_calculator;
    const Readings& m_readings;
};

} // namespace

std::string explainPoint(BlockCalculator& calculator, const Readings& readings, const Target& target,
                         const Limits* limits)
{
    Explanation explanation(calculator, readings);
    if (const auto quantity = target.quantity())
        return explanation.ofQuantity(*quantity);
    return explanation.ofIndex(target, limits);
}

} // namespace engine

std::string explain(const Target& target, const Readings& readings, std::size_t point,
                    const Assumptions& assumptions, const Options& options)
{
    const Output output{target};
    engine::check(readings, {&output, 1}, engine::limitsOfCatalogue, options.limits);
    const values::FloatFlags flags;
    engine::BlockCalculator calculator(readings, assumptions, options.limits, engine::limitsOfCatalogue);
    calculator.begin(point, 1);
    const bool judged = options.limits && target.indexNumber() != 0;
    return engine::explainPoint(calculator, readings, target,
                                judged ? &index(target.indexNumber()).limits : nullptr);
}

} // namespace comfortics
