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
    ftp.home.Write("Updates/A/ann.xml", Document("Courier"));
    TempDir folder;
    const std::string login = "login --user ann --ftp " + ftp.Address() + " --ftp-user reporter";
    CliRun run = RunCli(folder, login + " --ftp-password wrong");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_TRUE(run.err.starts_with("Not connected. Please verify the following:\n")) << run.err;
    EXPECT_FALSE(std::filesystem::exists(folder / "app/Tessarin.xml"));

    run = RunCli(folder, login + " --ftp-password secret");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(ReadBytes(folder / "app/Tessarin.xml"), Document("Courier"));
    for (const char* wrong : {"login --user ann", "login --user ann --folder x --ftp y"})
        EXPECT_EQ(RunCli(folder, wrong).exitStatus, 2) << wrong;
}

// Only "Tessarin-<name>.<ext>" and "TipOfTheDay-<name>.<ext>" are offered; the one chosen
// replaces the document in use.
TEST(SelectCommand, ListsAndInstallsNamedDocuments) {
    TempDir folder;
    for (const char* name : {"Tessarin.xml", "TessarinSports.xml", "Tessarin-nodot",
                             "Tessarin-Weekend.xml", "TipOfTheDay.xml", "TipOfTheDay-fr.xml"})
        folder.Write(std::string("app/") + name, Document(name));
    EXPECT_EQ(RunCli(folder, "select --list").out, "Tessarin\tWeekend\nTipOfTheDay\tfr\n");
    const CliRun run = RunCli(folder, "select Weekend --tip fr");
    EXPECT_EQ(run.exitStatus, 0) << run.err;
    EXPECT_EQ(ReadBytes(folder / "app/Tessarin.xml"), Document("Tessarin-Weekend.xml"));
    EXPECT_EQ(ReadBytes(folder / "app/TipOfTheDay.xml"), Document("TipOfTheDay-fr.xml"));
    EXPECT_EQ(RunCli(folder, "select Sports").exitStatus, 1);
}

}  // namespace
}  // namespace tessarin::testing
