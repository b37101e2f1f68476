// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/model_columns.h"
#include "batch/row_runner.h"
#include "batch/table_reader.h"
#include "classic/calculation.h"
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/model_options.h"
#include "cli/reading_options.h"
#include "cli/text_table.h"
#include "output/csv_cell.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <vector>

namespace comfortics::cli {

namespace {

using classic::Calculation;
using classic::RunStatus;
using formulas::kLiveInfo;
using formulas::Live;

const std::string& valueOf(const Calculation& calculation, int index)
{
    return calculation.results.lbl_results[static_cast<std::size_t>(index)].caption();
}

class CalcCommand final : public Command {
public:
    CLI::App* addTo(CLI::App& tool) override
    {
        CLI::App* const command = tool.add_subcommand("calc", "Calculate one set of readings");
        m_readings.addTo(*command);
        m_options.addTo(*command);
        command->add_option("--format", m_format, "Output: text, csv or json")
            ->check(CLI::IsMember({"text", "csv", "json"}))
            ->capture_default_str()
            ->group("Output");
        command->add_flag("--reasons", m_options.reasons, "Say why a value is blank")->group("Output");
        command
            ->add_flag(
                "--categories", m_options.categories,
                "Say the published class of each value, in words and as a severity: 0 no thermal stress, 1 "
                "slight, 2 moderate, 3 strong, 4 extreme, minus for cold")
            ->group("Output");
        command
            ->add_flag("--provenance", m_options.provenance,
                       "Say by which rules the values are, whether limits were kept or ignored, and which "
                       "limit a value lies outside of")
            ->group("Output");
        m_models.addTo(*command, "Inputs of the models that are no readings");
        command->footer(
            "The texts are written to the reading boxes in the order ta, tg, sr, td, rh, ws, as if\n"
            "pasted: what is no number is dropped, and a later member of a pair (globe temperature or\n"
            "solar radiation, dew point or humidity) empties the earlier one.\n"
            "Models read the live quantities, such as Tmrt for tr, and what --with gives.\n"
            "Example: comfortics-cli calc --ta 30 --rh 50 --ws 2 --sr 600");
        return command;
    }

    int run() override
    {
        if (const std::string fault = m_models.fault(); !fault.empty()) {
            std::cerr << "comfortics-cli: " << fault << "\n";
            return kUsage;
        }
        std::optional<batch::ModelColumns> models;
        try {
            models.emplace(m_models.request(), std::vector<std::string>(), batch::ModelExtras());
        } catch (const batch::MalformedTable& error) {
            std::cerr << "comfortics-cli: The readings are rejected: " << error.what() << "\n";
            return kReadingsRejected;
        }
        const classic::Limits limits = m_options.limits();
        batch::MessageKeeper messages;
        Calculation calculation(limits, messages);
        calculation.advice = classic::kTerminalAdvice;
        calculation.assumptions.write(m_options.assumptions());
        calculation.readings.write(m_readings.texts());
        const classic::Settings settings = m_options.settings();

        const RunStatus status =
            calculation.readings.complete() ? calculation.run(settings) : RunStatus::Rejected;
        std::vector<batch::ModelFigures> figures;
        models->calculate(
            {{},
             [&calculation](Live quantity) { return std::string(calculation.liveLabel(quantity).caption()); },
             {},
             status == RunStatus::Ok},
            [&figures](const batch::ModelFigures& ofModel) { figures.push_back(ofModel); });
        if (m_format == "json")
            print(json(calculation, status, settings, messages.texts(), figures));
        else if (status == RunStatus::Ok)
            print(m_format == "csv" ? csv(calculation, settings, figures)
                                    : text(calculation, settings, figures));

        switch (status) {
        case RunStatus::Ok:
            if (m_format != "json")
                for (const std::string& message : messages.texts())
                    std::cerr << "comfortics-cli: " << message << "\n";
            return kDone;
        case RunStatus::Rejected:
            std::cerr << "comfortics-cli: The readings are rejected: " << calculation.readings.whatIsWrong()
                      << ".\n";
            return kReadingsRejected;
        case RunStatus::Failed:
            break;
        }
        std::cerr << "comfortics-cli: " << calculation.failure()->sentence() << "\n";
        return kRunFailed;
    }

private:
    using ModelRows = std::vector<batch::ModelFigures>;

    std::string text(const Calculation& calculation, const classic::Settings& settings,
                     const ModelRows& models) const
    {
        using enum TextTable::Align;
        TextTable live({"Live quantity", "", "Value", "Unit"}, {Left, Left, Right, Left});
        for (std::size_t i = 0; i < kLiveInfo.size(); ++i)
            live.add({std::string(kLiveInfo[i].name), std::string(kLiveInfo[i].symbol),
                      calculation.liveLabel(static_cast<Live>(i)).caption(), std::string(kLiveInfo[i].unit)});

        std::vector<std::string> headers{"No", "Thermal Index", "Value", "Unit"};
        std::vector<TextTable::Align> alignment{Right, Left, Right, Left};
        const auto addColumn = [&](bool wanted, const char* header) {
            if (!wanted)
                return;
            headers.emplace_back(header);
            alignment.push_back(Left);
        };
        addColumn(m_options.categories, "Class");
        addColumn(m_options.reasons, "Why blank");
        addColumn(m_options.provenance, "Outside");
        TextTable results(std::move(headers), std::move(alignment));
        for (const catalogue::CatalogueRow& row : catalogue::rows()) {
            if (!settings.selection.contains(row.number))
                continue;
            std::vector<std::string> cells{std::to_string(row.number), std::string(row.name),
                                           valueOf(calculation, row.number), std::string(row.unit)};
            if (m_options.categories) {
                const auto meaning = calculation.meaning(row.number);
                cells.push_back(meaning ? catalogue::inWords(*meaning) : std::string());
            }
            if (m_options.reasons)
                cells.push_back(calculation.whyBlank(row.number));
            if (m_options.provenance)
                cells.push_back(calculation.whyDoubtful(row.number));
            results.add(std::move(cells));
        }
        std::string ofModels;
        for (const batch::ModelFigures& figures : models) {
            std::vector<std::string> titles{std::string(figures.model->name), "Id", "Value", "Unit"};
            std::vector<TextTable::Align> aligns{Left, Left, Right, Left};
            if (m_options.categories) {
                titles.emplace_back("Class");
                aligns.push_back(Left);
            }
            TextTable table(std::move(titles), std::move(aligns));
            for (std::size_t i = 0; i < figures.results.size(); ++i) {
                const catalogue::AdditionResult& info = figures.model->results[i];
                std::vector<std::string> cells{
                    std::string(info.name), std::string(figures.model->id) + "." + std::string(info.id),
                    catalogue::resultText(*figures.model, i, figures.results), std::string(info.unit)};
                if (m_options.categories)
                    cells.push_back(classInWords(figures, i));
                table.add(std::move(cells));
            }
            ofModels += "\n" + table.text();
            // A mark is part of a figure, whether reasons are asked for or not.
            if (const std::string remarks = figures.remarks(); !remarks.empty())
                ofModels += remarks + "\n";
        }
        const std::string closing =
            m_options.provenance ? "\nCalculated by " + classic::inForce(settings) + ".\n" : "";
        return live.text() + "\n" + results.text() + ofModels + closing;
    }

    static std::string classInWords(const batch::ModelFigures& figures, std::size_t result)
    {
        const catalogue::Category* const category = figures.category(result);
        return category == nullptr ? std::string() : catalogue::inWords({category, category->severity});
    }

    static std::string remark(const batch::ModelFigures& figures, std::size_t result)
    {
        return figures.unreadable.empty()
                   ? catalogue::verdictInWords(*figures.model, figures.verdicts[result], figures.inputs)
                   : figures.unreadable;
    }

    std::string csv(const Calculation& calculation, const classic::Settings& settings,
                    const ModelRows& models) const
    {
        std::string result = "number,name,value,unit";
        if (m_options.categories)
            result += ",category,severity";
        if (m_options.reasons)
            result += ",reason";
        if (m_options.provenance)
            result += ",rules,limits,outside";
        result += "\r\n";
        for (const catalogue::CatalogueRow& row : catalogue::rows()) {
            if (!settings.selection.contains(row.number))
                continue;
            result += std::to_string(row.number);
            for (const std::string_view cell :
                 {row.name, std::string_view(valueOf(calculation, row.number)), row.unit}) {
                result += ',';
                output::appendCsvCell(result, cell);
            }
            if (m_options.categories) {
                const auto meaning = calculation.meaning(row.number);
                result += ',';
                output::appendCsvCell(result, meaning ? meaning->category->label : "");
                result += "," + (meaning ? std::to_string(meaning->severity) : "");
            }
            if (m_options.reasons) {
                result += ',';
                output::appendCsvCell(result, calculation.whyBlank(row.number));
            }
            if (m_options.provenance) {
                result += ',';
                result += classic::ruleName(settings.rules);
                result += ',';
                result += classic::limitsUse(settings);
                result += ',';
                output::appendCsvCell(result, calculation.whyDoubtful(row.number));
            }
            result += "\r\n";
        }
        // Of a model the id stands for the number, and the remark for the reason.
        for (const batch::ModelFigures& figures : models)
            for (std::size_t i = 0; i < figures.results.size(); ++i) {
                const catalogue::AdditionResult& info = figures.model->results[i];
                const catalogue::Category* const category = figures.category(i);
                std::vector<std::string> cells{
                    std::string(figures.model->id) + "." + std::string(info.id),
                    std::string(info.name) + ", " + std::string(figures.model->name),
                    catalogue::plainResult(info, figures.results[i]), std::string(info.unit)};
                if (m_options.categories) {
                    cells.emplace_back(category == nullptr ? "" : category->label);
                    cells.push_back(category == nullptr ? "" : std::to_string(category->severity));
                }
                if (m_options.reasons)
                    cells.push_back(remark(figures, i));
                if (m_options.provenance) // rules and limits are not those of a model
                    cells.insert(cells.end(),
                                 {"", "", figures.standing(i) == "outside" ? remark(figures, i) : ""});
                for (const std::string& cell : cells) {
                    result += &cell == &cells.front() ? "" : ",";
                    output::appendCsvCell(result, cell);
                }
                result += "\r\n";
            }
        return result;
    }

    std::string json(const Calculation& calculation, RunStatus status, const classic::Settings& settings,
                     const std::vector<std::string>& messages, const ModelRows& models) const
    {
        nlohmann::ordered_json root;
        root["status"] = status == RunStatus::Ok         ? "ok"
                         : status == RunStatus::Rejected ? "rejected"
                                                         : "failed";
        if (m_options.provenance) {
            root["rules"] = classic::ruleName(settings.rules);
            root["limits"] = classic::limitsUse(settings);
        }
        auto& boxes = root["boxes"];
        for (std::size_t i = 0; i < classic::kReadingCount; ++i)
            boxes[std::string(classic::kReadingInfo[i].key)] =
                calculation.readings.text(static_cast<classic::Reading>(i));
        auto& live = root["live"];
        for (std::size_t i = 0; i < kLiveInfo.size(); ++i)
            live[std::string(kLiveInfo[i].symbol)] = calculation.liveLabel(static_cast<Live>(i)).caption();
        root["messages"] = messages;
        if (const auto& failure = calculation.failure())
            root["failure"] = {{"where", failure->where}, {"why", failure->why}};
        else
            root["failure"] = nullptr;
        auto& results = root["results"] = nlohmann::ordered_json::array();
        for (const catalogue::CatalogueRow& row : catalogue::rows()) {
            nlohmann::ordered_json entry{{"number", row.number},
                                         {"name", row.name},
                                         {"value", valueOf(calculation, row.number)},
                                         {"unit", row.unit}};
            if (m_options.categories) {
                const auto meaning = calculation.meaning(row.number);
                entry["category"] = nullptr;
                entry["severity"] = nullptr;
                if (meaning) {
                    entry["category"] = meaning->category->label;
                    entry["severity"] = meaning->severity;
                }
            }
            if (m_options.reasons)
                entry["reason"] = calculation.whyBlank(row.number);
            if (m_options.provenance)
                entry["outside"] = calculation.whyDoubtful(row.number);
            results.push_back(std::move(entry));
        }
        for (const batch::ModelFigures& figures : models) {
            nlohmann::ordered_json entry{{"id", figures.model->id}, {"name", figures.model->name}};
            for (std::size_t i = 0; i < figures.results.size(); ++i) {
                const catalogue::AdditionResult& info = figures.model->results[i];
                nlohmann::ordered_json figure{{"id", info.id}, {"name", info.name}, {"unit", info.unit}};
                const catalogue::Choice* const word = catalogue::choiceWith(info.choices, figures.results[i]);
                if (std::isnan(figures.results[i]))
                    figure["value"] = nullptr;
                else if (word != nullptr)
                    figure["value"] = word->word;
                else
                    figure["value"] = figures.results[i];
                figure["status"] = figures.standing(i);
                figure["remark"] = remark(figures, i);
                if (m_options.categories) {
                    const catalogue::Category* const category = figures.category(i);
                    figure["category"] = nullptr;
                    figure["severity"] = nullptr;
                    if (category != nullptr) {
                        figure["category"] = category->label;
                        figure["severity"] = category->severity;
                    }
                }
                entry["results"].push_back(std::move(figure));
            }
            root["models"].push_back(std::move(entry));
        }
        // Texts of the command line may be no UTF-8; they must not end the program.
        return root.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
    }

    ReadingOptions m_readings;
    CalculationOptions m_options;
    ModelOptions m_models;
    std::string m_format = "text";
};

} // namespace

std::unique_ptr<Command> makeCalcCommand()
{
    return std::make_unique<CalcCommand>();
}

} // namespace comfortics::cli
