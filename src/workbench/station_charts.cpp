// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/station_charts.h"

#include "catalogue/catalogue.h"
#include "tables/charts.h"
#include "tables/summary.h"
#include "tables/value_counts.h"
#include "workbench/time_marks.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <set>
#include <tuple>

namespace comfortics::workbench {

namespace {

constexpr std::size_t kAskEvery = 1U << 15; // rows between two looks whether a chart is still wanted
constexpr double kStepsApart = 1.5;         // rows farther apart than so many steps miss others between
constexpr std::size_t kMostPoints = 10000;  // of a scatter; more are gathered in fields
constexpr std::size_t kFieldsAlong = 160;   // of a scatter
constexpr std::size_t kFieldsUp = 110;
constexpr int kScatterSteps = 6;
constexpr int kBins = 40;                                  // of a histogram, at most about
constexpr std::int64_t kMostDays = std::int64_t{40} * 366; // of a heat map, as tables::Course has it
constexpr std::size_t kMostDaysSeen = 800;
constexpr int kMostMonths = 1200;
constexpr int kAmountSteps = 5;
constexpr int kMonthsOfYear = 12;
constexpr int kTypicalYear = 1970; // has no 29th of February
constexpr int kTypicalLeapYear = 1972;

/// The work was ended.
struct Ended {};

tables::ClockTime clockOf(std::int64_t seconds)
{
    return tables::clockTime({seconds, std::nullopt});
}

int monthOf(std::int64_t seconds)
{
    const tables::ClockTime clock = clockOf(seconds);
    return clock.year * kMonthsOfYear + clock.month - 1;
}

std::int64_t monthBegin(int month)
{
    return tables::momentOf({month / kMonthsOfYear, month % kMonthsOfYear + 1})
        .value_or(tables::Moment{})
        .seconds;
}

std::vector<Band> bandsOf(const ChartColumn& column)
{
    std::vector<Band> bands;
    if (column.index == 0)
        return bands;
    // The sign of a scale of the dissatisfied is that of the vote in its row.
    const bool unsignedScale = catalogue::voteBeside(column.index) != 0;
    for (const catalogue::Category& category : catalogue::scale(column.index).categories)
        bands.push_back(
            {category.lower, category.upper, std::string(category.label),
             unsignedScale && category.severity != 0 ? std::nullopt : std::optional(category.severity)});
    return bands;
}

std::string counted(std::size_t count, const std::string& one, const std::string& several)
{
    return std::to_string(count) + " " + (count == 1 ? one : several);
}

std::string countedRows(std::size_t count)
{
    return counted(count, "row", "rows");
}

struct Span {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void add(double value)
    {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    bool empty() const { return low > high; }
};

// Of whole months whose calendar months are each of one year: those of a typical year are picked from many.
std::vector<int> yearsOfTypicalYear(const std::vector<std::int64_t>& seconds)
{
    std::array<int, kMonthsOfYear> years{};
    std::set<int> all;
    for (const std::int64_t at : seconds) {
        const int month = monthOf(at - 1); // a time may be the end of its hour
        int& year = years.at(static_cast<std::size_t>(month % kMonthsOfYear));
        if (year != 0 && year != month / kMonthsOfYear)
            return {};
        year = month / kMonthsOfYear;
        all.insert(year);
    }
    if (all.size() < 2 || std::find(years.begin(), years.end(), 0) != years.end())
        return {};
    return {all.begin(), all.end()};
}

void moveIntoOneYear(std::vector<std::int64_t>& seconds)
{
    const bool leap = std::any_of(seconds.begin(), seconds.end(), [](std::int64_t at) {
        const tables::ClockTime clock = clockOf(at);
        return clock.month == 2 && clock.day == 29;
    });
    for (std::int64_t& at : seconds) {
        tables::ClockTime clock = clockOf(at);
        clock.year = leap ? kTypicalLeapYear : kTypicalYear;
        at = tables::momentOf(clock).value_or(tables::Moment{at, std::nullopt}).seconds;
    }
}

// An edge of bins as the nearest number to its decimals, which the values are, too.
double edgeAt(double number, double step)
{
    return step >= 1 ? number * step : number / std::round(1 / step);
}

} // namespace

std::string_view chartName(ChartKind kind)
{
    static constexpr std::array<std::string_view, kChartKindCount> kNames{
        "Time series",   "Course of the days", "Course of the months", "Course of the day",
        "Hours by days", "Histogram",          "Hours in classes",     "One over another"};
    return kNames.at(static_cast<std::size_t>(kind));
}

bool Timeline::apart(std::size_t one, std::size_t next) const
{
    return !step || static_cast<double>(seconds[next] - seconds[one]) > kStepsApart * *step;
}

std::string bandWords(const Band& band)
{
    return band.severity ? band.label + " " + catalogue::signedSeverity(*band.severity) : band.label;
}

struct StationCharts::Work {
    const ChartRows& rows;
    const ChartRequest& request;
    const GoOn& goOn;
    std::shared_ptr<const Timeline> timeline;
    Chart chart;
    std::size_t asked = 0;

    void look()
    {
        if (++asked % kAskEvery == 0 && goOn && !goOn())
            throw Ended();
    }

    const ChartColumn& column(std::size_t place = 0) const
    {
        return rows.columns.at(request.columns.at(place));
    }

    /// Calls for each row, those without a time last, whose seconds are none.
    template <class Each>
    void eachRow(Each each)
    {
        for (std::size_t i = 0; i < timeline->rows.size(); ++i) {
            look();
            each(timeline->rows[i], std::optional(timeline->seconds[i]));
        }
        for (const std::uint32_t row : timeline->untimed) {
            look();
            each(row, std::optional<std::int64_t>());
        }
    }

    void noValues() { chart.problem = "No row of these has a value of " + column().name + "."; }

    bool needsTime()
    {
        if (timeline->rows.empty())
            chart.problem = "The rows have no time, so that there is nothing to draw over it.";
        else if (!timeline->untimed.empty())
            chart.notes.push_back(countedRows(timeline->untimed.size()) + " without a time " +
                                  (timeline->untimed.size() == 1 ? "is" : "are") + " not shown.");
        return chart.problem.empty();
    }

    void make();
    TimeLine line(std::size_t column, std::size_t first, std::size_t end, const Period& window,
                  bool& thinned);
    void timeSeries();
    void spreads();
    void heatMap();
    void histogram();
    void classHours();
    void scatter();
};

void StationCharts::Work::make()
{
    if (request.columns.empty()) {
        chart.problem = "No index is chosen.";
        return;
    }
    if (timeline->rows.empty() && timeline->untimed.empty()) {
        chart.problem = "No row is of this station and this time.";
        return;
    }
    const auto isWord = [this](std::size_t place) { return !rows.columns.at(place).words.empty(); };
    if (const auto word = std::ranges::find_if(request.columns, isWord);
        word != request.columns.end() && request.kind != ChartKind::ClassHours) {
        chart.problem = rows.columns.at(*word).name + " is one of several words: the chart \"" +
                        std::string(chartName(ChartKind::ClassHours)) + "\" shows how long each lasted.";
        return;
    }
    switch (request.kind) {
    case ChartKind::TimeSeries:
        timeSeries();
        break;
    case ChartKind::Days:
    case ChartKind::Months:
    case ChartKind::HoursOfDay:
        spreads();
        break;
    case ChartKind::HeatMap:
        heatMap();
        break;
    case ChartKind::Histogram:
        histogram();
        break;
    case ChartKind::ClassHours:
        classHours();
        break;
    case ChartKind::Scatter:
        scatter();
        break;
    }
}

// Where more rows stand than there are steps, each step has its first, lowest, highest and last value: the
// line covers the same room. A gap within a step has none.
TimeLine StationCharts::Work::line(std::size_t column, std::size_t first, std::size_t end,
                                   const Period& window, bool& thinned)
{
    TimeLine result;
    result.column = column;
    const double span = std::max(1.0, static_cast<double>(window.to - window.from));
    const std::size_t steps = std::max<std::size_t>(request.steps, 2);
    const bool dense = end - first > 2 * steps;
    thinned = thinned || dense;
    const auto stepOf = [&](std::size_t i) {
        return std::clamp(static_cast<double>(timeline->seconds[i] - window.from) / span, -1.0, 2.0) *
               static_cast<double>(steps);
    };
    std::optional<std::size_t> before;                    // the last row with a value
    std::array<std::pair<std::size_t, double>, 4> kept{}; // first, lowest, highest, last of the step
    std::optional<double> step;
    bool joined = false;
    const auto flush = [&] {
        if (!step)
            return;
        std::sort(kept.begin(), kept.end());
        for (std::size_t i = 0; i < kept.size(); ++i)
            if (i == 0 || kept[i].first != kept[i - 1].first)
                result.points.push_back({static_cast<double>(timeline->seconds[kept[i].first]),
                                         kept[i].second, i == 0 ? joined : true});
        step.reset();
    };
    for (std::size_t i = first; i < end; ++i) {
        look();
        const bool inside = timeline->seconds[i] >= window.from && timeline->seconds[i] < window.to;
        const auto value = rows.value(timeline->rows[i], column);
        if (!value) {
            result.gaps += inside ? 1 : 0;
            continue;
        }
        result.values += inside ? 1 : 0;
        const bool goesOn = before && *before + 1 == i && !timeline->apart(*before, i);
        before = i;
        const double here = dense ? std::floor(stepOf(i)) : static_cast<double>(i);
        if (!step || *step != here) {
            flush();
            step = here;
            joined = goesOn;
            kept.fill({i, *value});
            continue;
        }
        if (*value < kept[1].second)
            kept[1] = {i, *value};
        if (*value > kept[2].second)
            kept[2] = {i, *value};
        kept[3] = {i, *value};
    }
    flush();
    return result;
}

void StationCharts::Work::timeSeries()
{
    if (!request.station && rows.stations.size() > 1) {
        chart.problem = "Choose a station: a line through several would join what does not belong together.";
        return;
    }
    if (!needsTime())
        return;
    TimeSeries series;
    series.timeline = timeline;
    const std::vector<std::int64_t>& seconds = timeline->seconds;
    series.whole = request.period.value_or(Period{seconds.front(), seconds.back() + 1});
    series.window = request.window.value_or(series.whole);
    // One row beyond each end, to which the line leads.
    const auto begin = std::lower_bound(seconds.begin(), seconds.end(), series.window.from);
    const auto past = std::lower_bound(seconds.begin(), seconds.end(), series.window.to);
    const auto first = static_cast<std::size_t>(begin - seconds.begin());
    const auto last = static_cast<std::size_t>(past - seconds.begin());
    for (std::size_t i = first; i + 1 < last; ++i)
        series.missing += timeline->step && timeline->apart(i, i + 1) ? 1U : 0U;
    std::size_t values = 0;
    std::vector<Span> spans;
    for (const std::size_t place : request.columns) {
        const ChartColumn& column = rows.columns.at(place);
        auto panel = std::find_if(series.panels.begin(), series.panels.end(),
                                  [&](const TimePanel& one) { return one.unit == column.unit; });
        if (panel == series.panels.end()) {
            series.panels.push_back({});
            spans.emplace_back();
            panel = std::prev(series.panels.end());
            panel->unit = column.unit;
        }
        Span& span = spans[static_cast<std::size_t>(panel - series.panels.begin())];
        if (panel->bands.empty()) {
            panel->bands = bandsOf(column);
            panel->bandsOf = place;
        }
        panel->lines.push_back(line(place, first > 0 ? first - 1 : 0, std::min(last + 1, seconds.size()),
                                    series.window, series.thinned));
        Span own;
        for (const LinePoint& point : panel->lines.back().points)
            own.add(point.value);
        if (!own.empty()) {
            const workspace::Axis axis = workspace::axisAround(own.low, own.high, column.index);
            if (catalogue::hasPole(column.index) && (own.low < axis.low || own.high > axis.high)) {
                own = {std::max(own.low, axis.low), std::min(own.high, axis.high)};
                chart.notes.push_back("Beside a pole of " + column.name +
                                      " the line goes farther than is shown.");
            }
            span.add(own.low);
            span.add(own.high);
        }
        values += panel->lines.back().values;
    }
    if (values == 0 && !request.window) {
        chart.problem = "No row of these has a value of what is chosen.";
        return;
    }
    for (std::size_t i = 0; i < spans.size(); ++i)
        series.panels[i].values = spans[i].empty() ? workspace::axisAround(0, 1)
                                                   : workspace::axisAround(spans[i].low, spans[i].high);
    if (series.missing > 0)
        chart.notes.push_back("Rows are missing in " + counted(series.missing, "place", "places") +
                              ", where the line breaks.");
    if (!timeline->step)
        chart.notes.emplace_back("The rows are no certain time apart, so that no line joins them.");
    if (series.thinned)
        chart.notes.emplace_back("Several rows stand in each step of the line: the first, lowest, highest "
                                 "and last of them are drawn.");
    chart.body = std::move(series);
}

void StationCharts::Work::spreads()
{
    if (!needsTime())
        return;
    Spreads spreads;
    spreads.column = request.columns.front();
    spreads.yearless = timeline->yearless();
    tables::Course course;
    for (std::size_t i = 0; i < timeline->rows.size(); ++i) {
        look();
        if (const auto value = rows.value(timeline->rows[i], spreads.column))
            course.add({timeline->seconds[i], std::nullopt}, *value);
    }
    const bool days = request.kind == ChartKind::Days;
    const bool months = request.kind == ChartKind::Months;
    const std::vector<tables::Stretch> parts = days     ? course.daily()
                                               : months ? course.monthly()
                                                        : course.hourly();
    if (parts.empty())
        return noValues();
    const auto timeOf = [&](const tables::Stretch& part) {
        return tables::readMoment(months ? part.begin + "-01" : part.begin, tables::DateOrder::YearMonthDay)
            .value_or(tables::Moment{})
            .seconds;
    };
    if (days)
        spreads.days = {timeOf(parts.front()), timeOf(parts.back()) + kDay};
    const int firstMonth = months ? monthOf(timeOf(parts.front())) : 0;
    if (months) {
        const int lastMonth = monthOf(timeOf(parts.back()));
        if (lastMonth - firstMonth >= kMostMonths) {
            chart.problem = "The rows lie more than a hundred years apart. Choose a period.";
            return;
        }
        for (int month = firstMonth; month <= lastMonth; ++month)
            spreads.names.push_back(
                monthText(month / kMonthsOfYear, month % kMonthsOfYear + 1, spreads.yearless));
    }
    for (std::int64_t hour = 0; !days && !months && hour < 24; ++hour)
        spreads.names.push_back(timeText(hour * kHour).substr(11));
    Span span;
    for (const tables::Stretch& part : parts) {
        Spread one;
        one.count = part.count;
        one.mean = part.mean;
        one.low = part.lowest;
        one.high = part.highest;
        if (days) {
            const std::int64_t begin = timeOf(part);
            one.name = dayText(begin, spreads.yearless);
            one.at = static_cast<double>(begin) + kDay / 2.0;
        } else {
            one.at = months ? monthOf(timeOf(part)) - firstMonth : std::stoi(part.begin);
            one.name = spreads.names.at(static_cast<std::size_t>(one.at));
        }
        one.joined = !spreads.parts.empty() && one.at - spreads.parts.back().at <= (days ? kDay : 1);
        spreads.fullest = std::max(spreads.fullest, part.count);
        span.add(part.lowest);
        span.add(part.highest);
        spreads.parts.push_back(std::move(one));
    }
    spreads.values = workspace::axisAround(span.low, span.high, column().index);
    spreads.bands = bandsOf(column());
    chart.notes.push_back(std::string("The line is the mean of each ") +
                          (days     ? "day"
                           : months ? "month"
                                    : "hour of the day, over all days") +
                          ", the shade reaches from its lowest to its highest value.");
    const auto fuller = [&](const Spread& part) { return part.count < spreads.fullest; };
    const auto few =
        static_cast<std::size_t>(std::count_if(spreads.parts.begin(), spreads.parts.end(), fuller));
    if (days && few > 0)
        chart.notes.push_back(counted(few, "day has", "days have") + " fewer than " +
                              std::to_string(spreads.fullest) + " values.");
    chart.body = std::move(spreads);
}

void StationCharts::Work::heatMap()
{
    if (!needsTime())
        return;
    HeatMap map;
    map.column = request.columns.front();
    map.yearless = timeline->yearless();
    const int index = column().index;
    // A mean has a class where its values all have one, and the class depends on the value alone.
    if (index != 0 && catalogue::voteBeside(index) == 0 && !catalogue::hasPole(index))
        map.bands = bandsOf(column());
    tables::Course course;
    std::set<std::int64_t> classless; // hours from 1970
    std::size_t values = 0;
    for (std::size_t i = 0; i < timeline->rows.size(); ++i) {
        look();
        const auto value = rows.value(timeline->rows[i], map.column);
        if (!value)
            continue;
        course.add({timeline->seconds[i], std::nullopt}, *value);
        ++values;
        if (!map.bands.empty() && !rows.meaning(timeline->rows[i], map.column))
            classless.insert(floorOf(timeline->seconds[i], kHour));
    }
    const std::vector<tables::DayOfHours> days = course.heatMap();
    if (days.empty())
        return noValues();
    const auto dayOf = [](const std::string& day) {
        return floorOf(
            tables::readMoment(day, tables::DateOrder::YearMonthDay).value_or(tables::Moment{}).seconds,
            kDay);
    };
    map.firstDay = dayOf(days.front().day);
    if (dayOf(days.back().day) - map.firstDay >= kMostDays) {
        chart.problem = "The rows lie more than forty years apart. Choose a period.";
        return;
    }
    Span span;
    std::size_t fields = 0;
    for (const tables::DayOfHours& day : days) {
        auto& to = map.days.emplace_back();
        const std::int64_t firstHour =
            (map.firstDay + static_cast<std::int64_t>(map.days.size()) - 1) * (kDay / kHour);
        for (std::size_t hour = 0; hour < to.size(); ++hour) {
            const auto& mean = day.means[hour];
            if (!mean)
                continue;
            ++fields;
            span.add(*mean);
            to[hour].mean = mean;
            const auto here = std::find_if(map.bands.begin(), map.bands.end(), [&](const Band& band) {
                return *mean >= band.low && *mean < band.high;
            });
            if (here != map.bands.end() && classless.count(firstHour + static_cast<std::int64_t>(hour)) == 0)
                to[hour].band = static_cast<std::size_t>(here - map.bands.begin());
        }
    }
    map.low = span.low;
    map.high = span.high;
    if (values > fields)
        chart.notes.emplace_back(map.bands.empty()
                                     ? "Each field is the mean of its hour."
                                     : "Each field is the mean of its hour and in the class of that mean.");
    if (map.days.size() > kMostDaysSeen)
        chart.notes.emplace_back("There are more days than a chart is wide: choose a period to see each.");
    chart.body = std::move(map);
}

void StationCharts::Work::histogram()
{
    Histogram histogram;
    histogram.column = request.columns.front();
    tables::ValueCounts counts;
    bool allTimed = true;
    eachRow([&](std::size_t row, const std::optional<std::int64_t>& seconds) {
        if (const auto value = rows.value(row, histogram.column)) {
            counts.add(*value);
            allTimed = allTimed && seconds;
        }
    });
    if (counts.count() == 0)
        return noValues();
    const double least = std::pow(10, -column().decimals);
    const double low = counts.lowest();
    const double high = counts.highest();
    const double step = high - low > least * kBins ? workspace::niceAxis(low, high, kBins).step : least;
    std::vector<double> edges;
    double number = std::floor(low / step);
    number -= edgeAt(number, step) > low ? 1 : 0;
    do
        edges.push_back(edgeAt(number++, step));
    while (edges.back() <= high);
    const double hours = timeline->step && allTimed ? *timeline->step / static_cast<double>(kHour) : 0;
    histogram.hours = hours > 0;
    double most = 0;
    for (const tables::ValueCounts::Bin& bin : counts.histogram(edges)) {
        const double amount = static_cast<double>(bin.count) * (histogram.hours ? hours : 1);
        histogram.bins.push_back({bin.from, bin.to, amount});
        most = std::max(most, amount);
    }
    const double span = edges.back() - edges.front();
    histogram.values = workspace::niceAxis(edges.front(), edges.back(), kScatterSteps);
    histogram.values.low = edges.front();
    histogram.values.high = edges.front() + span;
    histogram.amounts = workspace::niceAxis(0, most, kAmountSteps);
    histogram.bands = bandsOf(column());
    chart.notes.push_back(counted(counts.count(), "value", "values") + ": mean " +
                          withUnit(column(), counts.mean(), 1) + ", median " +
                          withUnit(column(), counts.quantile(0.5), 1) + ", from " + withUnit(column(), low) +
                          " to " + withUnit(column(), high) + ".");
    chart.body = std::move(histogram);
}

void StationCharts::Work::classHours()
{
    ClassHours result;
    result.column = request.columns.front();
    const std::vector<std::string_view>& words = column().words;
    const auto categories = column().index == 0 ? std::span<const catalogue::Category>()
                                                : catalogue::scale(column().index).categories;
    if (words.empty() && categories.empty()) {
        chart.problem = column().name + " has no published classes.";
        return;
    }
    // The place in the scale or among the words, and whether the severity has the other sign.
    using Key = std::pair<std::size_t, bool>;
    const auto keyAt = [&](std::size_t row) -> std::optional<Key> {
        if (!words.empty()) {
            const auto word = rows.word(row, result.column);
            return word ? std::optional(Key{*word, false}) : std::nullopt;
        }
        const auto meaning = rows.meaning(row, result.column);
        if (!meaning)
            return std::nullopt;
        return Key{static_cast<std::size_t>(meaning->category - categories.data()),
                   meaning->severity < meaning->category->severity};
    };
    struct Month {
        std::map<Key, std::size_t> classes;
        std::size_t without = 0;
    };
    std::map<int, Month> months; // the first is of rows without a time
    constexpr int kNone = std::numeric_limits<int>::min();
    std::set<Key> all;
    eachRow([&](std::size_t row, const std::optional<std::int64_t>& seconds) {
        Month& month = months[seconds ? monthOf(*seconds) : kNone];
        if (const auto key = keyAt(row)) {
            ++month.classes[*key];
            all.insert(*key);
        } else
            ++month.without;
    });
    if (all.empty()) {
        chart.problem = "No row of these has a " + std::string(words.empty() ? "class" : "value") + " of " +
                        column().name + ".";
        return;
    }
    // Ascending; of scales of the dissatisfied the cold side first, its worst class foremost.
    std::vector<Key> keys(all.begin(), all.end());
    std::ranges::sort(keys, [](const Key& one, const Key& other) {
        if (one.second != other.second)
            return one.second;
        return one.second ? one.first > other.first : one.first < other.first;
    });
    for (const auto& [place, turned] : keys) {
        if (!words.empty()) {
            result.classes.push_back({.label = std::string(words[place]), .severity = std::nullopt});
            continue;
        }
        const catalogue::Category& category = categories[place];
        result.classes.push_back({category.lower, category.upper, std::string(category.label),
                                  turned ? -category.severity : category.severity});
    }
    const bool timed = months.begin()->first != kNone;
    const double hours = timeline->step && timed ? *timeline->step / static_cast<double>(kHour) : 0;
    result.hours = hours > 0;
    const double unit = result.hours ? hours : 1;
    result.totals.resize(keys.size());
    const int last = months.rbegin()->first;
    double most = 0;
    for (auto month = months.begin(); month != months.end(); ++month) {
        ClassHours::Month to;
        if (month->first != kNone)
            to.name = monthText(month->first / kMonthsOfYear, month->first % kMonthsOfYear + 1,
                                timeline->yearless());
        double height = 0;
        for (std::size_t i = 0; i < keys.size(); ++i) {
            const auto found = month->second.classes.find(keys[i]);
            const std::size_t count = found == month->second.classes.end() ? 0 : found->second;
            to.rows += count;
            to.amounts.push_back(static_cast<double>(count) * unit);
            result.totals[i] += to.amounts.back();
            height += to.amounts.back();
        }
        to.rows += month->second.without;
        to.without = static_cast<double>(month->second.without) * unit;
        result.without += to.without;
        most = std::max(most, height + to.without);
        result.months.push_back(std::move(to));
        // Months without any row stand empty between the others.
        const auto next = std::next(month);
        for (int empty = month->first + 1; month->first != kNone && month->first != last &&
                                           empty < next->first && last - empty < kMostMonths;
             ++empty)
            result.months.push_back(
                {monthText(empty / kMonthsOfYear, empty % kMonthsOfYear + 1, timeline->yearless()),
                 std::vector<double>(keys.size()), 0, 0});
    }
    result.amounts = workspace::niceAxis(0, most, kAmountSteps);
    if (result.hours)
        chart.notes.push_back(
            "A row stands for " +
            (hours == 1 ? std::string("one hour") : valueText({.decimals = 2}, hours) + " hours") +
            ", the step of most rows.");
    else
        chart.notes.emplace_back("Rows are counted, since no certain time lies between them.");
    chart.body = std::move(result);
}

void StationCharts::Work::scatter()
{
    if (request.columns.size() < 2) {
        chart.problem = "Two indices are wanted, one for each axis.";
        return;
    }
    Scatter scatter;
    scatter.alongColumn = request.columns[0];
    scatter.upColumn = request.columns[1];
    std::vector<std::pair<double, double>> pairs;
    std::size_t without = 0;
    Span along;
    Span up;
    eachRow([&](std::size_t row, const std::optional<std::int64_t>&) {
        const auto x = rows.value(row, scatter.alongColumn);
        const auto y = rows.value(row, scatter.upColumn);
        if (!x || !y) {
            ++without;
            return;
        }
        pairs.emplace_back(*x, *y);
        along.add(*x);
        up.add(*y);
    });
    if (pairs.empty()) {
        chart.problem = "No row of these has both " + column(0).name + " and " + column(1).name + ".";
        return;
    }
    scatter.pairs = pairs.size();
    scatter.along = workspace::axisAround(along.low, along.high, column(0).index);
    scatter.up = workspace::axisAround(up.low, up.high, column(1).index);
    scatter.gathered = pairs.size() > kMostPoints;
    if (scatter.gathered) {
        scatter.fieldWidth = scatter.along.span() / kFieldsAlong;
        scatter.fieldHeight = scatter.up.span() / kFieldsUp;
        for (auto& [x, y] : pairs) { // to the middle of its field
            x = scatter.along.low +
                (std::floor((x - scatter.along.low) / scatter.fieldWidth) + 0.5) * scatter.fieldWidth;
            y = scatter.up.low +
                (std::floor((y - scatter.up.low) / scatter.fieldHeight) + 0.5) * scatter.fieldHeight;
        }
        chart.notes.emplace_back("So many rows are gathered in fields: the stronger the colour, the more.");
    }
    std::sort(pairs.begin(), pairs.end());
    for (const auto& [x, y] : pairs) {
        look();
        if (!scatter.points.empty() && scatter.points.back().x == x && scatter.points.back().y == y)
            ++scatter.points.back().count;
        else
            scatter.points.push_back({x, y, 1});
        scatter.most = std::max(scatter.most, scatter.points.back().count);
    }
    chart.notes.push_back(countedRows(scatter.pairs) + " with both values" +
                          (without > 0 ? ", " + std::to_string(without) + " without one of them." : "."));
    chart.body = std::move(scatter);
}

namespace {

void sortByTime(Timeline& timeline)
{
    std::vector<std::uint32_t> order(timeline.rows.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(), [&](std::uint32_t one, std::uint32_t other) {
        return timeline.seconds[one] < timeline.seconds[other];
    });
    std::vector<std::uint32_t> rows;
    std::vector<std::int64_t> seconds;
    for (const std::uint32_t place : order) {
        rows.push_back(timeline.rows[place]);
        seconds.push_back(timeline.seconds[place]);
    }
    timeline.rows = std::move(rows);
    timeline.seconds = std::move(seconds);
}

void findStep(Timeline& timeline)
{
    tables::StepFinder steps;
    for (const std::int64_t seconds : timeline.seconds)
        steps.add({seconds, std::nullopt});
    timeline.step = steps.step();
}

Timeline cut(const Timeline& whole, const Period& period)
{
    const auto place = [&whole](std::int64_t at) {
        return std::lower_bound(whole.seconds.begin(), whole.seconds.end(), at) - whole.seconds.begin();
    };
    const auto first = place(period.from);
    const auto end = std::max(first, place(period.to));
    Timeline part;
    part.rows = {whole.rows.begin() + first, whole.rows.begin() + end};
    part.seconds = {whole.seconds.begin() + first, whole.seconds.begin() + end};
    part.step = whole.step;
    part.years = whole.years;
    return part;
}

} // namespace

std::shared_ptr<const Timeline> StationCharts::timeline(std::optional<std::size_t> station,
                                                        const std::optional<Period>& period, const GoOn& goOn)
{
    if (!m_whole || m_station != station) {
        Timeline whole;
        for (std::size_t row = 0; row < m_rows.rows(); ++row) {
            if (row % kAskEvery == 0 && goOn && !goOn())
                return nullptr;
            if (station && m_rows.station(row) != *station)
                continue;
            if (const auto seconds = m_rows.seconds(row)) {
                whole.rows.push_back(static_cast<std::uint32_t>(row));
                whole.seconds.push_back(*seconds);
            } else
                whole.untimed.push_back(static_cast<std::uint32_t>(row));
        }
        const auto ascends = [&whole] { return std::is_sorted(whole.seconds.begin(), whole.seconds.end()); };
        if (!ascends()) {
            whole.years = yearsOfTypicalYear(whole.seconds);
            if (whole.yearless())
                moveIntoOneYear(whole.seconds);
            if (!ascends())
                sortByTime(whole);
        }
        findStep(whole);
        m_whole = std::make_shared<const Timeline>(std::move(whole));
        m_timeline.reset();
        m_station = station;
    }
    if (!period)
        return m_whole;
    if (!m_timeline || m_period != period) {
        m_timeline = std::make_shared<const Timeline>(cut(*m_whole, *period));
        m_period = period;
    }
    return m_timeline;
}

Chart StationCharts::chart(const ChartRequest& request, const GoOn& goOn)
{
    Work work{m_rows, request, goOn, timeline(request.station, request.period, goOn), {}};
    Chart& chart = work.chart;
    chart.kind = request.kind;
    chart.columns = m_rows.columns;
    chart.origin = m_rows.origin;
    if (request.station)
        chart.station = m_rows.stations.at(*request.station);
    else if (m_rows.stations.size() > 1)
        chart.station = std::to_string(m_rows.stations.size()) + " stations together";
    for (std::size_t i = 0; i < request.columns.size(); ++i)
        chart.title += (i == 0                               ? ""
                        : request.kind == ChartKind::Scatter ? " (along) and "
                                                             : ", ") +
                       m_rows.columns.at(request.columns[i]).name;
    chart.title += (request.kind == ChartKind::Scatter && request.columns.size() > 1 ? " (up): " : ": ") +
                   std::string(chartName(request.kind));
    if (!work.timeline)
        return chart;
    try {
        work.make();
    } catch (const Ended&) {
        chart.body = {};
        return chart;
    }
    if (work.timeline->yearless()) {
        std::string years;
        for (const int year : work.timeline->years)
            years += (years.empty() ? "" : ", ") + std::to_string(year);
        chart.notes.push_back("The months are of different years (" + years +
                              ") and stand in one, as those of a typical year do.");
    }
    if (const auto* const scatter = std::get_if<Scatter>(&chart.body); scatter == nullptr) {
        std::set<std::string_view> sources;
        for (const std::size_t place : request.columns)
            if (const int index = m_rows.columns.at(place).index; index != 0)
                if (!catalogue::scale(index).source.empty() && chart.problem.empty() &&
                    sources.insert(catalogue::scale(index).source).second &&
                    (ofOneColumn(request.kind) || sources.size() == 1))
                    chart.notes.push_back("Classes: " + std::string(catalogue::scale(index).source) + ".");
    }
    return chart;
}

std::vector<NamedPeriod> periodsOf(const Timeline& timeline)
{
    std::vector<NamedPeriod> periods;
    std::vector<NamedPeriod> months;
    std::optional<int> before;
    for (const std::int64_t at : timeline.seconds) {
        const int month = monthOf(at);
        if (month == before)
            continue;
        const int year = month / kMonthsOfYear;
        if (!timeline.yearless() && (!before || *before / kMonthsOfYear != year))
            periods.push_back({std::to_string(year),
                               {monthBegin(year * kMonthsOfYear), monthBegin((year + 1) * kMonthsOfYear)}});
        months.push_back({monthText(year, month % kMonthsOfYear + 1, timeline.yearless()),
                          {monthBegin(month), monthBegin(month + 1)}});
        before = month;
    }
    periods.insert(periods.end(), months.begin(), months.end());
    return periods;
}

} // namespace comfortics::workbench
