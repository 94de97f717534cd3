#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/read_only_file.h"
#include "story/file_operations.h"
#include "transmission/send_list.h"
#include "transmission/story_control.h"
#include "transmission/story_staging.h"
#include "transmission/workflow_destinations.h"
#include "workflow_desk.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;
using testing::WorkflowDesk;

constexpr const char* kEdit = "\n\nEdit story ?";

// An edit question of the control: the story, its answer Yes, the question and the view.
struct EditCase {
    const char* name;
    std::string metadata;
    std::string charCount;
    int images;  // pictures of 2 KB linked to the story; -1 for a missing one
    std::string question;
    DisplayView view;
};

void PrintTo(const EditCase& test, std::ostream* out) {
    *out << test.name;
}

class StoryControlEdit : public ::testing::TestWithParam<EditCase> {};

TEST_P(StoryControlEdit, AsksToEditAndKeepsTheStoryOut) {
    const EditCase& test = GetParam();
    WorkflowDesk desk;
    std::vector<fs::path> pictures;
    for (int index = 0; index < std::abs(test.images); ++index) {
        const std::string name = "stories/pic" + std::to_string(index) + ".jpg";
        pictures.push_back(desk.folder / name);
        if (test.images > 0) desk.folder.Write(name, std::string(2048, 'x'));
    }
    const fs::path story = desk.Story(
        "fire.xml", test.metadata, "<TextBox6 CharCount=\"" + test.charCount + "\">Fire</TextBox6>",
        WorkflowDesk::Images(pictures));
    desk.window.preparedStory = story;

    const AddResult result = AddStory(desk.session, desk.window);

    std::string question = test.question;
    const std::size_t path = question.find("{story}");
    if (path != std::string::npos) question.replace(path, 7, story.string());
    const std::size_t picture = question.find("{picture}");
    if (picture != std::string::npos)
        question.replace(picture, 9, (desk.folder / "stories/pic0.jpg").string());
    ASSERT_EQ(desk.user.questions, std::vector<std::string>{question + kEdit});
    EXPECT_EQ(result.outcome, AddOutcome::EditRequested);
    EXPECT_EQ(result.view, test.view);
    EXPECT_FALSE(fs::exists(desk.session.paths.uploadDir / "fire.xml"));
    EXPECT_FALSE(IsReadOnlyFile(story));
}

const std::string kBrief = R"(<Form>Brief</Form><Status FormalItem="Usable">Ready</Status>)";
const std::string kUsable = R"(<Status FormalItem="Usable">Ready</Status>)";

INSTANTIATE_TEST_SUITE_P(
    Steps, StoryControlEdit,
    ::testing::Values(
        EditCase{"ExpiredDate", kBrief + "<PublicationDate>04/03/2024</PublicationDate>", "1500", 0,
                 "Story: fire.xml\nExpired publication date", DisplayView::Informations},
        EditCase{"MainBoxBelowItsShareOfThePictures", kBrief, "699", 1,
                 "Story: fire.xml\nStory type: Brief\nInvalid number of chars for Text box 7: 699\n"
                 "   must be in interval 700 - 1700\n   [Total number of chars for photos = 300]",
                 DisplayView::Story},
        EditCase{
            "MainBoxAboveItsShareOfThePictures", kBrief, "1401", 2,
            "Story: fire.xml\nStory type: Brief\nInvalid number of chars for Text box 7: 1401\n"
            "   must be in interval 400 - 1400\n   [Total number of chars for photos = 600]",
            DisplayView::Story},
        EditCase{"PicturesNotAllowed", kUsable + "<Form>Flash</Form>", "10", 1,
                 "Story: fire.xml\nStory type: Flash\nPhoto not allowed", DisplayView::Images},
        EditCase{"TooFewPictures", kUsable + "<Form>Photo</Form>", "10", 0,
                 "Story: fire.xml\nStory type: Photo\nMin photos for this type of story: 1",
                 DisplayView::Images},
        EditCase{"TooManyPictures", kBrief, "1000", 3,
                 "Story: fire.xml\nStory type: Brief\nMax photos for this type of story: 2",
                 DisplayView::Images},
        EditCase{"UnknownFormMeetsAMaximumOfNone", kUsable + "<Form>Gone</Form>", "10", 1,
                 "Story: fire.xml\nStory type: \nMax photos for this type of story: 0",
                 DisplayView::Images},
        EditCase{"MissingPicture", kBrief, "1500", -1, "Story: {story}\nUnknown photo: {picture}",
                 DisplayView::Images}),
    [](const auto& info) { return std::string(info.param.name); });

TEST(StoryControl, LimitsOfTheMainBoxAndTheDateAreInclusive) {
    for (const char* count : {"700", "1700"}) {
        WorkflowDesk desk;
        const fs::path picture = desk.folder.Write("stories/a b.jpg", "jpeg");
        desk.window.preparedStory = desk.Story(
            "fire.xml", kBrief + "<PublicationDate>05/03/2024</PublicationDate>",
            std::string("<TextBox6 CharCount=\"") + count + "\">Fire</TextBox6>",
            "<Images>\r\n<ImageBag>\r\n<Image href=\"file://" + desk.folder.path().string() +
                "/stories/a%20b.jpg\"/>\r\n</ImageBag>\r\n</Images>\r\n");
        EXPECT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Staged) << count;
        EXPECT_TRUE(desk.user.questions.empty());
        EXPECT_TRUE(fs::exists(desk.session.paths.uploadDir / "a b.jpg"));
        EXPECT_EQ(desk.window.imageCount, 1);
    }
}

TEST(StoryControl, StatusThatIsNotUsableAsksToConfirm) {
    WorkflowDesk desk;
    desk.user.QueueAnswer(Answer::No);
    const std::string draft = R"(<Status Name="Status" FormalItem="Draft">Draft</Status>)";
    desk.window.preparedStory = desk.Story("fire.xml", draft);
    EXPECT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Refused);
    EXPECT_EQ(desk.user.questions,
              std::vector<std::string>{"Story status: Draft\nConfirm sending"});

    desk.window.preparedStory = desk.Story("fire.xml", draft);
    EXPECT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Staged);
}

// Refusals told in the status panel, with a beep, that leave the list as it was.
TEST(StoryControl, RefusalsInTheStatusPanel) {
    WorkflowDesk desk("MaxStories=\"2\" MaxImages=\"1\"");
    const auto add = [&](const fs::path& story) {
        desk.window.preparedStory = story;
        return AddStory(desk.session, desk.window).outcome;
    };
    const auto status = [&] { return desk.window.state.Status().text; };
    const fs::path picture = desk.folder.Write("stories/p.jpg", "jpeg");

    EXPECT_EQ(add(desk.Story("one.xml", kBrief, "<TextBox6 CharCount=\"1500\">A</TextBox6>",
                             WorkflowDesk::Images({picture}))),
              AddOutcome::Staged);
    EXPECT_EQ(add(desk.Story("two.xml", kBrief, "<TextBox6 CharCount=\"1500\">B</TextBox6>",
                             WorkflowDesk::Images({picture}))),
              AddOutcome::Refused);
    EXPECT_EQ(status(), "Max photos by transmission: 1");

    const fs::path elsewhere =
        desk.folder.Write("other/one.xml", ReadBytes(desk.folder / "stories/one.xml"));
    EXPECT_EQ(add(elsewhere), AddOutcome::Refused);
    EXPECT_EQ(status(), "Story already in send list: one.xml");

    EXPECT_EQ(add(desk.Story("two.xml", kBrief)), AddOutcome::Staged);
    EXPECT_EQ(add(desk.Story("three.xml", kBrief)), AddOutcome::Refused);
    EXPECT_EQ(status(), "Max stories by transmission: 2");

    const fs::path broken = desk.folder.Write("stories/broken.xml", "<Story><Metadata>");
    fs::remove(desk.session.paths.uploadDir / "two.xml");
    SetTreeUpload(desk.session, desk.window);
    EXPECT_EQ(add(broken), AddOutcome::Refused);
    EXPECT_TRUE(status().starts_with("Parsing error:" + broken.string() + ", line:")) << status();

    desk.session.storyDirectory = desk.folder / "stories";
    desk.session.storyFileName = "open.xml";
    EXPECT_EQ(add(desk.Story("open.xml", kBrief)), AddOutcome::Refused);
    EXPECT_EQ(status(), "Story opened. Not possible to add it to list");
    EXPECT_EQ(desk.window.state.beeps, 5);
}

TEST(StoryControl, PersonalDirectoryRuleKeepsTheDialogThere) {
    WorkflowDesk desk("", "PersonalTextsDirectory=\"/home/desk/Stories\"");
    desk.window.preparedStory = desk.Story("fire.xml", kBrief);
    EXPECT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Refused);
    EXPECT_EQ(desk.user.messages, std::vector<std::string>{"Invalid directory\nAllowed personal "
                                                           "directory is:\n/home/desk/Stories"});
    EXPECT_EQ(desk.session.lastStoryDirectory, fs::path("/home/desk/Stories"));
}

TEST(StoryControl, StagingNamesTheFilesAndMarksTheSource) {
    WorkflowDesk desk("AddInitialsToFilenames=\"true\"");
    desk.folder.Write("app/Tessarin.ini", "[Identification]\r\nInitials=JD\r\n");
    desk.session.preferences = ReadPreferences(desk.session.profile);
    const fs::path picture = desk.folder.Write("stories/a.b.jpg", "jpeg");
    const fs::path file = desk.folder.Write("files/a.b.jpg", "other");
    const fs::path story = desk.Story("fire.xml", kBrief + R"(<OriginalPath Name="old"/>)",
                                      R"(<TextBox6 CharCount="1500">Fire</TextBox6>)",
                                      WorkflowDesk::Images({picture}) +
                                          "<Files>\r\n<FileBag>\r\n<File href=\"file://" +
                                          file.string() + "\"/>\r\n</FileBag>\r\n</Files>\r\n");
    ChooseControl(desk.session, desk.window, false);
    desk.window.preparedStory = story;
    ASSERT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Staged);

    const std::string staged = ReadBytes(desk.session.paths.uploadDir / "fire.xml");
    EXPECT_NE(staged.find("<OriginalPath Name=\"" + story.string() + "\"/></Metadata>"),
              std::string::npos);
    EXPECT_EQ(staged.find("\"old\""), std::string::npos);
    EXPECT_NE(staged.find("<Image href=\"a.b.jpg\"/>"), std::string::npos);
    EXPECT_NE(staged.find("<File href=\"a.b (JD).jpg\"/>"), std::string::npos);
    EXPECT_EQ(ReadBytes(desk.session.paths.uploadDir / "a.b (JD).jpg"), "other");
    EXPECT_TRUE(IsReadOnlyFile(story));
    EXPECT_TRUE(fs::exists(desk.session.paths.uploadDir / "fire.nc"));
    EXPECT_EQ(NameWithInitials("notes", "JD"), "notes (JD)");
}

// The FTP window's list: the staged story takes the initials, no directory rule holds, a
// story with a log asks before it goes again, and a list left uncontrolled by the send window
// does not make the story uncontrolled.
TEST(StoryControl, TheFtpWindowNamesAndAsksOtherwise) {
    WorkflowDesk desk("AddInitialsToFilenames=\"true\"",
                      "PersonalTextsDirectory=\"/home/desk/Stories\"");
    desk.folder.Write("app/Tessarin.ini", "[Identification]\r\nInitials=JD\r\n");
    desk.session.preferences = ReadPreferences(desk.session.profile);
    ChooseControl(desk.session, desk.window, false);
    desk.window.ftp = true;
    const std::string logged = "<Logs><Log Type=\"U\">to Ann</Log></Logs>";
    const std::string body = R"(<TextBox6 CharCount="1500">Fire</TextBox6>)";
    desk.user.QueueAnswer(Answer::No);
    desk.window.preparedStory = desk.Story("fire.xml", kBrief, body, logged);
    EXPECT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Refused);
    EXPECT_EQ(desk.user.questions,
              std::vector<std::string>{"Story already sent\nDo you want to resend it"});

    desk.window.preparedStory = desk.Story("fire.xml", kBrief, body, logged);
    EXPECT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Staged);
    EXPECT_TRUE(fs::exists(desk.session.paths.uploadDir / "fire (JD).xml"));
    EXPECT_FALSE(fs::exists(desk.session.paths.uploadDir / "fire (JD).nc"));
    desk.window.preparedStory = desk.folder / "stories/fire.xml";
    EXPECT_EQ(AddStory(desk.session, desk.window).outcome, AddOutcome::Refused);
    EXPECT_EQ(desk.window.state.Status().text, "Story already in send list: fire (JD).xml");
}

TEST(StoryControl, CurrentStoryIsClosedAndAddedAndAnEditOpensIt) {
    WorkflowDesk desk;
    const fs::path story =
        desk.Story("fire.xml", kBrief, R"(<TextBox6 CharCount="10">Fire</TextBox6>)");
    ASSERT_TRUE(OpenStoryFile(desk.session, story));
    OpenWorkflowWindow(desk.session, desk.window);
    EXPECT_TRUE(desk.window.state.Control("cmdAddCurrent").enabled);

    const AddResult result = AddCurrentStory(desk.session, desk.window);
    EXPECT_EQ(result.outcome, AddOutcome::EditRequested);  // 10 characters of 1000 to 2000
    EXPECT_TRUE(desk.session.storyFileName.empty());

    ASSERT_TRUE(OpenStoryForEdit(desk.session, result));
    EXPECT_EQ(desk.session.StoryPath(), story);
    EXPECT_EQ(SelectedView(desk.session.window), DisplayView::Story);
}

}  // namespace
}  // namespace tessarin
