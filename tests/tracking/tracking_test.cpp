#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tracking/tracking_actions.h"
#include "tracking/tracking_desk.h"
#include "tracking/tracking_message.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::TrackingDesk;

using Lines = std::vector<std::string>;
constexpr TrackingDispatch kByDate = TrackingDispatch::ByDate;

TEST(TrackingTree, DispatchesFiltersAndSearches) {
    TrackingDesk desk;
    desk.Track({.name = "a.xml", .section = "City", .image = "a.jpg"});
    desk.Track({.name = "b.xml", .author = "Bob", .logType = "L", .title = ""});
    desk.Track({.name = "c.xml", .date = "0", .form = "Flash", .title = "Flood"});
    desk.Track({.name = "d.xml", .date = "01/03/2024", .lastAuthor = "Kim", .logType = "I"});
    desk.folder.Write("track/texts/broken.xml", "<Story><Metadata>");
    const std::string today = "[20240305] Tuesday, March 5, 2024";
    const std::string past = "[20240301] Friday, March 1, 2024";

    struct Case {
        TrackingChoices choices;
        std::string search;
        Lines tree;
        std::string counts;
    };
    const std::vector<Case> cases = {
        {{},
         "",
         {past, "  Herald", "    Local", "      [d.xml] Fire #7", today, "  Herald", "    Local",
          "      City", "        [a.xml] Fire #7", "          a.jpg", "      [b.xml] #8", "[Date] ",
          "  Herald", "    Local", "      [c.xml] Flood #7"},
         "Stories: 4, Photos: 1, Other files: 0"},
        {{.dispatch = TrackingDispatch::ByAuthor, .byForm = true, .show = TrackingShow::Layout},
         "",
         {"Bob", "  " + today, "    Herald", "      Local", "        Brief",
          "          [b.xml] #8"},
         "Stories: 1, Photos: 0, Other files: 0"},
        {{.dispatch = TrackingDispatch::ByLastSaveAuthor, .show = TrackingShow::Editorial},
         "flood",
         {"Jo", "  [Date] ", "    Herald", "      Local", "        [c.xml] Flood #7"},
         "Stories: 1, Photos: 0, Other files: 0, Stories found: 1"},
        {{.dispatch = kByDate, .show = TrackingShow::Editorial},
         "5\xE2\x82\xAC",
         {past, "  Herald", "    Local", "      [d.xml] Fire #7", today, "  Herald", "    Local",
          "      City", "        [a.xml] Fire #7", "          a.jpg", "[Date] ", "  Herald",
          "    Local", "      [c.xml] Flood #7"},
         "Stories: 3, Photos: 1, Other files: 0, Stories found: 4"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(desk.Tree(test.choices, test.search), test.tree) << test.search;
        EXPECT_EQ(desk.window.state.Control("lblTreeTracking").caption, test.counts);
    }
    desk.window.matchCase = true;
    EXPECT_EQ(desk.Tree({}, "flood").size(), 0u);
    EXPECT_EQ(desk.window.state.List("lstTxtSearch").items.front().text, "flood");

    desk.Tree({});
    const TreeNode* pastNode = desk.window.state.Tree("treeTracking").Find(desk.KeyOf(past));
    const TreeNode* todayNode = desk.window.state.Tree("treeTracking").Find(desk.KeyOf(today));
    ASSERT_TRUE(pastNode && todayNode);
    EXPECT_TRUE(pastNode->bold && pastNode->colour == kPastDateColour && pastNode->tag == "R");
    EXPECT_TRUE(!todayNode->bold && todayNode->colour == kDateColour);
}

TEST(TrackingTree, RereadsOnlyWhatChanged) {
    TrackingDesk desk;
    desk.Track({.name = "a.xml"});
    EXPECT_EQ(desk.Tree({}).back(), "      [a.xml] Fire #7");
    // The same size and time: the earlier reading stands.
    const fs::path file = desk.folder / "track/texts/a.xml";
    const fs::file_time_type time = fs::last_write_time(file);
    desk.Track({.name = "a.xml", .title = "Fira"});
    fs::last_write_time(file, time);
    EXPECT_EQ(desk.Tree({}).back(), "      [a.xml] Fire #7");
    fs::last_write_time(file, time + std::chrono::seconds(1));
    EXPECT_EQ(desk.Tree({}).back(), "      [a.xml] Fira #7");
    fs::remove(file);
    EXPECT_TRUE(desk.Tree({}).empty());
}

TEST(TrackingActions, DeletesWithRightsAndQuestion) {
    TrackingDesk desk;
    desk.Track({.name = "a.xml", .image = "a.jpg"});
    desk.Track({.name = "b.xml", .date = "0"});
    desk.Tree({});
    const std::string date = desk.KeyOf("[20240305] Tuesday, March 5, 2024");
    const TreeNode& dateNode = *desk.window.state.Tree("treeTracking").Find(date);
    const TrackingPopup popup = PopupEntriesOf(desk.session, dateNode);
    EXPECT_TRUE(popup.deleteStories && popup.deleteAllStories && !popup.sendMessage);
    EXPECT_TRUE(
        PopupEntriesOf(desk.session,
                       *desk.window.state.Tree("treeTracking").Find(desk.KeyOf("[a.xml] Fire")))
            .sendMessage);

    desk.user.QueueAnswer(Answer::No);
    EXPECT_FALSE(DeleteTrackingNode(desk.session, desk.window, date));
    EXPECT_EQ(desk.user.questions.back(), "Delete\n[20240305] Tuesday, March 5, 2024");
    EXPECT_TRUE(DeleteTrackingNode(desk.session, desk.window, date));
    EXPECT_FALSE(fs::exists(desk.folder / "track/texts/a.xml"));
    EXPECT_FALSE(fs::exists(desk.folder / "track/images/a.jpg"));
    EXPECT_EQ(desk.window.counts.stories, 1);

    desk.session.configuration.workflow.TrackingClearAllowed = false;
    EXPECT_FALSE(DeleteAllTracking(desk.session, desk.window, "[Date] "));
    // The update after the deletion made a new tree: the undated node is looked up again.
    const TreeNode& undated = *desk.window.state.Tree("treeTracking").Find(desk.KeyOf("[Date] "));
    EXPECT_FALSE(PopupEntriesOf(desk.session, undated).deleteStories);
    desk.session.configuration.workflow.TrackingClearAllowed = true;
    EXPECT_TRUE(DeleteAllTracking(desk.session, desk.window, "[Date] "));
    EXPECT_TRUE(fs::is_empty(desk.folder / "track/texts"));
}

TEST(TrackingActions, StoryDisplayShowsLogsAndWhereItWaits) {
    TrackingDesk desk;
    desk.Track({.name = "a.xml", .image = "a.jpg"});
    desk.folder.Write("inbox/Desk/a.xml", "waiting");
    desk.Tree({});
    SelectTrackingNode(desk.session, desk.window, desk.KeyOf("[a.xml] Fire"));
    EXPECT_EQ(desk.window.storyText, "Fire\r\nPrice 5\xE2\x82\xAC\r\nTotal chars=5 / Words=0");
    ASSERT_EQ(desk.window.logs.size(), 2u);
    EXPECT_EQ(desk.window.logs[1].type, "U");
    EXPECT_EQ(desk.window.lastAuthor, "Jo");
    EXPECT_EQ(desk.window.waitingIn, "Desk");
    SelectTrackingNode(desk.session, desk.window, desk.KeyOf("a.jpg"));
    EXPECT_EQ(desk.window.picture, desk.folder / "track/images/a.jpg");
    EXPECT_TRUE(desk.window.logs.empty());
}

TEST(TrackingChoicesStore, RoundTripsThroughThePreferences) {
    TrackingDesk desk;
    const TrackingChoices chosen{TrackingDispatch::ByLastSaveAuthor, true, TrackingShow::Layout,
                                 true};
    ChooseTracking(desk.session, desk.window, chosen);
    const TrackingChoices read = ReadTrackingChoices(desk.session.profile);
    EXPECT_EQ(read.dispatch, chosen.dispatch);
    EXPECT_EQ(read.show, chosen.show);
    EXPECT_TRUE(read.byForm && read.automaticUpdate);
    EXPECT_EQ(desk.session.profile.Read(kTrackingSection, "TrackingDisplayAllStories"), "0");
}

TEST(TrackingMessages, SendReadReplaceAndRemove) {
    TrackingDesk desk;
    desk.Track({.name = "a.xml", .lastAuthor = "Ann", .logType = "L"});
    desk.Tree({});
    SelectTrackingNode(desk.session, desk.window, desk.KeyOf("[a.xml] Fire"));
    const TreeNode& story =
        *desk.window.state.Tree("treeTracking").Find(desk.KeyOf("[a.xml] Fire"));
    MessageWindow window;
    desk.user.QueueAnswer(Answer::No);
    EXPECT_FALSE(StartTrackingMessage(desk.session, desk.window, story, window));
    ASSERT_TRUE(StartTrackingMessage(desk.session, desk.window, story, window));
    EXPECT_FALSE(window.state.Control("cmdOK").enabled);
    for (const char* text : {"First", "Second\nline"}) {
        SetTrackingMessageText(window, text);
        ASSERT_TRUE(ConfirmMessage(desk.session, window));
    }
    EXPECT_EQ(ReadBytes(desk.folder / "inbox/Ann/{msg}.txt"),
              "Ann\r\nAnn\r\n05/03/2024 09:07\r\na.xml\r\nSecond\r\nline\r\n");
    EXPECT_EQ(desk.session.profile.Read(kTrackingSection, "Message"), "Second line");

    MessageWindow reading;
    ASSERT_TRUE(OpenReadingMessage(desk.session, reading));
    EXPECT_EQ(reading.message, "Second");
    EXPECT_TRUE(reading.state.Control("cmdOpen").visible);
    desk.folder.Write("me/sub/A.XML", ReadBytes(desk.folder / "track/texts/a.xml"));
    EXPECT_TRUE(OpenMessageStory(desk.session, reading));
    EXPECT_EQ(desk.session.StoryPath(), desk.folder / "me/sub/A.XML");
    EXPECT_FALSE(fs::exists(desk.folder / "inbox/Ann/{msg}.txt"));

    desk.folder.Write("inbox/Ann/{msg}.txt", "Bob\r\nAnn\r\nnow\r\n\r\nHello\r\n");
    ASSERT_TRUE(OpenReadingMessage(desk.session, reading));
    EXPECT_FALSE(reading.state.Control("cmdOpen").visible);
    EXPECT_FALSE(reading.state.Control("lblTxtStory").visible);
    ASSERT_TRUE(ConfirmMessage(desk.session, reading));
    EXPECT_FALSE(OpenReadingMessage(desk.session, reading));
}

}  // namespace
}  // namespace tessarin
