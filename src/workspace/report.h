// SPDX-License-Identifier: GPL-3.0-or-later
//
// A report of one situation on one page: what was measured, by which rules, what the chosen indices say and
// where their classes are from.
#pragma once

#include "workspace/item.h"
#include "workspace/situation.h"

#include <string>
#include <string_view>
#include <vector>

namespace comfortics::workspace {

/// What a report is made of besides the situation.
struct ReportRequest {
    std::string heading;       ///< "Thermal conditions" where it is empty
    std::string notes;         ///< several lines as they are
    std::string when;          ///< date and time as they stand on the page
    std::vector<Item> indices; ///< and figures of models, in their order
    FieldTexts person{};       ///< with which the models are calculated
};

/// The width of the chart [SVG units].
inline constexpr int kReportWidth = 680;

/// The page as HTML that needs nothing beside it: style and chart are inside. UTF-8.
std::string reportHtml(const Situation& situation, const ReportRequest& request);

/// The same for a printer or a screen, whose chart stands beside it: the page refers to it as "chart.svg" and
/// shows it in a width.
struct ReportPage {
    std::string html;
    std::string chart; ///< SVG; empty where no chosen index with a value has classes
};
ReportPage reportPage(const Situation& situation, const ReportRequest& request, int width = kReportWidth);

} // namespace comfortics::workspace
