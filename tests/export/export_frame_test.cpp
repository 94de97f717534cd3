#include "export/export_frame.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iterator>
#include <string>
#include <vector>

#include "export/export_editworks.h"
#include "export/export_milenium.h"
#include "export/export_newsml.h"
#include "export/export_nitf.h"
#include "export/export_rss.h"
#include "export/export_tagged_text.h"
#include "export/export_tessarinml.h"
#include "export/export_test_support.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ParseStory;
using testing::ReadBytes;
using testing::Staged;
using testing::TempDir;
using testing::WriterSetup;
using Strings = std::vector<std::string>;

constexpr const char* kFormats[] = {"NewsML",          "NITF",           "InDesign", "XPress",
                                    "EditWorksQTrans", "MileniumInsert", "RSS",      "TessarinML"};

// Which writer each exact format value chooses and the names it gives "front.page.xml" are the
// layout send's test below; here the names of a story without a point, one per branch.
TEST(ExportFrame, NamesWithoutAPointAndInexactFormatValues) {
    EXPECT_EQ(OutputNameFor(ExportWriter::InDesign, "front"), "");
    EXPECT_EQ(OutputNameFor(ExportWriter::EditWorks, "front"), "txt");
    EXPECT_EQ(OutputNameFor(ExportWriter::RSS, "front"), "xml");
    EXPECT_EQ(OutputNameFor(ExportWriter::NewsML, "front"), "front");
    for (const char* other : {"newsml", "NewsML ", "EditWorks", "Rss", ""})
        EXPECT_EQ(WriterForFormat(other), ExportWriter::TessarinML) << other;
}

TEST(ExportFrame, FirstTargetPathInTheThreeModes) {
    WriterSetup setup;
    setup.configuration.workflow.ExportTextsDirectory = "\\\\server\\Export\\Texts";
    setup.configuration.ftpTransmission.servers = {FtpServer{}, FtpServer{}};
    setup.configuration.ftpTransmission.servers[1].TextsDirectory = "/web/texts";
    ExportContext context = setup.Context();
    struct Row {
        ExportWriter writer;
        ExportMode mode;
        std::size_t ftpServer;
        std::string_view expected;
    };
    const Row rows[] = {
        {ExportWriter::InDesign, ExportMode::Ftp, 2, "/web/texts/a.x"},
        {ExportWriter::NewsML, ExportMode::Ftp, 1, "a.x"},  // a server without texts directory
        {ExportWriter::RSS, ExportMode::Ftp, 3, "a.x"},     // no such server
        {ExportWriter::NITF, ExportMode::Layout, 0, "//server/Export/Texts/a.x"},
        {ExportWriter::XPress, ExportMode::Layout, 0, "//server/Export/Texts"},
        {ExportWriter::TessarinML, ExportMode::User, 0, "/desk/jane/a.xml"}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.expected);
        context.ftpServer = row.ftpServer;
        EXPECT_EQ(FirstTargetPath(row.writer, row.mode, context, "a.x", "/desk/jane/a.xml"),
                  row.expected);
    }
    EXPECT_EQ(ChosenFtpServer(context), nullptr);
    setup.configuration.workflow.ExportTextsDirectory.clear();
    EXPECT_EQ(FirstTargetPath(ExportWriter::EditWorks, ExportMode::Layout, context, "a.txt", ""),
              "a.txt");
}

constexpr std::string_view kClassifiedStory =
    "<Story><Metadata><OriginalPath Name=\"/desk/stories/fire.xml\"/>"
    "<Publication Name=\"P\">Herald</Publication><Classification>News</Classification>"
    "<SectionLocal>Town</SectionLocal><SubSectionGeneral></SubSectionGeneral>"
    "<SubSectionLocal>North</SubSectionLocal><PublicationDate>12/03/2024</PublicationDate>"
    "</Metadata></Story>";

TEST(DeliveryFolders, LevelsAndNameFieldsForEachElementPresent) {
    const XmlDocument story = ParseStory(kClassifiedStory);
    const XmlNode metadata = story.DocumentElement().SelectSingleNode("Metadata");
    // An element that is there adds a level even when it is empty; the cold story's level is
    // the layout send's test.
    EXPECT_EQ(DeliveryFolderLevels(metadata, "Cold", "fire.xml"),
              (Strings{"Herald", "12-03-2024", "News", "", "Town", "North", "fire"}));
    EXPECT_EQ(DeliveryFolderLevels(XmlNode(), "Cold", "fire.xml"), (Strings{"fire"}));
    EXPECT_EQ(DeliveryFolderLevels(XmlNode(), "Cold", "fire"), (Strings{}));

    // The story name fields take the local sections when the general ones are empty.
    ExportState state;
    FillStoryNameFields(state, metadata);
    StoreOriginalStoryPath(state, metadata);
    EXPECT_EQ(state.StoryNameFields,
              (std::array<std::string, 4>{"Herald", "News", "Town", "North"}));
    EXPECT_EQ(state.OriginalStoryPath, "/desk/stories/fire.xml");
    FillStoryNameFields(state, XmlNode());
    StoreOriginalStoryPath(state, XmlNode());
    EXPECT_EQ(state.StoryNameFields, (std::array<std::string, 4>{}));
    EXPECT_EQ(state.OriginalStoryPath, "");
}

TEST(DeliveryFolders, WithoutAnExportDirectoryNothingIsMadeAndTheNameIsTheTarget) {
    WriterSetup setup;
    const XmlDocument story = ParseStory(kClassifiedStory);
    ExportState state;
    state.CurrentUploadNode = "fire.xml";
    BuildDeliveryFolders(state, story.DocumentElement().SelectSingleNode("Metadata"),
                         setup.Context());
    EXPECT_EQ(state.TargetPath, "");
    FinishTargetPath(state, ExportMode::Layout, setup.Context(), "fire.xml");
    EXPECT_EQ(state.TargetDirectory, "");
    EXPECT_EQ(state.TargetPath, "fire.xml");

    // Outside mode Layout the target only becomes the directory too.
    setup.configuration.workflow.ExportTextsDirectory = "/export";
    state.TargetPath = "/web/a.txt";
    FinishTargetPath(state, ExportMode::Ftp, setup.Context(), "a.txt");
    EXPECT_EQ(state.TargetDirectory, "/web/a.txt");
    EXPECT_EQ(state.TargetPath, "/web/a.txt");
}

// A staged story that does not parse is every writer's layout send below.
TEST(ExportFrame, AStagedStoryThatCannotBeReadIsShownWithABeep) {
    TempDir folder;
    WriterSetup setup;
    const std::string missing = (folder / "missing.xml").string();
    EXPECT_FALSE(LoadStagedStoryOrShowError(missing, setup.Context()));
    EXPECT_EQ(setup.user.messages,
              Strings{"Parsing error:" + missing + ", line:0, pos:0  cannot read file"});
    EXPECT_EQ(setup.user.beeps, 1);
}

TEST(ExportFrame, TheOutputIsWrittenOnceOverWhatWasThere) {
    TempDir folder;
    ExportState state;
    state.ExportedFilePath = folder.Write("a.xml", "a much longer old content").string();
    std::filesystem::permissions(state.ExportedFilePath, std::filesystem::perms::owner_read);
    EXPECT_TRUE(WriteExportedFile(state, "new\r\n"));
    EXPECT_EQ(ReadBytes(state.ExportedFilePath), "new\r\n");
    state.ExportedFilePath = (folder / "no/such/dir/a.xml").string();
    EXPECT_FALSE(WriteExportedFile(state, "x"));
}

// What each writer leaves of a layout send: its file beside the staged story holding what it
// composes of the story, the target path, the delivery folders of the folder writers (built
// by the first of them, found already there by the next ones), the story's original path.
// A story that does not parse is shown with a beep and nothing is written beside it.
TEST(ExportFrame, EveryWriterOfALayoutSendWritesItsFileAndTargetOrShowsTheParseError) {
    TempDir folder;
    WriterSetup setup;
    const std::string upload = (folder / "Upload").string() + "/";
    const std::string refusedUpload = (folder / "Refused").string() + "/";
    const std::string texts = (folder / "texts").string();
    std::filesystem::create_directory(texts);
    setup.configuration.workflow.ExportTextsDirectory = texts;
    setup.configuration.metadata.coldStoryLabel = "Cold";
    setup.configuration.exportFormats.InDesign.Prologue = "<InDesign>";
    setup.configuration.exportFormats.XPress.Prologue = "<XPress>";
    const ExportSettings& formats = setup.configuration.exportFormats;
    const ExportContext context = setup.Context();
    const std::string story =
        "<Story><Metadata><OriginalPath Name=\"/desk/front.page.xml\"/>"
        "<Publication>Herald</Publication><PublicationDate>0</PublicationDate></Metadata>"
        "<Body><TextBox6>Fire<note>n</note></TextBox6></Body></Story>";
    const std::string badStory = "<Story>\r\n  <Body>text</Story>\r\n";
    const std::string chain = texts + "/Herald/Cold/front.page";
    const std::string layout = texts + "/front.page";
    struct Row {
        std::string exported;
        std::string target;
        std::string directory;
        std::string_view publicationField;
        std::function<std::string(XmlDocument&)> compose;
    };
    const Row rows[] = {
        {"front.page.xml", layout + ".xml", "", "",
         [&](XmlDocument& d) { return ComposeNewsML(d, context, TimeZoneBaseBiasMinutes()); }},
        {"front.page.xml", layout + ".xml", "", "",
         [&](XmlDocument& d) { return ComposeNITF(d, context); }},
        {"front.page.txt", chain + "/front.page.txt", chain, "",
         [&](XmlDocument& d) {
             return ComposeTaggedText(TaggedTextLayout::InDesign, d, formats.InDesign);
         }},
        {"front.page.xtg", chain + "/front.page.xtg", chain, "",
         [&](XmlDocument& d) {
             return ComposeTaggedText(TaggedTextLayout::XPress, d, formats.XPress);
         }},
        {"front.page.txt", layout + ".txt", "", "",
         [&](XmlDocument& d) { return ComposeEditWorks(d, context); }},
        {"front.page.xml", layout + ".xml", "", "",
         [&](XmlDocument& d) { return ComposeMilenium(d, "front.page.xml", context); }},
        {"front.page.xml", layout + ".xml", layout + ".xml", "",
         [&](XmlDocument& d) { return ComposeRss(d, context); }},
        {"front.page.xml", chain + "/front.page.xml", chain, "Herald", [&](XmlDocument& d) {
             return ComposeTessarinML(d, ExportMode::Layout, "L", "a -> Layout", context);
         }}};
    for (std::size_t n = 0; n < std::size(rows); ++n) {
        SCOPED_TRACE(kFormats[n]);
        const std::string bad = folder.Write("Refused/bad.xml", badStory).string();
        ExportState refused = Staged(refusedUpload, "bad.xml");
        RunExport(kFormats[n], ExportMode::Layout, "L", refused, context);
        ASSERT_EQ(setup.user.messages.size(), n + 1);
        EXPECT_EQ(setup.user.messages[n],
                  "Parsing error:" + bad +
                      ", line:2, pos:21 <Body>text</Story> Opening and ending tag mismatch: Body "
                      "line 2 and Story");
        EXPECT_EQ(setup.user.beeps, static_cast<int>(n + 1));
        EXPECT_EQ(ReadBytes(bad), badStory);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(refusedUpload), {}), 1);
        EXPECT_EQ(refused.TargetDirectory + refused.OriginalStoryPath, "");

        folder.Write("Upload/front.page.xml", story);
        ExportState state = Staged(upload, "front.page.xml");
        state.LogLine = "a -> Layout";
        RunExport(kFormats[n], ExportMode::Layout, "L", state, context);
        EXPECT_EQ(state.ExportedFilePath, upload + rows[n].exported);
        XmlDocument document = ParseStory(story);
        EXPECT_EQ(ReadBytes(state.ExportedFilePath), rows[n].compose(document));
        EXPECT_EQ(state.TargetPath, rows[n].target);
        EXPECT_EQ(state.TargetDirectory, rows[n].directory);
        EXPECT_EQ(state.OriginalStoryPath, "/desk/front.page.xml");
        EXPECT_EQ(state.StoryNameFields[0], rows[n].publicationField);
    }
    EXPECT_TRUE(std::filesystem::is_directory(chain));
    EXPECT_EQ(setup.user.messages.size(), std::size(rows));
}

}  // namespace
}  // namespace tessarin
