// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/view.h"

#include "values/plain_text.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>

namespace comfortics::workbench {

namespace {

constexpr std::size_t kRowsBetweenAsking = 1 << 14;

std::optional<double> numberOf(const Field& field, const TableStore& store, std::size_t row)
{
    switch (field.kind) {
    case Field::Kind::Row:
        return static_cast<double>(row);
    case Field::Kind::Time:
        if (const auto time = store.time(row))
            return static_cast<double>(time->seconds);
        return std::nullopt;
    case Field::Kind::Station:
        return static_cast<double>(store.stationNumber(row));
    case Field::Kind::State:
        return static_cast<double>(store.state(row));
    case Field::Kind::Reading:
        return store.reading(row, static_cast<classic::Reading>(field.place));
    case Field::Kind::Figure:
        return store.figure(row, field.place);
    }
    return std::nullopt;
}

bool meets(const Condition& condition, const TableStore& store, std::size_t row)
{
    using Test = Condition::Test;
    switch (condition.test) {
    case Test::Range: {
        const auto value = numberOf(condition.field, store, row);
        return value && (!condition.least || *value >= *condition.least) &&
               (!condition.most || *value <= *condition.most);
    }
    case Test::Period: {
        const auto time = store.time(row);
        return time && (!condition.from || time->seconds >= *condition.from) &&
               (!condition.to || time->seconds < *condition.to);
    }
    case Test::Station:
        return store.station(row) == condition.station;
    case Test::State:
        return store.state(row) == condition.state;
    case Test::Again:
        return store.again(row);
    case Test::Value:
        return numberOf(condition.field, store, row).has_value();
    case Test::Blank:
        return !numberOf(condition.field, store, row);
    case Test::Outcome:
        return store.state(row) == RowState::Calculated &&
               store.outcome(row, condition.field.place) == condition.outcome;
    case Test::Class: {
        const auto meaning = store.meaning(row, condition.field.place);
        const auto scale = catalogue::scale(store.indices()[condition.field.place]).categories;
        return meaning && meaning->category == &scale[condition.place];
    }
    }
    return false;
}

// Stations by their names, not by when they came.
std::vector<double> ranks(const std::vector<std::string>& names)
{
    std::vector<std::size_t> order(names.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&names](std::size_t one, std::size_t other) { return names[one] < names[other]; });
    std::vector<double> result(names.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        result[order[i]] = static_cast<double>(i);
    return result;
}

void sort(View& view, const ViewRequest& request, const std::function<bool()>& goOn)
{
    struct Keyed {
        double key;
        std::uint32_t row;
    };
    const TableStore& store = *request.store;
    const std::vector<double> stationRanks = ranks(store.stations());
    std::vector<Keyed> keyed;
    keyed.reserve(view.rows.size());
    std::vector<std::uint32_t> without;
    for (const std::uint32_t row : view.rows) {
        if (keyed.size() % kRowsBetweenAsking == 0 && !goOn())
            return;
        auto key = numberOf(request.sortBy, store, row);
        if (key && request.sortBy.kind == Field::Kind::Station)
            key = stationRanks[store.stationNumber(row)];
        if (key)
            keyed.push_back({*key, row});
        else
            without.push_back(row);
    }
    // The place in the file decides among equals; so no sort needs a second copy.
    const bool descending = request.descending;
    std::sort(keyed.begin(), keyed.end(), [descending](const Keyed& one, const Keyed& other) {
        if (one.key != other.key)
            return descending ? one.key > other.key : one.key < other.key;
        return one.row < other.row;
    });
    auto to = view.rows.begin();
    for (const Keyed& one : keyed)
        *to++ = one.row;
    std::copy(without.begin(), without.end(), to);
}

std::string dateText(std::int64_t seconds)
{
    std::string text = tables::momentText({seconds, {}});
    text[text.find('T')] = ' ';
    return text.substr(0, text.size() - 3); // without seconds
}

} // namespace

View makeView(const ViewRequest& request, const std::function<bool()>& goOn)
{
    const TableStore& store = *request.store;
    View view;
    view.filtered = !request.conditions.empty();
    for (const Condition& condition : request.conditions)
        view.words += (view.words.empty() ? "" : ", ") + inWords(condition, store);
    if (!view.filtered)
        view.rows.reserve(store.rows());
    for (std::size_t row = 0; row < store.rows(); ++row) {
        if (row % kRowsBetweenAsking == 0 && !goOn())
            return {};
        if (std::all_of(request.conditions.begin(), request.conditions.end(),
                        [&](const Condition& condition) { return meets(condition, store, row); }))
            view.rows.push_back(static_cast<std::uint32_t>(row));
    }
    if (request.sortBy.kind != Field::Kind::Row)
        sort(view, request, goOn);
    else if (request.descending)
        std::reverse(view.rows.begin(), view.rows.end());
    return view;
}

std::string_view stateWord(RowState state)
{
    constexpr std::array<std::string_view, 4> kWords{"calculated", "skipped", "failed", "refused"};
    return kWords[static_cast<std::size_t>(state)];
}

std::string fieldName(const Field& field, const TableStore& store)
{
    switch (field.kind) {
    case Field::Kind::Row:
        return "row";
    case Field::Kind::Time:
        return "time";
    case Field::Kind::Station:
        return "station";
    case Field::Kind::State:
        return "status";
    case Field::Kind::Reading:
        return std::string(classic::kReadingInfo[field.place].symbol());
    case Field::Kind::Figure:
        return std::to_string(store.indices()[field.place]);
    }
    return {};
}

std::string inWords(const Condition& condition, const TableStore& store)
{
    using Test = Condition::Test;
    const std::string name = fieldName(condition.field, store);
    switch (condition.test) {
    case Test::Range:
        if (condition.least && condition.most)
            return name + " from " + values::plainText(*condition.least) + " to " +
                   values::plainText(*condition.most);
        if (condition.least)
            return name + " at least " + values::plainText(*condition.least);
        return condition.most ? name + " at most " + values::plainText(*condition.most)
                              : name + " has a value";
    case Test::Period:
        return (condition.from ? "from " + dateText(*condition.from) : "") +
               (condition.from && condition.to ? " " : "") +
               (condition.to ? "before " + dateText(*condition.to) : "");
    case Test::Station:
        return "station is " + (condition.station.empty() ? "blank" : condition.station);
    case Test::State:
        return std::string(stateWord(condition.state));
    case Test::Again:
        return "calculated again by the robust rules";
    case Test::Value:
        return name + " has a value";
    case Test::Blank:
        return name + " is blank";
    case Test::Outcome:
        return name + ": " + std::string(tables::outcomeWord(condition.outcome));
    case Test::Class:
        return name + ": " +
               std::string(catalogue::scale(store.indices()[condition.field.place])
                               .categories[condition.place]
                               .label);
    }
    return {};
}

} // namespace comfortics::workbench
