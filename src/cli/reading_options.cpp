// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/reading_options.h"

#include "cli/commands.h"
#include "shell/status_line.h"

#include <CLI/CLI.hpp>

#include <charconv>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <utility>

namespace comfortics::cli {

namespace {

std::filesystem::path programFolder()
{
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path(".") : program.parent_path();
}

int parseIndex(std::string_view text, const std::string& list)
{
    int index = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), index);
    if (error != std::errc() || end != text.data() + text.size() || index < 1 ||
        index > static_cast<int>(core::kIndexCount))
        throw std::invalid_argument("\"" + list + "\" is no list of index numbers from 1 to 222");
    return index;
}

} // namespace

core::Selection parseSelection(const std::string& list)
{
    core::Selection selection = core::Selection::none();
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
    constexpr std::array<std::pair<const char*, const char*>, std::tuple_size_v<core::AssumptionTexts>>
        kNames{{{"--aradu", "Effective radiating area [-]"},
                {"--emissivity", "Emissivity of the clothed body [-]"},
                {"--barometric", "Barometric pressure [hPa]"},
                {"--height", "The box beside \"Body Mass:\""},
                {"--weight", "The box beside \"Body Stature:\""},
                {"--friction", "Exponent of the wind profile [-]"}}};
    for (std::size_t i = 0; i < kNames.size(); ++i)
        command.add_option(kNames[i].first, m_assumptions[i], kNames[i].second)
            ->group("Assumptions")
            ->capture_default_str();
    command.add_flag("--ignore-limits", m_ignoreLimits, "Evaluate the indices whatever their limits")
        ->group("Calculation");
    command
        .add_option(
            "--rules", m_rules,
            "Calculation rules: classic (a failure ends the run) or robust (it costs what depends on it)")
        ->check(CLI::IsMember({"classic", "robust"}))
        ->capture_default_str()
        ->group("Calculation");
    command
        .add_option("--limits", m_limitsFile,
                    "Read the limits from FILE instead of Limits.Index beside the program")
        ->type_name("FILE")
        ->group("Calculation");
    command.add_option("--select", m_select, "Evaluate these indices only, for instance 1,5,10-20")
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

core::Limits readLimits(const std::string& file)
{
    if (file.empty())
        return core::Limits::Load_Limits(programFolder() / "Limits.Index");
    if (!std::ifstream(file) || std::filesystem::is_directory(file))
        throw FileFailure("The limits file " + file + " cannot be read.");
    return core::Limits::Load_Limits(file);
}

core::Limits CalculationOptions::limits() const
{
    core::Limits limits = readLimits(m_limitsFile);
    const std::string warning = m_limitsFile.empty() ? shell::limitsWarning(limits) : std::string();
    if (!warning.empty())
        std::cerr << "comfortics-cli: " << warning << "\n";
    return limits;
}

core::Settings CalculationOptions::settings() const
{
    core::Settings settings;
    if (!m_select.empty())
        settings.selection = parseSelection(m_select);
    settings.ignoreLimits = m_ignoreLimits;
    settings.rules = m_rules == "robust" ? core::Rules::Robust : core::Rules::Classic;
    return settings;
}

void ReadingOptions::addTo(CLI::App& command)
{
    constexpr std::array<const char*, core::kReadingCount> kNames{"--ta", "--tg", "--sr",
                                                                  "--td", "--rh", "--ws"};
    for (std::size_t i = 0; i < core::kReadingCount; ++i)
        command.add_option(kNames[i], m_texts[i], std::string(core::kReadingInfo[i].hint))
            ->type_name("TEXT")
            ->group("Readings");
}

std::array<std::string_view, core::kReadingCount> ReadingOptions::texts() const
{
    std::array<std::string_view, core::kReadingCount> texts;
    for (std::size_t i = 0; i < texts.size(); ++i)
        texts[i] = m_texts[i];
    return texts;
}

} // namespace comfortics::cli
