// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include <sys/types.h>

namespace comfortics::output {

/// Takes bytes one after the other.
class ByteSink {
public:
    virtual ~ByteSink() = default;
    /// False once a write has failed; whoever writes stops then.
    virtual bool write(std::string_view bytes) = 0;
};

/// What became of a file: nothing to say, or one sentence for the user.
struct WriteResult {
    std::string error;
    bool succeeded() const noexcept { return error.empty(); }
};

/// A file that is written whole or not at all: the bytes go to a new file beside it, which takes
/// its name at `commit`. Until then an existing file stays as it was; a file that fails or is given
/// up leaves nothing behind. A device or pipe under the name is written directly; where the name is
/// a link, the file that it leads to is replaced or made; a file that is protected from writing is
/// left alone. Paths are UTF-8.
class WholeFile final : public ByteSink {
public:
    /// Opens the file beside. `result` tells at once whether that was possible. Where a signal comes
    /// while a pipe or device keeps waiting, `abandoned` is asked whether to wait no longer.
    explicit WholeFile(std::string path, bool (*abandoned)() = nullptr);
    WholeFile(const WholeFile&) = delete;
    WholeFile& operator=(const WholeFile&) = delete;
    /// Gives the file up, unless it is committed.
    ~WholeFile() override;

    /// Appends bytes. After a failure, for instance on a full disk, nothing more is written.
    bool write(std::string_view bytes) override;

    /// Flushes to the disk and gives the file its name. Answers the first failure of all.
    WriteResult commit();

    /// How it stands so far.
    const WriteResult& result() const noexcept { return m_result; }

    /// From now on a signal that ends the process (SIGINT, SIGTERM, SIGHUP, unless ignored) takes the
    /// file beside with it. For a program that lets signals end it and writes one file at a time, in
    /// the thread that calls this.
    static void leaveNothingWhenKilled();

private:
    bool mayWait() const;
    void openBeside(mode_t mode);
    void fail();
    void giveUp() noexcept;
    void forgetTemporary() noexcept;

    std::string m_path; // as given
    bool (*m_abandoned)();
    std::string m_target;    // the same behind links
    std::string m_temporary; // empty where the target is written directly
    int m_descriptor = -1;
    WriteResult m_result;
};

} // namespace comfortics::output
