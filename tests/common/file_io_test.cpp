#include "common/file_io.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

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

}  // namespace
}  // namespace tessarin
