#include "export/xsl_export.h"

#include <gtest/gtest.h>

#include "common/file_io.h"
#include "export/beside_story_session.h"
#include "export/xsl_transform.h"
#include "story/story_file_writer.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;

// A style sheet that writes "x", with an extension comment that is not at the top level.
const std::string kSheetBody =
    "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
    "<!-- extension=inner --><xsl:template match=\"/\">x</xsl:template></xsl:stylesheet>";

class XslExportTest : public testing::BesideStoryTest {
  protected:
    XslExportTest() {
        Add(0, u"Titre & été");
        Add(6, u"Le texte <principal>.");
        const std::string bytes = ComposeStoryFile(session_.story, session_.MakeStoryContext(),
                                                   session_.storyFileName, {2025, 2, 20, 9, 30, 0});
        storyFile_ = app_.Write("stories/brief.v2.xml", bytes);
    }

    fs::path UseSheet(const std::string& name, std::string_view text) {
        const fs::path sheet = app_.Write("XSLT/" + name, text);
        session_.preferences.XSLT = sheet.string();
        return sheet;
    }

    fs::path storyFile_;
};

TEST_F(XslExportTest, TheLastTopLevelExtensionCommentNamesTheExtension) {
    for (const auto& [comments, extension] : std::vector<std::pair<std::string, std::string>>{
             {"", "htm"},
             {"<!-- extension=xml -->", "xml"},
             {"<!--Output: extension=  txt \n-->", "txt"},
             {"<!-- extension=xml --><!-- other --><!--extension=csv-->", "csv"}}) {
        XmlDocument sheet;
        ASSERT_TRUE(sheet.LoadBytes(comments + kSheetBody));
        EXPECT_EQ(StyleSheetExtension(sheet), extension) << comments;
    }

    UseSheet("text.xsl", "<!-- extension=txt -->" + kSheetBody);
    EXPECT_EQ(ExportXslCommand(session_).path, stories_ / "brief.v2.txt");
    EXPECT_EQ(ReadBytes(stories_ / "brief.v2.txt"), "<?xml version=\"1.0\"?>\nx\n");
}

TEST_F(XslExportTest, FailuresAreToldAndWriteNothingOrAnEmptyFile) {
    // No style sheet.
    EXPECT_FALSE(ExportXslCommand(session_).Written());
    EXPECT_EQ(session_.window.Status().text, "Save story before export");

    // A style sheet that does not parse: the box has its own words.
    const fs::path broken = UseSheet("broken.xsl", "<xsl:stylesheet>\n  <a></b>\n");
    EXPECT_FALSE(ExportXslCommand(session_).Written());
    ASSERT_FALSE(user_.messages.empty());
    EXPECT_TRUE(user_.messages.back().starts_with("Parsing error:" + broken.string() +
                                                  ", Ligne: 2, position: "))
        << user_.messages.back();
    EXPECT_FALSE(fs::exists(stories_ / "brief.v2.htm"));

    // A transformation that stops: an empty file, InvalidXSLT and the processor's reason.
    UseSheet("stop.xsl",
             "<xsl:stylesheet version=\"1.0\" xmlns:xsl=\"http://www.w3.org/1999/XSL/Transform\">"
             "<xsl:template match=\"/\"><xsl:message terminate=\"yes\">Arrêt demandé"
             "</xsl:message></xsl:template></xsl:stylesheet>");
    EXPECT_FALSE(ExportXslCommand(session_).Written());
    EXPECT_EQ(session_.window.Status().text, "Invalid XSL transformation");
    EXPECT_TRUE(session_.window.Status().errorPicture);
    EXPECT_NE(user_.messages.back().find("Arrêt demandé"), std::string::npos)
        << user_.messages.back();
    EXPECT_TRUE(fs::exists(stories_ / "brief.v2.htm"));
    EXPECT_EQ(ReadBytes(stories_ / "brief.v2.htm"), "");

    // A story file that does not parse: the export's parse error.
    WriteFileAtomically(storyFile_, "<Story><a></Story>");
    UseSheet("text.xsl", "<!-- extension=txt -->" + kSheetBody);
    EXPECT_FALSE(ExportXslCommand(session_).Written());
    EXPECT_TRUE(user_.messages.back().starts_with("Parsing error:" + storyFile_.string() +
                                                  ", line:1, pos:"))
        << user_.messages.back();
}

}  // namespace
}  // namespace tessarin
