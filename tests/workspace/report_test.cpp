// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/report.h"

#include "catalogue/references.h"
#include "workspace_program.h"

#include <gtest/gtest.h>

#include <string>

namespace comfortics::workspace {
namespace {

using tests::Program;

bool has(const std::string& page, std::string_view text)
{
    return page.find(text) != std::string::npos;
}

const ReportRequest kRequest{.heading = "Yard <B> & \"C\"",
                             .notes = "first line\nsecond",
                             .when = "2026-07-21 14:00",
                             .indices = {200, 195, catalogue::indexOfId("wind_chill_noaa")}};

TEST(Report, TellsReadingsRulesValuesClassesAndReasons)
{
    Program program;
    program.type("33", "712", "48", "1.2");
    const Situation& situation = program.workspace.present();
    const std::string page = reportHtml(situation, kRequest);
    EXPECT_TRUE(has(page, "Yard &lt;B&gt; &amp; &quot;C&quot;")) << "what is typed is no markup";
    EXPECT_TRUE(has(page, "first line<br>second"));
    EXPECT_TRUE(has(page, "2026-07-21 14:00"));
    EXPECT_TRUE(has(page, "classic rules, limits kept"));
    EXPECT_TRUE(has(page, situation.figure(200).text + "</b>"));
    EXPECT_TRUE(has(page, catalogue::inWords(situation.figure(195).meaning.value())));
    EXPECT_TRUE(has(page, "Outside its limits")) << "the wind chill is blank, and says why";
    EXPECT_TRUE(has(page, "Mind: its limits are for the wind at 10 m, not for the typed one."))
        << "of the UTCI";
    EXPECT_TRUE(has(page, "<svg")) << "the chart is inside";

    const ReportPage printed = reportPage(situation, kRequest);
    EXPECT_TRUE(has(printed.html, "chart.svg") && !has(printed.html, "<svg"));
    EXPECT_EQ(printed.chart.find("<svg"), 0U);
    EXPECT_TRUE(has(printed.html, R"(width="680" height="84")"))
        << "two bars of 42, as wide as they are drawn";
}

TEST(Report, OfNothingCalculatedShowsNoFigure)
{
    Program program;
    program.type("33", "", "48", "1.2");
    const std::string page = reportHtml(program.workspace.present(), kRequest);
    EXPECT_TRUE(has(page, program.workspace.present().problem));
    EXPECT_FALSE(has(page, "<svg"));
    EXPECT_FALSE(has(page, "class=\"chip\""));
}

// The mark stands inside the segment of the class that is told.
TEST(Report, MarksTheClassThatItTells)
{
    for (const char* Ta : {"-30", "-5", "12", "24", "31", "38", "46"}) {
        Program program;
        program.type(Ta, "300", "40", "3");
        const Situation& situation = program.workspace.present();
        const ReportPage page =
            reportPage(situation, {.heading = {}, .notes = {}, .when = {}, .indices = {195}});
        const auto& meaning = situation.figure(195).meaning;
        if (!meaning)
            continue;
        const std::size_t at = page.chart.find("<path d=\"M");
        ASSERT_NE(at, std::string::npos) << Ta;
        const double x = std::stod(page.chart.substr(at + 10));
        // The bands stand in the order of the classes.
        const auto place =
            static_cast<std::size_t>(meaning->category - catalogue::scale(195).categories.data());
        std::size_t band = 0;
        for (std::size_t i = 0; i <= place; ++i)
            band = page.chart.find("<rect x=\"", band) + 9;
        const double left = std::stod(page.chart.substr(band));
        const double width = std::stod(page.chart.substr(page.chart.find("width=\"", band) + 7));
        EXPECT_GE(x, left - 5.1) << Ta; // at an end by the width of the mark
        EXPECT_LE(x, left + width + 5.1) << Ta;
    }
}

TEST(Report, TellsWhatAModelWasCalculatedWith)
{
    tests::Program program;
    program.type("22", "0", "60", "0.1");
    const ReportRequest request{
        .heading = {},
        .notes = {},
        .when = {},
        .indices = {Item::ofId("pmv_iso").value(), Item::ofId("ireq.dle_min").value()},
        .person = {{"met", "1.2"}, {"clo", "0.5"}}};
    const std::string page = reportHtml(program.workspace.present(), request);
    for (const char* const told :
         {"Predicted mean vote (ISO 7730)", "With metabolic rate 1.2 met, clothing insulation 0.5 clo.",
          "Assumed: external work 0 met", "(ISO 11079)"})
        EXPECT_NE(page.find(told), std::string::npos) << told;
}

} // namespace
} // namespace comfortics::workspace
