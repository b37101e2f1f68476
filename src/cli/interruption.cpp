// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/interruption.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

#include <sys/time.h>

namespace comfortics::cli {

namespace {

constexpr std::array kSignals{SIGINT, SIGTERM, SIGHUP};
constexpr timeval kRing{0, 50'000};
constexpr timeval kSilent{0, 0};

std::atomic<bool> noted{false};
static_assert(std::atomic<bool>::is_always_lock_free, "written by a signal handler");

void ring(const timeval& every) noexcept
{
    const itimerval timer{every, every};
    ::setitimer(ITIMER_REAL, &timer, nullptr);
}

// Without SA_RESTART, so that a read or write that waits comes back.
void handle(int signal, void (*handler)(int))
{
    struct sigaction action {};
    action.sa_handler = handler;
    ::sigaction(signal, &action, nullptr);
}

void endWait(int)
{
}

// The signal may come just before a wait, which it does not end then; so the clock rings from now on.
void note(int)
{
    const int keep = errno;
    noted = true;
    handle(SIGALRM, endWait);
    ring(kRing);
    errno = keep;
}

} // namespace

Interruption::Interruption()
{
    for (const int signal : kSignals) {
        struct sigaction old {};
        if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler != SIG_IGN) // nohup stays in force
            handle(signal, note);
    }
}

Interruption::~Interruption()
{
    for (const int signal : kSignals) {
        struct sigaction old {};
        if (::sigaction(signal, nullptr, &old) == 0 && old.sa_handler == note)
            handle(signal, SIG_DFL);
    }
    if (noted)
        ring(kSilent);
}

bool Interruption::requested() noexcept
{
    return noted;
}

} // namespace comfortics::cli
