// SPDX-License-Identifier: GPL-3.0-or-later
//
// The report of a station and a time, as of a year: where the rows are from, by which rules they were
// calculated, what was refused or blank, what the indices come to, and charts.
#pragma once

#include "tables/summary.h"
#include "workbench/station_charts.h"
#include "workbench/store_rows.h"

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace comfortics::workbench {

/// Of what a report is made.
struct StationReportRequest {
    std::optional<std::size_t> station{}; ///< none: all of them
    std::optional<Period> period{};
    std::vector<std::size_t> columns{}; ///< whose charts it has, in their order; at most kMostCharted
    std::string heading{};              ///< "Thermal conditions at a station" where it is empty
    std::string notes{};                ///< several lines as they are
    std::string when{};                 ///< date and time as they stand on the page
};

inline constexpr std::size_t kMostCharted = 3;

/// What a report tells.
struct StationReport {
    StationReportRequest request;
    std::string station; ///< empty where the rows have none
    std::string span;    ///< of the times, for instance "2024-01-01 00:00 to 2024-12-31 23:00"
    std::vector<std::pair<std::string, std::string>> facts; ///< source, rules, limits, assumptions
    tables::StationSummary summary;                         ///< of the rows of the report alone
    std::optional<double> step;                             ///< between rows [s]
    std::vector<std::pair<std::string, std::size_t>>
        refused;                    ///< reasons why rows have no figures, most first
    std::size_t refusedReasons = 0; ///< how many there are in all
    std::vector<Chart> charts;      ///< those that have something to show
};

/// Gathers it. Null where `goOn` ended the work.
std::optional<StationReport> stationReport(const StoreRows& rows, const StationReportRequest& request,
                                           const StationCharts::GoOn& goOn = {});

/// The page as HTML that needs nothing beside it, with an SVG of each chart inside. UTF-8.
std::string stationReportHtml(const StationReport& report, const std::vector<std::string>& pictures);

/// The same for a printer or a screen, which refers to its charts as "chart1.svg" and so on and shows them in
/// a size [pixel].
std::string stationReportPage(const StationReport& report, int width, int height);

} // namespace comfortics::workbench
