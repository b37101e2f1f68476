// SPDX-License-Identifier: GPL-3.0-or-later
//
// Every model to the last bit, the plain way and the quick way where there are two.
#include "classic/radiation_search.h"
#include "classic/wbgt_utci.h"
#include "models/psychrometric_search.h"
#include "models/solvers.h"
#include "models/utci_polynomial.h"

#include "bit_table.h"

#include <algorithm>
#include <cmath>
#include <functional>
#include <iterator>
#include <optional>

namespace comfortics::tests {
namespace {

using namespace models;
using classic::Desk;
using classic::kLastCandidate;
using classic::raiseToMinimumWind;
using classic::searchRadiation;
using classic::WBGT_UTCI;
using texts::Variant;

struct SilentDesk final : Desk {
    void writeCaption(formulas::Live, std::string) override {}
    void writeSolarRadiationResult(std::string) override {}
    void showMessage(const std::string&) override {}
    void explain(std::string) override {}
};

/// An argument as a model takes it: hexadecimal is a number, "-" the empty text, all else a text.
Variant argument(const std::string& token)
{
    if (token.find("0x") < 2)
        return numberOf(token);
    return token == "-" ? "" : token;
}

Variant shown(const Solution& solution)
{
    return solution.converged() ? Variant(solution.celsius) : "no convergence";
}

Variant shown(const std::optional<std::int16_t>& radiation)
{
    return radiation ? Variant(*radiation) : "none";
}

/// A bare double, which is no number where a checked one has failed.
Number defined(double value)
{
    return std::isfinite(value) ? Number(value) : formulas::undefined<Number>("a step has no result");
}

/// The results that must all be the expected one.
using Computations = std::vector<std::function<Variant()>>;

Computations computationsOf(std::string model, const std::vector<std::string>& tokens)
{
    if (model.back() == '!')
        model.pop_back();
    std::vector<Variant> a;
    std::transform(tokens.begin(), tokens.end(), std::back_inserter(a), argument);
    const auto x = [a](std::size_t at) { return a.at(at).number(); };
    const auto bare = [x](std::size_t at) { return x(at).value(); };
    const auto wind = [a, x](std::size_t at, std::size_t least) {
        Variant v = a.at(at);
        raiseToMinimumWind(v, x(least));
        return v.number();
    };

    if (model == "Air_Viscosity")
        return {[=] { return Air_Viscosity(x(0)); }, [=] { return Air_Viscosity(bare(0)); }};
    if (model == "Air_Diffusivity")
        return {[=] { return Air_Diffusivity(x(0), x(1)); },
                [=] { return Air_Diffusivity(bare(0), bare(1)); }};
    if (model == "Emissivity_Atmosphere")
        return {[=] { return Emissivity_Atmosphere(x(0), x(1)); },
                [=] { return Emissivity_Atmosphere(bare(0), bare(1)); }};
    if (model == "Convection_Cylinder")
        return {[=] { return Convection_Cylinder(x(0), x(1), wind(2, 3)); },
                [=] { return Convection_Cylinder(bare(0), bare(1), wind(2, 3).value()); }};
    if (model == "Convection_Sphere")
        return {[=] { return Convection_Sphere(x(0), x(1), wind(2, 3)); },
                [=] { return Convection_Sphere(bare(0), bare(1), wind(2, 3).value()); }};
    if (model == "MRT_From_Globe")
        return {[=] { return MRT_From_Globe(x(0), x(1), x(2)); },
                [=] { return defined(MRT_From_Globe(bare(0), bare(1), bare(2))); }};
    if (model == "UTCI_Polynomial")
        return {[=] { return UTCI_Polynomial(x(0), x(1), x(2), x(3)); }};
    if (model == "Psychrometric_Wet_Bulb")
        return {[=] { return Psychrometric_Wet_Bulb(x(0), !a.at(0).isText(), x(1)); },
                [=] { return plain::Psychrometric_Wet_Bulb(x(0), !a.at(0).isText(), x(1)); }};
    if (model == "searchRadiation")
        return {[=] { return shown(searchRadiation(x(0), x(1), x(2), x(3), kLastCandidate, [] {})); }};

    // A wind that is a text is not raised to the least wind, which the quick solvers never do.
    if (model == "Globe_Temperature_Model") {
        Computations both{[=] {
            return shown(plain::Globe_Temperature_Model(x(0), x(1), x(2), wind(3, 7), x(4), x(5), x(6)));
        }};
        if (a.at(3).isText() && x(2) == kSitePressure && x(5) == kDirectFraction && x(6) == kZenith)
            both.push_back([=] { return shown(Globe_Temperature_Model(x(0), x(1), x(3), x(4))); });
        return both;
    }
    if (model == "Natural_Wet_Bulb") {
        Computations both{[=] {
            return shown(plain::Natural_Wet_Bulb(x(0), x(1), x(2), x(3), wind(4, 5), x(6), x(7), x(8), x(9)));
        }};
        if (a.at(4).isText() && x(3) == kSitePressure && x(7) == kDirectFraction && x(8) == kZenith &&
            x(9) == kRadiationSwitch)
            both.push_back([=] { return shown(Natural_Wet_Bulb(x(0), x(1), x(2), x(4), x(6))); });
        return both;
    }

    const auto onTexts = [a](auto run) {
        return Computations{[a, run]() mutable {
            SilentDesk desk;
            WBGT_UTCI models(desk);
            return run(models, a);
        }};
    };
    if (model == "UTCI_Regression")
        return onTexts([](WBGT_UTCI& models, std::vector<Variant>& v) {
            return models.UTCI_Regression(v.at(0), v.at(1), v.at(2), v.at(3), v.at(4), v.at(5));
        });
    if (model == "WBGT_Outdoor")
        return onTexts([](WBGT_UTCI& models, std::vector<Variant>& v) {
            return models.WBGT_Outdoor(v.at(0), v.at(1), v.at(2), v.at(3), v.at(4), v.at(5));
        });
    if (model == "WBGT_Indoor")
        return onTexts([](WBGT_UTCI& models, std::vector<Variant>& v) {
            return models.WBGT_Indoor(v.at(0), v.at(1), v.at(2), v.at(3));
        });
    if (model == "Mean_Radiant_Temperature_Model")
        return onTexts([](WBGT_UTCI& models, std::vector<Variant>& v) {
            return models.Mean_Radiant_Temperature_Model(v.at(0), v.at(1), v.at(2), v.at(3));
        });
    ADD_FAILURE() << "no model " << model;
    return {};
}

TEST(ModelBits, AreThoseOfTheTable)
{
    const BitTable table(COMFORTICS_BITS_DIR "/models.csv");
    for (const BitRow& row : table.rows())
        for (const auto& compute : computationsOf(row.fields.front(), row.inputs))
            table.check(row, outcomeOf(compute));
}

} // namespace
} // namespace comfortics::tests
