#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/cli_run.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::CliRun;
using testing::Quoted;
using testing::ReadBytes;
using testing::RunCli;
using testing::TempDir;

const std::string kClock =
    "LC_ALL=C TZ=UTC TESSARIN_NOW=2024-03-05T09:07:30 TESSARIN_SHORT_DATE=dd/MM/yyyy "
    "TESSARIN_LONG_DATE='dddd, MMMM d, yyyy'";

// One newsroom: a shared workflow directory (the users Ann and Bob, the layout system Page
// that takes NITF) and shared tracking directories; each user has a configuration that
// names their own personal directories.
std::string Configuration(const fs::path& root, const std::string& user) {
    const std::string at = root.string();
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2">
<FTPTransmission ControlStoryBeforeTransmission="false"><FTPServer IPNumber="ftp.example"/>
</FTPTransmission>
<Workflow Visible="true" TrackingEnabled="true" TrackingDisplayAllowed="true" )"
           R"(TrackingClearAllowed="true" WorkflowDirectory=")" +
           at + R"(/shared/inbox" TrackingTextsDirectory=")" + at +
           R"(/shared/track/texts" TrackingImagesDirectory=")" + at +
           R"(/shared/track/images" ExportTextsDirectory=")" + at +
           R"(/shared/export/texts" ExportImagesDirectory=")" + at +
           R"(/shared/export/images" PersonalTextsDirectory=")" + at + "/" + user +
           R"(/texts" PersonalImagesDirectory=")" + at + "/" + user + R"(/images">
<Users><User Preferred="true">Ann</User><User Preferred="true">Bob</User>
<User Preferred="true" Type="Layout" ExportFormat="NITF">Page</User></Users></Workflow>
<Metadata><LastSaveDate Name="Saved"/><Author Name="By"/></Metadata>
<Story/>
<Publications><Publication Name="Herald"/></Publications>
<Messages/>
</Tessarin>
)";
}

std::string Story(const fs::path& picture) {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- fire.xml -->\r\n"
           "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
           "<Publication Name=\"Paper\">Herald</Publication>\r\n"
           "<Classification>Local</Classification>\r\n"
           "<PublicationDate Name=\"Date\">05/03/2024</PublicationDate>\r\n"
           "<Author>Ann</Author>\r\n<LastSaveAuthor>Ann</LastSaveAuthor>\r\n</Metadata>\r\n"
           "<Body>\r\n<TextBox3 CharCount=\"4\" WordCount=\"1\">Fire</TextBox3>\r\n"
           "<TextBox6 CharCount=\"9\" WordCount=\"2\">Warehouse burns</TextBox6>\r\n</Body>\r\n"
           "<Images>\r\n<ImageBag>\r\n<Image href=\"file://" +
           picture.string() + "\"/>\r\n</ImageBag>\r\n</Images>\r\n</Story>\r\n";
}

class TwoWorkstations : public ::testing::Test {
  protected:
    TwoWorkstations() {
        for (const char* folder :
             {"shared/inbox/Ann", "shared/inbox/Bob", "shared/track/texts", "shared/track/images",
              "shared/export/texts", "shared/export/images", "Ann/texts", "Ann/images", "Bob/texts",
              "Bob/images"}) {
            fs::create_directories(folder_ / folder);
        }
        for (const char* user : {"Ann", "Bob"}) {
            folder_.Write(std::string(user) + "/app/Tessarin.xml",
                          Configuration(folder_.path(), user));
            folder_.Write(std::string(user) + "/app/Tessarin.ini",
                          std::string("[Identification]\r\nAuthor=") + user + "\r\n");
        }
    }

    // The command as the user's own workstation runs it.
    CliRun As(const std::string& user, const std::string& arguments) {
        return RunCli(folder_,
                      "--app-dir " + Quoted((folder_ / user / "app").string()) + " " + arguments,
                      kClock);
    }

    std::string At(const std::string& relative) const { return (folder_ / relative).string(); }

    TempDir folder_;
};

TEST_F(TwoWorkstations, AStoryTravelsFromAnnToBobToLayoutAndAMessageFollows) {
    const fs::path picture = folder_.Write("Ann/images/fire.jpg", "JPEG fire");
    const fs::path story = folder_.Write("Ann/texts/fire.xml", Story(picture));
    ASSERT_EQ(As("Ann", "workflow add " + Quoted(story.string())).exitStatus, 0);
    ASSERT_EQ(As("Ann", "workflow send Bob").exitStatus, 0);

    EXPECT_EQ(As("Bob", "inbox").out, "1\n");
    EXPECT_EQ(As("Ann", "inbox").out, "0\n");
    EXPECT_EQ(As("Bob", "receive list").out, "Bob\n  fire.xml\nWaiting stories: 1\n");
    const CliRun taken = As("Bob", "receive get fire.xml");
    ASSERT_EQ(taken.exitStatus, 0) << taken.err;
    EXPECT_EQ(taken.err,
              "09:07 - Received stories: 1, Received photos: 1, Received other files: 0\n");
    EXPECT_EQ(ReadBytes(folder_ / "Bob/images/fire.jpg"), "JPEG fire");
    EXPECT_TRUE(fs::is_empty(folder_ / "shared/inbox/Bob"));
    EXPECT_EQ(As("Bob", "inbox").out, "0\n");

    ASSERT_EQ(As("Bob", "workflow add " + Quoted(At("Bob/texts/fire.xml"))).exitStatus, 0);
    const CliRun layout = As("Bob", "workflow send Page");
    ASSERT_EQ(layout.exitStatus, 0) << layout.err;

    const std::string tree =
        "[20240305] Tuesday, March 5, 2024\n"
        "  Herald\n"
        "    Local\n"
        "      [fire.xml] Fire\n"
        "        fire.jpg\n";
    EXPECT_EQ(As("Bob", "track --show layout").out,
              tree + "Stories: 1, Photos: 1, Other files: 0\n");
    EXPECT_EQ(As("Ann", "track --show editorial --search burns").out,
              "Stories: 0, Photos: 0, Other files: 0, Stories found: 1\n");
    EXPECT_TRUE(As("Ann", "track --by last-author").out.starts_with("Bob\n  [20240305]"));
    ASSERT_EQ(As("Ann", "workflow message Bob " + Quoted("Check the fire")).exitStatus, 0);
    EXPECT_EQ(As("Bob", "inbox").out, "message\n");
}

TEST_F(TwoWorkstations, InterceptAndTrackDeletion) {
    folder_.Write("Ann/app/Tessarin.xml",
                  ReadBytes(folder_ / "Ann/app/Tessarin.xml")
                      .replace(ReadBytes(folder_ / "Ann/app/Tessarin.xml").find("</Users>"), 8,
                               "</Users><InterceptedUsers Visible=\"true\"><User>Bob</User>"
                               "</InterceptedUsers>"));
    const std::string story = Story(folder_ / "nowhere.jpg");
    folder_.Write("shared/inbox/Bob/fire.xml",
                  story.substr(0, story.find("<Images>")) + "</Story>\r\n");
    EXPECT_EQ(As("Ann", "intercept list").out, "Bob\n  fire.xml\n");
    const CliRun intercepted = As("Ann", "intercept get Bob fire.xml");
    ASSERT_EQ(intercepted.exitStatus, 0) << intercepted.err;
    EXPECT_EQ(As("Ann", "logs " + Quoted(At("Ann/texts/fire.xml"))).out,
              "I\t05/03/2024 09:07 - Intercepted by Ann\n");

    EXPECT_EQ(As("Ann", "--answer no track delete " + Quoted("[20240305] Tuesday, March 5, 2024"))
                  .exitStatus,
              1);
    EXPECT_TRUE(fs::exists(folder_ / "shared/track/texts/fire.xml"));
    EXPECT_EQ(As("Ann", "track delete " + Quoted("[20240305] Tuesday, March 5, 2024") +
                            " Herald Local " + Quoted("[fire.xml] Fire"))
                  .exitStatus,
              0);
    EXPECT_FALSE(fs::exists(folder_ / "shared/track/texts/fire.xml"));
}

}  // namespace
}  // namespace tessarin
