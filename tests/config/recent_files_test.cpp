#include "config/recent_files.h"

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using Entries = std::array<std::string, kRecentFileCount>;

TEST(UpdateMRU, NewPathsPushTheOthersDownAndTheOldestFallsOut) {
    RecentFiles list;
    for (const char* path : {"/s/1.xml", "/s/2.xml", "/s/3.xml", "/s/4.xml"}) {
        EXPECT_TRUE(UpdateMRU(list, path));
    }
    EXPECT_EQ(list.File, (Entries{"/s/4.xml", "/s/3.xml", "/s/2.xml", "/s/1.xml"}));
    EXPECT_TRUE(UpdateMRU(list, "/s/5.xml"));
    EXPECT_EQ(list.File, (Entries{"/s/5.xml", "/s/4.xml", "/s/3.xml", "/s/2.xml"}));
}

TEST(UpdateMRU, KnownPathMovesToTheTopAndOnlyThoseAboveItMoveDown) {
    RecentFiles list;
    list.File = {"a.xml", "b.xml", "c.xml", "d.xml"};
    EXPECT_TRUE(UpdateMRU(list, "c.xml"));
    EXPECT_EQ(list.File, (Entries{"c.xml", "a.xml", "b.xml", "d.xml"}));
    EXPECT_TRUE(UpdateMRU(list, "c.xml"));
    EXPECT_EQ(list.File, (Entries{"c.xml", "a.xml", "b.xml", "d.xml"}));
    // Paths are compared as they stand.
    EXPECT_TRUE(UpdateMRU(list, "C.xml"));
    EXPECT_EQ(list.File, (Entries{"C.xml", "c.xml", "a.xml", "b.xml"}));
}

TEST(UpdateMRU, OnlyStoriesWithTheXmlExtensionEnter) {
    RecentFiles list;
    list.File = {"a.xml", "", "", ""};
    for (const char* path : {"/s/story.doc", "/s/story.bml", "/s/story.xml.bak", "/s/xml",
                             "/s/dir.xml/story", "C:\\dir.xml\\story", ""}) {
        EXPECT_FALSE(UpdateMRU(list, path)) << path;
    }
    EXPECT_EQ(list.File, (Entries{"a.xml", "", "", ""}));
    EXPECT_TRUE(UpdateMRU(list, "C:\\News\\Story.XmL"));
    EXPECT_EQ(list.File[0], "C:\\News\\Story.XmL");
}

TEST(UpdateMRU, NothingHappensWhenTheListIsOff) {
    TempDir dir;
    RecentFiles list = ReadRecentFiles(
        ProfileFile(dir.Write("p.ini", "[FileMRU]\r\nUseMRU=0\r\nFile1=a.xml\r\n")).Load());
    EXPECT_FALSE(UpdateMRU(list, "b.xml"));
    EXPECT_EQ(list.File, (Entries{"a.xml", "", "", ""}));
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
    EXPECT_EQ(RecentFileDisplayName("C:\\News\\Today\\story.xml"), "story.xml");
    EXPECT_EQ(RecentFileDisplayName("/home/ana/story.xml"), "story.xml");
    EXPECT_EQ(RecentFileDisplayName("C:\\mixed/dir\\a.xml"), "a.xml");
    EXPECT_EQ(RecentFileDisplayName("story.xml"), "story.xml");

    RecentFiles list;
    EXPECT_FALSE(RecentFilesSeparatorVisible(list));
    list.File[3] = "d.xml";
    EXPECT_TRUE(RecentFilesSeparatorVisible(list));
}

}  // namespace
}  // namespace tessarin
