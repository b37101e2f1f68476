// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/model_lists.h"

#include "cli/text_table.h"
#include "output/csv_cell.h"
#include "values/plain_text.h"

#include <nlohmann/json.hpp>

#include <iostream>

namespace comfortics::cli {

using catalogue::Addition;
using catalogue::AdditionInput;
using catalogue::AdditionResult;
using catalogue::Need;

namespace {

std::string requiredInputs(const Addition& model)
{
    std::string text;
    for (const AdditionInput& input : model.inputs)
        if (input.need == Need::Required)
            text += (text.empty() ? "" : ", ") + std::string(input.info->id);
    return text;
}

std::string words(const AdditionInput& input)
{
    std::string text;
    for (const catalogue::Choice& choice : input.info->choices)
        if (input.knows(choice))
            text += (text.empty() ? "" : ", ") + std::string(choice.word);
    return text;
}

std::string startText(const AdditionInput& input)
{
    if (input.need != Need::Start)
        return {};
    const catalogue::Choice* const choice = catalogue::choiceWith(input.info->choices, input.start);
    return choice == nullptr ? values::plainText(input.start) : std::string(choice->word);
}

/// What is to be known of an input besides.
std::string note(const AdditionInput& input)
{
    std::string text;
    const auto add = [&text](const std::string& part) { text += (text.empty() ? "" : "; ") + part; };
    if (!input.startSource.empty())
        add(std::string(input.startSource));
    if (!input.without.empty())
        add("without: " + std::string(input.without));
    if (!input.unless.empty())
        add("not with " + std::string(input.unless));
    if (!input.onlyFor.empty())
        add("read or not by " + std::string(input.onlyFor));
    return text;
}

std::string validity(const AdditionInput& input)
{
    return input.isOption() ? words(input) : catalogue::rangeInWords(input.range, input.info->unit);
}

nlohmann::ordered_json choicesJson(std::span<const catalogue::Choice> choices, const AdditionInput* input)
{
    auto all = nlohmann::ordered_json::array();
    for (const catalogue::Choice& choice : choices)
        if (input == nullptr || input->knows(choice))
            all.push_back({{"value", choice.value}, {"word", choice.word}, {"text", choice.text}});
    return all;
}

nlohmann::ordered_json inputJson(const AdditionInput& input)
{
    nlohmann::ordered_json entry{{"id", input.info->id},     {"name", input.info->name},
                                 {"unit", input.info->unit}, {"low", input.range.low},
                                 {"high", input.range.high}, {"required", input.need == Need::Required},
                                 {"start", nullptr},         {"start_source", input.startSource},
                                 {"without", input.without}, {"not_with", input.unless},
                                 {"read_by", input.onlyFor}};
    if (input.need == Need::Start)
        entry["start"] = input.start;
    if (input.isOption())
        entry["choices"] = choicesJson(input.info->choices, &input);
    return entry;
}

nlohmann::ordered_json modelJson(const Addition& model)
{
    nlohmann::ordered_json entry{{"id", model.id},
                                 {"name", model.name},
                                 {"authors", model.authors},
                                 {"year", model.year},
                                 {"family", catalogue::familyName(model.family)},
                                 {"description", model.description},
                                 {"warnings", model.warnings},
                                 {"references", model.references},
                                 {"has_course", model.course != nullptr}};
    auto& inputs = entry["inputs"] = nlohmann::ordered_json::array();
    for (const AdditionInput& input : model.inputs)
        inputs.push_back(inputJson(input));
    auto& results = entry["results"] = nlohmann::ordered_json::array();
    for (const AdditionResult& result : model.results) {
        nlohmann::ordered_json one{{"id", result.id}, {"name", result.name}, {"unit", result.unit}};
        if (!result.choices.empty())
            one["choices"] = choicesJson(result.choices, nullptr);
        results.push_back(std::move(one));
    }
    return entry;
}

} // namespace

void sayNothingFound(const catalogue::Finder& finder, std::string_view text)
{
    std::string meant;
    for (const std::string& guess : finder.didYouMean(text))
        meant += (meant.empty() ? " Did you mean " : " or ") + guess;
    std::cerr << "comfortics-cli: Nothing found." << meant << (meant.empty() ? "" : "?") << '\n';
}

std::vector<const Addition*> modelsFound(const std::string& text)
{
    std::vector<const Addition*> found;
    for (const std::size_t place : catalogue::additionFinder().find(text))
        found.push_back(&catalogue::additions()[place]);
    if (found.empty())
        sayNothingFound(catalogue::additionFinder(), text);
    return found;
}

std::string formattedTable(const std::vector<std::vector<std::string>>& lines, std::string_view format)
{
    using enum TextTable::Align;
    const std::vector<std::string>& headers = lines.front();
    if (format == "text") {
        std::vector<TextTable::Align> aligns(headers.size(), Left);
        aligns.front() = headers.front() == "No" ? Right : Left;
        TextTable result(headers, aligns);
        for (std::size_t i = 1; i < lines.size(); ++i)
            result.add(lines[i]);
        return result.text();
    }
    const bool markdown = format == "markdown";
    std::string result;
    const auto addLine = [&result, markdown](const std::vector<std::string>& line) {
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (markdown) {
                std::string cell = line[i];
                for (std::size_t at = 0; (at = cell.find('|', at)) != std::string::npos; at += 2)
                    cell.insert(at, 1, '\\');
                result += (i == 0 ? "| " : " ") + cell + " |";
            } else {
                result += i == 0 ? "" : ",";
                output::appendCsvCell(result, line[i]);
            }
        }
        result += markdown ? "\n" : "\r\n";
    };
    addLine(headers);
    if (markdown) {
        for (std::size_t i = 0; i < headers.size(); ++i)
            result += i > 0 ? "---|" : headers.front() == "No" ? "|---:|" : "|---|";
        result += "\n";
    }
    for (std::size_t i = 1; i < lines.size(); ++i)
        addLine(lines[i]);
    return result;
}

std::string modelList(const std::vector<const Addition*>& models, std::string_view format)
{
    if (format == "json") {
        auto root = nlohmann::ordered_json::array();
        for (const Addition* model : models)
            root.push_back(modelJson(*model));
        return root.dump(2) + "\n";
    }
    std::vector<std::vector<std::string>> lines{{"Id", "Model", "Family", "Required inputs", "Main result"}};
    for (const Addition* model : models) {
        const AdditionResult& main = model->results.front();
        lines.push_back({std::string(model->id), std::string(model->name),
                         std::string(catalogue::familyName(model->family)), requiredInputs(*model),
                         std::string(main.name) +
                             (main.unit.empty() ? std::string() : " [" + std::string(main.unit) + "]")});
    }
    return formattedTable(lines, format);
}

std::string modelDescription(const Addition& model, std::string_view format)
{
    if (format == "json")
        return modelJson(model).dump(2) + "\n";
    std::vector<std::vector<std::string>> inputs{{"Id", "Input", "Unit", "Range", "Start", "Note"}};
    for (const AdditionInput& input : model.inputs)
        inputs.push_back({std::string(input.info->id), std::string(input.info->name),
                          std::string(input.info->unit), validity(input),
                          input.need == Need::Required ? "required" : startText(input), note(input)});
    if (format == "csv")
        return formattedTable(inputs, format);
    std::vector<std::vector<std::string>> results{{"Id", "Result", "Unit"}};
    for (const AdditionResult& result : model.results)
        results.push_back({std::string(result.id), std::string(result.name), std::string(result.unit)});
    std::string text = std::string(model.name) + "\n" + std::string(model.description) + "\n\n" +
                       formattedTable(inputs, format) + "\n" + formattedTable(results, format) + "\n";
    for (const std::string_view warning : model.warnings)
        text += "Mind: " + std::string(warning) + ".\n";
    for (const std::string_view reference : model.references)
        text += "Literature: " + std::string(reference) + ".\n";
    return text;
}

} // namespace comfortics::cli
