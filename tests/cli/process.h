// SPDX-License-Identifier: GPL-3.0-or-later
//
// The terminal tool as a process: what it is fed, what it says, how it ends.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace comfortics::tests {

using Arguments = std::vector<std::string>;

struct Ending {
    int status = -1; ///< the exit status; 1000 + the signal that ended it
    std::string out;
    std::string err;
};

/// Where a process starts from, other than the defaults.
struct Surroundings {
    std::vector<std::pair<std::string, std::string>> environment = {};
    std::string standardOutput = {}; ///< a file or device in place of the pipe
    std::string program = COMFORTICS_CLI;
};

/// A run of comfortics-cli. Its standard input stays open until it is closed or the run is
/// finished.
class Process {
public:
    explicit Process(const Arguments& arguments, const Surroundings& around = {})
    {
        std::signal(SIGPIPE, SIG_IGN); // a process that ends early is for the test to notice
        int in[2];
        int out[2];
        int err[2];
        if (::pipe2(in, O_CLOEXEC) != 0 || ::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(err, O_CLOEXEC) != 0)
            throw std::runtime_error("no pipe");
        std::vector<std::string> words{around.program};
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::vector<char*> argv;
        for (std::string& word : words)
            argv.push_back(word.data());
        argv.push_back(nullptr);

        m_pid = ::fork();
        if (m_pid == 0) {
            const int sink =
                around.standardOutput.empty()
                    ? out[1]
                    : ::open(around.standardOutput.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
            ::dup2(in[0], STDIN_FILENO);
            ::dup2(sink, STDOUT_FILENO);
            ::dup2(err[1], STDERR_FILENO);
            std::signal(SIGPIPE, SIG_DFL);
            for (const auto& [name, value] : around.environment)
                ::setenv(name.c_str(), value.c_str(), 1);
            ::execv(argv[0], argv.data());
            ::_exit(127);
        }
        ::close(in[0]);
        ::close(out[1]);
        ::close(err[1]);
        m_in = in[1];
        m_out = out[0];
        m_err = err[0];
    }
    ~Process()
    {
        closeInput();
        for (const int descriptor : {m_out, m_err})
            if (descriptor >= 0)
                ::close(descriptor);
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
    void closeInput()
    {
        if (m_in >= 0)
            ::close(std::exchange(m_in, -1));
    }
    void closeOutput() { ::close(std::exchange(m_out, -1)); }
    void signal(int number) const { ::kill(m_pid, number); }

    /// Reads both streams to their ends and waits for the process.
    Ending finish(bool withInputOpen = false)
    {
        if (!withInputOpen)
            closeInput();
        Ending ending;
        pollfd waited[2] = {{m_out, POLLIN, 0}, {m_err, POLLIN, 0}};
        while (waited[0].fd >= 0 || waited[1].fd >= 0) {
            ::poll(waited, 2, -1);
            for (int i = 0; i < 2; ++i) {
                if (waited[i].fd < 0 || waited[i].revents == 0)
                    continue;
                char buffer[65536];
                const ssize_t count = ::read(waited[i].fd, buffer, sizeof buffer);
                if (count <= 0)
                    waited[i].fd = -1;
                else
                    (i == 0 ? ending.out : ending.err).append(buffer, static_cast<std::size_t>(count));
            }
        }
        int status = 0;
        ::waitpid(std::exchange(m_pid, -1), &status, 0);
        ending.status = WIFEXITED(status) ? WEXITSTATUS(status) : 1000 + WTERMSIG(status);
        return ending;
    }

private:
    pid_t m_pid = -1;
    int m_in = -1;
    int m_out = -1;
    int m_err = -1;
};

inline Ending runTool(const Arguments& arguments, const Surroundings& around = {})
{
    return Process(arguments, around).finish();
}

/// The same with a text on its standard input.
inline Ending runTool(const Arguments& arguments, std::string_view input)
{
    Process process(arguments);
    // What fits into the pipe is fed at once, so that neither side waits for the other.
    process.feed(input);
    return process.finish();
}

inline std::string fileText(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

inline std::string expectedPath(const std::string& name)
{
    return COMFORTICS_EXPECTED_DIR "/" + name;
}

/// A folder that goes with all it holds.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "comfortics-cli-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string file(const std::string& name) const { return (m_path / name).string(); }
    std::string write(const std::string& name, std::string_view text) const
    {
        std::ofstream(m_path / name, std::ios::binary) << text;
        return file(name);
    }
    std::vector<std::string> names() const
    {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            found.push_back(entry.path().filename().string());
        return found;
    }

private:
    std::filesystem::path m_path;
};

} // namespace comfortics::tests
