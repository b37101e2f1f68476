// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "catalogue/rates.h"

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace comfortics::cli {

/// What is told of a person in another form than the one that a model reads: picked from a table, or as a
/// metabolic rate whose unit stands with it. And the tables themselves.
class PersonOptions {
public:
    /// The options of what is picked, and those that list the tables.
    void addPicksTo(CLI::App& command);
    void addTablesTo(CLI::App& command);

    /// Whether tables are asked for: an option of one, or --garments without names.
    bool asksForTables() const;
    std::string tables(const std::string& format) const;

    bool any() const;

    /// What an input of a model has from an option.
    struct Told {
        std::string option; ///< "--activity"
        const catalogue::InputInfo* input = nullptr;
        double value = standards::kNaN;
        std::string origin; ///< "typing, ASHRAE 55"
    };
    /// The number that is given for an input; NaN where there is none.
    using NumberOf = std::function<double(std::string_view id)>;

    /// What a model has from the options that it can read; rates are converted by the body of `number`.
    /// Throws std::invalid_argument with a clause.
    std::vector<Told> toldTo(const catalogue::Addition& model, const NumberOf& number) const;
    /// The options that the model does not read.
    std::vector<std::string> unreadBy(const catalogue::Addition& model) const;
    /// Whether a rate is converted for the model by this input of the body.
    bool convertsBy(const catalogue::Addition& model, std::string_view id) const;

    /// What all of it comes to, where no model reads it: rates in each unit, the sum of garments. Throws
    /// likewise.
    std::string figures(const catalogue::Body& body, const std::string& format) const;

private:
    /// What is told, by the name of its option.
    std::vector<std::pair<std::string, catalogue::Picked>> picked() const;
    /// A running mean of the days, where they are told.
    std::optional<Told> runningMean() const;

    bool m_activities = false;
    bool m_ensembles = false;
    bool m_workClothes = false;
    CLI::Option* m_garments = nullptr;
    std::array<std::string, catalogue::kPickKeys.size()> m_picks;
    std::string m_days;
    std::string m_alpha = "0.8";
};

} // namespace comfortics::cli
