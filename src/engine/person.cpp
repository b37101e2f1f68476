// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/person.h>

#include "catalogue/addition_inputs.h"
#include "catalogue/rates.h"
#include "standards/adaptive_en.h"
#include "standards/picking_tables.h"
#include "standards/wbgt_iso7243.h"
#include "values/float_flags.h"

#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics {

namespace {

using catalogue::RateUnit;

static_assert(static_cast<int>(MetabolicUnit::WattsAboveBasal) ==
              static_cast<int>(RateUnit::WattsAboveBasal));
static_assert(static_cast<int>(MetabolicUnit::Met) == static_cast<int>(RateUnit::Met));
static_assert(kRunningDays == standards::kRunningDays);

template <typename Table>
std::vector<Garment> garmentsOf(const Table& table)
{
    std::vector<Garment> all;
    all.reserve(table.size());
    for (const standards::Garment& one : table)
        all.push_back({one.id, one.name, one.clo});
    return all;
}

/// `mean` of the seven days and the number of a point.
template <typename Mean>
void runningMeans(std::span<const Column> days, std::size_t count, double* results, ModelStatus* statuses,
                  Mean mean)
{
    if (days.size() != kRunningDays)
        throw std::invalid_argument("comfortics: a running mean has 7 days, not " +
                                    std::to_string(days.size()));
    for (const Column& day : days)
        if (!day.given())
            throw std::invalid_argument("comfortics: a day of the running mean is not given");
    const values::FloatFlags flags;
    std::array<double, kRunningDays> temperatures{};
    for (std::size_t point = 0; point < count; ++point) {
        for (std::size_t k = 0; k < kRunningDays; ++k)
            temperatures[k] = days[k][point];
        const standards::RunningMean found = mean(temperatures, point);
        results[point] = found.t;
        if (statuses != nullptr)
            statuses[point] = static_cast<ModelStatus>(found.verdict.standing);
    }
}

} // namespace

std::span<const Activity> activities() noexcept
{
    static const auto all = [] {
        std::vector<Activity> made;
        made.reserve(catalogue::activities().size());
        for (const catalogue::PickedRate& one : catalogue::activities())
            made.push_back(
                {one.id, one.name, one.rate.value, static_cast<MetabolicUnit>(one.rate.unit), one.source});
        return made;
    }();
    return all;
}

std::span<const Garment> ensembles() noexcept
{
    static const auto all = garmentsOf(standards::kEnsembles);
    return all;
}

std::span<const Garment> garments() noexcept
{
    static const auto all = garmentsOf(standards::kGarments);
    return all;
}

std::span<const Garment> chairs() noexcept
{
    static const auto all = garmentsOf(standards::kChairs);
    return all;
}

std::span<const WorkClothing> workClothing() noexcept
{
    static const auto all = [] {
        std::vector<WorkClothing> made;
        made.reserve(catalogue::inputs::kWorkClothes.size());
        for (const catalogue::Choice& choice : catalogue::inputs::kWorkClothes)
            made.push_back(
                {choice.value, choice.word, choice.text,
                 standards::clothingAdjustment(static_cast<standards::WorkClothing>(choice.value))});
        return made;
    }();
    return all;
}

double insulationOf(std::span<const double> garments, double chair) noexcept
{
    const values::FloatFlags flags;
    return standards::ensembleOf(garments, chair).clo;
}

double insulationOf(std::span<const std::string_view> garments)
{
    const values::FloatFlags flags;
    const catalogue::WornTogether worn = catalogue::insulationOfGarments(garments);
    if (!worn.fault.empty())
        throw std::invalid_argument("comfortics: " + worn.fault);
    return worn.clo;
}

void clothingByWeather(const Column& temperatures, std::size_t count, double* results)
{
    if (!temperatures.given())
        throw std::invalid_argument("comfortics: the outdoor temperature is not given");
    const values::FloatFlags flags;
    for (std::size_t point = 0; point < count; ++point)
        results[point] = standards::clothingByWeather(temperatures[point]).clo;
}

void convertMetabolicRate(const Column& rates, MetabolicUnit from, MetabolicUnit to, const Bodies& bodies,
                          std::size_t count, double* results)
{
    if (!rates.given())
        throw std::invalid_argument("comfortics: the metabolic rate is not given");
    const auto given = static_cast<RateUnit>(from);
    const auto wanted = static_cast<RateUnit>(to);
    const auto bodyBy = [&](auto&& number) {
        return catalogue::bodyOf([&](std::string_view id) {
            const Column& column = id == "weight"   ? bodies.weight
                                   : id == "height" ? bodies.height
                                   : id == "age"    ? bodies.age
                                   : id == "sex"    ? bodies.sex
                                                    : bodies.surface;
            return column.given() ? number(column) : std::numeric_limits<double>::quiet_NaN();
        });
    };
    // What is given has some number here, 0 that of a sex.
    const std::string_view lacking =
        catalogue::lackingFor(given, wanted, bodyBy([](const Column&) { return 0.0; }));
    if (!lacking.empty())
        throw std::invalid_argument("comfortics: the " + std::string(lacking) + " of the body is not given");
    const values::FloatFlags flags;
    for (std::size_t point = 0; point < count; ++point)
        results[point] = catalogue::convertedRate(
            {rates[point], given}, wanted, bodyBy([point](const Column& column) { return column[point]; }));
}

void runningMean(std::span<const Column> days, const Column& alpha, std::size_t count, double* results,
                 ModelStatus* statuses)
{
    if (!alpha.given())
        throw std::invalid_argument("comfortics: the alpha of the running mean is not given");
    runningMeans(days, count, results, statuses,
                 [&alpha](std::span<const double, kRunningDays> temperatures, std::size_t point) {
                     return standards::runningMean(temperatures, alpha[point]);
                 });
}

void runningMeanFixed(std::span<const Column> days, std::size_t count, double* results, ModelStatus* statuses)
{
    runningMeans(days, count, results, statuses,
                 [](std::span<const double, kRunningDays> temperatures, std::size_t /*point*/) {
                     return standards::runningMeanFixed(temperatures);
                 });
}

} // namespace comfortics
