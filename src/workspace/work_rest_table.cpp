// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/work_rest_table.h"

#include "standards/wbgt_iso7243.h"
#include "standards/work_rest.h"
#include "values/plain_text.h"
#include "workspace/index_sheet.h"
#include "workspace/model_figures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <utility>

namespace comfortics::workspace {

namespace {

using catalogue::Addition;
using values::plainText;

constexpr std::string_view kWbgt = "wbgt_iso7243";
constexpr std::string_view kWorkRest = "work_rest";

enum class Basis : std::uint8_t { TimeWeighted, Capacity, NioshTable };

// An input that rows or columns have of their own.
struct Own {
    std::string_view id;
    double value;
};

class TableMaker {
public:
    TableMaker(const Situation& situation, const FieldTexts& person)
        : m_model(*catalogue::additionOfId(kWorkRest)), m_standing(modelStanding(m_model, situation, person)),
          m_inputs(m_standing.values()), m_basis(basisOf(valueOf("basis"))),
          m_wbgt(modelStanding(*catalogue::additionOfId(kWbgt), situation, person))
    {
    }

    WorkRestTable run()
    {
        m_table.title = m_basis == Basis::TimeWeighted ? "Work and rest in an hour (ISO 7243, NIOSH 2016-106)"
                        : m_basis == Basis::Capacity
                            ? "Work capacity in an hour (Bröde, Fiala, Lemke, Kjellstrom, 2018)"
                            : "Work and rest in an hour (NIOSH 2016-106 and 2017-127)";
        m_table.problem = problem();
        if (!m_table.problem.empty())
            return std::move(m_table);
        if (m_basis == Basis::TimeWeighted)
            m_table.headings = {"acclimatised, min", "not acclimatised, min"};
        else
            m_table.headings = {"work / rest, min"};
        m_table.rowHeading = m_basis == Basis::NioshTable ? "Labour" : "Metabolic rate";
        if (m_basis == Basis::NioshTable)
            addLabours();
        else
            addClasses();
        m_table.assumes = assumes();
        return std::move(m_table);
    }

private:
    std::size_t place(std::string_view id) const { return *m_model.inputPlace(id); }
    double valueOf(std::string_view id) const { return m_inputs[place(id)]; }
    const catalogue::InputInfo& infoOf(std::string_view id) const { return *m_model.inputs[place(id)].info; }

    // What is typed wrongly is told as a problem.
    static Basis basisOf(double value)
    {
        return std::isnan(value) ? Basis::TimeWeighted : static_cast<Basis>(static_cast<int>(value));
    }

    // What rows and columns do not have of their own. The wet-bulb globe temperature follows from the model
    // of ISO 7243, which knows better what it lacks.
    std::string problem() const
    {
        for (std::size_t i = 0; i < m_inputs.size(); ++i) {
            const std::string_view id = m_model.inputs[i].info->id;
            if (id == "metabolic_w" || id == "acclimatised" || id == "labour")
                continue;
            if (!m_standing.inputs[i].problem.empty())
                return id == "wbgt_eff" && !m_wbgt.figures.front().reason.empty()
                           ? m_wbgt.figures.front().reason
                           : m_standing.inputs[i].problem;
        }
        return {};
    }

    WorkRestCell cellOf(std::initializer_list<Own> owns)
    {
        std::vector<double> inputs = m_inputs;
        for (const Own& own : owns)
            inputs[place(own.id)] = own.value;
        std::array<double, catalogue::kMostAdditionResults> results{};
        std::array<standards::Verdict, catalogue::kMostAdditionResults> verdicts{};
        const std::size_t count = m_model.results.size();
        const auto given = std::span(results).first(count);
        m_model.run(inputs, given, std::span(verdicts).first(count));
        // Each sentence once, below the table.
        if (const std::string said = catalogue::verdictInWords(m_model, verdicts.front(), inputs);
            !said.empty() && m_said.find(said) == std::string::npos)
            m_said += " " + said;
        WorkRestCell cell;
        cell.work = catalogue::resultText(m_model, 0, given);
        cell.rest = catalogue::resultText(m_model, 1, given);
        return cell;
    }

    void addClasses()
    {
        const double watts = valueOf("metabolic_w");
        const double acclimatised = valueOf("acclimatised");
        for (std::size_t i = 1; i < standards::kWorkClassRates.size(); ++i) {
            const double rate = standards::kWorkClassRates[i];
            WorkRestRow row;
            row.work = std::string(kClassNames[i]) + ", " + plainText(rate) + " W";
            row.isPresent =
                !std::isnan(watts) && static_cast<std::size_t>(standards::workClassOf(watts)) == i;
            if (m_basis == Basis::Capacity) {
                row.cells.push_back(cellOf({{"metabolic_w", rate}}));
                row.cells.back().isPresent = row.isPresent;
            } else {
                for (const double used : {1.0, 0.0}) {
                    row.cells.push_back(cellOf({{"metabolic_w", rate}, {"acclimatised", used}}));
                    row.cells.back().isPresent = row.isPresent && acclimatised == used;
                }
            }
            m_table.rows.push_back(std::move(row));
        }
    }

    void addLabours()
    {
        for (const catalogue::Choice& choice : infoOf("labour").choices) {
            WorkRestRow row;
            row.work = choice.text;
            row.isPresent = valueOf("labour") == choice.value;
            row.cells.push_back(cellOf({{"labour", choice.value}}));
            row.cells.back().isPresent = row.isPresent;
            m_table.rows.push_back(std::move(row));
        }
    }

    std::string inWords(std::string_view id) const
    {
        return briefly(plainText(valueOf(id))) + " " + std::string(infoOf(id).unit);
    }

    std::string assumes() const
    {
        std::string text =
            "Minutes of work / rest, by " +
            catalogue::inSentence(catalogue::choiceWith(infoOf("basis").choices, valueOf("basis"))->text) +
            ".";
        if (m_basis == Basis::NioshTable)
            text +=
                " Air temperature " + inWords("ta") + ", humidity " + inWords("rh") + ", " +
                std::string(catalogue::choiceWith(infoOf("sunshine").choices, valueOf("sunshine"))->text) +
                ". For ordinary clothing and acclimatised people who drink.";
        else
            text += " Effective WBGT " + inWords("wbgt_eff") + ofClothing() + ", at rest " + restRate() +
                    " W" + (m_basis == Basis::TimeWeighted ? ", " + restPlace() : std::string()) +
                    "; each class with the metabolic rate that ISO 7243 has for it.";
        return text + marked() + m_said;
    }

    // Where it follows from the readings.
    std::string ofClothing() const
    {
        if (m_standing.inputs[place("wbgt_eff")].origin != InputOrigin::Model)
            return " (typed)";
        const std::size_t clothing = *m_wbgt.model->inputPlace("work_clothing");
        return " (of the readings, in " +
               valueInWords(*m_wbgt.model->inputs[clothing].info, m_wbgt.inputs[clothing].value) + ")";
    }

    std::string restRate() const
    {
        const double typed = valueOf("rest_w");
        return plainText(!std::isnan(typed)               ? typed
                         : m_basis == Basis::TimeWeighted ? standards::TimeWeighted().rest
                                                          : standards::Capacity().rest);
    }

    std::string restPlace() const
    {
        return std::isnan(valueOf("wbgt_eff_rest"))
                   ? "where the work is"
                   : "where the effective WBGT is " + inWords("wbgt_eff_rest");
    }

    std::string marked() const
    {
        const bool byLabour = m_basis == Basis::NioshTable;
        const bool isMarked = std::ranges::any_of(m_table.rows, &WorkRestRow::isPresent);
        if (byLabour)
            return isMarked ? " Marked: the labour that is chosen."
                            : " No row is marked: no labour is chosen.";
        const double watts = valueOf("metabolic_w");
        if (std::isnan(watts))
            return " No row is marked: the metabolic rate of the whole body is not known.";
        const std::string rate = inWords("metabolic_w");
        if (!isMarked)
            return " No row is marked: the present metabolic rate, " + rate + ", is that of rest.";
        std::string text = " Marked: the class of the present metabolic rate, " + rate;
        const Figure& work = m_standing.figures[0];
        if (!work.text.empty())
            text += "; that rate itself has " + work.text + " min of work and " + m_standing.figures[1].text +
                    " min of rest";
        return text + ".";
    }

    static constexpr std::array<std::string_view, 5> kClassNames{"rest", "low", "moderate", "high",
                                                                 "very high"};

    const Addition& m_model;
    ModelStanding m_standing;
    std::vector<double> m_inputs;
    Basis m_basis;
    ModelStanding m_wbgt;
    WorkRestTable m_table;
    std::string m_said;
};

} // namespace

bool hasWorkRest(const Item& item)
{
    return item.model() != nullptr && (item.model()->id == kWbgt || item.model()->id == kWorkRest);
}

WorkRestTable workRestTable(const Situation& situation, const FieldTexts& person)
{
    return TableMaker(situation, person).run();
}

} // namespace comfortics::workspace
