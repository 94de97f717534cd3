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

// A workflow of three destinations (the user Ann, the group Desk, the layout system Page
// that takes the program's own format), tracking on, the checks of the stories off.
std::string Configuration(const fs::path& root) {
    const std::string at = root.string();
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2">
<FTPTransmission ControlStoryBeforeTransmission="false"><FTPServer IPNumber="ftp.example"/>
</FTPTransmission>
<Workflow Visible="true" TrackingEnabled="true" WorkflowDirectory=")" +
           at + R"(/inbox" TrackingTextsDirectory=")" + at +
           R"(/track/texts" TrackingImagesDirectory=")" + at +
           R"(/track/images" ExportTextsDirectory=")" + at +
           R"(/export/texts" ExportImagesDirectory=")" + at + R"(/export/images">
<Users><User Preferred="true">Ann</User><User Preferred="true" Type="Group">Desk</User>
<User Preferred="true" Type="Layout" ExportFormat="TessarinML">Page</User></Users></Workflow>
<Metadata><LastSaveDate Name="Saved"/><Author Name="By">Ann Lee</Author></Metadata>
<Story/>
<Publications><Publication Name="Herald"/></Publications>
<Messages/>
</Tessarin>
)";
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
    WorkflowCommand() {
        config_ = folder_.Write("desk.xml", Configuration(folder_.path()));
        for (const char* folder : {"inbox/Ann", "inbox/Desk", "track/texts", "track/images",
                                   "export/texts", "export/images"}) {
            fs::create_directories(folder_ / folder);
        }
    }

    CliRun Run(const std::string& arguments) {
        return RunCli(folder_, "--config " + Quoted(config_.string()) + " " + arguments, kClock);
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

}  // namespace
}  // namespace tessarin
