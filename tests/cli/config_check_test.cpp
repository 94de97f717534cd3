#include <sys/wait.h>

#include <cstdlib>
#include <string>

#include <gtest/gtest.h>

#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::ReadBytes;
using testing::TempDir;

struct CliRun {
    int exitStatus = -1;
    std::string out;
    std::string err;
};

// Runs tessarin-cli with the given arguments (already quoted for the shell) and an
// application directory in the folder.
CliRun RunCli(const TempDir& folder, const std::string& arguments) {
    const std::string command = std::string("'") + TESSARIN_CLI_PATH + "' --app-dir '" +
                                (folder / "app").string() + "' " + arguments + " >'" +
                                (folder / "out.txt").string() + "' 2>'" +
                                (folder / "err.txt").string() + "'";
    const int status = std::system(command.c_str());
    CliRun run;
    run.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    run.out = ReadBytes(folder / "out.txt");
    run.err = ReadBytes(folder / "err.txt");
    return run;
}

const char* const kComplete =
    R"(<Tessarin><FTPTransmission><FTPServer IPNumber="ftp.example.org"/></FTPTransmission>)"
    R"(<Metadata/><Story/><Publications><Publication Name="Herald"/></Publications></Tessarin>)";

TEST(ConfigCheck, ACompleteConfigurationPassesSilently) {
    TempDir folder;
    const auto config = folder.Write("desk.xml", kComplete);
    const CliRun run = RunCli(folder, "--config '" + config.string() + "' config check");
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "");
}

TEST(ConfigCheck, TheApplicationDirectoryDocumentIsTheDefault) {
    TempDir folder;
    folder.Write("app/Tessarin.xml", "<Tessarin><Metadata/></Tessarin>");
    const CliRun run = RunCli(folder, "config check");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.err, "Error: " + (folder / "app" / "Tessarin.xml").string() +
                           "- missing section 'FTPTransmission'\n");
}

TEST(ConfigCheck, AMissingSectionIsPrintedAndFails) {
    TempDir folder;
    const auto config = folder.Write(
        "desk.xml", R"(<Tessarin><FTPTransmission><FTPServer/></FTPTransmission><Metadata/>)"
                    R"(<Publications><Publication/></Publications></Tessarin>)");
    const CliRun run = RunCli(folder, "--config '" + config.string() + "' config check");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "Error: " + config.string() + " - missing section 'Story'\n");
}

TEST(ConfigCheck, AMissingFtpServerIsPrintedButPasses) {
    TempDir folder;
    const auto config =
        folder.Write("desk.xml", R"(<Tessarin><FTPTransmission/><Metadata/><Story/>)"
                                 R"(<Publications><Publication/></Publications></Tessarin>)");
    const CliRun run = RunCli(folder, "--config '" + config.string() + "' config check");
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.err, "Error: " + config.string() + " - missing tag 'FTPServer'\n");
}

TEST(ConfigCheck, BrokenOrMissingDocumentsFailWithoutAStatusText) {
    TempDir folder;
    const auto truncated = folder.Write("truncated.xml", std::string(kComplete).substr(0, 60));
    const auto binary =
        folder.Write("binary.xml", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    for (const auto& config : {truncated, binary, folder / "absent.xml"}) {
        const CliRun run = RunCli(folder, "--config '" + config.string() + "' config check");
        EXPECT_EQ(run.exitStatus, 1) << config;
        EXPECT_EQ(run.err, "") << config;
    }
}

TEST(ConfigCheck, AMissingPreferencesFileIsNoFailure) {
    TempDir folder;
    const auto config = folder.Write("desk.xml", kComplete);
    const CliRun run =
        RunCli(folder, "--config '" + config.string() + "' --prefs '" +
                           (folder / "none" / "user.ini").string() + "' config check");
    EXPECT_EQ(run.exitStatus, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST(ConfigCheck, WrongArgumentsAreAUsageError) {
    TempDir folder;
    EXPECT_EQ(RunCli(folder, "config").exitStatus, 2);
    EXPECT_EQ(RunCli(folder, "config verify").exitStatus, 2);
    EXPECT_EQ(RunCli(folder, "config check extra").exitStatus, 2);
}

}  // namespace
}  // namespace tessarin
