// SPDX-License-Identifier: GPL-3.0-or-later
//
// Charts in words, for those who do not see them and for the place under the cursor.
#include "workbench/station_charts.h"
#include "workbench/time_marks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace comfortics::workbench {

namespace {

std::string valuesInWords(std::size_t count)
{
    return std::to_string(count) + (count == 1 ? " value" : " values");
}

// Hours are multiples of the step between rows; rows are whole.
std::string amountText(double amount, bool hours)
{
    if (hours)
        return valueText({.decimals = amount == std::round(amount) ? 0 : 2}, amount) +
               (amount == 1 ? " hour" : " hours");
    return valueText({.decimals = 0}, amount) + (amount == 1 ? " row" : " rows");
}

std::string withoutStop(std::string sentence)
{
    if (sentence.ends_with('.'))
        sentence.pop_back();
    return sentence;
}

const Band* bandAt(const std::vector<Band>& bands, double value)
{
    const auto found = std::find_if(bands.begin(), bands.end(), [value](const Band& band) {
        return value >= band.low && value < band.high;
    });
    return found == bands.end() ? nullptr : &*found;
}

struct InWords {
    const Chart& chart;

    const ChartColumn& column(std::size_t place) const { return chart.columns.at(place); }

    std::string operator()(const std::monostate&) const { return chart.problem; }

    std::string operator()(const TimeSeries& series) const
    {
        const bool yearless = series.timeline->yearless();
        std::string text = "From " + timeText(series.window.from, yearless) + " to " +
                           timeText(series.window.to - 1, yearless) + ".";
        for (const TimePanel& panel : series.panels)
            for (const TimeLine& line : panel.lines) {
                text += " " + column(line.column).name + ": " + valuesInWords(line.values);
                const auto [low, high] = std::minmax_element(
                    line.points.begin(), line.points.end(),
                    [](const LinePoint& one, const LinePoint& other) { return one.value < other.value; });
                if (line.values > 0)
                    text += ", lowest " + withUnit(column(line.column), low->value) + " at " +
                            timeText(static_cast<std::int64_t>(low->seconds), yearless) + ", highest " +
                            withUnit(column(line.column), high->value) + " at " +
                            timeText(static_cast<std::int64_t>(high->seconds), yearless);
                text += "; " + std::to_string(line.gaps) + (line.gaps == 1 ? " row" : " rows") +
                        " without a value.";
            }
        return text;
    }

    std::string operator()(const Spreads& spreads) const
    {
        const auto [low, high] =
            std::minmax_element(spreads.parts.begin(), spreads.parts.end(),
                                [](const Spread& one, const Spread& other) { return one.mean < other.mean; });
        return std::to_string(spreads.parts.size()) + " means, lowest " +
               withUnit(column(spreads.column), low->mean, 1) + " (" + low->name + "), highest " +
               withUnit(column(spreads.column), high->mean, 1) + " (" + high->name + ").";
    }

    std::string operator()(const HeatMap& map) const
    {
        return std::to_string(map.days.size()) + " days from " + dayText(map.firstDay * kDay, map.yearless) +
               "; means of hours from " + withUnit(column(map.column), map.low) + " to " +
               withUnit(column(map.column), map.high) + ".";
    }

    std::string operator()(const Histogram& histogram) const
    {
        const auto most = std::max_element(
            histogram.bins.begin(), histogram.bins.end(),
            [](const Histogram::Bin& one, const Histogram::Bin& other) { return one.amount < other.amount; });
        return std::to_string(histogram.bins.size()) + " bins; the fullest from " +
               withUnit(column(histogram.column), most->from) + " to below " +
               withUnit(column(histogram.column), most->to) + ": " +
               amountText(most->amount, histogram.hours) + ".";
    }

    std::string operator()(const ClassHours& hours) const
    {
        std::string text;
        for (std::size_t i = 0; i < hours.classes.size(); ++i)
            text += bandWords(hours.classes[i]) + ": " + amountText(hours.totals[i], hours.hours) + "; ";
        return text + "without a class: " + amountText(hours.without, hours.hours) + ".";
    }

    std::string operator()(const Scatter& scatter) const
    {
        return std::to_string(scatter.pairs) + (scatter.pairs == 1 ? " row" : " rows") + " with both values.";
    }
};

struct Places {
    ChartPlace operator()(const std::monostate&) const { return {}; }
    ChartPlace operator()(const TimeSeries& series) const { return {series.timeline->rows.size(), 1}; }
    ChartPlace operator()(const Spreads& spreads) const { return {spreads.parts.size(), 1}; }
    ChartPlace operator()(const HeatMap& map) const { return {map.days.size(), 24}; }
    ChartPlace operator()(const Histogram& histogram) const { return {histogram.bins.size(), 1}; }
    ChartPlace operator()(const ClassHours& hours) const
    {
        return {hours.months.size(), hours.classes.size() + 1};
    }
    ChartPlace operator()(const Scatter& scatter) const { return {scatter.points.size(), 1}; }
};

struct WordsAt {
    const Chart& chart;
    const ChartPlace& place;
    const ChartRows& rows;

    const ChartColumn& column(std::size_t of) const { return chart.columns.at(of); }

    std::string operator()(const std::monostate&) const { return chart.problem; }

    std::string operator()(const TimeSeries& series) const
    {
        const std::uint32_t row = series.timeline->rows.at(place.along);
        std::string text =
            timeText(series.timeline->seconds.at(place.along), series.timeline->yearless()) + ":";
        std::size_t told = 0;
        for (const TimePanel& panel : series.panels)
            for (const TimeLine& line : panel.lines) {
                text += (told++ == 0 ? " " : "; ") + column(line.column).name + " ";
                if (const auto value = rows.value(row, line.column)) {
                    text += withUnit(column(line.column), *value);
                    if (const auto meaning = rows.meaning(row, line.column))
                        text += ", " + catalogue::inWords(*meaning);
                } else
                    text += "has no value: " + withoutStop(rows.whyNone(row, line.column));
            }
        return text;
    }

    std::string operator()(const Spreads& spreads) const
    {
        const Spread& part = spreads.parts.at(place.along);
        return part.name + ": mean " + withUnit(column(spreads.column), part.mean, 1) + ", from " +
               withUnit(column(spreads.column), part.low) + " to " +
               withUnit(column(spreads.column), part.high) + ", " + valuesInWords(part.count);
    }

    std::string operator()(const HeatMap& map) const
    {
        const HeatMap::Field& field = map.days.at(place.along).at(place.up);
        std::string text = timeText((map.firstDay + static_cast<std::int64_t>(place.along)) * kDay +
                                        static_cast<std::int64_t>(place.up) * kHour,
                                    map.yearless) +
                           ": ";
        if (!field.mean)
            return text + "no value";
        text += withUnit(column(map.column), *field.mean, 1);
        if (field.band)
            return text + ", " + bandWords(map.bands[*field.band]);
        return map.bands.empty() ? text : text + ", no class";
    }

    std::string operator()(const Histogram& histogram) const
    {
        const Histogram::Bin& bin = histogram.bins.at(place.along);
        std::string text = "From " + withUnit(column(histogram.column), bin.from) + " to below " +
                           withUnit(column(histogram.column), bin.to) + ": " +
                           amountText(bin.amount, histogram.hours);
        const Band* const low = bandAt(histogram.bands, bin.from);
        return low != nullptr && bin.to <= low->high ? text + ", " + bandWords(*low) : text;
    }

    std::string operator()(const ClassHours& hours) const
    {
        const ClassHours::Month& month = hours.months.at(place.along);
        std::string text = month.name.empty() ? "All rows" : month.name;
        if (month.rows == 0)
            return text + ": no rows";
        const bool without = place.up == hours.classes.size();
        return text + ", " + (without ? "without a class" : bandWords(hours.classes.at(place.up))) + ": " +
               amountText(without ? month.without : month.amounts.at(place.up), hours.hours);
    }

    std::string operator()(const Scatter& scatter) const
    {
        const Scatter::Point& point = scatter.points.at(place.along);
        return column(scatter.alongColumn).name + (scatter.gathered ? " about " : " ") +
               withUnit(column(scatter.alongColumn), point.x) + ", " + column(scatter.upColumn).name +
               (scatter.gathered ? " about " : " ") + withUnit(column(scatter.upColumn), point.y) + ": " +
               amountText(static_cast<double>(point.count), false);
    }
};

} // namespace

std::string Chart::inWords() const
{
    if (empty())
        return problem;
    return title + ". " + std::visit(InWords{*this}, body);
}

std::vector<std::string> Chart::footer() const
{
    std::vector<std::string> lines;
    const auto add = [&lines](const std::string& line) {
        if (!line.empty())
            lines.push_back(line);
    };
    add(station.empty() ? "Source: " + origin.source : "Source: " + origin.source + ", " + station);
    add(origin.rules);
    add(origin.filter);
    add(origin.run);
    for (const std::string& note : notes)
        add(note);
    return lines;
}

ChartPlace placesOf(const Chart& chart)
{
    return std::visit(Places{}, chart.body);
}

std::string wordsAt(const Chart& chart, const ChartPlace& place, const ChartRows& rows)
{
    return std::visit(WordsAt{chart, place, rows}, chart.body);
}

std::size_t nearestRow(const Timeline& timeline, double seconds)
{
    const auto next =
        std::lower_bound(timeline.seconds.begin(), timeline.seconds.end(), seconds,
                         [](std::int64_t at, double wanted) { return static_cast<double>(at) < wanted; });
    const auto place = static_cast<std::size_t>(next - timeline.seconds.begin());
    if (next == timeline.seconds.end())
        return timeline.seconds.size() - 1;
    if (place > 0 && seconds - static_cast<double>(timeline.seconds[place - 1]) <
                         static_cast<double>(timeline.seconds[place]) - seconds)
        return place - 1;
    return place;
}

std::string valueText(const ChartColumn& column, double value, int more)
{
    std::array<char, 400> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed,
                                   column.decimals + more);
    const std::string plain(text.data(), end.ptr);
    return plain.find_first_not_of("-0.") == std::string::npos && plain.starts_with('-') ? plain.substr(1)
                                                                                         : plain;
}

std::string withUnit(const ChartColumn& column, double value, int more)
{
    return valueText(column, value, more) + (column.unit.empty() ? "" : " " + column.unit);
}

} // namespace comfortics::workbench
