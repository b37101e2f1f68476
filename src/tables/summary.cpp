// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/summary.h"

#include "catalogue/catalogue.h"
#include "catalogue/categories.h"
#include "output/csv_cell.h"
#include "tables/layout.h"
#include "values/plain_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace comfortics::tables {

using nlohmann::ordered_json;
using values::plainText;

namespace {

constexpr std::size_t kMostStations = 1000;
constexpr std::size_t kMostSteps = 1000;
constexpr std::int64_t kLongestStep = 86400; // [s]

bool isBefore(const Extreme& one, const Extreme& other)
{
    return one.line < other.line;
}

// Months since the year 0; 0 without a time.
int monthOf(const std::optional<Moment>& time)
{
    if (!time)
        return 0;
    const ClockTime clock = clockTime(*time);
    return clock.year * 12 + clock.month - 1;
}

std::string monthText(int month)
{
    return month == 0 ? std::string() : momentText(*momentOf({month / 12, month % 12 + 1})).substr(0, 7);
}

std::optional<double> hoursOf(std::size_t rows, std::optional<double> step)
{
    return step ? std::optional(static_cast<double>(rows) * *step / 3600) : std::nullopt;
}

// A line of cells.
class CsvLine {
public:
    CsvLine& add(std::string_view cell)
    {
        m_line += m_begun ? "," : "";
        m_begun = true;
        output::appendCsvCell(m_line, cell);
        return *this;
    }
    CsvLine& add(std::size_t number) { return add(std::to_string(number)); }
    std::string ended() const { return m_line + "\r\n"; }

private:
    std::string m_line;
    bool m_begun = false;
};

std::string timeText(const Extreme& extreme)
{
    return extreme.time ? momentText(*extreme.time) : std::string();
}

ordered_json extremeJson(const Extreme& extreme)
{
    ordered_json object{{"value", extreme.value}, {"line", extreme.line}};
    if (extreme.time)
        object["time"] = momentText(*extreme.time);
    return object;
}

// What an index or a figure of a model is called.
struct Called {
    std::string number; // or id
    std::string name;
    std::string_view unit;
};

Called called(const IndexSummary& index)
{
    if (index.figure)
        return {index.figure->id(),
                std::string(index.figure->info().name) + ", " + std::string(index.figure->model->name),
                index.figure->info().unit};
    const catalogue::CatalogueRow& row = catalogue::row(index.index);
    return {std::to_string(index.index), std::string(row.name), row.unit};
}

bool hasModels(const TableSummary& summary)
{
    return !summary.stations.empty() && !summary.stations.front().indices.empty() &&
           summary.stations.front().indices.back().figure.has_value();
}

bool isWord(const IndexSummary& index)
{
    return index.figure && !index.figure->info().choices.empty();
}

ordered_json indexJson(const IndexSummary& index)
{
    const Called names = called(index);
    ordered_json object;
    if (index.figure)
        object = {{"id", names.number},     {"name", names.name},           {"unit", names.unit},
                  {"values", index.values}, {"outsideRange", index.marked}, {"noValue", index.noValue}};
    else
        object = {{"number", index.index},
                  {"name", names.name},
                  {"unit", names.unit},
                  {"values", index.values},
                  {"outsideTemperatureLimits", index.outsideTemperature},
                  {"outsideWindLimits", index.outsideWind},
                  {"noValue", index.noValue},
                  {"failed", index.failed}};
    if (index.mean) {
        object["mean"] = *index.mean;
        for (std::size_t i = 0; i < kPercentiles.size(); ++i)
            object["percentiles"][std::to_string(kPercentiles[i])] = index.percentiles[i];
        object["lowest"] = extremeJson(index.lowest);
        object["highest"] = extremeJson(index.highest);
    }
    for (const ClassTime& one : index.classes) {
        ordered_json entry{{"class", one.category}};
        if (!isWord(index))
            entry["severity"] = one.severity;
        if (!one.month.empty())
            entry["month"] = one.month;
        entry["rows"] = one.rows;
        if (one.hours)
            entry["hours"] = *one.hours;
        object["classes"].push_back(std::move(entry));
    }
    return object;
}

ModelValue valueOf(const batch::ModelFigures& figures, std::size_t result)
{
    const catalogue::AdditionResult& info = figures.model->results[result];
    const double value = figures.results[result];
    ModelValue made{.isMarked = figures.standing(result) == "outside"};
    if (info.choices.empty()) {
        made.text = catalogue::resultText(info, value);
        if (const catalogue::Category* const of = figures.category(result))
            made.category = static_cast<std::size_t>(of - catalogue::scaleOf(info).categories.data());
    } else if (const catalogue::Choice* const word = catalogue::choiceWith(info.choices, value)) {
        made.category = static_cast<std::size_t>(word - info.choices.data());
    }
    return made;
}

} // namespace

Summarizer::Summarizer(std::vector<int> indices, std::vector<catalogue::Figure> figures)
    : m_indices(std::move(indices)), m_figures(std::move(figures))
{
}

Summarizer::Summarizer(std::vector<int> indices, const std::vector<const catalogue::Addition*>& models)
    : m_indices(std::move(indices))
{
    for (const catalogue::Addition* const model : models)
        for (std::size_t result = 0; result < model->results.size(); ++result)
            m_figures.push_back({model, result});
}

Summarizer::Station& Summarizer::station(std::string_view name)
{
    const auto found = m_stations.find(name);
    if (found != m_stations.end())
        return found->second;
    if (m_stations.size() == kMostStations)
        throw TableFault("The column of the station holds more than " + std::to_string(kMostStations) +
                         " different texts.");
    Station& added = m_stations[std::string(name)];
    added.counts.station = name;
    added.indices.resize(m_indices.size() + m_figures.size());
    for (std::size_t i = 0; i < m_indices.size(); ++i)
        added.indices[i].counts.index = m_indices[i];
    for (std::size_t i = 0; i < m_figures.size(); ++i)
        added.indices[m_indices.size() + i].counts.figure = m_figures[i];
    return added;
}

void Summarizer::add(std::string_view name, std::size_t line, const std::optional<Moment>& time,
                     batch::RowFigures* figures, std::span<const batch::ModelFigures> ofModels)
{
    Station& to = station(name);
    for (std::size_t i = 0, place = m_indices.size(); i < ofModels.size(); ++i)
        for (std::size_t result = 0; result < ofModels[i].results.size(); ++result, ++place)
            addFigure(to.indices[place], valueOf(ofModels[i], result), line, time);
    addRow(to, line, time, figures);
}

void Summarizer::add(std::string_view name, std::size_t line, const std::optional<Moment>& time,
                     batch::RowFigures* figures, const std::function<ModelValue(std::size_t)>& ofModels)
{
    Station& to = station(name);
    for (std::size_t i = 0; i < m_figures.size(); ++i)
        addFigure(to.indices[m_indices.size() + i], ofModels(i), line, time);
    addRow(to, line, time, figures);
}

void Summarizer::addRow(Station& to, std::size_t line, const std::optional<Moment>& time,
                        batch::RowFigures* figures)
{
    if (figures == nullptr) {
        ++to.counts.refused;
        return;
    }
    switch (figures->status()) {
    case batch::RowStatus::Skipped:
        ++to.counts.skipped;
        return;
    case batch::RowStatus::Failed:
        ++to.counts.failed;
        return;
    case batch::RowStatus::Calculated:
        ++to.counts.calculated;
        break;
    }
    for (std::size_t place = 0; place < to.indices.size() && !to.indices[place].counts.figure; ++place) {
        Gathered& gathered = to.indices[place];
        const auto placeOf = [index =
                                  gathered.counts.index](const std::optional<catalogue::Meaning>& meaning) {
            return meaning ? std::optional(static_cast<std::size_t>(
                                 meaning->category - catalogue::scale(index).categories.data()))
                           : std::nullopt;
        };
        switch (figures->outcome(place)) {
        case classic::OutcomeKind::Value:
            addValue(gathered, figures->result(place), line, time, placeOf(figures->meaning(place)));
            break;
        case classic::OutcomeKind::OutsideTemperature:
            ++gathered.counts.outsideTemperature;
            break;
        case classic::OutcomeKind::OutsideWind:
            ++gathered.counts.outsideWind;
            break;
        case classic::OutcomeKind::RunFailed:
            ++gathered.counts.failed;
            break;
        default:
            ++gathered.counts.noValue;
        }
    }
}

void Summarizer::addValue(Gathered& gathered, std::string_view text, std::size_t line,
                          const std::optional<Moment>& time, std::optional<std::size_t> category)
{
    const auto value = cellNumber(text, '.');
    if (!value) {
        ++gathered.counts.noValue;
        return;
    }
    IndexSummary& counts = gathered.counts;
    const Extreme here{*value, line, time};
    if (counts.values == 0 || *value < counts.lowest.value)
        counts.lowest = here;
    if (counts.values == 0 || *value > counts.highest.value)
        counts.highest = here;
    ++counts.values;
    gathered.values.add(*value);
    if (category)
        ++gathered.classes[{monthOf(time), *category}];
}

void Summarizer::addFigure(Gathered& gathered, const ModelValue& value, std::size_t line,
                           const std::optional<Moment>& time)
{
    if (!isWord(gathered.counts)) {
        addValue(gathered, value.text, line, time, value.category);
    } else if (value.category) {
        ++gathered.counts.values;
        ++gathered.classes[{monthOf(time), *value.category}];
    } else {
        ++gathered.counts.noValue;
    }
    gathered.counts.marked += value.isMarked ? 1 : 0;
}

void Summarizer::add(const Summarizer& other)
{
    for (const auto& [name, from] : other.m_stations) {
        Station& to = station(name);
        to.counts.calculated += from.counts.calculated;
        to.counts.skipped += from.counts.skipped;
        to.counts.failed += from.counts.failed;
        to.counts.refused += from.counts.refused;
        for (std::size_t place = 0; place < to.indices.size(); ++place) {
            Gathered& mine = to.indices[place];
            const Gathered& theirs = from.indices[place];
            IndexSummary& counts = mine.counts;
            const IndexSummary& more = theirs.counts;
            if (more.values > 0) {
                const bool none = counts.values == 0;
                if (none || more.lowest.value < counts.lowest.value ||
                    (more.lowest.value == counts.lowest.value && isBefore(more.lowest, counts.lowest)))
                    counts.lowest = more.lowest;
                if (none || more.highest.value > counts.highest.value ||
                    (more.highest.value == counts.highest.value && isBefore(more.highest, counts.highest)))
                    counts.highest = more.highest;
            }
            counts.values += more.values;
            counts.outsideTemperature += more.outsideTemperature;
            counts.outsideWind += more.outsideWind;
            counts.noValue += more.noValue;
            counts.failed += more.failed;
            counts.marked += more.marked;
            mine.values.add(theirs.values);
            for (const auto& [key, rows] : theirs.classes)
                mine.classes[key] += rows;
        }
    }
}

TableSummary Summarizer::summary(std::optional<double> step) const
{
    TableSummary result;
    result.step = step;
    for (const auto& [name, station] : m_stations) {
        StationSummary& to = result.stations.emplace_back(station.counts);
        for (const Gathered& gathered : station.indices) {
            IndexSummary& index = to.indices.emplace_back(gathered.counts);
            if (index.values > 0 && !isWord(index)) {
                index.mean = gathered.values.mean();
                for (std::size_t i = 0; i < kPercentiles.size(); ++i)
                    index.percentiles[i] = gathered.values.quantile(kPercentiles[i] / 100.0);
            }
            for (const auto& [key, rows] : gathered.classes) {
                if (isWord(index)) {
                    index.classes.push_back({index.figure->info().choices[key.second].text, 0,
                                             monthText(key.first), rows, hoursOf(rows, step)});
                    continue;
                }
                const catalogue::Scale& scale =
                    index.figure ? catalogue::scaleOf(index.figure->info()) : catalogue::scale(index.index);
                const catalogue::Category& category = scale.categories[key.second];
                index.classes.push_back(
                    {category.label, category.severity, monthText(key.first), rows, hoursOf(rows, step)});
            }
        }
    }
    return result;
}

void StepFinder::add(const Moment& time)
{
    const std::int64_t step = m_before ? time.seconds - *m_before : 0;
    m_before = time.seconds;
    if (step > 0 && step <= kLongestStep && (m_steps.size() < kMostSteps || m_steps.count(step) > 0))
        ++m_steps[step];
}

std::optional<double> StepFinder::step() const
{
    const auto most =
        std::max_element(m_steps.begin(), m_steps.end(),
                         [](const auto& one, const auto& other) { return one.second < other.second; });
    return most == m_steps.end() ? std::nullopt : std::optional(static_cast<double>(most->first));
}

std::string summaryCsv(const TableSummary& summary)
{
    CsvLine head;
    for (const char* const name :
         {"Station", "Number", "Name", "Unit", "Values", "Outside temperature limits", "Outside wind limits",
          "No value", "Failed", "Rows skipped", "Rows failed", "Rows refused", "Mean"})
        head.add(name);
    for (const int percent : kPercentiles)
        head.add("P" + std::to_string(percent));
    for (const char* const name :
         {"Lowest", "Lowest at", "Lowest in line", "Highest", "Highest at", "Highest in line"})
        head.add(name);
    const bool models = hasModels(summary);
    if (models)
        head.add("Outside the model's range");
    std::string text = head.ended();
    for (const StationSummary& station : summary.stations) {
        for (const IndexSummary& index : station.indices) {
            const Called names = called(index);
            CsvLine line;
            line.add(station.station).add(names.number).add(names.name).add(names.unit);
            line.add(index.values).add(index.outsideTemperature).add(index.outsideWind).add(index.noValue);
            line.add(index.failed).add(station.skipped).add(station.failed).add(station.refused);
            line.add(index.mean ? plainText(*index.mean) : "");
            for (const double percentile : index.percentiles)
                line.add(index.mean ? plainText(percentile) : "");
            for (const Extreme* const extreme : {&index.lowest, &index.highest})
                line.add(index.mean ? plainText(extreme->value) : "")
                    .add(timeText(*extreme))
                    .add(index.mean ? std::to_string(extreme->line) : "");
            if (models)
                line.add(index.figure ? std::to_string(index.marked) : "");
            text += line.ended();
        }
    }
    return text;
}

std::string classesCsv(const TableSummary& summary)
{
    std::string text = "Station,Number,Name,Month,Class,Severity,Rows,Hours\r\n";
    for (const StationSummary& station : summary.stations)
        for (const IndexSummary& index : station.indices)
            for (const ClassTime& one : index.classes)
                text += CsvLine()
                            .add(station.station)
                            .add(called(index).number)
                            .add(called(index).name)
                            .add(one.month)
                            .add(one.category)
                            .add(isWord(index) ? "" : std::to_string(one.severity))
                            .add(one.rows)
                            .add(one.hours ? plainText(*one.hours) : "")
                            .ended();
    return text;
}

std::string summaryJson(const TableSummary& summary)
{
    ordered_json object;
    if (summary.step)
        object["stepSeconds"] = *summary.step;
    object["stations"] = ordered_json::array();
    for (const StationSummary& station : summary.stations) {
        ordered_json entry;
        if (!station.station.empty())
            entry["station"] = station.station;
        entry["rows"] = {{"calculated", station.calculated},
                         {"skipped", station.skipped},
                         {"failed", station.failed},
                         {"refused", station.refused}};
        for (const IndexSummary& index : station.indices)
            entry["indices"].push_back(indexJson(index));
        object["stations"].push_back(std::move(entry));
    }
    return object.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}

} // namespace comfortics::tables
