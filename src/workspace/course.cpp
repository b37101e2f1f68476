// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/course.h"

#include "texts/number_text.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <set>
#include <string_view>

namespace comfortics::workspace {

using classic::OutcomeKind;
using classic::Reading;
using values::plainText;

namespace {

constexpr std::array kSteps{0.1, 0.2, 0.5, 1.0, 2.0, 5.0, 10.0};
constexpr double kMostSteps = 120;

// What the boxes take at most, and what is seldom left on earth.
constexpr double kHighestAir = 58;           // [°C]
constexpr double kLowestAir = -50;           // [°C]
constexpr double kAirAround = 25;            // to each side of the present, where no limits tell [K]
constexpr double kAirBeyondLimits = 3;       // so that they are seen to end [K]
constexpr double kDewPointBelowAir = 30;     // [K]
constexpr double kLowestHumidity = 5;        // [%]; without any moisture there is no dew point
constexpr double kHighestHumidity = 100;     // [%]
constexpr double kLowestWind = 0.1;          // [m/s]
constexpr double kUsualWind = 10;            // [m/s]
constexpr double kStormyWind = 30;           // [m/s]
constexpr double kGlobeBelowAir = 10;        // a colder globe is emptied [K]
constexpr double kGlobeAboveAir = 30;        // [K]
constexpr double kHighestRadiation = 1200.0; // [W/m²]

struct Range {
    double from;
    double to;
};

const std::string& textOf(const classic::Inputs& inputs, Reading reading)
{
    return inputs.readings[static_cast<std::size_t>(reading)];
}

std::optional<double> numberOf(const classic::Inputs& inputs, Reading reading)
{
    return texts::numericValue(textOf(inputs, reading));
}

const classic::ReadingInfo& infoOf(Reading reading)
{
    return classic::kReadingInfo[static_cast<std::size_t>(reading)];
}

std::string nameOf(Reading reading)
{
    return texts::lowered(infoOf(reading).heading);
}

std::string withUnit(const std::string& number, Reading reading)
{
    return number + " " + std::string(infoOf(reading).unit());
}

/// The range of a model for a quantity of the readings; none where it has no ends.
std::optional<Range> modelRange(const Item& item, formulas::Live quantity)
{
    for (const catalogue::AdditionInput& input : item.model()->inputs)
        if (input.info->live == quantity && input.range.high < standards::kLargest)
            return Range{input.range.low, input.range.high};
    return std::nullopt;
}

std::optional<Range> airLimits(const classic::Limits& limits, const Item& item)
{
    if (item.model() != nullptr)
        return modelRange(item, formulas::Live::Ta);
    const catalogue::CatalogueRow& row = catalogue::row(item.index());
    const classic::IndexLimits& bounds = limits.of(item.index());
    const bool limited = row.gate != catalogue::Gate::None && row.gated == catalogue::Gated::Ta &&
                         bounds.given() && bounds.Tair_min.number < bounds.Tair_max.number;
    return limited ? std::optional(Range{bounds.Tair_min.number, bounds.Tair_max.number}) : std::nullopt;
}

Range airRange(const classic::Inputs& inputs, const std::optional<Range>& limits, double Ta)
{
    Range range{Ta - kAirAround, Ta + kAirAround};
    if (limits) {
        const double low = std::max(limits->from, kLowestAir);
        const double high = std::min(limits->to, kHighestAir);
        range = {std::min(low - kAirBeyondLimits, Ta), std::max(high + kAirBeyondLimits, Ta)};
    }
    range = {std::max(range.from, std::min(kLowestAir, Ta)), std::min(range.to, kHighestAir)};
    if (const auto Td = numberOf(inputs, Reading::DP))
        range.from = std::max(range.from, *Td);
    if (const auto Tg = numberOf(inputs, Reading::TG))
        range.to = std::min(range.to, *Tg + kGlobeBelowAir);
    return range;
}

double highestWind(const classic::Limits& limits, const Item& item)
{
    double highest = 0;
    if (item.model() != nullptr)
        highest = modelRange(item, formulas::Live::WS).value_or(Range{0, 0}).to;
    else if (catalogue::row(item.index()).gate != catalogue::Gate::None)
        highest = limits.of(item.index()).WS_max.number;
    return highest > 0 ? std::clamp(highest * 1.1, kUsualWind, kStormyWind) : kUsualWind;
}

Range rangeOf(const classic::Limits& limits, const CourseRequest& request, Reading moved)
{
    const double Ta = numberOf(request.inputs, Reading::TA).value_or(0);
    const double now = numberOf(request.inputs, moved).value_or(Ta);
    switch (moved) {
    case Reading::TA:
        return airRange(request.inputs, airLimits(limits, request.item), Ta);
    case Reading::DP:
        return {std::min(Ta - kDewPointBelowAir, now), Ta};
    case Reading::RH:
        return {std::min(kLowestHumidity, now), kHighestHumidity};
    case Reading::WS:
        return {kLowestWind, std::max(highestWind(limits, request.item), now)};
    case Reading::TG:
        return {Ta - kGlobeBelowAir, std::max(Ta + kGlobeAboveAir, now)};
    case Reading::SR:
        break;
    }
    return {0, std::max(kHighestRadiation, now)};
}

// By the classic and robust rules a reading has one decimal, radiation none.
std::string typed(double reading, Reading moved)
{
    return plainText(
        texts::val(texts::format(reading, moved == Reading::SR ? values::kFormat0 : values::kFormat0_0)));
}

CoursePoint pointAt(double reading, std::string text)
{
    CoursePoint point;
    point.reading = reading;
    point.readingText = std::move(text);
    return point;
}

std::vector<CoursePoint> placesOf(Range range, Reading moved, const std::string& present)
{
    const double finest = moved == Reading::SR ? 1 : kSteps.front();
    const auto reaches = [&](double step) {
        return step >= finest && (range.to - range.from) / step <= kMostSteps;
    };
    const auto* const found = std::find_if(kSteps.begin(), kSteps.end(), reaches);
    const double step = found == kSteps.end() ? (range.to - range.from) / kMostSteps : *found;

    std::vector<CoursePoint> points;
    const auto add = [&](const std::string& text) { points.push_back(pointAt(texts::val(text), text)); };
    add(typed(std::ceil(range.from / finest - 1e-6) * finest, moved));
    for (double count = std::ceil(range.from / step); count * step <= range.to; ++count)
        add(typed(count * step, moved));
    add(typed(std::floor(range.to / finest + 1e-6) * finest, moved));
    if (texts::isNumeric(present)) // before others of the same number
        points.insert(points.begin(), pointAt(*texts::numericValue(present), present));
    const auto before = [](const CoursePoint& a, const CoursePoint& b) { return a.reading < b.reading; };
    std::stable_sort(points.begin(), points.end(), before);
    const auto same = [](const CoursePoint& a, const CoursePoint& b) { return a.reading == b.reading; };
    points.erase(std::unique(points.begin(), points.end(), same), points.end());
    return points;
}

void fill(CoursePoint& point, const Situation& situation, const CourseRequest& request)
{
    if (situation.status == classic::RunStatus::Rejected) {
        point.reason = situation.problem;
        return;
    }
    const Figure figure = itemFigure(request.item, situation, request.person).figure;
    point.kind = figure.kind;
    point.reason = figure.reason;
    if (figure.number && !std::isfinite(*figure.number)) {
        point.kind = OutcomeKind::NoValue;
        point.reason = "The formula has no finite value for these readings.";
        return;
    }
    point.value = figure.number;
    point.text = figure.text;
    point.meaning = figure.meaning;
    point.inside = figure.limits == OutcomeKind::Value && figure.doubt.empty();
    const auto& Ta = situation.liveFigure(formulas::Live::Ta).number;
    const auto& Ea = situation.liveFigure(formulas::Live::Ea).number;
    point.beyondPole = Ta && Ea && catalogue::isBeyondPole(request.item.index(), *Ta, *Ea);
}

std::string intervalOf(const classic::Bound& low, const classic::Bound& high, const char* unit)
{
    return low.text + " to " + high.text + " " + unit;
}

std::string clauseOf(std::string sentence)
{
    while (!sentence.empty() && sentence.back() == '.')
        sentence.pop_back();
    return sentence;
}

/// Empty where no limit is the reason.
std::string limitReason(OutcomeKind kind, const classic::Limits& limits, const Item& item)
{
    if (item.model() != nullptr)
        return {};
    const catalogue::CatalogueRow& row = catalogue::row(item.index());
    const classic::IndexLimits& bounds = limits.of(item.index());
    if (kind == OutcomeKind::OutsideTemperature && bounds.given())
        return "outside its limits, " + std::string(catalogue::gatedName(row.gated)) + " from " +
               intervalOf(bounds.Tair_min, bounds.Tair_max, "°C") +
               (row.gate == catalogue::Gate::Text ? " or compared as texts" : "");
    if (kind == OutcomeKind::OutsideWind)
        return std::string("outside its limits, the wind ") +
               (row.gateWind == catalogue::GateWind::At10m ? "at 10 m " : "") + "from " +
               intervalOf(bounds.WS_min, bounds.WS_max, "m/s");
    return {};
}

std::string gapReason(std::span<const CoursePoint> points, const classic::Limits& limits, const Item& item,
                      Reading moved)
{
    const CoursePoint& first = points.front();
    if (std::string reason = limitReason(first.kind, limits, item); !reason.empty())
        return reason;
    const bool allSay = std::all_of(points.begin(), points.end(), [&first](const CoursePoint& point) {
        return point.reason == first.reason;
    });
    return (allSay ? std::string() : "for instance at " + withUnit(first.readingText, moved) + ": ") +
           clauseOf(first.reason);
}

std::vector<CourseGap> gapsOf(const Course& course, const classic::Limits& limits)
{
    std::vector<CourseGap> gaps;
    const std::span points(course.points);
    for (std::size_t i = 0; i < points.size();) {
        std::size_t end = i + 1;
        if (!points[i].value) {
            while (end < points.size() && !points[end].value && points[end].kind == points[i].kind)
                ++end;
            gaps.push_back(
                {points[i].reading, points[end - 1].reading, points[i].kind,
                 gapReason(points.subspan(i, end - i), limits, course.request.item, course.moved)});
        }
        i = end;
    }
    return gaps;
}

std::string heldOf(const Course& course)
{
    const classic::Inputs& inputs = course.request.inputs;
    std::string held = heldReadings(inputs, course.moved);
    if (course.moved == Reading::TA && !textOf(inputs, Reading::RH).empty())
        held += " With the humidity held, the dew point moves with the air.";
    if (course.moved == Reading::TA && !textOf(inputs, Reading::DP).empty())
        held += " The air is never colder than the dew point.";
    if (course.moved == Reading::TA && !textOf(inputs, Reading::TG).empty())
        held += " The globe is never more than 10 °C colder than the air.";
    if (course.moved == Reading::DP)
        held += " The dew point is never above the air.";
    return held + " By " + classic::inForce(inputs.settings) + ".";
}

} // namespace

Reading movedReading(const classic::Inputs& inputs, CourseAxis axis)
{
    switch (axis) {
    case CourseAxis::AirTemperature:
        break;
    case CourseAxis::Humidity:
        return textOf(inputs, Reading::DP).empty() ? Reading::RH : Reading::DP;
    case CourseAxis::Wind:
        return Reading::WS;
    case CourseAxis::Radiation:
        return textOf(inputs, Reading::TG).empty() ? Reading::SR : Reading::TG;
    }
    return Reading::TA;
}

std::string heldReadings(const classic::Inputs& inputs, std::optional<Reading> moved)
{
    std::string held = "Held:";
    const char* separator = " ";
    for (const Reading reading :
         {Reading::TA, Reading::TG, Reading::SR, Reading::DP, Reading::RH, Reading::WS}) {
        if (reading == moved || textOf(inputs, reading).empty())
            continue;
        held += separator + nameOf(reading) + " " + withUnit(textOf(inputs, reading), reading);
        separator = ", ";
    }
    return held + ".";
}

Course courseOf(const classic::Limits& limits, const CourseRequest& request,
                const std::function<bool()>& goOn)
{
    Course course;
    course.request = request;
    course.moved = movedReading(request.inputs, request.axis);
    course.held = heldOf(course);
    const std::string& presentText = textOf(request.inputs, course.moved);
    if (const catalogue::Addition* const model = request.item.model();
        model != nullptr && !model->results[request.item.result()].choices.empty()) {
        course.problem = "It is a word and no number, so that it has no course.";
        return course;
    }
    const Situation now = evaluate(limits, request.inputs);
    if (now.status == classic::RunStatus::Rejected) {
        course.problem = now.problem;
        return course;
    }

    std::vector<CoursePoint> points =
        placesOf(rangeOf(limits, request, course.moved), course.moved, presentText);
    classic::Inputs inputs = request.inputs;
    for (CoursePoint& point : points) {
        if (goOn && !goOn())
            return course;
        inputs.readings[static_cast<std::size_t>(course.moved)] = point.readingText;
        fill(point, evaluate(limits, inputs), request);
    }
    course.points = std::move(points);
    for (std::size_t i = 0; i < course.points.size(); ++i)
        if (course.points[i].readingText == presentText)
            course.present = i;
    course.gaps = gapsOf(course, limits);
    // Without a value there is no scale that a chart could have.
    if (std::ranges::none_of(course.points,
                             [](const CoursePoint& point) { return point.value.has_value(); })) {
        course.problem = course.gapsInWords() + " " + course.held;
        course.points.clear();
        course.present.reset();
    }
    return course;
}

// Gaps of one kind together, with the reason of the first.
std::string Course::gapsInWords() const
{
    std::string words;
    std::vector<OutcomeKind> told;
    for (const CourseGap& first : gaps) {
        if (std::find(told.begin(), told.end(), first.kind) != told.end())
            continue;
        told.push_back(first.kind);
        std::vector<std::string> places;
        for (const CourseGap& gap : gaps)
            if (gap.kind == first.kind)
                places.push_back(gap.from == gap.to ? "at " + withUnit(plainText(gap.from), moved)
                                                    : "from " + plainText(gap.from) + " to " +
                                                          withUnit(plainText(gap.to), moved));
        words += (words.empty() ? "No value " : " No value ") + places.front();
        for (std::size_t i = 1; i < places.size(); ++i)
            words += (i + 1 == places.size() ? " and " : ", ") + places[i];
        words += ": " + first.reason + ".";
    }
    return words;
}

std::string Course::inWords() const
{
    if (points.empty())
        return problem;
    const auto valueAt = [&](const CoursePoint& point) {
        const std::string unit(request.item.unit());
        return point.text + (unit.empty() ? unit : " " + unit) + " at " + withUnit(point.readingText, moved);
    };
    std::string words = request.item.name() + " over the " + nameOf(moved) + " from " +
                        points.front().readingText + " to " + withUnit(points.back().readingText, moved) +
                        ": ";
    std::vector<const CoursePoint*> standing;
    for (const CoursePoint& point : points)
        if (point.value)
            standing.push_back(&point);
    if (standing.empty()) {
        words += "no value.";
    } else {
        const auto less = [](const CoursePoint* a, const CoursePoint* b) { return *a->value < *b->value; };
        const auto [lowest, highest] = std::minmax_element(standing.begin(), standing.end(), less);
        words += "from " + valueAt(*standing.front()) + " to " + valueAt(*standing.back()) + ", lowest " +
                 valueAt(**lowest) + ", highest " + valueAt(**highest) + ".";
    }
    if (present)
        words += points[*present].value ? " At present " + valueAt(points[*present]) + "."
                                        : " At present it has no value.";
    const std::string without = gapsInWords();
    if (!without.empty())
        words += " " + without;
    return words;
}

} // namespace comfortics::workspace
