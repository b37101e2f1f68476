// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/recipe.h"

#include "models/quantity_formulas.h"
#include "models/utci_polynomial.h"

#include <cassert>

namespace comfortics::engine {

namespace {

using catalogue::Input;

std::optional<Quantity> quantityOf(Input input)
{
    switch (input) {
    case Input::Ta:
    case Input::TextTa:
        return Quantity::AirTemperature;
    case Input::Tg:
    case Input::TextTg:
        return Quantity::GlobeTemperature;
    case Input::SR:
    case Input::TextSR:
        return Quantity::SolarRadiation;
    case Input::Td:
    case Input::TextTd:
        return Quantity::DewPoint;
    case Input::RH:
    case Input::TextRH:
        return Quantity::RelativeHumidity;
    case Input::WS:
    case Input::TextWS:
        return Quantity::WindSpeed;
    case Input::Tmrt:
        return Quantity::MeanRadiantTemperature;
    case Input::Tnwb:
        return Quantity::NaturalWetBulbTemperature;
    case Input::Tpwb:
        return Quantity::PsychrometricWetBulbTemperature;
    case Input::Es:
        return Quantity::SaturationVapourPressure;
    case Input::Ea:
    case Input::StaleEa:
        return Quantity::VapourPressure;
    case Input::Wbgt:
        return Quantity::WbgtOutdoor;
    case Input::WindAt10m:
        return Quantity::WindSpeedAt10m;
    case Input::Unset:
        break;
    }
    return std::nullopt;
}

using enum Quantity;

constexpr Recipe kRadiantTemperature{&models::kMeanRadiantTemperature,
                                     {AirTemperature, GlobeTemperature, WindSpeed}};
constexpr Recipe kOutdoorWbgt{&models::kWbgtOutdoor,
                              {NaturalWetBulbTemperature, GlobeTemperature, AirTemperature}};
constexpr Recipe kIndoorWbgt{&models::kWbgtIndoor,
                             {AirTemperature, PsychrometricWetBulbTemperature, WindSpeed}};
constexpr Recipe kUtci{
    &models::kUtciOfDewPoint, {AirTemperature, MeanRadiantTemperature, WindSpeedAt10m, DewPoint}, true};
constexpr Recipe kPublishedUtci{&models::kUtciOfHumidity,
                                {AirTemperature, MeanRadiantTemperature, WindSpeedAt10m, RelativeHumidity}};
constexpr Recipe kSaturation{&models::kSaturationPressure, {AirTemperature}};
constexpr Recipe kVapour{&models::kVapourPressure, {DewPoint}};
constexpr Recipe kWind10m{&models::kWindAt10m, {WindSpeed}};

Recipe recipeOf(const catalogue::CatalogueRow& row)
{
    using catalogue::Block;
    switch (row.block) {
    case Block::MeanRadiantTemperature:
        return kRadiantTemperature;
    case Block::Utci:
        return kUtci;
    case Block::WbgtIndoor:
        return kIndoorWbgt;
    case Block::WbgtOutdoor:
        return kOutdoorWbgt;
    case Block::Template:
    case Block::RadiativeEffectiveTemperature:
    case Block::WetKata: // its own dew point is that of the air
        break;
    }
    Recipe recipe{.call = &row.formula};
    std::size_t count = 0;
    for (const Input input : row.inputs)
        recipe.sources[count++] = quantityOf(input);
    assert(count == row.formula.arity);
    return recipe;
}

constexpr int kUtciNumber = 195;

} // namespace

const Recipe& recipe(int index)
{
    static const auto recipes = [] {
        std::array<Recipe, kIndexCount> all;
        for (const catalogue::CatalogueRow& row : catalogue::rows())
            all[static_cast<std::size_t>(row.number - 1)] = recipeOf(row);
        return all;
    }();
    return recipes[static_cast<std::size_t>(index - 1)];
}

const Recipe& publishedRecipe(int index)
{
    return index == kUtciNumber ? kPublishedUtci : recipe(index);
}

const Recipe* quantityRecipe(Quantity quantity)
{
    switch (quantity) {
    case MeanRadiantTemperature:
        return &kRadiantTemperature;
    case SaturationVapourPressure:
        return &kSaturation;
    case VapourPressure:
        return &kVapour;
    case Quantity::WbgtOutdoor:
        return &kOutdoorWbgt;
    case WindSpeedAt10m:
        return &kWind10m;
    default:
        return nullptr;
    }
}

} // namespace comfortics::engine
