// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/mapping.h"

#include "batch/column_map.h"
#include "catalogue/additions.h"
#include "catalogue/rates.h"
#include "tables/names.h"
#include "tables/words.h"
#include "texts/number_text.h"
#include "texts/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace comfortics::tables {

using texts::lowered;
using texts::trimmed;

namespace {

constexpr std::array<std::string_view, 14> kRoleNames{
    "carried",     "dropped", "reading",         "time",   "year",   "month",   "day",
    "day of year", "hour",    "hour and minute", "minute", "second", "station", "input"};

// Text up to the next mark that is no letter; a backslash takes the mark behind it for one.
std::string upTo(std::string_view& rest, std::string_view marks, char& mark)
{
    std::string text;
    mark = 0;
    std::size_t at = 0;
    for (; at < rest.size(); ++at) {
        if (rest[at] == '\\' && at + 1 < rest.size()) {
            text += rest[++at];
        } else if (marks.find(rest[at]) != std::string_view::npos) {
            mark = rest[at];
            break;
        } else {
            text += rest[at];
        }
    }
    rest.remove_prefix(std::min(rest.size(), at + 1));
    return text;
}

[[noreturn]] void fail(const std::string& sentence)
{
    throw TableFault(sentence);
}

std::string columnOf(const std::string& called, const Layout& layout)
{
    std::string name(trimmed(called));
    if (std::find(layout.names.begin(), layout.names.end(), name) != layout.names.end())
        return name;
    if (name.starts_with('#')) {
        std::size_t number = 0;
        const auto [end, error] = std::from_chars(name.data() + 1, name.data() + name.size(), number);
        if (error == std::errc() && end == name.data() + name.size() && number >= 1 &&
            number <= layout.columns())
            return layout.names[number - 1];
    }
    for (const std::string& other : layout.names)
        if (folded(other) == folded(name))
            return other;
    fail("The table has no column \"" + name + "\".");
}

// "10m" of a wind, "600s", "10min" or "1h" of a dose.
void readBehindAt(const std::string& text, ColumnUse& use)
{
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const std::string_view unit = std::string_view(text).substr(static_cast<std::size_t>(end - text.data()));
    if (error == std::errc() && number > 0 && std::isfinite(number)) {
        if (use.quantity == Quantity::WS && unit == "m") {
            use.height = number;
            return;
        }
        const double seconds = unit == "s" ? 1 : unit == "min" ? 60 : unit == "h" ? 3600 : 0;
        if (use.quantity == Quantity::SR && seconds > 0) {
            use.step = number * seconds;
            return;
        }
    }
    fail("\"@" + text +
         "\" is neither the height of a wind, as @10m, nor the step of a radiation, as @10min.");
}

class TextMapping {
public:
    TextMapping(std::string_view text, const Layout& layout) : m_rest(text), m_layout(layout) {}

    Mapping run()
    {
        while (!m_rest.empty()) {
            char mark = 0;
            const std::string key = lowered(trimmed(upTo(m_rest, "=,", mark)));
            if (mark != '=')
                fail("\"" + key + "\" stands without a column; write " + std::string(key).append("=COLUMN."));
            std::string_view value = m_rest;
            // Up to the comma that ends it.
            std::size_t end = 0;
            while (end < m_rest.size() && m_rest[end] != ',')
                end += m_rest[end] == '\\' ? 2U : 1U;
            end = std::min(end, m_rest.size());
            value = m_rest.substr(0, end);
            m_rest.remove_prefix(std::min(m_rest.size(), end + 1));
            read(key, value);
        }
        if (m_mapping.columns.empty())
            fail("No column is told.");
        m_mapping.fingerprint = fingerprintOf(m_layout);
        return std::move(m_mapping);
    }

private:
    ColumnUse& add(const std::string& called, Role role)
    {
        ColumnUse use;
        use.column = columnOf(called, m_layout);
        if (m_mapping.find(use.column) != nullptr)
            fail("The column \"" + use.column + "\" is told twice.");
        use.role = role;
        m_mapping.columns.push_back(std::move(use));
        return m_mapping.columns.back();
    }

    void read(const std::string& key, std::string_view value)
    {
        char mark = 0;
        if (const auto quantity = quantityOfKey(key)) {
            readReading(*quantity, value);
        } else if (key == "order") {
            const auto order = orderOfName(value);
            if (!order)
                fail("\"" + std::string(value) + "\" is no order of a date: ymd, dmy or mdy.");
            m_mapping.order = *order;
        } else if (key == "zone") {
            m_mapping.zone = readOffset(value);
            if (!m_mapping.zone)
                fail("\"" + std::string(value) + "\" is no zone of time, such as UTC or +02:00.");
        } else if (key == "gap") {
            m_mapping.gaps.push_back(upTo(value, "", mark));
        } else if (const auto role = key == "drop" ? Role::Dropped : roleOfName(key);
                   role && *role != Role::Reading && *role != Role::Carried && *role != Role::Input) {
            do
                add(upTo(value, *role == Role::Time || *role == Role::Dropped ? "+" : "", mark), *role);
            while (mark != 0);
        } else if (const catalogue::InputInfo* const input = catalogue::additionInputOfId(key)) {
            for (const ColumnUse& other : m_mapping.columns)
                if (other.input == key)
                    fail("Two columns are told to be the input " + key + ".");
            ColumnUse& use = add(upTo(value, ":", mark), Role::Input);
            use.input = key;
            if (mark == ':')
                use.unit = upTo(value, "", mark);
            if (const std::string fault = faultOfInputUnit(*input, use.unit); !fault.empty())
                fail(fault + ".");
        } else {
            fail("\"" + key + "\" is nothing that a column can be.");
        }
    }

    void readReading(Quantity quantity, std::string_view value)
    {
        for (const ColumnUse& other : m_mapping.columns)
            if (other.role == Role::Reading && other.quantity == quantity)
                fail("Two columns are told to be the " + std::string(infoOf(quantity).name) + ".");
        char mark = 0;
        std::string name = upTo(value, ":@", mark);
        ColumnUse& use = add(name, Role::Reading);
        use.quantity = quantity;
        if (mark == ':') {
            const std::string unit = upTo(value, "@", mark);
            const std::string_view symbol = unitSymbol(unit);
            use.unit = symbol.empty() ? unit : std::string(symbol);
        } else {
            use.unit = infoOf(quantity).unit;
        }
        if (mark == '@')
            readBehindAt(upTo(value, "", mark), use);
        if (!UnitWay::find(quantity, use.unit, use.step))
            fail(isDose(use.unit) && quantity == Quantity::SR
                     ? "The radiation in " + use.unit + " needs the step over which it is summed, as " +
                           use.unit + "@10min."
                     : "\"" + use.unit + "\" is no unit of the " + std::string(infoOf(quantity).name) + ".");
    }

    std::string_view m_rest;
    const Layout& m_layout;
    Mapping m_mapping;
};

} // namespace

std::string faultOfInputUnit(const catalogue::InputInfo& input, const std::string& unit)
{
    if (unit.empty() || catalogue::valueInUnit(input, "1 " + unit))
        return {};
    const std::string known = catalogue::unitsOfColumnsInWords(input);
    return "\"" + unit + "\" is no unit in which a column can give " + std::string(input.id) +
           (known.empty() ? "" : ": " + known);
}

std::string_view roleName(Role role)
{
    return kRoleNames[static_cast<std::size_t>(role)];
}

std::optional<Role> roleOfName(std::string_view name)
{
    return valueOfName<Role>(kRoleNames, name);
}

bool isTimeRole(Role role)
{
    return role == Role::Time || (role >= Role::Year && role <= Role::Second);
}

const ColumnUse* Mapping::find(std::string_view column) const
{
    for (const ColumnUse& use : columns)
        if (use.column == column)
            return &use;
    return nullptr;
}

std::string fingerprintOf(const Layout& layout)
{
    std::uint64_t sum = 0xcbf29ce484222325U; // FNV-1a
    const auto add = [&sum](std::string_view text) {
        for (const char c : text)
            sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3U;
        sum = (sum ^ 0xFFU) * 0x100000001b3U; // parts one text from the next
    };
    add(layout.kind == FileKind::Epw ? "epw" : "table");
    for (std::size_t i = 0; i < layout.columns(); ++i) {
        add(folded(layout.names[i]));
        add(folded(layout.units[i]));
    }
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    for (int shift = 60; shift >= 0; shift -= 4)
        text += kDigits[sum >> static_cast<unsigned>(shift) & 0xFU];
    return text;
}

const Mapping* recognised(const Layout& layout, const std::vector<Mapping>& known)
{
    const std::string fingerprint = fingerprintOf(layout);
    for (const Mapping& mapping : known)
        if (mapping.fingerprint == fingerprint || mapping.guessedFingerprint == fingerprint)
            return &mapping;
    return nullptr;
}

std::vector<std::string> doubtsOf(const Mapping& mapping)
{
    std::vector<std::string> all = mapping.doubts;
    for (const ColumnUse& use : mapping.columns)
        if (!use.doubt.empty())
            all.push_back("\"" + use.column + "\": " + use.doubt);
    return all;
}

std::optional<Mapping> plainMapping(const OpenTable& table)
{
    Mapping mapping;
    mapping.fingerprint = fingerprintOf(table.layout);
    std::array<bool, kQuantityCount> has{};
    for (std::size_t i = 0; i < table.layout.columns(); ++i) {
        const std::string& name = table.layout.names[i];
        ColumnUse use;
        use.column = name;
        const std::string plain = lowered(trimmed(name));
        for (std::size_t r = 0; r < classic::kReadingCount; ++r) {
            const classic::ReadingInfo& info = classic::kReadingInfo[r];
            const bool named = table.layout.header
                                   ? plain == lowered(info.symbol()) || plain == lowered(info.key) ||
                                         plain == lowered(batch::sheetHeader(info))
                                   : i == r && table.layout.columns() >= classic::kReadingCount;
            if (!named || (table.layout.header && !table.layout.units[i].empty() &&
                           plain != lowered(batch::sheetHeader(info)) &&
                           unitSymbol(table.layout.units[i]) != kQuantityInfo[r].unit))
                continue;
            use.role = Role::Reading;
            use.quantity = static_cast<Quantity>(r);
            use.unit = kQuantityInfo[r].unit;
            has[r] = true;
        }
        mapping.columns.push_back(std::move(use));
    }
    const auto given = [&has](Quantity quantity) { return has[static_cast<std::size_t>(quantity)]; };
    const bool complete = given(Quantity::Ta) && (given(Quantity::Tg) || given(Quantity::SR)) &&
                          (given(Quantity::Td) || given(Quantity::RH)) && given(Quantity::WS);
    return complete ? std::optional(mapping) : std::nullopt;
}

Mapping mappingOfText(std::string_view text, const Layout& layout)
{
    return TextMapping(text, layout).run();
}

} // namespace comfortics::tables
