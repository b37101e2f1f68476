// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "batch/model_columns.h"

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
    batch::ModelRequest request() const;

private:
    std::string m_models;
    std::string m_with;
    std::string m_limits = "mark";
};

} // namespace comfortics::cli
