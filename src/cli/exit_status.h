// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace comfortics::cli {

/// What the process returns; scripts rely on the numbers.
enum ExitStatus {
    kDone = 0,
    kUsage = 2,
    kReadingsRejected = 3,
    kRunFailed = 4,
    kFileFailed = 5,
    kInterrupted = 130,
};

} // namespace comfortics::cli
