#include <gtest/gtest.h>

#include <string>

#include "common/scoped_environment.h"
#include "export/export_tessarinml.h"
#include "export/export_test_support.h"

namespace tessarin {
namespace {

using testing::Changed;
using testing::CrLf;
using testing::ParseStory;

constexpr std::string_view kProlog = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n";
constexpr std::string_view kSaveAtTheEnd =
    "<LastSaveDate Name=\"Last saved\">05/03/2024 09:07</LastSaveDate>"
    "<LastSaveAuthor>Bob Desk</LastSaveAuthor></Metadata>";

// A story file in ISO-8859-1 mode with every part that the writer changes.
const std::string kFireStory = CrLf(
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n<!-- fire.xml -->\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\n<Metadata>\n"
    "<OriginalPath Name=\"/desk/fire.xml\"/>\n<Author Name=\"Author\">Jane Roe</Author>\n"
    "<CreationDate Name=\"Created\">04/03/2024</CreationDate><CreationTime>08:00</CreationTime>\n"
    "<LastSaveDate Name=\"Saved\">04/03/2024</LastSaveDate><LastSaveTime>08:30</LastSaveTime>\n"
    "<LastSaveAuthor>Jane Roe</LastSaveAuthor>\n"
    "<Publication Name=\"Publication\">Herald</Publication>\n"
    "<PublicationDate Name=\"Date\">12/03/2024</PublicationDate>\n</Metadata>\n"
    "<Logs>\n<Log Type=\"W\">04/03/2024 08:30 - Jane Roe -&gt; Desk</Log>\n</Logs>\n<Body>\n"
    "<TextBox0 CharCount=\"4\" WordCount=\"1\" Name=\"Title\">Fire</TextBox0>\n"
    "<TextBox6 CharCount=\"20\" WordCount=\"5\" Name=\"Text\">"
    "A fire<note>check <b>time</b></note> at the mill.<p/>\nCaf\xE9 closed.</TextBox6>\n"
    "</Body>\n<Notes>\n<Note Name=\"Source\">Police</Note>\n</Notes>\n"
    "<Images>\n<ImageBag>\n<Image href=\"file:///C:\\Photos\\mill fire.jpg\"/>\n"
    "<Caption>The mill</Caption>\n</ImageBag>\n</Images>\n"
    "<Files>\n<FileBag>\n<File href=\"file:///home/jane/plan.pdf\"/>\n</FileBag>\n</Files>\n"
    "</Story>\n");

// The fire story after every send: the last save renewed at the end of Metadata, and the
// send's log entry after the others.
std::string SavedAndLogged(std::string_view logType) {
    const std::string entry =
        "<Log Type=\"" + std::string(logType) + "\">05/03/2024 09:07 - Bob Desk -&gt; Layout</Log>";
    return Changed(kFireStory, {{"<LastSaveDate Name=\"Saved\">04/03/2024</LastSaveDate>", ""},
                                {"<LastSaveAuthor>Jane Roe</LastSaveAuthor>", ""},
                                {"</Metadata>", kSaveAtTheEnd},
                                {"</Logs>", entry + "</Logs>"}});
}

class TessarinMLWriter : public ::testing::Test {
  protected:
    TessarinMLWriter() { setup_.window.Control("lblLastSaveDate").caption = "Last saved"; }

    std::string Compose(std::string_view storyBytes, ExportMode mode, std::string_view logType,
                        std::string_view logLine = "05/03/2024 09:07 - Bob Desk -> Layout") {
        XmlDocument story = ParseStory(storyBytes);
        ExportContext context = setup_.Context();
        context.userName = "Bob Desk";
        return ComposeTessarinML(story, mode, logType, logLine, context);
    }

    testing::ScopedEnvironment shortDate_{"TESSARIN_SHORT_DATE", "dd/MM/yyyy"};
    testing::WriterSetup setup_;
};

// A layout send also removes the notes and makes the picture and file references bare names.
TEST_F(TessarinMLWriter, LayoutModeRemovesNotesAndMakesNamesBare) {
    EXPECT_EQ(Compose(kFireStory, ExportMode::Layout, "L"),
              Changed(SavedAndLogged("L"),
                      {{"<note>check <b>time</b></note>", ""},
                       {"<Notes>\r\n<Note Name=\"Source\">Police</Note>\r\n</Notes>", ""},
                       {"C:\\Photos\\", ""},
                       {"home/jane/", ""}}));
}

TEST_F(TessarinMLWriter, UserAndFtpModesOnlyRenewSaveAndLog) {
    EXPECT_EQ(Compose(kFireStory, ExportMode::User, "J"), SavedAndLogged("J"));
    EXPECT_EQ(Compose(kFireStory, ExportMode::Ftp, "J"), SavedAndLogged("J"));
}

TEST_F(TessarinMLWriter, LogsAreCreatedAtTheEndWhenMissingAndLeftAloneWhenNotKept) {
    const std::string story =
        std::string(kProlog) + CrLf("<Story>\n<Metadata>\n</Metadata>\n</Story>");
    const std::string saved =
        std::string(kProlog) + CrLf("<Story>\n<Metadata>\n") + std::string(kSaveAtTheEnd) + "\r\n";
    EXPECT_EQ(Compose(story, ExportMode::Layout, "L"),
              saved +
                  "<Logs><Log Type=\"L\">05/03/2024 09:07 - Bob Desk -&gt; Layout</Log></Logs>"
                  "</Story>\r\n");
    setup_.configuration.ftpTransmission.LogsEnabled = false;
    EXPECT_EQ(Compose(story, ExportMode::Layout, "L"), saved + "</Story>\r\n");
    // Without Metadata there are no save elements either.
    EXPECT_EQ(Compose(std::string(kProlog) + "<Story><Body><note>n</note></Body></Story>\r\n",
                      ExportMode::Layout, "L"),
              std::string(kProlog) + "<Story><Body/></Story>\r\n");
}

TEST_F(TessarinMLWriter, AUtf8StoryStaysUtf8WithItsSurrogateGroups) {
    const std::string story = CrLf(
        "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<Story>\n"
        "<Body><TextBox0>\xC3\xA9t\xC3\xA9 \xED\xA0\xBD\xED\xB8\x80</TextBox0></Body>\n"
        "</Story>\n");
    EXPECT_EQ(Compose(story, ExportMode::User, "W", "d\xC3\xA9j\xC3\xA0"),
              Changed(story, {{"</Story>",
                               "<Logs><Log Type=\"W\">d\xC3\xA9j\xC3\xA0</Log></Logs></Story>"}}));
}

}  // namespace
}  // namespace tessarin
