#include "session/session_start.h"

#include <gtest/gtest.h>

#include <set>

#include "common/scoped_environment.h"
#include "config/configuration_document.h"
#include "support/temp_dir.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;

// A session whose application directory does not exist yet; folders beside it stand for the
// workflow's directories.
class SessionStartTest : public ::testing::Test {
  protected:
    void Configure(const std::string& workflow, const std::string& interface = "") {
        testing::ConfigurationDocument document;
        document.metadata = R"(<Metadata><Forms><Form Name="A" TextBoxes="17"/></Forms>)"
                            R"(<Status><StatusItem Name="Draft" FormalName="Draft"/>)"
                            R"(<StatusItem Name="Ready" FormalName="Usable"/></Status></Metadata>)";
        document.story = "<Story/>" + workflow;
        document.interface = interface;
        document.messages = "<Messages/>";
        temp_.Write("app/Tessarin.xml", document.Text());
    }
    std::string Folder(const std::string& name) {
        fs::create_directories(temp_ / name);
        return (temp_ / name).string();
    }
    StartState Start(const StartOptions& options = {}) {
        return StartEditor(session_, options).state;
    }

    testing::TempDir temp_;
    fs::path app_ = temp_ / "app";
    ScriptedInteraction user_;
    EditorSession session_{MakeAppPaths(app_), user_};
};

TEST_F(SessionStartTest, AFirstStartMakesOnlyItsFoldersAndAGivenConfigurationIsInstalledFirst) {
    EXPECT_EQ(Start(), StartState::FirstLoginNeeded);
    std::set<fs::path> made;
    for (const auto& entry : fs::recursive_directory_iterator(app_))
        made.insert(entry.path());
    EXPECT_EQ(made, (std::set<fs::path>{app_ / "Upload", app_ / "Upload/Logs", app_ / "XSLT"}));

    Configure("");
    fs::rename(app_ / "Tessarin.xml", temp_ / "given.xml");
    const StartResult result =
        StartEditor(session_, {" " + (temp_ / "given.xml").string() + " ", {}, {}, {}});
    EXPECT_TRUE(result.state == StartState::Ready && result.configurationLoaded);
    EXPECT_EQ(ReadBytes(app_ / "Tessarin.xml"), ReadBytes(temp_ / "given.xml"));
}

TEST_F(SessionStartTest, WorkflowDirectoriesAreCheckedInOrderWhileTheWorkflowIsVisible) {
    const std::string missing = (temp_ / "tracking").string();
    const std::string attributes = "PersonalTextsDirectory=\"" + Folder("personal") +
                                   "\" PersonalArchivesDirectory=\"\" TrackingTextsDirectory=\"" +
                                   missing + "\" WorkflowDirectory=\"" + (temp_ / "flow").string() +
                                   "\"";
    Configure("<Workflow " + attributes + "/>");
    temp_.Write("app/Tessarin.ini", "[Configuration]\r\nDirStories=" + Folder("last") +
                                        "\r\nDirImages=" + (temp_ / "gone").string() + "\r\n");
    const std::string ini = ReadBytes(app_ / "Tessarin.ini");
    EXPECT_EQ(Start(), StartState::Ready);
    EXPECT_TRUE(session_.lastStoryDirectory == temp_ / "last" &&
                session_.lastImageDirectory.empty());

    Configure("<Workflow Visible=\"true\" " + attributes + "/>");
    EXPECT_EQ(Start(), StartState::EndProgram);
    EXPECT_EQ(user_.messages, std::vector<std::string>{"Invalid directory:\n" + missing +
                                                       "\nContact your system administrator"});
    EXPECT_EQ(user_.beeps, 1);
    Folder("tracking");
    Folder("flow");
    EXPECT_EQ(Start(), StartState::Ready);
    EXPECT_EQ(session_.lastStoryDirectory, temp_ / "personal");
    EXPECT_EQ(ReadBytes(app_ / "Tessarin.ini"), ini);
}

TEST_F(SessionStartTest, AForcedLoginOrASecondInstanceCanEndTheStart) {
    Configure(R"(<Workflow ForceLogin="true"/>)", R"(<Interface MultipleInstances="false"/>)");
    EXPECT_EQ(Start(), StartState::LoginForced);
    EXPECT_EQ(Start({"", {}, {}, [](EditorSession&) { return false; }}), StartState::EndProgram);
    EXPECT_EQ(Start({"", {}, {}, [](EditorSession&) { return true; }}), StartState::Ready);
    EXPECT_EQ(Start({"", [] { return true; }, {}, {}}), StartState::EndProgram);
    EXPECT_EQ(user_.messages, std::vector<std::string>{"Program already running"});
}

TEST_F(SessionStartTest, TheNewStoryIsReadyAndClosingAsksAboutItsChangesBeforeTheWindowState) {
    testing::ScopedEnvironment now("TESSARIN_NOW", "2025-02-28T00:01:00");
    testing::ScopedEnvironment shortDate("TESSARIN_SHORT_DATE", "dd/MM/yyyy");
    Configure("");
    temp_.Write("app/Tessarin.ini", "[FileMRU]\r\nFile2=/news/today.xml\r\n");
    ASSERT_EQ(Start(), StartState::Ready);
    EXPECT_FALSE(session_.window.Control("mnuFileMRU1").visible);
    EXPECT_EQ(session_.window.Control("mnuFileMRU2").caption, "today.xml");
    EXPECT_EQ(session_.story.publicationDate, "01/03/2025");
    EXPECT_EQ(session_.story.statusIndex, 1);  // the status whose formal name is "Usable"
    FirstActivation(session_);
    EXPECT_TRUE(session_.panel.formInForce == 0 && session_.panel.activeBoxes[6] &&
                !session_.panel.activeBoxes[1]);

    const std::string ini = ReadBytes(app_ / "Tessarin.ini");
    MainWindowSection window;
    window.Left = 10;
    session_.storyModified = true;
    session_.storyDirectory = temp_.path();
    session_.storyFileName = "empty.xml";
    user_.QueueAnswer(Answer::Cancel);
    EXPECT_FALSE(CloseEditor(session_, window));
    EXPECT_EQ(ReadBytes(app_ / "Tessarin.ini"), ini);
    user_.QueueAnswer(Answer::No);
    EXPECT_TRUE(CloseEditor(session_, window));
    EXPECT_EQ(ReadBytes(app_ / "Tessarin.ini"),
              ini + "[MainWindow]\r\nWindowState=0\r\nLeft=10\r\n");
}

}  // namespace
}  // namespace tessarin
