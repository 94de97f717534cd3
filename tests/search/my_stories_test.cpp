#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "config/messages_section.h"
#include "search/my_stories.h"
#include "search/search_tree.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::MakeStoryFile;
using testing::TempDir;

std::vector<std::string> Rows(const std::vector<DeskFile>& files) {
    std::vector<std::string> rows;
    for (const DeskFile& file : files)
        rows.push_back((file.archived ? "archives " : "personal ") + file.row.name +
                       (file.story ? " " + file.row.publication : ""));
    return rows;
}

class DeskDrawer : public ::testing::Test {
  protected:
    void SetUp() override {
        folder_.Write("mine/same.xml", MakeStoryFile("Mine", "a"));
        folder_.Write("mine/sent.bml", MakeStoryFile("Sent", "a"));
        folder_.Write("mine/notes.txt", "notes");
        folder_.Write("mine/broken.xml", "<Story>\n<Body></Story>");
        folder_.Write("old/same.xml", MakeStoryFile("Old", "a"));
    }
    std::vector<DeskFile> Get(bool includeBackups) {
        return GetDeskFiles(folder_ / "mine", folder_ / "old", includeBackups, cache_, user_);
    }
    TempDir folder_;
    SearchCache cache_;
    ScriptedInteraction user_;
};

TEST_F(DeskDrawer, ListsBothDirectoriesAndTellsStoriesThatDoNotParse) {
    EXPECT_EQ(Rows(Get(false)),
              (std::vector<std::string>{"personal notes.txt", "personal same.xml Mine",
                                        "archives same.xml Old"}));
    ASSERT_EQ(user_.messages.size(), 1u);
    EXPECT_EQ(user_.messages[0],
              "Parsing error:" + (folder_ / "mine/broken.xml").string() + "\nline:2, pos:15");
    EXPECT_EQ(Rows(Get(true)),
              (std::vector<std::string>{"personal notes.txt", "personal same.xml Mine",
                                        "personal sent.bml Sent", "archives same.xml Old"}));
}

TEST_F(DeskDrawer, MovingOverAStoryOfTheSameNameNeedsYes) {
    MessageTexts messages;
    messages.Set("StoryAlreadyPresent", "Story already present");
    messages.Set("StoryBackupReplace", "Replace story");
    const std::vector<DeskFile> files = Get(true);
    const DeskFile& mine = files[1];
    user_.QueueAnswer(Answer::No);
    EXPECT_FALSE(MoveBetweenDesks(mine, folder_ / "mine", folder_ / "old", messages, user_));
    ASSERT_EQ(user_.questions.size(), 1u);
    EXPECT_EQ(user_.questions[0], "Story already present 'same.xml'\nReplace story");
    EXPECT_TRUE(fs::exists(folder_ / "mine/same.xml"));

    user_.QueueAnswer(Answer::Yes);
    EXPECT_TRUE(MoveBetweenDesks(mine, folder_ / "mine", folder_ / "old", messages, user_));
    EXPECT_FALSE(fs::exists(folder_ / "mine/same.xml"));
    // Back from the archives, where no story of that name is left: nothing is asked.
    const std::vector<DeskFile> after = Get(true);
    const DeskFile& archived = after.back();
    EXPECT_EQ(archived.row.publication, "Mine");
    fs::permissions(archived.row.Path(), fs::perms::owner_read);
    EXPECT_TRUE(MoveBetweenDesks(archived, folder_ / "mine", folder_ / "old", messages, user_));
    EXPECT_EQ(user_.questions.size(), 2u);
    EXPECT_TRUE(fs::exists(folder_ / "mine/same.xml"));
    EXPECT_TRUE((fs::status(folder_ / "mine/same.xml").permissions() & fs::perms::owner_write) !=
                fs::perms::none);
}

}  // namespace
}  // namespace tessarin
