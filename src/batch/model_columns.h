// SPDX-License-Identifier: GPL-3.0-or-later
//
// Models beside the indices of a batch: columns of the table are their inputs.
#pragma once

#include "batch/table_reader.h"
#include "catalogue/additions.h"
#include "formulas/live_quantity.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace comfortics::batch {

/// Which models a batch calculates, and what they have for all rows.
struct ModelRequest {
    std::vector<const catalogue::Addition*> models;
    std::vector<std::pair<const catalogue::InputInfo*, double>> constants;
    standards::Limits limits = standards::Limits::Mark;

    /// Reads "pmv_iso,utci" and "met=1.2,posture=sitting". Throw std::invalid_argument with a sentence.
    static std::vector<const catalogue::Addition*> parseModels(const std::string& list);
    static std::vector<std::pair<const catalogue::InputInfo*, double>>
    parseConstants(const std::string& list);
};

/// Text of a live quantity of the row; empty where it has none.
using LiveText = std::function<std::string(formulas::Live)>;

/// The columns that models add to a batch. An input is, in this order, a constant, the column that has its
/// id for a name, or, where it is required, the live quantity of the row that it is; else its start value.
/// Any number of threads may append rows.
class ModelColumns {
public:
    /// `names` are those of the table's columns. Throws MalformedTable where a model lacks an input or two
    /// columns give one.
    ModelColumns(ModelRequest request, const std::vector<std::string>& names, bool reasons);

    bool readsLive() const noexcept { return m_readsLive; }
    void appendHeader(std::string& line) const;
    /// The cells of a row, each with a comma in front.
    void appendRow(std::string& line, const TableRow& row, const LiveText& liveText) const;

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
    Columns columnsOf(const catalogue::Addition& model, const std::vector<std::string>& names);

    ModelRequest m_request;
    bool m_reasons;
    bool m_readsLive = false;
    std::vector<Columns> m_models;
};

} // namespace comfortics::batch
