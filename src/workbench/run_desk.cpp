// SPDX-License-Identifier: GPL-3.0-or-later
#include "workbench/run_desk.h"

#include "batch/ordered_crew.h"
#include "tables/workbook.h"
#include "workbench/row_inputs.h"
#include "workbench/store_writer.h"

#include <algorithm>
#include <cassert>
#include <new>
#include <utility>

namespace comfortics::workbench {

namespace {

// Ends a run whose rows would not fit into memory.
class BoundedWriter final : public tables::ResultWriter {
public:
    BoundedWriter(StoreWriter& writer, std::size_t mostBytes) : m_writer(writer), m_mostBytes(mostBytes) {}

    void begin(const std::vector<tables::ResultColumn>& columns) override { m_writer.begin(columns); }
    std::string prepared(const tables::ResultBlock& block) const override { return m_writer.prepared(block); }
    void write(const tables::ResultBlock& block, const std::string& prepared) override
    {
        m_writer.write(block, prepared);
        if (m_mostBytes > 0 && m_blocks++ % kBlocksBetweenWeighing == 0 && m_writer.bytes() > m_mostBytes)
            throw tables::TableFault(
                "The results of the table do not fit into memory: its first " +
                std::to_string(m_writer.rows()) +
                " rows fill what there is. Select fewer indices, or calculate it in parts "
                "or in the terminal.");
    }
    void end() override { m_writer.end(); }

private:
    static constexpr std::size_t kBlocksBetweenWeighing = 64;

    StoreWriter& m_writer;
    std::size_t m_mostBytes;
    std::size_t m_blocks = 0;
};

// The readings of some rows of a store as a table: six cells for each, and where models are calculated the
// time and the cells that they read.
class StoredReadings final : public tables::RowSource {
public:
    StoredReadings(const TableStore& store, const std::vector<std::uint32_t>& rows)
        : m_store(store), m_rows(rows)
    {
        for (std::size_t i = 0; i < classic::kReadingCount; ++i) {
            const tables::QuantityInfo& info = tables::infoOf(static_cast<tables::Quantity>(i));
            tables::ColumnUse use;
            use.role = tables::Role::Reading;
            use.quantity = static_cast<tables::Quantity>(i);
            use.unit = info.unit;
            add(std::move(use));
        }
        m_layout.header = true;
        m_mapping.zone = store.facts().mapping.zone;
        if (!store.facts().hasModels())
            return;
        tables::ColumnUse time;
        time.role = tables::Role::Time;
        add(std::move(time));
        const tables::Mapping& mapping = store.facts().mapping;
        std::size_t carried = 0;
        for (const std::string& name : store.facts().layout.names) {
            const tables::ColumnUse* const use = mapping.find(name);
            if (use != nullptr && use->role == tables::Role::Input) {
                tables::ColumnUse same = *use;
                same.gaps.insert(same.gaps.end(), mapping.gaps.begin(), mapping.gaps.end());
                add(std::move(same));
                m_inputs.push_back(carried);
            }
            carried += use != nullptr && use->role == tables::Role::Dropped ? 0U : 1U;
        }
    }

    const tables::Mapping& mapping() const { return m_mapping; }
    const tables::Layout& layout() const { return m_layout; }

    bool next(tables::Row& row) override
    {
        if (m_at == m_rows.size())
            return false;
        row.clear();
        row.line = m_store.line(m_rows[m_at]);
        const std::size_t place = m_rows[m_at++];
        for (std::size_t i = 0; i < classic::kReadingCount; ++i)
            row.cells.push_back(m_store.readingText(place, static_cast<classic::Reading>(i)));
        if (!m_store.facts().hasModels())
            return true;
        const auto time = m_store.time(place);
        row.cells.push_back(time ? tables::momentText(*time) : std::string());
        const std::vector<std::string> carried = m_store.carried(place);
        for (const std::size_t column : m_inputs)
            row.cells.push_back(carried.at(column));
        return true;
    }

private:
    void add(tables::ColumnUse use)
    {
        use.column = std::to_string(m_layout.names.size());
        m_layout.names.push_back(use.column);
        m_layout.units.push_back(use.unit);
        m_mapping.columns.push_back(std::move(use));
    }

    const TableStore& m_store;
    const std::vector<std::uint32_t>& m_rows;
    std::size_t m_at = 0;
    tables::Mapping m_mapping;
    tables::Layout m_layout;
    std::vector<std::size_t> m_inputs; // among the carried columns
};

} // namespace

std::size_t failedRows(const TableStore& store)
{
    std::size_t count = 0;
    for (std::size_t row = 0; row < store.rows(); ++row)
        count += store.state(row) == RowState::Failed ? 1U : 0U;
    return count;
}

RunDesk::RunDesk(const classic::Limits& limits, std::function<void()> finished)
    : m_limits(limits), m_finished(std::move(finished)),
      m_bytesRead(std::make_shared<std::atomic<std::size_t>>(0))
{
}

RunDesk::~RunDesk()
{
    m_stop = true;
    if (m_thread.joinable())
        m_thread.join();
}

void RunDesk::begin(std::function<RunResult()> run)
{
    assert(!m_running);
    m_running = true;
    m_stop = false;
    m_rows = 0;
    m_rowsInAll = 0;
    *m_bytesRead = 0;
    m_bytesInAll = 0;
    m_started = std::chrono::steady_clock::now();
    if (m_thread.joinable())
        m_thread.join();
    const batch::WithoutSignals quiet;
    m_thread = std::thread([this, run = std::move(run)] {
        RunResult result;
        try {
            result = run();
        } catch (const tables::TableFault& fault) {
            result.fault = fault.what();
        } catch (const std::bad_alloc&) {
            result.fault = "There is not enough memory for the results of the table.";
        }
        {
            const std::lock_guard lock(m_mutex);
            m_result = std::move(result);
        }
        m_finished();
    });
}

void RunDesk::start(RunRequest request)
{
    const std::size_t size = tables::isWorkbook(request.source.path) ? 0 : sizeOf(request.source).value_or(0);
    begin([this, request = std::move(request)] { return run(request); });
    m_bytesInAll = size;
}

void RunDesk::startAgain(std::shared_ptr<const TableStore> store)
{
    begin([this, store = std::move(store)] { return runAgain(store); });
}

void RunDesk::stop()
{
    m_stop = true;
}

RunResult RunDesk::run(const RunRequest& request)
{
    tables::OpenTable table = openSource(request.source, request.mapping.shape, m_bytesRead);
    tables::RunOptions options = StoreWriter::asked(request.options);
    options.stopped = [this] { return m_stop.load(); };
    const std::string& friction = options.assumptions[kFriction];
    const tables::RowMapper mapper(request.mapping, table.layout, friction);
    options.models = modelRequest(request.figures, request.person, request.mapping, table.layout, friction);
    StoreWriter store({.source = request.source.name,
                       .place = table.layout.place,
                       .mapping = request.mapping,
                       .layout = table.layout,
                       .options = options,
                       .figures = request.figures,
                       .person = request.person,
                       .number = ++m_runs},
                      m_limits, mapper);
    BoundedWriter writer(store, request.mostBytes);
    tables::RunCounts counts;
    RunResult result;
    try {
        counts = tables::runTable(*table.rows, mapper, table.layout, m_limits, options, &writer,
                                  [&](const tables::RunCounts& done) {
                                      counts = done;
                                      m_rows = done.total();
                                  });
    } catch (const tables::TableFault& fault) {
        if (store.rows() == 0)
            throw;
        result.fault = fault.what(); // the rows before it stand
    }
    result.store = store.finish(counts);
    return result;
}

RunResult RunDesk::runAgain(const std::shared_ptr<const TableStore>& store)
{
    std::vector<std::uint32_t> rows;
    for (std::size_t row = 0; row < store->rows(); ++row)
        if (store->state(row) == RowState::Failed)
            rows.push_back(static_cast<std::uint32_t>(row));
    m_rowsInAll = rows.size();
    tables::RunOptions options = StoreWriter::asked(store->facts().options);
    options.settings.rules = classic::Rules::Robust;
    options.stopped = [this] { return m_stop.load(); };
    StoredReadings readings(*store, rows);
    const std::string& friction = options.assumptions[kFriction];
    const tables::RowMapper mapper(readings.mapping(), readings.layout(), friction);
    RunFacts facts;
    facts.source = store->facts().source;
    facts.mapping = readings.mapping();
    facts.layout = readings.layout();
    facts.figures = store->facts().figures;
    facts.person = store->facts().person;
    options.models = modelRequest(facts.figures, facts.person, facts.mapping, facts.layout, friction);
    facts.options = options;
    StoreWriter writer(std::move(facts), m_limits, mapper);
    const tables::RunCounts counts =
        tables::runTable(readings, mapper, readings.layout(), m_limits, options, &writer,
                         [this](const tables::RunCounts& done) { m_rows = done.total(); });
    std::shared_ptr<const TableStore> again = writer.finish(counts);
    rows.resize(again->rows()); // fewer where it was stopped
    return {store->with(std::move(rows), std::move(again)), {}};
}

RunProgress RunDesk::progress() const
{
    RunProgress progress;
    progress.rows = m_rows;
    progress.stopping = m_stop;
    if (m_rowsInAll > 0)
        progress.share = static_cast<double>(m_rows) / static_cast<double>(m_rowsInAll);
    else if (m_bytesInAll > 0)
        progress.share = std::min(1.0, static_cast<double>(*m_bytesRead) / static_cast<double>(m_bytesInAll));
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - m_started;
    if (progress.share && *progress.share > 0 && m_rows > 0)
        progress.secondsLeft = seconds.count() / *progress.share - seconds.count();
    return progress;
}

std::optional<RunResult> RunDesk::takeResult()
{
    const std::lock_guard lock(m_mutex);
    if (m_result)
        m_running = false;
    return std::exchange(m_result, std::nullopt);
}

} // namespace comfortics::workbench
