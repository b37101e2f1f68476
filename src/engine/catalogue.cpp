// SPDX-License-Identifier: GPL-3.0-or-later
#include <comfortics/catalogue.h>

#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
#include "catalogue/finder.h"
#include "catalogue/references.h"
#include "catalogue/validity.h"
#include "engine/category_list.h"
#include "engine/recipe.h"
#include "values/same_letters.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

namespace comfortics {

namespace {

static_assert(kIndexCount == catalogue::kIndexCount);
static_assert(static_cast<int>(Family::Psychrometry) == static_cast<int>(catalogue::Family::Psychrometry) &&
              static_cast<int>(Family::Cold) == static_cast<int>(catalogue::Family::Cold));
static_assert(static_cast<int>(Confidence::NameOnly) == static_cast<int>(catalogue::Confidence::NameOnly));

constexpr std::array<QuantityInfo, kQuantityCount> kQuantities{{
    {"air_temperature", "Ta", "Air temperature", "°C"},
    {"globe_temperature", "Tg", "Globe temperature", "°C"},
    {"solar_radiation", "SR", "Solar radiation", "W/m²"},
    {"dew_point", "Td", "Dew point", "°C"},
    {"relative_humidity", "RH", "Relative humidity", "%"},
    {"wind_speed", "WS", "Wind speed", "m/s"},
    {"mean_radiant_temperature", "Tmrt", "Mean radiant temperature", "°C"},
    {"natural_wet_bulb_temperature", "Tnwb", "Natural wet-bulb temperature", "°C"},
    {"psychrometric_wet_bulb_temperature", "Tpwb", "Psychrometric wet-bulb temperature", "°C"},
    {"saturation_vapour_pressure", "Es", "Saturation vapour pressure", "hPa"},
    {"vapour_pressure", "Ea", "Vapour pressure", "hPa"},
    {"wbgt_outdoor", "WBGT", "Outdoor wet-bulb globe temperature", "°C"},
    {"wind_speed_10m", "WS10", "Wind speed at 10 m", "m/s"},
}};

Judged judgedOf(catalogue::Gated gated)
{
    switch (gated) {
    case catalogue::Gated::Ta:
        break;
    case catalogue::Gated::Tnwb:
        return Judged::NaturalWetBulbTemperature;
    case catalogue::Gated::MeanOfTmrtAndTa:
        return Judged::MeanOfRadiantAndAir;
    case catalogue::Gated::TmrtLessTa:
        return Judged::RadiantLessAir;
    case catalogue::Gated::WBGT_Outdoor:
        return Judged::WbgtOutdoor;
    }
    return Judged::AirTemperature;
}

Limits limitsOf(const catalogue::CatalogueRow& row)
{
    if (row.gate == catalogue::Gate::None)
        return {};
    const catalogue::Validity& validity = catalogue::validity(row.number);
    return {.bounded = true,
            .judged = judgedOf(row.gated),
            .temperatureLow = validity.temperatureMin,
            .temperatureHigh = validity.temperatureMax,
            .windBounded = validity.windMax > 0,
            .windAt10m = row.gateWind == catalogue::GateWind::At10m,
            .windLow = validity.windMin,
            .windHigh = validity.windMax};
}

Reference referenceOf(const catalogue::Reference& reference)
{
    return {reference.authors,   reference.year,  reference.title,
            reference.published, reference.where, static_cast<Confidence>(reference.confidence)};
}

/// The indices, made from the rooms' rows when they are first asked for.
class Indices {
public:
    Indices()
    {
        for (const catalogue::CatalogueRow& row : catalogue::rows()) {
            const auto at = static_cast<std::size_t>(row.number - 1);
            const engine::Recipe& recipe = engine::publishedRecipe(row.number);
            std::size_t inputs = 0;
            for (const auto& quantity : recipe.inputs())
                if (quantity)
                    m_inputs[at][inputs++] = *quantity;
            const catalogue::Reference& reference = catalogue::reference(row.number);
            const catalogue::Scale& scale = catalogue::scale(row.number);
            engine::appendCategories(m_categories, scale);
            m_all[at] = {.number = row.number,
                         .id = reference.id,
                         .name = row.name,
                         .unit = row.unit,
                         .family = static_cast<Family>(reference.family),
                         .inputs = {m_inputs[at].data(), inputs},
                         .readsAssumptions = recipe.call->readsAssumptions,
                         .limits = limitsOf(row),
                         .reference = referenceOf(reference),
                         .categories = {},
                         .categorySource = scale.source};
        }
        const Category* next = m_categories.data();
        for (Index& index : m_all) {
            const std::size_t count = catalogue::scale(index.number).categories.size();
            index.categories = {next, count};
            next += count;
        }
    }

    static const Indices& get()
    {
        static const Indices indices;
        return indices;
    }

    std::span<const Index, kIndexCount> all() const { return m_all; }

private:
    std::array<std::array<Quantity, formulas::kMostInputs>, kIndexCount> m_inputs{};
    std::vector<Category> m_categories;
    std::array<Index, kIndexCount> m_all{};
};

} // namespace

const QuantityInfo& info(Quantity quantity) noexcept
{
    return kQuantities[static_cast<std::size_t>(quantity)];
}

std::optional<Quantity> findQuantity(std::string_view idOrSymbol) noexcept
{
    for (std::size_t i = 0; i < kQuantityCount; ++i)
        if (values::sameLetters(kQuantities[i].id, idOrSymbol) ||
            values::sameLetters(kQuantities[i].symbol, idOrSymbol))
            return static_cast<Quantity>(i);
    return std::nullopt;
}

std::string_view familyName(Family family) noexcept
{
    return catalogue::familyName(static_cast<catalogue::Family>(family));
}

std::string Reference::citation() const
{
    return catalogue::Reference{.id = {},
                                .family = {},
                                .authors = authors,
                                .year = year,
                                .title = title,
                                .published = published,
                                .where = where,
                                .confidence = static_cast<catalogue::Confidence>(confidence)}
        .citation();
}

std::span<const Index, kIndexCount> indices() noexcept
{
    return Indices::get().all();
}

const Index& index(int number)
{
    if (number < 1 || number > static_cast<int>(kIndexCount))
        throw std::out_of_range("comfortics: there is no index " + std::to_string(number));
    return indices()[static_cast<std::size_t>(number - 1)];
}

const Category* categoryOf(const Index& index, double value) noexcept
{
    const catalogue::Scale& scale = catalogue::scale(index.number);
    const catalogue::Category* const found = scale.of(value);
    return found == nullptr ? nullptr
                            : &index.categories[static_cast<std::size_t>(found - scale.categories.data())];
}

const Index* findIndex(std::string_view id) noexcept
{
    const int number = catalogue::indexOfId(id);
    return number == 0 ? nullptr : &indices()[static_cast<std::size_t>(number - 1)];
}

std::vector<const Index*> searchIndices(std::string_view words)
{
    std::vector<const Index*> found;
    for (const std::size_t place : catalogue::indexFinder().find(words))
        found.push_back(&indices()[place]);
    return found;
}

} // namespace comfortics
