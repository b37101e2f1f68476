// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/station_charts.h"

#include "station_runs.h"
#include "tables/moment.h"
#include "workbench/store_rows.h"
#include "workbench/time_marks.h"
#include "workbench/view.h"

#include <gtest/gtest.h>

#include <random>

namespace comfortics::workbench {
namespace {

constexpr int kHumidex = 90; // classes begin at 30, 40, 46 and 54 °C

std::int64_t at(const char* time)
{
    return tables::readMoment(time, tables::DateOrder::YearMonthDay)->seconds;
}

class MemoryRows final : public ChartRows {
public:
    struct Row {
        std::optional<std::int64_t> seconds;
        std::optional<double> value;
        std::optional<double> other = 1;
        std::size_t station = 0;
    };
    explicit MemoryRows(std::vector<Row> rows) : m_rows(std::move(rows))
    {
        columns = {{kHumidex, "Humidex", "°C"}, {0, "Wind speed", "m/s"}};
        stations = {""};
    }
    std::size_t rows() const override { return m_rows.size(); }
    std::optional<std::int64_t> seconds(std::size_t row) const override { return m_rows[row].seconds; }
    std::size_t station(std::size_t row) const override { return m_rows[row].station; }
    std::optional<double> value(std::size_t row, std::size_t column) const override
    {
        return column == 0 ? m_rows[row].value : m_rows[row].other;
    }
    std::optional<catalogue::Meaning> meaning(std::size_t row, std::size_t column) const override
    {
        return m_rows[row].value && column == 0 ? catalogue::meaning(kHumidex, *m_rows[row].value, {})
                                                : std::nullopt;
    }
    std::string whyNone(std::size_t, std::size_t) const override { return "It was not measured."; }

private:
    std::vector<Row> m_rows;
};

// The hours of 2024 but for a hundred of them, each 97th without a value.
MemoryRows stationYear()
{
    std::vector<MemoryRows::Row> rows;
    for (int i = 0; i < 8784; ++i)
        if (i < 3000 || i >= 3100)
            rows.push_back({at("2024-01-01") + i * kHour,
                            i % 97 == 0 ? std::nullopt : std::optional((i * 7919 % 401 - 50) / 10.0)});
    return MemoryRows(std::move(rows));
}

template <class Body>
Body bodyOf(const ChartRows& rows, const ChartRequest& request)
{
    const Chart chart = StationCharts(rows).chart(request);
    EXPECT_EQ(chart.problem, "");
    return std::get<Body>(chart.body);
}

// "hour=value", with a bar in front where the line breaks.
std::string shown(const TimeSeries& series)
{
    std::string text;
    for (const LinePoint& point : series.panels.at(0).lines.at(0).points)
        text += std::string(point.joined ? " " : "|") +
                std::to_string(
                    static_cast<int>((point.seconds - static_cast<double>(series.whole.from)) / 3600)) +
                "=" + std::to_string(static_cast<int>(point.value));
    return text;
}

TEST(StationCharts, LineBreaksWhereRowsOrValuesAreMissing)
{
    const std::int64_t begin = at("2024-03-01");
    const auto row = [begin](int hour, std::optional<double> value) {
        return MemoryRows::Row{begin + hour * kHour, value};
    };
    const MemoryRows rows({row(6, 16),
                           row(0, 10),
                           row(1, 11),
                           row(2, {}),
                           row(3, 13),
                           row(5, 15),
                           row(7, 17),
                           {std::nullopt, 99}});
    const auto series = bodyOf<TimeSeries>(rows, {.columns = {0}});
    EXPECT_EQ(shown(series), "|0=10 1=11|3=13|5=15 6=16 7=17");
    EXPECT_EQ(series.missing, 1U);
    EXPECT_EQ(series.panels[0].lines[0].gaps, 1U);
    // A part that is seen is led to from the rows beside it.
    const Period window{begin + 6 * kHour, begin + 7 * kHour};
    const auto part = bodyOf<TimeSeries>(rows, {.columns = {0}, .window = window});
    EXPECT_EQ(shown(part), "|5=15 6=16 7=17");
    EXPECT_EQ(part.panels[0].lines[0].values, 1U);
    const Chart chart = StationCharts(rows).chart({.columns = {0}});
    EXPECT_EQ(wordsAt(chart, {2, 0}, rows), "2024-03-01 02:00: Humidex has no value: It was not measured");
    EXPECT_EQ(wordsAt(chart, {3, 0}, rows), "2024-03-01 03:00: Humidex 13.0 °C, little or no discomfort (0)");
    EXPECT_EQ(chart.notes.front(), "1 row without a time is not shown.");
}

// Each step of a thinned line reaches as far as all of its rows.
TEST(StationCharts, ThinnedLineCoversTheSame)
{
    constexpr unsigned kSeed = 20261123;
    constexpr int kRows = 20000;
    constexpr int kSteps = 100;
    std::mt19937 random(kSeed);
    std::vector<MemoryRows::Row> all;
    std::vector<std::pair<double, double>> reach(kSteps, {1e9, -1e9});
    for (int i = 0; i < kRows; ++i) {
        const double value = static_cast<double>(random() % 10000) / 10;
        all.push_back({i * kHour, value});
        auto& [low, high] = reach[static_cast<std::size_t>(i / (kRows / kSteps))];
        low = std::min(low, value);
        high = std::max(high, value);
    }
    const Period whole{0, kRows * kHour};
    const auto series =
        bodyOf<TimeSeries>(MemoryRows(all), {.columns = {0}, .period = whole, .steps = kSteps});
    EXPECT_TRUE(series.thinned);
    std::vector<std::pair<double, double>> thinned(kSteps, {1e9, -1e9});
    for (const LinePoint& point : series.panels[0].lines[0].points) {
        auto& [low, high] =
            thinned[static_cast<std::size_t>(point.seconds / static_cast<double>(kHour * kRows / kSteps))];
        low = std::min(low, point.value);
        high = std::max(high, point.value);
    }
    EXPECT_EQ(thinned, reach) << kSeed;
    EXPECT_LE(series.panels[0].lines[0].points.size(), 4U * kSteps);
}

// Against pandas: the same year, grouped by strftime and described.
TEST(StationCharts, CoursesAgreeWithPandas)
{
    struct Case {
        ChartKind kind;
        std::size_t parts;
        const char* name;
        std::size_t count;
        double mean, low, high;
        bool joined;
    };
    const MemoryRows rows = stationYear();
    for (const Case& one : {Case{ChartKind::Months, 12, "2024-02", 689, 14.925689, -5, 35, true},
                            {ChartKind::Months, 12, "2024-05", 637, 15.155416, -5, 35, true},
                            {ChartKind::HoursOfDay, 24, "00:00", 357, 15.370028, -4.9, 35, false},
                            {ChartKind::HoursOfDay, 24, "13:00", 358, 15.127374, -5, 35, true},
                            {ChartKind::Days, 362, "2024-01-01", 23, 18.508696, 3.3, 34.8, false},
                            {ChartKind::Days, 362, "2024-05-04", 24, 16.550, 0.8, 32.3, true},
                            {ChartKind::Days, 362, "2024-12-31", 24, 13.825, -2.0, 29.5, true}}) {
        const auto spreads = bodyOf<Spreads>(rows, {.kind = one.kind, .columns = {0}});
        EXPECT_EQ(spreads.parts.size(), one.parts);
        const auto part = std::find_if(spreads.parts.begin(), spreads.parts.end(),
                                       [&](const Spread& spread) { return spread.name == one.name; });
        ASSERT_NE(part, spreads.parts.end()) << one.name;
        EXPECT_EQ(part->count, one.count) << one.name;
        EXPECT_NEAR(part->mean, one.mean, 5e-7) << one.name;
        EXPECT_EQ(std::pair(part->low, part->high), std::pair(one.low, one.high)) << one.name;
        EXPECT_EQ(part->joined, one.joined) << one.name;
    }
}

// Against pandas.cut and numpy.histogram of the same year.
TEST(StationCharts, ClassesAndBinsAgreeWithPandas)
{
    const MemoryRows rows = stationYear();
    const auto hours = bodyOf<ClassHours>(rows, {.kind = ChartKind::ClassHours, .columns = {0}});
    EXPECT_TRUE(hours.hours);
    ASSERT_EQ(hours.classes.size(), 2U);
    EXPECT_EQ(bandWords(hours.classes[1]), "some discomfort +1");
    EXPECT_EQ(hours.totals, (std::vector<double>{7492, 1102}));
    EXPECT_EQ(hours.without, 90);
    ASSERT_EQ(hours.months.size(), 12U);
    EXPECT_EQ(hours.months[4].amounts, (std::vector<double>{552, 85}));
    EXPECT_EQ(hours.months[4].without, 7);
    const auto histogram = bodyOf<Histogram>(rows, {.kind = ChartKind::Histogram, .columns = {0}});
    constexpr std::array kFirst{212, 211, 212, 213, 214, 216, 218};
    for (std::size_t i = 0; i < kFirst.size(); ++i) {
        EXPECT_EQ(histogram.bins.at(i).from, static_cast<double>(i) - 5);
        EXPECT_EQ(histogram.bins[i].amount, kFirst[i]) << i;
    }
    EXPECT_EQ(histogram.bins[39].amount + histogram.bins[40].amount, 235);
    EXPECT_EQ(histogram.bins.size(), 41U);
}

// 0.3 belongs to the bin that begins with it, though 3 * 0.1 is more than it.
TEST(StationCharts, ValueOnAnEdgeOpensItsBin)
{
    std::vector<MemoryRows::Row> all;
    for (int i = 0; i < 20; ++i)
        all.push_back({std::nullopt, i / 10.0});
    const auto histogram = bodyOf<Histogram>(MemoryRows(all), {.kind = ChartKind::Histogram, .columns = {0}});
    EXPECT_FALSE(histogram.hours);
    for (const Histogram::Bin& bin : histogram.bins)
        EXPECT_EQ(bin.amount, 1) << bin.from;
}

TEST(StationCharts, HeatMapHasMeansOfHoursAndGaps)
{
    const std::int64_t day = at("2024-06-30");
    const MemoryRows rows({{day + 5 * kHour, 28},
                           {day + 5 * kHour + 1800, 34},
                           {day + 2 * kDay + 23 * kHour, 41.5},
                           {day + 2 * kDay, std::nullopt}});
    const auto map = bodyOf<HeatMap>(rows, {.kind = ChartKind::HeatMap, .columns = {0}});
    ASSERT_EQ(map.days.size(), 3U);
    EXPECT_EQ(map.firstDay * kDay, day);
    EXPECT_EQ(map.days[0][5].mean, 31.0);
    EXPECT_EQ(map.days[0][5].band, 1U);
    EXPECT_EQ(map.days[2][23].band, 2U);
    for (const HeatMap::Field& field : map.days[1])
        EXPECT_FALSE(field.mean);
    EXPECT_FALSE(map.days[2][0].mean);
}

TEST(StationCharts, ScatterPairsWhatStandsInOneRow)
{
    std::vector<MemoryRows::Row> few{
        {0, 1, 5}, {1, 1, 5}, {2, 3, std::nullopt}, {3, std::nullopt, 7}, {4, 2, 4}};
    const auto scatter = bodyOf<Scatter>(MemoryRows(few), {.kind = ChartKind::Scatter, .columns = {1, 0}});
    ASSERT_EQ(scatter.points.size(), 2U);
    EXPECT_EQ(scatter.pairs, 3U);
    EXPECT_EQ(std::pair(scatter.points[0].x, scatter.points[0].y), std::pair(4.0, 2.0));
    EXPECT_EQ(scatter.points[1].count, 2U);
    // Fields hold all rows, each no farther from its field's middle than half of it.
    std::vector<MemoryRows::Row> many;
    for (int i = 0; i < 12000; ++i)
        many.push_back({i, i % 300 / 10.0, i % 70 / 10.0});
    const auto gathered = bodyOf<Scatter>(MemoryRows(many), {.kind = ChartKind::Scatter, .columns = {1, 0}});
    EXPECT_TRUE(gathered.gathered);
    std::size_t rows = 0;
    for (const Scatter::Point& point : gathered.points)
        rows += point.count;
    EXPECT_EQ(rows, 12000U);
}

// January of 1999 and February to December of 1995, hour by hour to its end.
TEST(StationCharts, TypicalYearStandsInOne)
{
    std::vector<MemoryRows::Row> all;
    for (int hour = 1; hour <= 31 * 24; ++hour)
        all.push_back({at("1999-01-01") + hour * kHour, 1});
    for (int hour = 1; hour <= 334 * 24; ++hour)
        all.push_back({at("1995-02-01") + hour * kHour, 2});
    const MemoryRows rows(all);
    StationCharts charts(rows);
    const auto timeline = charts.timeline({}, {});
    EXPECT_EQ(timeline->years, (std::vector{1995, 1999}));
    EXPECT_EQ(timeline->seconds.size(), 8760U);
    EXPECT_EQ(timeline->seconds.back() - timeline->seconds.front(), 8759 * kHour);
    EXPECT_EQ(timeText(timeline->seconds[24], true), "01-02 00:00");
    EXPECT_EQ(periodsOf(*timeline).front().name, "Jan");
}

TEST(StationCharts, SentenceStandsInPlaceOfAnAxis)
{
    const MemoryRows timeless({{std::nullopt, 3.0}});
    MemoryRows two({{0, 3.0}, {0, 4.0, 1, 1}});
    two.stations = {"A", "B"};
    const MemoryRows blank({{0, std::nullopt}, {kHour, std::nullopt}});
    struct Case {
        const ChartRows& rows;
        ChartRequest request;
        const char* problem;
    };
    for (const Case& one :
         {Case{timeless, {.columns = {}}, "No index is chosen."},
          {timeless, {.columns = {0}}, "The rows have no time, so that there is nothing to draw over it."},
          {two,
           {.columns = {0}},
           "Choose a station: a line through several would join what does not belong together."},
          {blank, {.columns = {0}}, "No row of these has a value of what is chosen."},
          {blank, {.kind = ChartKind::Days, .columns = {0}}, "No row of these has a value of Humidex."},
          {blank, {.kind = ChartKind::ClassHours, .columns = {1}}, "Wind speed has no published classes."},
          {blank,
           {.kind = ChartKind::Scatter, .columns = {0, 1}},
           "No row of these has both Humidex and Wind speed."},
          {blank,
           {.columns = {0}, .period = Period{9 * kDay, 10 * kDay}},
           "No row is of this station and this time."}}) {
        const Chart chart = StationCharts(one.rows).chart(one.request);
        EXPECT_EQ(chart.problem, one.problem);
        EXPECT_TRUE(chart.empty());
    }
}

// The first row is the worked example of the README.
TEST(StoreRows, ChartsReadFiguresReadingsAndReasons)
{
    const auto store =
        tests::storeOf("When;T;H;W;S\n2024-07-01 12:00;30;50;2;600\n2024-07-01 13:00;30;;2;600\n"
                       "2024-07-01 14:00;-5;50;3;0\n",
                       "ta=T,rh=H,ws=W,sr=S,time=When", tests::stationOptions({90, 211}));
    const Field rh{Field::Kind::Reading, static_cast<std::size_t>(classic::Reading::RH)};
    const View view =
        makeView({store, {{.test = Condition::Test::Value, .field = rh}}, {}, true}, [] { return true; });
    EXPECT_EQ(view.rows, (std::vector<std::uint32_t>{2, 0}));
    const StoreRows rows(store, view.ascending, view.words); // a chart has them in the order of the file
    EXPECT_EQ(rows.columns.size(), 6U);
    EXPECT_EQ(rows.origin.filter, "Of a filtered view (RH has a value): 2 of 3 rows.");
    EXPECT_EQ(rows.origin.rules, "Calculated by precise rules, limits kept.");
    const Chart chart = StationCharts(rows).chart({.columns = {0, 1, 2}});
    EXPECT_EQ(
        wordsAt(chart, {0, 0}, rows),
        "2024-07-01 12:00: Humidex (Masterson; 1979) 36.3 °C, some discomfort (+1); Wind Chill (National "
        "Oceanic and Atmospheric Administration; 2003) has no value: Outside its limits: the air temperature "
        "is 30 °C, valid "
        "from -50 to 10 °C; Air Temperature 30.00 °C");
    EXPECT_EQ(StoreRows(store).whyNone(1, 0).substr(0, 21), "The row was skipped: ");
}

TEST(TimeMarks, StandOnWholeTimes)
{
    struct Case {
        const char* from;
        const char* to;
        std::size_t most;
        std::string marks;
    };
    for (const Case& one : {Case{"2024-01-01", "2025-01-01", 14,
                                 "2024-01 2024-02 2024-03 2024-04 2024-05 2024-06 2024-07 2024-08 2024-09 "
                                 "2024-10 2024-11 2024-12 2025-01 "},
                            {"2024-01-15", "2024-12-31", 5, "2024-03 2024-05 2024-07 2024-09 2024-11 "},
                            {"1995-06-01", "2024-12-31", 4, "2000 2010 2020 "},
                            {"2024-02-28", "2024-03-01 12:00", 4, "2024-02-28 2024-02-29 2024-03-01 "},
                            {"2024-02-28 22:10", "2024-02-29 07:00", 4, "2024-02-29 03:00 06:00 "}}) {
        std::string marks;
        for (const TimeMark& mark : timeMarks(at(one.from), at(one.to), one.most))
            marks += mark.text + " ";
        EXPECT_EQ(marks, one.marks);
    }
}

} // namespace
} // namespace comfortics::workbench
