// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <comfortics/calculation.h>

#include <cstddef>
#include <functional>
#include <memory>

namespace comfortics::engine {

/// What one thread works with.
class Worker {
public:
    virtual ~Worker() = default;
    /// Calculates the points first to first + count - 1.
    virtual void work(std::size_t first, std::size_t count) = 0;
};

/// Shares `count` points among threads as the options say, `share` at a time and in order. `make` makes the
/// worker of a thread, in that thread. Returns how many points are done from the first on; throws what a
/// worker, its making or the progress throws, after all threads have ended.
std::size_t shareWork(std::size_t count, std::size_t share, const Options& options,
                      const std::function<std::unique_ptr<Worker>()>& make);

} // namespace comfortics::engine
