#include <gtest/gtest.h>

#include <filesystem>
#include <initializer_list>
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

// A configuration whose workflow is visible, with tracking on and the checks of the stories
// before sending off; its inbox, tracking and export directories are below shared. attributes
// are added to the workflow, users are its destinations, author is the configured author.
std::string WorkflowConfiguration(const fs::path& shared, const std::string& attributes,
                                  const std::string& users, const std::string& author) {
    const std::string at = shared.string();
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2">
<FTPTransmission ControlStoryBeforeTransmission="false"><FTPServer IPNumber="ftp.example"/>
</FTPTransmission>
<Workflow Visible="true" TrackingEnabled="true" WorkflowDirectory=")" +
           at + R"(/inbox" TrackingTextsDirectory=")" + at +
           R"(/track/texts" TrackingImagesDirectory=")" + at +
           R"(/track/images" ExportTextsDirectory=")" + at +
           R"(/export/texts" ExportImagesDirectory=")" + at + R"(/export/images" )" + attributes +
           ">\n<Users>" + users + R"(</Users></Workflow>
<Metadata><LastSaveDate Name="Saved"/><Author Name="By">)" +
           author + R"(</Author></Metadata>
<Story/>
<Publications><Publication Name="Herald"/></Publications>
<Messages/>
</Tessarin>
)";
}

// The tracking and export folders below shared, and an inbox for each user.
void MakeWorkflowFolders(const fs::path& shared, std::initializer_list<const char*> inboxes) {
    for (const char* folder : {"track/texts", "track/images", "export/texts", "export/images"})
        fs::create_directories(shared / folder);
    for (const char* user : inboxes)
        fs::create_directories(shared / "inbox" / user);
}

std::string Story(const std::string& name, const fs::path& picture) {
    return "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- " + name +
           " -->\r\n<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
           "<Publication Name=\"Paper\">Herald</Publication>\r\n"
           "<LastSaveDate Name=\"Saved\">04/03/2024</LastSaveDate><LastSaveTime>08:30"
           "</LastSaveTime>\r\n<LastSaveAuthor>Jo</LastSaveAuthor>\r\n</Metadata>\r\n<Body>\r\n"
           "<TextBox6 CharCount=\"4\" WordCount=\"1\" Name=\"Text\">Fire<note>n</note>"
           "</TextBox6>\r\n</Body>\r\n<Images>\r\n<ImageBag>\r\n<Image href=\"file://" +
           picture.string() + "\"/>\r\n</ImageBag>\r\n</Images>\r\n</Story>\r\n";
}

class WorkflowCommand : public ::testing::Test {
  protected:
    // Three destinations: the user Ann, the group Desk, the layout system Page that takes
    // the program's own format.
    WorkflowCommand() {
        config_ = folder_.Write(
            "desk.xml",
            WorkflowConfiguration(
                folder_.path(), "",
                R"(<User Preferred="true">Ann</User><User Preferred="true" Type="Group">Desk)"
                R"(</User><User Preferred="true" Type="Layout" ExportFormat="TessarinML">Page</User>)",
                "Ann Lee"));
        MakeWorkflowFolders(folder_.path(), {"Ann", "Desk"});
    }

    CliRun Run(const std::string& arguments) {
        return RunCli(folder_, "--config " + Quoted(config_.string()) + " " + arguments,
                      testing::kNewsroomClock);
    }

    // Writes the story NAME.xml with its picture NAME.jpg and stages it.
    fs::path Add(const std::string& name) {
        const fs::path picture = folder_.Write("stories/" + name + ".jpg", "JPEG " + name);
        const fs::path story =
            folder_.Write("stories/" + name + ".xml", Story(name + ".xml", picture));
        EXPECT_EQ(Run("workflow add " + Quoted(story.string())).exitStatus, 0);
        return story;
    }

    std::string At(const std::string& relative) const { return (folder_ / relative).string(); }

    TempDir folder_;
    fs::path config_;
};

TEST_F(WorkflowCommand, SendsToAUserWithLogsTrackingAndTheDailyPage) {
    const fs::path source = Add("fire");
    folder_.Write("stories/fire.bml", "an older backup");
    EXPECT_EQ(Run("workflow list").out,
              "S fire.xml\nI fire.jpg\nStories:1 / Photos:1 / Other files:0\n");
    const CliRun run = Run("workflow send Ann");
    ASSERT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(run.out, "fire.xml\n\tPhoto: fire.jpg\n");

    const std::string metadataStart =
        "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- fire.xml -->\r\n"
        "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
        "<Publication Name=\"Paper\">Herald</Publication>\r\n<LastSaveTime>08:30</LastSaveTime>"
        "\r\n\r\n";
    const std::string lastSave =
        "<LastSaveDate Name=\"Saved\">05/03/2024 09:07</LastSaveDate><LastSaveAuthor>Ann Lee"
        "</LastSaveAuthor></Metadata>\r\n<Body>\r\n<TextBox6 CharCount=\"4\" WordCount=\"1\" "
        "Name=\"Text\">Fire<note>n</note></TextBox6>\r\n</Body>\r\n<Images>\r\n<ImageBag>\r\n";
    const std::string log =
        "</ImageBag>\r\n</Images>\r\n<Logs><Log Type=\"U\">05/03/2024 09:07 - Ann Lee -&gt; Ann"
        "</Log></Logs></Story>\r\n";
    EXPECT_EQ(ReadBytes(folder_ / "inbox/Ann/fire.xml"),
              metadataStart + "<OriginalPath Name=\"" + source.string() + "\"/>" + lastSave +
                  "<Image href=\"fire.jpg\"/>\r\n" + log);
    const std::string sent = metadataStart + lastSave + "<Image href=\"file://" +
                             At("stories/fire.jpg") + "\"/>\r\n" + log;
    EXPECT_EQ(ReadBytes(folder_ / "stories/fire.bml"), sent);
    EXPECT_FALSE(fs::exists(source));
    EXPECT_EQ(ReadBytes(folder_ / "track/texts/fire.xml"), sent);
    EXPECT_EQ(ReadBytes(folder_ / "inbox/Ann/fire.jpg"), "JPEG fire");
    EXPECT_EQ(ReadBytes(folder_ / "track/images/fire.jpg"), "JPEG fire");
    // The day's log page gets the send (its whole page is the daily log's test).
    EXPECT_NE(ReadBytes(folder_ / "app/Upload/Logs/Log Tessarin 2024-03-05.htm")
                  .find("<li>09:07 - <i>Story</i> <b>fire.xml</b> - Ann Lee -> Ann</li>\r\n"
                        "<ul><li>09:07 - <i>Photo</i> fire.jpg - Ann Lee -> Ann</li></ul>"),
              std::string::npos);
    EXPECT_NE(ReadBytes(folder_ / "app/Tessarin.ini").find("IndexLastDestination=2\r\n"),
              std::string::npos);
    EXPECT_EQ(Run("workflow list").out, "Stories:0 / Photos:0 / Other files:0\n");

    EXPECT_EQ(Run("logs " + Quoted(At("stories/fire.bml"))).out,
              "U\t05/03/2024 09:07 - Ann Lee -> Ann\n");
    EXPECT_EQ(Run("logs days").out, "2024-03-05\n");
}

// A group's inbox gets the story signed with the group's log type; a layout system's picture
// goes beside its story in the delivery folder (the layout story itself is the export tests').
TEST_F(WorkflowCommand, SendsToAGroupAndToALayoutSystem) {
    Add("fire");
    ASSERT_EQ(Run("workflow send Desk").exitStatus, 0);
    EXPECT_NE(ReadBytes(folder_ / "inbox/Desk/fire.xml").find("<Log Type=\"G\">"),
              std::string::npos);
    Add("storm");
    ASSERT_EQ(Run("workflow send Page").exitStatus, 0);
    EXPECT_EQ(ReadBytes(folder_ / "export/texts/Herald/storm/storm.jpg"), "JPEG storm");
}

TEST_F(WorkflowCommand, RefusalsAndRemoval) {
    EXPECT_EQ(Run("workflow send Ann").err, "Add story to list\n");
    const fs::path source = Add("fire");
    const std::pair<std::string, std::string> refusals[] = {
        {"workflow send Nobody", "Missing destination\n"},
        {"workflow remove other.xml", "Select story\n"},
    };
    for (const auto& [command, message] : refusals) {
        const CliRun run = Run(command);
        EXPECT_EQ(std::to_string(run.exitStatus) + run.err, "1" + message) << command;
    }

    EXPECT_EQ(Run("workflow remove fire.xml").exitStatus, 0);
    EXPECT_EQ(Run("workflow list").out, "Stories:0 / Photos:0 / Other files:0\n");
    EXPECT_TRUE(fs::exists(source));
    EXPECT_EQ(Run("workflow frobnicate").exitStatus, 2);
}

// ---- two workstations ---------------------------------------------------------------

// One newsroom: a shared workflow directory (the users Ann and Bob, the layout system Page
// that takes NITF) and shared tracking directories; each user has a configuration that
// names their own personal directories.
std::string PersonalConfiguration(const fs::path& root, const std::string& user) {
    const std::string personal = (root / user).string();
    return WorkflowConfiguration(
        root / "shared",
        R"(TrackingDisplayAllowed="true" TrackingClearAllowed="true" PersonalTextsDirectory=")" +
            personal + R"(/texts" PersonalImagesDirectory=")" + personal + R"(/images")",
        R"(<User Preferred="true">Ann</User><User Preferred="true">Bob</User>)"
        R"(<User Preferred="true" Type="Layout" ExportFormat="NITF">Page</User>)",
        "");
}

std::string TravellingStory(const fs::path& picture) {
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
        MakeWorkflowFolders(folder_ / "shared", {"Ann", "Bob"});
        for (const char* folder : {"Ann/texts", "Ann/images", "Bob/texts", "Bob/images"})
            fs::create_directories(folder_ / folder);
        for (const char* user : {"Ann", "Bob"}) {
            folder_.Write(std::string(user) + "/app/Tessarin.xml",
                          PersonalConfiguration(folder_.path(), user));
            folder_.Write(std::string(user) + "/app/Tessarin.ini",
                          std::string("[Identification]\r\nAuthor=") + user + "\r\n");
        }
    }

    // The command as the user's own workstation runs it.
    CliRun As(const std::string& user, const std::string& arguments) {
        return RunCli(folder_,
                      "--app-dir " + Quoted((folder_ / user / "app").string()) + " " + arguments,
                      testing::kNewsroomClock);
    }

    std::string At(const std::string& relative) const { return (folder_ / relative).string(); }

    TempDir folder_;
};

TEST_F(TwoWorkstations, AStoryTravelsFromAnnToBobToLayoutAndAMessageFollows) {
    const fs::path picture = folder_.Write("Ann/images/fire.jpg", "JPEG fire");
    const fs::path story = folder_.Write("Ann/texts/fire.xml", TravellingStory(picture));
    ASSERT_EQ(As("Ann", "workflow add " + Quoted(story.string())).exitStatus, 0);
    ASSERT_EQ(As("Ann", "workflow send Bob").exitStatus, 0);

    EXPECT_EQ(As("Bob", "inbox").out, "1\n");
    EXPECT_EQ(As("Ann", "inbox").out, "0\n");
    EXPECT_EQ(As("Bob", "receive list").out, "Bob\n  fire.xml\nWaiting stories: 1\n");
    const CliRun taken = As("Bob", "receive get fire.xml");
    ASSERT_EQ(taken.exitStatus, 0) << taken.err;
    EXPECT_EQ(taken.err,
              "09:07 - Received stories: 1, Received photos: 1, Received other files: 0\n");
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
    const std::string story = TravellingStory(folder_ / "nowhere.jpg");
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
