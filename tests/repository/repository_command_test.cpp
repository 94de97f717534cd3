#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/local_basex.h"
#include "support/shell_quote.h"
#include "support/temp_dir.h"
#include "support/tool_run.h"

namespace tessarin {
namespace {

using testing::LocalBaseXServer;
using testing::Quoted;
using testing::RunTool;
using testing::TempDir;
using testing::ToolRun;

std::string Configuration(const TempDir& folder, const std::string& server) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<Tessarin Version="3.2" StoriesEncoding="ISO-8859-1">
<FTPTransmission ControlStoryBeforeTransmission="false"><FTPServer IPNumber="ftp.one.example"/>
</FTPTransmission>
<ExportFormats><NewsML TextML="true"/><NITF/></ExportFormats>
<Workflow Visible="true" ExportTextsDirectory=")" +
           (folder / "texts").string() + R"(" ExportImagesDirectory=")" +
           (folder / "texts").string() +
           R"("><Users><User Preferred="true" Type="Layout" ExportFormat="NewsML">Page</User></Users>
</Workflow>
<TextML TrackingEnabled="true"><ServerName>)" +
           server + R"(</ServerName><TrackingDocBaseName>CliTracking</TrackingDocBaseName>
<ExportDocBaseName>CliExport</ExportDocBaseName></TextML>
<Metadata><LastSaveDate Name="Saved"/><Author Name="By">Ann Lee</Author></Metadata><Story/>
<Publications><Publication Name="Herald"/></Publications>
<Messages><SavedStoryTextML>Kept in the repository</SavedStoryTextML></Messages></Tessarin>
)";
}

const std::string kStory =
    "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\r\n<!-- fire.xml -->\r\n"
    "<Story AppName=\"Tessarin\" AppVersion=\"0.1.0\">\r\n<Metadata>\r\n"
    "<Author>Jo Brand</Author>\r\n<Publication Name=\"Paper\">Herald</Publication>\r\n"
    "<Classification>Politics</Classification>\r\n</Metadata>\r\n<Body>\r\n"
    "<TextBox6 Name=\"Text\">Fire</TextBox6>\r\n</Body>\r\n</Story>\r\n";

class RepositoryCommand : public ::testing::Test {
  protected:
    void SetUp() override {
        LocalBaseXServer& server = LocalBaseXServer::Shared();
        ASSERT_TRUE(server.running());
        ASSERT_TRUE(server.CreateDatabases({"CliTracking", "CliExport"}));
    }

    RepositoryCommand() {
        story_ = folder_.Write("stories/fire.xml", kStory);
        std::filesystem::create_directories(folder_ / "texts");
    }

    ToolRun Run(const std::string& server, const std::string& arguments) {
        const std::filesystem::path config =
            folder_.Write("desk.xml", Configuration(folder_, server));
        return RunTool(Quoted(TESSARIN_CLI_PATH) + " --app-dir " +
                       Quoted((folder_ / "app").string()) + " --config " + Quoted(config.string()) +
                       " " + arguments + " 2>&1");
    }

    static std::string Paths(const std::string& base) {
        return LocalBaseXServer::Shared().ClientQuery("string-join(for $d in db:open('" + base +
                                                      "') return db:path($d), ' ')");
    }

    TempDir folder_;
    std::filesystem::path story_;
};

TEST_F(RepositoryCommand, StoresAsASaveAndALayoutSendDo) {
    const std::string up = LocalBaseXServer::Shared().address();
    const std::string story = Quoted(story_.string());
    ToolRun run = Run(up, "repository store " + story);
    EXPECT_EQ(run.output, "Kept in the repository\n");
    EXPECT_EQ(Paths("CliTracking"), "Jo Brand/fire.xml");
    EXPECT_EQ(Run(up, "repository store " + story + " --export NewsML").exitStatus, 0);
    EXPECT_EQ(Paths("CliExport"), "Herald/Politics/fire.xml");
    run = Run(up, "repository store " + story + " --export NITF");
    EXPECT_EQ(run.output, "The NITF export leaves no copy in the repository: nothing is stored\n");

    // The program's own save and send, with the user's flags on: a save goes on whatever
    // the repository says.
    folder_.Write("app/Tessarin.ini", "[Preferences]\r\nTextMLTracking=1\r\nTextMLExport=1\r\n");
    const std::string down = "127.0.0.1:" + std::to_string(testing::FreePort());
    run = Run(down, "story resave " + story + " -o " + Quoted((folder_ / "saved.xml").string()));
    EXPECT_EQ(run.exitStatus, 0) << run.output;
    EXPECT_TRUE(std::filesystem::exists(folder_ / "saved.xml"));
    EXPECT_NE(run.output.find("TextML Server not defined or not running:\n" + down + "\n"),
              std::string::npos)
        << run.output;
    ASSERT_TRUE(LocalBaseXServer::Shared().CreateDatabases({"CliExport"}));
    ASSERT_EQ(Run(up, "workflow add " + story).exitStatus, 0);
    run = Run(up, "workflow send Page");
    EXPECT_EQ(run.exitStatus, 0) << run.output;
    EXPECT_TRUE(std::filesystem::exists(folder_ / "texts/fire.xml"));
    EXPECT_EQ(Paths("CliExport"), "Herald/Politics/fire.xml");
}

}  // namespace
}  // namespace tessarin
