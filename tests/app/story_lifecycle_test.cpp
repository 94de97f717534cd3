#include <gtest/gtest.h>

#include "common/scoped_environment.h"
#include "common/utf8.h"
#include "config/configuration_document.h"
#include "editing/copy_fit.h"
#include "metadata/publication_selection.h"
#include "metadata/taxonomy.h"
#include "session/session_start.h"
#include "story/file_operations.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::ScopedEnvironment;

// A newsroom whose user is Ana Lima, with two forms, a publications tree, a taxonomy and a
// mandatory publication, started as the editor starts on Monday 10 March 2025.
class StoryLifecycleTest : public ::testing::Test {
  protected:
    void SetUp() override {
        testing::ConfigurationDocument document;
        document.metadata =
            R"(<Metadata><Author>Ana Lima</Author><Email>ana@herald.example</Email>)"
            R"(<Initials>AL</Initials><Publication Name="Title" Mandatory="true"/>)"
            R"(<Forms><Form Name="Brief" TextBoxes="7" NumberOfChars7="10-20"/>)"
            R"(<Form Name="Feature" TextBoxes="17"/></Forms></Metadata>)";
        document.taxonomy = R"(<Taxonomy Name="Topics"><Topic FormalName="15000000">Sport)"
                            R"(</Topic></Taxonomy>)";
        document.publications =
            R"(<Publications><Publication Name="Herald"><Classification Name="City" )"
            R"(Type="General"><Section Name="Port"/></Classification></Publication>)"
            R"(</Publications>)";
        document.messages = "<Messages/>";
        app_.Write("Tessarin.xml", document.Text());
        ASSERT_EQ(StartEditor(session_).state, StartState::Ready);
        FirstActivation(session_);
    }

    // A story by another author, saved in form 1 with a publication.
    fs::path WriteForeignStory() {
        return app_.Write(
            "other.xml",
            "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<Story AppName=\"Tessarin\"><Metadata>"
            "<Author>Lena Brandt</Author><Email>lena@herald.example</Email>"
            "<Initials>LB</Initials><Publication>Herald</Publication>"
            "<Form Index=\"1\">Feature</Form></Metadata><Body><TextBox6>Harbour "
            "news</TextBox6></Body></Story>\n");
    }

    std::string KeyOf(std::string_view tree, bool (*wanted)(const TreeNode&)) {
        for (const TreeNode* node : session_.window.Tree(tree).AllNodes()) {
            if (wanted(*node)) return node->key;
        }
        return "";
    }
    bool AnyBold(std::string_view tree) {
        for (const TreeNode* node : session_.window.Tree(tree).AllNodes()) {
            if (node->bold) return true;
        }
        return false;
    }

    ScopedEnvironment now_{"TESSARIN_NOW", "2025-03-10T09:00:00"};
    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    testing::TempDir app_;
    ScriptedInteraction user_;
    EditorSession session_{MakeAppPaths(app_.path()), user_};
};

// New (and Close, the same command) shows what a fresh start shows, whatever the story before
// left: the user's identity, no highlight, no check, no status message, the first form and
// tomorrow's date.
TEST_F(StoryLifecycleTest, NewShowsWhatAFreshStartShows) {
    const auto shown = [this] {
        const StoryRecord& story = session_.story;
        return story.author + "|" + story.email + "|" + story.initials + "|" + story.publication +
               "|" + story.publicationDate + "|" + std::to_string(story.formIndex) + "|" +
               std::to_string(story.taxonomy.size()) + "|" + Utf16ToUtf8(story.boxes[6].Text());
    };
    const std::string freshStory = shown();
    const std::string freshStatus = session_.window.Status().text;
    ASSERT_TRUE(OpenStoryFile(session_, WriteForeignStory()));
    ASSERT_TRUE(ClickPublicationNode(
        session_, session_.highlights,
        KeyOf(kPublicationsTree, [](const TreeNode& node) { return node.tag.starts_with("S"); })));
    ASSERT_TRUE(CheckTaxonomyTopic(
        session_, session_.highlights,
        KeyOf(kTaxonomyTree, [](const TreeNode& node) { return node.hasCheckbox; }), true));
    session_.window.Status() = {"Body: 198841 chars too many", false};
    session_.story.publicationDate.clear();
    ASSERT_TRUE(AnyBold(kPublicationsTree) && AnyBold(kTaxonomyTree));

    user_.QueueAnswer(Answer::No);
    ASSERT_TRUE(NewStory(session_));
    EXPECT_FALSE(AnyBold(kPublicationsTree) || AnyBold(kTaxonomyTree));
    EXPECT_EQ(session_.window.Status().text, freshStatus);
    EXPECT_EQ(shown(), freshStory);
    EXPECT_EQ(freshStory, "Ana Lima|ana@herald.example|AL||11/03/2025|0|0|");
    EXPECT_TRUE(session_.panel.formInForce == 0 &&
                session_.window.Control(LimitsLabelName(6)).visible);
    EXPECT_EQ(session_.undo.snapshots[session_.undo.position].box, kNoBox);
}

// A file that is no story keeps the story that was open; text that is there is rescued.
TEST_F(StoryLifecycleTest, AFailedOpenKeepsTheOpenStoryAndTheRescueTakesTheTextThatIsThere) {
    ASSERT_TRUE(OpenStoryFile(session_, WriteForeignStory()));
    session_.story.boxes[6] = StyledText(u"Unsaved lead");
    session_.storyModified = true;
    const fs::path open = session_.StoryPath();

    const fs::path binary = app_.Write("photo.xml", std::string("\xFF\xD8\x00\x10JFIF\x00", 10));
    const fs::path empty = app_.Write("empty.xml", "");
    const fs::path foreign = app_.Write("list.xml", "<?xml version=\"1.0\"?>\n<Groceries/>\n");
    user_.QueueAnswer(Answer::No);
    for (const fs::path& file : {binary, empty, foreign}) {
        EXPECT_FALSE(OpenStoryFile(session_, file)) << file;
        EXPECT_EQ(session_.story.boxes[6].Text(), u"Unsaved lead") << file;
        EXPECT_TRUE(session_.storyModified && session_.StoryPath() == open) << file;
    }
    EXPECT_EQ(user_.questions.size(), 1u);  // only the file that holds text offers the rescue

    const fs::path notes = app_.Write("notes.xml", "Quay closed\nFerry late\r\n");
    ASSERT_TRUE(OpenStoryFile(session_, notes));
    EXPECT_EQ(session_.story.boxes[6].Text(), u"Quay closed\r\nFerry late\r\n");
    EXPECT_TRUE(session_.storyModified && session_.StoryPath() == notes);
    ASSERT_TRUE(OpenStoryFile(session_, foreign));
    EXPECT_EQ(session_.story.boxes[6].Text(), u"<?xml version=\"1.0\"?>\r\n<Groceries/>\r\n");
}

// The save dialogs add the extension of their filter to a name without it, so that the open
// dialog lists the story again.
TEST_F(StoryLifecycleTest, SaveAsGivesANameWithoutExtensionTheFiltersOne) {
    session_.story.publication = "Herald";
    const std::pair<const char*, const char*> names[] = {
        {"brief", "brief.xml"}, {"brief.v2", "brief.v2.xml"}, {"Brief.XML", "Brief.XML"}};
    for (const auto& [typed, saved] : names) {
        session_.story.boxes[6] = StyledText(u"Port opens");
        session_.storyModified = true;
        user_.QueuePath(app_ / typed);
        ASSERT_TRUE(SaveStoryAs(session_)) << typed;
        EXPECT_EQ(session_.storyFileName, saved);
        EXPECT_TRUE(fs::exists(app_ / saved)) << saved;
    }
    EXPECT_FALSE(fs::exists(app_ / "brief"));
    EXPECT_EQ(WithFilterExtension("/news/memo", "Texts (*.txt;*.rtf)|*.txt;*.rtf"),
              fs::path("/news/memo.txt"));
    EXPECT_EQ(WithFilterExtension("/news/memo", "All (*.*)|*.*"), fs::path("/news/memo"));
}

// A refused save (here an empty mandatory publication) stops New, Open, Close and quitting:
// the story and its changes stay.
TEST_F(StoryLifecycleTest, ARefusedSaveKeepsTheStoryOpenWhateverAskedForIt) {
    const fs::path other = WriteForeignStory();
    const std::vector<std::pair<const char*, std::function<bool()>>> operations = {
        {"new", [&] { return NewStory(session_); }},
        {"open",
         [&] {
             user_.QueuePath(other);
             return OpenStory(session_);
         }},
        {"close", [&] { return NewStory(session_); }},  // File > Close runs New
        {"quit", [&] { return CloseEditor(session_, MainWindowSection{}); }},
    };
    const fs::path story = app_.Write("draft.xml", "");
    for (const auto& [name, operation] : operations) {
        session_.storyDirectory = story.parent_path();
        session_.storyFileName = story.filename().string();
        session_.story.publication.clear();
        session_.story.boxes[6] = StyledText(u"Draft lead");
        session_.storyModified = true;
        user_.QueueAnswer(Answer::Yes);
        EXPECT_FALSE(operation()) << name;
        EXPECT_EQ(session_.story.boxes[6].Text(), u"Draft lead") << name;
        EXPECT_TRUE(session_.storyModified && session_.StoryPath() == story) << name;
        EXPECT_EQ(ReadBytes(story), "") << name;
        EXPECT_EQ(user_.messages.back(), "Title: Mandatory field") << name;
    }
    EXPECT_EQ(user_.messages.size(), operations.size());
}

}  // namespace
}  // namespace tessarin
