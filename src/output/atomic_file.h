// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace comfortics::output {

/// A file could not be written. The text is one sentence for the user.
class WriteFailure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// A file that is written whole or not at all: the bytes go to a temporary file beside it, which
/// takes its name at `commit`. Until then an existing file stays as it was; a file that is given
/// up leaves nothing behind. A device or pipe under the name is written directly, where the name is
/// a link, the file behind it is replaced, and a file that is protected from writing is left alone.
/// Paths are UTF-8.
class AtomicFile {
public:
    /// Opens the temporary file. Throws WriteFailure.
    explicit AtomicFile(const std::string& path);
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// Appends bytes. Throws WriteFailure, for instance on a full disk.
    void write(std::string_view bytes);

    /// Flushes to the disk and gives the file its name. Throws WriteFailure.
    void commit();

private:
    [[noreturn]] void fail();
    void giveUp() noexcept;

    std::string m_path;
    std::string m_temporary; // empty where the target is written directly
    int m_descriptor = -1;
};

} // namespace comfortics::output
