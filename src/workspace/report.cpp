// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/report.h"

#include "comfortics/version.h"
#include "workspace/live_text.h"
#include "workspace/page_html.h"
#include "workspace/scale_strip.h"
#include "workspace/severity_colors.h"
#include "workspace/work_rest_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace comfortics::workspace {

namespace {

constexpr std::size_t kMostCharted = 8; // what a page has room for
constexpr int kRowHeight = 42;
constexpr int kBarTop = 18;
constexpr int kBarHeight = 12;
constexpr double kMarkWidth = 5;
constexpr double kLabelWidth = 30; // of a bound

// With widths, or long sentences would leave the names none.
constexpr const char* kFigureHeader =
    "<tr><th width=\"6%\">No</th><th width=\"36%\">Thermal index</th><th width=\"9%\">&nbsp;Value</th>"
    "<th width=\"10%\">Unit</th><th width=\"39%\">Class</th></tr>";

// A bound of a class as the data have it.
std::string shortNumber(double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.6g", value);
    return text.data();
}

/// An item of the report with its figure.
struct Told {
    Item item;
    ItemFigure at;

    const Figure& figure() const { return at.figure; }
    /// The number of an index; the standards have none.
    std::string number() const { return item.index() != 0 ? std::to_string(item.index()) : std::string(); }
    std::string_view unit() const
    {
        return item.index() != 0 ? catalogue::row(item.index()).unit : item.unit();
    }
};

std::vector<Told> toldOf(const Situation& situation, const ReportRequest& request)
{
    std::vector<Told> told;
    for (const Item& item : request.indices)
        told.push_back({item, itemFigure(item, situation, request.person)});
    return told;
}

std::string chip(const catalogue::Meaning& meaning)
{
    const FieldColors colors = severityColors(meaning.severity, Ground::Light);
    return R"(<span class="chip" style="background-color:)" + hex(colors.field) +
           ";color:" + hex(colors.text) + "\">&nbsp;" + escaped(catalogue::inWords(meaning)) +
           "&nbsp;</span>";
}

std::string readingRows(const Situation& situation)
{
    std::string rows;
    for (std::size_t i = 0; i < formulas::kLiveCount; ++i) {
        const formulas::LiveInfo& info = formulas::kLiveInfo[i];
        std::string typed;
        for (std::size_t reading = 0; reading < classic::kReadingCount; ++reading)
            if (static_cast<std::size_t>(classic::kReadingInfo[reading].live) == i)
                typed = situation.inputs.readings[reading];
        rows += row({escaped(info.name) + " (" + escaped(info.symbol) + ")", escaped(typed),
                     escaped(liveInShort(static_cast<formulas::Live>(i), situation.live[i].text)),
                     escaped(info.unit)});
    }
    return rows;
}

std::string assumptions(const Situation& situation)
{
    std::string text;
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i) {
        const classic::AssumptionInfo& info = classic::kAssumptionInfo[i];
        text += std::string(i ? "; " : "") + escaped(info.heading) + " " +
                escaped(situation.inputs.assumptions[i]) + (info.unit.empty() ? "" : " ") +
                escaped(info.unit);
        // The headings tell the reverse of what the formulas read.
        if (static_cast<classic::Assumption>(i) == classic::Assumption::Height)
            text += " (taken as the stature in cm)";
        if (static_cast<classic::Assumption>(i) == classic::Assumption::Weight)
            text += " (taken as the body mass in kg)";
    }
    return text;
}

std::string figureRows(const std::vector<Told>& items)
{
    std::string rows;
    for (const Told& one : items) {
        const Figure& figure = one.figure();
        std::string told = figure.meaning ? chip(*figure.meaning) : std::string();
        if (figure.number && !figure.meaning)
            told = one.item.scaleIndex() == 0 ? "<small>no published classes</small>"
                                              : "<small>no class here</small>";
        if (!figure.number)
            told = "<small>" + escaped(figure.reason) + "</small>";
        if (!figure.doubt.empty())
            told += "<br><small>" + escaped(figure.doubt) + "</small>";
        if (figure.number && !one.at.assumed.empty())
            told += "<br><small>" + escaped(one.at.assumed) + "</small>";
        for (const std::string_view warning : one.item.warnings())
            if (figure.number)
                told += "<br><small>Mind: " + escaped(warning) + ".</small>";
        rows += row({one.number() + "&nbsp;", escaped(one.item.name()),
                     figure.number ? "&nbsp;<b>" + escaped(figure.text) + "</b>&nbsp;" : "&nbsp;–",
                     escaped(one.unit()) + "&nbsp;", told});
    }
    return rows;
}

// Where a figure of the heat at work is told. The row and the cell that hold now are bold.
std::string workRest(const Situation& situation, const ReportRequest& request)
{
    if (std::none_of(request.indices.begin(), request.indices.end(), hasWorkRest))
        return {};
    const WorkRestTable table = workRestTable(situation, request.person);
    std::string html = "<h2>" + escaped(table.title) + "</h2>\n";
    if (table.rows.empty())
        return html + "<p>" + escaped(table.problem) + "</p>\n";
    const auto strong = [](const std::string& text, bool isStrong) {
        return isStrong ? "<b>" + text + "</b>" : text;
    };
    std::string rows = "<tr><th>" + escaped(table.rowHeading) + "</th>";
    for (const std::string& name : table.headings)
        rows += "<th>" + escaped(name) + "</th>";
    rows += "</tr>";
    for (const WorkRestRow& one : table.rows) {
        rows += "<tr><td>" + strong(escaped((one.isPresent ? "\u25B6 " : "") + one.work), one.isPresent) +
                "</td>";
        for (const WorkRestCell& cell : one.cells)
            rows += "<td>" + strong(escaped(cell.inWords()), cell.isPresent) + "</td>";
        rows += "</tr>";
    }
    return html + R"(<table width="100%" cellpadding="2">)" + rows + "</table>\n<p><small>" +
           escaped(table.assumes) + "</small></p>\n";
}

std::string sources(const std::vector<Told>& items)
{
    std::string text;
    for (const Told& one : items)
        if (one.figure().meaning)
            text += "<br>" + (one.item.index() != 0 ? one.number() : escaped(one.item.name())) + ": " +
                    escaped(one.item.scale().source);
    return text.empty() ? text : "<p><small>Sources of the classes:" + text + "</small></p>";
}

std::vector<Told> charted(const std::vector<Told>& items)
{
    std::vector<Told> result;
    for (const Told& one : items)
        if (one.figure().meaning && result.size() < kMostCharted)
            result.push_back(one);
    return result;
}

std::string number(double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", value);
    return text.data();
}

std::string bar(const Told& one, int top)
{
    const Figure& figure = one.figure();
    const catalogue::Scale& scale = one.item.scale();
    const auto text = [](double x, int y, const char* anchor, const std::string& words, int size) {
        return "<text x=\"" + number(x) + "\" y=\"" + std::to_string(y) + "\" text-anchor=\"" + anchor +
               "\" font-size=\"" + std::to_string(size) + R"(" fill="#111111">)" + escaped(words) + "</text>";
    };
    std::string svg = text(0, top + 12, "start",
                           one.item.name() + ": " + figure.text + " " + std::string(one.unit()) + ", " +
                               catalogue::inWords(*figure.meaning),
                           11);
    // The scales of the dissatisfied are magnitudes: they take the side of their vote.
    const bool flipped = figure.meaning->severity != figure.meaning->category->severity;
    const std::optional<ScaleStrip> strip =
        classStrip(one.item.scaleIndex(), figure.number.value(), flipped ? -1 : 1);
    if (!strip)
        return svg;
    double labelled = -kLabelWidth;
    for (std::size_t i = 0; i < strip->bands.size(); ++i) {
        const ScaleStrip::Band& band = strip->bands[i];
        const FieldColors colors = severityColors(band.severity.value_or(0), Ground::Light);
        const double left = kReportWidth * band.from;
        svg += "<rect x=\"" + number(left) + "\" y=\"" + std::to_string(top + kBarTop) + "\" width=\"" +
               number(kReportWidth * (band.to - band.from)) + "\" height=\"" + std::to_string(kBarHeight) +
               "\" fill=\"" + hex(colors.field) + R"(" stroke="#777777" stroke-width="0.5"/>)";
        if (i == 0 || left - labelled < kLabelWidth)
            continue;
        labelled = left;
        svg +=
            text(left, top + kBarTop + kBarHeight + 11, "middle", shortNumber(scale.categories[i].lower), 9);
    }
    const double x = std::clamp(kReportWidth * strip->mark, kMarkWidth, kReportWidth - kMarkWidth);
    const int middle = top + kBarTop + kBarHeight / 2;
    // A value off the scale is pointed to.
    const char* shape = strip->beyond == ScaleStrip::Beyond::No     ? " l-5 -8 h10 z"
                        : strip->beyond == ScaleStrip::Beyond::Left ? " m-5 0 l8 -5 v10 z"
                                                                    : " m5 0 l-8 -5 v10 z";
    return svg + "<path d=\"M" + number(x) + " " + std::to_string(middle) + shape +
           R"(" fill="#111111" stroke="#FFFFFF"/>)";
}

int chartHeight(const std::vector<Told>& items)
{
    return static_cast<int>(charted(items).size()) * kRowHeight;
}

std::string chartOf(const std::vector<Told>& items)
{
    const std::vector<Told> rows = charted(items);
    if (rows.empty())
        return {};
    std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" + std::to_string(kReportWidth) +
                      "\" height=\"" + std::to_string(chartHeight(items)) + "\" viewBox=\"0 0 " +
                      std::to_string(kReportWidth) + " " + std::to_string(chartHeight(items)) +
                      R"(" font-family="sans-serif" role="img">)";
    for (std::size_t i = 0; i < rows.size(); ++i)
        svg += bar(rows[i], static_cast<int>(i) * kRowHeight);
    return svg + "</svg>";
}

std::string page(const Situation& situation, const ReportRequest& request, const std::vector<Told>& items,
                 const std::string& chart, const char* style = "")
{
    const std::string heading = request.heading.empty() ? "Thermal conditions" : request.heading;
    std::string html = "<!DOCTYPE html>\n<html lang=\"en\"><head><meta charset=\"utf-8\"><title>" +
                       escaped(heading) + "</title><style>" + kPageStyle + style +
                       "</style></head><body>\n<h1>" + escaped(heading) + "</h1>\n<p>" +
                       escaped(request.when) + "</p>\n";
    if (!request.notes.empty())
        html += "<p>" + escaped(request.notes) + "</p>\n";
    if (!situation.problem.empty())
        html += "<p><b>" + escaped(situation.problem) + "</b></p>\n";
    html += "<h2>Readings</h2>\n<table width=\"100%\" cellpadding=\"2\">" +
            row({"Quantity", "Measured", "Calculated with", "Unit"}, "th") + readingRows(situation) +
            "</table>\n<p><small>By " + escaped(classic::inForce(situation.inputs.settings)) + ". " +
            assumptions(situation) +
            "</small></p>\n<h2>Indices</h2>\n<table width=\"100%\" cellpadding=\"2\">" + kFigureHeader +
            figureRows(items) + "</table>\n" + workRest(situation, request);
    if (!chart.empty())
        html +=
            "<h2>Where the values stand</h2>\n" + chart +
            "\n<p><small>The numbers are the bounds of the classes. The outermost classes go on; a mark that "
            "points outwards lies farther out.</small></p>\n";
    return html + sources(items) +
           "<p><small>Severity from -4 (extreme cold) to +4 (extreme heat) is a judgement made for all "
           "indices "
           "together. Comfortics " +
           std::string(version()) +
           " calculates published indices; it replaces neither the text of a standard nor a "
           "physician.</small>"
           "</p>\n</body></html>\n";
}

} // namespace

std::string reportHtml(const Situation& situation, const ReportRequest& request)
{
    const std::vector<Told> items = toldOf(situation, request);
    return page(situation, request, items, chartOf(items), kBrowserStyle);
}

ReportPage reportPage(const Situation& situation, const ReportRequest& request, int width)
{
    const std::vector<Told> items = toldOf(situation, request);
    const std::string chart = chartOf(items);
    // Beside the thread of the windows a picture without a height has that of its pixels.
    const int height = chartHeight(items) * width / kReportWidth;
    return {page(situation, request, items,
                 chart.empty() ? chart
                               : R"(<p><img src="chart.svg" width=")" + std::to_string(width) +
                                     "\" height=\"" + std::to_string(height) + "\"></p>"),
            chart};
}

} // namespace comfortics::workspace
