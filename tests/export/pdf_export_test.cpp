#include "export/pdf_export.h"

#include <gtest/gtest.h>

#include <regex>
#include <tuple>
#include <vector>

#include "export/beside_story_session.h"
#include "export/pdf_line_layout.h"
#include "support/tool_run.h"

namespace tessarin {
namespace {

namespace fs = std::filesystem;
using testing::Font;
using testing::ReadBytes;

TEST(PdfLineLayoutTest, WrapsByTheRealWidthsOfTheChosenFont) {
    // Helvetica's "a" is 556 thousandths wide, Times' 444, the blank 278 and 250.
    const std::vector<std::tuple<const char*, std::u16string, double, std::vector<std::size_t>>>
        cases = {
            {"Arial", u"Hello\r\nWorld", 400, {0, 7}},
            {"Arial", u"abc\r\n", 400, {0}},
            {"Arial", u"aaaa aaaa", 30, {0, 5}},
            {"Arial", u"aaaa     aaaa", 30, {0, 9}},  // blanks overhang the line's end
            {"Arial", u"aaaaaaaaaa", 20, {0, 3, 6, 9}},
            {"Arial", u"aaaaa", 25, {0, 4}},
            {"Times New Roman", u"aaaaa", 25, {0}},
            {"Arial", u"\r\n\r\nab", 400, {0, 2, 4}},
        };
    for (const auto& [font, text, width, starts] : cases) {
        EXPECT_EQ(WrapDraftLines(StyledText(text, Font(font, 10)), width), starts)
            << font << " " << width;
    }
}

class PdfExportTest : public testing::BesideStoryTest {
  protected:
    fs::path pdf_ = stories_ / "brief.v2.pdf";
};

// The story's runs in their fonts, then enough lines for pages of their own: at most eight
// of these paragraphs fit on a page.
TEST_F(PdfExportTest, StoryBoxesBecomeReadableTextInTheirFontsOverSeveralPages) {
    Add(0, u"Le titre (urgent)", Font("Times New Roman", 18, true));
    Add(6, u"Un texte ", Font("Times New Roman", 12));
    Add(6, u"en italique", Font("Times New Roman", 12, false, true));
    Add(6, u" puis ", Font("Times New Roman", 12));
    CharFormat note = Font("Times New Roman", 12);
    note.isProtected = true;
    Add(6, u"NOTE CACHÉE", note);
    Add(6, u"Courier", Font("Courier New", 12, false, true));
    Add(6, u"\r\nPrix\u00B7: 5 € et l'été.", Font("Times New Roman", 12));
    std::u16string paragraph;
    for (int word = 0; word < 60; ++word)
        paragraph += u"lorem ipsum ";
    for (int line = 0; line < 40; ++line)
        Add(6, u"\r\n" + paragraph, Font("Arial", 10));
    Add(6, u"\r\nLa fin.", Font("Arial", 10));
    session_.story.signature = "Zoé";
    session_.story.taxonomy = {{"Politique", 1}, {"Sport", 2}};

    const BesideStoryExport result = ExportPdfCommand(session_);
    ASSERT_EQ(result.path, pdf_);
    EXPECT_TRUE(result.openWithShell);
    EXPECT_EQ(session_.window.Status().text, "Exported story: " + pdf_.string());

    const auto check = testing::RunTool("qpdf --check " + testing::Quoted(pdf_.string()));
    EXPECT_EQ(check.exitStatus, 0) << check.output.substr(0, 2000);
    const std::string text = Tool("pdftotext -layout -enc UTF-8", pdf_, " -");
    EXPECT_TRUE(std::regex_search(
        text, std::regex("Le titre \\(urgent\\)\\s+Un texte en italique puis Courier\\s+"
                         "Prix.: 5 € et l'été.\\s+lorem ipsum")))
        << text.substr(0, 2000);
    EXPECT_EQ(text.find("NOTE"), std::string::npos);

    const std::string info = Tool("pdfinfo -enc UTF-8", pdf_);
    EXPECT_NE(info.find("Title:           Le titre (urgent)"), std::string::npos) << info;
    EXPECT_NE(info.find("Subject:         Politique; Sport"), std::string::npos) << info;
    EXPECT_NE(info.find("Author:          Zoé Dupré"), std::string::npos) << info;
    std::smatch pages;
    ASSERT_TRUE(std::regex_search(info, pages, std::regex("Pages: +([0-9]+)")));
    EXPECT_GE(std::stoi(pages[1]), 5);
    EXPECT_TRUE(std::regex_search(Tool("pdftotext -enc UTF-8 -f " + pages[1].str(), pdf_, " -"),
                                  std::regex("La fin.\\s+Zoé")));

    // Each run's font is named in its content stream; Courier italic is Helvetica-Oblique.
    const std::string bytes = ReadBytes(pdf_);
    for (const char* run : {"/F11 18 Tf\n(Le titre \\(urgent\\)) Tj",
                            "/F10 12 Tf\n(en italique) Tj", "/F6 12 Tf\n(Courier) Tj"}) {
        EXPECT_NE(bytes.find(run), std::string::npos) << run;
    }
}

}  // namespace
}  // namespace tessarin
