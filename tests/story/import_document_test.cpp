#include "story/import_document.h"

#include <gtest/gtest.h>

#include "export/beside_story_session.h"
#include "export/rtf_export.h"
#include "markup_test_support.h"
#include "support/office_convert.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::Describe;

class ImportDocumentTest : public testing::BesideStoryTest {
  protected:
    const StyledText& MainBox() const { return session_.story.boxes[6]; }
};

// A story exported to RTF and opened again keeps its text and its bold, italic and
// underlined runs in the main box, as a new, changed story named after the document.
TEST_F(ImportDocumentTest, AnRtfExportOpensAsTheSameText) {
    CharFormat bold, italic, underline, all;
    bold.bold = italic.italic = underline.underline = true;
    all.bold = all.italic = all.underline = true;
    Add(6, u"Début ");
    Add(6, u"gras", bold);
    Add(6, u", ");
    Add(6, u"penché\r\nsur deux lignes", italic);
    Add(6, u" {souligné} ", underline);
    Add(6, u"tout", all);
    Add(6, u" à 5 €, α.");
    const StyledText original = MainBox();
    const fs::path rtf = ExportRtfCommand(session_).path;
    ASSERT_FALSE(rtf.empty());

    session_.story = StoryRecord{};
    ASSERT_TRUE(OpenStoryFile(session_, rtf, StandardDocumentImport()));
    EXPECT_EQ(MainBox().Text(), original.Text());
    EXPECT_EQ(Describe(MainBox()), Describe(original));
    EXPECT_EQ(session_.storyFileName, "brief.v2.xml");
    EXPECT_EQ(session_.storyDirectory, stories_);
    EXPECT_TRUE(session_.storyModified);
    EXPECT_FALSE(fs::exists(stories_ / "brief.v2.xml"));
}

TEST_F(ImportDocumentTest, TextFilesKeepTheirParagraphs) {
    const std::vector<std::pair<std::string, std::u16string>> cases = {
        {"un\r\ndeux\ntrois\rquatre\n", u"un\r\ndeux\r\ntrois\r\nquatre\r\n"},
        {"\xE9t\xE9 \x80", u"été €"},
        {"\xEF\xBB\xBF\xC3\xA9t\xC3\xA9\xC2\xA0!", u"été\u00B7!"},
    };
    for (const auto& [bytes, text] : cases) {
        const fs::path file = app_.Write("notes.txt", bytes);
        ASSERT_TRUE(OpenStoryFile(session_, file, StandardDocumentImport()));
        EXPECT_EQ(MainBox().Text(), text);
        EXPECT_EQ(session_.storyFileName, "notes.xml");
    }
    EXPECT_FALSE(ImportTextDocument(session_, app_ / "missing.txt"));
    EXPECT_TRUE(MainBox().Empty());
}

// An office document comes in through the office suite's conversion; without the suite
// it is not offered, and one named anyway is refused with WordNotInstalled.
TEST_F(ImportDocumentTest, OfficeDocumentsNeedTheOfficeSuite) {
    ASSERT_TRUE(OfficeConverter().has_value()) << "soffice must be on the PATH";
    EXPECT_TRUE(StandardDocumentImport().wordDocuments);
    const fs::path rtf =
        app_.Write("source/lettre.rtf", R"({\rtf1 Ch\'e8re {\b amie}\par Fin.\par})");
    const fs::path odt = testing::OfficeConvert(rtf, "odt", app_.path());
    ASSERT_FALSE(odt.empty());
    ASSERT_TRUE(OpenStoryFile(session_, odt, StandardDocumentImport()));
    EXPECT_EQ(Describe(MainBox()), "[]Chère [b]amie[]\r\nFin.");
    EXPECT_EQ(session_.storyFileName, "lettre.xml");

    testing::ScopedEnvironment noPath("PATH", "");
    EXPECT_FALSE(StandardDocumentImport().wordDocuments);
    session_.story = StoryRecord{};
    EXPECT_FALSE(OpenStoryFile(session_, odt, StandardDocumentImport()));
    EXPECT_EQ(session_.window.Status().text, "Word not installed");
}

}  // namespace
}  // namespace tessarin
