// SPDX-License-Identifier: GPL-3.0-or-later
//
// The terminal tool's main function on any arguments, tables and limits files.
#include "check.h"
#include "input.h"

#include "cli/exit_status.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

// The main function of src/cli/main.cpp, which is compiled under this name.
int comforticsMain(int argc, char** argv);

namespace comfortics::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr const char* kTable = "in.csv";
constexpr const char* kLimits = "other.limits";

/// A folder of its own, in which the tool runs and the only one that it can write to.
class Scratch {
public:
    Scratch()
    {
        std::string name = (fs::temp_directory_path() / "comfortics-fuzz-XXXXXX").string();
        if (::mkdtemp(name.data()) == nullptr)
            std::abort();
        m_folder = name;
        std::atexit([] { Scratch::instance().empty(true); });
    }
    static Scratch& instance()
    {
        static auto* const scratch = new Scratch; // lives until the very end
        return *scratch;
    }

    void prepare(std::string_view table, std::string_view limits) const
    {
        empty(false);
        std::ofstream(m_folder / kTable, std::ios::binary) << table;
        std::ofstream(m_folder / kLimits, std::ios::binary) << limits;
        // "-" reads the table, too.
        const int descriptor = ::open((m_folder / kTable).c_str(), O_RDONLY | O_CLOEXEC);
        ::dup2(descriptor, STDIN_FILENO);
        ::close(descriptor);
    }
    /// While it lives, the process is in the folder; the fuzzer has names that count from its own.
    class Stay {
    public:
        explicit Stay(const Scratch& scratch) : m_before(fs::current_path())
        {
            fs::current_path(scratch.m_folder);
        }
        ~Stay() { fs::current_path(m_before); }
        Stay(const Stay&) = delete;
        Stay& operator=(const Stay&) = delete;

    private:
        fs::path m_before;
    };

    std::set<std::string> names() const
    {
        std::set<std::string> found;
        for (const auto& entry : fs::directory_iterator(m_folder))
            found.insert(entry.path().filename().string());
        return found;
    }
    std::string text(const char* name) const
    {
        std::ifstream file(m_folder / name, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

private:
    void empty(bool withFolder) const
    {
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(m_folder, ignored))
            fs::remove_all(entry.path(), ignored);
        if (withFolder)
            fs::remove(m_folder, ignored);
    }

    fs::path m_folder;
};

struct Ending {
    int status = -1;
    std::string out;
    std::string err;
};

/// What the tool writes to standard output while it lives.
class Output {
public:
    Output() : m_file(::memfd_create("output", MFD_CLOEXEC)), m_before(::dup(STDOUT_FILENO))
    {
        ::dup2(m_file, STDOUT_FILENO);
    }
    ~Output()
    {
        ::dup2(m_before, STDOUT_FILENO);
        ::close(m_before);
        ::close(m_file);
    }
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;

    std::string text() const
    {
        std::string result(static_cast<std::size_t>(std::max<off_t>(0, ::lseek(m_file, 0, SEEK_END))), '\0');
        require(::pread(m_file, result.data(), result.size(), 0) == static_cast<ssize_t>(result.size()),
                "the output can be read", "");
        return result;
    }

private:
    int m_file;
    int m_before;
};

/// Runs the tool with all that it writes kept.
Ending run(std::vector<std::string> words)
{
    words.insert(words.begin(), "comfortics-cli");
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    Ending ending;
    std::ostringstream errors;
    std::streambuf* const cerr = std::cerr.rdbuf(errors.rdbuf());
    const Output output;
    ending.status = comforticsMain(static_cast<int>(words.size()), argv.data());
    std::cerr.rdbuf(cerr);
    ending.out = output.text();
    ending.err = errors.str();
    return ending;
}

/// An argument that names nothing outside the scratch folder, and no great number of threads.
std::string harmless(std::string word, const std::string& before)
{
    // Names of units; as paths they lead to folders that do not exist.
    static const std::set<std::string> units{"m/min", "km/h",      "ft/s",      "ft/min",
                                             "W/in2", "CHU/h/ft2", "kcal/h/m2", "J/s/m2",
                                             "kW/m2", "W/cm2",     "Btu/s/ft2"};
    if (units.count(word) == 0)
        std::replace(word.begin(), word.end(), '/', '_');
    constexpr std::string_view kThreads = "--threads=";
    if (before == "--threads" && word.size() > 1)
        return "2";
    if (word.starts_with(kThreads) && word.size() > kThreads.size() + 1)
        return std::string(kThreads) + "2";
    return word;
}

bool asks(const std::vector<std::string>& words, const std::string& option, const std::string& value)
{
    const std::string joined = option + "=" + value;
    for (std::size_t i = 0; i < words.size(); ++i)
        if (words[i] == joined || (i > 0 && words[i - 1] == option && words[i] == value))
            return true;
    return false;
}

/// What stands behind the line that tells what limits a file lacks.
std::string behindLimitsWarning(const std::string& said)
{
    for (const std::string file : {kTable, kLimits})
        if (said.starts_with("comfortics-cli: Indices with limits stay blank: " + file +
                             " holds no limits") ||
            said.starts_with("comfortics-cli: In " + file + " "))
            return said.substr(said.find('\n') + 1);
    return said;
}

void check(const std::vector<std::string>& words, std::string_view table, std::string_view limits)
{
    const Scratch& scratch = Scratch::instance();
    scratch.prepare(table, limits);
    Ending ending = [&] {
        const Scratch::Stay stay(scratch);
        return run(words);
    }();
    ending.err = behindLimitsWarning(ending.err);

    constexpr std::array kDocumented{cli::kDone, cli::kUsage, cli::kReadingsRejected, cli::kRunFailed,
                                     cli::kFileFailed};
    require(std::count(kDocumented.begin(), kDocumented.end(), ending.status) == 1, "the exit status",
            std::to_string(ending.status));
    const std::string command = words.empty() ? "" : words.front();
    if (ending.status != cli::kDone) {
        // No argument holds a line end.
        require(ending.err.starts_with("comfortics-cli: ") && ending.err.find('\n') == ending.err.size() - 1,
                "an error is one line", ending.err);
        require(ending.err.ends_with(".\n"), "an error is a sentence", ending.err);
        require(ending.out.empty() || command == "batch" || ending.out.front() == '{', "an error with output",
                ending.out);
        // Nothing half-written, and nothing written over.
        require(scratch.names() == std::set<std::string>{kTable, kLimits}, "an error leaves no file",
                ending.err);
        require(scratch.text(kTable) == table && scratch.text(kLimits) == limits,
                "an error leaves files as they were", ending.err);
    } else if (command == "batch") {
        require(ending.err.empty() || ending.err.starts_with("Rows: "), "a batch ends with a summary",
                ending.err);
    }
    const bool help = ending.out.starts_with("Usage:") || ending.out.find("\nUsage:") != std::string::npos;
    if (!help && asks(words, "--format", "json") &&
        ((command == "calc" && ending.status != cli::kUsage && ending.status != cli::kFileFailed) ||
         ((command == "list" || command == "radiation") && ending.status == cli::kDone)) &&
        !asks(words, "--version", "")) {
        const auto json = nlohmann::json::parse(ending.out, nullptr, false);
        require(!json.is_discarded(), "the output is JSON", ending.out);
        if (command == "calc") {
            require(json["results"].size() == 222 && json["boxes"].size() == 6 && json["live"].size() == 11,
                    "the JSON has all there is", ending.out);
            const std::string status = json["status"].get<std::string>();
            require(status == (ending.status == cli::kDone               ? "ok"
                               : ending.status == cli::kReadingsRejected ? "rejected"
                                                                         : "failed"),
                    "the JSON has the status of the tool", status, std::to_string(ending.status));
            require(json["failure"].is_null() == (ending.status != cli::kRunFailed),
                    "the JSON has the failure", status);
        }
    }
}

} // namespace
} // namespace comfortics::fuzz

/// The input is a line for each argument, and, each behind a zero byte, the table in "in.csv" (and in
/// standard input) and the limits in "other.limits".
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace comfortics::fuzz;
    Input input(data, size);
    const std::string_view lines = input.upTo('\0');
    const std::string_view table = input.upTo('\0');
    const std::string_view limits = input.upTo('\0');
    Input arguments(reinterpret_cast<const std::uint8_t*>(lines.data()), lines.size()); // NOLINT: bytes
    std::vector<std::string> words;
    std::string before;
    while (!arguments.empty() && words.size() < 40) {
        const std::string word = arguments.line();
        words.push_back(harmless(word, before));
        before = word;
    }
    check(words, table, limits);
    return 0;
}
