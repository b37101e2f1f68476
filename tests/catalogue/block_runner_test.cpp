// SPDX-License-Identifier: GPL-3.0-or-later
//
// The blocks of plain doubles against the checked formulas, for all indices of the catalogue.
#include "formulas/block_runner.h"

#include "catalogue/catalogue.h"
#include "values/run_failure.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfenv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace comfortics::catalogue {
namespace {

using namespace formulas;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct PointAnswer {
    PointStatus status;
    std::uint64_t bits; ///< of a value, 0 without one
    friend bool operator==(const PointAnswer&, const PointAnswer&) = default;
};

std::ostream& operator<<(std::ostream& out, const PointAnswer& answer)
{
    return out << "status " << static_cast<int>(answer.status) << " value "
               << std::bit_cast<double>(answer.bits);
}

PointAnswer checked(const FormulaCall& call, const std::vector<double>& point, const Assumptions& site,
                    Rules rules)
{
    FormulaInputs inputs;
    for (std::size_t i = 0; i < point.size(); ++i) {
        if (std::isnan(point[i]))
            return {PointStatus::Missing, 0};
        inputs[i] = point[i];
    }
    try {
        const auto value = call.function({site, rules}, inputs);
        return value ? PointAnswer{PointStatus::Value, std::bit_cast<std::uint64_t>(value->value())}
                     : PointAnswer{PointStatus::NoValue, 0};
    } catch (const values::RunFailure&) {
        return {PointStatus::Undefined, 0};
    }
}

PointAnswer answer(double value, PointStatus status)
{
    EXPECT_EQ(std::isnan(value), status != PointStatus::Value);
    return {status, status == PointStatus::Value ? std::bit_cast<std::uint64_t>(value) : 0};
}

/// Points of weather, rounded or not; from the given share on with numbers at which formulas branch or fail.
class Weather {
public:
    double draw(bool mayBeSpecial)
    {
        static constexpr double kSpecial[] = {
            0,       -0.0,     1,         -1,     0.1, 0.2,   0.6,    5,       7.2,
            12,      18.8,     20,        20.5,   25,  -30,   22,     31.5,    33,
            36,      36.5,     40,        50,     100, -90,   -237.3, -237.7,  308,
            1e9,     -1e9,     1e-300,    4e-320, 1e6, 1e160, -1e160, 1e300,   -1e300,
            1.7e308, -1.7e308, kInfinity, 42,     58,  kNaN,  0.05,   -273.15, 24.999999999999996,
            -0.1,    -243.5,   -kInfinity};
        const auto between = [this](double low, double high) {
            return std::uniform_real_distribution<double>(low, high)(m_random);
        };
        if (mayBeSpecial && m_random() % 4 == 0)
            return kSpecial[m_random() % std::size(kSpecial)];
        const std::uint64_t kind = m_random() % 16;
        double value = kind < 9 ? between(0.5, 45) : kind < 13 ? between(0, 110) : between(-40, 1100);
        if (kind % 2 == 0)
            value = std::nearbyint(value * 10) / 10;
        return value;
    }

private:
    std::mt19937_64 m_random{218};
};

// Weather alone first, whose blocks run without a repeat; then some special numbers in few points; then
// many. Each input once packed and once with gaps.
TEST(BlockRunner, GivesTheBitsAndFailuresOfTheCheckedFormula)
{
    constexpr std::size_t kPoints = 1700;
    const AssumptionsOf<double> sites[] = {{},
                                           {.Friction = 0.27,
                                            .Height = 0.62,
                                            .Weight = 171,
                                            .Barometric = 987,
                                            .Emissivity = 0.91,
                                            .ArAdu = 0.71},
                                           {.Height = -0.62, .Barometric = 0},
                                           {.Friction = kNaN, .Emissivity = kInfinity}};
    Weather weather;
    std::size_t tested = 0;
    for (const CatalogueRow& row : rows()) {
        const FormulaCall& call = row.formula;
        if (call.function == nullptr)
            continue;
        ++tested;
        for (std::size_t s = 0; s < std::size(sites); ++s) {
            const AssumptionsOf<double>& site = sites[s];
            const Assumptions checkedSite{site.Friction,   site.Height,     site.Weight,
                                          site.Barometric, site.Emissivity, site.ArAdu};
            const Rules rules = s % 2 == 0 ? Rules::Classic : Rules::Robust;
            const std::size_t points = s < 2 ? kPoints : kPoints / 8;
            std::vector<std::vector<double>> columns(call.arity, std::vector<double>(2 * points));
            for (std::size_t point = 0; point < points; ++point)
                for (auto& column : columns)
                    column[point] =
                        weather.draw(point > points / 2 && (point > points * 3 / 4 || point % 61 == 0));
            std::vector<InputColumn> inputs;
            for (std::size_t i = 0; i < call.arity; ++i) {
                if (i % 2 == 1) {
                    std::vector<double> spread(2 * points);
                    for (std::size_t point = 0; point < points; ++point)
                        spread[2 * point] = columns[i][point];
                    columns[i] = spread;
                }
                inputs.push_back({columns[i].data(), i % 2 == 1 ? 2 : 1});
            }
            std::vector<double> results(points);
            std::vector<PointStatus> statuses(points);
            calculateColumns(call, inputs, site, rules, points, {results.data(), 1, statuses.data()});
            for (std::size_t point = 0; point < points; ++point) {
                std::vector<double> given;
                for (const InputColumn& input : inputs)
                    given.push_back(input.values[static_cast<std::ptrdiff_t>(point) * input.stride]);
                ASSERT_EQ(answer(results[point], statuses[point]), checked(call, given, checkedSite, rules))
                    << "index " << row.number << " of " << testing::PrintToString(given) << ", site " << s;
            }
        }
    }
    EXPECT_EQ(tested, kIndexCount - 4); // all but the models
}

TEST(BlockRunner, BroadcastsTakesResultsInPlaceAndKeepsTheFlags)
{
    const FormulaCall& call = row(96).formula; // Ta * RH / root of WS: fails in still air
    std::vector<double> column{1, kNaN, 3, 4, 0, 5};
    const double Ta = 20;
    const double WS = 4;
    const std::vector<InputColumn> inputs{{&Ta, 0}, {column.data(), 2}, {&WS, 0}};
    calculateColumns(call, inputs, {}, Rules::Classic, 3, {column.data(), 2, nullptr});
    EXPECT_EQ(column[0], 10);
    EXPECT_EQ(column[2], 30);
    EXPECT_EQ(column[3], 4);
    EXPECT_EQ(column[4], 0);

    std::feclearexcept(FE_ALL_EXCEPT);
    std::feraiseexcept(FE_UNDERFLOW);
    const double calm = 0;
    double result = 0;
    PointStatus status = PointStatus::Value;
    const std::vector<InputColumn> failing{{&Ta, 0}, {&Ta, 0}, {&calm, 0}};
    calculateColumns(call, failing, {}, Rules::Classic, 1, {&result, 1, &status});
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT & ~FE_INEXACT), FE_UNDERFLOW);
    EXPECT_TRUE(std::isnan(result));
    EXPECT_EQ(status, PointStatus::Undefined);
}

} // namespace
} // namespace comfortics::catalogue
