// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/whole_file.h"

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace comfortics::output {

namespace {

// What a link leads to, also where that does not exist yet.
std::string behindLinks(const std::string& path)
{
    constexpr int kMostLinks = 40; // as many as the system follows
    std::filesystem::path file(path);
    std::error_code error;
    for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(file, error); ++i)
        file = file.parent_path() / std::filesystem::read_symlink(file, error);
    return file.string();
}

} // namespace

WholeFile::WholeFile(std::string path) : m_path(std::move(path))
{
    struct stat status {};
    const bool exists = ::stat(m_path.c_str(), &status) == 0;
    if (!exists && (errno != ENOENT || m_path.empty())) {
        fail();
        return;
    }
    if (exists && !S_ISREG(status.st_mode)) {
        m_descriptor = ::open(m_path.c_str(), O_WRONLY | O_CLOEXEC);
        if (m_descriptor < 0)
            fail();
        return;
    }
    // The folder's rights would let a protected file be replaced; its owner meant otherwise.
    if (exists && ::access(m_path.c_str(), W_OK) != 0) {
        fail();
        return;
    }
    m_target = behindLinks(m_path);
    // A new file has the rights that the kernel gives it. One that takes the place of another is
    // closed to others until it has the rights of that.
    openBeside(exists ? S_IRUSR | S_IWUSR : 0666);
    if (m_descriptor < 0 || (exists && ::fchmod(m_descriptor, status.st_mode & 07777) != 0))
        fail();
}

WholeFile::~WholeFile()
{
    giveUp();
}

// Under the first name that nobody else has: a killed program may have left one, another may be
// writing to the same file.
void WholeFile::openBeside(mode_t mode)
{
    constexpr int kMostNames = 1000;
    for (int i = 1; i <= kMostNames; ++i) {
        std::string name = m_target + ".part" + std::to_string(i);
        m_descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (m_descriptor >= 0)
            m_temporary = std::move(name);
        if (m_descriptor >= 0 || errno != EEXIST)
            return;
    }
}

bool WholeFile::write(std::string_view bytes)
{
    while (!bytes.empty() && m_result.succeeded()) {
        const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
        if (written >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
        else if (errno != EINTR)
            fail();
    }
    return m_result.succeeded();
}

WriteResult WholeFile::commit()
{
    if (m_descriptor < 0)
        return m_result;
    // Devices need not know how to flush; a regular file must.
    const bool flushed = m_temporary.empty() || ::fsync(m_descriptor) == 0;
    if (!flushed || ::close(std::exchange(m_descriptor, -1)) != 0) {
        fail();
        return m_result;
    }
    if (!m_temporary.empty() && std::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        fail();
    m_temporary.clear();
    return m_result;
}

// Keeps the reason of the system call that has just failed.
void WholeFile::fail()
{
    m_result.error =
        "The file " + m_path + " cannot be written: " + std::generic_category().message(errno) + ".";
    giveUp();
}

void WholeFile::giveUp() noexcept
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    m_temporary.clear();
}

} // namespace comfortics::output
