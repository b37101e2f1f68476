// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/model_columns.h"
#include "cli/person_options.h"

#include <string>

namespace CLI {
class App;
}

namespace comfortics::cli {

/// The options of models that are calculated beside the indices.
class ModelOptions {
public:
    /// `shared` says in the help for what `--with` holds.
    void addTo(CLI::App& command, const std::string& shared);

    bool any() const noexcept { return !m_models.empty(); }
    /// A sentence on what was asked for and cannot be; empty where all is well.
    std::string fault() const;
    /// Throws std::invalid_argument with a clause where there is a fault.
    batch::ModelRequest request() const;

private:
    bool isRead(std::string_view input, const std::vector<const catalogue::Addition*>& models) const;
    void addPicked(batch::ModelRequest& request) const;

    std::string m_models;
    std::string m_with;
    std::string m_limits = "mark";
    PersonOptions m_person;
};

} // namespace comfortics::cli
