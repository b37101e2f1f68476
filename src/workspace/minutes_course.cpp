// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/minutes_course.h"

#include "standards/phs.h"
#include "values/plain_text.h"
#include "workspace/course.h"
#include "workspace/model_figures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <string_view>

namespace comfortics::workspace {

namespace {

using catalogue::Addition;
using values::plainText;

constexpr int kBodySteps = 4;
constexpr int kOtherSteps = 2;
constexpr double kMostMarks = 10; // of the axis of the minutes

// What is drawn together.
struct PanelPlan {
    std::string_view title;
    std::array<std::string_view, 3> figures; // ids; empty behind the last
};
constexpr std::array kTwoNodePanels{PanelPlan{"Body", {"t_core", "t_skin", ""}},
                                    PanelPlan{"Regulated sweat", {"sweat", "", ""}},
                                    PanelPlan{"Skin wettedness", {"wettedness", "", ""}}};
constexpr std::array kPhsPanels{PanelPlan{"Body", {"t_re", "t_cr", "t_sk"}},
                                PanelPlan{"Sweat rate", {"sweat", "", ""}},
                                PanelPlan{"Water loss", {"water_loss", "", ""}}};
constexpr std::size_t kBodyPanel = 0;
constexpr std::size_t kLossPanel = 2;

std::span<const PanelPlan> panelsOf(const Addition& model)
{
    return model.id == "two_node" ? std::span<const PanelPlan>(kTwoNodePanels) : kPhsPanels;
}

std::size_t figurePlace(const Addition& model, std::string_view id)
{
    const auto figures = model.course->figures;
    return static_cast<std::size_t>(std::ranges::find(figures, id, &catalogue::AdditionResult::id) -
                                    figures.begin());
}

std::string withUnit(const catalogue::AdditionResult& figure, double value)
{
    return catalogue::resultText(figure, value) +
           (figure.unit.empty() ? std::string() : " " + std::string(figure.unit));
}

double inputOf(const ModelStanding& standing, std::string_view id)
{
    return standing.inputs[*standing.model->inputPlace(id)].value;
}

// The minute of a limit, where it is reached within the duration.
std::optional<std::size_t> minuteOf(const ModelStanding& standing, std::string_view minute,
                                    std::string_view reached)
{
    const auto numberOf = [&](std::string_view id) -> std::optional<double> {
        const auto place = standing.model->resultPlace(id);
        return place ? standing.figures[*place].number : std::nullopt;
    };
    const auto at = numberOf(minute);
    if (!at || numberOf(reached) != 1.0)
        return std::nullopt;
    return static_cast<std::size_t>(*at);
}

void addLimits(MinutesCourse& course, const ModelStanding& standing)
{
    const double weight = inputOf(standing, "weight");
    const bool drink = inputOf(standing, "drink") == 1;
    const double loss = standards::phsLossLimit(weight, drink);
    const double meanLoss = standards::phsMeanLossLimit(weight, drink);
    course.panels[kBodyPanel].limit = standards::kPhsLimit;
    course.panels[kLossPanel].limit = loss;
    const auto gramsText = [](double limit) { return plainText(std::round(limit)) + " g"; };
    const auto grams = [&](double limit) {
        return "the loss of water reaches " + gramsText(limit) + ", " +
               plainText(std::round(limit / weight) / 10) + " % of the weight";
    };
    const std::string rectal = plainText(standards::kPhsLimit) + " °C";
    const auto add = [&](std::string_view minute, std::string_view reached, std::size_t panel,
                         std::string what, std::string limit) {
        if (const auto at = minuteOf(standing, minute, reached))
            course.marks.push_back({*at, panel, false, std::move(what), std::move(limit)});
    };
    add("d_lim_tre", "reached_tre", kBodyPanel, "the rectal temperature reaches " + rectal,
        "rectal " + rectal);
    const bool of2004 = standing.model->resultPlace("d_lim_loss_mean").has_value();
    add("d_lim_loss", "reached_loss", kLossPanel, grams(loss) + (of2004 ? " (95 % of workers)" : ""),
        gramsText(loss));
    if (of2004 && meanLoss != loss)
        add("d_lim_loss_mean", "reached_loss_mean", kLossPanel, grams(meanLoss) + " (the mean worker)",
            gramsText(meanLoss));
    std::ranges::stable_sort(course.marks, {}, &MinutesMark::minute);
    if (!course.marks.empty())
        course.marks.front().ends = true;
}

// Beyond kPhsFormal the model goes on to what no body has: there it is not drawn.
void cutFormal(MinutesCourse& course)
{
    MinutesPanel& body = course.panels[kBodyPanel];
    const std::vector<double>& rectal = body.curves.front().values;
    const auto formal =
        std::ranges::find_if(rectal, [](double temperature) { return temperature > standards::kPhsFormal; });
    if (formal == rectal.end())
        return;
    const auto from = formal - rectal.begin();
    course.formalFrom = static_cast<std::size_t>(from) + 1;
    for (MinutesCurve& curve : body.curves)
        std::fill(curve.values.begin() + from, curve.values.end(), standards::kNaN);
}

Axis axisOf(const MinutesPanel& panel, bool fromZero, int steps)
{
    double low = fromZero ? 0 : panel.limit.value_or(std::numeric_limits<double>::infinity());
    double high = panel.limit.value_or(-std::numeric_limits<double>::infinity());
    for (const MinutesCurve& curve : panel.curves)
        for (const double value : curve.values)
            if (!std::isnan(value)) {
                low = std::min(low, value);
                high = std::max(high, value);
            }
    if (!(high > low)) // nothing, or one value throughout
        high = (std::isfinite(low) ? low : low = 0) + 1;
    return niceAxis(low, high, steps);
}

} // namespace

std::string curveName(const MinutesPanel& panel, const MinutesCurve& curve)
{
    if (panel.curves.size() == 1)
        return panel.title;
    const std::string name(curve.figure->name);
    return name.substr(0, name.rfind(" temperature"));
}

bool hasMinutes(const Item& item)
{
    return item.model() != nullptr && item.model()->course != nullptr;
}

MinutesCourse minutesCourseOf(const classic::Limits& limits, const MinutesRequest& request)
{
    MinutesCourse course;
    course.request = request;
    const Addition& model = *request.item.model();
    const Situation situation = evaluate(limits, request.inputs);
    const ModelStanding standing = modelStanding(model, situation, request.person);
    const std::vector<double> inputs = standing.values();
    const auto lacks =
        std::ranges::find_if(standing.inputs, [](const ModelInput& input) { return !input.problem.empty(); });
    if (lacks != standing.inputs.end()) {
        course.problem = lacks->problem;
        return course;
    }
    const std::size_t minutes = model.course->minutes(inputs);
    const std::size_t figures = model.course->figures.size();
    std::vector<double> rows(minutes * figures);
    const standards::Verdict verdict = model.runCourse(inputs, rows);
    const std::string doubt = catalogue::verdictInWords(model, verdict, inputs);
    if (!verdict.hasValue() || minutes == 0) {
        course.problem = doubt.empty() ? "The duration has no whole minute." : doubt;
        return course;
    }
    course.minutes = minutes;
    for (const PanelPlan& plan : panelsOf(model)) {
        MinutesPanel& panel = course.panels.emplace_back();
        panel.title = plan.title;
        for (const std::string_view id : plan.figures) {
            if (id.empty())
                continue;
            const std::size_t place = figurePlace(model, id);
            MinutesCurve& curve = panel.curves.emplace_back();
            curve.figure = &model.course->figures[place];
            panel.unit = curve.figure->unit;
            for (std::size_t minute = 0; minute < minutes; ++minute)
                curve.values.push_back(rows[minute * figures + place]);
        }
    }
    if (model.id != "two_node") {
        addLimits(course, standing);
        cutFormal(course);
    }
    for (std::size_t i = 0; i < course.panels.size(); ++i)
        course.panels[i].values =
            axisOf(course.panels[i], i != kBodyPanel, i == kBodyPanel ? kBodySteps : kOtherSteps);
    course.held = heldReadings(request.inputs) + (standing.assumed.empty() ? "" : " " + standing.assumed);
    course.held += " By " + classic::inForce(request.inputs.settings) + ".";
    if (!doubt.empty())
        course.held += " " + doubt;
    return course;
}

const MinutesMark* MinutesCourse::end() const
{
    const auto found = std::ranges::find_if(marks, &MinutesMark::ends);
    return found == marks.end() ? nullptr : &*found;
}

std::string MinutesCourse::minuteInWords(std::size_t minute) const
{
    std::string words = "Minute " + std::to_string(minute) + ": ";
    std::string separator;
    for (const MinutesPanel& panel : panels) {
        for (const MinutesCurve& curve : panel.curves) {
            const double value = curve.values[minute - 1];
            if (std::isnan(value))
                continue;
            words += separator + catalogue::inSentence(curveName(panel, curve)) + " " +
                     withUnit(*curve.figure, value);
            separator = ", ";
        }
    }
    words += ".";
    if (formalFrom != 0 && minute >= formalFrom)
        words += " The rectal temperature would be above 39 °C: no prediction.";
    for (const MinutesMark& mark : marks)
        if (mark.minute == minute)
            words += " Here " + mark.what + (mark.ends ? ": the exposure ends." : ".");
    return words;
}

std::string MinutesCourse::marksInWords() const
{
    if (request.item.model()->id == "two_node")
        return {};
    std::string words;
    for (const MinutesMark& mark : marks)
        words += (words.empty() ? "In minute " : " In minute ") + std::to_string(mark.minute) + " " +
                 mark.what + (mark.ends ? ": the exposure ends." : ".");
    if (marks.empty())
        words = "No limit is reached within " + std::to_string(minutes) + " minutes.";
    if (formalFrom != 0)
        words +=
            " From minute " + std::to_string(formalFrom) +
            " on the rectal temperature is above 39 °C, a formal value and no prediction: core, skin and "
            "rectal temperature are not drawn.";
    return words;
}

std::string MinutesCourse::inWords() const
{
    if (minutes == 0)
        return problem;
    std::string words = std::string(request.item.model()->name) + " over " + std::to_string(minutes) +
                        " minutes. " + minuteInWords(1);
    if (minutes > 1)
        words += " " + minuteInWords(minutes);
    const std::string told = marksInWords();
    return words + (told.empty() ? "" : " " + told);
}

Axis minuteAxis(std::size_t minutes)
{
    constexpr std::array kSteps{1.0, 2.0, 5.0, 10.0, 15.0, 30.0, 60.0, 120.0, 240.0};
    const double span = static_cast<double>(std::max<std::size_t>(minutes, 1));
    const auto* const found =
        std::ranges::find_if(kSteps, [span](double step) { return span / step <= kMostMarks; });
    return {0, span, found == kSteps.end() ? kSteps.back() : *found};
}

} // namespace comfortics::workspace
