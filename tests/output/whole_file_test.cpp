// SPDX-License-Identifier: GPL-3.0-or-later
#include "full_disk.h"
#include "output/whole_file.h"
#include "temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <map>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace comfortics::tests {

namespace fs = std::filesystem;
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

} // namespace

TEST(WholeFile, ReplacesOrMakesTheFileBehindALinkWithItsRights)
{
    const TemporaryFolder folder;
    folder.write("old", kOld);
    fs::permissions(folder.file("old"), fs::perms(0606));
    folder.write("old.part1", "left by a killed program");
    const mode_t mask = ::umask(027);
    for (const char* name : {"old", "new"}) {
        const std::string link = folder.file(std::string("to ") + name);
        fs::create_symlink(name, link);
        EXPECT_EQ(errorOfWriting(link), "");
        EXPECT_EQ(readFile(folder.file(name)), std::string(1000000, 'x'));
        EXPECT_TRUE(fs::is_symlink(link));
    }
    ::umask(mask);
    EXPECT_EQ(fs::status(folder.file("old")).permissions(), fs::perms(0606));
    EXPECT_EQ(fs::status(folder.file("new")).permissions(), fs::perms(0640));
    EXPECT_EQ(folder.names().size(), 5u) << "nothing new is left beside";
}

TEST(WholeFile, KeepsTheOldFileWhenWritingFails)
{
    const TemporaryFolder folder;
    folder.write("old", kOld);
    for (const std::string& path : {folder.file("old"), folder.file("new")}) {
        for (const rlim_t limit : {0UL, 500500UL, 999999UL}) {
            const FullDisk full(limit);
            EXPECT_EQ(errorOfWriting(path), "The file " + path + " cannot be written: File too large.");
            EXPECT_EQ(folder.names().size(), 1u) << "something is left behind";
        }
        EXPECT_TRUE(WholeFile(path).write("given up"));
        EXPECT_EQ(folder.names().size(), 1u) << "something is left behind";
    }
    EXPECT_EQ(readFile(folder.file("old")), kOld);
}

TEST(WholeFileDeathTest, LeavesNothingWhenKilled)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("old", kOld);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto killedWhileWriting = [&] {
            WholeFile::leaveNothingWhenKilled();
            WholeFile(path + "2").commit();
            WholeFile file(path);
            file.write("half");
            ::raise(signal);
        };
        EXPECT_EXIT(killedWhileWriting(), testing::KilledBySignal(signal), "");
    }
    EXPECT_EQ(readFile(path), kOld);
    EXPECT_EQ(folder.names().size(), 2U) << "something is left behind";
}

TEST(WholeFile, SaysWhyAPlaceCannotBeWritten)
{
    const TemporaryFolder folder;
    folder.write("plain", kOld);
    const std::map<std::string, std::string> reasons = {
        {folder.file("missing/a"), ": No such file or directory."},
        {folder.file("plain/a"), ": Not a directory."},
        {folder.file("."), ": Is a directory."},
        {"", ": No such file or directory."},
    };
    for (const auto& [path, reason] : reasons)
        EXPECT_TRUE(WholeFile(path).result().error.ends_with(reason)) << path;
    EXPECT_TRUE(errorOfWriting("/dev/full").ends_with(": No space left on device."));
    EXPECT_EQ(errorOfWriting("/dev/null"), "") << "a device is written to directly";
    EXPECT_EQ(folder.names().size(), 1u);
    fs::permissions(folder.file("plain"), fs::perms(0444));
    EXPECT_EQ(WholeFile(folder.file("plain")).result().error.empty(), ::geteuid() == 0) << "write protected";
}

} // namespace comfortics::tests
