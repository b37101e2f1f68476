// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the rows of a table come to, index by index.
#pragma once

#include "batch/model_columns.h"
#include "batch/row_figures.h"
#include "tables/moment.h"
#include "tables/value_counts.h"

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace comfortics::tables {

/// The percentiles of a summary.
inline constexpr std::array<int, 7> kPercentiles{1, 5, 25, 50, 75, 95, 99};

/// A value with the row that it stands in.
struct Extreme {
    double value = 0;
    std::size_t line = 0;
    std::optional<Moment> time;
};

/// How long the values of an index were in one of its classes.
struct ClassTime {
    std::string_view category;
    int severity = 0;  ///< of the words of a model none: see IndexSummary::figure
    std::string month; ///< "2024-07"; empty where the rows have no time
    std::size_t rows = 0;
    std::optional<double> hours; ///< where the rows are a certain time apart
};

/// What became of one index: of the figures as they are written. Or of a figure of a model: with the decimals
/// that are worth showing, and where it is one of several words, its classes are these, and it has no mean.
struct IndexSummary {
    int index = 0;                             ///< 0 of a model
    std::optional<catalogue::Figure> figure{}; ///< of a model, those behind the indices
    std::size_t marked = 0;                    ///< values of a model outside its range, among the values
    std::size_t values = 0;
    std::size_t outsideTemperature = 0; ///< blank, as its limits want it
    std::size_t outsideWind = 0;
    std::size_t noValue = 0; ///< blank: the formula has no value
    std::size_t failed = 0;

    // Where there are values.
    std::optional<double> mean;
    std::array<double, kPercentiles.size()> percentiles{}; ///< with linear interpolation
    Extreme lowest;                                        ///< the first of equal ones
    Extreme highest;

    std::vector<ClassTime> classes; ///< of values inside of limits, by month, then by class
};

/// The rows of one station, or of the table.
struct StationSummary {
    std::string station; ///< empty where no column tells it
    std::size_t calculated = 0;
    std::size_t skipped = 0; ///< a reading is missing or none
    std::size_t failed = 0;
    std::size_t refused = 0; ///< could not be read or mapped
    std::vector<IndexSummary> indices;
};

struct TableSummary {
    std::optional<double> step; ///< between rows: the most frequent one [s]
    std::vector<StationSummary> stations;
};

/// A figure of a model in one row.
struct ModelValue {
    std::string text{};                    ///< as it is shown; empty without a value, and of words
    std::optional<std::size_t> category{}; ///< the place of its class in its scale, or of its word
    bool isMarked = false;                 ///< a value outside its range
};

/// Gathers a summary. Memory grows with the number of stations, months and different values, not with the
/// rows.
class Summarizer {
public:
    explicit Summarizer(std::vector<int> indices, std::vector<catalogue::Figure> figures = {});
    /// With all figures of models.
    Summarizer(std::vector<int> indices, const std::vector<const catalogue::Addition*>& models);

    /// A row that was refused has no figures. `ofModels` are those of the models, in their order. Throws
    /// TableFault where there are too many stations.
    void add(std::string_view station, std::size_t line, const std::optional<Moment>& time,
             batch::RowFigures* figures, std::span<const batch::ModelFigures> ofModels = {});
    /// The same with the figures of models by their places.
    void add(std::string_view station, std::size_t line, const std::optional<Moment>& time,
             batch::RowFigures* figures, const std::function<ModelValue(std::size_t place)>& ofModels);
    /// What another has gathered of other rows; the order does not matter.
    void add(const Summarizer& other);

    /// Hours are told where the step [s] is known.
    TableSummary summary(std::optional<double> step) const;

private:
    // Of the year and month, and the place of the class in the scale.
    using ClassKey = std::pair<int, std::size_t>;

    struct Gathered {
        IndexSummary counts; // without what is made of the values
        ValueCounts values;
        std::map<ClassKey, std::size_t> classes;
    };
    struct Station {
        StationSummary counts;
        std::vector<Gathered> indices;
    };

    Station& station(std::string_view name);
    static void addValue(Gathered& gathered, std::string_view text, std::size_t line,
                         const std::optional<Moment>& time, std::optional<std::size_t> category);
    static void addFigure(Gathered& gathered, const ModelValue& value, std::size_t line,
                          const std::optional<Moment>& time);
    static void addRow(Station& to, std::size_t line, const std::optional<Moment>& time,
                       batch::RowFigures* figures);

    std::vector<int> m_indices;
    std::vector<catalogue::Figure> m_figures; // behind the indices
    std::map<std::string, Station, std::less<>> m_stations;
};

/// Finds how far the rows of a table are apart.
class StepFinder {
public:
    void add(const Moment& time);
    /// The most frequent step [s]; none where no two rows follow one another in time.
    std::optional<double> step() const;

private:
    std::optional<std::int64_t> m_before;
    std::map<std::int64_t, std::size_t> m_steps;
};

/// A line for each station and index, RFC 4180 with a header.
std::string summaryCsv(const TableSummary& summary);
/// A line for each station, index, month and class.
std::string classesCsv(const TableSummary& summary);
/// All of it.
std::string summaryJson(const TableSummary& summary);

} // namespace comfortics::tables
