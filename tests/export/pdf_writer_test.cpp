#include "export/pdf_writer.h"

#include <gtest/gtest.h>

#include <functional>
#include <regex>

#include "common/scoped_environment.h"
#include "common/windows1252.h"
#include "support/shell_quote.h"
#include "support/temp_dir.h"
#include "support/tool_run.h"

namespace tessarin {
namespace {

using testing::Quoted;
using testing::ReadBytes;
using testing::RunTool;
using testing::ScopedEnvironment;
using testing::TempDir;

class PdfWriterTest : public ::testing::Test {
  protected:
    std::string Write(const std::function<void(cVB2PDF&)>& body) {
        pdf_.FileName = folder_ / "out.pdf";
        pdf_.Creator = pdf_.Producer = "Tessarin 1.0.0";
        pdf_.StartPDF();
        body(pdf_);
        EXPECT_TRUE(pdf_.EndPDF());
        return ReadBytes(pdf_.FileName);
    }
    std::string Tool(const std::string& command) {
        return RunTool(command + " " + Quoted(pdf_.FileName.string())).output;
    }

    ScopedEnvironment now_{"TESSARIN_NOW", "2025-02-20T09:30:05"};
    TempDir folder_;
    cVB2PDF pdf_;
};

TEST_F(PdfWriterTest, OneLineDocumentHasItsObjectsInFixedPlaces) {
    const std::string bytes =
        Write([](cVB2PDF& pdf) { pdf.WritePDF("Prix (net) a\\b", false, 9, 12); });
    const std::string head =
        "%PDF-1.4\r\n"
        "1 0 obj\n<<\n/CreationDate (D:20250220093005)\n/Creator (Tessarin 1.0.0)\n"
        "/Producer (Tessarin 1.0.0)\n>>\nendobj\r\n"
        "4 0 obj\n<<\n/Type /Font\n/Subtype /Type1\n/Name /F1\n/Encoding 18 0 R\n"
        "/BaseFont /Courier\n>>\nendobj\r\n";
    EXPECT_EQ(bytes.substr(0, head.size()), head);
    for (const char* piece :
         {"16 0 obj\n<<\n/Type /Font\n/Subtype /Type1\n/Name /F13\n/BaseFont /Symbol\n>>",
          "18 0 obj\n<<\n/Type /Encoding\n/BaseEncoding /WinAnsiEncoding\n>>\nendobj\r\n",
          "  /ProcSet [ /PDF /Text ]\n>>\nendobj\r\n"
          "20 0 obj\n<<\n/Type /Page\n/Parent 3 0 R\n/Resources 19 0 R\n/Contents 21 0 R\n>>\n"
          "endobj\r\n21 0 obj\n<<\n/Length 22 0 R\n>>\nstream\nBT\r\n/F1 10 Tf\r\n"
          "1 0 0 1 50 792 Tm\r\n12 TL\r\n/F9 12 Tf\n(Prix \\(net\\) a\\\\b) Tj\r\n"
          "ET\nendstream\nendobj\r\n22 0 obj\n78\nendobj\r\n",
          "3 0 obj\n<<\n/Type /Pages\n/Count 1\n/MediaBox [ 0 0 595 842 ]\n/Kids [ 20 0 R ]\n"
          ">>\nendobj\r\nxref\n0 23\n0000000000 65535 f\r\n",
          "trailer\n<<\n/Size 23\n/Root 2 0 R\n/Info 1 0 R\n>>\nstartxref\n"}) {
        EXPECT_NE(bytes.find(piece), std::string::npos) << piece;
    }
    EXPECT_TRUE(bytes.ends_with("\n%%EOF\r\n"));

    EXPECT_EQ(PdfNumber(-0.0) + " " + PdfNumber(-0.5) + " " + PdfNumber(792), "0 -0.5 792");
}

// Every standard font, accented French, the euro sign and three pages: the file is valid
// for qpdf without a warning, and the readers find its text and fonts (its description is
// the story export's test).
TEST_F(PdfWriterTest, ThreePagesInEveryFontPassTheRealTools) {
    Write([](cVB2PDF& pdf) {
        for (int page = 1; page <= 3; ++page) {
            if (page > 1) pdf.NewPage();
            for (int font = 1; font <= 12; ++font) {
                pdf.WritePDF(Utf8ToWindows1252("Page " + std::to_string(page) + " police " +
                                               std::to_string(font) + " : l'été coûte 5 €"),
                             false, font, 11);
                pdf.WritePDF({}, true, 0, 0);
            }
            pdf.WritePDF("abc", false, 13, 11);
            pdf.WritePDF({}, true, 0, 0);
            pdf.WritePDF("4", false, 14, 11);
        }
    });
    const auto check = RunTool("qpdf --check " + Quoted(pdf_.FileName.string()));
    EXPECT_EQ(check.exitStatus, 0) << check.output;
    EXPECT_EQ(check.output.find("WARNING"), std::string::npos) << check.output;

    const std::string text =
        RunTool("pdftotext -layout -enc UTF-8 " + Quoted(pdf_.FileName.string()) + " -").output;
    for (const char* line :
         {"Page 1 police 1 : l'été coûte 5 €", "Page 2 police 7 : l'été coûte 5 €",
          "Page 3 police 12 : l'été coûte 5 €"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
    }
    EXPECT_TRUE(std::regex_search(Tool("pdfinfo"), std::regex("Pages: +3\n")));

    // The fourteen fonts, each named once, none embedded.
    const std::string fonts = Tool("pdffonts");
    const std::regex unembedded("\\n[A-Za-z-]+ +Type 1 +[A-Za-z]+ +no ");
    EXPECT_EQ(std::distance(std::sregex_iterator(fonts.begin(), fonts.end(), unembedded),
                            std::sregex_iterator()),
              14)
        << fonts;
}

}  // namespace
}  // namespace tessarin
