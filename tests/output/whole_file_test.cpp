// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/whole_file.h"
#include "prepared_answers.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace comfortics::tests {

using output::ByteSink;
using output::writeWholeFile;

namespace {

const std::string kOld = "old contents";

bool writeMuch(ByteSink& sink)
{
    for (int i = 0; i < 1000; ++i)
        if (!sink.write(std::string(1000, 'x')))
            return false;
    return true;
}

// While it lives, no file of the process grows beyond so many bytes: a disk that fills up.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : m_oldHandler(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_old);
        const rlimit limit{bytes, m_old.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_old);
        std::signal(SIGXFSZ, m_oldHandler);
    }

private:
    void (*m_oldHandler)(int);
    rlimit m_old{};
};

} // namespace

TEST(WholeFile, ReplacesAFileWithItsModeThroughALink)
{
    const TemporaryFolder folder;
    folder.write("a", kOld);
    ::chmod(folder.file("a").c_str(), 0640);
    ASSERT_EQ(::symlink("a", folder.file("link").c_str()), 0);
    EXPECT_EQ(writeWholeFile(folder.file("link"), writeMuch).error, "");
    EXPECT_EQ(readFile(folder.file("a")), std::string(1000000, 'x'));
    struct stat status {};
    ::lstat(folder.file("link").c_str(), &status);
    EXPECT_TRUE(S_ISLNK(status.st_mode));
    ::stat(folder.file("a").c_str(), &status);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
    EXPECT_EQ(folder.names().size(), 2u) << "nothing is left beside";
}

TEST(WholeFile, KeepsTheOldFileWhenWritingFails)
{
    struct Case {
        std::string name;
        rlim_t limit;
        std::function<bool(ByteSink&)> produce;
        std::string reason;
    };
    const std::vector<Case> cases = {
        {"full at once", 0, writeMuch, "File too large"},
        {"full midway", 500000, writeMuch, "File too large"},
        {"full at the last byte", 999999, writeMuch, "File too large"},
        {"full at a short file", 2, [](ByteSink& sink) { return sink.write("abc"); }, "File too large"},
        {"failure not heeded", 10, [](ByteSink& sink) { return writeMuch(sink), true; }, "File too large"},
        {"given up", RLIM_INFINITY, [](ByteSink& sink) { return sink.write("abc"), false; }, "incomplete"},
    };
    const TemporaryFolder folder;
    folder.write("old", kOld);
    for (const Case& row : cases) {
        for (const char* name : {"old", "new"}) {
            std::string error;
            {
                const FileSizeLimit limit(row.limit);
                error = writeWholeFile(folder.file(name), row.produce).error;
            }
            EXPECT_NE(error.find(row.reason), std::string::npos) << row.name << ": " << error;
            EXPECT_NE(error.find(folder.file(name)), std::string::npos) << row.name << ": " << error;
            EXPECT_EQ(readFile(folder.file("old")), kOld) << row.name;
            EXPECT_EQ(folder.names().size(), 1u) << row.name << ": something is left behind";
        }
    }
    const auto stopped = [](ByteSink&) -> bool { throw std::runtime_error("stopped"); };
    EXPECT_THROW(writeWholeFile(folder.file("old"), stopped), std::runtime_error);
    EXPECT_EQ(readFile(folder.file("old")), kOld);
    EXPECT_EQ(folder.names().size(), 1u);
}

TEST(WholeFile, SaysWhyAPlaceCannotBeWritten)
{
    const TemporaryFolder folder;
    folder.write("plain", kOld);
    struct Case {
        std::string path;
        std::string reason;
    };
    for (const Case& row :
         {Case{folder.file("missing/a"), "No such file or directory"},
          Case{folder.file("plain/a"), "Not a directory"}, Case{folder.file("."), "Is a directory"},
          Case{"", "No such file or directory"}, Case{"/dev/full", "No space left on device"}})
        EXPECT_TRUE(writeWholeFile(row.path, writeMuch).error.ends_with(": " + row.reason + ".")) << row.path;
    EXPECT_EQ(folder.names().size(), 1u);
    EXPECT_EQ(writeWholeFile("/dev/null", writeMuch).error, "") << "a device is written to directly";
}

TEST(WholeFile, LeavesWhatIsProtectedFromWriting)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root writes everywhere";
    const TemporaryFolder folder;
    folder.write("a", kOld);
    ::chmod(folder.file("a").c_str(), 0444);
    EXPECT_FALSE(writeWholeFile(folder.file("a"), writeMuch).succeeded());
    EXPECT_EQ(readFile(folder.file("a")), kOld);
    ::chmod(folder.file("").c_str(), 0555);
    EXPECT_FALSE(writeWholeFile(folder.file("b"), writeMuch).succeeded());
    ::chmod(folder.file("").c_str(), 0755);
}

} // namespace comfortics::tests
