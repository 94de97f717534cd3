#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <string>

#include "cli/cli_run.h"
#include "support/tool_run.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using namespace testing;

const fs::path kRepository = TESSARIN_SOURCE_DIR;

// Text with every run of white space made one blank, and no blank at either end.
std::string Words(const std::string& text) {
    std::string words = std::regex_replace(text, std::regex("[\\s]+"), " ");
    if (words.starts_with(" ")) words.erase(0, 1);
    if (words.ends_with(" ")) words.pop_back();
    return words;
}

// The demo newsroom's stories, each written as RTF, through a style sheet and as PDF.
class DocumentCommandTest : public ::testing::Test {
  protected:
    void SetUp() override {
        const std::string demo = Quoted((kRepository / "scripts/demo").string()) + " --app-dir " +
                                 Quoted(app_.string()) + " --no-launch >/dev/null";
        ASSERT_EQ(std::system(demo.c_str()), 0);
        for (const auto& entry : fs::directory_iterator(kRepository / "demo/stories"))
            stories_.push_back(app_ / "Stories" / entry.path().filename());
        ASSERT_GE(stories_.size(), 3u);
    }

    // Runs the command on a story; the path it printed, checked to be the one beside it.
    fs::path Document(const std::string& format, const fs::path& story) {
        const CliRun run = RunCli(folder_, "document " + format + " " + Quoted(story.string()));
        EXPECT_EQ(run.exitStatus, 0) << run.err;
        EXPECT_NE(run.err.find("Exported story: "), std::string::npos) << run.err;
        return run.out.empty() ? fs::path() : fs::path(run.out.substr(0, run.out.size() - 1));
    }

    std::string StoryText(const fs::path& story) {
        return RunCli(folder_, "story text " + Quoted(story.string())).out;
    }

    TempDir folder_;
    fs::path app_ = folder_ / "app";
    std::vector<fs::path> stories_;
};

// Each PDF is valid and holds the story's text; each RTF is written beside its story (what a
// word processor reads of one is the RTF export's test).
TEST_F(DocumentCommandTest, PdfsAndRtfsAreWrittenBesideTheirStories) {
    for (const fs::path& story : stories_) {
        const fs::path pdf = Document("pdf", story);
        EXPECT_EQ(pdf, fs::path(story).replace_extension(".pdf"));
        EXPECT_EQ(RunTool("qpdf --check " + Quoted(pdf.string())).exitStatus, 0) << pdf;
        const std::string text =
            RunTool("pdftotext -enc UTF-8 " + Quoted(pdf.string()) + " -").output;
        EXPECT_NE(Words(text).find(Words(StoryText(story))), std::string::npos) << text;
        EXPECT_EQ(Document("rtf", story), fs::path(story).replace_extension(".rtf"));
    }
}

TEST_F(DocumentCommandTest, XslOutputEqualsXsltprocsAndFailuresExitOne) {
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

// story resave opens a document by import and saves it as a story.
TEST_F(DocumentCommandTest, ResaveImportsADocument) {
    const fs::path rtf = folder_.Write("notes/call.rtf", R"({\rtf1 First {\b bold} words\par})");
    const fs::path out = folder_ / "notes/call.xml";
    const CliRun resave = RunCli(
        folder_,
        "story resave " + Quoted(rtf.string()) + " -o " + Quoted(out.string()) + " --unattended",
        "TESSARIN_NOW=2026-03-12T10:15:00 TESSARIN_SHORT_DATE=dd/MM/yyyy");
    EXPECT_EQ(resave.exitStatus, 0) << resave.err;
    EXPECT_NE(ReadBytes(out).find(">First <b>bold</b> words</TextBox6>"), std::string::npos)
        << ReadBytes(out);
}

}  // namespace
}  // namespace tessarin
