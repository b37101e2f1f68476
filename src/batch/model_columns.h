// SPDX-License-Identifier: GPL-3.0-or-later
//
// Models beside the indices of a batch: columns of the table are their inputs.
#pragma once

#include "catalogue/additions.h"
#include "catalogue/categories.h"
#include "formulas/live_quantity.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace comfortics::batch {

/// Text of a live quantity of the row; empty where it has none.
using LiveText = std::function<std::string(formulas::Live)>;
/// Text of a cell of the row for an input, with a point for a decimal mark; empty where it has none.
using CellText = std::function<std::string(std::size_t column, const catalogue::InputInfo& input)>;

/// The clock of a row.
struct RowClock {
    int year = 0;
    int month = 0;
    int day = 0;
    double hour = 0;
    std::optional<double> utcOffset{}; ///< [h]
};

/// A row as models read it.
struct ModelRow {
    CellText cell;
    LiveText live;
    std::optional<RowClock> clock{};
    bool calculated = true; ///< else its live quantities are not known, which is not the same as missing
};

/// Tells inputs in a way of its own. Any number of threads may ask.
class ModelInputs {
public:
    virtual ~ModelInputs() = default;
    ModelInputs(const ModelInputs&) = delete;
    ModelInputs& operator=(const ModelInputs&) = delete;

    /// Puts the inputs of a model in its order; NaN for none. A sentence where one that is wanted has none,
    /// else nothing.
    virtual std::string tell(const catalogue::Addition& model, const ModelRow& row,
                             std::vector<double>& inputs) const = 0;

protected:
    ModelInputs() = default;
};

/// Which models a batch calculates, and what they have for all rows.
struct ModelRequest {
    std::vector<const catalogue::Addition*> models;
    std::vector<std::pair<const catalogue::InputInfo*, double>> constants;
    standards::Limits limits = standards::Limits::Mark;
    std::shared_ptr<const ModelInputs> inputs{}; ///< in place of constants and of columns by their names

    /// Reads "pmv_iso,utci" and "met=1.2,posture=sitting". Throw std::invalid_argument with a sentence.
    static std::vector<const catalogue::Addition*> parseModels(const std::string& list);
    static std::vector<std::pair<const catalogue::InputInfo*, double>>
    parseConstants(const std::string& list);
};

/// What stands beside the figures of models.
struct ModelExtras {
    bool reasons = false;    ///< behind each model why figures have no value or a mark
    bool status = false;     ///< behind each figure ok, outside or none
    bool categories = false; ///< behind each figure with a scale its class in words, and the severity
};

/// A column that models add.
struct ModelHeading {
    std::string name;
    std::string unit; ///< empty for none
    bool number = false;
};

/// The figures of a model in one row.
struct ModelFigures {
    const catalogue::Addition* model = nullptr;
    std::vector<double> inputs;
    std::vector<double> results;
    std::vector<standards::Verdict> verdicts;
    std::string unreadable; ///< a sentence on an input that cannot be read or told; there are no figures then

    /// The published class of a figure inside its range; null where there is none.
    const catalogue::Category* category(std::size_t result) const;
    /// "ok", "outside" or "none"
    std::string_view standing(std::size_t result) const;
    /// Why figures have no value or a mark; empty where all is well.
    std::string remarks() const;
};

/// The columns that models add to a batch. An input is, in this order, a constant, the column that has its
/// id for a name, or, where it is required, the live quantity of the row that it is; else its start value.
/// Any number of threads may calculate rows.
class ModelColumns {
public:
    /// `names` are those of the table's columns; with ModelRequest::inputs they are not looked at. Throws
    /// MalformedTable where a model lacks an input or two columns give one.
    ModelColumns(ModelRequest request, const std::vector<std::string>& names, ModelExtras extras);

    bool readsLive() const noexcept { return m_readsLive; }
    std::vector<ModelHeading> headings() const;
    /// The figures of a row, model by model.
    void calculate(const ModelRow& row, const std::function<void(const ModelFigures&)>& take) const;
    /// The cells of a model's figures, one under each of its headings.
    void cells(const ModelFigures& figures, const std::function<void(std::string_view)>& take) const;

private:
    /// Where an input of a model comes from.
    struct Source {
        double value = standards::kNaN; ///< constant or start
        std::optional<std::size_t> column{};
        std::optional<formulas::Live> live{};
    };
    struct Columns {
        const catalogue::Addition* model;
        std::vector<Source> sources;
    };

    /// By a constant or a column; else without either.
    Source givenSource(const catalogue::InputInfo& input, const std::vector<std::string>& names) const;
    static void readInputs(const Columns& columns, const ModelRow& row, ModelFigures& figures);
    Columns columnsOf(const catalogue::Addition& model, const std::vector<std::string>& names);
    bool hasCategory(const catalogue::AdditionResult& result) const;

    ModelRequest m_request;
    ModelExtras m_extras;
    bool m_readsLive = false;
    std::vector<Columns> m_models;
};

} // namespace comfortics::batch
