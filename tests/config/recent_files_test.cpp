#include "config/recent_files.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using Entries = std::array<std::string, kRecentFileCount>;

TEST(UpdateMRU, StoriesGoOnTopAndKnownOnesMoveThere) {
    // Each row: the path opened and the list after it, from four entries taken in turn. Only
    // a story with the XML extension enters.
    const std::pair<const char*, Entries> steps[] = {
        {"a.xml", {"a.xml", "", "", ""}},
        {"b.xml", {"b.xml", "a.xml", "", ""}},
        {"c.xml", {"c.xml", "b.xml", "a.xml", ""}},
        {"d.xml", {"d.xml", "c.xml", "b.xml", "a.xml"}},
        {"e.xml", {"e.xml", "d.xml", "c.xml", "b.xml"}},  // the oldest falls out
        {"c.xml", {"c.xml", "e.xml", "d.xml", "b.xml"}},  // only those above it move down
        {"c.xml", {"c.xml", "e.xml", "d.xml", "b.xml"}},
        {"C.xml", {"C.xml", "c.xml", "e.xml", "d.xml"}},  // compared as it stands
        {"C:\\News\\Story.XmL", {"C:\\News\\Story.XmL", "C.xml", "c.xml", "e.xml"}},
    };
    RecentFiles list;
    for (const auto& [path, after] : steps) {
        SCOPED_TRACE(path);
        EXPECT_TRUE(UpdateMRU(list, path));
        EXPECT_EQ(list.File, after);
    }
    for (const char* path : {"/s/story.doc", "/s/story.bml", "/s/story.xml.bak", "/s/xml",
                             "/s/dir.xml/story", "C:\\dir.xml\\story", ""}) {
        EXPECT_FALSE(UpdateMRU(list, path)) << path;
    }
    EXPECT_EQ(list.File, (Entries{"C:\\News\\Story.XmL", "C.xml", "c.xml", "e.xml"}));
    // A list that is off takes nothing.
    TempDir dir;
    list = ReadRecentFiles(ProfileFile(dir.Write("p.ini", "[FileMRU]\r\nUseMRU=0\r\n")).Load());
    EXPECT_FALSE(UpdateMRU(list, "b.xml"));
    EXPECT_EQ(list.File, Entries{});
}

TEST(RecentFiles, WrittenBackAsFile1ToFile4AndClearedAsEmptyKeys) {
    TempDir dir;
    ProfileFile profile(dir.Write("p.ini", "[FileMRU]\r\nUseMRU=1\r\nFile2=old.xml\r\n"));
    RecentFiles list = ReadRecentFiles(profile.Load());
    EXPECT_EQ(list.File, (Entries{"", "old.xml", "", ""}));
    ASSERT_TRUE(UpdateMRU(list, "/home/ana/Stories/Élection.xml"));
    ASSERT_TRUE(WriteRecentFiles(profile, list));
    EXPECT_EQ(ReadBytes(profile.Path()),
              "[FileMRU]\r\nUseMRU=1\r\nFile2=\r\nFile1=/home/ana/Stories/\xC9lection.xml\r\n"
              "File3=old.xml\r\nFile4=\r\n");
    EXPECT_EQ(ReadRecentFiles(profile.Load()), list);

    ClearMRU(list);
    EXPECT_EQ(list.File, Entries{});
    ASSERT_TRUE(WriteRecentFiles(profile, list));
    EXPECT_EQ(ReadBytes(profile.Path()),
              "[FileMRU]\r\nUseMRU=1\r\nFile2=\r\nFile1=\r\nFile3=\r\nFile4=\r\n");
    EXPECT_EQ(ReadRecentFiles(profile.Load()), list);
}

TEST(RecentFiles, MenuShowsFileNamesAndTheSeparatorWhileAnEntryIsLeft) {
    for (const char* path : {"C:\\News\\Today\\story.xml", "/home/ana/story.xml",
                             "C:\\mixed/dir\\story.xml", "story.xml"}) {
        EXPECT_EQ(RecentFileDisplayName(path), "story.xml") << path;
    }
    RecentFiles list;
    EXPECT_FALSE(RecentFilesSeparatorVisible(list));
    list.File[3] = "d.xml";
    EXPECT_TRUE(RecentFilesSeparatorVisible(list));
}

}  // namespace
}  // namespace tessarin
