// SPDX-License-Identifier: GPL-3.0-or-later
//
// Figures of models in the rows of a store, against the models themselves.
#include "workbench/row_inputs.h"
#include "workbench/run_desk.h"
#include "workbench/store_export.h"
#include "workbench/store_summary.h"
#include "workbench/view.h"

#include "station_runs.h"
#include "workbench/station_charts.h"
#include "workbench/store_rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <future>

namespace comfortics::workbench {
namespace {

using catalogue::additionOfId;
using standards::kNaN;

constexpr auto kWorkplace = "When;T;H;W;G;MRT;M;NW\n"
                            "2024-07-02 01:30+02:00;25,5;50;0,15;27;26,5;1,2;20,4\n"
                            "2024-07-02 02:30+02:00;25;50;0,15;27;26,5;-9,90;20,4\n"
                            "2024-07-02 13:30+02:00;45;50;0,15;48;50;3,5;36\n"
                            "2024-07-02 14:30+02:00;warm;50;0,15;48;50;3,5;36\n";
constexpr auto kWorkplaceColumns = "ta=T,rh=H,ws=W,tg=G,tr=MRT,met=M,tnw=NW,time=When,gap=-9.9";
constexpr auto kFigures = {"pmv_iso.pmv",
                           "pmv_iso.category",
                           "wbgt_iso7243.wbgt",
                           "wbgt_iso7243.wbgt_ref",
                           "phs_2004.d_lim",
                           "sun_position.altitude",
                           "pet.pet"};
enum Column { Index, Pmv, Category, Wbgt, Reference, Limit, Sun, Pet };

std::shared_ptr<const TableStore> workplace(const std::string& text, const std::string& columns,
                                            classic::Rules rules,
                                            std::shared_ptr<const TableStore>* again = nullptr)
{
    std::promise<void> finished;
    RunDesk desk(tests::stationLimits(), [&finished] { finished.set_value(); });
    RunRequest request{sourceOfText(text), {}, tests::stationOptions({65}, rules)};
    request.mapping = tables::mappingOfText(columns, tests::openStation(text).layout);
    for (const char* const id : kFigures)
        request.figures.push_back(*catalogue::figureOfId(id));
    request.person = {{"clo", "0.6"},         {"met", "9"},        {"weight", "80"},        {"height", "1.7"},
                      {"latitude", "38"},     {"longitude", "24"}, {"acclimatised", "yes"}, {"year", "1999"},
                      {"posture", "sitting"}, {"sun", "no"}};
    desk.start(std::move(request));
    finished.get_future().wait();
    auto store = desk.takeResult()->store;
    if (again != nullptr) {
        finished = {};
        desk.startAgain(store);
        finished.get_future().wait();
        *again = desk.takeResult()->store;
    }
    return store;
}

std::string run(const char* id, std::vector<double> inputs, std::size_t result)
{
    const catalogue::Addition& model = *additionOfId(id);
    std::vector<double> results(model.results.size());
    std::vector<standards::Verdict> verdicts(model.results.size());
    EXPECT_EQ(inputs.size(), model.inputs.size()) << id;
    model.run(inputs, results, verdicts);
    return catalogue::resultText(model, result, results);
}

// The body by DuBois, and one met.
const double kWatts = 58.15 * 0.202 * std::pow(80, 0.425) * std::pow(1.7, 0.725);

TEST(StoreModels, HoldWhatTheModelsGiveOfColumnsTimesAndThePerson)
{
    const auto store = workplace(kWorkplace, kWorkplaceColumns, classic::Rules::Precise);
    ASSERT_EQ(store->rows(), 4U);
    EXPECT_EQ(store->figureText(0, Pmv), run("pmv_iso", {25.5, 26.5, 0.15, 50, 1.2, 0.6, 0, 0}, 0));
    EXPECT_EQ(store->figureText(0, Category), run("pmv_iso", {25.5, 26.5, 0.15, 50, 1.2, 0.6, 0, 0}, 2));
    EXPECT_EQ(store->whyBlank(0, Wbgt), "");
    EXPECT_EQ(store->figureText(0, Wbgt),
              run("wbgt_iso7243", {20.4, 27, 25.5, 0, kNaN, 1.2 * kWatts, 0, 1, 0}, 0));
    EXPECT_EQ(store->figureText(2, Reference),
              run("wbgt_iso7243", {36, 48, 45, 0, kNaN, 3.5 * kWatts, 0, 1, 0}, 3));
    // 01:30 two hours east is the evening before, 13:30 the same day.
    EXPECT_EQ(store->figureText(0, Sun), run("sun_position", {2024, 7, 1, 23.5, 38, 24}, 0));
    EXPECT_EQ(store->figureText(2, Sun), run("sun_position", {2024, 7, 2, 11.5, 38, 24}, 0));
    // The basal rate of a man of 35 years, which PET assumes (Höppe).
    const double basal =
        3.45 * std::pow(80, 0.75) * (1 + 0.004 * (30 - 35) + 0.010 * (1.7 * 100 / std::cbrt(80) - 43.4));
    EXPECT_EQ(
        store->figureText(0, Pet),
        run("pet", {25.5, 26.5, 0.15, 50, kNaN, 1013.25, 0.6, 1.2 * kWatts - basal, 35, 0, 1.7, 80, 1}, 0));

    // In the gap nothing stands in: not what was typed either.
    EXPECT_EQ(store->figure(1, Pmv), std::nullopt);
    EXPECT_EQ(store->outcome(1, Pmv), classic::OutcomeKind::NoValue);
    EXPECT_EQ(store->whyBlank(1, Pmv), "No value: the metabolic rate is missing.");
    EXPECT_EQ(store->classOf(1, Category), std::nullopt);
    EXPECT_TRUE(store->figure(1, Sun).has_value());
    // Beyond the range a value stands without a class, and a limit may not be reached.
    EXPECT_TRUE(store->isMarked(2, Pmv));
    EXPECT_FALSE(store->isMarked(0, Pmv));
    EXPECT_EQ(store->meaning(2, Pmv), std::nullopt);
    EXPECT_EQ(store->meaning(0, Pmv)->category, catalogue::scale(118).of(*store->figure(0, Pmv)));
    EXPECT_EQ(store->whyBlank(2, Pmv).find("Outside the range of the standard: the air temperature is 45 °C"),
              0U)
        << store->whyBlank(2, Pmv);
    EXPECT_EQ(store->figureText(0, Limit), "not reached in 480");
    EXPECT_EQ(store->figure(0, Limit), 480.0);
    EXPECT_EQ(store->figureText(3, Sun), "");
    EXPECT_TRUE(store->whyBlank(3, Sun).starts_with("refused: ")) << store->whyBlank(3, Sun);
    TableStore::Calculators calculators;
    EXPECT_NE(
        store->whyBlank(1, calculators).find("pmv_iso.pmv, pmv_iso.category: No value: the metabolic rate"),
        std::string::npos)
        << store->whyBlank(1, calculators);
}

TEST(StoreModels, AreSeenSummedAndDrawnAsIndicesAre)
{
    const auto store = workplace(kWorkplace, kWorkplaceColumns, classic::Rules::Precise);
    const auto rows = [&store](Condition condition, Field by = {}) {
        return makeView({store, {std::move(condition)}, by, true}, [] { return true; }).rows;
    };
    using Ask = Condition::Test;
    const Field pmv{Field::Kind::Figure, Pmv};
    EXPECT_EQ(rows({.test = Ask::Value, .field = pmv}, pmv), (std::vector<std::uint32_t>{2, 0}));
    EXPECT_EQ(rows({.test = Ask::Marked, .field = pmv}), (std::vector<std::uint32_t>{2}));
    const Condition word{.test = Ask::Class, .field = {Field::Kind::Figure, Category}, .place = 1};
    EXPECT_EQ(rows(word), (std::vector<std::uint32_t>{0}));
    EXPECT_EQ(inWords(word, *store), "pmv_iso.category: category B");

    const auto station =
        summaryOf(*store, View{{0, 1, 2, 3}, false, {}}, [](double) { return true; }).stations.at(0);
    EXPECT_EQ(station.indices[Pmv].values, 2U);
    EXPECT_EQ(station.indices[Pmv].noValue, 1U); // the refused row has no figures
    EXPECT_EQ(station.indices[Pmv].marked, 1U);
    EXPECT_EQ(station.indices[Pmv].highest.line, 4U);
    ASSERT_EQ(station.indices[Category].classes.size(), 2U);
    EXPECT_EQ(station.indices[Category].classes[0].category, "category B");
    EXPECT_EQ(station.indices[Category].mean, std::nullopt);

    const StoreRows all(store);
    StationCharts charts(all);
    const Chart words = charts.chart({.kind = ChartKind::ClassHours, .columns = {Category}});
    const auto& hours = std::get<ClassHours>(words.body);
    EXPECT_EQ(hours.totals, (std::vector<double>{1, 1}));
    EXPECT_EQ(hours.without, 2);
    EXPECT_NE(
        charts.chart({.kind = ChartKind::Histogram, .columns = {Category}}).problem.find("Hours in classes"),
        std::string::npos);
    EXPECT_FALSE(charts.chart({.kind = ChartKind::TimeSeries, .columns = {Pmv}}).empty());

    const auto facts = modelFacts(store->facts());
    ASSERT_EQ(facts.size(), 5U);
    EXPECT_EQ(facts[0], (std::pair<std::string, std::string>(
                            "Inputs of pmv_iso",
                            "person and place: clothing insulation 0.6 clo; of the row: mean "
                            "radiant temperature, metabolic rate; assumed: external work 0 met (no "
                            "external work, as most activities have), speed and clothing in motion "
                            "none (the standard's own inputs: typed speed and clothing are taken "
                            "as they are)")));
}

TEST(StoreModels, RowsThatFailedReadTheirOwnCellsAgain)
{
    constexpr auto kTable =
        "When,Ta,Tg,RH,WS,M\n2024-07-02 12:00Z,30,40,50,2,2\n2024-07-02 13:00Z,-40,57,3,60,1.5\n";
    constexpr auto kMap = "ta=Ta,tg=Tg,rh=RH,ws=WS,met=M,time=When";
    std::shared_ptr<const TableStore> again;
    const auto store = workplace(kTable, kMap, classic::Rules::Classic, &again);
    ASSERT_EQ(failedRows(*store), 1U);
    ASSERT_EQ(again->rowsAgain(), 1U);
    const auto robust = workplace(kTable, kMap, classic::Rules::Robust);
    for (std::size_t column = 0; column < robust->items().size(); ++column) {
        EXPECT_EQ(again->figureText(1, column), robust->figureText(1, column)) << column;
        EXPECT_EQ(again->whyBlank(1, column), robust->whyBlank(1, column)) << column;
    }
    EXPECT_EQ(again->figureText(1, Sun), run("sun_position", {2024, 7, 2, 13, 38, 24}, 0));
    EXPECT_EQ(store->figureText(1, Sun), "");
}

} // namespace
} // namespace comfortics::workbench
