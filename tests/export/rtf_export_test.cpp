#include "export/rtf_export.h"

#include <gtest/gtest.h>

#include <regex>

#include "export/beside_story_session.h"
#include "export/rtf_story_draft.h"
#include "export/rtf_writer.h"
#include "support/office_convert.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::ReadBytes;

class RtfExportTest : public testing::BesideStoryTest {
  protected:
    // A title in Arial 18 bold, a blank box, and the main box in the box's own font with
    // italic, superscript, underline, a no-break space mark, a note's anchor, characters
    // that RTF escapes, the euro sign and a character outside the code page; then a
    // signature.
    void WriteStory() {
        Add(0, u"Titre", testing::Font("Arial", 18, true));
        Add(3, u"   ");
        CharFormat italic, superscript, underline, note;
        italic.italic = true;
        superscript.offset = 3;
        underline.underline = true;
        note.isProtected = true;
        Add(6, u"Un ");
        Add(6, u"mot", italic);
        Add(6, u" x");
        Add(6, u"2", superscript);
        Add(6, u"NOTE", note);
        Add(6, u"\u00B7{5 €}\\", underline);
        Add(6, u"\r\nα.");
        session_.story.signature = "Zoé";
    }
};

TEST_F(RtfExportTest, DraftRunsBecomeControlWords) {
    WriteStory();
    EXPECT_EQ(DraftRtf(BuildStoryDraft(session_.story, session_.preferences)),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}"
              "{\\f1\\fnil\\fcharset0 Times New Roman;}}\r\n"
              "\\viewkind4\\uc1\\pard\\f0\\fs36\\b Titre\\par\r\n"
              "\\f1\\fs24\\b0 Un \\i mot\\i0  x\\super 2\\ul\\nosupersub \\~\\{5 \\'80\\}\\\\"
              "\\ulnone \\par\r\n"
              "\\u945?.\\par\r\n"
              "\\qr \\b Zo\\'e9\\par\r\n"
              "}");
}

TEST_F(RtfExportTest, PictureFieldsGoBeforeTheLastBrace) {
    WriteStory();
    session_.window.Control("lblImageCaption").caption = "Légende";
    session_.window.Control("lblImageCredit").caption = "Crédit";
    session_.story.images = {{1, "/photos/été 1.jpg", "Le {port}", "", {}}};
    const std::string images =
        "\\par {{\\field\\fldpriv{\\*\\fldinst{\\\\import \"/photos/\\'e9t\\'e9 1.jpg\"}}"
        "{\\fldrslt }}}\r\n"
        "\\par L\\'e9gende: Le \\{port\\}\r\n"
        "\\par \r\n";

    const BesideStoryExport result = ExportRtfCommand(session_);
    ASSERT_EQ(result.path, stories_ / "brief.v2.rtf");
    EXPECT_TRUE(ReadBytes(result.path).ends_with("\\par\r\n" + images + "}"));

    session_.preferences.RTFWithImages = false;
    EXPECT_EQ(DraftImagesRtf(session_), "");
}

TEST_F(RtfExportTest, NothingIsWrittenWithoutANameOrText) {
    session_.storyFileName = "brief";
    Add(2, u"  ");
    EXPECT_FALSE(ExportRtfCommand(session_).Written());
    EXPECT_EQ(session_.window.Status().text, "Empty story:");
    Add(6, u"Texte");
    EXPECT_EQ(ExportRtfCommand(session_).path, stories_ / "brief.rtf");
    session_.storyDirectory.clear();
    EXPECT_FALSE(ExportRtfCommand(session_).Written());
    EXPECT_EQ(session_.window.Status().text, "Save story before export");
}

// The word processor reads the file: its text, and the bold, italic, underlined and raised
// runs where the story has them.
TEST_F(RtfExportTest, AWordProcessorReadsTheTextAndItsRuns) {
    WriteStory();
    const fs::path rtf = ExportRtfCommand(session_).path;
    ASSERT_FALSE(rtf.empty());
    const fs::path text = testing::OfficeConvert(rtf, "txt:Text (encoded):UTF8", app_.path());
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(ReadBytes(text), "\xEF\xBB\xBFTitre\nUn mot x2\u00A0{5 €}\\\nα.\nZoé\n");

    const fs::path html = testing::OfficeConvert(rtf, "html", app_.path());
    ASSERT_FALSE(html.empty());
    const std::string page = ReadBytes(html);
    for (const char* run :
         {"<b>Titre</b>", "<i>[^<]*(<[^/][^>]*>)*mot", "<u>(<[^/][^>]*>)*&nbsp;\\{5",
          "<sup>(<[^/][^>]*>)*2<", "<b>Zoé</b>", "align=\"right\""}) {
        EXPECT_TRUE(std::regex_search(page, std::regex(run))) << run << "\n" << page;
    }
}

}  // namespace
}  // namespace tessarin
