// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace comfortics::cli {

/// While it lives, Ctrl-C and the requests to end (SIGINT, SIGTERM, SIGHUP) are noted instead of
/// ending the process at once, so that whoever writes a file can give it up first. At most one
/// lives at a time.
class Interruption {
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    static bool requested() noexcept;

    /// Waits until the file can be read or an interruption is requested.
    static void waitForInput(int descriptor) noexcept;
};

} // namespace comfortics::cli
