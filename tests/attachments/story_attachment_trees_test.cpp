#include "attachments/story_attachment_trees.h"

#include <gtest/gtest.h>

#include "attachments/attachments.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using namespace testing;

class StoryAttachmentTreesTest : public ::testing::Test {
  protected:
    StoryAttachmentTreesTest() : session(MakeAppPaths(folder.path()), user) {
        session.configuration.messages.Set("ImagesLabel", "Photos");
    }

    // "text|tag" of each node of a tree, depth first.
    std::vector<std::string> Nodes(std::string_view tree) {
        std::vector<std::string> lines;
        for (const TreeNode* node : session.window.Tree(tree).AllNodes())
            lines.push_back(node->text + "|" + node->tag);
        return lines;
    }

    TempDir folder;
    ScriptedInteraction user;
    EditorSession session;
};

TEST_F(StoryAttachmentTreesTest, TheTreesGetTheirRootsAndTheStorysAttachments) {
    ShowStoryAttachmentTrees(session);
    EXPECT_EQ(Nodes(kImagesTree), (std::vector<std::string>{"Photos [0]|"}));
    EXPECT_EQ(Nodes(kOtherFilesTree), (std::vector<std::string>{"Other files [0]|"}));

    session.story.images.push_back({0, "/pics/harbour.jpg", "", "", {"sea"}});
    session.story.files.push_back({0, "/docs/notes.txt", ""});
    ShowStoryAttachmentTrees(session);
    EXPECT_EQ(Nodes(kImagesTree),
              (std::vector<std::string>{"Photos [1]|", "harbour.jpg|/pics/harbour.jpg", "sea|"}));
    EXPECT_EQ(Nodes(kOtherFilesTree),
              (std::vector<std::string>{"Other files [1]|", "notes.txt|/docs/notes.txt"}));

    // A tree that already shows the story keeps its open nodes.
    session.window.Tree(kImagesTree).Find("1I")->expanded = true;
    ShowStoryAttachmentTrees(session);
    EXPECT_TRUE(session.window.Tree(kImagesTree).Find("1I")->expanded);

    session.story.images.front().path = "/pics/market.jpg";
    session.story.files.clear();
    ShowStoryAttachmentTrees(session);
    EXPECT_EQ(Nodes(kImagesTree)[1], "market.jpg|/pics/market.jpg");
    EXPECT_EQ(Nodes(kOtherFilesTree), (std::vector<std::string>{"Other files [0]|"}));
}

}  // namespace
}  // namespace tessarin
