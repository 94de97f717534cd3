#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "repository/basex_session.h"
#include "support/local_basex.h"
#include "support/shell_quote.h"
#include "support/temp_dir.h"
#include "support/tool_run.h"

namespace tessarin {
namespace {

using testing::LocalBaseXServer;
using testing::Quoted;
using testing::ReadBytes;
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
<ExportDocBaseName KeepVersions="false">CliExport</ExportDocBaseName></TextML>
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
    // Each test starts with empty bases.
    void SetUp() override {
        LocalBaseXServer& server = LocalBaseXServer::Shared();
        ASSERT_TRUE(server.running());
        BaseXSession session(std::chrono::seconds(10));
        ASSERT_TRUE(session.Open(RepositoryAddressOf(server.address()), "admin", "admin"));
        ASSERT_TRUE(session.Execute("CREATE DB CliTracking"));
        ASSERT_TRUE(session.Execute("CREATE DB CliExport"));
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

TEST_F(RepositoryCommand, StoresAsASaveAndAsALayoutExportDo) {
    const std::string server = LocalBaseXServer::Shared().address();
    ToolRun run = Run(server, "repository store " + Quoted(story_.string()));
    EXPECT_EQ(run.exitStatus, 0) << run.output;
    EXPECT_EQ(run.output, "Kept in the repository\n");
    EXPECT_EQ(Paths("CliTracking"), "Jo Brand/fire.xml");

    for (int time = 0; time < 2; ++time) {
        run = Run(server, "repository store " + Quoted(story_.string()) + " --export NewsML");
        EXPECT_EQ(run.exitStatus, 0) << run.output;
    }
    // KeepVersions off: the second store replaced the first.
    EXPECT_EQ(Paths("CliExport"), "Herald/Politics/fire.xml");
    EXPECT_EQ(ReadBytes(story_), kStory);
    EXPECT_TRUE(std::filesystem::is_empty(folder_ / "app/Upload/Logs") &&
                !std::filesystem::exists(folder_ / "app/Upload/fire.xml"));
}

TEST_F(RepositoryCommand, RefusesWhatStoresNothing) {
    const std::string server = LocalBaseXServer::Shared().address();
    const std::string down = "127.0.0.1:" + std::to_string(testing::FreePort());
    const std::string story = Quoted(story_.string());
    const std::pair<ToolRun, std::string> cases[] = {
        {Run(down, "repository store " + story),
         "TextML Server not defined or not running:\n" + down + "\n"},
        {Run(server, "repository store " + story + " --export NITF"),
         "The NITF export leaves no copy in the repository: nothing is stored\n"},
        {Run(server, "repository store " + story + " --export InDesign"),
         "The InDesign export leaves no copy in the repository: nothing is stored\n"},
    };
    for (const auto& [run, output] : cases) {
        EXPECT_EQ(run.exitStatus, 1);
        EXPECT_EQ(run.output, output);
    }
    EXPECT_EQ(Run(server, "repository fetch " + story).exitStatus, 2);
}

TEST_F(RepositoryCommand, ALayoutSendStoresTheExportedFile) {
    folder_.Write("app/Tessarin.ini", "[Preferences]\r\nTextMLExport=1\r\n");
    const std::string server = LocalBaseXServer::Shared().address();
    ASSERT_EQ(Run(server, "workflow add " + Quoted(story_.string())).exitStatus, 0);
    const ToolRun run = Run(server, "workflow send Page");
    EXPECT_EQ(run.exitStatus, 0) << run.output;
    EXPECT_TRUE(std::filesystem::exists(folder_ / "texts/fire.xml"));
    EXPECT_EQ(Paths("CliExport"), "Herald/Politics/fire.xml");
}

TEST_F(RepositoryCommand, ASaveStoresItsStoryAndGoesOnWhenTheServerIsDown) {
    folder_.Write("app/Tessarin.ini", "[Preferences]\r\nTextMLTracking=1\r\n");
    const std::string down = "127.0.0.1:" + std::to_string(testing::FreePort());
    const std::pair<std::string, std::string> cases[] = {
        {LocalBaseXServer::Shared().address(), "saved.xml"},
        {down, "unsaved.xml"},
    };
    for (const auto& [server, name] : cases) {
        const ToolRun run = Run(server, "story resave " + Quoted(story_.string()) + " -o " +
                                            Quoted((folder_ / name).string()));
        EXPECT_EQ(run.exitStatus, 0) << run.output;
        EXPECT_TRUE(std::filesystem::exists(folder_ / name));
        const bool told = run.output.find("TextML Server not defined or not running:\n" + down) !=
                          std::string::npos;
        EXPECT_EQ(told, server == down) << run.output;
    }
    EXPECT_EQ(Paths("CliTracking"), "Jo Brand/saved.xml");
}

}  // namespace
}  // namespace tessarin
