// SPDX-License-Identifier: GPL-3.0-or-later
//
// The terminal tool as a process: what it is fed, what it says, how it ends.
#pragma once

#include "temporary_folder.h"

#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace comfortics::tests {

using Arguments = std::vector<std::string>;

struct Ending {
    int status = -1; ///< the exit status, or -1 where a signal ended it
    std::string out;
    std::string err;
};

/// A named pipe that is open at both ends and holds one page. It is never read but for a byte.
class StalledPipe {
public:
    explicit StalledPipe(std::string path) : m_path(std::move(path))
    {
        if (::mkfifo(m_path.c_str(), 0600) != 0)
            throw std::runtime_error("no pipe");
        m_descriptor = ::open(m_path.c_str(), O_RDWR | O_CLOEXEC);
        ::fcntl(m_descriptor, F_SETPIPE_SZ, 4096);
    }
    ~StalledPipe()
    {
        ::close(m_descriptor);
        ::unlink(m_path.c_str());
    }
    StalledPipe(const StalledPipe&) = delete;
    StalledPipe& operator=(const StalledPipe&) = delete;

    int descriptor() const { return m_descriptor; }
    /// Returns once something is written. What is longer than a page then waits.
    bool hasBegun() const
    {
        char byte = 0;
        return ::read(m_descriptor, &byte, 1) == 1;
    }

private:
    std::string m_path;
    int m_descriptor;
};

/// A run of a program. Its standard input stays open until the run is finished; what it says is gathered in
/// files, so that neither side ever waits for the other, unless its output goes elsewhere.
class Process {
public:
    explicit Process(Arguments words, int output = -1)
    {
        std::signal(SIGPIPE, SIG_IGN); // a process that ends early is for the test to notice
        int in[2];
        if (::pipe2(in, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        m_in = in[1];
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);

        m_pid = ::fork();
        if (m_pid == 0) {
            ::dup2(in[0], STDIN_FILENO);
            ::dup2(output >= 0 ? output : ::fileno(m_out), STDOUT_FILENO);
            ::dup2(::fileno(m_err), STDERR_FILENO);
            // A job in the background inherits ignored signals, and the tool leaves those ignored.
            for (const int number : {SIGPIPE, SIGINT, SIGHUP})
                std::signal(number, SIG_DFL);
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        ::close(in[0]);
    }
    ~Process()
    {
        closeInput();
        std::fclose(m_out);
        std::fclose(m_err);
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            ::waitpid(m_pid, nullptr, 0);
        }
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    /// Returns once the pipe has taken all of it; false if the process has closed its end.
    bool feed(std::string_view text) const
    {
        while (!text.empty()) {
            const ssize_t count = ::write(m_in, text.data(), text.size());
            if (count < 0)
                return false;
            text.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }
    void signal(int number) const { ::kill(m_pid, number); }
    /// Returns once the program handles the signal itself.
    void waitUntilItHandles(int number) const
    {
        const std::string caught = "SigCgt:\t";
        for (bool handled = false; !handled;) {
            const std::string status = readFile("/proc/" + std::to_string(m_pid) + "/status");
            const std::size_t at = status.find(caught);
            const auto signals = std::stoull(status.substr(at + caught.size(), 16), nullptr, 16);
            handled = (signals >> (number - 1) & 1U) != 0;
        }
    }

    /// Waits for the process, without closing its input if that is wished.
    Ending finish(bool withInputOpen = false)
    {
        if (!withInputOpen)
            closeInput();
        int status = 0;
        ::waitpid(std::exchange(m_pid, -1), &status, 0);
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, textOf(m_out), textOf(m_err)};
    }

private:
    void closeInput()
    {
        if (m_in >= 0)
            ::close(std::exchange(m_in, -1));
    }
    static std::string textOf(std::FILE* file)
    {
        std::rewind(file);
        std::string text;
        char buffer[65536];
        while (const std::size_t count = std::fread(buffer, 1, sizeof buffer, file))
            text.append(buffer, count);
        return text;
    }

    pid_t m_pid = -1;
    int m_in = -1;
    std::FILE* m_out = std::tmpfile();
    std::FILE* m_err = std::tmpfile();
};

inline Arguments with(Arguments arguments, const Arguments& more)
{
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

/// Of comfortics-cli, with a text on its standard input.
inline Ending runTool(const Arguments& arguments, std::string_view input = {})
{
    Process process(with({COMFORTICS_CLI}, arguments));
    process.feed(input);
    return process.finish();
}

/// A call of calc that succeeds.
inline const Arguments kSolar{"calc", "--ta", "30", "--sr", "600", "--rh", "50", "--ws", "2"};

inline std::string expectedPath(const std::string& name)
{
    return COMFORTICS_EXPECTED_DIR "/" + name;
}

} // namespace comfortics::tests
