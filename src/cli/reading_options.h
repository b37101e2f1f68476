// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "classic/calculation.h"

#include <array>
#include <string>

namespace CLI {
class App;
class Option;
} // namespace CLI

namespace comfortics::cli {

/// Adds --limits, whose FILE must have a name.
CLI::Option* addLimitsOption(CLI::App& command, std::string& file);

/// The limits of a file named on the command line or, if the name is empty, of Limits.Index beside the
/// program, which alone may be missing. Throws FileFailure where it cannot be read; warns on standard
/// error of what it lacks.
classic::Limits readLimits(const std::string& file);

/// The options that `calc` and `batch` share: assumptions, limits, selection.
class CalculationOptions {
public:
    void addTo(CLI::App& command);

    classic::Limits limits() const; ///< see readLimits
    classic::Settings settings() const;
    const classic::AssumptionTexts& assumptions() const noexcept { return m_assumptions; }

    bool reasons = false;    ///< say why a value is blank
    bool categories = false; ///< say what a value means
    bool provenance = false; ///< say the rules and the use of limits

private:
    classic::AssumptionTexts m_assumptions = classic::AssumptionBoxes().texts();
    bool m_ignoreLimits = false;
    std::string m_rules = "classic";
    std::string m_limitsFile;
    std::string m_select;
};

/// Reads a list such as "1,5,10-20". Throws std::invalid_argument on anything else.
classic::Selection parseSelection(const std::string& list);

/// The six readings' options.
class ReadingOptions {
public:
    void addTo(CLI::App& command);
    std::array<std::string_view, classic::kReadingCount> texts() const;

private:
    std::array<std::string, classic::kReadingCount> m_texts;
};

} // namespace comfortics::cli
