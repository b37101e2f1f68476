// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reading_options.h"

#include "catalogue/catalogue.h"
#include "catalogue/references.h"
#include "cli/commands.h"
#include "texts/text.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <utility>

namespace comfortics::cli {

namespace {

// Nothing where the system does not tell; the working folder is no substitute.
std::optional<std::filesystem::path> programFolder()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::nullopt : std::optional(program.parent_path());
}

int parseIndex(std::string_view text, const std::string& list)
{
    if (const int known = catalogue::indexOfId(text); known != 0)
        return known;
    int index = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (error != std::errc() || end != text.data() + text.size() || index < 1 ||
        index > catalogue::kLastIndex)
        throw std::invalid_argument("\"" + list + "\" is no list of index numbers from 1 to " +
                                    std::to_string(catalogue::kLastIndex) + " or ids");
    return index;
}

} // namespace

classic::Selection parseSelection(const std::string& list)
{
    classic::Selection selection = classic::Selection::none();
    std::string_view rest = list;
    for (;;) {
        const std::size_t comma = rest.find(',');
        const std::string_view part = rest.substr(0, comma);
        const std::size_t dash = part.find('-');
        const int first = parseIndex(part.substr(0, dash), list);
        const int last = dash == std::string_view::npos ? first : parseIndex(part.substr(dash + 1), list);
        if (last < first)
            throw std::invalid_argument("\"" + std::string(part) + "\" runs backwards");
        for (int index = first; index <= last; ++index)
            selection.set(index, true);
        if (comma == std::string_view::npos)
            return selection;
        rest.remove_prefix(comma + 1);
    }
}

void CalculationOptions::addTo(CLI::App& command)
{
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i) {
        const classic::AssumptionInfo& info = classic::kAssumptionInfo[i];
        command.add_option(std::string(info.option), m_assumptions[i], std::string(info.optionHelp))
            ->group("Assumptions")
            ->capture_default_str();
    }
    command.add_flag("--ignore-limits", m_ignoreLimits, "Evaluate the indices whatever their limits")
        ->group("Calculation");
    command
        .add_option(
            "--rules", m_rules,
            "Calculation rules: classic (a failure ends the run), robust (it costs what depends on it) or "
            "precise (robust, with nothing rounded on the way)")
        ->check(CLI::IsMember({"classic", "robust", "precise"}))
        ->capture_default_str()
        ->group("Calculation");
    addLimitsOption(command, m_limitsFile)->group("Calculation");
    command
        .add_option("--select", m_select,
                    "Evaluate these indices only, for instance 1,5,10-20 or utci,wbgt_outdoor")
        ->type_name("LIST")
        ->group("Calculation")
        ->check([](const std::string& list) {
            try {
                parseSelection(list);
            } catch (const std::invalid_argument& error) {
                return std::string(error.what());
            }
            return std::string();
        });
}

CLI::Option* addLimitsOption(CLI::App& command, std::string& file)
{
    return command
        .add_option("--limits", file, "Read the limits from FILE instead of Limits.Index beside the program")
        ->type_name("FILE")
        ->check([](const std::string& name) { return name.empty() ? "the name of the file is empty" : ""; });
}

classic::Limits readLimits(const std::string& file)
{
    using State = classic::IniFile::State;
    const std::optional<std::filesystem::path> folder = programFolder();
    const std::string path = !file.empty() ? file : folder ? (*folder / "Limits.Index").string() : "";
    classic::Limits limits = path.empty() ? classic::Limits() : classic::Limits::Load_Limits(path);
    if (limits.fileState() == State::Unreadable || (!file.empty() && limits.fileState() == State::Missing))
        throw FileFailure("The limits file " + path + " cannot be read: " + limits.fileProblem() + ".");
    if (const std::string warning = classic::limitsWarning(limits, file); !warning.empty())
        std::cerr << "comfortics-cli: " << warning << "\n";
    return limits;
}

classic::Limits CalculationOptions::limits() const
{
    return readLimits(m_limitsFile);
}

classic::Settings CalculationOptions::settings() const
{
    classic::Settings settings;
    if (!m_select.empty())
        settings.selection = parseSelection(m_select);
    settings.ignoreLimits = m_ignoreLimits;
    settings.rules = classic::rulesOfName(m_rules).value();
    return settings;
}

void ReadingOptions::addTo(CLI::App& command)
{
    for (std::size_t i = 0; i < classic::kReadingCount; ++i) {
        const classic::ReadingInfo& info = classic::kReadingInfo[i];
        command.add_option("--" + texts::lowered(info.symbol()), m_texts[i], std::string(info.hint))
            ->type_name("TEXT")
            ->group("Readings");
    }
}

std::array<std::string_view, classic::kReadingCount> ReadingOptions::texts() const
{
    std::array<std::string_view, classic::kReadingCount> texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = m_texts[i];
    return texts;
}

} // namespace comfortics::cli
