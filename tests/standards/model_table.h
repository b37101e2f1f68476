// SPDX-License-Identifier: GPL-3.0-or-later
//
// Tables of what the models answer: a row has the model, its inputs and what is expected. An input is a
// number in its place or "name=value". An expectation is "figure=text", with as many decimals as are printed,
// "figure=number~tolerance", or a verdict, which is "ok" unless said: "outside:ta", "missing:RH" and so on,
// of a part "part/outside:ta". In a name a point stands for a blank.
#pragma once

#include "shown_value.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <vector>

namespace comfortics::tests {

struct Answer {
    std::map<std::string, double> figures; ///< NaN wherever the verdict is none
    standards::Verdict verdict{};
    std::map<std::string, double> facts{}; ///< such as a class, which has no NaN
    std::map<std::string, standards::Verdict> parts{};
};

/// Figures by the names in a text.
template <typename... Values>
std::map<std::string, double> named(const std::string& names, Values... values)
{
    std::istringstream words(names);
    std::map<std::string, double> all;
    std::string name;
    ((words >> name, all[name] = static_cast<double>(values)), ...);
    return all;
}

/// The inputs of a row.
class GivenInputs {
public:
    explicit GivenInputs(const std::string& text)
    {
        std::istringstream words(text);
        for (std::string word; words >> word;)
            if (const std::size_t at = word.find('='); at != std::string::npos)
                m_named[word.substr(0, at)] = word.substr(at + 1);
            else
                m_placed.push_back(word);
    }

    /// Numbers in the order of the row's places; what is not given keeps its default.
    template <typename... Values>
    void take(const std::string& names, Values&... places)
    {
        std::istringstream words(names);
        std::size_t place = 0;
        const auto next = [&](auto& value) {
            std::string name;
            words >> name;
            if (place < m_placed.size())
                m_named.emplace(name, m_placed[place]);
            ++place;
            if (const auto given = taken(name))
                write(value, *given);
        };
        (next(places), ...);
        EXPECT_LE(m_placed.size(), place);
    }

    template <typename Choice>
    void choose(const std::string& name, Choice& choice,
                const std::vector<std::pair<std::string, Choice>>& words)
    {
        if (const auto given = taken(name)) {
            bool known = false;
            for (const auto& [word, meant] : words)
                if (word == *given) {
                    choice = meant;
                    known = true;
                }
            EXPECT_TRUE(known) << name << " " << *given;
        }
    }

    /// Names that no model has asked for are slips of the table.
    bool allTaken() const { return m_named.empty(); }

private:
    std::optional<std::string> taken(const std::string& name)
    {
        const auto found = m_named.extract(name);
        return found.empty() ? std::nullopt : std::optional(found.mapped());
    }
    template <typename Value>
    static void write(Value& place, const std::string& text)
    {
        if constexpr (std::is_same_v<Value, double> || std::is_same_v<Value, std::optional<double>>)
            place = text == "none" ? standards::kNaN : std::stod(text);
        else
            place = static_cast<Value>(std::stoi(text));
    }

    std::vector<std::string> m_placed;
    std::map<std::string, std::string> m_named;
};

using Model = std::function<Answer(GivenInputs& inputs, standards::Limits limits)>;

inline standards::Verdict verdictOf(const std::string& text)
{
    using enum standards::Reason;
    static const std::map<std::string, standards::Reason> reasons{
        {"missing", Missing},     {"physics", BeyondPhysics}, {"noroot", NoRoot},
        {"undefined", Undefined}, {"spare", HeatToSpare},     {"unlimited", Unlimited},
        {"norest", NoRestHere},   {"horizon", BelowHorizon},  {"beyond", BeyondRange}};
    static std::set<std::string> names; // a verdict does not hold its own
    const std::size_t at = text.find(':');
    if (at == std::string::npos)
        return {};
    std::string name = text.substr(at + 1);
    std::replace(name.begin(), name.end(), '.', ' ');
    const std::string_view about = *names.insert(name).first;
    return text.starts_with("outside") ? outside(about) : none(reasons.at(text.substr(0, at)), about);
}

inline void expectRow(const Model& model, const std::string& inputs, const std::string& expected)
{
    const auto answer = [&](standards::Limits limits) {
        GivenInputs given(inputs);
        Answer found = model(given, limits);
        EXPECT_TRUE(given.allTaken());
        return found;
    };
    const Answer marked = answer(standards::Limits::Mark);
    standards::Verdict verdict;
    std::istringstream words(expected);
    for (std::string word; words >> word;) {
        const std::size_t at = word.find('=');
        if (at == std::string::npos) {
            const std::size_t part = word.find('/');
            if (part == std::string::npos)
                verdict = verdictOf(word);
            else
                EXPECT_EQ(marked.parts.at(word.substr(0, part)), verdictOf(word.substr(part + 1))) << word;
            continue;
        }
        const std::string name = word.substr(0, at);
        const std::string text = word.substr(at + 1);
        const double value = marked.figures.contains(name) ? marked.figures.at(name) : marked.facts.at(name);
        if (const std::size_t within = text.find('~'); within != std::string::npos)
            EXPECT_NEAR(value, std::stod(text), std::stod(text.substr(within + 1))) << name;
        else
            EXPECT_EQ(shownLike(value, text), text) << name;
    }
    EXPECT_EQ(marked.verdict, verdict);

    // Where limits blank, what was marked has no value, and nothing else has changed.
    const Answer blanked = answer(standards::Limits::Blank);
    const bool isOut = verdict.standing == standards::Standing::Outside;
    if (isOut)
        EXPECT_EQ(blanked.verdict, none(standards::Reason::BeyondRange, verdict.about));
    else
        EXPECT_EQ(blanked.verdict.standing, verdict.standing);
    for (const auto& [name, value] : marked.figures) {
        const double otherwise = blanked.figures.at(name);
        EXPECT_TRUE(verdict.hasValue() || value != value) << name << " without a value is " << value;
        EXPECT_TRUE(isOut ? otherwise != otherwise : otherwise == value || value != value) << name;
    }
}

struct TableRow {
    std::string model, inputs, expected;
};

inline std::vector<TableRow> tableRows(const std::string& path)
{
    std::ifstream file(path);
    EXPECT_TRUE(file) << path;
    std::vector<TableRow> rows;
    for (std::string line; std::getline(file, line);)
        if (!line.empty() && line.front() != '#') {
            const std::size_t first = line.find(',');
            const std::size_t second = line.find(',', first + 1);
            rows.push_back(
                {line.substr(0, first), line.substr(first + 1, second - first - 1), line.substr(second + 1)});
        }
    return rows;
}

/// Holds each row of the file against its model, and each model against a row or more.
inline void expectTable(const std::string& path, const std::map<std::string, Model>& models)
{
    std::set<std::string> held;
    for (const auto& [model, inputs, expected] : tableRows(path)) {
        SCOPED_TRACE(testing::Message() << model << ',' << inputs << ',' << expected);
        ASSERT_TRUE(models.contains(model));
        expectRow(models.at(model), inputs, expected);
        held.insert(model);
    }
    EXPECT_EQ(held.size(), models.size());
}

} // namespace comfortics::tests
