#include "app/configuration_update.h"
#include "app/first_login.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "config/configuration_document.h"
#include "config/load_configuration.h"
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
    document.metadata = "<Metadata><Author Name=\"By\">\xC3\x89mile</Author></Metadata>";
    document.messages = "<Messages><AddStory>" + edition +
                        R"(</AddStory><ConfigurationUpdated>Updated</ConfigurationUpdated>)"
                        R"(<ConfigurationUpdatedInvalid>Invalid</ConfigurationUpdatedInvalid>)"
                        R"(<ConfigurationUpdatedNotChanged>Not changed)"
                        R"(</ConfigurationUpdatedNotChanged></Messages>)";
    return document.Text();
}

// A document waiting for a workstation: "valid" stands for the edition "Courier", anything
// else is written as it is.
std::string Waiting(const std::string& waiting) {
    return waiting == "valid" ? Document("Courier") : waiting;
}

// A workstation of the user Émile: configured, with the edition "Herald" loaded, or new, with
// no configuration document yet and a story being edited.
struct Workstation {
    explicit Workstation(bool configured = true) {
        if (configured) folder.Write("app/Tessarin.xml", Document("Herald"));
        CreateStartDirectories(session.paths);
        session.preferences = ReadPreferences(session.profile);
        session.storyModified = !configured;
        if (configured) {
            EXPECT_TRUE(LoadConfiguration(session.paths.configurationFile, session.profile,
                                          session.preferences, session.configuration,
                                          session.window));
        }
    }
    TempDir folder;
    ScriptedInteraction user;
    EditorSession session{MakeAppPaths(folder / "app"), user};
};

// On an FTP server the initial is folded where it has a plain letter; the server directory
// takes a slash before Updates.
TEST(ConfigurationUpdate, TheInitialIsFoldedOnlyOnAnFtpServer) {
    EXPECT_EQ(FtpUpdatePath("/incoming", "\xC3\xA9mile"), "/incoming/Updates/E/\xC3\xA9mile.xml");
    EXPECT_EQ(FtpUpdatePath("/", "\xC3\xA1gata"), "/Updates/\xC3\x81/\xC3\xA1gata.xml");
}

// At each FTP connection: a document that loads replaces the one in use and leaves the
// server; one that does not parse is rolled back to the backup and stays on the server; with
// none nothing happens. One server serves every case.
TEST(ConfigurationUpdate, FromAnFtpServer) {
    const struct {
        const char* waiting;  // nullptr: no document waits
        UpdateOutcome outcome;
        const char* editionAfter;
        bool leftOnServer;
    } cases[] = {
        {nullptr, UpdateOutcome::NoUpdate, "Herald", false},
        {"valid", UpdateOutcome::Updated, "Courier", false},
        {"<Tessarin><broken></Tessarin>", UpdateOutcome::Invalid, "Herald", true},
    };
    LocalFtpServer server;
    for (const auto& c : cases) {
        fs::remove(server.home / "Updates/E/\xC3\x89mile.xml");
        Workstation desk;
        const std::string former = ReadBytes(desk.session.paths.configurationFile);
        if (c.waiting != nullptr)
            server.home.Write("Updates/E/\xC3\x89mile.xml", Waiting(c.waiting));
        FtpClient ftp;
        ASSERT_TRUE(ftp.OpenConnection(server.Address(), "reporter", "secret"));
        const UpdateResult result = UpdateConfigurationFromFtp(desk.session, ftp, "/");
        EXPECT_EQ(result.outcome, c.outcome) << c.editionAfter;
        EXPECT_EQ(desk.session.Message("AddStory"), c.editionAfter);
        EXPECT_EQ(fs::exists(server.home / "Updates/E/\xC3\x89mile.xml"), c.leftOnServer);
        if (c.outcome == UpdateOutcome::Invalid) {
            EXPECT_TRUE(ReadBytes(desk.session.paths.configurationFile) == former);
            EXPECT_EQ(result.message, "Invalid:\n/Updates/E/\xC3\x89mile.xml\nNot changed");
        }
        if (c.outcome == UpdateOutcome::Updated) {
            EXPECT_EQ(result.status, "/Updates/E/\xC3\x89mile.xml Updated");
            EXPECT_TRUE(ReadBytes(ConfigurationBackupPath(desk.session.paths.configurationFile)) ==
                        former);
        }
    }
}

// At the first activation, with the workflow visible and no forced login only, against the
// updates folder, which is named by the accented initial itself: a document that loads
// replaces the one in use and leaves the folder, its status in the status panel; one that
// does not parse is rolled back and stays.
TEST(ConfigurationUpdate, FromTheUpdatesFolderAtStart) {
    const struct {
        bool visible, forced;
        const char* waiting;  // nullptr: no document waits
        UpdateOutcome outcome;
        const char* editionAfter;
    } cases[] = {
        {true, false, "valid", UpdateOutcome::Updated, "Courier"},
        {true, false, nullptr, UpdateOutcome::NoUpdate, "Herald"},
        {true, false, "<Tessarin", UpdateOutcome::Invalid, "Herald"},
        {true, true, "valid", UpdateOutcome::NoUpdate, "Herald"},
        {false, false, "valid", UpdateOutcome::NoUpdate, "Herald"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.visible << c.forced << (c.waiting ? c.waiting : ""));
        Workstation desk;
        WorkflowSettings& workflow = desk.session.configuration.workflow;
        workflow.UpdatesDirectory = (desk.folder / "updates").string();
        fs::create_directories(workflow.UpdatesDirectory);
        workflow.Visible = c.visible;
        workflow.ForceLogin = c.forced;
        const fs::path waiting = desk.folder / "updates/\xC3\x89/\xC3\x89mile.xml";
        if (c.waiting != nullptr)
            desk.folder.Write("updates/\xC3\x89/\xC3\x89mile.xml", Waiting(c.waiting));
        EXPECT_EQ(UpdateConfigurationAtStart(desk.session).outcome, c.outcome);
        EXPECT_EQ(desk.session.Message("AddStory"), c.editionAfter);
        EXPECT_EQ(fs::exists(waiting), c.waiting != nullptr && c.outcome != UpdateOutcome::Updated);
        EXPECT_EQ(desk.session.window.Status().text,
                  c.outcome == UpdateOutcome::Updated ? "Updated: " + waiting.string() : "");
    }
}

// The user émile's document waits in Updates/É/ (the initial upper-cased, not folded); at
// login it is removed from the server whatever it holds. One server serves every case.
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
        {nullptr, "secret", false, false,
         "Unknown parameters file on FTP Server @:\nUpdates/\xC3\x89/\xC3\xA9mile.xml\n"},
        {"valid", "secret", true, true, ""},
        {"<Tessarin><Metadata></Tessarin>", "secret", true, false, ""},
    };
    LocalFtpServer server;
    for (const auto& c : cases) {
        fs::remove(server.home / remote);
        if (c.waiting != nullptr) server.home.Write(remote, Waiting(c.waiting));
        Workstation desk(false);
        FtpClient ftp;
        const LoginResult result = RunFirstLogin(desk.session, ftp,
                                                 {LoginSource::FtpServer, server.Address(),
                                                  "\xC3\xA9mile", "reporter", c.password, false});
        SCOPED_TRACE(c.messageStart);
        EXPECT_EQ(result.done, c.done);
        EXPECT_EQ(result.loaded, c.loaded);
        std::string start = c.messageStart;
        if (const auto at = start.find('@'); at != std::string::npos)
            start.replace(at, 1, server.Address());
        EXPECT_TRUE(result.message.starts_with(start)) << result.message;
        EXPECT_EQ(fs::exists(server.home / remote), c.waiting != nullptr && !c.done);
        EXPECT_EQ(fs::exists(desk.session.paths.configurationFile), c.done);
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
        {"updates", "bob", true, false, false, "Unknown configuration file on File Server:\n@"},
        {"updates", " ann ", true, false, true, ""},
        {"updates", "ann", true, true, true, ""},
    };
    for (const auto& c : cases) {
        Workstation desk(false);
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

}  // namespace
}  // namespace tessarin
