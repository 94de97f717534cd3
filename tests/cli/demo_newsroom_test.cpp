#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "cli/cli_run.h"
#include "session/session_start.h"
#include "support/demo_launch.h"
#include "support/tool_run.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using namespace testing;

const fs::path kRepository = TESSARIN_SOURCE_DIR;

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

// The demo newsroom written into the folder's application directory, and its stories there.
class DemoNewsroom : public ::testing::Test {
  protected:
    void SetUp() override {
        ASSERT_EQ(RunDemo(folder_), 0);
        for (const auto& entry : fs::directory_iterator(kRepository / "demo/stories"))
            stories_.push_back(app_ / "Stories" / entry.path().filename());
        ASSERT_GE(stories_.size(), 3u);
    }

    // Runs "document FORMAT" on a story; the path it printed.
    fs::path Document(const std::string& format, const fs::path& story) {
        const CliRun run = RunCli(folder_, "document " + format + " " + Quoted(story.string()));
        EXPECT_EQ(run.exitStatus, 0) << run.err;
        EXPECT_NE(run.err.find("Exported story: "), std::string::npos) << run.err;
        return run.out.empty() ? fs::path() : fs::path(run.out.substr(0, run.out.size() - 1));
    }

    TempDir folder_;
    fs::path app_ = folder_ / "app";
    std::vector<fs::path> stories_;
};

TEST_F(DemoNewsroom, EveryStoryReadsAndSavesBackToTheSameBytes) {
    for (const fs::path& story : stories_) {
        const fs::path copy = folder_ / "resaved" / story.filename();
        fs::create_directories(copy.parent_path());
        const CliRun resave = RunCli(folder_,
                                     "story resave " + Quoted(story.string()) + " -o " +
                                         Quoted(copy.string()) + " --unattended",
                                     "TESSARIN_NOW=2026-03-12T10:15:00 "
                                     "TESSARIN_SHORT_DATE=dd/MM/yyyy "
                                     "TESSARIN_LONG_DATE='dddd d MMMM yyyy'");
        EXPECT_EQ(resave.exitStatus, 0) << story << resave.err;
        EXPECT_EQ(ReadBytes(copy), ReadBytes(story)) << story;
    }
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
    for (const fs::path& story : stories_) {
        std::string bytes = ReadBytes(story);
        bytes.replace(bytes.find("</TextBox6>"), 0, " Updated at noon.");
        folder_.Write("edited/story.xml", bytes);
        const CliRun save = RunCli(folder_, resave, launcher);
        EXPECT_EQ(save.exitStatus, 0) << story << save.out << save.err;
        EXPECT_NE(ReadBytes(folder_ / "saved.xml").find("Updated at noon."), std::string::npos);

        if (bytes.find("<PublicationDate Name=\"Publication date\">0<") != std::string::npos) {
            continue;  // a cold story has no date to judge
        }
        const CliRun refused = RunCli(folder_, resave, "LC_ALL=C");
        EXPECT_EQ(refused.exitStatus, 1) << story;
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

// The configuration loads whole (no missing section told) and the editor starts on it; a second run
// rewrites it and leaves the user's stories alone.
TEST_F(DemoNewsroom, ASecondRunKeepsTheUsersStoriesAndRewritesTheConfiguration) {
    const CliRun check = RunCli(folder_, "config check");
    EXPECT_EQ(std::to_string(check.exitStatus) + check.out + check.err, "0");
    // The editor starts on it without a word: every workflow directory is there.
    ScriptedInteraction user;
    EditorSession session(MakeAppPaths(app_), user);
    EXPECT_EQ(StartEditor(session).state, StartState::Ready);
    EXPECT_EQ(user.messages, std::vector<std::string>{});
    const fs::path story = app_ / "Stories/harbour-season.xml";
    std::ofstream(story, std::ios::binary) << "changed";
    std::ofstream(app_ / "Tessarin.xml", std::ios::binary) << "broken";
    ASSERT_EQ(RunDemo(folder_), 0);
    EXPECT_EQ(ReadBytes(story), "changed");
    EXPECT_EQ(RunCli(folder_, "config check").exitStatus, 0);
}

// Each PDF and RTF is written beside its story (what the files hold is the PDF and RTF
// exports' tests).
TEST_F(DemoNewsroom, PdfsAndRtfsAreWrittenBesideTheirStories) {
    for (const fs::path& story : stories_) {
        EXPECT_EQ(Document("pdf", story), fs::path(story).replace_extension(".pdf"));
        EXPECT_EQ(Document("rtf", story), fs::path(story).replace_extension(".rtf"));
    }
}

TEST_F(DemoNewsroom, XslOutputEqualsXsltprocsAndFailuresExitOne) {
    const CliRun missing = RunCli(folder_, "document xsl " + Quoted(stories_[0].string()));
    EXPECT_EQ(missing.exitStatus, 1);
    EXPECT_EQ(missing.out, "");
    EXPECT_NE(missing.err.find("Save story before export"), std::string::npos) << missing.err;

    const fs::path sheet = app_ / "XSLT/Tessarin.xsl";
    folder_.Write(
        "app/XSLT/Tessarin.xsl",
        "<?xml version=\"1.0\"?>\n<!-- extension=html -->\n"
        "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
        "<xsl:output method=\"html\" encoding=\"ISO-8859-1\"/><xsl:template match=\"/\">"
        "<html><body><h1><xsl:value-of select=\"//TextBox1\"/></h1><p><xsl:value-of "
        "select=\"//TextBox6\"/></p><p><xsl:value-of select=\"count(//p)\"/> é</p></body></html>"
        "</xsl:template></xsl:stylesheet>");
    for (const fs::path& story : stories_) {
        const fs::path out = Document("xsl", story);
        EXPECT_EQ(out, fs::path(story).replace_extension(".html"));
        const ToolRun reference =
            RunTool("xsltproc " + Quoted(sheet.string()) + " " + Quoted(story.string()));
        EXPECT_EQ(ReadBytes(out), reference.output);
    }

    EXPECT_EQ(RunCli(folder_, "document doc " + Quoted(stories_[0].string())).exitStatus, 2);
}

}  // namespace
}  // namespace tessarin
