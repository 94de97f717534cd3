#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "cli/cli_run.h"
#include "session/session_start.h"
#include "support/demo_launch.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using namespace testing;

const fs::path kRepository = TESSARIN_SOURCE_DIR;
const std::string kFrozenClock =
    "TESSARIN_NOW=2026-03-12T10:15:00 TESSARIN_SHORT_DATE=dd/MM/yyyy "
    "TESSARIN_LONG_DATE='dddd d MMMM yyyy'";

int RunDemo(const TempDir& folder) {
    const std::string command = Quoted((kRepository / "scripts/demo").string()) + " --app-dir " +
                                Quoted((folder / "app").string()) + " --no-launch >/dev/null";
    return std::system(command.c_str());
}

// The caption (dataset 120) of a picture's IPTC description.
std::string DescribedCaption(const fs::path& description) {
    std::ifstream lines(description);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("120 ")) return line.substr(4);
    }
    return "";
}

class DemoNewsroom : public ::testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(RunDemo(folder_), 0); }
    TempDir folder_;
    fs::path app_ = folder_ / "app";
};

TEST_F(DemoNewsroom, TheConfigurationLoadsWholeAndTheEditorStartsOnIt) {
    const CliRun check = RunCli(folder_, "config check");
    EXPECT_EQ(std::to_string(check.exitStatus) + check.out, "0") << check.err;

    // Every workflow directory that the start checks is there.
    ScriptedInteraction user;
    EditorSession session(MakeAppPaths(app_), user);
    const StartResult start = StartEditor(session);
    EXPECT_EQ(start.state, StartState::Ready);
    EXPECT_TRUE(start.configurationLoaded);
    EXPECT_EQ(user.messages, std::vector<std::string>{});
    EXPECT_GE(session.configuration.forms.size(), 3u);
}

TEST_F(DemoNewsroom, EveryStoryReadsAndSavesBackToTheSameBytes) {
    int stories = 0;
    for (const auto& entry : fs::directory_iterator(kRepository / "demo/stories")) {
        const fs::path story = app_ / "Stories" / entry.path().filename();
        const fs::path copy = folder_ / "resaved" / story.filename();
        fs::create_directories(copy.parent_path());
        const CliRun resave = RunCli(folder_,
                                     "story resave " + Quoted(story.string()) + " -o " +
                                         Quoted(copy.string()) + " --unattended",
                                     kFrozenClock);
        EXPECT_EQ(resave.exitStatus, 0) << story << resave.err;
        EXPECT_EQ(ReadBytes(copy), ReadBytes(story)) << story;
        ++stories;
    }
    EXPECT_GE(stories, 3);
}

// On a machine whose locale is C (month first), each story, given a line of text, is saved
// again with its checks in the date forms that the launcher gives the editor; without them
// the save is refused with a message that names the date form expected.
TEST_F(DemoNewsroom, EveryStoryIsEditedAndSavedAgainInTheLaunchersDateFormsInTheCLocale) {
    const DemoLaunch launch = LaunchDemo(folder_, app_);
    ASSERT_EQ(launch.exitStatus, 0);
    std::string launcher = "LC_ALL=C";
    for (const char* name : {"TESSARIN_SHORT_DATE", "TESSARIN_LONG_DATE"}) {
        const auto value = launch.environment.find(name);
        ASSERT_NE(value, launch.environment.end()) << name;
        launcher += std::string(" ") + name + "=" + Quoted(value->second);
    }
    const fs::path edited = folder_ / "edited/story.xml";
    const std::string resave = "story resave " + Quoted(edited.string()) + " -o " +
                               Quoted((folder_ / "saved.xml").string());
    for (const auto& entry : fs::directory_iterator(kRepository / "demo/stories")) {
        std::string bytes = ReadBytes(app_ / "Stories" / entry.path().filename());
        bytes.replace(bytes.find("</TextBox6>"), 0, " Updated at noon.");
        folder_.Write("edited/story.xml", bytes);
        const CliRun save = RunCli(folder_, resave, launcher);
        EXPECT_EQ(save.exitStatus, 0) << entry.path() << save.out << save.err;
        EXPECT_NE(ReadBytes(folder_ / "saved.xml").find("Updated at noon."), std::string::npos);

        if (bytes.find("<PublicationDate Name=\"Publication date\">0<") != std::string::npos) {
            continue;  // a cold story has no date to judge
        }
        const CliRun refused = RunCli(folder_, resave, "LC_ALL=C");
        EXPECT_EQ(refused.exitStatus, 1) << entry.path();
        EXPECT_NE(refused.err.find("Publication date: Invalid date (M/d/yyyy)"), std::string::npos)
            << refused.out << refused.err;
    }
}

TEST_F(DemoNewsroom, EveryPictureCarriesItsCaptionInItsIptcData) {
    int pictures = 0;
    for (const auto& entry : fs::directory_iterator(kRepository / "demo/pictures")) {
        if (entry.path().extension() != ".iptc") continue;
        const std::string caption = DescribedCaption(entry.path());
        ASSERT_FALSE(caption.empty()) << entry.path();
        const fs::path picture = app_ / "Pictures" / entry.path().stem() += ".jpg";
        const std::string out = RunCli(folder_, "iptc " + Quoted(picture.string())).out;
        EXPECT_NE(out.find("Caption/Abstract: " + caption + "\n"), std::string::npos) << out;
        ++pictures;
    }
    EXPECT_GE(pictures, 3);
}

TEST_F(DemoNewsroom, ASecondRunKeepsTheUsersStoriesAndRewritesTheConfiguration) {
    const fs::path story = app_ / "Stories/harbour-season.xml";
    std::ofstream(story, std::ios::binary) << "changed";
    std::ofstream(app_ / "Tessarin.xml", std::ios::binary) << "broken";
    ASSERT_EQ(RunDemo(folder_), 0);
    EXPECT_EQ(ReadBytes(story), "changed");
    EXPECT_EQ(RunCli(folder_, "config check").exitStatus, 0);
}

}  // namespace
}  // namespace tessarin
