// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/additions.h"
#include "cli/commands.h"
#include "cli/exit_status.h"
#include "cli/model_lists.h"
#include "cli/person_options.h"
#include "cli/text_table.h"
#include "output/csv_cell.h"
#include "standards/wbgt_iso7243.h"
#include "values/plain_text.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace comfortics::cli {

namespace {

using catalogue::Addition;
using catalogue::AdditionInput;
using catalogue::AdditionResult;
using catalogue::InputInfo;
using catalogue::Need;
using standards::Reason;
using standards::Verdict;
using values::plainText;

/// Ends the command with a sentence and a status.
struct Refusal {
    int status;
    std::string sentence;
};

std::string optionName(const InputInfo& input)
{
    std::string name = "--" + std::string(input.id);
    std::ranges::replace(name, '_', '-');
    return name;
}

std::string optionHelp(const InputInfo& input)
{
    std::string help(input.name);
    if (!input.unit.empty())
        help += " [" + std::string(input.unit) + "]";
    for (const catalogue::Choice& choice : input.choices)
        help += (&choice == &input.choices.front() ? ": " : ", ") + std::string(choice.word);
    return help;
}

std::string_view groupName(catalogue::InputGroup group)
{
    using enum catalogue::InputGroup;
    switch (group) {
    case Weather:
        return "Weather";
    case Person:
        return "Person";
    case Place:
        return "Place and time";
    case Own:
        break;
    }
    return "Of single models";
}

std::string_view standingName(standards::Standing standing)
{
    constexpr std::array<std::string_view, 3> kNames{"ok", "outside", "none"};
    return kNames[static_cast<std::size_t>(standing)];
}

/// The number that is typed for an input, in the order of additionInputs(); NaN for none.
double typedNumber(const std::vector<std::string>& typed, std::string_view id)
{
    const auto all = catalogue::additionInputs();
    const auto found = std::ranges::find(all, id, [](const InputInfo* input) { return input->id; });
    if (found == all.end())
        return standards::kNaN;
    return catalogue::inputValue(**found, typed[static_cast<std::size_t>(found - all.begin())])
        .value_or(standards::kNaN);
}

/// One point of a model: what was typed, what is taken for the rest, and what follows.
class Point {
public:
    Point(const Addition& model, const std::vector<std::string>& typed, const PersonOptions& person,
          standards::Limits limits)
        : m_model(model), m_limits(limits)
    {
        const auto all = catalogue::additionInputs();
        for (std::size_t i = 0; i < all.size(); ++i)
            if (!typed[i].empty() && !model.inputPlace(all[i]->id) && !person.convertsBy(model, all[i]->id))
                throw Refusal{kUsage, std::string(model.id) + " has no input " + optionName(*all[i]) +
                                          " (comfortics-cli model " + std::string(model.id) +
                                          " --describe shows those that it has)."};
        for (const AdditionInput& input : model.inputs) {
            const auto place = static_cast<std::size_t>(std::ranges::find(all, input.info) - all.begin());
            m_typed.push_back(!typed[place].empty());
            inputs.push_back(m_typed.back() ? read(input, typed[place]) : input.start);
        }
        m_origins.resize(inputs.size());
        take(person, [&](std::string_view id) {
            const auto own = model.inputPlace(id);
            return own ? inputs[*own] : typedNumber(typed, id);
        });
        refuseIncomplete();
        results.resize(model.results.size());
        verdicts.resize(model.results.size());
        calculate();
    }

    void calculate() { m_model.run(inputs, results, verdicts, m_limits); }

    /// What stands beside an input that was not typed; empty where it was.
    std::string origin(std::size_t place) const
    {
        const AdditionInput& input = m_model.inputs[place];
        if (!m_model.isRead(place, inputs))
            return "not read";
        if (m_typed[place])
            return m_origins[place];
        return input.need == Need::Start ? "start: " + std::string(input.startSource)
                                         : "without: " + std::string(input.without);
    }
    bool typed(std::size_t place) const { return m_typed[place]; }

    std::string inputText(std::size_t place) const
    {
        const InputInfo& info = *m_model.inputs[place].info;
        if (std::isnan(inputs[place]))
            return {};
        const catalogue::Choice* const choice = catalogue::choiceWith(info.choices, inputs[place]);
        return choice == nullptr ? plainText(inputs[place]) : std::string(choice->word);
    }
    std::string remark(std::size_t result) const
    {
        return catalogue::verdictInWords(m_model, verdicts[result], inputs);
    }
    /// The published class of a value inside the range; null without.
    const catalogue::Category* category(std::size_t result) const
    {
        if (verdicts[result].standing != standards::Standing::Ok)
            return nullptr;
        return catalogue::scaleOf(m_model.results[result]).of(results[result]);
    }

    standards::Limits limits() const { return m_limits; }

    std::vector<double> inputs;
    std::vector<double> results;
    std::vector<Verdict> verdicts;

private:
    static double read(const AdditionInput& input, const std::string& text)
    {
        if (const auto value = catalogue::inputValue(*input.info, text))
            return *value;
        std::string sentence = "\"" + text + "\" is no " + (input.isOption() ? "word" : "number") + " for " +
                               optionName(*input.info);
        for (const catalogue::Choice& choice : input.info->choices)
            if (input.knows(choice))
                sentence += (sentence.ends_with(optionName(*input.info)) ? ", which knows " : ", ") +
                            std::string(choice.word);
        throw Refusal{kReadingsRejected, "The readings are rejected: " + sentence + "."};
    }

    // What is picked stands as if it were typed.
    void take(const PersonOptions& person, const PersonOptions::NumberOf& number)
    {
        try {
            const std::vector<std::string> unread = person.unreadBy(m_model);
            if (!unread.empty())
                throw Refusal{kUsage, std::string(m_model.id) + " does not read " + unread.front() + "."};
            for (const PersonOptions::Told& told : person.toldTo(m_model, number)) {
                const std::size_t place = *m_model.inputPlace(told.input->id);
                if (m_typed[place])
                    throw std::invalid_argument(told.option + " and " + optionName(*told.input) +
                                                " are both given, one stands for the other");
                m_typed[place] = true;
                m_origins[place] = told.origin;
                inputs[place] = told.value;
            }
        } catch (const std::invalid_argument& error) {
            throw Refusal{kReadingsRejected, "The readings are rejected: " + std::string(error.what()) + "."};
        }
    }

    void refuseIncomplete() const
    {
        for (std::size_t i = 0; i < inputs.size(); ++i) {
            const AdditionInput& input = m_model.inputs[i];
            const std::string name = optionName(*input.info);
            if (!m_typed[i] && m_model.isRequired(i, inputs))
                throw Refusal{kReadingsRejected, "The readings are rejected: " + std::string(m_model.id) +
                                                     " needs the " + inWords(*input.info) + " (" + name +
                                                     ")."};
            if (!m_typed[i] || input.unless.empty())
                continue;
            const std::size_t other = *m_model.inputPlace(input.unless);
            if (m_typed[other])
                throw Refusal{kReadingsRejected, "The readings are rejected: " + name + " and " +
                                                     optionName(*m_model.inputs[other].info) +
                                                     " are both given, one stands for the other."};
        }
    }

    static std::string inWords(const InputInfo& input)
    {
        return catalogue::inSentence(input.name) +
               (input.unit.empty() ? std::string() : " in " + std::string(input.unit));
    }

    const Addition& m_model;
    standards::Limits m_limits;
    std::vector<bool> m_typed;
    std::vector<std::string> m_origins; ///< of what is picked
};

/// Minutes and their figures.
struct Course {
    std::size_t minutes = 0;
    std::vector<double> rows;
};

void appendCells(std::string& line, const std::vector<std::string>& cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i) {
        line += i == 0 ? "" : ",";
        output::appendCsvCell(line, cells[i]);
    }
    line += "\r\n";
}

nlohmann::ordered_json numberOrNull(double value)
{
    return std::isnan(value) ? nlohmann::ordered_json() : nlohmann::ordered_json(value);
}

/// Work and rest for the classes of the metabolic rate, as ISO 7243 has them, but that of rest.
struct WorkClassRow {
    const char* name;
    double watts;
};
constexpr auto& kRates = standards::kWorkClassRates;
constexpr std::array<WorkClassRow, 4> kWorkClasses{
    {{"low", kRates[1]}, {"moderate", kRates[2]}, {"high", kRates[3]}, {"very high", kRates[4]}}};

class ModelCommand final : public Command {
public:
    CLI::App* addTo(CLI::App& tool) override
    {
        CLI::App* const command = tool.add_subcommand(
            "model", "Calculate a model of a standard, such as PMV, SET, PET or heat strain");
        command->add_option("ID", m_id, "The model, for instance pmv_iso");
        command->add_flag("--list", m_list, "List the models");
        command->add_option("--find", m_find, "List those with all words of TEXT, the best first")
            ->type_name("TEXT");
        command->add_flag("--describe", m_describe,
                          "Show inputs, units, ranges, start values, results and literature of the model");
        command
            ->add_option("--limits", m_limits,
                         "Values beyond the range of the model: mark, or blank for none")
            ->check(CLI::IsMember({"mark", "blank"}))
            ->capture_default_str();
        command->add_flag("--course", m_course, "Show each minute, where the model has a course");
        command->add_flag("--table", m_table,
                          "Of work_rest: a table for the classes of the metabolic rate in place of one rate");
        command->add_option("--format", m_format, "Output: text, csv or json")
            ->check(CLI::IsMember({"text", "csv", "json"}))
            ->capture_default_str();
        const auto all = catalogue::additionInputs();
        m_typed.resize(all.size());
        for (std::size_t i = 0; i < all.size(); ++i)
            command->add_option(optionName(*all[i]), m_typed[i], optionHelp(*all[i]))
                ->type_name("TEXT")
                ->group(std::string(groupName(all[i]->group)));
        m_person.addPicksTo(*command);
        m_person.addTablesTo(*command);
        command->footer("What is left out has the start value of the model, or the model does without it;\n"
                        "both are shown. What has neither has to be given.\n"
                        "Example: comfortics-cli model pmv_iso --ta 26 --tr 26 --v 0.15 --rh 50 --met 1.2 "
                        "--clo 0.5");
        return command;
    }

    int run() override
    {
        try {
            return carriedOut();
        } catch (const Refusal& refusal) {
            std::cerr << "comfortics-cli: " << refusal.sentence << "\n";
            return refusal.status;
        }
    }

private:
    int carriedOut()
    {
        if (m_list || !m_find.empty()) {
            print(modelList(modelsFound(m_find), m_format));
            return kDone;
        }
        if (m_person.asksForTables()) {
            print(m_person.tables(m_format));
            return kDone;
        }
        if (m_id.empty() && m_person.any()) {
            print(figuresOfPerson());
            return kDone;
        }
        if (m_id.empty())
            throw Refusal{kUsage, "model needs the ID of a model, or --list."};
        const Addition* const model = catalogue::additionOfId(m_id);
        if (model == nullptr) {
            std::string meant;
            for (const std::string& text : catalogue::additionFinder().didYouMean(m_id))
                meant += (meant.empty() ? "; did you mean " : " or ") + text;
            throw Refusal{kUsage, "There is no model \"" + m_id + "\"" + meant +
                                      " (comfortics-cli model --list shows all)."};
        }
        if (m_describe) {
            print(modelDescription(*model, m_format));
            return kDone;
        }
        if (m_course && model->course == nullptr)
            throw Refusal{kUsage, m_id + " has no course."};
        if (m_table && m_id != "work_rest")
            throw Refusal{kUsage, "--table is for work_rest alone."};
        const standards::Limits limits =
            m_limits == "blank" ? standards::Limits::Blank : standards::Limits::Mark;
        if (m_table) {
            print(workRestTable(*model, limits));
            return kDone;
        }
        const Point point(*model, m_typed, m_person, limits);
        refuseWithoutValue(*model, point);
        std::optional<Course> course;
        if (m_course)
            course = courseOf(*model, point);
        if (m_format == "json")
            print(json(*model, point, course));
        else if (m_format == "csv")
            print(course ? courseCsv(*model, *course) : csv(*model, point));
        else
            print(text(*model, point, course));
        return kDone;
    }

    // What is beyond the range, or needs no clothing, is an answer. An input that cannot be is none.
    static void refuseWithoutValue(const Addition& model, const Point& point)
    {
        if (std::ranges::any_of(point.results, [](double value) { return !std::isnan(value); }))
            return;
        switch (point.verdicts[0].reason) {
        case Reason::Missing:
        case Reason::BeyondPhysics:
            throw Refusal{kReadingsRejected, "The readings are rejected: " + point.remark(0)};
        case Reason::NoRoot:
        case Reason::Undefined:
            throw Refusal{kRunFailed, std::string(model.id) + ": " + point.remark(0)};
        default:
            break;
        }
    }

    static Course courseOf(const Addition& model, const Point& point)
    {
        Course course{.minutes = model.course->minutes(point.inputs), .rows = {}};
        course.rows.resize(course.minutes * model.course->figures.size());
        model.runCourse(point.inputs, course.rows, point.limits());
        return course;
    }

    static std::string text(const Addition& model, const Point& point, const std::optional<Course>& course)
    {
        using enum TextTable::Align;
        TextTable inputs({"Input", "Id", "Value", "Unit", "Note"}, {Left, Left, Right, Left, Left});
        for (std::size_t i = 0; i < model.inputs.size(); ++i) {
            const InputInfo& info = *model.inputs[i].info;
            inputs.add({std::string(info.name), std::string(info.id), point.inputText(i),
                        std::string(info.unit), point.origin(i)});
        }
        TextTable results({"Result", "Id", "Value", "Unit", "Class", "Remark"},
                          {Left, Left, Right, Left, Left, Left});
        for (std::size_t i = 0; i < model.results.size(); ++i) {
            const AdditionResult& info = model.results[i];
            const catalogue::Category* const category = point.category(i);
            results.add({std::string(info.name), std::string(info.id),
                         catalogue::resultText(model, i, point.results), std::string(info.unit),
                         category == nullptr ? std::string() : std::string(category->label),
                         point.remark(i)});
        }
        std::string text = std::string(model.name) + "\n\n" + inputs.text() + "\n" + results.text();
        if (course)
            text += "\n" + courseText(model, *course);
        return text;
    }

    static std::string courseText(const Addition& model, const Course& course)
    {
        using enum TextTable::Align;
        std::vector<std::string> headers{"Minute"};
        std::vector<TextTable::Align> alignment{Right};
        const auto figures = model.course->figures;
        for (const AdditionResult& figure : figures) {
            headers.push_back(headed(figure));
            alignment.push_back(Right);
        }
        TextTable table(headers, alignment);
        for (std::size_t minute = 0; minute < course.minutes; ++minute) {
            std::vector<std::string> cells{std::to_string(minute + 1)};
            for (std::size_t i = 0; i < figures.size(); ++i)
                cells.push_back(catalogue::resultText(figures[i], course.rows[minute * figures.size() + i]));
            table.add(std::move(cells));
        }
        return table.text();
    }

    static std::string headed(const AdditionResult& figure)
    {
        return std::string(figure.id) +
               (figure.unit.empty() ? std::string() : " [" + std::string(figure.unit) + "]");
    }

    static std::string csv(const Addition& model, const Point& point)
    {
        std::string lines = "id,name,value,unit,status,category,remark\r\n";
        for (std::size_t i = 0; i < model.results.size(); ++i) {
            const AdditionResult& info = model.results[i];
            const catalogue::Category* const category = point.category(i);
            appendCells(lines, {std::string(info.id), std::string(info.name),
                                catalogue::plainResult(info, point.results[i]), std::string(info.unit),
                                std::string(standingName(point.verdicts[i].standing)),
                                category == nullptr ? std::string() : std::string(category->label),
                                point.remark(i)});
        }
        return lines;
    }

    static std::string courseCsv(const Addition& model, const Course& course)
    {
        std::vector<std::string> cells{"minute"};
        const auto figures = model.course->figures;
        for (const AdditionResult& figure : figures)
            cells.push_back(headed(figure));
        std::string lines;
        appendCells(lines, cells);
        for (std::size_t minute = 0; minute < course.minutes; ++minute) {
            cells = {std::to_string(minute + 1)};
            for (std::size_t i = 0; i < figures.size(); ++i)
                cells.push_back(catalogue::plainResult(figures[i], course.rows[minute * figures.size() + i]));
            appendCells(lines, cells);
        }
        return lines;
    }

    std::string json(const Addition& model, const Point& point, const std::optional<Course>& course) const
    {
        nlohmann::ordered_json root{{"model", model.id}, {"name", model.name}, {"limits", m_limits}};
        auto& inputs = root["inputs"] = nlohmann::ordered_json::array();
        for (std::size_t i = 0; i < model.inputs.size(); ++i) {
            const InputInfo& info = *model.inputs[i].info;
            nlohmann::ordered_json entry{
                {"id", info.id}, {"value", numberOrNull(point.inputs[i])}, {"unit", info.unit}};
            if (!info.choices.empty())
                entry["word"] = point.inputText(i);
            entry["given"] = point.typed(i);
            entry["note"] = point.origin(i);
            inputs.push_back(std::move(entry));
        }
        auto& results = root["results"] = nlohmann::ordered_json::array();
        for (std::size_t i = 0; i < model.results.size(); ++i) {
            const AdditionResult& info = model.results[i];
            nlohmann::ordered_json entry{{"id", info.id},
                                         {"name", info.name},
                                         {"value", numberOrNull(point.results[i])},
                                         {"unit", info.unit}};
            if (!info.choices.empty())
                entry["word"] = catalogue::plainResult(info, point.results[i]);
            entry["status"] = standingName(point.verdicts[i].standing);
            const catalogue::Category* const category = point.category(i);
            entry["category"] = nullptr;
            entry["severity"] = nullptr;
            if (category != nullptr) {
                entry["category"] = category->label;
                entry["severity"] = category->severity;
            }
            entry["remark"] = point.remark(i);
            results.push_back(std::move(entry));
        }
        if (course) {
            auto& minutes = root["course"] = nlohmann::ordered_json::array();
            const auto figures = model.course->figures;
            for (std::size_t minute = 0; minute < course->minutes; ++minute) {
                nlohmann::ordered_json entry{{"minute", minute + 1}};
                for (std::size_t i = 0; i < figures.size(); ++i)
                    entry[std::string(figures[i].id)] =
                        numberOrNull(course->rows[minute * figures.size() + i]);
                minutes.push_back(std::move(entry));
            }
        }
        return root.dump(2) + "\n";
    }

    std::string figuresOfPerson() const
    {
        const auto number = [this](std::string_view id) { return typedNumber(m_typed, id); };
        try {
            return m_person.figures(catalogue::bodyOf(number), m_format);
        } catch (const std::invalid_argument& error) {
            throw Refusal{kReadingsRejected, "The readings are rejected: " + std::string(error.what()) + "."};
        }
    }

    // For the acclimatised and for others, where the basis makes a difference.
    std::string workRestTable(const Addition& model, standards::Limits limits)
    {
        const auto all = catalogue::additionInputs();
        const auto textOf = [&](std::string_view id) -> std::string& {
            const auto found = std::ranges::find(all, id, [](const InputInfo* input) { return input->id; });
            return m_typed[static_cast<std::size_t>(found - all.begin())];
        };
        for (const std::string_view id : {"metabolic_w", "acclimatised"})
            if (!textOf(id).empty())
                throw Refusal{kUsage, "--table has rows for each " + std::string(id) + " of its own."};
        const InputInfo& basis = *catalogue::additionInputOfId("basis");
        const std::string& typedBasis = textOf("basis");
        const double chosen = typedBasis.empty() ? 0 : catalogue::inputValue(basis, typedBasis).value_or(0);
        if (chosen == 2)
            throw Refusal{kUsage, "--table is for the bases twa and capacity."};
        const std::string wbgt = textOf("wbgt_eff");
        std::vector<std::vector<std::string>> lines{
            {"Metabolic rate", "W", "Acclimatised", "Work [min/h]", "Rest [min/h]", "Remark"}};
        for (const WorkClassRow& row : kWorkClasses)
            for (const char* acclimatised : {"yes", "no"}) {
                if (chosen == 1 && std::string_view(acclimatised) == "no")
                    continue; // the basis does not know them
                textOf("metabolic_w") = plainText(row.watts);
                textOf("acclimatised") = acclimatised;
                const Point point(model, m_typed, m_person, limits);
                const bool none = point.verdicts[0].reason == Reason::Missing ||
                                  point.verdicts[0].reason == Reason::BeyondPhysics;
                if (none)
                    refuseWithoutValue(model, point);
                lines.push_back({row.name, plainText(row.watts), acclimatised,
                                 catalogue::resultText(model, 0, point.results),
                                 catalogue::resultText(model, 1, point.results), point.remark(0)});
            }
        const std::string title = "By " + std::string(catalogue::choiceWith(basis.choices, chosen)->text) +
                                  ", effective WBGT " + wbgt + " °C";
        if (m_format == "json") {
            nlohmann::ordered_json root{{"basis", title}, {"rows", nlohmann::ordered_json::array()}};
            for (std::size_t i = 1; i < lines.size(); ++i) {
                nlohmann::ordered_json entry;
                for (std::size_t column = 0; column < lines[i].size(); ++column)
                    entry[lines[0][column]] = lines[i][column];
                root["rows"].push_back(std::move(entry));
            }
            return root.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
        }
        if (m_format == "csv") {
            std::string text;
            for (const auto& line : lines)
                appendCells(text, line);
            return text;
        }
        using enum TextTable::Align;
        TextTable table(lines[0], {Left, Right, Left, Right, Right, Left});
        for (std::size_t i = 1; i < lines.size(); ++i)
            table.add(lines[i]);
        return title + "\n\n" + table.text();
    }

    std::string m_id;
    std::string m_find;
    bool m_list = false;
    bool m_describe = false;
    bool m_course = false;
    bool m_table = false;
    std::string m_limits = "mark";
    std::string m_format = "text";
    PersonOptions m_person;
    std::vector<std::string> m_typed; ///< in the order of additionInputs()
};

} // namespace

std::unique_ptr<Command> makeModelCommand()
{
    return std::make_unique<ModelCommand>();
}

} // namespace comfortics::cli
