// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace comfortics::cli {

/// While it lives, Ctrl-C and the requests to end (SIGINT, SIGTERM, SIGHUP) are noted instead of
/// ending the process at once, so that whoever writes a file can give it up first. At most one
/// lives at a time.
///
/// From the first on, system calls that wait for a pipe or terminal fail with EINTR again and
/// again, also those that begin only after the signal. Whoever repeats one asks `requested` before.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    static bool requested() noexcept;
};

} // namespace comfortics::cli
