// SPDX-License-Identifier: GPL-3.0-or-later
#include "classic/outcome.h"

#include "catalogue/catalogue.h"
#include "texts/number_text.h"
#include "values/plain_text.h"

namespace comfortics::classic {

using catalogue::CatalogueRow;
using catalogue::GateWind;

namespace {

using values::plainText;

std::string interval(const Bound& from, const Bound& to, const char* unit)
{
    return from.text + " to " + to.text + " " + unit;
}

} // namespace

std::string whyBlank(int index, const Outcome& outcome, const Limits& limits, const std::string& runFailure)
{
    const CatalogueRow& row = catalogue::row(index);
    const IndexLimits& bounds = limits.of(index);
    switch (outcome.kind) {
    case OutcomeKind::Value:
        break;
    case OutcomeKind::NotCalculated:
        return "Nothing has been calculated yet.";
    case OutcomeKind::NotSelected:
        return "The index is not selected in the list.";
    case OutcomeKind::OutsideTemperature:
        if (!bounds.given())
            return "The limits file holds no limits of this index.";
        return "Outside its limits: " + std::string(catalogue::gatedName(row.gated)) + " is " +
               plainText(outcome.gatedValue) + " °C, valid from " +
               interval(bounds.Tair_min, bounds.Tair_max, "°C") +
               (outcome.asTexts ? ", compared as texts." : ".");
    case OutcomeKind::OutsideWind:
        return std::string("Outside its limits: the wind ") +
               (row.gateWind == GateWind::At10m ? "at 10 m is " : "is ") + plainText(outcome.wind) +
               " m/s, valid from " + interval(bounds.WS_min, bounds.WS_max, "m/s") + ".";
    case OutcomeKind::NoValue:
        return "The formula has no value for these readings.";
    case OutcomeKind::RunFailed:
        return outcome.failure.empty() ? runFailure : outcome.failure;
    }
    return {};
}

std::string whyDoubtful(int index, const Outcome& outcome, const Limits& limits)
{
    if (outcome.kind != OutcomeKind::Value || outcome.limits == OutcomeKind::Value)
        return {};
    if (outcome.limits == OutcomeKind::RunFailed)
        return "Limits are ignored, and whether the value lies within them cannot be told: " +
               outcome.failure;
    Outcome judged = outcome;
    judged.kind = outcome.limits;
    return "Shown since limits are ignored. " + whyBlank(index, judged, limits, {});
}

} // namespace comfortics::classic
