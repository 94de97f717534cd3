#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/cli_run.h"
#include "config/configuration_document.h"
#include "support/local_server.h"
#include "support/temp_dir.h"

namespace tessarin::testing {
namespace {

std::string Document(const std::string& edition) {
    ConfigurationDocument document;
    document.messages = "<Messages><AddStory>" + edition + "</AddStory></Messages>";
    return document.Text();
}

TEST(LoginCommand, InstallsTheUsersDocumentOrSaysWhyNot) {
    LocalFtpServer ftp;
    TempDir folder;
    const std::string server = " --ftp " + ftp.Address() + " --ftp-user reporter";

    CliRun run = RunCli(folder, "login --user ann" + server + " --ftp-password wrong");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.err.starts_with("Not connected. Please verify the following:\n")) << run.err;

    run = RunCli(folder, "login --user ann" + server + " --ftp-password secret");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.err.starts_with("Unknown parameters file on FTP Server " + ftp.Address() +
                                    ":\nUpdates/A/ann.xml\n"))
        << run.err;
    EXPECT_FALSE(std::filesystem::exists(folder / "app/Tessarin.xml"));

    ftp.home.Write("Updates/A/ann.xml", Document("Courier"));
    run = RunCli(folder, "login --user ann" + server + " --ftp-password secret");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(ReadBytes(folder / "app/Tessarin.xml"), Document("Courier"));
    EXPECT_FALSE(std::filesystem::exists(ftp.home / "Updates/A/ann.xml"));

    folder.Write("updates/A/ann.xml", "<Tessarin><broken></Tessarin>");
    run = RunCli(folder, "login --user ann --folder " + (folder / "updates").string());
    EXPECT_EQ(run.exitStatus, 1) << run.err;
    EXPECT_FALSE(std::filesystem::exists(folder / "updates/A/ann.xml"));

    for (const char* wrong : {"login --user ann", "login --folder x",
                              "login --user ann --folder x --ftp y", "login --user ann --ftp"})
        EXPECT_EQ(RunCli(folder, wrong).exitStatus, 2) << wrong;
}

TEST(SelectCommand, ListsAndInstallsNamedDocuments) {
    TempDir folder;
    folder.Write("app/Tessarin.xml", Document("Daily"));
    folder.Write("app/Tessarin-Weekend.xml", Document("Weekend"));
    folder.Write("app/TessarinSports.xml", Document("Sports"));
    folder.Write("app/TipOfTheDay-fr.xml", "<Tips/>");

    CliRun run = RunCli(folder, "select --list");
    EXPECT_EQ(run.out, "Tessarin\tWeekend\nTipOfTheDay\tfr\n");

    run = RunCli(folder, "select Weekend --tip fr");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(ReadBytes(folder / "app/Tessarin.xml"), Document("Weekend"));
    EXPECT_EQ(ReadBytes(folder / "app/TipOfTheDay.xml"), "<Tips/>");

    run = RunCli(folder, "select Sports");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_NE(run.err.find("Tessarin-Sports.xml"), std::string::npos) << run.err;
    EXPECT_EQ(ReadBytes(folder / "app/Tessarin.xml"), Document("Weekend"));
    EXPECT_EQ(RunCli(folder, "select").exitStatus, 2);
}

}  // namespace
}  // namespace tessarin::testing
