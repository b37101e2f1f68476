// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/wbgt_utci.h"

#include "classic/radiation_search.h"
#include "models/psychrometric_search.h"
#include "models/utci_polynomial.h"
#include "texts/number_text.h"
#include "values/plain_text.h"
#include "values/run_failure.h"

#include <utility>

namespace comfortics::classic {

using formulas::Live;
using models::kMinimumWind;
using models::MRT_From_Globe;
using models::UTCI_Polynomial;
using models::UTCI_Vapour_Pressure;
using texts::format;
using values::kFormat00_00000;
using values::logarithm;
using values::plainText;
using values::RunFailure;

namespace {

constexpr double kAbsent = -99;
constexpr const char* kError = "Error:";

/// How far a dew point may lie above the air temperature by rounding alone [K], where numbers are
/// compared.
constexpr double kDewPointTolerance = 1e-9;

constexpr double kAbsoluteZero = -273.15;

bool isGiven(const Variant& reading)
{
    return !reading.equalsNumber(kAbsent) && !reading.isEmptyText();
}

std::string readsAbove(const Variant& Td, const Variant& Ta, bool asTexts)
{
    const std::string air = Ta.text();
    std::string dew = Td.text();
    if (texts::isNumeric(dew)) {
        const std::string rounded = plainText(texts::val(format(dew, values::kFormat0_00)));
        if (rounded != air)
            dew = rounded;
    }
    if (asTexts)
        return "the dew point " + dew + " reads above the air temperature " + air +
               " (the two are compared as texts)";
    return "the dew point " + dew + " is above the air temperature " + air;
}

} // namespace

void raiseToMinimumWind(Variant& v, Number vmin)
{
    if (isGreater(vmin, v))
        v.assign(vmin);
}

void mustBeAboveAbsoluteZero(Live temperature, Number celsius)
{
    const char* const name = temperature == Live::Ta   ? "the air temperature "
                             : temperature == Live::Tg ? "the globe temperature "
                                                       : "the dew point ";
    if (celsius < kAbsoluteZero)
        throw RunFailure(name + plainText(texts::val(format(celsius, values::kFormat0_00))) +
                         " °C is below absolute zero, " + plainText(kAbsoluteZero) + " °C");
}

Variant WBGT_UTCI::UTCI_Regression(Variant& Ta, Variant& Tg, Variant& Td, Variant& WS, Variant& SR,
                                   Variant& RH)
{
    if (auto early = completeHumidity(Ta, Tg, Td, SR, RH))
        return *std::move(early);
    if (isGiven(SR)) {
        if (isGiven(Tg))
            return answer(kError, "both the globe temperature and the solar radiation are given");
        Tg.assign(Globe_Temperature_Model(Ta, RH, WS, SR)); // no caption, unlike the outdoor WBGT
    }
    const Number Tmrt = MRT_From_Globe(Ta.number(), Tg.number(), WS.number());
    const Number Pa = UTCI_Vapour_Pressure(Td.number());
    const Number D = Tmrt - Ta.number();
    return UTCI_Polynomial(Ta.number(), WS.number(), D, Pa);
}

Variant WBGT_UTCI::WBGT_Outdoor(Variant& Ta, Variant& Tg, Variant& Td, Variant& WS, Variant& SR, Variant& RH)
{
    if (auto early = completeHumidity(Ta, Tg, Td, SR, RH))
        return *std::move(early);
    if (isGiven(SR)) {
        if (isGiven(Tg))
            return answer(kError, "both the globe temperature and the solar radiation are given");
        Tg.assign(Globe_Temperature_Model(Ta, RH, WS, SR));
        m_desk.writeCaption(Live::Tg, format(Tg, kFormat00_00000));
    } else {
        // A radiation of 0 ends the search at 1356, and the model without a result; deliberate,
        // though a radiation that is searched is absent and so never 0.
        const bool endsEarly = SR.equalsNumber(0);
        const auto found = searchRadiation(Ta, RH, WS, Tg, endsEarly ? 1356 : kLastCandidate);
        if (found) {
            SR.assign(*found);
            m_desk.writeCaption(Live::SR, plainText(*found));
            m_desk.writeSolarRadiationResult(plainText(*found));
        } else if (endsEarly) {
            return {};
        } else if (m_rules != Rules::Classic) {
            throw RunFailure("no solar radiation up to " + plainText(kLastCandidate) +
                             " W/m² brings the globe to " + Tg.text() + " °C");
        } else if (SR.isEmptyText()) {
            // What the wet bulb's arithmetic would say of it, with the reason. (-99 is a number and
            // goes in as one.)
            throw RunFailure("type mismatch: the text \"\" is no number (no solar radiation up to " +
                             plainText(kLastCandidate) + " W/m² brings the globe to " + Tg.text() + ")");
        }
    }
    const Variant Tnwb = Natural_Wet_Bulb(Ta, Td, RH, WS, SR);
    return ((0.7 * Tnwb.number()) + (0.2 * Tg.number())) + (0.1 * Ta.number());
}

Variant WBGT_UTCI::WBGT_Indoor(Variant& Ta, Variant& Td, Variant& WS, Variant& RH)
{
    mustExist({{Live::Ta, &Ta}, {Live::Td, &Td}});
    // The dew point is compared as it came: one that RH replaces below is not looked at.
    if (isDewPointAbove(Td, Ta)) {
        m_desk.writeCaption(Live::Tpwb, format(Variant(), kFormat00_00000));
        return kError;
    }
    if (WS.isBelowNumber(0.1))
        WS.assign(0.1);
    if (isGiven(RH))
        Td.assign(showDewPoint(m_desk, Ta.number(), RH.number()));
    mustExist({{Live::Td, &Td}});
    const Number Tw = psychrometricWetBulb(Ta, Td);
    m_desk.writeCaption(Live::Tpwb, format(Tw, kFormat00_00000));
    return ((0.67 * Tw) + (0.33 * Ta.number())) -
           (((logarithm(WS.number()) * 0.048) / logarithm(10)) * (Ta.number() - Tw));
}

Variant WBGT_UTCI::Mean_Radiant_Temperature_Model(Variant& Ta, Variant& Tg, Variant& SR, Variant& WS)
{
    constexpr double humidity = 60;
    mustExist({{Live::Ta, &Ta}, {Live::Tg, &Tg}});
    Variant result;
    if (!isGiven(SR)) {
        result = MRT_From_Globe(Ta.number(), Tg.number(), WS.number());
    } else if (!isGiven(Tg)) {
        Tg.assign(Globe_Temperature_Model(Ta, humidity, WS, SR));
        result = MRT_From_Globe(Ta.number(), Tg.number(), WS.number());
    } else {
        result = answer(kError, "both the globe temperature and the solar radiation are given");
    }
    m_desk.writeCaption(Live::Tmrt, result.text());
    return result;
}

/// What the UTCI and the outdoor WBGT do first: test the pairs, derive the absent one of Td and RH,
/// test the dew point. Returns the answer that ends the model, if there is one.
std::optional<Variant> WBGT_UTCI::completeHumidity(const Variant& Ta, const Variant& Tg, Variant& Td,
                                                   const Variant& SR, Variant& RH)
{
    if (RH.isEmptyText() && Td.isEmptyText())
        return answer("", "neither the dew point nor the relative humidity is given");
    if (Tg.isEmptyText() && SR.isEmptyText())
        return answer("", "neither the globe temperature nor the solar radiation is given");
    if (RH.equalsNumber(kAbsent) && Td.equalsNumber(kAbsent))
        return std::make_optional<Variant>();
    if (Tg.equalsNumber(kAbsent) && SR.equalsNumber(kAbsent))
        return std::make_optional<Variant>();
    mustExist({{Live::Ta, &Ta}, {Live::Tg, &Tg}, {Live::Td, &Td}});
    if (isGiven(RH)) {
        if (isGiven(Td))
            return answer(kError, "both the dew point and the relative humidity are given");
        Td.assign(showDewPoint(m_desk, Ta.number(), RH.number()));
        mustExist({{Live::Td, &Td}});
    } else {
        RH.assign(showRelativeHumidity(m_desk, Ta.number(), Td.number()));
    }
    if (isDewPointAbove(Td, Ta))
        return kError;
    return std::nullopt;
}

bool WBGT_UTCI::isDewPointAbove(const Variant& Td, const Variant& Ta)
{
    const bool asTexts = m_rules == formulas::Rules::Classic && (Td.isText() || Ta.isText());
    const bool above = m_rules == formulas::Rules::Classic
                           ? isGreater(Td, Ta)
                           : isGiven(Td) && Td.number() - Ta.number() > kDewPointTolerance;
    if (above)
        m_desk.explain(readsAbove(Td, Ta, asTexts));
    return above;
}

/// By the robust rules, fails where a temperature that is given is one that nothing can have.
void WBGT_UTCI::mustExist(std::initializer_list<std::pair<Live, const Variant*>> temperatures) const
{
    if (m_rules == Rules::Classic)
        return;
    for (const auto& [quantity, temperature] : temperatures)
        if (isGiven(*temperature))
            mustBeAboveAbsoluteZero(quantity, temperature->number());
}

Variant WBGT_UTCI::answer(const char* text, std::string why)
{
    m_desk.explain(std::move(why));
    return text;
}

Variant WBGT_UTCI::Globe_Temperature_Model(const Variant& Ta, const Variant& RH, Variant& WS,
                                           const Variant& SR)
{
    raiseToMinimumWind(WS, kMinimumWind);
    const Number air = Ta.number();
    const Number humidity = RH.number();
    const Number wind = WS.number();
    const Number sun = SR.number();
    return told(m_globes.recall(
        {air.value(), humidity.value(), wind.value(), sun.value(), static_cast<double>(m_rules)},
        [&] { return models::Globe_Temperature_Model(air, humidity, wind, sun, m_rules); }));
}

Variant WBGT_UTCI::Natural_Wet_Bulb(const Variant& Ta, const Variant& Td, const Variant& RH, Variant& WS,
                                    const Variant& SR)
{
    raiseToMinimumWind(WS, kMinimumWind);
    const Number air = Ta.number();
    const Number dew = Td.number();
    const Number humidity = RH.number();
    const Number wind = WS.number();
    const Number sun = SR.number();
    Variant Tnwb = told(m_wetBulbs.recall(
        {air.value(), dew.value(), humidity.value(), wind.value(), sun.value(), static_cast<double>(m_rules)},
        [&] { return models::Natural_Wet_Bulb(air, dew, humidity, wind, sun, m_rules); }));
    if (!Tnwb.isEmpty())
        m_desk.writeCaption(Live::Tnwb, format(Tnwb, kFormat00_00000));
    return Tnwb;
}

std::optional<std::int16_t> WBGT_UTCI::searchRadiation(const Variant& Ta, const Variant& RH, Variant& WS,
                                                       const Variant& Tg, int last)
{
    raiseToMinimumWind(WS, kMinimumWind);
    const Number air = Ta.number();
    const Number humidity = RH.number();
    const Number wind = WS.number();
    const Number globe = Tg.number();
    bool solvedNow = false;
    const Search& search = m_searches.recall({air.value(), humidity.value(), wind.value(), globe.value(),
                                              static_cast<double>(last), static_cast<double>(m_rules)},
                                             [&] {
                                                 solvedNow = true;
                                                 Search found;
                                                 const auto count = [&] {
                                                     ++found.messages;
                                                     tellNoConvergence();
                                                 };
                                                 found.radiation = classic::searchRadiation(
                                                     air, humidity, wind, globe, last, count, m_rules);
                                                 return found;
                                             });
    for (int i = 0; !solvedNow && i < search.messages; ++i)
        tellNoConvergence();
    return search.radiation;
}

Number WBGT_UTCI::psychrometricWetBulb(const Variant& Ta, const Variant& Td)
{
    const Number air = Ta.number();
    const Number dew = Td.number();
    return m_psychrometrics.recall(
        {air.value(), dew.value(), Ta.isText() ? 1.0 : 0.0, static_cast<double>(m_rules)},
        [&] { return models::Psychrometric_Wet_Bulb(air, !Ta.isText(), dew, m_rules); });
}

Variant WBGT_UTCI::told(const Solution& solution)
{
    if (!solution.converged())
        tellNoConvergence();
    return solution.converged() ? Variant(solution.celsius) : Variant();
}

void WBGT_UTCI::tellNoConvergence()
{
    if (m_rules != Rules::Classic)
        throw RunFailure("the heat balance of globe or wet bulb has no solution");
    m_desk.showMessage("No convergence: values too extreme");
}

} // namespace comfortics::classic
