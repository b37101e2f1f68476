// SPDX-License-Identifier: GPL-3.0-or-later
#include "output/whole_file.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace comfortics::tests {

using output::WholeFile;

namespace {

const std::string kOld = "old contents";

std::string errorOfWriting(const std::string& path)
{
    WholeFile file(path);
    for (int i = 0; i < 1000; ++i)
        file.write(std::string(1000, 'x')); // on purpose also after a failure
    return file.commit().error;
}

mode_t modeOf(const std::string& path)
{
    struct stat status {};
    ::lstat(path.c_str(), &status);
    return status.st_mode;
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

TEST(WholeFile, ReplacesOrMakesTheFileBehindALinkWithItsRights)
{
    const TemporaryFolder folder;
    folder.write("old", kOld);
    ::chmod(folder.file("old").c_str(), 0606);
    folder.write("old.part1", "left by a killed program");
    const mode_t mask = ::umask(027);
    for (const char* name : {"old", "new"}) {
        const std::string link = folder.file(std::string("to ") + name);
        ASSERT_EQ(::symlink(name, link.c_str()), 0);
        EXPECT_EQ(errorOfWriting(link), "");
        EXPECT_EQ(readFile(folder.file(name)), std::string(1000000, 'x'));
        EXPECT_TRUE(S_ISLNK(modeOf(link)));
    }
    ::umask(mask);
    EXPECT_EQ(modeOf(folder.file("old")) & 07777, 0606u);
    EXPECT_EQ(modeOf(folder.file("new")) & 07777, 0640u);
    EXPECT_EQ(folder.names().size(), 5u) << "nothing new is left beside";
}

TEST(WholeFile, KeepsTheOldFileWhenWritingFails)
{
    const TemporaryFolder folder;
    folder.write("old", kOld);
    for (const std::string& path : {folder.file("old"), folder.file("new")}) {
        for (const rlim_t limit : {0UL, 500500UL, 999999UL}) {
            const FileSizeLimit full(limit);
            EXPECT_EQ(errorOfWriting(path), "The file " + path + " cannot be written: File too large.");
            EXPECT_EQ(folder.names().size(), 1u) << "something is left behind";
        }
        EXPECT_TRUE(WholeFile(path).write("given up"));
        EXPECT_EQ(folder.names().size(), 1u) << "something is left behind";
    }
    EXPECT_EQ(readFile(folder.file("old")), kOld);
}

TEST(WholeFile, SaysWhyAPlaceCannotBeWritten)
{
    const TemporaryFolder folder;
    folder.write("plain", kOld);
    ASSERT_EQ(::symlink("loop", folder.file("loop").c_str()), 0);
    struct Case {
        std::string path;
        std::string reason;
    };
    for (const Case& row : {Case{folder.file("missing/a"), "No such file or directory"},
                            Case{folder.file("plain/a"), "Not a directory"},
                            Case{folder.file("loop"), "Too many levels of symbolic links"},
                            Case{folder.file("."), "Is a directory"}, Case{"", "No such file or directory"}})
        EXPECT_TRUE(WholeFile(row.path).result().error.ends_with(": " + row.reason + ".")) << row.path;
    EXPECT_TRUE(errorOfWriting("/dev/full").ends_with(": No space left on device."));
    EXPECT_EQ(errorOfWriting("/dev/null"), "") << "a device is written to directly";
    EXPECT_EQ(folder.names().size(), 2u);
}

TEST(WholeFile, LeavesWhatIsProtectedFromWriting)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root writes everywhere";
    const TemporaryFolder folder;
    folder.write("plain", kOld);
    ::chmod(folder.file("plain").c_str(), 0444);
    EXPECT_NE(WholeFile(folder.file("plain")).result().error, "");
    ::chmod(folder.file("").c_str(), 0555);
    EXPECT_NE(WholeFile(folder.file("new")).result().error, "");
    ::chmod(folder.file("").c_str(), 0755);
}

} // namespace comfortics::tests
