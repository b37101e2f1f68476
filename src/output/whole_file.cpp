// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/whole_file.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <pthread.h>
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

constexpr std::array kEndingSignals{SIGINT, SIGTERM, SIGHUP};

// The name of the file beside that is being written, and who writes it.
std::atomic<const char*> beingWritten{nullptr};
std::atomic<pthread_t> writer{};
static_assert(std::atomic<const char*>::is_always_lock_free && std::atomic<pthread_t>::is_always_lock_free,
              "read by a signal handler");

// Only the writer looks at the name, so that it finds a whole one.
void removeAndEnd(int signal)
{
    if (::pthread_equal(::pthread_self(), writer) == 0) {
        const int keep = errno;
        ::pthread_kill(writer, signal);
        errno = keep;
        return;
    }
    if (const char* const name = beingWritten)
        ::unlink(name);
    std::signal(signal, SIG_DFL);
    ::raise(signal); // ends the process as soon as this returns
}

// Puts the ending signals off while a file and its entry here are made or unmade.
class SignalsPutOff {
public:
    SignalsPutOff() noexcept
    {
        sigset_t signals;
        ::sigemptyset(&signals);
        for (const int signal : kEndingSignals)
            ::sigaddset(&signals, signal);
        ::pthread_sigmask(SIG_BLOCK, &signals, &m_before);
    }
    ~SignalsPutOff() { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SignalsPutOff(const SignalsPutOff&) = delete;
    SignalsPutOff& operator=(const SignalsPutOff&) = delete;

private:
    sigset_t m_before{};
};

} // namespace

void WholeFile::leaveNothingWhenKilled()
{
    writer = ::pthread_self();
    struct sigaction action {};
    action.sa_handler = removeAndEnd;
    action.sa_flags = SA_RESTART; // for threads that only pass the signal on
    for (const int signal : kEndingSignals) {
        struct sigaction old {};
        if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) // nohup stays in force
            ::sigaction(signal, &action, nullptr);
    }
}

WholeFile::WholeFile(std::string path, bool (*abandoned)()) : m_path(std::move(path)), m_abandoned(abandoned)
{
    struct stat status {};
    const bool exists = ::stat(m_path.c_str(), &status) == 0;
    if (!exists && (errno != ENOENT || m_path.empty())) {
        fail();
        return;
    }
    if (exists && !S_ISREG(status.st_mode)) {
        do { // a pipe is open once somebody reads it
            m_descriptor = ::open(m_path.c_str(), O_WRONLY | O_CLOEXEC);
        } while (m_descriptor < 0 && mayWait());
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

// Whether the system call that has just failed was only interrupted.
bool WholeFile::mayWait() const
{
    return errno == EINTR && !(m_abandoned && m_abandoned());
}

// Under the first name that nobody else has: a killed program may have left one, another may be
// writing to the same file.
void WholeFile::openBeside(mode_t mode)
{
    constexpr int kMostNames = 1000;
    const SignalsPutOff putOff;
    for (int i = 1; i <= kMostNames; ++i) {
        std::string name = m_target + ".part" + std::to_string(i);
        m_descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
        if (m_descriptor >= 0) {
            m_temporary = std::move(name);
            const char* none = nullptr;
            beingWritten.compare_exchange_strong(none, m_temporary.c_str());
        }
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
        else if (!mayWait())
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
    const SignalsPutOff putOff;
    if (!m_temporary.empty() && std::rename(m_temporary.c_str(), m_target.c_str()) != 0)
        fail();
    forgetTemporary();
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
    const SignalsPutOff putOff;
    if (!m_temporary.empty())
        ::unlink(m_temporary.c_str());
    forgetTemporary();
}

void WholeFile::forgetTemporary() noexcept
{
    const char* name = m_temporary.c_str();
    beingWritten.compare_exchange_strong(name, nullptr);
    m_temporary.clear();
}

} // namespace comfortics::output
