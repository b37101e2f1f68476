// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/interruption.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace comfortics::cli {

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};

std::atomic<bool> noted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "written by a signal handler");

// A byte written here wakes a wait for input, also where the signal comes just before the wait.
std::array<int, 2> wakePipe{-1, -1};

void note(int)
{
    const int keep = errno;
    noted = true;
    const char byte = 0;
    [[maybe_unused]] const ssize_t written = ::write(wakePipe[1], &byte, 1);
    errno = keep;
}

} // namespace

Interruption::Interruption()
{
    if (::pipe2(wakePipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        wakePipe = {-1, -1}; // signals are still noted, between two reads
    struct sigaction action {};
    action.sa_handler = note; // without SA_RESTART, so that a read or write that waits comes back
    for (const int signal : kSignals) {
        struct sigaction old {};
        if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) // nohup stays in force
            ::sigaction(signal, &action, nullptr);
    }
}

Interruption::~Interruption()
{
    struct sigaction byDefault {};
    byDefault.sa_handler = SIG_DFL;
    for (const int signal : kSignals) {
        struct sigaction old {};
        if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler == note)
            ::sigaction(signal, &byDefault, nullptr);
    }
    for (int& end : wakePipe)
        if (end >= 0) {
            ::close(end);
            end = -1;
        }
}

bool Interruption::requested() noexcept
{
    return noted;
}

void Interruption::waitForInput(int descriptor) noexcept
{
    std::array<pollfd, 2> waited{{{descriptor, POLLIN, 0}, {wakePipe[0], POLLIN, 0}}};
    while (!noted && ::poll(waited.data(), waited.size(), -1) < 0 && errno == EINTR) {
    }
}

} // namespace comfortics::cli
