// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <csignal>

#include <sys/resource.h>

namespace comfortics::tests {

/// While it lives, no file of the process grows beyond so many bytes: a disk that fills up.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{std::min(bytes, m_before.rlim_max), m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before{};
};

} // namespace comfortics::tests
