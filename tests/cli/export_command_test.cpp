#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/cli_run.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CliRun;
using testing::Quoted;
using testing::ReadBytes;
using testing::RunCli;
using testing::TempDir;

const std::string kFrozenClock =
    "TZ=UTC TESSARIN_NOW=2024-03-05T09:07:30 TESSARIN_SHORT_DATE=dd/MM/yyyy";

// A desk whose layout texts go below texts/ in the folder and whose second FTP server
// keeps texts in /web/texts.
std::string Configuration(const TempDir& folder) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2" StoriesEncoding="ISO-8859-1">
<FTPTransmission><FTPServer IPNumber="ftp.one.example"/>
<FTPServer IPNumber="ftp.two.example" TextsDirectory="/web/texts"/></FTPTransmission>
<ExportFormats><RSS><ChannelTitle>Herald</ChannelTitle></RSS>
<InDesign><Prologue>/ANSI-WIN\</Prologue></InDesign><XPress><Prologue>/v6.50\</Prologue></XPress>
<MileniumInsert><Publication>pub</Publication></MileniumInsert></ExportFormats>
<Workflow ExportTextsDirectory=")" +
           (folder / "texts").string() + R"("/>
<Metadata><LastSaveDate Name="Saved"/><Author Name="By">Ann Lee</Author><ColdStory Name="Cold"/>
</Metadata>
<Story/>
<Publications><Publication Name="Herald"/></Publications>
</Tessarin>
)";
}

constexpr std::string_view kStoryHead =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- fire.xml -->\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n";
constexpr std::string_view kStoryRest =
    "<Publication Name=\"Paper\">Herald</Publication>\r\n"
    "<PublicationDate Name=\"Date\">0</PublicationDate>\r\n"
    "</Metadata>\r\n<Body>\r\n"
    "<TextBox6 CharCount=\"4\" WordCount=\"1\" Name=\"Text\">Fire<note>n</note></TextBox6>\r\n"
    "</Body>\r\n</Story>\r\n";

std::string FireStory() {
    return std::string(kStoryHead) +
           "<LastSaveDate Name=\"Saved\">04/03/2024</LastSaveDate><LastSaveTime>08:30"
           "</LastSaveTime>\r\n<LastSaveAuthor>Jo</LastSaveAuthor>\r\n" +
           std::string(kStoryRest);
}

class ExportCommand : public ::testing::Test {
  protected:
    ExportCommand() {
        config_ = folder_.Write("desk.xml", Configuration(folder_));
        story_ = folder_.Write("stories/fire.xml", FireStory());
        std::filesystem::create_directory(folder_ / "texts");
    }

    CliRun Export(const std::string& format, const std::string& options = "") {
        return RunCli(folder_,
                      "--config " + Quoted(config_.string()) + " export " + Quoted(format) + " " +
                          Quoted(story_.string()) + " -o " + Quoted(Out().string()) + " " + options,
                      kFrozenClock);
    }

    std::filesystem::path Out() const { return folder_ / "out.bin"; }
    std::string Texts(const std::string& rest) const { return (folder_ / "texts").string() + rest; }
    bool UploadIsEmpty() const {
        for (const auto& entry : std::filesystem::directory_iterator(folder_ / "app/Upload")) {
            if (entry.is_regular_file()) return false;
        }
        return true;
    }

    TempDir folder_;
    std::filesystem::path config_;
    std::filesystem::path story_;
};

TEST_F(ExportCommand, TessarinMLInLayoutModeGivesTheCleanedStoryAndItsFolders) {
    const CliRun run = Export("TessarinML", "--log-line 'a -> Layout'");
    ASSERT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "TargetPath=" + Texts("/Herald/Cold/fire/fire.xml") +
                           "\nTargetDirectory=" + Texts("/Herald/Cold/fire") + "\n");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(ReadBytes(Out()),
              std::string(kStoryHead) + "<LastSaveTime>08:30</LastSaveTime>\r\n\r\n" +
                  "<Publication Name=\"Paper\">Herald</Publication>\r\n"
                  "<PublicationDate Name=\"Date\">0</PublicationDate>\r\n"
                  "<LastSaveDate Name=\"Saved\">05/03/2024 09:07</LastSaveDate>"
                  "<LastSaveAuthor>Ann Lee</LastSaveAuthor></Metadata>\r\n<Body>\r\n"
                  "<TextBox6 CharCount=\"4\" WordCount=\"1\" Name=\"Text\">Fire</TextBox6>\r\n"
                  "</Body>\r\n<Logs><Log Type=\"L\">a -&gt; Layout</Log></Logs></Story>\r\n");
    EXPECT_TRUE(std::filesystem::is_directory(Texts("/Herald/Cold/fire")));
    EXPECT_TRUE(UploadIsEmpty());
    EXPECT_EQ(ReadBytes(story_), FireStory());

    // A second export rebuilds the same folders.
    EXPECT_EQ(Export("TessarinML").exitStatus, 0);
}

TEST_F(ExportCommand, EveryFormatReachesItsWriter) {
    struct Case {
        std::string format;
        std::string target;
        std::string directory;
        std::string outputStart;
    };
    const std::string chain = Texts("/Herald/Cold/fire");
    const Case cases[] = {
        {"NewsML", Texts("/fire.xml"), "",
         "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<NewsML>"},
        {"NITF", Texts("/fire.xml"), "",
         "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\r\n<nitf>"},
        {"InDesign", chain + "/fire.txt", chain, "<ANSI-WIN>"},
        {"XPress", chain + "/fire.xtg", chain, "<v6.50>\r\nFire\r\n"},
        {"EditWorksQTrans", Texts("/fire.txt"), "", "<&FP"},
        {"MileniumInsert", Texts("/fire.xml"), "",
         "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" standalone=\"yes\" ?>\r\n<pub>Herald"},
        {"RSS", Texts("/fire.xml"), Texts("/fire.xml"),
         "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<rss version=\"2.0\">"},
        {"Rss", chain + "/fire.xml", chain, "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>"},
    };
    for (const Case& expected : cases) {
        const CliRun run = Export(expected.format);
        ASSERT_EQ(run.exitStatus, 0) << expected.format << run.err;
        EXPECT_EQ(run.out, "TargetPath=" + expected.target +
                               "\nTargetDirectory=" + expected.directory + "\n")
            << expected.format;
        EXPECT_TRUE(ReadBytes(Out()).starts_with(expected.outputStart)) << expected.format;
        EXPECT_TRUE(UploadIsEmpty()) << expected.format;
    }
}

TEST_F(ExportCommand, FtpAndUserModesTakeTheServerAndTheGivenTarget) {
    CliRun run = Export("NewsML", "--mode ftp --server 2");
    ASSERT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "TargetPath=/web/texts/fire.xml\nTargetDirectory=\n");
    run = Export("NewsML", "--mode ftp");  // server 1 has no texts directory
    EXPECT_EQ(run.out, "TargetPath=fire.xml\nTargetDirectory=\n");

    run = Export("TessarinML", "--mode ftp --server 2 --log-line x");
    EXPECT_EQ(run.out, "TargetPath=/web/texts/fire.xml\nTargetDirectory=/web/texts/fire.xml\n");
    EXPECT_NE(ReadBytes(Out()).find("<Log Type=\"F\">x</Log>"), std::string::npos);

    run = Export("TessarinML", "--mode user --target /desks/jo/fire.xml --log-type J");
    ASSERT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "TargetPath=/desks/jo/fire.xml\nTargetDirectory=/desks/jo/fire.xml\n");
    // A person receives the notes.
    EXPECT_NE(ReadBytes(Out()).find("Fire<note>n</note>"), std::string::npos);
    EXPECT_NE(ReadBytes(Out()).find("<Log Type=\"J\"/>"), std::string::npos);

    run = Export("NewsML", "--mode ftp --server 3");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.err, "There is no FTP server 3 in the configuration\n");
}

TEST_F(ExportCommand, AStoryThatDoesNotParseFailsWithTheParsingError) {
    story_ = folder_.Write("stories/broken.xml", "<Story><Metadata></Story>");
    const CliRun run = Export("NewsML");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_TRUE(run.err.starts_with(
        "Parsing error:" + (folder_ / "app/Upload/broken.xml").string() + ", line:1, pos:"))
        << run.err;
    EXPECT_FALSE(std::filesystem::exists(Out()));
    EXPECT_TRUE(UploadIsEmpty());
}

TEST_F(ExportCommand, WhatCannotBeDoneIsRefused) {
    story_ = folder_ / "stories/missing.xml";
    CliRun run = Export("NewsML");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.err, "Cannot read the story " + story_.string() + "\n");

    story_ = folder_ / "stories/fire.xml";
    folder_.Write("app/Upload/fire.xml", "queued");
    run = Export("NewsML");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(ReadBytes(folder_ / "app/Upload/fire.xml"), "queued");
}

TEST_F(ExportCommand, AWrongCommandLineIsAUsageError) {
    const std::string config = "--config " + Quoted(config_.string()) + " export ";
    const std::string story = Quoted(story_.string());
    for (const std::string& arguments :
         {"NewsML " + story, std::string("NewsML -o out.xml"), "NewsML " + story + " -o",
          "NewsML " + story + " -o out.xml --mode desk",
          "NewsML " + story + " -o out.xml --server 0",
          "NewsML " + story + " -o out.xml --server two", "NewsML " + story + " -o out.xml --color",
          "NewsML " + story + " extra -o out.xml"}) {
        const CliRun run = RunCli(folder_, config + arguments);
        EXPECT_EQ(run.exitStatus, 2) << arguments;
        EXPECT_TRUE(run.err.starts_with("tessarin-cli: usage: export FORMAT STORY -o OUT"))
            << arguments;
    }
}

TEST(UuencodeCommand, PrintsTheFileAsAMailCarriesIt) {
    TempDir folder;
    const auto file = folder.Write("my photo.jpg", "Cat");
    CliRun run = RunCli(folder, "uuencode " + Quoted(file.string()));
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.out, "begin 664 my_photo.jpg\n#0V%T\n'\nend\n");

    run = RunCli(folder, "uuencode " + Quoted((folder / "none.jpg").string()));
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.err, "Cannot read the file " + (folder / "none.jpg").string() + "\n");
    EXPECT_EQ(RunCli(folder, "uuencode").exitStatus, 2);
    EXPECT_EQ(RunCli(folder, "uuencode a b").exitStatus, 2);
}

}  // namespace
}  // namespace tessarin
