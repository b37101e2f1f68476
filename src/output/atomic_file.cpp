// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/atomic_file.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace comfortics::output {

namespace {

std::string resolved(const std::string& path)
{
    char* const real = ::realpath(path.c_str(), nullptr);
    if (real == nullptr)
        return path;
    std::string result(real);
    std::free(real);
    return result;
}

} // namespace

AtomicFile::AtomicFile(const std::string& path) : m_path(resolved(path))
{
    struct stat status {};
    const bool exists = ::stat(m_path.c_str(), &status) == 0;
    if (exists && S_ISDIR(status.st_mode)) {
        errno = EISDIR;
        fail();
    }
    // The folder's rights would let a protected file be replaced; its owner meant otherwise.
    if (exists && ::access(m_path.c_str(), W_OK) != 0)
        fail();
    if (exists && !S_ISREG(status.st_mode)) {
        m_descriptor = ::open(m_path.c_str(), O_WRONLY | O_CLOEXEC);
        if (m_descriptor < 0)
            fail();
        return;
    }
    m_temporary = m_path + ".XXXXXX";
    m_descriptor = ::mkstemp(m_temporary.data());
    if (m_descriptor < 0) {
        m_temporary.clear();
        fail();
    }
    // mkstemp keeps others out; the finished file has the rights that its forerunner or a new file has.
    mode_t mode = status.st_mode & 07777;
    if (!exists) {
        const mode_t mask = ::umask(0);
        ::umask(mask);
        mode = 0666 & ~mask;
    }
    if (::fchmod(m_descriptor, mode) != 0)
        fail();
}

AtomicFile::~AtomicFile()
{
    giveUp();
}

void AtomicFile::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(m_descriptor, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR)
                continue;
            fail();
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
}

void AtomicFile::commit()
{
    // Devices need not know how to flush; a regular file must.
    if (!m_temporary.empty() && ::fsync(m_descriptor) != 0)
        fail();
    if (::close(std::exchange(m_descriptor, -1)) != 0)
        fail();
    if (!m_temporary.empty()) {
        if (std::rename(m_temporary.c_str(), m_path.c_str()) != 0)
            fail();
        m_temporary.clear();
    }
}

void AtomicFile::fail()
{
    const std::string reason = std::strerror(errno);
    giveUp();
    throw WriteFailure("The file " + m_path + " cannot be written: " + reason + ".");
}

void AtomicFile::giveUp() noexcept
{
    if (m_descriptor >= 0)
        ::close(std::exchange(m_descriptor, -1));
    if (!m_temporary.empty()) {
        ::unlink(m_temporary.c_str());
        m_temporary.clear();
    }
}

} // namespace comfortics::output
