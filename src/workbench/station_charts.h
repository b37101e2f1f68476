// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the charts of a table show, as plain numbers: a chart shows what its rows hold. Where they hold
// nothing it has a gap, and where there is no chart a sentence stands in its place.
#pragma once

#include "workbench/chart_rows.h"
#include "workspace/axis.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace comfortics::workbench {

enum class ChartKind : std::uint8_t {
    TimeSeries,
    Days,       ///< mean, lowest and highest value of each day
    Months,     ///< of each month
    HoursOfDay, ///< of each hour of the day, over all days
    HeatMap,    ///< hour by day
    Histogram,
    ClassHours, ///< how long each class lasted, month by month
    Scatter,    ///< one column over another
};

inline constexpr std::size_t kChartKindCount = 8;
inline constexpr std::size_t kMostLines = 6; ///< of a time series

std::string_view chartName(ChartKind kind);
/// Shows one column, not several.
constexpr bool ofOneColumn(ChartKind kind)
{
    return kind != ChartKind::TimeSeries && kind != ChartKind::Scatter;
}

/// Times from `from` up to but without `to`.
struct Period {
    std::int64_t from = 0;
    std::int64_t to = 0;

    friend bool operator==(const Period&, const Period&) = default;
};

struct ChartRequest {
    ChartKind kind = ChartKind::TimeSeries;
    std::vector<std::size_t> columns{};   ///< of a scatter the one along, then the one up
    std::optional<std::size_t> station{}; ///< none: all of them
    std::optional<Period> period{};       ///< none: all rows
    std::optional<Period> window{};       ///< of a time series: the part that is seen
    std::size_t steps = 1000;             ///< how fine a series is to be: the pixels along

    friend bool operator==(const ChartRequest&, const ChartRequest&) = default;
};

/// The rows of a station and a period in the order of their times.
struct Timeline {
    std::vector<std::uint32_t> rows;    ///< with a time
    std::vector<std::uint32_t> untimed; ///< without; empty where a period was asked for
    std::vector<std::int64_t> seconds;  ///< of `rows`
    std::optional<double> step;         ///< between rows: the most frequent one [s]
    std::vector<int> years;             ///< of a typical year, whose months are of these; else empty

    /// The months of several years stand in one, and no time has a year.
    bool yearless() const { return !years.empty(); }
    /// Rows so far apart that others are missing between them.
    bool apart(std::size_t one, std::size_t next) const;
};

/// A class of values on an axis.
struct Band {
    double low = 0;
    double high = 0; ///< either may be infinite
    std::string label;
    std::optional<int> severity; ///< none where its sign depends on the row
};

/// "strong heat stress +2".
std::string bandWords(const Band& band);

struct LinePoint {
    double seconds = 0;
    double value = 0;
    bool joined = false; ///< to the point before
};

struct TimeLine {
    std::size_t column = 0;
    std::vector<LinePoint> points;
    std::size_t values = 0; ///< in the window
    std::size_t gaps = 0;   ///< rows of the window without a value
};

/// Lines of one unit.
struct TimePanel {
    std::string unit;
    std::vector<TimeLine> lines;
    std::vector<Band> bands; ///< of the first line that has some
    std::size_t bandsOf = 0; ///< its column
    workspace::Axis values;
};

struct TimeSeries {
    Period whole;
    Period window;
    std::vector<TimePanel> panels;
    std::size_t missing = 0; ///< breaks of time in the window, where rows are missing
    bool thinned = false;    ///< points stand for several rows: the first, lowest, highest and last of a step
    std::shared_ptr<const Timeline> timeline;
};

struct Spread {
    std::string name; ///< "2024-07-01", "2024-07", "14:00"
    double at = 0;    ///< its middle [s], or the month or hour counted from 0
    std::size_t count = 0;
    double mean = 0;
    double low = 0;
    double high = 0;
    bool joined = false; ///< to the one before
};

struct Spreads {
    std::size_t column = 0;
    std::vector<Spread> parts;      ///< those with values
    std::vector<std::string> names; ///< of all months or hours; of days empty
    Period days;                    ///< of a chart of days
    std::size_t fullest = 0;        ///< the most values of a part
    std::vector<Band> bands;
    workspace::Axis values;
    bool yearless = false;
};

struct HeatMap {
    struct Field {
        std::optional<double> mean; ///< none where the hour has no value
        std::optional<std::size_t> band;
    };
    std::size_t column = 0;
    std::int64_t firstDay = 0; ///< from 1970-01-01
    std::vector<std::array<Field, 24>> days;
    std::vector<Band> bands; ///< empty where the colour tells the value
    double low = 0;          ///< of the means
    double high = 0;
    bool yearless = false;
};

struct Histogram {
    struct Bin {
        double from = 0;
        double to = 0; ///< belongs to the next one
        double amount = 0;
    };
    std::size_t column = 0;
    std::vector<Bin> bins;
    std::vector<Band> bands;
    workspace::Axis values;
    workspace::Axis amounts;
    bool hours = false; ///< the amounts are hours, else rows
};

struct ClassHours {
    struct Month {
        std::string name;            ///< empty where the rows have no time
        std::vector<double> amounts; ///< of each class
        double without = 0;          ///< of rows that have no class: without a value, or outside of limits
        std::size_t rows = 0;
    };
    std::size_t column = 0;
    std::vector<Band> classes;  ///< those that came, ascending by severity within their scale
    std::vector<double> totals; ///< of each class
    double without = 0;
    std::vector<Month> months;
    workspace::Axis amounts;
    bool hours = false;
};

struct Scatter {
    struct Point {
        double x = 0;
        double y = 0;
        std::size_t count = 1; ///< rows that it stands for
    };
    std::size_t alongColumn = 0;
    std::size_t upColumn = 0;
    std::vector<Point> points; ///< ascending
    std::size_t pairs = 0;
    std::size_t most = 1;  ///< rows of one point
    bool gathered = false; ///< points are fields of a grid
    workspace::Axis along;
    workspace::Axis up;
    double fieldWidth = 0; ///< where gathered
    double fieldHeight = 0;
};

struct Chart {
    ChartKind kind = ChartKind::TimeSeries;
    std::string title;
    std::vector<ChartColumn> columns; ///< of all rows, by their place
    std::string station;              ///< empty where there is one without a name
    std::vector<std::string> notes;   ///< what is to be known to read it, in sentences
    ChartOrigin origin;
    std::string problem; ///< why there is no chart, a sentence; then `body` is none
    std::variant<std::monostate, TimeSeries, Spreads, HeatMap, Histogram, ClassHours, Scatter> body;

    bool empty() const { return body.index() == 0; }
    /// The chart for those who do not see it.
    std::string inWords() const;
    /// Source, rules and notes, a line each.
    std::vector<std::string> footer() const;
};

/// A place of a chart that can be read: a row of the timeline, a part, a day and hour, a bin, a month and
/// class, a point.
struct ChartPlace {
    std::size_t along = 0;
    std::size_t up = 0;

    friend bool operator==(const ChartPlace&, const ChartPlace&) = default;
};

/// How many places there are along and up; 0 along where there is nothing to read.
ChartPlace placesOf(const Chart& chart);
/// What stands at a place, in words. `rows` are those that the chart was made of.
std::string wordsAt(const Chart& chart, const ChartPlace& place, const ChartRows& rows);
/// The row of a time series that is nearest to a time.
std::size_t nearestRow(const Timeline& timeline, double seconds);

/// The number of a value, with the decimals of its column and `more`.
std::string valueText(const ChartColumn& column, double value, int more = 0);
/// The same with its unit.
std::string withUnit(const ChartColumn& column, double value, int more = 0);

/// Makes charts of rows. Keeps the order of the times of what was asked for last.
class StationCharts {
public:
    using GoOn = std::function<bool()>;

    /// The rows must outlive it.
    explicit StationCharts(const ChartRows& rows) : m_rows(rows) {}

    /// `goOn` is asked now and then and ends the work; the chart then comes to nothing.
    Chart chart(const ChartRequest& request, const GoOn& goOn = {});
    /// The rows of a station and a period; null where the work was ended.
    std::shared_ptr<const Timeline> timeline(std::optional<std::size_t> station,
                                             const std::optional<Period>& period, const GoOn& goOn = {});

private:
    struct Work;

    const ChartRows& m_rows;
    // What was asked for last, of all times and of the period.
    std::optional<std::size_t> m_station;
    std::optional<Period> m_period;
    std::shared_ptr<const Timeline> m_whole;
    std::shared_ptr<const Timeline> m_timeline;
};

/// The years and months that rows have values in, each as a period with its name ("2024", "2024-07").
struct NamedPeriod {
    std::string name;
    Period period;
};
std::vector<NamedPeriod> periodsOf(const Timeline& timeline);

} // namespace comfortics::workbench
