// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/catalogue.h"
#include "catalogue/finder.h"
#include "catalogue/references.h"
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/model_lists.h"
#include "cli/reading_options.h"
#include "output/csv_cell.h"
#include "texts/text.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iostream>

namespace comfortics::cli {

namespace {

using catalogue::CatalogueRow;
using catalogue::Gate;
using texts::lowered;

std::string inputs(const CatalogueRow& row)
{
    std::string result;
    for (const catalogue::Input input : row.inputs)
        result += (result.empty() ? "" : ", ") + std::string(catalogue::inputName(input));
    return result;
}

std::string gate(const CatalogueRow& row)
{
    if (row.gate == Gate::None)
        return "none";
    return std::string(catalogue::gatedName(row.gated)) + (row.gate == Gate::Text ? " (as text)" : "");
}

std::string temperatureLimits(const CatalogueRow& row, const classic::IndexLimits& limits)
{
    return row.gate == Gate::None ? std::string() : limits.Tair_min.text + " to " + limits.Tair_max.text;
}

std::string windLimits(const CatalogueRow& row, const classic::IndexLimits& limits)
{
    if (row.gate == Gate::None || limits.WS_max.number <= 0)
        return {};
    return limits.WS_min.text + " to " + limits.WS_max.text +
           (row.gateWind == catalogue::GateWind::At10m ? " at 10 m" : "");
}

class ListCommand final : public Command {
public:
    CLI::App* addTo(CLI::App& tool) override
    {
        CLI::App* const command = tool.add_subcommand("list", "List the catalogue of indices");
        command->add_option("--search", m_search, "Only names that contain TEXT, whatever the case")
            ->type_name("TEXT");
        command
            ->add_option("--find", m_find,
                         "Only those with all words of TEXT in name, number, abbreviation, author, year, id, "
                         "family or unit, the best first")
            ->type_name("TEXT")
            ->excludes("--search");
        addLimitsOption(*command, m_limitsFile);
        command
            ->add_flag("--models", m_models,
                       "List the models of standards in place of the indices (see comfortics-cli model)")
            ->excludes("--search")
            ->excludes("--limits");
        command->add_flag(
            "--references", m_references,
            "Show the id of each index and where it was published, in place of inputs and limits");
        command->add_option("--format", m_format, "Output: text, csv, json or markdown")
            ->check(CLI::IsMember({"text", "csv", "json", "markdown"}))
            ->capture_default_str();
        return command;
    }

    int run() override
    {
        if (m_models) {
            print(modelList(modelsFound(m_find), m_format));
            return kDone;
        }
        const classic::Limits limits = readLimits(m_limitsFile);
        std::vector<const CatalogueRow*> rows;
        if (!m_find.empty())
            rows = found();
        else
            for (const CatalogueRow& row : catalogue::rows())
                if (lowered(row.name).find(lowered(m_search)) != std::string::npos)
                    rows.push_back(&row);
        if (m_format == "json")
            print(json(rows, limits));
        else
            print(m_references ? referenceTable(rows) : indexTable(rows, limits));
        return kDone;
    }

private:
    // An empty list is no error, but a slip can be told.
    std::vector<const CatalogueRow*> found() const
    {
        const catalogue::Finder& finder = catalogue::indexFinder();
        std::vector<const CatalogueRow*> rows;
        for (const std::size_t place : finder.find(m_find))
            rows.push_back(&catalogue::rows()[place]);
        if (rows.empty())
            sayNothingFound(finder, m_find);
        return rows;
    }

    static std::vector<std::string> cells(const CatalogueRow& row, const classic::Limits& limits)
    {
        const classic::IndexLimits& bounds = limits.of(row.number);
        return {std::to_string(row.number),
                std::string(row.name),
                std::string(row.unit),
                inputs(row),
                gate(row),
                temperatureLimits(row, bounds),
                windLimits(row, bounds),
                std::string(row.source())};
    }

    using Lines = std::vector<std::vector<std::string>>;

    std::string indexTable(const std::vector<const CatalogueRow*>& rows, const classic::Limits& limits) const
    {
        Lines lines{{"No", "Thermal Index", "Unit", "Inputs", "Gate", "Temperature limits [°C]",
                     "Wind limits [m/s]", "Source"}};
        for (const CatalogueRow* row : rows)
            lines.push_back(cells(*row, limits));
        return table(lines);
    }

    std::string referenceTable(const std::vector<const CatalogueRow*>& rows) const
    {
        Lines lines{{"No", "Id", "Thermal Index", "Family", "Reference", "Note", "How sure"}};
        for (const CatalogueRow* row : rows) {
            const catalogue::Reference& reference = catalogue::reference(row->number);
            lines.push_back({std::to_string(row->number), std::string(reference.id), std::string(row->name),
                             std::string(catalogue::familyName(reference.family)), reference.citation(),
                             std::string(reference.where),
                             std::string(catalogue::confidenceName(reference.confidence))});
        }
        return table(lines);
    }

    // The first line has the headers.
    std::string table(const Lines& lines) const { return formattedTable(lines, m_format); }

    std::string json(const std::vector<const CatalogueRow*>& rows, const classic::Limits& limits) const
    {
        auto root = nlohmann::ordered_json::array();
        for (const CatalogueRow* row : rows) {
            const classic::IndexLimits& bounds = limits.of(row->number);
            nlohmann::ordered_json entry{
                {"number", row->number}, {"name", row->name}, {"unit", row->unit}, {"gate", gate(*row)}};
            auto& names = entry["inputs"] = nlohmann::ordered_json::array();
            for (const catalogue::Input input : row->inputs)
                names.push_back(catalogue::inputName(input));
            if (row->gate == Gate::None)
                entry["limits"] = nullptr;
            else
                entry["limits"] = {{"tair_min", bounds.Tair_min.number},
                                   {"tair_max", bounds.Tair_max.number},
                                   {"ws_min", bounds.WS_min.number},
                                   {"ws_max", bounds.WS_max.number}};
            entry["source"] = row->source();
            if (m_references) {
                const catalogue::Reference& reference = catalogue::reference(row->number);
                entry["id"] = reference.id;
                entry["family"] = catalogue::familyName(reference.family);
                entry["reference"] = {{"authors", reference.authors},
                                      {"year", reference.year},
                                      {"title", reference.title},
                                      {"published", reference.published},
                                      {"note", reference.where},
                                      {"confidence", catalogue::confidenceName(reference.confidence)}};
            }
            root.push_back(std::move(entry));
        }
        return root.dump(2) + "\n";
    }

    std::string m_search;
    std::string m_find;
    std::string m_limitsFile;
    std::string m_format = "text";
    bool m_references = false;
    bool m_models = false;
};

} // namespace

std::unique_ptr<Command> makeListCommand()
{
    return std::make_unique<ListCommand>();
}

} // namespace comfortics::cli
