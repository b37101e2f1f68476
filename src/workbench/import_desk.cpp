// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/import_desk.h"

#include "tables/summary.h"
#include "tables/workbook.h"
#include "texts/text.h"
#include "values/plain_text.h"
#include "workbench/table_store.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <system_error>
#include <utility>

namespace comfortics::workbench {

using tables::Mapping;
using tables::Quantity;
using tables::Role;

namespace {

constexpr double kShareToSpare = 0.8; // of the memory that is free
constexpr double kMegabyte = 1024.0 * 1024;
constexpr double kCellMargin = 1;                // the separator
constexpr double kUsualStep = 3600;              // of a sum [s]
constexpr std::string_view kAnyExponent = "0.2"; // of the wind, where times alone are read

std::string megabytes(double bytes)
{
    return std::to_string(static_cast<long long>(bytes / kMegabyte)) + " MB";
}

std::optional<std::size_t> expectedRows(const Look& look)
{
    if (!look.bytes || look.rows.empty() || look.layout.kind == tables::FileKind::Xlsx)
        return std::nullopt;
    double bytes = 0;
    const std::vector<std::size_t>& edges = look.layout.form.edges;
    for (const tables::Row& row : look.rows)
        if (edges.empty() || row.cells.empty())
            for (const std::string& cell : row.cells)
                bytes += static_cast<double>(cell.size()) + kCellMargin;
        else // all but the last are as wide as their columns
            bytes += static_cast<double>(edges.back() + row.cells.back().size()) + kCellMargin;
    if (bytes == 0)
        return std::nullopt;
    const bool wide =
        look.layout.coding == tables::Coding::Utf16Le || look.layout.coding == tables::Coding::Utf16Be;
    const double each = bytes / static_cast<double>(look.rows.size()) * (wide ? 2 : 1);
    return static_cast<std::size_t>(static_cast<double>(*look.bytes) / each);
}

// The columns of a quantity, by their names.
std::vector<std::string> columnsOf(const Mapping& mapping, Quantity quantity)
{
    std::vector<std::string> names;
    for (const tables::ColumnUse& use : mapping.columns)
        if (use.role == Role::Reading && use.quantity == quantity)
            names.push_back(use.column);
    return names;
}

std::string lacking(const Mapping& mapping)
{
    const auto has = [&](Quantity quantity) { return !columnsOf(mapping, quantity).empty(); };
    std::vector<std::string> missing;
    if (!has(Quantity::Ta))
        missing.emplace_back("the air temperature");
    if (!has(Quantity::Tg) && !has(Quantity::SR))
        missing.emplace_back("the globe temperature or the solar radiation");
    if (!has(Quantity::Td) && !has(Quantity::RH) && !has(Quantity::Ea))
        missing.emplace_back("the dew point, the relative humidity or the vapour pressure");
    if (!has(Quantity::WS))
        missing.emplace_back("the wind speed");
    if (missing.empty())
        return {};
    std::string text = "Not enough readings: no column is " + missing[0];
    for (std::size_t i = 1; i < missing.size(); ++i)
        text += (i + 1 < missing.size() ? ", " : ", and none ") + missing[i];
    return text + ".";
}

std::string twice(const Mapping& mapping)
{
    for (std::size_t i = 0; i < tables::kQuantityCount; ++i) {
        const auto quantity = static_cast<Quantity>(i);
        const std::vector<std::string> names = columnsOf(mapping, quantity);
        if (names.size() > 1)
            return "Both \"" + names[0] + "\" and \"" + names[1] + "\" are the " +
                   std::string(tables::infoOf(quantity).name) + "; take one of them.";
    }
    return {};
}

std::string guessedFingerprint(const LookRequest& request)
{
    const tables::Shape plain{.sheet = request.told.sheet};
    if (request.told == plain)
        return {};
    try {
        return tables::fingerprintOf(openSource(request.source, plain).layout);
    } catch (const tables::TableFault&) { // it needs to be told
        return {};
    }
}

// Why a mapping cannot be taken for a table; empty where it can.
std::string misfit(const Mapping& mapping, const tables::Layout& layout)
{
    for (const tables::ColumnUse& use : mapping.columns)
        if (use.role != Role::Carried && use.role != Role::Dropped &&
            std::find(layout.names.begin(), layout.names.end(), use.column) == layout.names.end())
            return "The mapping \"" + mapping.name + "\" does not fit: this table has no column \"" +
                   use.column + "\".";
    return {};
}

} // namespace

Look lookAt(const LookRequest& request)
{
    Look look{.source = request.source, .told = request.told};
    try {
        tables::OpenTable table = openSource(request.source, request.told);
        look.layout = table.layout;
        look.guess = tables::guessMapping(table);
        look.guessedFingerprint = guessedFingerprint(request);
        tables::Row row;
        while (look.rows.size() < kLookRows && table.rows->next(row))
            look.rows.push_back(row);
        if (look.layout.kind == tables::FileKind::Xlsx)
            look.sheets = tables::sheetNames(request.source.path);
        look.bytes = sizeOf(request.source);
        look.expectedRows = expectedRows(look);
        if (look.rows.empty())
            look.fault = "\"" + request.source.name + "\" has no rows with readings.";
    } catch (const tables::TableFault& fault) {
        look.fault = fault.what();
    }
    return look;
}

std::optional<LookRequest> ImportDesk::take(Look look)
{
    m_fault = look.fault;
    if (!m_fault.empty()) {
        changed.raise();
        return std::nullopt;
    }
    const bool sameTable = m_open && look.source == m_look.source;
    const Mapping* const wanted = sameTable ? kept.find(std::exchange(m_wanted, {})) : nullptr;
    if (wanted != nullptr) {
        m_fault = misfit(*wanted, look.layout);
        if (m_fault.empty()) {
            m_look = std::move(look);
            takeMapping(*wanted);
        }
        changed.raise();
        return std::nullopt;
    }
    const bool sameColumns = sameTable && look.layout.names == m_look.layout.names;
    const bool reshaped = sameTable && !(look.told == m_look.told);
    m_look = std::move(look);
    m_open = true;
    if (sameColumns && reshaped && (m_touched || !m_mapping.name.empty())) {
        m_mapping.shape = m_look.told; // what was told of the columns stands
        changed.raise();
        return std::nullopt;
    }
    const Mapping* const known = tables::recognised(m_look.layout, kept.all());
    // What was reshaped stays as it was told.
    if (known != nullptr && (!reshaped || known->shape == m_look.told)) {
        takeMapping(*known);
        changed.raise();
        if (!(known->shape == m_look.told))
            return LookRequest{m_look.source, known->shape};
        return std::nullopt;
    }
    takeMapping(m_look.guess);
    m_mapping.shape = m_look.told;
    changed.raise();
    return std::nullopt;
}

// Columns of the table that the mapping does not tell of are carried along.
void ImportDesk::takeMapping(Mapping mapping)
{
    Mapping whole = std::move(mapping);
    std::vector<tables::ColumnUse> uses;
    for (const std::string& name : m_look.layout.names) {
        tables::ColumnUse use;
        if (const tables::ColumnUse* const told = whole.find(name))
            use = *told;
        use.column = name;
        uses.push_back(std::move(use));
    }
    // Parts of a time are joined in the order that the mapping tells.
    std::stable_sort(uses.begin(), uses.end(), [&](const auto& one, const auto& other) {
        const auto place = [&](const std::string& name) {
            return std::find_if(whole.columns.begin(), whole.columns.end(),
                                [&](const auto& use) { return use.column == name; }) -
                   whole.columns.begin();
        };
        return place(one.column) < place(other.column);
    });
    whole.columns = std::move(uses);
    whole.fingerprint = tables::fingerprintOf(m_look.layout);
    m_mapping = std::move(whole);
    m_touched = false;
}

std::string ImportDesk::mappingSource() const
{
    const std::string from = m_mapping.name.empty() ? "guessed" : "kept as \"" + m_mapping.name + "\"";
    return m_touched ? from + ", then changed" : from;
}

void ImportDesk::setUse(std::size_t column, tables::ColumnUse use)
{
    use.column = m_look.layout.names[column];
    use.because.clear();
    use.doubt.clear();
    const auto found = std::find_if(m_mapping.columns.begin(), m_mapping.columns.end(),
                                    [&use](const auto& one) { return one.column == use.column; });
    if (found == m_mapping.columns.end())
        return;
    if (use.role == Role::Reading && tables::isDose(use.unit)) {
        if (use.step <= 0)
            assumeStep(use);
        else if (found->step == use.step && found->quantity == use.quantity)
            use.doubt = found->doubt; // another unit answers no doubt of the step
    }
    if (*found == use)
        return;
    *found = std::move(use);
    m_touched = true;
    changed.raise();
}

void ImportDesk::assumeStep(tables::ColumnUse& use) const
{
    const auto rows = stepOfRows();
    use.step = rows.value_or(kUsualStep);
    use.doubt = "The time over which it is summed is not told; " +
                (rows ? values::plainText(*rows) + " s are taken, which the rows are apart."
                      : std::string("an hour is taken."));
}

std::optional<double> ImportDesk::stepOfRows() const
{
    constexpr double kLongest = 86400; // a day [s]
    tables::StepFinder finder;
    for (const PreviewRow& row : preview(kAnyExponent))
        if (row.mapped.time)
            finder.add(*row.mapped.time);
    const auto step = finder.step();
    return step && *step > 0 && *step <= kLongest ? step : std::nullopt;
}

void ImportDesk::setOrder(tables::DateOrder order)
{
    if (order == m_mapping.order)
        return;
    m_mapping.order = order;
    m_touched = true;
    changed.raise();
}

void ImportDesk::setZone(std::optional<int> minutes)
{
    if (minutes == m_mapping.zone)
        return;
    m_mapping.zone = minutes;
    m_touched = true;
    changed.raise();
}

void ImportDesk::setGaps(std::vector<std::string> gaps)
{
    if (gaps == m_mapping.gaps)
        return;
    m_mapping.gaps = std::move(gaps);
    m_touched = true;
    changed.raise();
}

void ImportDesk::forgetChanges()
{
    takeMapping(m_look.guess);
    m_mapping.shape = m_look.told;
    changed.raise();
}

std::optional<LookRequest> ImportDesk::lookForKept(const std::string& name)
{
    const Mapping* const mapping = kept.find(name);
    if (mapping == nullptr || mapping->shape == m_look.told)
        return std::nullopt;
    m_wanted = name;
    return LookRequest{m_look.source, mapping->shape};
}

std::string ImportDesk::useKept(const std::string& name)
{
    const Mapping* const mapping = kept.find(name);
    if (mapping == nullptr)
        return {};
    if (std::string sentence = misfit(*mapping, m_look.layout); !sentence.empty())
        return sentence;
    takeMapping(*mapping);
    m_mapping.shape = m_look.told;
    changed.raise();
    return {};
}

std::string ImportDesk::keepAs(const std::string& name)
{
    const std::string trimmed(texts::trimmed(name));
    if (trimmed.empty())
        return "A mapping needs a name.";
    m_mapping.name = trimmed;
    m_mapping.guessedFingerprint =
        m_look.guessedFingerprint == m_mapping.fingerprint ? std::string() : m_look.guessedFingerprint;
    m_touched = false;
    kept.keep(m_mapping);
    changed.raise();
    return {};
}

std::vector<PreviewRow> ImportDesk::preview(std::string_view friction) const
{
    std::optional<tables::RowMapper> mapper;
    try {
        mapper.emplace(m_mapping, m_look.layout, friction);
    } catch (const tables::TableFault&) { // whyNot() tells it
    }
    std::vector<PreviewRow> rows;
    for (const tables::Row& row : m_look.rows) {
        PreviewRow shown{row.line, row.cells, {}};
        if (mapper)
            mapper->map(row, shown.mapped);
        else
            shown.mapped.refused = row.refused;
        rows.push_back(std::move(shown));
    }
    return rows;
}

std::string ImportDesk::whyNot(std::string_view friction) const
{
    if (!m_open)
        return "No table is open.";
    if (std::string sentence = lacking(m_mapping); !sentence.empty())
        return sentence;
    if (std::string sentence = twice(m_mapping); !sentence.empty())
        return sentence;
    try {
        const tables::RowMapper mapper(m_mapping, m_look.layout, friction);
    } catch (const tables::TableFault& fault) {
        return fault.what();
    }
    return {};
}

std::string ImportDesk::tooBig(std::size_t indices, std::size_t mostBytes) const
{
    if (!m_look.expectedRows)
        return {};
    const auto needed = static_cast<double>(TableStore::expectedBytes(*m_look.expectedRows, indices));
    if (mostBytes > 0 && needed > static_cast<double>(mostBytes))
        return "The results of about " + std::to_string(*m_look.expectedRows) + " rows would take " +
               megabytes(needed) + " of memory, and " + megabytes(static_cast<double>(mostBytes)) +
               " are to spare. Select fewer indices, or calculate the table in parts or in the terminal.";
    std::error_code error;
    const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
    const auto space = std::filesystem::space(folder, error);
    if (!error && m_look.bytes && *m_look.bytes > space.available)
        return "The columns that are carried along would take up to " +
               megabytes(static_cast<double>(*m_look.bytes)) + " in the folder " + folder.string() +
               ", which has " + megabytes(static_cast<double>(space.available)) + " left.";
    return {};
}

std::vector<std::string> ImportDesk::doubts() const
{
    std::vector<std::string> all = m_look.layout.doubts;
    for (std::string& doubt : tables::doubtsOf(m_mapping))
        if (std::find(all.begin(), all.end(), doubt) == all.end())
            all.push_back(std::move(doubt));
    return all;
}

std::vector<std::string> unitsOf(Quantity quantity)
{
    static constexpr std::array kSymbols{"°C",   "F",     "K",     "%",      "1",      "m/s",    "km/h",
                                         "kn",   "mph",   "ft/s",  "ft/min", "m/min",  "W/m2",   "kW/m2",
                                         "J/m2", "kJ/m2", "MJ/m2", "J/cm2",  "Wh/m2",  "kWh/m2", "hPa",
                                         "mbar", "kPa",   "Pa",    "mmHg",   "0.1 °C", "0.1 m/s"};
    std::vector<std::string> units{std::string(tables::infoOf(quantity).unit)};
    for (const char* const symbol : kSymbols)
        if (symbol != units[0] && tables::UnitWay::find(quantity, symbol, kUsualStep))
            units.emplace_back(symbol);
    return units;
}

std::size_t memoryToSpare()
{
    // "MemAvailable:   23456789 kB"
    std::ifstream file("/proc/meminfo");
    std::string word;
    while (file >> word)
        if (std::size_t kilobytes = 0; word == "MemAvailable:" && file >> kilobytes)
            return static_cast<std::size_t>(static_cast<double>(kilobytes) * 1024 * kShareToSpare);
    return 0;
}

} // namespace comfortics::workbench
