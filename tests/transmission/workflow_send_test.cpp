#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/read_only_file.h"
#include "scratch_mount.h"
#include "transmission/remove_story.h"
#include "transmission/send_list.h"
#include "transmission/story_control.h"
#include "transmission/workflow_destinations.h"
#include "transmission/workflow_message.h"
#include "transmission/workflow_send.h"
#include "workflow_desk.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::ScratchMount;
using testing::WorkflowDesk;

// A desk with two stories in the list, each with a picture of 64 KB.
struct ListedDesk : WorkflowDesk {
    ListedDesk() {
        for (const char* name : {"alpha", "beta"})
            EXPECT_TRUE(Stage(name, 64 * 1024));
    }

    SendOutcome SendTo(const std::string& destination) {
        EXPECT_TRUE(SelectDestinationNamed(window, destination));
        return SendWorkflow(session, window);
    }

    fs::path Upload(const std::string& name) const { return session.paths.uploadDir / name; }
};

TEST(SendList, ListsTheStoriesWithTheirPicturesAndCounts) {
    ListedDesk desk;
    std::vector<std::string> nodes;
    for (const TreeNode* node : desk.window.state.Tree("treeUpload").AllNodes())
        nodes.push_back(node->key + " " + node->tag + " " + node->text);
    EXPECT_EQ(nodes, (std::vector<std::string>{"A1 S alpha.xml", "A1I1 I alpha.jpg",
                                               "A2 S beta.xml", "A2I1 I beta.jpg"}));
    EXPECT_EQ(desk.window.state.Control("FrameStories").caption,
              "Stories:2 / Photos:2 / Other files:0");
    EXPECT_EQ(NoControlMarkerName("a.b.xml"), "a.b.nc");
    EXPECT_EQ(NoControlMarkerName("story"), "story.nc");
    EXPECT_EQ(ListedFileName("file:///a%20b.jpg"), "a b.jpg");
}

TEST(SendList, AnUncontrolledStoryHidesLayoutUntilItLeaves) {
    WorkflowDesk desk;
    desk.folder.Write("app/Upload/stale.nc", "");
    SetTreeUpload(desk.session, desk.window);
    EXPECT_FALSE(fs::exists(desk.session.paths.uploadDir / "stale.nc"));
    const auto destinations = [&] {
        std::string texts;
        for (const TreeNode* node : desk.window.state.Tree("treeUsers").AllNodes())
            texts += node->text + ";";
        return texts;
    };
    EXPECT_EQ(destinations(), "Send to;Ann;Desk;Page;");

    ChooseControl(desk.session, desk.window, false);
    desk.window.preparedStory = desk.Story("fire.xml", "");
    ASSERT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Staged);
    ChooseControl(desk.session, desk.window, true);  // refused while the marker stands
    EXPECT_FALSE(desk.window.ControlOn());
    EXPECT_FALSE(desk.window.state.Control("optControl0").enabled);
    EXPECT_EQ(destinations(), "Send to;Ann;Desk;");

    desk.window.selectedUpload = "A1";
    ASSERT_TRUE(RemoveStory(desk.session, desk.window));
    EXPECT_FALSE(IsReadOnlyFile(desk.folder / "stories/fire.xml"));
    EXPECT_FALSE(fs::exists(desk.session.paths.uploadDir / "fire.nc"));
    ChooseControl(desk.session, desk.window, true);
    EXPECT_EQ(destinations(), "Send to;Ann;Desk;Page;");
}

TEST(SendList, RemoveWantsAStoryNode) {
    ListedDesk desk;
    desk.window.selectedUpload = "A1I1";
    EXPECT_FALSE(RemoveStory(desk.session, desk.window));
    EXPECT_EQ(desk.window.state.Status().text, "Select story");
    EXPECT_TRUE(fs::exists(desk.Upload("alpha.jpg")));
}

// What stays of an item that did not arrive: the staged story as it was, its picture, its
// source read-only under its own name, and no log in the source.
void ExpectStillListed(const ListedDesk& desk, const std::string& name, const std::string& staged) {
    EXPECT_EQ(ReadBytes(desk.Upload(name + ".xml")), staged);
    EXPECT_TRUE(fs::exists(desk.Upload(name + ".jpg")));
    const fs::path source = desk.folder / ("stories/" + name + ".xml");
    EXPECT_TRUE(IsReadOnlyFile(source));
    EXPECT_EQ(ReadBytes(source).find("<Log"), std::string::npos);
    EXPECT_FALSE(fs::exists(desk.folder / ("stories/" + name + ".bml")));
}

TEST(SendFailure, AFullDiskKeepsWhatDidNotArrive) {
    ListedDesk desk;
    ScratchMount disk(desk.folder / "inbox/Ann", 96);
    if (!disk.Ready())
        GTEST_SKIP() << "a small tmpfs cannot be mounted here: that needs the superuser and the "
                        "right to mount";
    const std::string stagedBeta = ReadBytes(desk.Upload("beta.xml"));

    EXPECT_EQ(desk.SendTo("Ann"), SendOutcome::Failed);

    // alpha and its picture fit and are handled as sent; beta's picture does not fit.
    EXPECT_TRUE(fs::exists(desk.folder / "stories/alpha.bml"));
    EXPECT_FALSE(fs::exists(desk.Upload("alpha.xml")));
    ExpectStillListed(desk, "beta", stagedBeta);
    ASSERT_EQ(desk.user.messages.size(), 1u);
    EXPECT_EQ(desk.user.messages[0], "beta.jpg -> " +
                                         (desk.folder / "inbox/Ann/beta.jpg").string() +
                                         ": No space left on device\nIt stays in the send list.");
    EXPECT_EQ(desk.window.report.size(), 2u);
    for (const auto& entry : fs::directory_iterator(desk.folder / "inbox/Ann"))
        EXPECT_EQ(entry.path().string().find(".tmp"), std::string::npos) << entry.path();
}

TEST(SendFailure, AReadOnlyTargetKeepsEverything) {
    ListedDesk desk;
    ScratchMount disk(desk.folder / "inbox/Ann", 1024);
    if (!disk.Ready() || !disk.MakeReadOnly())
        GTEST_SKIP() << "a tmpfs cannot be mounted and made read-only here: that needs the "
                        "superuser and the right to mount";
    const std::string stagedAlpha = ReadBytes(desk.Upload("alpha.xml"));
    const std::string stagedBeta = ReadBytes(desk.Upload("beta.xml"));

    EXPECT_EQ(desk.SendTo("Ann"), SendOutcome::Failed);

    ExpectStillListed(desk, "alpha", stagedAlpha);
    ExpectStillListed(desk, "beta", stagedBeta);
    ASSERT_EQ(desk.user.messages.size(), 2u);
    EXPECT_NE(desk.user.messages[0].find("alpha.xml -> "), std::string::npos);
    EXPECT_NE(desk.user.messages[0].find(": Read-only file system"), std::string::npos);
    EXPECT_EQ(desk.window.stories.size(), 2u);
}

TEST(SendFailure, AMissingLayoutFolderKeepsTheLayoutItem) {
    ListedDesk desk;
    fs::remove_all(desk.folder / "export/texts");
    const std::string stagedAlpha = ReadBytes(desk.Upload("alpha.xml"));
    EXPECT_EQ(desk.SendTo("Page"), SendOutcome::Failed);
    ExpectStillListed(desk, "alpha", stagedAlpha);
    EXPECT_FALSE(fs::exists(desk.Upload("alpha.txt")));
}

TEST(SendFailure, AMissingInboxStopsTheSend) {
    ListedDesk desk;
    fs::remove_all(desk.folder / "inbox/Ann");
    EXPECT_EQ(desk.SendTo("Ann"), SendOutcome::Stopped);
    EXPECT_EQ(desk.user.messages, std::vector<std::string>{(desk.folder / "inbox/Ann").string() +
                                                           "\nInvalid directory\n\nContact your "
                                                           "system administrator"});
    EXPECT_EQ(desk.window.state.Status().text, "Invalid directory");
    EXPECT_EQ(desk.window.stories.size(), 2u);
}

TEST(SendNames, ANameThatIsAPathIsRefused) {
    ListedDesk desk;
    // A staged story whose picture climbs out of Upload.
    const std::string staged = ReadBytes(desk.Upload("alpha.xml"));
    std::string climbing = staged;
    climbing.replace(climbing.find("href=\"alpha.jpg\""), 16, "href=\"../../evil.jpg\"");
    desk.folder.Write("app/Upload/alpha.xml", climbing);
    desk.folder.Write("evil.jpg", "outside");
    SetTreeUpload(desk.session, desk.window);

    EXPECT_EQ(desk.SendTo("Ann"), SendOutcome::Failed);
    EXPECT_FALSE(fs::exists(desk.folder / "inbox/Ann/evil.jpg"));
    EXPECT_FALSE(fs::exists(desk.folder / "inbox/evil.jpg"));
    EXPECT_EQ(ReadBytes(desk.Upload("alpha.xml")), climbing);
    EXPECT_TRUE(fs::exists(desk.folder / "stories/beta.bml"));
    ASSERT_FALSE(desk.user.messages.empty());
    EXPECT_EQ(desk.user.messages[0],
              "../../evil.jpg: a file of the story alpha.xml is named by a "
              "path, not by a file name\nIt stays in the send list.");
}

TEST(SendNames, ADestinationThatIsAPathIsRefused) {
    WorkflowDesk desk;
    desk.session.configuration.workflow.allUsers.push_back({"../Ann", "U"});
    ChoosePreferred(desk.session, desk.window, false);
    desk.window.preparedStory = desk.Story("fire.xml", "");
    ASSERT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Staged);
    ASSERT_TRUE(SelectDestinationNamed(desk.window, "../Ann"));
    EXPECT_EQ(SendWorkflow(desk.session, desk.window), SendOutcome::Refused);
    EXPECT_EQ(desk.user.messages.back(),
              "The destination \"../Ann\" is not a folder name: nothing is sent to it");
    EXPECT_TRUE(fs::exists(desk.session.paths.uploadDir / "fire.xml"));

    SelectWorkflowTab(desk.session, desk.window, WorkflowTab::Message);
    SetMessageText(desk.window, "hello");
    desk.session.configuration.workflow.allUsers.back().name = "/tmp";
    SetTreeUsers(desk.session, desk.window);
    ASSERT_TRUE(SelectDestinationNamed(desk.window, "/tmp"));
    EXPECT_EQ(SendWorkflow(desk.session, desk.window), SendOutcome::Refused);
    EXPECT_FALSE(fs::exists("/tmp/{msg}.txt"));
}

TEST(SendMessage, FiveLinesInTheRecipientsInbox) {
    WorkflowDesk desk;
    SelectWorkflowTab(desk.session, desk.window, WorkflowTab::Message);
    SetMessageText(desk.window, "Call me\nabout the fire");
    ASSERT_TRUE(SelectDestinationNamed(desk.window, "Ann"));
    EXPECT_FALSE(SelectDestinationNamed(desk.window, "Desk"));  // groups take no message
    EXPECT_EQ(SendWorkflow(desk.session, desk.window), SendOutcome::Sent);
    EXPECT_EQ(ReadBytes(desk.folder / "inbox/Ann/{msg}.txt"),
              "Ann Lee\r\nAnn\r\n05/03/2024 09:07\r\n\r\nCall me\r\nabout the fire\r\n");
    EXPECT_EQ(WorkflowMessageBytes("Zo\xc3\xa9", "Ann", {2024, 1, 2, 3, 4, 5}, "a.xml", "x"),
              "Zo\xe9\r\nAnn\r\n02/01/2024 03:04\r\na.xml\r\nx\r\n");
}

}  // namespace
}  // namespace tessarin
