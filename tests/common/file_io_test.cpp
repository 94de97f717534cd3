#include "common/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "common/file_copy.h"
#include "common/temporary_files.h"
#include "support/finished_process.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::FinishedProcessId;
using testing::ReadBytes;
using testing::TempDir;
using testing::TemporaryNameOf;

std::size_t EntriesIn(const std::filesystem::path& folder) {
    const std::filesystem::directory_iterator entries(folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

TEST(ReadFileBytes, ReadsEveryByteOrNothing) {
    TempDir dir;
    const std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_EQ(ReadFileBytes(dir.Write("f.bin", bytes)), bytes);
    EXPECT_EQ(ReadFileBytes(dir.Write("empty", "")), "");
    EXPECT_EQ(ReadFileBytes(dir / "missing"), std::nullopt);
    EXPECT_EQ(ReadFileBytes(dir.path()), std::nullopt);
}

TEST(WriteFileAtomically, ReplacesKeepingPermissionsAndLeavesNoTemporaryFile) {
    TempDir dir;
    const auto file = dir / "story.xml";
    ASSERT_TRUE(WriteFileAtomically(file, "first"));
    ::chmod(file.c_str(), 0640);
    ASSERT_TRUE(WriteFileAtomically(file, std::string("x\0y", 3)));
    EXPECT_EQ(ReadBytes(file), std::string("x\0y", 3));
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);

    ::chmod(file.c_str(), 0444);
    EXPECT_FALSE(WriteFileAtomically(file, "newer"));
    EXPECT_EQ(ReadBytes(file), std::string("x\0y", 3));
    EXPECT_EQ(EntriesIn(dir.path()), 1u);
    EXPECT_FALSE(WriteFileAtomically(dir / "no" / "such.xml", "x"));
}

// On one file system the delivery is a second name of the source, over what stood there; a
// failure is told with its reason. (Across file systems it copies: the send's full-disk test
// delivers from Upload to a tmpfs.)
TEST(LinkOrCopyFile, TakesTheSourceOverBySecondNameOrCopies) {
    TempDir dir;
    const auto source = dir.Write("photo.jpg", "jpeg");
    const auto target = dir.Write("inbox/photo.jpg", "older");
    ASSERT_EQ(LinkOrCopyFile(source, target), "");
    struct stat from {
    }, to{};
    ASSERT_EQ(::stat(source.c_str(), &from), 0);
    ASSERT_EQ(::stat(target.c_str(), &to), 0);
    EXPECT_EQ(from.st_ino, to.st_ino);
    EXPECT_EQ(EntriesIn(dir / "inbox"), 1u);

    EXPECT_NE(LinkOrCopyFile(dir / "missing.jpg", dir / "inbox/x.jpg"), "");
    EXPECT_NE(LinkOrCopyFile(source, dir / "no/such/photo.jpg"), "");
}

TEST(WriteFileKeepingBackup, TheBackupHoldsThePreviousContent) {
    TempDir dir;
    const auto file = dir / "story.xml";
    const auto backup = dir / "story.bml";
    ReplaceResult result = WriteFileKeepingBackup(file, "first", backup);
    EXPECT_TRUE(result.written);
    EXPECT_FALSE(result.backupKept);  // nothing to keep yet
    EXPECT_FALSE(std::filesystem::exists(backup));

    // What a killed save left beside the backup goes with the next save (two entries remain).
    dir.Write(TemporaryNameOf("story.bml", FinishedProcessId()), "x");
    for (const char* next : {"second", "third"}) {
        const std::string previous = ReadBytes(file);
        result = WriteFileKeepingBackup(file, next, backup);
        EXPECT_TRUE(result.written && result.backupKept);
        EXPECT_EQ(ReadBytes(file), next);
        EXPECT_EQ(ReadBytes(backup), previous);
    }
    EXPECT_EQ(EntriesIn(dir.path()), 2u);

    ::chmod(file.c_str(), 0444);
    result = WriteFileKeepingBackup(file, "fourth", backup);
    EXPECT_FALSE(result.written || result.backupKept);
    EXPECT_EQ(ReadBytes(file), "third");
    EXPECT_EQ(ReadBytes(backup), "second");
}

TEST(RemoveStaleTemporaryFiles, OnlyThoseOfProcessesThatEnded) {
    TempDir dir;
    const int ended = FinishedProcessId();
    const int running = static_cast<int>(::getpid());
    const auto staleOfStory = dir.Write(TemporaryNameOf("story.xml", ended, 3), "half");
    const auto liveOfStory = dir.Write(TemporaryNameOf("story.xml", running, 7), "busy");
    const auto staleOfOther = dir.Write(TemporaryNameOf("other.xml", ended), "half");
    const auto notTemporary = dir.Write("notes.tmp12-x", "mine");
    const auto hugePid = dir.Write("a.ini.tmp99999999999999999999-0", "half");

    RemoveStaleTemporaryFilesOf(dir / "story.xml");
    EXPECT_FALSE(std::filesystem::exists(staleOfStory));
    EXPECT_TRUE(std::filesystem::exists(liveOfStory));
    EXPECT_TRUE(std::filesystem::exists(staleOfOther));

    RemoveStaleTemporaryFilesIn(dir.path());
    EXPECT_FALSE(std::filesystem::exists(staleOfOther));
    EXPECT_FALSE(std::filesystem::exists(hugePid));
    EXPECT_TRUE(std::filesystem::exists(liveOfStory));
    EXPECT_TRUE(std::filesystem::exists(notTemporary));

    // A write removes what a killed writer of the same file left.
    dir.Write(TemporaryNameOf("story.xml", ended, 4), "half");
    ASSERT_TRUE(WriteFileAtomically(dir / "story.xml", "whole"));
    EXPECT_EQ(EntriesIn(dir.path()), 3u);  // the story, the live file, notes
}

}  // namespace
}  // namespace tessarin
