#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "export/export_frame.h"
#include "export/newsml_test_support.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ParseStory;
using testing::TempDir;
using testing::WriterSetup;
using Strings = std::vector<std::string>;

constexpr LocalDateTime kNow{2024, 3, 5, 9, 7, 30};

TEST(ExportFrame, TheWriterIsChosenByTheExactFormatValue) {
    EXPECT_EQ(WriterForFormat("NewsML"), ExportWriter::NewsML);
    EXPECT_EQ(WriterForFormat("NITF"), ExportWriter::NITF);
    EXPECT_EQ(WriterForFormat("InDesign"), ExportWriter::InDesign);
    EXPECT_EQ(WriterForFormat("XPress"), ExportWriter::XPress);
    EXPECT_EQ(WriterForFormat("EditWorksQTrans"), ExportWriter::EditWorks);
    EXPECT_EQ(WriterForFormat("MileniumInsert"), ExportWriter::Milenium);
    EXPECT_EQ(WriterForFormat("RSS"), ExportWriter::RSS);
    for (const char* other : {"TessarinML", "newsml", "NewsML ", "EditWorks", "Rss", ""})
        EXPECT_EQ(WriterForFormat(other), ExportWriter::TessarinML) << other;
}

TEST(ExportFrame, OutputNamesFollowTheLastPoint) {
    const std::string_view story = "front.page.xml";
    EXPECT_EQ(OutputNameFor(ExportWriter::NewsML, story), "front.page.xml");
    EXPECT_EQ(OutputNameFor(ExportWriter::NITF, story), "front.page.xml");
    EXPECT_EQ(OutputNameFor(ExportWriter::Milenium, story), "front.page.xml");
    EXPECT_EQ(OutputNameFor(ExportWriter::TessarinML, story), "front.page.xml");
    EXPECT_EQ(OutputNameFor(ExportWriter::InDesign, story), "front.page.txt");
    EXPECT_EQ(OutputNameFor(ExportWriter::XPress, story), "front.page.xtg");
    EXPECT_EQ(OutputNameFor(ExportWriter::EditWorks, story), "front.page.txt");
    EXPECT_EQ(OutputNameFor(ExportWriter::RSS, story), "front.page.xml");
    // A name without a point: the tagged-text names stay empty.
    EXPECT_EQ(OutputNameFor(ExportWriter::InDesign, "front"), "");
    EXPECT_EQ(OutputNameFor(ExportWriter::XPress, "front"), "");
    EXPECT_EQ(OutputNameFor(ExportWriter::EditWorks, "front"), "txt");
    EXPECT_EQ(OutputNameFor(ExportWriter::RSS, "front"), "xml");
    EXPECT_EQ(BaseNameOf("a.b.c"), "a.b");
    EXPECT_EQ(UpToLastPointOf("a.b.c"), "a.b.");
}

TEST(ExportFrame, FirstTargetPathInTheThreeModes) {
    WriterSetup setup;
    setup.configuration.workflow.ExportTextsDirectory = "\\\\server\\Export\\Texts";
    setup.configuration.ftpTransmission.servers = {FtpServer{}, FtpServer{}};
    setup.configuration.ftpTransmission.servers[1].TextsDirectory = "/web/texts";
    ExportContext context = setup.Context(kNow);

    context.ftpServer = 2;
    EXPECT_EQ(FirstTargetPath(ExportWriter::NewsML, ExportMode::Ftp, context, "a.xml", ""),
              "/web/texts/a.xml");
    EXPECT_EQ(FirstTargetPath(ExportWriter::InDesign, ExportMode::Ftp, context, "a.txt", ""),
              "/web/texts/a.txt");
    context.ftpServer = 1;  // a server without texts directory
    EXPECT_EQ(FirstTargetPath(ExportWriter::NewsML, ExportMode::Ftp, context, "a.xml", ""),
              "a.xml");
    context.ftpServer = 3;  // no such server
    EXPECT_EQ(ChosenFtpServer(context), nullptr);
    EXPECT_EQ(FirstTargetPath(ExportWriter::RSS, ExportMode::Ftp, context, "a.xml", ""), "a.xml");

    EXPECT_EQ(FirstTargetPath(ExportWriter::NITF, ExportMode::Layout, context, "a.xml", ""),
              "//server/Export/Texts/a.xml");
    EXPECT_EQ(FirstTargetPath(ExportWriter::XPress, ExportMode::Layout, context, "a.xtg", ""),
              "//server/Export/Texts");
    EXPECT_EQ(FirstTargetPath(ExportWriter::TessarinML, ExportMode::Layout, context, "a.xml", ""),
              "//server/Export/Texts");
    EXPECT_EQ(FirstTargetPath(ExportWriter::TessarinML, ExportMode::User, context, "a.xml",
                              "/desk/jane/a.xml"),
              "/desk/jane/a.xml");

    setup.configuration.workflow.ExportTextsDirectory.clear();
    EXPECT_EQ(FirstTargetPath(ExportWriter::EditWorks, ExportMode::Layout, context, "a.txt", ""),
              "a.txt");
}

TEST(ExportFrame, BeginSetsTheExportedFileInTheUploadDirectory) {
    WriterSetup setup;
    setup.configuration.workflow.ExportTextsDirectory = "/export";
    ExportState state;
    state.UploadDirectory = "/app/Upload/";
    state.CurrentUploadNode = "story.xml";
    EXPECT_EQ(BeginExport(state, ExportWriter::XPress, ExportMode::Layout, setup.Context(kNow)),
              "story.xtg");
    EXPECT_EQ(state.ExportedFilePath, "/app/Upload/story.xtg");
    EXPECT_EQ(state.TargetPath, "/export");
}

constexpr std::string_view kClassifiedStory =
    "<Story><Metadata>"
    "<OriginalPath Name=\"/desk/stories/fire.xml\"/>"
    "<Publication Name=\"P\">Herald</Publication>"
    "<Classification>News</Classification>"
    "<SectionLocal>Town</SectionLocal>"
    "<SubSectionGeneral></SubSectionGeneral>"
    "<SubSectionLocal>North</SubSectionLocal>"
    "<PublicationDate>12/03/2024</PublicationDate>"
    "</Metadata></Story>";

TEST(DeliveryFolders, LevelsForEachElementPresentThenTheStoryName) {
    const XmlDocument story = ParseStory(kClassifiedStory);
    const XmlNode metadata = story.DocumentElement().SelectSingleNode("Metadata");
    // An element that is there adds a level even when it is empty.
    EXPECT_EQ(DeliveryFolderLevels(metadata, "Cold", "fire.xml"),
              (Strings{"Herald", "12-03-2024", "News", "", "Town", "North", "fire"}));
    EXPECT_EQ(DeliveryFolderLevels(XmlNode(), "Cold", "fire.xml"), (Strings{"fire"}));
    EXPECT_EQ(DeliveryFolderLevels(XmlNode(), "Cold", "fire"), (Strings{}));

    const XmlDocument cold =
        ParseStory("<Story><Metadata><PublicationDate>0</PublicationDate></Metadata></Story>");
    EXPECT_EQ(DeliveryFolderLevels(cold.DocumentElement().SelectSingleNode("Metadata"),
                                   "Without date", "a.xml"),
              (Strings{"Without date", "a"}));
}

TEST(DeliveryFolders, ASecondExportRebuildsTheSameChain) {
    TempDir folder;
    WriterSetup setup;
    setup.configuration.workflow.ExportTextsDirectory = (folder / "texts").string();
    setup.configuration.metadata.coldStoryLabel = "Cold";
    std::filesystem::create_directory(folder / "texts");
    const XmlDocument story = ParseStory(
        "<Story><Metadata><Publication>Herald</Publication><PublicationDate>0</PublicationDate>"
        "<SectionGeneral>Sport</SectionGeneral></Metadata></Story>");
    const XmlNode metadata = story.DocumentElement().SelectSingleNode("Metadata");
    const std::string chain = (folder / "texts/Herald/Cold/Sport/match").string();

    for (int send = 0; send < 2; ++send) {
        ExportState state;
        state.UploadDirectory = (folder / "Upload/").string();
        state.CurrentUploadNode = "match.xml";
        const ExportContext context = setup.Context(kNow);
        const std::string name =
            BeginExport(state, ExportWriter::TessarinML, ExportMode::Layout, context);
        BuildDeliveryFolders(state, metadata, context);
        EXPECT_EQ(state.TargetPath, chain);
        EXPECT_TRUE(std::filesystem::is_directory(chain));
        FinishTargetPath(state, ExportMode::Layout, context, name);
        EXPECT_EQ(state.TargetDirectory, chain);
        EXPECT_EQ(state.TargetPath, chain + "/match.xml");
    }
}

TEST(DeliveryFolders, WithoutAnExportDirectoryNothingIsMadeAndTheNameIsTheTarget) {
    WriterSetup setup;
    const ExportContext context = setup.Context(kNow);
    const XmlDocument story = ParseStory(kClassifiedStory);
    ExportState state;
    state.CurrentUploadNode = "fire.xml";
    BuildDeliveryFolders(state, story.DocumentElement().SelectSingleNode("Metadata"), context);
    EXPECT_EQ(state.TargetPath, "");
    FinishTargetPath(state, ExportMode::Layout, context, "fire.xml");
    EXPECT_EQ(state.TargetDirectory, "");
    EXPECT_EQ(state.TargetPath, "fire.xml");
}

TEST(ExportFrame, FinishOutsideLayoutOnlyKeepsTheTargetAsDirectory) {
    WriterSetup setup;
    setup.configuration.workflow.ExportTextsDirectory = "/export";
    ExportState state;
    state.TargetPath = "/web/a.txt";
    FinishTargetPath(state, ExportMode::Ftp, setup.Context(kNow), "a.txt");
    EXPECT_EQ(state.TargetDirectory, "/web/a.txt");
    EXPECT_EQ(state.TargetPath, "/web/a.txt");
}

TEST(ExportFrame, StoryNameFieldsTakeLocalSectionsWhenGeneralOnesAreEmpty) {
    const XmlDocument story = ParseStory(kClassifiedStory);
    const XmlNode metadata = story.DocumentElement().SelectSingleNode("Metadata");
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

TEST(ExportFrame, AStoryThatDoesNotParseShowsTheErrorBoxAndBeeps) {
    TempDir folder;
    WriterSetup setup;
    const auto path = folder.Write("bad.xml", "<Story>\r\n  <Body>text</Story>\r\n").string();
    EXPECT_FALSE(LoadStagedStoryOrShowError(path, setup.Context(kNow)));
    ASSERT_EQ(setup.user.messages.size(), 1u);
    EXPECT_EQ(setup.user.messages[0],
              "Parsing error:" + path +
                  ", line:2, pos:21 <Body>text</Story> Opening and ending tag mismatch: Body "
                  "line 2 and Story");
    EXPECT_EQ(setup.user.beeps, 1);

    const std::string missing = (folder / "missing.xml").string();
    EXPECT_FALSE(LoadStagedStoryOrShowError(missing, setup.Context(kNow)));
    EXPECT_EQ(setup.user.messages.back(),
              "Parsing error:" + missing + ", line:0, pos:0  cannot read file");
}

TEST(ExportFrame, AStagedStoryGivesItsRootMetadataAndBody) {
    TempDir folder;
    WriterSetup setup;
    const auto path =
        folder.Write("a.xml", "<Story><Metadata/><Body><TextBox6>x</TextBox6></Body></Story>");
    const auto story = LoadStagedStoryOrShowError(path.string(), setup.Context(kNow));
    ASSERT_TRUE(story);
    EXPECT_EQ(story->root.Name(), "Story");
    EXPECT_EQ(story->metadata.Name(), "Metadata");
    EXPECT_EQ(story->body.Text(), "x");
    EXPECT_TRUE(setup.user.messages.empty());
}

TEST(ExportFrame, TheOutputIsWrittenOnceOverWhatWasThere) {
    TempDir folder;
    ExportState state;
    state.ExportedFilePath = folder.Write("a.xml", "a much longer old content").string();
    std::filesystem::permissions(state.ExportedFilePath, std::filesystem::perms::owner_read);
    EXPECT_TRUE(WriteExportedFile(state, "new\r\n"));
    EXPECT_EQ(testing::ReadBytes(state.ExportedFilePath), "new\r\n");
    state.ExportedFilePath = (folder / "no/such/dir/a.xml").string();
    EXPECT_FALSE(WriteExportedFile(state, "x"));
}

}  // namespace
}  // namespace tessarin
