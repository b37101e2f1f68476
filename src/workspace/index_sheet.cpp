// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/index_sheet.h"

#include "catalogue/notes.h"
#include "catalogue/references.h"
#include "texts/number_text.h"
#include "values/plain_text.h"

#include <comfortics/catalogue.h>

#include <algorithm>

namespace comfortics::workspace {

using classic::OutcomeKind;
using values::plainText;

namespace {

constexpr values::Format kBrief{2, 1};
constexpr int kWbgtOutdoor = 200;

std::string presentText(const Situation& situation, Quantity quantity)
{
    switch (quantity) {
    case Quantity::WbgtOutdoor: {
        const auto& wbgt = situation.figure(kWbgtOutdoor).number;
        return wbgt ? plainText(*wbgt) : std::string();
    }
    case Quantity::WindSpeedAt10m: {
        const auto wind = windAt10m(situation);
        return wind ? plainText(*wind) : std::string();
    }
    default: // the others are the live quantities, in their order
        return situation.live.at(static_cast<std::size_t>(quantity)).text;
    }
}

std::vector<SheetInput> inputsOf(const Situation& situation, int index)
{
    std::vector<SheetInput> inputs;
    for (const Quantity quantity : comfortics::index(index).inputs) {
        const QuantityInfo& about = info(quantity);
        const auto isSame = [&about](const SheetInput& one) { return one.symbol == about.symbol; };
        if (std::none_of(inputs.begin(), inputs.end(), isSame)) // some are read twice
            inputs.push_back({std::string(about.symbol), std::string(about.name), std::string(about.unit),
                              presentText(situation, quantity)});
    }
    return inputs;
}

std::string quantityName(catalogue::Gated gated)
{
    switch (gated) {
    case catalogue::Gated::Ta:
        return "Air temperature (Ta)";
    case catalogue::Gated::Tnwb:
        return "Natural wet-bulb temperature (Tnwb)";
    case catalogue::Gated::MeanOfTmrtAndTa:
        return "Mean of radiant and air temperature ((Tmrt + Ta) / 2)";
    case catalogue::Gated::TmrtLessTa:
        return "Radiant less air temperature (Tmrt - Ta)";
    case catalogue::Gated::WBGT_Outdoor:
        return "Outdoor WBGT";
    }
    return {};
}

Side sideOf(double value, double low, double high)
{
    return value < low ? Side::Below : value > high ? Side::Above : Side::Inside;
}

// Rounded as far as that leaves it on its side of the limits.
std::string presentOf(double value, double low, double high)
{
    const std::string brief = briefly(plainText(value));
    const double rounded = texts::val(brief);
    const bool stays = sideOf(rounded, low, high) == sideOf(value, low, high);
    return stays ? brief : plainText(value);
}

SheetLimit limitOf(std::string quantity, const char* unit, const classic::Bound& low,
                   const classic::Bound& high, const std::optional<double>& present)
{
    SheetLimit limit{std::move(quantity), unit, low.number, high.number, {}, Side::Unknown};
    if (present) {
        limit.present = presentOf(*present, low.number, high.number);
        limit.side = sideOf(*present, low.number, high.number);
    }
    return limit;
}

void addLimits(IndexSheet& sheet, const classic::IndexLimits& bounds, bool ignored)
{
    const catalogue::CatalogueRow& row = catalogue::row(sheet.number);
    if (row.gate == catalogue::Gate::None) {
        sheet.limitsNote = "It has no limits.";
        return;
    }
    if (!bounds.given()) {
        sheet.limitsNote = "The limits file holds no limits of this index.";
        return;
    }
    const Figure& figure = sheet.figure;
    SheetLimit temperature =
        limitOf(quantityName(row.gated), "°C", bounds.Tair_min, bounds.Tair_max, figure.judged);
    const OutcomeKind judged = figure.kind == OutcomeKind::Value ? figure.limits : figure.kind;
    if (figure.judged && (judged == OutcomeKind::OutsideTemperature) != (temperature.side != Side::Inside))
        temperature.side = judged == OutcomeKind::OutsideTemperature ? Side::ByText : Side::Inside;
    sheet.limits.push_back(std::move(temperature));
    if (bounds.WS_max.number > 0)
        sheet.limits.push_back(
            limitOf(row.gateWind == catalogue::GateWind::At10m ? "Wind speed at 10 m" : "Wind speed (WS)",
                    "m/s", bounds.WS_min, bounds.WS_max, figure.wind));
    if (bounds.Tair_min.number > bounds.Tair_max.number)
        sheet.limitsNote =
            "No temperature lies within, so that a value stands only where limits are ignored.";
    if (ignored)
        sheet.limitsNote +=
            std::string(sheet.limitsNote.empty() ? "" : " ") + "Limits are ignored at present.";
}

std::string classNoteOf(const IndexSheet& sheet, const catalogue::Scale& scale)
{
    std::string note;
    const auto add = [&note](const std::string& sentence) { note += (note.empty() ? "" : " ") + sentence; };
    if (scale.categories.empty()) {
        add("No scale of classes is published that fits this formula.");
        return note;
    }
    const Figure& figure = sheet.figure;
    if (figure.number && !figure.meaning) {
        if (figure.limits != OutcomeKind::Value)
            add("The value has no class now, since it stands outside of the limits of the index.");
        else if (catalogue::hasPole(sheet.number))
            add("The value has no class now: in air as damp as this the formula turns its sign.");
        else
            add("The value has no class now.");
    }
    if (const int vote = catalogue::voteBeside(sheet.number); vote != 0)
        add("A percentage does not tell whether people are too warm or too cold: the sign of the severity is "
            "that of index " +
            std::to_string(vote) + ", the vote with the same activity.");
    if (scale.fromStandardLiterature)
        add("The bounds are as commonly printed and were not read in the source itself.");
    return note;
}

} // namespace

std::string SheetLimit::bounds() const
{
    return plainText(low) + " to " + plainText(high) + " " + unit;
}

std::string SheetLimit::standing() const
{
    switch (side) {
    case Side::Unknown:
        return "Not judged now.";
    case Side::Inside:
        return "Now " + present + " " + unit + ", inside.";
    case Side::Below:
        return "Now " + present + " " + unit + ", below.";
    case Side::Above:
        return "Now " + present + " " + unit + ", above.";
    case Side::ByText:
        return "Now " + present + " " + unit + ", outside: compared as texts.";
    }
    return {};
}

IndexSheet indexSheet(const Situation& situation, const classic::Limits& limits, int index)
{
    const catalogue::CatalogueRow& row = catalogue::row(index);
    const catalogue::Reference& reference = catalogue::reference(index);
    const catalogue::Note& note = catalogue::note(index);
    const catalogue::Scale& scale = catalogue::scale(index);

    IndexSheet sheet;
    sheet.number = index;
    sheet.id = reference.id;
    sheet.name = row.name;
    sheet.unit = row.shownUnit();
    sheet.family = catalogue::familyName(reference.family);
    sheet.abbreviations.assign(note.abbreviations.begin(), note.abbreviations.end());
    sheet.description = note.description;
    sheet.warnings.assign(note.warnings.begin(), note.warnings.end());
    sheet.figure = situation.figure(index);
    sheet.inputs = inputsOf(situation, index);
    sheet.readsAssumptions = comfortics::index(index).readsAssumptions;
    addLimits(sheet, limits.of(index), situation.inputs.settings.ignoreLimits);
    for (const catalogue::Category& category : scale.categories)
        sheet.classes.push_back({&category, catalogue::boundsInWords(index, category),
                                 sheet.figure.meaning && sheet.figure.meaning->category == &category});
    sheet.classSource = scale.source;
    sheet.classNote = classNoteOf(sheet, scale);
    sheet.citation = reference.citation();
    sheet.confidence = catalogue::confidenceName(reference.confidence);
    sheet.where = reference.where;
    return sheet;
}

std::string briefly(std::string_view text)
{
    const auto number = texts::numericValue(text);
    return number ? plainText(texts::val(texts::format(*number, kBrief))) : std::string(text);
}

} // namespace comfortics::workspace
