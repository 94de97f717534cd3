#include "story/save_story.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "common/scoped_environment.h"
#include "config/messages_section.h"
#include "story/story_file_writer.h"
#include "story_save_fixture.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::ScopedEnvironment;
using testing::StorySaveFixture;
using testing::TempDir;

constexpr LocalDateTime kNow{2025, 2, 20, 9, 30, 0};

class SaveStoryTest : public ::testing::Test {
  protected:
    // The English messages, as a configuration without its own texts gives them.
    SaveStoryTest() {
        for (const MessageDefault& message : MessageDefaults())
            fixture_.configuration.messages.Set(message.key, std::string(message.text));
    }

    SaveResult Save(bool unattended = false, std::function<bool()> saveAs = {}) {
        StoryContext context = fixture_.Context();
        return SaveStory(story_, context,
                         {directory_.path(), "story.xml", unattended, std::move(saveAs)});
    }

    // The bytes a save at kNow writes for the story as it stands before the save.
    std::string ExpectedBytes(const StoryRecord& story) {
        return ComposeStoryFile(story, fixture_.Context(), "story.xml", kNow);
    }

    fs::path StoryFile() const { return directory_ / "story.xml"; }

    ScopedEnvironment now_{"TESSARIN_NOW", "2025-02-20T09:30:00"};
    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    ScopedEnvironment longDate_{"TESSARIN_LONG_DATE", "dddd d MMMM yyyy"};
    TempDir directory_;
    StorySaveFixture fixture_;
    StoryRecord story_ = StorySaveFixture::OneWordStory();
};

TEST_F(SaveStoryTest, WritesTheFileTellsTheTimeAndStampsTheStory) {
    const std::string expected = ExpectedBytes(story_);
    const SaveResult result = Save();
    EXPECT_EQ(result.outcome, SaveOutcome::Saved);
    EXPECT_EQ(ReadBytes(StoryFile()), expected);
    EXPECT_EQ(fixture_.window.Status().text,
              "09:30 - Saved story: " + (directory_.path() / "story.xml").string());
    EXPECT_FALSE(fixture_.window.Status().errorPicture);
    EXPECT_EQ(story_.creation, (StoryTimestamp{"20/02/2025", "09:30"}));
    EXPECT_EQ(story_.lastSave, (StoryTimestamp{"20/02/2025", "09:30"}));
    EXPECT_TRUE(fixture_.user.questions.empty());
    EXPECT_TRUE(fixture_.user.messages.empty());
    EXPECT_EQ(result.backup, fs::path());
    // A creation date that is there stays.
    story_.creation = {"01/01/2025", "07:00"};
    Save();
    EXPECT_EQ(story_.creation, (StoryTimestamp{"01/01/2025", "07:00"}));
}

TEST_F(SaveStoryTest, MissingMandatoryFieldRefusesAndLeavesTheOldFileWhole) {
    directory_.Write("story.xml", "old version");
    AppendTagWord(fixture_.window.Control("lblAuthor"), "mandatory");
    const SaveResult result = Save();
    EXPECT_EQ(result.outcome, SaveOutcome::MandatoryFieldMissing);
    EXPECT_EQ(result.message, "Author: Mandatory field");
    EXPECT_EQ(result.field, "lblTxtAuthor");
    EXPECT_EQ(ReadBytes(StoryFile()), "old version");
    EXPECT_EQ(fixture_.window.Status().text, "Author: Mandatory field");
    EXPECT_TRUE(fixture_.window.Status().errorPicture);
    EXPECT_EQ(fixture_.user.messages, std::vector<std::string>{"Author: Mandatory field"});
    EXPECT_TRUE(story_.lastSave.Empty());
    // The automatic save skips the mandatory checks.
    EXPECT_EQ(Save(true).outcome, SaveOutcome::Saved);
    EXPECT_EQ(fixture_.user.messages.size(), 1u);
}

TEST_F(SaveStoryTest, EmptyStoryIsNeverWritten) {
    story_ = StoryRecord{};
    story_.author = "Jean";
    const SaveResult result = Save();
    EXPECT_EQ(result.outcome, SaveOutcome::EmptyStory);
    EXPECT_EQ(result.message, "Empty story:");
    EXPECT_FALSE(fs::exists(StoryFile()));
    EXPECT_EQ(fixture_.window.Status().text, "Empty story:");
    EXPECT_EQ(fixture_.window.beeps, 1);
    // Empty even when the old file is there: it stays as it was.
    directory_.Write("story.xml", "old version");
    EXPECT_EQ(Save().outcome, SaveOutcome::EmptyStory);
    EXPECT_EQ(ReadBytes(StoryFile()), "old version");
}

TEST_F(SaveStoryTest, ReadOnlyFileAsksAndLeadsToSaveAs) {
    directory_.Write("story.xml", "locked version");
    fs::permissions(StoryFile(), fs::perms::owner_read | fs::perms::group_read);
    int saveAsRuns = 0;
    const auto saveAs = [&saveAsRuns] { return ++saveAsRuns > 0; };

    fixture_.user.QueueAnswer(Answer::No);
    SaveResult result = Save(false, saveAs);
    EXPECT_EQ(result.outcome, SaveOutcome::ReadOnly);
    EXPECT_FALSE(result.savedUnderNewName);
    EXPECT_EQ(saveAsRuns, 0);
    ASSERT_EQ(fixture_.user.questions.size(), 1u);
    EXPECT_EQ(fixture_.user.questions[0],
              StoryFile().string() + "\nRead only story\n\nSave with a new name ?");

    fixture_.user.QueueAnswer(Answer::Yes);
    result = Save(false, saveAs);
    EXPECT_EQ(result.outcome, SaveOutcome::ReadOnly);
    EXPECT_TRUE(result.savedUnderNewName);
    EXPECT_EQ(saveAsRuns, 1);
    EXPECT_EQ(ReadBytes(StoryFile()), "locked version");

    // The automatic save asks nothing and does not save; the status panel says why.
    result = Save(true, saveAs);
    EXPECT_EQ(result.outcome, SaveOutcome::ReadOnly);
    EXPECT_EQ(result.message, "Read only story: " + StoryFile().string());
    EXPECT_EQ(fixture_.window.Status().text, result.message);
    EXPECT_EQ(fixture_.user.questions.size(), 2u);
    EXPECT_EQ(saveAsRuns, 1);
    EXPECT_EQ(ReadBytes(StoryFile()), "locked version");
}

// Files can grow to a few bytes only, as on a full disk, while it lives; a write beyond
// that fails instead of ending the process.
class FullDisk {
  public:
    FullDisk() : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit full = before_;
        full.rlim_cur = 64;
        ::setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    void (*handler_)(int);
    rlimit before_{};
};

// A failed write is told to the user and in the status panel, the automatic save's in the
// status panel only; the story and its backup stay as they were.
TEST_F(SaveStoryTest, AFailedWriteIsToldAndLeavesTheStoryAndItsBackupAsTheyWere) {
    fixture_.preferences.BackupStories = true;
    for (const char* author : {"Jean", "Paul"}) {
        story_.author = author;
        ASSERT_EQ(Save().outcome, SaveOutcome::Saved);
    }
    const std::string story = ReadBytes(StoryFile());
    const std::string backup = ReadBytes(directory_ / "story.bml");
    story_.author = "Marie";
    SaveResult result;
    {
        FullDisk full;
        result = Save();
    }
    EXPECT_EQ(result.outcome, SaveOutcome::WriteFailed);
    EXPECT_EQ(result.message, "Not saved story: " + StoryFile().string());
    EXPECT_EQ(fixture_.user.messages, std::vector<std::string>{result.message});
    EXPECT_EQ(fixture_.window.Status().text, result.message);
    EXPECT_EQ(ReadBytes(StoryFile()), story);
    EXPECT_EQ(ReadBytes(directory_ / "story.bml"), backup);
    EXPECT_EQ(std::distance(fs::directory_iterator(directory_.path()), fs::directory_iterator()),
              2);

    StoryContext context = fixture_.Context();
    const fs::path missing = directory_ / "missing";
    StoryRecord unsaved = StorySaveFixture::OneWordStory();
    result = SaveStory(unsaved, context, {missing, "story.xml", true, {}});
    EXPECT_EQ(result.outcome, SaveOutcome::WriteFailed);
    EXPECT_EQ(result.message, "Not saved story: " + (missing / "story.xml").string());
    EXPECT_EQ(fixture_.window.Status().text, result.message);
    EXPECT_EQ(fixture_.user.messages.size(), 1u);
    EXPECT_TRUE(unsaved.lastSave.Empty());
}

TEST(BackupStoryName, XmlExtensionInAnyCaseBecomesBml) {
    for (const auto& [name, backup] : std::initializer_list<std::pair<const char*, const char*>>{
             {"STORY.XmL", "STORY.bml"},
             {"story", "story.bml"},
             {"story.xml.old", "story.xml.old.bml"},
             {"story.xmlx", "story.xmlx.bml"}}) {
        EXPECT_EQ(BackupStoryName(name), backup);
    }
}

TEST_F(SaveStoryTest, TrackingCopiesTheLinkedFilesAndTheStory) {
    WorkflowSettings& workflow = fixture_.configuration.workflow;
    workflow.TrackingEnabled = true;
    workflow.TrackingTextsDirectory = (directory_ / "texts").string();
    workflow.TrackingImagesDirectory = (directory_ / "images").string();
    fs::create_directories(directory_ / "texts");
    fs::create_directories(directory_ / "images");
    const fs::path photo = directory_.Write("photo.jpg", "JPEG");
    const fs::path plan = directory_.Write("plan.pdf", "PDF");
    story_.images = {{1, photo.string(), "", "", {}}};
    story_.files = {{1, plan.string(), ""}};

    // The automatic save leaves the tracking alone.
    Save(true);
    EXPECT_FALSE(fs::exists(directory_ / "texts" / "story.xml"));
    EXPECT_FALSE(fs::exists(directory_ / "images" / "photo.jpg"));

    StoryContext context = fixture_.Context();
    ASSERT_EQ(SaveStory(story_, context, {directory_.path(), "story.txt", false, {}}).outcome,
              SaveOutcome::Saved);
    EXPECT_EQ(ReadBytes(directory_ / "texts" / "story.xml"), ReadBytes(directory_ / "story.txt"));
    EXPECT_EQ(ReadBytes(directory_ / "images" / "photo.jpg"), "JPEG");
    EXPECT_EQ(ReadBytes(directory_ / "images" / "plan.pdf"), "PDF");
}

}  // namespace
}  // namespace tessarin
