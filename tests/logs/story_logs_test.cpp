#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/read_only_file.h"
#include "common/scoped_environment.h"
#include "logs/add_log_to_story.h"
#include "logs/story_log_view.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::ScopedEnvironment;
using testing::TempDir;

struct LogDesk {
    ScopedEnvironment shortDate{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder.path()), user};
};

TEST(StoryLogs, AddLogToStoryWritesIntoAReadOnlyStory) {
    LogDesk desk;
    desk.session.configuration.identity.author = "Ann Lee";
    desk.session.window.Control("lblLastSaveDate").caption = "Saved";
    const auto story = desk.folder.Write(
        "fire.xml",
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<Story><Metadata>"
        "<LastSaveDate>1</LastSaveDate><LastSaveAuthor>Jo</LastSaveAuthor></Metadata>"
        "</Story>\r\n");
    MakeReadOnly(story);
    const LocalDateTime now{2024, 3, 5, 9, 7, 0};
    const StoryContext context = desk.session.MakeStoryContext();
    ASSERT_TRUE(
        AddLogToStory(story, "G", TransmissionLogText("Ann Lee", "Desk", now), context, now));
    ASSERT_TRUE(AddLogToStory(story, "", "by hand", context, now));
    EXPECT_EQ(ReadBytes(story),
              "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<Story><Metadata>"
              "<LastSaveDate Name=\"Saved\">05/03/2024 09:07</LastSaveDate><LastSaveAuthor>Ann Lee"
              "</LastSaveAuthor></Metadata><Logs><Log Type=\"G\">05/03/2024 09:07 - Ann Lee -&gt; "
              "Desk</Log><Log>by hand</Log></Logs></Story>\r\n");
    EXPECT_FALSE(IsReadOnlyFile(story));
}

TEST(StoryLogs, ViewerOrderColoursAndClearing) {
    LogDesk desk;
    desk.session.story.logs = {{"sent", "U"}, {"laid out", "L"}, {"no type", ""}};
    const auto reversed = LogsInOrder(desk.session.story.logs, LogOrder::Reverse);
    ASSERT_EQ(reversed.size(), 3u);
    EXPECT_EQ(reversed.front().text, "no type");
    EXPECT_EQ(LogsInOrder(desk.session.story.logs, LogOrder::File), desk.session.story.logs);
    EXPECT_EQ(LogTypeColour("L"), Rgb(255, 0, 0));
    EXPECT_FALSE(LogTypeColour("").has_value());

    EXPECT_EQ(StoredLogOrder(desk.session.profile), LogOrder::File);
    StoreLogOrder(desk.session.profile, LogOrder::Reverse);
    EXPECT_EQ(StoredLogOrder(desk.session.profile), LogOrder::Reverse);

    desk.user.QueueAnswer(Answer::No);
    EXPECT_FALSE(ClearLogs(desk.session));
    EXPECT_EQ(desk.session.story.logs.size(), 3u);
    EXPECT_TRUE(ClearLogs(desk.session));
    EXPECT_EQ(desk.user.questions,
              (std::vector<std::string>{"Confirm Logs clearing", "Confirm Logs clearing"}));
    EXPECT_TRUE(desk.session.story.logs.empty());
    EXPECT_TRUE(desk.session.storyModified);
    EXPECT_FALSE(desk.session.window.Control("Logs").enabled);
}

}  // namespace
}  // namespace tessarin
