#include <gtest/gtest.h>

#include <algorithm>
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

// A desk whose layout texts go below texts/ in the folder and whose second FTP server
// keeps texts in /web/texts.
std::string Configuration(const TempDir& folder) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2" StoriesEncoding="ISO-8859-1">
<FTPTransmission><FTPServer IPNumber="ftp.one.example"/>
<FTPServer IPNumber="ftp.two.example" TextsDirectory="/web/texts"/></FTPTransmission>
<ExportFormats><InDesign><Prologue>/ANSI-WIN\</Prologue></InDesign></ExportFormats>
<Workflow ExportTextsDirectory=")" +
           (folder / "texts").string() + R"("/>
<Metadata><LastSaveDate Name="Saved"/><Author Name="By">Ann Lee</Author><ColdStory Name="Cold"/>
</Metadata><Story/><Publications><Publication Name="Herald"/></Publications></Tessarin>
)";
}

const std::string kFireStory =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- fire.xml -->\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
    "<LastSaveDate Name=\"Saved\">04/03/2024</LastSaveDate><LastSaveTime>08:30</LastSaveTime>\r\n"
    "<LastSaveAuthor>Jo</LastSaveAuthor>\r\n<Publication Name=\"Paper\">Herald</Publication>\r\n"
    "<PublicationDate Name=\"Date\">0</PublicationDate>\r\n</Metadata>\r\n<Body>\r\n"
    "<TextBox6 CharCount=\"4\" WordCount=\"1\" Name=\"Text\">Fire<note>n</note></TextBox6>\r\n"
    "</Body>\r\n</Story>\r\n";

class ExportCommand : public ::testing::Test {
  protected:
    ExportCommand() {
        config_ = folder_.Write("desk.xml", Configuration(folder_));
        story_ = folder_.Write("stories/fire.xml", kFireStory);
        std::filesystem::create_directory(folder_ / "texts");
    }

    CliRun Export(const std::string& format, const std::string& options = "") {
        return RunCli(folder_,
                      "--config " + Quoted(config_.string()) + " export " + Quoted(format) + " " +
                          Quoted(story_.string()) + " -o " + Quoted(Out().string()) + " " + options,
                      testing::kNewsroomClock);
    }

    std::filesystem::path Out() const { return folder_ / "out.bin"; }
    // No file is left in Upload (its Logs folder stays).
    bool UploadIsEmpty() const {
        return std::ranges::none_of(std::filesystem::directory_iterator(folder_ / "app/Upload"),
                                    [](const auto& entry) { return entry.is_regular_file(); });
    }

    TempDir folder_;
    std::filesystem::path config_;
    std::filesystem::path story_;
};

// The format reaches its writer with the configured layout settings (each writer's own file
// and target are the export tests' part); modes ftp and user take the server and the given
// target; the story itself is left as it was.
TEST_F(ExportCommand, EveryFormatAndModeReachesItsWriter) {
    const std::string chain = (folder_ / "texts/Herald/Cold/fire").string();
    const struct {
        std::string format;
        std::string options;
        std::string target;
        std::string directory;
        std::string written;  // a part of the output
    } rows[] = {
        {"TessarinML", "--log-line 'a -> Layout'", chain + "/fire.xml", chain,
         "Fire</TextBox6>\r\n</Body>\r\n<Logs><Log Type=\"L\">a -&gt; Layout</Log>"},
        {"InDesign", "", chain + "/fire.txt", chain, "<ANSI-WIN>"},
        {"NewsML", "--mode ftp --server 2", "/web/texts/fire.xml", "", "<NewsML>"},
        {"NewsML", "--mode ftp", "fire.xml", "", "<NewsML>"},  // server 1 has no texts directory
        {"TessarinML", "--mode ftp --server 2 --log-line x", "/web/texts/fire.xml",
         "/web/texts/fire.xml", "<Log Type=\"F\">x</Log>"},
        // A person receives the notes.
        {"TessarinML", "--mode user --target /desks/jo/fire.xml --log-type J", "/desks/jo/fire.xml",
         "/desks/jo/fire.xml",
         "Fire<note>n</note></TextBox6>\r\n</Body>\r\n<Logs><Log Type=\"J\"/>"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.format + " " + row.options);
        const CliRun run = Export(row.format, row.options);
        ASSERT_EQ(run.exitStatus, 0) << run.err;
        EXPECT_EQ(run.out,
                  "TargetPath=" + row.target + "\nTargetDirectory=" + row.directory + "\n");
        EXPECT_EQ(run.err, "");
        EXPECT_NE(ReadBytes(Out()).find(row.written), std::string::npos);
        EXPECT_TRUE(UploadIsEmpty());
    }
    EXPECT_TRUE(std::filesystem::is_directory(chain));
    EXPECT_EQ(ReadBytes(story_), kFireStory);
}

TEST_F(ExportCommand, WhatCannotBeDoneIsRefused) {
    // A refusal: exit 1, its reason on standard error, no OUT, nothing left in Upload.
    const auto expectRefused = [this](const std::string& options, const std::string& reason) {
        SCOPED_TRACE(reason);
        const CliRun run = Export("NewsML", options);
        EXPECT_EQ(run.exitStatus, 1);
        EXPECT_EQ(run.out, "");
        EXPECT_TRUE(run.err.starts_with(reason)) << run.err;
        EXPECT_FALSE(std::filesystem::exists(Out()));
        EXPECT_TRUE(UploadIsEmpty());
    };
    story_ = folder_.Write("stories/broken.xml", "<Story><Metadata></Story>");
    expectRefused("", "Parsing error:" + (folder_ / "app/Upload/broken.xml").string() + ", line:1");
    story_ = folder_ / "stories/missing.xml";
    expectRefused("", "Cannot read the story " + story_.string() + "\n");
    story_ = folder_ / "stories/fire.xml";
    expectRefused("--mode ftp --server 3", "There is no FTP server 3 in the configuration\n");

    // A story of that name already waiting in the upload directory stays as it is.
    folder_.Write("app/Upload/fire.xml", "queued");
    EXPECT_EQ(Export("NewsML").exitStatus, 1);
    EXPECT_EQ(ReadBytes(folder_ / "app/Upload/fire.xml"), "queued");
}

TEST_F(ExportCommand, AWrongCommandLineIsAUsageError) {
    const std::string story = Quoted(story_.string());
    for (const std::string& arguments :
         {story, std::string("-o out.xml"), story + " -o", story + " -o out.xml --mode desk",
          story + " -o out.xml --server 0", story + " -o out.xml --server two",
          story + " -o out.xml --color", story + " extra -o out.xml"}) {
        const CliRun run =
            RunCli(folder_, "--config " + Quoted(config_.string()) + " export NewsML " + arguments);
        EXPECT_EQ(run.exitStatus, 2) << arguments;
        EXPECT_TRUE(run.err.starts_with("tessarin-cli: usage: export FORMAT STORY -o OUT"))
            << arguments;
    }
}

TEST(UuencodeCommand, PrintsTheFileAsAMailCarriesIt) {
    TempDir folder;
    CliRun run = RunCli(folder, "uuencode " + Quoted(folder.Write("my photo.jpg", "Cat").string()));
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.out, "begin 664 my_photo.jpg\n#0V%T\n'\nend\n");
    const std::string none = (folder / "none.jpg").string();
    run = RunCli(folder, "uuencode " + Quoted(none));
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.err, "Cannot read the file " + none + "\n");
    EXPECT_EQ(RunCli(folder, "uuencode").exitStatus, 2);
    EXPECT_EQ(RunCli(folder, "uuencode a b").exitStatus, 2);
}

}  // namespace
}  // namespace tessarin
