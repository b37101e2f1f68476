// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "core/calculation.h"

#include <array>
#include <string>

namespace CLI {
class App;
}

namespace comfortics::cli {

/// The limits of a file named on the command line, which must be readable (throws FileFailure), or
/// of Limits.Index beside the program, which may be missing, if the name is empty.
core::Limits readLimits(const std::string& file);

/// The options that `calc` and `batch` share: assumptions, limits, selection.
class CalculationOptions {
public:
    void addTo(CLI::App& command);

    /// Warns on standard error where the file beside the program gives no limits.
    core::Limits limits() const;
    core::Settings settings() const;
    const core::AssumptionTexts& assumptions() const noexcept { return m_assumptions; }

    bool reasons = false; ///< say why a value is blank

private:
    core::AssumptionTexts m_assumptions = core::AssumptionBoxes().texts();
    bool m_ignoreLimits = false;
    std::string m_rules = "classic";
    std::string m_limitsFile;
    std::string m_select;
};

/// Reads a list such as "1,5,10-20". Throws std::invalid_argument on anything else.
core::Selection parseSelection(const std::string& list);

/// The six readings' options.
class ReadingOptions {
public:
    void addTo(CLI::App& command);
    std::array<std::string_view, core::kReadingCount> texts() const;

private:
    std::array<std::string, core::kReadingCount> m_texts;
};

} // namespace comfortics::cli
