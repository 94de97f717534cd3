#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "common/scoped_environment.h"
#include "export/export_tessarinml.h"
#include "export/newsml_test_support.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CrLfLines;
using testing::ParseStory;
using testing::ScopedEnvironment;
using testing::TempDir;
using testing::WriterSetup;

constexpr LocalDateTime kNow{2024, 3, 5, 9, 7, 30};

// The lines of a story file in ISO-8859-1 mode, before and after the parts that the writer
// changes.
constexpr std::string_view kProlog = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>";
constexpr std::string_view kAuthor = "<Author Name=\"Author\">Jane Roe</Author>";
constexpr std::string_view kCreation =
    "<CreationDate Name=\"Created\">04/03/2024</CreationDate><CreationTime>08:00</CreationTime>";
constexpr std::string_view kPublication = "<Publication Name=\"Publication\">Herald</Publication>";
constexpr std::string_view kDate = "<PublicationDate Name=\"Date\">12/03/2024</PublicationDate>";
constexpr std::string_view kOldLog = "<Log Type=\"W\">04/03/2024 08:30 - Jane Roe -&gt; Desk</Log>";
constexpr std::string_view kTitle =
    "<TextBox0 CharCount=\"4\" WordCount=\"1\" Name=\"Title\">Fire</TextBox0>";
constexpr std::string_view kTextStart = "<TextBox6 CharCount=\"20\" WordCount=\"5\" Name=\"Text\">";
constexpr std::string_view kTextEnd = "Caf\xE9 closed.</TextBox6>";

std::string FireStory() {
    return CrLfLines(
        {kProlog,
         "<!-- fire.xml -->",
         "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">",
         "<Metadata>",
         "<OriginalPath Name=\"/desk/fire.xml\"/>",
         kAuthor,
         kCreation,
         "<LastSaveDate Name=\"Saved\">04/03/2024</LastSaveDate>"
         "<LastSaveTime>08:30</LastSaveTime>",
         "<LastSaveAuthor>Jane Roe</LastSaveAuthor>",
         kPublication,
         kDate,
         "</Metadata>",
         "<Logs>",
         kOldLog,
         "</Logs>",
         "<Body>",
         kTitle,
         std::string(kTextStart) + "A fire<note>check <b>time</b></note> at the mill.<p/>",
         kTextEnd,
         "</Body>",
         "<Notes>",
         "<Note Name=\"Source\">Police</Note>",
         "</Notes>",
         "<Images>",
         "<ImageBag>",
         "<Image href=\"file:///C:\\Photos\\mill fire.jpg\"/>",
         "<Caption>The mill</Caption>",
         "</ImageBag>",
         "</Images>",
         "<Files>",
         "<FileBag>",
         "<File href=\"file:///home/jane/plan.pdf\"/>",
         "</FileBag>",
         "</Files>",
         "</Story>"});
}

class TessarinMLWriter : public ::testing::Test {
  protected:
    TessarinMLWriter() {
        setup_.window.Control("lblLastSaveDate").caption = "Last saved";
        setup_.configuration.identity.author = "Bob Desk";
    }

    ExportContext Context() {
        ExportContext context = setup_.Context(kNow);
        context.userName = "Bob Desk";
        return context;
    }

    std::string Compose(std::string_view storyBytes, ExportMode mode, std::string_view logType) {
        XmlDocument story = ParseStory(storyBytes);
        return ComposeTessarinML(story, mode, logType, "05/03/2024 09:07 - Bob Desk -> Layout",
                                 Context());
    }

    ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    WriterSetup setup_;
};

TEST_F(TessarinMLWriter, LayoutModeRemovesNotesMakesNamesBareAndAppendsSaveAndLog) {
    EXPECT_EQ(Compose(FireStory(), ExportMode::Layout, "L"),
              CrLfLines({kProlog,
                         "<!-- fire.xml -->",
                         "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">",
                         "<Metadata>",
                         "<OriginalPath Name=\"/desk/fire.xml\"/>",
                         kAuthor,
                         kCreation,
                         "<LastSaveTime>08:30</LastSaveTime>",
                         "",
                         kPublication,
                         kDate,
                         "<LastSaveDate Name=\"Last saved\">05/03/2024 09:07</LastSaveDate>"
                         "<LastSaveAuthor>Bob Desk</LastSaveAuthor></Metadata>",
                         "<Logs>",
                         kOldLog,
                         "<Log Type=\"L\">05/03/2024 09:07 - Bob Desk -&gt; Layout</Log></Logs>",
                         "<Body>",
                         kTitle,
                         std::string(kTextStart) + "A fire at the mill.<p/>",
                         kTextEnd,
                         "</Body>",
                         "",
                         "<Images>",
                         "<ImageBag>",
                         "<Image href=\"file:///mill fire.jpg\"/>",
                         "<Caption>The mill</Caption>",
                         "</ImageBag>",
                         "</Images>",
                         "<Files>",
                         "<FileBag>",
                         "<File href=\"file:///plan.pdf\"/>",
                         "</FileBag>",
                         "</Files>",
                         "</Story>"}));
}

TEST_F(TessarinMLWriter, UserModeKeepsNotesAndPathsAndOnlyRenewsSaveAndLog) {
    const std::string expected = CrLfLines(
        {kProlog,
         "<!-- fire.xml -->",
         "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">",
         "<Metadata>",
         "<OriginalPath Name=\"/desk/fire.xml\"/>",
         kAuthor,
         kCreation,
         "<LastSaveTime>08:30</LastSaveTime>",
         "",
         kPublication,
         kDate,
         "<LastSaveDate Name=\"Last saved\">05/03/2024 09:07</LastSaveDate>"
         "<LastSaveAuthor>Bob Desk</LastSaveAuthor></Metadata>",
         "<Logs>",
         kOldLog,
         "<Log Type=\"J\">05/03/2024 09:07 - Bob Desk -&gt; Layout</Log></Logs>",
         "<Body>",
         kTitle,
         std::string(kTextStart) + "A fire<note>check <b>time</b></note> at the mill.<p/>",
         kTextEnd,
         "</Body>",
         "<Notes>",
         "<Note Name=\"Source\">Police</Note>",
         "</Notes>",
         "<Images>",
         "<ImageBag>",
         "<Image href=\"file:///C:\\Photos\\mill fire.jpg\"/>",
         "<Caption>The mill</Caption>",
         "</ImageBag>",
         "</Images>",
         "<Files>",
         "<FileBag>",
         "<File href=\"file:///home/jane/plan.pdf\"/>",
         "</FileBag>",
         "</Files>",
         "</Story>"});
    EXPECT_EQ(Compose(FireStory(), ExportMode::User, "J"), expected);
    // An FTP send cleans nothing either.
    EXPECT_EQ(Compose(FireStory(), ExportMode::Ftp, "J"), expected);
}

TEST_F(TessarinMLWriter, LogsAreCreatedAtTheEndWhenMissingAndLeftAloneWhenNotKept) {
    const std::string story =
        CrLfLines({kProlog, "<Story>", "<Metadata>", "</Metadata>", "</Story>"});
    EXPECT_EQ(Compose(story, ExportMode::Layout, "L"),
              CrLfLines({kProlog, "<Story>", "<Metadata>",
                         "<LastSaveDate Name=\"Last saved\">05/03/2024 09:07</LastSaveDate>"
                         "<LastSaveAuthor>Bob Desk</LastSaveAuthor></Metadata>",
                         "<Logs><Log Type=\"L\">05/03/2024 09:07 - Bob Desk -&gt; "
                         "Layout</Log></Logs></Story>"}));
    setup_.configuration.ftpTransmission.LogsEnabled = false;
    EXPECT_EQ(Compose(story, ExportMode::Layout, "L"),
              CrLfLines({kProlog, "<Story>", "<Metadata>",
                         "<LastSaveDate Name=\"Last saved\">05/03/2024 09:07</LastSaveDate>"
                         "<LastSaveAuthor>Bob Desk</LastSaveAuthor></Metadata>",
                         "</Story>"}));
}

TEST_F(TessarinMLWriter, AStoryWithoutMetadataGetsNoSaveElements) {
    setup_.configuration.ftpTransmission.LogsEnabled = false;
    const std::string story = CrLfLines({kProlog, "<Story><Body><note>n</note></Body></Story>"});
    EXPECT_EQ(Compose(story, ExportMode::Layout, "L"),
              CrLfLines({kProlog, "<Story><Body/></Story>"}));
}

TEST_F(TessarinMLWriter, AUtf8StoryStaysUtf8WithItsSurrogateGroups) {
    const std::string story =
        CrLfLines({"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>", "<Story>",
                   "<Body><TextBox0>\xC3\xA9t\xC3\xA9 \xED\xA0\xBD\xED\xB8\x80</TextBox0></Body>",
                   "</Story>"});
    XmlDocument document = ParseStory(story);
    EXPECT_EQ(
        ComposeTessarinML(document, ExportMode::User, "W", "d\xC3\xA9j\xC3\xA0", Context()),
        CrLfLines({"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>", "<Story>",
                   "<Body><TextBox0>\xC3\xA9t\xC3\xA9 \xED\xA0\xBD\xED\xB8\x80</TextBox0></Body>",
                   "<Logs><Log Type=\"W\">d\xC3\xA9j\xC3\xA0</Log></Logs></Story>"}));
}

TEST_F(TessarinMLWriter, TheEntrySavesInPlaceAndLeavesTheTargetsOfALayoutSend) {
    TempDir folder;
    setup_.configuration.workflow.ExportTextsDirectory = (folder / "texts").string();
    std::filesystem::create_directory(folder / "texts");
    ExportState state;
    state.UploadDirectory = (folder / "Upload").string() + "/";
    state.CurrentUploadNode = "fire.xml";
    state.SourceStoryPath = folder.Write("Upload/fire.xml", FireStory()).string();
    state.LogLine = "05/03/2024 09:07 - Bob Desk -> Layout";

    ExportTessarinML(state, "L", ExportMode::Layout, Context());

    const std::string chain = (folder / "texts/Herald/12-03-2024/fire").string();
    EXPECT_EQ(state.ExportedFilePath, state.SourceStoryPath);
    EXPECT_EQ(testing::ReadBytes(state.ExportedFilePath),
              Compose(FireStory(), ExportMode::Layout, "L"));
    EXPECT_TRUE(std::filesystem::is_directory(chain));
    EXPECT_EQ(state.TargetDirectory, chain);
    EXPECT_EQ(state.TargetPath, chain + "/fire.xml");
    EXPECT_EQ(state.OriginalStoryPath, "/desk/fire.xml");
    EXPECT_EQ(state.StoryNameFields[0], "Herald");
    EXPECT_TRUE(setup_.user.messages.empty());
}

TEST_F(TessarinMLWriter, AUserSendKeepsTheSendersTarget) {
    TempDir folder;
    ExportState state;
    state.UploadDirectory = (folder / "Upload").string() + "/";
    state.CurrentUploadNode = "fire.xml";
    state.SourceStoryPath = folder.Write("Upload/fire.xml", FireStory()).string();
    state.TargetPath = "/desks/jane/fire.xml";
    ExportTessarinML(state, "J", ExportMode::User, Context());
    EXPECT_EQ(state.TargetPath, "/desks/jane/fire.xml");
    EXPECT_EQ(state.TargetDirectory, "/desks/jane/fire.xml");
    EXPECT_NE(testing::ReadBytes(state.ExportedFilePath).find("<Note Name=\"Source\">"),
              std::string::npos);
}

TEST_F(TessarinMLWriter, AStoryThatDoesNotParseIsLeftAsItWas) {
    TempDir folder;
    ExportState state;
    state.UploadDirectory = (folder / "Upload").string() + "/";
    state.CurrentUploadNode = "bad.xml";
    state.SourceStoryPath = folder.Write("Upload/bad.xml", "<Story><Metadata></Story>").string();
    ExportTessarinML(state, "L", ExportMode::Layout, Context());
    EXPECT_EQ(testing::ReadBytes(state.SourceStoryPath), "<Story><Metadata></Story>");
    ASSERT_EQ(setup_.user.messages.size(), 1u);
    EXPECT_TRUE(setup_.user.messages[0].starts_with("Parsing error:" + state.SourceStoryPath +
                                                    ", line:1, pos:"));
    EXPECT_EQ(state.TargetDirectory, "");
    EXPECT_EQ(state.OriginalStoryPath, "");
}

}  // namespace
}  // namespace tessarin
