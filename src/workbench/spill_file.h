// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "workbench/chunked.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace comfortics::workbench {

/// Texts that are looked at now and then, in a temporary file that nobody else sees and that goes with this.
/// Any thread may read once all is written.
class SpillFile {
public:
    /// Throws TableFault where the system gives no such file.
    SpillFile();
    SpillFile(const SpillFile&) = delete;
    SpillFile& operator=(const SpillFile&) = delete;
    ~SpillFile();

    /// Appends a record. Throws TableFault on a full disk.
    void add(std::string_view record);
    /// What add() still holds. Throws TableFault.
    void finish();

    /// Throws TableFault where the disk does not give it back.
    std::string record(std::size_t place) const;

    std::size_t bytes() const noexcept { return m_ends.bytes() + m_held.capacity(); }

private:
    int m_descriptor = -1;
    Chunked<std::uint64_t> m_ends;
    std::uint64_t m_size = 0;
    std::string m_held; // not written yet
};

} // namespace comfortics::workbench
