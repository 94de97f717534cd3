#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "receive_desk.h"
#include "transmission/inbox_watch.h"
#include "transmission/receive_take.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::ReceiveDesk;

TEST(ReceiveTree, ListsTheAuthorAndGroupInboxesAndCountsTheirStories) {
    ReceiveDesk desk;
    desk.Wait("Ann", "b.xml", "x");
    desk.Wait("Ann", "a.xml", "x");
    desk.Wait("Ann", "a.jpg", "x");
    desk.Wait("Desk", "c.xml", "x");
    OpenReceiveWindow(desk.session, desk.receive);
    EXPECT_EQ(desk.Tree(),
              (std::vector<std::string>{"U Ann", "1U a.xml", "2U b.xml", "G Desk", "3G c.xml"}));
    EXPECT_EQ(desk.receive.state.Status().text, "Waiting stories: 3");
    EXPECT_TRUE(desk.receive.state.Control("cmdGetAll").enabled);

    desk.session.configuration.identity.author.clear();
    fs::remove_all(desk.folder / "inbox/Desk");
    UpdateReceive(desk.session, desk.receive);
    EXPECT_EQ(desk.Tree(), (std::vector<std::string>{"G Desk"}));
    for (const char* button : {"cmdGet", "cmdGetAndOpen", "cmdGetAll"})
        EXPECT_FALSE(desk.receive.state.Control(button).enabled) << button;
}

TEST(ReceiveTree, PreviewShowsTextLastLogAndTotals) {
    ReceiveDesk desk;
    desk.Wait("Ann", "a.xml", ReceiveDesk::Waiting("a.xml"));
    desk.Wait("Ann", "bad.xml", "<Story>");
    OpenReceiveWindow(desk.session, desk.receive);
    SelectReceiveNode(desk.session, desk.receive, "1U");
    EXPECT_EQ(desk.receive.storyText, "Fire\tin\r\n");
    EXPECT_EQ(desk.receive.lastLogText, "sent\r\nTotal chars=7 / Words=2");
    SelectReceiveNode(desk.session, desk.receive, "2U");
    EXPECT_EQ(desk.receive.storyText, "");
    ASSERT_EQ(desk.user.messages.size(), 1u);
    EXPECT_TRUE(desk.user.messages[0].starts_with("Parsing error:")) << desk.user.messages[0];
}

TEST(ReceiveTake, MovesTheStoryAndPictureAndRewritesTheHref) {
    ReceiveDesk desk;
    const std::string story = ReceiveDesk::Waiting("a.xml", "file:///my%20pic.jpg");
    desk.Wait("Ann", "a.xml", story);
    desk.Wait("Ann", "my pic.jpg", "JPEG");
    OpenReceiveWindow(desk.session, desk.receive);
    ASSERT_TRUE(desk.Take("a.xml"));

    std::string expected = story;
    const std::string personalPicture = (desk.folder / "me/images/my pic.jpg").string();
    expected.replace(expected.find("file:///my%20pic.jpg"), 20, "file://" + personalPicture);
    EXPECT_EQ(ReadBytes(desk.folder / "me/texts/a.xml"), expected);
    EXPECT_EQ(ReadBytes(desk.folder / "track/texts/a.xml"), expected);
    EXPECT_EQ(ReadBytes(personalPicture), "JPEG");
    EXPECT_EQ(ReadBytes(desk.folder / "track/images/my pic.jpg"), "JPEG");
    EXPECT_TRUE(fs::is_empty(desk.folder / "inbox/Ann"));
    EXPECT_EQ(desk.receive.takenStory, desk.folder / "me/texts/a.xml");
    EXPECT_EQ(desk.session.window.Status().text,
              "09:07 - Received stories: 1, Received photos: 1, Received other files: 0");
    EXPECT_EQ(desk.receive.state.Status().text, "Waiting stories: 0");
}

TEST(ReceiveTake, GroupTakeSignsTheStoryAndAStoryWithoutFilesIsNotRewritten) {
    ReceiveDesk desk;
    // A document type declaration does not survive a save: its presence shows the story was
    // copied as it came.
    const std::string story = ReceiveDesk::Waiting("a.xml", "", "<!DOCTYPE Story>\r\n");
    desk.Wait("Ann", "a.xml", story);
    desk.Wait("Desk", "g.xml", ReceiveDesk::Waiting("g.xml"));
    OpenReceiveWindow(desk.session, desk.receive);
    const ReceiveCounts counts = TakeAllStories(desk.session, desk.receive);
    EXPECT_EQ(counts.stories, 2);
    EXPECT_EQ(ReadBytes(desk.folder / "me/texts/a.xml"), story);
    const std::string group = ReadBytes(desk.folder / "me/texts/g.xml");
    EXPECT_NE(group.find("<LastSaveAuthor>Ann</LastSaveAuthor>"), std::string::npos) << group;
    EXPECT_EQ(ReadBytes(desk.folder / "track/texts/g.xml"), group);
}

TEST(ReceiveTake, RefusalsLeaveTheInboxAsItWas) {
    struct Case {
        const char* what;
        std::string story;
        Answer answer;
        std::string told;
    };
    const std::vector<Case> cases = {
        {"present, answered No", ReceiveDesk::Waiting("a.xml"), Answer::No, ""},
        {"does not parse", "<Story><p>", Answer::Yes, "Parsing error:"},
        {"climbing href", ReceiveDesk::Waiting("a.xml", "../../secret.jpg"), Answer::Yes,
         "The story a.xml names the file"},
    };
    for (const Case& test : cases) {
        ReceiveDesk desk;
        const fs::path waiting = desk.Wait("Ann", "a.xml", test.story);
        const fs::path personal = desk.folder.Write("me/texts/a.xml", "mine");
        if (test.answer == Answer::Yes) fs::remove(personal);
        desk.user.QueueAnswer(test.answer);
        OpenReceiveWindow(desk.session, desk.receive);
        EXPECT_FALSE(desk.Take("a.xml")) << test.what;
        EXPECT_EQ(ReadBytes(waiting), test.story) << test.what;
        EXPECT_EQ(fs::exists(personal), test.answer == Answer::No) << test.what;
        if (!test.told.empty()) {
            ASSERT_FALSE(desk.user.messages.empty()) << test.what;
            EXPECT_TRUE(desk.user.messages.back().starts_with(test.told)) << test.what;
        }
    }
}

TEST(ReceiveTake, SelectionAndInboxChecks) {
    ReceiveDesk desk;
    desk.Wait("Ann", "a.xml", ReceiveDesk::Waiting("a.xml"));
    OpenReceiveWindow(desk.session, desk.receive);
    EXPECT_FALSE(TakeSelectedStory(desk.session, desk.receive));
    EXPECT_EQ(desk.user.messages.back(), "Select story");
    desk.receive.selected = "U";
    EXPECT_FALSE(TakeSelectedStory(desk.session, desk.receive));
    EXPECT_EQ(desk.receive.selected, "");
    EXPECT_EQ(desk.user.beeps, 2);

    fs::rename(desk.folder / "inbox/Ann", desk.folder / "gone");
    EXPECT_FALSE(desk.Take("a.xml"));
    EXPECT_EQ(desk.user.messages.back(), (desk.folder / "inbox/Ann").string() +
                                             "\nInvalid directory\n\n" +
                                             desk.session.Message("WarningAdministrator"));
}

TEST(InterceptTake, LogsTheInterceptionAndSignsTheStory) {
    ReceiveDesk desk;
    desk.session.configuration.workflow.interceptedUsers = {{"Bob", "User"}, {"Desk", "Group"}};
    desk.Wait("Desk", "g.xml", ReceiveDesk::Waiting("g.xml"));
    OpenInterceptWindow(desk.session, desk.receive);
    EXPECT_EQ(desk.Tree(), (std::vector<std::string>{"2G Desk", "1/2G g.xml"}));
    ASSERT_TRUE(desk.Take("g.xml"));
    const std::string taken = ReadBytes(desk.folder / "me/texts/g.xml");
    EXPECT_NE(taken.find("<LastSaveAuthor>Ann</LastSaveAuthor>"), std::string::npos);
    EXPECT_NE(taken.find("<Log Type=\"U\">sent</Log><Log Type=\"I\">05/03/2024 09:07 - "
                         "Intercepted by Ann</Log></Logs>"),
              std::string::npos)
        << taken;
    EXPECT_EQ(ReadBytes(desk.folder / "track/texts/g.xml"), taken);
    EXPECT_FALSE(fs::exists(desk.folder / "inbox/Desk/g.xml"));
}

TEST(InboxWatch, CountsInboxesAndAMessageComesFirst) {
    struct Case {
        std::string author;
        std::vector<std::string> files;
        InboxPass expected;
    };
    const std::vector<Case> cases = {
        {"Ann", {}, {false, 0}},
        {"Ann", {"Ann/a.xml", "Ann/b.xml"}, {false, 1}},
        {"Ann", {"Ann/a.xml", "Desk/b.xml"}, {false, 2}},
        {"Ann", {"Ann/a.xml", "Ann/{msg}.txt"}, {true, 0}},
        {"", {"Ann/a.xml", "Ann/{msg}.txt", "Desk/b.xml"}, {false, 1}},
    };
    for (const Case& test : cases) {
        ReceiveDesk desk;
        desk.session.configuration.identity.author = test.author;
        for (const std::string& file : test.files)
            desk.folder.Write("inbox/" + file, "x");
        const InboxPass pass = CheckInbox(desk.session);
        EXPECT_EQ(pass.message, test.expected.message) << test.files.size();
        EXPECT_EQ(pass.count, test.expected.count) << test.files.size();
        EXPECT_EQ(ShowInboxCount(desk.session.window, pass.count), pass.count != 0);
        EXPECT_EQ(desk.session.window.Control("ReceiveWorkflow").enabled, pass.count != 0);
    }
    ReceiveDesk desk;
    EXPECT_EQ(WaitingTip(desk.session, 2), "Tessarin " TESSARIN_VERSION " - Waiting stories: 2");
}

}  // namespace
}  // namespace tessarin
