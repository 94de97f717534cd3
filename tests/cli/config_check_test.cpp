#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "cli/cli_run.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

using testing::CliRun;
using testing::Quoted;
using testing::RunCli;
using testing::TempDir;

const std::string kComplete =
    R"(<Tessarin><FTPTransmission><FTPServer IPNumber="ftp.example.org"/></FTPTransmission>)"
    R"(<Metadata/><Story/><Publications><Publication Name="Herald"/></Publications></Tessarin>)";

// The load's status text, after "Error: " and the document's path, is printed; the exit is
// the load's result. A document that does not parse fails without a text;
// preferences that are not there are no failure, and are not made.
TEST(ConfigCheck, PrintsTheStatusTextAndExitsWithTheLoadsResult) {
    TempDir folder;
    const struct {
        std::string file;
        std::string document;
        int exitStatus;
        std::string status;
    } rows[] = {{"complete.xml", kComplete, 0, ""},
                {"no-story.xml",
                 R"(<Tessarin><FTPTransmission><FTPServer/></FTPTransmission><Metadata/>)"
                 R"(<Publications><Publication/></Publications></Tessarin>)",
                 1, " - missing section 'Story'"},
                {"no-server.xml",
                 R"(<Tessarin><FTPTransmission/><Metadata/><Story/>)"
                 R"(<Publications><Publication/></Publications></Tessarin>)",
                 0, " - missing tag 'FTPServer'"},
                {"truncated.xml", kComplete.substr(0, 60), 1, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.file);
        const auto config = folder.Write(row.file, row.document);
        const CliRun run =
            RunCli(folder, "--config " + Quoted(config.string()) + " --prefs " +
                               Quoted((folder / "none/user.ini").string()) + " config check");
        EXPECT_EQ(run.exitStatus, row.exitStatus);
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err,
                  row.status.empty() ? "" : "Error: " + config.string() + row.status + "\n");
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "none"));
}

TEST(ConfigCheck, TheApplicationDirectoryDocumentIsTheDefault) {
    TempDir folder;
    folder.Write("app/Tessarin.xml", "<Tessarin><Metadata/></Tessarin>");
    const CliRun run = RunCli(folder, "config check");
    EXPECT_EQ(run.exitStatus, 1);
    EXPECT_EQ(run.err, "Error: " + (folder / "app" / "Tessarin.xml").string() +
                           "- missing section 'FTPTransmission'\n");
}

TEST(ConfigCheck, WrongArgumentsAreAUsageError) {
    TempDir folder;
    for (const char* arguments : {"config", "config verify", "config check extra"})
        EXPECT_EQ(RunCli(folder, arguments).exitStatus, 2) << arguments;
}

}  // namespace
}  // namespace tessarin
