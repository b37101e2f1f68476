// SPDX-License-Identifier: GPL-3.0-or-later
#include "workspace/comparison_table.h"

#include "output/csv_cell.h"
#include "texts/number_text.h"
#include "workspace/index_sheet.h"

#include <algorithm>
#include <functional>

namespace comfortics::workspace {

using formulas::Live;
using enum ComparisonColumnKind;

namespace {

constexpr int kMostDecimals = 5; // the radiant temperature's caption has up to 14

/// The present first.
using Situations = std::vector<const Situation*>;
/// One value for each situation.
using Cells = std::vector<ComparisonCell>;

ComparisonCell textCell(std::string text, std::string note = {})
{
    ComparisonCell cell;
    cell.shown = text;
    cell.text = std::move(text);
    cell.note = std::move(note);
    return cell;
}

int decimalsOf(const std::string& text)
{
    const std::size_t point = text.find_first_of(".,");
    return point == std::string::npos ? 0 : static_cast<int>(text.size() - point - 1);
}

std::string differenceText(double difference, const std::string& a, const std::string& b)
{
    const int decimals = std::min(std::max(decimalsOf(a), decimalsOf(b)), kMostDecimals);
    std::string text = texts::format(difference, {decimals, 1});
    const bool positive = texts::val(text) > 0;
    return (positive ? "+" : "") + text;
}

ComparisonCell differenceOf(const ComparisonCell& present, const ComparisonCell& pinned)
{
    ComparisonCell cell;
    if (present.number && pinned.number) {
        const double difference = *present.number - *pinned.number;
        cell.number = difference;
        cell.shown = differenceText(difference, present.shown, pinned.shown);
        cell.text = differenceText(difference, present.text, pinned.text);
    } else if (present.note == kAwaited || pinned.note == kAwaited) {
        cell.note = kAwaited;
    } else if (!present.text.empty() || !pinned.text.empty()) {
        if (!present.number && present.text.empty())
            cell.note = "No difference: at present there is no value. " + present.note;
        else if (!pinned.number && pinned.text.empty())
            cell.note = "No difference: what is pinned has no value. " + pinned.note;
    }
    return cell;
}

ComparisonCell classOf(const ComparisonCell& value)
{
    ComparisonCell cell;
    if (value.meaning) {
        cell = textCell(catalogue::inWords(*value.meaning), value.note);
        cell.meaning = value.meaning;
    }
    return cell;
}

ComparisonCell liveCell(const Situation& situation, Live quantity)
{
    const LiveFigure& live = situation.liveFigure(quantity);
    ComparisonCell cell = textCell(live.text);
    cell.shown = briefly(live.text);
    cell.number = live.number;
    if (live.text.empty())
        cell.note = situation.problem.empty() ? "It has no value for these readings." : situation.problem;
    return cell;
}

// As typed, or as derived from the others.
ComparisonCell readingCell(const Situation& situation, std::size_t reading)
{
    const std::string& typed = situation.inputs.readings[reading];
    if (typed.empty()) {
        ComparisonCell cell = liveCell(situation, classic::kReadingInfo[reading].live);
        if (!cell.text.empty())
            cell.note = "Derived, " + cell.text + ".";
        return cell;
    }
    ComparisonCell cell = textCell(typed, "As typed.");
    cell.number = texts::numericValue(typed);
    return cell;
}

ComparisonCell itemCell(const Situation& situation, const FieldTexts& person, const Item& item)
{
    const ItemFigure at = itemFigure(item, situation, person);
    const Figure& figure = at.figure;
    ComparisonCell cell = textCell(figure.text, figure.text.empty() ? figure.reason : figure.doubt);
    cell.number = figure.number;
    cell.meaning = figure.meaning;
    cell.doubtful = !figure.doubt.empty();
    if (cell.note.empty() && figure.meaning)
        cell.note = catalogue::meaningNote(item.scaleIndex(), *figure.meaning);
    if (figure.number && !at.assumed.empty())
        cell.note += (cell.note.empty() ? "" : " ") + at.assumed;
    if (item.model() != nullptr && !item.model()->results[item.result()].choices.empty())
        cell.number.reset(); // words have no difference
    return cell;
}

class Builder {
public:
    Builder(const Situation& present, const Comparison& comparison, bool withClasses)
        : m_withClasses(withClasses), m_situations{&present}
    {
        for (std::size_t i = 0; i < comparison.count(); ++i)
            m_situations.push_back(&comparison.situation(i));

        add(Quantity, {}, "Quantity", "Quantity", {});
        add(Unit, {}, "Unit", "Unit", {});
        add(Value, {}, "Now", "Now", "What the readings come to that stand in the window");
        if (withClasses)
            add(Class, {}, "Class now", "Class", "The class of the present value");
        for (std::size_t i = 0; i < comparison.count(); ++i) {
            const Pin& pin = comparison.pin(i);
            add(Value, i, pin.name, pin.name, "Pinned " + pin.time);
            add(Difference, i, "Now less " + pin.name, "Difference",
                "The present value less that of " + pin.name + ", before either was rounded");
            if (withClasses)
                add(Class, i, "Class of " + pin.name, "Class", "The class of the value of " + pin.name);
        }
    }

    /// A row that `cellOf` tells for each situation.
    void addRow(std::string_view name, std::string_view unit,
                const std::function<ComparisonCell(const Situation&, std::size_t place)>& cellOf,
                const std::optional<Item>& item = std::nullopt)
    {
        Cells cells;
        for (std::size_t i = 0; i < m_situations.size(); ++i)
            cells.push_back(cellOf(*m_situations[i], i));
        ComparisonRow row;
        row.item = item;
        row.cells.push_back(textCell(std::string(name)));
        row.cells.push_back(textCell(std::string(unit)));
        for (std::size_t i = 0; i < cells.size(); ++i) {
            row.cells.push_back(cells[i]);
            if (i > 0)
                row.cells.push_back(differenceOf(cells[0], cells[i]));
            if (m_withClasses)
                row.cells.push_back(classOf(cells[i]));
        }
        m_table.rows.push_back(std::move(row));
    }

    bool differ(const std::function<const std::string&(const Situation&)>& textOf) const
    {
        return std::any_of(m_situations.begin(), m_situations.end(), [&](const Situation* situation) {
            return textOf(*situation) != textOf(*m_situations.front());
        });
    }

    ComparisonTable take() { return std::move(m_table); }

private:
    void add(ComparisonColumnKind kind, std::optional<std::size_t> pin, std::string heading,
             std::string brief, std::string note)
    {
        m_table.columns.push_back({kind, pin, std::move(heading), std::move(brief), std::move(note)});
    }

    bool m_withClasses;
    Situations m_situations;
    ComparisonTable m_table;
};

template <class Append>
std::string lines(const ComparisonTable& table, char separator, const char* end, Append append)
{
    std::string text;
    const auto addLine = [&](const auto& cells, const auto& textOf) {
        bool first = true;
        for (const auto& cell : cells) {
            if (!first)
                text += separator;
            first = false;
            append(text, textOf(cell));
        }
        text += end;
    };
    addLine(table.columns, [](const ComparisonColumn& column) { return column.heading; });
    for (const ComparisonRow& row : table.rows)
        addLine(row.cells, [](const ComparisonCell& cell) { return cell.text; });
    return text;
}

} // namespace

ComparisonTable comparisonTable(const Situation& present, const Comparison& comparison,
                                const std::vector<Item>& items)
{
    const bool withClasses =
        std::any_of(items.begin(), items.end(), [](const Item& item) { return item.scaleIndex() != 0; });
    Builder builder(present, comparison, withClasses);
    std::vector<FieldTexts> persons{comparison.workspace().person.texts()};
    for (std::size_t i = 0; i < comparison.count(); ++i)
        persons.push_back(comparison.pin(i).person);
    if (comparison.count() > 0)
        builder.addRow("Pinned", {}, [&](const Situation&, std::size_t place) {
            return place == 0 ? textCell({}, "The present situation is not pinned.")
                              : textCell(comparison.pin(place - 1).time);
        });
    builder.addRow("Calculated by", {}, [](const Situation& situation, std::size_t) {
        return textCell(classic::inForce(situation.inputs.settings), situation.problem);
    });
    for (std::size_t i = 0; i < classic::kAssumptionCount; ++i) {
        const classic::AssumptionInfo& info = classic::kAssumptionInfo[i];
        if (!builder.differ([i](const Situation& situation) -> auto& {
                return situation.inputs.assumptions[i];
            }))
            continue;
        std::string_view name = info.heading;
        name.remove_suffix(name.ends_with(':') ? 1 : 0);
        builder.addRow(name, info.unit, [i](const Situation& situation, std::size_t) {
            ComparisonCell cell = textCell(situation.inputs.assumptions[i], "An assumption, as typed.");
            cell.number = texts::numericValue(cell.text);
            return cell;
        });
    }
    for (const Field& field : fields()) {
        const auto typed = [&](std::size_t place) {
            const auto found = persons[place].find(field.info->id);
            return found == persons[place].end() ? std::string() : found->second;
        };
        bool differs = false;
        for (std::size_t place = 1; place < persons.size(); ++place)
            differs = differs || typed(place) != typed(0);
        if (differs)
            builder.addRow(field.info->name, field.info->unit, [&](const Situation&, std::size_t place) {
                ComparisonCell cell = textCell(typed(place), "Person and place, as typed.");
                cell.number = texts::numericValue(cell.text);
                return cell;
            });
    }
    for (std::size_t i = 0; i < classic::kReadingCount; ++i)
        builder.addRow(classic::kReadingInfo[i].heading, classic::kReadingInfo[i].unit(),
                       [i](const Situation& situation, std::size_t) { return readingCell(situation, i); });
    for (std::size_t i = classic::kReadingCount; i < formulas::kLiveCount; ++i)
        builder.addRow(formulas::kLiveInfo[i].name, formulas::kLiveInfo[i].unit,
                       [i](const Situation& situation, std::size_t) {
                           return liveCell(situation, static_cast<Live>(i));
                       });
    for (const Item& item : items)
        builder.addRow(
            item.name(), item.unit(),
            [&](const Situation& situation, std::size_t place) {
                return itemCell(situation, persons[place], item);
            },
            item);
    return builder.take();
}

ComparisonTable partOf(const ComparisonTable& table, const std::set<ComparisonPlace>& cells)
{
    std::set<std::size_t> rows;
    std::set<std::size_t> columns{0, 1}; // quantities and units
    for (const auto& [row, column] : cells) {
        rows.insert(row);
        columns.insert(column);
        const ComparisonColumn& chosen = table.columns.at(column);
        for (std::size_t i = 0; chosen.kind == Value && i < table.columns.size(); ++i)
            if (table.columns[i].kind == Class && table.columns[i].pin == chosen.pin)
                columns.insert(i);
    }
    ComparisonTable part;
    for (const std::size_t column : columns)
        part.columns.push_back(table.columns.at(column));
    for (const std::size_t row : rows) {
        ComparisonRow& taken = part.rows.emplace_back();
        taken.item = table.rows.at(row).item;
        for (const std::size_t column : columns)
            taken.cells.push_back(table.rows.at(row).cells.at(column));
    }
    return part;
}

std::string plainTable(const ComparisonTable& table)
{
    return lines(table, '\t', "\n", [](std::string& text, std::string cell) {
        std::replace_if(
            cell.begin(), cell.end(), [](char c) { return c == '\t' || c == '\n' || c == '\r'; }, ' ');
        text += cell;
    });
}

std::string csvTable(const ComparisonTable& table)
{
    return lines(table, ',', "\r\n",
                 [](std::string& text, const std::string& cell) { output::appendCsvCell(text, cell); });
}

} // namespace comfortics::workspace
