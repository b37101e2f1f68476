// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/view.h"

#include "tables/layout.h"
#include "tables/words.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <utility>

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
    case Field::Kind::Carried:
        return tables::cellNumber(store.carried(row)[field.place], store.facts().layout.decimal);
    }
    return std::nullopt;
}

bool hasValue(const Field& field, const TableStore& store, std::size_t row)
{
    return field.kind == Field::Kind::Carried ? !texts::trimmed(store.carried(row)[field.place]).empty()
                                              : numberOf(field, store, row).has_value();
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
        return hasValue(condition.field, store, row);
    case Test::Blank:
        return !hasValue(condition.field, store, row);
    case Test::Is:
        return store.carried(row)[condition.field.place] == condition.text;
    case Test::Holds:
        return tables::folded(store.carried(row)[condition.field.place])
                   .find(tables::folded(condition.text)) != std::string::npos;
    case Test::Outcome:
        return store.state(row) == RowState::Calculated &&
               store.outcome(row, condition.field.place) == condition.outcome;
    case Test::Class:
        return store.classOf(row, condition.field.place) == condition.place;
    case Test::Marked:
        return store.isMarked(row, condition.field.place);
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

struct Keyed {
    double key;
    std::uint32_t row;
};

// The place in the file decides among equals; so no sort needs a second copy.
void sortKeyed(std::vector<Keyed>& keyed, bool descending)
{
    std::sort(keyed.begin(), keyed.end(), [descending](const Keyed& one, const Keyed& other) {
        if (one.key != other.key)
            return descending ? one.key > other.key : one.key < other.key;
        return one.row < other.row;
    });
}

/// Sorts rows by the texts of a carried column. They lie in a file: a few letters of each are held at a time,
/// and where these are the same, the next ones.
class TextSort {
public:
    TextSort(const ViewRequest& request, const std::function<bool()>& goOn) : m_request(request), m_goOn(goOn)
    {
    }

    /// Rows in the order of the file, from `begin` up to `end`; `from`: letters that are the same in all.
    void run(std::vector<std::uint32_t>::iterator begin, std::vector<std::uint32_t>::iterator end,
             std::size_t from = 0)
    {
        std::vector<Letters> letters;
        letters.reserve(static_cast<std::size_t>(end - begin));
        for (auto row = begin; row != end; ++row) {
            if (m_read++ % kRowsBetweenAsking == 0 && !m_goOn())
                return;
            letters.push_back({lettersOf(*row, from), *row});
        }
        std::sort(letters.begin(), letters.end(), [this](const Letters& one, const Letters& other) {
            if (one.letters != other.letters)
                return (one.letters < other.letters) != m_request.descending;
            return one.row < other.row;
        });
        std::transform(letters.begin(), letters.end(), begin, [](const Letters& one) { return one.row; });
        // Texts that go on behind the same letters.
        std::vector<std::pair<std::ptrdiff_t, std::ptrdiff_t>> runs;
        for (std::size_t i = 0, last = 0; i < letters.size(); i = last) {
            while (last < letters.size() && letters[last].letters == letters[i].letters)
                ++last;
            if (last - i > 1 && (letters[i].letters & 0xFFU) != 0 && from + kLetters < kMostLetters)
                runs.emplace_back(i, last);
        }
        letters = {};
        for (const auto& [first, last] : runs)
            run(begin + first, begin + last, from + kLetters);
    }

private:
    static constexpr std::size_t kLetters = 8;
    static constexpr std::size_t kMostLetters = 256; // behind which texts count as the same
    struct Letters {
        std::uint64_t letters;
        std::uint32_t row;
    };

    std::uint64_t lettersOf(std::uint32_t row, std::size_t from) const
    {
        const std::string text = tables::folded(m_request.store->carried(row)[m_request.sortBy.place]);
        std::uint64_t letters = 0;
        for (std::size_t i = from; i < from + kLetters; ++i)
            letters = letters << 8U | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
        return letters;
    }

    const ViewRequest& m_request;
    const std::function<bool()>& m_goOn;
    std::size_t m_read = 0;
};

// Numbers, then texts, then blanks; downward texts, numbers, blanks.
void sortCarried(View& view, const ViewRequest& request, const std::function<bool()>& goOn)
{
    const TableStore& store = *request.store;
    std::vector<Keyed> numbers;
    std::vector<std::uint32_t> words;
    std::vector<std::uint32_t> blanks;
    std::size_t read = 0;
    for (const std::uint32_t row : view.rows) {
        if (read++ % kRowsBetweenAsking == 0 && !goOn())
            return;
        if (const auto number = numberOf(request.sortBy, store, row))
            numbers.push_back({*number, row});
        else
            (hasValue(request.sortBy, store, row) ? words : blanks).push_back(row);
    }
    sortKeyed(numbers, request.descending);
    TextSort(request, goOn).run(words.begin(), words.end());
    auto to = view.rows.begin();
    if (request.descending)
        to = std::copy(words.begin(), words.end(), to);
    for (const Keyed& one : numbers)
        *to++ = one.row;
    if (!request.descending)
        to = std::copy(words.begin(), words.end(), to);
    std::copy(blanks.begin(), blanks.end(), to);
}

void sort(View& view, const ViewRequest& request, const std::function<bool()>& goOn)
{
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
    sortKeyed(keyed, request.descending);
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
    if (view.filtered)
        view.ascending = std::make_shared<const std::vector<std::uint32_t>>(view.rows);
    if (request.sortBy.kind == Field::Kind::Carried)
        sortCarried(view, request, goOn);
    else if (request.sortBy.kind != Field::Kind::Row)
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

std::string columnId(const workspace::Item& item)
{
    return item.model() == nullptr ? std::to_string(item.index()) : item.id();
}

std::string columnTitle(const workspace::Item& item)
{
    return columnId(item) + " " + item.name();
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
        return columnId(store.items()[field.place]);
    case Field::Kind::Carried:
        return store.facts().carried[field.place].heading();
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
    case Test::Is:
        return name + " is " + condition.text;
    case Test::Holds:
        return name + " holds " + condition.text;
    case Test::Class:
        return name + ": " + std::string(store.items()[condition.field.place].classNames()[condition.place]);
    case Test::Marked:
        return name + " outside of its range";
    }
    return {};
}

} // namespace comfortics::workbench
