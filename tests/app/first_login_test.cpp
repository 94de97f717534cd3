#include "app/first_login.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/configuration_selection.h"
#include "config/configuration_document.h"
#include "config/preferences.h"
#include "support/local_server.h"
#include "support/temp_dir.h"

namespace fs = std::filesystem;

namespace tessarin {
namespace {

using testing::ConfigurationDocument;
using testing::LocalFtpServer;
using testing::ReadBytes;
using testing::TempDir;

// A document whose message AddStory names the edition it belongs to.
std::string Document(const std::string& edition) {
    ConfigurationDocument document;
    document.messages = "<Messages><AddStory>" + edition + "</AddStory></Messages>";
    return document.Text();
}

constexpr const char* kBroken = "<Tessarin><Metadata></Tessarin>";

// A new workstation: no configuration document yet.
struct NewWorkstation {
    NewWorkstation() {
        CreateStartDirectories(session.paths);
        session.preferences = ReadPreferences(session.profile);
        session.storyModified = true;
    }
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder / "app"), user};
};

// The user émile's document waits in Updates/É/ (the initial upper-cased, not folded); at
// login it is removed from the server whatever it holds.
TEST(FirstLogin, FromAnFtpServer) {
    const std::string remote = "Updates/\xC3\x89/\xC3\xA9mile.xml";
    const struct {
        const char* waiting;  // nullptr: none
        const char* password;
        bool done, loaded;
        const char* messageStart;
    } cases[] = {
        {"valid", "wrong", false, false,
         "Not connected. Please verify the following:\n- FTP server name or number\n- user "
         "name\n- password"},
        {nullptr, "secret", false, false, "Unknown parameters file on FTP Server "},
        {"valid", "secret", true, true, ""},
        {kBroken, "secret", true, false, ""},
    };
    for (const auto& c : cases) {
        LocalFtpServer server;
        if (c.waiting != nullptr)
            server.home.Write(remote,
                              c.waiting == std::string("valid") ? Document("Courier") : c.waiting);
        NewWorkstation desk;
        FtpClient ftp;
        const LoginResult result = RunFirstLogin(desk.session, ftp,
                                                 {LoginSource::FtpServer, server.Address(),
                                                  "\xC3\xA9mile", "reporter", c.password, false});
        SCOPED_TRACE(c.messageStart);
        EXPECT_EQ(result.done, c.done);
        EXPECT_EQ(result.loaded, c.loaded);
        EXPECT_TRUE(result.message.starts_with(c.messageStart)) << result.message;
        EXPECT_EQ(fs::exists(server.home / remote), c.waiting != nullptr && !c.done);
        EXPECT_EQ(fs::exists(desk.session.paths.configurationFile), c.done);
        if (c.messageStart == std::string("Unknown parameters file on FTP Server ")) {
            EXPECT_TRUE(result.message.starts_with(std::string(c.messageStart) + server.Address() +
                                                   ":\n" + remote + "\n"))
                << result.message;
        }
        if (c.loaded) {
            EXPECT_EQ(desk.session.Message("AddStory"), "Courier");
            EXPECT_FALSE(desk.session.storyModified);
        }
    }
}

// From an updates folder: the trimmed folder and user must be given; a forced login leaves
// the document for the next day.
TEST(FirstLogin, FromAFileServer) {
    const struct {
        const char* folder;  // below the test folder; nullptr: blanks only
        const char* user;
        bool waiting, forced, done;
        const char* message;  // "@" stands for the document's path
    } cases[] = {
        {nullptr, "ann", true, false, false,
         "Please verify the following:\n- File Server UPDATES folder\n- user name"},
        {"updates", "  ", true, false, false,
         "Please verify the following:\n- File Server UPDATES folder\n- user name"},
        {"updates", "bob", true, false, false, "Unknown configuration file on File Server:\n@"},
        {"updates", " ann ", true, false, true, ""},
        {"updates", "ann", true, true, true, ""},
    };
    for (const auto& c : cases) {
        NewWorkstation desk;
        desk.folder.Write("updates/A/ann.xml", Document("Courier"));
        const fs::path waiting = desk.folder / "updates/A/ann.xml";
        const std::string folder =
            c.folder == nullptr ? std::string("   ") : " " + (desk.folder / c.folder).string();
        FtpClient ftp;
        const LoginResult result = RunFirstLogin(
            desk.session, ftp, {LoginSource::FileServer, folder, c.user, "", "", c.forced});
        SCOPED_TRACE(c.user);
        EXPECT_EQ(result.done, c.done);
        std::string expected = c.message;
        if (const auto at = expected.find('@'); at != std::string::npos)
            expected.replace(at, 1, (desk.folder / "updates/B/bob.xml").string());
        EXPECT_EQ(result.message, expected);
        EXPECT_EQ(fs::exists(waiting), !c.done || c.forced);
        if (c.done) {
            EXPECT_EQ(desk.session.Message("AddStory"), "Courier");
        }
    }
}

// Only "Tessarin-<name>.<ext>" and "TipOfTheDay-<name>.<ext>" are offered, and the one chosen
// replaces the document in use and is loaded.
TEST(ConfigurationSelection, OffersTheNamedDocumentsAndInstallsTheChosenOne) {
    NewWorkstation desk;
    for (const char* name :
         {"Tessarin.xml", "TessarinSports.xml", "Tessarin-Weekend.xml", "Tessarin-Sports.xml",
          "Tessarin-nodot", "TipOfTheDay.xml", "TipOfTheDay-fr.xml"})
        desk.folder.Write(std::string("app/") + name, Document(name));
    const NamedDocuments documents = ListNamedDocuments(desk.session.paths.appDir);
    EXPECT_EQ(documents.configurations, (std::vector<std::string>{"Sports", "Weekend"}));
    EXPECT_EQ(documents.tips, (std::vector<std::string>{"fr"}));

    std::string problem;
    EXPECT_TRUE(SelectConfiguration(desk.session, "Weekend", problem));
    EXPECT_EQ(desk.session.Message("AddStory"), "Tessarin-Weekend.xml");
    EXPECT_FALSE(SelectConfiguration(desk.session, "Monthly", problem));
    EXPECT_NE(problem.find("Tessarin-Monthly.xml"), std::string::npos) << problem;
    EXPECT_EQ(desk.session.Message("AddStory"), "Tessarin-Weekend.xml");

    EXPECT_EQ(SelectTipOfTheDay(desk.session.paths, "fr"), "");
    EXPECT_EQ(ReadBytes(desk.session.paths.tipFile), Document("TipOfTheDay-fr.xml"));
}

}  // namespace
}  // namespace tessarin
