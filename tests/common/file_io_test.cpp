#include "common/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

size_t EntriesIn(const std::filesystem::path& folder) {
    size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder))
        ++count;
    return count;
}

TEST(ReadFileBytes, ReadsEveryByteOrNothing) {
    TempDir dir;
    const std::string bytes("a\0b\r\n\xFF", 6);
    EXPECT_EQ(ReadFileBytes(dir.Write("f.bin", bytes)), bytes);
    EXPECT_EQ(ReadFileBytes(dir.Write("empty", "")), "");
    EXPECT_EQ(ReadFileBytes(dir / "missing"), std::nullopt);
    EXPECT_EQ(ReadFileBytes(dir.path()), std::nullopt);
}

TEST(WriteFileAtomically, CreatesAndReplacesLeavingNoTemporaryFile) {
    TempDir dir;
    const auto file = dir / "story.xml";
    ASSERT_TRUE(WriteFileAtomically(file, "first"));
    EXPECT_EQ(ReadBytes(file), "first");
    ASSERT_TRUE(WriteFileAtomically(file, std::string("x\0y", 3)));
    EXPECT_EQ(ReadBytes(file), std::string("x\0y", 3));
    EXPECT_EQ(EntriesIn(dir.path()), 1u);
}

TEST(WriteFileAtomically, KeepsPermissionsAndRespectsReadOnly) {
    TempDir dir;
    const auto file = dir.Write("story.xml", "old");
    ::chmod(file.c_str(), 0640);
    ASSERT_TRUE(WriteFileAtomically(file, "new"));
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0640u);

    ::chmod(file.c_str(), 0444);
    EXPECT_FALSE(WriteFileAtomically(file, "newer"));
    EXPECT_EQ(ReadBytes(file), "new");
    EXPECT_EQ(EntriesIn(dir.path()), 1u);
}

TEST(WriteFileAtomically, FailsInAMissingFolder) {
    TempDir dir;
    EXPECT_FALSE(WriteFileAtomically(dir / "no" / "such.xml", "x"));
}

}  // namespace
}  // namespace tessarin
