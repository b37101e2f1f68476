// SPDX-License-Identifier: GPL-3.0-or-later
#include "tables/row_mapper.h"

#include "formulas/measured_wind.h"
#include "formulas/primitives.h"
#include "texts/number_text.h"
#include "texts/text.h"
#include "values/plain_text.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace comfortics::tables {

using texts::lowered;
using texts::trimmed;

namespace {

constexpr std::int64_t kDay = 86400; // [s]
constexpr double kBoxSteps = 10000;  // decimals of what is converted, as a power of 10

} // namespace

RowMapper::RowMapper(const Mapping& mapping, const Layout& layout, std::string_view friction)
    : m_names(layout.names), m_gaps(mapping.gaps), m_order(mapping.order), m_zone(mapping.zone),
      m_decimal(layout.decimal), m_hourEnds(layout.kind == FileKind::Epw)
{
    for (const ColumnUse& use : mapping.columns)
        if (std::find(m_names.begin(), m_names.end(), use.column) == m_names.end() &&
            use.role != Role::Carried && use.role != Role::Dropped)
            throw TableFault("The table has no column \"" + use.column + "\", which the mapping names.");
    std::vector<TimeSource> texts;
    for (std::size_t i = 0; i < m_names.size(); ++i) {
        const ColumnUse* const use = mapping.find(m_names[i]);
        const Role role = use != nullptr ? use->role : Role::Carried;
        m_uses.push_back(use != nullptr ? *use : ColumnUse());
        if (role == Role::Station)
            m_station = i;
        if (role != Role::Dropped)
            m_carried.push_back(i);
        if (role != Role::Reading)
            continue;
        Source source;
        source.column = i;
        source.quantity = use->quantity;
        source.gaps = use->gaps;
        const auto way = UnitWay::find(use->quantity, use->unit, use->step);
        if (!way)
            throw TableFault("\"" + use->unit + "\" is no unit of the " +
                             std::string(infoOf(use->quantity).name) + ".");
        source.way = *way;
        if (use->height > 0 && use->height != formulas::kWindHeight) {
            const auto exponent = texts::numericValue(friction);
            if (!exponent)
                throw TableFault(
                    "The wind at " + values::plainText(use->height) +
                    " m cannot be taken to the height of the box: the exponent of its profile is no "
                    "number.");
            source.share = formulas::windShareOf(use->height, *exponent);
        }
        m_sources.push_back(std::move(source));
    }
    // Times are joined in the order of the mapping, which need not be that of the file.
    for (const ColumnUse& use : mapping.columns) {
        if (!isTimeRole(use.role))
            continue;
        const auto place = std::find(m_names.begin(), m_names.end(), use.column) - m_names.begin();
        m_times.push_back({static_cast<std::size_t>(place), use.role});
        m_timeParts = m_timeParts || use.role == Role::Year;
    }
    if (m_timeParts) {
        const auto rank = [](const TimeSource& source) {
            return source.role == Role::Time ? static_cast<int>(Role::Second) + 1
                                             : static_cast<int>(source.role);
        };
        std::stable_sort(
            m_times.begin(), m_times.end(),
            [&rank](const TimeSource& one, const TimeSource& other) { return rank(one) < rank(other); });
        // With a text among them they are read as one text, the year in front.
        m_timeParts = m_times.back().role != Role::Time;
    }
    if (m_sources.empty())
        throw TableFault("The mapping tells no reading.");
}

bool RowMapper::isGap(std::string_view cell, const std::vector<std::string>& gaps) const
{
    const auto means = [&](const std::string& gap) {
        if (cell == gap)
            return true;
        const auto value = cellNumber(gap, '.');
        return value && value == cellNumber(cell, m_decimal);
    };
    return isUsualGap(cell) || std::any_of(gaps.begin(), gaps.end(), means) ||
           std::any_of(m_gaps.begin(), m_gaps.end(), means);
}

void RowMapper::map(const Row& row, MappedRow& result) const
{
    for (std::string& reading : result.readings)
        reading.clear();
    result.time.reset();
    result.refused = row.refused;
    if (result.refused.empty())
        takeTime(row, result);
    for (const Source& source : m_sources)
        if (result.refused.empty())
            takeReading(source, row, result);
    if (!result.refused.empty())
        for (std::string& reading : result.readings)
            reading.clear();
    // The boxes hold one of each pair, that which is written last.
    const auto reading = [&result](Quantity quantity) -> std::string& {
        return result.readings[static_cast<std::size_t>(quantity)];
    };
    if (!reading(Quantity::SR).empty())
        reading(Quantity::Tg).clear();
    if (!reading(Quantity::RH).empty())
        reading(Quantity::Td).clear();
}

std::vector<std::string> RowMapper::inputNames() const
{
    std::vector<std::string> names(m_names.size());
    const auto isTaken = [&names](const std::string& name) {
        return std::find(names.begin(), names.end(), name) != names.end();
    };
    for (std::size_t i = 0; i < names.size(); ++i) {
        const ColumnUse& use = m_uses[i];
        if (use.role == Role::Input)
            names[i] = use.input;
        else if (use.role == Role::Reading && use.quantity != Quantity::Ea)
            names[i] = infoOf(use.quantity).key;
    }
    for (std::size_t i = 0; i < names.size(); ++i)
        if (const std::string own = lowered(trimmed(m_names[i]));
            m_uses[i].role != Role::Input && m_uses[i].role != Role::Reading && !isTaken(own))
            names[i] = own;
    return names;
}

std::string RowMapper::inputText(std::size_t column, const catalogue::InputInfo& input, const Row& row,
                                 const MappedRow& mapped) const
{
    const ColumnUse& use = m_uses[column];
    if (use.role == Role::Reading)
        return mapped.readings[static_cast<std::size_t>(use.quantity)];
    const std::string_view cell = trimmed(row.cells[column]);
    std::string text(cell);
    if (catalogue::choiceOf(input.choices, cell))
        return text; // "none" can be a word
    if (isGap(cell, use.gaps))
        return {};
    if (m_decimal == ',' && cellNumber(cell, ','))
        std::replace(text.begin(), text.end(), ',', '.');
    if (use.role == Role::Input && !use.unit.empty() && cellNumber(text, '.'))
        text += " " + use.unit;
    return text;
}

void RowMapper::takeReading(const Source& source, const Row& row, MappedRow& result) const
{
    const std::string_view cell = trimmed(row.cells[source.column]);
    if (isGap(cell, source.gaps))
        return;
    const auto number = cellNumber(cell, m_decimal);
    if (!number) {
        result.refused = "\"" + std::string(cell.substr(0, 40)) + "\" in the column \"" +
                         m_names[source.column] + "\" is no number";
        return;
    }
    const bool pressure = source.quantity == Quantity::Ea;
    std::string& text = result.readings[static_cast<std::size_t>(pressure ? Quantity::Td : source.quantity)];
    if (!pressure && source.way.same() && source.share == 1) {
        text = cell;
        std::replace(text.begin(), text.end(), ',', '.');
        return;
    }
    // The humidity has other sources, too, and those that are measured go first.
    if (pressure && !text.empty())
        return;
    double value = source.way(*number) * source.share;
    if (pressure)
        value = value > 0 ? formulas::dewPointOfPressure(value) : std::nan("");
    if (!std::isfinite(value)) {
        result.refused = "\"" + std::string(cell.substr(0, 40)) + "\" in the column \"" +
                         m_names[source.column] + "\" has no value in " +
                         std::string(pressure ? "°C" : infoOf(source.quantity).unit);
        return;
    }
    text = values::plainText(std::round(value * kBoxSteps) / kBoxSteps);
}

// The columns of year, month and so on.
std::optional<Moment> RowMapper::timeOfParts(const Row& row, bool& gap) const
{
    ClockTime time;
    bool hasMinute = false;
    std::optional<int> dayOfYear;
    for (const TimeSource& source : m_times) {
        const std::string_view cell = trimmed(row.cells[source.column]);
        if (source.role == Role::Time)
            continue;
        gap = gap || cell.empty();
        const auto number = cellNumber(cell, m_decimal);
        if (!number || *number != std::floor(*number) || *number < 0 || *number > 9999)
            return std::nullopt;
        const int whole = static_cast<int>(*number);
        switch (source.role) {
        case Role::Year:
            time.year = whole;
            break;
        case Role::Month:
            time.month = whole;
            break;
        case Role::Day:
            time.day = whole;
            break;
        case Role::DayOfYear:
            dayOfYear = whole;
            break;
        case Role::Hour:
            time.hour = whole;
            break;
        case Role::HourMinute:
            time.hour = whole / 100;
            time.minute = whole % 100;
            break;
        case Role::Minute:
            time.minute = whole;
            hasMinute = true;
            break;
        default:
            time.second = whole;
            break;
        }
    }
    if (m_hourEnds && hasMinute && time.minute > 0) {
        // Minutes of a weather file run to 60 in the hour before the one that is told.
        --time.hour;
        if (time.minute == 60) {
            time.minute = 0;
            ++time.hour;
        }
    }
    auto moment = momentOf(time);
    if (!dayOfYear || !moment)
        return moment;
    // From the first of January on, which stands in the fields.
    moment->seconds += std::int64_t{*dayOfYear - 1} * kDay;
    const ClockTime there = clockTime({moment->seconds - (time.hour == 24 ? kDay : 0), {}});
    return *dayOfYear >= 1 && there.year == time.year ? moment : std::nullopt;
}

void RowMapper::takeTime(const Row& row, MappedRow& result) const
{
    if (m_times.empty())
        return;
    bool gap = false;
    std::string joined;
    for (const TimeSource& source : m_times) {
        const std::string_view cell = trimmed(row.cells[source.column]);
        joined += joined.empty() ? "" : " ";
        if (source.role == Role::HourMinute && cell.size() < 4)
            joined.append(4 - cell.size(), '0'); // "30" for half past midnight
        joined += cell;
        gap = gap || isUsualGap(cell);
    }
    result.time = m_timeParts ? timeOfParts(row, gap) : readMoment(joined, m_order);
    if (!result.time) {
        if (!gap)
            result.refused = "\"" + joined.substr(0, 40) + "\" is no date and time";
        return;
    }
    if (!result.time->offset)
        result.time->offset = m_zone;
}

} // namespace comfortics::tables
