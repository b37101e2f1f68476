// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/mapping.h"
#include "workbench/table_source.h"
#include "workbench/table_store.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace comfortics::workbench {

/// What is to be run.
struct RunRequest {
    TableSource source;
    tables::Mapping mapping;
    tables::RunOptions options;               ///< of which rules, selection, assumptions and threads count
    std::size_t mostBytes = 0;                ///< that the results may take in memory; more ends the run
    std::vector<catalogue::Figure> figures{}; ///< of models
    workspace::FieldTexts person{};           ///< what the models read besides the rows
};

/// How far a run is.
struct RunProgress {
    std::size_t rows = 0;
    std::optional<double> share; ///< 0 to 1, where the size of the table is known
    std::optional<double> secondsLeft;
    bool stopping = false;
};

/// What a run has come to: rows, or one sentence on why there are none. One that was stopped has the rows
/// that were done; `fault` beside rows tells why no more could be read.
struct RunResult {
    std::shared_ptr<const TableStore> store;
    std::string fault;
};

/// Runs tables on a thread of its own, one at a time. All is called from one other thread.
class RunDesk {
public:
    /// `finished` is called on the thread of the run, after which takeResult() has what it came to. Limits
    /// must outlive the desk and the stores.
    RunDesk(const classic::Limits& limits, std::function<void()> finished);
    /// Stops what is under way.
    ~RunDesk();
    RunDesk(const RunDesk&) = delete;
    RunDesk& operator=(const RunDesk&) = delete;

    /// Nothing may be under way.
    void start(RunRequest request);
    /// Calculates the rows of a store that failed again, by the robust rules; the others stay as they are.
    void startAgain(std::shared_ptr<const TableStore> store);
    void stop();

    bool running() const noexcept { return m_running; }
    RunProgress progress() const;
    /// Once, when a run has finished; then the desk is free for another.
    std::optional<RunResult> takeResult();

private:
    void begin(std::function<RunResult()> run);
    RunResult run(const RunRequest& request);
    RunResult runAgain(const std::shared_ptr<const TableStore>& store);

    const classic::Limits& m_limits;
    std::function<void()> m_finished;
    bool m_running = false;
    unsigned m_runs = 0;
    std::chrono::steady_clock::time_point m_started;
    std::atomic<bool> m_stop = false;
    std::atomic<std::size_t> m_rows = 0;
    std::atomic<std::size_t> m_rowsInAll = 0;
    std::shared_ptr<std::atomic<std::size_t>> m_bytesRead;
    std::size_t m_bytesInAll = 0;
    std::mutex m_mutex;
    std::optional<RunResult> m_result;
    std::thread m_thread;
};

/// Rows that the robust rules could help.
std::size_t failedRows(const TableStore& store);

} // namespace comfortics::workbench
