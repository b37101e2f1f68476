// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/station_report.h"

#include "comfortics/version.h"
#include "tables/table_run.h"
#include "tables/value_counts.h"
#include "workbench/row_inputs.h"
#include "workbench/store_summary.h"
#include "workbench/time_marks.h"
#include "workspace/page_html.h"

#include <algorithm>
#include <array>
#include <map>

namespace comfortics::workbench {

using workspace::escaped;

namespace {

constexpr std::size_t kMostReasons = 8;
constexpr std::size_t kRowsOfPart = 20;        // of the indices, on a page
constexpr std::size_t kMostReasonsTold = 1000; // different ones that are counted
constexpr std::size_t kAskEvery = 1U << 14;    // rows
constexpr std::array kCharts{ChartKind::TimeSeries, ChartKind::Months, ChartKind::HeatMap,
                             ChartKind::ClassHours};

struct Gathered {
    tables::IndexSummary summary;
    tables::ValueCounts values;
    std::map<std::size_t, std::size_t> words; // how often each came, of a figure that is one of several
};

void addFigure(Gathered& to, const StoreRows& rows, std::size_t row, std::size_t column)
{
    const TableStore& store = rows.store();
    const std::size_t place = rows.place(row);
    tables::IndexSummary& summary = to.summary;
    switch (store.outcome(place, column)) {
    case classic::OutcomeKind::Value:
        break;
    case classic::OutcomeKind::OutsideTemperature:
        ++summary.outsideTemperature;
        return;
    case classic::OutcomeKind::OutsideWind:
        ++summary.outsideWind;
        return;
    case classic::OutcomeKind::RunFailed:
        ++summary.failed;
        return;
    default:
        ++summary.noValue;
        return;
    }
    const auto value = store.figure(place, column);
    if (!value) {
        ++summary.noValue;
        return;
    }
    if (store.isMarked(place, column))
        ++summary.marked;
    if (store.items()[column].isWord()) {
        ++summary.values;
        if (const auto word = store.classOf(place, column))
            ++to.words[*word];
        return;
    }
    const tables::Extreme here{*value, store.line(place), store.time(place)};
    if (summary.values == 0 || here.value < summary.lowest.value)
        summary.lowest = here;
    if (summary.values == 0 || here.value > summary.highest.value)
        summary.highest = here;
    ++summary.values;
    to.values.add(*value);
}

std::string chartFileName(std::size_t place)
{
    return "chart" + std::to_string(place + 1) + ".svg";
}

std::string heading(const StationReport& report)
{
    if (!report.request.heading.empty())
        return report.request.heading;
    return report.station.empty() ? "Thermal conditions at a station"
                                  : "Thermal conditions at " + report.station;
}

std::string countRows(const StationReport& report)
{
    using workspace::row;
    const tables::StationSummary& summary = report.summary;
    std::string rows =
        row({"Calculated", std::to_string(summary.calculated)}) +
        row({"Skipped: a reading is missing or out of its range", std::to_string(summary.skipped)}) +
        row({"Failed", std::to_string(summary.failed)}) +
        row({"Refused: could not be read", std::to_string(summary.refused)});
    for (const auto& [reason, count] : report.refused)
        rows += row({"<small>&nbsp;&nbsp;" + escaped(reason) + "</small>",
                     "<small>" + std::to_string(count) + "</small>"});
    if (report.refusedReasons > report.refused.size())
        rows +=
            row({"<small>&nbsp;&nbsp;and " + std::to_string(report.refusedReasons - report.refused.size()) +
                     " further reasons</small>",
                 ""});
    return rows;
}

std::string extremeText(const ChartColumn& column, const tables::Extreme& extreme)
{
    return valueText(column, extreme.value) + "<br><small>" +
           (extreme.time ? escaped(timeText(extreme.time->seconds))
                         : "line " + std::to_string(extreme.line)) +
           "</small>";
}

// With widths, or the reasons of blanks would leave the names none.
constexpr const char* kSummaryHeader =
    "<tr><th width=\"5%\">No</th><th width=\"24%\">Thermal index</th><th width=\"8%\">Values</th>"
    "<th width=\"13%\">Blank</th><th width=\"8%\">Mean</th><th width=\"7%\">P5</th>"
    "<th width=\"8%\">Median</th><th width=\"7%\">P95</th><th width=\"10%\">Lowest</th>"
    "<th width=\"10%\">Highest</th></tr>";

constexpr const char* kTable = R"(<table width="100%" cellpadding="2">)";

// In parts with a header each a long table is laid out piece by piece, and read more easily on paper.
std::string summaryTable(const StationReport& report, bool inParts)
{
    using workspace::row;
    std::string rows = std::string(kTable) + kSummaryHeader;
    std::size_t written = 0;
    for (const tables::IndexSummary& index : report.summary.indices) {
        if (inParts && written > 0 && written % kRowsOfPart == 0)
            rows.append("</table>").append(kTable).append(kSummaryHeader);
        ++written;
        const workspace::Item item = itemOf(index);
        const ChartColumn column{.decimals = item.decimals()};
        const auto mean = [&](double value) { return valueText(column, value, 1) + "&nbsp;"; };
        const bool any = index.mean.has_value();
        std::string blank =
            std::to_string(index.outsideTemperature + index.outsideWind + index.noValue + index.failed);
        std::string why;
        for (const auto& [count, words] :
             {std::pair(index.outsideTemperature, "outside temperature limits"),
              std::pair(index.outsideWind, "outside wind limits"), std::pair(index.noValue, "no value"),
              std::pair(index.failed, "failed")})
            if (count > 0)
                why.append(why.empty() ? "" : ", ").append(std::to_string(count)).append(" ").append(words);
        if (!why.empty())
            blank.append("<br><small>").append(why).append("</small>");
        std::string words; // of a figure that is one of several
        for (const tables::ClassTime& one : index.classes)
            words.append("<br><small>")
                .append(escaped(one.category))
                .append(": ")
                .append(std::to_string(one.rows))
                .append("</small>");
        const std::string marked = index.marked == 0 ? std::string()
                                                     : "<br><small>" + std::to_string(index.marked) +
                                                           " outside of its range</small>";
        rows += row(
            {columnId(item) + "&nbsp;",
             escaped(item.name()) + (item.unit().empty() ? "" : " [" + escaped(item.unit()) + "]") + words,
             std::to_string(index.values) + marked + "&nbsp;", blank, any ? mean(*index.mean) : "–",
             any ? mean(index.percentiles[1]) : "–", any ? mean(index.percentiles[3]) : "–",
             any ? mean(index.percentiles[5]) : "–", any ? extremeText(column, index.lowest) : "–",
             any ? extremeText(column, index.highest) : "–"});
    }
    return rows + "</table>";
}

std::string page(const StationReport& report, const std::vector<std::string>& pictures, bool inParts,
                 const char* style = "")
{
    using workspace::row;
    const std::string title = heading(report);
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>" +
                       escaped(title) + "</title><style>" + workspace::kPageStyle + style +
                       "</style></head><body>\n<h1>" + escaped(title) + "</h1>\n<p>" + escaped(report.span) +
                       "</p>\n<p>" + escaped(report.request.when) + "</p>\n";
    if (!report.request.notes.empty())
        html += "<p>" + escaped(report.request.notes) + "</p>\n";
    html += "<h2>Where the figures are from</h2>\n<table width=\"100%\" cellpadding=\"2\">";
    for (const auto& [name, text] : report.facts)
        html += row({escaped(name), escaped(text)});
    html += "</table>\n<h2>Rows</h2>\n<table width=\"100%\" cellpadding=\"2\">" + countRows(report) +
            "</table>\n<h2>Indices</h2>\n" + summaryTable(report, inParts) +
            "\n<p><small>Blank are values of calculated rows. Percentiles with linear "
            "interpolation.</small></p>\n";
    for (std::size_t i = 0; i < report.charts.size() && i < pictures.size(); ++i) {
        const Chart& chart = report.charts[i];
        html += "<h2>" + escaped(chart.title) + "</h2>\n" + pictures[i] + "\n<p><small>" +
                escaped(chart.inWords());
        for (const std::string& note : chart.notes)
            html += "<br>" + escaped(note);
        html += "</small></p>\n";
    }
    if (report.charts.empty())
        html += "<p>No index has values to draw.</p>\n";
    return html +
           "<p><small>Severity from -4 (extreme cold) to +4 (extreme heat) is a judgement made for all "
           "indices "
           "together. Comfortics " +
           std::string(version()) +
           " calculates published indices; it replaces neither the text of a standard nor a "
           "physician.</small></p>\n"
           "</body></html>\n";
}

} // namespace

std::optional<StationReport> stationReport(const StoreRows& rows, const StationReportRequest& request,
                                           const StationCharts::GoOn& goOn)
{
    StationReport report;
    report.request = request;
    StationCharts charts(rows);
    const auto timeline = charts.timeline(request.station, request.period, goOn);
    if (!timeline)
        return std::nullopt;
    if (request.station)
        report.station = rows.stations.at(*request.station);
    report.step = timeline->step;
    if (!timeline->seconds.empty())
        report.span = timeText(timeline->seconds.front(), timeline->yearless()) + " to " +
                      timeText(timeline->seconds.back(), timeline->yearless());

    const TableStore& store = rows.store();
    std::vector<Gathered> gathered(store.items().size());
    std::map<std::string, std::size_t> reasons;
    std::size_t asked = 0;
    for (const auto* const part : {&timeline->rows, &timeline->untimed})
        for (const std::uint32_t row : *part) {
            if (++asked % kAskEvery == 0 && goOn && !goOn())
                return std::nullopt;
            const std::size_t place = rows.place(row);
            const RowState state = store.state(place);
            if (state == RowState::Calculated) {
                ++report.summary.calculated;
                for (std::size_t column = 0; column < gathered.size(); ++column)
                    addFigure(gathered[column], rows, row, column);
                continue;
            }
            ++(state == RowState::Skipped  ? report.summary.skipped
               : state == RowState::Failed ? report.summary.failed
                                           : report.summary.refused);
            const std::string reason = store.status(place);
            if (reasons.size() < kMostReasonsTold || reasons.count(reason) > 0)
                ++reasons[reason];
        }
    report.summary.station = report.station;
    for (std::size_t column = 0; column < gathered.size(); ++column) {
        Gathered& one = gathered[column];
        const workspace::Item& item = store.items()[column];
        one.summary.index = item.index();
        if (item.model() != nullptr)
            one.summary.figure = {item.model(), item.result()};
        for (const auto& [place, count] : one.words)
            one.summary.classes.push_back({item.classNames().at(place), 0, {}, count, {}});
        if (one.summary.values > 0 && !item.isWord()) {
            one.summary.mean = one.values.mean();
            for (std::size_t i = 0; i < tables::kPercentiles.size(); ++i)
                one.summary.percentiles[i] = one.values.quantile(tables::kPercentiles[i] / 100.0);
        }
        report.summary.indices.push_back(std::move(one.summary));
    }
    report.refusedReasons = reasons.size();
    report.refused = {reasons.begin(), reasons.end()};
    std::stable_sort(report.refused.begin(), report.refused.end(),
                     [](const auto& one, const auto& other) { return one.second > other.second; });
    if (report.refused.size() > kMostReasons)
        report.refused.resize(kMostReasons);

    report.facts.emplace_back("Source", rows.origin.source);
    if (!report.station.empty())
        report.facts.emplace_back("Station", report.station);
    for (const std::string& line : {rows.origin.filter, rows.origin.run})
        if (!line.empty())
            report.facts.emplace_back("Note", line);
    tables::Layout layout;
    layout.place = store.facts().place;
    for (auto& fact : tables::runMetadata(store.facts().mapping, layout, store.facts().options, {}))
        if (!fact.first.starts_with("Rows ")) // of the whole table
            report.facts.push_back(std::move(fact));
    for (auto& fact : modelFacts(store.facts()))
        report.facts.push_back(std::move(fact));
    if (store.rowsAgain() > 0)
        report.facts.emplace_back("Note",
                                  std::to_string(store.rowsAgain()) +
                                      " rows of the table were calculated again by the robust rules.");

    for (std::size_t i = 0; i < std::min(request.columns.size(), kMostCharted); ++i)
        for (const ChartKind kind : kCharts) {
            Chart chart = charts.chart({.kind = kind,
                                        .columns = {request.columns[i]},
                                        .station = request.station,
                                        .period = request.period},
                                       goOn);
            if (goOn && !goOn())
                return std::nullopt;
            if (!chart.empty())
                report.charts.push_back(std::move(chart));
        }
    return report;
}

std::string stationReportHtml(const StationReport& report, const std::vector<std::string>& pictures)
{
    return page(report, pictures, false, workspace::kBrowserStyle);
}

std::string stationReportPage(const StationReport& report, int width, int height)
{
    std::vector<std::string> pictures;
    for (std::size_t i = 0; i < report.charts.size(); ++i)
        pictures.push_back("<p><img src=\"" + chartFileName(i) + "\" width=\"" + std::to_string(width) +
                           "\" height=\"" + std::to_string(height) + "\"></p>");
    return page(report, pictures, true);
}

} // namespace comfortics::workbench
