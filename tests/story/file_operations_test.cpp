#include "story/file_operations.h"

#include <gtest/gtest.h>

#include "common/scoped_environment.h"
#include "story/story_file_writer.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::ScopedEnvironment;
using testing::TempDir;

// An editor session in a temporary application directory: one newsroom with two forms showing
// every box, the English messages, scripted answers, and the clock frozen.
class FileOperationsTest : public ::testing::Test {
  protected:
    FileOperationsTest() : session_(MakeAppPaths(app_.path()), user_) {
        for (const MessageDefault& message : MessageDefaults())
            session_.configuration.messages.Set(message.key, std::string(message.text));
        session_.configuration.identity.author = "Jean Dupont";
        for (const char* name : {"Article", "Brief"}) {
            session_.configuration.forms.emplace_back().name = name;
            session_.configuration.forms.back().textBoxDigits = "1234567";
        }
        session_.window.Control("lblLastSaveDate").caption = "Last save";
        fs::create_directories(stories_);
    }

    // A story file with text in the main box, as a save writes it.
    fs::path WriteStory(const std::string& name, std::u16string_view text, int form = 0) {
        StoryRecord story;
        story.formIndex = form;
        story.boxes[6] = StyledText(text);
        return app_.Write("stories/" + name, ComposeStoryFile(story, session_.MakeStoryContext(),
                                                              name, {2025, 2, 20, 9, 30, 0}));
    }

    // What typing into a story named name leaves.
    void Type(std::u16string_view text, const std::string& name = "story.xml") {
        session_.story.boxes[6] = StyledText(text);
        session_.storyDirectory = stories_;
        session_.storyFileName = name;
        session_.storyModified = true;
    }

    std::u16string MainText() const { return session_.story.boxes[6].Text(); }
    bool Holds(const fs::path& file, std::string_view text) const {
        return ReadBytes(file).find(text) != std::string::npos;
    }

    ScopedEnvironment now_{"TESSARIN_NOW", "2025-02-20T09:30:00"};
    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    TempDir app_;
    fs::path stories_ = app_ / "stories";
    ScriptedInteraction user_;
    EditorSession session_;
};

TEST_F(FileOperationsTest, TheQuestionBeforeALossCancelsDropsOrSaves) {
    Type(u"Draft");
    user_.QueueAnswer(Answer::Cancel);
    EXPECT_FALSE(NewStory(session_));
    EXPECT_EQ(session_.window.Status().text, "Not saved story");
    EXPECT_TRUE(MainText() == u"Draft" && session_.storyModified && !session_.StoryPath().empty());
    user_.QueueAnswer(Answer::No);
    EXPECT_TRUE(NewStory(session_));
    EXPECT_TRUE(MainText().empty() && session_.StoryPath().empty() && fs::is_empty(stories_));
    Type(u"Locked");
    session_.mainBoxLocked = true;  // a read-only story counts as unchanged: nothing is asked
    EXPECT_TRUE(NewStory(session_));
    session_.mainBoxLocked = false;
    Type(u"Unnamed", "");  // Yes without a name: the save dialog, whose cancel stops everything
    EXPECT_FALSE(NewStory(session_));
    user_.QueuePath(stories_ / "named.xml");
    EXPECT_TRUE(NewStory(session_) && Holds(stories_ / "named.xml", "Unnamed"));
    EXPECT_EQ(user_.questions, std::vector<std::string>(4, "Save current story"));
}

TEST_F(FileOperationsTest, OpeningReadsNamesAndRecordsTheDirectoryAndTheRecentFile) {
    const fs::path file = WriteStory("brief.xml", u"From disk", 1);
    user_.QueuePath(file);
    ASSERT_TRUE(OpenStory(session_));
    EXPECT_TRUE(MainText() == u"From disk" && !session_.storyModified);
    EXPECT_TRUE(session_.StoryPath() == file && session_.panel.formInForce == 1);
    EXPECT_EQ(ReadBytes(app_ / "Tessarin.ini"),
              "[Configuration]\r\nDirStories=" + stories_.string() +
                  "\r\n[FileMRU]\r\nFile1=" + file.string() + "\r\nFile2=\r\nFile3=\r\nFile4=\r\n");
    session_.story.boxes[6] = StyledText(u"Edited");
    EXPECT_FALSE(OpenStory(session_));  // a cancelled dialog changes nothing
    EXPECT_EQ(MainText(), u"Edited");
    EXPECT_TRUE(OpenRecentFile(session_, 0) && MainText() == u"From disk");

    // Documents go to the import, which is told missing until there is one.
    const fs::path document = app_.Write("stories/letter.TXT", "Dear editor");
    EXPECT_FALSE(OpenStoryFile(session_, document));
    EXPECT_EQ(user_.messages.back(), "Importing documents is not available: " + document.string());
    EXPECT_EQ(session_.storyFileName, "brief.xml");
}

TEST_F(FileOperationsTest, ABackupStoryReplacesItsStoryWithARestoreLogOrEndsTheOpenOnNo) {
    const fs::path story = WriteStory("news.xml", u"Old version");
    const fs::path backup = WriteStory("news.bml", u"Backed up");
    user_.QueueAnswer(Answer::No);
    EXPECT_FALSE(OpenStoryFile(session_, backup));
    EXPECT_EQ(user_.questions.back(), "Replace story 'news.xml'\nby backup story 'news.bml'");
    EXPECT_TRUE(fs::exists(backup) && Holds(story, "Old version"));

    ASSERT_TRUE(OpenStoryFile(session_, backup));
    EXPECT_FALSE(fs::exists(backup));
    EXPECT_TRUE(session_.StoryPath() == story && MainText() == u"Backed up" &&
                Holds(story, "Backed up"));
    const StoryLog restored{"20/02/2025 09:30 - Backup story -> Story [Jean Dupont]", "A"};
    EXPECT_EQ(session_.story.logs, std::vector<StoryLog>{restored});
    // The restore log goes into the story file (where the log and the renewed last save stand
    // in the file is the story logs' test).
    EXPECT_NE(ReadBytes(story).find("<Logs><Log Type=\"A\">20/02/2025 09:30 - Backup story -&gt; "
                                    "Story [Jean Dupont]</Log></Logs></Story>"),
              std::string::npos);
}

TEST_F(FileOperationsTest, ThePersonalDirectoryHoldsTheDialogsBelowIt) {
    session_.configuration.workflow.Visible = true;
    session_.configuration.workflow.PersonalTextsDirectory = stories_.string();
    Type(u"Text", "");
    user_.QueuePath(stories_ / "sport" / "match.xml");
    user_.QueuePath(app_ / "elsewhere" / "match.xml");
    fs::create_directories(stories_ / "sport");
    EXPECT_TRUE(SaveStoryAs(session_) && fs::exists(stories_ / "sport" / "match.xml"));
    session_.storyModified = true;
    EXPECT_TRUE(SaveStoryAs(session_));
    EXPECT_EQ(user_.messages,
              std::vector<std::string>{"Invalid directory\nAllowed personal directory is:\n" +
                                       stories_.string()});
    EXPECT_TRUE(fs::exists(stories_ / "match.xml"));
    EXPECT_TRUE(Holds(app_ / "Tessarin.ini", "DirStories=" + stories_.string() + "\r\n"));
}

TEST_F(FileOperationsTest, SavingWritesOnlyChangesAndKeepsTheNextToLastVersionAsBackup) {
    session_.preferences.BackupStories = true;
    AppendTagWord(session_.window.Control("lblAuthor"), "mandatory");
    Type(u"First");
    session_.storyModified = false;
    EXPECT_FALSE(SaveCurrentStory(session_));
    EXPECT_TRUE(fs::is_empty(stories_));
    for (const char16_t* text : {u"First", u"Second", u"Third"}) {
        Type(text);
        session_.story.coldStory = true;  // exempt from the mandatory checks
        EXPECT_TRUE(SaveCurrentStory(session_));
    }
    EXPECT_TRUE(Holds(stories_ / "story.bml", "Second") && Holds(stories_ / "story.xml", "Third"));
}

TEST_F(FileOperationsTest, TheAutomaticSaveWritesOnlyANamedModifiedStoryUnattended) {
    session_.preferences.BackupAuto = session_.preferences.BackupStories = true;
    session_.preferences.BackupAutoTime = 2;
    session_.backupCountdown = 0;
    Type(u"Never named", "");
    BackupTick(session_);
    EXPECT_TRUE(fs::is_empty(stories_));
    const fs::path file = WriteStory("story.xml", u"On disk");
    Type(u"Typed");
    BackupTick(session_);         // 1: not yet
    BackupTick(session_, false);  // 0, but a dialog is open: the countdown starts again
    EXPECT_TRUE(Holds(file, "On disk"));
    BackupTick(session_);
    BackupTick(session_);
    EXPECT_TRUE(Holds(file, "Typed") && !session_.storyModified);
    EXPECT_FALSE(fs::exists(stories_ / "story.bml"));
}

}  // namespace
}  // namespace tessarin
